// Fuzzing the sweep engine's readers: the custom search stream (Timer1) and the SDS frame
// (Timer3). The first bytes of an input choose the range, step, filters and the log
// threshold, so that small and large ranges, both paths and the bin floor are all reached;
// the rest is what the scanner sends, cut into ticks at every 0xff byte.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "control/event_pump.h"
#include "control/scripted_serial_port.h"
#include "core/memory_ports.h"
#include "scope/sweep_engine.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace zel;
  using namespace zel::scope;
  if (size < 4) return 0;
  ManualClock clock;
  control::NullEventPump pump;
  control::ScriptedSerialPort port;
  RecordingFeedback feedback;
  const bool sds = data[0] & 1;
  port.responder = [&](const std::string& command) {
    if (command == "MDL") port.feed(sds ? "MDL,SDS200\r" : "MDL,BCD536HP\r");
  };
  SweepEngine engine(SweepPorts{port, clock, pump, feedback});
  engine.OpenScannerPort("COM1");
  SweepRequest r;
  r.start = "144.0000";
  // 0.04 to 40.8 MHz wide: from too small to past the 3200 steps.
  r.stop = std::to_string(144.0 + 0.04 * (1 + data[1]));
  r.stepIndex = data[2] % 12 - 1;
  r.noiseFilterIndex = data[3] & 3;
  r.amplifyIndex = (data[3] >> 2) & 3;
  r.forceSql = data[3] & 16;
  r.forceSqlLevel = data[3] >> 5;
  engine.sweepLimit = (data[0] >> 1) & 7;
  if (!engine.startUpdate(r)) return 0;
  long long hitsSeen = 0;
  engine.onHit = [&](int bin, int, std::int32_t) {
    if (bin < 0 || bin >= engine.binCount()) std::abort();
    ++hitsSeen;
  };
  std::string_view rest(reinterpret_cast<const char*>(data + 4), size - 4);
  while (true) {
    const std::size_t cut = rest.find('\xff');
    port.feed(rest.substr(0, cut));
    if (sds) {
      engine.onTimer2();
      engine.onTimer3();
    } else {
      engine.onTimer1();
    }
    if (cut == std::string_view::npos) break;
    rest.remove_prefix(cut + 1);
  }
  // The counts agree with one another and stay inside their bounds.
  long long listed = 0;
  for (const auto& row : engine.stats) {
    if (row.hits <= 0 || row.low > row.high) std::abort();
    listed += row.hits;
  }
  if (listed != engine.totalHits || hitsSeen != engine.totalHits) std::abort();
  if (engine.distinctFrequencies != static_cast<int>(engine.stats.size())) std::abort();
  if (engine.sweepCount < 0 || engine.sweepCount > 9999999) std::abort();
  if (engine.cursorBin < 0 || engine.cursorBin >= engine.binCount()) std::abort();
  for (const auto& trace : engine.traces.rows)
    if (static_cast<int>(trace.size()) != engine.binCount()) std::abort();
  return 0;
}
