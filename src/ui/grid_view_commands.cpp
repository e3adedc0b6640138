// The row commands of the desktop grid and its context menu. Each finishes an open edit
// box first, works on the page through the row commands or the grid routines, and then
// tells the table what changed.
#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QHeaderView>
#include <QMenu>

#include "core/record_line.h"
#include "core/tables.h"
#include "exchange/csv_mapper.h"
#include "core/text.h"
#include "grid/column_schemas.h"
#include "grid/grid_routines.h"
#include "grid/vocabulary.h"
#include "ui/grid_row_commands.h"
#include "ui/grid_view.h"
#include "ui/qt_feedback.h"

namespace zel::ui {

namespace {

// Whether a pasted text may reach a cell: a rule that reduces a text to nothing (letters
// in a frequency) or cannot read it refuses it, so the cell keeps its value.
bool pasteAccepted(std::string_view heading, const std::string& text,
                   const cell::FrequencyRules& rules) {
  if (trimView(text).empty() || !cell::ruleForHeading(heading)) return true;
  const cell::CommitResult r = cell::commitText(heading, text, rules);
  return r.status == cell::CommitStatus::Stored && !r.text.empty();
}

}  // namespace

void GridView::markChanged() {
  if (env_.changed) *env_.changed = true;
}

void GridView::afterRowChange() {
  syncFromPage();
  model_->refreshCells();
  noteChange();
  emit rowsChanged();
}

void GridView::noteChange() {
  if (!page_ || (edit_ && edit_->editing())) return;
  if (history_.note(takeRows(*page_))) emit historyChanged();
}

bool GridView::undo() {
  if (!page_) return false;
  finishEdit();
  closeAids();
  if (!history_.canUndo()) return false;
  restoreRows(history_.undo());
  return true;
}

bool GridView::redo() {
  if (!page_) return false;
  finishEdit();
  closeAids();
  if (!history_.canRedo()) return false;
  restoreRows(history_.redo());
  return true;
}

void GridView::restoreRows(const std::optional<PageRows>& rows) {
  if (!rows) return;
  putRows(*page_, *rows);
  markChanged();
  syncFromPage();
  model_->refreshCells();
  emit historyChanged();
  emit rowsChanged();
}

void GridView::insertRowsAbove() {
  if (!page_) return;
  finishEdit();
  const Block b = selectedBlock();
  insertRows(*page_, b.top, b.bottom - b.top + 1);
  markChanged();
  afterRowChange();
}

void GridView::insertRowsBelow() {
  if (!page_) return;
  finishEdit();
  const Block b = selectedBlock();
  insertRows(*page_, b.bottom + 1, b.bottom - b.top + 1);
  markChanged();
  afterRowChange();
}

void GridView::deleteSelectedRows() {
  if (!page_) return;
  finishEdit();
  const Block b = selectedBlock();
  const int count = b.bottom - b.top + 1;
  if (count > 1 && feedback_) {
    const std::string text = "Delete the " + std::to_string(count) + " selected rows?";
    if (feedback_->ask("Delete rows", text, Buttons::YesNo) != Answer::Yes) return;
  }
  deleteRows(*page_, b.top, b.bottom);
  markChanged();
  afterRowChange();
}

void GridView::copySelection() {
  if (!page_) return;
  finishEdit();
  const Block b = selectedBlock();
  QApplication::clipboard()->setText(
      fromLatin1(blockText(*page_, b.top, b.bottom, b.left, b.right)));
}

void GridView::cutSelection() {
  if (!page_) return;
  copySelection();
  const Block b = selectedBlock();
  if (clearBlock(*page_, b.top, b.bottom, b.left, b.right) > 0) markChanged();
  syncFromPage(false);
  noteChange();
}

void GridView::paste() {
  pasteText(QApplication::clipboard()->text());
}

int GridView::pasteText(const QString& text) {
  if (!page_) return 0;
  finishEdit();
  auto rows = splitClipboard(toLatin1(text));
  if (rows.empty()) return 0;
  const Block b = selectedBlock();
  // A department holds 9999 rows: the paste stops there and says what it left out.
  const int room = std::max(0, kMaxChannels - b.top + 1);
  if (static_cast<int>(rows.size()) > room) {
    const int left = static_cast<int>(rows.size()) - room;
    rows.resize(room);
    if (feedback_) feedback_->message(exchange::departmentFullMessage(left));
    if (rows.empty()) return 0;
  }
  const int needed = b.top + static_cast<int>(rows.size());
  if (page_->rows() < needed) {
    const int old = page_->rows();
    page_->setRows(needed);
    relabelRows(*page_, old);
  }
  model_->syncRows();
  int refused = 0;
  int right = b.left;
  for (std::size_t i = 0; i < rows.size(); ++i) {
    const int r = b.top + static_cast<int>(i);
    int c = b.left;
    for (const std::string& raw : rows[i]) {
      while (c < page_->cols() && (isColumnHidden(c - 1) || page_->colHidden(c))) ++c;
      if (c >= page_->cols()) break;
      // A comma would split the row's record: the commit sees it as ";".
      const std::string value = record::sanitize(raw);
      const bool ok = pasteAccepted(page_->textMatrix(0, c), value, env_.rules) &&
                      model_->setData(model_->index(r - 1, c - 1), fromLatin1(value), Qt::EditRole);
      if (!ok) ++refused;
      right = std::max(right, c);
      ++c;
    }
  }
  page_->setRow(b.top);
  page_->setCol(b.left);
  syncFromPage();
  selectionModel()->select(
      QItemSelection(model_->index(b.top - 1, b.left - 1), model_->index(needed - 2, right - 1)),
      QItemSelectionModel::Select);
  if (refused > 0 && feedback_)
    feedback_->status(std::to_string(refused) + " pasted values were refused.");
  noteChange();
  emit rowsChanged();
  return refused;
}

void GridView::sortByColumn(int column, bool ascending) {
  if (!page_ || column < 0 || column + 1 >= page_->cols()) return;
  finishEdit();
  closeAids();
  sortRows(*page_, column + 1, ascending);
  sortColumn_ = column;
  sortAscending_ = ascending;
  horizontalHeader()->setSortIndicatorShown(true);
  horizontalHeader()->setSortIndicator(column,
                                       ascending ? Qt::AscendingOrder : Qt::DescendingOrder);
  markChanged();
  model_->refreshCells();
  noteChange();
  emit rowsChanged();
}

void GridView::fillDownSelection() {
  if (!page_) return;
  finishEdit();
  const Block b = selectedBlock();
  if (fillDown(*page_, b.top, b.bottom, b.left, b.right) > 0) markChanged();
  syncFromPage(false);
  noteChange();
}

void GridView::copyAlpha() {
  if (!page_) return;
  finishEdit();
  syncToPage();
  if (g_copy_alpha(page_, GridEnv{feedback_, nullptr}) > 0) markChanged();
  syncFromPage(false);
  noteChange();
}

void GridView::alignText(int mode) {
  if (!page_) return;
  finishEdit();
  const TagAlignment how =
      mode == 1 ? TagAlignment::Centre : (mode == 2 ? TagAlignment::Right : TagAlignment::Left);
  if (g_align_text(page_, kNameHeading, how, GridEnv{feedback_, nullptr}) > 0) markChanged();
  syncFromPage(false);
  noteChange();
}

QMenu* GridView::buildMenu() {
  auto* menu = new QMenu(this);
  menu->setAttribute(Qt::WA_DeleteOnClose);
  auto add = [&](QMenu* m, const QString& caption, const QKeySequence& keys, auto handler) {
    QAction* a = m->addAction(caption);
    // Shown on the menu only: the view takes the keys itself.
    a->setShortcut(keys);
    a->setShortcutContext(Qt::WidgetShortcut);
    connect(a, &QAction::triggered, this, handler);
    a->setEnabled(page_ != nullptr);
    return a;
  };
  add(menu, "Undo", QKeySequence::Undo, [this] { undo(); })->setEnabled(canUndo());
  add(menu, "Redo", QKeySequence(Qt::CTRL | Qt::Key_Y), [this] { redo(); })->setEnabled(canRedo());
  menu->addSeparator();
  add(menu, "Insert Row", QKeySequence(Qt::Key_Insert), [this] { insertRowsAbove(); });
  add(menu, "Insert Row Below", QKeySequence(Qt::CTRL | Qt::Key_Insert),
      [this] { insertRowsBelow(); });
  add(menu, "Delete Rows", QKeySequence(Qt::CTRL | Qt::Key_Delete),
      [this] { deleteSelectedRows(); });
  menu->addSeparator();
  add(menu, "Copy", QKeySequence::Copy, [this] { copySelection(); });
  add(menu, "Cut", QKeySequence::Cut, [this] { cutSelection(); });
  add(menu, "Paste", QKeySequence::Paste, [this] { paste(); });
  menu->addSeparator();
  add(menu, "Fill Down", QKeySequence(Qt::CTRL | Qt::Key_D), [this] { fillDownSelection(); });
  add(menu, "Copy Alpha", QKeySequence(), [this] { copyAlpha(); });
  if (page_ && page_->findColumn("Talkgroup") > 0) {
    add(menu, "Convert AFS", QKeySequence(), [this] { convertTalkgroupForms(true); });
    add(menu, "Convert Decimal", QKeySequence(), [this] { convertTalkgroupForms(false); });
  }
  QMenu* align = menu->addMenu("Align Text");
  align->setEnabled(page_ != nullptr);
  add(align, "Left", QKeySequence(), [this] { alignText(0); });
  add(align, "Centre", QKeySequence(), [this] { alignText(1); });
  add(align, "Right", QKeySequence(), [this] { alignText(2); });
  menu->addSeparator();
  QMenu* sort = menu->addMenu("Sort");
  sort->setEnabled(page_ != nullptr);
  const int column = currentIndex().isValid() ? currentIndex().column() : 0;
  const QString heading = model_->heading(column);
  add(sort, "Ascending by " + heading, QKeySequence(),
      [this, column] { sortByColumn(column, true); });
  add(sort, "Descending by " + heading, QKeySequence(),
      [this, column] { sortByColumn(column, false); });
  return menu;
}

void GridView::contextMenuEvent(QContextMenuEvent* e) {
  const QModelIndex at = indexAt(e->pos());
  if (at.isValid() && !selectionModel()->isSelected(at)) setCurrentIndex(at);
  buildMenu()->popup(e->globalPos());
  e->accept();
}

}  // namespace zel::ui
