// The keyboard and the edit aids of the desktop grid. The page's cursor and selection are
// set from the table's just before a key goes to the EditModel, and the table follows the
// page's cursor after it, so the model always works on what the user sees.
#include "ui/grid_view.h"

#include <QApplication>
#include <QFrame>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QScrollBar>

#include "grid/column_schemas.h"
#include "grid/grid_routines.h"
#include "ui/column_width_watch.h"
#include "ui/qt_feedback.h"

namespace zel::ui {

namespace {

constexpr int kDropListRows = 12;
constexpr int kTwipsPerPixel = 15;  // widths are kept in twips, as the settings hold them

bool isNavigation(int key) {
  switch (key) {
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_Home:
    case Qt::Key_End:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
    case Qt::Key_Backtab:
      return true;
    default:
      return false;
  }
}

// The row commands' keys. Insert is looked at before the copy sequence, which on some
// desktops includes Ctrl+Ins.
enum class RowKey { None, InsertAbove, InsertBelow, Delete, Copy, Cut, Paste, FillDown };

RowKey rowKeyOf(const QKeyEvent* e) {
  const Qt::KeyboardModifiers mods = e->modifiers() & ~Qt::KeypadModifier;
  if (e->key() == Qt::Key_Insert && mods == Qt::NoModifier) return RowKey::InsertAbove;
  if (e->key() == Qt::Key_Insert && mods == Qt::ControlModifier) return RowKey::InsertBelow;
  if (e->key() == Qt::Key_Delete && mods == Qt::ControlModifier) return RowKey::Delete;
  if (e->key() == Qt::Key_D && mods == Qt::ControlModifier) return RowKey::FillDown;
  if (e->matches(QKeySequence::Paste)) return RowKey::Paste;
  if (e->matches(QKeySequence::Cut)) return RowKey::Cut;
  if (e->matches(QKeySequence::Copy)) return RowKey::Copy;
  return RowKey::None;
}

}  // namespace

GridView::GridView(QWidget* parent) : QTableView(parent), model_(new GridPageModel(this)) {
  setModel(model_);
  setEditTriggers(QAbstractItemView::NoEditTriggers);
  setSelectionMode(QAbstractItemView::ExtendedSelection);
  setSelectionBehavior(QAbstractItemView::SelectItems);
  setWordWrap(false);
  setTabKeyNavigation(true);
  // One fixed row height: the view then finds any row of a long page by arithmetic.
  verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 6);
  horizontalHeader()->setSectionsClickable(true);
  horizontalHeader()->setSortIndicatorShown(false);
  connect(new ColumnWidthWatch(horizontalHeader()), &ColumnWidthWatch::chosen, this,
          [this](int column, int pixels) {
            const int pageColumn = column + 1;
            if (!page_ || pageColumn >= page_->cols()) return;
            const int twips = pixels * kTwipsPerPixel;
            page_->setColWidth(pageColumn, twips);
            emit columnWidthChosen(pageColumn, twips);
          });
  connect(horizontalHeader(), &QHeaderView::sectionClicked, this, [this](int column) {
    const bool ascending = column == sortColumn_ ? !sortAscending_ : true;
    sortByColumn(column, ascending);
  });

  // A reload of the same page (after Find or a duplicate removal) keeps the widths and the
  // hidden columns that the header would otherwise forget.
  connect(model_, &QAbstractItemModel::modelAboutToBeReset, this, [this] {
    widthsBeforeReset_.clear();
    for (int c = 0; c < model_->columnCount(); ++c) widthsBeforeReset_.push_back(columnWidth(c));
  });
  connect(model_, &QAbstractItemModel::modelReset, this, [this] {
    if (widthsBeforeReset_.size() == model_->columnCount()) {
      for (int c = 0; c < widthsBeforeReset_.size(); ++c) {
        if (widthsBeforeReset_[c] > 0) setColumnWidth(c, widthsBeforeReset_[c]);
      }
    }
    applyHiddenColumns();
  });

  editBox_ = new QLineEdit(viewport());
  editBox_->setObjectName("edit_text");
  editBox_->setFocusPolicy(Qt::NoFocus);
  editBox_->hide();

  optionBar_ = new QFrame(viewport());
  optionBar_->setObjectName("opt_setbar");
  optionBar_->setFrameShape(QFrame::Panel);
  optionBar_->setAutoFillBackground(true);
  auto* barLayout = new QHBoxLayout(optionBar_);
  barLayout->setContentsMargins(2, 2, 2, 2);
  barLayout->setSpacing(2);
  optionBar_->hide();

