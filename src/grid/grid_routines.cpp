#include "grid/grid_routines.h"

#include "core/text.h"
#include "grid/column_schemas.h"

namespace zel {

int g_get_colnum(const GridPage* grid, std::string_view heading, const GridEnv& env) {
  if (!grid) {
    env.noInput("func g_get_colnum no_invoer");
    return -1;
  }
  return grid->findColumn(heading);
}

std::string g_get_data(const GridPage* grid, int row, std::string_view heading,
                       const GridEnv& env) {
  if (!grid) {
    env.noInput("func g_get_data no_invoer");
    return {};
  }
  int col = grid->findColumn(heading);
  if (col < 0) return {};
  if (row < 0 || row >= grid->rows()) {
    env.message("row error in get_data");
    return {};
  }
  return grid->textMatrix(row, col);
}

std::string g_get_header(const GridPage* grid, const GridEnv& env) {
  if (!grid) {
    env.noInput("func g_get_header no_invoer");
    return {};
  }
  return grid->textMatrix(0, grid->col());
}

int g_remove_hidd(GridPage* grid, const GridEnv& env) {
  if (!grid) {
    env.noInput("func g_remove_hidd no_invoer");
    return -1;
  }
  int col = grid->findColumn(kLastSortColumn);
  if (col >= 0 && col == grid->cols() - 1) grid->setCols(grid->cols() - 1);
  return col;
}

bool incr_celld(GridPage* grid, const GridEnv& env) {
  if (!grid) {
    env.noInput("incr_celld no_invoer");
    return false;
  }
  // A loop rather than the routine calling itself: a long run of hidden rows (a filtered
  // page) must not go deep.
  while (true) {
    if (grid->row() + 1 == grid->rows()) {
      int added = grid->rows();
      grid->setRows(added + 1);
      grid->setTextMatrix(added, 0, std::to_string(added));
      grid->markForColours(added);
    }
    int col = grid->col();
    grid->setRow(grid->row() + 1);
    grid->setCol(col);
    if (!grid->rowHidden(grid->row())) return true;
  }
}

bool moveRight(GridPage* grid, const GridEnv& env) {
  if (!grid) {
    env.noInput("g_r_elines no_invoer");
    return false;
  }
  int row = grid->row();
  int col = grid->col();
  while (true) {
    if (col < grid->cols() - 1) {
      ++col;
      if (grid->colHidden(col)) continue;
    } else {
      // Past the last column: column 1 of the next row that is shown.
      int next = row + 1;
      while (next < grid->rows() && grid->rowHidden(next)) ++next;
      if (next >= grid->rows()) return false;
      row = next;
      col = 1;
      if (grid->colHidden(col)) continue;
    }
    grid->setRow(row);
    grid->setCol(col);
    return true;
  }
}

int g_copy_alpha(GridPage* grid, const GridEnv& env) {
  if (!grid) {
    env.noInput("g_copy_alpha no_invoer");
    return 0;
  }
  int source = grid->findColumn("Frequency");
  if (source < 0) source = grid->findColumn("Talkgroup");
  int target = grid->findColumn(kNameHeading);
  if (source < 0 || target < 0) return 0;
  int copied = 0;
  for (int r = std::max(grid->selTop(), 1); r <= grid->selBottom(); ++r) {
    const std::string& key = grid->textMatrix(r, source);
    if (key.empty()) continue;
    grid->setTextMatrix(r, target, key);
    ++copied;
  }
  return copied;
}

int g_align_text(GridPage* grid, std::string_view heading, TagAlignment mode, const GridEnv& env,
                 int width) {
  if (!grid) {
    env.noInput("g_align_text no_invoer");
    return 0;
  }
  int col = grid->findColumn(heading);
  if (col < 0) return 0;
  int changed = 0;
  for (int r = 1; r < grid->rows(); ++r) {
    const std::string& old = grid->textMatrix(r, col);
    if (old.empty()) continue;
    std::string tag = trim(old);
    int room = width - static_cast<int>(tag.size());
    if (room > 0 && mode != TagAlignment::Left) {
      tag.insert(0, static_cast<std::size_t>(mode == TagAlignment::Centre ? room / 2 : room), ' ');
    }
    if (tag != old) {
      grid->setTextMatrix(r, col, tag);
      ++changed;
    }
  }
  return changed;
}

}  // namespace zel
