// The reply readers of the trunked system operations: talkgroup categories, talkgroups, the
// system's details and its sites.
#include "radioref/rr_read_fields.h"
#include "radioref/rr_readers.h"

namespace zel::radioref {

using fields::child;
using fields::doubleField;
using fields::intField;
using fields::readNumbers;
using fields::readRecords;
using fields::textField;

namespace {

RRTalkgroupCat readTalkgroupCat(const SoapNode& item) {
  RRTalkgroupCat cat;
  cat.tgCid = intField(item, "tgCid");
  cat.sid = intField(item, "sid");
  cat.tgCname = textField(item, "tgCname");
  cat.tgSort = intField(item, "tgSort");
  cat.tgSortBy = intField(item, "tgSortBy");
  cat.lat = doubleField(item, "lat");
  cat.lon = doubleField(item, "lon");
  cat.range = doubleField(item, "range");
  cat.lastUpdated = textField(item, "lastUpdated");
  return cat;
}

RRTalkgroup readTalkgroup(const SoapNode& item) {
  RRTalkgroup tg;
  tg.tgId = intField(item, "tgId");
  tg.tgDec = intField(item, "tgDec");
  tg.tgSubfleet = textField(item, "tgSubfleet");
  tg.tgLtr = fields::boolField(item, "tgLtr");
  tg.tgDescr = commasToSemicolons(textField(item, "tgDescr"));
  tg.tgAlpha = commasToSemicolons(textField(item, "tgAlpha"));
  tg.tgMode = textField(item, "tgMode");
  tg.enc = textField(item, "enc");
  tg.tgSlot = textField(item, "tgSlot");
  tg.tags = readNumbers(child(item, "tags"), "tagId");
  tg.tgCid = intField(item, "tgCid");
  tg.tgSort = intField(item, "tgSort");
  tg.tgDate = textField(item, "tgDate");
  return tg;
}

RRBandPlan readBandPlan(const SoapNode& item) {
  return {textField(item, "base"), textField(item, "offset"), textField(item, "spacing")};
}

RRSysId readSysId(const SoapNode& item) {
  RRSysId id;
  id.sysid = textField(item, "sysid");
  id.wacn = textField(item, "wacn");
  id.ct = textField(item, "ct");
  id.model = textField(item, "model");
  return id;
}

// The fleet map is one structure of b0 to b7; an array holding that structure serves too.
std::vector<std::string> readFleetmap(const SoapNode* node) {
  static constexpr const char* kBlocks[] = {"b0", "b1", "b2", "b3", "b4", "b5", "b6", "b7"};
  if (node == nullptr || node->IsNull()) return {};
  const SoapNode* map = node;
  if (const std::vector<SoapNode>* items = fields::listItems(node)) {
    map = nullptr;
    for (const SoapNode& item : *items) {
      if (item.kind() == SoapNode::Kind::Structure) {
        map = &item;
        break;
      }
    }
  }
  if (map == nullptr || map->kind() != SoapNode::Kind::Structure) return {};
  std::vector<std::string> blocks;
  bool any = false;
  for (const char* name : kBlocks) {
    any = any || fields::scalar(*map, name) != nullptr;
    blocks.push_back(textField(*map, name));
  }
  return any ? blocks : std::vector<std::string>{};
}

RRSiteFreq readSiteFreq(const SoapNode& item) {
  RRSiteFreq f;
  f.lcn = intField(item, "lcn");
  f.freq = textField(item, "freq");
  f.use = textField(item, "use");
  f.colorCode = textField(item, "colorCode");
  f.ch_id = textField(item, "ch_id");
  return f;
}

// The site's counties. The service now sends one county id in siteCtid (with siteCt nil);
// a list of counties, each naming its siteCt, is read as well.
std::vector<std::string> readSiteCounties(const SoapNode& site) {
  const SoapNode* node = child(site, "siteCtid");
  if (fields::listItems(node) != nullptr) {
    std::vector<std::string> out = fields::readTexts(node, "siteCt");
    if (out.empty()) out = fields::readTexts(node, "ctid");
    return out;
  }
  std::string id = textField(site, "siteCtid");
  if (id.empty()) return {};
  return {std::move(id)};
}

RRSite readSite(const SoapNode& item) {
  RRSite site;
  site.siteId = intField(item, "siteId");
  site.sid = intField(item, "sid");
  site.siteNumber = intField(item, "siteNumber");
  site.siteDescr = textField(item, "siteDescr");
  site.zoneNumber = intField(item, "zoneNumber");
  site.zoneDescr = textField(item, "zoneDescr");
  site.rfss = intField(item, "rfss");
  site.siteNeighbors = textField(item, "siteNeighbors");
  site.siteLocation = textField(item, "siteLocation");
  site.siteCtid = readSiteCounties(item);
  site.siteModulation = textField(item, "siteModulation");
  site.siteNotes = textField(item, "siteNotes");
  site.lat = doubleField(item, "lat");
  site.lon = doubleField(item, "lon");
  site.range = doubleField(item, "range");
  site.ran = textField(item, "ran");
  site.nac = textField(item, "nac");
  site.rebanded = intField(item, "rebanded");
  site.splinter = intField(item, "splinter");
  site.tdma_cc = intField(item, "tdma_cc");
  site.siteLicenses = fields::readTexts(child(item, "siteLicenses"), "license");
  site.bandplan = readRecords<RRBandPlan>(child(item, "bandplan"), readBandPlan);
  site.siteFreqs = readRecords<RRSiteFreq>(child(item, "siteFreqs"), readSiteFreq);
  return site;
}

}  // namespace

std::vector<RRTalkgroupCat> readTalkgroupCats(const SoapNode& part) {
  return readRecords<RRTalkgroupCat>(&part, readTalkgroupCat);
}

std::vector<RRTalkgroup> readTalkgroups(const SoapNode& part) {
  return readRecords<RRTalkgroup>(&part, readTalkgroup);
}

RRSystemDetails readTrsDetails(const SoapNode& part) {
  const SoapNode& record = fields::recordOf(part);
  RRSystemDetails d;
  d.sName = textField(record, "sName");
  d.sType = intField(record, "sType");
  d.sFlavor = intField(record, "sFlavor");
  d.sVoice = intField(record, "sVoice");
  d.sCity = textField(record, "sCity");
  d.sCounty = readNumbers(child(record, "sCounty"), "ctid");
  d.sState = readNumbers(child(record, "sState"), "stid");
  d.sCountry = textField(record, "sCountry");
  d.lat = doubleField(record, "lat");
  d.lon = doubleField(record, "lon");
  d.range = doubleField(record, "range");
  d.lastUpdated = textField(record, "lastUpdated");
  d.sysid = readRecords<RRSysId>(child(record, "sysid"), readSysId);
  d.bandplan = readRecords<RRBandPlan>(child(record, "bandplan"), readBandPlan);
  d.fleetmap = readFleetmap(child(record, "fleetmap"));
  return d;
}

std::vector<RRSite> readTrsSites(const SoapNode& part) {
  return readRecords<RRSite>(&part, readSite);
}

}  // namespace zel::radioref
