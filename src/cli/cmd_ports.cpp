// zel ports: the serial ports of this machine, for --port of zel monitor and zel key.
#include <iostream>

#include "cli/cmd_control_common.h"
#include "platform/qt_serial_port.h"

ZEL_COMMAND(70) {
  auto* cmd = app.add_subcommand("ports", "List the serial ports of this machine");
  auto json = std::make_shared<bool>(false);
  cmd->add_flag("--json", *json, "Print the list as JSON");
  cmd->callback([json, &context] {
    (void)context;
    auto ports = zel::QtSerialPort::listPorts();
    if (*json) {
      std::cout << "[";
      for (std::size_t i = 0; i < ports.size(); ++i) {
        std::cout << (i ? "," : "") << "{\"name\":" << zel::cli::jsonText(ports[i].name)
                  << ",\"description\":" << zel::cli::jsonText(ports[i].description) << "}";
      }
      std::cout << "]\n";
      return;
    }
    if (ports.empty()) {
      std::cout << "No serial ports found.\n";
      return;
    }
    for (const auto& p : ports) {
      std::cout << p.name;
      if (!p.description.empty()) std::cout << "  " << p.description;
      std::cout << "\n";
    }
  });
}
