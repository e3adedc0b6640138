// The rules of the node panes' typed fields: what a typed text becomes in a record line,
// or nothing when the text cannot be read and the record keeps the value it had. A value
// that can be read but breaks a limit is moved to the nearest allowed value, as every
// other entry of the editor does.
//
//   field                  typed              stored
//   latitude               "41.4536"          "41.453600"
//   latitude               "90.0001"          "90.000000"      (clamped)
//   latitude               "41271300N"        "41.453611"      (packed form)
//   longitude              "x12"              refused
//   range                  "19.14"            "19.1"
//   site frequency         "851.0125"         "851.012500"
//   band plan edge         "851.025"          "851.0250"
//   P25 NAC                "srch" / "293"     "Search" / "293"
//   RAN of a frequency     "7" / ""           "7" / "Srch"
//
// Nothing here knows a widget; the panes call these and store what they return.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "core/decimal_mark.h"
#include "grid/cell_commit_frequency.h"

namespace zel::ui::rules {

// A plain decimal number typed with the system's mark (under a decimal comma "." is taken
// as well); nullopt for anything else.
std::optional<double> readNumber(std::string_view typed, DecimalMark mark);

// Decimal degrees with six decimals, clamped to +-90 and +-180. A packed text ending in
// N/S (latitude) or E/W (longitude) is converted first. An empty text stays empty.
std::optional<std::string> latitude(std::string_view typed, DecimalMark mark);
std::optional<std::string> longitude(std::string_view typed, DecimalMark mark);
// Range in miles, one decimal, 0 to 999.9. An empty text stays empty.
std::optional<std::string> range(std::string_view typed, DecimalMark mark);
// A name: commas become ";", the name filter of the grids applies, at most 64 characters.
// An empty name is refused: every node shows by its name in the tree.
std::optional<std::string> name(std::string_view typed);

// A site frequency in MHz by the frequency rule of the grids, held without leading zeros as
// the reader holds it ("46.100000"). Empty, 0 and unreadable texts are refused.
std::optional<std::string> siteFrequency(std::string_view typed,
                                         const cell::FrequencyRules& frequencyRules);
// The RAN of a site frequency: "Srch" for empty or a search word, else 0 to 63, with an
// "RAN=" or "Area=" prefix kept.
std::optional<std::string> ran(std::string_view typed);

// The colour code of a site frequency: "Srch" for empty or a search word, else 0 to 15.
std::optional<std::string> colourCode(std::string_view typed);

// Band plan edges in MHz (0 for an unused group, else up to 1300), at least four decimals.
std::optional<std::string> bandPlanEdge(std::string_view typed, DecimalMark mark);
// Band plan step in kHz, more than 0 up to 100, at least one decimal ("25.0", "6.25").
std::optional<std::string> bandPlanStep(std::string_view typed, DecimalMark mark);
// Band plan channel offset, a whole number 0 to 1023.
std::optional<std::string> bandPlanOffset(std::string_view typed);

// P25 network access code: "Search" for empty or a search word, else hexadecimal 1 to FFF
// in capitals without leading zeros.
std::optional<std::string> nac(std::string_view typed);

// Switches are held as "1"/"0" in system and some site fields and as "On"/"Off" elsewhere.
bool isOnWord(std::string_view value);
enum class SwitchForm { Digits, Words };
// The word for a switch, in the form the field already holds, or `preferred` when the
// field holds neither form yet.
std::string switchWord(bool on, std::string_view current, SwitchForm preferred);

// A number key (quick key, number tag): the number when the field holds one, or -1 for no
// key ("Off", "None", ".", "" and anything else that is not a whole number).
int keyValue(std::string_view value);
// The word stored for a key: the number, or for no key the field's own no-key word when it
// has one, else `noneWord`.
std::string keyWord(int value, std::string_view current, std::string_view noneWord);

// Decimal text with at least `minDecimals` and at most `maxDecimals` decimals, trailing
// zeros beyond the minimum dropped ("851.0250", "6.25", "25.0").
std::string trimmedDecimals(double value, int minDecimals, int maxDecimals);

}  // namespace zel::ui::rules
