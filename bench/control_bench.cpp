// Decoding one poll reply must stay far below the 10 ms receive tick: the target is under
// 20 microseconds a reply, screens with glyphs and the SDS XML included.
#include <benchmark/benchmark.h>

#include <fstream>
#include <sstream>

#include "control/scripted_serial_port.h"
#include "control/virtual_control.h"
#include "core/memory_ports.h"
#include "sim/scanner_sim.h"

namespace {

using namespace zel;
using namespace zel::control;

std::string real(const std::string& name) {
  std::ifstream in(std::string(ZEL_REALDATA_DIR) + "/serial_sds200/" + name, std::ios::binary);
  std::stringstream s;
  s << in.rdbuf();
  std::string text = s.str();
  if (!text.empty() && text.back() != '\r') text += '\r';
  return text;
}

struct Window {
  explicit Window(Family family) : vc(family, VcPorts{port, clock, pump, feedback, settings}, "") {
    vc.status.busy = true;
  }
  ManualClock clock;
  NullEventPump pump;
  ScriptedSerialPort port;
  RecordingFeedback feedback;
  MemorySettingsStore settings;
  VirtualControl vc;
};

// A busy BCD channel screen from the simulator: glyphs for signal, icons and modulation.
std::string bcdScreen() {
  sim::ScannerSimOptions o;
  o.activity = 1;
  sim::ScannerSim s(o);
  s.advance(0);
  s.advance(200);
  return s.answer("STS");
}

void BM_StsBcdWithGlyphs(benchmark::State& state) {
  Window w(Family::Bcd);
  const std::string reply = bcdScreen();
  for (auto _ : state) benchmark::DoNotOptimize(w.vc.decoder.parseSts(reply));
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(reply.size()));
}
BENCHMARK(BM_StsBcdWithGlyphs);

void BM_StsSdsReal(benchmark::State& state) {
  Window w(Family::Sds);
  const std::string reply = real("STS_RESPONSE_WITH_HIGH_BYTES.bin");
  for (auto _ : state) benchmark::DoNotOptimize(w.vc.decoder.parseSts(reply));
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(reply.size()));
}
BENCHMARK(BM_StsSdsReal);

void BM_GlgChannel(benchmark::State& state) {
  Window w(Family::Bcd);
  const std::string reply =
      "GLG,0154.4300,NFM,0,127.3,Springfield, City of,Fire,Dispatch,1,0,,,NONE\r";
  for (auto _ : state) benchmark::DoNotOptimize(w.vc.decoder.parseGlg(reply));
}
BENCHMARK(BM_GlgChannel);

void BM_GsiSdsReal(benchmark::State& state) {
  Window w(Family::Sds);
  const std::string reply = real("GSI_RESPONSE_SCAN_MODE.bin");
  for (auto _ : state) benchmark::DoNotOptimize(w.vc.decoder.parseGsi(reply));
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(reply.size()));
}
BENCHMARK(BM_GsiSdsReal);

// The whole receive tick: read the port, pick the parser by pollStep, decode, disarm.
void BM_ReceiveTickSts(benchmark::State& state) {
  Window w(Family::Sds);
  w.vc.link.selectPortName("COM3");
  w.vc.link.connect();
  const std::string reply = real("STS_RESPONSE.bin");
  for (auto _ : state) {
    w.vc.link.pollStep = 1;
    w.port.feed(reply);
    w.vc.link.onTimer10();
  }
}
BENCHMARK(BM_ReceiveTickSts);

}  // namespace
