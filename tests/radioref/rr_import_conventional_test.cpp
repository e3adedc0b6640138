// The conventional import: the list rows made from fetched frequencies, and the builder that
// makes a system of the ticked rows. Expected record lines and page rows are written out from
// the rules by hand; the last tests write the imported system as a favorites file and read it
// back, and import the simulated service's Harbor county end to end.
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "core/document.h"
#include "core/keys.h"
#include "core/memory_ports.h"
#include "formats/hpd_reader.h"
#include "formats/hpd_writer.h"
#include "formats/row_store.h"
#include "radioref/rr_import.h"
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

struct Import {
  Document doc;
  formats::MemoryRows rows;
  RecordingFeedback feedback;
  ImportResult run(const std::string& name, const std::vector<ConvRow>& list,
                   const ImportOptions& options = ImportOptions::defaults(), int file = 1) {
    return maak_detemp245({doc, rows, feedback, file}, name, list, options);
  }
};

// ---- The list rows --------------------------------------------------------------------------

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

struct FilterCase {
  const char* label;
  std::function<void(ImportOptions&)> set;
  std::vector<int> kept;  // fids
};

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
  const std::vector<FilterCase> cases = {
      {"defaults keep all", [](ImportOptions&) {}, {1, 2, 3, 4, 5, 6}},
      {"encrypted", [](ImportOptions& o) { o.skipEncrypted = true; }, {1, 3, 4, 5, 6}},
      {"telemetry", [](ImportOptions& o) { o.skipTelemetry = true; }, {1, 2, 4, 5, 6}},
      {"service filter off ignores the tags",
       [](ImportOptions& o) { o.serviceTags = {2}; },
       {1, 2, 3, 4, 5, 6}},
      {"service filter: law dispatch and untagged",
       [](ImportOptions& o) {
         o.serviceFilter = true;
         o.serviceTags = {2};
       },
       {1, 4}},
      {"updated in the last 7 days", [](ImportOptions& o) { o.updatedDays = 7; }, {1, 2, 3, 4}},
      {"updated in the last 30 days",
       [](ImportOptions& o) { o.updatedDays = 30; },
       {1, 2, 3, 4, 5}},
  };
  RRCategory category{900001, "Harbor County", {}};
  RRSubcat subcat{900101, "Sheriff", 41.5, -90.51, 15, {}};
  for (const FilterCase& c : cases) {
    SCOPED_TRACE(c.label);
    ImportOptions o = ImportOptions::defaults();
    c.set(o);
    std::vector<int> kept;
    for (const ConvRow& r : conventionalRows(freqs, category, subcat, o, "2024-03-10")) {
      kept.push_back(r.fid);
    }
    EXPECT_EQ(kept, c.kept);
  }
}

