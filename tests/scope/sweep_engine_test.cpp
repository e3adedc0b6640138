// The sweep engine on a scripted port with a settable clock.
#include "scope/sweep_engine.h"

#include <gtest/gtest.h>

#include "control/scripted_serial_port.h"
#include "core/memory_ports.h"
#include "core/settings.h"
#include "core/text.h"

namespace zel::scope {
namespace {

class ClockPump : public control::EventPump {
 public:
  explicit ClockPump(ManualClock& clock) : clock_(clock) {}
  void runFor(int ms) override {
    waits.push_back(ms);
    clock_.advance(ms);
  }
  void runPending() override {}
  std::vector<int> waits;

 private:
  ManualClock& clock_;
};

struct Rig {
  Rig() { port.open("COM5", "115200,n,8,1"); }
  ManualClock clock;
  ClockPump pump{clock};
  control::ScriptedSerialPort port;
  RecordingFeedback feedback;
  SweepEngine engine{SweepPorts{port, clock, pump, feedback}};

  bool start(SweepRequest r = narrow()) {
    port.clearOutput();
    return engine.startUpdate(r);
  }
  // 144.0000 to 144.1250 MHz at 12.50 kHz: 10 steps of 125 units, bins 0..10.
  static SweepRequest narrow() { return range("144.0000", "144.1250", 5); }
  static SweepRequest range(const char* start, const char* stop, int step) {
    SweepRequest r;
    r.start = start;
    r.stop = stop;
    r.stepIndex = step;
    return r;
  }
  // The numbers of the engine's timers that run, e.g. "23".
  std::string timers() const {
    return std::string(engine.timer1Enabled() ? "1" : "") + (engine.timer2Enabled() ? "2" : "") +
           (engine.timer3Enabled() ? "3" : "");
  }
  void stream(const std::string& lines) {
    port.feed(lines);
    engine.onTimer1();
  }
};

std::string csc(long long freq, int rssi, int sql) {
  return "CSC," + std::to_string(rssi) + "," + padNumber(freq, 8) + "," + std::to_string(sql) +
         "\r";
}

constexpr long long kLow = 1440000;

// --- Start/Update checks -------------------------------------------------------------

struct RangeCase {
  const char* name;
  bool centerSpan;
  const char* a;  // start or centre
  const char* b;  // stop or span
  int stepIndex;
  const char* message;  // "" when accepted
  int realSteps;
  int intervalMs;
  std::int32_t low, high;
};

TEST(SweepStart, RangeChecksAndTimerInterval) {
  const RangeCase cases[] = {
      {"nine steps", false, "144.0000", "144.1125", 5,
       "Search range is too small (9), please increase range or select smaller step.", 0, 0, 0, 0},
      {"ten steps", false, "144.0000", "144.1250", 5, "", 10, 250, 1440000, 1441250},
      {"99 steps", false, "144.0000", "145.2375", 5, "", 99, 250, 1440000, 1452375},
      {"100 steps", false, "144.0000", "145.2500", 5, "", 100, 500, 1440000, 1452500},
      {"1000 steps", false, "144.0000", "156.5000", 5, "", 1000, 500, 1440000, 1565000},
      {"1001 steps", false, "144.0000", "156.5125", 5, "", 1001, 1000, 1440000, 1565125},
      {"3200 steps", false, "144.0000", "184.0000", 5, "", 3200, 1000, 1440000, 1840000},
      {"3201 steps", false, "144.0000", "184.0125", 5,
       "Search range is limited to 3200 steps, please select different range or increase steps. "
       "Max freq is: 184",
       0, 0, 0, 0},
      {"3201 steps of 6.25", false, "144.0000", "163.8462", 1,
       "Search range is limited to 3200 steps, please select different range or increase steps. "
       "Max freq is: 163.84",
       0, 0, 0, 0},
      {"reversed", false, "148.0000", "144.0000", 5, "Error, check frequency range", 0, 0, 0, 0},
      {"16-bit overflow", false, "100.0000", "900.0000", 0, "Error, check frequency range.", 0, 0,
       0, 0},
      {"no step chosen", false, "144.0000", "148.0000", -1, "Error, check frequency range.", 0, 0,
       0, 0},
      {"centre and span", true, "146.0000", "4.0", 7, "", 200, 500, 1440000, 1480000},
      {"odd span", true, "146.0000", "0.0125", 0,
       "Search range is too small (2), please increase "
       "range or select smaller step.",
       0, 0, 0, 0},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    Rig rig;
    SweepRequest r;
    r.centerSpan = c.centerSpan;
    (c.centerSpan ? r.center : r.start) = c.a;
    (c.centerSpan ? r.span : r.stop) = c.b;
    r.stepIndex = c.stepIndex;
    const bool accepted = rig.start(r);
    EXPECT_EQ(accepted, std::string(c.message).empty());
    if (!accepted) {
      EXPECT_EQ(rig.feedback.messages, std::vector<std::string>{c.message});
      EXPECT_TRUE(rig.port.commands().empty() && rig.timers().empty());
      continue;
    }
    EXPECT_TRUE(rig.feedback.messages.empty());
    const SweepEngine& e = rig.engine;  // 250: the display's width, whatever the range
    EXPECT_EQ(
        std::make_tuple(e.lowFreq, e.highFreq, e.realSteps, e.timer1IntervalMs(), e.stepCount),
        std::make_tuple(c.low, c.high, c.realSteps, c.intervalMs, 250));
    // Every bin the range can name is inside the arrays.
    EXPECT_GE(rig.engine.binCount(), c.realSteps + 1);
    for (const auto& row : rig.engine.traces.rows) EXPECT_EQ(row.size(), rig.engine.binCount());
    EXPECT_TRUE(rig.engine.timer1Enabled());
  }
}

TEST(SweepStart, LabelsShowTheRangeResolutionAndAttenuator) {
  Rig rig;
  SweepRequest r = Rig::range("144.0000", "148.0000", 8);  // 25.00
  r.attenuator = true;
  ASSERT_TRUE(rig.start(r));
  EXPECT_EQ(rig.engine.label9 + "|" + rig.engine.label8,
            "Resolution: 25.00 kHz Steps: 160 Sweepcount: 0|ATT ON");
  EXPECT_EQ(rig.engine.label6, (std::array<std::string, 3>{"144.0000", "148.0000", "146.0000"}));
  r.attenuator = false;
  ASSERT_TRUE(rig.start(r));
  EXPECT_EQ(rig.engine.label8, "");
}

// --- ProgramSearch on the wire --------------------------------------------------------

TEST(SweepProgram, CommandSequenceWithWaits) {
  Rig rig;
  SweepRequest r = Rig::range("144.0000", "148.0000", 5);
  r.modeIndex = 3;  // NFM
  r.slot = 2;
  r.attenuator = true;
  rig.port.responder = [&](const std::string& c) {
    if (startsWith(c, "CSP,")) rig.port.feed("CSP,OK\r");
  };
  ASSERT_TRUE(rig.start(r));
  const std::vector<std::string> expected{
      "VOL,0",          "SQL,3", "CSC,OFF",
      "KEY,H,P",        "PRG",   "CSP,2,TORVO BANDSCOPE,1440000,1480000,1250,NFM,1,2,1,400",
      "CSG,1101111111", "EPG",   "CSC,ON",
      "KEY,>,P"};
  EXPECT_EQ(rig.port.commands(), expected);
  EXPECT_EQ(rig.port.rawOutput().back(), '\r');
  EXPECT_EQ(rig.pump.waits, std::vector<int>(10, 100));
  // The CSP answer was read and dropped: the first tick sees only the stream.
  int draws = 0;
  rig.engine.onDraw = [&](bool) { ++draws; };
  rig.stream("");
  EXPECT_TRUE(rig.engine.streamLines.empty() && draws == 1);
}

TEST(SweepProgram, CsgFlagsPerSlotAndStepCodes) {
  const char* csg[] = {"CSG,0111111111", "CSG,1011111111", "CSG,1101111111", "CSG,1110111111",
                       "CSG,1111011111", "CSG,1111101111", "CSG,1111110111", "CSG,1111111011",
                       "CSG,1111111101", "CSG,1111111110"};
  for (int slot = 0; slot < 10; ++slot) {
    Rig rig;
    SweepRequest r = Rig::narrow();
    r.slot = slot;
    ASSERT_TRUE(rig.start(r));
    EXPECT_EQ(rig.port.commands().at(6), csg[slot]) << slot;
    EXPECT_EQ(rig.port.commands().at(5).rfind("CSP," + std::to_string(slot) + ",", 0), 0u);
  }
  // The step code of each caption reaches the scanner; a range that suits every step.
  const char* codes[] = {"500",  "625",  "750",  "833",  "1000", "1250",
                         "1500", "2000", "2500", "5000", "10000"};
  for (int i = 0; i < 11; ++i) {
    Rig rig;
    ASSERT_TRUE(rig.start(Rig::range("144.0000", "148.0000", i))) << i;
    EXPECT_EQ(split(rig.port.commands().at(5), ',').at(5), codes[i]);
  }
}

TEST(SweepProgram, StopSwitchesTheStreamOffAndTheTimers) {
  Rig rig;
  ASSERT_TRUE(rig.start());
  rig.port.clearOutput();
  rig.engine.stop();
  EXPECT_EQ(rig.port.commands(), std::vector<std::string>{"CSC,OFF"});
  EXPECT_EQ(rig.timers(), "");
  EXPECT_EQ(rig.engine.state(), SweepState::Stopped);
}

// --- The stream -----------------------------------------------------------------------

// Frequencies of one pass over the narrow range, low to high.
std::string pass(int rssi = 5, int sql = 0) {
  std::string s;
  for (int i = 0; i <= 10; ++i) s += csc(kLow + 125 * i, rssi, sql);
  return s;
}

TEST(SweepStream, WrapCountsASweepButNotTheFirstFrequencyOfARun) {
  Rig rig;
  ASSERT_TRUE(rig.start());
  std::vector<bool> draws;
  rig.engine.onDraw = [&](bool ended) { draws.push_back(ended); };
  // The first line of the run is low in the range: no sweep ended.
  rig.stream(csc(kLow + 500, 3, 0) + csc(kLow + 750, 3, 0));
  EXPECT_EQ(rig.engine.sweepCount, 0);
  EXPECT_EQ(rig.engine.label3, "1440750");
  // Back down: a sweep ended.
  rig.stream(csc(kLow + 250, 3, 0));
  EXPECT_EQ(rig.engine.sweepCount, 1);
  EXPECT_EQ(rig.engine.label3, "1440250");
  EXPECT_EQ(draws, (std::vector<bool>{false, true, false}));
  // The low edge itself ends nothing; the next step above it does.
  rig.stream(csc(kLow, 3, 0));
  EXPECT_EQ(rig.engine.sweepCount, 1);
  rig.stream(csc(kLow + 125, 3, 0));
  EXPECT_EQ(rig.engine.sweepCount, 2);
  EXPECT_EQ(rig.engine.label9, "Resolution: 12.50 kHz Steps: 10 Sweepcount: 2");
  // A new Start/Update is a new run: its first frequency counts nothing.
  ASSERT_TRUE(rig.start());
  rig.stream(csc(kLow + 125, 3, 0));
  EXPECT_EQ(rig.engine.sweepCount, 0);
}

TEST(SweepStream, BinsRowsFiltersAndAmplifier) {
  struct Case {
    const char* name;
    std::string line;
    int noise, amp;
    int bin;
    double row0, row2;
  };
  const Case cases[] = {
      {"closed squelch by noise filter 3", csc(kLow + 625, 12, 0), 3, 0, 5, 0, 3},
      {"closed, odd level", csc(kLow + 625, 13, 0), 3, 0, 5, 0, 3.25},
      {"open squelch amplified by index 2", csc(kLow + 625, 30, 1), 0, 2, 5, 60, 60},
      {"open, amplifier 1 gives 1.5", csc(kLow + 625, 7, 1), 0, 1, 5, 10.5, 10.5},
      {"bin below 2 is 2", csc(kLow + 125, 9, 1), 0, 0, 2, 9, 9},
      {"below the range is bin 2", csc(kLow - 5000, 9, 1), 0, 0, 2, 9, 9},
      {"part of a step rounds down", csc(kLow + 1000 + 124, 9, 1), 0, 0, 8, 9, 9},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    Rig rig;
    SweepRequest r = Rig::narrow();
    r.noiseFilterIndex = c.noise;
    r.amplifyIndex = c.amp;
    ASSERT_TRUE(rig.start(r));
    rig.stream(c.line);
    EXPECT_EQ(rig.engine.cursorBin, c.bin);
    const auto b = static_cast<std::size_t>(c.bin);
    EXPECT_DOUBLE_EQ(rig.engine.traces.rows[0][b], c.row0);
    EXPECT_DOUBLE_EQ(rig.engine.traces.rows[2][b], c.row2);
    EXPECT_DOUBLE_EQ(rig.engine.traces.rows[3][b], c.row0);  // highest held
    // Nothing else was written.
    double others = 0;
    for (const auto& row : rig.engine.traces.rows)
      for (std::size_t i = 0; i < row.size(); ++i)
        if (i != b) others += row[i];
    EXPECT_EQ(others, 0);
  }
}

TEST(SweepStream, HighestHeldKeepsThePeakAndLowestNeverRisesAboveLive) {
  Rig rig;
  ASSERT_TRUE(rig.start());
  const std::size_t b = 5;
  for (int level : {20, 50, 30}) {
    rig.stream(csc(kLow + 625, level, 1));
    EXPECT_LE(rig.engine.traces.rows[1][b], rig.engine.traces.rows[0][b]);
  }
  EXPECT_DOUBLE_EQ(rig.engine.traces.rows[0][b], 30);
  EXPECT_DOUBLE_EQ(rig.engine.traces.rows[3][b], 50);
}

TEST(SweepStream, OnlyFourFieldCscLinesAreRead) {
  const std::pair<std::string, bool> lines[] = {
      {"CSC,40,01440625,1", true},   {"CSC,40,01440625,1,9", false},
      {"CSC,40,01440625", false},    {"csc,40,01440625,1", false},
      {" CSC,40,01440625,1", false}, {"GLG,40,01440625,1", false},
      {"CSC,40,01440625,1\n", true}, {"CSC,,,", true},
  };
  for (const auto& [line, read] : lines) {
    SCOPED_TRACE(line);
    Rig rig;
    ASSERT_TRUE(rig.start());
    rig.stream(line + "\r");
    EXPECT_EQ(rig.engine.streamLines.size(), read ? 1u : 0u);
  }
  // A line cut between two reads is lost in both halves.
  Rig rig;
  ASSERT_TRUE(rig.start());
  rig.stream("CSC,40,014");
  rig.stream("40625,1\r");
  EXPECT_TRUE(rig.engine.streamLines.empty());
  EXPECT_EQ(rig.engine.totalHits, 0);
}

TEST(SweepStream, AtMostAThousandLinesATick) {
  Rig rig;
  const SweepRequest r = Rig::range("144.0000", "146.0000", 0);  // 5.0 kHz: 400 steps
  ASSERT_TRUE(rig.start(r));
  std::string burst;
  for (int i = 0; i < 1500; ++i) burst += csc(kLow + 50 * (i % 401), 20, 1);
  rig.stream(burst);
  EXPECT_EQ(rig.engine.totalHits, 1000);
  EXPECT_EQ(rig.engine.sweepCount, 2);  // wraps at lines 402 and 803, not at the low edge
  rig.stream("");
  EXPECT_EQ(rig.engine.totalHits, 1000);  // the rest of the burst is gone

  // With a sweep limit the reader stops after the line that ended the last sweep.
  Rig limited;
  limited.engine.sweepLimit = 1;
  ASSERT_TRUE(limited.start(r));
  limited.stream(burst);
  EXPECT_EQ(limited.engine.sweepCount, 1);
  EXPECT_EQ(limited.engine.totalHits, 403);
}

TEST(SweepStream, ForcedSquelchCountsLevelsAtOrAboveTheThreshold) {
  Rig rig;
  SweepRequest r = Rig::narrow();
  r.forceSql = true;
  r.forceSqlLevel = 25;
  ASSERT_TRUE(rig.start(r));
  rig.stream(csc(kLow + 250, 24, 0) + csc(kLow + 375, 25, 0) + csc(kLow + 500, 60, 0));
  EXPECT_EQ(rig.engine.totalHits, 2);
  ASSERT_EQ(rig.engine.stats.size(), 2u);
  EXPECT_EQ(rig.engine.stats[0].key + "|" + rig.engine.stats[1].key, "A3|A4");
  // The trace still shows the closed squelch filter.
  EXPECT_DOUBLE_EQ(rig.engine.traces.rows[2][3], 25);
}

TEST(SweepStream, AFrequencyAboveTheRangeWritesNothing) {
  Rig rig;
  ASSERT_TRUE(rig.start());
  const std::size_t bins = static_cast<std::size_t>(rig.engine.binCount());
  rig.stream(csc(kLow + 125 * static_cast<long long>(bins), 80, 1) + csc(99999999, 80, 1));
  EXPECT_EQ(rig.engine.totalHits, 0);
  for (const auto& row : rig.engine.traces.rows)
    for (double v : row) EXPECT_EQ(v, 0);
}

// --- Statistics -----------------------------------------------------------------------

std::string statText(const StatRow& r) {
  return r.key + " " + r.frequency + " " + std::to_string(r.hits) + " " +
         std::to_string(r.occupancy) + "/" + std::to_string(r.occupancyHour) + "/" +
         std::to_string(r.occupancyDay) + " " + std::to_string(r.low) + "-" +
         std::to_string(r.high) + " " + r.lastDate + " " + r.lastTime + (r.bold ? " bold" : "");
}

TEST(SweepStats, HitsPerBinHourAndDayWithTruncatedPercentages) {
  Rig rig;
  rig.clock.day = "2026-01-04";  // a Sunday
  rig.clock.time = "09:15:00";
  ASSERT_TRUE(rig.start());
  std::vector<std::tuple<int, int, std::int32_t>> hits;
  rig.engine.onHit = [&](int bin, int level, std::int32_t f) { hits.emplace_back(bin, level, f); };
  // Three sweeps: bin 5 open in every one, bin 7 in the first, bin 8 with level 0 never.
  for (int sweep = 0; sweep < 3; ++sweep) {
    if (sweep == 2) rig.clock.time = "10:00:01";
    std::string s;
    for (int i = 0; i <= 10; ++i) {
      const bool open = i == 5 || (i == 7 && sweep == 0) || i == 8;
      const int level = i == 8 ? 0 : (i == 5 ? 40 + sweep * 10 : 33);
      s += csc(kLow + 125 * i, level, open ? 1 : 0);
    }
    rig.stream(s);
  }
  rig.stream(csc(kLow + 125, 2, 0));  // ends the third sweep
  EXPECT_EQ(std::tie(rig.engine.sweepCount, rig.engine.totalHits, rig.engine.distinctFrequencies),
            std::make_tuple(3, 4, 2));
  ASSERT_EQ(hits.size(), 4u);
  EXPECT_EQ(hits[0], std::make_tuple(5, 40, 1440625));
  ASSERT_EQ(rig.engine.stats.size(), 2u);
  // A5: one of three in the hour of 10, un-bolded at the end of the sweep; A7: 1 / 3 truncated.
  EXPECT_EQ(statText(rig.engine.stats[0]), "A5 0144.0625 3 100/33/100 40-60 2026-01-04 10:00:01");
  EXPECT_EQ(statText(rig.engine.stats[1]), "A7 0144.0875 1 33/0/33 33-33 2026-01-04 09:15:00");
  // A hit in the sweep now running shows bold.
  rig.stream(csc(kLow + 875, 70, 1));
  const SweepEngine& e = rig.engine;
  EXPECT_TRUE(e.stats[1].bold && e.stats[1].high == 70);
  EXPECT_EQ(std::tie(e.openLines.back(), e.streamLines.back(), e.lastFrequency, e.lastLevel),
            std::make_tuple("0144.0875,70,10:00:01,2026-01-04", "CSC,70,01440875,1 / 1",
                            "0144.0875", "70"));
}

TEST(SweepStats, HourAndWeekdayIndexes) {
  const std::pair<const char*, int> hours[] = {
      {"00:00:00", 0}, {"09:59:59", 9}, {"23:00:00", 23}, {"", 0}, {"x9:00:00", 0}};
  for (const auto& [t, h] : hours) EXPECT_EQ(SweepEngine::hourIndex(t), h) << t;
  const std::pair<const char*, int> days[] = {{"2026-01-04", 1}, {"2026-01-10", 7},
                                              {"2024-02-29", 5}, {"2026-02-30", 0},
                                              {"garbage", 0},    {"2026-1-5", 2}};
  for (const auto& [d, w] : days) EXPECT_EQ(SweepEngine::dayIndex(d), w) << d;
}

TEST(SweepStats, SweepCountStopsAt9999999) {
  Rig rig;
  ASSERT_TRUE(rig.start());
  rig.engine.sweepCount = 9999998;
  rig.stream(csc(kLow + 500, 1, 0) + csc(kLow + 250, 1, 0) + csc(kLow + 125, 1, 0) +
             csc(kLow + 1000, 1, 0) + csc(kLow + 250, 1, 0));
  EXPECT_EQ(rig.engine.sweepCount, 9999999);
}

// --- SDS frames -----------------------------------------------------------------------

TEST(SweepSds, ModelDecidesThePathAndFramesFillTheLiveTrace) {
  struct Case {
    const char* model;
    bool sds;
  };
  for (const Case& c : {Case{"SDS100", true}, Case{"SDS200", true}, Case{"BCD536HP", false}}) {
    SCOPED_TRACE(c.model);
    Rig rig;
    rig.port.close();
    rig.port.responder = [&](const std::string& cmd) {
      if (cmd == "MDL") rig.port.feed(std::string("MDL,") + c.model + "\r");
      if (cmd == "VER") rig.port.feed("VER,Version 1.02\r");
    };
    EXPECT_EQ(std::make_pair(rig.engine.OpenScannerPort("/dev/ttyACM0"), rig.port.lastSettings),
              std::make_pair(c.sds, std::string("115200,N,8,1")));
    EXPECT_EQ(rig.port.commands(), (std::vector<std::string>{"MDL", "MDL", "VER", "VER"}));
    EXPECT_EQ(rig.pump.waits, (std::vector<int>{200, 200, 200, 200}));
    EXPECT_NE(rig.engine.modelText().find(c.model), std::string::npos);
  }

  Rig rig;
  rig.port.close();
  rig.port.responder = [&](const std::string& cmd) {
    if (cmd == "MDL") rig.port.feed("MDL,SDS200\r");
  };
  ASSERT_TRUE(rig.engine.OpenScannerPort("/dev/ttyACM0"));
  SweepRequest r;
  r.forceSql = true;
  r.forceSqlLevel = 50;
  ASSERT_TRUE(rig.start(r));
  EXPECT_TRUE(rig.port.commands().empty());  // no search is programmed
  EXPECT_EQ(rig.timers(), "2");
  rig.engine.onTimer2();
  EXPECT_EQ(rig.port.commands(), std::vector<std::string>{"GWF,1"});
  EXPECT_EQ(rig.timers(), "3");
  std::string frame = "GWF";
  for (int i = 0; i < 250; ++i) frame += "," + std::to_string(i == 100 ? 77 : i % 10);
  rig.port.feed(frame + "\r");
  int draws = 0;
  rig.engine.onDraw = [&](bool) { ++draws; };
  rig.engine.onTimer3();
  EXPECT_EQ(rig.timers(), "2");
  EXPECT_EQ(SweepEngine::kSdsTimerMs, 100);
  const auto& live = rig.engine.traces.rows[0];
  EXPECT_EQ(std::vector<double>({live[0], live[9], live[100], live[249]}),
            (std::vector<double>{0, 9, 77, 9}));
  // Two draws: the frame's end, then the draw of the tick.
  EXPECT_EQ(std::tie(rig.engine.streamLines.back(), rig.engine.sweepCount, draws),
            std::make_tuple("9 : ", 1, 2));
  ASSERT_EQ(rig.engine.stats.size(), 1u);  // 144 + 4 MHz * 100 / 250
  EXPECT_EQ(statText(rig.engine.stats[0]).substr(0, 20), "A100 0145.6000 1 100");
  // Nothing arrived: no frame, the values stay, Timer2 asks again.
  rig.engine.onTimer2();
  rig.engine.onTimer3();
  EXPECT_EQ(std::make_tuple(rig.engine.sweepCount, live[100], rig.timers()),
            std::make_tuple(1, 77.0, "2"));
}

TEST(SweepSds, APortThatCannotOpenSaysSo) {
  Rig rig;
  rig.port.close();
  rig.port.openError = control::kPortErrorInvalidPort;
  EXPECT_FALSE(rig.engine.OpenScannerPort("COM9"));
  ASSERT_EQ(rig.feedback.messages.size(), 1u);
  EXPECT_EQ(rig.feedback.messages[0],
            "Error#: 8002, comport not available or busy, please try again.");
  EXPECT_TRUE(rig.port.commands().empty());
}

// --- Settings -------------------------------------------------------------------------

TEST(ScopeSettingsTest, DefaultsAndRoundTripWithTheMark) {
  MemorySettingsStore store;
  ScopeSettings s = ScopeSettings::load(store);
  const auto fields = [](const ScopeSettings& v) {
    const SweepRequest& r = v.request;
    return std::make_tuple(r.start, r.stop, r.center, r.span, r.stepIndex, v.rangeIndex,
                           r.attenuator, r.noiseFilterIndex, v.gain, v.port);
  };
  EXPECT_EQ(fields(s), std::make_tuple("144.0000", "148.0000", "146.0000", "4.0", 7, 9, false, 0, 0,
                                       std::string()));

  s.request.start = "150.1000";
  s.request.stepIndex = 2;
  s.request.attenuator = true;
  s.request.noiseFilterIndex = 3;
  s.gain = -4;
  s.port = "/dev/ttyACM1";
  s.save(store);
  std::string fr1, att;
  ASSERT_TRUE(store.read("scope", "bc_fr1", fr1) && store.read("scope", "bc_att", att));
  EXPECT_EQ(fr1 + "|" + att, "150.1000x|1x");
  EXPECT_EQ(fields(ScopeSettings::load(store)), fields(s));

  // A step index beyond the list is held to it.
  store.write("scope", "bc_step", "40x");
  EXPECT_EQ(ScopeSettings::load(store).request.stepIndex, 10);
}

}  // namespace
}  // namespace zel::scope
