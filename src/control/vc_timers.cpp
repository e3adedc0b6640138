#include "control/vc_timers.h"

namespace zel::control {

void addVcTimers(TimerBank& bank, Family family) {
  const bool sds = family == Family::Sds;
  bank.add("Timer1", sds ? 100 : 50);
  bank.add("Timer10", sds ? 50 : 10);
  bank.add("Timer2", 2000);
  bank.add("Timer3", 500, true);
  bank.add("Timer9", 500);
  bank.add("Timer4", 250);
  bank.add("Timer8", 500);
  bank.add("Timer16", 1000);
  bank.add("busydelay", 250);
  bank.add("delaylog", 5000);
  bank.add("dokeytimer", 250);
}

}  // namespace zel::control
