#include "transfer/card_detect.h"

#include <gtest/gtest.h>

#include "card_tree_support.h"
#include "core/memory_ports.h"
#include "test_folder.h"

namespace zel::transfer {
namespace {

using testing::readText;
using testing::writeMarker;

std::string line(const std::string& model, const std::string& fw) {
  return "Scanner\t" + model + "\tSER-" + model + "\t" + fw + "\t01";
}

TEST(CardDetect, MessagePerFamily) {
  struct Case {
    const char* folder;
    const char* model;
    const char* head;
    bool is3600, isSds;
  } cases[] = {
      {"BCDx36HP", "BCD536HP", " BCDx36HP/3600/SDS detected at drive ", false, false},
      {"BCDx36HP", "BCD436HP", " BCDx36HP/3600/SDS detected at drive ", false, false},
      {"BCDx36HP", "UBCD3600XLT", " BCDx36HP/3600/SDS detected at drive ", true, false},
      {"BCDx36HP", "SDS200", "SDSx00 series detected at drive ", false, true},
      {"BCDx36HP", "SDS100", "SDSx00 series detected at drive ", false, true},
      {"UBCDx36", "UBCD536-PT", "UBCDx36HP detected at drive ", false, false},
  };
  for (const auto& c : cases) {
    TestFolder t;
    writeMarker(t.path(), c.folder, line(c.model, "1.23.15"));
    CardDetector d;
    MemorySettingsStore store;
    Settings settings(store);
    const auto& s = d.detect(ListDriveRoots({t.path()}), {}, &settings);
    ASSERT_TRUE(s.detected()) << c.model;
    EXPECT_EQ(s.label3, std::string(c.head) + t.path() + " DBase= Firmware=1.23.15 Serial=SER-" +
                            c.model + " FileFormat:0");
    EXPECT_EQ(s.is3600, c.is3600);
    EXPECT_EQ(s.isSds, c.isSds);
    EXPECT_EQ(s.model, c.model);
    EXPECT_EQ(settings.getPlain("general", "firmware", ""), "1.23.15");
    EXPECT_EQ(settings.getPlain("general", "serienum", ""), std::string("SER-") + c.model);
    EXPECT_EQ(settings.getPlain("general", "hpinfo", ""),
              std::string("Scanner,") + c.model + ",SER-" + c.model + ",1.23.15,01");
  }
}

TEST(CardDetect, UbcdMarkerWinsOnTheSameRootAndTheLaterRootWins) {
  TestFolder t;
  writeMarker(t.path(), "BCDx36HP", line("BCD536HP", "1.0"));
  writeMarker(t.path(), "UBCDx36", line("UBCD436-PT", "1.0"));
  CardDetector d;
  const auto& s = d.detect(ListDriveRoots({t.path()}), {}, nullptr);
  ASSERT_TRUE(s.detected());
  EXPECT_TRUE(s.isUbcdFolder);
  EXPECT_EQ(s.scannerRoot, t.path() + "/UBCDx36");

  // Of several roots the later wins, and a model the system does not know is passed over.
  TestFolder a, b, c;
  writeMarker(a.path(), "BCDx36HP", line("BCD536HP", "1.0"));
  writeMarker(b.path(), "BCDx36HP", line("SDS200", "1.1"));
  writeMarker(c.path(), "BCDx36HP", line("Toaster", "9.9"));
  const auto& later = d.detect(ListDriveRoots({a.path(), b.path(), c.path()}), {}, nullptr);
  ASSERT_TRUE(later.detected());
  EXPECT_EQ(later.model, "SDS200");
  EXPECT_EQ(later.drive, b.path());
}

TEST(CardDetect, FileFormatFollowsFirmwareTwoAndIsKeptOtherwise) {
  TestFolder two, one;
  writeMarker(two.path(), "BCDx36HP", line("SDS100", "2.01.00"));
  writeMarker(one.path(), "BCDx36HP", line("SDS100", "1.23"));
  CardDetector d;
  EXPECT_EQ(d.detect(ListDriveRoots({one.path()}), {}, nullptr).fileFormat, 0);
  EXPECT_EQ(d.detect(ListDriveRoots({two.path()}), {}, nullptr).fileFormat, 2);
  // A later scan of a 1.x card leaves the value where it was.
  EXPECT_EQ(d.detect(ListDriveRoots({one.path()}), {}, nullptr).fileFormat, 2);
}

TEST(CardDetect, NothingFoundClosesTheGateAndACardOnGreenOpensIt) {
  TestFolder t;
  CardDetector d;
  const auto& s = d.detect(ListDriveRoots({t.path()}), {}, nullptr);
  EXPECT_FALSE(s.detected());
  EXPECT_EQ(s.label3, kNotFoundHelp);
  EXPECT_FALSE(d.gate());
  EXPECT_EQ(d.state().label3, "Error: Scanner not detected.");
  writeMarker(t.path(), "BCDx36HP", line("BCD536HP", "1.0"));
  d.detect(ListDriveRoots({t.path()}), {}, nullptr);
  EXPECT_TRUE(d.gate());
  EXPECT_EQ(d.state().lamp, kLampGreen);
}

TEST(CardDetect, DriveLettersDAndEOnlyWithTheirOptions) {
  auto letters = windowsScanLetters(false, false);
  ASSERT_EQ(letters.size(), 21u);
  EXPECT_EQ(letters.front(), "F:");
  EXPECT_EQ(letters.back(), "Z:");
  EXPECT_EQ(windowsScanLetters(true, false).front(), "D:");
  EXPECT_EQ(windowsScanLetters(false, true).front(), "E:");
  EXPECT_EQ(windowsScanLetters(true, true).size(), 23u);
}

TEST(CardDetect, ReportNamesEveryRootAndTheHit) {
  TestFolder t, card;
  writeMarker(card.path(), "BCDx36HP", line("BCD536HP", "1.0"));
  DetectOptions o;
  o.version = "9.9";
  o.includeC = true;
  o.reportPath = t.file("drivetest.txt");
  testing::writeText(o.reportPath, "old report");
  CardDetector d;
  d.detect(ListDriveRoots({t.path(), card.path()}), o, nullptr);
  const std::string report = readText(o.reportPath);
  EXPECT_EQ(report.rfind("ZEL536- 9.9\r\n", 0), 0u);
  EXPECT_EQ(report.find("old report"), std::string::npos);
  EXPECT_NE(report.find("option c selected"), std::string::npos);
  EXPECT_EQ(report.find("option d selected"), std::string::npos);
  EXPECT_NE(report.find(card.path() + " ausdir: 0 isaus: 0 bcddir: 1"), std::string::npos);
  EXPECT_NE(report.find("detected: Scanner\tBCD536HP"), std::string::npos);
}

TEST(CardDetect, DatabaseVersionFromTheCard) {
  TestFolder t;
  writeMarker(t.path(), "BCDx36HP", line("SDS200", "1.0"));
  testing::writeText(
      t.path() + "/BCDx36HP/HPDB/hpdb.cfg",
      "TargetModel\tBCDx36HP\r\nFormatVersion\t1.00\r\nDateModified\t07/15/2018 17:00:01\r\n");
  CardDetector d;
  EXPECT_EQ(d.detect(ListDriveRoots({t.path()}), {}, nullptr).dbVersion, "07/15/2018 17:00:01");
}

TEST(DriveRoots, MountPointsUnderEachParentThenUserRoots) {
  TestFolder media, mnt;
  std::filesystem::create_directories(media.path() + "/CARD2");
  std::filesystem::create_directories(media.path() + "/CARD1");
  std::filesystem::create_directories(mnt.path() + "/usb");
  MountPointRoots roots({media.path(), "/no/such/parent", mnt.path()});
  roots.addUserRoot("/my/card");
  auto r = roots.roots();
  ASSERT_EQ(r.size(), 4u);
  EXPECT_EQ(r[0].path, media.path() + "/CARD1");
  EXPECT_EQ(r[1].path, media.path() + "/CARD2");
  EXPECT_EQ(r[2].path, mnt.path() + "/usb");
  EXPECT_EQ(r[3].path, "/my/card");
}

}  // namespace
}  // namespace zel::transfer
