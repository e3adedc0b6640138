#include "grid/find_replace.h"

#include "core/text.h"

namespace zel {

namespace {

int columnOf(const GridPage& grid, std::string_view heading) {
  return grid.findColumn(heading.empty() ? std::string_view("Frequency") : heading);
}

}  // namespace

FindResult findInGrid(GridPage& grid, std::string_view heading, std::string_view search) {
  FindResult result;
  int col = columnOf(grid, heading);
  if (col < 0) return result;
  std::string wanted = toUpper(search);
  for (int r = 1; r < grid.rows(); ++r) {
    std::string cell = toUpper(trimView(grid.textMatrix(r, col)));
    if (cell.find(wanted) == std::string::npos) continue;
    result.rows.push_back(r);
    // The selection follows each match; the view scrolls to it.
    grid.setRow(r);
    grid.setCol(col);
  }
  return result;
}

int replaceInGrid(GridPage& grid, std::string_view heading, std::string_view search,
                  std::string_view replacement) {
  int col = columnOf(grid, heading);
  if (col < 0 || search.empty()) return 0;
  std::string wanted = toUpper(search);
  int changed = 0;
  for (int r = 1; r < grid.rows(); ++r) {
    std::string cell = trim(grid.textMatrix(r, col));
    std::string upper = toUpper(cell);
    if (upper.find(wanted) == std::string::npos) continue;
    std::string out;
    std::size_t start = 0;
    for (std::size_t pos = upper.find(wanted); pos != std::string::npos;
         pos = upper.find(wanted, start)) {
      out.append(cell, start, pos - start);
      out.append(replacement);
      start = pos + wanted.size();
    }
    out.append(cell, start, std::string::npos);
    grid.setTextMatrix(r, col, out);
    grid.setRow(r);
    grid.setCol(col);
    ++changed;
  }
  return changed;
}

int replaceInPages(const std::vector<GridPage*>& pages, std::string_view heading,
                   std::string_view search, std::string_view replacement) {
  int changed = 0;
  for (GridPage* page : pages) {
    if (page) changed += replaceInGrid(*page, heading, search, replacement);
  }
  return changed;
}

}  // namespace zel
