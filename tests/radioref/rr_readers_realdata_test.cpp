// Every reply of the live service (interface version 18) in one pass: the envelope reads it
// and gives back the text it came as, every array holds what its arrayType says, and the
// reader of its operation makes the records and values below of it. The values are taken
// from the files; what the trunked import makes of them is proved in its own real-data test.
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <iomanip>
#include <set>
#include <sstream>
#include <string>

#include "radioref/rr_readers.h"
#include "rr_test_support.h"

namespace zel::radioref {
namespace {

using test::ParsedReply;
using test::realReply;

// Every array holds as many items as its arrayType says; returns the number of arrays seen.
int checkArrays(const SoapNode& node, const std::string& where) {
  int arrays = 0;
  if (node.IsArray()) {
    ++arrays;
    const std::string& declared = node.arrayType();
    const std::size_t open = declared.rfind('[');
    EXPECT_NE(open, std::string::npos) << where;
    if (open != std::string::npos) {
      EXPECT_EQ(std::stoul(declared.substr(open + 1)), node.Nodes().Count()) << where;
    }
  }
  for (const SoapNode& child : node.Nodes()) arrays += checkArrays(child, where);
  return arrays;
}

// What the reader of the reply's operation makes of it, as one line.
std::string readBack(const ParsedReply& reply) {
  const std::string& r = reply.response();
  const SoapNode& p = reply.part();
  std::ostringstream out;
  out << std::setprecision(10);
  if (r == "getUserDataResponse") {
    const RRUserData u = readUserData(p);
    out << u.username << " " << u.subExpireDate << " " << monthDayYear(u.subExpireDate);
  } else if (r == "getZipcodeInfoResponse") {
    const RRZipcode z = readZipcode(p);
    out << z.zipCode << " " << z.city << " " << z.lat << "," << z.lon << " " << z.stid << "/"
        << z.ctid;
  } else if (r == "getCountryInfoResponse") {
    const RRCountryInfo c = readCountryInfo(p);
    out << c.stateList.size() << " states, " << c.stateList[0].stid << " "
        << c.stateList[0].stateName << " " << c.stateList[0].stateCode << "; "
        << c.agencyList.size() << " agencies, " << c.agencyList[0].aid << " "
        << c.agencyList[0].aName << " type " << c.agencyList[0].aType;
  } else if (r == "getStateInfoResponse") {
    const RRState s = readStateInfo(p);
    const auto untyped = std::count_if(s.agencyList.begin(), s.agencyList.end(),
                                       [](const RRAgencyRef& a) { return a.aType == 0; });
    out << s.stid << " " << s.stateName << " " << s.stateEntityType << "; "
        << s.trsList.size() << " system " << s.trsList[0].sid << " type " << s.trsList[0].sType
        << " " << s.trsList[0].sCity << "; " << s.agencyList.size() << " agencies, " << untyped
        << " untyped, 7th " << s.agencyList[6].aid << " type " << s.agencyList[6].aType << "; "
        << s.countyList.size() << " counties, " << s.countyList[0].ctid << " "
        << s.countyList[0].countyName << " " << s.countyList[0].countyHeader;
  } else if (r == "getCountyInfoResponse") {
    const RRCounty c = readCountyInfo(p);
    out << c.ctid << " " << c.countyName << " " << c.countyHeader << " in " << c.stid << " at "
        << c.lat << "," << c.lon << "," << c.range << " " << c.lastUpdateText << ";";
    for (const RRCategory& cat : c.cats) {
      out << " " << cat.cid << " " << cat.cName << " (" << cat.subcats.size() << " from "
          << cat.subcats[0].scid << ")";
      for (const RRSubcat& sub : cat.subcats) {
        EXPECT_EQ(sub.sids, std::vector<int>{6673}) << sub.scName;
      }
    }
    out << "; " << c.trsList.size() << " systems, " << c.trsList[0].sid << " "
        << c.trsList[0].sName << " " << c.trsList[0].sType << "/" << c.trsList[0].sFlavor << "/"
        << c.trsList[0].sVoice << "; " << c.agencyList.size() << " agencies, "
        << c.agencyList[0].aid << " type " << c.agencyList[0].aType;
  } else if (r == "getTrsDetailsResponse") {
    const RRSystemDetails d = readTrsDetails(p);
    out << d.sName << ", " << trunkTypeName(d.sType) << " " << d.sType << "/" << d.sFlavor << "/"
        << d.sVoice << "; " << d.sCounty.size() << " counties from " << d.sCounty[0] << ", "
        << d.sState.size() << " states, " << d.sysid.size() << " sysids";
    if (!d.sysid.empty()) out << " from " << d.sysid[0].sysid << " wacn " << d.sysid[0].wacn;
    // The readable text: a CR before each "</item>" and nothing else changed.
    const std::string readable = readableDetailsText(reply.text());
    std::string withoutCr = readable;
    std::erase(withoutCr, '\r');
    EXPECT_EQ(withoutCr, reply.text());
    std::size_t items = 0;
    for (auto at = readable.find("\r</item>"); at != std::string::npos;
         at = readable.find("\r</item>", at + 1)) {
      ++items;
    }
    EXPECT_EQ(items, d.sCounty.size() + d.sState.size() + d.sysid.size());
  } else if (r == "getTrsSitesResponse") {
    const std::vector<RRSite> sites = readTrsSites(p);
    std::size_t freqs = 0, licenses = 0;
    for (const RRSite& s : sites) {
      freqs += s.siteFreqs.size();
      licenses += s.siteLicenses.size();
    }
    const RRSite& s = sites.front();
    out << sites.size() << " sites, " << freqs << " frequencies, " << licenses
        << " licenses; first " << s.siteId << " ran " << s.ran << " rfss " << s.rfss << " "
        << s.siteModulation << ", " << s.siteFreqs[0].freq << " " << s.siteFreqs[0].use;
  } else if (r == "getTrsTalkgroupCatsResponse") {
    const std::vector<RRTalkgroupCat> cats = readTalkgroupCats(p);
    const auto sortedBy = std::count_if(cats.begin(), cats.end(),
                                        [](const RRTalkgroupCat& c) { return c.tgSortBy != 0; });
    out << cats.size() << " categories, " << cats[0].tgCid << " of " << cats[0].sid << " "
        << cats[0].tgCname << " sort " << cats[0].tgSort << " at " << cats[0].lat << "; "
        << sortedBy << " sorted by";
  } else if (r == "getTrsTalkgroupsResponse") {
    const std::vector<RRTalkgroup> tgs = readTalkgroups(p);
    const auto encrypted = std::count_if(tgs.begin(), tgs.end(),
                                         [](const RRTalkgroup& t) { return t.enc != "0"; });
    out << tgs.size() << " talkgroups, " << encrypted << " encrypted; " << tgs.front().tgDec
        << " " << tgs.front().tgAlpha << " " << tgs.front().tgMode << " tag "
        << tgs.front().tags.at(0) << " .. " << tgs.back().tgDec;
  } else if (r == "getTrsFlavorResponse") {
    const std::vector<RRFlavor> f = readFlavors(p);
    out << f.size() << " flavors, " << f.front().sFlavorDescr << " .. " << f.back().sType << "/"
        << f.back().sFlavor << " " << f.back().sFlavorDescr;
  } else if (r == "getTrsVoiceResponse") {
    const std::vector<RRVoice> v = readVoices(p);
    out << v.size() << " voices, " << v.front().sVoiceDescr << " .. " << v.back().sVoice << " "
        << v.back().sVoiceDescr;
  } else if (r == "getTrsTypeResponse") {
    // The service's own type names agree with the fixed table, but for the case of "EDACS".
    const auto lower = [](std::string s) {
      for (char& ch : s) ch = static_cast<char>(std::tolower(static_cast<unsigned char>(ch)));
      return s;
    };
    const std::vector<RRLookup> types = readLookups(p, "sType", "sTypeDescr");
    for (const RRLookup& t : types) EXPECT_EQ(lower(trunkTypeName(t.key)), lower(t.text));
    out << types.size() << " types";
  } else if (reply.envelope().isFault()) {
    out << reply.envelope().fault().faultcode << " "
        << reply.envelope().fault().faultstring.substr(0, 29);
  } else {
    out << "not read: " << r;
  }
  return out.str();
}

struct FileCase {
  const char* file;
  const char* read;
};

const FileCase kFiles[] = {
    {"fault_auth.xml", "AUTH Invalid Username or Password."},
    {"country_list.xml", "not read: getCountryListResponse"},
    {"user_data.xml", "user 11-24-2026 Nov/24/2026"},
    {"zipcode_info.xml", "52401 Cedar Rapids 41.974698,-91.655401 19/841"},
    {"country_info.xml",
     "54 states, 1 Alabama AL; 31 agencies, 7730 General Mobile Radio Service (GMRS) type 10"},
    {"state_info.xml",
     "19 Iowa Counties; 1 system 8734 type 8 Statewide; 19 agencies, 11 untyped, 7th 4330 type "
     "6; 102 counties, 785 Adair County"},
    {"county_info.xml",
     "841 Linn County in 19 at 42.077,-91.611,19.24 Last Update: Jun/16/2026; 8028 Linn County "
     "(1 from 24967) 18675 Cedar Rapids (1 from 24496) 18676 Municipalities (6 from 29659) 18677 "
     "Linn County Amateur Radio (2 from 43975) 18704 Emergency Medical Services (1 from 58474); "
     "24 systems, 2583 Graybill Electronics (LTR) 3/12/11; 9 agencies, 4603 type 3"},
    {"trs_details_capplus.xml",
     "General Mills, DMR 12/31/29; 1 counties from 841, 1 states, 0 sysids"},
    {"trs_details_dmr_conv.xml",
     "Iowa DMR Users Group, DMR 12/43/29; 28 counties from 832, 1 states, 0 sysids"},
    {"trs_details_dmr_tier3.xml",
     "Alliant Energy, DMR 12/38/29; 140 counties from 803, 4 states, 1 sysids from 1 wacn "},
    {"trs_details_edacs.xml",
     "Hillsborough County (EDACS), Edacs 2/8/8; 1 counties from 344, 1 states, 0 sysids"},
    {"trs_details_nxdn.xml",
     "Duane Arnold Energy Center, NXDN 11/42/27; 1 counties from 841, 1 states, 1 sysids from "
     "1FB wacn "},
    {"trs_details_p25.xml",
     "SARA Network, Project 25 8/33/16; 23 counties from 836, 3 states, 9 sysids from 034 wacn "
     "45564"},
    {"trs_sites_capplus.xml",
     "1 sites, 4 frequencies, 1 licenses; first 43552 ran 0 rfss 0 , 854.8125 "},
    {"trs_sites_dmr_conv.xml",
     "36 sites, 36 frequencies, 36 licenses; first 36087 ran 0 rfss 0 , 146.755 "},
    {"trs_sites_dmr_conv_small.xml",
     "2 sites, 2 frequencies, 2 licenses; first 42099 ran 0 rfss 0 , 451.275 "},
    {"trs_sites_dmr_tier3.xml",
     "129 sites, 260 frequencies, 103 licenses; first 28532 ran 0 rfss 0 , 855.7875 "},
    {"trs_sites_edacs.xml",
     "2 sites, 35 frequencies, 2 licenses; first 217 ran 99 rfss 0 , 851.375 "},
    {"trs_sites_nxdn.xml", "1 sites, 3 frequencies, 1 licenses; first 45188 ran 1 rfss 0 , 856.8125 d"},
    {"trs_sites_p25.xml",
     "35 sites, 181 frequencies, 38 licenses; first 16863 ran 0 rfss 10 CQPSK Phase 1, 851.05 d"},
    {"trs_talkgroup_cats_p25.xml",
     "64 categories, 14581 of 6673 University of Iowa sort 5260 at 41.6611277; 6 sorted by"},
    {"trs_talkgroups_capplus.xml", "13 talkgroups, 0 encrypted; 109 Ops 109 T tag 17 .. 231"},
    {"trs_talkgroups_dmr_conv.xml",
     "14 talkgroups, 0 encrypted; 3119 Iowa Statewide T tag 13 .. 31197"},
    {"trs_talkgroups_dmr_tier3.xml",
     "66 talkgroups, 0 encrypted; 6001 Mason City T tag 34 .. 14264"},
    {"trs_talkgroups_edacs.xml",
     "242 talkgroups, 2 encrypted; 341 HCSO CrtTrns D tag 7 .. 1059"},
    {"trs_talkgroups_nxdn.xml", "6 talkgroups, 0 encrypted; 10 Ops 10 D tag 34 .. 25"},
    {"trs_talkgroups_p25.xml",
     "1793 talkgroups, 362 encrypted; 52031 52 FIRE MUT AID+ D tag 11 .. 12237"},
    {"trs_flavors.xml", "49 flavors, Type I .. 91/25 Standard"},
    {"trs_voices.xml", "28 voices, Analog .. 20 Unknown Digital"},
    {"trs_types.xml", "13 types"},
};

TEST(RealReplies, EveryReplyParsesAndReads) {
  std::set<std::string> listed;
  for (const FileCase& c : kFiles) listed.insert(c.file);
  int files = 0;
  int arrays = 0;
  const auto folder = std::filesystem::path(ZEL_REALDATA_DIR) / "radioref" / "v18";
  for (const auto& entry : std::filesystem::directory_iterator(folder)) {
    if (entry.path().extension() != ".xml") continue;
    ++files;
    const std::string name = entry.path().filename().string();
    SCOPED_TRACE(name);
    EXPECT_EQ(listed.count(name), 1u) << "no case for the reply";
    const ParsedReply reply(realReply(name));
    ASSERT_TRUE(reply.result().ok) << reply.result().error;
    EXPECT_EQ(reply.envelope().Serialize(), reply.text());
    ASSERT_EQ(reply.envelope().Parameters().Count(), 1u);
    const SoapNode& top = reply.envelope().Parameters().Item(0);
    EXPECT_EQ(reply.envelope().isFault(), name == "fault_auth.xml");
    if (!reply.envelope().isFault()) {
      EXPECT_TRUE(top.Name().ends_with("Response")) << top.Name();
      ASSERT_EQ(top.Nodes().Count(), 1u);
      EXPECT_EQ(top.Nodes().Item(0).Name(), "return");
    }
    arrays += checkArrays(top, name);
  }
  EXPECT_EQ(files, 30);
  EXPECT_GT(arrays, 1000);
  for (const FileCase& c : kFiles) {
    const ParsedReply reply(realReply(c.file));
    EXPECT_EQ(readBack(reply), c.read) << c.file;
  }
}

// The texts of a talkgroup as the service sends them: the comma of a description becomes a
// semicolon, nil reads as empty, and no reply's text keeps a comma.
TEST(RealReplies, TalkgroupTexts) {
  const ParsedReply p25(realReply("trs_talkgroups_p25.xml"));
  const std::vector<RRTalkgroup> tgs = readTalkgroups(p25.part());
  const auto newton =
      std::find_if(tgs.begin(), tgs.end(), [](const RRTalkgroup& tg) { return tg.tgDec == 45005; });
  ASSERT_NE(newton, tgs.end());
  EXPECT_EQ(std::tie(newton->tgDescr, newton->tgId, newton->tgCid, newton->tgSort, newton->tgDate,
                     newton->tgSubfleet, newton->tgSlot),  // the last two nil
            std::make_tuple("VHF Fire Page/Ops; EMS Ops - Newton", 329976, 26708, 32,
                            "2020-09-12T23:00:06+00:00", "", ""));
  for (const RRTalkgroup& tg : tgs) {
    EXPECT_EQ(tg.tgDescr.find(','), std::string::npos) << tg.tgDec;
    EXPECT_EQ(tg.tags.size(), 1u) << tg.tgDec;
  }
  const ParsedReply dmr(realReply("trs_talkgroups_dmr_conv.xml"));
  EXPECT_EQ(readTalkgroups(dmr.part()).front().tgSlot, "2");
  const ParsedReply sites(realReply("trs_sites_p25.xml"));
  const RRSite site = readTrsSites(sites.part()).front();
  EXPECT_EQ(std::tie(site.siteNeighbors, site.siteLicenses),
            std::make_tuple("1(LINN CO),20", std::vector<std::string>{"WQKX774", "WQKX775"}));
}

}  // namespace
}  // namespace zel::radioref
