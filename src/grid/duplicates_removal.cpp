#include "grid/duplicates_removal.h"

#include <algorithm>
#include <map>
#include <set>

#include "core/keys.h"
#include "core/record_line.h"
#include "core/text.h"
#include "grid/grid_routines.h"

namespace zel::dups {

namespace {

std::string departmentOfRow(std::string_view key) {
  return keys::department(keys::numberAt(key, 5), keys::numberAt(key, 9));
}

// Rewrites a page file without the given row numbers, numbering the rest 1, 2, 3...
int dropPageRows(PageFiles& pages, const std::string& department, const std::set<int>& drop) {
  std::vector<std::string> kept;
  int removed = 0;
  for (const std::string& line : pages.load(department)) {
    PageRow row = splitPageLine(line);
    if (drop.count(row.number)) {
      ++removed;
      continue;
    }
    kept.push_back(std::to_string(kept.size() + 1) + "," + std::string(row.fields));
  }
  if (removed > 0) pages.save(department, kept);
  return removed;
}

// Sets field 3 ("Avoid") of every page row to "Off"; field 0 of a page line is its number.
int unlockPage(PageFiles& pages, const std::string& department) {
  std::vector<std::string> lines = pages.load(department);
  int changed = 0;
  for (std::string& line : lines) {
    if (record::field(line, 3) == "On") {
      line = record::withField(line, 3, "Off");
      ++changed;
    }
  }
  if (changed > 0) pages.save(department, lines);
  return changed;
}

int unlockGrid(GridPage* grid) {
  if (!grid) return 0;
  int col = g_get_colnum(grid, "Avoid");
  if (col < 0) return 0;
  int changed = 0;
  for (int r = 1; r < grid->rows(); ++r) {
    if (grid->textMatrix(r, col) == "On") {
      grid->setTextMatrix(r, col, "Off");
      ++changed;
    }
  }
  return changed;
}

}  // namespace

void removeGridRow(GridPage& grid, int row) {
  if (row < 1 || row >= grid.rows()) return;
  for (int r = row; r + 1 < grid.rows(); ++r) {
    for (int c = 1; c < grid.cols(); ++c) grid.setTextMatrix(r, c, grid.textMatrix(r + 1, c));
  }
  grid.setRows(grid.rows() - 1);
  for (int r = 1; r < grid.rows(); ++r) grid.setTextMatrix(r, 0, std::to_string(r));
}

int deleteSelected(std::vector<MatchRow>& rows, PageFiles& pages, const OpenPage& open,
                   Feedback& feedback) {
  if (std::none_of(rows.begin(), rows.end(), [](const MatchRow& r) { return r.marked; })) {
    feedback.message(kSelectOne);
    return 0;
  }
  if (feedback.ask(kDeleteTitle, kDeleteQuestion, Buttons::YesNo) != Answer::Yes) return 0;
  std::map<std::string, std::set<int>> byDepartment;
  for (const MatchRow& r : rows) {
    if (r.marked) byDepartment[departmentOfRow(r.key)].insert(keys::numberAt(r.key, 13));
  }
  int removed = 0;
  for (const auto& [department, channels] : byDepartment) {
    if (open.grid && department == open.departmentKey) {
      // From the bottom up, so the row numbers of the rest stay true.
      for (auto it = channels.rbegin(); it != channels.rend(); ++it) {
        if (*it >= 1 && *it < open.grid->rows()) {
          removeGridRow(*open.grid, *it);
          ++removed;
        }
      }
    } else {
      removed += dropPageRows(pages, department, channels);
    }
  }
  rows.erase(std::remove_if(rows.begin(), rows.end(), [](const MatchRow& r) { return r.marked; }),
             rows.end());
  return removed;
}

int unlock(UnlockScope scope, int activeSystem, DocumentTree& data, PageFiles& pages,
           const OpenPage& open) {
  int changed = 0;
  bool systems = scope == UnlockScope::AllSystems || scope == UnlockScope::ActiveSystem;
  for (NodeId id : data.all()) {
    const std::string& key = data.key(id);
    if (!systems || !startsWith(key, "SYS-")) continue;
    if (scope == UnlockScope::ActiveSystem && keys::systemOf(key) != activeSystem) continue;
    if (record::field(data.text(id), 5) != "0") {
      data.setText(id, record::withField(data.text(id), 5, "0"));
      ++changed;
    }
  }
  for (const std::string& department : pages.departments()) {
    int system = keys::numberAt(department, 9);
    if (scope == UnlockScope::ActiveSystem && system != activeSystem) continue;
    if (scope == UnlockScope::ConventionalChannels || scope == UnlockScope::Talkgroups) {
      // A page's kind shows in its first row: a "." in the value makes it a channel page.
      std::vector<std::string> lines = pages.load(department);
      bool channelsPage =
          !lines.empty() && record::field(lines.front(), 1).find('.') != std::string::npos;
      if (channelsPage != (scope == UnlockScope::ConventionalChannels)) continue;
    }
    if (open.grid && department == open.departmentKey) continue;
    changed += unlockPage(pages, department);
  }
  if (open.grid) {
    int system = keys::numberAt(open.departmentKey, 9);
    bool channelsGrid = g_get_colnum(open.grid, "Frequency") > 0;
    bool take = scope == UnlockScope::AllSystems ||
                (scope == UnlockScope::ActiveSystem && system == activeSystem) ||
                (scope == UnlockScope::ConventionalChannels && channelsGrid) ||
                (scope == UnlockScope::Talkgroups && !channelsGrid);
    if (take) changed += unlockGrid(open.grid);
  }
  return changed;
}

std::vector<LockedRow> reviewLockOut(const std::vector<ReviewPage>& pages) {
  std::vector<LockedRow> out;
  for (const ReviewPage& page : pages) {
    if (!page.grid) continue;
    for (int r = 1; r < page.grid->rows(); ++r) {
      bool locked =
          g_get_data(page.grid, r, "LockOut") == "On" || g_get_data(page.grid, r, "Skip") == "Skip";
      if (!locked) continue;
      std::string value = g_get_data(page.grid, r, page.talkgroups ? "Talkgroup" : "Frequency");
      out.push_back({page.name + " / " + value + " / " + g_get_data(page.grid, r, "SQ Code") +
                         " / " + g_get_data(page.grid, r, "Alpha Tag"),
                     std::string(page.talkgroups ? "t" : "c") + page.pageKey + "-*"});
    }
  }
  return out;
}

int clearLockOut(const std::vector<ReviewPage>& pages) {
  int changed = 0;
  for (const ReviewPage& page : pages) {
    int col = g_get_colnum(page.grid, "LockOut");
    if (col < 0) continue;
    for (int r = 1; r < page.grid->rows(); ++r) {
      if (page.grid->textMatrix(r, col) != "Off") {
        page.grid->setTextMatrix(r, col, "Off");
        ++changed;
      }
    }
  }
  return changed;
}

}  // namespace zel::dups
