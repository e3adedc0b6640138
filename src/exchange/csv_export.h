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
  std::string name;  // the system's name, written when field 6 of the line is empty
};
// The "To CSV" file: the header, then for each selected system "[FQK] " name, ",",
// field 3, ",", field 7, ",Numtag: ", field 2, ",".
std::string zelCsvExport(const std::vector<FavoritesRow>& rows);

// One line a channel and one a talkgroup with the grid headings of the family: a heading
// line before the channels and one before the talkgroups, page rows in department order.
std::string channelCsvExport(const PageFiles& pages, ScannerFamily family);
// The same with the names of each row's system and department in two first columns,
// "System" and "Department", so that `zel csv import` puts every row back where it was.
std::string channelCsvExport(const Document& doc, const PageFiles& pages);

}  // namespace zel::exchange
