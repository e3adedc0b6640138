// A fresh temporary folder for a test, removed with everything in it afterwards. Page files
// are many small files: a memory file system, where there is one, keeps the tests quick.
#pragma once

#include <cstdint>
#include <filesystem>
#include <random>
#include <string>

namespace zel {

class TestFolder {
 public:
  TestFolder() {
    std::random_device rd;
    std::error_code ec;
    // The memory file system is faster, but a container often gives it only 64 MB: it is
    // used only when it has room for the largest state files' pages several times over.
    constexpr std::uintmax_t kRoomNeeded = 1024ull * 1024 * 1024;
    const bool roomy = std::filesystem::is_directory("/dev/shm", ec) &&
                       std::filesystem::space("/dev/shm", ec).available >= kRoomNeeded && !ec;
    const std::filesystem::path base =
        roomy ? std::filesystem::path("/dev/shm") : std::filesystem::temp_directory_path();
    path_ = base / ("zel-test-" + std::to_string(rd()) + "-" + std::to_string(rd()));
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
