// Pictures of the application's windows for the documentation, taken from the running
// program: the main window (with the first department the tree shows), the card manager
// and every virtual control window that is open, each saved as a PNG into one folder.
#pragma once

#include <QString>
#include <functional>

namespace zel::ui {

class MainWindow;

// Opens the card manager, waits `waitMs` for the windows to fill (the scanners to scan,
// the logs to grow) and saves main-window.png, card-manager.png, virtual-control-bcd.png
// and virtual-control-sds.png (those of the open windows) into `folder`; then calls `done`
// with the number of pictures that could not be written.
void takeScreenshots(MainWindow& window, const QString& folder, int waitMs,
                     std::function<void(int failures)> done);

}  // namespace zel::ui
