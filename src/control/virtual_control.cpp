#include "control/virtual_control.h"

#include <filesystem>

namespace zel::control {

VirtualControl::VirtualControl(Family family, VcPorts p, std::string folder)
    : family_(family),
      ports(p),
      settings(p.settings),
      dataFolder(std::move(folder)),
      timers(p.clock),
      link(family, p.port, timers, p.clock, p.pump, p.feedback),
      decoder(family, status, counters, options, link, timers, p.feedback, p.clock),
      commands(family, link, timers, status, options, p.pump, p.clock),
      logger(family, status, counters, options, commands, link, p.port, timers, p.feedback,
             p.clock) {
  addVcTimers(timers, family);
  link.setParser(&decoder);
  decoder.onCloseRequested = [this] { close(); };
  decoder.dataFolder = dataFolder;
  logger.dataFolder = dataFolder;
  if (!dataFolder.empty()) {
    namespace fs = std::filesystem;
    logger.gridIniPath =
        (fs::path(dataFolder) / (family == Family::Bcd ? "loggrid.ini" : "loggridsds.ini"))
            .string();
    link.errorLogPath = (fs::path(dataFolder) / "comerrorlog.txt").string();
  }
}

void VirtualControl::load() {
  options = loadOptions(settings, family_, dataFolder);
  link.useGpsPort = options.useGpsPort;
  logger.loadPage();
  link.onLoad();
}

void VirtualControl::close() {
  logger.closing = true;
  link.close();
  for (int id = 0; id < timers.size(); ++id) timers.disable(id);
  link.savePort(settings);
  saveOptions(settings, family_, options);
  settings.store().flush();
}

void VirtualControl::fire(int id) {
  switch (id) {
    case Timer1:
      link.onTimer1();
      break;
    case Timer10:
      link.onTimer10();
      break;
    case Timer2:
      link.onTimer2();
      break;
    case Timer3:
      logger.onTimer3();
      break;
    case Timer9:
      link.onTimer9(settings);
      break;
    case Timer4:
      link.onTimer4();
      break;
    case Timer8:
      logger.onTimer8();
      break;
    case Timer16:
      logger.onTimer16();
      break;
    case busydelay:
      decoder.onBusydelay();
      break;
    case delaylog:
      logger.onDelaylog();
      break;
    case dokeytimer:
      commands.onDokeytimer();
      break;
    default:
      break;
  }
}

}  // namespace zel::control
