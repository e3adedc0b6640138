// Running the built `zel` from an end-to-end test: every test has a scratch folder, and zel
// runs with that folder's settings file and data folder, so the user's own are never touched.
// A run gives the exit code, standard output and standard error apart.
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
#include <vector>

namespace zel::e2e {

namespace fs = std::filesystem;

struct ZelRun {
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

// The pieces of `text` between `separator`s; a last piece without its separator counts too.
inline std::vector<std::string> pieces(const std::string& text, char separator = '\n') {
  std::vector<std::string> out;
  std::stringstream in(text);
  for (std::string piece; std::getline(in, piece, separator);) out.push_back(piece);
  return out;
}

// Every file under `folder`, relative path -> bytes.
inline std::map<std::string, std::string> snapshot(const fs::path& folder) {
  std::map<std::string, std::string> files;
  for (const auto& e : fs::recursive_directory_iterator(folder)) {
    if (e.is_regular_file()) files[fs::relative(e.path(), folder).string()] = slurp(e.path());
  }
  return files;
}

class ZelTest : public ::testing::Test {
 protected:
  void SetUp() override {
    std::random_device rd;
    dir_ = fs::temp_directory_path() / ("zel-e2e-" + std::to_string(rd()));
    fs::create_directories(dir_);
  }
  void TearDown() override { fs::remove_all(dir_); }

  std::string path(const std::string& name) const { return (dir_ / name).string(); }

  // Runs zel through the shell; `prefix` runs first in the same shell (a ulimit, say).
  ZelRun zel(const std::string& args, const std::string& prefix = "") const {
    const std::string outFile = path("stdout.txt");
    const std::string errFile = path("stderr.txt");
    const std::string command = prefix + "'" + std::string(ZEL_BIN_DIR) + "/zel' --settings '" +
                                path("settings.ini") + "' --data-dir '" + path("data") + "' " +
                                args + " >'" + outFile + "' 2>'" + errFile + "'";
    ZelRun run;
    const int status = std::system(command.c_str());
    run.exitCode = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    run.out = slurp(outFile);
    run.err = slurp(errFile);
    return run;
  }

  fs::path dir_;
};

// `zel card` on simulated cards made by `zel sim card` in the scratch folder.
class CardCommand : public ZelTest {
 protected:
  std::string card(const std::string& name, const std::string& model) {
    const std::string folder = path(name);
    ZelRun r = zel("sim card '" + folder + "' --model " + model);
    EXPECT_EQ(r.exitCode, 0) << r.err;
    return folder;
  }
  static std::string root(const std::string& card) { return " --root '" + card + "'"; }
  static fs::path fav(const std::string& card) {
    return fs::path(card) / "BCDx36HP" / "favorites_lists";
  }
};

}  // namespace zel::e2e
