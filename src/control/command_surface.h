// The command surface of a virtual control window: every key, mode and knob of the
// on-screen scanner becomes one short command on the link. Commands go out at once
// between two polls, with no queue; their replies ("KEY,OK") fall into whatever parser
// is waiting and are dropped there.
//
//   KEY,<code>,P      press a key (FUNC is held: "KEY,F,H")
//   JPM,<mode>[,..]   jump to a mode           MNU,<menu>   open a menu
//   VOL,<n> SQL,<n>   volume and squelch, 0 to 19
//   QSH,<freq in 100 Hz>,,,,,,,,,,,,           quick hold on a frequency
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "control/event_pump.h"
#include "control/scanner_link.h"
#include "control/timer_bank.h"
#include "control/vc_options.h"
#include "control/vc_state.h"

namespace zel::control {

// The command of a key in a family's key table; "" when the key sends nothing. SDS keys
// with a toggle or a pause ("MONI", "M", "SERV") are handled by PressKey itself.
std::string keyCommand(Family family, std::string_view name, bool listScreen);

// The names of the keys drawn on the scanner face of a family (for windows and `zel key`).
const std::vector<std::string>& keyNames(Family family);

struct ModeEntry {
  std::string caption;
  int number;
};
// The mode list: "" with 999 first, then the modes; the SDS list adds "Waterfall".
const std::vector<ModeEntry>& modeList(Family family);
// The command of a mode number; "" for 999 and for unknown numbers.
std::string modeCommand(int number);

// The key name that a keyboard key presses; "" when none. Up, Right and Space turn the
// knob right, Left and Down turn it left, Enter is "E" and Escape "MENU".
enum class Keyboard { Up, Down, Left, Right, Space, Enter, Escape, Other };
std::string keyboardKey(Keyboard key);

// The mini view's three buttons.
enum class MiniButton { HoldResume, Scan, Avoid };
std::string miniViewKey(Family family, MiniButton button);

class CommandSurface {
 public:
  CommandSurface(Family family, ScannerLink& link, TimerBank& timers, const ScannerStatus& status,
                 const VcOptions& options, EventPump& pump, const Clock& clock);

  // Presses a key by name. In the SDS window a key within 250 ms of the last is dropped.
  void PressKey(std::string_view name);
  void onDokeytimer();

  void selectMode(int number);  // the mode list
  void setVolume(int index);    // "VOL,n"
  void setSquelch(int index);   // "SQL,n"
  void volumeKnob();            // click on the volume label: "KEY,V,P"
  void squelchKnob();           // "KEY,Q,P"
  void mute();                  // double click on the volume label: "VOL,0"
  void openSquelch();           // double click on the squelch label: "SQL,0"
  // Quick hold: the frequency in MHz ("154.4300"); false when the text is no number.
  bool quickHold(std::string_view mhz);
  void sendKeyCode(std::string_view code);  // SDS: "KEY,<code>,P" from the key text box
  void scanMode();                          // "JPM,SCN_MODE"

 private:
  void send(std::string_view command) { link_.SendCommand(command); }
  Family family_;
  ScannerLink& link_;
  TimerBank& timers_;
  const ScannerStatus& status_;
  const VcOptions& options_;
  EventPump& pump_;
  const Clock& clock_;
};

}  // namespace zel::control
