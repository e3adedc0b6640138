#include "sim/scanner_sim.h"

#include <gtest/gtest.h>

#include "core/text.h"
#include "sim/scanner_sim_list.h"

namespace zel::sim {
namespace {

std::vector<std::string> fields(const std::string& reply) {
  std::string s = reply;
  if (!s.empty() && s.back() == '\r') s.pop_back();
  return split(s, ',');
}

// A scanner started at time 0, moved on in steps of 10 ms.
struct Scan {
  explicit Scan(std::string model = "BCD536HP", std::uint32_t seed = 1, double activity = 0.15) {
    ScannerSimOptions o;
    o.model = std::move(model);
    o.seed = seed;
    o.activity = activity;
    sim = std::make_unique<ScannerSim>(o);
    sim->advance(0);
  }
  void to(std::int64_t ms) {
    for (std::int64_t t = sim->now(); t <= ms; t += 10) sim->advance(t);
  }
  // Runs until a transmission is on; false when none came within the time.
  bool untilReceiving(std::int64_t within = 60000) {
    const std::int64_t end = sim->now() + within;
    while (sim->now() < end && !sim->receiving()) sim->advance(sim->now() + 10);
    return sim->receiving();
  }
  std::unique_ptr<ScannerSim> sim;
};

TEST(ScannerSim, TheSameSeedPlaysTheSameScan) {
  auto trace = [](std::uint32_t seed) {
    Scan s("BCD536HP", seed);
    std::string out;
    for (int t = 0; t <= 30000; t += 50) {
      s.sim->advance(t);
      out += std::to_string(s.sim->channelIndex()) + (s.sim->receiving() ? "r" : "-");
    }
    return out;
  };
  EXPECT_EQ(trace(7), trace(7));
  EXPECT_NE(trace(7), trace(8));
}

TEST(ScannerSim, ChannelRecordIsEmptyWhileScanningAndFullWhileReceiving) {
  Scan s("BCD536HP", 3, 0.5);
  EXPECT_EQ(s.sim->answer("GLG"), "GLG,,,,,,,,,,,,\r");
  ASSERT_TRUE(s.untilReceiving());
  const SimChannel& c = s.sim->channel();
  auto f = fields(s.sim->answer("GLG"));
  // A system name may hold a comma; count from the end for the flags.
  ASSERT_GE(f.size(), 13u);
  EXPECT_EQ(f[f.size() - 4], "0");  // the audio is on
  EXPECT_EQ(f[f.size() - 5], "1");
  if (c.trunked) {
    EXPECT_EQ(f[1], c.tgid);
    EXPECT_EQ(f.back(), c.nac);
  } else {
    EXPECT_EQ(leadingNumber(f[1]) * 1000000, static_cast<double>(c.hz));
    EXPECT_EQ(f[1].size(), 9u);  // "0154.4300"
    EXPECT_EQ(f.back(), "NONE");
  }
}

TEST(ScannerSim, ScreensHaveTheLayoutOfTheirFamily) {
  // The first channel's system name holds a comma, which shifts every later field of the
  // screen as it does on a real scanner; the screen counts are checked on another one.
  auto offTheComma = [](Scan& s) {
    s.sim->answer("KEY,C,P");
    while (s.sim->channel().system.find(',') != std::string::npos) s.sim->answer("KEY,>,P");
    s.sim->answer("KEY,C,P");
  };
  Scan bcd("BCD436HP");
  offTheComma(bcd);
  auto b = fields(bcd.sim->answer("STS"));
  EXPECT_EQ(b[1], "0000100");
  for (int line = 1; line <= 7; ++line) EXPECT_EQ(b[2 * line].size(), 36u) << line;

  Scan sds("SDS100");
  offTheComma(sds);
  std::string reply = sds.sim->answer("STS");
  auto s = fields(reply);
  EXPECT_EQ(s[1] + "|" + s[18].substr(0, 11) + "|" + s.back(), "00001010100000000|Scanning...|3");
  EXPECT_EQ(reply.back(), '\r');

  // While receiving, on a talkgroup and on a channel, every line keeps its width.
  Scan busy("SDS200", 12, 0.8);
  int checked = 0;
  for (int n = 0; n < 40 && checked < 6; ++n) {
    if (!busy.untilReceiving()) break;
    if (busy.sim->channel().system.find(',') == std::string::npos) {
      auto f = fields(busy.sim->answer("STS"));
      ASSERT_EQ(f.size(), 47u);
      for (int i = 2; i <= 37; ++i) EXPECT_EQ(f[i].size(), i == 4 ? 28u : 30u) << i << f[i];
      ++checked;
    }
    busy.sim->advance(busy.sim->now() + 7000);
  }
  EXPECT_GE(checked, 3);
}

TEST(ScannerSim, KeysAnswerOkAndChangeTheScan) {
  Scan s("BCD536HP", 4, 0.0);
  s.to(1000);
  EXPECT_EQ(s.sim->answer("KEY,C,P"), "KEY,OK\r");
  EXPECT_TRUE(s.sim->channelHold());
  int held = s.sim->channelIndex();
  s.to(3000);
  EXPECT_EQ(s.sim->channelIndex(), held);
  s.sim->answer("KEY,>,P");  // the knob steps while holding
  EXPECT_NE(s.sim->channelIndex(), held);
  s.sim->answer("KEY,C,P");
  EXPECT_FALSE(s.sim->channelHold());

  // Avoiding a channel keeps the scan off it.
  int avoided = s.sim->channelIndex();
  s.sim->answer("KEY,L,P");
  EXPECT_TRUE(s.sim->avoided(avoided));
  for (int t = 3000; t < 10000; t += 10) {
    s.sim->advance(t);
    ASSERT_NE(s.sim->channelIndex(), avoided);
  }
  // The key works on the channel on show: the first one stays avoided.
  int second = s.sim->channelIndex();
  s.sim->answer("KEY,L,P");
  EXPECT_TRUE(s.sim->avoided(avoided));
  EXPECT_TRUE(s.sim->avoided(second));
}

TEST(ScannerSim, ALockedOutChannelIsNeverStoppedOn) {
  Scan s("BCD536HP", 4, 1.0);  // every channel would be busy
  const int n = static_cast<int>(builtInScanList().channels.size());
  // Avoid them all: each press locks out the channel on show and moves on.
  for (int i = 0; i < n; ++i) s.sim->answer("KEY,L,P");
  for (int i = 0; i < n; ++i) ASSERT_TRUE(s.sim->avoided(i)) << i;
  const int before = s.sim->transmissions();
  s.to(30000);
  EXPECT_EQ(s.sim->transmissions(), before);
  EXPECT_FALSE(s.sim->receiving());
  // The last one let back in is stopped on again.
  s.sim->answer("KEY,L,P");
  EXPECT_FALSE(s.sim->avoided(s.sim->channelIndex()));
  EXPECT_TRUE(s.untilReceiving());
}

TEST(ScannerSim, VolumeSquelchModesAndQuickHold) {
  Scan s;
  for (const auto& [command, reply] : {std::pair{"VOL,12", "VOL,OK\r"},
                                       {"VOL", "VOL,12\r"},
                                       {"SQL,x", "SQL,NG\r"},
                                       {"SQL", "SQL,4\r"}})
    EXPECT_EQ(s.sim->answer(command), reply) << command;
  EXPECT_EQ(s.sim->answer("JPM,WX_MODE,NORMAL"), "JPM,OK\r");
  EXPECT_EQ(s.sim->mode(), SimMode::Weather);
  s.to(500);
  EXPECT_TRUE(s.sim->receiving());
  EXPECT_EQ(s.sim->answer("JPM,SCN_MODE"), "JPM,OK\r");
  EXPECT_EQ(s.sim->mode(), SimMode::Scan);
  for (const auto& [command, reply] :
       {std::pair{"JPM,NOPE", "JPM,NG\r"}, {"XYZ", "ERR\r"}, {"", ""}, {"MDL", "MDL,BCD536HP\r"}})
    EXPECT_EQ(s.sim->answer(command), reply) << command;
  // Quick hold tunes the frequency.
  EXPECT_EQ(s.sim->answer("QSH,1544300,,,,,,,,,,,,"), "QSH,OK\r");
  EXPECT_EQ(s.sim->channel().hz, 154430000);
  EXPECT_EQ(s.sim->answer("WIN"), "WIN,1,01544300\r");
  EXPECT_EQ(s.sim->answer("QSH,0"), "QSH,NG\r");
}

TEST(ScannerSim, MenuIsAListScreenWithOneSelectedLineAndToneOutShowsBothTones) {
  Scan s;
  s.sim->answer("KEY,M,P");
  s.sim->answer("KEY,>,P");
  auto f = fields(s.sim->answer("STS"));
  EXPECT_EQ(f[1] + "|" + f[3] + "|" + f[5], "1111111111||1");  // the second line is selected
  s.sim->answer("KEY,M,P");
  EXPECT_FALSE(s.sim->menuOpen());
  // A tone-out page shows both tones.
  s.sim->answer("JPM,FTO_MODE,");
  s.to(3100);
  f = fields(s.sim->answer("STS"));
  EXPECT_EQ(f[6].substr(0, 8) + "|" + f[10].substr(0, 3) + "|" + f[12].substr(0, 3),
            "Tone-Out|A :|B :");
}

TEST(ScannerSim, ACloseCallHitWaitsForEnter) {
  Scan s;
  std::int64_t t = 0;
  while (s.sim->mode() != SimMode::CloseCall && t < 60000) s.sim->advance(t += 10);
  ASSERT_EQ(s.sim->mode(), SimMode::CloseCall);
  std::string screen = s.sim->answer("STS");
  EXPECT_NE(screen.find("CC Found!"), std::string::npos);
  auto f = fields(screen);
  EXPECT_EQ(f[6].substr(0, 10), "Close Call");
  EXPECT_NE(f[8].substr(0, 12).find("MHz"), std::string::npos);
  EXPECT_NE(s.sim->answer("GLG").find(",CloseCall,"), std::string::npos);
  s.sim->answer("KEY,E,P");
  EXPECT_EQ(s.sim->answer("STS").find("CC Found!"), std::string::npos);
  s.to(t + 3100);
  EXPECT_EQ(s.sim->mode(), SimMode::Scan);
}

TEST(ScannerSim, WaterfallFramesAndSiteReports) {
  Scan s("SDS200");
  auto f = fields(s.sim->answer("GWF,1"));
  EXPECT_EQ(f.size(), 251u);
  s.sim->answer("JPM,WF_MODE");
  EXPECT_NE(s.sim->answer("GSI").find("Mode=\"Waterfall\""), std::string::npos);
  s.sim->answer("AST,CURRENT_ACTIVITY,12");
  std::string report = s.sim->unsolicited();
  EXPECT_EQ(report.rfind("AST,<XML>,\r<?xml version=\"1.0\" encoding=\"utf-8\"?>\r<AST>\r", 0), 0u);
  EXPECT_NE(report.find("<CurrentActivity No=\"3\" />"), std::string::npos);
  EXPECT_EQ(s.sim->unsolicited(), "");  // the next report comes half a second later
  s.sim->advance(600);
  EXPECT_NE(s.sim->unsolicited(), "");
}

TEST(ScannerSim, GsiDescribesTheChannelOnShow) {
  Scan s("SDS200", 9, 0.6);
  ASSERT_TRUE(s.untilReceiving());
  std::string x = s.sim->answer("GSI");
  EXPECT_EQ(x.rfind("GSI,<XML>,\r<?xml", 0), 0u);
  EXPECT_NE(x.find("</ScannerInfo>\r"), std::string::npos);
  EXPECT_NE(x.find("Mute=\"Unmute\""), std::string::npos);
  const SimChannel& c = s.sim->channel();
  EXPECT_NE(x.find(c.trunked ? "<TGID Name=\"" : "<ConvFrequency Name=\""), std::string::npos);
}

}  // namespace
}  // namespace zel::sim
