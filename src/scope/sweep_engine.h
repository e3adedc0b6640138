#pragma once
// The bandscope's sweep engine: it programs one of the scanner's custom search ranges,
// switches on the custom search data stream and files each reported frequency and level by
// bin. Frequencies are integers in 100 Hz units (MHz x 10000).
//
//   out:  VOL,0  SQL,3  CSC,OFF  KEY,H,P  PRG
//         CSP,<slot>,TORVO BANDSCOPE,<low>,<high>,<step code>,<mode>,<att 1|0>,2,1,400
//         CSG,1111111111 (slot+5th character "0")  EPG  CSC,ON  KEY,>,P
//   in:   CSC,<rssi>,<frequency, 8 digits>,<sql 1|0>
//   SDS:  GWF,1 -> GWF,<v1>,<v2>,...
//
// Stopped -> Programmed -> Streaming. Timers are data: the host calls onTimer1() (stream),
// onTimer2()/onTimer3() (SDS waterfall data) at the intervals the engine asks for.
//
// Sizes: `stepCount` is overwritten with 250 after the timer interval is chosen (the display
// is 250 points wide), but the range may hold up to 3200 steps. The traces and the per-bin
// counts are therefore sized by the real steps (`realSteps` + 1 bins, at least 250), so that
// every bin the stream can name is inside the arrays; a bin beyond them is not valid and is
// skipped.
#include <array>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "control/event_pump.h"
#include "control/serial_port.h"
#include "core/ports.h"

namespace zel::scope {

struct StepEntry {
  const char* caption;  // kHz as the list shows it ("12.50")
  const char* code;     // what the scanner gets ("1250")
};
// The step list in order; the code is "1250" when nothing is chosen.
const std::array<StepEntry, 11>& stepList();
// "AUTO", "AM", "FM", "NFM", "WFM".
const std::array<const char*, 5>& modeList();

// What the window's controls hold when Start/Update is pressed.
struct SweepRequest {
  bool centerSpan = false;                            // Option1(1) "Center/Span"; else "Start/Stop"
  std::string start = "144.0000", stop = "148.0000";  // Text1(2), Text1(3), MHz
  std::string center = "146.0000", span = "4.0";      // Text1(4), Text1(5), MHz
  int stepIndex = 7;                                  // Combo2; -1 nothing chosen
  int modeIndex = 0;                                  // Combo1
  int slot = 0;                                       // Combo3 "Use Custom Search:" item data
  bool attenuator = false;                            // Check1 "Att On"
  int noiseFilterIndex = 0;                           // Combo5 "Noise Filter:"
  int amplifyIndex = 0;                               // Combo6 "Amplify:"
  bool forceSql = false;                              // Check6 with its level
  int forceSqlLevel = 0;  // HScroll1: levels at or above it count as open squelch
};

enum class SweepState { Stopped, Programmed, Streaming };

// Four rows by bin: 0 live value, 1 lowest held, 2 last reading with filter, 3 highest held.
struct Traces {
  std::array<std::vector<double>, 4> rows;
  void resize(std::size_t bins);  // in traces.cpp: every row `bins` zeros
};

// A row of the statistics list, key "A" + bin.
struct StatRow {
  std::string key;
  std::string frequency;  // "Frequency:"
  long long hits = 0;     // "Hits:"
  int occupancy = 0;      // "Occupancy (%):"
  int occupancyHour = 0;  // "Occ. (%) this hour:"
  int occupancyDay = 0;   // "Occ. (%) this day:"
  int low = 0;            // "Low:"
  int high = 0;           // "High:"
  std::string lastDate;   // "Last Hit Date:"
  std::string lastTime;   // "Last Hit Time:"
  bool bold = false;      // hit in the sweep now running
};

struct SweepPorts {
  control::SerialPort& port;
  const Clock& clock;
  control::EventPump& pump;
  Feedback& feedback;
};

class SweepEngine {
 public:
  explicit SweepEngine(SweepPorts ports);

  // Opens the port ("115200,N,8,1"), asks MDL and VER twice; true for an SDS100/SDS200
  // (the waterfall data path). A failure shows "Error#: " + number + ", comport not
  // available or busy, please try again." and returns false.
  bool OpenScannerPort(const std::string& portName);
  bool isSds() const { return sds_; }
  const std::string& modelText() const { return model_; }

  // Start/Update: the checks and their messages, the arrays, ProgramSearch, Timer1 on.
  // False when a check refused (the message was shown).
  bool startUpdate(const SweepRequest& request);
  void ProgramSearch();
  // Stop: CSC,OFF and the timers off.
  void stop();

