// Speed and memory of the favorites file reader and writer against the largest real state
// file, all 67 state files, and a generated list of 100,000 channels. The floor of each run is
// the time to read the same bytes and do nothing with them.
//
// The argument of a run says where rows and files go, to tell the reader's and writer's own
// time from the file system's:
//   0  page files and saved file in a scratch folder on the disk ("/tmp")
//   1  page files and saved file on the memory file system ("/dev/shm")
//   2  rows kept in memory, saved file on the memory file system
//   3  rows kept in memory, saved file on the disk
#include <benchmark/benchmark.h>
#include <malloc.h>
#include <stdlib.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <vector>

#include "core/document.h"
#include "core/memory_ports.h"
#include "core/page_files.h"
#include "formats/hpd_reader.h"
#include "formats/hpd_writer.h"
#include "formats/row_store.h"
#include "formats/text_file.h"
#include "hpd_generator.h"

namespace {

namespace fs = std::filesystem;
using namespace zel;
using namespace zel::formats;

const std::string kHpdb = std::string(ZEL_REALDATA_DIR) + "/card_sds200/BCDx36HP/HPDB";
const std::string kLargest = kHpdb + "/s_000006.hpd";

// Where the rows go: the session's page store (as the desktop application and `zel` keep
// them), or a plain map by department (the floor of the row bookkeeping).
enum Where { kSessionPages = 0, kPlainMap = 1 };

// A fresh document with an empty page folder; the folder goes when the session does.
struct Session {
  explicit Session(Where where) {
    std::string pattern = fs::temp_directory_path().string() + "/zel-bench-XXXXXX";
    folder = mkdtemp(pattern.data()) ? pattern : std::string();
    pages = std::make_unique<PageFiles>(folder + "/temp");
    pages->clearAll();
    pageRows = std::make_unique<PageFileRows>(*pages);
    rows = where == kPlainMap ? static_cast<RowStore*>(&memoryRows) : pageRows.get();
  }
  ~Session() {
    std::error_code ec;
    fs::remove_all(folder, ec);
  }
  std::string folder;
  Document doc;
  std::unique_ptr<PageFiles> pages;
  std::unique_ptr<PageFileRows> pageRows;
  MemoryRows memoryRows;
  RowStore* rows = nullptr;
  RecordingFeedback feedback;
};

HpdReadOptions readOptions() {
  HpdReadOptions o;
  o.fileIndex = 1;
  return o;
}

HpdWriteOptions writeOptions() {
  HpdWriteOptions o;
  o.fileIndex = 1;
  return o;
}

std::vector<std::string> stateFiles() {
  std::vector<std::string> files;
  for (const auto& e : fs::directory_iterator(kHpdb)) {
    const std::string name = e.path().filename().string();
    if (name.rfind("s_", 0) == 0 && e.path().extension() == ".hpd") files.push_back(e.path());
  }
  std::sort(files.begin(), files.end());
  return files;
}

void setBytes(benchmark::State& state, std::size_t bytes) {
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * bytes));
}

// The floor: the same bytes read by `cat` into /dev/null, and read into memory in-process.
void BM_Floor_CatToDevNull(benchmark::State& state) {
  const std::string command = "cat '" + kLargest + "' > /dev/null";
  for (auto _ : state) benchmark::DoNotOptimize(std::system(command.c_str()));
  setBytes(state, fs::file_size(kLargest));
}
BENCHMARK(BM_Floor_CatToDevNull)->Unit(benchmark::kMillisecond);

void BM_Floor_ReadBytes(benchmark::State& state) {
  for (auto _ : state) benchmark::DoNotOptimize(readWholeFile(kLargest));
  setBytes(state, fs::file_size(kLargest));
}
BENCHMARK(BM_Floor_ReadBytes)->Unit(benchmark::kMillisecond);

