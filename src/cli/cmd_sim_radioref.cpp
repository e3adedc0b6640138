// zel sim radioref: the simulated RadioReference web service on 127.0.0.1. The first line on
// stdout is the end point URL a client takes as its base; it answers until it is stopped.
#include <atomic>
#include <chrono>
#include <csignal>
#include <iostream>
#include <thread>

#include "cli/cmd_sim_common.h"
#include "cli/command_registry.h"
#include "cli/option_range.h"
#include "sim/radioref_sim.h"

namespace {

std::atomic<bool> radiorefStop{false};
extern "C" void onRadioRefStopSignal(int) {
  radiorefStop.store(true);
}

}  // namespace

ZEL_COMMAND(62) {
  (void)context;
  auto options = std::make_shared<zel::sim::RadioRefSimOptions>();
  auto* cmd = zel::cli::simNoun(app)->add_subcommand(
      "radioref", "Serve a simulated RadioReference web service; prints its end point first");
  zel::cli::inRange(cmd->add_option("--port", options->port, "Port on 127.0.0.1 (0: any free port)")
                        ->capture_default_str(),
                    0, 65535, "a port number");
  cmd->add_option("--data", options->dataDir,
                  "Folder of recorded replies to answer from for the ids they hold")
      ->check(CLI::ExistingDirectory);
  zel::cli::inRange(
      cmd->add_option("--slow", options->slowMs, "Delay every reply by this many milliseconds"),
      0, 600000, "a number of milliseconds");
  cmd->add_flag("--renamed", options->renamedWsdl,
                "Serve the variant description: other namespace, soapActions and message names");
  cmd->callback([options] {
    zel::sim::RadioRefSim sim(*options);
    std::string error;
    if (!sim.start(&error)) throw zel::cli::UserError{error};
    std::cout << sim.endpoint() << std::endl;  // the first line: flushed at once
    std::cerr << "Simulated RadioReference service at " << sim.endpoint() << "?wsdl&v=15";
    if (!options->dataDir.empty()) {
      std::cerr << ", " << sim.recordedCount() << " recorded replies from " << options->dataDir;
    }
    std::cerr << ". Log in as demo/demo (or expired/expired). Stop with Ctrl+C." << std::endl;
    std::signal(SIGINT, onRadioRefStopSignal);
    std::signal(SIGTERM, onRadioRefStopSignal);
    while (!radiorefStop.load()) std::this_thread::sleep_for(std::chrono::milliseconds(50));
    sim.stop();
    std::cerr << "Simulated RadioReference service stopped." << std::endl;
  });
}
