// The decoders on replies of a real SDS200 (firmware 1.23.15), some with control
// characters and high bytes.
#include <gtest/gtest.h>

#include "vc_test_support.h"

namespace zel::control {
namespace {

std::string real(const std::string& name) {
  return readFile(std::string(ZEL_REALDATA_DIR) + "/serial_sds200/" + name);
}

// Some captures lost their final CR; a reply on the wire always has one.
std::string withCr(std::string reply) {
  if (reply.empty() || reply.back() != '\r') reply += '\r';
  return reply;
}

bool noHighBytesLeft(const DisplayModel& d) {
  for (const auto& row : d.rows)
    for (char c : row.text)
      if (static_cast<unsigned char>(c) >= 135) return false;
  return true;
}

TEST(RealSdsReplies, AnIdleScreenDecodes) {
  VcRig rig(Family::Sds);
  std::string sts = real("STS_RESPONSE.bin");
  ASSERT_FALSE(sts.empty());
  EXPECT_EQ(rig.vc->decoder.parseSts(sts), ParseResult::Waiting);  // captured without its CR
  EXPECT_EQ(rig.vc->decoder.parseSts(withCr(sts)), ParseResult::Accepted);
  const auto& st = rig.vc->status;  // "Sys ID: ---" is no value
  EXPECT_EQ(
      std::tie(st.displayClass, st.listScreen, st.screenFields[10], st.screenFields[18],
               st.lineIsRule[28], st.ldat[ld::kSystemIndex], st.ldat[ld::kSiteIndex],
               st.display.rows[4].text, st.display.rows[9].visible, st.ccdata[0]),
      std::make_tuple(0, 0, "Coast Guard - USA             ", "Scanning...                   ", "0",
                      "", "", "Coast Guard - USA             ", true, ""));
}

TEST(RealSdsReplies, HighBytesAreTheSignalGlyphsAndTurnToBlanks) {
  for (bool busy : {false, true}) {
    VcRig rig(Family::Sds);
    rig.vc->status.busy = busy;
    rig.vc->decoder.parseSts(withCr(real("STS_RESPONSE_WITH_HIGH_BYTES.bin")));
    EXPECT_EQ(rig.vc->status.display.signalBars, busy ? 4 : 0);
    EXPECT_TRUE(noHighBytesLeft(rig.vc->status.display));
    EXPECT_EQ(rig.vc->status.display.rows[0].text, "              Jul21 22:46     ");
  }
}

TEST(RealSdsReplies, ControlCharactersTranslateWhereTheyMeanSomething) {
  VcRig rig(Family::Sds);
  rig.vc->decoder.parseSts(withCr(real("STS_RESPONSE_WITH_CONTROL_CHARS.bin")));
  const auto& rows = rig.vc->status.display.rows;
  EXPECT_EQ(rows[6].text.substr(0, 31), "Grissom Air Reserve Base - 4...");  // 6 7 is "..."
  EXPECT_NE(rows[1].text.find('\x1a'), std::string::npos);  // an unknown code stays
}

TEST(RealSdsReplies, TheWeatherPopupIsAListScreen) {
  VcRig rig(Family::Sds);
  rig.vc->decoder.parseSts(real("STS_RESPONSE_WEATHER_ALERT_POPUP.bin"));
  EXPECT_EQ(rig.vc->status.listScreen, 1);
  EXPECT_EQ(rig.vc->status.display.rows[2].text, "Warning WX                    ");
  for (const char* name : {"STS_RESPONSE_WEATHER_ALERT.bin", "STS_RESPONSE_WX_HOLD_AFTER_POPUP.bin",
                           "STS_RESPONSE_WX_SCAN.bin"}) {
    VcRig wx(Family::Sds);
    wx.vc->status.busy = true;
    EXPECT_EQ(wx.vc->decoder.parseSts(real(name)), ParseResult::Accepted) << name;
    EXPECT_EQ(wx.vc->status.display.signalBars, 4) << name;
    EXPECT_TRUE(noHighBytesLeft(wx.vc->status.display)) << name;
  }
}

TEST(RealSdsReplies, GsiRepliesFillTheRecordAndTheNeedle) {
  struct Case {
    const char* file;
    const char* mode;
    bool busy;
    int needle;
    const char* light;
  } cases[] = {
      {"GSI_RESPONSE_SCAN_MODE.bin", "Scan Mode", false, 0, "Off"},
      {"GSI_RESPONSE_WEATHER_ALERT.bin", "WX Hold", false, 81, "Off"},
      {"GSI_RESPONSE_WEATHER_ALERT_POPUP.bin", "WX Hold", false, 81, "Red"},
      {"GSI_RESPONSE_WX_HOLD_AFTER_POPUP.bin", "WX Hold", true, 81, "Off"},
      {"GSI_RESPONSE_WX_SCAN.bin", "WX Scan", true, 23, "Off"},
  };
  for (const auto& c : cases) {
    VcRig rig(Family::Sds);
    rig.vc->status.display.needleLevel = -1;
    EXPECT_EQ(rig.vc->decoder.parseGsi(real(c.file)), ParseResult::Accepted) << c.file;
    const auto& st = rig.vc->status;
    EXPECT_EQ(
        std::tie(st.ldat[ld::kScanMode], st.busy, st.display.needleLevel, st.display.backlight),
        std::make_tuple(c.mode, c.busy, c.needle, c.light))
        << c.file;
  }
  VcRig rig(Family::Sds);
  rig.vc->decoder.parseGsi(real("GSI_RESPONSE_SCAN_MODE.bin"));
  using namespace ld;  // "TGID None" is no talkgroup; -999 no reading
  EXPECT_EQ(cells(rig.vc->status.ldat, {kSystem, kDepartment, kChannel, kFrequency, kModulation,
                                        kSubtone, kTalkgroup, kListName, kListType, kServiceType}),
            "Family Radio Service (FRS) - USA|Family Radio Service (FRS)|Channel 3|462.6125|NFM|"
            "All||Full Database|FullDb|Other");
  EXPECT_EQ(rig.vc->status.rssiText, "");
}

TEST(RealSdsReplies, AGsiInPiecesIsTakenWhenItsEndArrives) {
  VcRig rig(Family::Sds);
  rig.connect();
  std::string gsi = real("GSI_RESPONSE_SCAN_MODE.bin");
  rig.vc->link.pollStep = 8;
  for (std::size_t at = 0; at < gsi.size(); at += 100) {
    rig.port.feed(gsi.substr(at, 100));
    rig.vc->link.onTimer10();
    bool last = at + 100 >= gsi.size();
    EXPECT_EQ(rig.vc->link.rxBuffer.empty(), last) << at;
  }
  EXPECT_EQ(rig.vc->status.ldat[ld::kChannel], "Channel 3");
}

TEST(RealSdsReplies, AStrayGsiUnderTheScreenStepIsNoScreen) {
  VcRig rig(Family::Sds);
  rig.vc->decoder.parseSts(withCr(real("STS_RESPONSE.bin")));
  rig.vc->decoder.parseSts(real("STRAY_GSI_PUSH.bin"));
  // "<XML>" is no format word: the display keeps the last screen.
  EXPECT_EQ(rig.vc->status.display.rows[4].text, "Coast Guard - USA             ");
}

}  // namespace
}  // namespace zel::control
