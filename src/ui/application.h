#pragma once
class QApplication;
namespace zel::ui {
// Parses the command line of the desktop application, builds the main window and runs
// the event loop.
int runApplication(QApplication& app);
}  // namespace zel::ui
