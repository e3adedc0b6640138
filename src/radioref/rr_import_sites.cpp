// One site of a trunked import: its line with the band-plan tail, its band plan and its
// frequencies, and the rules those lines follow.
//
// The band plan node joins the tree after the whole import (see rr_import_trunked.cpp): the
// site takes it through `SiteBuild`, not at once.
#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "core/keys.h"
#include "core/record_line.h"
#include "core/text.h"
#include "core/tree_operations.h"
#include "radioref/rr_import_trunk_lines.h"

namespace zel::radioref {

namespace {

constexpr int kMaxSiteFrequencies = 100;

std::string withoutH(std::string text) {
  std::erase_if(text, [](char c) { return c == 'H' || c == 'h'; });
  return text;
}

// A step in kHz as the plan lines hold it: one decimal ("25.0", "12.5"), more only when the
// step needs them ("6.25").
std::string stepText(double khz) {
  const std::string one = formatFixed(khz, 1);
  if (std::fabs(leadingNumber(one) - khz) < 1e-9) return one;
  std::string more = formatFixed(khz, 4);
  while (more.back() == '0') more.pop_back();
  return more;
}

bool near(double a, double b) {
  return std::fabs(a - b) < 1e-6;
}

FrequencyForm formOf(const std::string& importType) {
  if (importType == "LTR" || importType.starts_with("EDACS")) return FrequencyForm::Lcn;
  if (importType == "MotoTRBO" || importType == "DMR One Frequency") return FrequencyForm::Dmr;
  if (importType.starts_with("Nxdn")) return FrequencyForm::Nxdn;
  return FrequencyForm::Plain;
}

const RRSite* findSite(const TrunkSystem& trunk, const SiteRow& row) {
  for (const RRSite& s : trunk.sites) {
    if (s.siteId == row.siteId) return &s;
  }
  return nullptr;
}

}  // namespace

std::string siteTail(const SiteTailCase& c) {
  const std::string custom = ",AUTO,Custom/Rebanded,Wide,Circle,0,,,,,,,,,,,,";
  std::string tail = std::string(",AUTO,Standard,Wide,Circle,0,,,,") + ",,,,,,,,";
  if (c.hasBandPlan) tail = custom;
  if (iequals(c.typeName, "Project 25")) {
    tail = ",AUTO,Standard,Wide,Circle,0,,,," + withoutH(c.nac) + ",,,,,,,";
  }
  if (c.rebanded) tail = custom;
  if (c.splinter) tail = ",AUTO,Splinter,Wide,Circle,0,,,,,,,,,,,,";
  if (iequals(c.typeName, "Edacs") && (c.flavorCode == "10" || c.flavorCode == "11")) {
    tail = ",AUTO,Standard,Narrow,Circle,0,,,,,,,,,,,,";
  }
  return tail;
}

std::vector<RebandRow> load_reband() {
  return {
      {440, 559, 25.0, 851.025}, {0, 719, 25.0, 851.0125},   {720, 759, 25.0, 848.000},
      {815, 831, 25.0, 846.625}, {958, 1022, 25.0, 868.975}, {961, 1022, 25.0, 843.4},
  };
}

std::string bandPlanLine(const std::vector<RRBandPlan>& rows, bool rebanded) {
  if (rebanded) return kRebandedPlanLine;
  if (rows.empty()) return {};
  if (rows.size() >= 2 && near(leadingNumber(rows[0].base), 851.025) &&
      near(leadingNumber(rows[1].base), 851.0125)) {
    return kRebandedPlanLine;
  }
  constexpr std::size_t kGroups = 6;
  std::string line = "MCP,type";
  const std::size_t used = std::min(rows.size(), kGroups);
  for (std::size_t k = 0; k < used; ++k) {
    const double base = leadingNumber(rows[k].base);
    const double offset = leadingNumber(rows[k].offset);
    const double spacing = leadingNumber(rows[k].spacing);
    // The row after the last one is the sentinel at channel 760.
    const double next = k + 1 < rows.size() ? leadingNumber(rows[k + 1].offset) : 760.0;
    const double high = base + (next - 1 - offset) * spacing / 1000.0;
    line += "," + formatFixed(base, 4) + "," + formatFixed(high, 4) + "," + stepText(spacing) +
            "," + std::to_string(std::lround(offset));
  }
  for (std::size_t k = used; k < kGroups; ++k) line += ",,,,";
  return line;
}

bool controlChannelTaken(const std::string& use, const ImportOptions& o) {
  const std::string u = toLower(trim(use));
  if (u != "d" && u != "a") return true;
  if (!o.ccPrimary && !o.ccAlternate && !o.ccAll) return true;
  if (o.ccAll) return true;
  return u == "d" ? o.ccPrimary : o.ccAlternate;
}

std::string ranText(const std::string& ran, bool area) {
  std::string r = trim(ran);
  if (r.empty() || r == "RAN=99" || r == "99" || r == "RAN>99") return "Srch";
  if (!r.starts_with("RAN=")) r = "RAN=" + r;
  if (area) r = "Area=" + r.substr(4);
  return r;
}

std::string siteFrequencyLine(const SiteFreqRow& row, FrequencyForm form, bool area) {
  const double mhz = leadingNumber(trim(row.freq));
  if (trim(row.freq) == "0000.000000" || mhz <= 0) return {};
  std::string line = "TFQ," + formatFixed(mhz, 6) + ",";
  if (form != FrequencyForm::Plain) line += trim(row.lcn);
  switch (form) {
    case FrequencyForm::Dmr: {
      const std::string cc = trim(row.colorCode);
      line += "," + (cc.empty() ? std::string("Srch") : cc);
      break;
    }
    case FrequencyForm::Nxdn:
      line += ",," + ranText(row.ran, area);
      break;
    default:
      line += ",Srch";
      break;
  }
  return line;
}

std::string create_site245(SiteBuild& b, const SiteRow& row, bool rebanded, bool splinter) {
  Document& doc = b.doc;
  if (b.system <= 0 || !doc.data.contains(keys::system(b.system))) {
    b.feedback.message("error , can not add site.");
    return {};
  }
  const RRSite* site = findSite(b.trunk, row);
  const int number = treemod::g_n_i(doc, "site", b.system, b.feedback);
  if (number <= 0) return {};

  // Place: the site's own, or the county's for a site at 0,0; none without "Import GPS data".
  double lat = 0, lon = 0, range = 0;
  if (b.options.importGps) {
    lat = leadingNumber(row.lat);
    lon = leadingNumber(row.lon);
    range = leadingNumber(row.range);
    const int ctid = static_cast<int>(leadingInteger(row.county));
    if (trim(row.lat) == "0" && trim(row.lon) == "0" && ctid > 0 && b.countyInfo) {
      if (std::optional<RRCounty> county = b.countyInfo(ctid)) {
        lat = county->lat;
        lon = county->lon;
        range = county->range;
      }
    }
  }

  std::string name = row.name;
  if (b.options.removeSpaces) std::erase(name, ' ');
  name = filter_sp(std::move(name));
  if (name.size() > static_cast<std::size_t>(kTagLimit)) name.resize(kTagLimit);

  const std::vector<RRBandPlan>& plan =
      site && !site->bandplan.empty() ? site->bandplan : b.trunk.details.bandplan;
  SiteTailCase tailCase;
  tailCase.typeName = b.trunk.typeName;
  tailCase.flavorCode = b.trunk.flavorCode;
  tailCase.hasBandPlan = !plan.empty();
  tailCase.rebanded = rebanded;
  tailCase.splinter = splinter;
  tailCase.nac = site ? site->nac : std::string();

  const int siteNumber = site ? site->siteNumber : row.siteId;
  std::string line = "SIF,Site,SiteId=" + std::to_string(siteNumber) +
                     ",TrunkId=" + std::to_string(b.importNumber) + "," + name + ",Off," +
                     formatFixed(lat, 6) + "," + formatFixed(lon, 6) + "," + formatFixed(range, 1) +
                     siteTail(tailCase);
  if (b.options.qkeysSites) {
    line = record::withField(line, 17, std::to_string(std::min(row.number, 99)));
  }
  const std::string siteKey = keys::site(b.system, number);
  if (doc.data.add(keys::system(b.system), siteKey, line) == kNoNode) return {};

  const std::string mcp = bandPlanLine(plan, rebanded);
  if (!mcp.empty()) b.laterNodes.emplace_back(keys::bandPlan(b.system, number), mcp);

  const std::string type = importType(b.trunk);
  const FrequencyForm form = formOf(type);
  const bool area =
      b.trunk.flavorText == "Icom IDAS Type D" || b.trunk.flavorText == "Icom IDAS Type C";
  int taken = 0;
  for (const SiteFreqRow& f : b.frequencyRows) {
    if (taken >= kMaxSiteFrequencies) break;
    if (f.key != row.key) continue;
    if (!controlChannelTaken(f.use, b.options)) continue;
    const std::string tfq = siteFrequencyLine(f, form, area);
    if (tfq.empty()) continue;
    ++taken;
    const std::string key = keys::siteFrequency(b.system, number, taken);
    doc.data.add(siteKey, key, tfq);
    doc.frequencies.add({}, key, tfq);
    b.frequencyKeys.push_back(key);
  }
  b.frequencies += taken;
  return siteKey;
}

}  // namespace zel::radioref
