#include "ui/csv_mapper_dialog.h"

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QFile>
#include <QFileDialog>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QHideEvent>
#include <QItemSelectionModel>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QRegularExpression>
#include <QScrollBar>
#include <QSpinBox>
#include <QTableView>
#include <QTableWidget>
#include <QVBoxLayout>
#include <set>

#include "core/keys.h"
#include "core/record_line.h"
#include "core/text.h"
#include "core/tree_operations.h"
#include "exchange/csv_export.h"
#include "ui/dialog_pages.h"
#include "ui/grid_page_model.h"
#include "ui/qt_feedback.h"

namespace zel::ui {

namespace {

// Twips a pixel, as the stored window places count them.
constexpr int kTwips = 15;

// "CSV Files|*.csv|..." as a file dialog's filter: "CSV Files (*.csv);;...".
QString dialogFilter() {
  const QStringList parts = fromLatin1(exchange::kOpenFilter).split('|');
  QStringList out;
  for (int i = 0; i + 1 < parts.size(); i += 2) out << parts[i] + " (" + parts[i + 1] + ")";
  return out.join(";;");
}

}  // namespace

CsvMapperDialog::CsvMapperDialog(Session& session, Feedback& feedback, GridPage* grid,
                                 std::function<void()> changed, QWidget* parent)
    : QDialog(parent),
      session_(session),
      feedback_(feedback),
      grid_(grid),
      changed_(std::move(changed)) {
  setObjectName("frm_csvimport");
  setWindowTitle(fromLatin1(exchange::kTitle));

  combos_ = new QTableWidget(1, 0, this);
  combos_->setObjectName("Combo4");
  combos_->horizontalHeader()->hide();
  combos_->verticalHeader()->hide();
  combos_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  combos_->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  combos_->setFixedHeight(QComboBox().sizeHint().height() + 6);

  view_ = new QTableView(this);
  view_->setObjectName("trunkgrid");
  model_ = new GridPageModel(this);
  view_->setModel(model_);
  view_->verticalHeader()->hide();
  // The meaning row follows the grid's columns and its scrolling.
  connect(view_->horizontalHeader(), &QHeaderView::sectionResized, this,
          [this](int section, int, int size) { combos_->setColumnWidth(section, size); });
  connect(view_->horizontalScrollBar(), &QScrollBar::valueChanged, combos_->horizontalScrollBar(),
          &QScrollBar::setValue);

  auto* gridColumn = new QVBoxLayout;
  gridColumn->addWidget(combos_);
  gridColumn->addWidget(view_, 1);
  gridColumn->addWidget(buildTransfers());
  auto* side = new QVBoxLayout;
  side->addWidget(buildLineFilters());
  side->addWidget(buildCellFilters());
  side->addStretch(1);
  auto* centre = new QHBoxLayout;
  centre->addLayout(gridColumn, 1);
  centre->addLayout(side);

  auto* layout = new QVBoxLayout(this);
  layout->addWidget(buildButtons());
  layout->addLayout(centre, 1);
  refresh();
  restorePosition();
}

QPushButton* CsvMapperDialog::addButton(QHBoxLayout* row, QWidget* bar, const char* caption,
                                        const char* name, std::function<void()> handler) {
  auto* b = new QPushButton(caption, bar);
  b->setObjectName(name);
  b->setAutoDefault(false);
  connect(b, &QPushButton::clicked, this, std::move(handler));
  row->addWidget(b);
  return b;
}

QWidget* CsvMapperDialog::buildButtons() {
  auto* bar = new QWidget(this);
  auto* row = new QHBoxLayout(bar);
  row->setContentsMargins(0, 0, 0, 0);
  auto button = [&](const char* caption, const char* name, auto handler) {
    return addButton(row, bar, caption, name, handler);
  };
  button("Load File", "cmdLoad", [this] { openFileDialog(); });
  row->addWidget(new QLabel("Separator:", bar));
  separator_ = new QComboBox(bar);
  separator_->setObjectName("cmbSeparator");
  separator_->addItems({"Auto", "Comma ,", "Semicolon ;", "Tab", "Bar |", "Blanks"});
  row->addWidget(separator_);
  row->addWidget(new QLabel("Clipboard import:", bar));
  button("Import", "Command6", [this] { importClipboard(); });
  button("Auto Detect", "cmdAutoDetect", [this] { autoDetect(); });
  button("Add Column", "cmdAddColumn", [this] { addColumn(); });
  row->addStretch(1);
  return bar;
}

QWidget* CsvMapperDialog::buildTransfers() {
  auto* bar = new QWidget(this);
  auto* row = new QHBoxLayout(bar);
  row->setContentsMargins(0, 0, 0, 0);
  auto button = [&](const char* caption, const char* name, auto handler) {
    return addButton(row, bar, caption, name, handler);
  };
  button("Save CSV", "mnu_csv", [this] { saveCsvDialog(); });
  button("Copy To Clipboard", "mnu_copy", [this] { copyToClipboard(); });
  paste_ = button("Paste Frequencies", "cmdPaste", [this] { pasteFrequencies(); });
  paste_->setEnabled(grid_ != nullptr);
  button("To CSV", "mnu_exp", [this] { toCsvDialog(); });
  row->addStretch(1);
  return bar;
}

QWidget* CsvMapperDialog::buildLineFilters() {
  auto* box = new QGroupBox("Line must ...", this);
  auto* grid = new QGridLayout(box);
  auto check = [&](const char* caption, const char* name, int row) {
    auto* c = new QCheckBox(caption, box);
    c->setObjectName(name);
    grid->addWidget(c, row, 0, 1, 3);
    return c;
  };
  mustFrequency_ = check("Line must include a frequency", "chkFrequency", 0);
  mustComma_ = check("Line must have at least one comma", "chkComma", 1);
  mustDigits_ = new QCheckBox("Line must include a number of at least", box);
  mustDigits_->setObjectName("chkDigits");
  digits_ = new QSpinBox(box);
  digits_->setObjectName("spnDigits");
  digits_->setRange(1, 15);
  digits_->setValue(3);
  grid->addWidget(mustDigits_, 2, 0);
  grid->addWidget(digits_, 2, 1);
  grid->addWidget(new QLabel("digits.", box), 2, 2);
  mustDash_ = check("Line must include a dash", "chkDash", 3);
  mustText_ = new QCheckBox("Line must include following string:", box);
  mustText_->setObjectName("chkText");
  text1_ = new QLineEdit(box);
  text1_->setObjectName("Text1");
  grid->addWidget(mustText_, 4, 0);
  grid->addWidget(text1_, 4, 1, 1, 2);
  mustBy16_ = check("Line must include a number dividable by 16", "chkBy16", 5);

  auto* actions = new QHBoxLayout;
  auto act = [&](const char* caption, const char* name, auto handler) {
    auto* b = new QPushButton(caption, box);
    b->setObjectName(name);
    b->setAutoDefault(false);
    connect(b, &QPushButton::clicked, this, handler);
    actions->addWidget(b);
  };
  act("Filter Lines", "cmdFilterLines", [this] { applyLineFilters(); });
  act("remove empty lines", "cmdRemoveEmpty", [this] { removeEmptyLines(); });
  act("remove without numbers", "cmdRemoveNoNumbers", [this] { removeWithoutNumbers(); });
  grid->addLayout(actions, 6, 0, 1, 3);
  return box;
}

QWidget* CsvMapperDialog::buildCellFilters() {
  auto* box = new QGroupBox("Filter Options (selected cells):", this);
  auto* grid = new QGridLayout(box);
  auto radio = [&](const char* caption, const char* name, QWidget* group) {
    auto* r = new QRadioButton(caption, group);
    r->setObjectName(name);
    return r;
  };
  auto* rows = new QWidget(box);
  auto* rowsLayout = new QHBoxLayout(rows);
  rowsLayout->setContentsMargins(0, 0, 0, 0);
  autoSelect_ = radio("Auto Select", "optAutoSelect", rows);
  selectedRows_ = radio("Selected Rows", "optSelectedRows", rows);
  entireRow_ = radio("Entire Row", "optEntireRow", rows);
  autoSelect_->setChecked(true);
  for (QRadioButton* r : {autoSelect_, selectedRows_, entireRow_}) rowsLayout->addWidget(r);
  grid->addWidget(rows, 0, 0, 1, 3);

  auto* cols = new QWidget(box);
  auto* colsLayout = new QHBoxLayout(cols);
  colsLayout->setContentsMargins(0, 0, 0, 0);
  allColumns_ = radio("All Columns", "optAllColumns", cols);
  singleColumn_ = radio("Single Column:", "optSingleColumn", cols);
  allColumns_->setChecked(true);
  column_ = new QSpinBox(cols);
  column_->setObjectName("spnColumn");
  column_->setRange(1, exchange::kMaxColumns);
  for (QWidget* w : {static_cast<QWidget*>(allColumns_), static_cast<QWidget*>(singleColumn_),
                     static_cast<QWidget*>(column_)})
    colsLayout->addWidget(w);
  grid->addWidget(cols, 1, 0, 1, 3);

  auto* ops = new QWidget(box);
  auto* opsLayout = new QGridLayout(ops);
  opsLayout->setContentsMargins(0, 0, 0, 0);
  upper_ = radio("Convert Selection To Upper Case", "optUpper", ops);
  lower_ = radio("Convert Selection To Lower Case", "optLower", ops);
  replace_ = radio("Replace String:", "optReplace", ops);
  remove_ = radio("Remove String:", "optRemove", ops);
  upper_->setChecked(true);
  replaceFind_ = new QLineEdit(ops);
  replaceFind_->setObjectName("txtReplaceFind");
  replaceBy_ = new QLineEdit(ops);
  replaceBy_->setObjectName("txtReplaceBy");
  removeText_ = new QLineEdit(ops);
  removeText_->setObjectName("txtRemove");
  opsLayout->addWidget(upper_, 0, 0, 1, 3);
  opsLayout->addWidget(lower_, 1, 0, 1, 3);
  opsLayout->addWidget(replace_, 2, 0);
  opsLayout->addWidget(replaceFind_, 2, 1);
  opsLayout->addWidget(replaceBy_, 2, 2);
  opsLayout->addWidget(remove_, 3, 0);
  opsLayout->addWidget(removeText_, 3, 1, 1, 2);
  grid->addWidget(ops, 2, 0, 1, 3);

  auto* apply = new QPushButton("Apply", box);
  apply->setObjectName("cmdApply");
  apply->setAutoDefault(false);
  connect(apply, &QPushButton::clicked, this, [this] { applyCellFilters(); });
  grid->addWidget(apply, 3, 2);
  return box;
}

void CsvMapperDialog::setGrid(GridPage* grid) {
  grid_ = grid;
  paste_->setEnabled(grid_ != nullptr);
}

QComboBox* CsvMapperDialog::meaningBox(int column) const {
  if (column < 1 || column > combos_->columnCount()) return nullptr;
  return qobject_cast<QComboBox*>(combos_->cellWidget(0, column - 1));
}

void CsvMapperDialog::refresh() {
  model_->setPage(&mapper_.grid(), {});
  rebuildMeaningBoxes();
}

void CsvMapperDialog::rebuildMeaningBoxes() {
  const int columns = mapper_.columnCount();
  combos_->setColumnCount(columns);
  QStringList items;
  for (const std::string& m : exchange::columnMeanings()) items << fromLatin1(m);
  for (int c = 1; c <= columns; ++c) {
    auto* box = meaningBox(c);
    if (!box) {
      box = new QComboBox(combos_);
      box->setObjectName(QString("Combo4_%1").arg(c));
      box->addItems(items);
      connect(box, &QComboBox::currentTextChanged, this,
              [this, c](const QString& text) { mapper_.setMeaning(c, toLatin1(text)); });
      combos_->setCellWidget(0, c - 1, box);
    }
    const QSignalBlocker quiet(box);
    box->setCurrentText(fromLatin1(mapper_.meaning(c)));
    combos_->setColumnWidth(c - 1, view_->columnWidth(c - 1));
  }
}

QString CsvMapperDialog::withSeparator(const QString& text) const {
  // "Auto" leaves the separator to the reader: a comma, else a dash, else runs of blanks.
  const int choice = separator_->currentIndex();
  if (choice <= 1) return text;
  QStringList lines = text.split('\n');
  for (QString& line : lines) {
    switch (choice) {
      case 2:
        line.replace(';', ',');
        break;
      case 3:
        line.replace('\t', ',');
        break;
      case 4:
        line.replace('|', ',');
        break;
      default: {
        const bool cr = line.endsWith('\r');
        line = line.trimmed().replace(QRegularExpression("[ \\t]+"), ",");
        if (cr) line += '\r';
      }
    }
  }
  return lines.join('\n');
}

exchange::RowFilters CsvMapperDialog::lineFilters() const {
  exchange::RowFilters f;
  f.frequency = mustFrequency_->isChecked();
  f.comma = mustComma_->isChecked();
  f.digits = mustDigits_->isChecked() ? digits_->value() : 0;
  f.dash = mustDash_->isChecked();
  f.text = mustText_->isChecked() ? toLatin1(text1_->text()) : std::string();
  f.dividableBy16 = mustBy16_->isChecked();
  return f;
}

bool CsvMapperDialog::loadText(const QString& text) {
  const bool ok = mapper_.loadText(toLatin1(withSeparator(text)), &feedback_);
  if (ok) mapper_.applyRowFilters(lineFilters());
  refresh();
  return ok;
}

bool CsvMapperDialog::loadFile(const QString& path) {
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) {
    // An unreadable file gives an empty work grid and no message.
    mapper_ = exchange::CsvMapper();
    refresh();
    return true;
  }
  return loadText(QString::fromLatin1(file.readAll()));
}

