// Edit > Undo/Redo, the node icons and the Help menu of the main window.
#include <QAction>
#include <QDialog>
#include <QLabel>
#include <QMenuBar>
#include <QTableWidget>
#include <QTreeWidget>

#include "ui/grid_view.h"
#include "ui/help_dialogs.h"
#include "ui/node_icons.h"
#include "window_fixture.h"

using namespace zel;

class MainWindowUndoHelpTest : public QObject {
  Q_OBJECT

  static QStringList tags(const GridPage* page) {
    QStringList out;
    for (int r = 1; r < page->rows(); ++r)
      out << QString::fromStdString(page->textMatrix(r, page->findColumn("Alpha Tag")));
    return out;
  }

 private slots:
  // Each command is one step: Ctrl+Z walks back through them and Ctrl+Y forward again;
  // another node on show starts a history of its own.
  void undoAndRedoWalkTheCommandsOfTheDepartmentOnShow() {
    test::WindowFixture f;
    const int sys = f.addSystem();
    const std::string dept = f.firstDepartment(sys);
    f.fill(dept, {"1,460.000000,Works,Off", "2,154.100000,Fire,Off", "3,155.220000,Police,Off"});
    GridPage* page = f.show(dept);
    QVERIFY(page);
    auto* grid = qobject_cast<ui::GridView*>(f.window->rowsPane());
    auto go = [&](int row, const char* heading) {
      grid->setCurrentIndex(grid->gridModel()->index(row - 1, page->findColumn(heading) - 1));
    };
    QAction* undo = f.window->action("Undo");
    QVERIFY(!undo->isEnabled());

    const std::vector<std::function<void()>> commands = {
        [&] {  // a typed cell, committed by Return
          go(1, "Alpha Tag");
          QTest::keyClicks(grid, "Pier");
          QTest::keyClick(grid, Qt::Key_Return);
        },
        [&] { go(2, "Alpha Tag"), QTest::keyClick(grid, Qt::Key_Insert); },
        [&] { grid->sortByColumn(page->findColumn("Alpha Tag") - 1, true); },
        [&] { go(1, "Alpha Tag"), grid->pasteText("Harbor\nDock"); },
        [&] { go(2, "Alpha Tag"), QTest::keyClick(grid, Qt::Key_Delete, Qt::ControlModifier); },
    };
    std::vector<QStringList> states{tags(page)};
    for (const auto& command : commands) {
      command();
      states.push_back(tags(page));
      QVERIFY2(states.back() != states[states.size() - 2], "each command changes the rows");
    }
    f.window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(f.window.get()));
    grid->setFocus();
    for (int i = static_cast<int>(states.size()) - 2; i >= 0; --i) {
      QTest::keyClick(grid, Qt::Key_Z, Qt::ControlModifier);
      QCOMPARE(tags(page), states[i]);
    }
    QVERIFY(!undo->isEnabled());
    for (std::size_t i = 1; i < states.size(); ++i) {
      QTest::keyClick(grid, Qt::Key_Y, Qt::ControlModifier);
      QCOMPARE(tags(page), states[i]);
    }
    // A new edit after an undo drops what Redo held.
    QVERIFY(f.window->runCommand("Undo"));
    go(3, "Alpha Tag");
    QTest::keyClicks(grid, "Quay");
    QTest::keyClick(grid, Qt::Key_Return);
    QVERIFY(!f.window->action("Redo")->isEnabled());

    f.window->selectKey(QString::fromStdString(keys::system(sys)));
    QVERIFY(f.show(dept));
    QVERIFY(!undo->isEnabled());
    QVERIFY(!grid->undo());
  }

  void eachNodeKindHasAnIconOfItsOwn() {
    test::WindowFixture f;
    const int conventional = f.addSystem();
    const int trunk = f.addSystem("New P25 Trunk System");
    f.window->refreshTree();
    QVERIFY(f.window->selectKey(QString::fromStdString(keys::system(trunk))));
    QVERIFY(f.window->runCommand("New Site"));
    f.window->refreshTree();
    const std::vector<std::pair<std::string, ui::NodeKind>> cases = {
        {keys::system(conventional), ui::NodeKind::ConventionalSystem},
        {f.firstDepartment(conventional), ui::NodeKind::Department},
        {keys::system(trunk), ui::NodeKind::TrunkSystem},
        {f.firstDepartment(trunk), ui::NodeKind::TalkgroupDepartment},
        {keys::site(trunk, 1), ui::NodeKind::Site},
    };
    QSet<qint64> pictures;
    for (const auto& [key, kind] : cases) {
      QTreeWidgetItem* item = nullptr;
      for (QTreeWidgetItemIterator it(f.window->tree()); *it; ++it)
        if ((*it)->data(0, Qt::UserRole + 1).toString().toStdString() == key) item = *it;
      QVERIFY2(item, key.c_str());
      QVERIFY2(!item->text(0).at(0).isSymbol(), "no glyph before the name");
      const QImage shown = item->icon(0).pixmap(16, 16).toImage();
      QCOMPARE(shown, ui::nodeIcon(kind).pixmap(16, 16).toImage());
      pictures.insert(qHashBits(shown.constBits(), shown.sizeInBytes()));
    }
    QCOMPARE(pictures.size(), static_cast<qsizetype>(cases.size()));
    QVERIFY(!f.window->windowIcon().isNull());
  }

  // Every command has a shortcut of its own, and the keyboard map lists each of them.
  void everyCommandHasItsOwnShortcutAndTheMapListsThem() {
    test::WindowFixture f;
    QMap<QString, QString> owner;
    std::function<void(QMenu*)> walk = [&](QMenu* menu) {
      for (QAction* a : menu->actions()) {
        if (a->isSeparator()) continue;
        if (a->menu()) {
          walk(a->menu());
          continue;
        }
        const QString key = a->shortcut().toString();
        QVERIFY2(!key.isEmpty(), qPrintable(a->text()));
        QVERIFY2(!owner.contains(key), qPrintable(key + ": " + owner[key] + ", " + a->text()));
        owner[key] = a->text();
      }
    };
    for (QAction* top : f.window->menuBar()->actions()) walk(top->menu());
    QVERIFY(f.window->action("Find")->text().contains('&'));

    QVERIFY(f.window->runCommand("Keyboard Map"));
    auto* map = test::child<QDialog>(f.window.get(), "keyboardMap");
    auto* table = map->findChild<QTableWidget*>();
    QSet<QString> listed;
    for (int r = 0; r < table->rowCount(); ++r)
      if (!table->item(r, 0)->text().startsWith("Grid")) listed << table->item(r, 2)->text();
    for (const QString& key : owner.keys())
      QVERIFY2(listed.contains(QKeySequence(key).toString(QKeySequence::NativeText)),
               qPrintable(key));
    bool gridInsert = false;  // the grid's own keys are listed too
    for (int r = 0; r < table->rowCount(); ++r)
      gridInsert |=
          table->item(r, 0)->text() == "Grid" && table->item(r, 1)->text() == "Insert Row";
    QVERIFY(gridInsert);
  }

  void aboutNamesEachLibraryWithItsLicence() {
    test::WindowFixture f;
    QVERIFY(f.window->runCommand("About ZEL536"));
    const QString text = test::child<QLabel>(f.window.get(), "aboutText")->text();
    for (const char* part : {"Qt", "LGPLv3", "pugixml", "CLI11", "cpp-httplib", "zlib", "MIT",
                             "BSD"})
      QVERIFY2(text.contains(part), part);
  }
};

QTEST_MAIN(MainWindowUndoHelpTest)
#include "main_window_undo_help_test.moc"
