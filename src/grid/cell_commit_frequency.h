// The frequency rule of the cell commit and its two relatives, the offset and the step.
// A typed frequency in MHz becomes the stored text with six decimals and at least three
// integer digits ("088.500000"); arithmetic is on f, the frequency in units of 100 Hz.
//
//   typed       filter    pad (5, 8)   tail        clamp/round     stored
//   "154.16125" 154.16125 0154.1612    0154.161250 (no rounding)   154.161250
//   "155.123"   155.123   0155.1230    0155.1230   155.1200        155.120000
//   "146.0031"  146.0031  0146.0031    0146.003125 on 3.125 kHz    146.003125
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "core/decimal_mark.h"
#include "core/document.h"
#include "core/settings.h"

namespace zel::cell {

// The scanner region of the software options ("optie22"): it moves the band gaps.
enum class Region { US = 0, Europe = 1, Australia = 2 };

struct FrequencyRules {
  Region region = Region::US;
  ScannerFamily family = ScannerFamily::BCD;
  bool airband = false;  // "Round VHF Airband to 8.33 / 12.5 / 25 kHz steps." ("optie10")
  DecimalMark mark = DecimalMark::point();
};

// The rules as the options of section "options" set them: optie10 "1" turns the airband
// step on, optie22 "0", "1", "2" picks the region (anything else is the US).
FrequencyRules rulesFromSettings(const Settings& settings, ScannerFamily family,
                                 DecimalMark mark = DecimalMark::system());

struct FrequencyResult {
  std::string text;     // the stored form, "" when the cell empties
  bool beep = false;    // a value of 0: the cell empties with a beep
  bool failed = false;  // the text could not be read as a number: the cell keeps its value
};

FrequencyResult normaliseFrequency(std::string_view text, const FrequencyRules& rules);

// The fixed form: leading blanks and zeros stripped, the decimal sign appended when
// missing, zeros added on the right and on the left until dotPosition-1 digits stand before
// the sign, then the first width+1 characters. padFixed("154.16125", 5, 8) is "0154.1612".
std::string padFixed(std::string_view text, int dotPosition, int width, char sign = '.');

// Step 3: completes the 6.25, 3.125 and 8.33 kHz rasters that four decimals cut off, from
// characters 8 and 9 of a text padded to (5, 8): "0146.0031" becomes "0146.003125".
std::string completeTail(std::string padded);

// The offset of a repeater: as a frequency up to the decimal sign, a whole part above 159
// becomes 159, six decimals. nullopt when the text cannot be read (the cell stays).
std::optional<std::string> normaliseOffset(std::string_view text, DecimalMark mark);
// The channel step or spacing in kHz: at least 100 Hz, and off the 1, 8.33, 2.5 and
// 3.125 kHz rasters truncated to 5 kHz (or 2.5 kHz below that). nullopt when unreadable.
std::optional<std::string> normaliseStep(std::string_view text, DecimalMark mark);

}  // namespace zel::cell
