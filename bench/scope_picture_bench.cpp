// The bandscope's pictures: one waterfall sweep of 3200 bins is to cost well under 0.5 ms, and
// the picture of the newest 400 sweeps at 1600 pixels is what a window repaints.
#include <benchmark/benchmark.h>

#include "scope/waterfall.h"

namespace {

using namespace zel::scope;

Traces sweep(int bins, int seed) {
  Traces t;
  t.resize(static_cast<std::size_t>(bins) + 1);
  for (int i = 1; i <= bins; ++i) t.rows[2][i] = (i * 37 + seed * 101) % 1100;
  return t;
}

void BM_WaterfallPaint3200(benchmark::State& state) {
  Waterfall w;
  w.Initialize(3200);
  const Traces t = sweep(3200, 1);
  for (int k = 0; k < w.maxRows(); ++k) w.Paint(t);  // full: each sweep drops the oldest
  for (auto _ : state) benchmark::DoNotOptimize(w.Paint(t));
  state.counters["rows"] = w.rows();
  state.counters["MB"] = static_cast<double>(w.bytes()) / 1e6;
}
BENCHMARK(BM_WaterfallPaint3200)->Unit(benchmark::kMicrosecond);

void BM_WaterfallRender400At1600(benchmark::State& state) {
  Waterfall w;
  w.Initialize(3200);
  for (int k = 0; k < 500; ++k) w.Paint(sweep(3200, k));
  for (auto _ : state) {
    const Raster picture = w.render(1600, 400);
    benchmark::DoNotOptimize(picture.pixels.data());
  }
}
BENCHMARK(BM_WaterfallRender400At1600)->Unit(benchmark::kMicrosecond);

void BM_LineGraphPlot3200At1600(benchmark::State& state) {
  LineGraph g;
  g.XPoints = 3200;
  Traces t = sweep(3200, 7);
  t.rows[0] = t.rows[2];
  Raster picture(1600, 400);
  for (auto _ : state) {
    g.Plot(picture, t, 0b0101, 1600);
    benchmark::DoNotOptimize(picture.pixels.data());
  }
}
BENCHMARK(BM_LineGraphPlot3200At1600)->Unit(benchmark::kMicrosecond);

}  // namespace
