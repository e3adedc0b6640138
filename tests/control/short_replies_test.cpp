#include <gtest/gtest.h>

#include "control/scanner_link.h"
#include "vc_test_support.h"

namespace zel::control {
namespace {

TEST(ShortReplies, TheBcdWindowRefusesAnSdsAndCloses) {
  VcRig rig(Family::Bcd);
  rig.connect();
  EXPECT_EQ(rig.receive(6, "MDL,SDS200\r"), ParseResult::Accepted);
  EXPECT_EQ(rig.vc->status.model, "SDS200");
  EXPECT_EQ(rig.feedback.messages, std::vector<std::string>{"New sds model detected, please "
                                                            "select SDS VC for correct interface"});
  EXPECT_TRUE(rig.vc->decoder.sdsModelDetected && rig.vc->decoder.closeRequested);
  EXPECT_FALSE(rig.port.isOpen());
}

TEST(ShortReplies, TheSdsWindowRefusesABcdOnceAndNamesItselfForAnSds) {
  VcRig rig(Family::Sds);
  rig.connect();
  rig.receive(6, "MDL,BCD536HP\r");
  rig.receive(6, "MDL,BCD536HP\r");
  EXPECT_EQ(
      rig.feedback.messages,
      std::vector<std::string>{
          "Scanner model 436/536 model detected, please select BCD VC for correct interface"});
  EXPECT_TRUE(rig.port.isOpen());
  rig.receive(6, "MDL,SDS100\r");
  EXPECT_EQ(rig.vc->link.title(), kSdsTitle);
}

TEST(ShortReplies, ValuesAreTakenAsSoonAsTheirWordArrived) {
  VcRig rig(Family::Bcd);
  auto& d = rig.vc->decoder;
  auto& st = rig.vc->status;
  EXPECT_EQ(d.parsePower("PWR,512,01544300\r"), ParseResult::Accepted);
  EXPECT_EQ(st.signalValue, "512");
  EXPECT_EQ(d.parsePower("PWR,6"), ParseResult::Accepted);  // half a reply is taken too
  EXPECT_EQ(st.signalValue, "6");
  EXPECT_EQ(d.parsePower("KEY,OK\r"), ParseResult::Accepted);  // not its word: no change
  EXPECT_EQ(st.signalValue, "6");
  d.parseVolume("VOL,7\r");
  d.parseSquelch("SQL,3\r");
  EXPECT_EQ(st.volume + "|" + st.squelch, "7|3");
  // The model is eight characters from behind the comma.
  d.parseModel("MDL,UBCD3600XLT\r");
  EXPECT_EQ(st.model, "UBCD3600");
  d.parseModel("MDL,BCD436HP\r");
  EXPECT_EQ(st.model, "BCD436HP");
}

TEST(ShortReplies, WindowFrequencyGroupTextAndServiceFlags) {
  VcRig rig(Family::Bcd);
  auto& d = rig.vc->decoder;
  EXPECT_EQ(d.parseWindow("WIN,3,01544300"), ParseResult::Waiting);
  EXPECT_EQ(d.parseWindow("WIN,3,01544300\r"), ParseResult::Accepted);
  EXPECT_EQ(rig.vc->status.frequencyText, "154.4300");
  EXPECT_EQ(d.parseGid("GID,P25,2412,0,A,B,C\r"), ParseResult::Accepted);
  EXPECT_EQ(rig.vc->status.groupText, "GID,P25,2412,0,A,B,C");
  // Service flags paint their buttons; neither "0" nor "1" leaves one unchanged.
  d.parseServices("SVC,1,0,1,x\r");
  const auto& s = rig.vc->status.display.services;
  EXPECT_EQ(std::vector<int>(s.begin() + 1, s.begin() + 5), (std::vector<int>{1, 0, 1, -1}));
  EXPECT_EQ(s[37], -1);
}

TEST(ShortReplies, AnEmptyReplyIsWaitedOnByEveryParser) {
  for (Family f : {Family::Bcd, Family::Sds}) {
    VcRig rig(f);
    auto& d = rig.vc->decoder;
    const std::string e;
    EXPECT_EQ((std::vector<ParseResult>{d.parseGlg(e), d.parseSts(e), d.parseGid(e),
                                        d.parseWindow(e), d.parseWaterfall(e), d.parseGsi(e)}),
              std::vector<ParseResult>(6, ParseResult::Waiting));
  }
}

TEST(ShortReplies, TheDispatchFollowsTheStepAwaited) {
  VcRig rig(Family::Bcd);
  rig.connect();
  EXPECT_EQ(rig.receive(10, "FQK,1,1,0\r"), ParseResult::Waiting);  // FQK has no parser
  VcRig sds(Family::Sds);
  std::string frame;
  sds.vc->decoder.waterfallSink = [&](const std::string& f) { frame = f; };
  sds.connect();
  EXPECT_EQ(sds.receive(0, "GWF,1,2,3\r"), ParseResult::Accepted);
  EXPECT_EQ(frame, "GWF,1,2,3");
  EXPECT_EQ(sds.receive(5, glgReply("0154.4300", "Disp")), ParseResult::Accepted);
  EXPECT_EQ(sds.vc->status.ldat[ld::kChannel], "Disp");
}

}  // namespace
}  // namespace zel::control
