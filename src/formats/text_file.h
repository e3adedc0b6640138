// Whole-file reads and safe writes for the scanner's text files. A write goes to a
// temporary name beside the target and replaces the target only when every byte is out, so
// a failed save never leaves a cut file where the user's file was.
#pragma once

#include <cstring>
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

// Calls `fn(line)` for each line as splitLines() would cut them, without a vector. The
// search for line ends runs on memchr, which matters for files of megabytes.
template <typename Fn>
void forEachLine(std::string_view text, Fn&& fn) {
  const char* p = text.data();
  const char* const end = p + text.size();
  while (p < end) {
    const char* lf = static_cast<const char*>(std::memchr(p, '\n', end - p));
    const char* stop = lf ? lf : end;
    // A CR before the LF belongs to it; any other CR ends a line of its own.
    const char* lineEnd = (lf && lf > p && lf[-1] == '\r') ? lf - 1 : stop;
    while (const char* cr = static_cast<const char*>(std::memchr(p, '\r', lineEnd - p))) {
      fn(std::string_view(p, cr - p));
      p = cr + 1;
    }
    if (p < lineEnd || lf) fn(std::string_view(p, lineEnd - p));
    p = lf ? lf + 1 : end;
  }
}

bool fileExists(const std::string& path);

}  // namespace zel::formats
