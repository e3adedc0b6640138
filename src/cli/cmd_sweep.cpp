// zel sweep: the bandscope without a window. The sweep engine programs a custom search range
// and reads its stream (or, on an SDS, asks for waterfall frames); this command runs the
// engine's timers in a plain loop, prints the sweep count as it grows and the busiest
// frequencies at the end, and writes the levels, the hits, the statistics list and the
// waterfall picture to files on request.
//
//   sweep CSV:  sweep,frequency_mhz,level            one line a sweep and bin
//   hits CSV:   sweep,frequency_mhz,level,date,time  one line a hit (--hits)
#include <algorithm>
#include <atomic>
#include <cmath>
#include <csignal>
#include <fstream>
#include <iostream>
#include <optional>

#include "cli/cmd_control_common.h"
#include "cli/option_range.h"
#include "core/memory_ports.h"
#include "core/text.h"
#include "platform/qt_serial_port.h"
#include "platform/qt_timer_host.h"
#include "scope/sweep_engine.h"
#include "scope/waterfall.h"

namespace {

using zel::cli::UserError;
using zel::scope::SweepEngine;

std::atomic<bool> sweepStop{false};
extern "C" void onSweepSignal(int) {
  sweepStop.store(true);
}

struct SweepArgs {
  std::string port;
  std::optional<std::string> start, stop, center, span;
  std::string step;
  std::string mode = "AUTO";
  int slot = 0;
  long long sweeps = 0;
  double seconds = 0;
  std::optional<int> threshold;
  std::string csv, waterfall, stats;
  bool hits = false;
  bool json = false;
};

constexpr int kUsage = 2;

int stepIndexOf(const std::string& kHz) {
  const double wanted = zel::leadingNumber(kHz);
  const auto& list = zel::scope::stepList();
  for (std::size_t i = 0; i < list.size(); ++i) {
    if (std::abs(zel::leadingNumber(list[i].caption) - wanted) < 0.0005 && zel::isPlainNumber(kHz))
      return static_cast<int>(i);
  }
  return -1;
}

zel::scope::SweepRequest requestFrom(const SweepArgs& a) {
  const bool startStop = a.start || a.stop;
  const bool centerSpan = a.center || a.span;
  if (startStop == centerSpan || (startStop && !(a.start && a.stop)) ||
      (centerSpan && !(a.center && a.span))) {
    throw UserError{"Give either --start and --stop or --center and --span.", kUsage};
  }
  zel::scope::SweepRequest r;
  r.centerSpan = centerSpan;
  if (startStop) {
    r.start = *a.start;
    r.stop = *a.stop;
  } else {
    r.center = *a.center;
    r.span = *a.span;
  }
  r.stepIndex = stepIndexOf(a.step);
  if (r.stepIndex < 0) {
    std::string list;
    for (const auto& s : zel::scope::stepList()) list += std::string(" ") + s.caption;
    throw UserError{"The step must be one of (kHz):" + list + ".", kUsage};
  }
  const auto& modes = zel::scope::modeList();
  r.modeIndex = static_cast<int>(std::find(modes.begin(), modes.end(), a.mode) - modes.begin());
  r.slot = a.slot;
  if (a.threshold) {
    r.forceSql = true;
    r.forceSqlLevel = *a.threshold;
  }
  return r;
}

std::ofstream openOutput(const std::string& path) {
  std::ofstream out(path, std::ios::binary | std::ios::trunc);
  if (!out) throw UserError{"Cannot write " + path + "."};
  return out;
}

std::string mhz(std::int32_t units) {
  return zel::formatFixed(units / 10000.0, 4);
}

std::string levelText(double v) {
  return v == std::floor(v) ? std::to_string(static_cast<long long>(v)) : zel::formatFixed(v, 2);
}

// The level a bin shows: the reading with filter of the stream, the live value of a frame.
const std::vector<double>& levelRow(const SweepEngine& e) {
  return e.traces.rows[e.isSds() ? 0 : 2];
}

int binsOfSweep(const SweepEngine& e) {
  return e.isSds() ? 250 : e.realSteps + 1;
}

// The timers of the engine in a plain loop: each is due one interval after it was switched on
// or last fired; between them the Qt events run, so the port's bytes come in.
class TimerLoop {
 public:
  TimerLoop(SweepEngine& e, const zel::Clock& clock) : e_(e), clock_(clock) {}
  void step() {
    fire(0, e_.timer1Enabled(), e_.timer1IntervalMs(), [&] { e_.onTimer1(); });
    fire(1, e_.timer2Enabled(), SweepEngine::kSdsTimerMs, [&] { e_.onTimer2(); });
    fire(2, e_.timer3Enabled(), SweepEngine::kSdsTimerMs, [&] { e_.onTimer3(); });
  }

