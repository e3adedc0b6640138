// Field vocabularies: the closed word lists of every column that is not free text, in the
// order they are offered, with the conversions between cell words and file codes.
// Cells hold display words, never codes; codes are made only when a line is written.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace zel::vocab {

// The list under a key, in offered order ("Mode", "SQ Code_c", "Service Type", ...).
// An unknown key gives an empty list.
const std::vector<std::string>& tabel(std::string_view key);
// Every key that tabel() knows, in a stable order (for `zel vocab --list`).
const std::vector<std::string>& keys();

// The list key of the "SQ Code" column for the text of "SQ Mode" in the same row
// ("CTCSS" -> "SQ Code_c", "DCS" -> "SQ Code_d", "P25" -> "SQ Code_n", ...).
std::string squelchCodeKey(std::string_view sqMode);

// The text when it equals an item of the list exactly, else the item at defaultPosition
// (0-based); an empty text takes the default.
std::string valueCheck(std::string_view text, const std::vector<std::string>& list,
                       int defaultPosition);

// The position (1-based) of a subtone on the CTCSS list, or on the DCS list, or 0 when on
// neither; "Search", "" and texts holding "RAN" or "IDAS" come back as they stand.
std::string toneCheck(std::string_view text);

const std::vector<std::string>& ctcssTones();  // 50 tones, "67.0" ... "254.1"
const std::vector<std::string>& dcsCodes();    // 104 codes, "023" ... "754"

// The combined table that older records point into by position: the CTCSS tones, the DCS
// codes, "RAN 0" to "RAN 63", "Search" and "None" (220 words, position 0 is "67.0").
const std::vector<std::string>& combinedTones();
// The 0-based position of a word in the combined table, or -1.
int combinedTonePosition(std::string_view word);
// The word at a 0-based position, or "" outside the table.
std::string combinedToneAt(int position);

// Service types: name by the scanner's function number ("" when unassigned) and number by
// name (0 when unknown). The default name for an unknown type is "Custom 1".
std::string serviceTypeName(int number);
int serviceTypeNumber(std::string_view name);
const std::vector<std::string>& serviceTypesOffered();  // 39 names in offered order
// The function numbers of serviceTypesOffered(), position by position.
const std::vector<int>& serviceTypeOfferedNumbers();
inline constexpr std::string_view kDefaultServiceType = "Custom 1";

}  // namespace zel::vocab
