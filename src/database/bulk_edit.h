// The bulk channel editor's apply: the ticked settings go into the ticked rows of the page
// store, one column each, in the order of the settings table. A row keeps every other
// column exactly as it was; a setting that is not ticked leaves its column alone, whatever
// its combo shows.
//
//   before   4,46.100000,Pagers,Off,FM,,,Fire Dispatch,Off,2,0,Off,Auto,Yellow,On,Off,Off
//   Delay:=5, Alert Tone:=3
//   after    4,46.100000,Pagers,Off,FM,,,Fire Dispatch,Off,5,0,3,Auto,Yellow,On,Off,Off
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "core/document.h"
#include "core/ports.h"
#include "database/bulk_settings.h"
#include "formats/row_store.h"

namespace zel::bulk {

inline constexpr std::string_view kNoChannels = "Please select one or more channels";
inline constexpr std::string_view kNoItem = "Please select which item to change.";

struct BulkResult {
  bool ok = false;
  std::string message;  // what the user was told when nothing could be done
  int changed = 0;      // rows (or records) whose text changed
  int matched = 0;      // ticked rows (or records) found in the document
  int pages = 0;        // department pages rewritten
};

// Applies the changes to the rows named by channel keys ("FRQ-sss-ddd-cccc",
// "TID-sss-ddd-cccc"). The row kind comes from the key: a talkgroup row takes a setting at
// its talkgroup column, a frequency row at its frequency column, and a setting without a
// column in that kind of row is passed over. A value that is not on its setting's list is
// refused before anything changes. The document counts as changed when a row did.
BulkResult applyToChannels(Document& doc, formats::RowStore& rows,
                           const std::vector<std::string>& rowKeys,
                           std::vector<ChannelChange> changes, Feedback& feedback);

}  // namespace zel::bulk
