// What the grid routines need of the outside: the status list for the "no_invoer" lines
// (a routine handed no grid logs its phrase and the time of day, and does nothing) and the
// message box for the few fixed texts they show. Both are optional: an empty GridEnv keeps
// the routines silent.
#pragma once

#include <string>
#include <string_view>

#include "core/ports.h"

namespace zel {

struct GridEnv {
  Feedback* feedback = nullptr;
  const Clock* clock = nullptr;

  // Logs "<phrase> <time of day>", e.g. "func g_get_colnum no_invoer 12:00:00".
  void noInput(std::string_view phrase) const {
    if (!feedback) return;
    std::string line(phrase);
    if (clock) {
      line += ' ';
      line += clock->timeOfDay();
    }
    feedback->log(line);
  }
  void message(std::string_view text) const {
    if (feedback) feedback->message(text);
  }
};

}  // namespace zel
