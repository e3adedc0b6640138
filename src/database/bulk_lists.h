// What the bulk channel editor lists from the open document: the systems of a scope, their
// departments and sites, and the channel rows of the departments with the key that leads
// back to each row.
//
//   system      SYS-002            "Southwest/South Central Region"
//   department  GRP-999-002-000    "Fire Departments - North Royalton"
//   channel     FRQ-002-000-0003   row 3 of that department's page
//   talkgroup   TID-001-001-0012   row 12 of department 1 of system 1
#pragma once

#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "core/document.h"
#include "database/bulk_settings.h"
#include "formats/row_store.h"

namespace zel::bulk {

// The head entry of the system list; choosing it lists every system of the scope's kind.
inline constexpr std::string_view kAllSystems = "   < All Systems >";

struct SystemEntry {
  int number = 0;
  std::string key;   // "SYS-sss"
  std::string name;  // field 4 of its record
  bool conventional = false;
};

// A department, site or system that can be ticked.
struct NodeEntry {
  std::string key;
  std::string name;
  int system = 0;
  std::string systemName;
};

struct ChannelEntry {
  std::string key;         // "FRQ-sss-ddd-cccc" or "TID-sss-ddd-cccc"
  std::string department;  // "GRP-999-sss-ddd"
  int row = 0;             // the row number of the page line
  std::string first;       // frequency or talkgroup
  std::string name;        // alpha tag
  std::string departmentName;
};

// Whether a system is conventional: the system table's type, or for a system the table does
// not know, the type label of its record.
bool isConventional(const Document& doc, int system);

// The document's systems of the kind the scope needs, in tree order.
std::vector<SystemEntry> listSystems(const Document& doc, Scope scope);
// The departments (Departments and both channel scopes), sites (Sites) or the systems
// themselves (Systems) of one system, or of every listed system when `system` is 0.
std::vector<NodeEntry> listNodes(const Document& doc, Scope scope, int system);
// The rows of the listed departments that belong to the scope: frequency rows for
// "Conv. frequencies", talkgroup rows for "TalkGroups". Empty for the other scopes.
std::vector<ChannelEntry> listChannels(const Document& doc, const formats::RowStore& rows,
                                       Scope scope, int system);

// The keys of the channels that belong to the ticked departments: the frequency rows first
// and then the talkgroup rows, each in list order.
std::vector<std::string> channelsOfDepartments(const std::vector<ChannelEntry>& channels,
                                               const std::set<std::string>& departments);

// The headings of the channel list for a scope: "#", "Frequency:" or "Talkgroup:", "Tag:",
// "Group:".
std::vector<std::string> channelHeadings(Scope scope);

// A system named on a command line: its number as in its key, or its name (any case).
// Only systems of the scope's kind count.
std::optional<int> systemNamed(const Document& doc, Scope scope, std::string_view text);

// The department key of a channel key ("FRQ-002-000-0003" -> "GRP-999-002-000"), or "" for
// a key that is not a channel key.
std::string departmentOfChannel(std::string_view channelKey);

}  // namespace zel::bulk
