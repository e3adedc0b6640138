#include "control/event_pump.h"

#include <algorithm>

#include "core/text.h"

namespace zel::control {

int secondsOfDay(std::string_view t) {
  auto parts = splitView(t, ':');
  if (parts.size() != 3) return -1;
  for (auto p : parts) {
    if (p.empty() || !isPlainNumber(p)) return -1;
  }
  return static_cast<int>(leadingInteger(parts[0]) * 3600 + leadingInteger(parts[1]) * 60 +
                          leadingInteger(parts[2]));
}

void Wait(EventPump& pump, const Clock& clock, double seconds) {
  if (seconds <= 0) return;
  seconds = std::min(seconds, 20.0);
  if (secondsOfDay(clock.timeOfDay()) > 86394) return;
  pump.runFor(static_cast<int>(seconds * 1000 + 0.5));
}

}  // namespace zel::control
