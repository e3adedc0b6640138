#include "formats/hpd_line_builders.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "core/text.h"
#include "grid/file_forms.h"
#include "grid/vocabulary.h"

namespace zel::formats {

namespace {

// Fields joined by TABs behind the line's type word, appended to a text.
class Tabbed {
 public:
  Tabbed(std::string& out, std::string_view word) : out_(out) { out_.append(word); }
  Tabbed& operator<<(std::string_view value) {
    out_.push_back('\t');
    out_.append(value);
    return *this;
  }

 private:
  std::string& out_;
};

// The fields of a record line, without allocating: records have at most a few dozen.
class Fields {
 public:
  explicit Fields(std::string_view line) {
    const char* data = line.data();
    std::size_t start = 0;
    for (std::size_t i = 0; i < line.size() && count_ + 1 < kMax; ++i) {
      if (data[i] == ',') {
        views_[count_++] = std::string_view(data + start, i - start);
        start = i + 1;
      }
    }
    views_[count_++] = std::string_view(data + start, line.size() - start);
  }
  std::string_view operator[](std::size_t n) const {
    return n < count_ ? views_[n] : std::string_view{};
  }

 private:
  static constexpr std::size_t kMax = 48;
  std::array<std::string_view, kMax> views_;
  std::size_t count_ = 0;
};

bool isOn(std::string_view v) {
  return v == "1" || v == "On";
}
std::string onOff(std::string_view v) {
  return isOn(v) ? "On" : "Off";
}

// The file form of a word, noting in the audit an empty word filled or a word moved.
std::string checked(WriteAudit* audit, std::string_view field, std::string_view value,
                    std::string result, bool accepted) {
  if (audit) {
    if (value.empty()) {
      if (!result.empty()) audit->noteFilled(field, result);
    } else if (!accepted) {
      audit->noteMoved(field, value, result);
    }
  }
  return result;
}

// A word of a closed list: a word on the list stands as it is; any other goes through the
// list's file form, which gives the default.
std::string listed(WriteAudit* audit, std::string_view field, std::string_view value,
                   std::string (*form)(std::string_view)) {
  std::string result = form(value);
  return checked(audit, field, value, result, result == value);
}

std::string switchWord(WriteAudit* audit, std::string_view field, std::string_view value) {
  const bool known = value == "On" || value == "Off" || value == "1" || value == "0";
  return checked(audit, field, value, onOff(value), known);
}

std::string orDefault(WriteAudit* audit, std::string_view field, std::string_view value,
                      std::string_view fallback) {
  if (!value.empty()) return std::string(value);
  return checked(audit, field, value, std::string(fallback), true);
}

std::string serviceNumber(std::string_view text, const BuildContext& c) {
  std::string_view name = text;
  if (name.empty()) {
    name = c.serviceFallback.empty() ? vocab::kDefaultServiceType
                                     : std::string_view(c.serviceFallback);
  }
  // Rows of a department mostly share their type: the last lookup is kept.
  static thread_local std::string lastName = "\x01";
  static thread_local int lastNumber = 0;
  if (name != lastName) {
    lastName = std::string(name);
    lastNumber = vocab::serviceTypeNumber(name);
  }
  const bool known = lastNumber != 0;
  return checked(c.audit, "Service Type", text, std::to_string(known ? lastNumber : 1), known);
}

// The cleaner's result; a name that needs no cleaning is passed on as it is.
std::string_view cleanedName(WriteAudit* audit, std::string_view field, std::string_view name,
                             std::string_view fallback, std::string& scratch) {
  if (name.empty()) return fallback;
  if (name.size() <= 64) {
    bool clean = true;
    for (char ch : name) {
      const unsigned char b = static_cast<unsigned char>(ch);
      if ((b >= 1 && b <= 20) || b >= 127) {
        clean = false;
        break;
      }
    }
    if (clean) return name;
  }
  scratch = cleanName(name, fallback);
  if (audit) audit->noteMoved(field, name, scratch);
  return scratch;
}

std::string tagWord(std::string_view value) {
  if (value.empty() || value == "None" || value == "Off") return "Off";
  return std::string(value);
}

std::string hexBlock(std::string_view value) {
  if (value.empty()) return "SRCH";
  long long n = leadingInteger(value);
  if (n < 0) n = 0;
  static constexpr char kDigits[] = "0123456789ABCDEF";
  std::string out;
  do {
    out.insert(out.begin(), kDigits[n % 16]);
    n /= 16;
  } while (n > 0);
  return out;
}

}  // namespace

void WriteAudit::noteMoved(std::string_view field, std::string_view from, std::string_view to) {
  moved.push_back({where, std::string(field), std::string(from), std::string(to)});
}

void WriteAudit::noteFilled(std::string_view field, std::string_view to) {
  ++filled[std::string(field)][std::string(to)];
}

std::string toneField(std::string_view sqMode, std::string_view sqCode) {
  if (sqCode == "Search" && (sqMode == "P25" || sqMode == "DMR" || sqMode == "RAN" ||
                             sqMode == "IDAS" || sqMode == "dPMR")) {
    return "NAC=Srch";
  }
  return vocab::toneToFile(sqMode, sqCode);
}

std::string numberTagField(std::string_view value) {
  if (value == "Off" || value.empty() || value == "None" || value == "1000") return "Off";
  double n = std::trunc(leadingNumber(value));
  n = std::clamp(n, 0.0, 999.0);
  return std::to_string(static_cast<int>(n));
}

std::string systemNumberField(std::string_view sinLine) {
  Fields f(sinLine);
  std::string number(trimView(f[2]));
  if (number.empty() || number == "0") return "2";
  return number;
}

namespace {

// A closed list with the word its file form gives for an empty value, looked up once.
struct ListForm {
  ListForm(const char* key, std::string (*toFile)(std::string_view))
      : words(vocab::tabel(key)), form(toFile), empty(toFile("")) {}
  const std::vector<std::string>& words;
  std::string (*form)(std::string_view);
  std::string empty;
};

struct RowLists {
  ListForm onOff{"Avoid", vocab::fileOnOff};
  ListForm delay{"Delay Time", vocab::fileDelay};
  ListForm volume{"Volume Offset", vocab::fileVolumeOffset};
  ListForm tone{"Alert Tone", vocab::fileAlertTone};
  ListForm level{"Alert Level", vocab::fileAlertLevel};
  ListForm light{"Alert Light", vocab::fileAlertLight};
  ListForm pattern{"Alert Pattern", vocab::fileAlertPattern};
};

const RowLists& rowLists() {
  static const RowLists lists;
  return lists;
}

// A word on the list stands; an empty one takes the default; any other goes through the
// list's file form, which decides.
std::string_view listed(WriteAudit* audit, std::string_view field, std::string_view value,
                        const ListForm& list, std::string& scratch) {
  for (const std::string& word : list.words) {
    if (word == value) return value;
  }
  if (value.empty()) {
    if (audit) audit->noteFilled(field, list.empty);
    return list.empty;
  }
  scratch = checked(audit, field, value, list.form(value), list.form(value) == value);
  return scratch;
}

}  // namespace

bool appendCFreqLine(std::string& out, std::string_view pageRow, const BuildContext& c) {
  Fields r(pageRow);
  const std::string_view frequency = trimView(r[1]);
  if (frequency.empty()) return false;
  const RowLists& v = rowLists();
  WriteAudit* a = c.audit;
  std::string s0, s1, s2, s3, s4, s5, s6, s7;
  Tabbed line(out, "C-Freq");
  line << ""
       << "" << cleanedName(a, "Alpha Tag", r[2], frequency, s0)
       << listed(a, "Avoid", r[3], v.onOff, s1) << frequencyToFile(frequency)
       << listed(a, "Mode", r[4], vocab::fileModulation);
  const std::string tone = toneField(r[5], r[6]);
  const bool noCode = r[5].empty() || r[5] == "All" || r[5] == "None" || r[6].empty();
  if (a && tone.empty() && !noCode) a->noteMoved("SQ Code", r[6], "");
  line << tone << serviceNumber(r[7], c) << listed(a, "Attenuator", r[8], v.onOff, s1)
       << listed(a, "Delay Time", r[9], v.delay, s2)
       << listed(a, "Volume Offset", r[10], v.volume, s3)
       << listed(a, "Alert Tone", r[11], v.tone, s4)
       << listed(a, "Alert Level", r[12], v.level, s5);
  if (c.level == HpdLevel::V3) {
    line << listed(a, "Alert Light", r[13], v.light, s6)
         << listed(a, "Alert Pattern", r[14], v.pattern, s7)
         << listed(a, "NumberTag", r[15], numberTagField)
         << listed(a, "Priority", r[16], v.onOff, s1);
  }
  return true;
}

bool appendTgidLine(std::string& out, std::string_view pageRow, const BuildContext& c) {
  Fields r(pageRow);
  const std::string_view talkgroup = trimView(r[1]);
  if (talkgroup.empty()) return false;
  const RowLists& v = rowLists();
  WriteAudit* a = c.audit;
  std::string s0, s1, s2, s3, s4, s5, s6, s7;
  Tabbed line(out, "TGID");
  line << ""
       << "" << cleanedName(a, "Alpha Tag", r[2], talkgroup, s0)
       << listed(a, "Avoid", r[3], v.onOff, s1) << talkgroup
       << checked(a, "AudioType", r[4], vocab::fileAudioType(r[4]),
                  vocab::cellAudioType(r[4]) == r[4])
       << serviceNumber(r[5], c) << listed(a, "Delay Time", r[6], v.delay, s2)
       << listed(a, "Volume Offset", r[7], v.volume, s3)
       << listed(a, "Alert Tone", r[8], v.tone, s4) << listed(a, "Alert Level", r[9], v.level, s5);
  if (c.level == HpdLevel::V3) {
    const std::string_view slot = r[14];
    const bool slotKnown = slot == "1" || slot == "2" || slot == "Any";
    line << listed(a, "Alert Light", r[10], v.light, s6)
         << listed(a, "Alert Pattern", r[11], v.pattern, s7)
         << listed(a, "NumberTag", r[12], numberTagField)
         << listed(a, "Priority", r[13], v.onOff, s1)
         << checked(a, "DMR Tslot", slot,
                    slot == "1" || slot == "2" ? std::string(slot) : std::string("Srch"),
                    slotKnown);
  }
  return true;
}

std::string buildCFreqLine(std::string_view pageRow, const BuildContext& context) {
  std::string out;
  appendCFreqLine(out, pageRow, context);
  return out;
}

std::string buildTgidLine(std::string_view pageRow, const BuildContext& context) {
  std::string out;
  appendTgidLine(out, pageRow, context);
  return out;
}

std::string buildTrunkLine(std::string_view sin, const BuildContext& c) {
  std::string nameScratch;
  Fields s(sin);
  WriteAudit* a = c.audit;
  // The Ids of the system line stay empty as the scanner writes them.
  std::string out;
  Tabbed line(out, "Trunk");
  std::string searchMode(s[12]);
  if (searchMode == "Search") searchMode = "Srch";
  line << ""
       << "" << cleanedName(a, "Name", s[4], "New System", nameScratch)
       << switchWord(a, "Avoid", s[5]) << "" << systemWordFromLabel(s[1]) << onOff(s[8]) << s[9]
       << s[10] << (isOn(s[11]) || s[11] == "Yes" ? "Yes" : "Ignore") << searchMode
       << tagWord(s[13]);
  if (c.level == HpdLevel::V3) {
    const std::string_view endCode = s[17] == "Analog and Digital" ? "Analog+Digital" : s[17];
    line << s[14] << s[15] << onOff(s[18]) << onOff(s[19]) << endCode << onOff(s[16]) << "Off"
         << "On";
  }
  return out;
}

std::string buildConventionalLine(std::string_view sin, const BuildContext& c) {
  std::string nameScratch;
  Fields s(sin);
  WriteAudit* a = c.audit;
  std::string out;
  Tabbed line(out, "Conventional");
  if (c.level == HpdLevel::V3) {
    line << ""
         << "";
  } else {
    line << "CountyID=" + systemNumberField(sin) << "StateId=0";
  }
  line << cleanedName(a, "Name", s[4], "New System", nameScratch) << switchWord(a, "Avoid", s[5])
       << ""
       << "Conventional";
  if (c.level == HpdLevel::V3) {
    line << tagWord(s[13]) << s[14] << s[15] << onOff(s[18]) << onOff(s[19]) << s[20] << s[21]
         << s[22];
  }
  return out;
}

std::vector<std::string> buildAreaLines(std::string_view sin, bool trunked) {
  const std::string id = (trunked ? "TrunkId=" : "AgencyId=") + systemNumberField(sin);
  return {"AreaState\t" + id + "\tStateId=0", "AreaCounty\t" + id + "\tCountyId=0"};
}

std::string buildDqkStatusLine() {
  std::string line = "DQKs_Status\t";
  for (int i = 0; i < 100; ++i) line += "\tOn";
  return line;
}

std::string buildFleetMapLine(std::string_view fmp, std::string_view number) {
  if (trimView(fmp).empty()) return {};
  Fields f(fmp);
  bool allZero = true;
  for (std::size_t i = 1; i <= 8; ++i) allZero = allZero && trimView(f[i]) == "0";
  if (allZero) return {};
  std::string out;
  Tabbed line(out, "FleetMap");
  line << "TrunkId=" + std::string(number);
  for (std::size_t i = 1; i <= 8; ++i) line << hexBlock(trimView(f[i]));
  return out;
}

std::string buildUnitIdLine(std::string_view uid, const BuildContext& c) {
  std::string nameScratch;
  Fields u(uid);
  WriteAudit* a = c.audit;
  std::string_view id = u[1];
  if (!id.empty() && (id.front() == 'i' || id.front() == 'I')) id.remove_prefix(1);
  std::string out;
  Tabbed line(out, "UnitIds");
  line << ""
       << "" << cleanedName(a, "Alpha Tag", u[2], "No Tag", nameScratch) << id
       << listed(a, "Alert Tone", u[3], vocab::fileAlertTone)
       << listed(a, "Alert Level", u[4], vocab::fileAlertLevel);
  if (c.level == HpdLevel::V3) {
    line << listed(a, "Alert Light", u[5], vocab::fileAlertLight)
         << listed(a, "Alert Pattern", u[6], vocab::fileAlertPattern);
  }
  return out;
}

std::string buildSiteLine(std::string_view site, int siteId, std::string_view number,
                          const BuildContext& c) {
  std::string nameScratch;
  Fields s(site);
  WriteAudit* a = c.audit;
  std::string plan(s[10]);
  if (plan == "Custom/Rebanded") plan = "Custom";
  if (plan == "Splinter") plan = "Sprinter";
  const bool planKnown = plan == "Standard" || plan == "Sprinter" || plan == "Custom";
  std::string width(s[11]);
  if (width == "Wide(standard)") width = "Wide";
  const bool widthKnown = width == "Wide" || width == "Narrow";
  const std::string_view mod = s[9];
  const bool modKnown = mod == "AUTO" || mod == "FM" || mod == "NFM";
  const std::string_view shape = s[12];
  const bool shapeKnown = shape == "Circle" || shape == "Rectangles";

  std::string out;
  Tabbed line(out, "Site");
  line << "SiteId=" + std::to_string(siteId) << "TrunkId=" + std::string(number)
       << cleanedName(a, "Name", s[4], "A New Site", nameScratch) << switchWord(a, "Avoid", s[5])
       << orDefault(a, "Latitude", s[6], "0.000000") << orDefault(a, "Longitude", s[7], "-0.000000")
       << orDefault(a, "Range", s[8], "0.0")
       << checked(a, "Modulation", mod, modKnown ? std::string(mod) : "AUTO", modKnown)
       << checked(a, "Band Plan", s[10], planKnown ? plan : "Standard", planKnown)
       << checked(a, "Bandwidth", s[11], widthKnown ? width : "Wide", widthKnown);
  if (c.level != HpdLevel::V1) {
    line << checked(a, "Shape", shape, shapeKnown ? std::string(shape) : "Circle", shapeKnown)
         << onOff(s[13]);
  }
  if (c.level == HpdLevel::V3) {
    line << s[14] << s[15] << s[16] << tagWord(s[17]) << s[18] << s[19];
  }
  return out;
}

bool bandPlanDue(std::string_view site, std::string_view systemWord) {
  Fields s(site);
  const bool custom = s[10] == "Custom/Rebanded" || s[10] == "Custom";
  return custom &&
         (systemWord == "Motorola" || systemWord == "P25Standard" || systemWord == "P25X2_TDMA");
}

std::string buildBandPlanLine(std::string_view mcp, int siteId) {
  Fields m(mcp);
  Fields d(kDefaultBandPlan);
  auto value = [&](std::size_t n) {
    std::string_view v = trimView(m[n]);
    return v.empty() ? d[n] : v;
  };
  std::string out;
  Tabbed line(out, "BandPlan_Mot");
  line << "SiteId=" + std::to_string(siteId);
  for (std::size_t base = 2; base < 22; base += 4) {
    line << bandPlanHz(value(base)) << bandPlanHz(value(base + 1))
         << bandPlanHzThousandths(value(base + 2)) << value(base + 3);
  }
  return out;
}

std::string buildSiteFrequencyLine(std::string_view tfq, int siteId, int position, bool nxdn) {
  Fields t(tfq);
  std::string_view lcn = trimView(t[2]);
  std::string lcnText = lcn.empty() ? std::to_string(position) : std::string(lcn);
  std::string_view ran = trimView(t[4]);
  std::string ranText;
  if (ran.empty() || ran == "Srch" || ran == "Search" || ran == "RAN=Srch" || ran == "RAN=Search") {
    ranText = "Srch";
  } else if (startsWith(ran, "RAN=") || startsWith(ran, "Area=")) {
    ranText = std::string(ran);
  } else {
    ranText = "RAN=" + std::string(ran);
  }
  std::string_view colour = trimView(t[3]);
  std::string out;
  Tabbed line(out, "T-Freq");
  line << "TFreqId=0"
       << "SiteId=" + std::to_string(siteId) << ""
       << "Off" << frequencyToFile(t[1]) << lcnText
       << (nxdn ? ranText : (colour.empty() ? std::string("Srch") : std::string(colour)))
       << ranText;
  return out;
}

std::string buildGroupLine(std::string_view group, bool talkgroups, int groupId,
                           std::string_view number, const BuildContext& c) {
  std::string nameScratch;
  Fields g(group);
  WriteAudit* a = c.audit;
  std::string out;
  Tabbed line(out, talkgroups ? "T-Group" : "C-Group");
  line << (talkgroups ? "TGroupId=" : "CGroupId=") + std::to_string(groupId)
       << (talkgroups ? "TrunkId=" : "AgencyId=") + std::string(number)
       << cleanedName(a, "Name", g[4], "Group", nameScratch) << switchWord(a, "Avoid", g[5])
       << orDefault(a, "Latitude", g[6], "0.000000") << orDefault(a, "Longitude", g[7], "-0.000000")
       << orDefault(a, "Range", g[8], "0.0");
  if (c.level != HpdLevel::V1) line << "Circle";
  if (c.level == HpdLevel::V3) {
    line << g[10];
    if (!talkgroups) line << orDefault(a, "Scope", g[11], "Global");
  }
  return out;
}

}  // namespace zel::formats