  dropList_ = new QListWidget(viewport());
  dropList_->setObjectName("cmb_setbar");
  dropList_->setFocusPolicy(Qt::NoFocus);
  dropList_->hide();
  connect(dropList_, &QListWidget::itemClicked, this,
          [this](QListWidgetItem* item) { pickItem(item->text()); });
}

GridView::~GridView() = default;

void GridView::setPage(GridPage* page, cell::CommitEnv env, Feedback* feedback) {
  finishEdit();
  closeAids();
  if (edit_) defaults_ = edit_->defaultData();
  page_ = page;
  env_ = env;
  feedback_ = feedback;
  edit_.reset();
  if (page_) {
    edit_ = std::make_unique<EditModel>(*page_, env_, GridEnv{feedback_, nullptr});
    edit_->setDefaultData(defaults_);
  }
  model_->setPage(page_, env_);
  history_.reset(page_ ? takeRows(*page_) : PageRows{});
  emit historyChanged();
  sortColumn_ = -1;
  horizontalHeader()->setSortIndicatorShown(false);
  applyHiddenColumns();
  if (page_) {
    const int row = std::clamp(page_->row(), 1, std::max(1, page_->rows() - 1));
    const int col = std::clamp(page_->col(), 1, std::max(1, page_->cols() - 1));
    page_->setRow(row);
    page_->setCol(col);
    syncing_ = true;
    setCurrentIndex(model_->index(row - 1, col - 1));
    syncing_ = false;
  }
  emitStatus();
}

void GridView::setDefaultData(std::map<std::string, std::string> values) {
  defaults_ = values;
  if (edit_) edit_->setDefaultData(std::move(values));
}

void GridView::applyHiddenColumns() {
  if (!page_) return;
  for (int c = 1; c < page_->cols(); ++c) {
    setColumnHidden(c - 1, page_->colHidden(c) || isWorkingColumn(page_->textMatrix(0, c)));
  }
  for (int r = 1; r < page_->rows(); ++r) {
    if (page_->rowHidden(r) != isRowHidden(r - 1)) setRowHidden(r - 1, page_->rowHidden(r));
  }
}

void GridView::fitColumns(const std::function<bool(int pageColumn)>& chosen) {
  if (!page_) return;
  const QFontMetrics metrics = fontMetrics();
  const int sample = std::min(model_->rowCount(), 60);
  for (int c = 1; c < page_->cols(); ++c) {
    const int stored = page_->colWidth(c) / kTwipsPerPixel;
    if (chosen && chosen(c) && stored > 0) {
      setColumnWidth(c - 1, stored);
      continue;
    }
    int width = std::max(40, stored);
    width = std::max(width, metrics.horizontalAdvance(model_->heading(c - 1)) + 16);
    for (int r = 0; r < sample; ++r) {
      width =
          std::max(width, metrics.horizontalAdvance(fromLatin1(page_->textMatrix(r + 1, c))) + 12);
    }
    setColumnWidth(c - 1, std::min(width, 260));
  }
  applyHiddenColumns();
}

GridView::Block GridView::selectedBlock() const {
  Block b;
  const QModelIndex cur = currentIndex();
  if (!page_ || !cur.isValid()) {
    b.top = b.bottom = page_ ? std::max(1, page_->row()) : 1;
    b.left = b.right = page_ ? std::max(1, page_->col()) : 1;
    return b;
  }
  b.top = b.bottom = cur.row() + 1;
  b.left = b.right = cur.column() + 1;
  const QItemSelection sel = selectionModel()->selection();
  if (!sel.contains(cur)) return b;
  for (const QItemSelectionRange& range : sel) {
    b.top = std::min(b.top, range.top() + 1);
    b.bottom = std::max(b.bottom, range.bottom() + 1);
    b.left = std::min(b.left, range.left() + 1);
    b.right = std::max(b.right, range.right() + 1);
  }
  // A whole row selected by its label reaches the working columns; they are not data.
  while (b.right > b.left && isColumnHidden(b.right - 1)) --b.right;
  while (b.left < b.right && isColumnHidden(b.left - 1)) ++b.left;
  return b;
}

