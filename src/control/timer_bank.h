// Timers as data. A live window keeps its timers here: which are enabled, at what
// interval, and when each is next due. The window's on<Timer>() methods do the work; a
// host decides when to call them: the Qt host with one QTimer per entry
// (platform/qt_timer_host.h), a test by stepping a ManualClock through runUntil().
//
// Enabling a timer that is already enabled does not restart it, and neither does setting
// the interval it already has: a watchdog that is "enabled" at every send tick must still
// fire two seconds after it was first armed.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "core/memory_ports.h"
#include "core/ports.h"

namespace zel::control {

class TimerBank {
 public:
  explicit TimerBank(const Clock& clock) : clock_(clock) {}

  // Adds a timer and returns its id (0, 1, 2... in the order of adding).
  int add(std::string name, int intervalMs, bool enabled = false);

  void enable(int id);
  void disable(int id);
  void setEnabled(int id, bool on) { on ? enable(id) : disable(id); }
  // A new interval restarts an enabled timer from now; the same interval changes nothing.
  void setInterval(int id, int intervalMs);

  bool enabled(int id) const { return timers_[id].enabled; }
  int interval(int id) const { return timers_[id].intervalMs; }
  std::int64_t due(int id) const { return timers_[id].dueMs; }
  // Raised whenever the timer is (re)armed: a host restarts its real timer on a change.
  std::uint64_t generation(int id) const { return timers_[id].generation; }
  const std::string& name(int id) const { return timers_[id].name; }
  int size() const { return static_cast<int>(timers_.size()); }
  int find(std::string_view name) const;  // -1 when unknown

  // The enabled timer due first at or before nowMs (ties go to the lower id); -1 if none.
  int nextDue(std::int64_t nowMs) const;
  // Books one firing: the timer is next due one interval later. Call before the handler,
  // so that a handler that switches its own timer off or re-arms it has the last word.
  void markFired(int id);

  // Called after every change of a timer's state, with the timer's id.
  void setListener(std::function<void(int id)> listener) { listener_ = std::move(listener); }

  // Test driver: moves the clock forward to targetMs, firing every timer that falls due on
  // the way, in time order, through fire(id).
  void runUntil(ManualClock& clock, std::int64_t targetMs, const std::function<void(int)>& fire);

 private:
  struct Timer {
    std::string name;
    int intervalMs = 0;
    bool enabled = false;
    std::int64_t dueMs = 0;
    std::uint64_t generation = 0;
  };
  void arm(Timer& t);
  void changed(int id) {
    if (listener_) listener_(id);
  }

  const Clock& clock_;
  std::vector<Timer> timers_;
  std::function<void(int)> listener_;
};

}  // namespace zel::control
