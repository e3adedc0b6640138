#include "control/timer_bank.h"

#include <algorithm>

namespace zel::control {

int TimerBank::add(std::string name, int intervalMs, bool enabled) {
  Timer t;
  t.name = std::move(name);
  t.intervalMs = std::max(1, intervalMs);
  timers_.push_back(std::move(t));
  int id = size() - 1;
  if (enabled) enable(id);
  return id;
}

void TimerBank::arm(Timer& t) {
  t.dueMs = clock_.monotonicMs() + t.intervalMs;
  ++t.generation;
}

void TimerBank::enable(int id) {
  Timer& t = timers_[id];
  if (t.enabled) return;
  t.enabled = true;
  arm(t);
  changed(id);
}

void TimerBank::disable(int id) {
  Timer& t = timers_[id];
  if (!t.enabled) return;
  t.enabled = false;
  changed(id);
}

void TimerBank::setInterval(int id, int intervalMs) {
  Timer& t = timers_[id];
  intervalMs = std::max(1, intervalMs);
  if (t.intervalMs == intervalMs) return;
  t.intervalMs = intervalMs;
  if (t.enabled) arm(t);
  changed(id);
}

int TimerBank::find(std::string_view name) const {
  for (int i = 0; i < size(); ++i) {
    if (timers_[i].name == name) return i;
  }
  return -1;
}

int TimerBank::nextDue(std::int64_t nowMs) const {
  int best = -1;
  for (int i = 0; i < size(); ++i) {
    const Timer& t = timers_[i];
    if (!t.enabled || t.dueMs > nowMs) continue;
    if (best < 0 || t.dueMs < timers_[best].dueMs) best = i;
  }
  return best;
}

void TimerBank::markFired(int id) {
  Timer& t = timers_[id];
  // Periodic from the planned time, but never in the past: a late host does not get a
  // burst of catch-up ticks.
  t.dueMs = std::max(t.dueMs + t.intervalMs, clock_.monotonicMs() + 1);
}

void TimerBank::runUntil(ManualClock& clock, std::int64_t targetMs,
                         const std::function<void(int)>& fire) {
  for (;;) {
    int id = nextDue(targetMs);
    if (id < 0) break;
    if (timers_[id].dueMs > clock.ms) clock.ms = timers_[id].dueMs;
    markFired(id);
    fire(id);
  }
  if (clock.ms < targetMs) clock.ms = targetMs;
}

}  // namespace zel::control
