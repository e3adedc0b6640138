// Runs the timers of a TimerBank on QTimers: one QTimer per timer, started, stopped and
// restarted as the bank's data changes, each calling the owner's handler on its tick.
// Also the Qt side of the EventPump: waits that keep the event loop running.
#pragma once

#include <QObject>
#include <QTimer>
#include <cstdint>
#include <functional>
#include <vector>

#include "control/event_pump.h"
#include "control/timer_bank.h"

namespace zel {

class QtTimerHost : public QObject {
  Q_OBJECT
 public:
  // fire(id) runs the handler of timer id (VirtualControl::fire, for instance).
  QtTimerHost(control::TimerBank& bank, std::function<void(int)> fire, QObject* parent = nullptr);
  ~QtTimerHost() override;

  // Brings every QTimer in line with the bank (done on every change by itself).
  void sync();
  bool active(int id) const { return timers_[id]->isActive(); }

 private:
  void syncOne(int id);
  control::TimerBank& bank_;
  std::function<void(int)> fire_;
  std::vector<QTimer*> timers_;
  std::vector<std::uint64_t> generations_;
};

class QtEventPump : public control::EventPump {
 public:
  void runFor(int ms) override;
  void runPending() override;
};

}  // namespace zel
