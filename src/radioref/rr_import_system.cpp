#include <cstdlib>

#include "radioref/rr_import.h"
#include "radioref/rr_queries.h"
#include "radioref/rr_readers.h"

namespace zel::radioref {

std::string bandLabelFor(const RRSystemDetails& details, const std::vector<RRSite>& sites) {
  // Only a Motorola system is told apart by its band: the import type of other systems
  // comes from their type alone.
  if (details.sType > 1) return {};
  double mhz = 0;
  for (const auto& site : sites) {
    for (const auto& f : site.siteFreqs) {
      mhz = std::atof(f.freq.c_str());
      if (mhz > 0) break;
    }
    if (mhz > 0) break;
  }
  if (mhz <= 0 && !details.bandplan.empty()) mhz = std::atof(details.bandplan.front().base.c_str());
  if (mhz <= 0) return {};
  if (mhz < 300) return "VHF";
  if (mhz < 520) return "UHF";
  return {};
}

TrunkSystem loadTrunkSystem(RRQueries& q, int sid) {
  TrunkSystem system;
  system.sid = sid;
  if (q.flavors.empty()) q.getTrsFlavor(0);
  q.getTrsSites(sid);
  q.getTrsDetails(sid);
  q.getTrsTalkgroupCats(sid);
  system.details = q.trsDetails;
  system.sites = q.trsSites;
  system.categories = q.talkgroupCats;
  const RRSystemDetails& d = system.details;
  system.ref.sid = sid;
  system.ref.sName = d.sName;
  system.ref.sType = d.sType;
  system.ref.sFlavor = d.sFlavor;
  system.ref.sVoice = d.sVoice;
  system.ref.sCity = d.sCity;
  system.ref.lastUpdated = d.lastUpdated;
  system.typeName = trunkTypeName(d.sType);
  system.flavorCode = std::to_string(d.sFlavor);
  for (const auto& f : q.flavors) {
    if (f.sType == d.sType && f.sFlavor == d.sFlavor) system.flavorText = f.sFlavorDescr;
  }
  system.bandLabel = bandLabelFor(d, system.sites);
  return system;
}

}  // namespace zel::radioref
