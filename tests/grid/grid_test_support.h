// The grid builders by schema, for the tests that run one table over every kind of grid, and
// cell helpers that write or read a run of cells in one line.
#pragma once

#include <initializer_list>
#include <string>

#include "grid/grid_setup.h"

namespace zel::test {

struct At {
  int row, col;
};
struct Put {
  int row, col;
  const char* text;
};

// The texts of the given cells, '|' between.
inline std::string cells(const GridPage& grid, std::initializer_list<At> at) {
  std::string out;
  for (const At& a : at) out += (&a == at.begin() ? "" : "|") + grid.textMatrix(a.row, a.col);
  return out;
}

inline void fill(GridPage& grid, std::initializer_list<Put> puts) {
  for (const Put& p : puts) grid.setTextMatrix(p.row, p.col, p.text);
}

// The cursor as "row,col", and setting both at once.
inline std::string cursor(const GridPage& grid) {
  return std::to_string(grid.row()) + "," + std::to_string(grid.col());
}
inline void moveTo(GridPage& grid, int row, int col) {
  grid.setRow(row);
  grid.setCol(col);
}

inline bool setupFor(GridPage* grid, Schema schema, const GridSetup& setup) {
  switch (schema) {
    case Schema::Channel:
      return setup_grid(grid, setup);
    case Schema::Talkgroup:
      return setup_tgrid(grid, setup);
    case Schema::Unit:
      return setup_ugrid(grid, setup);
    default:
      return setup_fgrid(grid, setup);
  }
}

}  // namespace zel::test