long residentKb() {
  std::ifstream statm("/proc/self/statm");
  long pages = 0, resident = 0;
  statm >> pages >> resident;
  return resident * (sysconf(_SC_PAGESIZE) / 1024);
}

// Peak memory of an open and a save of the largest state file, measured in a child process
// so that nothing else of the benchmark run counts: the rise of the peak resident size over
// what the child had when it started, against the size of the file. It runs before the
// other benchmarks, so that their data does not sit in the child's pages.
void BM_PeakMemoryLargestState(benchmark::State& state) {
  const double fileKb = static_cast<double>(fs::file_size(kLargest)) / 1024.0;
  double riseKb = 0;
  for (auto _ : state) {
    int pipeFds[2];
    if (pipe(pipeFds) != 0) {
      state.SkipWithError("pipe");
      return;
    }
    pid_t child = fork();
    if (child == 0) {
      close(pipeFds[0]);
      // Memory the parent freed is still resident in the child: hand it back first.
      malloc_trim(0);
      const long before = residentKb();
      {
        Session session(static_cast<Where>(state.range(0)));
        readHpd(session.doc, *session.rows, kLargest, readOptions(), session.feedback);
        writeHpd(session.doc, *session.rows, session.folder + "/saved.hpd", writeOptions(),
                 session.feedback);
      }
      rusage usage{};
      getrusage(RUSAGE_SELF, &usage);
      long rise = usage.ru_maxrss - before;
      ssize_t written = write(pipeFds[1], &rise, sizeof rise);
      _exit(written == sizeof rise ? 0 : 1);
    }
    close(pipeFds[1]);
    long rise = 0;
    if (read(pipeFds[0], &rise, sizeof rise) != sizeof rise) state.SkipWithError("child");
    close(pipeFds[0]);
    int status = 0;
    waitpid(child, &status, 0);
    riseKb = static_cast<double>(rise);
  }
  state.counters["file_MB"] = fileKb / 1024.0;
  state.counters["peak_rise_MB"] = riseKb / 1024.0;
  state.counters["times_file"] = riseKb / fileKb;
}
BENCHMARK(BM_PeakMemoryLargestState)
    ->Arg(kSessionPages)
    ->Arg(kPlainMap)
    ->Unit(benchmark::kMillisecond)->Iterations(1);

// Opening the largest state file into a fresh document, page files included.
void BM_OpenLargestState(benchmark::State& state) {
  const Where where = static_cast<Where>(state.range(0));
  for (auto _ : state) {
    state.PauseTiming();
    auto session = std::make_unique<Session>(where);
    state.ResumeTiming();
    HpdReadResult r =
        readHpd(session->doc, *session->rows, kLargest, readOptions(), session->feedback);
    benchmark::DoNotOptimize(r.counts.channels);
    state.PauseTiming();
    if (!r.ok()) state.SkipWithError(r.message.c_str());
    session.reset();
    state.ResumeTiming();
  }
  setBytes(state, fs::file_size(kLargest));
}
BENCHMARK(BM_OpenLargestState)
    ->Arg(kSessionPages)
    ->Arg(kPlainMap)
    ->Unit(benchmark::kMillisecond);

// Saving it: the walk, every page file read back, the file written and renamed.
void BM_SaveLargestState(benchmark::State& state) {
  const Where where = static_cast<Where>(state.range(0));
  Session session(where);
  readHpd(session.doc, *session.rows, kLargest, readOptions(), session.feedback);
  const std::string target = session.folder + "/saved.hpd";
  for (auto _ : state) {
    HpdWriteResult r =
        writeHpd(session.doc, *session.rows, target, writeOptions(), session.feedback);
    if (!r.ok()) state.SkipWithError(r.message.c_str());
  }
  setBytes(state, fs::file_size(kLargest));
}
BENCHMARK(BM_SaveLargestState)
    ->Arg(kSessionPages)
    ->Arg(kPlainMap)
    ->Unit(benchmark::kMillisecond);

