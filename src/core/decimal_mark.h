// The decimal sign of the system. It is found once at run time the way the system always
// found it: format two thirds in the user's locale and look for a comma. Code that reads
// numbers typed by the user takes a DecimalMark by value, so tests can run both marks.
#pragma once

#include <string>
#include <string_view>

namespace zel {

class DecimalMark {
 public:
  constexpr DecimalMark() = default;  // a point
  static constexpr DecimalMark point() { return DecimalMark('.'); }
  static constexpr DecimalMark comma() { return DecimalMark(','); }
  // The mark of this machine's locale, detected on first use and kept.
  static DecimalMark system();
  // The mark that a text of two thirds, formatted by the locale, shows ("0,666667").
  static DecimalMark fromSample(std::string_view formattedTwoThirds);

  char sign() const { return sign_; }
  bool isComma() const { return sign_ == ','; }

  // Reads the leading number of a text as the system does: under a decimal comma every
  // "." is first turned into ",", and the mark is the only decimal sign. So under a comma
  // "12.5" and "12,5" both read 12.5, while under a point "12,5" reads 12.
  double parse(std::string_view text) const;

  friend constexpr bool operator==(DecimalMark a, DecimalMark b) { return a.sign_ == b.sign_; }

 private:
  explicit constexpr DecimalMark(char sign) : sign_(sign) {}
  char sign_ = '.';
};

}  // namespace zel