bool CsvMapperDialog::importClipboard() {
  return loadText(QApplication::clipboard()->text());
}

void CsvMapperDialog::autoDetect() {
  mapper_.autoDetect();
  rebuildMeaningBoxes();
}

void CsvMapperDialog::addColumn() {
  mapper_.addColumn();
  refresh();
}

int CsvMapperDialog::applyLineFilters() {
  const int removed = mapper_.applyRowFilters(lineFilters());
  if (removed) refresh();
  return removed;
}

int CsvMapperDialog::removeEmptyLines() {
  const int removed = mapper_.removeEmptyLines();
  if (removed) refresh();
  return removed;
}

int CsvMapperDialog::removeWithoutNumbers() {
  const int removed = mapper_.removeWithoutNumbers();
  if (removed) refresh();
  return removed;
}

std::vector<int> CsvMapperDialog::chosenRows() const {
  std::set<int> selected;
  for (const QModelIndex& index : view_->selectionModel()->selectedIndexes())
    selected.insert(index.row() + 1);
  const bool all = entireRow_->isChecked() || (autoSelect_->isChecked() && selected.empty());
  if (all) {
    std::vector<int> rows;
    for (int r = 1; r <= mapper_.rowCount(); ++r) rows.push_back(r);
    return rows;
  }
  return {selected.begin(), selected.end()};
}

