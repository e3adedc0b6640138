// Small text helpers shared by every library: splitting, trimming, number reading in the
// way the scanner files and settings need it (leading number, no exceptions), and the
// zero-padded number formats of keys.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace zel {

std::vector<std::string_view> splitView(std::string_view text, char sep);
// The first `maxFields` fields only: the search stops there, so a line of a million
// separators costs no more than one of `maxFields`. What follows the last field kept is
// dropped.
std::vector<std::string_view> splitView(std::string_view text, char sep, std::size_t maxFields);
std::vector<std::string> split(std::string_view text, char sep);
std::string join(const std::vector<std::string>& parts, char sep);

std::string_view trimView(std::string_view text);  // blanks and tabs at both ends
std::string trim(std::string_view text);
std::string toUpper(std::string_view text);
std::string toLower(std::string_view text);
bool iequals(std::string_view a, std::string_view b);
bool startsWith(std::string_view text, std::string_view prefix);
bool endsWith(std::string_view text, std::string_view suffix);
std::string replaceAll(std::string_view text, std::string_view from, std::string_view to);
// Text for an XML or HTML attribute or element: "&", "<", ">" and '"' as entities.
std::string markupEscape(std::string_view text);

// Reads the leading number of a text the way a lenient BASIC `Val` does: leading blanks
// skipped, an optional sign, digits, one "." and more digits; anything else ends the
// number; no number gives 0.
double leadingNumber(std::string_view text);
// The leading whole number (digits after an optional sign); 0 when there is none.
long long leadingInteger(std::string_view text);
// True when the text is a plain decimal number: optional sign, digits, at most one ".".
bool isPlainNumber(std::string_view text);

// Zero-padded whole number, as the format "000" or "0000" gives it.
std::string padNumber(long long value, int width);
// Fixed number of decimals, "." as the decimal mark; rounding half away from zero.
std::string formatFixed(double value, int decimals);

// Mid$-style substring: 1-based start, at most `length` characters, "" when out of range.
std::string_view mid(std::string_view text, std::size_t start1,
                     std::size_t length = std::string_view::npos);

}  // namespace zel
