// The custom search stream: "CSC,<rssi>,<frequency>,<sql>" lines read in bursts at the timer
// rate, each filed by bin into the traces and, with the squelch open, counted as a hit.
//
//   CSC,37,01462000,1     -> bin (1462000 - lowFreq) / stepTenths, rssi 37, squelch open
//
// A frequency below the highest one of the run and above the low edge ends a sweep.
#include <algorithm>
#include <cmath>

#include "core/text.h"
#include "scope/sweep_engine.h"

namespace zel::scope {

namespace {

constexpr std::size_t kMaxLinesPerTick = 1000;
constexpr std::size_t kListKeep = 1000;  // List1 and List2 keep their newest rows

template <typename T>
void keepNewest(std::vector<T>& list) {
  if (list.size() > 2 * kListKeep) {
    list.erase(list.begin(), list.end() - static_cast<std::ptrdiff_t>(kListKeep));
  }
}

}  // namespace

void SweepEngine::onTimer1() {
  std::string input = ports_.port.readAll();
  std::replace(input.begin(), input.end(), '\r', ';');
  std::size_t taken = 0;
  std::string_view rest(input);
  while (taken < kMaxLinesPerTick && (sweepLimit <= 0 || sweepCount < sweepLimit)) {
    const std::size_t end = rest.find(';');
    readLine(rest.substr(0, end));
    ++taken;
    if (end == std::string_view::npos) break;
    rest.remove_prefix(end + 1);
  }
  keepNewest(streamLines);
  keepNewest(openLines);
  if (onDraw) onDraw(false);
}

void SweepEngine::readLine(std::string_view line) {
  if (!startsWith(line, "CSC,")) return;
  std::string_view fields[4];
  std::size_t count = 0;
  std::size_t from = 0;
  while (true) {
    const std::size_t comma = line.find(',', from);
    if (count == 4) return;  // a fifth field
    fields[count++] = line.substr(from, comma == std::string_view::npos ? comma : comma - from);
    if (comma == std::string_view::npos) break;
    from = comma + 1;
  }
  if (count != 4) return;
  state_ = SweepState::Streaming;
  const std::string_view freqField = fields[2];
  const long long freq = leadingInteger(freqField);
  std::string_view sql = fields[3];
  const int rssi =
      static_cast<int>(std::clamp(std::trunc(leadingNumber(fields[1])), -1.0e6, 1.0e6));

  if (freq > highestSeen_) {
    highestSeen_ = static_cast<std::int32_t>(std::min<long long>(freq, INT32_MAX));
    label3 = std::to_string(highestSeen_);
  } else if (freq < highestSeen_ && freq > lowFreq) {
    endSweep();
    highestSeen_ = static_cast<std::int32_t>(freq);
    label3 = std::to_string(highestSeen_);
  }
  firstLine_ = false;
  const std::string freqText = frequencyText(freqField);
  if (showLiveFrequency) label9 = freqText;

  streamLines.push_back(std::string(line) + " / " + std::string(sql));
  if (sql == "1") {
    openLines.push_back(freqText + "," + std::string(fields[1]) + "," + ports_.clock.timeOfDay() +
                        "," + ports_.clock.date());
  }

  long long bin = stepTenths > 0 ? (freq - lowFreq) / stepTenths : 0;
  if (bin < 2) bin = 2;
  const bool valid = bin < static_cast<long long>(binCount());
  if (valid) {
    const auto b = static_cast<std::size_t>(bin);
    cursorBin = static_cast<int>(bin);
    auto& rows = traces.rows;
    if (sql == "1") {
      rows[0][b] = rssi * (request_.amplifyIndex * 0.5 + 1.0);
      rows[2][b] = rows[0][b];
    } else {
      rows[2][b] = rssi / (request_.noiseFilterIndex + 1.0);
    }
    if (rows[1][b] > rows[0][b]) rows[1][b] = rows[0][b];  // lowest held
    if (rows[3][b] == 0 || (rows[0][b] > 0 && rows[0][b] > rows[3][b])) rows[3][b] = rows[0][b];
  }
  // The log threshold opens the squelch for the hit count of a level at or above it.
  if (request_.forceSql && rssi >= request_.forceSqlLevel) sql = "1";
  if (valid && sql == "1" && rssi > 0) {
    countHit(static_cast<int>(bin), rssi, static_cast<std::int32_t>(freq), freqText);
  }
  lastFrequency = freqText;
  lastLevel = std::string(fields[1]);
}

}  // namespace zel::scope
