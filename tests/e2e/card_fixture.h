// The fixture of the `zel card` end-to-end tests: the real binary with its own settings and
// data folder, simulated cards made by `zel sim card`, and byte-for-byte folder snapshots.
#pragma once

#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <random>
#include <sstream>
#include <string>

namespace zel::e2e {

namespace fs = std::filesystem;

struct CardRun {
  int exitCode = -1;
  std::string out;
  std::string err;
};

inline std::string slurp(const fs::path& p) {
  std::ifstream in(p, std::ios::binary);
  std::stringstream ss;
  ss << in.rdbuf();
  return ss.str();
}

inline std::map<std::string, std::string> snapshot(const fs::path& folder) {
  std::map<std::string, std::string> files;
  for (const auto& e : fs::recursive_directory_iterator(folder)) {
    if (e.is_regular_file()) files[fs::relative(e.path(), folder).string()] = slurp(e.path());
  }
  return files;
}

class CardCommand : public ::testing::Test {
 protected:
  void SetUp() override {
    std::random_device rd;
    dir_ = fs::temp_directory_path() / ("zel-card-e2e-" + std::to_string(rd()));
    fs::create_directories(dir_);
  }
  void TearDown() override { fs::remove_all(dir_); }

  // Runs zel with its own settings and data folder; `prefix` runs first in the same shell.
  CardRun zel(const std::string& args, const std::string& prefix = "") {
    const std::string errFile = (dir_ / "stderr.txt").string();
    const std::string outFile = (dir_ / "stdout.txt").string();
    std::string command = prefix + "'" + std::string(ZEL_BIN_DIR) + "/zel' --settings '" +
                          (dir_ / "settings.ini").string() + "' --data-dir '" +
                          (dir_ / "data").string() + "' " + args + " >'" + outFile + "' 2>'" +
                          errFile + "'";
    CardRun run;
    int status = std::system(("sh -c \"" + command + "\"").c_str());
    run.exitCode = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    run.out = slurp(outFile);
    run.err = slurp(errFile);
    return run;
  }
  std::string card(const std::string& name, const std::string& model) {
    const auto path = (dir_ / name).string();
    CardRun r = zel("sim card '" + path + "' --model " + model);
    EXPECT_EQ(r.exitCode, 0) << r.err;
    return path;
  }
  std::string root(const std::string& card) { return " --root '" + card + "'"; }
  fs::path fav(const std::string& card) { return fs::path(card) / "BCDx36HP" / "favorites_lists"; }

  fs::path dir_;
};

}  // namespace zel::e2e
