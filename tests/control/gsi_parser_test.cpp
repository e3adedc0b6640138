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
  using namespace ld;  // a talkgroup hit keeps its talkgroup key: no frequency
  EXPECT_EQ(cells(rig.vc->status.ldat,
                  {kSystem, kDepartment, kTalkgroup, kChannel, kUid, kUidName, kFrequency,
                   kDetectedSubtone, kRecSlot, kSetSlot, kTag, kSystemType, kListName, kListType,
                   kListQKey, kSysQKey, kDepQKey, kScanMode, kScreen}),
            "Metro P25|Fire; North|2412|Fire Ops 1|1872001|Engine 5||293|Slot 1|Any|7|P25 "
            "Standard|Metro|FL|1|2|5|Scan Mode|trunk_scan");
  const ScannerStatus& st = rig.vc->status;
  EXPECT_EQ(std::tie(st.siteFrequency, st.siteIndex, st.busy, st.display.backlight),
            std::make_tuple("851.0125", "12", true, "Blue"));
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
  // No System element: the cell stays; "TGID None" is no value.
  EXPECT_EQ(cells(l, {ld::kSystem, ld::kTalkgroup, ld::kUid, ld::kChannel, ld::kFrequency,
                      ld::kSubtone, ld::kServiceType}),
            "Kept|||Channel 3|462.6125|All|Other");
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
    EXPECT_EQ(std::tie(rig.vc->status.rssiText, rig.vc->status.display.needleLevel),
              std::make_tuple(c.readout, c.level))
        << c.property;
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

TEST(GsiParser, AnUnknownAlertLightColourIsOff) {
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
  EXPECT_EQ(std::tie(st.waterfallBand, st.waterfallSettings, st.ldat[ld::kSystem]),
            std::make_tuple(" 144.000000MHz; 148.000000MHz;12.5kHz", " 146.000000MHz;2", ""));

  rig.vc->link.waterfallPage = true;
  rig.vc->decoder.parseGsi(gsi(kTrunk, "Mute=\"Mute\""));
  // The page on show blocks the record; the frequency elements are still read.
  EXPECT_EQ(cells(st.ldat, {ld::kSystem, ld::kTalkgroup}), "|2412");
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
  EXPECT_EQ(std::tie(dbg.system, dbg.detectedSubtone, dbg.recSlot, dbg.mode),
            std::make_tuple("Metro P25", "C127.3", "Slot 2", "Scan Mode"));
  EXPECT_EQ(rig.vc->status.ldat[ld::kSystem], "");
  EXPECT_FALSE(rig.vc->status.busy);
}

}  // namespace
}  // namespace zel::control
