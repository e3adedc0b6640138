#include "ui/application.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QLineEdit>
#include <QStandardPaths>
#include <QPixmap>
#include <QTimer>
#include <memory>

#include "core/demo_document.h"
#include "core/memory_ports.h"
#include "core/session.h"
#include "platform/qt_settings_store.h"
#include "ui/backup_reminder.h"
#include "ui/main_window.h"
#include "ui/qt_feedback.h"
#include "ui/rr_import_window.h"
#include "ui/screenshot_tour.h"
#include "ui/vc_window.h"

namespace zel::ui {

int runApplication(QApplication& app) {
  QCommandLineParser parser;
  parser.setApplicationDescription("ZEL536: favorites lists, the scanner card and the live scanner");
  parser.addHelpOption();
  parser.addVersionOption();
  parser.addPositionalArgument("file", "A favorites list (.hpd) or a profile (.pfl) to open.");
  QCommandLineOption demo("demo", "Open the embedded demo list when no file is given.");
  QCommandLineOption dataDir("data-dir", "Data folder instead of \"My Scanner Data Files\".", "dir");
  QCommandLineOption settingsFile("settings", "Settings file (INI) instead of your own settings.",
                                  "file");
  QCommandLineOption noReminder("no-reminder", "Do not show the backup reminder at start.");
  QCommandLineOption screenshot("screenshot", "Save a picture of the main window and quit.", "png");
  QCommandLineOption cardRoot("card-root",
                              "A folder the card manager treats as a scanner's card (repeatable).",
                              "dir");
  QCommandLineOption radioRefEndpoint(
      "radioref-endpoint",
      "End point of a RadioReference service for this run (a simulator's): the import window "
      "opens on it with the demo account (user demo, password demo, key 12345678), which is "
      "not written into the settings.",
      "url");
  QCommandLineOption vcPort(
      "vc-port", "Open the virtual control window of the BCDx36HP series and connect it to this "
      "port (the demo's simulated scanner).", "port");
  QCommandLineOption sdsVcPort(
      "sds-vc-port", "Open the virtual control window of the SDS series and connect it to "
      "this port.", "port");
  QCommandLineOption treeFilter("tree-filter", "Type this text into the tree's filter box.",
                                "text");
  QCommandLineOption screenshotDir(
      "screenshot-dir", "Open the card manager, wait a few seconds, save pictures of the open "
      "windows into this folder and quit.", "dir");
  parser.addOptions({demo, dataDir, settingsFile, noReminder, screenshot, cardRoot,
                     radioRefEndpoint, vcPort, sdsVcPort, treeFilter, screenshotDir});
  parser.process(app);

  QString data = parser.value(dataDir);
  if (data.isEmpty()) {
    QString docs = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    if (docs.isEmpty()) docs = QDir::homePath();
    data = docs + "/My Scanner Data Files";
  }
  std::unique_ptr<QtSettingsStore> store =
      parser.isSet(settingsFile) ? std::make_unique<QtSettingsStore>(parser.value(settingsFile))
                                 : std::make_unique<QtSettingsStore>();
  QtFeedback feedback;
  SystemClock clock;
  Session session(*store, feedback, clock, data.toStdString());
  // The reminder waits until the window is up, so it shows over it.
  std::string autoLoad = session.start(false);
  const QStringList files = parser.positionalArguments();

  MainWindow window(session, feedback);
  for (const QString& root : parser.values(cardRoot)) window.addCardRoot(root);
  const bool radioRef = parser.isSet(radioRefEndpoint);
  if (radioRef)
    window.setRadioReferencePreset(
        {parser.value(radioRefEndpoint).toStdString(), "demo", "demo", "12345678"});
  if (files.isEmpty() && autoLoad.empty()) {
    buildDemoDocument(session.document(), session.pages(), feedback);
    window.refreshTree();
  }
  window.show();
  if (parser.isSet(treeFilter))
    window.findChild<QLineEdit*>("treeFilter")->setText(parser.value(treeFilter));
  const std::pair<QCommandLineOption*, control::Family> ports[] = {
      {&vcPort, control::Family::Bcd}, {&sdsVcPort, control::Family::Sds}};
  for (const auto& [option, family] : ports) {
    if (!parser.isSet(*option)) continue;
    VirtualControlWindow* vc = openVirtualControl(&window, session.settingsCodec().store(), feedback,
                                                  session.folders().data, family);
    vc->connectTo(parser.value(*option));
  }
  if (parser.isSet(screenshotDir)) {
    // Long enough for the scanners to scan and their logs to fill.
    takeScreenshots(window, parser.value(screenshotDir), 9000,
                    [&app](int failures) { app.exit(failures == 0 ? 0 : 1); });
  } else if (parser.isSet(screenshot)) {
    const QString png = parser.value(screenshot);
    QTimer::singleShot(800, &window, [&window, &app, png] {
      window.selectKey("GRP-999-001-001");
      window.grab().save(png);
      app.exit(0);
    });
  } else if (radioRef) {
    QTimer::singleShot(300, &window, [&window] { window.openRadioReferenceImport(); });
  } else if (!parser.isSet(noReminder)) {
    QTimer::singleShot(200, &window,
                       [&window, &session] { remindBackup(&window, session.settingsCodec()); });
  }
  const QString toOpen = files.isEmpty() ? QString::fromStdString(autoLoad) : files.first();
  if (!toOpen.isEmpty()) {
    QTimer::singleShot(300, &window, [&window, &feedback, toOpen] {
      feedback.progress("Auto Loading File");
      window.openPath(toOpen);
    });
  }
  return app.exec();
}

}  // namespace zel::ui
