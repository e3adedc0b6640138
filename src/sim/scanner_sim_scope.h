// The custom search side of the simulated scanner, as the bandscope uses it: ten search
// ranges programmed in program mode, a flag per range that switches it on or off, the search
// data stream and the SDS waterfall frame.
//
//   PRG / EPG                          enter / leave program mode ("PRG,OK", "EPG,OK")
//   CSP,<slot>,<name>,<low>,<high>,<step code>,<mode>,<att>,<...>  one range (program mode)
//   CSP,<slot>                         reads a range back           (program mode)
//   CSG,<10 flags>  /  CSG             "0" = range on, "1" = off    (program mode)
//   CSC,ON / CSC,OFF                   the stream on or off (not in program mode)
//   stream:  CSC,<rssi 0..1023>,<frequency in 100 Hz, 8 digits>,<sql 0|1><CR>
//   GWF,1                              SDS only: GWF,<level>,... 250 levels over the band
//
// Frequencies are in 100 Hz units on the wire; the step code is in 10 Hz units ("1250" is
// 12.5 kHz), so the sweep is kept in 10 Hz units inside and 6.25 and 8.33 kHz steps add up
// without drift. The stream sweeps every enabled range low to high by its step, then the next
// enabled range, and wraps. A few busy channels in each range key up and drop over time.
#pragma once

#include <cstdint>
#include <optional>
#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace zel::sim {

struct SimSearchRange {
  std::string name;
  long long low = 0, high = 0;  // 100 Hz units
  int stepCode = 1250;          // 10 Hz units
  std::string modulation = "AUTO";
  bool attenuator = false;
  std::string tail = "2,1,400";  // the fields after the attenuator, kept as sent
};

// A carrier that keys up and drops; it shows at the sweep step nearest to it.
struct SimBusyChannel {
  long long units = 0;  // 100 Hz units
  int peak = 600;       // rssi while keyed up
  bool on = false;
  std::int64_t toggleAt = -1;  // -1: not started yet
};

// Realistic channels that become busy channels when a range holds them (100 Hz units).
const std::vector<long long>& simWellKnownCarriers();

class SimScope {
 public:
  static constexpr int kSlots = 10;
  static constexpr int kWaterfallBins = 250;

  SimScope(std::uint32_t seed, int stepsPerSecond);

  // The reply to PRG, EPG, CSP, CSG, CSC and GWF (GWF only when `sds`); nothing for the
  // commands that are not the search's.
  std::optional<std::string> answer(std::string_view command, std::int64_t now, bool sds);
  // The stream lines due up to `until` (ms); "" while the stream is off.
  std::string stream(std::int64_t until);
  // One waterfall frame of the first enabled range (slot 0's range when none is on).
  std::string waterfall(std::int64_t now);
  // The stream stops (the scanner leaves the search for another mode).
  void stop() { streaming_ = false; }

  bool programMode() const { return program_; }
  bool streaming() const { return streaming_; }
  const SimSearchRange& range(int slot) const { return ranges_[slot]; }
  const std::string& flags() const { return flags_; }
  int stepsPerSecond() const { return rate_; }
  // The busy channels of the enabled ranges, in sweep order.
  const std::vector<SimBusyChannel>& busyChannels() const { return busy_; }

 private:
  struct Segment {
    long long low10, high10, step10;  // 10 Hz units
  };

  std::string handleCsp(const std::vector<std::string_view>& parts);
  std::string handleCsg(const std::vector<std::string_view>& parts);
  std::string handleCsc(std::string_view arg, std::int64_t now);
  void rebuildPlan();
  void updateCarriers(std::int64_t t);
  std::int64_t duration(bool on);
  int noise();
  // rssi and sql at a swept frequency (10 Hz units) with the step of its range.
  std::pair<int, bool> levelAt(long long f10, long long step10);
  std::string line(std::int64_t t);

  std::mt19937 rng_;
  int rate_;
  bool program_ = false;
  bool streaming_ = false;
  SimSearchRange ranges_[kSlots];
  std::string flags_ = "0111111111";

  std::vector<Segment> plan_;
  std::vector<SimBusyChannel> busy_;
  std::size_t segment_ = 0;
  long long at10_ = 0;
  std::int64_t streamStart_ = 0;
  std::int64_t linesSent_ = 0;
};

}  // namespace zel::sim
