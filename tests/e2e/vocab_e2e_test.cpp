// `zel vocab` end to end: the real binary, its output and its exit codes.
#include <algorithm>

#include "zel_run.h"

namespace {

using zel::e2e::pieces;
using zel::e2e::ZelRun;
using VocabCommand = zel::e2e::ZelTest;

TEST_F(VocabCommand, PrintsAListOneWordALineInOfferedOrder) {
  struct Case {
    const char* key;
    std::size_t count;
    const char* first;
    const char* second;
    const char* last;
  };
  const Case cases[] = {
      {"'SQ Code_c'", 51, "Search", "67.0", "254.1"},
      {"'Service Type'", 39, "Aircraft", "Business", "Racing Teams"},
      {"'SQ Code_dmr'", 17, "Search", "0", "15"},
      {"Mode", 6, "AUTO", "AM", "FMB"},
  };
  for (const auto& c : cases) {
    ZelRun run = zel("vocab " + std::string(c.key));
    EXPECT_EQ(run.exitCode, 0) << c.key << ": " << run.err;
    auto lines = pieces(run.out);
    ASSERT_EQ(lines.size(), c.count) << c.key;
    EXPECT_EQ(lines[0], c.first);
    EXPECT_EQ(lines[1], c.second);
    EXPECT_EQ(lines.back(), c.last);
    EXPECT_EQ(run.err, "");
  }
}

TEST_F(VocabCommand, AnUnknownKeyIsAUserErrorAndNoKeyBadUsage) {
  ZelRun run = zel("vocab LockOut");
  EXPECT_EQ(run.exitCode, 1);
  EXPECT_EQ(run.out, "");
  EXPECT_NE(run.err.find("\"LockOut\""), std::string::npos) << run.err;
  EXPECT_NE(run.err.find("zel vocab --list"), std::string::npos) << run.err;
  EXPECT_EQ(run.err.find('\n'), run.err.size() - 1) << "one line: " << run.err;
  // Neither a key nor --list, or both, is bad usage.
  EXPECT_EQ(zel("vocab").exitCode, 2);
  EXPECT_EQ(zel("vocab --list Mode").exitCode, 2);
}

TEST_F(VocabCommand, ListPrintsEveryKeyAndEachKeyPrintsAList) {
  ZelRun run = zel("vocab --list");
  ASSERT_EQ(run.exitCode, 0);
  auto keys = pieces(run.out);
  ASSERT_EQ(keys.size(), 53u);
  EXPECT_EQ(keys.front(), "Avoid");
  EXPECT_EQ(keys.back(), "pages");
  for (const char* key : {"SQ Code_n", "System Type HP1", "bands eu"}) {
    EXPECT_NE(std::find(keys.begin(), keys.end(), key), keys.end()) << key;
    ZelRun list = zel("vocab '" + std::string(key) + "'");
    EXPECT_EQ(list.exitCode, 0) << key;
    EXPECT_FALSE(list.out.empty()) << key;
  }
}

TEST_F(VocabCommand, JsonPrintsOneArray) {
  ZelRun run = zel("vocab --json Mode");
  EXPECT_EQ(run.exitCode, 0);
  EXPECT_EQ(run.out, "[\"AUTO\",\"AM\",\"NFM\",\"FM\",\"WFM\",\"FMB\"]\n");

  ZelRun keys = zel("vocab --list --json");
  EXPECT_EQ(keys.exitCode, 0);
  EXPECT_EQ(keys.out.rfind("[\"Avoid\",\"Attenuator\",", 0), 0u) << keys.out;
  EXPECT_TRUE(keys.out.ends_with(",\"pages\"]\n")) << keys.out;
}

}  // namespace
