// `zel demo`: the whole road of the suite without a window, one line of narration a step. The
// embedded demo list is saved as a favorites file, written to a simulated card and read back,
// a simulated scanner on a pseudo-terminal is monitored for a few seconds, a county is imported
// from the simulated RadioReference service, and the scanner's bandscope sweeps a band. The
// simulators run in this process; each step runs the zel command a user would type.
// `zel demo --tree` prints the demo list's tree and pages instead.
#include <unistd.h>

#include <atomic>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <memory>
#include <thread>

#include "cli/command_registry.h"
#include "cli/nested_command.h"
#include "core/demo_document.h"
#include "core/memory_ports.h"
#include "core/record_line.h"
#include "core/session.h"
#include "core/text.h"
#include "formats/hpd_writer.h"
#include "sim/card_sim.h"
#include "sim/radioref_sim.h"
#include "sim/scanner_sim_list.h"
#include "sim/scanner_sim_pty.h"

namespace {

namespace fs = std::filesystem;
using zel::cli::NestedRun;
using zel::cli::UserError;

constexpr int kSteps = 6;
constexpr int kScanSeconds = 4;
constexpr int kSweepSeconds = 3;
const char* const kModel = "BCD536HP";

void printTree(const zel::DocumentTree& tree, zel::NodeId node, int depth) {
  for (zel::NodeId c : tree.childList(node)) {
    std::cout << std::string(depth * 2, ' ') << tree.text(c) << "  [" << tree.key(c) << "]\n";
    printTree(tree, c, depth + 1);
  }
}

void printDemoTree(zel::Session& session) {
  const zel::DocumentTree& vis = session.document().visible;
  std::cout << "ZEL536 demo favorites list\n";
  for (zel::NodeId top : vis.topLevel()) {
    std::cout << vis.text(top) << "  [" << vis.key(top) << "]\n";
    printTree(vis, top, 1);
  }
  for (const std::string& dept : session.pages().departments()) {
    std::cout << "\n" << dept << ":\n";
    for (const std::string& line : session.pages().load(dept)) std::cout << "  " << line << "\n";
  }
  std::cout << "\n" << session.unsavedText() << "\n";
}

// One line of narration; the step's own output stays out of sight unless the step fails.
void narrate(int step, const std::string& text) {
  std::cout << step << "/" << kSteps << " " << text << std::endl;
}

NestedRun mustRun(zel::cli::Context& context, int step, const std::vector<std::string>& args) {
  NestedRun run = zel::cli::runNested(context, args);
  if (run.code != 0) {
    std::string why = zel::trim(run.err.empty() ? run.out : run.err);
    throw UserError{"Step " + std::to_string(step) + " (zel " + zel::join(args, ' ') +
                    ") failed: " + zel::replaceAll(why, "\n", " ")};
  }
  return run;
}

std::string firstLine(const std::string& text) {
  return text.substr(0, text.find('\n'));
}

// The first line of `text` that holds `part`, or an empty text.
std::string lineHolding(const std::string& text, const std::string& part) {
  for (const std::string& line : zel::split(text, '\n')) {
    if (line.find(part) != std::string::npos) return line;
  }
  return {};
}

// The number that follows `word` in `text`, or -1.
long long numberAfter(const std::string& text, const std::string& word) {
  const std::size_t at = text.find(word);
  if (at == std::string::npos) return -1;
  return zel::leadingInteger(text.substr(at + word.size()));
}

struct DemoList {
  std::string path;
  std::size_t systems = 0, departments = 0, channels = 0;
};

DemoList saveDemoList(const fs::path& work) {
  zel::MemorySettingsStore settings;
  zel::RecordingFeedback feedback;
  zel::SystemClock clock;
  zel::Session session(settings, feedback, clock, (work / "session").string());
  session.start(false);
  zel::buildDemoDocument(session.document(), session.pages(), feedback);
  DemoList list;
  list.path = (work / "demo.hpd").string();
  list.systems = session.document().visible.topLevel().size();
  for (const std::string& dept : session.pages().departments()) {
    ++list.departments;
    list.channels += session.pages().load(dept).size();
  }
  zel::formats::HpdWriteOptions options;  // every system of the document
  auto written =
      zel::formats::writeHpd(session.document(), session.pages(), list.path, options, feedback);
  if (!written.ok()) throw UserError{"Step 1 failed: " + written.message};
  return list;
}

// The simulated scanner answers on its pseudo-terminal from a thread of its own until the end
// of the demo.
class ScannerThread {
 public:
  ScannerThread(const std::string& listPath) {
    zel::sim::ScannerSimOptions options;
    options.model = kModel;
    options.seed = 5;
    options.activity = 0.5;
    options.searchStepsPerSecond = 2000;
    zel::sim::ScanListRead read = zel::sim::readScanList(listPath);
    if (read.ok) options.list = std::move(read.list);
    scanner_ = std::make_unique<zel::sim::PtyScanner>(options, zel::sim::SimFaults{});
    std::string error;
    if (!scanner_->open(error)) throw UserError{"The simulated scanner cannot start: " + error};
    thread_ = std::thread([this] { scanner_->run(stop_); });
  }
  ~ScannerThread() {
    stop_.store(true);
    if (thread_.joinable()) thread_.join();
  }
  const std::string& device() const { return scanner_->devicePath(); }

