// The streams of the simulated scanner for the bandscope.
//
//   CSC,<rssi>,<frequency in 100 Hz, 8 digits>,<sql 0|1><CR>   custom search, one a step,
//        sent without asking while "CSC,ON" holds, low to high and round again
//   GWF,<level>,<level>,... (250 levels)<CR>                   one waterfall frame, asked
//        for with "GWF,1"
// A few fixed carriers stand out of the noise so that a sweep shows something.
#include <cmath>

#include "core/text.h"
#include "sim/scanner_sim.h"

namespace zel::sim {

namespace {
constexpr int kLinesPerSecond = 400;

// The level at a frequency (100 Hz units): noise plus carriers at fixed places.
int levelAt(long long units, std::mt19937& rng) {
  std::uniform_int_distribution<int> noise(0, 12);
  int level = noise(rng);
  for (long long carrier : {1445200LL, 1462000LL, 1468750LL, 1545000LL, 4601250LL}) {
    long long d = std::llabs(units - carrier);
    if (d < 300) level = std::max(level, static_cast<int>(90 - d / 5));
  }
  return level;
}
}  // namespace

std::string ScannerSim::streamLines(std::int64_t until) {
  std::string out;
  const std::int64_t due = (until - streamClock_) * kLinesPerSecond / 1000;
  if (due <= 0) return out;
  streamClock_ += due * 1000 / kLinesPerSecond;
  for (std::int64_t i = 0; i < due && i < 2000; ++i) {
    int level = levelAt(searchAt_, rng_);
    out += "CSC," + std::to_string(level) + "," + padNumber(searchAt_, 8) + "," +
           (level > 40 ? "1" : "0") + "\r";
    searchAt_ += searchStep_;
    if (searchAt_ > searchHigh_) searchAt_ = searchLow_;
  }
  return out;
}

std::string ScannerSim::waterfallReply() {
  std::string out = "GWF";
  const long long low = 1440000, span = 40000;
  for (int bin = 0; bin < 250; ++bin) {
    out += ',';
    out += std::to_string(levelAt(low + span * bin / 250, rng_));
  }
  return out + "\r";
}

}  // namespace zel::sim