TEST(ConventionalRows, FieldsOfARow) {
  RRFrequency f = frequency(9000006, "88.5", 2, "6");
  f.descr = "Police, \"Downtown\"\tDispatch\r\n";
  f.alpha = "HPD, Dwntwn";
  f.tone = "1 CC";
  f.colorCode = "1";
  f.slot = "2";
  f.tg = "101";
  f.enc = 1;
  f.tags.push_back({7, ""});
  RRFrequency dstar = frequency(7, "145.670", 13, "10");
  RRFrequency usb = frequency(8, "145.670", 13, "9");
  RRFrequency nxdn = frequency(9, "451.1125", 14, "7");
  const auto rows = conventionalRows({f, dstar, usb, nxdn}, {900002, "Harbor, City", {}},
                                     {900103, "Police \"Downtown\"", 41.52, -90.55, 5, {}},
                                     ImportOptions::defaults(), "2024-03-10");
  ASSERT_EQ(rows.size(), 4u);
  const ConvRow& r = rows[0];
  EXPECT_EQ(r.frequency, "088.500000");
  EXPECT_EQ(r.descr, "Police; 'Downtown'Dispatch");
  EXPECT_EQ(r.alpha, "HPD; Dwntwn");
  EXPECT_EQ(r.tone, "1 CC");
  EXPECT_EQ(r.department, "Police 'Downtown'");
  EXPECT_EQ(r.category, "Police 'Downtown' / Harbor; City");
  EXPECT_EQ(r.tag, "2");
  EXPECT_EQ(r.service, "Law Dispatch");
  EXPECT_EQ(r.gps, "41.52,-90.55,5");
  EXPECT_EQ(r.mode, "6");
  EXPECT_EQ(r.colorCode, "1");
  EXPECT_EQ(r.slot, "2");
  EXPECT_EQ(r.enc, "1");
  EXPECT_EQ(r.tg, "101");
  EXPECT_EQ(r.scid, 900103);
  EXPECT_EQ(r.fid, 9000006);
  EXPECT_FALSE(r.unsupported);
  EXPECT_TRUE(r.ticked);
  // D-STAR (10) and USB (9) are marked and start unticked; NXDN (7) is held.
  EXPECT_TRUE(rows[1].unsupported && !rows[1].ticked);
  EXPECT_TRUE(rows[2].unsupported && !rows[2].ticked);
  EXPECT_FALSE(rows[3].unsupported);
  EXPECT_EQ(rows[3].frequency, "451.112500");
}

// ---- The builder ----------------------------------------------------------------------------

TEST(ConventionalImport, MakesTheSystemDepartmentsAndRows) {
  Import im;
  ConvRow unticked = row("151.000000", "Never", "", "2", "Unused");
  unticked.ticked = false;
  ConvRow fire = row("154.130000", "Fire Dispatch", "023 DPL", "3", "Fire; EMS");
  fire.gps = "0,0,0";
  ConvRow sheriff = row("155.475000", "Sheriff Dispatch", "123.0 PL", "2", "Sheriff");
  sheriff.alpha = "HC SO Disp";
  sheriff.gps = "41.5,-90.51,15";
  ConvRow tac = row("460.350000", "Sheriff Tac", "293 NAC", "7", "Sheriff", "4");
  tac.gps = "1,2,3";  // a department keeps the place of the row that made it
  const ImportResult result = im.run("Harbor, County", {unticked, sheriff, fire, tac});
  ASSERT_TRUE(result.ok) << result.message;
  EXPECT_EQ(result.systemKey, "SYS-001");
  EXPECT_EQ(result.departments, 2);
  EXPECT_EQ(result.channels, 3);
  EXPECT_TRUE(im.feedback.messages.empty());

  const DocumentTree& data = im.doc.data;
  EXPECT_EQ(data.text(data.find("SYS-001")),
            "SIN,Conventional,0,StateId=0,Harbor; County,Off,01/01/2010 10:00:00,Conventional,"
            ",,,,,,,,,,,,,,,001");
  const NodeId sheriffNode = data.find("GRP-999-001-001");
  ASSERT_NE(sheriffNode, kNoNode);
  EXPECT_EQ(data.key(data.parent(sheriffNode)), "SYS-001");
  EXPECT_EQ(data.text(sheriffNode), kGin + "Sheriff,Off,41.5,-90.51,15,Circle,");
  EXPECT_EQ(data.text(data.find("GRP-999-001-002")),
            kGin + "Fire; EMS,Off," + kNoPlace + ",Circle,");
  EXPECT_FALSE(data.contains("GRP-999-001-003"));
  EXPECT_EQ(data.count(), 3u);

  EXPECT_EQ(im.rows.load("GRP-999-001-001"),
            (std::vector<std::string>{
                "1,155.475000,Sheriff Dispatch,Off,AUTO,CTCSS,123.0,Law Dispatch" + kTail,
                "2,460.350000,Sheriff Tac,Off,AUTO,P25,293,Law Tac" + kTail}));
  EXPECT_EQ(im.rows.load("GRP-999-001-002"),
            (std::vector<std::string>{"1,154.130000,Fire Dispatch,Off,AUTO,DCS,023,Fire Dispatch" +
                                      kTail}));

  EXPECT_TRUE(im.doc.systems.inUse(1));
  EXPECT_EQ(im.doc.systems.get(1, 1), "Harbor; County");
  EXPECT_EQ(im.doc.systems.get(1, 10), "0");
  EXPECT_TRUE(im.doc.visible.contains("GRP-999-001-002"));
  EXPECT_TRUE(im.doc.changed);

  // A second import takes the next free system number.
  EXPECT_EQ(im.run("Second", {sheriff}).systemKey, "SYS-002");
}