// Writing every department of the largest state file to its page file, as a flush does.
void BM_FlushLargestState(benchmark::State& state) {
  for (auto _ : state) {
    state.PauseTiming();
    auto session = std::make_unique<Session>(kSessionPages);
    readHpd(session->doc, *session->rows, kLargest, readOptions(), session->feedback);
    state.ResumeTiming();
    if (!session->pages->flush()) state.SkipWithError("flush");
    state.PauseTiming();
    session.reset();
    state.ResumeTiming();
  }
}
BENCHMARK(BM_FlushLargestState)->Unit(benchmark::kMillisecond)->Iterations(3);

// The text of a save without the file: the walk and the line builders.
void BM_RenderLargestState(benchmark::State& state) {
  Session session(kSessionPages);
  readHpd(session.doc, *session.rows, kLargest, readOptions(), session.feedback);
  for (auto _ : state) {
    HpdWriteResult r;
    std::string text = renderHpd(session.doc, *session.rows, writeOptions(), session.feedback, r);
    benchmark::DoNotOptimize(text.data());
  }
}
BENCHMARK(BM_RenderLargestState)->Unit(benchmark::kMillisecond);

// All 67 state files, each into a fresh session, opened and saved.
void BM_AllStateFilesOpenAndSave(benchmark::State& state) {
  const Where where = static_cast<Where>(state.range(0));
  const std::vector<std::string> files = stateFiles();
  std::size_t bytes = 0;
  for (const auto& f : files) bytes += fs::file_size(f);
  for (auto _ : state) {
    for (const std::string& file : files) {
      Session session(where);
      readHpd(session.doc, *session.rows, file, readOptions(), session.feedback);
      writeHpd(session.doc, *session.rows, session.folder + "/saved.hpd", writeOptions(),
               session.feedback);
    }
  }
  state.counters["files"] = static_cast<double>(files.size());
  setBytes(state, bytes);
}
BENCHMARK(BM_AllStateFilesOpenAndSave)
    ->Arg(kSessionPages)
    ->Arg(kPlainMap)
    ->Unit(benchmark::kMillisecond)
    ->Iterations(3);

// A generated list of 100,000 channels in 200 departments.
const std::string& generated() {
  static const std::string text = zel::bench::generateConventional(100000, 4, 500);
  return text;
}

void BM_Open100kChannels(benchmark::State& state) {
  const Where where = static_cast<Where>(state.range(0));
  for (auto _ : state) {
    state.PauseTiming();
    auto session = std::make_unique<Session>(where);
    state.ResumeTiming();
    HpdReadResult r = readHpdText(session->doc, *session->rows, generated(), "", readOptions(),
                                  session->feedback);
    benchmark::DoNotOptimize(r.counts.channels);
    state.PauseTiming();
    if (r.counts.channels != 100000) state.SkipWithError("not 100,000 channels");
    session.reset();
    state.ResumeTiming();
  }
  setBytes(state, generated().size());
}
BENCHMARK(BM_Open100kChannels)
    ->Arg(kSessionPages)
    ->Arg(kPlainMap)
    ->Unit(benchmark::kMillisecond);

void BM_Save100kChannels(benchmark::State& state) {
  const Where where = static_cast<Where>(state.range(0));
  Session session(where);
  readHpdText(session.doc, *session.rows, generated(), "", readOptions(), session.feedback);
  const std::string target = session.folder + "/saved.hpd";
  for (auto _ : state) {
    HpdWriteResult r =
        writeHpd(session.doc, *session.rows, target, writeOptions(), session.feedback);
    if (!r.ok()) state.SkipWithError(r.message.c_str());
  }
  setBytes(state, generated().size());
}
BENCHMARK(BM_Save100kChannels)
    ->Arg(kSessionPages)
    ->Arg(kPlainMap)
    ->Unit(benchmark::kMillisecond);



}  // namespace
