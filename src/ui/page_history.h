// Undo and Redo of the department on show. Before each change the grid's rows are kept as
// they were (every cell of every row, empty rows too, so an inserted row is undone as well
// as an edited cell); Undo puts the last kept rows back and keeps the present ones for Redo.
// The history is bounded by a number of steps and by the cells it holds, and it is emptied
// when another node is shown.
#pragma once

#include <cstddef>
#include <deque>
#include <optional>
#include <string>
#include <vector>

#include "grid/grid_page.h"

namespace zel::ui {

// Every data row of a page (rows 1..rows-1), each cell of columns 1..cols-1.
using PageRows = std::vector<std::vector<std::string>>;
PageRows takeRows(const GridPage& page);
// Puts the rows back; the row labels are renumbered.
void putRows(GridPage& page, const PageRows& rows);

class PageHistory {
 public:
  explicit PageHistory(std::size_t maxSteps = 30, std::size_t maxCells = 1'000'000)
      : maxSteps_(maxSteps), maxCells_(maxCells) {}

  // A page came on show (or none): nothing to undo or redo.
  void reset(PageRows now);
  // The rows after a command. When they differ from the rows known before, those become
  // the step Undo returns to and Redo is emptied. True when a step was added.
  bool note(PageRows now);
  bool canUndo() const { return !undo_.empty(); }
  bool canRedo() const { return !redo_.empty(); }
  // The rows to show; nothing when there is no step.
  std::optional<PageRows> undo();
  std::optional<PageRows> redo();

 private:
  void trim();
  std::size_t maxSteps_;
  std::size_t maxCells_;
  std::deque<PageRows> undo_;
  std::deque<PageRows> redo_;
  PageRows current_;
};

}  // namespace zel::ui
