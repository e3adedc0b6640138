// The card manager on a simulated card and on a copy of a real SDS200 card: detection, a list
// written and read back, deletion with its backups, the key columns with the question at
// close, Service Search, orphans, and the gate when no card is found.
#include "ui/patrol_window.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <QTreeWidget>
#include <filesystem>
#include <fstream>

#include "core/settings.h"
#include "sim/card_sim.h"
#include "transfer/card_detect.h"
#include "transfer/drive_roots.h"
#include "window_fixture.h"

using namespace zel;
namespace fs = std::filesystem;

using test::slurp;

class PatrolWindowTest : public QObject {
  Q_OBJECT

  struct Fixture : test::SessionFixture {
    transfer::ListDriveRoots roots;
    std::unique_ptr<ui::PatrolWindow> window;
    std::string lists;  // the card's favorites_lists folder

    // A simulated card of `model`, or none when `model` is empty.
    explicit Fixture(const std::string& model = "BCD536HP") {
      if (!model.empty()) {
        auto made = sim::makeSimCard(dir.file("card"), model);
        if (made.ok) {
          roots.add(dir.file("card"));
          lists = made.scannerRoot + "/favorites_lists";
        }
      }
    }
    void open() {
      window = std::make_unique<ui::PatrolWindow>(session, feedback, roots);
      window->show();
    }
    template <typename T>
    T* child(const char* name) const {
      return window->findChild<T*>(name);
    }
    void click(const char* name) const {
      QPushButton* b = child<QPushButton>(name);
      QVERIFY2(b != nullptr, name);
      b->click();
    }
    QString rowText(int row, int column) const {
      return window->listView()->topLevelItem(row)->text(column);
    }
    std::string config() const { return slurp(lists + "/f_list.cfg"); }
    QString question() const { return QString::fromStdString(feedback.questions.back()); }
    QString setting(const char* section, const char* key) {
      return QString::fromStdString(Settings(store).getPlain(section, key, ""));
    }
    // Selects list `number` alone and clicks Delete, answering Yes.
    void deleteList(int number) {
      window->listView()->clearSelection();
      QVERIFY(window->selectList(number));
      feedback.answers = {Answer::Yes};
      click("Command4");
    }
    void readList(int number) {
      window->listView()->clearSelection();
      QVERIFY(window->selectList(number));
      click("Command10_0");  // Write Selected
    }
  };

 private slots:
  void detectsTheCardAndListsItsConfiguration() {
    Fixture f;
    QVERIFY(!f.lists.empty());
    f.open();
    QCOMPARE(f.window->lampColour(), transfer::kLampGreen);
    // The detection's text and the firmware it keeps: the card detection tests.
    QVERIFY(f.window->label3Text().startsWith(" BCDx36HP/3600/SDS detected at drive "));
    QCOMPARE(f.window->listView()->topLevelItemCount(), 2);
    QCOMPARE((QStringList{f.rowText(0, 1), f.rowText(0, 2), f.rowText(0, 5), f.rowText(1, 1)}),
             (QStringList{"Lake County Fire", "f_000001.hpd", "1 / FQK: Off", "County P25"}));
    QCOMPARE(QString("%1,%2").arg(f.rowText(0, 6).size()).arg(f.rowText(0, 7).size()),
             QString("10,100"));
  }

  void withoutACardEveryTransferIsGated() {
    Fixture f("");
    f.open();
    QCOMPARE(f.window->lampColour(), transfer::kLampOff);
    QCOMPARE(f.window->label3Text(), QString(transfer::kNotFoundHelp));
    QVERIFY(f.child<QCheckBox>("Check10_1")->isVisibleTo(f.window.get()));
    QVERIFY(f.child<QCheckBox>("Check10_2")->isVisibleTo(f.window.get()));
    for (const char* command : {"Command13", "Command10_1", "Command4", "Command11_0"}) {
      f.child<QPushButton>(command)->click();
      QCOMPARE(f.window->label3Text(), QString("Error: Scanner not detected."));
    }
    QVERIFY(f.feedback.messages.empty());
    QCOMPARE(f.window->listView()->topLevelItemCount(), 0);
  }

