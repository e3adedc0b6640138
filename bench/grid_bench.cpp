// Speed of the grid engine: the sorted duplicate search over a whole large document, the
// pairwise search of one big system, and one frequency through the cell commit.
#include <benchmark/benchmark.h>

#include <cstdio>
#include <random>
#include <string>
#include <vector>

#include "grid/cell_commit.h"
#include "grid/duplicates.h"

namespace {

// Rows spread over systems and departments, frequencies anywhere from 25 to 1300 MHz on a
// 100 Hz raster, so that some of them collide as in a real large document.
std::vector<zel::dups::KeyedRow> makeRows(int count, int systems) {
  std::mt19937 random(536);
  std::uniform_int_distribution<int> channel(0, 12750000);
  std::vector<zel::dups::KeyedRow> rows;
  rows.reserve(count);
  char key[32];
  char line[96];
  for (int i = 0; i < count; ++i) {
    int sys = 1 + i % systems;
    int dept = (i / systems) % 399;
    int row = 1 + (i / systems / 399) % 9999;
    std::snprintf(key, sizeof key, "FRQ-%03d-%03d-%04d", sys, dept, row);
    double mhz = 25.0 + channel(random) * 0.0001;
    std::snprintf(line, sizeof line, "%d,%.6f,Channel %d,Off,NFM,CTCSS,123.0,Law", row, mhz, i);
    rows.push_back({key, line});
  }
  return rows;
}

void BM_SortedSearchMillionRows(benchmark::State& state) {
  auto rows = makeRows(1000000, 999);
  for (auto _ : state) {
    auto found = zel::dups::sortedSearch(rows, "FRQ-");
    benchmark::DoNotOptimize(found);
  }
}
BENCHMARK(BM_SortedSearchMillionRows)->Unit(benchmark::kMillisecond)->Iterations(3);

void BM_PairwiseSearchOneSystem(benchmark::State& state) {
  auto rows = makeRows(10000, 1);
  for (auto _ : state) {
    auto found = zel::dups::pairwiseSearch(rows, "FRQ-", 1);
    benchmark::DoNotOptimize(found);
  }
}
BENCHMARK(BM_PairwiseSearchOneSystem)->Unit(benchmark::kMillisecond)->Iterations(3);

void BM_CommitOneFrequency(benchmark::State& state) {
  zel::cell::FrequencyRules rules;
  const char* typed[] = {"154.16125", "155.123", "118.010", "600", "146.0031"};
  std::size_t i = 0;
  for (auto _ : state) {
    auto result = zel::cell::commitText("Frequency", typed[i++ % 5], rules);
    benchmark::DoNotOptimize(result);
  }
}
BENCHMARK(BM_CommitOneFrequency);

}  // namespace
