// The conventional and the trunked import as whole builder outputs: the list rows made from
// fetched records, the system the builders make of the ticked rows, their refusals, and one
// document holding both kinds written, read back and written again. Expected record lines and
// page rows are worked out from the rules by hand; the line rules' remaining edges are table
// rows at the end.
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "core/document.h"
#include "core/keys.h"
#include "core/memory_ports.h"
#include "core/record_line.h"
#include "core/tree_operations.h"
#include "formats/hpd_reader.h"
#include "formats/hpd_writer.h"
#include "formats/row_store.h"
#include "radioref/rr_import.h"
#include "radioref/rr_import_trunk_lines.h"
#include "radioref/rr_queries.h"
#include "rr_test_support.h"
#include "sim/radioref_sim.h"
#include "test_folder.h"

namespace zel::radioref {
namespace {

const std::string kTail = ",Off,2,0,Off,Auto";
const std::string kNoPlace = "0.000000,-00.000000,0.0";
const std::string kGin = "GIN,C-Group,CGroupId=0,AgencyId=0,";

ConvRow row(std::string frequency, std::string descr, std::string tone, std::string tag,
            std::string department, std::string mode = "1") {
  ConvRow r;
  r.frequency = std::move(frequency);
  r.descr = std::move(descr);
  r.tone = std::move(tone);
  r.tag = std::move(tag);
  r.department = std::move(department);
  r.mode = std::move(mode);
  r.enc = "0";
  return r;
}

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

// The SIF line of a site made by makeSite; `tail` the fields after the band.
std::string sif(int id, const std::string& name, const std::string& band,
                const std::string& tail = ",,,,,,,,,,,") {
  return "SIF,Site,SiteId=" + std::to_string(id) + ",TrunkId=1," + name +
         ",Off,41.500000,-81.250000,12.0,AUTO," + band + ",Wide,Circle,0," + tail;
}

ImportOptions gpsOptions() {
  ImportOptions o;
  o.importGps = true;
  return o;
}

// A document and its page rows, imported into (file number 1 for a conventional system, 3
// for a trunked one, unless told).
struct Import {
  Document doc;
  formats::MemoryRows rows;
  RecordingFeedback feedback;
  ImportResult conventional(const std::string& name, const std::vector<ConvRow>& list,
                            const ImportOptions& options = ImportOptions::defaults(),
                            int file = 1) {
    return maak_detemp245({doc, rows, feedback, file}, name, list, options);
  }
  ImportResult trunked(const TrunkSystem& system, const std::vector<TalkgroupRow>& talkgroups,
                       const std::vector<SiteRow>& sites,
                       const ImportOptions& options = gpsOptions(), int file = 3) {
    return importTrunked({doc, rows, feedback, file}, {system, talkgroups, sites, {}}, options);
  }
  std::string text(const std::string& key) const { return treemod::getText(doc.data, key); }
};

// ---- Conventional list rows -------------------------------------------------------------------

RRFrequency frequency(int fid, std::string out, int tag, std::string mode = "1") {
  RRFrequency f;
  f.fid = fid;
  f.out = std::move(out);
  f.descr = "d" + std::to_string(fid);
  f.mode = std::move(mode);
  if (tag > 0) f.tags.push_back({tag, ""});
  f.lastUpdated = "2024-03-09T12:00:00+00:00";
  return f;
}

TEST(ConventionalRows, FiltersDropWhatTheOptionsSay) {
  std::vector<RRFrequency> freqs = {
      frequency(1, "155.475", 2),        frequency(2, "460.350", 7),  // encrypted
      frequency(3, "217.6125", 34, "5"),                              // telemetry by its mode
      frequency(4, "146.520", 0),                                     // no tag
      frequency(5, "155.340", 12),                                    // eight days old
      frequency(6, "154.130", 3),                                     // no date
  };
  freqs[1].enc = 1;
  freqs[4].lastUpdated = "2024-03-02T23:59:59+00:00";
  freqs[5].lastUpdated = "";
  freqs[0].lastUpdated = "2024-03-03 00:00:00";  // seven days old
  const struct {
    const char* label;
    std::function<void(ImportOptions&)> set;
    std::vector<int> kept;  // fids
  } cases[] = {
      {"defaults keep all", [](ImportOptions&) {}, {1, 2, 3, 4, 5, 6}},
      {"encrypted", [](ImportOptions& o) { o.skipEncrypted = true; }, {1, 3, 4, 5, 6}},
      {"telemetry", [](ImportOptions& o) { o.skipTelemetry = true; }, {1, 2, 4, 5, 6}},
      {"tags without the filter", [](ImportOptions& o) { o.serviceTags = {2}; }, {1, 2, 3, 4, 5, 6}},
      {"law dispatch and untagged",
       [](ImportOptions& o) {
         o.serviceFilter = true;
         o.serviceTags = {2};
       },
       {1, 4}},
      {"last 7 days", [](ImportOptions& o) { o.updatedDays = 7; }, {1, 2, 3, 4}},
      {"last 30 days", [](ImportOptions& o) { o.updatedDays = 30; }, {1, 2, 3, 4, 5}},
  };
  for (const auto& c : cases) {
    ImportOptions o = ImportOptions::defaults();
    c.set(o);
    std::vector<int> kept;
    for (const ConvRow& r : conventionalRows(freqs, {900001, "Harbor County", {}},
                                             {900101, "Sheriff", 41.5, -90.51, 15, {}}, o,
                                             "2024-03-10")) {
      kept.push_back(r.fid);
    }
    EXPECT_EQ(kept, c.kept) << c.label;
  }
}

TEST(ConventionalRows, FieldsOfARow) {
  RRFrequency f = frequency(9000006, "88.5", 2, "6");
  f.descr = "Police, \"Downtown\"\tDispatch\r\n";
  f.alpha = "HPD, Dwntwn";
  f.tone = "1 CC";
  f.colorCode = "1";
  f.enc = 1;
  f.tags.push_back({7, ""});
  RRFrequency dstar = frequency(7, "145.670", 13, "10");
  RRFrequency usb = frequency(8, "145.670", 13, "9");
  RRFrequency nxdn = frequency(9, "451.1125", 14, "7");
  const auto rows = conventionalRows({f, dstar, usb, nxdn}, {900002, "Harbor, City", {}},
                                     {900103, "Police \"Downtown\"", 41.52, -90.55, 5, {}},
                                     ImportOptions::defaults(), "2024-03-10");
  ASSERT_EQ(rows.size(), 4u);
  const ConvRow& r = rows[0];  // tag: the first one
  EXPECT_EQ(std::tie(r.frequency, r.descr, r.alpha, r.department, r.category, r.tag, r.service,
                     r.gps, r.enc),
            std::make_tuple("088.500000", "Police; 'Downtown'Dispatch", "HPD; Dwntwn",
                            "Police 'Downtown'", "Police 'Downtown' / Harbor; City", "2",
                            "Law Dispatch", "41.52,-90.55,5", "1"));
  EXPECT_TRUE(r.ticked && !r.unsupported);
  // D-STAR (10) and USB (9) are marked and start unticked; NXDN (7) is held.
  EXPECT_TRUE(rows[1].unsupported && !rows[1].ticked);
  EXPECT_TRUE(rows[2].unsupported && !rows[2].ticked);
  EXPECT_TRUE(!rows[3].unsupported && rows[3].frequency == "451.112500");
}

// ---- The conventional builder -----------------------------------------------------------------

TEST(ConventionalImport, TickedRowsMakeTheSystemAndItsDepartments) {
  Import im;
  ConvRow unticked = row("151.000000", "Never", "", "2", "Unused");
  unticked.ticked = false;
  ConvRow fire = row("154.130000", "Fire Dispatch", "023 DPL", "3", "Fire; EMS");
  fire.gps = "0,0,0";
  ConvRow sheriff = row("155.475000", "Sheriff Dispatch", "123.0 PL", "2", "Sheriff");
  sheriff.gps = "41.5,-90.51,15";
  ConvRow tac = row("460.350000", "Sheriff Tac", "293 NAC", "7", "Sheriff", "4");
  tac.gps = "1,2,3";  // a department keeps the place of the row that made it
  const ImportResult result = im.conventional("Harbor, County", {unticked, sheriff, fire, tac});
  ASSERT_TRUE(result.ok) << result.message;
  EXPECT_EQ(std::tie(result.systemKey, result.departments, result.channels),
            std::make_tuple("SYS-001", 2, 3));
  EXPECT_TRUE(im.feedback.messages.empty());
  const DocumentTree& data = im.doc.data;
  EXPECT_EQ(data.text(data.find("SYS-001")),
            "SIN,Conventional,0,StateId=0,Harbor; County,Off,01/01/2010 10:00:00,Conventional,"
            ",,,,,,,,,,,,,,,001");
  EXPECT_EQ(data.key(data.parent(data.find("GRP-999-001-001"))), "SYS-001");
  EXPECT_EQ(im.text("GRP-999-001-001"), kGin + "Sheriff,Off,41.5,-90.51,15,Circle,");
  EXPECT_EQ(im.text("GRP-999-001-002"), kGin + "Fire; EMS,Off," + kNoPlace + ",Circle,");
  EXPECT_EQ(std::make_tuple(data.count(), im.rows.load("GRP-999-001-001").size(),
                            im.doc.systems.get(1, 1), im.doc.systems.get(1, 10)),
            std::make_tuple(std::size_t{3}, std::size_t{2}, "Harbor; County", "0"));
  EXPECT_TRUE(im.doc.visible.contains("GRP-999-001-002") && im.doc.changed);
  // A second import takes the next free system number.
  EXPECT_EQ(im.conventional("Second", {sheriff}).systemKey, "SYS-002");
}

TEST(ConventionalImport, OptionsShapeTheLines) {
  const std::string gin = kGin + "Sheriff,Off," + kNoPlace + ",Circle,";
  const std::string head = "1,155.475000,Sheriff Dispatch,Off,AUTO,";
  const std::string plain = head + "CTCSS,123.0,Law Dispatch" + kTail;
  const struct {
    const char* label;
    std::function<void(ImportOptions&, ConvRow&)> set;
    std::string department;  // the GIN line
    std::string page;        // the one page row
  } cases[] = {
      {"plain", [](ImportOptions&, ConvRow&) {}, gin, plain},
      {"',,' is no place", [](ImportOptions&, ConvRow& r) { r.gps = ",,"; }, gin, plain},
      {"quick key of department 1", [](ImportOptions& o, ConvRow&) { o.qkeysConventional = true; },
       gin + "1", plain},
      {"encrypted row locked out",
       [](ImportOptions& o, ConvRow& r) {
         o.lockoutEncrypted = true;
         r.enc = "1";
       },
       gin, "1,155.475000,Sheriff Dispatch,On,AUTO,CTCSS,123.0,Law Dispatch" + kTail},
      {"lockout leaves a clear row alone",
       [](ImportOptions& o, ConvRow&) { o.lockoutEncrypted = true; }, gin, plain},
      {"untagged row left untagged", [](ImportOptions&, ConvRow& r) { r.tag = ""; }, gin,
       head + "CTCSS,123.0," + kTail},
      {"untagged row takes the combo's service",
       [](ImportOptions& o, ConvRow& r) {
         r.tag = "";
         o.untaggedConventional = 3;
       },
       gin, head + "CTCSS,123.0,Fire Dispatch" + kTail},
      {"a tag without a name counts as untagged",
       [](ImportOptions& o, ConvRow& r) {
         r.tag = "35";
         o.untaggedConventional = 21;
       },
       gin, head + "CTCSS,123.0,Other" + kTail},
      {"Led columns of the row's service",
       [](ImportOptions& o, ConvRow&) {
         o.leds = {{true, "Fire Dispatch", "Green", "On"},
                   {true, "Law Dispatch", "Red", "Slow Blink"},
                   {false, "Law Dispatch", "Blue", "On"}};
       },
       gin, plain + ",Red,Slow Blink"},
      {"CSQ: All and Search", [](ImportOptions&, ConvRow& r) { r.tone = "CSQ"; }, gin,
       head + "All,Search,Law Dispatch" + kTail},
      {"mode 6 without colour code", [](ImportOptions&, ConvRow& r) { r.mode = "6"; }, gin,
       head + "DMR,Search,Law Dispatch" + kTail},
      {"short alpha and upper case",
       [](ImportOptions& o, ConvRow& r) {
         o.shortAlpha = true;
         o.upperCase = true;
         r.alpha = "hc so, disp";
       },
       gin, "1,155.475000,HC SO; DISP,Off,AUTO,CTCSS,123.0,Law Dispatch" + kTail},
  };
  for (const auto& c : cases) {
    Import im;
    ImportOptions o = ImportOptions::defaults();
    ConvRow r = row("155.475000", "Sheriff Dispatch", "123.0 PL", "2", "Sheriff");
    c.set(o, r);
    ASSERT_TRUE(im.conventional("Harbor", {r}, o).ok) << c.label;
    EXPECT_EQ(im.text("GRP-999-001-001"), c.department) << c.label;
    EXPECT_EQ(im.rows.load("GRP-999-001-001"), std::vector<std::string>{c.page}) << c.label;
  }
}

TEST(ConventionalImport, FourHundredthDepartmentTakesNoRows) {
  Import im;
  ImportOptions o = ImportOptions::defaults();
  o.qkeysConventional = true;
  std::vector<ConvRow> list;
  for (int d = 1; d <= 400; ++d) {
    list.push_back(row("155.475000", "Ch " + std::to_string(d), "", "2", "D" + std::to_string(d)));
  }
  list.push_back(row("155.500000", "Again", "", "2", "D120"));
  const ImportResult result = im.conventional("Big", list, o);
  ASSERT_TRUE(result.ok);
  // 399 first rows and the second row of D120.
  EXPECT_EQ(std::tie(result.departments, result.channels), std::make_tuple(399, 400));
  EXPECT_EQ(im.text("GRP-999-001-098"), kGin + "D98,Off," + kNoPlace + ",Circle,98");
  EXPECT_EQ(im.text("GRP-999-001-099"), kGin + "D99,Off," + kNoPlace + ",Circle,99");
  EXPECT_EQ(im.text("GRP-999-001-120"), kGin + "D120,Off," + kNoPlace + ",Circle,99");
  EXPECT_TRUE(im.doc.data.contains("GRP-999-001-399") && !im.doc.data.contains("GRP-999-001-400"));
  EXPECT_EQ(im.rows.departments(), 399u);
  EXPECT_EQ(
      im.rows.load("GRP-999-001-120"),
      (std::vector<std::string>{"1,155.475000,Ch 120,Off,AUTO,All,Search,Law Dispatch" + kTail,
                                "2,155.500000,Again,Off,AUTO,All,Search,Law Dispatch" + kTail}));
}

TEST(ConventionalImport, HarborCountyFromTheSimulatedService) {
  test::Loopback service;
  ASSERT_TRUE(service.started) << service.startError;
  RRQueries& q = service.q;
  ASSERT_EQ(q.login("demo", "demo").result, LoginOutcome::Result::LoggedIn);
  q.getCountyInfo(9011);
  ASSERT_EQ(q.countyInfo.ctid, 9011);
  const ImportOptions options = ImportOptions::defaults();
  std::vector<ConvRow> list;
  for (const RRCategory& cat : q.countyInfo.cats) {
    for (const RRSubcat& sub : cat.subcats) {
      q.getSubcatFreqs(sub.scid);
      auto rows = conventionalRows(q.subcatFreqs, cat, sub, options, "2026-01-01");
      list.insert(list.end(), rows.begin(), rows.end());
    }
  }
  ASSERT_EQ(list.size(), 10u);

  Import im;
  const ImportResult result = im.conventional(q.countyInfo.countyName, list, options);
  ASSERT_TRUE(result.ok) << result.message;
  EXPECT_EQ(std::tie(result.departments, result.channels), std::make_tuple(5, 10));
  EXPECT_EQ(im.text("SYS-001"),
            "SIN,Conventional,0,StateId=0,Harbor,Off,01/01/2010 10:00:00,Conventional,"
            ",,,,,,,,,,,,,,,001");
  EXPECT_EQ(im.text("GRP-999-001-001"), kGin + "Sheriff,Off,41.5,-90.51,15,Circle,");
  EXPECT_EQ(im.text("GRP-999-001-002"), kGin + "Fire; EMS & Rescue,Off,41.5,-90.51,15,Circle,");
  EXPECT_EQ(im.text("GRP-999-001-003"), kGin + "Police 'Downtown',Off,41.52,-90.55,5,Circle,");
  EXPECT_EQ(im.rows.load("GRP-999-001-001"),
            (std::vector<std::string>{
                "1,155.475000,Sheriff Dispatch,Off,AUTO,CTCSS,123.0,Law Dispatch" + kTail,
                "2,155.655000,Sheriff Car-to-Car,Off,AUTO,All,Search,Law Tac" + kTail,
                "3,460.350000,Sheriff Tactical; Encrypted,Off,AUTO,P25,293,Law Tac" + kTail}));
  EXPECT_EQ(im.rows.load("GRP-999-001-002"),
            (std::vector<std::string>{
                "1,154.130000,Fire Dispatch,Off,AUTO,DCS,023,Fire Dispatch" + kTail,
                "2,155.340000,EMS to Hospital,Off,AUTO,All,Search,Hospital" + kTail}));
  EXPECT_EQ(im.rows.load("GRP-999-001-003"),
            (std::vector<std::string>{
                "1,453.725000,Police 'Downtown' Dispatch,Off,AUTO,DMR,1,Law Dispatch" + kTail,
                "2,453.950000,Police Talk-around; Ch. 2,Off,AUTO,DMR,3,Law Talk" + kTail}));
  EXPECT_EQ(im.rows.load("GRP-999-001-004"),
            (std::vector<std::string>{
                "1,451.112500,Public Works; Streets,Off,AUTO,RAN,1,Public Works" + kTail}));
  EXPECT_EQ(
      im.rows.load("GRP-999-001-005"),
      (std::vector<std::string>{"1,146.940000,Harbor ARC Repeater,Off,AUTO,CTCSS,100.0,Ham" + kTail,
                                "2,146.520000,National Simplex,Off,AUTO,All,Search,Ham" + kTail}));
}

// ---- The trunked builder ----------------------------------------------------------------------

TEST(TrunkImport, MotorolaSystemWithDepartmentsAndTalkgroups) {
  Import im;
  TrunkSystem system = makeSystem("Motorola", "2");
  system.details.fleetmap = {"2", "A", "B", "2", "2", "2", "2", "2"};
  std::vector<SiteRow> sites = siteRows(system);
  sites.pop_back();
  const ImportResult result = im.trunked(system, makeTalkgroups(), sites);
  ASSERT_TRUE(result.ok) << result.message;
  // The name's comma becomes ";" (filter_sp); file number 3.
  EXPECT_EQ(im.text("SYS-001"),
            "SIN,Motorola,1,StateId=0,County; Net,Off,01/02/2024 03:04:05,Motorola,,,,,,,,,,,,,,,,"
            "003");
  EXPECT_EQ(im.text("FMP-001-000"), "FMP,0,1,2,0,0,0,0,0");
  // "Fire" is department 1 at its GPS text, "Police" 2 at no place; the third talkgroup
  // joins "Fire" (exact name) with tag 0 (no service) and mode DE -> All.
  EXPECT_EQ(im.text("GRP-999-001-001"), kGin + "Fire,Off,41.5,-81.5,10,,,");
  EXPECT_EQ(im.text("GRP-999-001-002"), kGin + "Police,Off,0.000000,-00.000000,0.0,,,");
  EXPECT_EQ(im.rows.load("GRP-999-001-001"),
            (std::vector<std::string>{
                "1,1001,Fire Dispatch,Off,Digital,Fire Dispatch,2,0,Off,Auto,,,,,Any",
                "2,1003,Fire Talk,Off,All,,2,0,Off,Auto,,,,,Any"}));
  EXPECT_EQ(im.rows.load("GRP-999-001-002"),
            (std::vector<std::string>{"1,1002,Law Tac,Off,Analog,Law Tac,2,0,Off,Auto,,,,,Any"}));
  EXPECT_EQ(im.text("SIT-001-001"), sif(5, "North Hill", "Standard"));
  EXPECT_EQ(std::tie(result.departments, result.channels, result.frequencies),
            std::make_tuple(2, 3, 3));
  EXPECT_EQ(im.doc.systems.get(1, 10), "1");
  EXPECT_TRUE(im.doc.visible.contains("SIT-001-001") && im.doc.visible.contains("GRP-999-001-002"));
}

// Each case: a system of two sites (3 and 2 frequencies) and the three talkgroups of
// makeTalkgroups, changed as the case says; the lines it must make.
TEST(TrunkImport, OptionsAndTypesShapeTheLines) {
  const std::string noPlace = "0.000000,-00.000000,0.0";
  const struct {
    const char* label;
    std::string type, flavor;
    std::function<void(ImportOptions&, TrunkSystem&, std::vector<TalkgroupRow>&,
                       std::vector<SiteRow>&)>
        set;
    std::vector<std::pair<std::string, std::string>> lines;  // key -> line ("" for none)
    std::vector<std::string> messages;
  } cases[] = {
      {"quick keys and the untagged service", "Motorola", "2",
       [](ImportOptions& o, TrunkSystem&, std::vector<TalkgroupRow>&, std::vector<SiteRow>&) {
         o.qkeysTrunk = o.qkeysSites = true;
         o.untaggedTrunk = 21;  // "Other"
       },
       {{"GRP-999-001-002", kGin + "Police,Off," + noPlace + ",,2,"},
        {"SIT-001-002", sif(6, "South", "Standard", ",,,2,,,,,,,,")},  // the quick key
        {"row 2", "2,1003,Fire Talk,Off,All,Other,2,0,Off,Auto,,,,,Any"}},
       {}},
      {"splinter site with a band plan, rebanded site with the fixed one", "Motorola", "2",
       [](ImportOptions&, TrunkSystem& s, std::vector<TalkgroupRow>& t, std::vector<SiteRow>& r) {
         s.details.bandplan = {{"406.1", "0", "12.5"}, {"407.0", "380", "12.5"}};
         t.clear();
         r[0].splinter = true;
         r[1].rebanded = true;
       },
       // 406.1 + 379 * 0.0125 = 410.8375; 407.0 + 379 * 0.0125 = 411.7375.
       {{"MCP-001-001",
         "MCP,type,406.1000,410.8375,12.5,0,407.0000,411.7375,12.5,380,,,,,,,,,,,,,,,,"},
        {"MCP-001-002", kRebandedPlanLine},
        {"SIT-001-001", sif(5, "North Hill", "Splinter")},
        {"SIT-001-002", sif(6, "South", "Custom/Rebanded")}},
       {}},
      {"splinter and rebanded hold only for Motorola", "Edacs", "8",
       [](ImportOptions&, TrunkSystem&, std::vector<TalkgroupRow>& t, std::vector<SiteRow>& r) {
         t.clear();
         r.resize(1);
         r[0].splinter = r[0].rebanded = true;
       },
       {{"MCP-001-001", ""}, {"SIT-001-001", sif(5, "North Hill", "Standard")}},
       {}},
      {"LTR: Motorola in the header, padded ids, the warning for two sites", "LTR", "12",
       [](ImportOptions&, TrunkSystem&, std::vector<TalkgroupRow>&, std::vector<SiteRow>&) {},
       {{"SYS-001",
         "SIN,LTR,1,StateId=0,County; Net,Off,01/02/2024 03:04:05,Motorola,,,,,,,,,,,,,,,,003"},
        {"row 1", "1,001001,Fire Dispatch,Off,Digital,Fire Dispatch,2,0,Off,Auto,,,,,Any"}},
       {"Warning: You selected more than one site, your scanner may not trunk this system "
        "properly.\nPlease select only one site."}},
      {"no talkgroup: the default department", "Project 25", "33",
       [](ImportOptions&, TrunkSystem&, std::vector<TalkgroupRow>& t, std::vector<SiteRow>&) {
         t.clear();
       },
       {{"GRP-999-001-000", kGin + "Department: 1 ,Off," + noPlace + ",,,"}},
       {}},
      {"EDACS as AFS, rows without the slot", "Edacs", "8",
       [](ImportOptions& o, TrunkSystem&, std::vector<TalkgroupRow>& t, std::vector<SiteRow>& r) {
         o.edacsAfs = true;
         t.resize(1);
         t[0].id = "341";  // agency bits 10-7 = 2, fleet bits 6-3 = 10, subfleet 5
         r.resize(1);
       },
       {{"row 1", "1,02-105,Fire Dispatch,Off,Digital,Fire Dispatch,2,0,Off,Auto,,,,,"}},
       {}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.label);
    Import im;
    ImportOptions o = gpsOptions();
    TrunkSystem system = makeSystem(c.type, c.flavor);
    std::vector<TalkgroupRow> talkgroups = makeTalkgroups();
    std::vector<SiteRow> sites = siteRows(system);
    c.set(o, system, talkgroups, sites);
    ASSERT_TRUE(im.trunked(system, talkgroups, sites, o).ok);
    const std::vector<std::string> rows = im.rows.load("GRP-999-001-001");
    for (const auto& [key, line] : c.lines) {
      if (key.rfind("row ", 0) == 0) {
        const std::size_t n = std::stoul(key.substr(4));
        ASSERT_GE(rows.size(), n) << key;
        EXPECT_EQ(rows[n - 1], line) << key;
      } else {
        EXPECT_EQ(im.text(key), line) << key;
      }
    }
    EXPECT_EQ(im.feedback.messages, c.messages);
  }
}

TEST(TrunkImport, AHundredFrequenciesASite) {
  Import im;
  TrunkSystem system = makeSystem("Edacs", "8");
  system.sites = {makeSite(1, "Big", 120)};
  system.sites[0].siteFreqs[0].freq = "0000.000000";  // skipped, not counted
  const ImportResult result = im.trunked(system, {}, siteRows(system));
  ASSERT_TRUE(result.ok);
  EXPECT_EQ(result.frequencies, 100);
  EXPECT_TRUE(im.doc.data.contains("TFQ-001-001-100") && !im.doc.data.contains("TFQ-001-001-101"));
  // The first kept is LCN 2; the hundredth LCN 101.
  EXPECT_EQ(record::field(im.text("TFQ-001-001-001"), 2) + "|" +
                record::field(im.text("TFQ-001-001-100"), 2),
            "2|101");
  EXPECT_EQ(treemod::getText(im.doc.frequencies, "TFQ-001-001-100"), im.text("TFQ-001-001-100"));
}

TEST(TrunkImport, TalkgroupFilterKeepsRowsOutOfTheList) {
  TrunkSystem system = makeSystem("Project 25", "33");
  RRTalkgroupCat cat;
  cat.tgCname = "Ops";
  std::vector<RRTalkgroup> tgs(5);
  const std::pair<const char*, const char*> kinds[] = {
      {"A", "0"}, {"D", "0"}, {"T", "0"}, {"D", "2"}, {"D", "1"}};
  for (std::size_t i = 0; i < tgs.size(); ++i) {
    tgs[i].tgDec = static_cast<int>(100 + i);
    tgs[i].tgMode = kinds[i].first;
    tgs[i].enc = kinds[i].second;
  }
  const struct {
    TalkgroupKind off;
    std::vector<std::string> ids;
  } cases[] = {
      {tgAnalog, {"101", "102", "103", "104"}},
      {tgDigital, {"100", "102"}},
      {tgTdma, {"100", "101", "103", "104"}},
      {tgFullEncrypted, {"100", "101", "102", "104"}},
      {tgPartialEncrypted, {"100", "101", "102", "103"}},
  };
  for (const auto& c : cases) {
    ImportOptions o;
    o.talkgroupFilter[c.off] = false;
    std::vector<std::string> ids;
    for (const TalkgroupRow& r : talkgroupRows(tgs, cat, system, o, 1)) ids.push_back(r.id);
    EXPECT_EQ(ids, c.ids) << c.off;
  }
}

// ---- Both builders ----------------------------------------------------------------------------

TEST(Import, RefusalsLeaveTheDocumentAlone) {
  const auto fill = [](int nodes) {
    return [nodes](Document& doc) {
      for (int n = 0; n < nodes; ++n) doc.data.add({}, "X-" + std::to_string(n), "x");
    };
  };
  const auto conventional = [](bool ticked) {
    return [ticked](Import& im) {
      ConvRow r = row("155.475000", "Sheriff", "", "2", "Sheriff");
      r.ticked = ticked;
      return im.conventional("Harbor, County", {r});
    };
  };
  const auto trunked = [](const std::string& type, bool sites, bool filters) {
    return [=](Import& im) {
      TrunkSystem system = makeSystem(type, "0");
      ImportOptions o = gpsOptions();
      if (!filters) o.talkgroupFilter.fill(false);
      return im.trunked(system, makeTalkgroups(), sites ? siteRows(system) : std::vector<SiteRow>{},
                        o);
    };
  };
  const std::string full = "Out of storage space, reached storage limit (30000 objects).";
  const struct {
    const char* label;
    std::function<void(Document&)> prepare;
    std::function<ImportResult(Import&)> run;
    std::string message;  // "" when the import goes ahead
  } cases[] = {
      {"no ticked row", fill(0), conventional(false),
       "Please select at least one frequency for import."},
      {"conventional over 30000 nodes", fill(30001), conventional(true), full},
      {"conventional at 30000 nodes", fill(30000), conventional(true), ""},
      {"no free system number",
       [](Document& doc) {
         for (int n = 1; n <= 999; ++n) doc.data.add({}, keys::system(n), "SIN");
       },
       conventional(true), "Error, can not create new system: Harbor; County"},
      {"no site", fill(0), trunked("Motorola", false, true), "Please select at least one site."},
      {"every filter off", fill(0), trunked("Motorola", true, false),
       "Error: all tg filters are disabled"},
      {"unknown type", fill(0), trunked("TETRA", true, true),
       "trunk system type not supported by this scanner model"},
      {"trunked over 30000 nodes", fill(30001), trunked("Motorola", true, true), full},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.label);
    Import im;
    c.prepare(im.doc);
    const std::size_t before = im.doc.data.count();
    const ImportResult result = c.run(im);
    EXPECT_EQ(result.ok, c.message.empty());
    if (result.ok) continue;
    EXPECT_EQ(result.message, c.message);
    EXPECT_EQ(im.feedback.messages, std::vector<std::string>{c.message});
    EXPECT_EQ(std::make_pair(im.doc.data.count(), im.rows.departments()),
              std::make_pair(before, std::size_t{0}));
    EXPECT_TRUE(im.doc.visible.empty() && !im.doc.changed);
  }
}

// A conventional, a P25 and an EDACS system in one document are ordinary systems: the file
// written of them reads back to the same counts and writes again to the same bytes.
TEST(Import, WrittenFileReadsBackToTheSameLines) {
  Import im;
  ImportOptions o = ImportOptions::defaults();
  o.qkeysConventional = true;
  o.leds = {{true, "Law Dispatch", "Red", "Slow Blink"}};
  ConvRow sheriff = row("155.475000", "Sheriff Dispatch", "123.0 PL", "2", "Sheriff");
  sheriff.gps = "41.5,-90.51,15";
  ConvRow dmr = row("453.725000", "Police Dispatch", "1 CC", "23", "Police", "6");
  dmr.colorCode = "1";
  const std::vector<ConvRow> list = {
      sheriff,
      row("155.655000", "Sheriff Car-to-Car", "CSQ", "7", "Sheriff"),
      row("154.130000", "Fire Dispatch", "023 DPL", "3", "Fire"),
      row("460.350000", "Sheriff Tactical", "293 NAC", "7", "Sheriff", "4"),
      dmr,
      row("451.112500", "Public Works", "1 RAN", "14", "Works", "7"),
      row("146.520000", "Simplex", "", "13", "Ham"),
  };
  ASSERT_TRUE(im.conventional("Harbor", list, o, 0).ok);
  for (const std::string type : {"Project 25", "Edacs"}) {
    TrunkSystem system = makeSystem(type, type == "Edacs" ? "8" : "33");
    system.sites[0].nac = "2F1";
    std::vector<SiteRow> sites = siteRows(system);
    sites.resize(1);
    ASSERT_TRUE(im.trunked(system, makeTalkgroups(), sites, gpsOptions(), 0).ok) << type;
  }

  RecordingFeedback feedback;
  formats::HpdWriteResult written;
  const std::string first = formats::renderHpd(im.doc, im.rows, {}, feedback, written);
  ASSERT_TRUE(written.ok()) << written.message;
  ASSERT_NE(first.find("T-Freq"), std::string::npos);

  Document again;
  formats::MemoryRows againRows;
  formats::HpdReadOptions readOptions;
  const formats::HpdReadResult read =
      formats::readHpdText(again, againRows, first, "", readOptions, feedback);
  ASSERT_TRUE(read.ok()) << read.message;
  EXPECT_TRUE(read.skipped.empty());
  EXPECT_EQ(std::tie(read.counts.systems, read.counts.channels, read.counts.talkgroups,
                     read.counts.frequencies),
            std::make_tuple(3, 7, 6, 6));

  formats::HpdWriteResult rewritten;
  EXPECT_EQ(formats::renderHpd(again, againRows, {}, feedback, rewritten), first);

  // The reader numbers departments from 0, and fills the columns the import leaves out
  // (alert light and pattern, number tag, priority) with their defaults: each imported row
  // reads back as the start of its row.
  for (int d = 1; d <= 5; ++d) {
    const std::string imported = keys::department(1, d), readBack = keys::department(1, d - 1);
    SCOPED_TRACE(imported);
    EXPECT_EQ(again.data.text(again.data.find(readBack)).substr(0, 4), "GIN,");
    const auto mine = im.rows.load(imported);
    const auto theirs = againRows.load(readBack);
    ASSERT_EQ(theirs.size(), mine.size());
    for (std::size_t i = 0; i < mine.size(); ++i) {
      EXPECT_EQ(theirs[i].substr(0, mine[i].size()), mine[i]);
      EXPECT_EQ(theirs[i].size() > mine[i].size() ? theirs[i][mine[i].size()] : ',', ',');
    }
  }
}

// ---- The line rules at the edges the builders above and the real-data imports do not reach --

TrunkSystem typed(std::string type, std::string flavor, std::string flavorText = "",
                  std::string band = "") {
  TrunkSystem s;
  s.typeName = std::move(type);
  s.flavorCode = std::move(flavor);
  s.flavorText = std::move(flavorText);
  s.bandLabel = std::move(band);
  return s;
}

TalkgroupRow tg(std::string id, std::string subfleet = "") {
  TalkgroupRow r;
  r.id = std::move(id);
  r.subfleet = std::move(subfleet);
  return r;
}

TEST(TrunkLines, RulesAtTheirEdges) {
  using F = TrunkFamily;
  SiteFreqRow nxdn;
  nxdn.freq = "851.0125";
  nxdn.lcn = "7";
  nxdn.ran = "2";
  const std::vector<LedRule> leds = {{false, "Law Dispatch", "Red", "On"},
                                     {true, "Law Dispatch", "Blue", "Slow Blink"}};
  const std::pair<std::string, std::string> rows[] = {
      {importType(typed("Motorola", "2", "Type II", "VHF")), "MOT VHF/UHF"},
      {importType(typed("EDACS", "10", "Narrowband")), "EDACS NARROW"},
      {importType(typed("Edacs", "11", "Narrowband Networked")), "EDACS NARROW"},
      {importType(typed("NXDN", "45", "Conventional Networked")), "Nxdn One Frequency"},
      {importType(typed("Project 25", "20", "Phase I")), "P25 AUTO"},
      {importType(typed("", "0")), ""},
      {headerDate("2001-02-03 04:05:06"), "02/03/2001 04:05:06"},
      {headerDate(""), "10-10-2001 10:10:10"},
      {headerDate("yesterday, noon"), "yesterday; noon"},
      {talkgroupId(tg("12345"), F::Ltr, false, "12"), "012345"},
      {talkgroupId(tg("123456"), F::Ltr, false, "12"), "123456"},
      {talkgroupId(tg("0", "10234"), F::Ltr, false, "12"), "010234"},  // the subfleet form
      {talkgroupId(tg("", "04-123"), F::Edacs, true, "8"), "04-123"},
      {talkgroupId(tg("341"), F::Other, true, "33"), "341"},
      {talkgroupId(tg("12345"), F::Other, false, "36"), "01-2345"},
      {talkgroupId(tg("123456"), F::Other, false, "36"), "12-3456"},
      {talkgroupId(tg("1234"), F::Other, false, "36"), "1234"},
      {talkgroupMode("a") + talkgroupMode("M") + talkgroupMode("") + talkgroupMode("TE"),
       "AnalogAllAllAll"},
      {talkgroupLines("52351", "Dispatch", "Digital", "Law Dispatch", false, leds).grid,
       "52351,Dispatch,Off,Digital,Law Dispatch,2,0,Off,Auto,Blue,Slow Blink,,,Any"},
      {siteTail({"Motorola", "2", true, false, false, ""}),
       ",AUTO,Custom/Rebanded,Wide,Circle,0,,,,,,,,,,,,"},
      {siteTail({"Edacs", "10", false, false, false, ""}),
       ",AUTO,Standard,Narrow,Circle,0,,,,,,,,,,,,"},
      {siteTail({"Project 25", "33", true, false, false, "1F2H"}),
       ",AUTO,Standard,Wide,Circle,0,,,,1F2,,,,,,,"},
      {bandPlanLine({{"851.025", "440", "25"}, {"851.0125", "0", "25"}}, false),
       kRebandedPlanLine},
      {bandPlanLine({}, false), ""},
      {ranText("RAN=99", false) + ranText("99", false) + ranText("RAN>99", false) +
           ranText("", false),
       "SrchSrchSrchSrch"},
      {ranText("RAN=5", true), "Area=5"},
      {siteFrequencyLine(nxdn, FrequencyForm::Nxdn, true), "TFQ,851.012500,7,,Area=2"},
      {fleetMapLine({"2", "A", "B", "C", "D", "E", "F", "Q"}), "FMP,0,1,2,3,4,5,6,14"},
      {fleetMapLine({"G", "H", "I", "J", "K", "M", "O", "2"}), "FMP,7,8,9,10,11,12,13,0"},
      {fleetMapLine({}), ""},
  };
  for (std::size_t i = 0; i < std::size(rows); ++i) {
    EXPECT_EQ(rows[i].first, rows[i].second) << "row " << i + 1;
  }
}

TEST(TrunkLines, ControlChannelOptions) {
  const struct {
    bool pri, alt, all;
    bool d, a, none;  // taken: "d", "a", ""
  } rows[] = {
      {false, false, false, true, true, true}, {true, false, false, true, false, true},
      {false, true, false, false, true, true}, {true, true, false, true, true, true},
      {false, false, true, true, true, true},  {true, false, true, true, true, true},
  };
  for (const auto& r : rows) {
    ImportOptions o;
    o.ccPrimary = r.pri;
    o.ccAlternate = r.alt;
    o.ccAll = r.all;
    EXPECT_EQ(controlChannelTaken("d", o), r.d) << r.pri << r.alt << r.all;
    EXPECT_EQ(controlChannelTaken("a", o), r.a) << r.pri << r.alt << r.all;
    EXPECT_EQ(controlChannelTaken("", o), r.none) << r.pri << r.alt << r.all;
  }
}

}  // namespace
}  // namespace zel::radioref
