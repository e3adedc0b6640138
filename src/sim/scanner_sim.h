// The simulated scanner: a scripted scan of a favorites list that answers the scanner's
// serial protocol. It keeps its own model of the protocol (it never uses the desktop's
// decoder), so that each side checks the other.
//
//   in:  <COMMAND>[,<arg>...]<CR>          STS, GLG, GSI, KEY,L,P, JPM,SCN_MODE, ...
//   out: <COMMAND>,<fields...><CR>         GSI and AST carry XML with CRs of their own
//
// Time is given by the caller (advance), so that tests can drive the scan step by step.
// Everything random comes from one generator seeded at start.
#pragma once

#include <cstdint>
#include <random>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "sim/scanner_sim_list.h"
#include "sim/scanner_sim_scope.h"

namespace zel::sim {

// "BCD436HP", "BCD536HP", "UBCD3600XLT", "SDS100", "SDS200".
const std::vector<std::string>& simScannerModels();
bool isSdsModel(std::string_view model);

struct ScannerSimOptions {
  std::string model = "BCD536HP";
  std::uint32_t seed = 1;
  SimScanList list = builtInScanList();
  // How often a channel that the scan reaches carries a transmission (0 to 1).
  double activity = 0.15;
  // Steps a second of the custom search stream.
  int searchStepsPerSecond = 400;
};

enum class SimMode { Scan, CloseCall, CustomSearch, Weather, ToneOut, Waterfall, SiteReport };

class ScannerSim {
 public:
  explicit ScannerSim(ScannerSimOptions options);

  // Moves the scripted scan on to nowMs (milliseconds on any steady clock).
  void advance(std::int64_t nowMs);
  // The reply to one command given without its CR; "" when the scanner says nothing
  // (an empty line). Every reply ends in CR.
  std::string answer(std::string_view command);
  // What the scanner sends unasked since the last call: the custom search stream (SimScope)
  // and the site activity reports.
  std::string unsolicited();

  // --- What the simulated scanner is doing (for tests and the --verbose log) ----------
  const std::string& model() const { return options_.model; }
  bool sds() const { return sds_; }
  SimMode mode() const { return mode_; }
  bool receiving() const { return phase_ == Phase::Receiving; }
  int channelIndex() const { return current_; }
  const SimChannel& channel() const;
  bool avoided(int index) const { return avoided_.count(index) > 0; }
  bool channelHold() const { return holdChannel_; }
  bool menuOpen() const { return menuOpen_; }
  int volume() const { return volume_; }
  int squelch() const { return squelch_; }
  int transmissions() const { return transmissions_; }
  const std::string& currentUid() const { return uid_; }
  bool closeCallPending() const { return mode_ == SimMode::CloseCall && !ccAccepted_; }
  std::int64_t now() const { return now_; }
  const SimScope& scope() const { return scope_; }

  // --- Replies, built from the current state ----------------------------------------
  std::string statusReply() const;   // STS
  std::string channelReply() const;  // GLG
  std::string infoReply() const;     // GSI
  std::string groupReply() const;    // GID
  std::string powerReply() const;    // PWR
  std::string windowReply() const;   // WIN
  std::string siteReport();          // one AST report

 private:
  enum class Phase { Scanning, Receiving, Hangtime };

  std::string handleKey(std::string_view code);
  std::string handleJump(std::string_view mode, std::string_view arg);
  void step(int direction);
  bool allowed(int index) const;
  void startTransmission(std::int64_t at);
  void endTransmission(std::int64_t at);
  void scheduleNextCloseCall(std::int64_t from);
  void runUntil(std::int64_t t);
  int rssi() const;
  std::string bcdScreen() const;
  std::string sdsScreen() const;
  std::string menuScreen() const;

  ScannerSimOptions options_;
  bool sds_;
  std::mt19937 rng_;
  std::int64_t now_ = 0;
  bool started_ = false;

  SimMode mode_ = SimMode::Scan;
  Phase phase_ = Phase::Scanning;
  int current_ = 0;
  std::int64_t phaseEnds_ = 0;
  std::set<int> avoided_;
  bool holdChannel_ = false, holdDepartment_ = false, holdSystem_ = false;
  int volume_ = 4;
  int squelch_ = 4;
  std::string uid_;
  int signal_ = 0;  // 0 to 4 bars while receiving
  int transmissions_ = 0;
  bool functionKey_ = false;

  SimChannel quickHold_;
  bool quickHoldOn_ = false;

  // Close Call: a hit on a frequency that is on no list.
  std::int64_t nextCloseCall_ = 0;
  std::int64_t closeCallEnds_ = 0;
  long long closeCallHz_ = 0;
  bool ccAccepted_ = false;

  // Fire tone-out pages.
  std::int64_t nextToneOut_ = 0;
  std::int64_t toneOutEnds_ = 0;
  std::string toneA_, toneB_;

  // Menus.
  bool menuOpen_ = false;
  int menuItem_ = 0;

  // Custom search ranges and their stream; site reports.
  SimScope scope_;
  std::int64_t nextReport_ = 0;
  int siteIndex_ = 0;
  std::string pending_;
};

}  // namespace zel::sim
