// The trunked lists of the import window: talkgroups of a ticked category (ListView1), the
// system's sites (ListView4) and their frequencies (ListView2).
//
// Talkgroup id. The service gives every talkgroup its decimal number in tgDec, EDACS ones
// included (their tgSubfleet is empty), and that is the id the list shows. An LTR talkgroup
// may come with tgDec 0 and its own "A-HH-UUU" form in tgSubfleet; the list then shows that
// form as digits only ("1-02-034" -> "102034"), the six-character id the import expects. An
// EDACS talkgroup without tgDec shows its subfleet text as the service sends it.
#include <array>
#include <cctype>
#include <cstdio>

#include "core/text.h"
#include "radioref/rr_import.h"
#include "radioref/rr_import_text.h"

namespace zel::radioref {

namespace {

std::string coordinate(double value) {
  std::array<char, 32> buffer{};
  std::snprintf(buffer.data(), buffer.size(), "%.15g", value);
  return buffer.data();
}

std::string digitsOnly(const std::string& text) {
  std::string out;
  for (char c : text) {
    if (std::isdigit(static_cast<unsigned char>(c))) out.push_back(c);
  }
  return out;
}

// The talkgroup's kind for "Import only the following talkgroups:": encryption first ("2"
// full, "1" partial), then the mode letter. A row passes when each kind it has is let through.
bool talkgroupWanted(const RRTalkgroup& tg, const ImportOptions& options) {
  const auto& on = options.talkgroupFilter;
  const std::string enc = trim(tg.enc);
  if (enc == "2" && !on[tgFullEncrypted]) return false;
  if (enc == "1" && !on[tgPartialEncrypted]) return false;
  const std::string mode = toUpper(trim(tg.tgMode));
  if (mode == "A") return on[tgAnalog];
  if (mode == "D") return on[tgDigital];
  if (mode == "M") return on[tgMixed];
  if (mode == "T") return on[tgTdma];
  return true;
}

std::string listId(const RRTalkgroup& tg, const std::string& typeName) {
  if (tg.tgDec != 0) return std::to_string(tg.tgDec);
  if (iequals(typeName, "LTR")) return digitsOnly(tg.tgSubfleet);
  return {};
}

}  // namespace

std::vector<TalkgroupRow> talkgroupRows(const std::vector<RRTalkgroup>& talkgroups,
                                        const RRTalkgroupCat& category, const TrunkSystem& system,
                                        const ImportOptions& options, int firstNumber) {
  const std::string gps =
      coordinate(category.lat) + "," + coordinate(category.lon) + "," + coordinate(category.range);
  std::vector<TalkgroupRow> rows;
  int number = firstNumber;
  for (const RRTalkgroup& tg : talkgroups) {
    if (!talkgroupWanted(tg, options)) continue;
    TalkgroupRow row;
    row.number = number++;
    row.id = listId(tg, system.typeName);
    row.descr = cleanListText(tg.tgDescr);
    row.alpha = cleanListText(tg.tgAlpha);
    row.group = cleanListText(category.tgCname);
    row.subfleet = tg.tgSubfleet;
    row.tag = tg.tags.empty() ? std::string() : std::to_string(tg.tags.front());
    row.mode = tg.tgMode;
    row.gps = gps;
    row.slot = tg.tgSlot;
    row.date = tg.tgDate;
    row.enc = tg.enc;
    row.tgCid = tg.tgCid != 0 ? tg.tgCid : category.tgCid;
    rows.push_back(std::move(row));
  }
  return rows;
}

std::vector<SiteRow> siteRows(const TrunkSystem& system) {
  std::vector<SiteRow> rows;
  int number = 1;
  for (const RRSite& site : system.sites) {
    SiteRow row;
    row.number = number;
    row.name = cleanListText(site.siteDescr);
    row.siteId = site.siteId;
    row.key = "site-" + std::to_string(site.siteId);
    row.rebanded = site.rebanded != 0;
    row.splinter = site.splinter != 0;
    row.lat = coordinate(site.lat);
    row.lon = coordinate(site.lon);
    row.range = coordinate(site.range);
    row.county = site.siteCtid.empty() ? std::string() : site.siteCtid.front();
    row.qkey = std::to_string(number > 99 ? 99 : number);
    rows.push_back(std::move(row));
    ++number;
  }
  return rows;
}

std::vector<SiteFreqRow> siteFreqRows(const TrunkSystem& system) {
  std::vector<SiteFreqRow> rows;
  int number = 1;
  for (const RRSite& site : system.sites) {
    const std::string count = std::to_string(site.siteFreqs.size());
    for (const RRSiteFreq& f : site.siteFreqs) {
      SiteFreqRow row;
      row.number = number++;
      row.site = cleanListText(site.siteDescr);
      row.freq = f.freq;
      row.lcn = f.lcn != 0 ? std::to_string(f.lcn) : std::string();
      row.use = f.use;
      row.key = "site-" + std::to_string(site.siteId);
      row.id = std::to_string(site.siteId);
      row.colorCode = f.colorCode;
      row.chId = f.ch_id;
      row.ran = site.ran;
      row.freqCount = count;
      row.nac = site.nac;
      rows.push_back(std::move(row));
    }
  }
  return rows;
}

}  // namespace zel::radioref
