#include "core/whole_file.h"

#include <cstdio>
#include <filesystem>

namespace zel {

std::optional<std::string> readWholeFile(const std::string& path) {
  std::error_code ec;
  if (std::filesystem::is_directory(path, ec)) return std::nullopt;
  std::FILE* f = std::fopen(path.c_str(), "rb");
  if (!f) return std::nullopt;
  std::string data;
  if (std::fseek(f, 0, SEEK_END) == 0) {
    long size = std::ftell(f);
    if (size > 0) data.reserve(static_cast<std::size_t>(size));
    std::fseek(f, 0, SEEK_SET);
  }
  char buffer[1 << 16];
  std::size_t got;
  while ((got = std::fread(buffer, 1, sizeof buffer, f)) > 0) data.append(buffer, got);
  const bool failed = std::ferror(f) != 0;
  std::fclose(f);
  if (failed) return std::nullopt;
  return data;
}

}  // namespace zel
