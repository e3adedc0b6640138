#include "ui/grid_row_commands.h"

#include <algorithm>
#include <numeric>

#include "core/text.h"

namespace zel::ui {

namespace {

// A data row's cells, column 0 left out.
std::vector<std::string> takeRow(const GridPage& page, int row) {
  std::vector<std::string> cells;
  cells.reserve(static_cast<std::size_t>(page.cols()));
  for (int c = 1; c < page.cols(); ++c) cells.push_back(page.textMatrix(row, c));
  return cells;
}

void putRow(GridPage& page, int row, const std::vector<std::string>& cells) {
  for (int c = 1; c < page.cols(); ++c)
    page.setTextMatrix(row, c, static_cast<std::size_t>(c - 1) < cells.size() ? cells[c - 1] : "");
}

void emptyRow(GridPage& page, int row) {
  for (int c = 1; c < page.cols(); ++c) page.setTextMatrix(row, c, "");
}

// A number as the sort sees it: a plain decimal, or nothing.
bool numberOf(const std::string& text, double& value) {
  std::string_view t = trimView(text);
  if (t.empty() || !isPlainNumber(t)) return false;
  value = leadingNumber(t);
  return true;
}

}  // namespace

void relabelRows(GridPage& page, int fromRow) {
  for (int r = std::max(1, fromRow); r < page.rows(); ++r)
    page.setTextMatrix(r, 0, std::to_string(r));
}

void insertRows(GridPage& page, int at, int count) {
  if (count <= 0) return;
  const int oldRows = page.rows();
  at = std::clamp(at, 1, oldRows);
  page.setRows(oldRows + count);
  // Later rows move down by `count`, from the end so nothing is overwritten.
  for (int r = oldRows - 1; r >= at; --r) {
    putRow(page, r + count, takeRow(page, r));
    page.setRowHeight(r + count, page.rowHeight(r));
  }
  for (int r = at; r < at + count; ++r) {
    emptyRow(page, r);
    page.setRowHeight(r, GridPage::kDefaultRowHeight);
  }
  relabelRows(page, at);
  const int col = page.col();
  page.setRow(at);
  page.setCol(std::max(1, col));
}

int deleteRows(GridPage& page, int first, int last, int keepRows) {
  first = std::max(first, 1);
  last = std::min(last, page.rows() - 1);
  if (first > last) return 0;
  const int count = last - first + 1;
  for (int r = last + 1; r < page.rows(); ++r) {
    putRow(page, r - count, takeRow(page, r));
    page.setRowHeight(r - count, page.rowHeight(r));
  }
  const int remaining = page.rows() - 1 - count;
  const int dataRows = std::max(remaining, std::max(keepRows, 1));
  page.setRows(dataRows + 1);
  for (int r = remaining + 1; r < page.rows(); ++r) {
    emptyRow(page, r);
    page.setRowHeight(r, GridPage::kDefaultRowHeight);
  }
  relabelRows(page, first);
  const int col = page.col();
  page.setRow(std::min(first, page.rows() - 1));
  page.setCol(std::max(1, col));
  return count;
}

void sortRows(GridPage& page, int col, bool ascending) {
  const int dataRows = page.rows() - 1;
  if (dataRows < 2 || col < 1 || col >= page.cols()) return;
  std::vector<std::vector<std::string>> rows;
  rows.reserve(static_cast<std::size_t>(dataRows));
  for (int r = 1; r <= dataRows; ++r) rows.push_back(takeRow(page, r));

  struct Key {
    bool empty;
    bool numeric;
    double number;
    std::string text;  // lower case
  };
  std::vector<Key> keys;
  keys.reserve(rows.size());
  for (const auto& cells : rows) {
    Key k{};
    const std::string& t = cells[static_cast<std::size_t>(col - 1)];
    // A row without its key (column 1) is no record: it waits at the end.
    k.empty = trimView(cells[0]).empty() || trimView(t).empty();
    k.numeric = numberOf(t, k.number);
    k.text = toLower(trimView(t));
    keys.push_back(std::move(k));
  }
  std::vector<std::size_t> order(rows.size());
  std::iota(order.begin(), order.end(), 0);
  std::stable_sort(order.begin(), order.end(), [&](std::size_t a, std::size_t b) {
    const Key& x = keys[a];
    const Key& y = keys[b];
    if (x.empty != y.empty) return y.empty;
    if (x.empty) return false;
    // Numbers before words, so a column of talkgroups with a few "i123" stays readable.
    int cmp;
    if (x.numeric && y.numeric) {
      cmp = x.number < y.number ? -1 : (x.number > y.number ? 1 : 0);
    } else if (x.numeric != y.numeric) {
      cmp = x.numeric ? -1 : 1;
    } else {
      cmp = x.text.compare(y.text);
    }
    return ascending ? cmp < 0 : cmp > 0;
  });
  for (int r = 1; r <= dataRows; ++r) putRow(page, r, rows[order[static_cast<std::size_t>(r - 1)]]);
  relabelRows(page);
}

int fillDown(GridPage& page, int top, int bottom, int left, int right) {
  int written = 0;
  top = std::max(top, 1);
  left = std::max(left, 1);
  for (int c = left; c <= right && c < page.cols(); ++c) {
    if (page.colHidden(c)) continue;
    const std::string value = page.textMatrix(top, c);
    for (int r = top + 1; r <= bottom && r < page.rows(); ++r) {
      if (page.rowHidden(r)) continue;
      page.setTextMatrix(r, c, value);
      ++written;
    }
  }
  return written;
}

std::string blockText(const GridPage& page, int top, int bottom, int left, int right) {
  std::string out;
  for (int r = std::max(top, 1); r <= bottom && r < page.rows(); ++r) {
    bool first = true;
    for (int c = std::max(left, 1); c <= right && c < page.cols(); ++c) {
      if (page.colHidden(c)) continue;
      if (!first) out += '\t';
      out += page.textMatrix(r, c);
      first = false;
    }
    out += '\n';
  }
  return out;
}

int clearBlock(GridPage& page, int top, int bottom, int left, int right) {
  int cleared = 0;
  for (int r = std::max(top, 1); r <= bottom && r < page.rows(); ++r) {
    for (int c = std::max(left, 1); c <= right && c < page.cols(); ++c) {
      if (page.colHidden(c) || page.textMatrix(r, c).empty()) continue;
      page.setTextMatrix(r, c, "");
      ++cleared;
    }
  }
  return cleared;
}

std::vector<std::vector<std::string>> splitClipboard(std::string_view text) {
  std::vector<std::vector<std::string>> rows;
  std::size_t start = 0;
  while (start < text.size()) {
    std::size_t end = text.find('\n', start);
    std::string_view line =
        text.substr(start, end == std::string_view::npos ? text.size() - start : end - start);
    if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
    // No grid has 256 columns: the split stops there, however many TABs the line holds.
    std::vector<std::string> cells;
    for (std::string_view cell : splitView(line, '\t', 256)) cells.emplace_back(cell);
    rows.push_back(std::move(cells));
    if (end == std::string_view::npos) break;
    start = end + 1;
  }
  return rows;
}

}  // namespace zel::ui
