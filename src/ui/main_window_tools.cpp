// The windows the main window opens over the grid on show: Find/Replace, Enhanced Find
// (duplicates and locked-out channels), the CSV mapper, the CSV export of the lists, Edit
// Banknames over the names of all departments, Edit Departments (the Bulk Channel Editor),
// the RadioReference import window, and Print.
#include <QPrintDialog>
#include <QPrinter>
#include <QStatusBar>
#include <QTableView>
#include <QTextDocument>

#include "core/new_commands.h"
#include "exchange/csv_export.h"
#include "exchange/print_report.h"
#include "formats/row_store.h"
#include "formats/text_file.h"
#include "ui/banknames_dialog.h"
#include "ui/bulk_edit_dialog.h"
#include "ui/csv_mapper_dialog.h"
#include "ui/enhanced_find_dialog.h"
#include "ui/find_dialog.h"
#include "ui/grid_page_model.h"
#include "ui/grid_view.h"
#include "ui/main_window.h"
#include "ui/qt_feedback.h"
#include "ui/rr_import_window.h"

namespace zel::ui {

// A window changed the grid on show in place: show it again and go to its cursor. The page
// is not reloaded from its file, which is older than the grid until the selection moves.
void MainWindow::gridChanged() {
  if (!shownPage_) return;
  model_->syncRows();
  model_->refreshCells();
  const int row = std::max(0, shownPage_->row() - 1);
  const int col = std::max(0, shownPage_->col() - 1);
  const QModelIndex at = model_->index(row, col);
  if (at.isValid()) {
    rows_->setCurrentIndex(at);
    rows_->scrollTo(at);
  }
  session_.document().changed = true;
  updateStatus();
}

void MainWindow::editBanknamesCommand() {
  // The pane may hold a name typed a moment ago: it goes to its line first.
  commitShown();
  BanknamesDialog dialog(session_.document(), feedback_, this);
  if (dialog.exec() != QDialog::Accepted || dialog.renamed() == 0) return;
  rebuildVisibleTree(session_.document());
  afterFilesChanged();
  showSelectedAgain();
  statusBar()->showMessage(tr("%n department names changed.", nullptr, dialog.renamed()));
}

// The Bulk Channel Editor works on the page store and the records: what is on show goes
// there first, and is shown again from there after the window changed anything.
void MainWindow::editDepartmentsCommand() {
  commitShown();
  bool applied = false;
  BulkEditDialog dialog(
      session_, feedback_, [&applied] { applied = true; }, this);
  dialog.exec();
  if (!applied) return;
  session_.document().changed = true;
  showSelectedAgain();
  updateStatus();
}

void MainWindow::printCommand() {
  if (session_.document().data.empty()) {
    feedback_.message("No data to print, please add at least one system.");
    return;
  }
  QPrinter printer(QPrinter::HighResolution);
  QPrintDialog dialog(&printer, this);
  dialog.setWindowTitle(session_.selectedSystem() > 0 ? tr("Print the selected system")
                                                      : tr("Print all systems"));
  if (dialog.exec() != QDialog::Accepted) return;
  printReport(printer);
}

void MainWindow::printReport(QPrinter& printer) {
  commitShown();
  exchange::ReportOptions options;
  options.system = session_.selectedSystem();
  options.title = windowTitle().toStdString();
  formats::PageFileRows rows(session_.pages());
  QTextDocument page;
  page.setHtml(fromLatin1(exchange::favoritesReport(session_.document(), rows, options)));
  page.print(&printer);
  statusBar()->showMessage(tr("Printed."));
}

void MainWindow::showSelectedAgain() {
  const std::string key = session_.selectedKey();
  if (key.empty()) return;
  showPane(key, session_.selectedKind());
  if (key.rfind("GRP-", 0) == 0) loadGrid(key);
}

void MainWindow::openFind() {
  if (!find_) {
    find_ = new FindDialog(
        session_, feedback_, shownPage_, [this] { gridChanged(); }, this);
  }
  find_->setGrid(shownPage_);
  find_->show();
  find_->raise();
  find_->activateWindow();
}

EnhancedFindDialog& MainWindow::enhancedFind() {
  if (!enhancedFind_) {
    enhancedFind_ = new EnhancedFindDialog(
        session_, feedback_, shownPage_, [this] { gridChanged(); }, this);
  }
  // The searches read the page store: the grid on show goes there first.
  const std::string key = session_.selectedKey();
  if (shownPage_ && key.rfind("GRP-", 0) == 0) storeGrid(key);
  enhancedFind_->setGrid(shownPage_);
  return *enhancedFind_;
}

void MainWindow::openCsvMapper() {
  if (!csvMapper_) {
    csvMapper_ = new CsvMapperDialog(
        session_, feedback_, shownPage_, [this] { gridChanged(); }, this);
  }
  csvMapper_->setGrid(shownPage_);
  csvMapper_->show();
  csvMapper_->raise();
}

void MainWindow::exportCsvCommand() {
  commitShown();
  QString path = askFile(FileAsk::ExportCsv, QString::fromStdString(session_.folders().data));
  if (path.isEmpty()) return;
  if (!path.contains('.')) path += ".csv";
  const std::string text = exchange::channelCsvExport(session_.document(), session_.pages());
  const std::string target = toLatin1(path);
  if (!formats::writeFileAtomically(target, text).ok) {
    feedback_.message("There was an error saving this file: " + target);
    return;
  }
  statusBar()->showMessage("Done Saving.");
}

void MainWindow::setRadioReferencePreset(const RRImportPreset& preset) {
  rrPreset_ = std::make_shared<RRImportPreset>(preset);
}

RRImportWindow* MainWindow::openRadioReferenceImport() {
  if (!rrImport_) {
    RRImportWindow::Setup setup;
    if (rrPreset_) setup.preset = *rrPreset_;
    rrImport_ = new RRImportWindow(session_, feedback_, setup, this);
    rrImport_->setAttribute(Qt::WA_DeleteOnClose);
    rrImport_->setWindowFlag(Qt::Window);
    connect(rrImport_, &RRImportWindow::documentNeeded, this, [this] { commitShown(); });
    // An imported system stands in the tree at once, selected as a New System command
    // leaves its system.
    connect(rrImport_, &RRImportWindow::documentChanged, this, [this](const QString& key) {
      session_.document().changed = true;
      rebuildVisibleTree(session_.document());
      afterFilesChanged();
      selectKey(key);
    });
  }
  rrImport_->show();
  rrImport_->raise();
  rrImport_->activateWindow();
  return rrImport_;
}

}  // namespace zel::ui
