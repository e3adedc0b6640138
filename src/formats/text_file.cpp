#include "formats/text_file.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
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

WriteStatus writeFileAtomically(const std::string& path, std::string_view content) {
  WriteStatus status;
  const std::string partial = path + ".zeltmp";
  std::FILE* f = std::fopen(partial.c_str(), "wb");
  if (!f) {
    status.error = errno;
    status.description = std::strerror(status.error);
    return status;
  }
  const bool written = std::fwrite(content.data(), 1, content.size(), f) == content.size();
  int writeError = written ? 0 : errno;
  if (std::fclose(f) != 0 && writeError == 0) writeError = errno ? errno : EIO;
  if (!written || writeError != 0) {
    std::remove(partial.c_str());
    status.error = writeError ? writeError : EIO;
    status.description = std::strerror(status.error);
    return status;
  }
  std::error_code ec;
  std::filesystem::rename(partial, path, ec);
  if (ec) {
    std::remove(partial.c_str());
    status.error = ec.value();
    status.description = ec.message();
    return status;
  }
  status.ok = true;
  return status;
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
