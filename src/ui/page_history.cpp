#include "ui/page_history.h"

#include <algorithm>

namespace zel::ui {

namespace {
std::size_t cellCount(const PageRows& rows) {
  return rows.empty() ? 0 : rows.size() * rows.front().size();
}
}  // namespace

PageRows takeRows(const GridPage& page) {
  PageRows rows;
  rows.reserve(page.rows() > 1 ? page.rows() - 1 : 0);
  for (int r = 1; r < page.rows(); ++r) {
    std::vector<std::string>& cells = rows.emplace_back();
    cells.reserve(page.cols() > 1 ? page.cols() - 1 : 0);
    for (int c = 1; c < page.cols(); ++c) cells.push_back(page.textMatrix(r, c));
  }
  return rows;
}

void putRows(GridPage& page, const PageRows& rows) {
  page.setRows(static_cast<int>(rows.size()) + 1);
  for (int r = 1; r < page.rows(); ++r) {
    page.setTextMatrix(r, 0, std::to_string(r));
    const auto& cells = rows[r - 1];
    for (int c = 1; c < page.cols() && c <= static_cast<int>(cells.size()); ++c)
      page.setTextMatrix(r, c, cells[c - 1]);
  }
  page.setRow(std::clamp(page.row(), 1, std::max(1, page.rows() - 1)));
}

void PageHistory::reset(PageRows now) {
  undo_.clear();
  redo_.clear();
  current_ = std::move(now);
}

bool PageHistory::note(PageRows now) {
  if (now == current_) return false;
  undo_.push_back(std::move(current_));
  current_ = std::move(now);
  redo_.clear();
  trim();
  return true;
}

std::optional<PageRows> PageHistory::undo() {
  if (undo_.empty()) return std::nullopt;
  redo_.push_back(std::move(current_));
  current_ = std::move(undo_.back());
  undo_.pop_back();
  return current_;
}

std::optional<PageRows> PageHistory::redo() {
  if (redo_.empty()) return std::nullopt;
  undo_.push_back(std::move(current_));
  current_ = std::move(redo_.back());
  redo_.pop_back();
  return current_;
}

// The oldest steps go first when the history holds too many steps or cells.
void PageHistory::trim() {
  std::size_t cells = cellCount(current_);
  for (const auto& s : undo_) cells += cellCount(s);
  while (!undo_.empty() && (undo_.size() > maxSteps_ || cells > maxCells_)) {
    cells -= cellCount(undo_.front());
    undo_.pop_front();
  }
}

}  // namespace zel::ui
