// Whole-file reads, line splitting, and (through atomic_file.h) safe writes for the
// scanner's text files.
#pragma once

#include <cstring>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/whole_file.h"
#include "formats/atomic_file.h"

namespace zel::formats {

// The bytes of a file, or nothing when it cannot be opened.
using ::zel::readWholeFile;

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
