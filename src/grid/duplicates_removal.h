// What the Enhanced Find list does to the document: Delete Selected Channels (from the open
// grid when the row's page is on show, else from its page file), the Unlock submenu, and
// Review LockOut Channels with Clear LockOut over the open pages.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "core/document_tree.h"
#include "core/page_files.h"
#include "core/ports.h"
#include "grid/duplicates.h"
#include "grid/grid_page.h"

namespace zel::dups {

inline constexpr std::string_view kSelectOne = "Please select at least one duplicate.";
inline constexpr std::string_view kDeleteQuestion =
    "Are you sure you want to delete this data?\nWarning: data will be lost!";
inline constexpr std::string_view kDeleteTitle = "Warning";

// The department on show, if any: its key ("GRP-999-sss-ggg") and its grid.
struct OpenPage {
  std::string departmentKey;
  GridPage* grid = nullptr;
};

// Removes the marked rows' channels after the question; returns how many went. With no row
// marked shows kSelectOne; a "No" removes nothing. Removed list rows leave the list.
int deleteSelected(std::vector<MatchRow>& rows, PageFiles& pages, const OpenPage& open,
                   Feedback& feedback);

// The Unlock submenu. Each sets "Avoid" to "Off" in the rows it names (in the page files and
// in the open grid) and, where it names systems, the lock word (field 5) of SYS- records
// to "0". Returns the rows changed.
enum class UnlockScope { AllSystems, ActiveSystem, ConventionalChannels, Talkgroups };
int unlock(UnlockScope scope, int activeSystem, DocumentTree& data, PageFiles& pages,
           const OpenPage& open);

// Review LockOut Channels over a set of open pages: a row whose "LockOut" is "On" or whose
// "Skip" is "Skip". The grids of this system head their lock column "Avoid", so they yield
// no row here; the Unlock submenu is what works on them.
struct LockedRow {
  std::string text;  // system / department / value / subtone / name
  std::string key;   // "c" or "t", the page, "-*"
};
struct ReviewPage {
  std::string name;  // system / department
  std::string pageKey;
  bool talkgroups = false;
  GridPage* grid = nullptr;
};
std::vector<LockedRow> reviewLockOut(const std::vector<ReviewPage>& pages);
// Clear LockOut: "LockOut" to "Off" in the rows of the given pages; returns rows changed.
int clearLockOut(const std::vector<ReviewPage>& pages);

// Removes grid rows 1-based, moving later rows up and relabelling them.
void removeGridRow(GridPage& grid, int row);

}  // namespace zel::dups
