#include "sim/scanner_sim.h"

#include <algorithm>

#include "core/text.h"

namespace zel::sim {

namespace {
constexpr std::int64_t kDwellMs = 100;       // time on a quiet channel while scanning
constexpr std::int64_t kHangMs = 2000;       // the delay on a channel after a transmission
constexpr std::int64_t kCloseCallMs = 3000;  // how long a Close Call hit stays on screen
constexpr std::int64_t kToneOutMs = 2000;

SimChannel weatherChannel() {
  SimChannel c;
  c.system = "Weather";
  c.department = "NOAA";
  c.name = "WX 162.550";
  c.hz = 162550000;
  c.modulation = "FM";
  c.serviceType = "Weather";
  c.systemType = "Conventional";
  return c;
}
}  // namespace

const std::vector<std::string>& simScannerModels() {
  static const std::vector<std::string> models{"BCD436HP", "BCD536HP", "UBCD3600XLT", "SDS100",
                                               "SDS200"};
  return models;
}

bool isSdsModel(std::string_view model) {
  return model.find("SDS") != std::string_view::npos;
}

ScannerSim::ScannerSim(ScannerSimOptions options)
    : options_(std::move(options)),
      sds_(isSdsModel(options_.model)),
      rng_(options_.seed),
      scope_(options_.seed, options_.searchStepsPerSecond) {
  if (options_.list.channels.empty()) options_.list = builtInScanList();
}

const SimChannel& ScannerSim::channel() const {
  static const SimChannel weather = weatherChannel();
  if (mode_ == SimMode::Weather) return weather;
  if (quickHoldOn_) return quickHold_;
  return options_.list.channels[current_];
}

bool ScannerSim::allowed(int index) const {
  if (avoided_.count(index)) return false;
  const auto& list = options_.list.channels;
  const SimChannel& here = list[current_];
  const SimChannel& there = list[index];
  if (holdSystem_ && there.system != here.system) return false;
  if (holdDepartment_ && (there.system != here.system || there.department != here.department))
    return false;
  return true;
}

void ScannerSim::step(int direction) {
  const int n = static_cast<int>(options_.list.channels.size());
  for (int i = 1; i <= n; ++i) {
    int index = ((current_ + direction * i) % n + n) % n;
    if (allowed(index)) {
      current_ = index;
      return;
    }
  }
}

void ScannerSim::startTransmission(std::int64_t at) {
  std::uniform_int_distribution<int> length(1500, 4500);
  std::uniform_int_distribution<int> bars(1, 4);
  phase_ = Phase::Receiving;
  phaseEnds_ = at + length(rng_);
  signal_ = bars(rng_);
  uid_.clear();
  const SimChannel& c = channel();
  if (c.trunked && !c.units.empty()) {
    std::uniform_int_distribution<std::size_t> pick(0, c.units.size() - 1);
    uid_ = c.units[pick(rng_)].id;
  }
  ++transmissions_;
}

void ScannerSim::endTransmission(std::int64_t at) {
  phase_ = Phase::Hangtime;
  phaseEnds_ = at + kHangMs;
  signal_ = 0;
}

void ScannerSim::scheduleNextCloseCall(std::int64_t from) {
  std::uniform_int_distribution<int> gap(20000, 45000);
  nextCloseCall_ = from + gap(rng_);
}

void ScannerSim::advance(std::int64_t nowMs) {
  if (!started_) {
    started_ = true;
    now_ = nowMs;
    phaseEnds_ = nowMs + kDwellMs;
    scheduleNextCloseCall(nowMs);
    return;
  }
  if (nowMs > now_) runUntil(nowMs);
}

void ScannerSim::runUntil(std::int64_t t) {
  std::uniform_real_distribution<double> chance(0.0, 1.0);
  for (int guard = 0; guard < 100000; ++guard) {
    std::int64_t next = phaseEnds_;
    if (mode_ == SimMode::Scan) next = std::min(next, nextCloseCall_);
    if (mode_ == SimMode::CloseCall) next = std::min(next, closeCallEnds_);
    if (mode_ == SimMode::ToneOut)
      next = std::min(next, toneOutEnds_ ? toneOutEnds_ : nextToneOut_);
    if (next > t) break;
    now_ = next;
    if (mode_ == SimMode::Scan && next == nextCloseCall_ && phase_ == Phase::Scanning) {
      std::uniform_int_distribution<int> khz(0, 400);
      mode_ = SimMode::CloseCall;
      closeCallHz_ = 155000000 + khz(rng_) * 12500LL;
      closeCallEnds_ = next + kCloseCallMs;
      ccAccepted_ = false;
      continue;
    }
    if (mode_ == SimMode::Scan && next == nextCloseCall_) {
      nextCloseCall_ = phaseEnds_ + 1;  // not while a channel is busy: right after it
      continue;
    }
    if (mode_ == SimMode::CloseCall && next == closeCallEnds_) {
      mode_ = SimMode::Scan;
      scheduleNextCloseCall(next);
      phaseEnds_ = std::max(phaseEnds_, next + kDwellMs);
      continue;
    }
    if (mode_ == SimMode::ToneOut && next == (toneOutEnds_ ? toneOutEnds_ : nextToneOut_)) {
      if (toneOutEnds_) {
        toneOutEnds_ = 0;
        std::uniform_int_distribution<int> gap(6000, 12000);
        nextToneOut_ = next + gap(rng_);
      } else {
        std::uniform_int_distribution<int> a(3000, 15000), b(3000, 15000);
        toneA_ = formatFixed(a(rng_) / 10.0, 1);
        toneB_ = formatFixed(b(rng_) / 10.0, 1);
        toneOutEnds_ = next + kToneOutMs;
      }
      continue;
    }
    if (next != phaseEnds_) continue;
    switch (phase_) {
      case Phase::Scanning:
        if (mode_ == SimMode::Weather) {
          startTransmission(next);
          phaseEnds_ = next + 3600000;  // the weather broadcast does not stop
        } else if (mode_ == SimMode::Scan || mode_ == SimMode::ToneOut) {
          if (!holdChannel_ && !quickHoldOn_) step(+1);
          // A locked-out channel is never stopped on, even when no other one is left.
          const bool lockedOut = !quickHoldOn_ && avoided_.count(current_) > 0;
          if (!lockedOut && chance(rng_) < options_.activity) {
            startTransmission(next);
          } else {
            phaseEnds_ = next + kDwellMs;
          }
        } else {
          phaseEnds_ = next + kDwellMs;
        }
        break;
      case Phase::Receiving:
        endTransmission(next);
        break;
      case Phase::Hangtime:
        phase_ = Phase::Scanning;
        phaseEnds_ = next + kDwellMs;
        break;
    }
  }
  now_ = t;
}

std::string ScannerSim::handleKey(std::string_view code) {
  auto resume = [&] {
    if (phase_ != Phase::Scanning) {
      phase_ = Phase::Scanning;
      signal_ = 0;
      phaseEnds_ = now_ + kDwellMs;
    }
  };
  if (code == "M") {
    menuOpen_ = !menuOpen_;
    menuItem_ = 0;
  } else if (menuOpen_ && (code == ">" || code == "<")) {
    menuItem_ = std::clamp(menuItem_ + (code == ">" ? 1 : -1), 0, 9);
  } else if (code == "E") {
    if (mode_ == SimMode::CloseCall) {
      ccAccepted_ = true;
    } else if (menuOpen_) {
      menuOpen_ = false;
    }
  } else if (code == "L") {
    if (!quickHoldOn_ && mode_ == SimMode::Scan) {
      if (!avoided_.erase(current_)) {
        avoided_.insert(current_);
        step(+1);  // an avoided channel is left at once
      }
      holdChannel_ = false;
      resume();
    }
  } else if (code == "C") {
    holdChannel_ = !holdChannel_;
    if (!holdChannel_) {
      quickHoldOn_ = false;
      resume();
    }
  } else if (code == "B") {
    holdDepartment_ = !holdDepartment_;
  } else if (code == "A") {
    holdSystem_ = !holdSystem_;
  } else if (code == ">" || code == "<") {
    if (holdChannel_) {
      step(code == ">" ? 1 : -1);
      phase_ = Phase::Scanning;
      signal_ = 0;
      phaseEnds_ = now_ + kDwellMs;
    } else {
      resume();
    }
  } else if (code == "F") {
    functionKey_ = !functionKey_;
  }
  return "KEY,OK\r";
}

std::string ScannerSim::handleJump(std::string_view mode, std::string_view arg) {
  (void)arg;
  menuOpen_ = false;
  scope_.stop();
  quickHoldOn_ = false;
  if (mode == "SCN_MODE") {
    mode_ = SimMode::Scan;
    holdChannel_ = holdDepartment_ = holdSystem_ = false;
    phase_ = Phase::Scanning;
    signal_ = 0;
    phaseEnds_ = now_ + kDwellMs;
    scheduleNextCloseCall(now_);
  } else if (mode == "CTM_MODE") {
    mode_ = SimMode::CustomSearch;
  } else if (mode == "CC_MODE") {
    mode_ = SimMode::Scan;
    nextCloseCall_ = now_ + 3000;
  } else if (mode == "WX_MODE") {
    mode_ = SimMode::Weather;
    phase_ = Phase::Scanning;
    phaseEnds_ = now_;
  } else if (mode == "FTO_MODE") {
    mode_ = SimMode::ToneOut;
    toneOutEnds_ = 0;
    nextToneOut_ = now_ + 3000;
  } else if (mode == "WF_MODE") {
    mode_ = SimMode::Waterfall;
  } else {
    return "JPM,NG\r";
  }
  return "JPM,OK\r";
}

std::string ScannerSim::answer(std::string_view command) {
  command = trimView(command);
  if (command.empty()) return {};
  auto parts = splitView(command, ',');
  std::string_view word = parts[0];
  auto arg = [&](std::size_t i) { return i < parts.size() ? parts[i] : std::string_view(); };
  if (auto reply = scope_.answer(command, now_, sds_)) {
    if (scope_.streaming()) mode_ = SimMode::CustomSearch;
    return *reply;
  }

  if (parts.size() == 1) {
    if (word == "STS") return statusReply();
    if (word == "GLG") return channelReply();
    if (word == "GSI") return infoReply();
    if (word == "GID") return groupReply();
    if (word == "PWR") return powerReply();
    if (word == "WIN") return windowReply();
    if (word == "MDL") return "MDL," + options_.model + "\r";
    if (word == "VER") return sds_ ? "VER,Version 1.23.15\r" : "VER,Version 1.05.02\r";
    if (word == "VOL") return "VOL," + std::to_string(volume_) + "\r";
    if (word == "SQL") return "SQL," + std::to_string(squelch_) + "\r";
    if (word == "SVC") {
      std::string out = "SVC";
      for (int i = 1; i <= 37; ++i) out += (i % 9 == 5) ? ",0" : ",1";
      return out + "\r";
    }
    if (word == "FQK") {
      std::string out = "FQK";
      for (int i = 0; i < 100; ++i) out += i < 5 ? ",1" : ",0";
      return out + "\r";
    }
  }
  if (word == "KEY" && parts.size() >= 3) return handleKey(arg(1));
  if (word == "JPM" && parts.size() >= 2) return handleJump(arg(1), arg(2));
  if (word == "VOL" || word == "SQL") {
    int value = static_cast<int>(leadingInteger(arg(1)));
    if (!isPlainNumber(arg(1)) || value < 0 || value > 29)
      return word == "VOL" ? "VOL,NG\r" : "SQL,NG\r";
    (word == "VOL" ? volume_ : squelch_) = std::min(value, word == "VOL" ? 29 : 19);
    return std::string(word) + ",OK\r";
  }
  if (word == "QSH") {
    long long units = leadingInteger(arg(1));
    if (units <= 0) return "QSH,NG\r";
    quickHold_ = SimChannel{};
    quickHold_.system = "Quick Hold";
    quickHold_.department = "Quick Hold";
    quickHold_.name = formatFixed(units / 10000.0, 4);
    quickHold_.hz = units * 100;
    quickHold_.modulation = "AUTO";
    quickHold_.systemType = "Conventional";
    quickHoldOn_ = true;
    holdChannel_ = true;
    mode_ = SimMode::Scan;
    phase_ = Phase::Scanning;
    phaseEnds_ = now_ + kDwellMs;
    return "QSH,OK\r";
  }
  if (word == "MNU") {
    menuOpen_ = true;
    menuItem_ = 0;
    return "MNU,OK\r";
  }
  if (word == "AST") {
    mode_ = SimMode::SiteReport;
    siteIndex_ = static_cast<int>(leadingInteger(arg(2)));
    nextReport_ = now_;
    return "AST,OK\r";
  }
  return "ERR\r";
}

std::string ScannerSim::unsolicited() {
  std::string out;
  out.swap(pending_);
  out += scope_.stream(now_);
  if (mode_ == SimMode::SiteReport && now_ >= nextReport_) {
    out += siteReport();
    nextReport_ = now_ + 500;
  }
  return out;
}

}  // namespace zel::sim
