// The trunked import of every trunked system the live service answered for (interface
// version 18): the recorded replies are read, every site and talkgroup ticked, and the
// system imported into a fresh document. The expected lines are worked out from the
// replies' records by the import's rules; the reasoning stands beside each case.
#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

#include "core/document.h"
#include "core/keys.h"
#include "core/memory_ports.h"
#include "core/tree_operations.h"
#include "formats/row_store.h"
#include "radioref/rr_import.h"
#include "radioref/rr_readers.h"
#include "rr_test_support.h"

namespace zel::radioref {
namespace {

// The "return" part of a recorded reply, read by `read`.
template <typename Read>
auto readReply(const std::string& file, Read read) {
  const test::ParsedReply reply(test::realReply(file));
  EXPECT_TRUE(reply.result().ok) << file << ": " << reply.result().error;
  return read(reply.part());
}

struct Case {
  std::string name;    // the file suffix: trs_details_<name>.xml and so on
  bool categoryReply;  // a trs_talkgroup_cats_<name>.xml was recorded
  std::string systemLine;
  std::string siteLine;                            // SIT-001-001
  std::map<std::string, std::string> frequencies;  // TFQ keys of the first site
  std::string departmentLine;                      // GRP-999-001-001
  std::vector<std::string> rows;                   // the first rows of that department
  int sites;
  std::string typeCode;  // the system table's field 10
};

// System number 1 in a fresh document, file number 0. Names come from descr (short alpha
// off), service from the first tagId, modes by the first letter of tgMode. No band plan is
// in any reply, so no site has an MCP line and every tail is Standard. No control-channel
// option is ticked, so every "d" and "a" frequency is taken.
const std::vector<Case> kCases = {
    // P25 (sType 8 "Project 25", flavor 33) -> "P25 X2": code 7, "P25 X2 TDMA" in both texts.
    // lastUpdated 2026-06-28T20:57:13 -> 06/28/2026 20:57:13. Site 1 "Johnson Co Simulcast",
    // siteNumber 1, 41.65503/-91.60244/20, NAC 034 into the Project 25 tail. Frequencies
    // 851.05 and 851.7875 ("d"), P25 keeps no LCN. Category 1 "University of Iowa" at
    // 41.6611277,-91.5301683,5; its first talkgroups 52353 "Campus Guard 2" (D, tag 33
    // Security) and 52351 "Campus Dispatch" (D, enc 2, tag 2 Law Dispatch).
    {"p25",
     true,
     "SIN,P25 X2 TDMA,1,StateId=0,SARA Network,Off,06/28/2026 20:57:13,P25 X2 TDMA,,,,,,,,,,,,,,,,"
     "000",
     "SIF,Site,SiteId=1,TrunkId=1,Johnson Co Simulcast,Off,41.655030,-91.602440,20.0,AUTO,"
     "Standard,Wide,Circle,0,,,,034,,,,,,,",
     {{"TFQ-001-001-001", "TFQ,851.050000,,Srch"}, {"TFQ-001-001-002", "TFQ,851.787500,,Srch"}},
     "GIN,C-Group,CGroupId=0,AgencyId=0,University of Iowa,Off,41.6611277,-91.5301683,5,,,",
     {"1,52353,Campus Guard 2,Off,Digital,Security,2,0,Off,Auto,,,,,Any",
      "2,52351,Campus Dispatch,Off,Digital,Law Dispatch,2,0,Off,Auto,,,,,Any"},
     35,
     "7"},
    // DMR Tier 3 (sType 12, flavor 38 "Tier 3 Standard") -> "MotoTRBO": code 8, second text
    // ",DMR,". Site "Adams" 43.55762/-92.68207/25. LCN 1 855.7875 and LCN 2 856.9125, no
    // colour code -> "Srch". Talkgroups grouped by tgCid, first 23606: 6001 "Mason City
    // Operations" and 6000 "Spirit Lake Operations", both T -> Digital, tag 34 Utilities.
    {"dmr_tier3",
     false,
     "SIN,MotoTRBO,1,StateId=0,Alliant Energy,Off,05/24/2026 00:00:54,DMR,,,,,,,,,,,,,,,,000",
     "SIF,Site,SiteId=1,TrunkId=1,Adams,Off,43.557620,-92.682070,25.0,AUTO,Standard,Wide,Circle,"
     "0,,,,,,,,,,,,",
     {{"TFQ-001-001-001", "TFQ,855.787500,1,Srch"}, {"TFQ-001-001-002", "TFQ,856.912500,2,Srch"}},
     "GIN,C-Group,CGroupId=0,AgencyId=0,Group 23606,Off,0.000000,-00.000000,0.0,,,",
     {"1,6001,Mason City Operations,Off,Digital,Utilities,2,0,Off,Auto,,,,,Any",
      "2,6000,Spirit Lake Operations,Off,Digital,Utilities,2,0,Off,Auto,,,,,Any"},
     129,
     "8"},
    // Capacity Plus (flavor 31) -> "MotoTRBO". Site "Cedar Rapids" 41.93278/-91.71878/15;
    // colour code 1 on each frequency. Talkgroup 109 "Ops 109", T, tag 17 Business.
    {"capplus",
     false,
     "SIN,MotoTRBO,1,StateId=0,General Mills,Off,09/03/2024 02:17:40,DMR,,,,,,,,,,,,,,,,000",
     "SIF,Site,SiteId=1,TrunkId=1,Cedar Rapids,Off,41.932780,-91.718780,15.0,AUTO,Standard,Wide,"
     "Circle,0,,,,,,,,,,,,",
     {{"TFQ-001-001-001", "TFQ,854.812500,1,1"}, {"TFQ-001-001-004", "TFQ,856.862500,4,1"}},
     "GIN,C-Group,CGroupId=0,AgencyId=0,Group 34951,Off,0.000000,-00.000000,0.0,,,",
     {"1,109,Ops 109,Off,Digital,Business,2,0,Off,Auto,,,,,Any",
      "2,110,Ops 110,Off,Digital,Business,2,0,Off,Auto,,,,,Any"},
     1,
     "8"},
    // Conventional networked DMR (flavor 43, "Conventional Networked") -> "DMR One
    // Frequency": code 9. Site "Waukee" with siteNumber 310011, one frequency 146.755 CC 1.
    // Talkgroup 3119 "Statewide Calling Talkgroup" T, tag 13 Ham; 31190 "Chat".
    {"dmr_conv",
     false,
     "SIN,DMR One Frequency,1,StateId=0,Iowa DMR Users Group,Off,02/07/2025 20:47:06,DMR,,,,,,,,,"
     ",,,,,,,000",
     "SIF,Site,SiteId=310011,TrunkId=1,Waukee,Off,41.625960,-93.870500,25.0,AUTO,Standard,Wide,"
     "Circle,0,,,,,,,,,,,,",
     {{"TFQ-001-001-001", "TFQ,146.755000,1,1"}},
     "GIN,C-Group,CGroupId=0,AgencyId=0,Group 25187,Off,0.000000,-00.000000,0.0,,,",
     {"1,3119,Statewide Calling Talkgroup,Off,Digital,Ham,2,0,Off,Auto,,,,,Any",
      "2,31190,Chat,Off,Digital,Ham,2,0,Off,Auto,,,,,Any"},
     36,
     "9"},
    // NXDN (sType 11, flavor 42 "NEXEDGE 4800") -> "Nxdn": code 10. Site "Palo" at 0,0 in
    // county 841, whose reply gives 42.077/-91.611/19.24. RAN 1 -> "RAN=1" after an empty
    // colour code. Talkgroup 10 "Ops 10", D, tag 34 Utilities.
    {"nxdn",
     false,
     "SIN,Nxdn,1,StateId=0,Duane Arnold Energy Center,Off,06/10/2024 02:09:02,Nxdn,,,,,,,,,,,,,,"
     ",,000",
     "SIF,Site,SiteId=1,TrunkId=1,Palo,Off,42.077000,-91.611000,19.2,AUTO,Standard,Wide,Circle,0,"
     ",,,,,,,,,,,",
     {{"TFQ-001-001-001", "TFQ,856.812500,1,,RAN=1"},
      {"TFQ-001-001-003", "TFQ,858.812500,3,,RAN=1"}},
     "GIN,C-Group,CGroupId=0,AgencyId=0,Group 35809,Off,0.000000,-00.000000,0.0,,,",
     {"1,10,Ops 10,Off,Digital,Utilities,2,0,Off,Auto,,,,,Any",
      "2,20,Ops 20,Off,Digital,Utilities,2,0,Off,Auto,,,,,Any"},
     1,
     "10"},
    // EDACS (sType 2 "Edacs", flavor 8) -> "EDACS STANDARD": code 2. Site "East System",
    // siteNumber 11, at 0,0 in county 344, for which no county reply was recorded: it stays
    // at 0,0. LCN form. Talkgroups by tgCid, first 1708: 341 "Courthouse Transportation"
    // (D, tag 7 Law Tac); EDACS rows end without "Any".
    {"edacs",
     false,
     "SIN,Edacs Narrow/Wide,1,StateId=0,Hillsborough County (EDACS),Off,09/07/2025 17:34:25,"
     "Edacs Narrow/Wide,,,,,,,,,,,,,,,,000",
     "SIF,Site,SiteId=11,TrunkId=1,East System,Off,0.000000,0.000000,0.0,AUTO,Standard,Wide,"
     "Circle,0,,,,,,,,,,,,",
     {{"TFQ-001-001-001", "TFQ,851.375000,1,Srch"}, {"TFQ-001-001-002", "TFQ,851.700000,2,Srch"}},
     "GIN,C-Group,CGroupId=0,AgencyId=0,Group 1708,Off,0.000000,-00.000000,0.0,,,",
     {"1,341,Courthouse Transportation,Off,Digital,Law Tac,2,0,Off,Auto,,,,,"},
     2,
     "2"},
};

class TrunkedRealImport : public ::testing::TestWithParam<Case> {};

TEST_P(TrunkedRealImport, ImportsTheSystemAsWorkedOut) {
  const Case& c = GetParam();
  TrunkSystem system;
  system.details = readReply("trs_details_" + c.name + ".xml", readTrsDetails);
  system.sites = readReply("trs_sites_" + c.name + ".xml", readTrsSites);
  const std::vector<RRTalkgroup> talkgroups =
      readReply("trs_talkgroups_" + c.name + ".xml", readTalkgroups);
  const std::vector<RRFlavor> flavors = readReply("trs_flavors.xml", readFlavors);
  const RRCounty county = readReply("county_info.xml", readCountyInfo);
  const RRSystemDetails& d = system.details;
  system.ref = {0, d.sName, d.sType, d.sFlavor, d.sVoice, d.sCity, d.lastUpdated};
  system.typeName = trunkTypeName(d.sType);
  system.flavorCode = std::to_string(d.sFlavor);
  for (const RRFlavor& f : flavors) {
    if (f.sType == d.sType && f.sFlavor == d.sFlavor) system.flavorText = f.sFlavorDescr;
  }
  system.bandLabel = bandLabelFor(d, system.sites);
  if (c.categoryReply) {
    system.categories = readReply("trs_talkgroup_cats_" + c.name + ".xml", readTalkgroupCats);
  } else {
    // No category reply was recorded: one category a tgCid, in the order they first come.
    for (const RRTalkgroup& t : talkgroups) {
      bool known = false;
      for (const RRTalkgroupCat& cat : system.categories) known = known || cat.tgCid == t.tgCid;
      if (!known) {
        RRTalkgroupCat cat;
        cat.tgCid = t.tgCid;
        cat.tgCname = "Group " + std::to_string(t.tgCid);
        system.categories.push_back(cat);
      }
    }
  }

  ImportOptions options;
  options.importGps = true;
  std::vector<TalkgroupRow> rows;
  for (const RRTalkgroupCat& cat : system.categories) {
    std::vector<RRTalkgroup> inCategory;
    for (const RRTalkgroup& t : talkgroups) {
      if (t.tgCid == cat.tgCid) inCategory.push_back(t);
    }
    const int first = static_cast<int>(rows.size()) + 1;
    for (TalkgroupRow& r : talkgroupRows(inCategory, cat, system, options, first)) {
      rows.push_back(std::move(r));
    }
  }
  ASSERT_EQ(rows.size(), talkgroups.size()) << "every talkgroup lies in a category";
  const std::vector<SiteRow> sites = siteRows(system);
  ASSERT_EQ(static_cast<int>(sites.size()), c.sites);

  Document doc;
  formats::MemoryRows store;
  RecordingFeedback feedback;
  TrunkImport input{system, rows, sites, [&](int ctid) -> std::optional<RRCounty> {
                      if (ctid == county.ctid) return county;
                      return std::nullopt;
                    }};
  const ImportResult result = importTrunked({doc, store, feedback, 0}, input, options);
  ASSERT_TRUE(result.ok) << result.message;
  EXPECT_EQ(std::tie(result.systemKey, result.sites, result.channels),
            std::make_tuple("SYS-001", c.sites, static_cast<int>(talkgroups.size())));

  EXPECT_EQ(treemod::getText(doc.data, "SYS-001"), c.systemLine);
  EXPECT_EQ(treemod::getText(doc.data, "UID-001-001"), "UID,UID Editor");
  EXPECT_EQ(treemod::getText(doc.data, "SIT-001-001"), c.siteLine);
  EXPECT_FALSE(doc.data.contains("MCP-001-001")) << "no reply holds a band plan";
  for (const auto& [key, line] : c.frequencies) {
    EXPECT_EQ(treemod::getText(doc.data, key), line) << key;
    EXPECT_EQ(doc.data.key(doc.data.parent(doc.data.find(key))), "SIT-001-001") << key;
    EXPECT_EQ(treemod::getText(doc.frequencies, key), line) << "flat copy of " << key;
  }
  EXPECT_EQ(treemod::getText(doc.data, "GRP-999-001-001"), c.departmentLine);
  const std::vector<std::string> pageRows = store.load("GRP-999-001-001");
  ASSERT_GE(pageRows.size(), c.rows.size());
  for (std::size_t i = 0; i < c.rows.size(); ++i) EXPECT_EQ(pageRows[i], c.rows[i]);
  EXPECT_EQ(doc.systems.get(1, 10), c.typeCode);
  EXPECT_TRUE(doc.changed);
  // Only the EDACS system, with two ticked sites, draws the LCN warning; it does not stop.
  EXPECT_EQ(feedback.messages.size(), c.name == "edacs" ? 1u : 0u);
}

INSTANTIATE_TEST_SUITE_P(EveryTrunkedReply, TrunkedRealImport, ::testing::ValuesIn(kCases),
                         [](const auto& info) { return info.param.name; });

}  // namespace
}  // namespace zel::radioref
