// The File and Profile menus of the main window on a real favorites list: open, edit a
// channel, save under a new name, start over, open the saved file and find the edit; the
// profile and configuration commands over the same files.
#include <QAbstractItemModel>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTableView>
#include <QTableWidget>
#include <QTest>
#include <QTimer>
#include <QTreeWidget>
#include <filesystem>
#include <fstream>

#include "core/keys.h"
#include "core/record_line.h"
#include "core/tree_operations.h"
#include "formats/text_file.h"
#include "grid/bank_names.h"
#include "ui/banknames_dialog.h"
#include "ui/bulk_edit_dialog.h"
#include "ui/main_window.h"
#include "window_fixture.h"

using namespace zel;
namespace fs = std::filesystem;

class MainWindowFilesTest : public QObject {
  Q_OBJECT

  struct Fixture : test::WindowFixture {
    std::deque<QString> names;  // what the file dialogs answer, in turn
    std::vector<ui::MainWindow::FileAsk> asked;
    std::string list;  // a copy of the real card's list

    Fixture() {
      window->setFileChooser([this](ui::MainWindow::FileAsk ask, const QString&) {
        asked.push_back(ask);
        if (names.empty()) return QString();
        QString n = names.front();
        names.pop_front();
        return n;
      });
      list = dir.file("cleveland.hpd");
      fs::copy_file(test::kCardList, list);
      fs::permissions(list, fs::perms::owner_write, fs::perm_options::add);
    }
    QString q(const std::string& s) const { return QString::fromStdString(s); }
    // The first conventional department of the document.
    std::string conventionalDepartment() const {
      const DocumentTree& t = session.document().data;
      for (NodeId sys : treemod::walkSystems(t))
        for (NodeId c = t.child(sys); c != kNoNode; c = t.next(c))
          if (record::field(t.text(c), 0) == "GIN" || record::field(t.text(c), 1) == "C-Group")
            return t.key(c);
      return {};
    }
  };

 private slots:
  void openEditSaveAsAndReopenFindsTheEdit() {
    Fixture f;
    f.names = {f.q(f.list)};
    QVERIFY(f.window->runCommand("Open"));
    QCOMPARE(f.session.document().files.loadedCount(), 1);
    QVERIFY(f.window->windowTitle().contains(" - file: "));
    QVERIFY(f.window->tree()->topLevelItemCount() >= 1);
    QVERIFY(!f.session.document().changed);

    const std::string dept = f.conventionalDepartment();
    QVERIFY(!dept.empty());
    QVERIFY(f.window->selectKey(f.q(dept)));
    QAbstractItemModel* model = f.window->rowsPane()->model();
    QVERIFY(model->rowCount() >= 1);
    QVERIFY(model->setData(model->index(0, 1), "Edited, Name", Qt::EditRole));
    QVERIFY(f.session.document().changed);

    // Save As asks for the name, writes the file and clears the flag.
    const std::string saved = f.dir.file("saved.hpd");
    f.names = {f.q(saved)};
    QVERIFY(f.window->runCommand("Save As"));
    QCOMPARE(f.asked.back(), ui::MainWindow::FileAsk::SaveAs);
    QVERIFY(fs::exists(saved));
    QVERIFY(!f.session.document().changed);
    QCOMPARE(f.session.document().files.get(1, OpenFileTable::Path), saved);

    // Save again writes the same path without asking.
    const std::size_t askedBefore = f.asked.size();
    QVERIFY(f.window->runCommand("Save"));
    QCOMPARE(f.asked.size(), askedBefore);

    QVERIFY(f.window->runCommand("New HPD"));
    QVERIFY(f.session.document().data.empty());
    QCOMPARE(f.window->tree()->topLevelItemCount(), 0);

    QVERIFY(f.window->openPath(f.q(saved)));
    QVERIFY(f.window->selectKey(f.q(f.conventionalDepartment())));
    model = f.window->rowsPane()->model();
    QCOMPARE(model->index(0, 1).data().toString(), QString("Edited; Name"));
  }

