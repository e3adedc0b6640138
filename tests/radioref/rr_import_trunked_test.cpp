// The trunked import: its line rules and the builder's edge cases, each expected line worked
// out from the rules, and a save and read of an imported system.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "core/document.h"
#include "core/memory_ports.h"
#include "core/record_line.h"
#include "core/tree_operations.h"
#include "formats/hpd_reader.h"
#include "formats/hpd_writer.h"
#include "formats/row_store.h"
#include "radioref/rr_import.h"
#include "radioref/rr_import_trunk_lines.h"

namespace zel::radioref {
namespace {

// ---- Line rules -------------------------------------------------------------------------------

TEST(TrunkLines, ImportTypeByTheTestsInOrder) {
  struct Row {
    std::string type, flavor, flavorText, band, expected;
  };
  const std::vector<Row> rows = {
      {"Motorola", "2", "Type II", "", "MOT 800/900"},
      {"Motorola", "2", "Type II", "VHF", "MOT VHF/UHF"},
      {"LTR", "12", "Standard", "", "LTR"},
      {"Edacs", "8", "Networked Standard", "", "EDACS STANDARD"},
      {"EDACS", "10", "Narrowband", "", "EDACS NARROW"},
      {"Edacs", "11", "Narrowband Networked", "", "EDACS NARROW"},
      {"DMR", "38", "Tier 3 Standard", "", "MotoTRBO"},
      {"DMR", "43", "Conventional Networked", "", "DMR One Frequency"},
      {"NXDN", "42", "NEXEDGE 4800", "", "Nxdn"},
      {"NXDN", "45", "Conventional Networked", "", "Nxdn One Frequency"},
      {"Project 25", "20", "Phase I", "", "P25 AUTO"},
      {"Project 25", "33", "Phase II", "", "P25 X2"},
      {"TETRA", "0", "", "", ""},
      {"", "0", "", "", ""},
  };
  for (const Row& r : rows) {
    TrunkSystem s;
    s.typeName = r.type;
    s.flavorCode = r.flavor;
    s.flavorText = r.flavorText;
    s.bandLabel = r.band;
    EXPECT_EQ(importType(s), r.expected) << r.type << " " << r.flavor;
  }
}

TEST(TrunkLines, HeaderDate) {
  EXPECT_EQ(headerDate("2026-06-28T20:57:13+00:00"), "06/28/2026 20:57:13");
  EXPECT_EQ(headerDate("2001-02-03 04:05:06"), "02/03/2001 04:05:06");
  EXPECT_EQ(headerDate(""), "10-10-2001 10:10:10");
  EXPECT_EQ(headerDate("yesterday, noon"), "yesterday; noon");
}

TEST(TrunkLines, TalkgroupIdentifiers) {
  struct Row {
    std::string id, subfleet;
    TrunkFamily family;
    bool afs;
    std::string flavor, expected;
  };
  const std::vector<Row> rows = {
      {"1234", "", TrunkFamily::Ltr, false, "12", "001234"},
      {"12345", "", TrunkFamily::Ltr, false, "12", "012345"},
      {"123456", "", TrunkFamily::Ltr, false, "12", "123456"},
      {"0", "10234", TrunkFamily::Ltr, false, "12", "010234"},  // the subfleet form
      {"", "04-123", TrunkFamily::Edacs, true, "8", "04-123"},
      // 341 = 0b00101010101: agency bits 10-7 = 2, fleet bits 6-3 = 10, subfleet 5.
      {"341", "", TrunkFamily::Edacs, true, "8", "02-105"},
      {"341", "", TrunkFamily::Edacs, false, "8", "341"},
      {"341", "", TrunkFamily::Other, true, "33", "341"},
      {"12345", "", TrunkFamily::Other, false, "36", "01-2345"},
      {"123456", "", TrunkFamily::Other, false, "36", "12-3456"},
      {"1234", "", TrunkFamily::Other, false, "36", "1234"},
  };
  for (const Row& r : rows) {
    TalkgroupRow row;
    row.id = r.id;
    row.subfleet = r.subfleet;
    EXPECT_EQ(talkgroupId(row, r.family, r.afs, r.flavor), r.expected) << r.id;
  }
}

TEST(TrunkLines, ModeWords) {
  const std::vector<std::pair<std::string, std::string>> rows = {
      {"A", "Analog"}, {"a", "Analog"}, {"D", "Digital"}, {"T", "Digital"},
      {"DE", "All"},   {"M", "All"},    {"", "All"},      {"TE", "All"}};
  for (const auto& [mode, word] : rows) EXPECT_EQ(talkgroupMode(mode), word) << mode;
}

TEST(TrunkLines, TalkgroupRecordGridAndLed) {
  const std::vector<LedRule> leds = {{false, "Law Dispatch", "Red", "On"},
                                     {true, "Law Dispatch", "Blue", "Slow Blink"}};
  TalkgroupLines p25 =
      talkgroupLines("52351", "Campus Dispatch", "Digital", "Law Dispatch", false, leds);
  EXPECT_EQ(p25.record, "TID,52351,Campus Dispatch,Off,Digital,Law Dispatch,2,0,Off,Auto,,,,,");
  EXPECT_EQ(p25.grid,
            "52351,Campus Dispatch,Off,Digital,Law Dispatch,2,0,Off,Auto,Blue,Slow Blink,,,Any");
  TalkgroupLines edacs = talkgroupLines("02-105", "Tac", "Analog", "Fire-Tac", true, leds);
  EXPECT_EQ(edacs.grid, "02-105,Tac,Off,Analog,Fire-Tac,2,0,Off,Auto,,,,,");
}

TEST(TrunkLines, SiteTailLaterRowsOverride) {
  struct Row {
    SiteTailCase c;
    std::string expected;
  };
  const std::string standard = ",AUTO,Standard,Wide,Circle,0,,,,,,,,,,,,";
  const std::string custom = ",AUTO,Custom/Rebanded,Wide,Circle,0,,,,,,,,,,,,";
  const std::vector<Row> rows = {
      {{"Motorola", "2", false, false, false, ""}, standard},
      {{"Motorola", "2", true, false, false, ""}, custom},
      {{"Motorola", "2", false, true, false, ""}, custom},
      {{"Motorola", "2", true, false, true, ""}, ",AUTO,Splinter,Wide,Circle,0,,,,,,,,,,,,"},
      {{"Project 25", "33", true, false, false, "1F2H"},
       ",AUTO,Standard,Wide,Circle,0,,,,1F2,,,,,,,"},
      {{"Edacs", "10", false, false, false, ""}, ",AUTO,Standard,Narrow,Circle,0,,,,,,,,,,,,"},
      {{"Edacs", "8", false, false, false, ""}, standard},
  };
  for (const Row& r : rows) EXPECT_EQ(siteTail(r.c), r.expected) << r.c.typeName;
}

TEST(TrunkLines, BandPlanLines) {
  // Two rows from 406.1 at channel 0 and 407.0 at 380, 12.5 kHz: the first ends at channel
  // 379, 406.1 + 379 * 0.0125 = 410.8375; the second at the sentinel's 759, 407.0 + 379 *
  // 0.0125 = 411.7375; four empty groups fill the six.
  EXPECT_EQ(bandPlanLine({{"406.1", "0", "12.5"}, {"407.0", "380", "12.5"}}, false),
            "MCP,type,406.1000,410.8375,12.5,0,407.0000,411.7375,12.5,380,,,,,,,,,,,,,,,,");
  EXPECT_EQ(bandPlanLine({{"851.025", "440", "25"}, {"851.0125", "0", "25"}}, false),
            kRebandedPlanLine);
  EXPECT_EQ(bandPlanLine({}, true), kRebandedPlanLine);
  EXPECT_EQ(bandPlanLine({}, false), "");
  // The fixed line is the first two rows of the fixed rebanded plan: 440-559 from 851.025
  // and 0-719 from 851.0125, 25 kHz apart.
  const std::vector<RebandRow> plan = load_reband();
  ASSERT_EQ(plan.size(), 6u);
  EXPECT_DOUBLE_EQ(plan[0].baseMhz + (plan[0].lastChannel - plan[0].firstChannel) * 0.025, 854.0);
  EXPECT_DOUBLE_EQ(plan[1].baseMhz + (plan[1].lastChannel - plan[1].firstChannel) * 0.025,
                   868.9875);
}

TEST(TrunkLines, ControlChannelOptions) {
  struct Row {
    bool pri, alt, all;
    bool d, a, none;  // taken: "d", "a", ""
  };
  const std::vector<Row> rows = {
      {false, false, false, true, true, true}, {true, false, false, true, false, true},
      {false, true, false, false, true, true}, {true, true, false, true, true, true},
      {false, false, true, true, true, true},  {true, false, true, true, true, true},
  };
  for (const Row& r : rows) {
    ImportOptions o;
    o.ccPrimary = r.pri;
    o.ccAlternate = r.alt;
    o.ccAll = r.all;
    EXPECT_EQ(controlChannelTaken("d", o), r.d) << r.pri << r.alt << r.all;
    EXPECT_EQ(controlChannelTaken("a", o), r.a) << r.pri << r.alt << r.all;
    EXPECT_EQ(controlChannelTaken("", o), r.none) << r.pri << r.alt << r.all;
  }
}

TEST(TrunkLines, RanAndFrequencyLines) {
  for (const std::string ran : {"RAN=99", "99", "RAN>99", ""})
    EXPECT_EQ(ranText(ran, false), "Srch");
  EXPECT_EQ(ranText("5", false), "RAN=5");
  EXPECT_EQ(ranText("RAN=5", true), "Area=5");
  SiteFreqRow f;
  f.freq = "851.0125";
  f.lcn = "7";
  f.colorCode = "3";
  f.ran = "2";
  EXPECT_EQ(siteFrequencyLine(f, FrequencyForm::Plain, false), "TFQ,851.012500,,Srch");
  EXPECT_EQ(siteFrequencyLine(f, FrequencyForm::Lcn, false), "TFQ,851.012500,7,Srch");
  EXPECT_EQ(siteFrequencyLine(f, FrequencyForm::Dmr, false), "TFQ,851.012500,7,3");
  EXPECT_EQ(siteFrequencyLine(f, FrequencyForm::Nxdn, true), "TFQ,851.012500,7,,Area=2");
  f.freq = "0000.000000";
  EXPECT_EQ(siteFrequencyLine(f, FrequencyForm::Lcn, false), "");
}

TEST(TrunkLines, FleetMapCodes) {
  EXPECT_EQ(fleetMapLine({"2", "A", "B", "C", "D", "E", "F", "Q"}), "FMP,0,1,2,3,4,5,6,14");
  EXPECT_EQ(fleetMapLine({"G", "H", "I", "J", "K", "M", "O", "2"}), "FMP,7,8,9,10,11,12,13,0");
  EXPECT_EQ(fleetMapLine({}), "");
}

// ---- The builder ------------------------------------------------------------------------------

RRSite makeSite(int id, const std::string& name, int freqs) {
  RRSite s;
  s.siteId = id;
  s.siteNumber = id;
  s.siteDescr = name;
  s.lat = 41.5;
  s.lon = -81.25;
  s.range = 12;
  for (int i = 1; i <= freqs; ++i) {
    RRSiteFreq f;
    f.lcn = i;
    f.freq = std::to_string(851 + i / 40) + "." + std::to_string(100 + (i % 40) * 25).substr(1);
    s.siteFreqs.push_back(f);
  }
  return s;
}

TrunkSystem makeSystem(const std::string& type, const std::string& flavor) {
  TrunkSystem s;
  s.ref.sName = "County, Net";
  s.ref.lastUpdated = "2024-01-02T03:04:05+00:00";
  s.typeName = type;
  s.flavorCode = flavor;
  s.sites = {makeSite(5, "North Hill", 3), makeSite(6, "South", 2)};
  return s;
}

std::vector<TalkgroupRow> makeTalkgroups() {
  std::vector<TalkgroupRow> rows(3);
  rows[0] = {1, "1001", "Fire Dispatch", "FD", "Fire", "", "3", "D", "", "41.5,-81.5,10"};
  rows[1] = {2, "1002", "Law Tac", "PD", "Police", "", "7", "A", "", "0,0,0"};
  rows[2] = {3, "1003", "Fire Talk", "FT", "Fire", "", "0", "DE", "", "41.5,-81.5,10"};
  return rows;
}

struct ImportRun {
  Document doc;
  formats::MemoryRows store;
  RecordingFeedback feedback;
  ImportResult result;

