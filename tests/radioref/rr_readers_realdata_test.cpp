// The reply readers against replies of the live service (interface version 18).
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <fstream>
#include <map>
#include <set>
#include <sstream>
#include <string>

#include "radioref/rr_readers.h"
#include "radioref/soap_envelope.h"

namespace zel::radioref {
namespace {

namespace fs = std::filesystem;

const fs::path kReplies = fs::path(ZEL_REALDATA_DIR) / "radioref" / "v18";

std::string readFile(const fs::path& path) {
  std::ifstream in(path, std::ios::binary);
  std::stringstream text;
  text << in.rdbuf();
  return text.str();
}

// A parsed reply and its "return" part.
class Reply {
 public:
  explicit Reply(const std::string& file) : text_(readFile(kReplies / file)) {
    const SoapParseResult result = envelope_.Parse(text_);
    EXPECT_TRUE(result.ok) << file << ": " << result.error;
    if (!result.ok || envelope_.Parameters().empty()) return;
    response_ = envelope_.Parameters().Item(0).Name();
    if (!envelope_.Parameters().Item(0).Nodes().empty()) {
      part_ = &envelope_.Parameters().Item(0).Nodes().Item(0);
    }
    EXPECT_NE(part_, nullptr) << file;
  }
  const SoapNode& part() const { return part_ ? *part_ : empty_; }
  const std::string& response() const { return response_; }
  const std::string& text() const { return text_; }