  // Edit Banknames lists the departments of the open list; a name typed over the filtered
  // table reaches the department's line and the tree; a refused rename (all or nothing: the
  // bank names tests) is said.
  void banknamesRenameDepartmentsAllOrNothing() {
    Fixture f;
    QVERIFY(f.window->openPath(f.q(f.list)));
    const std::string dept = f.conventionalDepartment();
    QVERIFY(f.window->selectKey(f.q(dept)));
    int listed = 0;
    auto edit = [&](const QString& typed, bool emptyAnother) {
      const QString shown =
          QString::fromLatin1(treemod::getField(f.session.document().data, dept, 4).c_str());
      QTimer::singleShot(0, [&, shown, typed, emptyAnother] {
        auto* dialog = qobject_cast<ui::BanknamesDialog*>(QApplication::activeModalWidget());
        QVERIFY(dialog);
        // A failed check returns early: the window still closes, so the test goes on.
        struct Closer {
          QDialog* d;
          ~Closer() {
            if (d->isVisible()) d->reject();
          }
        } closer{dialog};
        QTableWidget* table = dialog->table();
        listed = table->rowCount();
        QTest::keyClicks(dialog->filter(), shown);
        int row = 0;
        while (row < table->rowCount() && table->isRowHidden(row)) ++row;
        QVERIFY(row < table->rowCount());
        table->setCurrentCell(row, 2);
        QTest::keyClick(table, Qt::Key_F2);
        auto* editor = table->viewport()->findChild<QLineEdit*>();
        QVERIFY(editor);
        editor->selectAll();
        QTest::keyClicks(editor, typed);
        QTest::keyClick(editor, Qt::Key_Return);
        if (emptyAnother) table->item(row == 0 ? 1 : 0, 2)->setText("  ");
        dialog->findChild<QPushButton*>("cmdOk")->click();
      });
      QVERIFY(f.window->runCommand("Edit Banknames"));
    };

    edit("Dispatch, North", false);
    QVERIFY(listed > 1);
    QCOMPARE(treemod::getField(f.session.document().data, dept, 4), std::string("Dispatch; North"));
    QVERIFY(f.session.document().changed);
    QVERIFY(f.window->tree()
                ->findItems("Dispatch; North", Qt::MatchContains | Qt::MatchRecursive)
                .size() == 1);

    edit("Refused With Another", true);
    QCOMPARE(QString::fromStdString(f.feedback.messages.back()),
             QString("A department name cannot be empty."));
  }

  // Edit Departments opens the Bulk Channel Editor over what is on show: a name typed in the
  // grid a moment before reaches the page store first, and the grid shows the applied delay.
  void editDepartmentsAppliesToTheDepartmentOnShow() {
    Fixture f;
    QVERIFY(f.window->openPath(f.q(f.list)));
    std::string royalton;
    for (const banks::BankName& b : banks::list(f.session.document().data))
      if (b.name == "North Royalton") royalton = b.key;
    QVERIFY(f.window->selectKey(f.q(royalton)));
    QAbstractItemModel* model = f.window->rowsPane()->model();
    QVERIFY(model->setData(model->index(0, 1), "Typed Before", Qt::EditRole));
    f.session.document().changed = false;
    QTimer::singleShot(0, [&] {
      auto* dialog = qobject_cast<ui::BulkEditDialog*>(QApplication::activeModalWidget());
      QVERIFY(dialog);
      dialog->setScope(bulk::Scope::TalkGroups);
      dialog->chooseSystem(1);
      QVERIFY(dialog->tickNode(royalton));
      QCOMPARE(dialog->selectChannels(), 4);
      dialog->findChild<QCheckBox*>("check1_5")->setChecked(true);
      dialog->findChild<QComboBox*>("cmb_s_5")->setCurrentText("5");
      QVERIFY(dialog->apply());
      dialog->reject();
    });
    QVERIFY(f.window->runCommand("Edit Departments"));
    QVERIFY(f.session.document().changed);
    model = f.window->rowsPane()->model();
    int delay = -1;
    for (int c = 0; c < model->columnCount(); ++c)
      if (model->headerData(c, Qt::Horizontal).toString() == "Delay Time") delay = c;
    QVERIFY(delay >= 0);
    for (int r = 0; r < 4; ++r) QCOMPARE(model->index(r, delay).data().toString(), QString("5"));
    QCOMPARE(model->index(0, 1).data().toString(), QString("Typed Before"));
  }

