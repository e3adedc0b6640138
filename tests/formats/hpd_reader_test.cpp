#include "formats/hpd_reader.h"

#include <gtest/gtest.h>

#include "core/keys.h"
#include "core/record_line.h"
#include "core/text.h"
#include "formats/hpi_file.h"
#include "formats_test_support.h"

namespace zel::formats {
namespace {

using test::hpdFile;
using test::Scratch;

const std::string kTrunked = hpdFile({
    "Trunk|||Metro|Off||Motorola|Off|Off|Auto|Ignore|Srch|Off|Off|0|Off|Off|Analog|Off|Off|On",
    "DQKs_Status||On|On",
    "FleetMap|TrunkId=4|4|4|C|0|0|0|0|0",
    "UnitIds|||Medic 1|1872110|Off|Auto|Red|On",
    "UnitIds|||Medic 2|1872112|3|5|Blue|Slow Blink",
    "Site|SiteId=1|TrunkId=4|North|Off|41.4|-81.7|19.1|AUTO|Custom|Wide|Circle|Off|400|Auto|8|Off",
    "BandPlan_Mot|SiteId=1|851025000|854000000|25000|440|851012500|868987500|25000|0",
    "T-Freq|TFreqId=0|SiteId=1||Off|851900000|1|Srch",
    "T-Freq|TFreqId=0|SiteId=1||Off|852100000|2|Srch",
    "Site|||South|Off|41.2|-81.6|9.0|AUTO|Standard|Wide|Circle|Off",
    "T-Freq|||||853100000|1|3",
    "T-Group|||Fire|Off|41.3|-81.7|4.0|Circle|1",
    "TGID|||Fire Dispatch|Off|56421|ALL|3|2|0|Off|Auto|Red|On|Off|Off|Srch",
    "TGID|||Fire Tac|Off|56422|DIGITAL|8|2|0|Off|Auto|Red|On|Off|Off|1",
    "T-Group|||Police|Off|41.3|-81.7|4.0|Circle|1",
    "TGID|||Police Dispatch|Off|56500|ALL|2",
});

TEST(HpdReader, TrunkedSystemBecomesNodesRowsAndCounts) {
  Scratch s;
  HpdReadResult r = s.read(kTrunked);
  ASSERT_TRUE(r.ok()) << r.message;
  const HpdCounts& n = r.counts;
  EXPECT_EQ((std::vector<int>{n.systems, n.sites, n.frequencies, n.departments, n.talkgroups,
                              n.unitIds, n.bandPlans, n.fleetMaps}),
            (std::vector<int>{1, 2, 3, 2, 3, 2, 1, 1}));
  EXPECT_TRUE(r.skipped.empty());
  EXPECT_EQ(r.notKept.at("DQKs_Status"), 1);

  const DocumentTree& t = s.doc.data;
  // Sites count from 1, departments from 0, site frequencies from 1 within their site.
  for (const char* key :
       {"SYS-001", "UID-001-001", "UDD-001-00-0001", "UDD-001-00-0002", "FMP-001-000",
        "SIT-001-001", "SIT-001-002", "MCP-001-001", "TFQ-001-001-001", "TFQ-001-001-002",
        "TFQ-001-002-001", "GRP-999-001-000", "GRP-999-001-001"}) {
    EXPECT_TRUE(t.contains(key)) << key;
  }
  EXPECT_FALSE(t.contains("GRP-999-001-002"));
  std::vector<std::string> texts;
  for (const char* key :
       {"UID-001-001", "FMP-001-000", "UDD-001-00-0002", "TFQ-001-002-001", "GRP-999-001-000"})
    texts.push_back(t.text(t.find(key)));
  EXPECT_EQ(texts,
            (std::vector<std::string>{
                "UID, OPEN FILE", "FMP,4,4,12,0,0,0,0,0", "UID,1872112,Medic 2,3,5,Blue,Slow Blink",
                "TFQ,853.100000,1,3", "TIN,T-Group,,,Fire,Off,41.3,-81.7,4.0,Circle,1"}));
  EXPECT_EQ(t.parent(t.find("TFQ-001-001-002")), t.find("SIT-001-001"));
  EXPECT_EQ(t.parent(t.find("MCP-001-001")), t.find("SYS-001"));
  // The flat frequency tree holds the same keys and texts at its top level.
  EXPECT_EQ(s.doc.frequencies.count(), 3u);
  EXPECT_EQ(s.doc.frequencies.text(s.doc.frequencies.find("TFQ-001-001-002")),
            "TFQ,852.100000,2,Srch");

  EXPECT_EQ(s.page(1, 0),
            "1,56421,Fire Dispatch,Off,All,Fire Dispatch,2,0,Off,Auto,Red,On,Off,Off,Any\n"
            "2,56422,Fire Tac,Off,Digital,Fire-Tac,2,0,Off,Auto,Red,On,Off,Off,1");
  EXPECT_EQ(s.page(1, 1), "1,56500,Police Dispatch,Off,All,Law Dispatch,,,,,,,,,Any");

  EXPECT_EQ((std::vector<std::string>{s.doc.systems.get(1, 0), s.doc.systems.get(1, 1),
                                      s.doc.systems.get(1, 10)}),
            (std::vector<std::string>{"1", "Metro", "1"}));
  EXPECT_EQ(record::field(t.text(t.find("SYS-001")), 23), "001");
}

TEST(HpdReader, ConventionalSystemAndItsChannelRows) {
  Scratch s;
  HpdReadResult r = s.read(hpdFile({
      "Conventional|||Federal|Off||Conventional|Off|Off|0|Off|Off|400|Auto|8",
      "C-Group|||Energy|Off|37.87|-122.24|2.0|Circle|Off|Global",
      "C-Freq|||Ops, North|Off|164225000|NFM|TONE=C146.2|16|Off|2|0|Off|Auto|Off|On|Off|Off",
      "C-Freq|||Air|On|121500000|AM|NAC=Srch|15|On|5|1|2|3|Red|Fast Blink|12|On",
  }));
  ASSERT_TRUE(r.ok());
  EXPECT_EQ(r.counts.channels, 2);
  EXPECT_EQ(s.doc.systems.get(1, 10), "0");
  EXPECT_FALSE(s.doc.data.contains("UID-001-001"));
  // A comma of the file comes back as ";".
  EXPECT_EQ(s.page(1, 0),
            "1,164.225000,Ops; North,Off,NFM,CTCSS,146.2,Federal,Off,2,0,Off,Auto,Off,On,Off,Off\n"
            "2,121.500000,Air,On,AM,P25,Search,Aircraft,On,5,1,2,3,Red,Fast Blink,12,On");
}

TEST(HpdReader, SystemsTakeTheLowestFreeNumbers) {
  Scratch s;
  s.doc.data.add({}, "SYS-001", "SIN,Conventional,,,Old");
  s.doc.data.add({}, "SYS-003", "SIN,Conventional,,,Older");
  HpdReadResult r = s.read(hpdFile({"Conventional|||A|Off||Conventional", "Trunk|||B|Off||Ltr",
                                    "Conventional|||C|Off||Conventional"}));
  ASSERT_TRUE(r.ok());
  EXPECT_EQ(r.systems, (std::vector<int>{2, 4, 5}));
  EXPECT_EQ(s.doc.systems.get(4, 10), "4");
}

TEST(HpdReader, LevelComesFromTheModeAndFromAVersionWithTwoPoint) {
  struct Case {
    bool x36;
    const char* version;
    HpdLevel level;
  };
  const Case cases[] = {
      {true, "FormatVersion|1.00", HpdLevel::V3},
      {false, "FormatVersion|1.00", HpdLevel::V1},
      {false, "FormatVersion   2.03", HpdLevel::V2},
      {true, "FormatVersion   2.03", HpdLevel::V2},  // even in the family mode
      {true, "FormatVersion|1.2.", HpdLevel::V2},    // "2." anywhere
  };
  for (const Case& c : cases) {
    Scratch s;
    s.doc.x36Mode = c.x36;
    std::string file = "TargetModel HomePatrol-1\r\n" + test::tabs(c.version) + "\r\n";
    EXPECT_EQ(s.read(file).level, c.level) << c.version << " x36 " << c.x36;
  }
}

TEST(HpdReader, LevelOneLinesAreCompleted) {
  Scratch s;
  s.doc.x36Mode = false;
  HpdReadResult r = s.read("TargetModel HomePatrol-1\r\nFormatVersion   1.00\r\n" +
                           test::tabs("Conventional|AgencyId=5|StateId=0|Old|Off||Conventional\r\n"
                                      "C-Group|CGroupId=1|AgencyId=5|G|Off|1.0|2.0|3.0\r\n"
                                      "C-Freq|||Ch|Off|155000000|FM||3\r\n"));
  ASSERT_TRUE(r.ok());
  EXPECT_EQ(r.level, HpdLevel::V1);
  EXPECT_EQ(s.doc.data.text(s.doc.data.find("GRP-999-001-000")),
            "GIN,C-Group,CGroupId=1,AgencyId=5,G,Off,1.0,2.0,3.0,Circle");
  EXPECT_EQ(s.page(1, 0), "1,155.000000,Ch,Off,FM,All,Search,Fire Dispatch,Off,2,0,Off,Auto");
}

TEST(HpdReader, LoadFlagsLeaveOutOneKindOfSystem) {
  const std::string mixed = hpdFile({"Conventional|||C|Off||Conventional", "C-Group|||G|Off",
                                     "C-Freq|||Ch|Off|155000000|FM||3", "Trunk|||T|Off||Ltr",
                                     "T-Group|||TG|Off", "TGID|||Tg|Off|5|ALL|3"});
  for (const auto& [flags, channels, talkgroups, firstSkipped] :
       {std::tuple{kSkipTrunked, 1, 0, 6}, std::tuple{kSkipConventional, 0, 1, 3}}) {
    Scratch s;
    HpdReadOptions o = Scratch::defaultRead();
    o.loadFlags = flags;
    HpdReadResult r = s.read(mixed, o);
    EXPECT_EQ(std::tuple(r.counts.systems, r.counts.channels, r.counts.talkgroups),
              std::tuple(1, channels, talkgroups))
        << flags;
    ASSERT_EQ(r.skipped.size(), 3u);
    EXPECT_EQ(r.skipped[0].reason, "left out by the load flags");
    EXPECT_EQ(r.skipped[0].lineNumber, firstSkipped);
  }
}

TEST(HpdReader, LinesWithoutAPlaceAreSkippedWithTheirReason) {
  Scratch s;
  HpdReadResult r = s.read(hpdFile({
      "C-Freq|||Early|Off|155000000|FM||3",    // 3: before any system
      "Conventional|||C|Off||Conventional",    // 4
      "C-Freq|||NoGroup|Off|155000000|FM||3",  // 5: before any department
      "Site|||S|Off",                          // 6: a site in a conventional system
      "T-Group|||TG|Off",                      // 7
      "Rectangle|1|2",                         // 8: the format's own, not kept
      "Whatever|1|2",                          // 9: unknown
      "",                                      // 10: empty lines pass silently
      "Trunk|||T|Off||Motorola",               // 11
      "T-Freq|||||851000000|1",                // 12: no site yet
      "TGID|||Tg|Off|5|ALL|3",                 // 13: no department yet
  }));
  ASSERT_TRUE(r.ok());
  std::vector<std::pair<int, std::string>> got;
  for (const SkippedLine& k : r.skipped) got.emplace_back(k.lineNumber, k.reason);
  const std::vector<std::pair<int, std::string>> want = {
      {3, "no system before this line"},
      {5, "no department before this line"},
      {6, "trunked line in a conventional system"},
      {7, "T-Group in a conventional system"},
      {9, "unknown line type"},
      {12, "no site before this frequency"},
      {13, "no department before this line"},
  };
  EXPECT_EQ(got, want);
  EXPECT_EQ(r.notKept.at("Rectangle"), 1);
  EXPECT_EQ(r.counts.lines, 13);
}

TEST(HpdReader, StatusTextsOfALoadAndAnEmptyFile) {
  Scratch s;
  ASSERT_TRUE(
      s.read(hpdFile({"Conventional|||A|Off||Conventional", "Conventional|||B|Off||Conventional"}))
          .ok());
  EXPECT_EQ(
      s.feedback.progresses,
      (std::vector<std::string>{"Opening System: 1", "Opening System: 2", "Finished Loading."}));
  EXPECT_EQ(s.feedback.statuses, (std::vector<std::string>{"Load Ok."}));
  EXPECT_TRUE(s.feedback.messages.empty());
  // An empty file loads without systems.
  for (std::string_view content : {std::string_view(""), std::string_view("\r\n\r\n")}) {
    Scratch empty;
    HpdReadResult r = empty.read(content);
    EXPECT_TRUE(r.ok());
    EXPECT_EQ(r.counts.systems, 0);
    EXPECT_EQ(empty.feedback.statuses, (std::vector<std::string>{"Load Ok."}));
  }
}

TEST(HpdReader, AMissingFileOrHeaderLeavesTheDocumentAlone) {
  Scratch s;
  s.doc.data.add({}, "SYS-001", "SIN,Conventional,,,Keep");
  s.doc.files.set(1, 2, "List");

  HpdReadResult missing = s.readFile(s.dir.file("nope.hpd"));
  EXPECT_EQ(missing.status, HpdReadStatus::FileMissing);
  EXPECT_EQ(missing.message, "File error: check if file exists:    " + s.dir.file("nope.hpd"));

  for (std::string_view bad :
       {std::string_view("Conventional\t\t\tA\r\n"), std::string_view("\x01\x02\xFF garbage"),
        std::string_view("FormatVersion\t1.00\r\nTargetModel\tBCDx36HP")}) {
    HpdReadResult r = s.read(bad);
    EXPECT_EQ(r.status, HpdReadStatus::NotCompatible);
    EXPECT_EQ(r.message, "File not compatible, or saved in newer format");
  }
  EXPECT_EQ(s.doc.data.count(), 1u);
  EXPECT_EQ(s.doc.files.get(1, 2), "List");
  EXPECT_EQ(s.doc.files.get(1, 0), "");
  EXPECT_EQ(s.feedback.messages.size(), 4u);
}

TEST(HpdReader, NoRoomForASystemTakesBackTheWholeRead) {
  Scratch s;
  for (int n = 1; n <= 998; ++n) s.doc.data.add({}, keys::system(n), "SIN,Conventional");
  const std::size_t before = s.doc.data.count();
  HpdReadResult r =
      s.read(hpdFile({"Trunk|||Fits|Off||Motorola", "Site|||S|Off", "T-Freq|||||851000000|1",
                      "T-Group|||G|Off", "TGID|||Tg|Off|5|ALL|3", "Conventional|||Too many|Off"}));
  EXPECT_EQ(r.status, HpdReadStatus::OutOfStorage);
  EXPECT_EQ(r.message, "ERROR: Out of storage space");
  EXPECT_EQ(std::tuple(s.doc.data.count(), s.doc.frequencies.count(),
                       s.pages.exists(keys::department(999, 0)), s.doc.systems.get(999, 0),
                       s.doc.files.get(1, 0)),
            std::tuple(before, std::size_t{0}, false, std::string(), std::string()));
}

TEST(HpdReader, LineEndsOfAnyKindAndOddBytes) {
  const std::string body =
      "TargetModel\tBCDx36HP|Conventional\t\t\tN\xE9\x7F\x01me\tOff\t\tConventional|"
      "C-Group\t\t\tG\tOff|C-Freq\t\t\tCh\tOff\t155000000\tFM\t\t3|C-Freq\t\t\tCut\tOff\t15";
  for (std::string_view end : {"\r\n", "\n", "\r"}) {
    Scratch s;
    HpdReadResult r = s.read(replaceAll(body, "|", end));
    ASSERT_TRUE(r.ok());
    EXPECT_EQ(r.counts.channels, 2);
    EXPECT_EQ(s.doc.systems.get(1, 1), "N\xE9\x7F\x01me");
    // A line cut in the middle still gives a row with what it has.
    EXPECT_EQ(s.page(1, 0),
              "1,155.000000,Ch,Off,FM,All,Search,Fire Dispatch,,,,,,,,,\n"
              "2,15,Cut,Off,,All,Search,NOT DEFINED,,,,,,,,,");
  }
}

TEST(HpdReader, AVeryLongLineIsJustALine) {
  Scratch s;
  std::string longName(10 * 1024 * 1024, 'x');
  HpdReadResult r = s.read(hpdFile({"Conventional|||A|Off||Conventional", "C-Group|||G|Off"}) +
                           "C-Freq\t\t\t" + longName + "\tOff\t155000000\r\n" + longName);
  ASSERT_TRUE(r.ok());
  EXPECT_EQ(r.counts.channels, 1);
  ASSERT_EQ(r.skipped.size(), 1u);
  EXPECT_EQ(r.skipped[0].text.size(), 80u);
}

TEST(HpdReader, CompanionFileFillsTheOpenFileRecord) {
  Scratch s;
  const std::string path = s.dir.file("north.hpd");
  test::spit(path, hpdFile({"Conventional|||A|Off||Conventional"}));
  HpiAttributes attributes;
  for (int i = 0; i < 12; ++i) attributes[i] = "col" + std::to_string(i);
  ASSERT_TRUE(writeHpi(hpiPathFor(path), attributes).ok);

  HpdReadOptions o = Scratch::defaultRead();
  o.fileIndex = 4;
  o.openFileFlag = true;
  ASSERT_TRUE(s.readFile(path, o).ok());
  std::vector<std::string> row;
  for (int column : {0, 1, 2, 3, 5, 11}) row.push_back(s.doc.files.get(4, column));
  EXPECT_EQ(row, (std::vector<std::string>{"1", "north.hpd", "col2", path, "1", "col11"}));
  EXPECT_EQ(record::field(s.doc.data.text(s.doc.data.find("SYS-001")), 23), "004");
}

TEST(HpdReader, CardListsAndScannerFilesSkipTheCompanion) {
  Scratch s;
  const std::string path = s.dir.file("f_000001.hpd");
  test::spit(path, hpdFile({"Conventional|||A|Off||Conventional"}));
  HpiAttributes attributes;
  attributes[2] = "From companion";
  ASSERT_TRUE(writeHpi(hpiPathFor(path), attributes).ok);
  HpdReadOptions o = Scratch::defaultRead();
  o.fromScanner = true;
  ASSERT_TRUE(s.readFile(path, o).ok());
  // No companion's name, and the scanner's file has no short name or path.
  std::vector<std::string> row;
  for (int column : {0, 1, 2, 3}) row.push_back(s.doc.files.get(1, column));
  EXPECT_EQ(row, (std::vector<std::string>{"1", "", "", ""}));
}

TEST(HpdReader, ASystemWithoutANumberTakesTheOneItsLinesCarry) {
  Scratch s;
  ASSERT_TRUE(
      s.read(hpdFile({"Trunk|||T|Off||Motorola", "Site|SiteId=9|TrunkId=8123|S|Off",
                      "Trunk|TrunkId=55||U|Off||Motorola", "Site||TrunkId=8124|S|Off",
                      "Conventional|||C|Off||Conventional", "C-Group|CGroupId=1|AgencyId=0|G|Off",
                      "C-Group|CGroupId=2|AgencyId=71|G|Off"}))
          .ok());
  std::vector<std::string> numbers;
  for (int n = 1; n <= 3; ++n)
    numbers.push_back(record::field(s.doc.data.text(s.doc.data.find(keys::system(n))), 2));
  EXPECT_EQ(numbers, (std::vector<std::string>{"8123", "55", "71"}));
}

TEST(HpdReader, UnknownServiceNumbersTakeTheOptionOrNotDefined) {
  Scratch s;
  HpdReadOptions o = Scratch::defaultRead();
  o.channelServiceFallback = "Custom 2";
  o.talkgroupServiceFallback = "";
  ASSERT_TRUE(s.read(hpdFile({"Conventional|||C|Off||Conventional", "C-Group|||G|Off",
                              "C-Freq|||Ch|Off|155000000|FM||0", "Trunk|||T|Off||Motorola",
                              "T-Group|||G|Off", "TGID|||Tg|Off|5|ALL|120"}),
                     o)
                  .ok());
  EXPECT_NE(s.page(1, 0).find(",Custom 2,"), std::string::npos);
  EXPECT_NE(s.page(2, 0).find(",NOT DEFINED,"), std::string::npos);
}

}  // namespace
}  // namespace zel::formats
