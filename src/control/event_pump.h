// The few places where the live windows pause: a short wait before a port is opened, the
// pause after the lone CR of a reset, the second between the two key presses of the SDS
// service key. The pause keeps the window's events running, so it is a port: the Qt host
// runs its event loop for the time, a test moves its clock on.
#pragma once

#include "core/ports.h"

namespace zel::control {

class EventPump {
 public:
  virtual ~EventPump() = default;
  // Keeps events running for about ms milliseconds.
  virtual void runFor(int ms) = 0;
  // Handles what is pending now and returns.
  virtual void runPending() = 0;
};

// Does nothing: for code paths that run without an event loop.
class NullEventPump : public EventPump {
 public:
  void runFor(int) override {}
  void runPending() override {}
};

// A busy wait that lets events run. Capped at 20 seconds; zero or less returns at once,
// and so does a wait started after 23:59:54, so that no wait ever spans midnight.
void Wait(EventPump& pump, const Clock& clock, double seconds);

// "HH:MM:SS" as seconds since midnight; -1 when the text is not a time.
int secondsOfDay(std::string_view timeOfDay);

}  // namespace zel::control
