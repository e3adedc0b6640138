// The RadioReference import window against the simulated service: opened from the File menu,
// it logs in, walks to a county, ticks what to take, and the main tree shows the import.
#include "ui/rr_import_window.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QComboBox>
#include <QDate>
#include <QLabel>
#include <QLineEdit>
#include <QTabWidget>
#include <QTreeWidget>
#include <QtTest>

#include "sim/radioref_sim.h"
#include "ui/window_fixture.h"

using namespace zel;
using namespace zel::test;
using ui::RRImportWindow;

namespace {

// Ids of the simulator's built-in data.
constexpr int kUnitedStates = 1;
constexpr int kAshland = 901;
constexpr int kHarbor = 9011;
constexpr int kSheriff = 900101;  // three frequencies, one of them encrypted

zel::sim::RadioRefSim& service() {
  static zel::sim::RadioRefSim sim{zel::sim::RadioRefSimOptions{}};
  return sim;
}

struct Fixture : WindowFixture {
  Fixture() {
    session.settingsCodec().put("radioref", "endpoint", service().endpoint());
    session.settingsCodec().put("radioref", "appkey", "12345678");
  }
  RRImportWindow* open() {
    window->runCommand("Import from RadioReference");
    auto* w = window->findChild<RRImportWindow*>();
    if (!w) qFatal("the import window did not open");
    return w;
  }
  // Logs in with the two fields as the user types them.
  static RRImportWindow* login(RRImportWindow* w, const QString& user = "demo",
                               const QString& password = "demo") {
    child<QLineEdit>(w, "UNameTxt")->setText(user);
    child<QLineEdit>(w, "UPassTxt")->setText(password);
    click(w, "LogInBtn");
    return w;
  }
  RRImportWindow* loggedIn(const char* user = "demo", const char* password = "demo") {
    return login(open(), user, password);
  }
  // Walks to a county: the stored country comes back after the login, then state, county.
  RRImportWindow* atHarbor() {
    RRImportWindow* w = loggedIn();
    choose(w, "CboState", kAshland);
    choose(w, "CboCounty", kHarbor);
    return w;
  }
  static void choose(QWidget* w, const char* combo, int id) {
    auto* c = child<QComboBox>(w, combo);
    const int index = c->findData(id);
    if (index < 0) qFatal("%s holds no entry %d", combo, id);
    c->setCurrentIndex(index);
  }
  // The node of a tree whose key ends in `suffix` ("d900101").
  static QTreeWidgetItem* node(QTreeWidget* tree, const QString& suffix) {
    for (QTreeWidgetItemIterator it(tree); *it; ++it)
      if ((*it)->data(0, Qt::UserRole).toString().endsWith(suffix)) return *it;
    return nullptr;
  }
  // The main window's tree item whose text ends with `text`, anywhere in the tree.
  QTreeWidgetItem* treeItem(const QString& text) const {
    for (QTreeWidgetItemIterator it(window->tree()); *it; ++it)
      if ((*it)->text(0).endsWith(text)) return *it;
    return nullptr;
  }
  static QTreeWidgetItem* sheriff(QWidget* w) {
    return node(child<QTreeWidget>(w, "TV1"), QString("d%1").arg(kSheriff));
  }
  bool saidWord(const std::string& words) const {
    return std::find(feedback.messages.begin(), feedback.messages.end(), words) !=
           feedback.messages.end();
  }
};

int rows(QWidget* w, const char* list) {
  return child<QTreeWidget>(w, list)->topLevelItemCount();
}
QString firstKey(QWidget* w, const char* list) {
  return child<QTreeWidget>(w, list)->topLevelItem(0)->data(0, Qt::UserRole).toString();
}

}  // namespace

class RRImportWindowTest : public QObject {
  Q_OBJECT

 private slots:
  void initTestCase() {
    std::string error;
    QVERIFY2(service().start(&error), error.c_str());
  }

  void theFileMenuOpensOneWindowWithItsShortcut() {
    Fixture f;
    QAction* a = f.window->action("Import from RadioReference");
    QVERIFY(a);
    QCOMPARE(a->shortcut(), QKeySequence("Ctrl+Shift+R"));
    RRImportWindow* first = f.open();
    QCOMPARE(first->windowTitle(), QString("Import from RadioReference"));
    QCOMPARE(f.open(), first);  // a second command raises the same window
  }

