#include "ui/record_grid.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTableView>
#include <QVBoxLayout>
#include <set>

#include "core/document.h"
#include "core/record_line.h"
#include "core/text.h"
#include "core/tree_operations.h"
#include "ui/column_width_watch.h"
#include "ui/qt_feedback.h"

namespace zel::ui {

namespace {
// Empty rows below the last child, where new children are typed.
constexpr int kSpareRows = 5;
constexpr int kTwipsPerPixel = 15;
// Rows looked at when a column is sized to its contents: a list of thousands stays quick.
constexpr int kContentRows = 200;
}  // namespace

RecordGridModel::RecordGridModel(Feedback& feedback, QObject* parent)
    : GridPageModel(parent), feedback_(feedback) {}

void RecordGridModel::setRule(const std::string& heading, FieldRule rule, QString refusal) {
  rules_[heading] = {std::move(rule), std::move(refusal)};
}

bool RecordGridModel::setData(const QModelIndex& index, const QVariant& value, int role) {
  if (!page() || !index.isValid() || role != Qt::EditRole) return false;
  const int r = index.row() + 1, c = index.column() + 1;
  auto it = rules_.find(page()->textMatrix(0, c));
  if (it == rules_.end()) return GridPageModel::setData(index, value, role);
  std::optional<std::string> stored = it->second.rule(toLatin1(value.toString()));
  if (!stored) {
    feedback_.status(toLatin1(it->second.refusal));
    return false;
  }
  page()->setTextMatrix(r, c, *stored);
  emit dataChanged(index, index);
  emit committed(r, c, fromLatin1(*stored));
  return true;
}

RecordGrid::RecordGrid(Document& document, Feedback& feedback, RecordGridShape shape,
                       GridSetup setup, QWidget* parent)
    : QWidget(parent),
      document_(document),
      feedback_(feedback),
      shape_(std::move(shape)),
      setup_(setup) {
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  view_ = new QTableView(this);
  model_ = new RecordGridModel(feedback_, this);
  view_->setModel(model_);
  view_->setItemDelegate(new GridPageDelegate(view_));
  view_->setSelectionBehavior(QAbstractItemView::SelectRows);
  view_->setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed |
                         QAbstractItemView::AnyKeyPressed);
  view_->horizontalHeader()->setStretchLastSection(true);
  view_->horizontalHeader()->setResizeContentsPrecision(kContentRows);
  view_->verticalHeader()->setDefaultSectionSize(22);
  layout->addWidget(view_, 1);
  connect(new ColumnWidthWatch(view_->horizontalHeader()), &ColumnWidthWatch::chosen, this,
          [this](int column, int pixels) {
            const int pageColumn = column + 1;
            if (pageColumn >= page_.cols()) return;
            page_.setColWidth(pageColumn, pixels * kTwipsPerPixel);
            keepChosenColumnWidth(setup_, shape_.schema, pageColumn, pixels * kTwipsPerPixel);
          });

  auto* buttons = new QHBoxLayout;
  count_ = new QLabel(this);
  remove_ = new QPushButton(tr("Remove selected"), this);
  remove_->setToolTip(tr("Removes the selected rows from the list."));
  buttons->addWidget(count_, 1);
  buttons->addWidget(remove_);
  layout->addLayout(buttons);

  connect(remove_, &QPushButton::clicked, this, &RecordGrid::removeSelected);
  connect(model_, &GridPageModel::committed, this, &RecordGrid::onCommitted);
  load({});
}

std::string RecordGrid::rowKey(int pageRow) const {
  return pageRow > 0 && pageRow < static_cast<int>(rowKeys_.size()) ? rowKeys_[pageRow]
                                                                    : std::string();
}

void RecordGrid::fillRow(int row, const std::string& line) {
  for (const auto& [heading, field] : shape_.fields) {
    const int col = page_.findColumn(heading);
    if (col > 0) page_.setTextMatrix(row, col, record::field(line, field));
  }
}

