// The full database editor on the real 42 MB database of an SDS200 card. Targets: the largest
// state file (s_000006.hpd, 3 MB, 35,059 lines) loads into rows in under 30 ms and is written
// back in under 30 ms; `db near` over every state file takes under 1 s.
#include <benchmark/benchmark.h>

#include <filesystem>

#include "core/atomic_file.h"

#include "database/db_near.h"
#include "database/hpdb_index.h"
#include "database/state_edit.h"
#include "database/state_file.h"

namespace {

using namespace zel::database;
namespace fs = std::filesystem;

const std::string kFolder = std::string(ZEL_REALDATA_DIR) + "/card_sds200/BCDx36HP/HPDB/";
const std::string kLargest = kFolder + "s_000006.hpd";

void BM_LoadLargestStateFile(benchmark::State& state) {
  for (auto _ : state) {
    StateLoad load = loadStateFile(kLargest);
    if (!load.file) state.SkipWithError("the real database is not there");
    benchmark::DoNotOptimize(load.file->rows().size());
  }
}
BENCHMARK(BM_LoadLargestStateFile)->Unit(benchmark::kMillisecond);

// Every talkgroup and frequency of the file gets a new delay, then the file is written
// through a temporary file with its flushes, as an apply does: on the disk's temporary
// folder (argument 0) and on the memory file system (argument 1), which shows what the
// flushes to the disk add to the program's own work.
void BM_WriteLargestStateFile(benchmark::State& state) {
  StateLoad load = loadStateFile(kLargest);
  if (!load.file) {
    state.SkipWithError("the real database is not there");
    return;
  }
  std::vector<std::size_t> rows;
  for (const ChannelItem& i : listChannels(*load.file, {})) rows.push_back(i.row);
  applyChanges(*load.file, rows, {{DbSetting::Delay, "5"}});
  const fs::path folder = state.range(0) == 1 ? fs::path("/dev/shm") : fs::temp_directory_path();
  if (!fs::is_directory(folder)) {
    state.SkipWithError("no memory file system");
    return;
  }
  const fs::path target = folder / "zel_full_db_bench_s_000006.hpd";
  for (auto _ : state) {
    const zel::WriteStatus r = zel::writeFileAtomically(target.string(), load.file->text());
    if (!r.ok) state.SkipWithError(r.message.c_str());
  }
  std::error_code ec;
  fs::remove(target, ec);
  state.counters["lines"] = static_cast<double>(load.file->rows().size());
}
BENCHMARK(BM_WriteLargestStateFile)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

// San Diego, at the point itself and with ten miles of slack.
void BM_NearWholeDatabase(benchmark::State& state) {
  const std::optional<DatabaseLocation> location = locateInFolder(kFolder);
  if (!location) {
    state.SkipWithError("the real database is not there");
    return;
  }
  const IndexReadResult index = readIndex(*location);
  NearQuery query;
  query.latitude = 32.7157;
  query.longitude = -117.1611;
  query.rangeMiles = static_cast<double>(state.range(0));
  std::size_t hits = 0;
  for (auto _ : state) {
    const NearResult result = findNear(index.states, query);
    hits = result.hits.size();
    benchmark::DoNotOptimize(hits);
  }
  state.counters["hits"] = static_cast<double>(hits);
}
BENCHMARK(BM_NearWholeDatabase)->Arg(0)->Arg(10)->Unit(benchmark::kMillisecond);

}  // namespace
