// A fresh temporary folder for a test, removed with everything in it afterwards.
#pragma once

#include <filesystem>
#include <random>
#include <string>

namespace zel {

class TestFolder {
 public:
  TestFolder() {
    std::random_device rd;
    path_ = std::filesystem::temp_directory_path() / ("zel-test-" + std::to_string(rd()));
    std::filesystem::create_directories(path_);
  }
  ~TestFolder() {
    std::error_code ec;
    std::filesystem::remove_all(path_, ec);
  }
  TestFolder(const TestFolder&) = delete;
  TestFolder& operator=(const TestFolder&) = delete;
  std::string path() const { return path_.string(); }
  std::string file(const std::string& name) const { return (path_ / name).string(); }

 private:
  std::filesystem::path path_;
};

}  // namespace zel
