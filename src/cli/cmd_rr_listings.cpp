#include "cli/cmd_rr_listings.h"

#include "radioref/rr_readers.h"

namespace zel::cli {

namespace {

using namespace zel::radioref;

std::string joinInts(const std::vector<int>& values) {
  std::string out;
  for (int v : values) out += (out.empty() ? "" : " ") + std::to_string(v);
  return out;
}

std::string tagNames(const std::vector<RRTag>& tags) {
  std::string out;
  for (const auto& t : tags) {
    const std::string& name = t.tagDescr.empty() ? serviceTagName(t.tagId) : t.tagDescr;
    out += (out.empty() ? "" : "; ") + (name.empty() ? std::to_string(t.tagId) : name);
  }
  return out;
}

std::string tagIdNames(const std::vector<int>& tags) {
  std::string out;
  for (int id : tags) {
    const std::string& name = serviceTagName(id);
    out += (out.empty() ? "" : "; ") + (name.empty() ? std::to_string(id) : name);
  }
  return out;
}

void addSystems(Listing& l, const std::vector<RRSystemRef>& systems) {
  auto& list = l.list("trsList", "Trunked systems");
  for (const auto& s : systems) {
    Listing item;
    item.field("sid", s.sid).field("sName", s.sName).field("type", trunkTypeName(s.sType));
    item.field("sCity", s.sCity).field("updated", monthDayYear(s.lastUpdated));
    list.push_back(std::move(item));
  }
}

void addAgencies(Listing& l, const std::vector<RRAgencyRef>& agencies) {
  auto& list = l.list("agencyList", "Agencies");
  for (const auto& a : agencies) {
    Listing item;
    item.field("aid", a.aid).field("aName", a.aName);
    list.push_back(std::move(item));
  }
}

void addCategories(Listing& l, const std::vector<RRCategory>& cats) {
  auto& list = l.list("cats", "Categories");
  for (const auto& c : cats) {
    Listing cat;
    cat.field("cid", c.cid).field("cName", c.cName);
    auto& subs = cat.list("subcats", "Subcategories");
    for (const auto& s : c.subcats) {
      Listing sub;
      sub.field("scid", s.scid).field("scName", s.scName);
      subs.push_back(std::move(sub));
    }
    list.push_back(std::move(cat));
  }
}

Listing frequencyRow(const RRFrequency& f) {
  Listing row;
  row.field("fid", f.fid).field("out", f.out).field("in", f.in).field("tone", f.tone);
  row.field("mode", f.mode).field("alpha", f.alpha).field("descr", f.descr);
  row.field("callsign", f.callsign).field("tags", tagNames(f.tags));
  if (f.enc) row.field("enc", static_cast<long long>(f.enc));
  return row;
}

}  // namespace

Listing countryListing(int coid, const RRCountryInfo& info) {
  Listing l;
  l.field("coid", coid);
  auto& states = l.list("stateList", "States");
  for (const auto& s : info.stateList) {
    Listing item;
    item.field("stid", s.stid).field("stateCode", s.stateCode).field("stateName", s.stateName);
    states.push_back(std::move(item));
  }
  addAgencies(l, info.agencyList);
  return l;
}

Listing stateListing(const RRState& state) {
  Listing l;
  l.field("stid", state.stid).field("stateName", state.stateName);
  auto& counties = l.list("countyList", "Counties");
  for (const auto& c : state.countyList) {
    Listing item;
    item.field("ctid", c.ctid).field("countyName", c.countyName);
    item.field("countyHeader", c.countyHeader);
    counties.push_back(std::move(item));
  }
  addSystems(l, state.trsList);
  addAgencies(l, state.agencyList);
  return l;
}

Listing countyListing(const RRCounty& county) {
  Listing l;
  l.field("ctid", county.ctid).field("countyName", county.countyName);
  l.field("countyHeader", county.countyHeader).field("stid", county.stid);
  l.field("updated", monthDayYear(county.lastUpdated));
  addCategories(l, county.cats);
  addSystems(l, county.trsList);
  addAgencies(l, county.agencyList);
  return l;
}

Listing agencyListing(const RRAgency& agency) {
  Listing l;
  l.field("aid", agency.aid).field("agencyName", agency.agencyName);
  l.field("agencyType", agency.agencyType).field("stid", agency.stid).field("ctid", agency.ctid);
  addCategories(l, agency.cats);
  return l;
}

Listing systemListing(int sid, const RRQueries& q) {
  const RRSystemDetails& d = q.trsDetails;
  Listing l;
  l.field("sid", sid).field("sName", d.sName).field("type", trunkTypeName(d.sType));
  for (const auto& f : q.flavors) {
    if (f.sType == d.sType && f.sFlavor == d.sFlavor) l.field("flavor", f.sFlavorDescr);
  }
  for (const auto& v : q.voices) {
    if (v.sType == d.sType && v.sVoice == d.sVoice) l.field("voice", v.sVoiceDescr);
  }
  l.field("sCity", d.sCity).field("sCounty", joinInts(d.sCounty));
  l.field("sState", joinInts(d.sState)).field("updated", monthDayYear(d.lastUpdated));
  auto& ids = l.list("sysid", "System ids");
  for (const auto& s : d.sysid) {
    Listing item;
    item.field("sysid", s.sysid).field("wacn", s.wacn).field("ct", s.ct);
    ids.push_back(std::move(item));
  }
  auto& plan = l.list("bandplan", "Band plan");
  for (const auto& b : d.bandplan) {
    Listing item;
    item.field("base", b.base).field("offset", b.offset).field("spacing", b.spacing);
    plan.push_back(std::move(item));
  }
  if (!d.fleetmap.empty()) {
    std::string map;
    for (const auto& b : d.fleetmap) map += (map.empty() ? "" : " ") + b;
    l.field("fleetmap", map);
  }
  auto& sites = l.list("sites", "Sites");
  for (const auto& s : q.trsSites) {
    Listing site;
    site.field("siteId", s.siteId).field("siteNumber", s.siteNumber);
    site.field("siteDescr", s.siteDescr).field("nac", s.nac).field("ran", s.ran);
    if (s.rebanded) site.field("rebanded", 1LL);
    if (s.splinter) site.field("splinter", 1LL);
    auto& freqs = site.list("siteFreqs", "Frequencies");
    for (const auto& f : s.siteFreqs) {
      Listing freq;
      freq.field("lcn", f.lcn).field("freq", f.freq).field("use", f.use);
      freq.field("colorCode", f.colorCode);
      freqs.push_back(std::move(freq));
    }
    sites.push_back(std::move(site));
  }
  auto& cats = l.list("talkgroupCats", "Talkgroup categories");
  for (const auto& c : q.talkgroupCats) {
    Listing cat;
    cat.field("tgCid", c.tgCid).field("tgCname", c.tgCname);
    cats.push_back(std::move(cat));
  }
  return l;
}

Listing frequencyListing(const char* idName, int id, const std::vector<RRFrequency>& rows) {
  Listing l;
  l.field(idName, id);
  auto& list = l.list("freqs", "Frequencies");
  for (const auto& f : rows) list.push_back(frequencyRow(f));
  return l;
}

Listing talkgroupListing(int sid, const std::vector<RRTalkgroup>& rows) {
  Listing l;
  l.field("sid", sid);
  auto& list = l.list("talkgroups", "Talkgroups");
  for (const auto& t : rows) {
    Listing row;
    row.field("tgDec", t.tgDec).field("tgAlpha", t.tgAlpha).field("tgMode", t.tgMode);
    row.field("tgDescr", t.tgDescr).field("tgCid", t.tgCid).field("tags", tagIdNames(t.tags));
    row.field("tgSlot", t.tgSlot).field("enc", t.enc);
    list.push_back(std::move(row));
  }
  return l;
}

Listing searchListing(const std::vector<RRSearchHit>& hits) {
  Listing l;
  auto& list = l.list("hits", "Found");
  for (const auto& h : hits) {
    Listing row;
    row.field("out", h.out).field("tone", h.tone).field("mode", h.mode);
    row.field("alpha", h.alpha).field("descr", h.descr).field("tags", tagIdNames(h.tags));
    if (h.scid) row.field("scid", h.scid);
    if (h.sid) row.field("sid", h.sid);
    if (h.aid) row.field("aid", h.aid);
    if (h.ctid) row.field("ctid", h.ctid);
    list.push_back(std::move(row));
  }
  return l;
}

Listing zipListing(const RRZipcode& zip) {
  Listing l;
  l.field("zipCode", zip.zipCode).field("city", zip.city).field("stid", zip.stid);
  l.field("ctid", zip.ctid).field("lat", zip.lat).field("lon", zip.lon);
  return l;
}

}  // namespace zel::cli
