#include "ui/grid_page_model.h"

#include <QComboBox>

#include "core/record_line.h"
#include "grid/vocabulary.h"
#include "ui/qt_feedback.h"

namespace zel::ui {

GridPageModel::GridPageModel(QObject* parent) : QAbstractTableModel(parent) {}

void GridPageModel::setPage(GridPage* page, cell::CommitEnv env) {
  beginResetModel();
  page_ = page;
  env_ = env;
  shownRows_ = page_ ? page_->rows() - 1 : 0;
  shownCols_ = page_ ? page_->cols() - 1 : 0;
  endResetModel();
}

void GridPageModel::reload() {
  beginResetModel();
  shownRows_ = page_ ? page_->rows() - 1 : 0;
  shownCols_ = page_ ? page_->cols() - 1 : 0;
  endResetModel();
}

void GridPageModel::syncRows() {
  if (!page_) return;
  if (page_->cols() - 1 != shownCols_) {
    reload();
    return;
  }
  const int rows = page_->rows() - 1;
  if (rows > shownRows_) {
    beginInsertRows({}, shownRows_, rows - 1);
    shownRows_ = rows;
    endInsertRows();
  } else if (rows < shownRows_) {
    beginRemoveRows({}, rows, shownRows_ - 1);
    shownRows_ = rows;
    endRemoveRows();
  }
}

void GridPageModel::refreshCells() {
  if (!page_ || shownRows_ == 0 || shownCols_ == 0) return;
  emit dataChanged(index(0, 0), index(shownRows_ - 1, shownCols_ - 1));
  emit headerDataChanged(Qt::Vertical, 0, shownRows_ - 1);
}

int GridPageModel::rowCount(const QModelIndex& parent) const {
  if (parent.isValid() || !page_) return 0;
  return shownRows_;
}

int GridPageModel::columnCount(const QModelIndex& parent) const {
  if (parent.isValid() || !page_) return 0;
  return shownCols_;
}

QString GridPageModel::heading(int column) const {
  return page_ ? fromLatin1(page_->textMatrix(0, column + 1)) : QString();
}

QVariant GridPageModel::data(const QModelIndex& index, int role) const {
  if (!page_ || !index.isValid()) return {};
  if (role == Qt::DisplayRole || role == Qt::EditRole)
    return fromLatin1(page_->textMatrix(index.row() + 1, index.column() + 1));
  if (role == Qt::TextAlignmentRole) {
    int a = page_->colAlignment(index.column() + 1);
    if (a == GridPage::kAlignCentre) return int(Qt::AlignCenter);
    if (a == GridPage::kAlignRight) return int(Qt::AlignRight | Qt::AlignVCenter);
    return int(Qt::AlignLeft | Qt::AlignVCenter);
  }
  return {};
}

QVariant GridPageModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (!page_ || role != Qt::DisplayRole) return {};
  if (orientation == Qt::Horizontal) return heading(section);
  return fromLatin1(page_->textMatrix(section + 1, 0));
}

Qt::ItemFlags GridPageModel::flags(const QModelIndex& index) const {
  if (!index.isValid()) return Qt::NoItemFlags;
  return Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsEditable;
}

QStringList GridPageModel::wordsFor(const QModelIndex& index) const {
  if (!page_) return {};
  std::string key = page_->textMatrix(0, index.column() + 1);
  if (key == "SQ Code") {
    int mode = page_->findColumn("SQ Mode");
    key = vocab::squelchCodeKey(mode > 0 ? page_->textMatrix(index.row() + 1, mode) : "");
  }
  QStringList out;
  for (const auto& w : vocab::tabel(key)) out << fromLatin1(w);
  return out;
}

bool GridPageModel::setData(const QModelIndex& index, const QVariant& value, int role) {
  if (!page_ || !index.isValid() || role != Qt::EditRole) return false;
  const int r = index.row() + 1, c = index.column() + 1;
  // Commas are refused at the keyboard; a pasted one becomes ";" so the row's record keeps
  // its fields.
  std::string text = record::sanitize(toLatin1(value.toString()));
  const std::string head = page_->textMatrix(0, c);
  if (!cell::ruleForHeading(head)) {
    // A closed column takes only its own words; a word outside the list is refused.
    const auto& words = vocab::tabel(head);
    if (!words.empty() && !text.empty() && vocab::valueCheck(text, words, -1) != text) return false;
    page_->setTextMatrix(r, c, text);
    if (env_.changed) *env_.changed = true;
  } else {
    page_->setRow(r);
    page_->setCol(c);
    if (cell::cellCommit(page_, text, cell::kModePlain, env_) != cell::CommitStatus::Stored)
      return false;
  }
  emit dataChanged(index, index);
  emit committed(r, c, fromLatin1(page_->textMatrix(r, c)));
  return true;
}

QWidget* GridPageDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                                        const QModelIndex& index) const {
  auto* model = qobject_cast<const GridPageModel*>(index.model());
  const QStringList words = model ? model->wordsFor(index) : QStringList();
  if (words.isEmpty()) return QStyledItemDelegate::createEditor(parent, option, index);
  auto* box = new QComboBox(parent);
  box->addItems(words);
  box->setEditable(false);
  return box;
}

void GridPageDelegate::setEditorData(QWidget* editor, const QModelIndex& index) const {
  if (auto* box = qobject_cast<QComboBox*>(editor)) {
    box->setCurrentText(index.data(Qt::EditRole).toString());
    return;
  }
  QStyledItemDelegate::setEditorData(editor, index);
}

void GridPageDelegate::setModelData(QWidget* editor, QAbstractItemModel* model,
                                    const QModelIndex& index) const {
  if (auto* box = qobject_cast<QComboBox*>(editor)) {
    model->setData(index, box->currentText(), Qt::EditRole);
    return;
  }
  QStyledItemDelegate::setModelData(editor, model, index);
}

}  // namespace zel::ui
