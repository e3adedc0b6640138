// The main window under the offscreen platform: the New commands add nodes to the visible
// tree with the system's messages, a click shows the node's record, and edits of the pane
// reach the record line.
#include "ui/main_window.h"

#include <QAction>
#include <QApplication>
#include <QHeaderView>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QMouseEvent>
#include <QPrinter>
#include <QStackedWidget>
#include <QTableView>
#include <QTest>
#include <QTreeWidget>
#include <fstream>

#include "core/record_line.h"
#include "core/settings.h"
#include "core/tree_operations.h"
#include "ui/favorites_tree.h"
#include "ui/node_pane.h"
#include "ui/qt_feedback.h"
#include "window_fixture.h"

using namespace zel;

class MainWindowTest : public QObject {
  Q_OBJECT

  struct Fixture : test::WindowFixture {
    int topLevelCount() const { return window->tree()->topLevelItemCount(); }
  };

 private slots:
  void titleAndMenusAreThere() {
    Fixture f;
    QVERIFY(f.window->windowTitle().startsWith("ZEL536"));
    QVERIFY(f.window->action("Find Duplicates"));
  }

  // Every command is reachable from the keyboard: a shortcut, or an accelerator letter that
  // no other entry of its menu uses. Captions keep their words.
  void everyCommandHasAShortcutOrItsOwnAccelerator() {
    Fixture f;
    std::function<void(QMenu*)> check = [&](QMenu* menu) {
      QSet<QChar> letters;
      for (QAction* a : menu->actions()) {
        if (a->isSeparator()) continue;
        const QString text = a->text();
        const int amp = text.indexOf('&');
        QVERIFY2(amp >= 0 || !a->shortcut().isEmpty(), qPrintable(text));
        if (amp < 0) continue;
        const QChar letter = text[amp + 1].toLower();
        QVERIFY2(!letters.contains(letter), qPrintable(menu->title() + ": " + text));
        letters.insert(letter);
        if (a->menu()) check(a->menu());
      }
    };
    for (QAction* top : f.window->menuBar()->actions()) check(top->menu());
  }

  void newCommandsGrowTheTree() {
    Fixture f;
    QVERIFY(f.window->runCommand("New P25 Trunk System"));
    QCOMPARE(f.topLevelCount(), 1);
    QTreeWidgetItem* sys = f.window->tree()->topLevelItem(0);
    QVERIFY(sys->text(0).endsWith("New P25 System"));
    QCOMPARE(sys->childCount(), 1);  // its first department
    QVERIFY(f.window->selectKey("SYS-001"));
    QVERIFY(f.window->runCommand("New Site"));
    QVERIFY(f.window->runCommand("New Department"));
    sys = f.window->tree()->topLevelItem(0);
    QCOMPARE(sys->childCount(), 3);
    QVERIFY(f.session.document().data.contains("SIT-001-001"));
    QVERIFY(f.session.document().data.contains("GRP-999-001-002"));
    QVERIFY(f.feedback.messages.empty());
  }

  // The arrow keys move the pane with the current node, down and back up the tree.
  void arrowKeysMoveThePaneWithTheCurrentNode() {
    Fixture f;
    f.window->runCommand("New Conventional System");
    f.window->runCommand("New Conventional System");
    QVERIFY(f.window->selectKey("SYS-001"));
    QTreeWidget* tree = f.window->tree();
    tree->setFocus();
    for (Qt::Key key : {Qt::Key_Down, Qt::Key_Down, Qt::Key_Down, Qt::Key_Up}) {
      QTest::keyClick(tree, key);
      QVERIFY(tree->currentItem());
      const QString current = tree->currentItem()->data(0, ui::FavoritesTree::kKeyRole).toString();
      QCOMPARE(QString::fromStdString(f.session.selectedKey()), current);
    }
    QCOMPARE(QString::fromStdString(f.session.selectedKey()), QString("SYS-002"));
  }

