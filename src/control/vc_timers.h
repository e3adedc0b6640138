// The timers of a virtual control window, by name, with their intervals per family:
//
//   timer       BCD     SDS     role
//   Timer1       50   100/75/200  sends the next poll query
//   Timer10      10      50   drains the port and runs the reply parsers
//   Timer2     2000    2000   reply watchdog
//   Timer3      500     500   activity logger (on at load)
//   Timer9      500     500   one-shot restoring of the saved port
//   Timer4      250     250   one-shot re-connect
//   Timer8      500     500   raw capture of a site analysis run
//   Timer16    1000    1000   seconds of "Log And Resume After"
//   busydelay   250     250   hold-off before the busy mark goes
//   delaylog   5000    5000   forgets the last logged channel
//   dokeytimer    -     250   key repeat guard
#pragma once

#include "control/timer_bank.h"
#include "control/vc_state.h"

namespace zel::control {

enum VcTimer : int {
  Timer1 = 0,
  Timer10,
  Timer2,
  Timer3,
  Timer9,
  Timer4,
  Timer8,
  Timer16,
  busydelay,
  delaylog,
  dokeytimer,
  kVcTimerCount
};

// Adds the window's timers to an empty bank, so that ids equal the VcTimer values.
void addVcTimers(TimerBank& bank, Family family);

}  // namespace zel::control
