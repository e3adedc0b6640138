#include "grid/grid_page.h"

#include <algorithm>
#include <utility>

#include "core/text.h"

namespace zel {

namespace {
const std::string kNoCell;

int clampTo(int value, int limit) {
  return std::clamp(value, 0, limit - 1);
}
}  // namespace

GridPage::GridPage(int rows, int cols) {
  setCols(cols);
  setRows(rows);
}

void GridPage::setRows(int rows) {
  rows = std::max(rows, 1);
  // resize() keeps the block contiguous and grows it geometrically, so adding one row at
  // a time stays cheap even for very long pages.
  cells_.resize(static_cast<std::size_t>(rows) * cols_);
  rowHeights_.resize(rows, kDefaultRowHeight);
  rows_ = rows;
  keepCursorInside();
}

void GridPage::setCols(int cols) {
  cols = std::max(cols, 1);
  if (cols != cols_ && rows_ > 0) {
    std::vector<std::string> moved(static_cast<std::size_t>(rows_) * cols);
    int keep = std::min(cols, cols_);
    for (int r = 0; r < rows_; ++r) {
      for (int c = 0; c < keep; ++c) {
        moved[static_cast<std::size_t>(r) * cols + c] = std::move(cell(r, c));
      }
    }
    cells_ = std::move(moved);
  }
  colWidths_.resize(cols, kDefaultColWidth);
  colAlignments_.resize(cols, kAlignLeft);
  cols_ = cols;
  keepCursorInside();
}

void GridPage::keepCursorInside() {
  if (rows_ == 0 || cols_ == 0) return;
  row_ = clampTo(row_, rows_);
  rowSel_ = clampTo(rowSel_, rows_);
  col_ = clampTo(col_, cols_);
  colSel_ = clampTo(colSel_, cols_);
}

void GridPage::setRow(int row) {
  row_ = clampTo(row, rows_);
  rowSel_ = row_;
}

void GridPage::setCol(int col) {
  col_ = clampTo(col, cols_);
  colSel_ = col_;
}

void GridPage::setRowSel(int row) {
  rowSel_ = clampTo(row, rows_);
}
void GridPage::setColSel(int col) {
  colSel_ = clampTo(col, cols_);
}

const std::string& GridPage::textMatrix(int row, int col) const {
  if (!inside(row, col)) return kNoCell;
  return cells_[static_cast<std::size_t>(row) * cols_ + col];
}

void GridPage::setTextMatrix(int row, int col, std::string_view text) {
  if (inside(row, col)) cell(row, col).assign(text);
}

void GridPage::setText(std::string_view text) {
  if (fillStyle_ == FillStyle::Single) {
    setTextMatrix(row_, col_, text);
    return;
  }
  for (int r = selTop(); r <= selBottom(); ++r) {
    for (int c = selLeft(); c <= selRight(); ++c) cell(r, c).assign(text);
  }
}

int GridPage::colWidth(int col) const {
  return col >= 0 && col < cols_ ? colWidths_[col] : 0;
}

void GridPage::setColWidth(int col, int width) {
  if (col >= 0 && col < cols_) colWidths_[col] = std::max(width, 0);
}

int GridPage::rowHeight(int row) const {
  return row >= 0 && row < rows_ ? rowHeights_[row] : 0;
}

void GridPage::setRowHeight(int row, int height) {
  if (row >= 0 && row < rows_) rowHeights_[row] = std::max(height, 0);
}

int GridPage::colAlignment(int col) const {
  return col >= 0 && col < cols_ ? colAlignments_[col] : kAlignLeft;
}

void GridPage::setColAlignment(int col, int alignment) {
  if (col >= 0 && col < cols_) colAlignments_[col] = alignment;
}

void GridPage::clear() {
  for (auto& text : cells_) text.clear();
}

int GridPage::findColumn(std::string_view heading) const {
  for (int c = 1; c < cols_; ++c) {
    if (iequals(textMatrix(0, c), heading)) return c;
  }
  return -1;
}

std::vector<int> GridPage::takeRowsForColours() {
  std::vector<int> out;
  out.swap(colourRows_);
  return out;
}

}  // namespace zel
