#include <gtest/gtest.h>

#include "control/vc_timers.h"
#include "test_folder.h"
#include "vc_test_support.h"

namespace zel::control {
namespace {

TEST(GlgParser, FieldOneIsAFrequencyWithAPointOrElseATalkgroup) {
  struct Case {
    const char* field1;
    const char* frequency;
    const char* talkgroup;
  } cases[] = {
      {"0154.4300", "154.4300", ""},   // the leading zero is cut
      {"1240.0000", "1240.0000", ""},  // no zero to cut
      {"0460.12500", "460.1250", ""},  // eight characters are kept
      {"2412", "", "2412"},           {"", "", ""},
  };
  for (const auto& c : cases) {
    VcRig rig(Family::Bcd);
    EXPECT_EQ(rig.vc->decoder.parseGlg(glgReply(c.field1, "Dispatch")), ParseResult::Accepted);
    EXPECT_EQ(
        cells(rig.vc->status.ldat, {ld::kFrequency, ld::kTalkgroup}) + "|" + rig.vc->status.idText,
        std::string(c.frequency) + "|" + c.talkgroup + "|" + c.talkgroup)
        << c.field1;
  }
}

TEST(GlgParser, TheRecordFillsTheChannelCells) {
  VcRig rig(Family::Bcd);
  rig.glg("GLG,0154.4300,NFM,0,127.3,Springfield, City of,Fire,Dispatch,1,0,,,293\r");
  // The comma inside the system's name repaired.
  EXPECT_EQ(cells(rig.vc->status.ldat, {ld::kModulation, ld::kSubtone, ld::kSystem, ld::kDepartment,
                                        ld::kChannel, ld::kNac}),
            "NFM|127.3|Springfield; City of|Fire|Dispatch|293");
  EXPECT_EQ(rig.vc->status.glgText,
            "GLG,0154.4300,NFM,0,127.3,Springfield; City of,Fire,Dispatch,1,0,,,293");
}

TEST(GlgParser, TheEmptyFormLeavesTheRecordEmptyAndStaysOutOfTheDataLog) {
  TestFolder folder;
  VcRig rig(Family::Bcd, folder.path());
  rig.vc->options.debug = true;
  rig.glg(glgReply("0154.4300", "Dispatch"));
  rig.glg("GLG,,,,,,,,,,,,\r");
  for (const auto& cell : rig.vc->status.ldat) EXPECT_EQ(cell, "");
  EXPECT_EQ(readFile(folder.file("datalog.txt")),
            "GLG,0154.4300,NFM,0,,County,Fire,Dispatch,1,0,,,NONE\r\n");
}

TEST(GlgParser, OnlyACompleteReplyOfItsOwnWordIsTaken) {
  VcRig rig(Family::Bcd);
  EXPECT_EQ(rig.vc->decoder.parseGlg("GLG,0154.4300,NFM,0,,A,B,C,1,0,,,NONE"),
            ParseResult::Waiting);
  EXPECT_EQ(rig.vc->decoder.parseGlg("KEY,OK\r"), ParseResult::Waiting);
  EXPECT_EQ(rig.vc->status.ldat[ld::kFrequency], "");
}

TEST(GlgParser, ThreeWaysToSeeATransmission) {
  struct Case {
    const char* reply;
    bool busy;
  } cases[] = {
      {"GLG,0154.4300,NFM,0,,A,B,C,1,0,,,293\r", true},  // field 9, the mute flag, is 0
      {"GLG,0154.4300,NFM,0,,A,B,C,1,1,,,NONE\r", false},
      {"GLG,0154.4300,NFM,0,,A,B,C,9,1,0,,,NONE\r", true},  // holds "1,0,,,NONE"
      // A comma in a name shifts the fields; the fourth from the end is still the mute flag.
      {"GLG,0154.4300,NFM,0,,Smith, Jones,B,C,1,0,,,293\r", true},
      {"GLG,,,,,,,,,,,,\r", false},
  };
  for (const auto& c : cases) {
    VcRig rig(Family::Bcd);
    rig.glg(c.reply);
    EXPECT_EQ(std::make_tuple(rig.vc->status.busy, rig.vc->status.miniBusy,
                              rig.vc->timers.enabled(busydelay)),
              std::make_tuple(c.busy, c.busy, !c.busy))
        << c.reply;
  }
}

TEST(GlgParser, TheBusyMarkGoesAQuarterSecondAfterTheFirstQuietReply) {
  VcRig rig(Family::Bcd);
  auto& st = rig.vc->status;
  rig.glg(glgReply("2412", "Ops 1", "", true, "293"));
  st.uidText = "1872001";
  rig.vc->counters.secondsBusy = 4;
  rig.vc->counters.wasBusy = -1;
  EXPECT_TRUE(st.busy);
  rig.glg(glgReply("2412", "Ops 1", "", false, "293"));
  EXPECT_TRUE(st.busy && !st.miniBusy);  // held off
  rig.run(240);
  rig.glg(glgReply("2412", "Ops 1", "", false, "293"));  // enabling again does not restart
  rig.run(20);
  EXPECT_FALSE(st.busy);
  EXPECT_EQ(std::tie(st.uidText, st.idText, rig.vc->counters.secondsBusy, rig.vc->counters.wasBusy),
            std::make_tuple("", "", 0, 0));
  EXPECT_TRUE(!rig.vc->timers.enabled(busydelay) && rig.vc->timers.enabled(delaylog));
  // A new transmission stops the forgetting.
  rig.glg(glgReply("2412", "Ops 1", "", true, "293"));
  EXPECT_FALSE(rig.vc->timers.enabled(delaylog));
}

TEST(GlgParser, TheModeLabelShowsOnlyWhileBusyAndResumeAfterStartsItsTimer) {
  VcRig rig(Family::Bcd);
  rig.vc->options.action = LogAction::ResumeAfter;
  rig.vc->options.resumeAfterIndex = 2;
  rig.glg(glgReply("0154.4300", "Dispatch", "", true));
  EXPECT_EQ(rig.vc->status.modeText, "");  // busy was not yet shown when it was read
  EXPECT_TRUE(rig.vc->timers.enabled(Timer16));
  rig.glg(glgReply("0154.4300", "Dispatch", "", true));
  EXPECT_EQ(rig.vc->status.modeText, "NFM");

  VcRig off(Family::Bcd);
  off.vc->options.action = LogAction::ResumeAfter;
  off.vc->options.resumeAfterIndex = 0;  // "Disabled"
  off.glg(glgReply("0154.4300", "Dispatch", "", true));
  EXPECT_FALSE(off.vc->timers.enabled(Timer16));
}

}  // namespace
}  // namespace zel::control
