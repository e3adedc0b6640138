#include "sim/scanner_sim_faults.h"

namespace zel::sim {

bool FaultInjector::silent(std::int64_t elapsedMs) const {
  if (faults_.silentAfter < 0) return false;
  const double s = elapsedMs / 1000.0;
  return s >= faults_.silentAfter && s < faults_.silentAfter + faults_.silentFor;
}

std::string FaultInjector::apply(std::string reply) {
  std::uniform_real_distribution<double> chance(0.0, 1.0);
  if (faults_.garbage > 0 && chance(rng_) < faults_.garbage) {
    ++garbled_;
    // Random bytes of every kind, high bytes and stray CRs and commas included.
    std::uniform_int_distribution<int> length(1, 120), byte(0, 255);
    std::string junk(static_cast<std::size_t>(length(rng_)), '\0');
    for (char& c : junk) c = static_cast<char>(byte(rng_));
    if (chance(rng_) < 0.5) junk += '\r';
    return junk;
  }
  if (faults_.cut > 0 && reply.size() > 1 && chance(rng_) < faults_.cut) {
    ++cut_;
    return reply.substr(0, reply.size() / 2);
  }
  return reply;
}

}  // namespace zel::sim