  void loginRefusesMissingFields() {
    for (const char* said : {"user name", "password"}) {
      Fixture f;
      RRImportWindow* w = f.loggedIn(said[0] == 'u' ? "" : "demo", said[0] == 'u' ? "demo" : "");
      QVERIFY2(f.feedback.messages.size() == 1 &&
                   QString::fromStdString(f.feedback.messages[0]).contains(said),
               said);
      QVERIFY2(w->focusWidget() == child<QLineEdit>(w, "UNameTxt"), said);
      QVERIFY2(!w->client().InitDone, said);  // nothing was asked of the service
    }
  }

  void aWrongPasswordEmptiesBothFields() {
    Fixture f;
    RRImportWindow* w = f.loggedIn("demo", "wrong");
    QCOMPARE(w->statusText(), QString("INIT not ok, can't read user data."));
    QVERIFY(child<QLineEdit>(w, "UNameTxt")->text().isEmpty());
    QVERIFY(child<QLineEdit>(w, "UPassTxt")->text().isEmpty());
    QCOMPARE(child<QComboBox>(w, "CboState")->count(), 0);
  }

  void aMissingKeyIsToldBeforeAnyCall() {
    Fixture f;
    f.session.settingsCodec().put("radioref", "appkey", "");
    RRImportWindow* w = f.open();
    child<QLineEdit>(w, "AppKeyTxt")->clear();
    Fixture::login(w);
    QVERIFY(f.saidWord(std::string(radioref::kMissingAppKey)));
    QCOMPARE(w->statusText(), QString("INIT not ok, check firewall settings."));
  }

  void theDebugBoxTracesTheCallsToTheLog() {
    Fixture f;
    RRImportWindow* w = f.open();
    const std::string log = f.dir.file("soaplog.txt");  // beside the data folder
    child<QCheckBox>(w, "Check10")->setChecked(true);
    Fixture::login(w);
    QVERIFY(slurp(log).find("Login") != std::string::npos);
    const auto size = slurp(log).size();
    child<QCheckBox>(w, "Check10")->setChecked(false);
    Fixture::choose(w, "CboState", kAshland);
    QCOMPARE(slurp(log).size(), size);  // off again: nothing more is written
  }

  void loginFillsTheStatesUnderTheirHead() {
    Fixture f;
    RRImportWindow* w = f.loggedIn();
    QVERIFY(w->statusText().startsWith("Subscription expires on: "));
    auto* states = child<QComboBox>(w, "CboState");
    QCOMPARE(child<QComboBox>(w, "CboCountry")->currentData().toInt(), kUnitedStates);
    QCOMPARE(states->itemText(0), QString(">>>  Select  <<<"));
    QVERIFY(states->findText("AH / Ashland") > 0);
    // No state stored yet: the head stays chosen.
    QCOMPARE(states->currentIndex(), 0);
  }

  void aCountyFillsItsCategoriesAndItsOwnEntry() {
    Fixture f;
    RRImportWindow* w = f.atHarbor();
    auto* counties = child<QComboBox>(w, "CboCounty");
    QCOMPARE(counties->itemText(1), QString("Statewide"));
    QCOMPARE(w->statusText(), QString("Done"));
    QVERIFY(Fixture::sheriff(w));
    auto* systems = child<QComboBox>(w, "CboSystem");
    QVERIFY(systems->currentText().startsWith("Harbor /Updated: "));
    QCOMPARE(child<QLineEdit>(w, "SysNameTxt")->text(), QString("Harbor"));
    QVERIFY(child<QWidget>(w, "TypeOpt0")->isEnabled());  // Harbor has trunked systems
  }

  void tickingASubcategoryFetchesItsRowsAndUntickingTakesThemAway() {
    Fixture f;
    RRImportWindow* w = f.atHarbor();
    QTreeWidgetItem* sheriff = Fixture::sheriff(w);
    sheriff->setCheckState(0, Qt::Checked);
    QCOMPARE(rows(w, "ListView3"), 3);
    QVERIFY(sheriff->text(0).contains("3 Frequencies / Encrypted"));
    const auto list = w->conventionalList();
    QCOMPARE(list.front().frequency.rfind("155.475", 0), 0u);
    QCOMPARE(list.front().department, std::string("Sheriff"));
    QVERIFY(firstKey(w, "ListView3").startsWith("cvfr-"));
    sheriff->setCheckState(0, Qt::Unchecked);
    QCOMPARE(rows(w, "ListView3"), 0);
    QCOMPARE(sheriff->text(0), QString("Sheriff"));
  }

  void anAgencyReplacesTheCategoriesWithItsOwn() {
    Fixture f;
    RRImportWindow* w = f.atHarbor();
    w->chooseListType(ui::RRListType::Agency);
    auto* systems = child<QComboBox>(w, "CboSystem");
    QCOMPARE(systems->itemText(1), QString("Harbor Port Authority"));
    systems->setCurrentIndex(1);
    auto* tv1 = child<QTreeWidget>(w, "TV1");
    QVERIFY(Fixture::node(tv1, "d900117"));  // "Harbor Ops"
    QVERIFY(!Fixture::sheriff(w));
    QCOMPARE(child<QLineEdit>(w, "SysNameTxt")->text(), QString("Harbor Port Authority"));
  }

