// What the bulk channel editor can change: its five scopes, the eleven channel settings with
// the page-row column each one writes, and the words each setting offers.
//
//   page row of a channel    3,154.785000,Fire Disp,Off,NFM,CTCSS,123.0,Fire Dispatch,Off,2,...
//   column                   0 1          2         3   4   5     6     7             8   9
//   page row of a talkgroup  1,56421,Fire Dispatch,Off,All,Fire Dispatch,2,0,Off,Auto,Red,...
//   column                   0 1     2             3   4   5             6 7 8   9    10
//
// Column 0 is the row number; column 1 is the frequency or talkgroup, as in the grids.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/document.h"
#include "core/settings.h"

namespace zel::bulk {

// The order is that of the scope buttons of the window.
enum class Scope { Departments = 0, Sites = 1, Systems = 2, TalkGroups = 3, Frequencies = 4 };
inline constexpr int kScopeCount = 5;

std::string_view scopeCaption(Scope scope);  // "Departments", ..., "Conv. frequencies"
bool isChannelScope(Scope scope);
// Which systems a scope lists: talkgroups and sites live in trunked systems, frequencies in
// conventional ones; departments and systems come from both kinds.
enum class SystemKind { Any, Conventional, Trunked };
SystemKind systemKindOf(Scope scope);

enum class Setting {
  Mode,
  AudioType,
  SqMode,
  ServiceType,
  Attenuator,
  Delay,
  VolumeOffset,
  AlertTone,
  AlertVolume,
  AlertLight,
  AlertPattern,
};
inline constexpr int kSettingCount = 11;

struct SettingInfo {
  Setting setting;
  std::string_view caption;     // the label in the window, "Delay:"
  std::string_view heading;     // the grid column it changes, "Delay Time"
  std::string_view vocabulary;  // the word list the combo offers
  int frequencyColumn;          // column of a channel row, 0 for none
  int talkgroupColumn;          // column of a talkgroup row, 0 for none
};

// The settings in the order they are applied.
const std::array<SettingInfo, kSettingCount>& settingTable();
const SettingInfo& info(Setting setting);
// The position of a setting in the table (the <n> of its check box and combo).
int settingIndex(Setting setting);

// The column a setting writes in a row of that kind, or 0 when the row has no such column.
// In family HP the rows end before the alert light, so those settings write nothing there.
int columnFor(Setting setting, bool talkgroupRow, ScannerFamily family = ScannerFamily::BCD);
// Whether the window offers the setting in a scope (only the two channel scopes have any).
bool appliesTo(Setting setting, Scope scope);

// The words a setting's combo offers, in order.
const std::vector<std::string>& choicesFor(Setting setting);

// A setting named by its caption, with or without the colon, in any case ("Delay:",
// "delay", "Alert Patt."); its grid heading ("Delay Time") is taken as well.
std::optional<Setting> settingNamed(std::string_view name);

// One ticked setting with the word to write.
struct ChannelChange {
  Setting setting;
  std::string value;
};

// "Caption=value" cut at its first "=", both sides trimmed; nothing when there is no "=".
// Shared by the bulk editor's and the full database's settings.
struct SettingText {
  std::string name;
  std::string value;
};
std::optional<SettingText> splitSettingText(std::string_view text);
// The sentence for a setting text without "=".
std::string settingTextError(std::string_view text);
// A caption without its closing colon, trimmed: "Delay:" -> "Delay".
std::string withoutColon(std::string_view text);

// "Delay:=5" or "Delay=5" for a scope: the change, or a sentence saying what is wrong.
struct ParsedChange {
  std::optional<ChannelChange> change;
  std::string error;
};
ParsedChange parseChange(std::string_view text, Scope scope);

// What the window remembers between openings, in settings section "bulkedit": the scope
// (dbase), each setting's tick (chk<n>) and word (cmb<n>), the service type's word under
// "serv" of its own because its list is the long one that users set once.
struct Remembered {
  Scope scope = Scope::Departments;
  std::array<bool, kSettingCount> ticked{};
  std::array<std::string, kSettingCount> values{};
};
Remembered loadRemembered(const Settings& settings);
void saveRemembered(Settings& settings, const Remembered& remembered);

}  // namespace zel::bulk