 private:
  template <typename F>
  void fire(int i, bool on, int intervalMs, F handler) {
    const std::int64_t now = clock_.monotonicMs();
    if (!on) {
      was_[i] = false;
      return;
    }
    if (!was_[i]) {
      was_[i] = true;
      due_[i] = now + intervalMs;
      return;
    }
    if (now < due_[i]) return;
    due_[i] = now + intervalMs;
    handler();
  }
  SweepEngine& e_;
  const zel::Clock& clock_;
  bool was_[3] = {false, false, false};
  std::int64_t due_[3] = {0, 0, 0};
};

void writeStats(const SweepEngine& e, const std::string& path) {
  std::ofstream out = openOutput(path);
  out << "Frequency:,Hits:,Occupancy (%):,Occ. (%) this hour:,Occ. (%) this day:,Low:,High:,"
         "Last Hit Date:,Last Hit Time:\n";
  for (const auto& r : e.stats) {
    out << r.frequency << ',' << r.hits << ',' << r.occupancy << ',' << r.occupancyHour << ','
        << r.occupancyDay << ',' << r.low << ',' << r.high << ',' << r.lastDate << ',' << r.lastTime
        << '\n';
  }
  if (!out) throw UserError{"Cannot write " + path + "."};
}

void runSweep(const SweepArgs& a) {
  zel::scope::SweepRequest request = requestFrom(a);
  zel::QtSerialPort port;
  zel::SystemClock clock;
  zel::QtEventPump pump;
  zel::RecordingFeedback feedback;
  SweepEngine engine(zel::scope::SweepPorts{port, clock, pump, feedback});

  const bool sds = engine.OpenScannerPort(a.port);
  if (!port.isOpen()) {
    throw UserError{feedback.messages.empty() ? "Cannot open the port " + a.port + "."
                                              : feedback.messages.back()};
  }
  if (!engine.startUpdate(request)) {
    engine.stop();
    port.close();
    throw UserError{feedback.messages.empty() ? "The range was refused."
                                              : feedback.messages.back()};
  }
  if (sds && !a.threshold && !a.json) {
    std::cerr << "SDS frames carry no squelch flag: give --threshold to count hits." << std::endl;
  }

  std::optional<std::ofstream> csv;
  if (!a.csv.empty()) {
    csv = openOutput(a.csv);
    *csv << (a.hits ? "sweep,frequency_mhz,level,date,time\n" : "sweep,frequency_mhz,level\n");
  }
  zel::scope::Waterfall waterfall;
  const int bins = binsOfSweep(engine);
  waterfall.Initialize(bins);
  zel::scope::Traces frame;  // the levels of a sweep in row 2, as the waterfall takes them

  if (a.sweeps > 0) engine.sweepLimit = static_cast<std::int32_t>(std::min(a.sweeps, 9999999LL));
  engine.onDraw = [&](bool ended) {
    if (!ended) return;
    const auto& levels = levelRow(engine);
    const long long sweep = engine.sweepCount + 1;
    if (csv && !a.hits) {
      for (int b = 0; b < bins; ++b) {
        *csv << sweep << ',' << mhz(engine.binFrequency(b)) << ','
             << levelText(levels[static_cast<std::size_t>(b)]) << '\n';
      }
    }
    if (!a.waterfall.empty()) {
      frame.rows[2] = levels;
      waterfall.Paint(frame);
    }
  };
  engine.onHit = [&](int, int level, std::int32_t frequency) {
    if (csv && a.hits) {
      *csv << engine.sweepCount + 1 << ',' << mhz(frequency) << ',' << level << ',' << clock.date()
           << ',' << clock.timeOfDay() << '\n';
    }
  };

  std::signal(SIGINT, onSweepSignal);
  std::signal(SIGTERM, onSweepSignal);
  TimerLoop timers(engine, clock);
  const std::int64_t started = clock.monotonicMs();
  std::int32_t shown = 0;
  while (!sweepStop.load()) {
    timers.step();
    if (engine.sweepCount != shown) {
      shown = engine.sweepCount;
      if (!a.json) std::cout << "Sweep " << shown << std::endl;
    }
    if (a.sweeps > 0 && engine.sweepCount >= a.sweeps) break;
    if (a.seconds > 0 && clock.monotonicMs() - started >= a.seconds * 1000) break;
    pump.runFor(5);
  }
  engine.stop();
  pump.runFor(50);
  port.close();

  if (csv && !*csv) throw UserError{"Cannot write " + a.csv + "."};
  if (!a.stats.empty()) writeStats(engine, a.stats);
  if (!a.waterfall.empty()) {
    const zel::scope::Raster picture = waterfall.render(std::clamp(bins, 250, 2048));
    if (!zel::scope::writePng(picture, a.waterfall)) {
      throw UserError{"Cannot write " + a.waterfall + "."};
    }
  }

  std::vector<const zel::scope::StatRow*> top;
  for (const auto& r : engine.stats) top.push_back(&r);
  std::stable_sort(top.begin(), top.end(), [](auto* x, auto* y) { return x->hits > y->hits; });
  if (top.size() > 10) top.resize(10);
  auto frequencyMhz = [](const zel::scope::StatRow& r) {
    return zel::formatFixed(zel::leadingNumber(r.frequency), 4);
  };
  if (a.json) {
    std::cout << "{\"port\":" << zel::cli::jsonText(a.port) << ",\"model\":"
              << zel::cli::jsonText(zel::trim(
                     zel::replaceAll(zel::replaceAll(engine.modelText(), "\r", " "), "\n", " ")))
              << ",\"sds\":" << (sds ? "true" : "false") << ",\"lowMhz\":" << mhz(engine.lowFreq)
              << ",\"highMhz\":" << mhz(engine.highFreq) << ",\"steps\":" << engine.realSteps
              << ",\"sweeps\":" << engine.sweepCount << ",\"hits\":" << engine.totalHits
              << ",\"frequencies\":" << engine.distinctFrequencies << ",\"top\":[";
    for (std::size_t i = 0; i < top.size(); ++i) {
      std::cout << (i ? "," : "") << "{\"frequencyMhz\":" << frequencyMhz(*top[i])
                << ",\"hits\":" << top[i]->hits << ",\"occupancy\":" << top[i]->occupancy
                << ",\"high\":" << top[i]->high << "}";
    }
    std::cout << "]}" << std::endl;
    return;
  }
  std::cout << engine.sweepCount << " sweeps of " << mhz(engine.lowFreq) << " to "
            << mhz(engine.highFreq) << " MHz, " << engine.totalHits << " hits on "
            << engine.distinctFrequencies << " frequencies." << std::endl;
  if (!top.empty()) std::cout << "Busiest frequencies:" << std::endl;
  for (const auto* r : top) {
    std::cout << frequencyMhz(*r) << " MHz  " << r->hits << " hits  " << r->occupancy
              << " % occupancy  high " << r->high << std::endl;
  }
}

}  // namespace

