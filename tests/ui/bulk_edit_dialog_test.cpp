// The Bulk Channel Editor over a favorites list from a real card: one ticked setting applied
// to the chosen channels changes that column only; the panels of each scope, the two
// refusals, the GPS buttons, and what the window remembers.
#include "ui/bulk_edit_dialog.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <QTreeWidget>
#include <filesystem>

#include "core/record_line.h"
#include "core/tree_operations.h"
#include "window_fixture.h"

using namespace zel;

namespace {

// The list as the reader numbers it: a P25 system first, then two conventional ones.
constexpr const char* kP25Name = "Greater Cleveland Radio Communications Network";

struct Fixture : test::SessionFixture {
  int changes = 0;
  bool ok = readCardList();

  std::unique_ptr<ui::BulkEditDialog> open() {
    auto d = std::make_unique<ui::BulkEditDialog>(session, feedback, [this] { ++changes; });
    d->show();
    return d;
  }
  // The key of a department by its name.
  std::string department(const std::string& name) {
    for (NodeId n : session.document().data.all()) {
      const std::string& key = session.document().data.key(n);
      if (key.rfind("GRP-", 0) == 0 && record::field(session.document().data.text(n), 4) == name)
        return key;
    }
    return {};
  }
};

using test::child;
using test::click;

QStringList comboItems(QComboBox* combo) {
  QStringList out;
  for (int i = 0; i < combo->count(); ++i) out << combo->itemText(i);
  return out;
}

int checkedCount(QTreeWidget* list) {
  int n = 0;
  for (int i = 0; i < list->topLevelItemCount(); ++i)
    n += list->topLevelItem(i)->checkState(0) == Qt::Checked;
  return n;
}

// Ticks the tree item whose text is `name` (a department or site under its system).
bool tickByName(QTreeWidget* tree, const QString& name) {
  const QList<QTreeWidgetItem*> found =
      tree->findItems(name, Qt::MatchExactly | Qt::MatchRecursive);
  if (found.isEmpty()) return false;
  found.first()->setCheckState(0, Qt::Checked);
  return true;
}

}  // namespace

class BulkEditDialogTest : public QObject {
  Q_OBJECT

 private slots:
  void aDelayGoesIntoTheTickedDepartmentsTalkgroupsOnly() {
    NEED_CARD();
    Fixture f;
    QVERIFY(f.ok);
    auto d = f.open();
    QCOMPARE(d->windowTitle(), QString("Bulk Channel Editor:"));
    QTest::mouseClick(child<QRadioButton>(d.get(), "Option2_3"), Qt::LeftButton);
    QCOMPARE(d->scope(), bulk::Scope::TalkGroups);

    // Only the trunked system is offered, under the head entry.
    auto* combo = child<QComboBox>(d.get(), "Combo1");
    QCOMPARE(comboItems(combo), (QStringList{"   < All Systems >", kP25Name}));
    d->chooseSystem(1);
    auto* tree = child<QTreeWidget>(d.get(), "TreeView1");
    QVERIFY(tickByName(tree, "North Royalton"));
    click(d.get(), "Command8");
    auto* list = child<QTreeWidget>(d.get(), "ListView1");
    QCOMPARE(list->headerItem()->text(1), QString("Talkgroup:"));
    QCOMPARE(checkedCount(list), 4);

    // Delay ticked; the alert tone shows another word but is not ticked.
    child<QCheckBox>(d.get(), "check1_5")->setChecked(true);
    child<QComboBox>(d.get(), "cmb_s_5")->setCurrentText("5");
    child<QCheckBox>(d.get(), "check1_7")->setChecked(false);
    child<QComboBox>(d.get(), "cmb_s_7")->setCurrentText("9");

    const std::string royalton = f.department("North Royalton");
    click(d.get(), "Command3");
    QVERIFY2(f.feedback.messages.empty(),
             f.feedback.messages.empty() ? "" : f.feedback.messages.front().c_str());
    QCOMPARE(f.changes, 1);
    QVERIFY(f.session.document().changed);
    // Which columns and channels an apply touches is the bulk edit's own (database tests).
    for (const std::string& line : f.session.pages().load(royalton))
      QCOMPARE(record::field(line, 6), std::string("5"));
  }

  void eachScopeShowsItsOwnPanels() {
    NEED_CARD();
    Fixture f;
    auto d = f.open();
    const QString conv1 = "Southwest/South Central Region", conv2 = "Cuyahoga Valley Region";
    struct Case {
      int scope;
      const char* shown;    // the panels on show
      QStringList systems;  // after the head entry
    };
    const Case cases[] = {
        {3, "check1_1 frm_settings ListView1", {kP25Name}},
        {4, "check1_4 cmb_s_4 frm_settings ListView1", {conv1, conv2}},
        {0, "frm_gps Text1", {kP25Name, conv1, conv2}},
        {1, "frm_gps Text1 chkModulation", {kP25Name}},
        {2, "frm_gps", {kP25Name, conv1, conv2}},
    };
    for (const Case& c : cases) {
      d->setScope(static_cast<bulk::Scope>(c.scope));
      QVERIFY(child<QRadioButton>(d.get(), QString("Option2_%1").arg(c.scope))->isChecked());
      QStringList shown;
      for (const char* panel : {"check1_4", "cmb_s_4", "check1_1", "frm_settings", "ListView1",
                                "frm_gps", "Text1", "chkModulation"})
        if (child<QWidget>(d.get(), panel)->isVisible()) shown << panel;
      const QString systems = comboItems(child<QComboBox>(d.get(), "Combo1")).join(',');
      QCOMPARE(QString("%1: %2 | %3").arg(c.scope).arg(shown.join(' '), systems),
               QString("%1: %2 | %3")
                   .arg(c.scope)
                   .arg(c.shown, (QStringList{"   < All Systems >"} + c.systems).join(',')));
    }
    QCOMPARE(child<QCheckBox>(d.get(), "check1_1")->text(), QString("AudioType:"));
    QCOMPARE(child<QCheckBox>(d.get(), "check1_4")->text(), QString("Attenuator:"));
    d->setScope(bulk::Scope::Sites);
    QCOMPARE(child<QPushButton>(d.get(), "Command2")->text().remove('&'),
             QString("Select All Sites"));
    QVERIFY(child<QWidget>(d.get(), "TreeView2")->isVisible());
    QVERIFY(!child<QWidget>(d.get(), "TreeView1")->isVisible());
  }

