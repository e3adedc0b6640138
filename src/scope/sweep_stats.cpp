// Hit counting and the statistics list: counts by bin, by hour of the day and by weekday,
// one list row a bin (key "A" + bin), percentages of the finished sweeps.
//
//   Frequency: | Hits: | Occupancy (%): | Occ. (%) this hour: | Occ. (%) this day: |
//   Low: | High: | Last Hit Date: | Last Hit Time:
#include <algorithm>
#include <chrono>

#include "core/text.h"
#include "scope/sweep_engine.h"

namespace zel::scope {

namespace {

constexpr std::int32_t kMaxSweepCount = 9999999;

// Hits per finished sweep in percent, truncated; 0 before the first sweep ended.
int percentOf(long long hits, std::int32_t sweeps) {
  if (sweeps <= 0) return 0;
  return static_cast<int>(hits * 100 / sweeps);
}

}  // namespace

int SweepEngine::hourIndex(std::string_view timeOfDay) {
  if (timeOfDay.size() < 2 || !isPlainNumber(timeOfDay.substr(0, 2))) return 0;
  return static_cast<int>(std::clamp(leadingInteger(timeOfDay.substr(0, 2)), 0LL, 24LL));
}

int SweepEngine::dayIndex(std::string_view date) {
  auto parts = splitView(date, '-');
  if (parts.size() != 3) return 0;
  for (auto p : parts) {
    if (p.empty() || p.size() > 4 || !isPlainNumber(p) || p[0] == '-' || p[0] == '+') return 0;
  }
  const std::chrono::year_month_day ymd{
      std::chrono::year(static_cast<int>(leadingInteger(parts[0]))),
      std::chrono::month(static_cast<unsigned>(leadingInteger(parts[1]))),
      std::chrono::day(static_cast<unsigned>(leadingInteger(parts[2])))};
  if (!ymd.ok()) return 0;
  return static_cast<int>(std::chrono::weekday(std::chrono::sys_days(ymd)).c_encoding()) + 1;
}

void SweepEngine::countHit(int bin, int rssi, std::int32_t frequency, std::string freqText) {
  auto& counts = bins_[static_cast<std::size_t>(bin)];
  const std::string date = ports_.clock.date();
  const std::string time = ports_.clock.timeOfDay();
  const int hour = hourIndex(time);
  const int day = dayIndex(date);
  ++totalHits;
  ++counts.hits;
  ++counts.hours[static_cast<std::size_t>(hour)];
  ++counts.days[static_cast<std::size_t>(day)];
  counts.freqText = std::move(freqText);
  counts.maxSignal = std::max(counts.maxSignal, rssi);

  if (counts.row < 0) {
    ++distinctFrequencies;
    counts.row = static_cast<int>(stats.size());
    StatRow row;
    row.key = "A";
    row.key += std::to_string(bin);
    row.low = rssi;
    stats.push_back(std::move(row));
  }
  StatRow& row = stats[static_cast<std::size_t>(counts.row)];
  row.frequency = counts.freqText;
  row.hits = counts.hits;
  row.low = std::min(row.low, rssi);
  row.high = counts.maxSignal;
  row.lastDate = date;
  row.lastTime = time;
  row.bold = true;
  if (onHit) onHit(bin, rssi, frequency);
}

void SweepEngine::updatePercentages() {
  const int hour = hourIndex(ports_.clock.timeOfDay());
  const int day = dayIndex(ports_.clock.date());
  for (const auto& counts : bins_) {
    if (counts.row < 0) continue;
    StatRow& row = stats[static_cast<std::size_t>(counts.row)];
    row.occupancy = percentOf(counts.hits, sweepCount);
    row.occupancyHour = percentOf(counts.hours[static_cast<std::size_t>(hour)], sweepCount);
    row.occupancyDay = percentOf(counts.days[static_cast<std::size_t>(day)], sweepCount);
  }
}

// The percentages are of the finished sweeps, the one ending now included, so that a bin
// hit in every sweep stands at 100. Hits of the sweep that is running show at its end.
void SweepEngine::endSweep() {
  if (onDraw) onDraw(true);
  if (sweepCount < kMaxSweepCount) ++sweepCount;
  updatePercentages();
  for (auto& row : stats) row.bold = false;
  showCounters();
}

}  // namespace zel::scope
