// The sweep engine's port, Start/Update checks, the search programming and the SDS frames.
// The stream reader is in sweep_stream.cpp, the hit counts in sweep_stats.cpp.
#include "scope/sweep_engine.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "control/reply_fields.h"
#include "core/text.h"

namespace zel::scope {

namespace {

constexpr const char* kScopePortSettings = "115200,N,8,1";
constexpr int kMinSteps = 10;
constexpr int kMaxSteps = 3200;
constexpr int kDisplaySteps = 250;

// A text in MHz as 100 Hz units, held far enough from the 64-bit edge to round safely.
long long unitsOf(std::string_view mhz) {
  return std::llround(std::clamp(leadingNumber(mhz) * 10000.0, -1.0e15, 1.0e15));
}

// A number as the system prints one: no trailing zeros, no "." for a whole number.
std::string plainNumber(double value) {
  std::string text = formatFixed(value, 4);
  if (text.find('.') != std::string::npos) {
    while (text.back() == '0') text.pop_back();
    if (text.back() == '.') text.pop_back();
  }
  return text;
}

std::string mhzText(long long units) {
  return formatFixed(static_cast<double>(units) / 10000.0, 4);
}

}  // namespace

const std::array<StepEntry, 11>& stepList() {
  static const std::array<StepEntry, 11> list{{{"5.0", "500"},
                                               {"6.25", "625"},
                                               {"7.50", "750"},
                                               {"8.33", "833"},
                                               {"10.00", "1000"},
                                               {"12.50", "1250"},
                                               {"15.00", "1500"},
                                               {"20.00", "2000"},
                                               {"25.00", "2500"},
                                               {"50.00", "5000"},
                                               {"100.00", "10000"}}};
  return list;
}

const std::array<const char*, 5>& modeList() {
  static const std::array<const char*, 5> list{"AUTO", "AM", "FM", "NFM", "WFM"};
  return list;
}

SweepEngine::SweepEngine(SweepPorts ports) : ports_(ports) {}

std::string SweepEngine::frequencyText(std::string_view digits) {
  return std::string(mid(digits, 1, 4)) + "." + std::string(mid(digits, 5));
}

std::string SweepEngine::stepCode() const {
  const auto& list = stepList();
  if (request_.stepIndex < 0 || request_.stepIndex >= static_cast<int>(list.size())) return "1250";
  return list[static_cast<std::size_t>(request_.stepIndex)].code;
}

std::int32_t SweepEngine::binFrequency(int bin) const {
  if (sds_) {
    return static_cast<std::int32_t>(lowFreq + static_cast<long long>(highFreq - lowFreq) * bin /
                                                   kDisplaySteps);
  }
  return static_cast<std::int32_t>(lowFreq + static_cast<long long>(stepTenths) * bin);
}

void SweepEngine::send(const std::string& command) {
  if (ports_.port.isOpen()) ports_.port.write(command + "\r");
}

bool SweepEngine::refuse(const std::string& message) {
  ports_.feedback.message(message);
  return false;
}

bool SweepEngine::OpenScannerPort(const std::string& portName) {
  if (ports_.port.isOpen()) ports_.port.close();
  const int error = ports_.port.open(portName, kScopePortSettings);
  if (error != control::kPortOk) {
    sds_ = false;
    return refuse("Error#: " + std::to_string(error) +
                  ", comport not available or busy, please try again.");
  }
  for (const char* command : {"MDL", "MDL", "VER", "VER"}) {
    send(command);
    control::Wait(ports_.pump, ports_.clock, 0.2);
  }
  model_ = ports_.port.readAll();
  ports_.feedback.status(model_);
  sds_ = model_.find("SDS100") != std::string::npos || model_.find("SDS200") != std::string::npos;
  return sds_;
}

void SweepEngine::resetArrays(int bins) {
  bins = std::max(bins, kDisplaySteps);
  traces.resize(static_cast<std::size_t>(bins));
  bins_.assign(static_cast<std::size_t>(bins), BinCounts{});
  stats.clear();
  streamLines.clear();
  openLines.clear();
  totalHits = 0;
  distinctFrequencies = 0;
  cursorBin = 0;
}

void SweepEngine::showCounters() {
  label9 = "Resolution: " + stepCaption_ + " kHz" + " Steps: " + std::to_string(realSteps) +
           " Sweepcount: " + std::to_string(sweepCount);
}

bool SweepEngine::startUpdate(const SweepRequest& request) {
  timer1On_ = false;
  request_ = request;
  const long long start = unitsOf(request.start), stop = unitsOf(request.stop);
  const long long center = unitsOf(request.center), span = unitsOf(request.span);
  long long low = start, high = stop;
  if (request.centerSpan) {
    low = std::llround(static_cast<double>(center) - static_cast<double>(span) / 2.0);
    high = std::llround(static_cast<double>(center) + static_cast<double>(span) / 2.0);
  }
  constexpr long long kMax32 = std::numeric_limits<std::int32_t>::max();
  if (low > kMax32 || high > kMax32 || low < -kMax32 || high < -kMax32) {
    return refuse("Error, check frequency range.");
  }
  lowFreq = static_cast<std::int32_t>(low);
  highFreq = static_cast<std::int32_t>(high);
  if (highFreq < lowFreq) return refuse("Error, check frequency range");
  label6 = {mhzText(lowFreq), mhzText(highFreq), mhzText((low + high) / 2)};

  const auto& list = stepList();
  const bool chosen = request.stepIndex >= 0 && request.stepIndex < static_cast<int>(list.size());
  stepCaption_ = chosen ? list[static_cast<std::size_t>(request.stepIndex)].caption : "";
  // The 16-bit step in 100 Hz units rounds as the system's integers do (6.25 kHz -> 62).
  const double tenths = leadingNumber(stepCaption_) * 10.0;
  stepTenths = static_cast<std::int16_t>(std::nearbyint(tenths));
  if (stepTenths <= 0) return refuse("Error, check frequency range.");
  const long long steps = (static_cast<long long>(highFreq) - lowFreq) / stepTenths;
  if (steps > std::numeric_limits<std::int16_t>::max()) {
    return refuse("Error, check frequency range.");
  }
  stepCount = static_cast<std::int16_t>(steps);
  if (stepCount < kMinSteps) {
    return refuse("Search range is too small (" + std::to_string(stepCount) +
                  "), please increase range or select smaller step.");
  }
  if (stepCount > kMaxSteps) {
    const long long maxFreq = lowFreq + static_cast<long long>(kMaxSteps) * stepTenths;
    return refuse(
        "Search range is limited to 3200 steps, please select different range or increase "
        "steps. Max freq is: " +
        plainNumber(static_cast<double>(maxFreq) / 10000.0));
  }

  realSteps = stepCount;
  sweepCount = 0;
  showCounters();
  label8 = request.attenuator ? "ATT ON" : "";
  timer1Ms_ = 500;
  if (stepCount < 100) timer1Ms_ = 250;
  if (stepCount > 1000) timer1Ms_ = 1000;
  stepCount = kDisplaySteps;  // the display's width, as it always was

  resetArrays(realSteps + 1);
  highestSeen_ = 0;
  label3.clear();
  firstLine_ = true;

  if (sds_) {
    // The SDS path reads waterfall frames instead of a programmed search.
    timer3On_ = false;
    timer2On_ = true;
    state_ = SweepState::Programmed;
    return true;
  }
  ProgramSearch();
  timer1On_ = true;
  return true;
}

void SweepEngine::ProgramSearch() {
  const int slot = request_.slot;
  const auto& modes = modeList();
  const int modeIndex = std::clamp(request_.modeIndex, 0, static_cast<int>(modes.size()) - 1);
  auto step = [&](const std::string& command) {
    send(command);
    control::Wait(ports_.pump, ports_.clock, 0.1);
  };
  step("VOL,0");
  step("SQL,3");
  step("CSC,OFF");
  step("KEY,H,P");
  step("PRG");
  step("CSP," + std::to_string(slot) + ",TORVO BANDSCOPE" + "," + std::to_string(lowFreq) + "," +
       std::to_string(highFreq) + "," + stepCode() + "," + modes[modeIndex] +
       (request_.attenuator ? ",1" : ",0") + ",2,1,400");
  (void)ports_.port.readAll();
  std::string flags = "CSG,1111111111";
  const int at = slot + 5;  // 1-based: position 5 is the flag of slot 0
  if (at >= 5 && at <= static_cast<int>(flags.size()))
    flags[static_cast<std::size_t>(at - 1)] = '0';
  step(flags);
  step("EPG");
  step("CSC,ON");
  step("KEY,>,P");
  state_ = SweepState::Programmed;
}

void SweepEngine::stop() {
  if (!sds_) send("CSC,OFF");
  timer1On_ = timer2On_ = timer3On_ = false;
  state_ = SweepState::Stopped;
}

void SweepEngine::onTimer2() {
  send("GWF,1");
  timer2On_ = false;
  timer3On_ = true;
}

void SweepEngine::onTimer3() {
  timer3On_ = false;
  const std::string input = ports_.port.readAll();
  const std::string stripped = control::stripLineEnds(input);
  const int last = static_cast<int>(control::replyFields(stripped).size()) - 1;
  const int bins = binCount();
  int stored = 0;
  for (int n = 1; n <= last; ++n) {
    const std::string value = control::ReplyFieldUnquoted(input, n);
    streamLines.push_back(value + " : ");
    if (n - 1 >= bins) continue;
    const double level = std::clamp(std::trunc(leadingNumber(value)), -1.0e6, 1.0e6);
    traces.rows[0][static_cast<std::size_t>(n - 1)] = level;
    ++stored;
    const int rssi = static_cast<int>(level);
    if (request_.forceSql && rssi >= request_.forceSqlLevel && rssi > 0) {
      const std::int32_t f = binFrequency(n - 1);
      countHit(n - 1, rssi, f, frequencyText(padNumber(f, 8)));
    }
  }
  if (streamLines.size() > 2000) {
    streamLines.erase(streamLines.begin(), streamLines.end() - 1000);
  }
  if (stored > 0 && startsWith(stripped, "GWF")) {
    state_ = SweepState::Streaming;
    endSweep();
  }
  if (onDraw) onDraw(false);
  timer2On_ = true;
}

}  // namespace zel::scope
