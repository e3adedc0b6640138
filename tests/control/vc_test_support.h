// A virtual control window on a scripted port and a settable clock, for the tests of the
// link, the decoder, the commands and the logger.
#pragma once

#include <memory>
#include <string>

#include "control/scripted_serial_port.h"
#include "control/virtual_control.h"
#include "core/memory_ports.h"

namespace zel::control {

// Waits move the test clock on instead of running an event loop.
class ClockPump : public EventPump {
 public:
  explicit ClockPump(ManualClock& clock) : clock_(clock) {}
  void runFor(int ms) override {
    waits.push_back(ms);
    clock_.advance(ms);
  }
  void runPending() override { ++pending; }
  std::vector<int> waits;
  int pending = 0;

 private:
  ManualClock& clock_;
};

struct VcRig {
  explicit VcRig(Family family, std::string dataFolder = "");

  // Selects a port and connects, so that Timer1 and Timer10 run.
  void connect(const std::string& portName = "COM3");
  // Runs due timers until the clock reaches now + ms.
  void run(std::int64_t ms);
  // One reply through the receive tick, as if it was awaited at `pollStep`.
  ParseResult receive(int pollStep, const std::string& reply);
  // The same GLG through the decoder (busy or quiet) and STS screens.
  void glg(const std::string& reply) { vc->decoder.parseGlg(reply); }
  void sts(const std::string& reply) { vc->decoder.parseSts(reply); }

  ManualClock clock;
  ClockPump pump{clock};
  ScriptedSerialPort port;
  RecordingFeedback feedback;
  MemorySettingsStore settings;
  std::unique_ptr<VirtualControl> vc;
};

// Builders of replies.
std::string glgReply(const std::string& freqOrTgid, const std::string& channel,
                     const std::string& subtone = "", bool active = true,
                     const std::string& nac = "NONE", const std::string& system = "County",
                     const std::string& department = "Fire");
// An STS of the BCD channel screen ("0000100"): fields 2..14 as given ("" for blank).
std::string stsReply(const std::string& format, const std::vector<std::string>& lines);
// A string of glyph codes.
std::string glyphs(std::initializer_list<int> codes);
// The bytes of a file, "" when there is none.
std::string readFile(const std::string& path);
// The record cells `ids` joined by '|', to compare many cells at once.
std::string cells(const std::array<std::string, ld::kSize>& ldat, std::initializer_list<int> ids);

}  // namespace zel::control
