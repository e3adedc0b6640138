// The static tables of the grid keyboard: the key filters of the edit box by column group,
// the shortcuts of the list columns and the status help texts.
#include <array>
#include <cctype>

#include "core/text.h"
#include "grid/edit_model.h"

namespace zel {

namespace {

bool anyOf(std::string_view heading, std::initializer_list<std::string_view> names) {
  for (std::string_view n : names) {
    if (iequals(heading, n)) return true;
  }
  return false;
}

bool inRanges(unsigned char c, std::initializer_list<std::pair<int, int>> ranges) {
  for (auto [lo, hi] : ranges) {
    if (c >= lo && c <= hi) return true;
  }
  return false;
}

struct Shortcut {
  std::string_view heading;
  std::string_view keys;  // upper case; each one gives the text
  std::string_view text;
};

// Keys of the list columns; a letter counts in either case.
constexpr std::array<Shortcut, 43> kShortcuts = {{
    {"Mode", "UTO", "AUTO"},
    {"Mode", "A", "AM"},
    {"Mode", "F", "FM"},
    {"Mode", "N", "NFM"},
    {"Mode", "W", "WFM"},
    {"Mode", "B", "FMB"},
    {"SQ Mode", "ANF0", "All"},
    {"SQ Mode", "CT", "CTCSS"},
    {"SQ Mode", "D", "DCS"},
    {"SQ Mode", "P", "P25"},
    {"SQ Mode", "R", "RAN"},
    {"SQ Mode", "I", "IDAS"},
    {"SQ Mode", "S", "Search"},
    {"SQ Code", "S", "Search"},
    {"Delay Time", "0F", "0"},
    {"Delay Time", "1", "10"},
    {"Delay Time", "2ND", "2"},
    {"Delay Time", "3", "30"},
    {"Delay Time", "5", "5"},
    {"Volume Offset", "0", "0"},
    {"Volume Offset", "1", "1"},
    {"Volume Offset", "2", "2"},
    {"Volume Offset", "3", "3"},
    {"Alert Light", "F", "Off"},
    {"Alert Light", "R", "Red"},
    {"Alert Light", "B", "Blue"},
    {"Alert Light", "G", "Green"},
    {"Alert Light", "M", "Magenta"},
    {"Alert Light", "C", "Cyan"},
    {"Alert Light", "W", "White"},
    {"Alert Light", "Y", "Yellow"},
    {"Alert Pattern", "1ON", "On"},
    {"Alert Pattern", "S", "Slow Blink"},
    {"Alert Pattern", "F", "Fast Blink"},
    {"AudioType", "A", "Analog"},
    {"AudioType", "L", "All"},
    {"AudioType", "D", "Digital"},
    {"Alert Tone", "F", "Off"},
    {"Alert Level", "A", "Auto"},
    {"Alert Level", "0", "10"},
    {"DMR Tslot", "A", "Any"},
    {"DMR Tslot", "1", "1"},
    {"DMR Tslot", "2", "2"},
}};

constexpr std::string_view kOnOffHelp =
    "Select ON or OFF. You can use shortcuts 0 or F = OFF, 1 or N = ON. Use double click or "
    "space bar to toggle data ON/OFF.";

}  // namespace

bool EditModel::isOnOffColumn(std::string_view heading) {
  return anyOf(heading, {"Avoid", "Attenuator", "Priority", "LockOut"});
}

bool EditModel::keyAllowed(std::string_view heading, unsigned char c) {
  if (anyOf(heading,
            {"Frequency",      "Car#",      "Car",           "Start Frequency", "End Frequency",
             "Stop Frequency", "NumberTag", "Base:",         "Upper:",          "Offset Frequency",
             "Step:",          "Spacing:",  "dPMR Scr. Key", "NXDN Enc. Key",   "DCR Enc. Key",
             "Delay Time",     "Dwell",     "LCN",           "Bank Channel",    "Threshold Low",
             "Threshold High", "RF Gain",   "Lo Chan:",      "Hi Chan:",        "Offset:",
             "ColorCode"})) {
    return !inRanges(c, {{25, 45}, {47, 47}, {58, 255}});
  }
  if (anyOf(heading, {"SQ Code"})) {
    return !inRanges(c, {{25, 31}, {33, 45}, {47, 47}, {58, 64}, {71, 96}, {103, 255}});
  }
  if (anyOf(heading, {"Unit ID", "TGID", "Talkgroup ID", "Talkgroup"})) {
    return !inRanges(c, {{25, 41}, {43, 44}, {46, 47}, {58, 255}});
  }
  if (anyOf(heading, {"Alpha Tag", "Comments", "Name", "P25NAC", "NAC"})) {
    return !inRanges(c, {{25, 30}, {34, 34}, {44, 44}, {61, 61}, {92, 92}, {123, 255}});
  }
  return true;
}

std::string EditModel::shortcut(std::string_view heading, char key, std::string_view current,
                                bool keypadPlus) {
  if (keypadPlus) return iequals(heading, "Delay Time") ? "2" : "";
  if (key == '-') {
    // Minus turns the value negative: the negative partner of what stands there.
    if (iequals(heading, "Delay Time")) {
      if (current.empty() || current == "5") return "-5";
      if (current == "2") return "-2";
      if (current == "10") return "-10";
      return {};
    }
    if (iequals(heading, "Volume Offset")) {
      if (current.empty() || current == "1") return "-1";
      if (current == "2") return "-2";
      if (current == "3") return "-3";
      return {};
    }
    return {};
  }
  char upper = static_cast<char>(std::toupper(static_cast<unsigned char>(key)));
  if (isOnOffColumn(heading)) {
    if (upper == '0' || upper == 'F') return "Off";
    if (upper == '1' || upper == 'N') return "On";
    return {};
  }
  for (const Shortcut& s : kShortcuts) {
    if (iequals(s.heading, heading) && s.keys.find(upper) != std::string_view::npos)
      return std::string(s.text);
  }
  return {};
}

std::string EditModel::helpText(std::string_view heading) {
  if (anyOf(heading, {"Frequency"})) {
    return "Enter frequency, press enter or TAB to store frequency. Use escape to restore "
           "original frequency.";
  }
  if (anyOf(heading, {"NumberTag"})) return "Enter number tag 0-999 (optional)";
  if (anyOf(heading, {"Volume Offset"})) return "Enter volume offset: -3 to 3 (default = 0)";
  if (anyOf(heading, {"SQ Code"})) {
    return "Select subtone code use F2/doubleclick to edit, SQ Mode must be set before setting "
           "SQ Code. P25 code is in hex format 000 - FFF.";
  }
  if (anyOf(heading, {"SQ Mode"})) {
    return "Select subtone code, SQ Mode must be set before setting SQ Code. P25 code is in hex "
           "format 000 - FFF. Use S for Search mode.";
  }
  if (anyOf(heading, {"Step", "Step:"})) return "Select step. Use F2 or double click to edit.";
  if (anyOf(heading, {"Car#", "Car"})) return "Enter car number (1-999)";
  if (anyOf(heading, {"LCN"})) {
    return "Enter LCN for Edacs or LT systems (LT: 0-20 Edacs: 0-30). N/A for MOT systems.";
  }
  if (isOnOffColumn(heading)) return std::string(kOnOffHelp);
  return {};
}

}  // namespace zel
