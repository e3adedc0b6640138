// The bandscope's repaint: the graph and the waterfall drawn at window size from the engine's
// traces and history, converted and painted by their widgets, as one sweep causes. At four
// sweeps a second the window must cost under 10% of one core, that is a repaint under 25 ms of
// CPU. grab() makes each widget paint for real, also on the offscreen platform.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <cmath>

#include "scope/sweep_engine.h"
#include "scope/waterfall.h"
#include "ui/bandscope_views.h"

namespace {

using namespace zel;

QApplication& app() {
  static int argc = 1;
  static char name[] = "bandscope_window_bench";
  static char* argv[] = {name, nullptr};
  qputenv("QT_QPA_PLATFORM", "offscreen");
  static QApplication application(argc, argv);
  return application;
}

void BM_RepaintGraphAndWaterfall(benchmark::State& state) {
  app();
  const int bins = static_cast<int>(state.range(0));
  scope::Traces traces;
  traces.resize(static_cast<std::size_t>(bins) + 1);
  for (int i = 0; i <= bins; ++i) {
    const double level = 20 + 15 * std::sin(i * 0.37) + (i % 97 == 0 ? 700 : 0);
    for (auto& row : traces.rows) row[static_cast<std::size_t>(i)] = level;
  }
  scope::Waterfall waterfall;
  waterfall.Initialize(bins);
  for (int s = 0; s < 600; ++s) waterfall.Paint(traces);
  scope::LineGraph graph;
  graph.XPoints = bins;

  ui::ScopePicture graphView, waterfallView;
  graphView.resize(890, 380);
  waterfallView.resize(890, 400);
  graphView.setRenderer([&](QSize size) {
    scope::Raster picture(size.width(), size.height());
    graph.Plot(picture, traces, 0b0101, bins / 2);
    return ui::toImage(picture);
  });
  waterfallView.setRenderer([&](QSize size) {
    return ui::toImage(waterfall.render(size.width(), size.height()));
  });
  graphView.show();
  waterfallView.show();
  for (auto _ : state) {
    waterfall.Paint(traces);
    benchmark::DoNotOptimize(graphView.grab());
    benchmark::DoNotOptimize(waterfallView.grab());
  }
}
BENCHMARK(BM_RepaintGraphAndWaterfall)->Arg(320)->Arg(3200)->Unit(benchmark::kMillisecond);

}  // namespace
