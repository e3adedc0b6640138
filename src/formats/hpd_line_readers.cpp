#include "formats/hpd_line_readers.h"

#include "core/text.h"
#include "grid/vocabulary.h"

namespace zel::formats {

namespace {

std::vector<std::string> ownedFields(std::string_view line) {
  std::vector<std::string_view> views;
  splitFields(line, views);
  return {views.begin(), views.end()};
}

void stripPrefix(std::string& field, std::string_view prefix, bool ignoreCase = false) {
  if (field.size() < prefix.size()) return;
  std::string_view head = std::string_view(field).substr(0, prefix.size());
  if (ignoreCase ? iequals(head, prefix) : head == prefix) field.erase(0, prefix.size());
}

// The switches of a system line are held as "1" and "0", and a few words in the forms the
// system's pane shows. Only the positions that the writer turns back into words change: every
// other field keeps its text, so that a save writes it as it was read. Positions count the
// line's own fields, the type word as 0.
enum class Switch { OnOff, OnOffYes, SearchWord, EndCode };

struct SwitchPosition {
  std::size_t position;
  Switch kind;
};

// Trunk: avoid, ID search, status bit ("Yes"), search mode ("Srch"), the three switches of
// level 3 and the end code.
constexpr SwitchPosition kTrunkSwitches[] = {
    {4, Switch::OnOff},  {7, Switch::OnOff},   {10, Switch::OnOffYes}, {11, Switch::SearchWord},
    {15, Switch::OnOff}, {16, Switch::OnOff},  {17, Switch::EndCode},  {18, Switch::OnOff},
};

void toRecordWord(std::string& value, Switch kind) {
  switch (kind) {
    case Switch::OnOffYes:
      if (value == "Yes") value = "1";
      [[fallthrough]];
    case Switch::OnOff:
      if (value == "On") value = "1";
      if (value == "Off") value = "0";
      return;
    case Switch::SearchWord:
      if (value == "Srch") value = "Search";
      return;
    case Switch::EndCode:
      if (value == "Analog+Digital") value = "Analog and Digital";
      return;
  }
}

std::string numberTag(std::string_view tag) {
  if (tag.empty() || tag == "Off" || tag == "None") return "None";
  return std::string(tag);
}

const std::string& at(const std::vector<std::string>& f, std::size_t n) {
  static const std::string kEmpty;
  return n < f.size() ? f[n] : kEmpty;
}

void appendField(std::string& out, std::string_view value) {
  out.push_back(',');
  out.append(value);
}

// Reads leading hexadecimal digits into a decimal number; no digits read as 0.
std::string hexToDecimal(std::string_view text) {
  unsigned long long value = 0;
  for (char c : text) {
    int digit;
    if (c >= '0' && c <= '9') {
      digit = c - '0';
    } else if (c >= 'a' && c <= 'f') {
      digit = c - 'a' + 10;
    } else if (c >= 'A' && c <= 'F') {
      digit = c - 'A' + 10;
    } else {
      break;
    }
    if (value > (1ULL << 56)) break;  // a block code is a digit or two; stop runaway text
    value = value * 16 + static_cast<unsigned>(digit);
  }
  return std::to_string(value);
}

}  // namespace

ToneCells toneFromFile(std::string_view field) {
  ToneCells t;
  auto has = [&](std::string_view word) { return field.find(word) != std::string_view::npos; };
  auto set = [&](std::string_view mode, std::string_view code) {
    t.mode = std::string(mode);
    t.code = std::string(code);
  };
  auto rest = [&](std::string_view word) { return field.substr(field.find(word) + word.size()); };
  if (field.empty()) set("All", "Search");
  if (has("RAN=Srch") || has("RAN=Search")) set("RAN", "Search");
  if (has("TONE=Srch")) set("CTCSS", "Search");
  if (has("NAC=Srch")) set("P25", "Search");
  if (has("ColorCode=Srch")) set("DMR", "Search");
  if (has("CommonId=")) set("dPMR", rest("CommonId="));
  // A search word set above is not overwritten by the plain "RAN=" of the same field.
  if (has("RAN=") && t.code != "Search") set("RAN", rest("RAN="));
  if (has("Area=")) set("IDAS", rest("Area="));
  if (has("TONE=C")) set("CTCSS", rest("TONE=C"));
  if (has("TONE=D")) set("DCS", rest("TONE=D"));
  if (has("NAC=") && t.code != "Search") set("P25", rest("NAC="));
  if (has("ColorCode=") && t.code != "Search") set("DMR", rest("ColorCode="));
  return t;
}

std::string serviceTextFromFile(std::string_view number, std::string_view fallback) {
  const long long n = leadingInteger(number);
  if ((n > 0 && n <= 37) || (n > 207 && n <= 217)) {
    std::string name = vocab::serviceTypeName(static_cast<int>(n));
    if (!name.empty()) return name;
  }
  return fallback.empty() ? std::string("NOT DEFINED") : std::string(fallback);
}

std::string_view LineReaders::withLevelTail(std::string_view line, std::string_view tail) {
  if (level_ != HpdLevel::V1) return line;
  buffer_.assign(line);
  buffer_.append(tail);
  return buffer_;
}

SystemRecord LineReaders::conventional(std::string_view line) {
  std::vector<std::string> f = ownedFields(line);
  // The type word is followed by five fields that a trunked system uses.
  if (f.size() < 7) f.resize(7);
  f.insert(f.begin() + 7, 5, std::string());
  f.insert(f.begin(), "SIN");
  const std::string tag = numberTag(at(f, 13));
  for (std::size_t i = 1; i < f.size(); ++i) {
    stripPrefix(f[i], "AgencyId=");
    // Level 2 files of this system carry "CountyID=" with a capital D.
    stripPrefix(f[i], "CountyId=", true);
  }
  // Avoid and the two switches of level 3 (file positions 4, 10, 11); the number tag has
  // its own rule.
  for (std::size_t i : {5, 16, 17}) {
    if (i < f.size()) toRecordWord(f[i], Switch::OnOff);
  }

  SystemRecord r;
  r.name = at(f, 4);
  r.kind = {"Conventional", 0, false, false};
  if (x36_) {
    std::string& out = r.text;
    out = "SIN";
    for (int i = 1; i <= 12; ++i) appendField(out, at(f, i));
    appendField(out, tag);
    appendField(out, at(f, 14));
    appendField(out, at(f, 15));
    out += ",,";
    for (int i = 16; i <= 20; ++i) appendField(out, at(f, i));
    appendField(out, padNumber(fileNumber_, 3));
  } else {
    r.text = join(f, ',');
  }
  return r;
}

SystemRecord LineReaders::trunk(std::string_view line) {
  line = withLevelTail(line, ",0,Off,Auto,0,Search");
  // The fields behind the word keep their file positions: field 0 is what stands between
  // "Trunk" and the first comma.
  std::vector<std::string> f = ownedFields(line.size() > 5 ? line.substr(5) : std::string_view{});
  const std::string word = at(f, 6);
  const std::string tag = numberTag(at(f, 12));
  for (std::size_t i = 1; i < f.size(); ++i) {
    stripPrefix(f[i], "TrunkId=");
    stripPrefix(f[i], "AgencyId=");
  }
  for (const SwitchPosition& p : kTrunkSwitches) {
    if (p.position < f.size()) toRecordWord(f[p.position], p.kind);
  }

  SystemRecord r;
  r.kind = systemKindFromWord(word);
  // SIN position k holds file position k - 1 from position 2 on.
  std::vector<std::string> s;
  s.reserve(f.size() + 1);
  s.push_back("SIN");
  s.push_back(r.kind.label + at(f, 0));
  for (std::size_t i = 1; i < f.size(); ++i) s.push_back(f[i]);
  r.name = at(s, 4);
  if (x36_) {
    std::string& out = r.text;
    out = "SIN";
    for (int i = 1; i <= 12; ++i) appendField(out, at(s, i));
    appendField(out, tag);
    for (int i : {14, 15, 19, 18, 16, 17}) appendField(out, at(s, i));
    out += ",,,";
    appendField(out, padNumber(fileNumber_, 3));
  } else {
    r.text = join(s, ',');
  }
  return r;
}

std::string LineReaders::site(std::string_view line) {
  line = withLevelTail(line, ",Circle,Off");
  std::vector<std::string> f = ownedFields(line);
  if (f.size() > 12 && (f[11] == "Circle" || f[11] == "Rectangles")) {
    if (f[12] == "Off") f[12] = "0";
    if (f[12] == "On") f[12] = "1";
  }
  if (f.size() > 9) {
    if (f[9] == "Custom") f[9] = "Custom/Rebanded";
    if (f[9] == "Sprinter") f[9] = "Splinter";
  }
  if (f.size() > 10 && f[10] == "Wide") f[10] = "Wide(standard)";
  std::string out = "SIT,";
  out += join(f, ',');
  return out;
}

std::string LineReaders::group(std::string_view tag, std::string_view line) {
  line = withLevelTail(line, ",Circle");
  std::string out(tag);
  out.push_back(',');
  out.append(line);
  return out;
}

std::string LineReaders::bandPlan(std::string_view line) {
  splitFields(line, fields_);
  std::string out = "MCP,type";
  for (std::size_t base = 2; base <= 14; base += 4) {
    appendField(out, bandPlanMhz(fieldAt(fields_, base)));
    appendField(out, bandPlanMhz(fieldAt(fields_, base + 1)));
    appendField(out, bandPlanKhz(fieldAt(fields_, base + 2)));
    appendField(out, fieldAt(fields_, base + 3));
  }
  return out;
}

std::string LineReaders::fleetMap(std::string_view line) {
  splitFields(line, fields_);
  std::string out = "FMP";
  for (std::size_t i = 2; i <= 9; ++i) {
    std::string_view block = trimView(fieldAt(fields_, i));
    if (iequals(block, "SRCH") || iequals(block, "NONEERR")) {
      appendField(out, "");
    } else {
      appendField(out, hexToDecimal(block));
    }
  }
  return out;
}

std::string LineReaders::siteFrequency(std::string_view line, bool nxdn) {
  splitFields(line, fields_);
  std::string_view code = fieldAt(fields_, 7);
  if (code.empty() || code == "RAN=Search" || code == "RAN=Srch") code = "Srch";
  std::string out = "TFQ,";
  out += frequencyFromFile(fieldAt(fields_, 5));
  appendField(out, fieldAt(fields_, 6));
  if (nxdn) out.push_back(',');
  appendField(out, code);
  return out;
}

std::string LineReaders::unitId(std::string_view line) {
  splitFields(line, fields_);
  std::string out = "UID";
  for (std::size_t i : {4, 3, 5, 6}) appendField(out, fieldAt(fields_, i));
  if (x36_) {
    appendField(out, fieldAt(fields_, 7));
    appendField(out, fieldAt(fields_, 8));
  }
  return out;
}

std::string LineReaders::channelRow(int row, std::string_view line,
                                    std::string_view serviceFallback) {
  line = withLevelTail(line, ",Off,2,0,Off,Auto");
  splitFields(line, fields_);
  const ToneCells tone = toneFromFile(fieldAt(fields_, 7));
  std::string out = std::to_string(row);
  out.reserve(line.size() + 48);
  appendField(out, frequencyFromFile(fieldAt(fields_, 5)));
  appendField(out, fieldAt(fields_, 3));
  appendField(out, fieldAt(fields_, 4));
  appendField(out, fieldAt(fields_, 6));
  appendField(out, tone.mode);
  appendField(out, tone.code);
  appendField(out, serviceTextFromFile(fieldAt(fields_, 8), serviceFallback));
  const std::size_t last = x36_ ? 17 : 13;
  for (std::size_t i = 9; i <= last; ++i) appendField(out, fieldAt(fields_, i));
  return out;
}

std::string LineReaders::talkgroupRow(int row, std::string_view line,
                                      std::string_view serviceFallback) {
  line = withLevelTail(line, ",2,0,Off,Auto");
  splitFields(line, fields_);
  std::string_view audio = fieldAt(fields_, 6);
  if (audio == "ALL") audio = "All";
  if (audio == "ANALOG") audio = "Analog";
  if (audio == "DIGITAL") audio = "Digital";
  std::string out = std::to_string(row);
  out.reserve(line.size() + 32);
  appendField(out, fieldAt(fields_, 5));
  appendField(out, fieldAt(fields_, 3));
  appendField(out, fieldAt(fields_, 4));
  appendField(out, audio);
  appendField(out, serviceTextFromFile(fieldAt(fields_, 7), serviceFallback));
  for (std::size_t i = 8; i <= 11; ++i) appendField(out, fieldAt(fields_, i));
  if (x36_) {
    for (std::size_t i = 12; i <= 15; ++i) appendField(out, fieldAt(fields_, i));
    std::string_view slot = fieldAt(fields_, 16);
    appendField(out, slot == "1" || slot == "2" ? slot : std::string_view("Any"));
  }
  return out;
}

}  // namespace zel::formats
