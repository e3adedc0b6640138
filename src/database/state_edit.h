// What the full database editor lists and changes in a state file: the channel rows of a
// system, a department or the whole file, the six per-channel settings with the field each
// one writes, and the settings remembered between openings.
//
//   C-Freq  CFreqId= CGroupId= name Off 154070000 NFM TONE=C156.7 8 att delay vol tone level colour pattern
//   field   1        2         3    4   5         6   7           8 9   10    11  12   13    14     15
//   TGID    Tid= TGroupId= name Off 7 ALL 17 delay vol tone level colour pattern
//   field   1    2         3    4   5 6   7  8     9   10   11    12     13
//
// The volume offset (field 11, field 9) is never written, and a TGID line has no attenuator.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/settings.h"
#include "database/state_file.h"

namespace zel::database {

enum class DbSetting { Attenuator, Delay, AlertTone, AlertVolume, AlertLight, AlertPattern };
inline constexpr int kDbSettingCount = 6;

struct DbSettingInfo {
  DbSetting setting;
  std::string_view caption;     // "Delay:"
  std::string_view vocabulary;  // the word list of its combo, "Delay Time"
  int frequencyField;           // field of a C-Freq line
  int talkgroupField;           // field of a TGID line, 0 for none
};

// In the order of the window's check boxes.
const std::array<DbSettingInfo, kDbSettingCount>& dbSettingTable();
const DbSettingInfo& dbInfo(DbSetting setting);
// The words of a setting's combo: the field vocabulary, "On" and "Off" for the attenuator.
const std::vector<std::string>& dbChoices(DbSetting setting);

struct DbChange {
  DbSetting setting;
  std::string value;
};
// "Delay:=5" or "alert tone=3": the change, or a sentence saying what is wrong. A word in
// another case is taken as the list's own word.
struct ParsedDbChange {
  std::optional<DbChange> change;
  std::string error;
};
ParsedDbChange parseDbChange(std::string_view text);

// The service filter: its head word and its default.
inline constexpr std::string_view kNoServiceFilter = "None";
inline constexpr std::string_view kServiceFilterDefault = "FuncTag";
// The service type number a filter text names; 0 for no filter ("None", the default,
// empty); -1 for a text that is no service type.
int serviceFilterNumber(std::string_view text);

enum class ChannelKinds { Both, Conventional, Trunk };

struct ChannelFilter {
  int system = 0;      // 0: every system
  int department = 0;  // 0: every department of the system
  ChannelKinds kinds = ChannelKinds::Both;
  int service = 0;  // 0: any service type
};

struct ChannelItem {
  std::size_t row = 0;
  std::string key;
  bool talkgroup = false;
  std::string frequencyOrId;  // MHz with six decimals for a C-Freq line, the id of a TGID
  std::string alphaTag;
  int service = 0;
  std::string serviceName;
};

// The channel rows in file order that pass the filter.
std::vector<ChannelItem> listChannels(const StateFile& file, const ChannelFilter& filter);
// The departments of one system, in file order.
std::vector<DepartmentInfo> departmentsOf(const StateFile& file, int system);

// The heads of the system and department lists and the columns of the channel list.
inline constexpr std::string_view kSelectSystemHead = "  << Select System  >>  ";
inline constexpr std::string_view kAllDepartmentsHead = " << All Departments >> ";
inline constexpr std::array<std::string_view, 4> kChannelColumns = {
    "#", "Frequency/ID:", "AlphaTag:", "ServiceType:"};

struct ApplyResult {
  std::size_t linesChanged = 0;
  std::size_t fieldsChanged = 0;
};
// Writes each change into the chosen rows: the C-Freq field of the table on a C-Freq line,
// the TGID field on a TGID line (nothing for the attenuator); other lines are left alone.
ApplyResult applyChanges(StateFile& file, const std::vector<std::size_t>& rows,
                         const std::vector<DbChange>& changes);

// What the window remembers in settings section "bulkedit": each setting's tick (chk<n>)
// and word (cmb<n>), the service filter (serv), the source (dbase: 0 the card, 1 the local
// copy) and the local copy's folder (localbase).
struct DbRemembered {
  std::array<bool, kDbSettingCount> ticked{};
  std::array<std::string, kDbSettingCount> values{};
  std::string service{kServiceFilterDefault};
  int source = 0;
  std::string localFolder;
};
DbRemembered loadDbRemembered(const Settings& settings);
void saveDbRemembered(Settings& settings, const DbRemembered& remembered);

}  // namespace zel::database