void RecordGrid::load(const std::string& parentKey) {
  parentKey_ = parentKey;
  std::vector<NodeId> children;
  const DocumentTree& tree = document_.data;
  if (NodeId parent = parentKey.empty() ? kNoNode : tree.find(parentKey); parent != kNoNode) {
    for (NodeId c = tree.child(parent); c != kNoNode; c = tree.next(c)) {
      if (startsWith(tree.key(c), shape_.childPrefix)) children.push_back(c);
    }
  }
  GridSetup setup = setup_;
  setup.pageSize = static_cast<int>(children.size()) + kSpareRows;
  shape_.setup(&page_, setup);
  rowKeys_.assign(page_.rows(), std::string());
  for (std::size_t i = 0; i < children.size(); ++i) {
    const int row = static_cast<int>(i) + 1;
    rowKeys_[row] = tree.key(children[i]);
    fillRow(row, tree.text(children[i]));
  }
  cell::CommitEnv env;
  env.feedback = &feedback_;
  env.rules = shape_.frequency;
  // The document's mark is set when a value reaches a line, not when it reaches the grid.
  env.changed = nullptr;
  model_->setPage(&page_, env);
  // Wide enough for what the first rows hold, and never below the stored width; a width the
  // user chose stays as it is.
  view_->resizeColumnsToContents();
  for (int c = 1; c < page_.cols(); ++c) {
    const int stored = std::max(60, page_.colWidth(c) / kTwipsPerPixel);
    const bool chosen = columnWidthChosen(setup_.settings, shape_.schema, c);
    view_->setColumnWidth(c - 1,
                          chosen ? stored : std::max(stored, view_->columnWidth(c - 1) + 12));
  }
  const bool enabled = !parentKey.empty() && tree.contains(parentKey);
  view_->setEnabled(enabled);
  remove_->setEnabled(enabled);
  count_->setText(tr("%n entries", nullptr, static_cast<int>(children.size())));
}

void RecordGrid::onCommitted(int row, int column, const QString& stored) {
  if (row <= 0 || row >= page_.rows()) return;
  const std::string heading = page_.textMatrix(0, column);
  const std::string value = toLatin1(stored);
  std::string key = rowKey(row);
  if (key.empty()) {
    // A row becomes a child when its identity is typed; until then its cells wait.
    if (heading != shape_.identityHeading || value.empty() || parentKey_.empty()) return;
    key = shape_.newKey(document_, parentKey_);
    if (key.empty()) {
      feedback_.message("ERROR: Out of storage space");
      return;
    }
    if (document_.data.add(parentKey_, key, shape_.newLine(value)) == kNoNode) return;
    if (static_cast<int>(rowKeys_.size()) <= row) rowKeys_.resize(row + 1);
    rowKeys_[row] = key;
    document_.changed = true;
    if (shape_.added) shape_.added(key);
    // Cells typed before the identity join the new line, and defaults show in the row.
    for (const auto& [h, field] : shape_.fields) {
      const int col = page_.findColumn(h);
      if (col <= 0 || h == shape_.identityHeading) continue;
      const std::string waiting = page_.textMatrix(row, col);
      if (!waiting.empty()) {
        treemod::setField(document_.data, key, field, waiting);
        if (shape_.changed) shape_.changed(key, field, waiting);
      }
    }
    fillRow(row, treemod::getText(document_.data, key));
    if (row + 1 >= page_.rows()) {
      page_.setRows(page_.rows() + 1);
      page_.setTextMatrix(page_.rows() - 1, 0, std::to_string(page_.rows() - 1));
      rowKeys_.resize(page_.rows());
    }
    model_->reload();
    emit childrenChanged();
    return;
  }
  auto it = shape_.fields.find(heading);
  if (it == shape_.fields.end()) return;
  if (heading == shape_.identityHeading && value.empty()) {
    // The identity of a child cannot be emptied: the row shows its line again.
    fillRow(row, treemod::getText(document_.data, key));
    model_->reload();
    return;
  }
  if (treemod::getField(document_.data, key, it->second) == value) return;
  treemod::setField(document_.data, key, it->second, value);
  document_.changed = true;
  if (shape_.changed) shape_.changed(key, it->second, value);
}

void RecordGrid::removeSelected() {
  std::set<int> rows;
  for (const QModelIndex& index : view_->selectionModel()->selectedIndexes()) {
    rows.insert(index.row() + 1);
  }
  if (QModelIndex current = view_->currentIndex(); rows.empty() && current.isValid()) {
    rows.insert(current.row() + 1);
  }
  bool any = false;
  for (int row : rows) {
    const std::string key = rowKey(row);
    if (key.empty()) continue;
    treemod::removeNode(document_.data, key);
    if (shape_.removed) shape_.removed(key);
    any = true;
  }
  if (!any) return;
  document_.changed = true;
  load(parentKey_);
  emit childrenChanged();
}

void RecordGrid::flush() {
  // An editor still open in the grid holds a value the user means to keep. Editors are the
  // direct children of the viewport.
  for (QWidget* editor : view_->viewport()->findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
    if (!editor->isVisible()) continue;
    QMetaObject::invokeMethod(view_, "commitData", Qt::DirectConnection, Q_ARG(QWidget*, editor));
  }
}

}  // namespace zel::ui
