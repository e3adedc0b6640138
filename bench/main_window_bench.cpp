// How long the main window is busy, on the largest real state file: opening it as a
// document (read, tree shown), and one click on a department (its pane and grid shown, the
// previous grid stored); a department of ten thousand rows shown and scrolled. The window
// must never be busy for more than 100 ms at a time.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QScrollBar>
#include <QTableView>
#include <QTreeWidget>
#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "core/memory_ports.h"
#include "core/session.h"
#include "ui/main_window.h"

namespace {

using namespace zel;
namespace fs = std::filesystem;

const std::string kLargest =
    std::string(ZEL_REALDATA_DIR) + "/card_sds200/BCDx36HP/HPDB/s_000006.hpd";

QApplication& app() {
  static int argc = 1;
  static char name[] = "main_window_bench";
  static char* argv[] = {name, nullptr};
  qputenv("QT_QPA_PLATFORM", "offscreen");
  static QApplication instance(argc, argv);
  return instance;
}

struct Window {
  std::string folder = (fs::temp_directory_path() / "zel-window-bench").string();
  MemorySettingsStore store;
  RecordingFeedback feedback;
  ManualClock clock;
  std::unique_ptr<Session> session;
  std::unique_ptr<ui::MainWindow> window;
  Window() {
    app();
    session = std::make_unique<Session>(store, feedback, clock, folder);
    session->start(false);
    window = std::make_unique<ui::MainWindow>(*session, feedback);
    window->show();
  }
  ~Window() {
    window.reset();
    session.reset();
    std::error_code ec;
    fs::remove_all(folder, ec);
  }
};

void BM_OpenLargestStateInWindow(benchmark::State& state) {
  for (auto _ : state) {
    state.PauseTiming();
    auto w = std::make_unique<Window>();
    state.ResumeTiming();
    if (!w->window->openPath(QString::fromStdString(kLargest))) state.SkipWithError("open");
    QApplication::processEvents();
    state.PauseTiming();
    state.counters["tree_items"] = w->window->tree()->topLevelItemCount();
    w.reset();
    state.ResumeTiming();
  }
}
BENCHMARK(BM_OpenLargestStateInWindow)->Unit(benchmark::kMillisecond)->Iterations(5);

// One click after another on the departments of the document, in tree order.
void BM_ClickDepartment(benchmark::State& state) {
  Window w;
  w.window->openPath(QString::fromStdString(kLargest));
  std::vector<QString> departments;
  for (NodeId n : w.session->document().visible.topLevel()) {
    std::vector<NodeId> stack{n};
    while (!stack.empty()) {
      NodeId at = stack.back();
      stack.pop_back();
      const std::string& key = w.session->document().visible.key(at);
      if (key.rfind("GRP-", 0) == 0) departments.push_back(QString::fromStdString(key));
      for (NodeId c : w.session->document().visible.childList(at)) stack.push_back(c);
    }
  }
  std::size_t next = 0;
  for (auto _ : state) {
    w.window->selectKey(departments[next++ % departments.size()]);
    QApplication::processEvents();
  }
  state.counters["departments"] = static_cast<double>(departments.size());
}
BENCHMARK(BM_ClickDepartment)->Unit(benchmark::kMillisecond);

// A department of ten thousand channels: the click that shows it, and then scrolling it a
// page at a time with each page painted, as a user holding Page Down sees it.
struct LongDepartment : Window {
  static constexpr int kRows = 10000;
  QString key;
  LongDepartment() {
    window->runCommand("New Conventional System");
    key = "GRP-999-001-001";
    std::vector<std::string> lines;
    lines.reserve(kRows);
    for (int i = 1; i <= kRows; ++i) {
      char line[160];
      std::snprintf(line, sizeof line,
                    "%d,%d.%06d,Channel %d,Off,NFM,CTCSS,%d.0,Fire Dispatch,Off,2,0,Off,Auto,Off,"
                    "On,Off,Off",
                    i, 150 + i / 1000, (i % 1000) * 1000, i, 67 + i % 100);
      lines.emplace_back(line);
    }
    session->pages().save(key.toStdString(), lines);
  }
};

void BM_ClickTenThousandRowDepartment(benchmark::State& state) {
  LongDepartment w;
  w.window->runCommand("New Department");  // somewhere else to click from
  for (auto _ : state) {
    w.window->selectKey("GRP-999-001-002");
    w.window->selectKey(w.key);
    QApplication::processEvents();
  }
  state.counters["rows"] = w.window->rowsPane()->model()->rowCount();
}
BENCHMARK(BM_ClickTenThousandRowDepartment)->Unit(benchmark::kMillisecond);

void BM_ScrollTenThousandRowsAPageAtATime(benchmark::State& state) {
  LongDepartment w;
  w.window->selectKey(w.key);
  QTableView* grid = w.window->rowsPane();
  QScrollBar* bar = grid->verticalScrollBar();
  for (auto _ : state) {
    int next = bar->value() + bar->pageStep();
    if (next > bar->maximum()) next = 0;
    bar->setValue(next);
    benchmark::DoNotOptimize(grid->viewport()->grab());  // renders the page as a paint would
  }
  state.counters["pages"] = static_cast<double>(bar->maximum()) / std::max(1, bar->pageStep());
}
BENCHMARK(BM_ScrollTenThousandRowsAPageAtATime)->Unit(benchmark::kMicrosecond);

}  // namespace
