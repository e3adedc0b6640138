#include "formats/hpd_line_builders.h"

#include <algorithm>
#include <cmath>

#include "core/text.h"
#include "grid/file_forms.h"
#include "grid/vocabulary.h"

namespace zel::formats {

namespace {

// Fields joined by TABs behind the line's type word.
class Tabbed {
 public:
  explicit Tabbed(std::string_view word, std::size_t reserve = 96) {
    line_.reserve(reserve);
    line_.append(word);
  }
  Tabbed& operator<<(std::string_view value) {
    line_.push_back('\t');
    line_.append(value);
    return *this;
  }
  std::string take() { return std::move(line_); }

 private:
  std::string line_;
};

struct Fields {
  explicit Fields(std::string_view line) { splitFields(line, views); }
  std::string_view operator[](std::size_t n) const { return fieldAt(views, n); }
  std::vector<std::string_view> views;
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
  std::string name(text);
  if (name.empty()) {
    name = c.serviceFallback.empty() ? std::string(vocab::kDefaultServiceType) : c.serviceFallback;
  }
  int number = vocab::serviceTypeNumber(name);
  const bool known = number != 0;
  if (!known) number = 1;
  return checked(c.audit, "Service Type", text, std::to_string(number), known);
}

std::string cleanedName(WriteAudit* audit, std::string_view field, std::string_view name,
                        std::string_view fallback) {
  std::string clean = cleanName(name, fallback);
  if (audit && !name.empty() && clean != name) audit->noteMoved(field, name, clean);
  return clean;
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

std::string buildCFreqLine(std::string_view pageRow, const BuildContext& c) {
  Fields r(pageRow);
  const std::string_view frequency = trimView(r[1]);
  if (frequency.empty()) return {};
  WriteAudit* a = c.audit;
  Tabbed line("C-Freq", pageRow.size() + 48);
  line << ""
       << "" << cleanedName(a, "Alpha Tag", r[2], frequency)
       << listed(a, "Avoid", r[3], vocab::fileOnOff) << frequencyToFile(frequency)
       << listed(a, "Mode", r[4], vocab::fileModulation);
  const std::string tone = toneField(r[5], r[6]);
  const bool noCode = r[5].empty() || r[5] == "All" || r[5] == "None" || r[6].empty();
  if (a && tone.empty() && !noCode) a->noteMoved("SQ Code", r[6], "");
  line << tone << serviceNumber(r[7], c) << listed(a, "Attenuator", r[8], vocab::fileOnOff)
       << listed(a, "Delay Time", r[9], vocab::fileDelay)
       << listed(a, "Volume Offset", r[10], vocab::fileVolumeOffset)
       << listed(a, "Alert Tone", r[11], vocab::fileAlertTone)
       << listed(a, "Alert Level", r[12], vocab::fileAlertLevel);
  if (c.level == HpdLevel::V3) {
    line << listed(a, "Alert Light", r[13], vocab::fileAlertLight)
         << listed(a, "Alert Pattern", r[14], vocab::fileAlertPattern)
         << listed(a, "NumberTag", r[15], numberTagField)
         << listed(a, "Priority", r[16], vocab::fileOnOff);
  }
  return line.take();
}

std::string buildTgidLine(std::string_view pageRow, const BuildContext& c) {
  Fields r(pageRow);
  const std::string_view talkgroup = trimView(r[1]);
  if (talkgroup.empty()) return {};
  WriteAudit* a = c.audit;
  Tabbed line("TGID", pageRow.size() + 32);
  const std::string audio = vocab::fileAudioType(r[4]);
  line << ""
       << "" << cleanedName(a, "Alpha Tag", r[2], talkgroup)
       << listed(a, "Avoid", r[3], vocab::fileOnOff) << talkgroup
       << checked(a, "AudioType", r[4], audio, vocab::cellAudioType(r[4]) == r[4])
       << serviceNumber(r[5], c) << listed(a, "Delay Time", r[6], vocab::fileDelay)
       << listed(a, "Volume Offset", r[7], vocab::fileVolumeOffset)
       << listed(a, "Alert Tone", r[8], vocab::fileAlertTone)
       << listed(a, "Alert Level", r[9], vocab::fileAlertLevel);
  if (c.level == HpdLevel::V3) {
    const std::string_view slot = r[14];
    const bool slotKnown = slot == "1" || slot == "2" || slot == "Any";
    line << listed(a, "Alert Light", r[10], vocab::fileAlertLight)
         << listed(a, "Alert Pattern", r[11], vocab::fileAlertPattern)
         << listed(a, "NumberTag", r[12], numberTagField)
         << listed(a, "Priority", r[13], vocab::fileOnOff)
         << checked(a, "DMR Tslot", slot,
                    slot == "1" || slot == "2" ? std::string(slot) : std::string("Srch"),
                    slotKnown);
  }
  return line.take();
}

std::string buildTrunkLine(std::string_view sin, const BuildContext& c) {
  Fields s(sin);
  WriteAudit* a = c.audit;
  // The Ids of the system line stay empty as the scanner writes them.
  Tabbed line("Trunk");
  std::string searchMode(s[12]);
  if (searchMode == "Search") searchMode = "Srch";
  line << ""
       << "" << cleanedName(a, "Name", s[4], "New System") << switchWord(a, "Avoid", s[5]) << ""
       << systemWordFromLabel(s[1]) << onOff(s[8]) << s[9] << s[10]
       << (isOn(s[11]) || s[11] == "Yes" ? "Yes" : "Ignore") << searchMode << tagWord(s[13]);
  if (c.level == HpdLevel::V3) {
    line << s[14] << s[15] << onOff(s[18]) << onOff(s[19]) << s[17] << onOff(s[16]) << "Off"
         << "On";
  }
  return line.take();
}

std::string buildConventionalLine(std::string_view sin, const BuildContext& c) {
  Fields s(sin);
  WriteAudit* a = c.audit;
  Tabbed line("Conventional");
  if (c.level == HpdLevel::V3) {
    line << ""
         << "";
  } else {
    line << "CountyID=" + systemNumberField(sin) << "StateId=0";
  }
  line << cleanedName(a, "Name", s[4], "New System") << switchWord(a, "Avoid", s[5]) << ""
       << "Conventional";
  if (c.level == HpdLevel::V3) {
    line << tagWord(s[13]) << s[14] << s[15] << onOff(s[18]) << onOff(s[19]) << s[20] << s[21]
         << s[22];
  }
  return line.take();
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
  Tabbed line("FleetMap");
  line << "TrunkId=" + std::string(number);
  for (std::size_t i = 1; i <= 8; ++i) line << hexBlock(trimView(f[i]));
  return line.take();
}

std::string buildUnitIdLine(std::string_view uid, const BuildContext& c) {
  Fields u(uid);
  WriteAudit* a = c.audit;
  std::string_view id = u[1];
  if (!id.empty() && (id.front() == 'i' || id.front() == 'I')) id.remove_prefix(1);
  Tabbed line("UnitIds");
  line << ""
       << "" << cleanedName(a, "Alpha Tag", u[2], "No Tag") << id
       << listed(a, "Alert Tone", u[3], vocab::fileAlertTone)
       << listed(a, "Alert Level", u[4], vocab::fileAlertLevel);
  if (c.level == HpdLevel::V3) {
    line << listed(a, "Alert Light", u[5], vocab::fileAlertLight)
         << listed(a, "Alert Pattern", u[6], vocab::fileAlertPattern);
  }
  return line.take();
}

std::string buildSiteLine(std::string_view site, int siteId, std::string_view number,
                          const BuildContext& c) {
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

  Tabbed line("Site");
  line << "SiteId=" + std::to_string(siteId) << "TrunkId=" + std::string(number)
       << cleanedName(a, "Name", s[4], "A New Site") << switchWord(a, "Avoid", s[5])
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
  return line.take();
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
  Tabbed line("BandPlan_Mot", 160);
  line << "SiteId=" + std::to_string(siteId);
  for (std::size_t base = 2; base < 22; base += 4) {
    line << bandPlanHz(value(base)) << bandPlanHz(value(base + 1))
         << bandPlanHzThousandths(value(base + 2)) << value(base + 3);
  }
  return line.take();
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
  Tabbed line("T-Freq");
  line << "TFreqId=0"
       << "SiteId=" + std::to_string(siteId) << ""
       << "Off" << frequencyToFile(t[1]) << lcnText
       << (nxdn ? ranText : (colour.empty() ? std::string("Srch") : std::string(colour)))
       << ranText;
  return line.take();
}

std::string buildGroupLine(std::string_view group, bool talkgroups, int groupId,
                           std::string_view number, const BuildContext& c) {
  Fields g(group);
  WriteAudit* a = c.audit;
  Tabbed line(talkgroups ? "T-Group" : "C-Group");
  line << (talkgroups ? "TGroupId=" : "CGroupId=") + std::to_string(groupId)
       << (talkgroups ? "TrunkId=" : "AgencyId=") + std::string(number)
       << cleanedName(a, "Name", g[4], "Group") << switchWord(a, "Avoid", g[5])
       << orDefault(a, "Latitude", g[6], "0.000000") << orDefault(a, "Longitude", g[7], "-0.000000")
       << orDefault(a, "Range", g[8], "0.0");
  if (c.level != HpdLevel::V1) line << "Circle";
  if (c.level == HpdLevel::V3) {
    line << g[10];
    if (!talkgroups) line << orDefault(a, "Scope", g[11], "Global");
  }
  return line.take();
}

}  // namespace zel::formats
