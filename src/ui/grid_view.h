// The desktop grid of a department's channels or talkgroups (`convgrid`, `trunkgrid`): a
// table view over a GridPage whose keyboard is the grid engine's EditModel. Every key goes
// to the model first; the view only shows what the model opened over the current cell
// (the edit box, the option bar of up to ten words, or the drop list beyond that) and
// tells the table which cells and rows changed.
//
//   keys            the EditModel's (typing, F2, Return, Tab, Escape, Space, shortcuts)
//   arrows, Home/End, PgUp/PgDn   move; Down on the last row adds a row
//   Ins / Ctrl+Ins  insert rows above / below      Ctrl+Del  delete rows
//   Ctrl+C/X/V      copy, cut, paste (TAB and line separated, each cell through its commit)
//   Ctrl+D          Fill Down          heading click  sort by that column
#pragma once

#include <QPointer>
#include <QTableView>
#include <functional>
#include <memory>

#include "core/ports.h"
#include "grid/cell_commit.h"
#include "grid/edit_model.h"
#include "grid/grid_page.h"
#include "ui/grid_page_model.h"
#include "ui/page_history.h"

class QLineEdit;
class QListWidget;
class QFrame;
class QPushButton;
class QMenu;

namespace zel::ui {

class GridView : public QTableView {
  Q_OBJECT

 public:
  explicit GridView(QWidget* parent = nullptr);
  ~GridView() override;

  // Shows a page (null shows nothing). Hidden and working columns stay hidden; the lead
  // sizes the columns with fitColumns() afterwards.
  void setPage(GridPage* page, cell::CommitEnv env, Feedback* feedback);
  GridPage* page() const { return page_; }
  GridPageModel* gridModel() const { return model_; }
  // The keyboard of the page on show; null while no page is shown.
  EditModel* editModel() const { return edit_.get(); }
  // The values a new row takes when its key cell is first filled; kept from page to page.
  void setDefaultData(std::map<std::string, std::string> values);

  // Stored width of each column widened to its heading and to the texts of the first 60
  // rows (a sample, so a department of ten thousand rows opens as fast as a small one),
  // capped at 260 pixels. A column for which `chosen` says yes keeps its stored width as it
  // is: the user set it by dragging the border.
  void fitColumns(const std::function<bool(int pageColumn)>& chosen = {});
  // Closes an open edit box, keeping what was typed (before the page is stored).
  void finishEdit();

  // The row commands, also on the context menu and their keys.
  void insertRowsAbove();
  void insertRowsBelow();
  void deleteSelectedRows();
  void copySelection();
  void cutSelection();
  void paste();
  // Pastes the given text at the current cell; returns the cells refused by their commit.
  int pasteText(const QString& text);
  void sortByColumn(int column, bool ascending);  // a view column (page column - 1)
  void fillDownSelection();
  void copyAlpha();
  void alignText(int mode);  // 0 left, 1 centre, 2 right
  // "Convert AFS" (true) and "Convert Decimal" (false) over the page's talkgroups; the
  // popup offers them on a page with a "Talkgroup" column. Returns the cells changed.
  int convertTalkgroupForms(bool toAfs);

  // Undo and Redo of cell edits and row commands on the page on show; showing another
  // page empties the history. False when there was nothing to undo or redo.
  bool undo();
  bool redo();
  bool canUndo() const { return history_.canUndo(); }
  bool canRedo() const { return history_.canRedo(); }
  // The page was changed from outside the grid (Find, the CSV mapper): one step of history.
  void noteChange();
  // The context menu of the grid (the caller shows or deletes it).
  QMenu* buildMenu();

  // The aids on show, for tests and for the lead's focus handling.
  QLineEdit* editBox() const { return editBox_; }
  QFrame* optionBar() const { return optionBar_; }
  QListWidget* dropList() const { return dropList_; }

 signals:
  void statusText(const QString& text);
  void rowsChanged();
  // The user dragged a column border: the page holds the new width (in twips) already.
  void columnWidthChosen(int pageColumn, int twips);
  // Undo or Redo became possible or impossible.
  void historyChanged();

 protected:
  bool event(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
  void scrollContentsBy(int dx, int dy) override;
  void resizeEvent(QResizeEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  struct Block {
    int top = 0, bottom = 0, left = 0, right = 0;  // page rows and columns
  };
  Block selectedBlock() const;
  void syncToPage();
  void syncFromPage(bool moveCursor = true);
  bool sendKey(const KeyEvent& key);
  bool rowCommandKey(QKeyEvent* event);
  bool aidKey(QKeyEvent* event);
  bool navigationKey(QKeyEvent* event);
  void openAid();
  void closeAids();
  void placeAids();
  void pickItem(const QString& item);
  void highlightOption(int index);
  void afterRowChange();
  void markChanged();
  void applyHiddenColumns();
  void emitStatus();

  GridPage* page_ = nullptr;
  cell::CommitEnv env_;
  Feedback* feedback_ = nullptr;
  GridPageModel* model_ = nullptr;
  std::unique_ptr<EditModel> edit_;
  std::map<std::string, std::string> defaults_;
  QLineEdit* editBox_ = nullptr;
  QFrame* optionBar_ = nullptr;
  QList<QPushButton*> options_;
  int optionIndex_ = 0;
  QListWidget* dropList_ = nullptr;
  int sortColumn_ = -1;
  bool sortAscending_ = true;
  bool syncing_ = false;
  QList<int> widthsBeforeReset_;
  PageHistory history_;
  void restoreRows(const std::optional<PageRows>& rows);
};

}  // namespace zel::ui
