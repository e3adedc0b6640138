// The shared pieces of the window tests: a started session on in-memory settings with
// recorded feedback and a settable clock, the main window over it, the real card's list,
// and finding and clicking named widgets.
#pragma once

#include <QApplication>
#include <QClipboard>
#include <QPushButton>
#include <QTest>
#include <filesystem>
#include <fstream>
#include <functional>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include "core/keys.h"
#include "core/memory_ports.h"
#include "core/new_commands.h"
#include "core/session.h"
#include "core/text.h"
#include "core/tree_operations.h"
#include "formats/hpd_reader.h"
#include "grid/grid_routines.h"
#include "test_folder.h"
#include "ui/main_window.h"

namespace zel::test {

// The favorites list of a real BCD536HP card: a P25 system, then two conventional ones.
inline const std::string kCardList =
    std::string(ZEL_REALDATA_DIR) + "/card_bcd536hp/BCDx36HP/favorites_lists/f_000001.hpd";

#define NEED_CARD()                                   \
  if (!std::filesystem::exists(zel::test::kCardList)) \
  QSKIP("the real card files are not beside the checkout")

struct SessionFixture {
  TestFolder dir;
  MemorySettingsStore store;
  RecordingFeedback feedback;
  ManualClock clock;
  Session session{store, feedback, clock, dir.file("data")};

  SessionFixture() {
    // A window test never reads or writes the system's keychain.
    qputenv("ZEL_NO_KEYCHAIN", "1");
    session.start(false);
  }
  Document& doc() { return session.document(); }
  // Reads the real card's list as a file open does; the document is then unchanged.
  bool readCardList() {
    formats::HpdReadResult r = formats::readHpd(session.document(), session.pages(), kCardList,
                                                formats::HpdReadOptions{}, feedback);
    rebuildVisibleTree(session.document());
    session.document().changed = false;
    feedback.messages.clear();
    return r.ok();
  }
};

// The main window over the session. The find, duplicate and mapper tests make systems with
// the New commands and fill their departments through the page files.
struct WindowFixture : SessionFixture {
  std::unique_ptr<ui::MainWindow> window;
  int reloads = 0;

  explicit WindowFixture(bool shown = true) {
    window = std::make_unique<ui::MainWindow>(session, feedback);
    if (shown) window->show();
  }
  // A new system of the menu command; returns its number.
  int addSystem(const char* command = "New Conventional System") {
    NewNodeResult r = newSystem(session.document(), command, feedback);
    return r.ok ? keys::systemOf(r.key) : 0;
  }
  // A further department of a system, with the given page lines; returns its key.
  std::string addDepartment(int system, const std::vector<std::string>& lines) {
    NewNodeResult r = newDepartment(session.document(), system, feedback);
    if (r.ok) session.pages().save(r.key, lines);
    return r.key;
  }
  // The first department of a system.
  std::string firstDepartment(int system) {
    for (NodeId child :
         session.document().data.childList(session.document().data.find(keys::system(system)))) {
      const std::string& key = session.document().data.key(child);
      if (startsWith(key, "GRP-")) return key;
    }
    return {};
  }
  void fill(const std::string& department, const std::vector<std::string>& lines) {
    session.pages().save(department, lines);
  }
  // Shows a department in the main window; returns the grid on show.
  GridPage* show(const std::string& department) {
    window->refreshTree();
    window->selectKey(QString::fromStdString(department));
    return window->shownPage();
  }
  std::function<void()> onChange() {
    return [this] { ++reloads; };
  }
  // The cell of a grid row under a heading.
  static std::string cell(const GridPage* grid, int row, const char* heading) {
    return g_get_data(grid, row, heading);
  }
};

// The dialogs open over a main window that is not on show.
struct DialogFixture : WindowFixture {
  DialogFixture() : WindowFixture(false) {}
};

// A named child widget; a missing one ends the test program with its name.
template <typename T>
T* child(QWidget* w, const QString& name) {
  T* found = w->findChild<T*>(name);
  if (!found) qFatal("no widget %s", qPrintable(name));
  return found;
}

inline void click(QWidget* w, const QString& name) {
  QTest::mouseClick(child<QPushButton>(w, name), Qt::LeftButton);
}

inline std::string slurp(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  std::stringstream s;
  s << in.rdbuf();
  return s.str();
}

}  // namespace zel::test
