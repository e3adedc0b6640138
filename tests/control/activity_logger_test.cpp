#include "control/activity_logger.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "control/vc_timers.h"
#include "test_folder.h"
#include "vc_test_support.h"

namespace zel::control {
namespace {

using Lines = std::vector<std::string>;

int logRows(const LogPage& page) {
  int n = 0;
  for (int r = 1; r <= LogPage::kRows; ++r) n += page.cell(r, 0) == "LOG";
  return n;
}

// A GSI reply holding `body` and no Property element.
std::string gsiReply(const std::string& body) {
  return "GSI,<XML>,\r<?xml version=\"1.0\" encoding=\"utf-8\"?>\r"
         "<ScannerInfo Mode=\"Scan Mode\" V_Screen=\"trunk_scan\">\r" +
         body + "</ScannerInfo>\r";
}

struct LoggerRig : VcRig {
  explicit LoggerRig(Family f = Family::Bcd, std::string folder = "") : VcRig(f, folder) {
    vc->options.action = LogAction::Off;
    clock.time = "10:00:00";
    vc->logger.onLine = [this](const std::string& l) { lines.push_back(l); };
  }
  // A transmission on a channel: busy GLG replies for `ms`, then quiet ones.
  void transmission(const std::string& freq, const std::string& channel,
                    const std::string& subtone = "", int ms = 1000) {
    glg(glgReply(freq, channel, subtone, true));
    run(ms);
    glg(glgReply(freq, channel, subtone, false));
  }
  std::vector<std::string> lines;
};

TEST(ActivityLogger, TheSameChannelAfterFiveQuietSecondsCountsAgainOnItsRow) {
  LoggerRig rig;
  rig.vc->options.logSubtones = false;
  rig.vc->status.signalValue = "512";
  rig.transmission("0154.4300", "Dispatch", "127.3");
  EXPECT_EQ(rig.lines,
            Lines{"LOG,154.4300,,Dispatch,127.3C,,,County,Fire,1,512,NFM,10:00:00,2026-01-01"});
  rig.run(250 + 5000 + 100);  // hold-off, then the five quiet seconds
  rig.clock.time = "10:00:09";
  rig.transmission("0154.4300", "Dispatch", "127.3");
  const LogPage& page = rig.vc->logger.page;
  EXPECT_EQ(std::make_tuple(logRows(page), page.cell(1, 9), page.cell(1, 12)),
            std::make_tuple(1, "2", "10:00:09"));
  EXPECT_EQ(rig.lines.back(),
            "LOG,154.4300,,Dispatch,127.3C,,,County,Fire,2,512,NFM,10:00:09,2026-01-01");
}

TEST(ActivityLogger, AChannelBackWithinFiveQuietSecondsIsNotCountedAgain) {
  LoggerRig rig;
  rig.transmission("0154.4300", "Dispatch");
  rig.run(3000);
  rig.transmission("0154.4300", "Dispatch");
  rig.run(3000);
  EXPECT_EQ(std::make_tuple(rig.lines.size(), rig.vc->logger.page.cell(1, 9)),
            std::make_tuple(1u, "1"));
  // Another channel in between is a new hit.
  rig.transmission("0460.1250", "PD");
  EXPECT_EQ(rig.lines.size(), 2u);
}

TEST(ActivityLogger, ARowWithoutSubtoneMatchesAHitWithOne) {
  LoggerRig rig;
  rig.vc->options.logSubtones = false;
  rig.transmission("0154.4300", "Dispatch");
  rig.run(6000);
  rig.transmission("0154.4300", "Dispatch", "127.3");
  rig.run(6000);
  const LogPage& page = rig.vc->logger.page;  // the row keeps matching any subtone
  EXPECT_EQ(std::make_tuple(logRows(page), page.cell(1, 9), page.cell(1, 4)),
            std::make_tuple(1, "2", ""));

  // A row logged with a subtone does not match another subtone.
  rig.transmission("0155.3400", "EMS", "127.3");
  rig.run(6000);
  rig.transmission("0155.3400", "EMS", "100.0");
  EXPECT_EQ(std::make_tuple(logRows(page), page.cell(1, 4), page.cell(2, 4)),
            std::make_tuple(3, "100.0C", "127.3C"));
}

TEST(ActivityLogger, TheThousandAndFirstHitDropsTheOldestRow) {
  LoggerRig rig;
  for (int i = 0; i <= 1000; ++i) {
    rig.glg(glgReply("0154.4300", "Ch " + std::to_string(i)));
    rig.vc->logger.onTimer3();
  }
  const LogPage& page = rig.vc->logger.page;
  EXPECT_EQ(std::make_tuple(logRows(page), page.cell(1, 3), page.cell(1000, 3)),
            std::make_tuple(1000, "Ch 1000", "Ch 1"));
  // The finder says 1001 when nothing matched: the only sign of an insert.
  rig.glg(glgReply("0154.4300", "Ch 0"));
  rig.vc->logger.onTimer3();
  EXPECT_EQ(rig.vc->logger.foundRow, 1001);
}

TEST(ActivityLogger, AHitWithoutFrequencyTakesTheWindowFrequency) {
  LoggerRig rig;
  rig.vc->status.frequencyText = "851.0125";
  rig.glg(glgReply("2412", "Fire Ops 1", "", true, "293"));
  rig.vc->logger.onTimer3();
  EXPECT_EQ(rig.lines,
            (Lines{"LOG,851.0125,2412,Fire Ops 1,,293,,County,Fire,1,,NFM,10:00:00,2026-01-01",
                   "NAC,,2412,Fire Ops 1,,293,,County,Fire,-,,NFM,10:00:00,2026-01-01"}));
}

TEST(ActivityLogger, UidRowsForTalkgroupsButNotForABlankUid) {
  LoggerRig rig;
  rig.vc->options.logSubtones = false;
  rig.glg(glgReply("2412", "Fire Ops 1", "", true, "293"));
  rig.vc->status.ldat[ld::kUid] = std::string(34, ' ');
  rig.vc->logger.onTimer3();
  EXPECT_EQ(rig.lines.size(), 1u);
  rig.vc->status.ldat[ld::kUid] = "1872001";
  rig.vc->logger.onTimer3();
  ASSERT_EQ(rig.lines.size(), 2u);
  EXPECT_EQ(rig.lines[1], "UID,,2412,Fire Ops 1,,,1872001,County,Fire,,,NFM,10:00:00,2026-01-01");
  rig.vc->logger.onTimer3();
  EXPECT_EQ(rig.lines.size(), 2u);  // the same UID once
}

TEST(ActivityLogger, SubtoneAndNacRowsNeedTheirOption) {
  LoggerRig rig;
  rig.glg(glgReply("0154.4300", "Dispatch", "023", true, "NONE"));
  rig.vc->logger.onTimer3();
  ASSERT_EQ(rig.lines.size(), 2u);
  EXPECT_EQ(rig.lines[1], "SUB,154.4300,,Dispatch,023D,,,County,Fire,-,,NFM,10:00:00,2026-01-01");
  LoggerRig off;
  off.vc->options.logSubtones = false;
  off.glg(glgReply("0154.4300", "Dispatch", "023", true, "293"));
  off.vc->logger.onTimer3();
  EXPECT_EQ(off.lines.size(), 1u);
}

TEST(ActivityLogger, ToneOutRowsAndTheEmptyTone) {
  struct Case {
    std::vector<std::string> lines;  // STS lines 1..11
    const char* row;
  } cases[] = {
      {{"", "", "Tone-Out", "", "A : 1234.5Hz", "B :  567.8Hz"},
       "T-OUT,A : 1234.5Hz / B :  567.8Hz,,,,,,Tone-Out,,,,,10:00:00,2026-01-01"},
      {{"", "", "Tone-Out", "", "A :   0.0Hz", "B :  567.8Hz"}, nullptr},
      {{"", "", "", "Tone-Out", "", "", "", "", "", "A : 1500.0Hz",
        "B :   88.5Hz      Page 12 Fire"},
       "T-OUT,Page 12 Fire,,A : 1500.0Hz / B :   88.5Hz,,,,Tone-Out,,,,,10:00:00,2026-01-01"},
  };
  for (const auto& c : cases) {
    LoggerRig rig;
    rig.vc->status.ldat[ld::kFrequency] = "154.4300";  // nothing is logged without a channel
    rig.sts(stsReply("0000100", c.lines));
    rig.vc->logger.onTimer3();
    rig.vc->logger.onTimer3();
    EXPECT_EQ(rig.lines, c.row ? Lines{c.row} : Lines{});
  }
}

TEST(ActivityLogger, AnSdsLineDescribesOneTransmissionWhole) {
  LoggerRig rig(Family::Sds);
  auto& l = rig.vc->status.ldat;
  // The first transmission, GLG and GSI read: a conventional channel with a service type.
  rig.glg(glgReply("0154.4300", "Dispatch"));
  rig.vc->decoder.parseGsi(
      gsiReply("  <ConvFrequency Name=\"Dispatch\" Freq=\" 154.430000MHz\" Mod=\"NFM\" "
               "SvcType=\"Fire Dispatch\" />\r  <Property Mute=\"Unmute\" Rssi=\"-60\" />\r"));
  rig.vc->logger.onTimer3();
  EXPECT_EQ(
      rig.lines,
      Lines{"LOG,154.4300,,Dispatch,,,,Fire Dispatch,County,Fire,1,-60,NFM,10:00:00,2026-01-01"});
  // The next one: its GLG is read, its GSI not yet. A tick here must not log a line made of
  // the new channel and the old one's service type and signal.
  rig.glg(glgReply("2412", "Fire Ops 1"));
  rig.vc->logger.onTimer3();
  EXPECT_EQ(rig.lines.size(), 1u);
  // Its GSI: a talkgroup with its own service type and no signal reading (-999).
  rig.vc->decoder.parseGsi(
      gsiReply("  <TGID Name=\"Fire Ops 1\" TGID=\"2412\" SvcType=\"Fire Tac\" />\r"
               "  <Property Mute=\"Unmute\" Rssi=\"-999\" />\r"));
  EXPECT_EQ(l[ld::kServiceType], "Fire Tac");
  rig.vc->logger.onTimer3();
  ASSERT_EQ(rig.lines.size(), 2u);
  EXPECT_EQ(rig.lines[1],
            "LOG,,2412,Fire Ops 1,,,,Fire Tac,County,Fire,1,,NFM,10:00:00,2026-01-01");
}

TEST(ActivityLogger, LogAndAvoidPressesAvoidOncePerChannel) {
  LoggerRig rig;
  rig.connect();
  rig.vc->options.action = LogAction::Avoid;
  rig.port.clearOutput();
  // The same channel reported busy again after the key (a reply already on its way), then
  // another channel.
  for (const char* channel : {"Dispatch", "Dispatch", "Tac 2"}) {
    rig.glg(glgReply("0154.4300", channel));
    rig.vc->logger.onTimer3();
  }
  EXPECT_EQ(rig.port.commands(), (Lines{"KEY,L,P", "KEY,L,P"}));
}

TEST(ActivityLogger, CloseCallHitsAreLoggedOncePerFrequency) {
  for (Family f : {Family::Bcd, Family::Sds}) {
    LoggerRig rig(f);
    rig.vc->status.ccdata[0] = "155.4750MHz ";
    rig.vc->status.ldat[ld::kModulation] = "NFM";
    rig.vc->logger.onTimer3();
    rig.vc->logger.onTimer3();
    ASSERT_EQ(rig.lines.size(), 1u);
    EXPECT_EQ(rig.lines[0], f == Family::Bcd
                                ? "CC,155.4750MHz ,,Close Call,,,,,,,,NFM,10:00:00,2026-01-01"
                                : "Closecall,155.4750MHz ,,Close Call,,,,,,,,,NFM,10:00:00,"
                                  "2026-01-01");
    rig.vc->status.ccdata[0] = "155.4750";  // no "MHz": not a hit
    rig.vc->logger.onTimer3();
    EXPECT_EQ(rig.lines.size(), 1u);
  }
}

TEST(ActivityLogger, AfterAHitTheScannerResumesOrAvoids) {
  struct Case {
    LogAction action;
    const char* level;  // STS field 26
    const char* key;
  } cases[] = {{LogAction::Resume, "", "KEY,>,P"},
               {LogAction::Resume, " LEVEL 3 ", nullptr},  // a level screen is left alone
               {LogAction::Avoid, "", "KEY,L,P"},
               {LogAction::Off, "", nullptr}};
  for (const auto& c : cases) {
    LoggerRig rig;
    rig.connect();
    rig.vc->options.action = c.action;
    std::vector<std::string> lines(13, "");
    lines[12] = c.level;
    rig.sts(stsReply("0000100", lines));
    rig.port.clearOutput();
    rig.glg(glgReply("0154.4300", "Dispatch"));
    rig.vc->logger.onTimer3();
    EXPECT_EQ(rig.port.commands(), c.key ? Lines{c.key} : Lines{});
    EXPECT_EQ(rig.vc->logger.lastKey, c.key ? "" : "154.4300-Dispatch");
    if (c.key) EXPECT_FALSE(rig.vc->status.busy);
  }
}

TEST(ActivityLogger, ResumeAfterPressesTheKnobWhenTheSecondsAreUp) {
  LoggerRig rig;
  rig.connect();
  rig.vc->options.action = LogAction::ResumeAfter;
  rig.vc->options.resumeAfterIndex = 2;  // "2" seconds
  rig.port.clearOutput();
  rig.glg(glgReply("0154.4300", "Dispatch"));
  EXPECT_TRUE(rig.vc->timers.enabled(Timer16));
  rig.vc->logger.onTimer16();
  EXPECT_TRUE(rig.port.commands().empty());
  rig.vc->logger.onTimer16();
  EXPECT_EQ(rig.port.commands(), Lines{"KEY,>,P"});
  EXPECT_FALSE(rig.vc->timers.enabled(Timer16));
  EXPECT_EQ(rig.vc->counters.secondsBusy, 0);
}

TEST(ActivityLogger, TheLogFileGetsEveryLineWhenTicked) {
  TestFolder folder;
  LoggerRig rig(Family::Bcd, folder.path());
  rig.vc->options.logFilePath = folder.file("log.csvx");
  rig.vc->options.logToFile = true;
  rig.transmission("0154.4300", "Dispatch");
  rig.vc->options.logToFile = false;
  rig.transmission("0460.1250", "PD");
  EXPECT_EQ(readFile(folder.file("log.csvx")),
            "LOG,154.4300,,Dispatch,,,,County,Fire,1,,NFM,10:00:00,2026-01-01\r\n");
  // A file that cannot be opened loses the line; the row is still made.
  rig.vc->options.logToFile = true;
  rig.vc->options.logFilePath = folder.file("missing/dir/log.csvx");
  rig.transmission("0155.3400", "EMS");
  EXPECT_EQ(rig.vc->logger.page.cell(1, 3), "EMS");
}

TEST(ActivityLogger, ThePageIsKeptInTheIniFileAndReadBackAtLoad) {
  TestFolder folder;
  {
    LoggerRig rig(Family::Bcd, folder.path());
    rig.transmission("0154.4300", "Dispatch");
    std::string ini = readFile(folder.file("loggrid.ini"));
    EXPECT_EQ(ini.substr(0, ini.find("\r\n")),
              "\"LOG\",\"154.4300\",\"\",\"Dispatch\",\"\",\"\",\"\",\"County\",\"Fire\",\"1\","
              "\"\",\"NFM\",\"10:00:00\",\"2026-01-01\",\"\"");
    EXPECT_EQ(std::count(ini.begin(), ini.end(), '\n'), 1000);
  }
  LoggerRig again(Family::Bcd, folder.path());
  again.vc->load();
  EXPECT_EQ(again.vc->logger.page.cell(1, 3) + "|" + again.vc->logger.page.cell(1, 13),
            "Dispatch|2026-01-01");
  LoggerRig sds(Family::Sds, folder.path());
  sds.vc->load();  // the SDS window keeps its own page
  EXPECT_TRUE(sds.vc->logger.page.rowEmpty(1));
}

TEST(ActivityLogger, SaveLogWritesHeadersAndEveryRow) {
  TestFolder folder;
  LoggerRig rig;
  rig.transmission("0154.4300", "Dispatch");
  ASSERT_TRUE(rig.vc->logger.saveLog(folder.file("mylog")));
  std::string text = readFile(folder.file("mylog.csv"));
  const std::string head =
      "ZEL software,Torvo,Freeland,2026-01-01,10:00:00\r\n"
      "TYPE,FREQUENCY,TALKGROUP ID,CHANNEL TAG,SUBTONE,NAC,UID,SYSTEM,DEPARTMENT,HITCOUNT,SIGNAL,"
      "MODE,TIME,DATE,N/A\r\nLOG,154.4300,,Dispatch,,,,County,Fire,1,,NFM,10:00:00,2026-01-01,,\r\n"
      ",,,,,,,,,,,,,,,\r\n";
  EXPECT_EQ(text.substr(0, head.size()), head);
  EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 1002);
  ASSERT_TRUE(rig.vc->logger.saveLog(folder.file("named.txt")));
  EXPECT_TRUE(std::filesystem::exists(folder.file("named.txt")));
}

TEST(ActivityLogger, ClearingAndDeletingTheFileAskFirst) {
  TestFolder folder;
  LoggerRig rig(Family::Bcd, folder.path());
  rig.transmission("0154.4300", "Dispatch");
  rig.feedback.answers.push_back(Answer::No);
  rig.vc->logger.clearLog();
  EXPECT_EQ(rig.vc->logger.page.cell(1, 3), "Dispatch");
  rig.vc->logger.clearLog();  // the fallback answer is Yes
  EXPECT_EQ(rig.feedback.questions.back(), "|Are you sure you want to clear the grid?");
  EXPECT_TRUE(rig.vc->logger.page.rowEmpty(1) && rig.vc->logger.lastKey.empty());
  EXPECT_FALSE(std::filesystem::exists(folder.file("loggrid.ini")));

  // Deleting the log file asks first as well.
  rig.vc->options.logFilePath = folder.file("log.csvx");
  std::ofstream(folder.file("log.csvx")) << "x";
  rig.feedback.answers.push_back(Answer::No);
  rig.vc->logger.deleteLogFile();
  EXPECT_TRUE(std::filesystem::exists(folder.file("log.csvx")));
  rig.vc->logger.deleteLogFile();
  EXPECT_EQ(rig.feedback.questions.back(), "|Are you sure you want to delete this log file?");
  EXPECT_FALSE(std::filesystem::exists(folder.file("log.csvx")));
}

TEST(ActivityLogger, FrequencySearchNeedsAUserAndAFrequencyWithAPoint) {
  LoggerRig rig;
  rig.vc->options.logSubtones = false;
  rig.transmission("0154.4300", "Dispatch");
  rig.glg(glgReply("2412", "Ops"));
  rig.vc->logger.onTimer3();
  auto& l = rig.vc->logger;  // row 1 is a talkgroup's
  EXPECT_EQ((Lines{l.searchFrequency(2, "user"), l.searchFrequency(2, ""),
                   l.searchFrequency(1, "user"), l.searchFrequency(500, "user")}),
            (Lines{"154.4300", "", "", ""}));
}

TEST(ActivityLogger, TheSdsPageHasAnExtraInfoColumn) {
  LoggerRig rig(Family::Sds);
  rig.vc->status.ldat[ld::kSystemType] = "P25 Standard";
  rig.vc->status.ldat[ld::kServiceType] = "Fire Dispatch";
  rig.vc->status.ldat[ld::kRssi] = "-67";
  rig.glg(glgReply("2412", "Fire Ops 1", "", true, "NONE"));
  rig.vc->decoder.parseGsi(gsiReply("<Property Mute=\"Unmute\" Rssi=\"-67\" />\r"));
  rig.vc->logger.onTimer3();
  EXPECT_EQ(rig.lines,
            Lines{"LOG,,2412,Fire Ops 1,,,,P25 Standard / Fire Dispatch,County,Fire,1,-67,NFM,"
                  "10:00:00,2026-01-01"});
  EXPECT_EQ(std::make_tuple(rig.vc->logger.page.columns(), rig.vc->logger.page.cell(1, 10)),
            std::make_tuple(16, "1"));
  EXPECT_EQ(logHeaders(Family::Sds)[4], "Subtone-Detected");
}

TEST(SiteAnalysis, NeedsATrunkSiteThenCapturesReportsUntilStopped) {
  TestFolder folder;
  LoggerRig rig(Family::Bcd, folder.path());
  rig.connect();
  auto& logger = rig.vc->logger;
  EXPECT_FALSE(logger.startAnalysis(SiteReport::CurrentActivity));
  EXPECT_EQ(rig.feedback.messages.back(), "Please tune scanner to a trunk site first");

  rig.vc->status.siteIndex = "12";
  rig.port.clearOutput();
  ASSERT_TRUE(logger.startAnalysis(SiteReport::LcnFinder));
  EXPECT_EQ(rig.port.commands(), Lines{"AST,LCN_FINDER,12"});
  const auto& t = rig.vc->timers;
  EXPECT_FALSE(t.enabled(Timer1) || t.enabled(Timer10) || t.enabled(Timer2));
  EXPECT_TRUE(t.enabled(Timer8));

  rig.port.feed(
      "AST,<XML>,\r<?xml version=\"1.0\" encoding=\"utf-8\"?>\r<AST>\r"
      "  <CurrentActivity No=\"0\" TGID=\"2412\"  Name=\"Fire\" />\r"
      "  <CurrentActivity No=\"1\" />\r</AST>\r");
  rig.run(500);
  EXPECT_EQ(readFile(folder.file("analyse_site_id_12.txt")),
            "\r\r\r <CurrentActivity No=\"0\" TGID=\"2412\" Name=\"Fire\" />\r \r\r");
  EXPECT_NE(logger.captureText.find(" : 10:00:00"), std::string::npos);

  logger.stopAnalysis();
  EXPECT_TRUE(t.enabled(Timer1) && t.enabled(Timer10) && t.enabled(Timer2));
  EXPECT_FALSE(t.enabled(Timer8));
  EXPECT_EQ(rig.port.commands().back(), "JPM,SCN_MODE");
  EXPECT_EQ(rig.vc->status.siteIndex, "0");
}

TEST(SiteAnalysis, ReportCommands) {
  EXPECT_EQ(
      (Lines{siteReportCommand(SiteReport::CurrentActivity),
             siteReportCommand(SiteReport::LcnMonitor), siteReportCommand(SiteReport::ActivityLog),
             siteReportCommand(SiteReport::Bandscope)}),
      (Lines{"AST,CURRENT_ACTIVITY,", "AST,LCN_MONITOR,", "AST,ACTIVITY_LOG,",
             "AST,BAND_SCOPE,1440000,2000,500,FM"}));
  EXPECT_EQ(cleanSiteCapture("<CurrentActivity No=\"32\" />x<CurrentActivity No=\"33\" />"),
            "x<CurrentActivity No=\"33\" />");
}

TEST(SubtoneText, TonesShowWithTheirKind) {
  struct Case {
    const char* raw;
    const char* shown;
  } cases[] = {{"127.3", "127.3C"},
               {"67", "067D"},
               {"023", "023D"},
               {"754", "754D"},
               {"0", ""},
               {"None", ""},
               {"", ""},
               {"All", ""},
               {"9999", "9999"},
               {"71.9", "71.9C"},
               // beyond a 64-bit integer: shown as given
               {"99999999999999999999", "99999999999999999999"},
               {"123456789012345678901234567890.5", "123456789012345678901234567890.5"},
               {"-99999999999999999999", ""}};
  for (const auto& c : cases) EXPECT_EQ(subtoneText(c.raw), c.shown) << c.raw;
}

TEST(VcOptions, DefaultsKeysAndWidthClamps) {
  MemorySettingsStore store;
  Settings s(store);
  VcOptions o = loadOptions(s, Family::Bcd, "/data");
  EXPECT_EQ(o.action, LogAction::Avoid);  // "Log And Avoid" is stored "True" by default
  EXPECT_EQ(std::make_tuple(o.logSubtones, o.toneOutToFile, o.miniViewWhenMinimized, o.logToFile,
                            o.logFilePath),
            std::make_tuple(true, true, true, false, "/data/log.csvx"));

  o.action = LogAction::Resume;
  o.logToFile = true;
  o.resumeAfterIndex = 4;
  o.columnWidths[2] = 5;
  saveOptions(s, Family::Sds, o);
  EXPECT_EQ((Lines{s.getPlain("vc_sds", "VC_options11", ""),
                   s.getPlain("vc_sds", "VC_options13", ""), s.getPlain("vc_sds", "wvc_sds3", "")}),
            (Lines{"True", "False", "5"}));
  VcOptions back = loadOptions(s, Family::Sds, "/data");  // a width under 10 is made 1000
  EXPECT_EQ(back.action, LogAction::Resume);
  EXPECT_EQ(std::make_tuple(back.logToFile, back.resumeAfterIndex, back.columnWidths[2]),
            std::make_tuple(true, 4, 1000));
  EXPECT_EQ(loadOptions(s, Family::Bcd, "/data").action, LogAction::Avoid);

  s.put("vc", "VC_option1", "");
  s.put("vc", "VC_option10", "1");
  EXPECT_FALSE(loadOptions(s, Family::Bcd, "/data").logToFile);  // no file name: no logging

  EXPECT_EQ(std::vector<int>({clampColumnWidth(14, 3), clampColumnWidth(1, 3),
                              clampColumnWidth(5, 20000), clampColumnWidth(5, 10)}),
            (std::vector<int>{500, 1000, 10000, 10}));
}

TEST(VirtualControlClose, StoresOptionsAndPortAndStopsEveryTimer) {
  VcRig rig(Family::Bcd);
  rig.vc->load();
  rig.connect("COM7");
  rig.vc->options.logSubtones = false;
  rig.vc->close();
  for (int id = 0; id < kVcTimerCount; ++id) EXPECT_FALSE(rig.vc->timers.enabled(id));
  EXPECT_FALSE(rig.port.isOpen());
  Settings s(rig.settings);
  EXPECT_EQ(s.getPlain("vc", "comport", "") + "|" + s.getPlain("vc", "VC_option14", ""),
            "usb/com7|0");
}

}  // namespace
}  // namespace zel::control
