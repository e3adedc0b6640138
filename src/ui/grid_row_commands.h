// The row commands of the channel and talkgroup grids, on the page itself and without a
// window: insert, delete, sort, Fill Down, the clipboard text of a block and its reading
// back. The desktop grid calls them and tells its view afterwards; rows are always
// relabelled 1..n, since a row's label is its place in the department.
//
//   clipboard text:  cell TAB cell TAB cell LF      one line a row, hidden columns left out
//                    cell TAB cell TAB cell LF
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "grid/grid_page.h"

namespace zel::ui {

// Rows 1..n labelled "1".."n" in column 0.
void relabelRows(GridPage& page, int fromRow = 1);

// Inserts `count` empty rows before data row `at` (1-based; Rows appends). The cursor
// goes to the first new row.
void insertRows(GridPage& page, int at, int count);

// Deletes data rows first..last (1-based, inclusive), moving later rows up. At least
// `keepRows` data rows remain (empty ones are added back). Returns the rows deleted.
int deleteRows(GridPage& page, int first, int last, int keepRows = 1);

// Sorts the data rows by the text of a column. Numbers (frequencies, talkgroups) compare
// by value, other texts without case; rows with an empty key column stay at the end in
// their order, and equal rows keep their order.
void sortRows(GridPage& page, int col, bool ascending);

// Copies the top cell of each selected column to the rows below it in the selection.
// Returns the cells written.
int fillDown(GridPage& page, int top, int bottom, int left, int right);

// The block as clipboard text; columns whose width is 0 are left out.
std::string blockText(const GridPage& page, int top, int bottom, int left, int right);
// Empties the block's shown cells; returns the cells that held text.
int clearBlock(GridPage& page, int top, int bottom, int left, int right);

// Splits clipboard text into rows of cells: LF (or CR LF) ends a row, TAB a cell. A
// trailing line end adds no row.
std::vector<std::vector<std::string>> splitClipboard(std::string_view text);

}  // namespace zel::ui