int CsvMapperDialog::applyCellFilters() {
  exchange::CellOp op = exchange::CellOp::Upper;
  std::string find, by;
  if (lower_->isChecked()) op = exchange::CellOp::Lower;
  if (replace_->isChecked()) {
    op = exchange::CellOp::Replace;
    find = toLatin1(replaceFind_->text());
    by = toLatin1(replaceBy_->text());
  }
  if (remove_->isChecked()) {
    op = exchange::CellOp::Remove;
    find = toLatin1(removeText_->text());
  }
  // Replacing or removing nothing would change nothing; an empty search is no filter.
  if ((op == exchange::CellOp::Replace || op == exchange::CellOp::Remove) && find.empty()) return 0;
  const int col = singleColumn_->isChecked() ? column_->value() : 0;
  if (col > mapper_.columnCount()) return 0;
  int changed = 0;
  for (int r : chosenRows()) changed += mapper_.applyCellFilter(op, r, r, col, find, by);
  if (changed) model_->reload();
  return changed;
}

QString CsvMapperDialog::saveCsv(const QString& path) {
  return fromLatin1(mapper_.saveFile(toLatin1(path)));
}

QString CsvMapperDialog::copyToClipboard() {
  const QString text = fromLatin1(mapper_.clipboardText());
  QApplication::clipboard()->setText(text);
  return text;
}