  void conventionalImportStandsInTheMainTree() {
    Fixture f;
    RRImportWindow* w = f.atHarbor();
    Fixture::sheriff(w)->setCheckState(0, Qt::Checked);
    click(w, "Command2");
    QTreeWidgetItem* system = f.treeItem("Harbor");
    QVERIFY2(system, "no system Harbor in the tree");
    QVERIFY(f.treeItem("Sheriff"));
    QCOMPARE(f.treeItem("Sheriff")->parent(), system);
    QVERIFY(f.session.document().data.contains("SYS-001"));
  }

  // The builders' refusals and their sentences are the import's (Import.RefusalsLeaveThe-
  // DocumentAlone); the window beeps when nothing is chosen and shows the builder's sentence.
  void importRefusals() {
    Fixture f;
    RRImportWindow* w = f.loggedIn();
    click(w, "Command2");  // nothing chosen: a beep, no message
    QCOMPARE(f.feedback.beeps, 1);
    QVERIFY(f.feedback.messages.empty());
    w->chooseListType(ui::RRListType::Trunk);
    Fixture::choose(w, "CboState", kAshland);
    Fixture::choose(w, "CboCounty", kHarbor);
    Fixture::choose(w, "CboSystem", 0);  // the first trunked system of the county
    for (int i = 1; i <= 6; ++i)
      child<QCheckBox>(w, QString("tfilter%1").arg(i))->setChecked(false);
    click(w, "Command2");
    QVERIFY(f.saidWord("Error: all tg filters are disabled"));
    QVERIFY(!f.session.document().data.contains("SYS-001"));
  }

  void trunkedImportOfOneSiteAndOneCategory() {
    Fixture f;
    RRImportWindow* w = f.atHarbor();
    w->chooseListType(ui::RRListType::Trunk);
    auto* systems = child<QComboBox>(w, "CboSystem");
    int index = -1;
    for (int i = 1; i < systems->count(); ++i)
      if (systems->itemText(i).startsWith("Harbor County SmartZone /Updated: ")) index = i;
    QVERIFY(index > 0);
    systems->setCurrentIndex(index);
    QCOMPARE(child<QLabel>(w, "lbl_Type")->text().left(8), QString("Motorola"));
    QVERIFY(rows(w, "ListView4") >= 3);
    QVERIFY(rows(w, "ListView2") > 0);
    auto* sites = child<QTreeWidget>(w, "ListView4");
    for (int i = 0; i < sites->topLevelItemCount(); ++i)
      sites->topLevelItem(i)->setCheckState(0, i == 0 ? Qt::Checked : Qt::Unchecked);
    auto* tv2 = child<QTreeWidget>(w, "tv2");
    QVERIFY(tv2->topLevelItemCount() > 0);
    QTreeWidgetItem* category = tv2->topLevelItem(0);
    const QString name = category->text(0);
    category->setCheckState(0, Qt::Checked);
    QVERIFY(rows(w, "ListView1") > 0);
    QVERIFY(category->text(0).contains("TalkGroups: "));
    QVERIFY(firstKey(w, "ListView1").startsWith("tgr-"));
    click(w, "Command2");
    QTreeWidgetItem* system = f.treeItem("Harbor County SmartZone");
    QVERIFY2(system, "no trunked system in the tree");
    bool site = false, department = false;
    for (int i = 0; i < system->childCount(); ++i) {
      site |= system->child(i)->text(0).contains(sites->topLevelItem(0)->text(1));
      department |= system->child(i)->text(0).endsWith(name);
    }
    QVERIFY(site);
    QVERIFY(department);
  }

  // The Sheriff's rows were updated 3 days, 20 days and years ago; which fall within a limit is
  // the import's (rr_import tests). The window lists those within the chosen limit, keeps all
  // three, and the limit ticked as an option keeps only those.
  void theUpdateListHoldsTheRowsWithinTheLimit() {
    Fixture f;
    f.clock.day = QDate::currentDate().toString(Qt::ISODate).toStdString();
    RRImportWindow* w = f.atHarbor();
    Fixture::sheriff(w)->setCheckState(0, Qt::Checked);
    auto* days = child<QComboBox>(w, "UpdatedDays");
    days->setCurrentIndex(days->findText("7 days"));
    QCOMPARE(rows(w, "ListView6") * 10 + rows(w, "ListView3"), 13);
    child<QCheckBox>(w, "updated")->setChecked(true);
    QCOMPARE(rows(w, "ListView3"), 1);
  }

