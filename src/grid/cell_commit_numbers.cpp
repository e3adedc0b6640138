#include "grid/cell_commit_numbers.h"

#include <cmath>
#include <cstdio>

#include "core/text.h"

namespace zel::cell {

std::string plainNumber(double value) {
  if (value == 0) return "0";
  char buf[64];
  // Fifteen significant digits, as the number-to-text conversion of the scanner files
  // gives them; the limits keep every value far from exponent form.
  std::snprintf(buf, sizeof buf, "%.15g", value);
  return buf;
}

std::string applyNumberRule(std::string_view text, const NumberLimits& limits) {
  if (limits.emptyStays && trimView(text).empty()) return {};
  double value = leadingNumber(text);
  if (limits.whole) value = std::trunc(value);
  if (value > limits.max) value = limits.max;
  if (value < limits.min) value = limits.lowValue;
  return plainNumber(value);
}

std::string carNumber(std::string_view text) {
  std::string_view t = trimView(text);
  double value = leadingNumber(t);
  if (value > 999) value = 999;
  if (value < 0) value = 0;
  std::string number = plainNumber(value);
  // Zeros typed in front of a number are part of how the car is named on the radio.
  std::size_t zeros = 0;
  while (zeros < t.size() && zeros < 2 && t[zeros] == '0') ++zeros;
  if (value == 0 || zeros == t.size()) return number;
  return std::string(zeros, '0') + number;
}

}  // namespace zel::cell
