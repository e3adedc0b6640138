// Whole-file reads and safe writes for the scanner's text files. A write goes to a
// temporary name beside the target and replaces the target only when every byte is out, so
// a failed save never leaves a cut file where the user's file was.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zel::formats {

// The bytes of a file, or nothing when it cannot be opened.
std::optional<std::string> readWholeFile(const std::string& path);

struct WriteStatus {
  bool ok = false;
  int error = 0;            // errno of the step that failed
  std::string description;  // its text
};
// Writes `content` to `path` through "<path>.zeltmp" and a rename.
WriteStatus writeFileAtomically(const std::string& path, std::string_view content);

// Splits text into lines at CR LF, LF or CR; the ends are not kept. A last line without an
// end counts; an end at the very end of the text adds no empty line.
std::vector<std::string_view> splitLines(std::string_view text);

// Calls `fn(line)` for each line as splitLines() would cut them, without a vector.
template <typename Fn>
void forEachLine(std::string_view text, Fn&& fn) {
  std::size_t pos = 0;
  const std::size_t n = text.size();
  while (pos < n) {
    std::size_t end = pos;
    while (end < n && text[end] != '\r' && text[end] != '\n') ++end;
    fn(text.substr(pos, end - pos));
    if (end < n && text[end] == '\r' && end + 1 < n && text[end + 1] == '\n') {
      pos = end + 2;
    } else {
      pos = end + 1;
    }
  }
}

bool fileExists(const std::string& path);

}  // namespace zel::formats
