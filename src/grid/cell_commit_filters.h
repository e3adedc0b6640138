// The character filters of the cell commit. Each one deletes or replaces single characters
// by their code (8-bit, the code page of the scanner files), so that what a cell may hold is
// stated as code sets that a test can walk:
//
//   filter        deleted codes                          replaced by "_"
//   Name          0-31 91-93 123-255                     34 61 96
//   Frequency     1-45 47 59-255
//   Code          (upper-cased first) 1-45 47 58-64 71-255
//   Talkgroup     (leading "I" -> "i" first) 1-41 43 44 46 47 58-104 106-255
//   Comment       14-31 91-93 123-255                    34 96
//   Digits        1-44 46 47 58-255
//   Fips          0-41 43-47 58-64 91-96 123-255
#pragma once

#include <string>
#include <string_view>

namespace zel::cell {

enum class CharFilter { Name, Frequency, Code, Talkgroup, Comment, Digits, Fips };

enum class CharAction { Keep, Delete, Underscore };

// What a filter does with one character code.
CharAction filterAction(CharFilter filter, unsigned char code);
// The text passed through a filter (including the upper-casing of the code filter and the
// leading "I" of the talkgroup filter).
std::string applyFilter(CharFilter filter, std::string_view text);

}  // namespace zel::cell
