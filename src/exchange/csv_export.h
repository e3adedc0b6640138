// The exports of the favorites data as text.
//
//   "To CSV"                        channel list export
//   [ZEL CSV FILE]                  Frequency,Alpha Tag,Avoid,Mode,...
//   [FQK] name,f3,f7,Numtag: f2,    154.785000,Fire Dispatch,Off,NFM,...
//   (one line a selected system)    (one line a channel; talkgroups after, with their headings)
#pragma once

#include <string>
#include <vector>

#include "core/document.h"
#include "core/page_files.h"

namespace zel::exchange {

inline constexpr std::string_view kZelCsvHeader = "[ZEL CSV FILE]";

// A system's row of the favorites table and its selection mark ("1" selected).
struct FavoritesRow {
  std::string mark;
  std::string line;
};
// The "To CSV" file: the header, then for each selected system "[FQK] " name (field 6),
// ",", field 3, ",", field 7, ",Numtag: ", field 2, ",".
std::string zelCsvExport(const std::vector<FavoritesRow>& rows);

// One line a channel and one a talkgroup with the grid headings of the family: a heading
// line before the channels and one before the talkgroups, page rows in department order.
std::string channelCsvExport(const PageFiles& pages, ScannerFamily family);

}  // namespace zel::exchange
