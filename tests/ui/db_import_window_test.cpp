// The database import window over a small database: found, read, narrowed, one site imported.
#include "ui/db_import_window.h"

#include <QComboBox>
#include <QLineEdit>
#include <QRadioButton>
#include <QTreeWidget>
#include <QtTest>

#include "database/db_state_sample.h"
#include "ui/window_fixture.h"

using namespace zel;
using namespace zel::test;
using ui::DbImportWindow;

namespace {

void writeFile(const std::filesystem::path& path, const std::string& text) {
  std::filesystem::create_directories(path.parent_path());
  std::ofstream(path, std::ios::binary) << text;
}

struct Fixture : WindowFixture {
  std::filesystem::path hpdb = std::filesystem::path(dir.path()) / "card" / "BCDx36HP" / "HPDB";
  Fixture() {
    writeFile(hpdb / "s_000001.hpd", sampleStateText());
    writeFile(hpdb / "hpdb.cfg",
              "TargetModel\tBCDx36HP\r\nStateInfo\tStateId=1\tCountryId=1\tIdaho\tID\r\n");
    window->addCardRoot(QString::fromStdString(dir.file("card")));
  }
  DbImportWindow* open() {
    window->runCommand("Import System(s) from Database");
    auto* w = window->findChild<DbImportWindow*>();
    if (!w) qFatal("the database import window did not open");
    return w;
  }
};

}  // namespace

class DbImportWindowTest : public QObject {
  Q_OBJECT
 private slots:
  void findsTheDatabaseOnACardOrInAFolder();
  void importsATickedSiteIntoTheDocument();
};

void DbImportWindowTest::findsTheDatabaseOnACardOrInAFolder() {
  for (const bool folder : {false, true}) {
    Fixture f;
    DbImportWindow* w = f.open();
    if (folder) {
      w->setFolderChooser([&f] { return QString::fromStdString(f.hpdb.string()); });
      click(w, "browse");
    } else {
      child<QRadioButton>(w, "fromCard")->setChecked(true);
      click(w, "find");
    }
    QCOMPARE(w->stateList()->count(), 2);
    QCOMPARE(w->stateList()->itemText(1), QString("Idaho : s_000001.hpd"));
    // The choice is kept for the next time the window opens.
    QCOMPARE(f.session.settingsCodec().getPlain("dbimport", "source", ""),
             std::string(folder ? "folder" : "card"));
  }
}

void DbImportWindowTest::importsATickedSiteIntoTheDocument() {
  Fixture f;
  DbImportWindow* w = f.open();
  click(w, "find");
  QVERIFY(w->loadState(1));
  QTreeWidget* systems = w->systemTree();
  QCOMPARE(systems->topLevelItemCount(), 2);
  QTreeWidgetItem* trunk = systems->topLevelItem(1);
  QCOMPARE(trunk->text(1), QString("P25 Standard"));
  QCOMPARE(trunk->childCount(), 4);

  child<QLineEdit>(w, "name")->setText("ridge");
  QVERIFY(systems->topLevelItem(0)->isHidden());
  QVERIFY(!trunk->isHidden());

  trunk->child(1)->setCheckState(0, Qt::Checked);  // South Ridge
  QCOMPARE(trunk->checkState(0), Qt::PartiallyChecked);
  click(w, "import");

  Document& doc = f.doc();
  QVERIFY(doc.changed);
  QCOMPARE(treemod::getField(doc.data, "SYS-001", 4), std::string("Capital Net"));
  QCOMPARE(treemod::getField(doc.data, "SIT-001-001", 4), std::string("South Ridge"));
  QVERIFY(!doc.data.contains("SIT-001-002"));
  QVERIFY(!f.window->tree()->findItems("Capital Net", Qt::MatchContains | Qt::MatchRecursive).isEmpty());
  QVERIFY(!f.window->tree()->findItems("South Ridge", Qt::MatchContains | Qt::MatchRecursive).isEmpty());
  // The ticks are gone, so a second click cannot import the same system twice.
  QCOMPARE(trunk->checkState(0), Qt::Unchecked);
}

QTEST_MAIN(DbImportWindowTest)
#include "db_import_window_test.moc"
