#include "grid/row_record.h"

#include "core/keys.h"
#include "core/record_line.h"
#include "core/text.h"
#include "grid/column_schemas.h"

namespace zel {

int recordColumnCount(const GridPage& grid) {
  int c = 1;
  while (c < grid.cols() && !isWorkingColumn(grid.textMatrix(0, c))) ++c;
  return c - 1;
}

namespace {

void appendRecord(std::string& out, const GridPage& grid, int row, std::string_view index,
                  int columns) {
  out.append(index);
  for (int c = 1; c <= columns; ++c) {
    out.push_back(',');
    out.append(grid.textMatrix(row, c));
  }
}

}  // namespace

std::optional<std::string> rowToRecord(const GridPage& grid, int row, std::string_view index) {
  if (row < 1 || row >= grid.rows() || grid.textMatrix(row, 1).empty()) return std::nullopt;
  std::string out;
  appendRecord(out, grid, row, index, recordColumnCount(grid));
  return out;
}

void recordToRow(GridPage& grid, int row, std::string_view record) {
  if (row < 1 || row >= grid.rows()) return;
  int columns = recordColumnCount(grid);
  auto fields = splitView(record, ',');
  for (int c = 1; c <= columns; ++c) {
    std::string_view value = c < static_cast<int>(fields.size()) ? fields[c] : std::string_view();
    // Line ends of a file line never belong to a cell.
    while (!value.empty() && (value.back() == '\r' || value.back() == '\n')) {
      value.remove_suffix(1);
    }
    grid.setTextMatrix(row, c, value);
  }
}

bool isFrequencyRecord(std::string_view record) {
  return record::field(record, 1).find('.') != std::string::npos;
}

std::string recordKey(std::string_view record, int system, int department, int channel) {
  return isFrequencyRecord(record) ? keys::channel(system, department, channel)
                                   : keys::talkgroup(system, department, channel);
}

int loadPageLines(GridPage& grid, const std::vector<std::string>& lines, int pageSize) {
  bool redraw = grid.redraw();
  grid.setRedraw(false);
  int count = static_cast<int>(lines.size());
  int rows = std::max(count, pageSize) + 1;
  grid.setRows(rows);
  int columns = recordColumnCount(grid);
  for (int r = 1; r < rows; ++r) {
    grid.setTextMatrix(r, 0, std::to_string(r));
    grid.setRowHeight(r, GridPage::kDefaultRowHeight);  // a filter of the last page is gone
    if (r <= count) {
      recordToRow(grid, r, lines[r - 1]);
    } else {
      for (int c = 1; c <= columns; ++c) grid.setTextMatrix(r, c, "");
    }
  }
  grid.setRedraw(redraw);
  return count;
}

std::vector<std::string> savePageLines(const GridPage& grid) {
  std::vector<std::string> lines;
  int columns = recordColumnCount(grid);
  int number = 0;
  for (int r = 1; r < grid.rows(); ++r) {
    if (grid.textMatrix(r, 1).empty()) continue;
    std::string line;
    appendRecord(line, grid, r, std::to_string(++number), columns);
    lines.push_back(std::move(line));
  }
  return lines;
}

}  // namespace zel
