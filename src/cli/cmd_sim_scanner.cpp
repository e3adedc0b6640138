// zel sim scanner: a simulated scanner on a pseudo-terminal. The first line on stdout is
// the device path to open; the simulator answers there until it is stopped.
#include <atomic>
#include <csignal>
#include <iostream>

#include "cli/cmd_sim_common.h"
#include "cli/command_registry.h"
#include "cli/option_range.h"
#include "sim/scanner_sim_pty.h"

namespace {

std::atomic<bool> stopRequested{false};
extern "C" void onStopSignal(int) {
  stopRequested.store(true);
}

struct SimScannerArgs {
  std::string model = "BCD536HP";
  unsigned seed = 1;
  std::string list;
  double activity = 0.15;
  int sweepRate = 400;
  zel::sim::SimFaults faults;
  bool verbose = false;
};

}  // namespace

ZEL_COMMAND(61) {
  (void)context;
  using zel::cli::inRange;
  auto args = std::make_shared<SimScannerArgs>();
  auto* cmd = zel::cli::simNoun(app)->add_subcommand(
      "scanner", "Run a simulated scanner on a pseudo-terminal; prints its device path first");
  cmd->add_option("--model", args->model, "Scanner model to play")
      ->check(CLI::IsMember(zel::sim::simScannerModels()))
      ->capture_default_str();
  inRange(cmd->add_option("--seed", args->seed, "Seed of the scripted scan (same seed, same scan)")
              ->capture_default_str(),
          0, 4294967295.0, "a seed");
  cmd->add_option("--list", args->list,
                  "Favorites file (.hpd) to scan instead of the built-in list")
      ->check(CLI::ExistingFile);
  inRange(cmd->add_option("--activity", args->activity,
                          "Share of channels that carry a transmission")
              ->capture_default_str(),
          0, 1, "a share");
  inRange(cmd->add_option("--sweep-rate", args->sweepRate,
                          "Steps a second of the custom search stream (the bandscope's data)")
              ->capture_default_str(),
          1, 100000, "a number of steps a second");
  inRange(cmd->add_option("--silent-after", args->faults.silentAfter,
                          "Fault: stop answering this many seconds after the start"),
          0, zel::cli::kNoLimit, "a number of seconds");
  inRange(cmd->add_option("--silent-for", args->faults.silentFor,
                          "Fault: stay silent this many seconds (with --silent-after)"),
          0, zel::cli::kNoLimit, "a number of seconds");
  inRange(cmd->add_option("--garbage", args->faults.garbage,
                          "Fault: share of replies sent as garbage"),
          0, 1, "a share");
  inRange(cmd->add_option("--cut", args->faults.cut, "Fault: share of replies cut in half"), 0, 1,
          "a share");
  cmd->add_flag("--verbose", args->verbose, "Log every command and reply on stderr");
  cmd->callback([args] {
    zel::sim::ScannerSimOptions options;
    options.model = args->model;
    options.seed = args->seed;
    options.activity = args->activity;
    options.searchStepsPerSecond = args->sweepRate;
    if (!args->list.empty()) {
      zel::sim::ScanListRead read = zel::sim::readScanList(args->list);
      if (!read.ok) throw zel::cli::UserError{read.message};
      options.list = std::move(read.list);
    }
    zel::sim::PtyScanner scanner(options, args->faults);
    std::string error;
    if (!scanner.open(error)) throw zel::cli::UserError{error};
    std::cout << scanner.devicePath() << std::endl;  // the first line: flushed at once
    std::cerr << "Simulated " << args->model << " on " << scanner.devicePath() << ", scanning "
              << options.list.channels.size() << " channels of \"" << options.list.name
              << "\". Stop with Ctrl+C." << std::endl;
    std::signal(SIGINT, onStopSignal);
    std::signal(SIGTERM, onStopSignal);
    scanner.run(stopRequested, args->verbose ? &std::cerr : nullptr);
    std::cerr << "Simulated scanner stopped after " << scanner.commandsAnswered() << " replies."
              << std::endl;
  });
}
