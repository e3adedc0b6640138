// Enhanced Find over page files and the grid on show: the timer-started search, ORG/DUP rows,
// Select Dups and Delete, the stop button, the review of locked rows and Unlock.
#include "ui/enhanced_find_dialog.h"

#include <QMenu>
#include <QProgressBar>
#include <QPushButton>
#include <QTest>
#include <QTreeWidget>

#include "core/record_line.h"
#include "window_fixture.h"

using namespace zel;
using test::child;
using test::click;

class EnhancedFindDialogTest : public QObject {
  Q_OBJECT

  static QStringList column(const QTreeWidget* list, int c) {
    QStringList out;
    for (int i = 0; i < list->topLevelItemCount(); ++i) out << list->topLevelItem(i)->text(c);
    return out;
  }

 private slots:
  void currentSystemComparesFrequenciesAsNumbersThroughTheTimer() {
    test::DialogFixture f;
    const int sys = f.addSystem();
    const std::string shown = f.firstDepartment(sys);
    f.fill(shown, {"1,154.100000,Fire Main,Off,NFM", "2,155.220000,Police,Off,FM"});
    f.addDepartment(
        sys, {"1,154.1,Fire Two,Off,AM", "2,460.5,Works,Off,FM", "3,154.1000,Fire Three,Off,FM"});
    const int sys2 = f.addSystem();
    f.addDepartment(sys2, {"1,154.100000,Elsewhere,Off,FM", "2,155.220000,Far,Off,FM"});
    GridPage* grid = f.show(shown);
    ui::EnhancedFindDialog d(f.session, f.feedback, grid, f.onChange());

    QVERIFY(d.startInCurrentSystem());
    QCOMPARE(d.selector(), dups::Selector::FrequenciesOneSystem);
    QVERIFY(d.isVisible());
    QCOMPARE(d.windowTitle(), QString("Enhanced Find:"));
    QTreeWidget* list = d.list();
    // The search starts from a timer once the window is up.
    QTRY_COMPARE(list->topLevelItemCount(), 3);
    // The rows as the search gives them (which rows and their "Data:": grid tests).
    QCOMPARE(column(list, 3) + column(list, 2) + column(list, 8).mid(0, 1),  // field 4 in column 2
             (QStringList{"Fire Main", "Fire Two", "Fire Three", "NFM", "AM", "FM",
                          "FRQ-001-001-0001"}));
    QCOMPARE(d.progressBar()->value(), 100);
    QVERIFY(f.feedback.messages.empty());

    // "Active Bank" keeps to the department on show, which has no duplicate.
    d.findChild<QWidget*>("optActiveBank")->setProperty("checked", true);
    QVERIFY(d.prepare(dups::Selector::FrequenciesOneSystem));
    d.runSearch();
    QCOMPARE(list->topLevelItemCount(), 0);
  }

  void theDuplicatesSubmenuStartsItsSearches() {
    test::DialogFixture f;
    const int sys = f.addSystem("New P25 Trunk System");
    f.fill(f.firstDepartment(sys), {"1,1234,Fire,Off", "2,01234,Fire B,Off", "3,1234,EMS,Off"});
    GridPage* grid = f.show(f.firstDepartment(sys));
    std::unique_ptr<ui::EnhancedFindDialog> made;
    int asked = 0;
    QMenu menu;
    ui::addDuplicateSearchEntries(&menu, [&]() -> ui::EnhancedFindDialog& {
      ++asked;
      if (!made)
        made = std::make_unique<ui::EnhancedFindDialog>(f.session, f.feedback, grid, f.onChange());
      return *made;
    });
    QStringList captions;
    for (QAction* a : menu.actions()) captions << a->text();
    QCOMPARE(captions, (QStringList{"In Current System", "In Current System With Subtone",
                                    "In All Systems (Frequencies)", "In All Systems (TGid)",
                                    "In All Systems With Subtone"}));
    menu.actions()[1]->trigger();
    QCOMPARE(asked, 0);  // the subtone entries have no search behind them

    // A trunked system: its talkgroups (how they compare is the search's, grid tests).
    menu.actions()[0]->trigger();
    QCOMPARE(made->selector(), dups::Selector::TalkgroupsOneSystem);
    QTRY_COMPARE(made->list()->topLevelItemCount(), 2);
    menu.actions()[3]->trigger();
    QCOMPARE(made->selector(), dups::Selector::TalkgroupsAll);
    QCOMPARE(asked, 2);
  }

  void aSearchOfOneSystemNeedsASystem() {
    test::DialogFixture f;
    f.addSystem();
    ui::EnhancedFindDialog d(f.session, f.feedback, nullptr, f.onChange());
    QVERIFY(!d.startInCurrentSystem());
    QVERIFY(!d.prepare(dups::Selector::TalkgroupsOneSystem));
    QCOMPARE(f.feedback.messages, (std::vector<std::string>{"Please click on a system first.",
                                                            "Please click on a system first."}));
    QVERIFY(!d.isVisible());
  }

