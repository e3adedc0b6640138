// Faults that the simulated scanner can be told to show, for tests of the link's error
// paths: a stretch of silence (the scanner reads but answers nothing), replies replaced by
// garbage bytes, and replies cut in half (the rest never comes).
#pragma once

#include <cstdint>
#include <random>
#include <string>

namespace zel::sim {

struct SimFaults {
  double silentAfter = -1;  // seconds after the start; below 0: never silent
  double silentFor = 0;     // seconds
  double garbage = 0;       // share of replies replaced by garbage, 0 to 1
  double cut = 0;           // share of replies cut in half, 0 to 1
};

class FaultInjector {
 public:
  FaultInjector(SimFaults faults, std::uint32_t seed) : faults_(faults), rng_(seed ^ 0x5bd1e995u) {}
  // True while the scanner is to stay silent (elapsed: ms since the start).
  bool silent(std::int64_t elapsedMs) const;
  // The reply as it goes out: unchanged, garbage, or its first half.
  std::string apply(std::string reply);
  // Unasked output (the search stream) as it goes out: each CR-ended line on its own
  // unchanged, garbage or cut, so that a cut line runs into the next one as on the wire.
  std::string applyToLines(const std::string& lines);
  int garbled() const { return garbled_; }
  int cutShort() const { return cut_; }

 private:
  SimFaults faults_;
  std::mt19937 rng_;
  int garbled_ = 0;
  int cut_ = 0;
};

}  // namespace zel::sim
