#include "grid/cell_commit_frequency.h"

#include <array>
#include <cstdint>

#include "core/text.h"
#include "grid/cell_commit_filters.h"

namespace zel::cell {

namespace {

// Values are held exactly, as whole numbers of 1e-8 MHz (0.01 Hz): every text this rule
// makes has at most eight decimals, and a double would blur the raster tests.
using Scaled = std::int64_t;
constexpr Scaled kMHz = 100000000;
constexpr Scaled kUnit = 10000;  // one unit of f, 100 Hz
// Anything this large is above every band top, so the clamp decides it alone.
constexpr Scaled kCeiling = 999999 * kMHz;

constexpr Scaled mhz(Scaled whole, Scaled eightDecimals = 0) {
  return whole * kMHz + eightDecimals;
}

// Reads digits with at most one decimal sign. Anything else is no number: the routine that
// once held the text as a floating number failed there, and the cell kept its value.
std::optional<Scaled> parseScaled(std::string_view text, char sign) {
  Scaled whole = 0;
  Scaled fraction = 0;
  Scaled scale = kMHz / 10;
  bool seenSign = false;
  bool big = false;
  for (char c : text) {
    if (c == sign) {
      if (seenSign) return std::nullopt;
      seenSign = true;
    } else if (c >= '0' && c <= '9') {
      if (!seenSign) {
        whole = whole * 10 + (c - '0');
        if (whole > 999999) big = true, whole = 999999;
      } else if (scale > 0) {
        fraction += (c - '0') * scale;
        scale /= 10;
      }
    } else {
      return std::nullopt;
    }
  }
  if (big) return kCeiling;
  return whole * kMHz + fraction;
}

// The text of a value as the number formatter gives it: no trailing zeros, no sign when
// whole ("154.1625", "512").
std::string numberText(Scaled value, Scaled unitsPerOne, char sign) {
  std::string out = std::to_string(value / unitsPerOne);
  Scaled fraction = value % unitsPerOne;
  if (fraction != 0) {
    std::string digits = std::to_string(fraction + unitsPerOne).substr(1);
    while (!digits.empty() && digits.back() == '0') digits.pop_back();
    out.push_back(sign);
    out += digits;
  }
  return out;
}

// Whole-number conversion of a quotient as the old Long conversion did it: halves go to
// the even neighbour. Only used for the residues, whose zero tests it must not disturb.
Scaled roundedQuotient(Scaled value, Scaled divisor) {
  Scaled q = value / divisor;
  Scaled r = value % divisor;
  if (2 * r > divisor || (2 * r == divisor && (q & 1))) ++q;
  return q;
}

// The stored form: the text of f / 10000 in the fixed form (5, 10), one leading "0"
// dropped, and two more when the rest still starts with "00". The cell always carries a
// point: it is a field of a comma-separated record, and the line builders expect one.
std::string storedForm(Scaled value, char sign) {
  std::string text = padFixed(numberText(value, kMHz, sign), 5, 10, sign);
  if (!text.empty() && text[0] == '0') text.erase(0, 1);
  if (startsWith(text, "00")) text.erase(0, 2);
  for (char& c : text) {
    if (c == sign) c = '.';
  }
  return text;
}

struct AirbandChannel {
  const char* typed;
  const char* channel;
};
// The two decimals after the first that name an 8.33 kHz airband voice channel, and the
// three that stand for it on the 8.33 kHz raster.
constexpr std::array<AirbandChannel, 12> kAirband = {{{"05", "000"},
                                                      {"10", "083"},
                                                      {"15", "166"},
                                                      {"30", "250"},
                                                      {"35", "333"},
                                                      {"40", "416"},
                                                      {"55", "500"},
                                                      {"60", "583"},
                                                      {"65", "666"},
                                                      {"80", "750"},
                                                      {"85", "833"},
                                                      {"90", "916"}}};

constexpr std::array<const char*, 8> kOffRasterEndings = {"083", "166", "333", "416",
                                                          "583", "666", "833", "916"};

// Step 8: a value in a gap of the receiver moves to the lower edge of the gap.
Scaled clampBand(Scaled f, const FrequencyRules& rules) {
  if (rules.family == ScannerFamily::HP) {
    if (f < mhz(25)) return mhz(25);
    if (f > mhz(53, 99500000) && f < mhz(108)) return mhz(53, 99500000);
    if (f > mhz(512) && f < mhz(758)) return mhz(512);
    if (f > mhz(824) && f < mhz(849)) return mhz(823, 98750000);
    if (f > mhz(869) && f < mhz(894)) return mhz(868, 98750000);
    if (f > mhz(960)) return mhz(960);
    return f;
  }
  if (f < mhz(25)) return mhz(25);
  Scaled uhfTop = rules.region == Region::Australia ? mhz(520) : mhz(512);
  if (f > uhfTop && f < mhz(758)) return uhfTop;
  if (rules.region == Region::US) {
    if (f > mhz(824) && f < mhz(849)) return mhz(823, 98750000);
    if (f > mhz(869) && f < mhz(894)) return mhz(868, 98750000);
  }
  if (f > mhz(960) && f < mhz(1240)) return mhz(960);
  if (f > mhz(1300)) return mhz(1300);
  return f;
}

// Steps 9 and 10: off every raster the scanner knows, a value goes down to 5 kHz; the
// window from 150.81 to 154.63 MHz is never rounded.
Scaled roundToRaster(Scaled f, bool rasterFlag, char sign) {
  bool inRange = (f >= mhz(25) && f < mhz(150, 81000000)) || f > mhz(154, 63000000);
  if (!inRange || !rasterFlag) return f;
  Scaled hz = roundedQuotient(f, 100);       // f x 100
  Scaled units = roundedQuotient(f, kUnit);  // f
  Scaled tenths = roundedQuotient(f, 1000);  // f x 10
  Scaled r1 = hz % 3125;
  Scaled r2 = units % 50;
  Scaled r3 = tenths % 625;
  std::string fText = numberText(f, kUnit, sign);
  std::string_view lastTwo =
      std::string_view(fText).substr(fText.size() >= 2 ? fText.size() - 2 : 0);
  if (lastTwo == "12" || lastTwo == "62" || lastTwo == "37" || lastTwo == "87") r3 = 0;
  Scaled r4 = tenths % 750;
  Scaled r5 = hz % 1250;
  if (r1 == 0 || r2 == 0 || r3 == 0 || r4 == 0 || r5 == 0) return f;
  return (f / (50 * kUnit)) * (50 * kUnit);
}

// Steps 1 to 4, shared with the offset: filter, pad, tail, decimal sign. Returns "" for a
// text with nothing left.
std::string preparedText(std::string_view text, DecimalMark mark) {
  // Under a decimal comma the comma typed is the decimal mark, not a stray sign to drop.
  std::string typed(text);
  if (mark.isComma()) {
    for (char& c : typed) {
      if (c == ',') c = '.';
    }
  }
  std::string filtered = applyFilter(CharFilter::Frequency, typed);
  if (filtered.empty()) return {};
  std::string padded = completeTail(padFixed(filtered, 5, 8));
  if (mark.isComma()) {
    for (char& c : padded) {
      if (c == '.') c = ',';
    }
  }
  return padded;
}

}  // namespace

FrequencyRules rulesFromSettings(const Settings& settings, ScannerFamily family, DecimalMark mark) {
  FrequencyRules rules;
  rules.family = family;
  rules.mark = mark;
  rules.airband = settings.get("options", "optie10", "0x") == "1";
  std::string region = settings.get("options", "optie22", "0x");
  if (region == "1") rules.region = Region::Europe;
  if (region == "2") rules.region = Region::Australia;
  return rules;
}

std::string padFixed(std::string_view text, int dotPosition, int width, char sign) {
  std::size_t start = 0;
  while (start < text.size() && (text[start] == ' ' || text[start] == '0')) ++start;
  std::string out(text.substr(start));
  std::size_t dot = out.find(sign);
  if (dot == std::string::npos) {
    dot = out.size();
    out.push_back(sign);
  }
  std::size_t keep = static_cast<std::size_t>(width) + 1;
  std::size_t before = static_cast<std::size_t>(dotPosition - 1);
  if (dot < before) out.insert(0, before - dot, '0');
  if (out.size() < keep) out.append(keep - out.size(), '0');
  out.resize(keep);
  return out;
}

std::string completeTail(std::string padded) {
  if (padded.size() < 9) return padded;
  std::string_view pair = std::string_view(padded).substr(7, 2);
  struct Tail {
    const char* pair;
    const char* append;
  };
  // Four typed decimals cut a 6.25, 3.125 or 8.33 kHz channel short; its last two digits
  // tell which channel was meant.
  static constexpr std::array<Tail, 20> kTails = {
      {{"00", "00"}, {"25", "00"}, {"50", "00"}, {"75", "00"}, {"31", "25"},
       {"56", "25"}, {"62", "50"}, {"93", "75"}, {"87", "50"}, {"18", "75"},
       {"81", "25"}, {"43", "75"}, {"68", "75"}, {"12", "50"}, {"06", "25"},
       {"37", "50"}, {"33", "33"}, {"83", "33"}, {"16", "66"}, {"66", "66"}}};
  for (const Tail& tail : kTails) {
    if (pair == tail.pair) {
      padded += tail.append;
      break;
    }
  }
  return padded;
}

FrequencyResult normaliseFrequency(std::string_view text, const FrequencyRules& rules) {
  FrequencyResult result;
  const char sign = rules.mark.sign();
  std::string work = preparedText(text, rules.mark);
  if (work.empty()) return result;

  auto parsed = parseScaled(work, sign);
  if (!parsed) {
    result.failed = true;
    return result;
  }
  Scaled f = *parsed;
  if (f == 0) {
    result.beep = true;
    return result;
  }

  bool rasterFlag = true;
  bool airbandMatch = false;
  std::size_t signAt = work.find(sign);
  std::size_t position = signAt == std::string::npos ? 0 : signAt + 1;
  if (rules.airband && (position == 4 || position == 5) && f > mhz(118) && f < mhz(135) &&
      signAt + 3 < work.size()) {
    std::string d = work.substr(signAt + 1, 1);
    std::string e = work.substr(signAt + 2, 2);
    for (const AirbandChannel& channel : kAirband) {
      if (e == channel.typed) {
        // Every occurrence is rewritten, the whole part included: 130.130 turns into
        // 1250.125, and the band clamp takes it from there.
        work = replaceAll(work, d + e, d + channel.channel);
        auto again = parseScaled(work, sign);
        if (!again) {
          result.failed = true;
          return result;
        }
        f = *again;
        airbandMatch = true;
        rasterFlag = false;
        break;
      }
    }
  }
  if (!airbandMatch) {
    std::string_view tail = std::string_view(work).substr(work.size() >= 3 ? work.size() - 3 : 0);
    for (const char* ending : kOffRasterEndings) {
      if (tail == ending) rasterFlag = false;
    }
  }

  f = clampBand(f, rules);
  f = roundToRaster(f, rasterFlag, sign);
  result.text = storedForm(f, sign);
  return result;
}

std::optional<std::string> normaliseOffset(std::string_view text, DecimalMark mark) {
  std::string work = preparedText(text, mark);
  if (work.empty()) return std::string();
  auto parsed = parseScaled(work, mark.sign());
  if (!parsed) return std::nullopt;
  Scaled value = *parsed;
  if (value / kMHz > 159) value = mhz(159);
  return storedForm(value, mark.sign());
}

std::optional<std::string> normaliseStep(std::string_view text, DecimalMark mark) {
  std::string filtered = applyFilter(CharFilter::Frequency, text);
  if (filtered.empty()) return std::string();
  if (mark.isComma()) {
    for (char& c : filtered) {
      if (c == '.') c = ',';
    }
  }
  auto parsed = parseScaled(filtered, mark.sign());
  if (!parsed) return std::nullopt;
  Scaled kilo = *parsed;  // kHz, 1e-8 units
  Scaled hz = roundedQuotient(kilo, kMHz / 1000);
  // The floor of 100 is in the Hz-like units: steps are typed in kHz (the step list runs
  // from 1.0 to 100.0), and a floor of 100 kHz would turn every one of them into 100. Held
  // in Hz, the floor only keeps a zero or a trace off the 1 kHz raster, so it ends at 2.5.
  if (hz < 100) hz = 100;
  bool onRaster =
      hz % 1000 == 0 || hz % 8330 == 0 || hz % 8333 == 0 || hz % 2500 == 0 || hz % 3125 == 0;
  if (!onRaster) hz = hz >= 2500 ? (hz / 5000) * 5000 : 2500;
  std::string out = padFixed(numberText(hz * (kMHz / 1000), kMHz, '.'), 5, 10);
  std::size_t firstKept = out.find_first_not_of('0');
  if (firstKept != std::string::npos && out[firstKept] == '.') --firstKept;
  return out.substr(firstKept);
}

}  // namespace zel::cell
