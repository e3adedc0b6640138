#include "grid/cell_commit_talkgroup.h"

#include <algorithm>
#include <cmath>

#include "core/text.h"

namespace zel::cell {

std::optional<std::string> toAfs(std::string_view talkgroup) {
  std::string_view t = trimView(talkgroup);
  if (t.empty() || t.find('-') != std::string_view::npos) return std::nullopt;
  // Only a talkgroup that reads as a number is converted. Without a "-" no text can read
  // below 0, so "reads 0 or above" is what keeps the other forms out: an individual ID
  // ("i123") or a wildcard ("*") stays as it is instead of collapsing to "00-000".
  if (!isPlainNumber(t)) return std::nullopt;
  double value = leadingNumber(t);
  // A small integer: halves go to the even neighbour, as the old integer conversion did.
  long n = std::lrint(std::min(value, 32767.0));
  if (n < 1) return std::string("00-000");
  if (n >= 2047) return std::string("15-157");
  long agency = (n & 0x780) / 128;
  long fleet = (n & 0x78) / 8;
  long sub = n & 7;
  return padNumber(agency, 2) + "-" + padNumber(fleet, 2) + std::to_string(sub);
}

std::optional<std::string> toDecimal(std::string_view talkgroup) {
  std::string t = trim(talkgroup);
  if (t.find('-') == std::string::npos) return std::nullopt;
  // A short AFS text was typed without its trailing digits: it is padded on the right to
  // six characters, so "15-15" reads agency 15, fleet 15, subfleet 0.
  if (t.size() >= 3 && t.size() <= 5) t.append(6 - t.size(), '0');
  auto digitsAt = [&](std::size_t start1, std::size_t length) {
    return leadingNumber(mid(t, start1, length));
  };
  long agency = std::clamp(static_cast<long>(digitsAt(1, 2)), 0L, 15L);
  long fleet = std::clamp(static_cast<long>(digitsAt(4, 2)), 0L, 15L);
  long sub = std::clamp(static_cast<long>(digitsAt(6, 1)), 0L, 7L);
  return padNumber(agency * 128 + fleet * 8 + sub, 4);
}

}  // namespace zel::cell
