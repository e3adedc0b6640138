#include "database/bulk_edit.h"

#include <algorithm>
#include <map>

#include "core/keys.h"
#include "core/page_files.h"
#include "core/record_line.h"
#include "core/text.h"
#include "database/bulk_lists.h"

namespace zel::bulk {

namespace {

// The ticked rows of one department: row number -> whether its key named a talkgroup.
using RowKinds = std::map<int, bool>;

std::string refusal(const ChannelChange& c) {
  return "\"" + c.value + "\" is not a value of " + std::string(info(c.setting).caption);
}

// Rewrites the ticked lines of one page; returns how many lines changed and counts the
// lines that were ticked.
int changeLines(std::vector<std::string>& lines, const RowKinds& ticked,
                const std::vector<ChannelChange>& ordered, ScannerFamily family, int& matched) {
  int changed = 0;
  for (std::string& line : lines) {
    const auto it = ticked.find(splitPageLine(line).number);
    if (it == ticked.end()) continue;
    ++matched;
    std::string next = line;
    for (const ChannelChange& c : ordered) {
      const int column = columnFor(c.setting, it->second, family);
      if (column > 0) next = record::withField(next, column, c.value);
    }
    if (next != line) {
      line = std::move(next);
      ++changed;
    }
  }
  return changed;
}

}  // namespace

BulkResult applyToChannels(Document& doc, formats::RowStore& rows,
                           const std::vector<std::string>& rowKeys,
                           std::vector<ChannelChange> changes, Feedback& feedback) {
  BulkResult result;
  auto fail = [&](std::string text) {
    feedback.message(text);
    result.message = std::move(text);
    return result;
  };
  if (rowKeys.empty()) return fail(std::string(kNoChannels));
  if (changes.empty()) return fail(std::string(kNoItem));
  for (const ChannelChange& c : changes) {
    const std::vector<std::string>& words = choicesFor(c.setting);
    if (std::find(words.begin(), words.end(), c.value) == words.end()) return fail(refusal(c));
  }
  std::stable_sort(changes.begin(), changes.end(),
                   [](const ChannelChange& a, const ChannelChange& b) {
                     return settingIndex(a.setting) < settingIndex(b.setting);
                   });

  std::map<std::string, RowKinds> byDepartment;
  for (const std::string& key : rowKeys) {
    const std::string department = departmentOfChannel(key);
    if (department.empty()) continue;
    byDepartment[department][keys::numberAt(key, 13)] = startsWith(key, "TID-");
  }

  // Every page is worked out before any is stored, so a refusal above or a key that leads
  // nowhere leaves the store as it was.
  struct Rewrite {
    std::string department;
    std::vector<std::string> before;
    std::vector<std::string> after;
  };
  std::vector<Rewrite> rewritten;
  for (const auto& [department, ticked] : byDepartment) {
    std::vector<std::string> lines = rows.load(department);
    std::vector<std::string> before = lines;
    const int changed = changeLines(lines, ticked, changes, doc.family, result.matched);
    if (changed == 0) continue;
    result.changed += changed;
    rewritten.push_back({department, std::move(before), std::move(lines)});
  }
  for (Rewrite& r : rewritten) {
    rows.remove(r.department);
    if (!rows.take(r.department, std::move(r.after))) {
      // The store refused the page: it gets its old rows back rather than none.
      rows.take(r.department, std::move(r.before));
      return fail("The rows of " + rows.where(r.department) + " could not be stored.");
    }
    ++result.pages;
    doc.changed = true;
  }
  result.ok = true;
  return result;
}

}  // namespace zel::bulk
