#include "cli/option_range.h"

#include <cmath>
#include <cstdio>
#include <cstdlib>

#include "cli/command_registry.h"

namespace zel::cli {

namespace {

std::string numberText(double v) {
  char buf[32];
  std::snprintf(buf, sizeof buf, "%.10g", v);
  return buf;
}

// The whole text as a number, or nothing: "12", "-3", "0.5", "1e3"; not "12abc", "", "nan".
bool readNumber(const std::string& text, double& out) {
  if (text.empty()) return false;
  char* end = nullptr;
  out = std::strtod(text.c_str(), &end);
  return end == text.c_str() + text.size() && std::isfinite(out);
}

std::string rangeCaption(double low, double high, bool lowIncluded) {
  if (!lowIncluded) return "above " + numberText(low);
  if (high == kNoLimit) return numberText(low) + " or more";
  return "in [" + numberText(low) + " - " + numberText(high) + "]";
}

CLI::Option* check(CLI::Option* option, double low, double high, bool lowIncluded,
                   const std::string& what) {
  std::string name = option->get_name();
  auto func = [name, what, low, high, lowIncluded](std::string& text) -> std::string {
    double value = 0;
    if (!readNumber(text, value)) return "\"" + text + "\" is not a number";
    std::string refused = outOfRange(name, what, low, high, lowIncluded, text);
    if (!refused.empty()) throw UserError{refused};
    return {};
  };
  return option->check(CLI::Validator(func, "NUMBER " + rangeCaption(low, high, lowIncluded)));
}

}  // namespace

std::string outOfRange(const std::string& name, const std::string& what, double low, double high,
                       bool lowIncluded, const std::string& value) {
  double v = 0;
  if (!readNumber(value, v)) return {};
  const bool below = lowIncluded ? v < low : v <= low;
  if (!below && v <= high) return {};
  std::string takes;
  if (!lowIncluded) {
    takes = what + " above " + numberText(low);
  } else if (high == kNoLimit) {
    takes = what + " of " + numberText(low) + " or more";
  } else {
    takes = what + " from " + numberText(low) + " to " + numberText(high);
  }
  return name + " takes " + takes + ", not " + value + ".";
}

CLI::Option* inRange(CLI::Option* option, double low, double high, const std::string& what) {
  return check(option, low, high, true, what);
}

CLI::Option* aboveZero(CLI::Option* option, const std::string& what) {
  return check(option, 0, kNoLimit, false, what);
}

CLI::Option* oneOf(CLI::Option* option, const std::vector<int>& values) {
  std::string words;
  for (std::size_t i = 0; i < values.size(); ++i) {
    if (i > 0) words += i + 1 == values.size() ? " or " : ", ";
    words += std::to_string(values[i]);
  }
  std::string name = option->get_name();
  auto func = [name, values, words](std::string& text) -> std::string {
    double value = 0;
    if (!readNumber(text, value)) return "\"" + text + "\" is not a number";
    for (int v : values) {
      if (value == v) return {};
    }
    throw UserError{name + " takes " + words + ", not " + text + "."};
  };
  return option->check(CLI::Validator(func, "NUMBER of " + words));
}

}  // namespace zel::cli