  void newSystemsAreSavedUnderTheUnsavedQuestionAndAFailedReadChangesNothing() {
    Fixture f;
    f.window->runCommand("New Conventional System");
    QVERIFY(f.window->selectKey("SYS-001"));
    f.names = {};  // the user cancels: nothing is written
    QVERIFY(f.window->runCommand("Save"));
    QCOMPARE(f.asked.back(), ui::MainWindow::FileAsk::SaveUnsavedAs);
    QVERIFY(f.session.document().changed);
    QCOMPARE(f.session.unsavedSystems(), 1);

    f.names = {f.q(f.dir.file("mine"))};
    QVERIFY(f.window->runCommand("Save"));
    QVERIFY(fs::exists(f.dir.file("mine.hpd")));
    QCOMPARE(f.session.unsavedSystems(), 0);
    QCOMPARE(treemod::getField(f.session.document().data, "SYS-001", 23), std::string("1"));

    // A file that is not there: the message, and the document as it was.
    const std::size_t nodes = f.session.document().data.count();
    QVERIFY(!f.window->openPath(f.q(f.dir.file("missing.hpd"))));
    QVERIFY(QString::fromStdString(f.feedback.messages.back())
                .startsWith("File error: check if file exists:    "));
    QCOMPARE(f.session.document().data.count(), nodes);
    QCOMPARE(f.session.document().files.loadedCount(), 1);
  }

  void droppingMovesSystemsBetweenListsAndDepartmentsBetweenSystems() {
    Fixture f;
    QVERIFY(f.window->openPath(f.q(f.list)));
    QVERIFY(f.window->runCommand("New File"));  // FAV-002, empty
    const std::string dept = f.conventionalDepartment();
    const int system = keys::systemOf(dept);
    const std::string systemKey = keys::system(system);
    const auto rows = f.session.pages().load(dept);
    QVERIFY(!rows.empty());

    // The department on show is copied into a new conventional system, rows and all.
    QVERIFY(f.window->selectKey(f.q(dept)));
    QVERIFY(f.window->runCommand("New Conventional System"));
    const std::string fresh = f.session.selectedKey().substr(0, 7);
    QVERIFY(f.window->selectKey(f.q(dept)));
    QVERIFY(f.window->dropNode(f.q(dept), f.q(fresh), true));
    const std::string copied = f.session.selectedKey();
    QCOMPARE(keys::systemOf(copied), keys::systemOf(fresh));
    QCOMPARE(f.session.pages().load(copied), rows);
    QCOMPARE(f.session.pages().load(dept), rows);

    // A trunked system refuses it and nothing moves.
    QVERIFY(f.window->runCommand("New P25 Trunk System"));
    const std::string trunk = f.session.selectedKey().substr(0, 7);
    QVERIFY(!f.window->dropNode(f.q(dept), f.q(trunk), false));
    QVERIFY(f.session.document().data.contains(dept));

    // A system dropped on the second list shows under it (its record: the tree moves tests).
    QVERIFY(f.window->dropNode(f.q(systemKey), f.q(keys::favorites(2)), false));
    const NodeId shown = f.session.document().visible.find(systemKey);
    QCOMPARE(f.session.document().visible.key(f.session.document().visible.parent(shown)),
             keys::favorites(2));
  }

