// A grid row is a record line and a page-file line at once: field 0 is the row's index in
// its department and field n is the cell of column n, joined by commas with no quoting.
//
//   grid row 3:  | 3 | 154.785000 | Fire Disp | Off | NFM | CTCSS | 123.0 | ...
//   page line:   3,154.785000,Fire Disp,Off,NFM,CTCSS,123.0,...
//
// A row with an empty column 1 is no channel and is not stored. Working columns behind the
// data columns are never part of a record.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "grid/grid_page.h"

namespace zel {

// The columns 1..n that carry record fields: up to the first working column, or all.
int recordColumnCount(const GridPage& grid);

// The record of a row, with `index` in field 0; nothing when column 1 is empty.
std::optional<std::string> rowToRecord(const GridPage& grid, int row, std::string_view index);
// Writes field n of a record to column n of a row, for every record column; a field the
// record lacks empties its cell, a field beyond the grid's columns is dropped.
void recordToRow(GridPage& grid, int row, std::string_view record);

// A "." in field 1 (a frequency) makes a channel record; anything else is a talkgroup.
bool isFrequencyRecord(std::string_view record);
// "FRQ-sss-ddd-cccc" for a frequency record, "TID-sss-ddd-cccc" for a talkgroup record.
std::string recordKey(std::string_view record, int system, int department, int channel);

// Fills a built grid with a department's page lines: line i goes to row i, the grid is
// sized to the lines but never below `pageSize` data rows, and the rows are relabelled.
// Returns the number of rows filled.
int loadPageLines(GridPage& grid, const std::vector<std::string>& lines, int pageSize = 10);
// The page lines of a grid: every row with a key, numbered from 1 in grid order.
std::vector<std::string> savePageLines(const GridPage& grid);

}  // namespace zel
