// One stream tick of the bandscope must stay far below the 250 ms of the fastest Timer1: the
// target is under 0.5 ms for a tick of 1000 lines decoded, binned and counted.
#include <benchmark/benchmark.h>

#include "control/event_pump.h"
#include "control/scripted_serial_port.h"
#include "core/memory_ports.h"
#include "core/text.h"
#include "scope/sweep_engine.h"

namespace {

using namespace zel;
using namespace zel::scope;

// 1000 lines over 144 to 148 MHz at 12.5 kHz: three sweeps and a bit, with an open carrier
// every 40th step, so that wraps, hits and the list all take their share.
std::string burst() {
  std::string out;
  for (int i = 0; i < 1000; ++i) {
    const int step = i % 321;
    const bool open = step % 40 == 7;
    out += "CSC," + std::to_string(open ? 600 + step : 12 + step % 9) + "," +
           padNumber(1440000 + 125LL * step, 8) + "," + (open ? "1" : "0") + "\r";
  }
  return out;
}

void BM_StreamTick(benchmark::State& state) {
  ManualClock clock;
  control::NullEventPump pump;
  control::ScriptedSerialPort port;
  RecordingFeedback feedback;
  port.open("COM1", "115200,n,8,1");
  SweepEngine engine(SweepPorts{port, clock, pump, feedback});
  SweepRequest r;
  r.start = "144.0000";
  r.stop = "148.0000";
  r.stepIndex = 5;
  r.noiseFilterIndex = 1;
  engine.startUpdate(r);
  const std::string lines = burst();
  for (auto _ : state) {
    port.feed(lines);
    engine.onTimer1();
    benchmark::DoNotOptimize(engine.totalHits);
  }
  state.SetItemsProcessed(state.iterations() * 1000);
}
BENCHMARK(BM_StreamTick)->Unit(benchmark::kMicrosecond);

}  // namespace
