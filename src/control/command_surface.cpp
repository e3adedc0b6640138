#include "control/command_surface.h"

#include <cmath>

#include "control/vc_timers.h"
#include "control/xml_attribute.h"
#include "core/text.h"

namespace zel::control {

namespace {
bool isAny(std::string_view name, std::initializer_list<std::string_view> names) {
  for (auto n : names)
    if (name == n) return true;
  return false;
}
}  // namespace

std::string keyCommand(Family family, std::string_view name, bool listScreen) {
  const bool sds = family == Family::Sds;
  if (name == "SCAN" || (sds && isAny(name, {"Scan", "to Scan", "To Scan"}))) return "JPM,SCN_MODE";
  if (name == "Search") return "JPM,CTM_MODE,1";
  if (name == "SQL") return "KEY,Q,P";
  if (name == "VOL") return "KEY,V,P";
  if (isAny(name, {"MONI", "Moni"})) return "SQL,0";
  if (isAny(name, {"M", "MUTE", "Mute"})) return "VOL,0";
  if (name.size() == 1 && ((name[0] >= '0' && name[0] <= '9') || name[0] == '.'))
    return "KEY," + std::string(name) + ",P";
  if (name == "SYSTEM" || (sds && name == "Step")) return "KEY,A,P";
  if (name == "DEPT" || (sds && isAny(name, {"SPAN", "Max Hold"}))) return "KEY,B,P";
  if (name == "CHANNEL" || (sds && isAny(name, {"HOLD", "MF > CF"}))) return "KEY,C,P";
  if (name == "E") return "KEY,E,P";
  if (name == "FUNC") return "KEY,F,H";  // the function key is held, not pressed
  if (name == "AVOID") return "KEY,L,P";
  if (name == "MENU") return "KEY,M,P";
  if (name == "SERV") return sds ? "KEY,F,P" : "KEY,T,P";
  if (name == "RANG") return sds ? "" : "KEY,R,P";
  if (name == "ZIP") return "KEY,Z,P";
  if (name == "REPLAY") return "KEY,Y,P";
  // On a menu list the knob's two directions are swapped, so that "next" moves down.
  if (name == "t") return listScreen ? "KEY,<,P" : "KEY,>,P";
  if (name == "u") return listScreen ? "KEY,>,P" : "KEY,<,P";
  if (name == "vfo") return "KEY,^,P";
  if (name == "F") return sds ? "KEY,F,P" : "KEY,^,P";
  return sds ? "KEY,C,P" : "";
}

const std::vector<std::string>& keyNames(Family family) {
  static const std::vector<std::string> bcd{
      "SYSTEM", "DEPT", "CHANNEL", "AVOID", "FUNC", "MENU",   "E",    "1",
      "2",      "3",    "4",       "5",     "6",    "7",      "8",    "9",
      "0",      ".",    "SERV",    "RANG",  "ZIP",  "REPLAY", "VOL",  "SQL",
      "MONI",   "MUTE", "t",       "u",     "vfo",  "F",      "SCAN", "Search"};
  static const std::vector<std::string> sds{
      "SYSTEM", "DEPT", "CHANNEL", "AVOID",  "FUNC", "MENU", "E",        "1",    "2",
      "3",      "4",    "5",       "6",      "7",    "8",    "9",        "0",    ".",
      "SERV",   "ZIP",  "REPLAY",  "VOL",    "SQL",  "MONI", "M",        "t",    "u",
      "vfo",    "F",    "Scan",    "Search", "Step", "SPAN", "Max Hold", "HOLD", "MF > CF"};
  return family == Family::Bcd ? bcd : sds;
}

const std::vector<ModeEntry>& modeList(Family family) {
  static const std::vector<ModeEntry> bcd{{"", 999},
                                          {"Scan Mode", 0},
                                          {"Custom Search", 13},
                                          {"CloseCall Mode", 14},
                                          {"WX Mode", 20},
                                          {"WX Alert Mode", 21},
                                          {"WX Mode Same 0", 22},
                                          {"WX Mode Same 1", 23},
                                          {"WX Mode Same 2", 24},
                                          {"WX Mode Same 3", 25},
                                          {"WX Mode Same 4", 26},
                                          {"WX Mode ALL Fips", 27},
                                          {"Fire Tone Out", 30}};
  static const std::vector<ModeEntry> sds = [] {
    auto list = bcd;
    list.push_back({"Waterfall", 31});
    return list;
  }();
  return family == Family::Bcd ? bcd : sds;
}

std::string modeCommand(int number) {
  switch (number) {
    case 0:
      return "JPM,SCN_MODE";
    case 13:
      return "JPM,CTM_MODE,1";
    case 14:
      return "JPM,CC_MODE,";
    case 20:
      return "JPM,WX_MODE,NORMAL";
    case 21:
      return "JPM,WX_MODE,A_ONLY";
    // The captions count the SAME groups from 0, the scanner from 1.
    case 22:
      return "JPM,WX_MODE,SAME_1";
    case 23:
      return "JPM,WX_MODE,SAME_2";
    case 24:
      return "JPM,WX_MODE,SAME_3";
    case 25:
      return "JPM,WX_MODE,SAME_4";
    case 26:
      return "JPM,WX_MODE,SAME_5";
    case 27:
      return "JPM,WX_MODE,ALL_FIPS";
    case 30:
      return "JPM,FTO_MODE,";
    case 31:
      return "JPM,WF_MODE";
    case 40:
      return "MNU,SVC_MENU";
    case 41:
      return "MNU,WX_MENU";
    case 42:
      return "MNU,CCBAND_MENU";
    case 43:
      return "MNU,SCR_OPT_MENU";
    case 44:
      return "MNU,GL_LIST_MENU";
    case 45:
      return "MNU,SETTING_MENU";
    default:
      return "";
  }
}

std::string keyboardKey(Keyboard key) {
  switch (key) {
    case Keyboard::Up:
    case Keyboard::Right:
    case Keyboard::Space:
      return "t";
    case Keyboard::Left:
    case Keyboard::Down:
      return "u";
    case Keyboard::Enter:
      return "E";
    case Keyboard::Escape:
      return "MENU";
    case Keyboard::Other:
      break;
  }
  return "";
}

std::string miniViewKey(Family family, MiniButton button) {
  switch (button) {
    case MiniButton::HoldResume:
      return "CHANNEL";
    case MiniButton::Scan:
      return family == Family::Sds ? "Scan" : "t";
    case MiniButton::Avoid:
      return "AVOID";
  }
  return "";
}

CommandSurface::CommandSurface(Family family, ScannerLink& link, TimerBank& timers,
                               const ScannerStatus& status, const VcOptions& options,
                               EventPump& pump, const Clock& clock)
    : family_(family),
      link_(link),
      timers_(timers),
      status_(status),
      options_(options),
      pump_(pump),
      clock_(clock) {}

void CommandSurface::PressKey(std::string_view name) {
  if (family_ == Family::Bcd) {
    std::string command = keyCommand(family_, name, status_.listScreen == 1);
    if (!command.empty()) send(command);
    return;
  }
  // At most four keys a second reach the SDS scanner.
  if (timers_.enabled(dokeytimer)) return;
  if (isAny(name, {"MONI", "Moni"})) {
    bool closed = XmlAttribute(status_.gsiText, "Property", "SQL=") == "0";
    send(closed ? "SQL," + std::to_string(options_.squelchIndex) : std::string("SQL,0"));
  } else if (isAny(name, {"M", "MUTE", "Mute"})) {
    bool muted = XmlAttribute(status_.gsiText, "Property", "VOL=") == "0";
    send(muted ? "VOL," + std::to_string(options_.volumeIndex) : std::string("VOL,0"));
  } else if (name == "SERV") {
    send("KEY,F,P");
    Wait(pump_, clock_, 1);
    send("KEY,Z,P");
  } else {
    std::string command = keyCommand(family_, name, status_.listScreen == 1);
    if (!command.empty()) send(command);
  }
  timers_.enable(dokeytimer);
}

void CommandSurface::onDokeytimer() {
  timers_.disable(dokeytimer);
}

void CommandSurface::selectMode(int number) {
  std::string command = modeCommand(number);
  if (!command.empty()) send(command);
}

void CommandSurface::setVolume(int index) {
  send("VOL," + std::to_string(index));
}
void CommandSurface::setSquelch(int index) {
  send("SQL," + std::to_string(index));
}
void CommandSurface::volumeKnob() {
  send("KEY,V,P");
}
void CommandSurface::squelchKnob() {
  send("KEY,Q,P");
}
void CommandSurface::mute() {
  send("VOL,0");
}
void CommandSurface::openSquelch() {
  send("SQL,0");
}
void CommandSurface::scanMode() {
  send("JPM,SCN_MODE");
}

bool CommandSurface::quickHold(std::string_view mhz) {
  std::string_view t = trimView(mhz);
  if (t.empty() || !isPlainNumber(t)) return false;
  long long units = std::llround(leadingNumber(t) * 10000);
  send("QSH," + std::to_string(units) + ",,,,,,,,,,,,");
  return true;
}

void CommandSurface::sendKeyCode(std::string_view code) {
  send("KEY," + std::string(code) + ",P");
}

}  // namespace zel::control
