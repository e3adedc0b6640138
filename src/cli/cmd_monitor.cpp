// zel monitor: polls a scanner as the virtual control window does and prints every
// logged hit as it happens (the lines of the log file), optionally appending them to a
// file. Polling, decoding and logging are the window's own state machines, driven by
// Qt timers on the real serial port code.
#include <QCoreApplication>
#include <QTimer>
#include <atomic>
#include <csignal>
#include <iostream>
#include <vector>

#include "cli/cmd_control_common.h"
#include "cli/option_range.h"
#include "cli/window_hints.h"
#include "control/virtual_control.h"
#include "core/memory_ports.h"
#include "platform/qt_serial_port.h"
#include "platform/qt_timer_host.h"

namespace {

std::atomic<bool> monitorStop{false};
extern "C" void onMonitorSignal(int) {
  monitorStop.store(true);
}

struct MonitorArgs {
  std::string port;
  double seconds = 0;
  std::string log;
  std::string family;  // "" picks it from the scanner's model
  std::string action = "off";
  bool json = false;
  bool verbose = false;
};

zel::control::LogAction actionFrom(const std::string& text) {
  if (text == "resume") return zel::control::LogAction::Resume;
  if (text == "avoid") return zel::control::LogAction::Avoid;
  return zel::control::LogAction::Off;
}

// While the family is picked from the model, the window's advice to open the other window
// is not for the user: the monitor does so itself.
class PickingFeedback : public zel::StreamFeedback {
 public:
  explicit PickingFeedback(bool picking) : picking_(picking) {}
  void message(std::string_view text, std::string_view title = {}) override {
    if (picking_ && text.find("SDS VC") != std::string_view::npos) return;
    zel::StreamFeedback::message(text, title);
    if (std::string hint = zel::cli::windowHint(text); !hint.empty()) std::cerr << hint << std::endl;
  }

 private:
  bool picking_;
};

// Runs the window of `family`; false when it closed on the model of the other family
// and the family was not given.
bool runMonitor(const MonitorArgs& a, zel::control::Family family) {
  using namespace zel::control;
  const bool picking = a.family.empty();
  zel::QtSerialPort port;
  zel::SystemClock clock;
  zel::QtEventPump pump;
  PickingFeedback feedback(picking);
  zel::MemorySettingsStore settings;  // the monitor leaves the window's settings alone
  VirtualControl vc(family, VcPorts{port, clock, pump, feedback, settings}, "");
  vc.options.action = actionFrom(a.action);
  vc.options.logToFile = !a.log.empty();
  vc.options.logFilePath = a.log;

  std::vector<std::string> lines;
  vc.logger.onLine = [&](const std::string& line) {
    lines.push_back(line);
    if (!a.json) std::cout << line << std::endl;
  };
  vc.link.onWatchdog = [&] {
    std::cerr << "No reply from the scanner for 2 seconds: resetting the port." << std::endl;
  };
  vc.link.onTitle = [&](const std::string& title) {
    if (a.verbose || title.find("communication") != std::string::npos ||
        title.find("scomm1unication") != std::string::npos)
      std::cerr << "[" << title << "]" << std::endl;
  };

  vc.link.selectPortName(a.port);
  vc.link.connect();
  if (!port.isOpen()) {
    throw zel::cli::UserError{"Cannot open the port " + a.port + ": " + vc.link.title()};
  }

  zel::QtTimerHost host(vc.timers, [&](int id) { vc.fire(id); });
  QTimer watch;
  QObject::connect(&watch, &QTimer::timeout, [&] {
    if (monitorStop.load() || vc.decoder.closeRequested) QCoreApplication::quit();
  });
  watch.start(100);
  if (a.seconds > 0) {
    QTimer::singleShot(static_cast<int>(a.seconds * 1000), [] { QCoreApplication::quit(); });
  }
  std::signal(SIGINT, onMonitorSignal);
  std::signal(SIGTERM, onMonitorSignal);
  QCoreApplication::exec();
  vc.close();
  if (picking && family == Family::Bcd && vc.decoder.closeRequested &&
      vc.status.model.find("SDS") != std::string::npos)
    return false;

  const auto& link = vc.link;
  if (a.json) {
    std::cout << "{\"port\":" << zel::cli::jsonText(a.port)
              << ",\"family\":" << zel::cli::jsonText(familyName(family))
              << ",\"model\":" << zel::cli::jsonText(vc.status.model)
              << ",\"pollsSent\":" << link.pollsSent
              << ",\"repliesAccepted\":" << link.repliesAccepted
              << ",\"watchdogResets\":" << link.watchdogFirings
              << ",\"repliesSinceLastReset\":" << link.repliesSinceReset << ",\"lines\":[";
    for (std::size_t i = 0; i < lines.size(); ++i)
      std::cout << (i ? "," : "") << zel::cli::jsonText(lines[i]);
    std::cout << "]}" << std::endl;
  } else {
    std::cerr << "Polled " << link.pollsSent << " queries, " << link.repliesAccepted
              << " replies taken, " << link.watchdogFirings << " watchdog resets, " << lines.size()
              << " lines logged." << std::endl;
  }
  if (vc.decoder.closeRequested) throw zel::cli::UserError{""};
  return true;
}

void runMonitor(const MonitorArgs& a) {
  using zel::control::Family;
  if (!a.family.empty()) {
    runMonitor(a, zel::cli::familyFromText(a.family));
    return;
  }
  // The BCD window reads the model (MDL) and closes on an SDS one.
  if (runMonitor(a, Family::Bcd)) return;
  runMonitor(a, Family::Sds);
}

}  // namespace

ZEL_COMMAND(71) {
  (void)context;
  auto args = std::make_shared<MonitorArgs>();
  auto* cmd = app.add_subcommand("monitor", "Poll a scanner and print each logged hit");
  cmd->add_option("--port", args->port, "Serial port of the scanner (see zel ports)")->required();
  zel::cli::inRange(
      cmd->add_option("--seconds", args->seconds, "Stop after this many seconds (default: Ctrl+C)"),
      0, zel::cli::kNoLimit, "a number of seconds");
  cmd->add_option("--log", args->log, "Append the log lines to this file (log.csvx format)");
  cmd->add_option("--family", args->family,
                  "Window family of the scanner (default: picked from its model)")
      ->check(CLI::IsMember({"bcd", "sds"}));
  cmd->add_option("--action", args->action, "What to do after a new hit")
      ->check(CLI::IsMember({"off", "resume", "avoid"}))
      ->capture_default_str();
  cmd->add_flag("--json", args->json, "Print one JSON summary with every line at the end");
  cmd->add_flag("--verbose", args->verbose, "Report every change of the link's state");
  cmd->callback([args] { runMonitor(*args); });
}
