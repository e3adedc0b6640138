// Turns poll replies into the scanner's displayed state. The parser is chosen by the
// pollStep of the link (see poll_order.h); each parser decides when its reply is
// complete:
//
//   STS, GID, GLG, WIN   complete when the last character is CR
//   GSI                  complete when the text holds "</ScannerInfo>"
//   SVC, PWR, VOL, SQL, MDL  taken as soon as anything arrived
//
// STS is a copy of the scanner's display, two fields per line (text, attribute):
//   STS,<format>,<line1>,<attr1>,<line2>,<attr2>,...,<trailer fields><CR>
// The format word has one digit per line (e.g. "0000100", "00111", "1111"); the lines
// carry private glyph codes for signal bars, marks, icons and modulation.
//
// GLG is the channel record:
//   GLG,<freq|tgid>,<mod>,<att>,<subtone>,<system>,<department>,<channel>,<sql>,<mute>,
//       <sys tag>,<chan tag>,<nac><CR>          idle: "GLG,,,,,,,,,,,,"
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "control/scanner_link.h"
#include "control/timer_bank.h"
#include "control/vc_options.h"
#include "control/vc_state.h"
#include "core/ports.h"

namespace zel::control {

class StatusDecoder : public ReplyParser {
 public:
  StatusDecoder(Family family, ScannerStatus& status, LoggerCounters& counters,
                const VcOptions& options, ScannerLink& link, TimerBank& timers, Feedback& feedback,
                const Clock& clock);

  // The receive tick's dispatch on pollStep.
  ParseResult parse(int pollStep, const std::string& rxBuffer) override;

  ParseResult parseSts(const std::string& rx);
  ParseResult parseGlg(const std::string& rx);
  ParseResult parseGsi(const std::string& rx);
  ParseResult parseGid(const std::string& rx);
  ParseResult parseVolume(const std::string& rx);
  ParseResult parseSquelch(const std::string& rx);
  ParseResult parseModel(const std::string& rx);
  ParseResult parsePower(const std::string& rx);
  ParseResult parseServices(const std::string& rx);
  ParseResult parseWindow(const std::string& rx);
  ParseResult parseWaterfall(const std::string& rx);

  // Paints the display model from an STS reply (after the fixups).
  void RenderStatus(std::string_view sts);
  void SetSignalBars(int level);
  void SetSignalNeedle(int level);

  // The busy hold-off ran out: the transmission is over.
  void onBusydelay();

  // Where "datalog.txt" and the xml logs go; empty: nowhere.
  std::string dataFolder;
  // SDS waterfall data ("GWF" replies), for the bandscope.
  std::function<void(const std::string&)> waterfallSink;
  // The model guard asks the window to close.
  std::function<void()> onCloseRequested;
  bool sdsModelDetected = false;  // set by the BCD window when it sees an SDS
  bool closeRequested = false;

  // Text of the debug page of the BCD window (GSI is not used for the display there).
  struct GsiDebug {
    std::string system, detectedSubtone, recSlot, mode;
  } gsiDebug;

  // The literal repairs of names that hold commas.
  static std::string fixStatus(std::string_view sts);
  static std::string fixGlg(std::string_view glg);

 private:
  void appendDatalog(std::string_view line);
  void readSdsScreenWords(std::string_view text);
  void readGsiChannel(const std::string& xml);

  Family family_;
  ScannerStatus& st_;
  LoggerCounters& counters_;
  const VcOptions& options_;
  ScannerLink& link_;
  TimerBank& timers_;
  Feedback& feedback_;
  const Clock& clock_;
  std::string refusedModel_;
};

}  // namespace zel::control
