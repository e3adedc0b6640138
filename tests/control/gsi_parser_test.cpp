#include <gtest/gtest.h>

#include <cmath>

#include "vc_test_support.h"

namespace zel::control {
namespace {

std::string gsi(const std::string& body, const std::string& property) {
  return "GSI,<XML>,\r<?xml version=\"1.0\" encoding=\"utf-8\"?>\r"
         "<ScannerInfo Mode=\"Scan Mode\" V_Screen=\"trunk_scan\">\r" +
         body + "  <Property VOL=\"4\" SQL=\"4\" " + property +
         " />\r  <ViewDescription>\r  </ViewDescription>\r</ScannerInfo>\r";
}

const std::string kTrunk =
    "  <MonitorList Name=\"Metro\" Index=\"3\" ListType=\"FL\" Q_Key=\"1\" />\r"
    "  <System Name=\"Metro P25\" SystemType=\"P25 Standard\" Q_Key=\"2\" />\r"
    "  <Department Name=\"Fire, North\" Q_Key=\"5\" />\r"
    "  <Site Name=\"Simulcast\" Index=\"12\" Q_Key=\"None\" />\r"
    "  <TGID Name=\"Fire Ops 1\" Index=\"1006\" TGID=\"2412\" SetSlot=\"Any\" RecSlot=\"Slot 1\" "
    "N_Tag=\"7\" />\r"
    "  <UnitID Name=\"Engine 5\" U_Id=\"1872001\" />\r"
    "  <SiteFrequency Freq=\" 851.012500MHz\" SAS=\"All\" SAD=\"293\" />\r";

TEST(GsiParser, WaitsForTheEndOfTheXml) {
  VcRig rig(Family::Sds);
  std::string full = gsi(kTrunk, "Mute=\"Mute\"");
  EXPECT_EQ(rig.vc->decoder.parseGsi(full.substr(0, 200)), ParseResult::Waiting);
  EXPECT_EQ(rig.vc->decoder.parseGsi(full), ParseResult::Accepted);
}

TEST(GsiParser, ATrunkedHitFillsTheRecordAndTheExtraInfo) {
  VcRig rig(Family::Sds);
  rig.vc->decoder.parseGsi(gsi(kTrunk, "Mute=\"Unmute\" A_Led=\"Blue\" Rssi=\"-49\""));
  const auto& l = rig.vc->status.ldat;
  EXPECT_EQ(l[ld::kSystem], "Metro P25");
  EXPECT_EQ(l[ld::kDepartment], "Fire; North");
  EXPECT_EQ(l[ld::kTalkgroup], "2412");
  EXPECT_EQ(l[ld::kChannel], "Fire Ops 1");
  EXPECT_EQ(l[ld::kUid], "1872001");
  EXPECT_EQ(l[ld::kUidName], "Engine 5");
  EXPECT_EQ(l[ld::kFrequency], "");  // a talkgroup hit keeps its talkgroup key
  EXPECT_EQ(rig.vc->status.siteFrequency, "851.0125");
  EXPECT_EQ(l[ld::kDetectedSubtone], "293");
  EXPECT_EQ(l[ld::kRecSlot], "Slot 1");
  EXPECT_EQ(l[ld::kSetSlot], "Any");
  EXPECT_EQ(l[ld::kTag], "7");
  EXPECT_EQ(l[ld::kSystemType], "P25 Standard");
  EXPECT_EQ(l[ld::kListName], "Metro");
  EXPECT_EQ(l[ld::kListType], "FL");
  EXPECT_EQ(l[ld::kListQKey], "1");
  EXPECT_EQ(l[ld::kSysQKey], "2");
  EXPECT_EQ(l[ld::kDepQKey], "5");
  EXPECT_EQ(l[ld::kScanMode], "Scan Mode");
  EXPECT_EQ(l[ld::kScreen], "trunk_scan");
  EXPECT_EQ(rig.vc->status.siteIndex, "12");
  EXPECT_TRUE(rig.vc->status.busy);
  EXPECT_EQ(rig.vc->status.display.backlight, "Blue");
}

TEST(GsiParser, ASiteFrequencyWithoutTalkgroupIsTheChannelFrequency) {
  VcRig rig(Family::Sds);
  rig.vc->decoder.parseGsi(
      gsi("  <SiteFrequency Freq=\" 1240.012500MHz\" SAD=\"None\" />\r", "Mute=\"Mute\""));
  EXPECT_EQ(rig.vc->status.ldat[ld::kFrequency], "1240.0125");
}

TEST(GsiParser, NoValueWordsClearAChannelCellAndEmptyAttributesKeepTheOthers) {
  VcRig rig(Family::Sds);
  auto& l = rig.vc->status.ldat;
  l[ld::kSystem] = "Kept";
  l[ld::kTalkgroup] = "999";
  rig.vc->decoder.parseGsi(
      gsi("  <ConvFrequency Name=\"Channel 3\" Freq=\" 462.612500MHz\" Mod=\"NFM\" SAS=\"All\" "
          "SAD=\"None\" RecSlot=\"Slot None\" TGID=\"TGID None\" U_Id=\"UID: ---\" N_Tag=\"None\" "
          "SvcType=\"Other\" />\r",
          "Mute=\"Mute\" Rssi=\"-999\""));
  EXPECT_EQ(l[ld::kSystem], "Kept");  // no System element: the cell stays
  EXPECT_EQ(l[ld::kTalkgroup], "");   // "TGID None" is no value
  EXPECT_EQ(l[ld::kUid], "");
  EXPECT_EQ(l[ld::kChannel], "Channel 3");
  EXPECT_EQ(l[ld::kFrequency], "462.6125");
  EXPECT_EQ(l[ld::kSubtone], "All");
  EXPECT_EQ(l[ld::kServiceType], "Other");
  EXPECT_FALSE(rig.vc->status.busy);
}

TEST(GsiParser, TheServiceTypeIsTheChannelsOwn) {
  struct Case {
    const char* body;
    const char* service;
  } cases[] = {
      {"  <TGID Name=\"Fire Ops 1\" TGID=\"2412\" SvcType=\"Fire Tac\" />\r", "Fire Tac"},
      {"  <TGID Name=\"Fire Ops 1\" TGID=\"2412\" />\r", ""},  // none given: none kept
      {"  <ConvFrequency Name=\"Ch 3\" Freq=\" 462.612500MHz\" SvcType=\"Ham\" />\r", "Ham"},
  };
  for (const auto& c : cases) {
    VcRig rig(Family::Sds);
    rig.vc->status.ldat[ld::kServiceType] = "Other";  // the channel heard before
    rig.vc->decoder.parseGsi(gsi(c.body, "Mute=\"Unmute\""));
    EXPECT_EQ(rig.vc->status.ldat[ld::kServiceType], c.service) << c.body;
  }
}

TEST(GsiParser, RssiDrivesTheNeedle) {
  struct Case {
    const char* property;
    const char* readout;
    int level;
  } cases[] = {
      {"Rssi=\"-999\"", "", 0},         // rest
      {"Backlight=\"1\"", "-110", 20},  // a missing RSSI reads as -110
      {"Rssi=\"-49\"", "-49", 81},     {"Rssi=\"-200\"", "-200", 0}, {"Rssi=\"-5\"", "-5", 120},
  };
  for (const auto& c : cases) {
    VcRig rig(Family::Sds);
    rig.vc->status.display.needleLevel = 77;
    rig.vc->decoder.parseGsi(gsi("", c.property));
    EXPECT_EQ(rig.vc->status.rssiText, c.readout) << c.property;
    EXPECT_EQ(rig.vc->status.display.needleLevel, c.level) << c.property;
  }
  VcRig rig(Family::Sds);
  rig.vc->status.display.needleLevel = 77;
  rig.vc->decoder.parseGsi(gsi("", "Rssi=\"---\""));
  EXPECT_EQ(rig.vc->status.display.needleLevel, 77);  // "---" leaves the needle alone
}

TEST(GsiParser, TheNeedleBendsAtLevel59) {
  VcRig rig(Family::Sds);
  const auto& d = rig.vc->status.display;
  struct Case {
    int level;
    double angle;
  } cases[] = {{0, 0}, {59, 70.8}, {60, 71.9}, {120, 125.9}};
  for (const auto& c : cases) {
    rig.vc->decoder.SetSignalNeedle(c.level);
    double radians = (c.angle + 30) * 3.1415 / 180;
    EXPECT_NEAR(d.needleX, 1250 - 1000 * std::cos(radians), 1e-6) << c.level;
    EXPECT_NEAR(d.needleY, 1250 - 1000 * std::sin(radians), 1e-6) << c.level;
  }
}

TEST(GsiParser, AlertLightColoursAndUnknownsAreBlack) {
  for (std::string colour : {"White", "Red", "Blue", "Magenta", "Green", "Yellow", "Cyan"}) {
    VcRig rig(Family::Sds);
    rig.vc->decoder.parseGsi(gsi("", "A_Led=\"" + colour + "\""));
    EXPECT_EQ(rig.vc->status.display.backlight, colour);
  }
  VcRig rig(Family::Sds);
  rig.vc->decoder.parseGsi(gsi("", "A_Led=\"Purple\""));
  EXPECT_EQ(rig.vc->status.display.backlight, "Off");
}

TEST(GsiParser, TheWaterfallModeAndPageKeepTheChannelCells) {
  VcRig rig(Family::Sds);
  auto& st = rig.vc->status;
  std::string waterfall =
      "GSI,<XML>,\r<ScannerInfo Mode=\"Waterfall\" V_Screen=\"waterfall\">\r"
      "  <WaterfallBand Lower=\" 144.000000MHz\" Upper=\" 148.000000MHz\" Step=\"12.5kHz\" />\r"
      "  <WaterfallSettings MF=\" 146.000000MHz\" Gain=\"2\" />\r"
      "  <System Name=\"Ignored\" />\r</ScannerInfo>\r";
  rig.vc->decoder.parseGsi(waterfall);
  EXPECT_EQ(st.waterfallBand, " 144.000000MHz; 148.000000MHz;12.5kHz");
  EXPECT_EQ(st.waterfallSettings, " 146.000000MHz;2");
  EXPECT_EQ(st.ldat[ld::kSystem], "");

  rig.vc->link.waterfallPage = true;
  rig.vc->decoder.parseGsi(gsi(kTrunk, "Mute=\"Mute\""));
  EXPECT_EQ(st.ldat[ld::kSystem], "");         // the page on show blocks the record
  EXPECT_EQ(st.ldat[ld::kTalkgroup], "2412");  // the frequency elements are still read
}

TEST(GsiParser, TheWaterfallBandKeepsItsCentreSpanAndModulation) {
  VcRig rig(Family::Sds);
  rig.vc->decoder.parseGsi(
      "GSI,<XML>,\r<ScannerInfo Mode=\"Waterfall\" V_Screen=\"waterfall\">\r"
      "  <WaterfallBand Lower=\" 156.000000MHz\" Center=\" 159.000000MHz\" Upper=\" "
      "162.000000MHz\" Span=\"6.000000MHz\" Step=\"25kHz\" Mod=\"FM\" />\r"
      "</ScannerInfo>\r");
  EXPECT_EQ(rig.vc->status.waterfallExtra, " 159.000000MHz;6.000000MHz;FM");
}

TEST(GsiParser, TheBcdWindowOnlyFillsItsDebugPage) {
  VcRig rig(Family::Bcd);
  rig.vc->decoder.parseGsi(
      gsi("  <System Name=\"Metro P25\" />\r"
          "  <SrchFrequency Freq=\" 155.000000MHz\" SAD=\"C127.3\" "
          "RecSlot=\"Slot 2\" />\r",
          "Mute=\"Unmute\""));
  const auto& dbg = rig.vc->decoder.gsiDebug;
  EXPECT_EQ(dbg.system, "Metro P25");
  EXPECT_EQ(dbg.detectedSubtone, "C127.3");
  EXPECT_EQ(dbg.recSlot, "Slot 2");
  EXPECT_EQ(dbg.mode, "Scan Mode");
  EXPECT_EQ(rig.vc->status.ldat[ld::kSystem], "");
  EXPECT_FALSE(rig.vc->status.busy);
}

}  // namespace
}  // namespace zel::control
