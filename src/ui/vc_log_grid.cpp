#include "ui/vc_log_grid.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFileDialog>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTableView>
#include <QVBoxLayout>

#include "control/log_page.h"
#include "ui/vc_scanner_face.h"

namespace zel::ui {

LogPageModel::LogPageModel(control::Family family, const control::LogPage& page, QObject* parent)
    : QAbstractTableModel(parent), family_(family), page_(page) {}

int LogPageModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : control::LogPage::kRows;
}

int LogPageModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : page_.columns();
}

QVariant LogPageModel::data(const QModelIndex& index, int role) const {
  if (role != Qt::DisplayRole || !index.isValid()) return {};
  return latin1(page_.cell(index.row() + 1, index.column()));
}

QVariant LogPageModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (role != Qt::DisplayRole) return {};
  if (orientation == Qt::Vertical) return section + 1;
  const auto& headers = control::logHeaders(family_);
  return section < static_cast<int>(headers.size()) ? QString::fromStdString(headers[section])
                                                    : QString();
}

void LogPageModel::pageChanged() {
  beginResetModel();
  endResetModel();
}

LogPanel::LogPanel(control::VirtualControl& vc, QWidget* parent) : QWidget(parent), vc_(vc) {
  auto* layout = new QVBoxLayout(this);
  model_ = new LogPageModel(vc.family(), vc.logger.page, this);
  grid_ = new QTableView(this);
  grid_->setObjectName("loggrid");
  grid_->setModel(model_);
  grid_->setSelectionBehavior(QAbstractItemView::SelectRows);
  grid_->verticalHeader()->setDefaultSectionSize(18);
  // Widths are stored in the window's own units (1/15 of a pixel, as twips are). A column
  // still at its default width is widened to its heading; a width the user chose stays.
  const control::VcOptions defaults;
  for (int c = 0; c < 14 && c < model_->columnCount(); ++c) {
    int width = vc.options.columnWidths[c] / 15;
    if (vc.options.columnWidths[c] == defaults.columnWidths[c])
      width = std::max(width, grid_->horizontalHeader()->sectionSizeHint(c));
    grid_->setColumnWidth(c, width);
  }
  layout->addWidget(grid_, 1);

  auto* buttons = new QHBoxLayout;
  auto* save = new QPushButton("Save Log", this);
  auto* clear = new QPushButton("Clear Log", this);
  auto* file = new QPushButton("Log File...", this);
  auto* remove = new QPushButton("Delete Log File", this);
  auto* search = new QPushButton("Fr.Search", this);
  for (auto* b : {save, clear, search, file, remove}) buttons->addWidget(b);
  buttons->addStretch();
  layout->addLayout(buttons);

  auto* options = new QHBoxLayout;
  logToFile_ = new QCheckBox("Log/Append To File:", this);
  logFile_ = new QLabel(this);
  action_ = new QComboBox(this);
  action_->addItems({"Log And Resume", "Log And Resume After", "Log And Avoid", "Off"});
  resumeAfter_ = new QComboBox(this);
  for (const auto& e : control::resumeAfterEntries())
    resumeAfter_->addItem(QString::fromStdString(e));
  logSubtones_ = new QCheckBox("Log Subtones", this);
  debug_ = new QCheckBox("debug", this);
  for (QWidget* w : std::initializer_list<QWidget*>{logToFile_, logFile_, action_, resumeAfter_,
                                                    logSubtones_, debug_})
    options->addWidget(w);
  options->addStretch();
  layout->addLayout(options);

  auto* analysis = new QHBoxLayout;
  report_ = new QComboBox(this);
  report_->addItems({"Current Activity", "LCN Monitor", "Activity Log", "LCN Finder"});
  if (vc.family() == control::Family::Sds) report_->addItem("Bandscope");
  auto* start = new QPushButton("Start Logging To File", this);
  auto* stop = new QPushButton("Stop", this);
  capture_ = new QLabel(this);
  capture_->setMaximumWidth(400);
  analysis->addWidget(report_);
  analysis->addWidget(start);
  analysis->addWidget(stop);
  analysis->addWidget(capture_, 1);
  layout->addLayout(analysis);

  // The controls start from the stored options.
  const auto& o = vc.options;
  logToFile_->setChecked(o.logToFile);
  logFile_->setText(QString::fromStdString(o.logFilePath));
  action_->setCurrentIndex(static_cast<int>(o.action));
  resumeAfter_->setCurrentIndex(o.resumeAfterIndex);
  logSubtones_->setChecked(o.logSubtones);
  debug_->setChecked(o.debug);

  connect(save, &QPushButton::clicked, this, [this] {
    QString path = QFileDialog::getSaveFileName(this, "Save Log", {}, "CSV Files (*.csv)");
    if (!path.isEmpty()) vc_.logger.saveLog(path.toStdString());
  });
  connect(clear, &QPushButton::clicked, this, [this] {
    vc_.logger.clearLog();
    pageChanged();
  });
  connect(file, &QPushButton::clicked, this, [this] { chooseLogFile(); });
  connect(remove, &QPushButton::clicked, this, [this] { vc_.logger.deleteLogFile(); });
  connect(search, &QPushButton::clicked, this, [this] {
    if (!onFrequencySearch || !storedUser) return;
    std::string f = vc_.logger.searchFrequency(grid_->currentIndex().row() + 1, storedUser());
    if (!f.empty()) onFrequencySearch(f);
  });
  for (QCheckBox* c : {logToFile_, logSubtones_, debug_})
    connect(c, &QCheckBox::toggled, this, [this] { syncOptions(); });
  for (QComboBox* c : {action_, resumeAfter_})
    connect(c, &QComboBox::currentIndexChanged, this, [this] { syncOptions(); });
  connect(start, &QPushButton::clicked, this, [this] {
    vc_.logger.startAnalysis(static_cast<control::SiteReport>(report_->currentIndex()));
  });
  connect(stop, &QPushButton::clicked, this, [this] { vc_.logger.stopAnalysis(); });
}

void LogPanel::chooseLogFile() {
  QString path = QFileDialog::getSaveFileName(this, "Log File", logFile_->text(),
                                              "Log Files (*.csvx);;All Files (*)");
  if (path.isEmpty()) return;
  logFile_->setText(path);
  // Choosing a file while logging switches the logging off and on again.
  bool was = logToFile_->isChecked();
  logToFile_->setChecked(false);
  syncOptions();
  logToFile_->setChecked(was);
  syncOptions();
}

void LogPanel::syncOptions() {
  auto& o = vc_.options;
  o.logFilePath = logFile_->text().toStdString();
  o.logToFile = logToFile_->isChecked() && !o.logFilePath.empty();
  o.action = static_cast<control::LogAction>(action_->currentIndex());
  o.resumeAfterIndex = resumeAfter_->currentIndex();
  o.logSubtones = logSubtones_->isChecked();
  o.debug = debug_->isChecked();
  for (int c = 0; c < 14 && c < model_->columnCount(); ++c)
    o.columnWidths[c] = control::clampColumnWidth(c + 1, grid_->columnWidth(c) * 15LL);
}

void LogPanel::pageChanged() {
  model_->pageChanged();
}

void LogPanel::refresh() {
  if (vc_.timers.enabled(control::Timer8))
    capture_->setText(latin1(vc_.logger.captureText).left(80));
}

}  // namespace zel::ui
