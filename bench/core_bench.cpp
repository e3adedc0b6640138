// The record tree at the size of the largest documents: adding, finding by key, positions.
#include <benchmark/benchmark.h>

#include "core/document_tree.h"
#include "core/keys.h"

namespace {

zel::DocumentTree build(int systems, int departments) {
  zel::DocumentTree t;
  for (int s = 1; s <= systems; ++s) {
    t.add("", zel::keys::system(s), "SIN,Conventional");
    for (int d = 0; d < departments; ++d)
      t.add(zel::keys::system(s), zel::keys::department(s, d), "GIN,C-Group");
  }
  return t;
}

void BM_BuildTree30000(benchmark::State& state) {
  for (auto _ : state) {
    auto t = build(600, 49);
    benchmark::DoNotOptimize(t.count());
  }
}
BENCHMARK(BM_BuildTree30000)->Unit(benchmark::kMillisecond);

void BM_FindAndIndex(benchmark::State& state) {
  auto t = build(600, 49);
  int s = 1;
  for (auto _ : state) {
    auto n = t.find(zel::keys::department(s, 17));
    benchmark::DoNotOptimize(t.index(n));
    s = s % 600 + 1;
  }
}
BENCHMARK(BM_FindAndIndex);

}  // namespace