int CsvMapperDialog::pasteFrequencies() {
  if (!grid_) return 0;
  const std::string text = toLatin1(QApplication::clipboard()->text());
  const int added = exchange::pasteFrequencies(*grid_, text, commitEnv(session_, feedback_));
  if (added > 0 && changed_) changed_();
  return added;
}

bool CsvMapperDialog::exportZelCsv(const QString& path) {
  const Document& doc = session_.document();
  std::vector<exchange::FavoritesRow> rows;
  for (NodeId node : treemod::walkSystems(doc.data)) {
    // The system table's first field is the system's mark: "1" while it is in use.
    const int number = keys::systemOf(doc.data.key(node));
    rows.push_back({doc.systems.get(number, 0), doc.data.text(node),
                     record::field(doc.data.text(node), 4)});
  }
  return writeFileWhole(toLatin1(path), exchange::zelCsvExport(rows));
}

void CsvMapperDialog::openFileDialog() {
  const QString path = QFileDialog::getOpenFileName(this, "Import CSV File", {}, dialogFilter());
  if (!path.isEmpty()) loadFile(path);
}

void CsvMapperDialog::saveCsvDialog() {
  const QString path = QFileDialog::getSaveFileName(this, "Save CSV", {}, "CSV Files (*.csv)");
  if (!path.isEmpty() && saveCsv(path).isEmpty())
    feedback_.message("Cannot write " + toLatin1(path));
}

