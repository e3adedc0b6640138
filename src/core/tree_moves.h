// Moving and copying whole systems and departments, between favorites lists and between
// systems, with their page rows, keeping the keys and lines consistent:
//
//   - every descendant of a system carries the system's number in its key;
//   - a department's page is named by its key, so a new key renames (or copies) the page;
//   - field 23 of a system's line is the open file (favorites list) it belongs to, "000" form;
//   - the system table has a row for every system number in use;
//   - the flat frequency tree holds a copy of every TFQ- node.
#pragma once

#include <string>
#include <string_view>

#include "core/document.h"
#include "core/page_files.h"
#include "core/ports.h"

namespace zel::treemod {

struct MoveResult {
  bool ok = false;
  std::string key;      // the key of the node moved or made
  std::string message;  // why nothing was done (already shown through Feedback)
};

// Puts a system into another favorites list (`fileRow` of the open-file table; 0 for none).
MoveResult moveSystemToList(Document& doc, std::string_view systemKey, int fileRow,
                            Feedback& feedback);
// A copy of a system with all its sites, departments, frequencies, fleet map, band plans,
// unit IDs and department rows, under the next free system number, in the given list.
MoveResult copySystemToList(Document& doc, PageFiles& pages, std::string_view systemKey,
                            int fileRow, Feedback& feedback);

// Moves or copies a department into another system of the same kind (conventional to
// conventional, trunked to trunked), under the next free department number there.
MoveResult moveDepartment(Document& doc, PageFiles& pages, std::string_view departmentKey,
                          int targetSystem, Feedback& feedback);
MoveResult copyDepartment(Document& doc, PageFiles& pages, std::string_view departmentKey,
                          int targetSystem, Feedback& feedback);

// The key of a system's node with its system number replaced ("GRP-999-004-002" to system
// 7 gives "GRP-999-007-002").
std::string withSystemNumber(std::string_view key, int system);

}  // namespace zel::treemod
