#include "formats/hpd_writer.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <filesystem>

#include "core/keys.h"
#include "core/record_line.h"
#include "core/text.h"
#include "formats/hpi_file.h"
#include "formats_test_support.h"

namespace zel::formats {
namespace {

using test::fileLines;
using test::hpdFile;
using test::lineOf;
using test::Scratch;

const std::string kMotorola = hpdFile({
    "Trunk|||Metro|Off||Motorola|Off|Off|Auto|Ignore|Srch|Off|Off|0|Off|Off|Analog|Off|Off|On",
    "FleetMap|TrunkId=1492|4|4|C|0|0|0|0|0",
    "UnitIds|||Medic 1|1872110|Off|Auto|Red|On",
    "Site|SiteId=1|TrunkId=1492|North|Off|41.4|-81.7|19.1|AUTO|Custom|Wide|Circle|Off|400|Auto|8|"
    "Off",
    "T-Freq|TFreqId=0|SiteId=1||Off|851900000|1|Srch",
    "Site|||South|Off|41.2|-81.6|9.0|AUTO|Standard|Wide|Circle|Off",
    "T-Group|||Fire|Off|41.3|-81.7|4.0|Circle|1",
    "TGID|||Fire Dispatch|Off|56421|ALL|3|2|0|Off|Auto|Red|On|Off|Off|Srch",
});

TEST(HpdWriter, AnEmptyTreeHasNothingToSave) {
  Scratch s;
  HpdWriteResult r = writeHpd(s.doc, s.pages, s.dir.file("out.hpd"), {}, s.feedback);
  EXPECT_EQ(r.status, HpdWriteStatus::NothingToSave);
  EXPECT_EQ(s.feedback.messages,
            (std::vector<std::string>{"No data to save, please add at least one system."}));
  EXPECT_FALSE(std::filesystem::exists(s.dir.file("out.hpd")));
}

TEST(HpdWriter, LevelThreeFileInWalkOrderWithCrLf) {
  Scratch s;
  ASSERT_TRUE(s.read(kMotorola).ok());
  const std::string text = s.render();
  std::vector<std::string> words;
  for (const std::string& l : fileLines(text)) words.push_back(l.substr(0, l.find('\t')));
  EXPECT_EQ(words, (std::vector<std::string>{"TargetModel", "FormatVersion", "Trunk", "DQKs_Status",
                                             "FleetMap", "UnitIds", "Site", "BandPlan_Mot",
                                             "T-Freq", "Site", "T-Group", "TGID"}));
  // Every line ends CR LF and no bare LF is left.
  EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 12);
  EXPECT_EQ(replaceAll(text, "\r\n", "").find('\n'), std::string::npos);
  EXPECT_EQ(lineOf(text, "FleetMap"), "FleetMap|TrunkId=1492|4|4|C|0|0|0|0|0");
}

TEST(HpdWriter, IdsAreNodePositionsAtTheMomentOfWriting) {
  Scratch s;
  ASSERT_TRUE(s.read(kMotorola).ok());
  const DocumentTree& t = s.doc.data;
  const std::string text = s.render();
  const std::string north = std::to_string(t.index(t.find("SIT-001-001")));
  const std::string fire = std::to_string(t.index(t.find("GRP-999-001-000")));
  for (const std::string& start :
       {"Site|SiteId=" + north + "|Tr", "BandPlan_Mot|SiteId=" + north + "|",
        "T-Freq|TFreqId=0|SiteId=" + north + "||Of", "T-Group|TGroupId=" + fire + "|Tr"}) {
    EXPECT_EQ(lineOf(text, start.substr(0, start.find('|'))).substr(0, start.size()), start);
  }

  // A node added before the department moves its position, so the next save differs.
  s.doc.data.remove("UDD-001-00-0001");
  const std::string again = s.render();
  EXPECT_NE(lineOf(again, "T-Group"), lineOf(text, "T-Group"));
}

TEST(HpdWriter, TheSystemNumberFillsTheIdFieldsAndAMissingOneBecomesTwo) {
  Scratch s;
  ASSERT_TRUE(s.read(hpdFile({"Trunk|||T|Off||Ltr", "T-Group|||G|Off"})).ok());
  const std::string text = s.render();
  EXPECT_NE(lineOf(text, "T-Group").find("|TrunkId=2|"), std::string::npos);
  // The record keeps the number it was given.
  EXPECT_EQ(record::field(s.doc.data.text(s.doc.data.find("SYS-001")), 2), "2");
}

TEST(HpdWriter, ACustomSiteWithoutPlanGetsTheDefaultNode) {
  Scratch s;
  ASSERT_TRUE(s.read(hpdFile({"Trunk|||T|Off||P25X2_TDMA",
                              "Site|||S|Off|1|2|3|AUTO|Custom|Wide|Circle|Off"}))
                  .ok());
  ASSERT_FALSE(s.doc.data.contains("MCP-001-001"));
  const std::string text = s.render();
  EXPECT_EQ(s.doc.data.text(s.doc.data.find("MCP-001-001")), kDefaultBandPlan);
  EXPECT_NE(lineOf(text, "BandPlan_Mot").find("|851025000|854000000|25000|440|"),
            std::string::npos);
}

TEST(HpdWriter, FleetMapsOnlyForMotorolaAndNotAllZero) {
  Scratch s;
  ASSERT_TRUE(s.read(hpdFile({"Trunk|||A|Off||Motorola", "FleetMap|TrunkId=1|0|0|0|0|0|0|0|0",
                              "Trunk|||B|Off||Edacs", "FleetMap|TrunkId=2|4|4|4|4|4|4|4|4",
                              "Trunk|||C|Off||Motorola", "FleetMap|TrunkId=3|4|4|4|4|4|4|4|4"}))
                  .ok());
  const std::string text = s.render();
  EXPECT_EQ(lineOf(text, "FleetMap"), "FleetMap|TrunkId=3|4|4|4|4|4|4|4|4");
  EXPECT_EQ(lineOf(text, "FleetMap", 1), "<none>");
}

TEST(HpdWriter, LevelTwoOutsideTheFamilyMode) {
  Scratch s;
  s.doc.x36Mode = false;
  ASSERT_TRUE(s.read("TargetModel HomePatrol-1\r\nFormatVersion   2.03\r\n" +
                     test::tabs("Conventional|AgencyId=5|StateId=0|C|Off||Conventional\r\n"
                                "C-Group|||G|Off|1|2|3|Circle|Off|Global\r\n"
                                "C-Freq|||Ch|Off|155000000|FM||3|On|5|1|2|3\r\n"))
                  .ok());
  const std::vector<std::string> lines = fileLines(s.render());
  const std::vector<std::string> want = {
      "TargetModel HomePatrol-1",
      "FormatVersion   2.03",
      "Conventional\tCountyID=5\tStateId=0\tC\tOff\t\tConventional",
      "AreaState\tAgencyId=5\tStateId=0",
      "AreaCounty\tAgencyId=5\tCountyId=0",
      lines.size() > 5 ? lines[5] : "",
      "C-Freq\t\t\tCh\tOff\t155000000\tFM\t\t3\tOn\t5\t1\t2\t3",
  };
  EXPECT_EQ(lines, want);
  EXPECT_EQ(lines[5].substr(0, 8), "C-Group\t");
  EXPECT_EQ(writeLevel(s.doc), HpdLevel::V2);
}

TEST(HpdWriter, FileIndexAndSingleSystemChooseTheSystems) {
  Scratch s;
  const std::string one = hpdFile({"Conventional|||First|Off||Conventional"});
  const std::string two = hpdFile({"Conventional|||Second|Off||Conventional"});
  HpdReadOptions o = Scratch::defaultRead();
  ASSERT_TRUE(s.read(one, o).ok());
  o.fileIndex = 2;
  ASSERT_TRUE(s.read(two, o).ok());
  s.doc.data.add({}, "SYS-003", "SIN,Conventional,,,Unsaved,0,,Conventional");

  auto names = [&](HpdWriteOptions w) {
    std::vector<std::string> out;
    for (const std::string& l : fileLines(s.render(w))) {
      if (l.rfind("Conventional", 0) == 0) out.emplace_back(splitView(l, '\t')[3]);
    }
    return out;
  };
  HpdWriteOptions w;
  w.fileIndex = 2;
  EXPECT_EQ(names(w), (std::vector<std::string>{"Second"}));
  w.fileIndex = 0;
  EXPECT_EQ(names(w), (std::vector<std::string>{"First", "Second", "Unsaved"}));
  w.onlySystem = 1;
  EXPECT_EQ(names(w), (std::vector<std::string>{"First"}));
  EXPECT_EQ(s.feedback.progresses.back(), "Saving System: First");
}

TEST(HpdWriter, SaveGoesThroughATemporaryFileAndWritesTheCompanion) {
  Scratch s;
  ASSERT_TRUE(s.read(kMotorola).ok());
  const std::string path = s.dir.file("metro.hpd");
  HpdWriteOptions w = Scratch::defaultWrite();
  HpdWriteResult r = writeHpd(s.doc, s.pages, path, w, s.feedback);
  ASSERT_TRUE(r.ok()) << r.message;
  EXPECT_EQ(s.feedback.progresses.back(), "Done Saving.");
  EXPECT_EQ(test::slurp(path), s.render());
  EXPECT_FALSE(std::filesystem::exists(path + ".zeltmp"));

  std::optional<HpiAttributes> hpi = readHpi(hpiPathFor(path));
  ASSERT_TRUE(hpi.has_value());
  // The list name comes from the short name.
  EXPECT_EQ(std::tuple((*hpi)[0], (*hpi)[2], (*hpi)[3]), std::tuple("1", "list", path));
  EXPECT_EQ(test::slurp(hpiPathFor(path)).substr(0, 28), "[TargetModel HomePatrol-2]\r\n");
  EXPECT_EQ(r.fileStatus, "1\tlist.hpd\tlist\t" + path);
}

TEST(HpdWriter, UniqueNamesAddAnUnderscore) {
  Scratch s;
  ASSERT_TRUE(s.read(kMotorola).ok());
  const std::string path = s.dir.file("a.hpd");
  test::spit(path, "keep");
  test::spit(s.dir.file("a_.hpd"), "keep too");
  HpdWriteOptions w;
  w.uniqueName = true;
  HpdWriteResult r = writeHpd(s.doc, s.pages, path, w, s.feedback);
  ASSERT_TRUE(r.ok());
  EXPECT_EQ(r.path, s.dir.file("a__.hpd"));
  EXPECT_EQ(test::slurp(path), "keep");
}

TEST(HpdWriter, AFailedSaveLeavesTheOldFileWhole) {
  Scratch s;
  ASSERT_TRUE(s.read(kMotorola).ok());
  const std::string readOnly = s.dir.file("old.hpd");
  test::spit(readOnly, "the user's file");
  std::filesystem::permissions(readOnly, std::filesystem::perms::owner_read);
  struct Case {
    std::string path;
    std::string message;
  };
  const Case cases[] = {
      {readOnly, readOnly + " is read-only; it was left as it was."},
      {s.dir.file("gone/new.hpd"),
       "There was an error saving this file: " + s.dir.file("gone/new.hpd")},
  };
  for (const Case& c : cases) {
    HpdWriteResult r = writeHpd(s.doc, s.pages, c.path, {}, s.feedback);
    EXPECT_EQ(r.status, HpdWriteStatus::WriteError);
    EXPECT_EQ(r.message, c.message);
    EXPECT_EQ(s.feedback.messages.back(), r.message);
  }
  EXPECT_EQ(test::slurp(readOnly), "the user's file");
}

TEST(HpdWriter, ScannerTargetsUseColumnElevenAndNoCompanion) {
  Scratch s;
  ASSERT_TRUE(s.read(kMotorola).ok());
  const std::string path = s.dir.file("f_000001.hpd");
  HpdWriteOptions w = Scratch::defaultWrite();
  w.toScanner = true;
  ASSERT_TRUE(writeHpd(s.doc, s.pages, path, w, s.feedback).ok());
  EXPECT_EQ(s.doc.files.get(1, 11), path);
  EXPECT_FALSE(std::filesystem::exists(hpiPathFor(path)));
}

TEST(HpdWriter, ACompanionThatCannotBeWrittenIsReported) {
  Scratch s;
  ASSERT_TRUE(s.read(kMotorola).ok());
  const std::string path = s.dir.file("out.hpd");
  std::filesystem::create_directory(hpiPathFor(path));  // the companion's name is taken
  const HpdWriteResult r = writeHpd(s.doc, s.pages, path, Scratch::defaultWrite(), s.feedback);
  EXPECT_TRUE(std::filesystem::exists(path));
  EXPECT_EQ(r.companionError,
            path + " was written, but its companion " + hpiPathFor(path) + " was not: " +
                std::strerror(EISDIR) + ".");
  EXPECT_EQ(s.feedback.messages.back(), r.companionError);
}

TEST(HpdWriter, ASystemWithoutChildrenWritesItsHeadAndADepartmentWithoutPageNoRows) {
  Scratch s;
  s.doc.data.add({}, "SYS-001", "SIN,Conventional,,,Lonely,0,,Conventional");
  std::vector<std::string> lines = fileLines(s.render(HpdWriteOptions{}));
  ASSERT_EQ(lines.size(), 4u);
  EXPECT_EQ(lines[2].substr(0, 22), "Conventional\t\t\tLonely\t");
  EXPECT_EQ(lines[3].substr(0, 11), "DQKs_Status");
  // A department without a page file has no rows.
  Scratch read;
  ASSERT_TRUE(read.read(kMotorola).ok());
  read.pages.remove(keys::department(1, 0));
  EXPECT_EQ(lineOf(read.render(), "TGID"), "<none>");
}

// Read, write, read, write gives the same text twice. A plan the save creates and a fleet
// map it leaves out must not move the Ids of the nodes behind them on the second read.
TEST(HpdWriter, ASavedFileReadsBackToTheSameText) {
  const std::string createdAndLeftOut = hpdFile({
      "Trunk|||A|Off||Motorola",
      "FleetMap|TrunkId=1|0|0|0|0|0|0|0|0",
      "Site|||S|Off|1|2|3|AUTO|Custom|Wide|Circle|Off",
      "T-Group|||G|Off",
      "Trunk|||B|Off||Motorola",
      "Site|||S2|Off|1|2|3|AUTO|Custom|Wide|Circle|Off",
      "T-Group|||G2|Off",
  });
  for (const std::string& file : {kMotorola, createdAndLeftOut}) {
    Scratch first;
    ASSERT_TRUE(first.read(file).ok());
    const std::string once = first.render();
    Scratch second;
    ASSERT_TRUE(second.read(once).ok());
    EXPECT_EQ(second.render(), once);
  }
}

}  // namespace
}  // namespace zel::formats