void GridView::syncToPage() {
  if (!page_) return;
  const QModelIndex cur = currentIndex();
  if (!cur.isValid()) {
    page_->setRow(std::max(1, page_->row()));
    page_->setCol(std::max(1, page_->col()));
    return;
  }
  const Block b = selectedBlock();
  const int row = cur.row() + 1, col = cur.column() + 1;
  page_->setRow(row);
  page_->setCol(col);
  page_->setRowSel(row == b.top ? b.bottom : b.top);
  page_->setColSel(col == b.left ? b.right : b.left);
}

void GridView::syncFromPage(bool moveCursor) {
  if (!page_) return;
  const bool rowsMoved = page_->rows() - 1 != model_->rowCount();
  syncing_ = true;
  model_->syncRows();
  page_->takeRowsForColours();
  model_->refreshCells();
  if (rowsMoved) applyHiddenColumns();
  if (moveCursor) {
    const QModelIndex want = model_->index(page_->row() - 1, page_->col() - 1);
    if (want.isValid() && want != currentIndex()) {
      selectionModel()->setCurrentIndex(want, QItemSelectionModel::ClearAndSelect);
      scrollTo(want);
    }
  }
  syncing_ = false;
  placeAids();
  emitStatus();
  if (rowsMoved) emit rowsChanged();
}

bool GridView::sendKey(const KeyEvent& key) {
  if (!edit_) return false;
  if (!edit_->editing()) syncToPage();
  const bool taken = edit_->key(key);
  if (key.key == EditKey::F2 && taken) openAid();
  syncFromPage();
  if (!edit_->editing()) noteChange();
  return taken;
}

void GridView::finishEdit() {
  if (!edit_ || !edit_->editing()) return;
  const int row = page_->row(), col = page_->col();
  // Tab commits without repeating over the selection and without adding a row.
  edit_->key(KeyEvent::of(EditKey::Tab));
  page_->setRow(row);
  page_->setCol(col);
  syncFromPage(false);
  noteChange();
}

void GridView::emitStatus() {
  emit statusText(edit_ ? fromLatin1(edit_->statusText()) : QString());
}

bool GridView::event(QEvent* e) {
  if (page_ && e->type() == QEvent::ShortcutOverride) {
    auto* k = static_cast<QKeyEvent*>(e);
    // The grid's own keys win over the window's menu shortcuts while it has the focus.
    const bool plain = !(k->modifiers() & (Qt::ControlModifier | Qt::AltModifier));
    if (rowKeyOf(k) != RowKey::None || (plain && edit_ && edit_->editing())) {
      e->accept();
      return true;
    }
  }
  if (page_ && e->type() == QEvent::KeyPress) {
    auto* k = static_cast<QKeyEvent*>(e);
    if (k->key() == Qt::Key_Tab || k->key() == Qt::Key_Backtab) {
      keyPressEvent(k);
      return true;
    }
  }
  return QTableView::event(e);
}

void GridView::keyPressEvent(QKeyEvent* e) {
  if (!page_ || !edit_) {
    QTableView::keyPressEvent(e);
    return;
  }
  e->accept();
  if (aidKey(e)) return;
  if (rowCommandKey(e)) return;
  if (navigationKey(e)) return;
  const Qt::KeyboardModifiers mods = e->modifiers() & ~(Qt::KeypadModifier | Qt::ShiftModifier);
  KeyEvent key;
  switch (e->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
      key = KeyEvent::of(EditKey::Return);
      break;
    case Qt::Key_Tab:
      key = KeyEvent::of(EditKey::Tab);
      break;
    case Qt::Key_Escape:
      key = KeyEvent::of(EditKey::Escape);
      break;
    case Qt::Key_Space:
      key = KeyEvent::of(EditKey::Space);
      break;
    case Qt::Key_F2:
      key = KeyEvent::of(EditKey::F2);
      break;
    case Qt::Key_Backspace:
      key = KeyEvent::of(EditKey::Backspace);
      break;
    default: {
      if (e->key() == Qt::Key_Plus && (e->modifiers() & Qt::KeypadModifier) && !edit_->editing()) {
        key = KeyEvent::of(EditKey::KeypadPlus);
        break;
      }
      const QString text = e->text();
      if (mods != Qt::NoModifier || text.size() != 1 || text[0].unicode() < 32 ||
          text[0].unicode() > 255) {
        e->ignore();
        QTableView::keyPressEvent(e);
        return;
      }
      key = KeyEvent::character(static_cast<char>(text[0].unicode()));
    }
  }
  sendKey(key);
}

