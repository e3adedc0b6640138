#include "formats/text_file.h"

#include <cstdio>
#include <filesystem>

namespace zel::formats {

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

std::vector<std::string_view> splitLines(std::string_view text) {
  std::vector<std::string_view> lines;
  forEachLine(text, [&](std::string_view line) { lines.push_back(line); });
  return lines;
}

bool fileExists(const std::string& path) {
  std::error_code ec;
  return std::filesystem::is_regular_file(path, ec);
}

}  // namespace zel::formats
