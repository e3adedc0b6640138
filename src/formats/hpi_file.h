// The companion ".hpi" file of a favorites list: its attributes, the twelve columns of the
// list's row in the open-file table.
//
//   [TargetModel HomePatrol-2]
//   1                      column 0: "1" while the list is loaded
//   f_000001.hpd           column 1: short name
//   North Royalton         column 2: list name
//   /home/me/lists/x.hpd   column 3: full path
//   ...                    columns 4 to 11, one a line, unquoted
#pragma once

#include <array>
#include <optional>
#include <string>

#include "formats/atomic_file.h"

#include "core/tables.h"

namespace zel::formats {

using HpiAttributes = std::array<std::string, OpenFileTable::kColumns>;

inline constexpr const char* kHpiHeader = "[TargetModel HomePatrol-2]";

// "x.hpd" -> "x.hpi" (the last four characters, whatever their case, when they are ".hpd").
std::string hpiPathFor(const std::string& hpdPath);

// The twelve attributes of an .hpi file, or nothing when it cannot be read. Lines that the
// file lacks read as empty; a value in double quotes loses them.
std::optional<HpiAttributes> readHpi(const std::string& hpiPath);
// The file's text, CR LF ended.
std::string formatHpi(const HpiAttributes& attributes);
WriteStatus writeHpi(const std::string& hpiPath, const HpiAttributes& attributes);

}  // namespace zel::formats