bool GridView::navigationKey(QKeyEvent* e) {
  if (!isNavigation(e->key())) return false;
  finishEdit();
  const bool plainDown = e->key() == Qt::Key_Down && !(e->modifiers() & Qt::ShiftModifier);
  if (plainDown && currentIndex().row() == model_->rowCount() - 1) {
    // Down on the last row is the grid's move down, which adds the row.
    syncToPage();
    incr_celld(page_, GridEnv{feedback_, nullptr});
    syncFromPage();
    return true;
  }
  QTableView::keyPressEvent(e);
  return true;
}

bool GridView::rowCommandKey(QKeyEvent* e) {
  const RowKey k = rowKeyOf(e);
  switch (k) {
    case RowKey::None:
      return false;
    case RowKey::InsertAbove:
      insertRowsAbove();
      break;
    case RowKey::InsertBelow:
      insertRowsBelow();
      break;
    case RowKey::Delete:
      deleteSelectedRows();
      break;
    case RowKey::Copy:
      copySelection();
      break;
    case RowKey::Cut:
      cutSelection();
      break;
    case RowKey::Paste:
      paste();
      break;
    case RowKey::FillDown:
      fillDownSelection();
      break;
  }
  return true;
}

// Keys while the option bar or the drop list is open: they move and pick in the aid; any
// other key closes it and goes on to the grid.
bool GridView::aidKey(QKeyEvent* e) {
  const bool bar = !optionBar_->isHidden();
  const bool list = !dropList_->isHidden();
  if (!bar && !list) return false;
  const int key = e->key();
  if (key == Qt::Key_Escape) {
    closeAids();
    emitStatus();
    return true;
  }
  if (bar) {
    const int n = static_cast<int>(options_.size());
    if (key == Qt::Key_Left || key == Qt::Key_Up) {
      highlightOption((optionIndex_ + n - 1) % n);
      return true;
    }
    if (key == Qt::Key_Right || key == Qt::Key_Down) {
      highlightOption((optionIndex_ + 1) % n);
      return true;
    }
    if (key == Qt::Key_Home || key == Qt::Key_End) {
      highlightOption(key == Qt::Key_Home ? 0 : n - 1);
      return true;
    }
    if (key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Space) {
      pickItem(options_[optionIndex_]->text().remove('&'));
      return true;
    }
  } else {
    if (key == Qt::Key_Up || key == Qt::Key_Down || key == Qt::Key_PageUp ||
        key == Qt::Key_PageDown || key == Qt::Key_Home || key == Qt::Key_End) {
      QKeyEvent copy(e->type(), key, e->modifiers());
      QApplication::sendEvent(dropList_, &copy);
      return true;
    }
    if (key == Qt::Key_Return || key == Qt::Key_Enter) {
      if (QListWidgetItem* item = dropList_->currentItem()) pickItem(item->text());
      return true;
    }
    const QString text = e->text();
    if (text.size() == 1 && text[0].isPrint() && !(e->modifiers() & Qt::ControlModifier)) {
      dropList_->keyboardSearch(text);
      return true;
    }
  }
  closeAids();
  return false;
}

void GridView::openAid() {
  const EditAidState& aid = edit_->aid();
  closeAids();
  if (aid.aid == EditAid::OptionBar) {
    auto* layout = static_cast<QHBoxLayout*>(optionBar_->layout());
    for (const std::string& item : aid.items) {
      auto* button = new QPushButton(fromLatin1(item), optionBar_);
      button->setFocusPolicy(Qt::NoFocus);
      button->setCheckable(true);
      button->setAutoDefault(false);
      const QString word = fromLatin1(item);
      connect(button, &QPushButton::clicked, this, [this, word] { pickItem(word); });
      layout->addWidget(button);
      options_.push_back(button);
    }
    // Start on the word the cell holds, so Return keeps it.
    int at = 0;
    for (int i = 0; i < options_.size(); ++i) {
      if (toLatin1(options_[i]->text()) == page_->text()) at = i;
    }
    highlightOption(at);
    optionBar_->adjustSize();
    optionBar_->show();
  } else if (aid.aid == EditAid::DropList) {
    dropList_->clear();
    int at = 0;
    for (std::size_t i = 0; i < aid.items.size(); ++i) {
      dropList_->addItem(fromLatin1(aid.items[i]));
      if (aid.items[i] == page_->text()) at = static_cast<int>(i);
    }
    dropList_->setCurrentRow(at);
    dropList_->show();
  }
  placeAids();
}

