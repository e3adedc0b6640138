#include "ui/screenshot_tour.h"

#include <QDir>
#include <algorithm>
#include <QPixmap>
#include <QTimer>
#include <QTreeWidget>
#include <QTreeWidgetItemIterator>

#include "ui/favorites_tree.h"
#include "ui/main_window.h"
#include "ui/patrol_window.h"
#include "ui/vc_window.h"

namespace zel::ui {

namespace {

// The first department the tree shows (under its filter, when one is typed).
void showFirstDepartment(MainWindow& window) {
  for (QTreeWidgetItemIterator it(window.tree()); *it; ++it) {
    const QString key = (*it)->data(0, FavoritesTree::kKeyRole).toString();
    if (key.startsWith("GRP-") && !(*it)->isHidden()) {
      window.selectKey(key);
      return;
    }
  }
}

bool save(QWidget* w, const QString& folder, const QString& name) {
  return w->grab().save(QDir(folder).filePath(name));
}

}  // namespace

void takeScreenshots(MainWindow& window, const QString& folder, int waitMs,
                     std::function<void(int)> done) {
  QDir().mkpath(folder);
  window.runCommand("Read Data");
  // The file given at start is read meanwhile; its department is shown a second before.
  QTimer::singleShot(std::max(0, waitMs - 1000), &window,
                     [&window] { showFirstDepartment(window); });
  QTimer::singleShot(waitMs, &window, [&window, folder, done] {
    int failures = 0;
    if (!save(&window, folder, "main-window.png")) ++failures;
    for (PatrolWindow* card : window.findChildren<PatrolWindow*>())
      if (!save(card, folder, "card-manager.png")) ++failures;
    for (VirtualControlWindow* vc : window.findChildren<VirtualControlWindow*>()) {
      const bool sds = vc->control().family() == control::Family::Sds;
      if (!save(vc, folder, sds ? "virtual-control-sds.png" : "virtual-control-bcd.png"))
        ++failures;
    }
    done(failures);
  });
}

}  // namespace zel::ui
