#include "ui/banknames_dialog.h"

#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

#include "grid/bank_names.h"
#include "ui/qt_feedback.h"

namespace zel::ui {

namespace {
enum Column { kNumber, kSystem, kName };
}

BanknamesDialog::BanknamesDialog(Document& document, Feedback& feedback, QWidget* parent)
    : QDialog(parent), document_(document), feedback_(feedback) {
  setObjectName("frm_banknames");
  setWindowTitle("Edit Banknames");
  resize(620, 480);

  auto* layout = new QVBoxLayout(this);
  auto* top = new QHBoxLayout;
  auto* filterLabel = new QLabel(tr("&Show only:"), this);
  filter_ = new QLineEdit(this);
  filter_->setObjectName("txtFilter");
  filter_->setPlaceholderText(tr("part of a system or department name"));
  filter_->setClearButtonEnabled(true);
  filterLabel->setBuddy(filter_);
  count_ = new QLabel(this);
  top->addWidget(filterLabel);
  top->addWidget(filter_, 1);
  top->addWidget(count_);
  layout->addLayout(top);

  table_ = new QTableWidget(this);
  table_->setObjectName("lstBanks");
  table_->setColumnCount(3);
  table_->setHorizontalHeaderLabels({"#", "System:", "Bankname:"});
  table_->verticalHeader()->hide();
  table_->verticalHeader()->setDefaultSectionSize(table_->fontMetrics().height() + 8);
  table_->setWordWrap(false);
  table_->setSelectionBehavior(QAbstractItemView::SelectItems);
  table_->setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed |
                          QAbstractItemView::AnyKeyPressed);
  table_->horizontalHeader()->setStretchLastSection(true);
  layout->addWidget(table_, 1);

  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
  buttons->button(QDialogButtonBox::Ok)->setObjectName("cmdOk");
  layout->addWidget(buttons);
  connect(buttons, &QDialogButtonBox::accepted, this, &BanknamesDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &BanknamesDialog::reject);
  connect(filter_, &QLineEdit::textChanged, this, &BanknamesDialog::applyFilter);

  fill();
}

void BanknamesDialog::fill() {
  const std::vector<banks::BankName> names = banks::list(document_.data);
  table_->setRowCount(static_cast<int>(names.size()));
  keys_.clear();
  for (std::size_t i = 0; i < names.size(); ++i) {
    const int row = static_cast<int>(i);
    auto* number = new QTableWidgetItem(QString::number(row + 1));
    auto* system = new QTableWidgetItem(fromLatin1(names[i].system));
    system->setToolTip(system->text());  // a long system name is cut in its column
    for (QTableWidgetItem* fixed : {number, system}) {
      fixed->setFlags(fixed->flags() & ~Qt::ItemIsEditable);
    }
    table_->setItem(row, kNumber, number);
    table_->setItem(row, kSystem, system);
    table_->setItem(row, kName, new QTableWidgetItem(fromLatin1(names[i].name)));
    keys_.push_back(names[i].key);
  }
  table_->resizeColumnsToContents();
  table_->setColumnWidth(kSystem, std::min(table_->columnWidth(kSystem), 260));
  if (!names.empty()) table_->setCurrentCell(0, kName);
  count_->setText(tr("%n departments", nullptr, static_cast<int>(names.size())));
}

void BanknamesDialog::applyFilter(const QString& text) {
  for (int row = 0; row < table_->rowCount(); ++row) {
    const bool shown = text.isEmpty() ||
                       table_->item(row, kSystem)->text().contains(text, Qt::CaseInsensitive) ||
                       table_->item(row, kName)->text().contains(text, Qt::CaseInsensitive);
    table_->setRowHidden(row, !shown);
  }
}

bool BanknamesDialog::apply() {
  // A name still in its edit box counts as typed: moving the cursor off the cell commits it.
  const QModelIndex at = table_->currentIndex();
  table_->setCurrentIndex(QModelIndex());
  table_->setCurrentIndex(at);
  std::vector<std::pair<std::string, std::string>> names;
  for (int row = 0; row < table_->rowCount(); ++row) {
    names.emplace_back(keys_[row], toLatin1(table_->item(row, kName)->text()));
  }
  banks::RenameResult result = banks::rename(document_, names);
  if (!result.error.empty()) {
    feedback_.message(result.error);
    return false;
  }
  renamed_ = result.renamed;
  return true;
}

void BanknamesDialog::accept() {
  if (apply()) QDialog::accept();
}

}  // namespace zel::ui
