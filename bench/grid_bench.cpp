// Grid pages at the size of the largest departments: growing row by row, filling a page
// from its lines and writing it back, and the lookups every cell operation makes.
#include <benchmark/benchmark.h>

#include <string>
#include <vector>

#include "grid/grid_routines.h"
#include "grid/grid_setup.h"
#include "grid/row_record.h"
#include "grid/vocabulary.h"

namespace {

constexpr int kRows = 100000;

std::vector<std::string> pageLines(int count) {
  std::vector<std::string> lines;
  lines.reserve(count);
  for (int i = 1; i <= count; ++i) {
    lines.push_back(std::to_string(i) + "," + std::to_string(150 + i % 700) + ".125000,Channel " +
                    std::to_string(i) +
                    ",Off,NFM,CTCSS,123.0,Fire Dispatch,Off,2,0,Off,Auto,Off,On,,Off");
  }
  return lines;
}

zel::GridPage channelGrid() {
  zel::GridPage grid;
  zel::setup_grid(&grid, zel::GridSetup{});
  return grid;
}

void BM_MoveDownPast100000Rows(benchmark::State& state) {
  for (auto _ : state) {
    zel::GridPage grid = channelGrid();
    grid.setRow(1);
    for (int i = 0; i < kRows; ++i) zel::incr_celld(&grid);
    benchmark::DoNotOptimize(grid.rows());
  }
}
BENCHMARK(BM_MoveDownPast100000Rows)->Unit(benchmark::kMillisecond);

void BM_LoadPage100000Lines(benchmark::State& state) {
  auto lines = pageLines(kRows);
  zel::GridPage grid = channelGrid();
  for (auto _ : state) {
    benchmark::DoNotOptimize(zel::loadPageLines(grid, lines));
  }
}
BENCHMARK(BM_LoadPage100000Lines)->Unit(benchmark::kMillisecond);

void BM_SavePage100000Rows(benchmark::State& state) {
  zel::GridPage grid = channelGrid();
  zel::loadPageLines(grid, pageLines(kRows));
  for (auto _ : state) {
    auto lines = zel::savePageLines(grid);
    benchmark::DoNotOptimize(lines.size());
  }
}
BENCHMARK(BM_SavePage100000Rows)->Unit(benchmark::kMillisecond);

void BM_ColumnByHeading(benchmark::State& state) {
  zel::GridPage grid = channelGrid();
  for (auto _ : state) benchmark::DoNotOptimize(zel::g_get_colnum(&grid, "priority"));
}
BENCHMARK(BM_ColumnByHeading);

void BM_ListByKey(benchmark::State& state) {
  for (auto _ : state) benchmark::DoNotOptimize(zel::vocab::tabel("Alert Pattern").size());
}
BENCHMARK(BM_ListByKey);

}  // namespace
