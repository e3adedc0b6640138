// GridPage: the rows-by-columns table of strings behind every channel, talkgroup, unit and
// site grid. Row 0 holds the headings, column 0 the row labels, (0,0) "#". A cell holds
// text only, so a value keeps its exact form from entry to file.
//
//        col 0   1            2            3
//   row 0  "#"   "Frequency"  "Alpha Tag"  "Avoid"  ...
//   row 1  "1"   "154.785000" "Fire Disp"  "Off"
//   row 2  "2"   ...
//
// Cells are stored row after row in one block, so a page of 100,000 rows is a single
// allocation and growing it by one row only appends one row of cells.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace zel {

class GridPage {
 public:
  enum class FillStyle { Single = 0, Repeat = 1 };
  // Column alignments as the view understands them.
  static constexpr int kAlignLeft = 1;
  static constexpr int kAlignCentre = 4;
  static constexpr int kAlignRight = 7;
  static constexpr int kDefaultColWidth = 960;  // twips
  static constexpr int kDefaultRowHeight = 240;

  explicit GridPage(int rows = 2, int cols = 2);

  // Size. At least one row and one column always remain; a shrink keeps the cursor and
  // the selection inside the table.
  int rows() const { return rows_; }
  void setRows(int rows);
  int cols() const { return cols_; }
  void setCols(int cols);

  // The current cell. Setting Row or Col also collapses the selection onto it, so a block
  // is selected by setting Row/Col first and RowSel/ColSel after.
  int row() const { return row_; }
  void setRow(int row);
  int col() const { return col_; }
  void setCol(int col);
  int rowSel() const { return rowSel_; }
  void setRowSel(int row);
  int colSel() const { return colSel_; }
  void setColSel(int col);
  // The selection rectangle, ordered.
  int selTop() const { return row_ < rowSel_ ? row_ : rowSel_; }
  int selBottom() const { return row_ < rowSel_ ? rowSel_ : row_; }
  int selLeft() const { return col_ < colSel_ ? col_ : colSel_; }
  int selRight() const { return col_ < colSel_ ? colSel_ : col_; }

  // Cell access; a cell outside the table reads "" and ignores writes.
  const std::string& textMatrix(int row, int col) const;
  void setTextMatrix(int row, int col, std::string_view text);
  // The current cell. With FillStyle Repeat a write reaches every cell of the selection.
  const std::string& text() const { return textMatrix(row_, col_); }
  void setText(std::string_view text);
  FillStyle fillStyle() const { return fillStyle_; }
  void setFillStyle(FillStyle style) { fillStyle_ = style; }

  // A width or height of 0 hides the column or row: cursor walks skip it.
  int colWidth(int col) const;
  void setColWidth(int col, int width);
  int rowHeight(int row) const;
  void setRowHeight(int row, int height);
  bool colHidden(int col) const { return colWidth(col) == 0; }
  bool rowHidden(int row) const { return rowHeight(row) == 0; }
  int colAlignment(int col) const;
  void setColAlignment(int col, int alignment);

  // Empties every cell, headings and labels too; the size stays.
  void clear();
  // Off while a bulk write runs, so a view can wait for the end.
  bool redraw() const { return redraw_; }
  void setRedraw(bool on) { redraw_ = on; }

  // The first column among 1 to Cols-1 whose heading equals the text, ignoring case; -1
  // when none does. Column 0 is never searched.
  int findColumn(std::string_view heading) const;

  // Rows that were added by a cursor walk and still need their colours from the view.
  void markForColours(int row) { colourRows_.push_back(row); }
  std::vector<int> takeRowsForColours();

 private:
  bool inside(int row, int col) const { return row >= 0 && row < rows_ && col >= 0 && col < cols_; }
  std::string& cell(int row, int col) {
    return cells_[static_cast<std::size_t>(row) * cols_ + col];
  }
  void keepCursorInside();

  int rows_ = 0;
  int cols_ = 0;
  std::vector<std::string> cells_;  // row-major, rows_ * cols_
  std::vector<int> colWidths_;
  std::vector<int> colAlignments_;
  std::vector<int> rowHeights_;
  int row_ = 0, col_ = 0, rowSel_ = 0, colSel_ = 0;
  FillStyle fillStyle_ = FillStyle::Single;
  bool redraw_ = true;
  std::vector<int> colourRows_;
};

}  // namespace zel