ZEL_COMMAND(73) {
  (void)context;
  using zel::cli::inRange;
  auto args = std::make_shared<SweepArgs>();
  auto* cmd = app.add_subcommand(
      "sweep", "Sweep a frequency range with the scanner's custom search (the bandscope)");
  cmd->add_option("--port", args->port, "Serial port of the scanner (see zel ports)")->required();
  // The scanners search from 25 to 1300 MHz.
  const char* const mhzWord = "a frequency in MHz";
  auto* start =
      inRange(cmd->add_option("--start", args->start, "Start of the range (MHz)"), 25, 1300, mhzWord);
  auto* stop =
      inRange(cmd->add_option("--stop", args->stop, "End of the range (MHz)"), 25, 1300, mhzWord);
  auto* center = inRange(cmd->add_option("--center", args->center, "Centre of the range (MHz)"),
                         25, 1300, mhzWord);
  auto* span = zel::cli::aboveZero(cmd->add_option("--span", args->span, "Width of the range (MHz)"),
                                   "a width in MHz");
  start->excludes(center)->excludes(span);
  stop->excludes(center)->excludes(span);
  cmd->add_option("--step", args->step, "Step in kHz: 5.0 6.25 7.50 8.33 10 12.5 15 20 25 50 100")
      ->required();
  std::vector<std::string> modes(zel::scope::modeList().begin(), zel::scope::modeList().end());
  cmd->add_option("--mode", args->mode, "Modulation of the search")
      ->check(CLI::IsMember(modes))
      ->capture_default_str();
  inRange(cmd->add_option("--slot", args->slot, "Custom search slot to program (0 to 9)")
              ->capture_default_str(),
          0, 9, "a slot number");
  auto* sweeps = inRange(cmd->add_option("--sweeps", args->sweeps, "Stop after this many sweeps"),
                         1, 9999999, "a number of sweeps");
  auto* seconds = zel::cli::aboveZero(
      cmd->add_option("--seconds", args->seconds, "Stop after this many seconds"),
      "a number of seconds");
  sweeps->excludes(seconds);
  inRange(cmd->add_option("--threshold", args->threshold,
                  "Count a level at or above this as a hit even with the squelch closed "
                  "(needed on an SDS, whose frames have no squelch flag)"),
          0, zel::cli::kNoLimit, "a level");
  cmd->add_option("--csv", args->csv, "Write the levels of every sweep and bin (or the hits)");
  cmd->add_option("--waterfall", args->waterfall, "Write the waterfall picture (PNG)");
  cmd->add_option("--stats", args->stats, "Write the statistics list (CSV)");
  cmd->add_flag("--hits", args->hits, "The CSV holds one line a hit instead of a sweep's levels");
  cmd->add_flag("--json", args->json, "Print one JSON summary at the end");
  cmd->callback([args] { runSweep(*args); });
}
