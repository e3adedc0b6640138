// The bulk editor at the size of the largest documents: a hundred thousand conventional
// channels in a thousand departments, listed for "   < All Systems >", ticked by their
// departments and given two settings in one apply.
#include <benchmark/benchmark.h>

#include <filesystem>
#include <fstream>
#include <set>

#include "core/memory_ports.h"
#include "database/bulk_edit.h"
#include "database/bulk_lists.h"
#include "formats/hpd_reader.h"
#include "hpd_generator.h"

namespace {

constexpr int kChannels = 100000;

struct Loaded {
  zel::Document doc;
  zel::formats::MemoryRows rows;
  Loaded() {
    const auto path = std::filesystem::temp_directory_path() / "zel-bulk-bench.hpd";
    std::ofstream(path, std::ios::binary) << zel::bench::generateConventional(kChannels, 100, 100);
    zel::RecordingFeedback quiet;
    zel::formats::HpdReadOptions options;
    zel::formats::readHpd(doc, rows, path.string(), options, quiet);
    std::filesystem::remove(path);
  }
};

Loaded& loaded() {
  static Loaded l;
  return l;
}

void BM_ListAllChannels(benchmark::State& state) {
  Loaded& l = loaded();
  for (auto _ : state) {
    auto list = zel::bulk::listChannels(l.doc, l.rows, zel::bulk::Scope::Frequencies, 0);
    benchmark::DoNotOptimize(list.size());
  }
  state.SetItemsProcessed(state.iterations() * kChannels);
}
BENCHMARK(BM_ListAllChannels)->Unit(benchmark::kMillisecond);

void BM_ApplyTwoSettingsToAllChannels(benchmark::State& state) {
  Loaded& l = loaded();
  const auto list = zel::bulk::listChannels(l.doc, l.rows, zel::bulk::Scope::Frequencies, 0);
  std::set<std::string> departments;
  for (const auto& c : list) departments.insert(c.department);
  const std::vector<std::string> keys = zel::bulk::channelsOfDepartments(list, departments);
  zel::RecordingFeedback quiet;
  bool flip = false;
  for (auto _ : state) {
    // Alternate the words so that every pass changes every row.
    flip = !flip;
    auto r = zel::bulk::applyToChannels(l.doc, l.rows, keys,
                                        {{zel::bulk::Setting::Delay, flip ? "5" : "10"},
                                         {zel::bulk::Setting::AlertTone, flip ? "3" : "Off"}},
                                        quiet);
    benchmark::DoNotOptimize(r.changed);
  }
  state.SetItemsProcessed(state.iterations() * static_cast<long>(keys.size()));
}
BENCHMARK(BM_ApplyTwoSettingsToAllChannels)->Unit(benchmark::kMillisecond);

}  // namespace