  void profilesAndConfigurationsReopenTheSameLists() {
    Fixture f;
    QVERIFY(f.window->openPath(f.q(f.list)));
    const std::size_t nodes = f.session.document().data.count();

    // Save Profile with none active asks for a name; the title then names it.
    f.names = {f.q(f.dir.file("weekend"))};
    QVERIFY(f.window->runCommand("Save Profile"));
    QCOMPARE(f.asked.back(), ui::MainWindow::FileAsk::SaveProfileAs);
    const auto profile = formats::readWholeFile(f.dir.file("weekend.pfl"));
    QVERIFY(profile && profile->rfind("ZEL536 PRF V1.00", 0) == 0);
    QVERIFY(f.window->windowTitle().contains(" - Profile: weekend"));
    QCOMPARE(f.feedback.statuses.back(), std::string("Active Profile: weekend"));

    // Save Config File writes each list as the card names it, then the configuration.
    fs::create_directories(f.dir.file("card"));
    f.names = {f.q(f.dir.file("card/f_list.cfg"))};
    QVERIFY(f.window->runCommand("Save Config File"));
    QVERIFY(fs::exists(f.dir.file("card/f_000001.hpd")));
    QVERIFY(fs::exists(f.dir.file("card/f_list.cfg")));

    f.feedback.answers = {Answer::Yes};
    QVERIFY(f.window->runCommand("New HPD"));
    f.names = {f.q(f.dir.file("weekend.pfl"))};
    QVERIFY(f.window->runCommand("Open Profile"));
    QCOMPARE(f.session.document().data.count(), nodes);

    QVERIFY(f.window->runCommand("Clear Profile Name"));
    QCOMPARE(f.feedback.statuses.back(), std::string("Active Profile: None"));
    QVERIFY(!f.window->windowTitle().contains(" - Profile: "));

    f.feedback.answers = {Answer::Yes};
    QVERIFY(f.window->runCommand("New HPD"));
    f.names = {f.q(f.dir.file("card/f_list.cfg"))};
    QVERIFY(f.window->runCommand("Open Config File"));
    QCOMPARE(f.session.document().data.count(), nodes);
  }

  // Save over a scanner's database state file asks first and says what the save drops: No
  // offers Save As, Cancel leaves it; a save that replaces a file keeps it once as ".bak".
  void savingADatabaseStateFileAsksFirst() {
    NEED_CARD();
    const std::string source =
        std::string(ZEL_REALDATA_DIR) + "/card_sds200/BCDx36HP/HPDB/s_000106.hpd";
    struct Case {
      Answer answer;
      bool replaced;
      bool savedAs;
    };
    const Case cases[] = {
        {Answer::Cancel, false, false}, {Answer::No, false, true}, {Answer::Yes, true, false}};
    for (const Case& c : cases) {
      Fixture f;
      fs::create_directory(f.dir.file("HPDB"));
      const std::string state = f.dir.file("HPDB/s_000106.hpd");
      fs::copy_file(source, state);
      fs::permissions(state, fs::perms::owner_write, fs::perm_options::add);
      const auto before = formats::readWholeFile(state);
      f.names = {f.q(state)};
      QVERIFY(f.window->runCommand("Open"));
      const std::string other = f.dir.file("mine.hpd");
      f.names = {f.q(other)};
      f.feedback.answers = {c.answer};
      QVERIFY(f.window->runCommand("Save"));
      QCOMPARE(f.feedback.questions.size(), std::size_t{1});
      const std::string& asked = f.feedback.questions[0];
      QVERIFY2(asked.find("6 AreaState lines dropped") != std::string::npos, asked.c_str());
      QVERIFY2(asked.find("C-Freq lines, field 1, 2: Id emptied in 36") != std::string::npos,
               asked.c_str());
      QCOMPARE(formats::readWholeFile(state) != before, c.replaced);
      QCOMPARE(fs::exists(state + ".bak"), c.replaced);
      QCOMPARE(fs::exists(other), c.savedAs);
    }
  }

  // A favorites list is saved without a question, and its first replacement of the run is
  // kept beside it.
  void savingAFavoritesListKeepsTheReplacedFileOnce() {
    NEED_CARD();
    Fixture f;
    const auto original = formats::readWholeFile(f.list);
    f.names = {f.q(f.list)};
    QVERIFY(f.window->runCommand("Open"));
    f.session.document().changed = true;
    QVERIFY(f.window->runCommand("Save"));
    QVERIFY(f.window->runCommand("Save"));
    QVERIFY(f.feedback.questions.empty());
    QCOMPARE(formats::readWholeFile(f.list + ".bak"), original);
  }
};

QTEST_MAIN(MainWindowFilesTest)
#include "main_window_files_test.moc"
