#include "ui/find_dialog.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>
#include <algorithm>

#include "grid/cell_commit.h"
#include "grid/find_replace.h"
#include "grid/vocabulary.h"
#include "ui/dialog_pages.h"
#include "ui/qt_feedback.h"

namespace zel::ui {

FindDialog::FindDialog(Session& session, Feedback& feedback, GridPage* grid,
                       std::function<void()> changed, QWidget* parent)
    : QDialog(parent),
      session_(session),
      feedback_(feedback),
      grid_(grid),
      changed_(std::move(changed)) {
  setObjectName("frm_find");
  setWindowTitle("Find/Replace Data");

  auto* fields = new QGridLayout;
  fields->addWidget(new QLabel("Find:", this), 0, 0);
  find_ = new QLineEdit(this);
  find_->setObjectName("txtFind");
  fields->addWidget(find_, 0, 1);
  fields->addWidget(new QLabel("Replace By:", this), 1, 0);
  replace_ = new QLineEdit(this);
  replace_->setObjectName("txtReplace");
  fields->addWidget(replace_, 1, 1);

  columns_ = new QListWidget(this);
  columns_->setObjectName("lstColumns");
  columns_->setMaximumHeight(140);

  auto* banks = new QGroupBox(this);
  auto* banksLayout = new QHBoxLayout(banks);
  currentBank_ = new QRadioButton("Current Bank", banks);
  currentBank_->setObjectName("optCurrentBank");
  currentBank_->setChecked(true);
  allBanks_ = new QRadioButton("All Banks", banks);
  allBanks_->setObjectName("optAllBanks");
  banksLayout->addWidget(currentBank_);
  banksLayout->addWidget(allBanks_);

  findButton_ = new QPushButton("Find >", this);
  findButton_->setObjectName("cmdFind");
  findButton_->setDefault(true);
  replaceButton_ = new QPushButton("Replace >", this);
  replaceButton_->setObjectName("cmdReplace");
  connect(findButton_, &QPushButton::clicked, this, [this] { find(); });
  connect(replaceButton_, &QPushButton::clicked, this, [this] { replace(); });
  auto* buttons = new QHBoxLayout;
  buttons->addWidget(findButton_);
  buttons->addWidget(replaceButton_);
  buttons->addStretch(1);

  result_ = new QLabel(this);
  result_->setObjectName("lblResult");

  auto* layout = new QVBoxLayout(this);
  layout->addLayout(fields);
  layout->addWidget(columns_);
  layout->addWidget(banks);
  layout->addLayout(buttons);
  layout->addWidget(result_);
  fillColumns();
}

void FindDialog::setGrid(GridPage* grid) {
  const QString chosen = column();
  grid_ = grid;
  fillColumns();
  setColumn(chosen);
}

void FindDialog::fillColumns() {
  columns_->clear();
  if (!grid_) return;
  for (int c = 1; c < grid_->cols(); ++c) {
    if (grid_->colHidden(c) || grid_->textMatrix(0, c).empty()) continue;
    columns_->addItem(fromLatin1(grid_->textMatrix(0, c)));
  }
}

QString FindDialog::column() const {
  const QListWidgetItem* item = columns_->currentItem();
  return item && !item->text().isEmpty() ? item->text() : QString("Frequency");
}

void FindDialog::setColumn(const QString& heading) {
  const auto found = columns_->findItems(heading, Qt::MatchFixedString);
  columns_->setCurrentItem(found.isEmpty() ? nullptr : found.first());
}

void FindDialog::report(const QString& text) {
  result_->setText(text);
}

std::vector<int> FindDialog::find() {
  if (!grid_) return {};
  // Every pass starts at the top: nothing of a previous Find is remembered.
  const FindResult found = findInGrid(*grid_, toLatin1(column()), toLatin1(find_->text()));
  report(QString("%1 found").arg(found.rows.size()));
  if (!found.rows.empty() && changed_) changed_();
  return found.rows;
}

int FindDialog::replaceIn(GridPage& grid, const std::string& heading, const std::string& search,
                          const std::string& by) {
  const int col = grid.findColumn(heading);
  if (col < 0) return 0;
  std::vector<std::string> before;
  for (int r = 0; r < grid.rows(); ++r) before.push_back(grid.textMatrix(r, col));
  const int replaced = replaceInGrid(grid, heading, search, by);
  if (replaced == 0) return 0;
  // A replaced text is a new value of its cell: it passes the cell commit of the heading,
  // and a list column takes only a word of its list, as a typed value would.
  const cell::CommitEnv env = commitEnv(session_, feedback_);
  const bool ruled = cell::ruleForHeading(heading).has_value();
  const std::vector<std::string>& words = vocab::tabel(grid.textMatrix(0, col));
  const int keepRow = grid.row(), keepCol = grid.col();
  int changed = 0;
  for (int r = 1; r < grid.rows(); ++r) {
    if (grid.textMatrix(r, col) == before[r]) continue;
    std::string text = grid.textMatrix(r, col);
    bool stored = true;
    if (ruled) {
      grid.setRow(r);
      grid.setCol(col);
      stored = cell::cellCommit(&grid, text, cell::kModePlain, env) == cell::CommitStatus::Stored;
    } else if (!words.empty() && !text.empty()) {
      stored = std::find(words.begin(), words.end(), text) != words.end();
    }
    if (!stored) grid.setTextMatrix(r, col, before[r]);
    changed += grid.textMatrix(r, col) != before[r] ? 1 : 0;
  }
  grid.setRow(keepRow);
  grid.setCol(keepCol);
  return changed;
}

int FindDialog::replace() {
  const std::string heading = toLatin1(column());
  const std::string search = toLatin1(find_->text());
  const std::string by = toLatin1(replace_->text());
  int cells = 0;
  if (allBanks_->isChecked()) {
    const dups::OpenPage open = openPageOf(session_, grid_);
    forEachDepartmentGrid(session_, open, [&](const std::string&, GridPage& grid) {
      const int n = replaceIn(grid, heading, search, by);
      cells += n;
      return n > 0;
    });
    // The grid on show may belong to no department (a page not yet stored).
    if (grid_ && !open.grid) cells += replaceIn(*grid_, heading, search, by);
  } else if (grid_) {
    cells = replaceIn(*grid_, heading, search, by);
  }
  if (cells > 0) {
    session_.document().changed = true;
    if (changed_) changed_();
  }
  report(QString("%1 replaced").arg(cells));
  return cells;
}

}  // namespace zel::ui
