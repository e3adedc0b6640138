#include "formats/hpd_format.h"

#include <array>
#include <cstddef>

#include "core/text.h"

namespace zel::formats {

namespace {

struct TypeRule {
  std::string_view word;
  std::size_t length;
  HpdLineType type;
};

// The order and lengths of the comparison are part of the format: a line is the first type
// whose word it begins with.
constexpr std::array<TypeRule, 4> kConventionalRules{{
    {"Conventional", 12, HpdLineType::Conventional},
    {"C-Group", 7, HpdLineType::CGroup},
    {"C-Freq", 6, HpdLineType::CFreq},
    {"", 0, HpdLineType::None},
}};
constexpr std::array<TypeRule, 9> kTrunkedRules{{
    {"Trunk", 5, HpdLineType::Trunk},
    {"FleetMap", 8, HpdLineType::FleetMap},
    {"Site", 4, HpdLineType::Site},
    {"BandPlan_Mot", 12, HpdLineType::BandPlanMot},
    {"BandPlan_P25", 12, HpdLineType::BandPlanP25},
    {"T-Freq", 6, HpdLineType::TFreq},
    {"T-Group", 7, HpdLineType::TGroup},
    {"UnitIds", 7, HpdLineType::UnitIds},
    {"TGID", 4, HpdLineType::Tgid},
}};

bool leads(std::string_view line, std::string_view word, std::size_t length) {
  return line.size() >= length && line.compare(0, length, word.substr(0, length)) == 0;
}

// Splits numeric text into its integer digits and fraction digits ("." or "," marks the
// fraction), the way a lenient number reader does: blanks skipped, an optional sign, and
// the first other character ends the number.
struct DecimalParts {
  bool negative = false;
  bool any = false;
  std::string whole;
  std::string fraction;
};

DecimalParts parseDecimal(std::string_view text) {
  DecimalParts p;
  std::size_t i = 0;
  while (i < text.size() && (text[i] == ' ' || text[i] == '\t')) ++i;
  if (i < text.size() && (text[i] == '-' || text[i] == '+')) {
    p.negative = text[i] == '-';
    ++i;
  }
  while (i < text.size() && text[i] >= '0' && text[i] <= '9') {
    p.whole.push_back(text[i++]);
    p.any = true;
  }
  if (i < text.size() && (text[i] == '.' || text[i] == ',')) {
    ++i;
    while (i < text.size() && text[i] >= '0' && text[i] <= '9') {
      p.fraction.push_back(text[i++]);
      p.any = true;
    }
  }
  return p;
}

std::string stripLeadingZeros(std::string digits) {
  std::size_t nz = digits.find_first_not_of('0');
  if (nz == std::string::npos) return "0";
  return digits.substr(nz);
}

// The number times 10^decimals as whole digits, rounded half up at the first dropped digit.
std::string scaleToWhole(std::string_view text, int decimals) {
  DecimalParts p = parseDecimal(text);
  if (!p.any) return "0";
  std::string frac = p.fraction;
  char dropped = '0';
  if (static_cast<int>(frac.size()) > decimals) {
    dropped = frac[decimals];
    frac.resize(decimals);
  } else {
    frac.append(decimals - frac.size(), '0');
  }
  std::string digits = p.whole + frac;
  if (digits.empty()) digits.push_back('0');
  if (dropped >= '5') {
    int i = static_cast<int>(digits.size()) - 1;
    while (i >= 0 && digits[i] == '9') digits[i--] = '0';
    if (i < 0) {
      digits.insert(digits.begin(), '1');
    } else {
      ++digits[i];
    }
  }
  digits = stripLeadingZeros(std::move(digits));
  if (p.negative && digits != "0") return std::string("-") + digits;
  return digits;
}

// Whole digits divided by 10^decimals, trailing zeros dropped down to `minDecimals`.
std::string unscale(std::string_view text, int decimals, int minDecimals) {
  DecimalParts p = parseDecimal(text);
  std::string digits = stripLeadingZeros(p.whole.empty() ? std::string("0") : p.whole);
  if (static_cast<int>(digits.size()) <= decimals)
    digits.insert(0, decimals + 1 - digits.size(), '0');
  std::string whole = digits.substr(0, digits.size() - decimals);
  std::string frac = digits.substr(digits.size() - decimals);
  while (static_cast<int>(frac.size()) > minDecimals && frac.back() == '0') frac.pop_back();
  std::string out;
  if (p.negative && digits.find_first_not_of('0') != std::string::npos) out.push_back('-');
  out += whole;
  if (!frac.empty()) {
    out += '.';
    out += frac;
  }
  return out;
}

}  // namespace

HpdLineType matchLineType(std::string_view line, int loadFlags) {
  if (!(loadFlags & kSkipConventional)) {
    if (leads(line, "FormatVersion", 13)) return HpdLineType::FormatVersion;
    for (const TypeRule& r : kConventionalRules) {
      if (r.length > 0 && leads(line, r.word, r.length)) return r.type;
    }
  }
  if (!(loadFlags & kSkipTrunked)) {
    for (const TypeRule& r : kTrunkedRules) {
      if (leads(line, r.word, r.length)) return r.type;
    }
  }
  return HpdLineType::None;
}

const char* lineTypeWord(HpdLineType type) {
  switch (type) {
    case HpdLineType::FormatVersion:
      return "FormatVersion";
    case HpdLineType::Conventional:
      return "Conventional";
    case HpdLineType::CGroup:
      return "C-Group";
    case HpdLineType::CFreq:
      return "C-Freq";
    case HpdLineType::Trunk:
      return "Trunk";
    case HpdLineType::FleetMap:
      return "FleetMap";
    case HpdLineType::Site:
      return "Site";
    case HpdLineType::BandPlanMot:
      return "BandPlan_Mot";
    case HpdLineType::BandPlanP25:
      return "BandPlan_P25";
    case HpdLineType::TFreq:
      return "T-Freq";
    case HpdLineType::TGroup:
      return "T-Group";
    case HpdLineType::UnitIds:
      return "UnitIds";
    case HpdLineType::Tgid:
      return "TGID";
    case HpdLineType::None:
      break;
  }
  return "";
}

std::string_view notKeptWord(std::string_view line) {
  static constexpr std::array<std::string_view, 6> kWords{
      "TargetModel", "FormatVersion", "AreaState", "AreaCounty", "DQKs_Status", "Rectangle"};
  for (std::string_view w : kWords) {
    if (startsWith(line, w)) return w;
  }
  return {};
}

std::vector<std::string> headerLines(HpdLevel level) {
  switch (level) {
    case HpdLevel::V3:
      return {"TargetModel\tBCDx36HP", "FormatVersion\t1.00"};
    case HpdLevel::V2:
      return {"TargetModel HomePatrol-1", "FormatVersion   2.03"};
    case HpdLevel::V1:
      return {"TargetModel HomePatrol-1", "FormatVersion   1.00"};
  }
  return {};
}

std::string frequencyFromFile(std::string_view digits) {
  std::size_t wholeDigits = 0;
  switch (digits.size()) {
    case 8:
      wholeDigits = 2;
      break;
    case 9:
      wholeDigits = 3;
      break;
    case 10:
      wholeDigits = 4;
      break;
    default:
      return std::string(digits);
  }
  std::string out;
  out.reserve(digits.size() + 1);
  out.append(digits.substr(0, wholeDigits));
  out.push_back('.');
  out.append(digits.substr(wholeDigits));
  if (startsWith(out, "00")) return out.substr(2);
  if (startsWith(out, "0")) return out.substr(1);
  return out;
}

std::string frequencyToFile(std::string_view mhz) {
  // The cell form "154.785000" (up to four whole digits, six decimals) needs no arithmetic:
  // the digits without the point are the Hertz.
  const std::size_t dot = mhz.find('.');
  if (dot != std::string_view::npos && dot >= 1 && dot <= 4 && mhz.size() == dot + 7) {
    char digits[16];
    std::size_t n = 0;
    bool plain = true;
    for (std::size_t i = 0; i < mhz.size() && plain; ++i) {
      if (i == dot) continue;
      const char c = mhz[i];
      plain = c >= '0' && c <= '9';
      if (n > 0 || c != '0') digits[n++] = c;
    }
    if (plain) return n == 0 ? std::string("0") : std::string(digits, n);
  }
  if (trimView(mhz).empty()) return {};
  return scaleToWhole(mhz, 6);
}

std::string bandPlanMhz(std::string_view hz) {
  return unscale(hz, 6, 4);
}
std::string bandPlanKhz(std::string_view hzThousandths) {
  return unscale(hzThousandths, 3, 1);
}
std::string bandPlanHz(std::string_view mhz) {
  return scaleToWhole(mhz, 6);
}
std::string bandPlanHzThousandths(std::string_view khz) {
  return scaleToWhole(khz, 3);
}

std::string cleanName(std::string_view name, std::string_view fallback) {
  if (name.empty()) return std::string(fallback);
  std::string_view cut = name.substr(0, 64);
  std::string out;
  out.reserve(cut.size());
  for (char c : cut) {
    const unsigned char b = static_cast<unsigned char>(c);
    if ((b >= 1 && b <= 20) || b >= 127) continue;
    out.push_back(c);
  }
  return out;
}

SystemKind systemKindFromWord(std::string_view word) {
  struct Row {
    std::string_view word;
    std::string_view label;
    int type;
    bool dmr;
    bool nxdn;
  };
  static constexpr std::array<Row, 12> kRows{{
      {"Motorola", "Motorola", 1, false, false},
      {"Edacs", "Edacs Narrow/Wide", 2, false, false},
      {"Scat", "Edacs Scat", 3, false, false},
      {"Ltr", "LTR", 4, false, false},
      {"P25Standard", "P25 Standard", 5, false, false},
      {"P25 Standard", "P25 Standard", 5, false, false},
      {"P25OneFrequency", "P25 One Freq Trunk", 6, false, false},
      {"P25X2_TDMA", "P25 X2 TDMA", 7, false, false},
      {"MotoTrbo", "MotoTRBO", 8, true, false},
      {"DmrOneFrequency", "DMR One Frequency", 9, true, false},
      {"Nxdn", "Nxdn", 10, false, true},
      {"NxdnOneFrequency", "Nxdn One Frequency", 11, false, true},
  }};
  for (const Row& r : kRows) {
    if (r.word == word) return {std::string(r.label), r.type, r.dmr, r.nxdn};
  }
  // An unknown word is kept as its own label so that a save writes it back unchanged.
  return {std::string(word), -1, false, false};
}

std::string systemWordFromLabel(std::string_view label) {
  static constexpr std::array<std::pair<std::string_view, std::string_view>, 10> kMap{{
      {"P25 Standard", "P25Standard"},
      {"Edacs Narrow/Wide", "Edacs"},
      {"LTR", "Ltr"},
      {"P25 OneFreqTrunk", "P25OneFrequency"},
      {"P25 One Freq Trunk", "P25OneFrequency"},
      {"P25 X2 TDMA", "P25X2_TDMA"},
      {"MotoTRBO", "MotoTrbo"},
      {"DMR One Frequency", "DmrOneFrequency"},
      {"Nxdn One Frequency", "NxdnOneFrequency"},
      // The reader names "Scat" systems "Edacs Scat"; writing the word back keeps them.
      {"Edacs Scat", "Scat"},
  }};
  for (const auto& [from, to] : kMap) {
    if (label == from) return std::string(to);
  }
  return std::string(label);
}

bool labelIsDmr(std::string_view label) {
  return label.find("MotoTRBO") != std::string_view::npos ||
         label.find("DMR One") != std::string_view::npos;
}

bool labelIsNxdn(std::string_view label) {
  return label.find("Nxdn") != std::string_view::npos;
}

void splitFields(std::string_view line, std::vector<std::string_view>& out) {
  out.clear();
  // Fields are short: a plain walk beats a library search per field.
  const char* data = line.data();
  std::size_t start = 0;
  for (std::size_t i = 0; i < line.size(); ++i) {
    if (data[i] == ',') {
      out.emplace_back(data + start, i - start);
      start = i + 1;
    }
  }
  out.emplace_back(data + start, line.size() - start);
}

}  // namespace zel::formats
