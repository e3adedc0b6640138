// The grid builders by schema, for the tests that run one table over every kind of grid.
#pragma once

#include "grid/grid_setup.h"

namespace zel::test {

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