struct OptionCase {
  const char* label;
  std::function<void(ImportOptions&, ConvRow&)> set;
  std::string department;  // the GIN line
  std::string page;        // the one page row
};

TEST(ConventionalImport, OptionsShapeTheLines) {
  const std::string gin = kGin + "Sheriff,Off," + kNoPlace + ",Circle,";
  const std::string head = "1,155.475000,Sheriff Dispatch,";
  const std::vector<OptionCase> cases = {
      {"plain", [](ImportOptions&, ConvRow&) {}, gin,
       head + "Off,AUTO,CTCSS,123.0,Law Dispatch" + kTail},
      {"quick key of department 1", [](ImportOptions& o, ConvRow&) { o.qkeysConventional = true; },
       gin + "1", head + "Off,AUTO,CTCSS,123.0,Law Dispatch" + kTail},
      {"encrypted row locked out",
       [](ImportOptions& o, ConvRow& r) {
         o.lockoutEncrypted = true;
         r.enc = "1";
       },
       gin, head + "On,AUTO,CTCSS,123.0,Law Dispatch" + kTail},
      {"lockout leaves a clear row alone",
       [](ImportOptions& o, ConvRow&) { o.lockoutEncrypted = true; }, gin,
       head + "Off,AUTO,CTCSS,123.0,Law Dispatch" + kTail},
      {"untagged row left untagged", [](ImportOptions&, ConvRow& r) { r.tag = ""; }, gin,
       head + "Off,AUTO,CTCSS,123.0," + kTail},
      {"untagged row takes the combo's service",
       [](ImportOptions& o, ConvRow& r) {
         r.tag = "";
         o.untaggedConventional = 3;
       },
       gin, head + "Off,AUTO,CTCSS,123.0,Fire Dispatch" + kTail},
      {"a tag without a name counts as untagged",
       [](ImportOptions& o, ConvRow& r) {
         r.tag = "35";
         o.untaggedConventional = 21;
       },
       gin, head + "Off,AUTO,CTCSS,123.0,Other" + kTail},
      {"Led columns of the row's service",
       [](ImportOptions& o, ConvRow&) {
         o.leds = {{true, "Fire Dispatch", "Green", "On"},
                   {true, "Law Dispatch", "Red", "Slow Blink"},
                   {false, "Law Dispatch", "Blue", "On"}};
       },
       gin, head + "Off,AUTO,CTCSS,123.0,Law Dispatch" + kTail + ",Red,Slow Blink"},
      {"CSQ: All and Search", [](ImportOptions&, ConvRow& r) { r.tone = "CSQ"; }, gin,
       head + "Off,AUTO,All,Search,Law Dispatch" + kTail},
      {"mode 6 without colour code", [](ImportOptions&, ConvRow& r) { r.mode = "6"; }, gin,
       head + "Off,AUTO,DMR,Search,Law Dispatch" + kTail},
      {"1 CC with colour code 1",
       [](ImportOptions&, ConvRow& r) {
         r.tone = "1 CC";
         r.colorCode = "1";
       },
       gin, head + "Off,AUTO,DMR,1,Law Dispatch" + kTail},
      {"short alpha and upper case",
       [](ImportOptions& o, ConvRow& r) {
         o.shortAlpha = true;
         o.upperCase = true;
         r.alpha = "hc so, disp";
       },
       gin, "1,155.475000,HC SO; DISP,Off,AUTO,CTCSS,123.0,Law Dispatch" + kTail},
  };
  for (const OptionCase& c : cases) {
    SCOPED_TRACE(c.label);
    Import im;
    ImportOptions o = ImportOptions::defaults();
    ConvRow r = row("155.475000", "Sheriff Dispatch", "123.0 PL", "2", "Sheriff");
    c.set(o, r);
    ASSERT_TRUE(im.run("Harbor", {r}, o).ok);
    EXPECT_EQ(im.doc.data.text(im.doc.data.find("GRP-999-001-001")), c.department);
    EXPECT_EQ(im.rows.load("GRP-999-001-001"), std::vector<std::string>{c.page});
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
  const ImportResult result = im.run("Big", list, o);
  ASSERT_TRUE(result.ok);
  EXPECT_EQ(result.departments, 399);
  EXPECT_EQ(result.channels, 400);  // 399 first rows and the second row of D120
  const DocumentTree& data = im.doc.data;
  EXPECT_EQ(data.text(data.find("GRP-999-001-098")), kGin + "D98,Off," + kNoPlace + ",Circle,98");
  EXPECT_EQ(data.text(data.find("GRP-999-001-099")), kGin + "D99,Off," + kNoPlace + ",Circle,99");
  EXPECT_EQ(data.text(data.find("GRP-999-001-120")), kGin + "D120,Off," + kNoPlace + ",Circle,99");
  EXPECT_TRUE(data.contains("GRP-999-001-399"));
  EXPECT_FALSE(data.contains("GRP-999-001-400"));
  EXPECT_EQ(im.rows.departments(), 399u);
  EXPECT_EQ(
      im.rows.load("GRP-999-001-120"),
      (std::vector<std::string>{"1,155.475000,Ch 120,Off,AUTO,All,Search,Law Dispatch" + kTail,
                                "2,155.500000,Again,Off,AUTO,All,Search,Law Dispatch" + kTail}));
}

struct RefusalCase {
  const char* label;
  std::function<void(Document&)> prepare;
  bool ticked;
  std::string message;
};

TEST(ConventionalImport, RefusalsLeaveTheDocumentAlone) {
  const std::vector<RefusalCase> cases = {
      {"no ticked row", [](Document&) {}, false,
       "Please select at least one frequency for import."},
      {"tree over 30000 nodes",
       [](Document& doc) {
         for (int n = 0; n <= 30000; ++n) doc.data.add({}, "X-" + std::to_string(n), "x");
       },
       true, "Out of storage space, reached storage limit (30000 objects)."},
      {"no free system number",
       [](Document& doc) {
         for (int n = 1; n <= 999; ++n) doc.data.add({}, keys::system(n), "SIN");
       },
       true, "Error, can not create new system: Harbor; County"},
  };
  for (const RefusalCase& c : cases) {
    SCOPED_TRACE(c.label);
    Import im;
    c.prepare(im.doc);
    const std::size_t before = im.doc.data.count();
    ConvRow r = row("155.475000", "Sheriff", "", "2", "Sheriff");
    r.ticked = c.ticked;
    const ImportResult result = im.run("Harbor, County", {r});
    EXPECT_FALSE(result.ok);
    EXPECT_EQ(result.message, c.message);
    EXPECT_EQ(im.feedback.messages, std::vector<std::string>{c.message});
    EXPECT_EQ(im.doc.data.count(), before);
    EXPECT_EQ(im.rows.departments(), 0u);
    EXPECT_TRUE(im.doc.visible.empty());
    EXPECT_FALSE(im.doc.changed);
  }
}

TEST(ConventionalImport, ExactlyThirtyThousandNodesStillImports) {
  Import im;
  for (int n = 1; n <= 30000; ++n) im.doc.data.add({}, "X-" + std::to_string(n), "x");
  EXPECT_TRUE(im.run("Harbor", {row("155.475000", "Sheriff", "", "2", "Sheriff")}).ok);
  EXPECT_EQ(im.doc.data.count(), 30002u);
}

// ---- An ordinary system of the document -----------------------------------------------------

TEST(ConventionalImport, WrittenFileReadsBackToTheSameLines) {
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
  ASSERT_TRUE(im.run("Harbor", list, o, 0).ok);

  RecordingFeedback feedback;
  formats::HpdWriteResult written;
  const std::string first = formats::renderHpd(im.doc, im.rows, {}, feedback, written);
  ASSERT_TRUE(written.ok()) << written.message;

  Document again;
  formats::MemoryRows againRows;
  formats::HpdReadOptions readOptions;
  const formats::HpdReadResult read =
      formats::readHpdText(again, againRows, first, "", readOptions, feedback);
  ASSERT_TRUE(read.ok()) << read.message;
  EXPECT_TRUE(read.skipped.empty());
  EXPECT_EQ(read.counts.systems, 1);
  EXPECT_EQ(read.counts.departments, 5);
  EXPECT_EQ(read.counts.channels, 7);

  formats::HpdWriteResult rewritten;
  const std::string second = formats::renderHpd(again, againRows, {}, feedback, rewritten);
  ASSERT_TRUE(rewritten.ok());
  EXPECT_EQ(second, first);

  // The reader numbers departments from 0, and fills the columns the import leaves out
  // (alert light and pattern, number tag, priority) with their defaults: each imported row
  // reads back as the start of its row.
  const std::vector<std::pair<std::string, std::string>> pairs = {
      {"GRP-999-001-001", "GRP-999-001-000"},
      {"GRP-999-001-002", "GRP-999-001-001"},
      {"GRP-999-001-003", "GRP-999-001-002"},
      {"GRP-999-001-004", "GRP-999-001-003"},
      {"GRP-999-001-005", "GRP-999-001-004"}};
  for (const auto& [imported, readBack] : pairs) {
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

// ---- The simulated service, end to end ------------------------------------------------------

TEST(ConventionalImport, HarborCountyFromTheSimulatedService) {
  TestFolder folder;
  sim::RadioRefSim sim{sim::RadioRefSimOptions{}};
  std::string error;
  ASSERT_TRUE(sim.start(&error)) << error;
  test::LoopbackTransport http;
  RecordingFeedback feedback;
  ManualClock clock;
  SoapClient client(http, feedback, clock);
  client.BaseUrl = sim.endpoint();
  client.WorkFolder = folder.path();
  client.documentsFolder = folder.path();
  client.appKeySetting = "12345678";
  RRQueries q(client);
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
  const ImportResult result = im.run(q.countyInfo.countyName, list, options);
  ASSERT_TRUE(result.ok) << result.message;
  EXPECT_EQ(result.departments, 5);
  EXPECT_EQ(result.channels, 10);
  const DocumentTree& data = im.doc.data;
  EXPECT_EQ(data.text(data.find("SYS-001")),
            "SIN,Conventional,0,StateId=0,Harbor,Off,01/01/2010 10:00:00,Conventional,"
            ",,,,,,,,,,,,,,,001");
  EXPECT_EQ(data.text(data.find("GRP-999-001-001")), kGin + "Sheriff,Off,41.5,-90.51,15,Circle,");
  EXPECT_EQ(data.text(data.find("GRP-999-001-002")),
            kGin + "Fire; EMS & Rescue,Off,41.5,-90.51,15,Circle,");
  EXPECT_EQ(data.text(data.find("GRP-999-001-003")),
            kGin + "Police 'Downtown',Off,41.52,-90.55,5,Circle,");
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

}  // namespace
}  // namespace zel::radioref
