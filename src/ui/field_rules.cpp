#include "ui/field_rules.h"

#include <algorithm>
#include <cctype>
#include <cstdio>

#include "core/record_line.h"
#include "core/text.h"
#include "gps/coordinates.h"
#include "grid/bank_names.h"
#include "grid/cell_commit_filters.h"

namespace zel::ui::rules {

namespace {

constexpr double kMaxRange = 999.9;
constexpr double kMaxBandPlanMhz = 1300;
constexpr double kMaxStepKhz = 100;
constexpr int kMaxOffset = 1023;
constexpr int kMaxRan = 63;
constexpr int kMaxColourCode = 15;
constexpr long kMaxNac = 0xFFF;

bool isSearchWord(std::string_view text) {
  return text.empty() || iequals(text, "Srch") || iequals(text, "Search");
}

// A coordinate typed as decimal degrees or in the packed form of older records.
std::optional<std::string> coordinate(std::string_view typed, DecimalMark mark, bool isLongitude) {
  std::string_view text = trimView(typed);
  if (text.empty()) return std::string();
  const char last = static_cast<char>(std::toupper(static_cast<unsigned char>(text.back())));
  const bool packed = isLongitude ? (last == 'E' || last == 'W') : (last == 'N' || last == 'S');
  std::string degrees;
  if (packed) {
    std::string_view digits = text.substr(0, text.size() - 1);
    if (digits.empty() || digits.find_first_not_of("0123456789") != std::string_view::npos) {
      return std::nullopt;
    }
    std::string upper(digits);
    upper.push_back(last);
    degrees = gps::PackedToDegrees(upper, isLongitude, DecimalMark::point());
  } else {
    std::optional<double> value = readNumber(text, mark);
    if (!value) return std::nullopt;
    degrees = formatFixed(*value, 6);
  }
  const std::string clamped = isLongitude ? gps::ClampLongitude(degrees, DecimalMark::point())
                                          : gps::ClampLatitude(degrees, DecimalMark::point());
  return formatFixed(leadingNumber(clamped), 6);
}

}  // namespace

std::optional<double> readNumber(std::string_view typed, DecimalMark mark) {
  std::string text(trimView(typed));
  if (mark.isComma()) {
    for (char& c : text) {
      if (c == ',') c = '.';
    }
  }
  if (text.empty() || !isPlainNumber(text)) return std::nullopt;
  if (text.find_first_of("0123456789") == std::string::npos) return std::nullopt;
  return leadingNumber(text);
}

std::optional<std::string> latitude(std::string_view typed, DecimalMark mark) {
  return coordinate(typed, mark, false);
}

std::optional<std::string> longitude(std::string_view typed, DecimalMark mark) {
  return coordinate(typed, mark, true);
}

std::optional<std::string> range(std::string_view typed, DecimalMark mark) {
  if (trimView(typed).empty()) return std::string();
  std::optional<double> value = readNumber(typed, mark);
  if (!value) return std::nullopt;
  return formatFixed(std::clamp(*value, 0.0, kMaxRange), 1);
}

std::optional<std::string> name(std::string_view typed) {
  return banks::cleanName(typed);
}

std::optional<std::string> siteFrequency(std::string_view typed,
                                         const cell::FrequencyRules& frequencyRules) {
  cell::FrequencyResult f = cell::normaliseFrequency(typed, frequencyRules);
  if (f.failed || f.text.empty()) return std::nullopt;
  std::string text = std::move(f.text);
  std::size_t first = text.find_first_not_of('0');
  if (first == std::string::npos) return std::nullopt;
  if (text[first] == '.') --first;
  return text.substr(first);
}

std::optional<std::string> ran(std::string_view typed) {
  std::string_view text = trimView(typed);
  std::string_view prefix;
  for (std::string_view p : {"RAN=", "Area="}) {
    if (text.size() >= p.size() && iequals(text.substr(0, p.size()), p)) {
      prefix = p;
      text.remove_prefix(p.size());
    }
  }
  if (isSearchWord(text)) return std::string("Srch");
  if (text.find_first_not_of("0123456789") != std::string_view::npos) return std::nullopt;
  const long long value = std::min<long long>(leadingInteger(text), kMaxRan);
  return std::string(prefix) + std::to_string(value);
}

std::optional<std::string> colourCode(std::string_view typed) {
  std::string_view text = trimView(typed);
  if (isSearchWord(text)) return std::string("Srch");
  if (text.find_first_not_of("0123456789") != std::string_view::npos) return std::nullopt;
  return std::to_string(std::min<long long>(leadingInteger(text), kMaxColourCode));
}

std::optional<std::string> bandPlanEdge(std::string_view typed, DecimalMark mark) {
  std::optional<double> value = readNumber(typed, mark);
  if (!value) return std::nullopt;
  const double mhz = std::clamp(*value, 0.0, kMaxBandPlanMhz);
  if (mhz == 0) return std::string("0");
  return trimmedDecimals(mhz, 4, 6);
}

std::optional<std::string> bandPlanStep(std::string_view typed, DecimalMark mark) {
  std::optional<double> value = readNumber(typed, mark);
  if (!value || *value <= 0) return std::nullopt;
  return trimmedDecimals(std::min(*value, kMaxStepKhz), 1, 4);
}

std::optional<std::string> bandPlanOffset(std::string_view typed) {
  std::string_view text = trimView(typed);
  if (text.empty() || text.find_first_not_of("0123456789") != std::string_view::npos) {
    return std::nullopt;
  }
  return std::to_string(std::min<long long>(leadingInteger(text), kMaxOffset));
}

std::optional<std::string> nac(std::string_view typed) {
  std::string_view text = trimView(typed);
  if (isSearchWord(text)) return std::string("Search");
  if (text.size() > 8 ||
      text.find_first_not_of("0123456789abcdefABCDEF") != std::string_view::npos) {
    return std::nullopt;
  }
  long value = std::stol(std::string(text), nullptr, 16);
  value = std::clamp(value, 1L, kMaxNac);
  char buffer[8];
  std::snprintf(buffer, sizeof buffer, "%lX", value);
  return std::string(buffer);
}

bool isOnWord(std::string_view value) {
  value = trimView(value);
  return value == "On" || value == "1" || value == "Yes";
}

std::string switchWord(bool on, std::string_view current, SwitchForm preferred) {
  current = trimView(current);
  SwitchForm form = preferred;
  if (current == "1" || current == "0") form = SwitchForm::Digits;
  if (current == "On" || current == "Off") form = SwitchForm::Words;
  if (form == SwitchForm::Digits) return on ? "1" : "0";
  return on ? "On" : "Off";
}

int keyValue(std::string_view value) {
  value = trimView(value);
  if (value.empty() || value.size() > 6 ||
      value.find_first_not_of("0123456789") != std::string_view::npos) {
    return -1;
  }
  return static_cast<int>(leadingInteger(value));
}

std::string keyWord(int value, std::string_view current, std::string_view noneWord) {
  if (value >= 0) return std::to_string(value);
  current = trimView(current);
  if (!current.empty() && keyValue(current) < 0) return std::string(current);
  return std::string(noneWord);
}

std::string trimmedDecimals(double value, int minDecimals, int maxDecimals) {
  std::string text = formatFixed(value, maxDecimals);
  const std::size_t point = text.find('.');
  if (point == std::string::npos) return text;
  std::size_t keep = point + 1 + static_cast<std::size_t>(minDecimals);
  while (text.size() > keep && text.back() == '0') text.pop_back();
  if (minDecimals == 0 && text.back() == '.') text.pop_back();
  return text;
}

}  // namespace zel::ui::rules
