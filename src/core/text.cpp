#include "core/text.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <cstdio>

namespace zel {

std::vector<std::string_view> splitView(std::string_view text, char sep) {
  std::vector<std::string_view> out;
  std::size_t start = 0;
  while (true) {
    std::size_t pos = text.find(sep, start);
    if (pos == std::string_view::npos) {
      out.push_back(text.substr(start));
      return out;
    }
    out.push_back(text.substr(start, pos - start));
    start = pos + 1;
  }
}

std::vector<std::string_view> splitView(std::string_view text, char sep, std::size_t maxFields) {
  std::vector<std::string_view> out;
  std::size_t start = 0;
  while (out.size() < maxFields) {
    std::size_t pos = text.find(sep, start);
    if (pos == std::string_view::npos) {
      out.push_back(text.substr(start));
      break;
    }
    out.push_back(text.substr(start, pos - start));
    start = pos + 1;
  }
  return out;
}

std::vector<std::string> split(std::string_view text, char sep) {
  std::vector<std::string> out;
  for (auto v : splitView(text, sep)) out.emplace_back(v);
  return out;
}

std::string join(const std::vector<std::string>& parts, char sep) {
  std::string out;
  std::size_t total = parts.size();
  for (const auto& p : parts) total += p.size();
  out.reserve(total);
  for (std::size_t i = 0; i < parts.size(); ++i) {
    if (i) out.push_back(sep);
    out += parts[i];
  }
  return out;
}

std::string_view trimView(std::string_view text) {
  auto blank = [](char c) { return c == ' ' || c == '\t'; };
  while (!text.empty() && blank(text.front())) text.remove_prefix(1);
  while (!text.empty() && blank(text.back())) text.remove_suffix(1);
  return text;
}

std::string trim(std::string_view text) {
  return std::string(trimView(text));
}

std::string toUpper(std::string_view text) {
  std::string out(text);
  for (char& c : out) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
  return out;
}

std::string toLower(std::string_view text) {
  std::string out(text);
  for (char& c : out) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  return out;
}

bool iequals(std::string_view a, std::string_view b) {
  if (a.size() != b.size()) return false;
  for (std::size_t i = 0; i < a.size(); ++i) {
    if (std::tolower(static_cast<unsigned char>(a[i])) !=
        std::tolower(static_cast<unsigned char>(b[i])))
      return false;
  }
  return true;
}

bool startsWith(std::string_view text, std::string_view prefix) {
  return text.substr(0, prefix.size()) == prefix;
}

bool endsWith(std::string_view text, std::string_view suffix) {
  return text.size() >= suffix.size() && text.substr(text.size() - suffix.size()) == suffix;
}

std::string replaceAll(std::string_view text, std::string_view from, std::string_view to) {
  if (from.empty()) return std::string(text);
  std::string out;
  std::size_t start = 0;
  while (true) {
    std::size_t pos = text.find(from, start);
    if (pos == std::string_view::npos) break;
    out.append(text.substr(start, pos - start));
    out.append(to);
    start = pos + from.size();
  }
  out.append(text.substr(start));
  return out;
}

double leadingNumber(std::string_view text) {
  std::size_t i = 0;
  while (i < text.size() && (text[i] == ' ' || text[i] == '\t')) ++i;
  bool negative = false;
  if (i < text.size() && (text[i] == '-' || text[i] == '+')) {
    negative = text[i] == '-';
    ++i;
  }
  double value = 0;
  bool any = false;
  while (i < text.size() && std::isdigit(static_cast<unsigned char>(text[i]))) {
    value = value * 10 + (text[i] - '0');
    any = true;
    ++i;
  }
  if (i < text.size() && text[i] == '.') {
    ++i;
    double scale = 0.1;
    while (i < text.size() && std::isdigit(static_cast<unsigned char>(text[i]))) {
      value += (text[i] - '0') * scale;
      scale /= 10;
      any = true;
      ++i;
    }
  }
  if (!any) return 0;
  return negative ? -value : value;
}

long long leadingInteger(std::string_view text) {
  std::size_t i = 0;
  while (i < text.size() && (text[i] == ' ' || text[i] == '\t')) ++i;
  bool negative = false;
  if (i < text.size() && (text[i] == '-' || text[i] == '+')) {
    negative = text[i] == '-';
    ++i;
  }
  long long value = 0;
  while (i < text.size() && std::isdigit(static_cast<unsigned char>(text[i]))) {
    if (value < 100000000000000000LL) value = value * 10 + (text[i] - '0');
    ++i;
  }
  return negative ? -value : value;
}

bool isPlainNumber(std::string_view text) {
  if (text.empty()) return false;
  std::size_t i = 0;
  if (text[0] == '-' || text[0] == '+') i = 1;
  bool digit = false, point = false;
  for (; i < text.size(); ++i) {
    char c = text[i];
    if (std::isdigit(static_cast<unsigned char>(c))) {
      digit = true;
    } else if (c == '.' && !point) {
      point = true;
    } else {
      return false;
    }
  }
  return digit;
}

std::string padNumber(long long value, int width) {
  char buf[32];
  if (value < 0) {
    std::snprintf(buf, sizeof buf, "-%0*lld", width, -value);
  } else {
    std::snprintf(buf, sizeof buf, "%0*lld", width, value);
  }
  return buf;
}

std::string formatFixed(double value, int decimals) {
  // Round half away from zero on the decimal text, as the number masks do, rather than
  // the banker's rounding of printf on exact halves.
  double scale = std::pow(10.0, decimals);
  double scaled = value * scale;
  double rounded = std::round(scaled + (scaled >= 0 ? 1e-7 : -1e-7));
  char buf[64];
  std::snprintf(buf, sizeof buf, "%.*f", decimals, rounded / scale);
  std::string out = buf;
  if (out[0] == '-' && out.find_first_not_of("-0.") == std::string::npos) out.erase(0, 1);
  return out;
}

std::string_view mid(std::string_view text, std::size_t start1, std::size_t length) {
  if (start1 == 0 || start1 > text.size()) return {};
  return text.substr(start1 - 1, length);
}

std::string markupEscape(std::string_view text) {
  std::string out;
  out.reserve(text.size());
  for (char c : text) {
    switch (c) {
      case '&':
        out += "&amp;";
        break;
      case '<':
        out += "&lt;";
        break;
      case '>':
        out += "&gt;";
        break;
      case '"':
        out += "&quot;";
        break;
      default:
        out.push_back(c);
    }
  }
  return out;
}

}  // namespace zel
