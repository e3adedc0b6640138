// `zel vocab` end to end: the real binary, its output and its exit codes.
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

namespace {

struct ZelRun {
  int exitCode = -1;
  std::string out;
  std::string err;
  std::vector<std::string> lines() const {
    std::vector<std::string> result;
    std::istringstream in(out);
    for (std::string line; std::getline(in, line);) result.push_back(line);
    return result;
  }
};

class VocabCommand : public ::testing::Test {
 protected:
  void SetUp() override {
    dir_ = std::filesystem::temp_directory_path() / ("zel-vocab-e2e-" + std::to_string(::getpid()));
    std::filesystem::create_directories(dir_);
  }
  void TearDown() override { std::filesystem::remove_all(dir_); }

  // Runs zel with its own settings file, so the user's settings are never touched.
  ZelRun zel(const std::string& args) {
    std::string errFile = (dir_ / "stderr.txt").string();
    std::string command = std::string("'") + ZEL_BIN_DIR + "/zel' --settings '" +
                          (dir_ / "settings.ini").string() + "' " + args + " 2>'" + errFile + "'";
    ZelRun run;
    FILE* pipe = ::popen(command.c_str(), "r");
    if (!pipe) return run;
    char buffer[4096];
    std::size_t n;
    while ((n = std::fread(buffer, 1, sizeof buffer, pipe)) > 0) run.out.append(buffer, n);
    int status = ::pclose(pipe);
    run.exitCode = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    std::ifstream err(errFile);
    run.err.assign(std::istreambuf_iterator<char>(err), {});
    return run;
  }

  std::filesystem::path dir_;
};

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
    auto lines = run.lines();
    ASSERT_EQ(lines.size(), c.count) << c.key;
    EXPECT_EQ(lines[0], c.first);
    EXPECT_EQ(lines[1], c.second);
    EXPECT_EQ(lines.back(), c.last);
    EXPECT_EQ(run.err, "");
  }
}

TEST_F(VocabCommand, AnUnknownKeyIsAUserErrorPointingToTheList) {
  ZelRun run = zel("vocab LockOut");
  EXPECT_EQ(run.exitCode, 1);
  EXPECT_EQ(run.out, "");
  EXPECT_NE(run.err.find("\"LockOut\""), std::string::npos) << run.err;
  EXPECT_NE(run.err.find("zel vocab --list"), std::string::npos) << run.err;
  EXPECT_EQ(run.err.find('\n'), run.err.size() - 1) << "one line: " << run.err;
}

TEST_F(VocabCommand, NeitherKeyNorListIsBadUsage) {
  EXPECT_EQ(zel("vocab").exitCode, 2);
  EXPECT_EQ(zel("vocab --list Mode").exitCode, 2);
}

TEST_F(VocabCommand, ListPrintsEveryKeyAndEachKeyPrintsAList) {
  ZelRun run = zel("vocab --list");
  ASSERT_EQ(run.exitCode, 0);
  auto keys = run.lines();
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