void CsvMapperDialog::toCsvDialog() {
  const QString path = QFileDialog::getSaveFileName(this, "To CSV", {}, "CSV Files (*.csv)");
  if (!path.isEmpty() && !exportZelCsv(path)) feedback_.message("Cannot write " + toLatin1(path));
}

void CsvMapperDialog::restorePosition() {
  Settings& s = session_.settingsCodec();
  auto number = [&](const char* key, const char* fallback) {
    return static_cast<int>(leadingInteger(s.get("csv", key, fallback)));
  };
  const int left = number("csvleft", "100x"), top = number("csvtop", "100x");
  const int width = number("csvwidth", "11640x"), height = number("csvheight", "8100x");
  resize(std::max(width / kTwips, 480), std::max(height / kTwips, 320));
  move(left / kTwips, top / kTwips);
}

void CsvMapperDialog::storePosition() {
  Settings& s = session_.settingsCodec();
  s.put("csv", "csvleft", std::to_string(x() * kTwips));
  s.put("csv", "csvtop", std::to_string(y() * kTwips));
  s.put("csv", "csvwidth", std::to_string(width() * kTwips));
  s.put("csv", "csvheight", std::to_string(height() * kTwips));
}

void CsvMapperDialog::hideEvent(QHideEvent* event) {
  // Closing, Escape and the window manager all hide the window: each keeps its place.
  storePosition();
  QDialog::hideEvent(event);
}

}  // namespace zel::ui