 private:
  std::unique_ptr<zel::sim::PtyScanner> scanner_;
  std::atomic<bool> stop_{false};
  std::thread thread_;
};

void walk(const fs::path& work, bool keep) {
  const auto started = std::chrono::steady_clock::now();
  zel::cli::Context context;
  context.dataDir = (work / "data").string();
  context.settingsFile = (work / "settings.ini").string();
  const std::string card = (work / "card").string();

  const DemoList list = saveDemoList(work);
  narrate(1, "The demo favorites list: " + std::to_string(list.systems) + " systems, " +
                 std::to_string(list.departments) + " departments, " +
                 std::to_string(list.channels) + " channels and talkgroups, saved as " + list.path +
                 ".");

  auto made = zel::sim::makeSimCard(card, kModel);
  if (!made.ok) throw UserError{"Step 2 failed: " + made.message};
  NestedRun write = mustRun(
      context, 2, {"card", "write", list.path, "--name", "ZEL536 demo", "--root", card, "--json"});
  const long long number = numberAfter(write.out, "\"number\":");
  narrate(2, "Written to a simulated " + std::string(kModel) + " card in " + card + " as list " +
                 std::to_string(number) + ".");

  const std::string back = (work / "readback.hpd").string();
  NestedRun read = mustRun(
      context, 3, {"card", "read", std::to_string(number), "-o", back, "--root", card, "--json"});
  const long long systemsBack = numberAfter(read.out, "\"systems\":");
  narrate(
      3, "Read list " + std::to_string(number) + " back from the card into " + back + ": " +
             std::to_string(systemsBack) + " systems" +
             (systemsBack == static_cast<long long>(list.systems) ? ", as many as written." : "."));

  ScannerThread scanner(list.path);
  NestedRun monitor =
      mustRun(context, 4,
              {"monitor", "--port", scanner.device(), "--seconds", std::to_string(kScanSeconds),
               "--log", (work / "log.csvx").string()});
  const std::vector<std::string> hits = zel::split(zel::trim(monitor.out), '\n');
  const std::size_t logged = zel::trim(monitor.out).empty() ? 0 : hits.size();
  narrate(4, "Live scan of the simulated " + std::string(kModel) + " on " + scanner.device() +
                 " for " + std::to_string(kScanSeconds) + " seconds: " + std::to_string(logged) +
                 " hits logged" + (logged ? ", the first: " + hits.front() : std::string(".")));

  zel::sim::RadioRefSimOptions rrOptions;
  zel::sim::RadioRefSim service(rrOptions);
  std::string error;
  if (!service.start(&error)) throw UserError{"The simulated RadioReference service: " + error};
  const std::string password = (work / "password.txt").string();
  std::ofstream(password) << "demo\n";
  NestedRun import =
      mustRun(context, 5,
              {"rr", "import", "--county", "9011", "--subcat", "900101", "--subcat", "900102", "-o",
               (work / "harbor.hpd").string(), "--endpoint", service.endpoint(), "--user", "demo",
               "--app-key", "12345678", "--password-file", password});
  service.stop();
  narrate(5, "From the simulated RadioReference service at " + service.endpoint() +
                 ", Harbor County's sheriff and fire channels: " + firstLine(import.out));

  NestedRun sweep = mustRun(context, 6,
                            {"sweep", "--port", scanner.device(), "--start", "144", "--stop", "148",
                             "--step", "12.5", "--seconds", std::to_string(kSweepSeconds)});
  std::string busiest = lineHolding(sweep.out, " MHz  ");
  narrate(6, "The bandscope of the simulated scanner for " + std::to_string(kSweepSeconds) +
                 " seconds: " + lineHolding(sweep.out, " sweeps of ") +
                 (busiest.empty() ? "" : " Busiest: " + busiest + "."));

  const auto seconds =
      std::chrono::duration_cast<std::chrono::seconds>(std::chrono::steady_clock::now() - started);
  std::cout << "The demo took " << seconds.count() << " seconds"
            << (keep ? "; its files are in " + work.string() + "."
                     : "; its files go now (zel demo -o DIR keeps them).")
            << std::endl;
}

}  // namespace

ZEL_COMMAND(90) {
  auto* cmd = app.add_subcommand(
      "demo", "Walk the whole suite on simulators: list, card, live scan, import, bandscope");
  auto tree = std::make_shared<bool>(false);
  auto keep = std::make_shared<std::string>();
  cmd->add_flag("--tree", *tree, "Print the demo favorites list's tree and pages instead");
  cmd->add_option("-o,--out", *keep,
                  "Keep the demo's files (lists, card, log) in this folder (default: removed)");
  cmd->callback([tree, keep, &context] {
    const bool scratch = keep->empty();
    fs::path folder = scratch
                          ? fs::temp_directory_path() / ("zel-demo-" + std::to_string(::getpid()))
                          : fs::path(*keep);
    if (*tree && !context.dataDir.empty()) folder = context.dataDir;
    struct Cleanup {
      fs::path folder;
      bool remove;
      ~Cleanup() {
        std::error_code ec;
        if (remove) fs::remove_all(folder, ec);
      }
    } cleanup{folder, scratch && !(*tree && !context.dataDir.empty())};
    std::error_code ec;
    fs::create_directories(folder, ec);
    if (ec) throw UserError{"Cannot make the folder " + folder.string() + "."};
    if (*tree) {
      zel::MemorySettingsStore settings;
      zel::StreamFeedback feedback;
      zel::SystemClock clock;
      zel::Session session(settings, feedback, clock, folder.string());
      session.start(false);
      zel::buildDemoDocument(session.document(), session.pages(), feedback);
      printDemoTree(session);
      return;
    }
    walk(folder, !scratch);
  });
}