  void saveReadBackAndDeleteAList() {
    Fixture f;
    f.open();
    // Nothing in the document yet.
    f.child<QLineEdit>("Text1")->setText("Mine");
    f.click("Command13");
    QCOMPARE(QString::fromStdString(f.feedback.messages.back()), QString("No systems to upload"));
    QVERIFY(!fs::exists(f.lists + "/f_000003.hpd"));

    f.readList(1);
    QVERIFY(f.session.document().data.contains("SYS-001"));
    QVERIFY(f.feedback.questions.empty());  // an empty document is not warned about
    QVERIFY(f.child<QListWidget>("ListView2")->count() >= 2);  // the file and its system

    // A new list takes the lowest free number; the HPD file is there before the row.
    f.child<QCheckBox>("Check6")->setChecked(true);
    f.click("Command13");
    QCOMPARE(f.window->label3Text(), QString("Save finished."));
    QVERIFY(fs::exists(f.lists + "/f_000003.hpd"));
    QCOMPARE(f.window->listView()->topLevelItemCount(), 3);
    QCOMPARE(f.rowText(2, 8), QString("saved"));

    // Reading it back over a document with data warns first; Clear Browser empties it.
    f.child<QCheckBox>("Check9")->setChecked(true);
    f.feedback.answers = {Answer::No};
    f.readList(3);
    QCOMPARE(f.question(),
             QString("Warning|This will delete all existing data.\nIf not saved, data is lost!\n"
                     "Continue without saving?"));
    QVERIFY(!f.session.document().data.contains("SYS-002"));
    f.feedback.answers = {Answer::Yes};
    f.readList(3);
    QVERIFY(f.session.document().data.contains("SYS-001"));
    QVERIFY(!f.session.document().data.contains("SYS-002"));  // the browser was cleared
    QCOMPARE(f.session.document().files.loadedCount(), 1);

    // Overwrite asks; a No leaves the file alone (what each answer writes: transfer tests).
    f.child<QRadioButton>("Option2_0")->setChecked(true);
    QComboBox* combo = f.child<QComboBox>("Combo2");
    combo->setCurrentIndex(combo->findData(3));
    f.feedback.answers = {Answer::No};
    f.click("Command13");
    QCOMPARE(f.question(),
             QString("|Warning, data in existing Favorite List will be lost, Continue?"));
    QVERIFY(!fs::exists(f.lists + "/f_000003.bac"));

    // Deleting drops the row (the .bac backups themselves: transfer tests).
    f.deleteList(3);
    QCOMPARE(f.window->listView()->topLevelItemCount(), 2);
  }

  void keyColumnsAreKeptUntilTheQuestionAtClose() {
    Fixture f;
    f.open();
    const std::string original = f.config();
    f.click("Command12_0");  // Clear FL Qkey
    QCOMPARE(f.rowText(0, 5), QString("Off / FQK: Off"));
    f.click("Command12_1");  // Auto Assign Qkey (the numbers: transfer tests)
    QCOMPARE(f.rowText(0, 5), QString("0 / FQK: Off"));
    f.window->listView()->clearSelection();
    QVERIFY(f.window->selectList(1));
    f.click("Command8_1");  // Down
    QCOMPARE(f.rowText(1, 1), QString("Lake County Fire"));
    QCOMPARE(f.config(), original);  // nothing written yet
    QVERIFY(f.window->viewChanged());

    f.feedback.answers = {Answer::Yes};
    QVERIFY(f.window->close());
    QCOMPARE(f.question(), QString("|Save new Favorites Config file?"));
    QVERIFY(f.config() != original);
    QCOMPARE(f.setting("scanner", "startup") + f.setting("scanner", "include_drive_d"),
             QString("10"));  // startup 1, include_drive_d 0
  }

