// What the fuzz targets of file readers share: a scratch folder of their own for the files
// a reader takes by name, emptied for each input.
#pragma once

#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>
#include <unistd.h>

namespace zel::fuzz {

class Scratch {
 public:
  Scratch() {
    std::string pattern = (std::filesystem::temp_directory_path() / "zel-fuzz-XXXXXX").string();
    if (char* made = mkdtemp(pattern.data())) folder_ = made;
    if (folder_.empty()) std::abort();
  }
  ~Scratch() {
    std::error_code ec;
    std::filesystem::remove_all(folder_, ec);
  }
  const std::string& folder() const { return folder_; }
  // Writes `bytes` to `name` under the folder (folders made) and returns its path.
  std::string write(const std::string& name, std::string_view bytes) const {
    const std::filesystem::path p = std::filesystem::path(folder_) / name;
    std::filesystem::create_directories(p.parent_path());
    std::ofstream(p, std::ios::binary | std::ios::trunc).write(bytes.data(), bytes.size());
    return p.string();
  }
  void clear() const {
    std::error_code ec;
    for (const auto& e : std::filesystem::directory_iterator(folder_, ec)) {
      std::filesystem::remove_all(e.path(), ec);
    }
  }

 private:
  std::string folder_;
};

// One scratch folder for the whole run of a target.
inline const Scratch& scratch() {
  static const Scratch s;
  return s;
}

inline std::string_view textOf(const std::uint8_t* data, std::size_t size) {
  return {reinterpret_cast<const char*>(data), size};
}

}  // namespace zel::fuzz
