// Talkgroup forms. The cell keeps the talkgroup in the text form of its system:
//
//   Motorola, P25, DMR, NXDN, LTR   decimal digits        "1234"
//   EDACS in AFS                    aa-ffs (a, f 0..15; s 0..7)   "05-123"
//   EDACS in decimal                up to four digits, 0..2047    "0699"
//   individual ID                   "i" and digits        "i1234"
//
// The two conversions rewrite an EDACS talkgroup between its decimal and AFS forms.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace zel::cell {

// Decimal to AFS. nullopt for a text that the conversion leaves alone: one that already
// has a "-", one that is not a plain number ("i123", "*"), an empty one.
std::optional<std::string> toAfs(std::string_view talkgroup);
// AFS to decimal, four digits. nullopt for a text without a "-".
std::optional<std::string> toDecimal(std::string_view talkgroup);

}  // namespace zel::cell
