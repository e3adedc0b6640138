// Find/Replace Data over the grid on show: typed text, a chosen column, the buttons, and
// what lands in the grid and in the page files of the other departments.
#include "ui/find_dialog.h"

#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>

#include "window_fixture.h"

using namespace zel;
using test::child;

class FindDialogTest : public QObject {
  Q_OBJECT

  static void chooseColumn(ui::FindDialog& d, const char* heading) {
    auto* list = child<QListWidget>(&d, "lstColumns");
    const auto items = list->findItems(heading, Qt::MatchFixedString);
    QVERIFY(!items.isEmpty());
    list->setCurrentItem(items.first());
  }

 private slots:
  void findMovesToTheLastMatchAndStartsAtTheTopEachTime() {
    test::DialogFixture f;
    const int sys = f.addSystem();
    const std::string dept = f.firstDepartment(sys);
    f.fill(dept, {"1,154.100000,Fire Main,Off", "2,155.220000,Police,Off",
                  "3,154.115000, fire north ,Off", "4,460.100000,Public Works,Off"});
    GridPage* grid = f.show(dept);
    QVERIFY(grid);
    ui::FindDialog d(f.session, f.feedback, grid, f.onChange());
    d.show();

    // No column chosen: the search is on "Frequency".
    QTest::keyClicks(child<QLineEdit>(&d, "txtFind"), "154.1");
    QTest::mouseClick(child<QPushButton>(&d, "cmdFind"), Qt::LeftButton);
    QCOMPARE(d.column(), QString("Frequency"));
    QCOMPARE(std::pair(grid->row(), grid->col()), std::pair(3, grid->findColumn("Frequency")));
    QCOMPARE(child<QLabel>(&d, "lblResult")->text(), QString("2 found"));
    QCOMPARE(f.reloads, 1);

    // The chosen column is searched (how a cell matches: FindReplace in the grid tests); a
    // second pass finds the same rows again, no position is kept.
    chooseColumn(d, "Alpha Tag");
    child<QLineEdit>(&d, "txtFind")->setText("FIRE");
    grid->setRow(1);
    d.find();
    QCOMPARE(d.find(), (std::vector<int>{1, 3}));

    child<QLineEdit>(&d, "txtFind")->setText("nowhere");
    QVERIFY(d.find().empty());
    QCOMPARE(grid->row(), 3);  // a pass without a match leaves the cursor
    QCOMPARE(f.reloads, 3);
  }

  void replaceInTheCurrentBankOrInEveryPage() {
    test::DialogFixture f;
    const int sys = f.addSystem();
    const std::string shown = f.firstDepartment(sys);
    f.fill(shown, {"1,154.100000,Fire Main,Off", "2,155.220000,Police,Off"});
    const std::string other = f.addDepartment(sys, {"1,453.500000,Fire North,Off"});
    const int sys2 = f.addSystem();
    const std::string far = f.addDepartment(sys2, {"1,460.000000,fire west,Off"});
    GridPage* grid = f.show(shown);
    ui::FindDialog d(f.session, f.feedback, grid, f.onChange());
    d.show();
    chooseColumn(d, "Alpha Tag");
    child<QLineEdit>(&d, "txtFind")->setText("fire");
    child<QLineEdit>(&d, "txtReplace")->setText("EMS");

    QTest::mouseClick(child<QPushButton>(&d, "cmdReplace"), Qt::LeftButton);
    QCOMPARE(test::DialogFixture::cell(grid, 1, "Alpha Tag"), std::string("EMS Main"));
    QCOMPARE(test::DialogFixture::cell(grid, 2, "Alpha Tag"), std::string("Police"));
    QCOMPARE(f.session.pages().load(other).front(), std::string("1,453.500000,Fire North,Off"));
    QVERIFY(f.session.document().changed);

    child<QRadioButton>(&d, "optAllBanks")->setChecked(true);
    child<QLineEdit>(&d, "txtFind")->setText("north");
    child<QLineEdit>(&d, "txtReplace")->setText("South");
    QCOMPARE(d.replace(), 1);
    QVERIFY(f.session.pages().load(other).front().find(",Fire South,") != std::string::npos);
    child<QLineEdit>(&d, "txtFind")->setText("FIRE");
    child<QLineEdit>(&d, "txtReplace")->setText("Rescue");
    QCOMPARE(d.replace(), 2);  // the other department and the other system's page
    QVERIFY(f.session.pages().load(far).front().find(",Rescue west,") != std::string::npos);
    QCOMPARE(f.reloads, 3);
  }

  void aReplacedValuePassesTheCellCommit() {
    test::DialogFixture f;
    const int sys = f.addSystem();
    const std::string dept = f.firstDepartment(sys);
    f.fill(dept, {"1,154.100000,A,Off", "2,460.100000,B,Off"});
    GridPage* grid = f.show(dept);
    ui::FindDialog d(f.session, f.feedback, grid, f.onChange());
    auto* find = child<QLineEdit>(&d, "txtFind");
    auto* by = child<QLineEdit>(&d, "txtReplace");
    find->setText("154.1");
    by->setText("155.123");
    QCOMPARE(d.replace(), 1);
    // 155.12300000 is read as a frequency: off every raster, down to 5 kHz.
    QCOMPARE(test::DialogFixture::cell(grid, 1, "Frequency"), std::string("155.120000"));
    QCOMPARE(test::DialogFixture::cell(grid, 2, "Frequency"), std::string("460.100000"));

    // A list column keeps only its own words.
    chooseColumn(d, "Avoid");
    find->setText("off");
    by->setText("Maybe");
    QCOMPARE(d.replace(), 0);
    QCOMPARE(test::DialogFixture::cell(grid, 1, "Avoid"), std::string("Off"));
    by->setText("On");
    QCOMPARE(d.replace(), 2);
    QCOMPARE(test::DialogFixture::cell(grid, 2, "Avoid"), std::string("On"));
  }

  void withoutAGridNothingIsSearched() {
    test::DialogFixture f;
    ui::FindDialog d(f.session, f.feedback, nullptr, f.onChange());
    d.show();
    QCOMPARE(child<QListWidget>(&d, "lstColumns")->count(), 0);
    child<QLineEdit>(&d, "txtFind")->setText("1");
    QVERIFY(d.find().empty());
    QCOMPARE(d.replace(), 0);
    QCOMPARE(f.reloads, 0);
    QVERIFY(f.feedback.messages.empty());
  }
};

QTEST_MAIN(FindDialogTest)
#include "find_dialog_test.moc"