  // The close question over unsaved work: Enter (the default button) keeps the work open.
  void closeQuestionDefaultsToKeepingTheWork() {
    Fixture f;
    f.window->runCommand("New Conventional System");
    QVERIFY(f.session.document().changed);
    f.feedback.answers.push_back(Answer::Cancel);
    QVERIFY(!f.window->close());
    QCOMPARE(f.feedback.preferredAnswers.size(), size_t(1));
    QVERIFY(f.feedback.preferredAnswers.back() != Answer::Yes);
    auto box = ui::QtFeedback::questionBox(nullptr, "Warning", "Continue without saving ?",
                                           Buttons::YesNoCancel,
                                           f.feedback.preferredAnswers.back());
    QVERIFY(box->defaultButton());
    QVERIFY(box->defaultButton() != box->button(QMessageBox::Yes));
    // Yes closes, and the window's layout is kept for next time.
    f.feedback.answers = {Answer::Yes};
    QVERIFY(f.window->close());
    QCOMPARE(f.feedback.questions.size(), size_t(2));
    std::string raw;
    QVERIFY(f.store.read("", "browser_left", raw));
  }

  // A large document opens with its systems closed; the filter box finds a node by name as
  // one types, and an empty filter shows every system again.
  void largeDocumentOpensClosedAndTheFilterFindsByName() {
    Fixture f;
    for (int i = 0; i < 160; ++i) f.addSystem();
    treemod::setField(f.session.document().data, "SYS-077", 4, "County Fire");
    rebuildVisibleTree(f.session.document());
    f.window->refreshTree();
    QTreeWidget* tree = f.window->tree();
    QCOMPARE(tree->topLevelItemCount(), 160);
    for (int i = 0; i < tree->topLevelItemCount(); ++i)
      QVERIFY(!tree->topLevelItem(i)->isExpanded());
    auto* filter = test::child<QLineEdit>(f.window.get(), "treeFilter");
    QTest::keyClicks(filter, "county f");
    int shown = 0;
    for (int i = 0; i < tree->topLevelItemCount(); ++i)
      if (!tree->topLevelItem(i)->isHidden()) ++shown;
    QCOMPARE(shown, 1);
    filter->clear();
    for (int i = 0; i < tree->topLevelItemCount(); ++i)
      QVERIFY(!tree->topLevelItem(i)->isHidden());
  }

  // A department of no name shows as such in the tree, not as its key.
  void departmentOfNoNameShowsAsSuch() {
    Fixture f;
    const int sys = f.addSystem();
    const std::string dept = f.firstDepartment(sys);
    treemod::setField(f.session.document().data, dept, 4, "");
    rebuildVisibleTree(f.session.document());
    f.window->refreshTree();
    QTreeWidgetItem* item = f.window->tree()->topLevelItem(0)->child(0);
    QVERIFY(item->text(0).endsWith("(no name)"));
  }

  // The real state file of a card opens with its systems closed.
  void realStateFileOpensClosed() {
    const std::string path =
        std::string(ZEL_REALDATA_DIR) + "/card_sds200/BCDx36HP/HPDB/s_000006.hpd";
    if (!std::filesystem::exists(path)) QSKIP("the real card files are not beside the checkout");
    Fixture f;
    QVERIFY(f.window->openPath(QString::fromStdString(path)));
    QTreeWidget* tree = f.window->tree();
    int systems = 0;
    for (QTreeWidgetItemIterator it(tree); *it; ++it) {
      if (!(*it)->data(0, ui::FavoritesTree::kKeyRole).toString().startsWith("SYS-")) continue;
      ++systems;
      QVERIFY(!(*it)->isExpanded());
    }
    QVERIFY(systems > 0);
  }

  void refusalsUseTheSystemsMessages() {
    Fixture f;
    f.window->runCommand("New Department");
    QCOMPARE(f.feedback.messages.size(), size_t(1));
    QCOMPARE(f.topLevelCount(), 0);
  }

  void editingTheNodePaneChangesTheLineAndCaption() {
    Fixture f;
    f.window->runCommand("New Conventional System");
    QVERIFY(f.window->selectKey("SYS-001"));
    auto* name = f.window->nodePane()->currentWidget()->findChild<QLineEdit*>("name");
    QVERIFY(name);
    QCOMPARE(name->text(), QString("New System"));
    name->setText("County, Fire");
    QTest::keyClick(name, Qt::Key_Return);
    QCOMPARE(QString::fromStdString(treemod::getField(f.session.document().data, "SYS-001", 4)),
             QString("County; Fire"));
    QVERIFY(f.window->tree()->topLevelItem(0)->text(0).endsWith("County; Fire"));
    QVERIFY(f.window->windowTitle().contains("Unsaved HPD systems"));
  }