  void applyFilterRefusesAnEmptySelection() {
    Fixture f;
    RRImportWindow* w = f.open();
    child<QCheckBox>(w, "servicefilter")->setChecked(true);
    click(w, "TagsNone");
    QCOMPARE(w->statusText(),
             QString("ERROR: All service tags are disabled! Click Service Tags tab to check your "
                     "settings or disable the filter."));
    click(w, "Command16");
    QVERIFY(f.saidWord("Please select at least one service tag."));
  }

  void aZipCodeJumpsToItsCounty() {
    Fixture f;
    RRImportWindow* w = f.loggedIn();
    auto* zip = child<QLineEdit>(w, "ZipCodeTxt");
    zip->setText("10501");
    QTest::keyClick(zip, Qt::Key_Return);
    QCOMPARE(child<QComboBox>(w, "CboState")->currentData().toInt(), kAshland);
    QCOMPARE(child<QComboBox>(w, "CboCounty")->currentData().toInt(), kHarbor);
  }

  void closingKeepsAccountAndPlaceForNextTime() {
    Fixture f;
    RRImportWindow* w = f.atHarbor();
    w->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    Settings& s = f.session.settingsCodec();
    // user, password (no keychain in tests) and state
    QCOMPARE(s.getPlain("rrimport", "user", "") + "/" + s.getPlain("rrimport", "pass", "") + "/" +
                 s.getPlain("rrimport", "state", ""),
             "demo/demo/" + std::to_string(kAshland));
    // The next window starts filled in and walks back to the state by itself.
    RRImportWindow* again = f.open();
    QCOMPARE(child<QLineEdit>(again, "UNameTxt")->text(), QString("demo"));
    click(again, "LogInBtn");
    QCOMPARE(child<QComboBox>(again, "CboState")->currentData().toInt(), kAshland);
  }

  void aPresetAccountNeverReachesTheSettings() {
    Fixture f;
    f.session.settingsCodec().put("radioref", "endpoint", "http://127.0.0.1:1/soap2/");
    f.session.settingsCodec().put("radioref", "appkey", "");
    f.window->setRadioReferencePreset({service().endpoint(), "demo", "demo", "12345678"});
    RRImportWindow* w = f.open();
    click(w, "LogInBtn");
    QVERIFY(w->statusText().startsWith("Subscription expires on: "));
    w->close();
    Settings& s = f.session.settingsCodec();
    QCOMPARE(s.getPlain("rrimport", "user", "-") + "/" + s.getPlain("rrimport", "pass", "-") + "/" +
                 s.getPlain("radioref", "appkey", "-"),
             std::string("-/-/"));  // no user, no password, the key as it was
  }

  // Every caption of every tab fits its widget at the window's first size, with real rows in
  // the lists. With ZEL_SCREENSHOT_DIR set, each tab is also saved as a picture.
  void noCaptionIsClippedOnAnyTab() {
    Fixture f;
    RRImportWindow* w = f.atHarbor();
    Fixture::sheriff(w)->setCheckState(0, Qt::Checked);
    Fixture::node(child<QTreeWidget>(w, "TV1"), "d900102")->setCheckState(0, Qt::Checked);
    w->chooseListType(ui::RRListType::Trunk);
    Fixture::choose(w, "CboSystem", 0);
    child<QTreeWidget>(w, "tv2")->topLevelItem(0)->setCheckState(0, Qt::Checked);
    const QString folder = qEnvironmentVariable("ZEL_SCREENSHOT_DIR");
    auto* tabs = child<QTabWidget>(w, "SSTab1");
    for (int t = 0; t < tabs->count(); ++t) {
      tabs->setCurrentIndex(t);
      QApplication::processEvents();
      if (!folder.isEmpty()) w->grab().save(folder + QString("/rr_import_tab%1.png").arg(t));
      for (QWidget* widget : tabs->currentWidget()->findChildren<QWidget*>()) {
        auto* label = qobject_cast<QLabel*>(widget);
        auto* button = qobject_cast<QAbstractButton*>(widget);
        if (!widget->isVisibleTo(w) || !(label || button) || (label && label->wordWrap())) continue;
        const QString text = label ? label->text() : button->text();
        QVERIFY2(widget->width() >= widget->minimumSizeHint().width(),
                 qPrintable(tabs->tabText(t) + ": " + widget->objectName() + " " + text));
      }
    }
  }
};

QTEST_MAIN(RRImportWindowTest)
#include "rr_import_window_test.moc"
