// Building the grids at start: one routine a grid kind, each making the table of its
// schema with row labels, column widths and alignment. The grids then live until the end
// and are refilled, not rebuilt.
//
// Column widths are kept in the settings, section "colwidth", one value a column:
//   ccol_width<n> channel grid, tcol_width<n> talkgroup grid   default 1200
//   ucol_width<n> unit grid                                    default 1500
//   fcol_width<n> site grid                                    default 1200
// A value is read by its leading digits; 100 or less gives the default.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "core/ports.h"
#include "grid/column_schemas.h"
#include "grid/grid_env.h"
#include "grid/grid_page.h"

namespace zel {

// The widths of each grid kind by column, so that a width the user set comes back when a
// hidden column goes away again.
class ColumnWidthTable {
 public:
  int get(Schema schema, int col) const;  // 0 when nothing is kept
  void set(Schema schema, int col, int width);

 private:
  std::array<std::vector<int>, 5> widths_;
};

struct GridSetup {
  ScannerFamily family = ScannerFamily::BCD;
  SettingsStore* settings = nullptr;  // none: every column takes its default width
  ColumnWidthTable* widths = nullptr;
  GridEnv env;
  int pageSize = 10;  // data rows of a fresh page
};

inline constexpr int kLabelColumnWidth = 700;
inline constexpr int kFirstColumnWidth = 4500;
inline constexpr int kHeadingRowHeight = 400;

// "ccol_width3" and its kin; "" for a schema that keeps no widths.
std::string columnWidthKey(Schema schema, int col);
int defaultColumnWidth(Schema schema);
// The stored width of a column by the rule above (the default when none is stored).
int storedColumnWidth(SettingsStore* settings, Schema schema, int col);

// Builds a table from a heading list. `routine` names the builder in its error message
// ("setup_grid" gives "setup_grid error" for a list without headings, and the build goes
// on). False only for a null grid.
bool setupFromHeadings(GridPage* grid, Schema schema, const HeadingList& headings,
                       std::string_view routine, const GridSetup& setup);

bool setup_grid(GridPage* grid, const GridSetup& setup);   // channels
bool setup_tgrid(GridPage* grid, const GridSetup& setup);  // talkgroups
bool setup_ugrid(GridPage* grid, const GridSetup& setup);  // unit IDs
bool setup_fgrid(GridPage* grid, const GridSetup& setup);  // site frequencies

// Takes the grid's present widths into the table. The sort column is forced to width 0
// first: it is a working column and must never show.
void readBackColumnWidths(GridPage& grid, Schema schema, ColumnWidthTable& table);
// A width the user chose for one column: into the table and, at once, into the settings, so
// that it outlives the page, the run and a crash. `twips` as the page holds widths.
void keepChosenColumnWidth(const GridSetup& setup, Schema schema, int col, int twips);
// True when the settings hold a width for the column (the user chose it once).
bool columnWidthChosen(SettingsStore* settings, Schema schema, int col);
// Stores the table's widths of a schema's columns in the settings.
void saveColumnWidths(const ColumnWidthTable& table, Schema schema, ScannerFamily family,
                      SettingsStore& settings);

}  // namespace zel
