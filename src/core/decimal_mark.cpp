#include "core/decimal_mark.h"

#include <locale>
#include <sstream>

#include "core/text.h"

namespace zel {

DecimalMark DecimalMark::fromSample(std::string_view formattedTwoThirds) {
  return formattedTwoThirds.find(',') != std::string_view::npos ? comma() : point();
}

DecimalMark DecimalMark::system() {
  static const DecimalMark detected = [] {
    std::ostringstream out;
    try {
      out.imbue(std::locale(""));
    } catch (const std::exception&) {
      // A locale the C++ library cannot load is the classic one, with a point.
      return point();
    }
    out << 2.0 / 3.0;
    return fromSample(out.str());
  }();
  return detected;
}

double DecimalMark::parse(std::string_view text) const {
  if (!isComma()) return leadingNumber(text);
  // Under a comma both signs end up as the one decimal sign; leadingNumber reads ".".
  std::string unified(text);
  for (char& c : unified) {
    if (c == ',') c = '.';
  }
  return leadingNumber(unified);
}

}  // namespace zel