void GridView::highlightOption(int index) {
  if (options_.isEmpty()) return;
  optionIndex_ = std::clamp(index, 0, static_cast<int>(options_.size()) - 1);
  for (int i = 0; i < options_.size(); ++i) options_[i]->setChecked(i == optionIndex_);
}

void GridView::pickItem(const QString& item) {
  if (!edit_) return;
  edit_->pick(toLatin1(item));
  closeAids();
  syncFromPage(false);
}

void GridView::closeAids() {
  optionBar_->hide();
  for (QPushButton* b : options_) b->deleteLater();
  options_.clear();
  optionIndex_ = 0;
  dropList_->hide();
  dropList_->clear();
  if (!edit_ || !edit_->editing()) editBox_->hide();
}

void GridView::placeAids() {
  if (!page_ || !edit_) {
    editBox_->hide();
    return;
  }
  const QRect cell = visualRect(model_->index(page_->row() - 1, page_->col() - 1));
  if (edit_->editing()) {
    editBox_->setText(fromLatin1(edit_->editText()));
    editBox_->setGeometry(cell);
    editBox_->show();
  } else {
    editBox_->hide();
  }
  const QRect room = viewport()->rect();
  auto placeUnder = [&](QWidget* w, QSize size) {
    QPoint at(cell.left(), cell.bottom() + 1);
    if (at.y() + size.height() > room.bottom() && cell.top() - size.height() >= 0)
      at.setY(cell.top() - size.height());
    if (at.x() + size.width() > room.right()) at.setX(std::max(0, room.right() - size.width()));
    w->setGeometry(QRect(at, size));
    w->raise();
  };
  if (!optionBar_->isHidden()) placeUnder(optionBar_, optionBar_->sizeHint());
  if (!dropList_->isHidden()) {
    const int rows = std::min(dropList_->count(), kDropListRows);
    const int height =
        rows * std::max(1, dropList_->sizeHintForRow(0)) + 2 * dropList_->frameWidth();
    const int width =
        std::max(cell.width(), dropList_->sizeHintForColumn(0) +
                                   dropList_->verticalScrollBar()->sizeHint().width() +
                                   2 * dropList_->frameWidth());
    placeUnder(dropList_, QSize(width, height));
  }
}

void GridView::mousePressEvent(QMouseEvent* e) {
  // A click anywhere on the table closes a list that was not picked from.
  if (!optionBar_->isHidden() || !dropList_->isHidden()) closeAids();
  QTableView::mousePressEvent(e);
}

void GridView::mouseDoubleClickEvent(QMouseEvent* e) {
  const QModelIndex at = indexAt(e->position().toPoint());
  if (!page_ || !edit_ || !at.isValid()) {
    QTableView::mouseDoubleClickEvent(e);
    return;
  }
  if (currentIndex() != at) setCurrentIndex(at);
  // A double click toggles an On/Off column, as its help text says; elsewhere it is F2.
  const bool onOff = EditModel::isOnOffColumn(page_->textMatrix(0, at.column() + 1));
  sendKey(KeyEvent::of(onOff ? EditKey::Space : EditKey::F2));
  e->accept();
}

void GridView::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
  QTableView::currentChanged(current, previous);
  if (syncing_ || !page_ || !edit_) return;
  // The cursor moved away by the mouse or by the lead: an open box is committed where it
  // stood (the page's cursor is still there), and the list aids close.
  if (edit_->editing()) {
    edit_->key(KeyEvent::of(EditKey::Tab));
    model_->syncRows();
    model_->refreshCells();
  }
  closeAids();
  if (current.isValid()) {
    page_->setRow(current.row() + 1);
    page_->setCol(current.column() + 1);
  }
  emitStatus();
}

void GridView::focusOutEvent(QFocusEvent* e) {
  // Leaving the grid for another part of the window ends the edit; what was typed is
  // already in the cell. A switch to another window or a popup keeps the box open.
  if (e->reason() != Qt::ActiveWindowFocusReason && e->reason() != Qt::PopupFocusReason) {
    finishEdit();
    closeAids();
  }
  QTableView::focusOutEvent(e);
}

void GridView::scrollContentsBy(int dx, int dy) {
  QTableView::scrollContentsBy(dx, dy);
  placeAids();
}

void GridView::resizeEvent(QResizeEvent* e) {
  QTableView::resizeEvent(e);
  placeAids();
}

}  // namespace zel::ui