  void selectDupsAndDeleteLeaveOneRowOfEachGroup() {
    test::DialogFixture f;
    const int sys = f.addSystem();
    const std::string shown = f.firstDepartment(sys);
    f.fill(shown, {"1,154.100000,A,Off", "2,460.000000,B,Off", "3,154.100050,C,Off",
                   "4,851.012500,D,Off"});
    const int sys2 = f.addSystem();
    f.addDepartment(
        sys2, {"1,851.0125,E,Off", "2,154.1,F,Off", "3,853.000000,G,Off", "4,851.012500,H,Off"});
    GridPage* grid = f.show(shown);
    ui::EnhancedFindDialog d(f.session, f.feedback, grid, f.onChange());
    d.show();
    QVERIFY(d.prepare(dups::Selector::FrequenciesAll));
    d.runSearch();
    QCOMPARE(d.list()->topLevelItemCount(), 6);  // two groups (the grouping: grid tests)

    click(&d, "cmdDelete");
    QCOMPARE(f.feedback.messages.back(), std::string("Please select at least one duplicate."));
    click(&d, "cmdSelectAll");
    QCOMPARE(d.list()->topLevelItem(0)->checkState(0), Qt::Checked);
    click(&d, "cmdUnSelectAll");
    QCOMPARE(d.list()->topLevelItem(5)->checkState(0), Qt::Unchecked);
    // One line a row, the columns joined by tabs.
    click(&d, "cmdCopy");
    const QStringList copied = QApplication::clipboard()->text().split("\r\n", Qt::SkipEmptyParts);
    QCOMPARE(copied.size(), 6);
    QCOMPARE(copied[1].split('\t').mid(0, 4), (QStringList{"2", "DUP: 154.100050", "", "C"}));

    click(&d, "cmdSelectDups");
    f.feedback.answers = {Answer::No};
    click(&d, "cmdDelete");
    QCOMPARE(f.feedback.questions.back(),
             std::string("Warning|Are you sure you want to delete this data?\n"
                         "Warning: data will be lost!"));
    QCOMPARE(d.list()->topLevelItemCount(), 6);
    QCOMPARE(f.reloads, 0);

    f.feedback.answers = {Answer::Yes};
    click(&d, "cmdDelete");
    QCOMPARE(d.list()->topLevelItemCount(), 2);
    QCOMPARE(f.reloads, 1);
    QVERIFY(f.session.document().changed);
    // The origins stay listed, their keys following the rows that moved up.
    QCOMPARE(column(d.list(), 8), (QStringList{"FRQ-001-001-0001", "FRQ-001-001-0003"}));
    QCOMPARE(grid->textMatrix(3, 2), std::string("D"));
    QVERIFY(d.prepare(dups::Selector::FrequenciesAll));
    d.runSearch();
    QCOMPARE(d.list()->topLevelItemCount(), 0);
  }

  void theStopButtonEndsTheSearchWhereItStands() {
    test::DialogFixture f;
    const int sys = f.addSystem();
    std::vector<std::string> lines;
    // 1500 channels in pairs: every value twice.
    for (int i = 0; i < 1500; ++i)
      lines.push_back(std::to_string(i + 1) + "," + std::to_string(150 + (i % 750)) + ".500000,T" +
                      std::to_string(i) + ",Off");
    f.fill(f.firstDepartment(sys), lines);
    GridPage* grid = f.show(f.firstDepartment(sys));
    ui::EnhancedFindDialog d(f.session, f.feedback, grid, f.onChange());
    d.show();

    QVERIFY(d.prepare(dups::Selector::FrequenciesOneSystem));
    d.runSearch();
    const int whole = d.list()->topLevelItemCount();
    QCOMPARE(whole, 1500);

    std::vector<int> seen;
    connect(d.progressBar(), &QProgressBar::valueChanged, &d, [&](int value) {
      seen.push_back(value);
      if (value >= 20 && d.searching()) click(&d, "cmdStop");
    });
    QVERIFY(d.prepare(dups::Selector::FrequenciesOneSystem));
    d.runSearch();
    QVERIFY(!d.searching());
    QVERIFY(d.list()->topLevelItemCount() > 0);
    QVERIFY(d.list()->topLevelItemCount() < whole);
    QVERIFY(d.progressBar()->value() < 100);
    QVERIFY(std::is_sorted(seen.begin(), seen.end()));
  }

  void reviewListsNoAvoidRowsAndTheUnlockSubmenuClearsThem() {
    test::DialogFixture f;
    const int sys = f.addSystem();
    const std::string shown = f.firstDepartment(sys);
    f.fill(shown, {"1,154.100000,A,On", "2,155.000000,B,Off"});
    const std::string page = f.addDepartment(sys, {"1,460.000000,C,On"});
    f.session.document().data.setText(
        f.session.document().data.find(keys::system(sys)),
        record::withField(treemod::getText(f.session.document().data, keys::system(sys)), 5, "1"));
    GridPage* grid = f.show(shown);
    ui::EnhancedFindDialog d(f.session, f.feedback, grid, f.onChange());

    QVERIFY(d.start(dups::Selector::LockOut));
    QCOMPARE(d.windowTitle(), QString("Review LockOut Data:"));
    QVERIFY(!child<QPushButton>(&d, "cmdDelete")->isVisible());
    QVERIFY(!child<QPushButton>(&d, "cmdSelectDups")->isVisible());
    QVERIFY(child<QPushButton>(&d, "cmdUnlockSelected")->isVisible());
    QTRY_COMPARE(d.progressBar()->value(), 100);
    // The grids head their lock column "Avoid": the review finds nothing to list.
    QCOMPARE(d.list()->topLevelItemCount(), 0);

    // The unlock reaches the grid on show as well as the page files (the scopes: grid tests).
    QCOMPARE(d.unlock(dups::UnlockScope::ActiveSystem), 3);
    QCOMPARE(test::DialogFixture::cell(grid, 1, "Avoid"), std::string("Off"));
    QCOMPARE(record::field(f.session.pages().load(page).front(), 3), std::string("Off"));
    QCOMPARE(f.reloads, 1);
  }
};

QTEST_MAIN(EnhancedFindDialogTest)
#include "enhanced_find_dialog_test.moc"