  // The profile's keys themselves: the card command's tests.
  void enableAllRewritesTheProfile() {
    Fixture f;
    f.open();
    f.click("Command12_0");
    f.click("Command9");
    QCOMPARE(QString::fromStdString(f.feedback.messages.back()), QString("fix"));
    QVERIFY(slurp(fs::path(f.lists).parent_path().string() + "/profile.cfg").find("QuickKeys\t") !=
            std::string::npos);
  }

  void serviceSearchOnceAndOrphans() {
    Fixture f;
    std::ofstream(f.lists + "/f_000007.hpd") << "TargetModel\tBCDx36HP\r\n";
    f.open();
    QCOMPARE(f.window->listView()->topLevelItemCount(), 3);
    QCOMPARE(f.rowText(2, 1), QString("Orphan f_000007.hpd"));

    f.click("Command11_0");  // CB
    QVERIFY(!f.child<QPushButton>("Command11_0")->isEnabled());
    QVERIFY(fs::exists(f.lists + "/favorites_000003.hpd"));
    QVERIFY(f.window->viewChanged());  // f_list.cfg takes the row when the view is saved

    // Keeping an orphan copies it to the next free number; deleting one asks first.
    QVERIFY(f.window->selectOrphan("f_000007.hpd"));
    f.click("cmdKeepOrphan");
    QVERIFY(f.window->selectOrphan("f_000007.hpd"));
    f.feedback.answers = {Answer::Yes};
    f.click("Command4");
    QCOMPARE(f.question(), QString("|Are you sure you want to delete the selected files?"));
    QVERIFY(!fs::exists(f.lists + "/f_000007.hpd"));
    QVERIFY(fs::exists(f.lists + "/f_000004.hpd"));
  }

  void aRealSdsCardRoundTrips() {
    const fs::path real = fs::path(ZEL_REALDATA_DIR) / "card_sds200" / "BCDx36HP";
    if (!fs::exists(real / "scanner.inf")) QSKIP("no real card data");
    Fixture f("");
    const fs::path root = fs::path(f.dir.file("real")) / "BCDx36HP";
    fs::create_directories(root / "favorites_lists");
    for (const char* file : {"scanner.inf", "profile.cfg", "favorites_lists/f_list.cfg",
                             "favorites_lists/f_000001.hpd"}) {
      fs::copy_file(real / file, root / file);  // the corpus is read-only, the copy must not be
      fs::permissions(root / file, fs::perms::owner_write, fs::perm_options::add);
    }
    f.roots.add(f.dir.file("real"));
    f.lists = (root / "favorites_lists").string();
    f.open();
    QVERIFY(f.window->label3Text().startsWith("SDSx00 series detected at drive "));
    QCOMPARE(f.window->listView()->topLevelItemCount(), 1);
    QCOMPARE(f.rowText(0, 1), QString("B"));
    f.readList(1);
    QVERIFY(f.session.document().data.contains("SYS-001"));
    f.child<QLineEdit>("Text1")->setText("Copy");
    f.click("Command13");
    QCOMPARE(f.window->label3Text(), QString("Save finished."));
    QVERIFY(fs::exists(f.lists + "/f_000002.hpd"));
    QVERIFY(f.config().find("F-List\tCopy\tf_000002.hpd\t") != std::string::npos);
    f.deleteList(2);
    QVERIFY(fs::exists(f.lists + "/f_000002.bac"));
    QVERIFY(!fs::exists(f.lists + "/f_000002.hpd"));
    QCOMPARE(slurp(f.lists + "/f_000001.hpd"),
             slurp((real / "favorites_lists/f_000001.hpd").string()));
  }
};

QTEST_MAIN(PatrolWindowTest)
#include "patrol_window_test.moc"
