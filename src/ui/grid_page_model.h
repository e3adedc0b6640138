// A table view's model over a GridPage: row 0 of the page gives the headings, column 0 the
// row labels. Every edit goes through the cell commit of its heading, or, for a column with
// a closed word list, must be one of the list's words.
#pragma once

#include <QAbstractTableModel>
#include <QStyledItemDelegate>

#include "grid/cell_commit.h"
#include "grid/grid_page.h"

namespace zel::ui {

class GridPageModel : public QAbstractTableModel {
  Q_OBJECT

 public:
  explicit GridPageModel(QObject* parent = nullptr);

  void setPage(GridPage* page, cell::CommitEnv env);
  GridPage* page() const { return page_; }
  // Call after the page changed underneath (rows loaded, rows added).
  void reload();
  // After rows were added or removed at the end of the page: tells the view of the new
  // rows only, so a long page keeps its scroll position and selection.
  void syncRows();
  // After cells changed in place: every shown cell and label is read again.
  void refreshCells();

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;
  bool setData(const QModelIndex& index, const QVariant& value, int role) override;

  // The closed word list of a column's heading ("" when the column is free text).
  QStringList wordsFor(const QModelIndex& index) const;
  QString heading(int column) const;

 signals:
  void committed(int row, int column, const QString& storedForm);

 private:
  GridPage* page_ = nullptr;
  cell::CommitEnv env_;
  // The counts the view was last told of; the page may already be larger or smaller.
  int shownRows_ = 0;
  int shownCols_ = 0;
};

// Offers a drop list for closed columns and a plain edit box for the others.
class GridPageDelegate : public QStyledItemDelegate {
  Q_OBJECT

 public:
  using QStyledItemDelegate::QStyledItemDelegate;
  QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                        const QModelIndex& index) const override;
  void setEditorData(QWidget* editor, const QModelIndex& index) const override;
  void setModelData(QWidget* editor, QAbstractItemModel* model,
                    const QModelIndex& index) const override;
};

}  // namespace zel::ui
