// Bank names: the names of the document's departments (a department is a bank of channels
// or talkgroups), listed in tree order for Edit Banknames and renamed together.
//
//   GIN,C-Group,CGroupId=0,AgencyId=0,<name>,Off,...     field 4 is the name
//   TIN,T-Group,TGroupId=0,AgencyId=0,<name>,Off,...
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "core/document.h"

namespace zel::banks {

struct BankName {
  std::string key;     // "GRP-999-001-002"
  std::string system;  // the system's name
  std::string name;    // the department's name as held
};

// Every department of every system, systems in tree order and departments in their order.
std::vector<BankName> list(const DocumentTree& data);

// A typed name as a line can hold it: commas become ";", the grids' name filter applies, at
// most 64 characters, blanks trimmed. An empty result is refused (nullopt): every node is
// shown by its name.
std::optional<std::string> cleanName(std::string_view typed);

struct RenameResult {
  int renamed = 0;    // names that differ from what the line held
  std::string error;  // set when a name was refused; then no name changed
};

// Renames departments by key, all or nothing. Unknown keys and names equal to the held one
// are passed over; a change marks the document changed.
RenameResult rename(Document& doc, const std::vector<std::pair<std::string, std::string>>& names);

}  // namespace zel::banks
