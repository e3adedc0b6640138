// The File and Profile menus of the main window: they ask for names and answers, and leave
// the work on the document to the session's file commands.
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QStatusBar>

#include "core/keys.h"
#include "core/new_commands.h"
#include "core/tree_operations.h"
#include "formats/session_files.h"
#include "formats/state_file_guard.h"
#include "ui/main_window.h"
#include "ui/qt_feedback.h"

namespace zel::ui {

namespace {

struct AskText {
  const char* caption;
  const char* filters;
  bool save;
};

AskText askText(MainWindow::FileAsk ask) {
  using A = MainWindow::FileAsk;
  switch (ask) {
    case A::Open:
      return {"Open", "HPD Files (*.hpd);;Profiles (*.pfl);;All Files (*)", false};
    case A::SaveAs:
      return {"Save As", "HPD Files (*.hpd);;HPD Files (HP1 format) (*.hpd);;HPD Files (V1_0) (*.hpd)",
              true};
    case A::SaveUnsavedAs:
      return {"Save Unsaved Systems As:",
              "HPD Files (*.hpd);;HPD Files (HP1 format) (*.hpd);;HPD Files (V1_0) (*.hpd)", true};
    case A::OpenConfig:
      return {"Open Config File", "Favorites Configuration (*.cfg)", false};
    case A::SaveConfig:
      return {"Save Config File", "Favorites Configuration (*.cfg)", true};
    case A::OpenProfile:
      return {"Open Profile", "Profiles (*.pfl)", false};
    case A::SaveProfileAs:
      return {"Save Profile As", "Profiles (*.pfl)", true};
    case A::ExportCsv:
      return {"Export CSV", "CSV Files (*.csv);;All Files (*)", true};
  }
  return {"", "", false};
}

}  // namespace

QString MainWindow::askFile(FileAsk ask, const QString& suggested) {
  if (chooser_) return chooser_(ask, suggested);
  const AskText t = askText(ask);
  return t.save ? QFileDialog::getSaveFileName(this, t.caption, suggested, t.filters)
                : QFileDialog::getOpenFileName(this, t.caption, suggested, t.filters);
}

// What the user sees in the pane and the grid goes back to the document before a file
// command reads or writes it.
void MainWindow::commitShown() {
  const std::string key = session_.selectedKey();
  if (key.empty()) return;
  storePane(key, session_.selectedKind());
  if (shownPage_ && key.rfind("GRP-", 0) == 0) storeGrid(key);
}

void MainWindow::afterFilesChanged() {
  refreshTree();
  const std::string key = session_.selectedKey();
  if (!key.empty() && !session_.document().visible.contains(key)) {
    showPane("", "");
  }
  setWindowTitle(QString::fromStdString(session_.windowTitle(key)));
  updateStatus();
}

void MainWindow::newDocumentCommand() {
  if (!session_.document().data.empty() && session_.document().changed &&
      feedback_.ask("Warning",
                    "Changes are not saved yet.\nIf not saved, data is lost!\nContinue without "
                    "saving ?",
                    Buttons::YesNoCancel) != Answer::Yes)
    return;
  showPane("", "");
  session_.clearDocument();
  session_.setActiveFile("");
  rebuildVisibleTree(session_.document());
  afterFilesChanged();
}

void MainWindow::newListCommand() {
  Document& doc = session_.document();
  const int row = doc.files.freeRow();
  if (row == 0) {
    feedback_.message("Error, maximum number of hpd files is 99!");
    return;
  }
  doc.files.set(row, OpenFileTable::Loaded, "1");
  doc.files.set(row, OpenFileTable::ListName, "New Favorites List " + std::to_string(row));
  doc.changed = true;
  showInVisibleTree(doc, keys::favorites(row));
  afterFilesChanged();
  selectKey(QString::fromStdString(keys::favorites(row)));
}

bool MainWindow::openPath(const QString& path) {
  commitShown();
  const auto outcome = formats::openDocumentFile(session_, toLatin1(QDir::toNativeSeparators(path)));
  afterFilesChanged();
  if (outcome.ok && !outcome.fileRows.empty()) {
    statusBar()->showMessage("Ready");
    selectKey(QString::fromStdString(keys::favorites(outcome.fileRows.front())));
  }
  return outcome.ok;
}

void MainWindow::openCommand() {
  const QString path = askFile(FileAsk::Open, QString::fromStdString(session_.folders().hpdFiles));
  if (!path.isEmpty()) openPath(path);
}

void MainWindow::saveCommand() {
  commitShown();
  const int row = formats::fileRowForSave(session_);
  const std::string path = formats::savePathOf(session_, row);
  if (path.empty()) {
    saveAsCommand();
    return;
  }
  // A database state file would lose its area lines and Ids: the user decides first.
  const formats::SaveQuestion question = formats::stateFileSaveQuestion(session_, row, path, true);
  if (question.needed) {
    const Answer answer = feedback_.askPreferring("Save", question.text, Buttons::YesNoCancel,
                                                  Answer::No);
    if (answer == Answer::No) saveAsCommand();
    if (answer != Answer::Yes) return;
  }
  formats::saveDocumentFile(session_, row, path);
  afterFilesChanged();
}

void MainWindow::saveAsCommand() {
  commitShown();
  if (session_.document().data.empty()) {
    feedback_.message("No data to save, please add at least one system.");
    return;
  }
  const int row = formats::fileRowForSave(session_);
  const bool unsaved = row == 0;
  QString suggested = QString::fromStdString(formats::savePathOf(session_, row));
  if (suggested.isEmpty()) suggested = QString::fromStdString(session_.folders().hpdFiles);
  QString path = askFile(unsaved ? FileAsk::SaveUnsavedAs : FileAsk::SaveAs, suggested);
  if (path.isEmpty()) return;
  if (!path.endsWith(".hpd", Qt::CaseInsensitive)) path += ".hpd";
  const formats::SaveQuestion question =
      formats::stateFileSaveQuestion(session_, row, toLatin1(path), false);
  if (question.needed &&
      feedback_.askPreferring("Save As", question.text, Buttons::YesNo, Answer::No) != Answer::Yes)
    return;
  formats::saveDocumentFile(session_, row, toLatin1(path));
  afterFilesChanged();
}

void MainWindow::openConfigCommand() {
  const QString path = askFile(FileAsk::OpenConfig, {});
  if (path.isEmpty()) return;
  commitShown();
  const auto outcome = formats::openSessionConfig(session_, toLatin1(path));
  if (!outcome.ok) feedback_.message(outcome.message);
  afterFilesChanged();
}

void MainWindow::saveConfigCommand() {
  commitShown();
  QString path = askFile(FileAsk::SaveConfig, {});
  if (path.isEmpty()) return;
  if (!path.endsWith(".cfg", Qt::CaseInsensitive)) path += ".cfg";
  const auto outcome = formats::saveSessionConfig(session_, toLatin1(path));
  if (outcome.ok) statusBar()->showMessage("Done Saving.");
}

void MainWindow::openProfileCommand() {
  const QString path = askFile(FileAsk::OpenProfile, QString::fromStdString(session_.folders().data));
  if (path.isEmpty()) return;
  commitShown();
  formats::openSessionProfile(session_, toLatin1(path));
  afterFilesChanged();
}

void MainWindow::saveProfileCommand(bool askName) {
  std::string message;
  std::string path;
  if (askName || session_.activeProfilePath().empty()) {
    const QString suggested =
        QString::fromStdString(session_.folders().data) + "/" +
        QString::fromStdString(std::string(formats::kDefaultProfileName)) + ".pfl";
    const QString chosen = askFile(FileAsk::SaveProfileAs, suggested);
    if (chosen.isEmpty()) return;
    path = toLatin1(chosen);
  }
  formats::saveSessionProfile(session_, path, message);
  afterFilesChanged();
}

void MainWindow::clearProfileCommand() {
  formats::clearSessionProfile(session_);
  afterFilesChanged();
}

}  // namespace zel::ui
