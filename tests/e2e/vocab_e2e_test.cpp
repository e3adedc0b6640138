// `zel vocab` end to end: the real binary, its output and its exit codes. The lists themselves
// are the vocabulary's (grid tests); here only how the command prints them.
#include <gmock/gmock.h>

#include <algorithm>

#include "zel_run.h"

namespace {

using zel::e2e::pieces;
using zel::e2e::ZelRun;
using VocabCommand = zel::e2e::ZelTest;
using ::testing::HasSubstr;

TEST_F(VocabCommand, PrintsAListOneWordALineAndEveryKeyWithList) {
  ZelRun run = zel("vocab 'SQ Code_c'");
  EXPECT_EQ(run.exitCode, 0) << run.err;
  EXPECT_EQ(run.err, "");
  auto lines = pieces(run.out);
  EXPECT_EQ(lines[0] + " " + lines[1] + " .. " + lines.back(), "Search 67.0 .. 254.1");
  ZelRun list = zel("vocab --list");
  ASSERT_EQ(list.exitCode, 0);
  auto keys = pieces(list.out);
  ASSERT_NE(std::find(keys.begin(), keys.end(), "System Type HP1"), keys.end()) << list.out;
  EXPECT_EQ(zel("vocab 'System Type HP1'").exitCode, 0);
  EXPECT_EQ(zel("vocab --json Mode").out, "[\"AUTO\",\"AM\",\"NFM\",\"FM\",\"WFM\",\"FMB\"]\n");
}

TEST_F(VocabCommand, AnUnknownKeyIsAUserErrorAndNoKeyBadUsage) {
  ZelRun run = zel("vocab LockOut");
  EXPECT_EQ(run.exitCode, 1);
  EXPECT_EQ(run.out, "");
  EXPECT_THAT(run.err, AllOf(HasSubstr("\"LockOut\""), HasSubstr("zel vocab --list")));
  EXPECT_EQ(run.err.find('\n'), run.err.size() - 1) << "one line: " << run.err;
  // Neither a key nor --list, or both, is bad usage.
  EXPECT_EQ(zel("vocab").exitCode, 2);
  EXPECT_EQ(zel("vocab --list Mode").exitCode, 2);
}

}  // namespace
