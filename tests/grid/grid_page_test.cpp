#include "grid/grid_page.h"

#include <gtest/gtest.h>

#include "grid_test_support.h"

namespace zel {
namespace {

GridPage numbered(int rows, int cols) {
  GridPage grid(rows, cols);
  for (int r = 0; r < rows; ++r) {
    for (int c = 0; c < cols; ++c) {
      grid.setTextMatrix(r, c, std::to_string(r) + ":" + std::to_string(c));
    }
  }
  return grid;
}

TEST(GridPage, RepeatFillWritesTheWholeSelectionAndSingleOnlyTheCell) {
  struct Case {
    int row, col, rowSel, colSel;
    GridPage::FillStyle style;
    int written;
  };
  const Case cases[] = {
      {2, 2, 4, 3, GridPage::FillStyle::Repeat, 6},
      {4, 3, 2, 2, GridPage::FillStyle::Repeat, 6},  // selection drawn upwards
      {2, 2, 4, 3, GridPage::FillStyle::Single, 1},
      {3, 1, 3, 1, GridPage::FillStyle::Repeat, 1},
  };
  for (const auto& c : cases) {
    GridPage grid(6, 5);
    test::moveTo(grid, c.row, c.col);
    grid.setRowSel(c.rowSel);
    grid.setColSel(c.colSel);
    grid.setFillStyle(c.style);
    grid.setText("On");
    int count = 0;
    for (int r = 0; r < grid.rows(); ++r) {
      for (int col = 0; col < grid.cols(); ++col) count += grid.textMatrix(r, col) == "On";
    }
    EXPECT_EQ(count, c.written);
    EXPECT_EQ(grid.textMatrix(c.row, c.col), "On");
  }
}

TEST(GridPage, SettingTheCursorCollapsesTheSelection) {
  GridPage grid(10, 5);
  grid.setRow(2);
  grid.setRowSel(6);
  grid.setCol(1);
  grid.setColSel(3);
  grid.setRow(4);  // only the axis that was set collapses
  EXPECT_EQ(std::make_pair(grid.rowSel(), grid.colSel()), std::make_pair(4, 3));
  grid.setCol(2);
  EXPECT_EQ(grid.colSel(), 2);
}

TEST(GridPage, ResizingKeepsCellsAndTheCursorInsideAndClearKeepsTheSize) {
  GridPage grid = numbered(4, 3);
  test::moveTo(grid, 3, 2);
  grid.setCols(5);
  EXPECT_EQ(test::cells(grid, {{3, 2}, {3, 4}}), "3:2|");
  grid.setCols(2);  // the cursor comes inside; (2, 2) lies beyond the table
  EXPECT_EQ(grid.col(), 1);
  EXPECT_EQ(test::cells(grid, {{2, 1}, {2, 2}}), "2:1|");
  grid.setRows(2);
  EXPECT_EQ(grid.row(), 1);
  grid.setRows(4);  // rows come back empty
  EXPECT_EQ(test::cells(grid, {{3, 0}, {1, 1}}), "|1:1");
  grid.setRows(0);
  EXPECT_EQ(grid.rows(), 1);
  // Clear empties the headings too but keeps the size.
  GridPage cleared = numbered(3, 4);
  cleared.clear();
  EXPECT_EQ(std::make_pair(cleared.rows(), cleared.cols()), std::make_pair(3, 4));
  for (int r = 0; r < 3; ++r) {
    for (int c = 0; c < 4; ++c) EXPECT_EQ(cleared.textMatrix(r, c), "");
  }
}

TEST(GridPage, CellsOutsideTheTableReadEmptyAndIgnoreWrites) {
  GridPage grid = numbered(3, 3);
  for (auto [r, c] : {std::pair{-1, 0}, {0, -1}, {3, 0}, {0, 3}}) {
    grid.setTextMatrix(r, c, "x");
    EXPECT_EQ(grid.textMatrix(r, c), "");
    EXPECT_EQ(grid.colWidth(c < 0 || c >= 3 ? c : 99), 0);
  }
}

TEST(GridPage, ColumnsAreFoundByHeadingWithoutCase) {
  GridPage grid(2, 5);
  test::fill(grid, {{0, 0, "#"}, {0, 1, "Frequency"}, {0, 2, "Alpha Tag"}, {0, 3, "Avoid"}});
  grid.setTextMatrix(0, 4, "Alpha Tag");
  // The first match wins; column 0 is never searched.
  for (const auto& [heading, col] :
       {std::pair{"alpha tag", 2}, {"AVOID", 3}, {"#", -1}, {"Alpha", -1}})
    EXPECT_EQ(grid.findColumn(heading), col) << heading;
}

TEST(GridPage, WidthsAndHeightsOfZeroHide) {
  GridPage grid(5, 5);
  EXPECT_FALSE(grid.colHidden(2));
  grid.setColWidth(2, 0);
  grid.setRowHeight(3, 0);
  EXPECT_TRUE(grid.colHidden(2));
  EXPECT_TRUE(grid.rowHidden(3));
  grid.setColWidth(2, -5);  // a negative width is a hidden one, not a wider one
  EXPECT_EQ(grid.colWidth(2), 0);
  grid.setRows(20);
  EXPECT_FALSE(grid.rowHidden(19));
}

}  // namespace
}  // namespace zel