  void import(const TrunkSystem& system, std::vector<TalkgroupRow> talkgroups,
              std::vector<SiteRow> sites, const ImportOptions& options,
              std::function<std::optional<RRCounty>(int)> county = {}) {
    TrunkImport input{system, talkgroups, sites, std::move(county)};
    result = importTrunked({doc, store, feedback, 3}, input, options);
  }
  std::string text(const std::string& key) const { return treemod::getText(doc.data, key); }
};

ImportOptions gpsOptions() {
  ImportOptions o;
  o.importGps = true;
  return o;
}

TEST(TrunkImport, MotorolaSystemWithDepartmentsAndTalkgroups) {
  ImportRun run;
  TrunkSystem system = makeSystem("Motorola", "2");
  system.details.fleetmap = {"2", "A", "B", "2", "2", "2", "2", "2"};
  std::vector<SiteRow> sites = siteRows(system);
  sites.pop_back();
  run.import(system, makeTalkgroups(), sites, gpsOptions());
  ASSERT_TRUE(run.result.ok) << run.result.message;
  // The name's comma becomes ";" (filter_sp); file number 3.
  EXPECT_EQ(run.text("SYS-001"),
            "SIN,Motorola,1,StateId=0,County; Net,Off,01/02/2024 03:04:05,Motorola,,,,,,,,,,,,,,,,"
            "003");
  EXPECT_EQ(run.text("FMP-001-000"), "FMP,0,1,2,0,0,0,0,0");
  // "Fire" is department 1 at its GPS text, "Police" 2 at no place; the third talkgroup
  // joins "Fire" (exact name) with tag 0 (no service) and mode DE -> All.
  EXPECT_EQ(run.text("GRP-999-001-001"),
            "GIN,C-Group,CGroupId=0,AgencyId=0,Fire,Off,41.5,-81.5,10,,,");
  EXPECT_EQ(run.text("GRP-999-001-002"),
            "GIN,C-Group,CGroupId=0,AgencyId=0,Police,Off,0.000000,-00.000000,0.0,,,");
  EXPECT_EQ(run.store.load("GRP-999-001-001"),
            (std::vector<std::string>{
                "1,1001,Fire Dispatch,Off,Digital,Fire Dispatch,2,0,Off,Auto,,,,,Any",
                "2,1003,Fire Talk,Off,All,,2,0,Off,Auto,,,,,Any"}));
  EXPECT_EQ(run.store.load("GRP-999-001-002"),
            (std::vector<std::string>{"1,1002,Law Tac,Off,Analog,Law Tac,2,0,Off,Auto,,,,,Any"}));
  EXPECT_EQ(run.text("SIT-001-001"),
            "SIF,Site,SiteId=5,TrunkId=1,North Hill,Off,41.500000,-81.250000,12.0,AUTO,Standard,"
            "Wide,Circle,0,,,,,,,,,,,,");
  EXPECT_EQ(run.doc.systems.get(1, 10), "1");
  EXPECT_EQ(run.result.departments, 2);
  EXPECT_EQ(run.result.channels, 3);
  EXPECT_EQ(run.result.frequencies, 3);
  EXPECT_TRUE(run.doc.visible.contains("SIT-001-001"));
  EXPECT_TRUE(run.doc.visible.contains("GRP-999-001-002"));
}

TEST(TrunkImport, QuickKeysAndUntaggedService) {
  ImportRun run;
  ImportOptions o = gpsOptions();
  o.qkeysTrunk = true;
  o.qkeysSites = true;
  o.untaggedTrunk = 21;  // "Other"
  TrunkSystem system = makeSystem("Motorola", "2");
  run.import(system, makeTalkgroups(), siteRows(system), o);
  ASSERT_TRUE(run.result.ok);
  EXPECT_EQ(run.text("GRP-999-001-002"),
            "GIN,C-Group,CGroupId=0,AgencyId=0,Police,Off,0.000000,-00.000000,0.0,,2,");
  EXPECT_EQ(record::field(run.text("SIT-001-002"), 17), "2");
  EXPECT_EQ(run.store.load("GRP-999-001-001")[1],
            "2,1003,Fire Talk,Off,All,Other,2,0,Off,Auto,,,,,Any");
}

TEST(TrunkImport, SplinterMotorolaSiteWithBandPlan) {
  ImportRun run;
  TrunkSystem system = makeSystem("Motorola", "2");
  system.details.bandplan = {{"406.1", "0", "12.5"}, {"407.0", "380", "12.5"}};
  std::vector<SiteRow> sites = siteRows(system);
  sites[0].splinter = true;
  sites[1].rebanded = true;
  run.import(system, {}, sites, gpsOptions());
  ASSERT_TRUE(run.result.ok);
  EXPECT_NE(run.text("SIT-001-001").find(",AUTO,Splinter,Wide,Circle,0,"), std::string::npos);
  EXPECT_EQ(run.text("MCP-001-001"),
            "MCP,type,406.1000,410.8375,12.5,0,407.0000,411.7375,12.5,380,,,,,,,,,,,,,,,,");
  // The rebanded site takes the fixed plan and the custom tail.
  EXPECT_NE(run.text("SIT-001-002").find(",AUTO,Custom/Rebanded,Wide,"), std::string::npos);
  EXPECT_EQ(run.text("MCP-001-002"), kRebandedPlanLine);
}

TEST(TrunkImport, SplinterFlagHoldsOnlyForMotorola) {
  ImportRun run;
  TrunkSystem system = makeSystem("Edacs", "8");
  std::vector<SiteRow> sites = siteRows(system);
  sites.resize(1);
  sites[0].splinter = true;
  sites[0].rebanded = true;
  run.import(system, {}, sites, gpsOptions());
  ASSERT_TRUE(run.result.ok);
  EXPECT_NE(run.text("SIT-001-001").find(",AUTO,Standard,Wide,Circle,0,"), std::string::npos);
  EXPECT_FALSE(run.doc.data.contains("MCP-001-001"));
}

TEST(TrunkImport, SiteAtZeroTakesItsCountysPlace) {
  ImportRun run;
  TrunkSystem system = makeSystem("Project 25", "20");
  system.sites.resize(1);
  system.sites[0].lat = 0;
  system.sites[0].lon = 0;
  system.sites[0].siteCtid = {"841"};
  int asked = 0;
  run.import(system, {}, siteRows(system), gpsOptions(), [&](int ctid) -> std::optional<RRCounty> {
    ++asked;
    RRCounty c;
    c.ctid = ctid;
    c.lat = 42.077;
    c.lon = -91.611;
    c.range = 19.24;
    return c;
  });
  ASSERT_TRUE(run.result.ok);
  EXPECT_EQ(asked, 1);
  EXPECT_EQ(run.text("SIT-001-001"),
            "SIF,Site,SiteId=5,TrunkId=1,North Hill,Off,42.077000,-91.611000,19.2,AUTO,Standard,"
            "Wide,Circle,0,,,,,,,,,,,");
}

TEST(TrunkImport, AHundredFrequenciesASite) {
  ImportRun run;
  TrunkSystem system = makeSystem("Edacs", "8");
  system.sites = {makeSite(1, "Big", 120)};
  system.sites[0].siteFreqs[0].freq = "0000.000000";  // skipped, not counted
  run.import(system, {}, siteRows(system), gpsOptions());
  ASSERT_TRUE(run.result.ok);
  EXPECT_EQ(run.result.frequencies, 100);
  EXPECT_TRUE(run.doc.data.contains("TFQ-001-001-100"));
  EXPECT_FALSE(run.doc.data.contains("TFQ-001-001-101"));
  // The first kept is LCN 2; the hundredth LCN 101.
  EXPECT_EQ(record::field(run.text("TFQ-001-001-001"), 2), "2");
  EXPECT_EQ(record::field(run.text("TFQ-001-001-100"), 2), "101");
  EXPECT_EQ(treemod::getText(run.doc.frequencies, "TFQ-001-001-100"), run.text("TFQ-001-001-100"));
}

TEST(TrunkImport, LtrHeaderCarriesMotorolaAndPadsIds) {
  ImportRun run;
  TrunkSystem system = makeSystem("LTR", "12");
  std::vector<TalkgroupRow> tgs = makeTalkgroups();
  std::vector<SiteRow> sites = siteRows(system);
  run.import(system, tgs, sites, gpsOptions());
  ASSERT_TRUE(run.result.ok);
  EXPECT_EQ(run.text("SYS-001"),
            "SIN,LTR,1,StateId=0,County; Net,Off,01/02/2024 03:04:05,Motorola,,,,,,,,,,,,,,,,003");
  EXPECT_EQ(run.doc.systems.get(1, 10), "4");
  EXPECT_EQ(run.store.load("GRP-999-001-001")[0].substr(0, 9), "1,001001,");
  ASSERT_EQ(run.feedback.messages.size(), 1u);  // two sites: the LCN warning, then the import
  EXPECT_EQ(run.feedback.messages[0],
            "Warning: You selected more than one site, your scanner may not trunk this system "
            "properly.\nPlease select only one site.");
}

TEST(TrunkImport, NoTalkgroupGivesTheDefaultDepartment) {
  ImportRun run;
  TrunkSystem system = makeSystem("Project 25", "33");
  run.import(system, {}, siteRows(system), gpsOptions());
  ASSERT_TRUE(run.result.ok);
  EXPECT_EQ(run.text("GRP-999-001-000"),
            "GIN,C-Group,CGroupId=0,AgencyId=0,Department: 1 ,Off,0.000000,-00.000000,0.0,,,");
  EXPECT_EQ(run.result.departments, 1);
}

TEST(TrunkImport, EdacsAfsRowsWithoutSlot) {
  ImportRun run;
  ImportOptions o = gpsOptions();
  o.edacsAfs = true;
  TrunkSystem system = makeSystem("Edacs", "8");
  std::vector<TalkgroupRow> tgs = makeTalkgroups();
  tgs.resize(1);
  tgs[0].id = "341";
  std::vector<SiteRow> sites = siteRows(system);
  sites.resize(1);
  run.import(system, tgs, sites, o);
  ASSERT_TRUE(run.result.ok);
  EXPECT_EQ(run.store.load("GRP-999-001-001"),
            (std::vector<std::string>{
                "1,02-105,Fire Dispatch,Off,Digital,Fire Dispatch,2,0,Off,Auto,,,,,"}));
  EXPECT_TRUE(run.feedback.messages.empty());
}

TEST(TrunkImport, RefusalsLeaveTheDocumentAlone) {
  struct Row {
    std::string type;
    bool sites;
    bool filters;
    std::string message;
  };
  const std::vector<Row> rows = {
      {"Motorola", false, true, "Please select at least one site."},
      {"Motorola", true, false, "Error: all tg filters are disabled"},
      {"TETRA", true, true, "trunk system type not supported by this scanner model"},
  };
  for (const Row& r : rows) {
    ImportRun run;
    TrunkSystem system = makeSystem(r.type, "0");
    ImportOptions o = gpsOptions();
    if (!r.filters) o.talkgroupFilter.fill(false);
    run.import(system, makeTalkgroups(), r.sites ? siteRows(system) : std::vector<SiteRow>{}, o);
    EXPECT_FALSE(run.result.ok) << r.message;
    EXPECT_EQ(run.result.message, r.message);
    EXPECT_EQ(run.feedback.messages, std::vector<std::string>{r.message});
    EXPECT_EQ(run.doc.data.count(), 0u) << r.message;
    EXPECT_FALSE(run.doc.changed);
  }
}

TEST(TrunkImport, FullTreeRefuses) {
  ImportRun run;
  for (int i = 0; i <= 30000; ++i) run.doc.data.add({}, "X-" + std::to_string(i), "x");
  const std::size_t before = run.doc.data.count();
  TrunkSystem system = makeSystem("Motorola", "2");
  run.import(system, makeTalkgroups(), siteRows(system), gpsOptions());
  EXPECT_FALSE(run.result.ok);
  EXPECT_EQ(run.result.message, "Out of storage space, reached storage limit (30000 objects).");
  EXPECT_EQ(run.doc.data.count(), before);
}

TEST(TrunkImport, TalkgroupFilterKeepsRowsOutOfTheList) {
  TrunkSystem system = makeSystem("Project 25", "33");
  RRTalkgroupCat cat;
  cat.tgCname = "Ops";
  std::vector<RRTalkgroup> tgs(5);
  const std::vector<std::pair<std::string, std::string>> kinds = {
      {"A", "0"}, {"D", "0"}, {"T", "0"}, {"D", "2"}, {"D", "1"}};
  for (std::size_t i = 0; i < tgs.size(); ++i) {
    tgs[i].tgDec = static_cast<int>(100 + i);
    tgs[i].tgMode = kinds[i].first;
    tgs[i].enc = kinds[i].second;
  }
  struct Row {
    TalkgroupKind off;
    std::vector<std::string> ids;
  };
  const std::vector<Row> rows = {
      {tgAnalog, {"101", "102", "103", "104"}},
      {tgDigital, {"100", "102"}},
      {tgTdma, {"100", "101", "103", "104"}},
      {tgFullEncrypted, {"100", "101", "102", "104"}},
      {tgPartialEncrypted, {"100", "101", "102", "103"}},
  };
  for (const Row& r : rows) {
    ImportOptions o;
    o.talkgroupFilter[r.off] = false;
    std::vector<std::string> ids;
    for (const TalkgroupRow& row : talkgroupRows(tgs, cat, system, o, 1)) ids.push_back(row.id);
    EXPECT_EQ(ids, r.ids) << r.off;
  }
}

// ---- An imported system is an ordinary one ----------------------------------------------------

std::string saved(Document& doc, const formats::RowStore& rows) {
  RecordingFeedback feedback;
  formats::HpdWriteResult result;
  formats::HpdWriteOptions options;
  return formats::renderHpd(doc, rows, options, feedback, result);
}

TEST(TrunkImport, SavesAndReadsBackToTheSameFile) {
  for (const std::string type : {"Project 25", "Edacs"}) {
    ImportRun run;
    TrunkSystem system = makeSystem(type, type == "Edacs" ? "8" : "33");
    system.sites[0].nac = "2F1";
    std::vector<SiteRow> sites = siteRows(system);
    sites.resize(1);
    run.import(system, makeTalkgroups(), sites, gpsOptions());
    ASSERT_TRUE(run.result.ok) << type;
    const std::string first = saved(run.doc, run.store);
    ASSERT_NE(first.find("T-Freq"), std::string::npos) << type;

    Document again;
    formats::MemoryRows rows;
    RecordingFeedback feedback;
    formats::HpdReadOptions readOptions;
    const formats::HpdReadResult read =
        formats::readHpdText(again, rows, first, "", readOptions, feedback);
    ASSERT_TRUE(read.ok()) << read.message;
    EXPECT_EQ(read.counts.talkgroups, 3) << type;
    EXPECT_EQ(read.counts.frequencies, 3) << type;
    EXPECT_EQ(saved(again, rows), first) << type;
  }
}

}  // namespace
}  // namespace zel::radioref
