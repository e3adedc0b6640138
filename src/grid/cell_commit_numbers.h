// The number rules of the cell commit: a text is read by its leading number (a text that
// starts with no digit reads 0), held inside its limits and written back as a plain
// decimal number ("12", "12.5", never "1.2E+1").
#pragma once

#include <string>
#include <string_view>

namespace zel::cell {

struct NumberLimits {
  double max = 0;  // above it the value becomes max
  double min = 0;  // below it the value becomes lowValue
  double lowValue = 0;
  bool emptyStays = false;  // an empty text stays empty instead of reading 0
  bool whole = false;       // only the whole part is kept
};

std::string plainNumber(double value);
std::string applyNumberRule(std::string_view text, const NumberLimits& limits);
// "Car#": 0 to 999, with the "0" or "00" that the input had in front kept ("007" stays).
std::string carNumber(std::string_view text);

}  // namespace zel::cell