 private:
  std::string text_;
  SoapEnvelope envelope_;
  std::string response_;
  const SoapNode* part_ = nullptr;
  SoapNode empty_;
};

// How many records the reader of the reply's operation makes of it (1 for a single record
// that holds its key field).
std::size_t recordsRead(const Reply& reply) {
  const std::string& r = reply.response();
  const SoapNode& p = reply.part();
  if (r == "getUserDataResponse") return readUserData(p).subExpireDate.empty() ? 0 : 1;
  if (r == "getZipcodeInfoResponse") return readZipcode(p).zipCode != 0 ? 1 : 0;
  if (r == "getCountryInfoResponse") {
    const RRCountryInfo info = readCountryInfo(p);
    return info.stateList.size() + info.agencyList.size();
  }
  if (r == "getStateInfoResponse") return readStateInfo(p).stid != 0 ? 1 : 0;
  if (r == "getCountyInfoResponse") return readCountyInfo(p).ctid != 0 ? 1 : 0;
  if (r == "getTrsDetailsResponse") return readTrsDetails(p).sName.empty() ? 0 : 1;
  if (r == "getTrsSitesResponse") return readTrsSites(p).size();
  if (r == "getTrsTalkgroupCatsResponse") return readTalkgroupCats(p).size();
  if (r == "getTrsTalkgroupsResponse") return readTalkgroups(p).size();
  if (r == "getTrsFlavorResponse") return readFlavors(p).size();
  if (r == "getTrsVoiceResponse") return readVoices(p).size();
  if (r == "getTrsTypeResponse") return readLookups(p, "sType", "sTypeDescr").size();
  ADD_FAILURE() << "no reader for " << r;
  return 0;
}

struct FileCase {
  const char* file;
  const char* response;
  std::size_t records;
};

// The record counts were taken from the files (items of the return array).
constexpr FileCase kFiles[] = {
    {"user_data.xml", "getUserDataResponse", 1},
    {"zipcode_info.xml", "getZipcodeInfoResponse", 1},
    {"country_info.xml", "getCountryInfoResponse", 54 + 31},
    {"state_info.xml", "getStateInfoResponse", 1},
    {"county_info.xml", "getCountyInfoResponse", 1},
    {"trs_details_capplus.xml", "getTrsDetailsResponse", 1},
    {"trs_details_dmr_conv.xml", "getTrsDetailsResponse", 1},
    {"trs_details_dmr_tier3.xml", "getTrsDetailsResponse", 1},
    {"trs_details_edacs.xml", "getTrsDetailsResponse", 1},
    {"trs_details_nxdn.xml", "getTrsDetailsResponse", 1},
    {"trs_details_p25.xml", "getTrsDetailsResponse", 1},
    {"trs_sites_capplus.xml", "getTrsSitesResponse", 1},
    {"trs_sites_dmr_conv.xml", "getTrsSitesResponse", 36},
    {"trs_sites_dmr_conv_small.xml", "getTrsSitesResponse", 2},
    {"trs_sites_dmr_tier3.xml", "getTrsSitesResponse", 129},
    {"trs_sites_edacs.xml", "getTrsSitesResponse", 2},
    {"trs_sites_nxdn.xml", "getTrsSitesResponse", 1},
    {"trs_sites_p25.xml", "getTrsSitesResponse", 35},
    {"trs_talkgroup_cats_p25.xml", "getTrsTalkgroupCatsResponse", 64},
    {"trs_talkgroups_capplus.xml", "getTrsTalkgroupsResponse", 13},
    {"trs_talkgroups_dmr_conv.xml", "getTrsTalkgroupsResponse", 14},
    {"trs_talkgroups_dmr_tier3.xml", "getTrsTalkgroupsResponse", 66},
    {"trs_talkgroups_edacs.xml", "getTrsTalkgroupsResponse", 242},
    {"trs_talkgroups_nxdn.xml", "getTrsTalkgroupsResponse", 6},
    {"trs_talkgroups_p25.xml", "getTrsTalkgroupsResponse", 1793},
    {"trs_flavors.xml", "getTrsFlavorResponse", 49},
    {"trs_voices.xml", "getTrsVoiceResponse", 28},
    {"trs_types.xml", "getTrsTypeResponse", 13},
};

TEST(RealReplyReaders, EveryReplyReadsToItsRecordCount) {
  for (const FileCase& c : kFiles) {
    const Reply reply(c.file);
    EXPECT_EQ(reply.response(), c.response) << c.file;
    EXPECT_EQ(recordsRead(reply), c.records) << c.file;
  }
}

TEST(RealReplyReaders, TheTableCoversEveryCalledReply) {
  std::set<std::string> listed;
  for (const FileCase& c : kFiles) listed.insert(c.file);
  // getCountryList is not called; the fault is the client's business.
  const std::set<std::string> notRead = {"country_list.xml", "fault_auth.xml"};
  for (const fs::directory_entry& entry : fs::directory_iterator(kReplies)) {
    const std::string name = entry.path().filename().string();
    if (entry.path().extension() != ".xml" || notRead.count(name) != 0) continue;
    EXPECT_EQ(listed.count(name), 1u) << name << " has no reader case";
  }
}

struct TalkgroupCase {
  const char* file;
  int firstDec;
  const char* firstAlpha;
  const char* firstMode;
  int firstTag;
  int lastDec;
  int encrypted;  // talkgroups whose enc is not "0"
};

TEST(RealReplyReaders, Talkgroups) {
  const TalkgroupCase cases[] = {
      {"trs_talkgroups_capplus.xml", 109, "Ops 109", "T", 17, 231, 0},
      {"trs_talkgroups_dmr_conv.xml", 3119, "Iowa Statewide", "T", 13, 31197, 0},
      {"trs_talkgroups_dmr_tier3.xml", 6001, "Mason City", "T", 34, 14264, 0},
      {"trs_talkgroups_edacs.xml", 341, "HCSO CrtTrns", "D", 7, 1059, -1},
      {"trs_talkgroups_nxdn.xml", 10, "Ops 10", "D", 34, 25, 0},
      {"trs_talkgroups_p25.xml", 52031, "52 FIRE MUT AID+", "D", 11, 12237, -1},
  };
  for (const TalkgroupCase& c : cases) {
    const Reply reply(c.file);
    const std::vector<RRTalkgroup> tgs = readTalkgroups(reply.part());
    ASSERT_FALSE(tgs.empty()) << c.file;
    EXPECT_EQ(tgs.front().tgDec, c.firstDec) << c.file;
    EXPECT_EQ(tgs.front().tgAlpha, c.firstAlpha) << c.file;
    EXPECT_EQ(tgs.front().tgMode, c.firstMode) << c.file;
    ASSERT_EQ(tgs.front().tags.size(), 1u) << c.file;
    EXPECT_EQ(tgs.front().tags[0], c.firstTag) << c.file;
    EXPECT_EQ(tgs.back().tgDec, c.lastDec) << c.file;
    int encrypted = 0;
    for (const RRTalkgroup& tg : tgs) {
      EXPECT_EQ(tg.tags.size(), 1u) << c.file << " " << tg.tgDec;
      EXPECT_NE(tg.tgId, 0) << c.file;
      EXPECT_NE(tg.tgCid, 0) << c.file;
      EXPECT_FALSE(tg.tgLtr) << c.file;
      EXPECT_EQ(tg.tgDescr.find(','), std::string::npos) << c.file;
      EXPECT_EQ(tg.tgAlpha.find(','), std::string::npos) << c.file;
      if (tg.enc != "0") ++encrypted;
    }
    if (c.encrypted >= 0) EXPECT_EQ(encrypted, c.encrypted) << c.file;
    if (c.encrypted < 0) EXPECT_GT(encrypted, 0) << c.file;
  }
}

TEST(RealReplyReaders, TalkgroupDetailsAsTheServiceSendsThem) {
  const Reply p25("trs_talkgroups_p25.xml");
  const std::vector<RRTalkgroup> tgs = readTalkgroups(p25.part());
  const auto newton =
      std::find_if(tgs.begin(), tgs.end(), [](const RRTalkgroup& tg) { return tg.tgDec == 45005; });
  ASSERT_NE(newton, tgs.end());
  EXPECT_EQ(newton->tgDescr, "VHF Fire Page/Ops; EMS Ops - Newton");
  EXPECT_EQ(newton->tgId, 329976);
  EXPECT_EQ(newton->tgCid, 26708);
  EXPECT_EQ(newton->tgSort, 32);
  EXPECT_EQ(newton->tgDate, "2020-09-12T23:00:06+00:00");
  EXPECT_EQ(newton->tgSubfleet, "");  // nil
  EXPECT_EQ(newton->tgSlot, "");      // nil

  const Reply dmr("trs_talkgroups_dmr_conv.xml");
  const std::vector<RRTalkgroup> dmrTgs = readTalkgroups(dmr.part());
  ASSERT_FALSE(dmrTgs.empty());
  EXPECT_EQ(dmrTgs.front().tgSlot, "2");
  EXPECT_EQ(dmrTgs.front().tgDescr, "Statewide Calling Talkgroup");
}

struct SitesCase {
  const char* file;
  std::size_t siteFreqs;  // over all sites
  std::size_t licenses;   // over all sites
  int firstSiteId;
  int firstSiteNumber;
  const char* firstCounty;
  const char* firstNac;
  const char* firstRan;
  std::size_t firstFreqCount;
  const char* firstFreq;
  const char* firstUse;
  const char* firstColorCode;
  const char* secondChId;
};

TEST(RealReplyReaders, Sites) {
  const SitesCase cases[] = {
      {"trs_sites_capplus.xml", 4, 1, 43552, 1, "841", "", "0", 4, "854.8125", "", "1", ""},
      {"trs_sites_dmr_conv.xml", 36, 36, 36087, 310011, "809", "", "0", 1, "146.755", "", "1",
       nullptr},
      {"trs_sites_dmr_conv_small.xml", 2, 2, 42099, 1, "841", "", "0", 1, "451.275", "", "1",
       nullptr},
      {"trs_sites_dmr_tier3.xml", 260, 103, 28532, 1, "1359", "", "0", 2, "855.7875", "", "",
       "347"},
      {"trs_sites_edacs.xml", 35, 2, 217, 11, "344", "", "99", 15, "851.375", "", "", ""},
      {"trs_sites_nxdn.xml", 3, 1, 45188, 1, "841", "", "1", 3, "856.8125", "d", "", "2"},
      {"trs_sites_p25.xml", 181, 38, 16863, 1, "836", "034", "0", 11, "851.05", "d", "", ""},
  };
  for (const SitesCase& c : cases) {
    const Reply reply(c.file);
    const std::vector<RRSite> sites = readTrsSites(reply.part());
    ASSERT_FALSE(sites.empty()) << c.file;
    std::size_t freqs = 0, licenses = 0;
    for (const RRSite& site : sites) {
      freqs += site.siteFreqs.size();
      licenses += site.siteLicenses.size();
      EXPECT_TRUE(site.bandplan.empty()) << c.file;  // the service sends it empty
      EXPECT_EQ(site.siteCtid.size(), 1u) << c.file;
    }
    EXPECT_EQ(freqs, c.siteFreqs) << c.file;
    EXPECT_EQ(licenses, c.licenses) << c.file;
    const RRSite& first = sites.front();
    EXPECT_EQ(first.siteId, c.firstSiteId) << c.file;
    EXPECT_EQ(first.siteNumber, c.firstSiteNumber) << c.file;
    ASSERT_EQ(first.siteCtid.size(), 1u) << c.file;
    EXPECT_EQ(first.siteCtid[0], c.firstCounty) << c.file;
    EXPECT_EQ(first.nac, c.firstNac) << c.file;
    EXPECT_EQ(first.ran, c.firstRan) << c.file;
    ASSERT_EQ(first.siteFreqs.size(), c.firstFreqCount) << c.file;
    EXPECT_EQ(first.siteFreqs[0].lcn, 1) << c.file;
    EXPECT_EQ(first.siteFreqs[0].freq, c.firstFreq) << c.file;
    EXPECT_EQ(first.siteFreqs[0].use, c.firstUse) << c.file;
    EXPECT_EQ(first.siteFreqs[0].colorCode, c.firstColorCode) << c.file;
    if (c.secondChId != nullptr) {
      ASSERT_GE(first.siteFreqs.size(), 2u) << c.file;
      EXPECT_EQ(first.siteFreqs[1].lcn, 2) << c.file;
      EXPECT_EQ(first.siteFreqs[1].ch_id, c.secondChId) << c.file;
    }
  }
}

TEST(RealReplyReaders, P25SiteInFull) {
  const Reply reply("trs_sites_p25.xml");
  const std::vector<RRSite> sites = readTrsSites(reply.part());
  ASSERT_EQ(sites.size(), 35u);
  const RRSite& s = sites.front();
  EXPECT_EQ(s.sid, 6673);
  EXPECT_EQ(s.siteDescr, "Johnson Co Simulcast");
  EXPECT_EQ(s.zoneNumber, 52);
  EXPECT_EQ(s.zoneDescr, "Johnson County site");
  EXPECT_EQ(s.rfss, 10);
  EXPECT_EQ(s.siteNeighbors, "1(LINN CO),20");
  EXPECT_EQ(s.siteLocation, "Seven-site Simulcast System");
  EXPECT_EQ(s.siteModulation, "CQPSK Phase 1");
  EXPECT_DOUBLE_EQ(s.lat, 41.65503);
  EXPECT_DOUBLE_EQ(s.lon, -91.60244);
  EXPECT_DOUBLE_EQ(s.range, 20);
  EXPECT_EQ(s.rebanded, 0);
  EXPECT_EQ(s.splinter, 0);
  EXPECT_EQ(s.siteLicenses, (std::vector<std::string>{"WQKX774", "WQKX775"}));
  EXPECT_EQ(s.siteFreqs.back().lcn, 11);
  EXPECT_EQ(s.siteFreqs.back().freq, "852.5375");
}

struct DetailsCase {
  const char* file;
  const char* sName;
  int sType, sFlavor, sVoice;
  std::size_t counties, states, sysids;
  int firstCounty;
  const char* firstSysid;
  const char* firstWacn;
  const char* trunkType;  // the table's name for sType
};

TEST(RealReplyReaders, SystemDetails) {
  const DetailsCase cases[] = {
      {"trs_details_capplus.xml", "General Mills", 12, 31, 29, 1, 1, 0, 841, "", "", "DMR"},
      {"trs_details_dmr_conv.xml", "Iowa DMR Users Group", 12, 43, 29, 28, 1, 0, 832, "", "",
       "DMR"},
      {"trs_details_dmr_tier3.xml", "Alliant Energy", 12, 38, 29, 140, 4, 1, 803, "1", "", "DMR"},
      {"trs_details_edacs.xml", "Hillsborough County (EDACS)", 2, 8, 8, 1, 1, 0, 344, "", "",
       "Edacs"},
      {"trs_details_nxdn.xml", "Duane Arnold Energy Center", 11, 42, 27, 1, 1, 1, 841, "1FB", "",
       "NXDN"},
      {"trs_details_p25.xml", "SARA Network", 8, 33, 16, 23, 3, 9, 836, "034", "45564",
       "Project 25"},
  };
  for (const DetailsCase& c : cases) {
    const Reply reply(c.file);
    const RRSystemDetails d = readTrsDetails(reply.part());
    EXPECT_EQ(d.sName, c.sName) << c.file;
    EXPECT_EQ(d.sType, c.sType) << c.file;
    EXPECT_EQ(d.sFlavor, c.sFlavor) << c.file;
    EXPECT_EQ(d.sVoice, c.sVoice) << c.file;
    EXPECT_EQ(d.sCountry, "1") << c.file;
    EXPECT_EQ(d.sCounty.size(), c.counties) << c.file;
    EXPECT_EQ(d.sState.size(), c.states) << c.file;
    ASSERT_EQ(d.sysid.size(), c.sysids) << c.file;
    ASSERT_FALSE(d.sCounty.empty()) << c.file;
    EXPECT_EQ(d.sCounty[0], c.firstCounty) << c.file;
    if (c.sysids > 0) {
      EXPECT_EQ(d.sysid[0].sysid, c.firstSysid) << c.file;
      EXPECT_EQ(d.sysid[0].wacn, c.firstWacn) << c.file;
      EXPECT_EQ(d.sysid[0].ct, "") << c.file;
    }
    EXPECT_TRUE(d.bandplan.empty()) << c.file;
    EXPECT_TRUE(d.fleetmap.empty()) << c.file;
    EXPECT_NE(d.lat, 0.0) << c.file;
    EXPECT_FALSE(monthDayYear(d.lastUpdated).empty()) << c.file << " " << d.lastUpdated;
    EXPECT_EQ(trunkTypeName(d.sType), c.trunkType) << c.file;

    // The readable text: the reply with a CR before each "</item>" and nothing else changed.
    const std::string readable = readableDetailsText(reply.text());
    std::string withoutCr = readable;
    std::erase(withoutCr, '\r');
    EXPECT_EQ(withoutCr, reply.text()) << c.file;
    std::size_t items = 0;
    for (std::size_t at = readable.find("\r</item>"); at != std::string::npos;
         at = readable.find("\r</item>", at + 1)) {
      ++items;
    }
    EXPECT_EQ(items, c.counties + c.states + c.sysids) << c.file;
  }
  const Reply nxdn("trs_details_nxdn.xml");
  EXPECT_EQ(readTrsDetails(nxdn.part()).sysid.at(0).model, "L");
}

TEST(RealReplyReaders, TalkgroupCategories) {
  const Reply reply("trs_talkgroup_cats_p25.xml");
  const std::vector<RRTalkgroupCat> cats = readTalkgroupCats(reply.part());
  ASSERT_EQ(cats.size(), 64u);
  EXPECT_EQ(cats[0].tgCid, 14581);
  EXPECT_EQ(cats[0].sid, 6673);
  EXPECT_EQ(cats[0].tgCname, "University of Iowa");
  EXPECT_EQ(cats[0].tgSort, 5260);
  EXPECT_EQ(cats[0].tgSortBy, 0);  // absent in most categories
  EXPECT_DOUBLE_EQ(cats[0].lat, 41.6611277);
  int sortedBy = 0, located = 0;
  for (const RRTalkgroupCat& cat : cats) {
    EXPECT_EQ(cat.sid, 6673);
    if (cat.tgSortBy != 0) ++sortedBy;
    if (cat.lat != 0) ++located;
  }
  EXPECT_EQ(sortedBy, 6);
  EXPECT_EQ(located, 58);
}

TEST(RealReplyReaders, LookupLists) {
  const Reply flavors("trs_flavors.xml");
  const std::vector<RRFlavor> f = readFlavors(flavors.part());
  ASSERT_EQ(f.size(), 49u);
  EXPECT_EQ(f.front().sFlavorDescr, "Type I");
  EXPECT_EQ(f.back().sType, 91);
  EXPECT_EQ(f.back().sFlavor, 25);
  EXPECT_EQ(f.back().sFlavorDescr, "Standard");

  const Reply voices("trs_voices.xml");
  const std::vector<RRVoice> v = readVoices(voices.part());
  ASSERT_EQ(v.size(), 28u);
  EXPECT_EQ(v.front().sVoiceDescr, "Analog");
  EXPECT_EQ(v.back().sVoice, 20);
  EXPECT_EQ(v.back().sVoiceDescr, "Unknown Digital");

  // The service's own type names agree with the fixed table, but for the case of "EDACS".
  const Reply types("trs_types.xml");
  const std::vector<RRLookup> t = readLookups(types.part(), "sType", "sTypeDescr");
  ASSERT_EQ(t.size(), 13u);
  const auto lower = [](std::string s) {
    for (char& ch : s) ch = static_cast<char>(std::tolower(static_cast<unsigned char>(ch)));
    return s;
  };
  for (const RRLookup& type : t) {
    EXPECT_EQ(lower(trunkTypeName(type.key)), lower(type.text)) << type.key;
  }
}

TEST(RealReplyReaders, CountryAndState) {
  const Reply country("country_info.xml");
  const RRCountryInfo info = readCountryInfo(country.part());
  ASSERT_EQ(info.stateList.size(), 54u);
  EXPECT_EQ(info.stateList[0].stid, 1);
  EXPECT_EQ(info.stateList[0].stateName, "Alabama");
  EXPECT_EQ(info.stateList[0].stateCode, "AL");
  ASSERT_EQ(info.agencyList.size(), 31u);
  EXPECT_EQ(info.agencyList[0].aid, 7730);
  EXPECT_EQ(info.agencyList[0].aName, "General Mobile Radio Service (GMRS)");
  EXPECT_EQ(info.agencyList[0].aType, 10);

  const Reply state("state_info.xml");
  const RRState iowa = readStateInfo(state.part());
  EXPECT_EQ(iowa.stid, 19);
  EXPECT_EQ(iowa.stateName, "Iowa");
  EXPECT_EQ(iowa.stateEntityType, "Counties");
  ASSERT_EQ(iowa.trsList.size(), 1u);
  EXPECT_EQ(iowa.trsList[0].sid, 8734);
  EXPECT_EQ(iowa.trsList[0].sType, 8);
  EXPECT_EQ(iowa.trsList[0].sCity, "Statewide");
  ASSERT_EQ(iowa.agencyList.size(), 19u);
  const int nilTypes =
      static_cast<int>(std::count_if(iowa.agencyList.begin(), iowa.agencyList.end(),
                                     [](const RRAgencyRef& a) { return a.aType == 0; }));
  EXPECT_EQ(nilTypes, 11);  // aType nil reads as 0
  EXPECT_EQ(iowa.agencyList[6].aid, 4330);
  EXPECT_EQ(iowa.agencyList[6].aType, 6);
  ASSERT_EQ(iowa.countyList.size(), 102u);
  EXPECT_EQ(iowa.countyList[0].ctid, 785);
  EXPECT_EQ(iowa.countyList[0].countyName, "Adair");
  EXPECT_EQ(iowa.countyList[0].countyHeader, "County");
}

TEST(RealReplyReaders, LinnCounty) {
  const Reply reply("county_info.xml");
  const RRCounty linn = readCountyInfo(reply.part());
  EXPECT_EQ(linn.ctid, 841);
  EXPECT_EQ(linn.countyName, "Linn");
  EXPECT_EQ(linn.countyHeader, "County");
  EXPECT_EQ(linn.stid, 19);
  EXPECT_DOUBLE_EQ(linn.lat, 42.077);
  EXPECT_DOUBLE_EQ(linn.lon, -91.611);
  EXPECT_DOUBLE_EQ(linn.range, 19.24);
  EXPECT_EQ(linn.lastUpdated, "2026-06-16T03:53:09+00:00");
  EXPECT_EQ(linn.lastUpdateText, "Last Update: Jun/16/2026");

  struct CatCase {
    int cid;
    const char* name;
    std::size_t subcats;
    int firstScid;
  };
  const CatCase cats[] = {{8028, "Linn County", 1, 24967},
                          {18675, "Cedar Rapids", 1, 24496},
                          {18676, "Municipalities", 6, 29659},
                          {18677, "Linn County Amateur Radio", 2, 43975},
                          {18704, "Emergency Medical Services", 1, 58474}};
  ASSERT_EQ(linn.cats.size(), std::size(cats));
  for (std::size_t i = 0; i < std::size(cats); ++i) {
    EXPECT_EQ(linn.cats[i].cid, cats[i].cid);
    EXPECT_EQ(linn.cats[i].cName, cats[i].name);
    ASSERT_EQ(linn.cats[i].subcats.size(), cats[i].subcats) << cats[i].name;
    EXPECT_EQ(linn.cats[i].subcats[0].scid, cats[i].firstScid);
    for (const RRSubcat& sub : linn.cats[i].subcats) {
      EXPECT_EQ(sub.sids, std::vector<int>{6673}) << sub.scName;
      EXPECT_NE(sub.lat, 0.0) << sub.scName;
    }
  }
  EXPECT_EQ(linn.cats[2].subcats[5].scName, "Palo");
  EXPECT_EQ(linn.cats[4].subcats[0].scName, "St Lukes, Mercy ER, and Lifeguard Helicopter");

  ASSERT_EQ(linn.trsList.size(), 24u);
  EXPECT_EQ(linn.trsList[0].sid, 2583);
  EXPECT_EQ(linn.trsList[0].sName, "Graybill Electronics (LTR)");
  EXPECT_EQ(linn.trsList[0].sType, 3);
  EXPECT_EQ(linn.trsList[0].sFlavor, 12);
  EXPECT_EQ(linn.trsList[0].sVoice, 11);
  EXPECT_EQ(linn.trsList[0].lastUpdated, "2018-05-07T01:08:09+00:00");
  ASSERT_EQ(linn.agencyList.size(), 9u);
  EXPECT_EQ(linn.agencyList[0].aid, 4603);
  EXPECT_EQ(linn.agencyList[0].aType, 3);
}

TEST(RealReplyReaders, AccountAndZipCode) {
  const Reply user("user_data.xml");
  const RRUserData account = readUserData(user.part());
  EXPECT_EQ(account.username, "user");
  EXPECT_EQ(account.subExpireDate, "11-24-2026");
  EXPECT_EQ(monthDayYear(account.subExpireDate), "Nov/24/2026");

  const Reply zip("zipcode_info.xml");
  const RRZipcode z = readZipcode(zip.part());
  EXPECT_EQ(z.zipCode, 52401);
  EXPECT_EQ(z.lat, "41.974698");
  EXPECT_EQ(z.lon, "-91.655401");
  EXPECT_EQ(z.city, "Cedar Rapids");
  EXPECT_EQ(z.stid, 19);
  EXPECT_EQ(z.ctid, 841);
}

}  // namespace
}  // namespace zel::radioref
