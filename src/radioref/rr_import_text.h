#pragma once
// The text rules of the conventional import, one function a rule, so that the builder only
// strings them together: the list cleaning of a fetched frequency, the system name, the
// department line, the tone and mode of a row and the channel's record line and grid row.
#include <string>
#include <vector>

#include "radioref/rr_import.h"

namespace zel::radioref {

// A description or alpha tag as the frequency list shows it: commas become semicolons,
// double quotes apostrophes, and tabs, line feeds and carriage returns go.
std::string cleanListText(std::string text);

// The new system's name: cut to the tag limit, filtered, and with every blank removed when
// "Automatically Remove Spaces from Tags" is ticked.
std::string importSystemName(const std::string& text, const ImportOptions& options);

// "GIN,C-Group,CGroupId=0,AgencyId=0,<name>,Off,<location>,Circle,<quickKey>". The location
// is the GPS text unless that is empty, "0,0,0" or ",,".
std::string conventionalDepartmentRecord(const std::string& name, const std::string& gps,
                                         const std::string& quickKey);
// The quick key of department `number`: "" with the option off, else the number, "99" from
// 99 up.
std::string departmentQuickKey(int number, const ImportOptions& options);

// The tone kind ("SEARCH", "CTCSS", "DCS", "P25", "DMR", "RAN" or "") and the cleaned tone
// text of a row.
struct ToneKind {
  std::string kind;
  std::string text;
};
ToneKind toneAndMode(const std::string& tone, const std::string& mode);

// The record line and the grid row of a channel. The grid row holds the fields from the
// frequency on, with the Led columns but without the row number. `lockout` sets the avoid
// field "On" (an encrypted row under "Lock Out Encrypted conventional frequencies").
struct ChannelLines {
  std::string record;  // "FRQ,..."
  std::string grid;
};
ChannelLines channelLines(const std::string& frequency, const std::string& name,
                          const ToneKind& tone, const std::string& colorCode,
                          const std::string& service, const std::vector<LedRule>& leds,
                          bool lockout = false);

// "," + colour + "," + pattern for each ticked Led row of the service.
std::string ledColumns(const std::string& service, const std::vector<LedRule>& leds);

}  // namespace zel::radioref
