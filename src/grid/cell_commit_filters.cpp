#include "grid/cell_commit_filters.h"

#include <array>
#include <initializer_list>
#include <utility>

namespace zel::cell {

namespace {

using Table = std::array<CharAction, 256>;
using Range = std::pair<int, int>;

Table makeTable(std::initializer_list<Range> deleted, std::initializer_list<int> underscored) {
  Table table;
  table.fill(CharAction::Keep);
  for (auto [lo, hi] : deleted) {
    for (int c = lo; c <= hi; ++c) table[c] = CharAction::Delete;
  }
  for (int c : underscored) table[c] = CharAction::Underscore;
  return table;
}

const Table& tableOf(CharFilter filter) {
  static const Table name = makeTable({{0, 31}, {91, 93}, {123, 255}}, {34, 61, 96});
  static const Table frequency = makeTable({{1, 45}, {47, 47}, {59, 255}}, {});
  static const Table code = makeTable({{1, 45}, {47, 47}, {58, 64}, {71, 255}}, {});
  static const Table talkgroup =
      makeTable({{1, 41}, {43, 44}, {46, 47}, {58, 104}, {106, 255}}, {});
  static const Table comment = makeTable({{14, 31}, {91, 93}, {123, 255}}, {34, 96});
  static const Table digits = makeTable({{1, 44}, {46, 47}, {58, 255}}, {});
  static const Table fips = makeTable({{0, 41}, {43, 47}, {58, 64}, {91, 96}, {123, 255}}, {});
  switch (filter) {
    case CharFilter::Name:
      return name;
    case CharFilter::Frequency:
      return frequency;
    case CharFilter::Code:
      return code;
    case CharFilter::Talkgroup:
      return talkgroup;
    case CharFilter::Comment:
      return comment;
    case CharFilter::Digits:
      return digits;
    case CharFilter::Fips:
      return fips;
  }
  return name;
}

}  // namespace

CharAction filterAction(CharFilter filter, unsigned char code) {
  return tableOf(filter)[code];
}

std::string applyFilter(CharFilter filter, std::string_view text) {
  const Table& table = tableOf(filter);
  std::string out;
  out.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    unsigned char c = static_cast<unsigned char>(text[i]);
    // Codes are upper-cased before the code filter looks at them, so "a"-"f" of a typed
    // NAC survive as hexadecimal digits.
    if (filter == CharFilter::Code && c >= 'a' && c <= 'z') c = static_cast<unsigned char>(c - 32);
    // An individual ID read from a file may start with a capital; the cell keeps "i".
    if (filter == CharFilter::Talkgroup && i == 0 && c == 'I') c = 'i';
    switch (table[c]) {
      case CharAction::Keep:
        out.push_back(static_cast<char>(c));
        break;
      case CharAction::Underscore:
        out.push_back('_');
        break;
      case CharAction::Delete:
        break;
    }
  }
  return out;
}

}  // namespace zel::cell
