// One virtual control window without its widgets: the link, the decoder, the command
// surface and the logger of one scanner family, sharing one bank of timers. A host (the
// Qt timer host, a test, `zel monitor`) calls fire(id) when a timer falls due.
#pragma once

#include <string>

#include "control/activity_logger.h"
#include "control/command_surface.h"
#include "control/event_pump.h"
#include "control/scanner_link.h"
#include "control/serial_port.h"
#include "control/status_decoder.h"
#include "control/timer_bank.h"
#include "control/vc_options.h"
#include "control/vc_state.h"
#include "control/vc_timers.h"
#include "core/ports.h"
#include "core/settings.h"

namespace zel::control {

struct VcPorts {
  SerialPort& port;
  const Clock& clock;
  EventPump& pump;
  Feedback& feedback;
  SettingsStore& settings;
};

class VirtualControl {
 public:
  // dataFolder holds the log file default, "loggrid.ini", "datalog.txt" and the analysis
  // files; "" keeps everything in memory.
  VirtualControl(Family family, VcPorts ports, std::string dataFolder);

  Family family() const { return family_; }
  // Reads the options and the log page, fills the port list and arms the restore of the
  // saved port.
  void load();
  // Closes the port, stops every timer and stores the options and the port.
  void close();
  // Runs the handler of a timer (a VcTimer value).
  void fire(int timerId);

  Family family_;
  VcPorts ports;
  Settings settings;
  std::string dataFolder;
  TimerBank timers;
  ScannerStatus status;
  LoggerCounters counters;
  VcOptions options;
  ScannerLink link;
  StatusDecoder decoder;
  CommandSurface commands;
  ActivityLogger logger;
};

}  // namespace zel::control
