#include "sim/scanner_sim_scope.h"

#include <algorithm>
#include <cstdlib>

#include "core/text.h"

namespace zel::sim {

namespace {

constexpr std::int64_t kMaxBurst = 4000;       // lines; what a stalled reader misses is lost
constexpr long long kLowestUnits = 250000;     // 25 MHz
constexpr long long kHighestUnits = 13000000;  // 1300 MHz

bool validStepCode(long long code) {
  static const long long kCodes[] = {500, 625, 750, 833, 1000, 1250, 1500, 2000, 2500, 5000, 10000};
  return std::find(std::begin(kCodes), std::end(kCodes), code) != std::end(kCodes);
}

bool validModulation(std::string_view mod) {
  return mod == "AUTO" || mod == "AM" || mod == "FM" || mod == "NFM" || mod == "WFM";
}

SimSearchRange defaultRange(int slot) {
  struct Default {
    const char* name;
    long long low, high;
    int code;
    const char* mod;
  };
  static const Default kDefaults[SimScope::kSlots] = {
      {"2m Amateur", 1440000, 1480000, 1250, "NFM"},  {"VHF High", 1480000, 1740000, 1250, "NFM"},
      {"VHF Low", 250000, 540000, 500, "AUTO"},       {"Air", 1080000, 1369916, 833, "AM"},
      {"Military Air", 2250000, 3800000, 2500, "AM"}, {"UHF", 4060000, 4700000, 1250, "NFM"},
      {"T-Band", 4700000, 5120000, 1250, "NFM"},      {"700 MHz", 7640000, 7760000, 1250, "AUTO"},
      {"800 MHz", 8510000, 8690000, 1250, "AUTO"},    {"900 MHz", 8960000, 9400000, 1250, "AUTO"},
  };
  const Default& d = kDefaults[slot];
  SimSearchRange r;
  r.name = d.name;
  r.low = d.low;
  r.high = d.high;
  r.stepCode = d.code;
  r.modulation = d.mod;
  return r;
}

}  // namespace

const std::vector<long long>& simWellKnownCarriers() {
  // Air guard, 2 m simplex and two repeaters, a fire dispatch, NOAA weather, a UHF business
  // channel, GMRS, an 800 MHz trunk control channel and a 900 MHz one.
  static const std::vector<long long> carriers{1215000, 1465200, 1469400, 1473300, 1544300,
                                               1625500, 4601250, 4625625, 8510125, 9350125};
  return carriers;
}

SimScope::SimScope(std::uint32_t seed, int stepsPerSecond)
    : rng_(seed ^ 0x3c6ef372u), rate_(std::max(1, stepsPerSecond)) {
  for (int slot = 0; slot < kSlots; ++slot) ranges_[slot] = defaultRange(slot);
  rebuildPlan();
}

std::optional<std::string> SimScope::answer(std::string_view command, std::int64_t now, bool sds) {
  auto parts = splitView(command, ',');
  std::string_view word = parts[0];
  if (word == "PRG" && parts.size() == 1) {
    program_ = true;
    streaming_ = false;  // the search stops while the scanner is being programmed
    return "PRG,OK\r";
  }
  if (word == "EPG" && parts.size() == 1) {
    if (program_) rebuildPlan();
    program_ = false;
    return "EPG,OK\r";
  }
  if (word == "CSP") return program_ ? handleCsp(parts) : "CSP,NG\r";
  if (word == "CSG") return program_ ? handleCsg(parts) : "CSG,NG\r";
  if (word == "CSC") return handleCsc(parts.size() == 2 ? parts[1] : std::string_view(), now);
  if (word == "GWF" && sds) return waterfall(now);
  return std::nullopt;
}

std::string SimScope::handleCsp(const std::vector<std::string_view>& parts) {
  if (parts.size() < 2 || !isPlainNumber(parts[1])) return "CSP,NG\r";
  const long long slot = leadingInteger(parts[1]);
  if (slot < 0 || slot >= kSlots) return "CSP,NG\r";
  SimSearchRange& stored = ranges_[slot];
  if (parts.size() == 2) {
    return "CSP," + std::to_string(slot) + "," + stored.name + "," + padNumber(stored.low, 8) +
           "," + padNumber(stored.high, 8) + "," + std::to_string(stored.stepCode) + "," +
           stored.modulation + "," + (stored.attenuator ? "1" : "0") + "," + stored.tail + "\r";
  }
  if (parts.size() < 8) return "CSP,NG\r";
  for (int i : {3, 4, 5})
    if (!isPlainNumber(parts[i])) return "CSP,NG\r";
  SimSearchRange r;
  r.name = std::string(parts[2]);
  r.low = leadingInteger(parts[3]);
  r.high = leadingInteger(parts[4]);
  r.stepCode = static_cast<int>(leadingInteger(parts[5]));
  r.modulation = std::string(parts[6]);
  if (r.low < kLowestUnits || r.high > kHighestUnits || r.high <= r.low) return "CSP,NG\r";
  if (!validStepCode(r.stepCode) || (r.high - r.low) * 10 < r.stepCode) return "CSP,NG\r";
  if (!validModulation(r.modulation) || (parts[7] != "0" && parts[7] != "1")) return "CSP,NG\r";
  r.attenuator = parts[7] == "1";
  r.tail.clear();
  for (std::size_t i = 8; i < parts.size(); ++i) {
    if (i > 8) r.tail += ',';
    r.tail += parts[i];
  }
  stored = std::move(r);
  return "CSP,OK\r";
}

std::string SimScope::handleCsg(const std::vector<std::string_view>& parts) {
  if (parts.size() == 1) return "CSG," + flags_ + "\r";
  if (parts.size() != 2 || parts[1].size() != kSlots ||
      parts[1].find_first_not_of("01") != std::string_view::npos)
    return "CSG,NG\r";
  flags_ = std::string(parts[1]);
  return "CSG,OK\r";
}

std::string SimScope::handleCsc(std::string_view arg, std::int64_t now) {
  if (arg == "OFF") {
    streaming_ = false;
    return "CSC,OK\r";
  }
  if (arg != "ON" || program_) return "CSC,NG\r";
  streaming_ = true;
  streamStart_ = now;
  linesSent_ = 0;
  segment_ = 0;
  at10_ = plan_.empty() ? 0 : plan_[0].low10;
  return "CSC,OK\r";
}

void SimScope::rebuildPlan() {
  plan_.clear();
  busy_.clear();
  std::uniform_int_distribution<int> peak(480, 880);
  for (int slot = 0; slot < kSlots; ++slot) {
    const SimSearchRange& r = ranges_[slot];
    if (flags_[slot] != '0' || r.high <= r.low) continue;
    const Segment s{r.low * 10, r.high * 10, r.stepCode};
    plan_.push_back(s);
    std::vector<long long> here;
    for (long long c : simWellKnownCarriers())
      if (c >= r.low && c <= r.high) here.push_back(c);
    // A range that holds fewer than three known channels gets some at a quarter, half and
    // three quarters of its width, each on the step grid.
    for (int quarter = 1; quarter <= 3 && here.size() < 3; ++quarter) {
      const long long steps = (s.high10 - s.low10) * quarter / 4 / s.step10;
      const long long c = (s.low10 + steps * s.step10) / 10;
      const bool crowded = std::any_of(here.begin(), here.end(), [&](long long other) {
        return std::llabs(other - c) * 10 < 2 * s.step10;
      });
      if (!crowded) here.push_back(c);
    }
    std::sort(here.begin(), here.end());
    for (long long c : here) busy_.push_back(SimBusyChannel{c, peak(rng_), false, -1});
  }
  segment_ = 0;
  at10_ = plan_.empty() ? 0 : plan_[0].low10;
}

std::int64_t SimScope::duration(bool on) {
  std::uniform_int_distribution<int> keyed(1500, 5000), quiet(1000, 6000);
  return on ? keyed(rng_) : quiet(rng_);
}

int SimScope::noise() {
  std::uniform_int_distribution<int> floor(3, 30);
  return floor(rng_);
}

void SimScope::updateCarriers(std::int64_t t) {
  std::uniform_int_distribution<int> coin(0, 1);
  for (SimBusyChannel& b : busy_) {
    if (b.toggleAt < 0) {
      b.on = coin(rng_) == 1;
      b.toggleAt = t + duration(b.on);
    }
    while (b.toggleAt <= t) {
      b.on = !b.on;
      b.toggleAt += duration(b.on);
    }
  }
}

std::pair<int, bool> SimScope::levelAt(long long f10, long long step10) {
  std::uniform_int_distribution<int> jitter(-25, 25);
  int level = noise();
  bool sql = false;
  for (const SimBusyChannel& b : busy_) {
    if (!b.on) continue;
    const long long d = std::llabs(f10 - b.units * 10);
    if (2 * d <= step10) {
      level = std::max(level, b.peak + jitter(rng_));
      sql = true;
    } else if (2 * d <= 3 * step10) {
      level = std::max(level, b.peak / 5);  // the next step over hears its edge
    }
  }
  return {std::clamp(level, 0, 1023), sql};
}

std::string SimScope::line(std::int64_t t) {
  updateCarriers(t);
  const Segment& s = plan_[segment_];
  auto [level, sql] = levelAt(at10_, s.step10);
  std::string out = "CSC," + std::to_string(level) + "," + padNumber(at10_ / 10, 8) + "," +
                    (sql ? "1" : "0") + "\r";
  at10_ += s.step10;
  if (at10_ > s.high10) {
    segment_ = (segment_ + 1) % plan_.size();
    at10_ = plan_[segment_].low10;
  }
  return out;
}

std::string SimScope::stream(std::int64_t until) {
  std::string out;
  if (!streaming_ || plan_.empty() || until <= streamStart_) return out;
  const std::int64_t due = (until - streamStart_) * rate_ / 1000;
  linesSent_ = std::max(linesSent_, due - kMaxBurst);
  for (; linesSent_ < due; ++linesSent_) out += line(streamStart_ + linesSent_ * 1000 / rate_);
  return out;
}

std::string SimScope::waterfall(std::int64_t now) {
  updateCarriers(now);
  Segment band{ranges_[0].low * 10, ranges_[0].high * 10, ranges_[0].stepCode};
  if (!plan_.empty()) band = plan_[0];
  const long long span10 = std::max(1LL, band.high10 - band.low10);
  std::vector<int> levels(kWaterfallBins);
  for (int& level : levels) level = noise();
  std::uniform_int_distribution<int> jitter(-25, 25);
  for (const SimBusyChannel& b : busy_) {
    const long long c10 = b.units * 10;
    if (!b.on || c10 < band.low10 || c10 > band.high10) continue;
    const int bin = static_cast<int>(
        std::min<long long>(kWaterfallBins - 1, (c10 - band.low10) * kWaterfallBins / span10));
    levels[bin] = std::max(levels[bin], b.peak + jitter(rng_));
    for (int side : {bin - 1, bin + 1})
      if (side >= 0 && side < kWaterfallBins) levels[side] = std::max(levels[side], b.peak / 4);
  }
  std::string out = "GWF";
  for (int level : levels) {
    out += ',';
    out += std::to_string(std::clamp(level, 0, 1023));
  }
  return out + "\r";
}

}  // namespace zel::sim
