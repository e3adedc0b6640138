// Find Duplicates: the searches behind the Enhanced Find list. Rows come from the work tree
// of channel and talkgroup rows, one a node:
//
//   key  FRQ-sss-ggg-cccc   (TID- for talkgroups: system, department, four-digit channel)
//   text 12,154.785000,Fire Dispatch,Off,NFM,CTCSS,123.0,...   (field 1 the value)
//
// The pairwise search serves one system and compares frequencies as numbers; the sorted
// search serves the whole document and compares frequencies on four decimals as text.
// Talkgroups are text in both. A list row reads:
//
//   #  Data:             Subtone:  Alpha Tag:  System:  Department:  Group:  Channel:  Key:
//   1  ORG:154.785000    NFM       Fire Disp   County   Fire         001     0012      FRQ-...
//   2  DUP:154.7850      ...
#pragma once

#include <atomic>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "core/document_tree.h"

namespace zel::dups {

// The search a dialog runs, by the number its timer is given.
enum class Selector {
  LockOut = 8,  // "Review LockOut Channels"
  FrequenciesOneSystem = 10,
  TalkgroupsOneSystem = 11,
  FrequenciesAll = 12,
  TalkgroupsAll = 13,
};

struct KeyedRow {
  std::string key;   // FRQ-sss-ggg-cccc or TID-sss-ggg-cccc
  std::string line;  // the row's record line
};

struct MatchRow {
  std::string number;      // "#"
  std::string data;        // "Data:": "ORG:value" or "DUP:value" ("DUP: value" when sorted)
  std::string subtone;     // "Subtone:"
  std::string alphaTag;    // "Alpha Tag:"
  std::string system;      // "System:"
  std::string department;  // "Department:"
  std::string group;       // "Group:"
  std::string channel;     // "Channel:"
  std::string key;         // "Key:", the node key
  std::string listKey;     // the item's own key, "A*" and the row number
  bool marked = false;
};

// Names shown for the numbers in a key; unset lookups show the numbers.
struct NameLookup {
  std::function<std::string(int system)> system;
  std::function<std::string(int system, int department)> department;
};

// What a running search is told between its outer steps: the percentage done; it returns
// false to stop (the dialog was closed). The list stays as it stands.
using Progress = std::function<bool(int percent)>;

// The rows of a work tree whose keys start with the prefix, in tree order.
std::vector<KeyedRow> rowsOf(const DocumentTree& work, std::string_view prefix);

// Selectors 10 and 11. With currentSystem above 0 only that system's rows take part.
std::vector<MatchRow> pairwiseSearch(const std::vector<KeyedRow>& rows, std::string_view prefix,
                                     int currentSystem, const NameLookup& names = {},
                                     const Progress& progress = {});
// Selectors 12 and 13.
std::vector<MatchRow> sortedSearch(const std::vector<KeyedRow>& rows, std::string_view prefix,
                                   const NameLookup& names = {}, const Progress& progress = {});

// "Select Dups": marks every row whose "Data:" holds "DUP", so each group keeps its origin.
int selectDups(std::vector<MatchRow>& rows);
void selectAll(std::vector<MatchRow>& rows, bool marked);
// "Copy To Clipboard": one line a row, the columns joined by tabs.
std::string listText(const std::vector<MatchRow>& rows);

inline constexpr std::string_view kListHeadings[] = {
    "#", "Data:", "Subtone:", "Alpha Tag:", "System:", "Department:", "Group:", "Channel:", "Key:"};

}  // namespace zel::dups
