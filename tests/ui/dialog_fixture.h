// A session with a main window for the find, duplicate and mapper window tests: systems are
// made with the New commands, their departments filled through page files, and the grid on
// show is the main window's own.
#pragma once

#include <QApplication>
#include <QClipboard>
#include <memory>
#include <string>
#include <vector>

#include "core/keys.h"
#include "core/memory_ports.h"
#include "core/new_commands.h"
#include "core/session.h"
#include "core/text.h"
#include "core/tree_operations.h"
#include "grid/grid_routines.h"
#include "test_folder.h"
#include "ui/main_window.h"

namespace zel::test {

struct DialogFixture {
  TestFolder dir;
  MemorySettingsStore store;
  RecordingFeedback feedback;
  ManualClock clock;
  Session session{store, feedback, clock, dir.file("data")};
  std::unique_ptr<ui::MainWindow> window;
  int reloads = 0;

  DialogFixture() {
    session.start(false);
    window = std::make_unique<ui::MainWindow>(session, feedback);
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

}  // namespace zel::test
