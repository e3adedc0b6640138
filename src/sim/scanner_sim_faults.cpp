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

std::string FaultInjector::applyToLines(const std::string& lines) {
  if (faults_.garbage <= 0 && faults_.cut <= 0) return lines;
  std::string out;
  std::size_t start = 0;
  while (start < lines.size()) {
    std::size_t end = lines.find('\r', start);
    end = end == std::string::npos ? lines.size() : end + 1;
    out += apply(lines.substr(start, end - start));
    start = end;
  }
  return out;
}

}  // namespace zel::sim
