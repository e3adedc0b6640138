// The grid routines every operation is written with: find a column by heading, read a
// cell by heading, move the cursor, and the small column jobs. Each takes the grid by
// pointer: a null grid is logged as the routine's "no_invoer" line and nothing is done.
// A column that the grid's schema lacks gives -1 or "", and the caller then does nothing:
// shared operations name columns of every schema freely and only those present act.
#pragma once

#include <string>
#include <string_view>

#include "grid/grid_env.h"
#include "grid/grid_page.h"

namespace zel {

// Column of a heading, compared without case over columns 1 to Cols-1; -1 when absent.
int g_get_colnum(const GridPage* grid, std::string_view heading, const GridEnv& env = {});
// The cell of a row under a heading; "" when the column is absent. A row outside the grid
// shows "row error in get_data" and gives "".
std::string g_get_data(const GridPage* grid, int row, std::string_view heading,
                       const GridEnv& env = {});
// The heading of the current column.
std::string g_get_header(const GridPage* grid, const GridEnv& env = {});
// Drops the "lastsort" column when it is the last one; returns where it was found, or -1.
int g_remove_hidd(GridPage* grid, const GridEnv& env = {});

// The move down: past the last row the grid grows by one row (labelled and marked for its
// colours) and the cursor goes there, keeping its column; hidden rows are skipped.
// Returns false only for a null grid.
bool incr_celld(GridPage* grid, const GridEnv& env = {});
// The move right: skips hidden columns; from the last column it goes to column 1 of the
// next shown row. Where there is nothing further the cursor stays. False when it stays.
bool moveRight(GridPage* grid, const GridEnv& env = {});

// Copies "Frequency" (or, on a talkgroup grid, "Talkgroup") of the selected rows into
// their "Alpha Tag" cells; rows without a key are left alone. Returns the rows copied.
int g_copy_alpha(GridPage* grid, const GridEnv& env = {});

enum class TagAlignment { Left, Centre, Right };
// The scanner shows a tag on a line of this many characters.
inline constexpr int kTagLineWidth = 16;
// Pads every tag of the column under `heading` to the alignment on a line of `width`
// characters: left strips leading blanks, centre and right put blanks in front. Tags as
// long as the line or longer are only trimmed. Returns the cells changed.
int g_align_text(GridPage* grid, std::string_view heading, TagAlignment mode,
                 const GridEnv& env = {}, int width = kTagLineWidth);

}  // namespace zel