  void bothRefusalsAreSaidAndNothingChanges() {
    NEED_CARD();
    Fixture f;
    auto d = f.open();
    d->setScope(bulk::Scope::Frequencies);
    for (int n = 0; n < bulk::kSettingCount; ++n)
      child<QCheckBox>(d.get(), QString("check1_%1").arg(n))->setChecked(false);
    child<QCheckBox>(d.get(), "check1_0")->setChecked(true);
    QVERIFY(!d->apply());
    QVERIFY(
        tickByName(child<QTreeWidget>(d.get(), "TreeView1"), "Fire Departments - North Royalton"));
    QVERIFY(d->selectChannels() > 0);
    child<QCheckBox>(d.get(), "check1_0")->setChecked(false);
    // A setting ticked in another scope and hidden here does not count.
    child<QCheckBox>(d.get(), "check1_1")->setChecked(true);
    QVERIFY(!d->apply());
    QCOMPARE(f.feedback.messages,
             (std::vector<std::string>{"Please select one or more channels",
                                       "Please select which item to change."}));
    QCOMPARE(f.changes, 0);
    QVERIFY(!f.session.document().changed);
  }

  void useHomeFillsTheRangeWith25AndTheDepartmentTakesIt() {
    NEED_CARD();
    Fixture f;
    f.session.settingsCodec().put("gps", "home_lat", "41.400000");
    f.session.settingsCodec().put("gps", "home_long", "-81.600000");
    auto d = f.open();
    d->setScope(bulk::Scope::Departments);
    click(d.get(), "Command7_0");
    QCOMPARE(child<QLineEdit>(d.get(), "Text3")->text(), QString("25"));
    QCOMPARE(child<QLineEdit>(d.get(), "Text1")->text(), QString("41.400000"));
    child<QCheckBox>(d.get(), "chkGps")->setChecked(true);
    const std::string key = f.department("Strongsville");
    QVERIFY(d->tickNode(key));
    click(d.get(), "Command3");
    const std::string after = treemod::getText(f.session.document().data, key);
    QCOMPARE(
        record::field(after, 6) + " " + record::field(after, 7) + " " + record::field(after, 8),
        std::string("41.400000 -81.600000 25"));
    QCOMPARE(f.changes, 1);

    // Paste GPS copies the county centre fields.
    child<QLineEdit>(d.get(), "Text5")->setText("40.1");
    child<QLineEdit>(d.get(), "Text6")->setText("-80.2");
    child<QLineEdit>(d.get(), "Text7")->setText("3");
    click(d.get(), "Command6");
    QCOMPARE(child<QLineEdit>(d.get(), "Text2")->text(), QString("-80.2"));
    QCOMPARE(child<QLineEdit>(d.get(), "Text3")->text(), QString("3"));
  }

  void selectAllTogglesAndTheWindowRemembersItsTicks() {
    NEED_CARD();
    Fixture f;
    {
      auto d = f.open();
      d->setScope(bulk::Scope::Frequencies);
      click(d.get(), "Command2");
      QCOMPARE(d->tickedNodes().size(), std::size_t(7));
      click(d.get(), "Command2");
      QVERIFY(d->tickedNodes().empty());
      child<QCheckBox>(d.get(), "check1_3")->setChecked(true);
      child<QComboBox>(d.get(), "cmb_s_3")->setCurrentText("Fire Dispatch");
      // Escape closes the window, which keeps the ticks.
      QTest::keyClick(d.get(), Qt::Key_Escape);
      QVERIFY(!d->isVisible());
    }
    auto again = f.open();
    QCOMPARE(again->scope(), bulk::Scope::Frequencies);
    QVERIFY(child<QCheckBox>(again.get(), "check1_3")->isChecked());
    QCOMPARE(child<QComboBox>(again.get(), "cmb_s_3")->currentText(), QString("Fire Dispatch"));
    std::string serv;
    QVERIFY(f.store.read("bulkedit", "serv", serv));
    QCOMPARE(serv, std::string("Fire Dispatchx"));
  }

  void everyButtonHasAnAccelerator() {
    NEED_CARD();
    Fixture f;
    auto d = f.open();
    for (QPushButton* b : d->findChildren<QPushButton*>())
      QVERIFY2(b->text().contains('&'), qPrintable(b->objectName()));
    for (QRadioButton* b : d->findChildren<QRadioButton*>())
      QVERIFY2(b->text().contains('&'), qPrintable(b->objectName()));
  }
};

QTEST_MAIN(BulkEditDialogTest)
#include "bulk_edit_dialog_test.moc"
