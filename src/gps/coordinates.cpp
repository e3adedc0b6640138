#include "gps/coordinates.h"

#include <cmath>
#include <string>

#include "core/text.h"

namespace zel::gps {

namespace {

constexpr double kMaxDms = 1800000;

// Output always shows a point, whatever the locale formatted.
std::string withPoint(std::string text) {
  for (char& c : text) {
    if (c == ',') c = '.';
  }
  return text;
}

std::string clamp(std::string_view text, double limit, const char* upper, const char* lower,
                  DecimalMark mark) {
  if (text.empty()) return {};
  double value = mark.parse(text);
  if (value > limit) return upper;
  if (value < -limit) return lower;
  return std::string(text);
}

// The digits of w from a 1-based position, as a number; nothing there reads 0.
double digitsAt(const std::string& w, std::size_t start1, std::size_t length) {
  return leadingNumber(mid(w, start1, length));
}

std::string dmsValueToDegrees(double x) {
  bool negative = x < 0;
  x = std::fabs(x);
  if (x > kMaxDms) x = kMaxDms;
  if (x == 0) return "0";

  double whole = std::trunc(x);
  double fraction = x - whole;
  std::string w = std::to_string(static_cast<long long>(whole));
  std::size_t len = w.size();

  double seconds =
      leadingNumber(len <= 2 ? std::string_view(w) : std::string_view(w).substr(len - 2));
  double minutes = 0;
  switch (len) {
    case 3:
      minutes = digitsAt(w, 1, 1);
      break;
    case 4:
      minutes = digitsAt(w, 1, 2);
      break;
    case 5:
      minutes = digitsAt(w, 2, 2);
      break;
    case 6:
      minutes = digitsAt(w, 3, 2);
      break;
    case 7:
      minutes = digitsAt(w, 4, 2);
      break;
    default:
      break;
  }
  double degrees = 0;
  switch (len) {
    case 5:
      degrees = digitsAt(w, 1, 1);
      break;
    case 6:
      degrees = digitsAt(w, 1, 2);
      break;
    case 7:
      degrees = digitsAt(w, 1, 3);
      break;
    default:
      break;
  }

  double result = degrees + minutes / 60 + (seconds + fraction) / 3600;
  std::string out = withPoint(formatFixed(result, 6));
  return negative ? "-" + out : out;
}

// The mask "00.00": two decimals and at least two digits before the point.
std::string twoByTwo(double value) {
  std::string out = formatFixed(value, 2);
  std::size_t point = out.find('.');
  if (point != std::string::npos && point < 2) out.insert(0, 2 - point, '0');
  return out;
}

}  // namespace

std::string ClampLatitude(std::string_view text, DecimalMark mark) {
  return clamp(text, 90, "90", "-90", mark);
}

std::string ClampLongitude(std::string_view text, DecimalMark mark) {
  return clamp(text, 180, "180", "-180", mark);
}

std::string DmsToDegrees(std::string_view number, DecimalMark mark) {
  return dmsValueToDegrees(mark.parse(number));
}

std::string PackedToDegrees(std::string_view text, bool isLongitude, DecimalMark mark) {
  char last = text.empty() ? '\0' : text.back();
  bool negative = (last == 'S' && !isLongitude) || (last == 'W' && isLongitude);
  std::string_view digits = text.substr(0, isLongitude ? 9 : 8);
  // The packed text has no point: its last two digits are hundredths of a second. Its
  // sign is the suffix, so a stray "-" in the digits must not turn the result twice.
  double dms = std::fabs(mark.parse(digits)) / 100;
  std::string degrees = dmsValueToDegrees(dms);
  return negative ? "-" + degrees : degrees;
}

std::string DegreesToDms(std::string_view degrees, int form, DecimalMark mark) {
  if (degrees.empty()) return {};
  double value = mark.parse(degrees);
  if (value == 0) return {};
  bool negative = value < 0;

  // Degrees beyond any map are junk; keep them within what the text forms can hold.
  double a = std::fmin(std::fabs(value), 1e9);
  double d = std::trunc(a);
  double m = std::trunc((a - d) * 60);
  double s = (a - d - m / 60) * 3600;
  long long wholeDegrees = static_cast<long long>(d);

  std::string dText =
      (form == 3 || form == 4) ? padNumber(wholeDegrees, 3) : std::to_string(wholeDegrees);
  std::string out = dText + padNumber(static_cast<long long>(m), 2) + withPoint(twoByTwo(s));

  switch (form) {
    case 0:
    case 1:
      if (negative) out.insert(out.begin(), '-');
      break;
    case 2:
    case 3:
      out.erase(out.find('.'), 1);
      if (form == 2) {
        out += negative ? "S" : "N";
      } else {
        out += negative ? "W" : "E";
      }
      break;
    default:
      break;
  }
  return out;
}

}  // namespace zel::gps
