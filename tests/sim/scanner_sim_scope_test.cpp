// The simulated scanner as the bandscope drives it: program mode, the search ranges and their
// flags, the search data stream and the SDS waterfall frame.
#include <gtest/gtest.h>

#include <map>
#include <set>
#include <tuple>

#include "core/text.h"
#include "sim/scanner_sim.h"
#include "sim/scanner_sim_faults.h"

namespace zel::sim {
namespace {

struct Line {
  int rssi = -1;
  std::string frequency;
  std::string sql;
  std::int64_t at = 0;  // ms when it was read
};

// A scanner started at time 0 whose stream is read every 10 ms.
struct Scope {
  explicit Scope(std::string model = "BCD536HP", int rate = 1000, std::uint32_t seed = 1) {
    ScannerSimOptions o;
    o.model = std::move(model);
    o.seed = seed;
    o.searchStepsPerSecond = rate;
    sim = std::make_unique<ScannerSim>(o);
    sim->advance(0);
  }
  // Commands each answered "XXX,OK".
  void send(std::initializer_list<std::string> commands) {
    for (const std::string& c : commands) ASSERT_EQ(sim->answer(c), c.substr(0, 3) + ",OK\r") << c;
  }
  // The bandscope's sequence with one range on.
  void program(const std::string& range, int slot = 0) {
    std::string flags = "1111111111";
    flags[slot] = '0';
    send({"VOL,0", "SQL,3", "CSC,OFF", "KEY,H,P", "PRG",
          "CSP," + std::to_string(slot) + ",TORVO BANDSCOPE," + range + ",NFM,0,2,1,400",
          "CSG," + flags, "EPG", "CSC,ON", "KEY,>,P"});
  }
  std::string raw(std::int64_t forMs) {
    std::string out;
    const std::int64_t end = sim->now() + forMs;
    for (std::int64_t t = sim->now() + 10; t <= end; t += 10) {
      sim->advance(t);
      out += sim->unsolicited();
    }
    return out;
  }
  std::vector<Line> read(std::int64_t forMs) {
    std::vector<Line> lines;
    const std::int64_t end = sim->now() + forMs;
    for (std::int64_t t = sim->now() + 10; t <= end; t += 10) {
      sim->advance(t);
      for (const std::string& text : split(sim->unsolicited(), '\r')) {
        if (text.empty()) continue;
        auto f = split(text, ',');
        EXPECT_EQ(f.size(), 4u) << text;
        EXPECT_EQ(f[0], "CSC") << text;
        if (f.size() != 4) continue;
        EXPECT_TRUE(isPlainNumber(f[1]) && isPlainNumber(f[2])) << text;
        EXPECT_EQ(f[2].size(), 8u) << text;
        EXPECT_TRUE(f[3] == "0" || f[3] == "1") << text;
        lines.push_back({static_cast<int>(leadingInteger(f[1])), f[2], f[3], t});
      }
    }
    return lines;
  }
  std::unique_ptr<ScannerSim> sim;
};

TEST(ScannerSimScope, CommandsAnswerInAndOutOfProgramMode) {
  // command|reply before PRG|reply after PRG (both after the command word). Refused in program
  // mode: no slot 10 or -1, high below low, a range not one step, an unknown step, USB,
  // attenuator 2, below 25 MHz, a short line, flags not ten 0s and 1s.
  const std::string cases =
      "CSP,0,TORVO BANDSCOPE,01440000,01480000,1250,NFM,0,2,1,400|NG|OK;"
      "CSP,9,X,1440000,1480000,625,AM,1,2,1,400|NG|OK;"
      "CSP,10,X,1440000,1480000,1250,NFM,0,2,1,400|NG|NG;"
      "CSP,-1,X,1440000,1480000,1250,NFM,0,2,1,400|NG|NG;"
      "CSP,0,X,1480000,1440000,1250,NFM,0,2,1,400|NG|NG;"
      "CSP,0,X,1440000,1440100,1250,NFM,0,2,1,400|NG|NG;"
      "CSP,0,X,1440000,1480000,1300,NFM,0,2,1,400|NG|NG;"
      "CSP,0,X,1440000,1480000,1250,USB,0,2,1,400|NG|NG;"
      "CSP,0,X,1440000,1480000,1250,NFM,2,2,1,400|NG|NG;"
      "CSP,0,X,0100000,0200000,1250,NFM,0,2,1,400|NG|NG;CSP,0,X,1440000,1480000,1250|NG|NG;"
      "CSG,1111111110|NG|OK;CSG,111111111|NG|NG;CSG,1111121111|NG|NG;CSC,ON|OK|NG;CSC,OFF|OK|OK;"
      "CSC,MAYBE|NG|NG;VOL,0|OK|OK;SQL,3|OK|OK;KEY,H,P|OK|OK;KEY,>,P|OK|OK;EPG|OK|OK;PRG|OK|OK";
  for (const std::string& text : split(cases, ';')) {
    const auto c = split(text, '|');
    const std::string word = c[0].substr(0, 3);
    Scope out;
    EXPECT_EQ(out.sim->answer(c[0]), word + "," + c[1] + "\r") << c[0];
    EXPECT_EQ(out.sim->scope().programMode(), c[0] == "PRG") << c[0];
    Scope in;
    ASSERT_EQ(in.sim->answer("PRG"), "PRG,OK\r");
    EXPECT_EQ(in.sim->answer(c[0]), word + "," + c[2] + "\r") << c[0];
  }
}

TEST(ScannerSimScope, PrgEntersAndEpgLeavesProgramMode) {
  Scope s;
  s.send({"PRG"});
  EXPECT_TRUE(s.sim->scope().programMode());
  s.send({"EPG"});
  EXPECT_FALSE(s.sim->scope().programMode());
  EXPECT_EQ(s.sim->answer("CSG,0000000000"), "CSG,NG\r");
}

TEST(ScannerSimScope, RangeAndFlagsAreStoredAndReadBack) {
  Scope s;
  s.send({"PRG"});
  EXPECT_EQ(s.sim->answer("CSP,3"), "CSP,3,Air,01080000,01369916,833,AM,0,2,1,400\r");
  s.send({"CSP,3,TORVO BANDSCOPE,1460000,1470000,500,FM,1,2,1,400"});
  EXPECT_EQ(s.sim->answer("CSP,3"), "CSP,3,TORVO BANDSCOPE,01460000,01470000,500,FM,1,2,1,400\r");
  EXPECT_EQ(s.sim->answer("CSP,4").substr(0, 19), "CSP,4,Military Air,");  // others untouched
  EXPECT_EQ(s.sim->answer("CSG"), "CSG,0111111111\r");
  s.send({"CSG,1110111111"});
  EXPECT_EQ(s.sim->answer("CSG"), "CSG,1110111111\r");
  ASSERT_EQ(s.sim->answer("CSG,11101111"), "CSG,NG\r");
  EXPECT_EQ(s.sim->answer("CSG"), "CSG,1110111111\r");  // a refused CSG keeps the flags
  const SimSearchRange& r = s.sim->scope().range(3);
  EXPECT_EQ(std::make_tuple(r.low, r.high, r.stepCode, r.attenuator),
            std::make_tuple(1460000, 1470000, 500, true));
}

TEST(ScannerSimScope, StreamSweepsTheRangeByTheStepAndWraps) {
  // low,high,step code|the frequencies of one sweep, ' ' between
  const std::string cases =
      "1460000,1461000,1250|01460000 01460125 01460250 01460375 01460500 01460625 01460750 "
      "01460875 01461000;"
      "1460000,1460250,625|01460000 01460062 01460125 01460187 01460250;"
      "1080000,1080250,833|01080000 01080083 01080166 01080249;"
      "1440000,1445500,10000|01440000 01441000 01442000 01443000 01444000 01445000;"
      "4600000,4600200,500|04600000 04600050 04600100 04600150 04600200";
  for (const std::string& text : split(cases, ';')) {
    const auto c = split(text, '|');
    const auto sweep = split(c[1], ' ');
    Scope s;
    s.program(c[0], 4);
    const std::vector<Line> lines = s.read(60);
    ASSERT_EQ(lines.size(), 60u) << c[0];  // 1000 steps a second
    for (std::size_t i = 0; i < lines.size(); ++i)
      ASSERT_EQ(lines[i].frequency, sweep[i % sweep.size()]) << c[0] << " line " << i;
  }
}

TEST(ScannerSimScope, StreamRateFollowsTheOption) {
  struct Case {
    int rate;
    std::int64_t ms;
    std::size_t lines;
  };
  for (const Case& c :
       {Case{400, 100, 40}, Case{250, 1000, 250}, Case{300, 50, 15}, Case{5000, 20, 100}}) {
    Scope s("BCD536HP", c.rate);
    s.program("1440000,1480000,1250");
    EXPECT_EQ(s.read(c.ms).size(), c.lines) << c.rate;
  }
}

TEST(ScannerSimScope, EnabledRangesAreSweptInTurn) {
  Scope s;
  s.send({"PRG", "CSP,1,A,1460000,1460100,500,NFM,0,2,1,400",
          "CSP,6,B,4600000,4600050,500,NFM,0,2,1,400", "CSG,1011110111", "EPG", "CSC,ON"});
  const std::vector<std::string> cycle{"01460000", "01460050", "01460100", "04600000", "04600050"};
  const std::vector<Line> lines = s.read(20);
  ASSERT_EQ(lines.size(), 20u);
  for (std::size_t i = 0; i < lines.size(); ++i)
    EXPECT_EQ(lines[i].frequency, cycle[i % cycle.size()]) << i;
}

TEST(ScannerSimScope, BusyChannelsOpenTheSquelchAtTheNearestStep) {
  // Range and where sql 1 shows: three 2 m channels on a 5 kHz grid; 146.520 and 146.940 off a
  // 12.5 kHz grid at the nearest step and a third at a quarter of the range; with no well-known
  // channel, three at a quarter, half and three quarters.
  for (const auto& [range, channels] :
       {std::pair{"1440000,1480000,500", "01465200 01469400 01473300"},
        {"1460000,1470000,1250", "01462500 01465250 01469375"},
        {"4400000,4410000,1250", "04402500 04405000 04407500"}}) {
    const auto listed = split(channels, ' ');
    const std::set<std::string> busy(listed.begin(), listed.end());
    Scope s("BCD536HP", 4000);
    s.program(range, 2);
    std::set<std::string> open, closedAtBusy;
    for (const Line& l : s.read(60000)) {
      if (l.sql == "1") {
        open.insert(l.frequency);
        EXPECT_GE(l.rssi, 400) << range << " " << l.frequency;
      } else {
        EXPECT_LT(l.rssi, 200) << range << " " << l.frequency;
        if (busy.count(l.frequency)) closedAtBusy.insert(l.frequency);
      }
    }
    EXPECT_EQ(open, busy) << range;
    EXPECT_EQ(closedAtBusy, busy) << range << ": each one drops too";
  }
}

TEST(ScannerSimScope, BusyChannelsKeyUpAndDropOverTime) {
  Scope s("BCD536HP", 4000);
  s.program("1440000,1480000,500");
  // Per busy channel, the state at each sweep; count the changes.
  std::map<std::string, std::vector<bool>> states;
  for (const Line& l : s.read(120000))
    if (l.frequency == "01465200" || l.frequency == "01469400" || l.frequency == "01473300")
      states[l.frequency].push_back(l.sql == "1");
  ASSERT_EQ(states.size(), 3u);
  for (const auto& [frequency, seen] : states) {
    int changes = 0;
    for (std::size_t i = 1; i < seen.size(); ++i) changes += seen[i] != seen[i - 1];
    // 120 s of transmissions of 1.5 to 5 s with gaps of 1 to 6 s.
    EXPECT_GE(changes, 20) << frequency;
    EXPECT_LE(changes, 160) << frequency;
  }
}

TEST(ScannerSimScope, CscOffStopsTheStreamAndCscOnStartsAgainAtTheLowEdge) {
  Scope s;
  s.program("1460000,1461000,1250");
  ASSERT_FALSE(s.read(30).empty());
  s.send({"CSC,OFF"});
  EXPECT_FALSE(s.sim->scope().streaming());
  EXPECT_EQ(s.raw(500), "");
  s.send({"CSC,ON"});
  auto lines = s.read(20);
  ASSERT_EQ(lines.size(), 20u);
  EXPECT_EQ(lines[0].frequency, "01460000");
}

TEST(ScannerSimScope, ProgramModeAndOtherModesStopTheStream) {
  for (const char* stopper : {"PRG", "JPM,SCN_MODE"}) {
    Scope s;
    s.program("1460000,1461000,1250");
    ASSERT_FALSE(s.read(30).empty());
    s.sim->answer(stopper);
    EXPECT_EQ(s.raw(200), "") << stopper;
  }
}

TEST(ScannerSimScope, ARangeDisabledByCsgGivesNoStream) {
  struct Case {
    const char* flags;
    const char *low, *high;  // the frequencies streamed; "" for none
  };
  for (const Case& c : {Case{"1111111111", "", ""}, Case{"1101111111", "01460000", "01461000"},
                        Case{"1011111111", "01480000", "01740000"}}) {  // slot 1's own range
    Scope s;
    s.send({"PRG", "CSP,2,TORVO BANDSCOPE,1460000,1461000,1250,NFM,0,2,1,400",
            std::string("CSG,") + c.flags, "EPG", "CSC,ON"});
    if (*c.low == '\0') {
      EXPECT_EQ(s.raw(200), "") << c.flags;
      continue;
    }
    const std::vector<Line> lines = s.read(200);
    ASSERT_EQ(lines.size(), 200u) << c.flags;
    for (const Line& l : lines)
      EXPECT_TRUE(l.frequency >= c.low && l.frequency <= c.high) << c.flags << " " << l.frequency;
  }
}

TEST(ScannerSimScope, WaterfallFramePeaksAtTheBusyChannels) {
  struct Case {
    const char* range;
    std::set<int> bins;  // 0-based bins of the busy channels
  };
  const Case cases[] = {
      {"1440000,1480000,1250", {157, 183, 208}},  // 146.52, 146.94, 147.33 over 250 bins
      {"4400000,4410000,1250", {62, 125, 187}},
  };
  for (const Case& c : cases) {
    Scope s("SDS200");
    s.program(c.range, 0);
    std::set<int> high;
    for (int frame = 0; frame < 120; ++frame) {
      s.sim->advance(s.sim->now() + 500);
      auto f = split(s.sim->answer("GWF,1"), ',');
      ASSERT_EQ(f.size(), 251u);
      ASSERT_EQ(f[0], "GWF");
      ASSERT_EQ(f[250].back(), '\r');
      f[250].pop_back();
      for (int bin = 0; bin < 250; ++bin) {
        ASSERT_TRUE(isPlainNumber(f[bin + 1])) << f[bin + 1];
        if (leadingInteger(f[bin + 1]) >= 400) high.insert(bin);
      }
    }
    EXPECT_EQ(high, c.bins) << c.range;
  }
}

TEST(ScannerSimScope, OnlyAnSdsAnswersGwf) {
  EXPECT_EQ(Scope("BCD536HP").sim->answer("GWF,1"), "ERR\r");
  EXPECT_EQ(Scope("UBCD3600XLT").sim->answer("GWF,1"), "ERR\r");
  EXPECT_EQ(split(Scope("SDS100").sim->answer("GWF,1"), ',').size(), 251u);
}

TEST(ScannerSimScope, TheSameSeedGivesTheSameStream) {
  auto stream = [](std::uint32_t seed) {
    Scope s("BCD536HP", 1000, seed);
    s.program("1440000,1480000,500");
    return s.raw(5000);
  };
  EXPECT_EQ(stream(5), stream(5));
  EXPECT_NE(stream(5), stream(6));
}

TEST(ScannerSimScope, FaultsCutOrGarbleStreamLinesOneByOne) {
  Scope s;
  s.program("1460000,1461000,1250");
  const std::string stream = s.raw(50);
  const auto lines = static_cast<int>(std::count(stream.begin(), stream.end(), '\r'));
  ASSERT_EQ(lines, 50);

  FaultInjector clean(SimFaults{}, 1);
  EXPECT_EQ(clean.applyToLines(stream), stream);

  SimFaults cut;
  cut.cut = 1;
  FaultInjector cutter(cut, 1);
  std::string expected;
  for (const std::string& l : split(stream, '\r'))
    if (!l.empty()) expected += (l + "\r").substr(0, (l.size() + 1) / 2);
  EXPECT_EQ(cutter.applyToLines(stream), expected);
  EXPECT_EQ(cutter.cutShort(), 50);

  SimFaults garbage;
  garbage.garbage = 1;
  FaultInjector garbler(garbage, 1);
  EXPECT_NE(garbler.applyToLines(stream), stream);
  EXPECT_EQ(garbler.garbled(), 50);
}

}  // namespace
}  // namespace zel::sim
