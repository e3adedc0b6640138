// Find/Replace over grids: the column by heading, each cell trimmed and compared in upper
// case, a match being the search text anywhere in the cell. Find leaves the last match of
// its pass selected (it keeps no position: the next Find starts at the top again); Replace
// puts the replacement in place of every match, over one grid or all pages.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "grid/grid_page.h"

namespace zel {

struct FindResult {
  std::vector<int> rows;  // the rows that matched, in order
};

// An empty heading means "Frequency".
FindResult findInGrid(GridPage& grid, std::string_view heading, std::string_view search);
// Returns the cells changed.
int replaceInGrid(GridPage& grid, std::string_view heading, std::string_view search,
                  std::string_view replacement);
int replaceInPages(const std::vector<GridPage*>& pages, std::string_view heading,
                   std::string_view search, std::string_view replacement);

}  // namespace zel
