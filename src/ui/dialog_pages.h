// What the find, duplicate and mapper windows share about the document's pages: which
// department is on show in the main window, how a department's page file becomes a built
// grid and back, and the commit environment of the session's options.
//
// The department on show keeps its rows in the main window's grid, not in its page file
// (the file is written only when another node is selected), so every walk over the
// document takes that department's rows from the grid.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "core/session.h"
#include "grid/cell_commit.h"
#include "grid/duplicates.h"
#include "grid/duplicates_removal.h"
#include "grid/grid_page.h"

namespace zel::ui {

// The department whose rows sit in `grid`: the selected node when it is a department and a
// grid is given; otherwise no department and no grid.
dups::OpenPage openPageOf(Session& session, GridPage* grid);

// A department is a talkgroup page when its record is a T-Group (or bears the TIN tag).
bool isTalkgroupDepartment(const Document& doc, std::string_view departmentKey);

// A grid built with the headings of the department's kind and filled with its page lines.
void loadDepartmentGrid(Session& session, std::string_view departmentKey, GridPage& grid);

// Every department that has rows, the one on show included, in key order.
std::vector<std::string> departmentsWithRows(Session& session, const dups::OpenPage& open);

// Calls `visit` with the grid of every department with rows: the main window's grid for the
// department on show, else a grid loaded from the page file. When `visit` returns true the
// loaded grid is written back to its page file. Returns the number of pages written back or
// reported changed in the open grid.
int forEachDepartmentGrid(Session& session, const dups::OpenPage& open,
                          const std::function<bool(const std::string& key, GridPage& grid)>& visit);

// The channel or talkgroup rows of the document as the duplicate searches want them, keyed
// FRQ-sss-ddd-cccc / TID-sss-ddd-cccc by their row numbers. With `onlyDepartment` set only
// that department's rows are taken.
std::vector<dups::KeyedRow> documentRows(Session& session, const dups::OpenPage& open,
                                         std::string_view prefix,
                                         std::string_view onlyDepartment = {});

// The names shown for system and department numbers.
dups::NameLookup documentNames(const Document& doc);

// The commit of a pasted or replaced value: the session's options, its changed mark and
// the window's feedback.
cell::CommitEnv commitEnv(Session& session, Feedback& feedback);

// Writes text to a file through a temporary name beside it; false when it could not.
bool writeFileWhole(const std::string& path, std::string_view text);

}  // namespace zel::ui
