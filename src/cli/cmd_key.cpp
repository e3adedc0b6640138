// zel key: presses keys of the scanner by their names on the virtual scanner face, one
// after the other, and shows what each sent and what came back.
#include <iostream>

#include "cli/cmd_control_common.h"
#include "control/virtual_control.h"
#include "control/xml_attribute.h"
#include "core/memory_ports.h"
#include "platform/qt_serial_port.h"
#include "platform/qt_timer_host.h"

namespace {

struct KeyArgs {
  std::string port;
  std::string family = "bcd";
  std::vector<std::string> names;
  bool json = false;
};

bool knownKey(zel::control::Family family, const std::string& name) {
  for (const auto& k : zel::control::keyNames(family))
    if (k == name) return true;
  // Every name of the key table counts, also those that no face shows.
  return !zel::control::keyCommand(zel::control::Family::Bcd, name, false).empty() ||
         name == "RANG" || name == "SERV" || name == "To Scan" || name == "to Scan";
}

std::string firstLine(const std::string& reply) {
  std::string out = reply.substr(0, reply.find('\r'));
  return out;
}

void runKeys(const KeyArgs& a) {
  using namespace zel::control;
  const Family family = zel::cli::familyFromText(a.family);
  for (const auto& name : a.names) {
    if (!knownKey(family, name)) {
      std::string list;
      for (const auto& k : keyNames(family)) list += (list.empty() ? "" : " ") + k;
      throw zel::cli::UserError{"Unknown key \"" + name + "\". Keys: " + list};
    }
  }
  zel::QtSerialPort port;
  zel::SystemClock clock;
  zel::QtEventPump pump;
  zel::StreamFeedback feedback;
  zel::MemorySettingsStore settings;
  VirtualControl vc(family, VcPorts{port, clock, pump, feedback, settings}, "");
  int error = port.open(a.port, kPortSettings);
  if (error != kPortOk) {
    throw zel::cli::UserError{"Cannot open the port " + a.port +
                              ": usb/comport error: " + std::to_string(error)};
  }
  if (family == Family::Sds) {
    // The SDS mute and monitor keys toggle on the state that GSI reports.
    vc.link.SendCommand("GSI");
    pump.runFor(300);
    vc.status.gsiText = reshapeGsi(port.readAll());
  }
  if (a.json) std::cout << "[";
  bool first = true;
  for (const auto& name : a.names) {
    (void)port.readAll();
    vc.commands.PressKey(name);
    // The SDS series takes at most four keys a second.
    pump.runFor(family == Family::Sds ? 300 : 150);
    vc.commands.onDokeytimer();
    std::string reply = firstLine(port.readAll());
    if (a.json) {
      std::cout << (first ? "" : ",") << "{\"key\":" << zel::cli::jsonText(name)
                << ",\"reply\":" << zel::cli::jsonText(reply) << "}";
    } else {
      std::cout << name << ": " << (reply.empty() ? "(no reply)" : reply) << "\n";
    }
    first = false;
  }
  if (a.json) std::cout << "]\n";
  port.close();
}

}  // namespace

ZEL_COMMAND(72) {
  (void)context;
  auto args = std::make_shared<KeyArgs>();
  auto* cmd =
      app.add_subcommand("key", "Press scanner keys by name (SCAN, AVOID, CHANNEL, t, ...)");
  cmd->add_option("--port", args->port, "Serial port of the scanner (see zel ports)")->required();
  cmd->add_option("--family", args->family, "Window family of the scanner")
      ->check(CLI::IsMember({"bcd", "sds"}))
      ->capture_default_str();
  cmd->add_option("NAME", args->names, "Key names, pressed in order")->required();
  cmd->add_flag("--json", args->json, "Print the keys and replies as JSON");
  cmd->callback([args] { runKeys(*args); });
}