  void typedRowsSurviveASwitch() {
    Fixture f;
    f.window->runCommand("New Conventional System");
    QVERIFY(f.window->selectKey("GRP-999-001-001"));
    QTableView* grid = f.window->rowsPane();
    QAbstractItemModel* model = grid->model();
    QCOMPARE(model->headerData(0, Qt::Horizontal, Qt::DisplayRole).toString(),
             QString("Frequency"));
    QVERIFY(f.window->runCommand("New Channel"));  // the cursor on the first empty row
    QCOMPARE(grid->currentIndex().row(), 0);
    QTest::keyClicks(grid, "154.28");
    QTest::keyClick(grid, Qt::Key_Return);
    QCOMPARE(model->index(0, 0).data().toString(), QString("154.280000"));
    QVERIFY(model->setData(model->index(0, 1), "Fire", Qt::EditRole));
    // Switching department stores the rows; coming back reads them.
    f.window->runCommand("New Department");
    QCOMPARE(f.session.pages().load("GRP-999-001-001").size(), size_t(1));
    QVERIFY(f.window->selectKey("GRP-999-001-001"));
    model = f.window->rowsPane()->model();
    QCOMPARE(model->index(0, 0).data().toString() + "|" + model->index(0, 1).data().toString(),
             QString("154.280000|Fire"));
  }

  // Dragging a column border is what the user chose: the width goes to "colwidth" at once and
  // the next department shows the column as wide, however short its texts are.
  void draggedColumnWidthIsStoredAndKept() {
    Fixture f;
    f.window->runCommand("New Conventional System");
    QVERIFY(f.window->selectKey("GRP-999-001-001"));
    QTableView* grid = f.window->rowsPane();
    QHeaderView* header = grid->horizontalHeader();
    const int before = header->sectionSize(1);
    const int border = header->sectionViewportPosition(1) + before - 1;
    const int y = header->height() / 2;
    QWidget* port = header->viewport();
    auto send = [port](QEvent::Type type, int x, int y, Qt::MouseButtons buttons) {
      QMouseEvent event(type, QPointF(x, y), port->mapToGlobal(QPointF(x, y)), Qt::LeftButton,
                        buttons, Qt::NoModifier);
      QApplication::sendEvent(port, &event);
    };
    send(QEvent::MouseMove, border, y, Qt::NoButton);
    send(QEvent::MouseButtonPress, border, y, Qt::LeftButton);
    send(QEvent::MouseMove, border + 90, y, Qt::LeftButton);
    send(QEvent::MouseButtonRelease, border + 90, y, Qt::NoButton);
    const int dragged = header->sectionSize(1);
    QVERIFY2(dragged > before + 45, qPrintable(QString("%1 -> %2").arg(before).arg(dragged)));
    const std::string stored = Settings(f.store).getPlain("colwidth", "ccol_width2", "");
    QCOMPARE(QString::fromStdString(stored), QString::number(dragged * 15));
    // A column the view sizes itself is not the user's choice and writes nothing.
    std::string raw;
    QVERIFY(!f.store.read("colwidth", "ccol_width1", raw));

    f.window->runCommand("New Department");
    QVERIFY(f.window->selectKey("GRP-999-001-002"));
    QCOMPARE(f.window->rowsPane()->horizontalHeader()->sectionSize(1), dragged);
  }

  // Print takes the grid on show to the page store first and prints the selected system as a
  // real PDF; with nothing to print it says so.
  void printWritesTheSelectedSystemWithTheGridOnShow() {
    Fixture f;
    QPrinter printer(QPrinter::ScreenResolution);
    printer.setOutputFormat(QPrinter::PdfFormat);
    const std::string pdf = f.dir.file("list.pdf");
    printer.setOutputFileName(QString::fromStdString(pdf));
    f.feedback.answers = {};
    QVERIFY(f.window->runCommand("Print"));
    QCOMPARE(QString::fromStdString(f.feedback.messages.back()),
             QString("No data to print, please add at least one system."));

    const int system = f.addSystem();
    const std::string dept = f.firstDepartment(system);
    f.show(dept);
    QTableView* grid = f.window->rowsPane();
    QVERIFY(grid->model()->setData(grid->model()->index(0, 0), "154.28", Qt::EditRole));
    f.window->printReport(printer);
    QCOMPARE(f.session.pages().load(dept).size(), size_t(1));
    std::ifstream in(pdf, std::ios::binary);
    std::string head(4, '\0');
    in.read(head.data(), 4);
    QCOMPARE(QString::fromStdString(head), QString("%PDF"));
    QVERIFY(std::filesystem::file_size(pdf) > 1000);
  }
};

QTEST_MAIN(MainWindowTest)
#include "main_window_test.moc"
