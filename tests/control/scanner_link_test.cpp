#include "control/scanner_link.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "control/poll_order.h"
#include "control/vc_timers.h"
#include "test_folder.h"
#include "vc_test_support.h"

namespace zel::control {
namespace {

std::vector<std::string> queriesOf(const ScriptedSerialPort& port) {
  std::vector<std::string> out;
  for (const auto& c : port.commands())
    if (!c.empty()) out.push_back(c);
  return out;
}

TEST(ScannerLinkPorts, LoadListsNumberedPortsThenRestoresTheSavedText) {
  VcRig rig(Family::Bcd);
  rig.port.ports.push_back({"/dev/ttyACM0", "scanner"});
  auto& link = rig.vc->link;
  link.onLoad();
  const auto& e = link.entries();
  ASSERT_EQ(e.size(), 41u);  // select, usb/com1..39, and the port that is no COM port
  EXPECT_EQ(
      e[0].text + " " + e[1].text + " " + e[39].text + " " + e[39].portName + " " + e[40].text,
      "select usb/com1 usb/com39 COM39 /dev/ttyACM0");
  EXPECT_TRUE(rig.vc->timers.enabled(Timer9) && !link.connectEnabled());

  Settings s(rig.settings);
  s.put("vc", "comport", "usb/com7");
  rig.run(500);  // the one-shot restore
  EXPECT_TRUE(!rig.vc->timers.enabled(Timer9) && link.connectEnabled());
  EXPECT_EQ(e[link.selectedIndex()].text, "usb/com7");
}

TEST(ScannerLinkPorts, ASavedPortThatIsNoEntryLeavesSelectChosenWithoutAnError) {
  for (const char* stored : {"usb/com45", "", "1"}) {
    VcRig rig(Family::Sds);
    Settings s(rig.settings);
    if (*stored) s.put("vc_sds", "comport_sds", stored);
    rig.vc->link.onLoad();
    rig.vc->link.onTimer9(s);
    EXPECT_EQ(rig.vc->link.selectedIndex(), 0) << stored;
    EXPECT_TRUE(rig.feedback.messages.empty() && rig.feedback.beeps == 0);
  }
}

TEST(ScannerLinkPorts, ScanKeepsThePortsThatAnswerAndReselectsTheSavedOne) {
  VcRig rig(Family::Bcd);
  Settings s(rig.settings);
  s.put("vc", "comport", "usb/com7");
  auto& link = rig.vc->link;
  link.onLoad();
  link.scanPorts(s);
  ASSERT_EQ(link.entries().size(), 3u);
  EXPECT_EQ(std::tie(link.entries()[1].text, link.entries()[2].text, link.portPresent[3],
                     link.portPresent[4]),
            std::make_tuple("usb/com3", "usb/com7", 1, 0));
  EXPECT_EQ(link.selectedIndex(), 2);
}

// A chosen port stored at close is VirtualControlClose's test.
TEST(ScannerLinkPorts, NoPortIsStoredWhileSelectIsChosen) {
  VcRig rig(Family::Bcd);
  Settings s(rig.settings);
  rig.vc->link.onLoad();
  rig.vc->link.savePort(s);
  EXPECT_EQ(s.getPlain("vc", "comport", "none"), "none");
}

TEST(ScannerLinkConnect, AnOpenErrorOrNoPortChosenBeepsAndNothingIsPolled) {
  VcRig rig(Family::Bcd);
  rig.port.openError = kPortErrorInvalidPort;
  rig.connect("COM5");
  EXPECT_EQ(std::make_tuple(rig.vc->link.title(), rig.feedback.beeps, rig.vc->link.waitingReply),
            std::make_tuple("usb/comport error: 8002", 1, 0));
  EXPECT_FALSE(rig.vc->timers.enabled(Timer1) || rig.vc->timers.enabled(Timer10));
  rig.run(1000);
  EXPECT_TRUE(rig.port.commands().empty());
  // With "select" chosen, Connect only beeps.
  VcRig none(Family::Bcd);
  none.vc->link.onLoad();
  none.vc->link.connect();
  EXPECT_EQ(std::tie(none.feedback.beeps, none.port.openCount), std::make_tuple(1, 0));
  EXPECT_FALSE(none.vc->timers.enabled(Timer1));
}

TEST(ScannerLinkConnect, ConnectWaitsHalfASecondThenOpensAtTheFixedSettings) {
  VcRig rig(Family::Bcd);
  rig.connect("COM3");
  EXPECT_EQ(std::make_tuple(rig.port.lastPort, rig.port.lastSettings, rig.vc->link.title(),
                            rig.vc->link.waitingReply),
            std::make_tuple("COM3", "115200,n,8,1", "ZEL536PRO ", 0));
  EXPECT_EQ(rig.pump.waits, std::vector<int>{500});
  EXPECT_TRUE(rig.vc->timers.enabled(Timer1) && rig.vc->timers.enabled(Timer10));
}

TEST(ScannerLinkConnect, TheRestoreOfTheSavedPortDuringTheWaitDoesNotChangeThePortOpened) {
  // The wait before opening runs the window's timers, as the event loop does.
  struct TimerPump : EventPump {
    VirtualControl* vc = nullptr;
    ManualClock* clock = nullptr;
    void runFor(int ms) override {
      vc->timers.runUntil(*clock, clock->ms + ms, [this](int id) { vc->fire(id); });
    }
    void runPending() override {}
  } pump;
  ManualClock clock;
  ScriptedSerialPort port;
  RecordingFeedback feedback;
  MemorySettingsStore settings;
  port.ports = {{"COM7", ""}};
  pump.clock = &clock;
  VirtualControl vc(Family::Sds, VcPorts{port, clock, pump, feedback, settings}, "");
  pump.vc = &vc;
  vc.load();  // the restore of the saved port falls due at 500 ms
  clock.advance(200);
  vc.link.selectPortName("COM7");
  vc.link.connect();  // waits from 200 to 700 ms; the restore runs meanwhile
  EXPECT_FALSE(vc.timers.enabled(Timer9));
  EXPECT_EQ(vc.link.entries()[vc.link.selectedIndex()].portName + "|" + port.lastPort, "COM7|COM7");
  EXPECT_TRUE(port.isOpen());
}

TEST(ScannerLinkPoll, EachFamilyRunsItsRoundOfQueries) {
  struct Case {
    Family family;
    bool waterfall;
    std::vector<std::string> round;
  } cases[] = {
      {Family::Bcd,
       false,
       {"STS", "GID", "GLG", "VOL", "SQL", "MDL", "PWR", "GSI", "SVC", "FQK", "WIN", "STS"}},
      {Family::Sds, false, {"STS", "GLG", "MDL", "GSI", "SVC", "FQK", "STS"}},
      {Family::Sds, true, {"STS", "GSI", "GWF,1", "STS"}},
  };
  for (const auto& c : cases) {
    VcRig rig(c.family);
    rig.vc->link.waterfallPage = c.waterfall;
    rig.connect();
    for (std::size_t i = 0; i < c.round.size(); ++i) rig.vc->link.onTimer1();
    EXPECT_EQ(queriesOf(rig.port), c.round);
  }
}

TEST(ScannerLinkPoll, AStepTheRoundDoesNotListSendsNothingUntilTheWatchdogResetsIt) {
  VcRig rig(Family::Sds);
  rig.connect();
  auto& link = rig.vc->link;
  link.pollStep = 5;  // listed in the normal round (MDL), not on the waterfall page
  link.waterfallPage = true;
  rig.run(1900);
  EXPECT_TRUE(queriesOf(rig.port).empty());
  EXPECT_EQ(link.pollStep, 5);
  rig.run(200);  // the watchdog, armed by the empty ticks, resets the round
  EXPECT_EQ(link.watchdogFirings, 1);
  rig.run(100);
  ASSERT_FALSE(queriesOf(rig.port).empty());
  EXPECT_EQ(queriesOf(rig.port).front(), "STS");
}

TEST(ScannerLinkPoll, SendCounterWrapsAbove56AndAnAwaitedMinusOneHoldsNothing) {
  VcRig bcd(Family::Bcd);  // the BCD window starts counting at 90
  bcd.connect();
  bcd.vc->link.onTimer1();
  EXPECT_EQ(bcd.vc->link.sendCounter, 2);  // 90 > 56: back to 1, then counted
  for (int i = 0; i < 55; ++i) bcd.vc->link.onTimer1();
  EXPECT_EQ(bcd.vc->link.sendCounter, 57);
  bcd.vc->link.onTimer1();
  EXPECT_EQ(bcd.vc->link.sendCounter, 2);
  // A reply awaited as -1 does not hold the next send.
  bcd.vc->link.waitingReply = -1;
  const std::size_t sent = queriesOf(bcd.port).size();
  bcd.vc->link.onTimer1();
  bcd.vc->link.onTimer1();
  EXPECT_EQ(queriesOf(bcd.port).size(), sent + 2);
  EXPECT_EQ(bcd.vc->link.waitingReply, -1);
}

TEST(ScannerLinkPoll, TheSdsSendTickRunsAt75MsOr200WithTheGpsPort) {
  VcRig rig(Family::Sds);
  rig.connect();
  rig.vc->link.onTimer1();
  EXPECT_EQ(rig.vc->timers.interval(Timer1), 75);
  EXPECT_EQ(rig.vc->link.pollStepText, "0");
  rig.vc->link.useGpsPort = true;
  rig.vc->link.onTimer1();
  EXPECT_EQ(rig.vc->timers.interval(Timer1), 200);
}

TEST(ScannerLinkReceive, AReplyStillIncompleteAtTheNextSendTickIsLost) {
  VcRig rig(Family::Bcd);
  rig.connect();
  auto& link = rig.vc->link;
  link.pollStep = 2;
  link.onTimer1();  // sends GLG, awaits it at step 3
  rig.port.feed("GLG,0154.4300,NFM,0,,County,Fire,Dis");
  link.onTimer10();
  EXPECT_FALSE(link.rxBuffer.empty());
  link.onTimer1();  // sends VOL: the half GLG is thrown away
  EXPECT_TRUE(link.rxBuffer.empty());
  rig.port.feed("patch,1,0,,,NONE\r");  // the rest of it arrives under the VOL step
  link.onTimer10();
  EXPECT_EQ(rig.vc->status.ldat[ld::kChannel], "");
  EXPECT_EQ(link.pollStep, 4);
  link.onTimer1();
  EXPECT_EQ(queriesOf(rig.port).back(), "SQL");  // the round goes on
}

TEST(ScannerLinkReceive, PollStep99StopsTheReceiverWhileThePortStaysOpen) {
  VcRig rig(Family::Bcd);
  rig.connect();
  auto& link = rig.vc->link;
  link.pollStep = kPollStopped;
  rig.port.feed("STS,0000100,x,\r");
  int reads = rig.port.readCount;
  link.onTimer10();
  EXPECT_EQ(std::make_tuple(rig.port.readCount, rig.port.bytesAvailable()),
            std::make_tuple(reads, 15));
  EXPECT_TRUE(link.rxBuffer.empty() && rig.port.isOpen());
}

// The watchdog's disarming is proven by the silence test's answering scanner.
TEST(ScannerLinkReceive, AnAcceptedReplyClearsTheBuffer) {
  VcRig rig(Family::Bcd);
  rig.connect();
  auto& link = rig.vc->link;
  link.onTimer1();  // STS sent
  rig.port.feed("STS,0000100,Scan,,\r");
  link.onTimer10();
  EXPECT_TRUE(link.rxBuffer.empty() && link.waitingReply == 0);
}

TEST(ScannerLinkWatchdog, ACompleteStsClearsTheCounterAndAGlgDoesNot) {
  VcRig rig(Family::Bcd);
  rig.connect();
  auto& link = rig.vc->link;
  link.watchdogCount = 7;
  const ParseResult glg = rig.receive(3, glgReply("0154.4300", "Dispatch"));
  EXPECT_EQ(std::make_pair(glg, link.watchdogCount), std::make_pair(ParseResult::Accepted, 7));
  const ParseResult sts = rig.receive(1, "STS,0000100,Scan,,\r");
  EXPECT_EQ(std::make_pair(sts, link.watchdogCount), std::make_pair(ParseResult::Accepted, 0));
}

TEST(ScannerLinkWatchdog, SilenceResetsThePortEveryTwoSecondsAndPollingResumes) {
  VcRig rig(Family::Bcd);
  rig.connect();
  auto& link = rig.vc->link;
  // The first query goes out 50 ms after connecting; two seconds later the watchdog fires.
  rig.run(2040);
  EXPECT_EQ(link.watchdogFirings, 0);
  rig.run(20);  // the port reopened by the connect handler
  EXPECT_EQ(
      std::tie(link.watchdogFirings, link.watchdogCount, rig.port.closeCount, rig.port.openCount),
      std::make_tuple(1, 1, 1, 2));
  // The reset wrote a lone CR; the round starts again at STS.
  rig.run(100);
  const auto& sent = rig.port.commands();
  const auto it = std::find(sent.begin(), sent.end(), "");
  ASSERT_TRUE(it != sent.end() && it + 1 != sent.end());
  EXPECT_EQ(*(it + 1), "STS");
  // A scanner that answers again keeps the watchdog quiet.
  rig.port.responder = [&](const std::string& c) {
    if (c == "STS") rig.port.feed("STS,0000100,Scan,,\r");
    if (c == "GLG") rig.port.feed("GLG,,,,,,,,,,,,\r");
    if (c == "GID" || c == "WIN") rig.port.feed(c + ",\r");
    if (c == "VOL" || c == "SQL" || c == "MDL" || c == "PWR" || c == "SVC")
      rig.port.feed(c + ",1\r");
    if (c == "GSI") rig.port.feed("GSI,<XML>,<ScannerInfo></ScannerInfo>\r");
  };
  int firings = link.watchdogFirings;
  rig.run(6000);
  EXPECT_EQ(std::tie(link.watchdogFirings, link.watchdogCount), std::make_tuple(firings, 0));
  EXPECT_GT(link.repliesSinceReset, 50);
}

TEST(ScannerLinkWatchdog, TheCounterWrapsAfterTwentyAndTellsTheTitle) {
  for (Family family : {Family::Bcd, Family::Sds}) {
    VcRig rig(family);
    const char* title = family == Family::Bcd ? "No scomm1unication, trying to reset com port."
                                              : "No communication, trying to reset com port.";
    std::vector<std::string> titles;
    rig.vc->link.onTitle = [&](const std::string& t) { titles.push_back(t); };
    rig.connect();
    rig.run(20 * 2000 + 1900);
    EXPECT_EQ(rig.vc->link.watchdogCount, 20);
    EXPECT_EQ(std::count(titles.begin(), titles.end(), title), 0);
    rig.run(200);
    EXPECT_EQ(rig.vc->link.watchdogCount, 1);
    EXPECT_EQ(std::count(titles.begin(), titles.end(), title), 1);
    EXPECT_TRUE(rig.feedback.messages.empty());  // the title, never a dialog
  }
}

TEST(ScannerLinkWatchdog, TheSdsWindowBeepsTwiceAndAppendsAnEightLineRecord) {
  TestFolder folder;
  VcRig rig(Family::Sds, folder.path());
  rig.clock.time = "10:11:12";
  rig.connect();
  rig.vc->link.onTimer1();
  rig.port.feed("STS,half");
  rig.vc->link.onTimer10();
  rig.vc->link.onTimer2();
  EXPECT_EQ(rig.feedback.beeps, 2);
  EXPECT_EQ(readFile(folder.file("comerrorlog.txt")),
            "Error log: 2026-01-01 / 10:11:12\r\n1:1\r\n2:1\r\n3:8\r\n4:0\r\n5:0\r\n6:-1\r\n"
            "7:STS,half\r\n");
}

TEST(ScannerLinkCommands, SendCommandNeedsAnOpenPortWhichTheReconnectOpens) {
  VcRig rig(Family::Bcd);
  EXPECT_FALSE(rig.vc->link.SendCommand("KEY,L,P"));
  rig.connect();
  EXPECT_TRUE(rig.vc->link.SendCommand("KEY,L,P"));
  EXPECT_EQ(rig.port.rawOutput(), "KEY,L,P\r");
  // The one-shot reconnect runs the connect handler.
  VcRig again(Family::Bcd);
  again.vc->link.selectPortName("COM7");
  again.vc->timers.enable(Timer4);
  again.run(250);
  EXPECT_TRUE(!again.vc->timers.enabled(Timer4) && again.port.isOpen());
  EXPECT_EQ(again.port.lastPort, "COM7");
}

}  // namespace
}  // namespace zel::control
