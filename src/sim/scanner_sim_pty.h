// The simulated scanner on a pseudo-terminal: the desktop and `zel monitor` open the
// slave side as they would open a USB serial port; the simulator answers on the master.
// POSIX only (posix_openpt); the link code on the other side is the real one.
#pragma once

#include <atomic>
#include <cstdint>
#include <functional>
#include <ostream>
#include <string>

#include "sim/scanner_sim.h"
#include "sim/scanner_sim_faults.h"

namespace zel::sim {

class PtyScanner {
 public:
  PtyScanner(ScannerSimOptions options, SimFaults faults);
  ~PtyScanner();
  PtyScanner(const PtyScanner&) = delete;
  PtyScanner& operator=(const PtyScanner&) = delete;

  // Opens the pseudo-terminal; false with a message when the system has none to give.
  bool open(std::string& error);
  const std::string& devicePath() const { return path_; }

  // Answers commands until `stop` is set. `log`, when given, gets one line per command
  // and reply ("> STS", "< STS,..." shortened).
  void run(const std::atomic<bool>& stop, std::ostream* log = nullptr);

  ScannerSim& scanner() { return sim_; }
  int commandsAnswered() const { return answered_; }

 private:
  void handle(const std::string& command, std::int64_t elapsed, std::ostream* log);
  void send(const std::string& bytes);

  ScannerSim sim_;
  FaultInjector faults_;
  int master_ = -1;
  int slave_ = -1;  // kept open so that the master never sees a hang-up between clients
  std::string path_;
  std::string pending_;
  int answered_ = 0;
};

}  // namespace zel::sim