  // Timer1: at most 1000 stream lines a tick, then one draw.
  void onTimer1();
  // Above 0: the reader drops the rest of a tick's lines once sweepCount has reached it, so
  // that a run without a window ends after exactly that many sweeps.
  std::int32_t sweepLimit = 0;
  // SDS: Timer2 sends "GWF,1" and hands over to Timer3, which reads the values into row 0
  // and hands back. Start/Update on an SDS starts Timer2 instead of programming a search.
  // A frame with values counts as a sweep; as the frame has no squelch flag, a level counts
  // as a hit only through the log threshold (forceSql at forceSqlLevel).
  void onTimer2();
  void onTimer3();

  SweepState state() const { return state_; }
  bool timer1Enabled() const { return timer1On_; }
  int timer1IntervalMs() const { return timer1Ms_; }
  bool timer2Enabled() const { return timer2On_; }
  bool timer3Enabled() const { return timer3On_; }
  static constexpr int kSdsTimerMs = 100;

  // The sweep.
  std::int32_t lowFreq = 0, highFreq = 0;
  std::int16_t stepTenths = 0;
  std::int16_t stepCount = 0;  // overwritten with 250 after the interval is chosen, as always
  int realSteps = 0;           // the steps of the range before that overwrite
  std::int32_t sweepCount = 0;
  Traces traces;
  std::vector<StatRow> stats;  // in the order rows were added
  long long totalHits = 0;
  int distinctFrequencies = 0;

  // Texts the window shows.
  std::string label9;                    // "Resolution: ... kHz Steps: ... Sweepcount: ..."
  std::string label8;                    // "ATT ON" or ""
  std::string label3;                    // the highest frequency of the sweep running
  std::array<std::string, 3> label6;     // low edge, high edge, middle (MHz)
  std::string lastFrequency, lastLevel;  // Label5(0), Label5(1)
  bool showLiveFrequency = false;        // Label10(4) green: Label9 follows the stream
  std::vector<std::string> streamLines;  // List1, newest last (kept short)
  std::vector<std::string> openLines;    // List2: frequency, level, time, date of sql "1"
  int cursorBin = 0;

  // Drawing: called with true at the moment a sweep ends (refresh the graph, add a row to
  // the waterfall: the traces hold the finished sweep), and with false after each tick's
  // lines (draw the graph).
  std::function<void(bool sweepEnded)> onDraw;
  // Called for every counted hit, after the counts were raised.
  std::function<void(int bin, int level, std::int32_t frequency)> onHit;

  // Bins of the arrays (the real steps + 1, at least 250) and the frequency of a bin. On the
  // SDS path the frame's 250 levels are spread over the range.
  int binCount() const { return static_cast<int>(bins_.size()); }
  std::int32_t binFrequency(int bin) const;
  // The step code the scanner gets ("1250" when nothing is chosen).
  std::string stepCode() const;
  // "01462000" -> "0146.2000": four digits, ".", the rest.
  static std::string frequencyText(std::string_view digits);
  // Hour 0..23 of "HH:MM:SS"; weekday 1 (Sunday) .. 7 of "YYYY-MM-DD"; 0 when unreadable.
  static int hourIndex(std::string_view timeOfDay);
  static int dayIndex(std::string_view date);

 private:
  void send(const std::string& command);
  void readLine(std::string_view line);
  void countHit(int bin, int rssi, std::int32_t frequency, std::string freqText);
  void endSweep();
  void updatePercentages();
  void showCounters();
  void resetArrays(int bins);
  bool refuse(const std::string& message);

  SweepPorts ports_;
  SweepState state_ = SweepState::Stopped;
  bool sds_ = false;
  std::string model_;
  bool timer1On_ = false, timer2On_ = false, timer3On_ = false;
  int timer1Ms_ = 500;
  SweepRequest request_;
  std::int32_t highestSeen_ = 0;
  bool firstLine_ = true;
  std::string stepCaption_;
  struct BinCounts {
    long long hits = 0;
    int maxSignal = 0;
    int row = -1;  // index in `stats`, -1 before the first hit
    std::string freqText;
    std::array<long long, 25> hours{};
    std::array<long long, 8> days{};
  };
  std::vector<BinCounts> bins_;
};

// The settings of section "scope" with their defaults, read at load and written at close.
struct ScopeSettings {
  SweepRequest request;
  int rangeIndex = 9;                 // bc_range
  bool saveWaterfall = false;         // bc_sw
  int gain = 0, shift = 0;            // bs_gain, bs_shift
  std::string port;                   // usbporttext
  std::string com;                    // com
  bool chk1 = false, chk2 = false;    // bc_chk1, bc_chk2
  bool view1 = false, view2 = false;  // bc_view1, bc_view2
  int left = 0, top = 0, height = 0;  // bc_left, bc_top, bc_height
  static ScopeSettings load(const SettingsStore& store);
  void save(SettingsStore& store) const;
};

}  // namespace zel::scope
