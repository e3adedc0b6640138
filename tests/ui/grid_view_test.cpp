// The grid over a channel or talkgroup page, driven by keys and mouse: typing, Return into a
// new row, Escape, Space, the option bar and drop list, paste, row commands, status texts.
#include "ui/grid_view.h"

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QFrame>
#include <QHeaderView>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

#include "core/memory_ports.h"
#include "grid/edit_model.h"
#include "grid/grid_setup.h"

using namespace zel;

namespace {

struct Grid {
  GridPage page;
  RecordingFeedback feedback;
  bool changed = false;
  ui::GridView view;

  explicit Grid(bool talkgroups = false) {
    GridSetup setup;
    if (talkgroups)
      setup_tgrid(&page, setup);
    else
      setup_grid(&page, setup);
    cell::CommitEnv env;
    env.feedback = &feedback;
    env.changed = &changed;
    view.setPage(&page, env, &feedback);
    view.resize(900, 400);
    view.show();
    view.setFocus();
  }
  int col(const char* heading) const { return page.findColumn(heading); }
  // Puts the cursor on a page cell (1-based) with a single-cell selection.
  void go(int row, const char* heading) {
    view.setCurrentIndex(view.gridModel()->index(row - 1, col(heading) - 1));
  }
  void selectBlock(int top, int bottom, const char* left, const char* right) {
    go(top, left);
    const auto* m = view.gridModel();
    view.selectionModel()->select(
        QItemSelection(m->index(top - 1, col(left) - 1), m->index(bottom - 1, col(right) - 1)),
        QItemSelectionModel::ClearAndSelect);
  }
  const std::string& cell(int row, const char* heading) const {
    return page.textMatrix(row, col(heading));
  }
  // The cells of a column from row `first` to `last`, joined by "|".
  std::string column(const char* heading, int first, int last) const {
    std::string out;
    for (int r = first; r <= last; ++r) out += (r > first ? "|" : "") + cell(r, heading);
    return out;
  }
  void set(int row, const char* heading, const char* text) {
    page.setTextMatrix(row, col(heading), text);
  }
  void key(Qt::Key k, Qt::KeyboardModifiers mods = Qt::NoModifier) {
    QTest::keyClick(&view, k, mods);
  }
};

}  // namespace

class GridViewTest : public QObject {
  Q_OBJECT

 private slots:
  // The popup of a talkgroup page offers both form conversions, and each rewrites the
  // talkgroups it applies to; a channel page offers neither.
  void talkgroupPopupConvertsBetweenDecimalAndAfs() {
    auto popupAction = [](ui::GridView& view, const QString& caption) -> QAction* {
      QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(20, 40),
                              view.mapToGlobal(QPoint(20, 40)));
      QApplication::sendEvent(view.viewport(), &event);
      QAction* found = nullptr;
      for (QWidget* w : QApplication::topLevelWidgets()) {
        auto* menu = qobject_cast<QMenu*>(w);
        if (!menu || !menu->isVisible()) continue;
        for (QAction* a : menu->actions()) {
          if (a->text() == caption) found = a;
        }
        menu->hide();
      }
      return found;
    };
    Grid channels;
    QVERIFY(!popupAction(channels.view, "Convert AFS"));
    Grid g(true);
    g.set(1, "Talkgroup", "699");
    QAction* toAfs = popupAction(g.view, "Convert AFS");
    QVERIFY(toAfs);
    toAfs->trigger();
    QCOMPARE(g.cell(1, "Talkgroup"), std::string("05-073"));
    QVERIFY(g.changed);
    QAction* toDecimal = popupAction(g.view, "Convert Decimal");
    QVERIFY(toDecimal);
    toDecimal->trigger();
    QCOMPARE(g.cell(1, "Talkgroup"), std::string("0699"));
  }

  void typedFrequencyIsCommittedByReturnIntoANewRow() {
    Grid g;
    g.view.setDefaultData({{"Mode", "NFM"}, {"Avoid", "Off"}});
    g.go(1, "Frequency");
    QTest::keyClicks(&g.view, "154.28");
    QVERIFY(!g.view.editBox()->isHidden());
    QCOMPARE(g.view.editBox()->text(), QString("154.28"));
    // The running form is in the cell while typing, and the row took the default data.
    QCOMPARE(g.cell(1, "Frequency"), std::string("154.280000"));
    QCOMPARE(g.cell(1, "Mode"), std::string("NFM"));
    g.key(Qt::Key_Return);
    QVERIFY(g.view.editBox()->isHidden());
    QCOMPARE(g.cell(1, "Frequency"), std::string("154.280000"));
    QCOMPARE(g.view.currentIndex().row(), 1);
    QVERIFY(g.changed);

    // Return on the last row adds one row and goes there; Down does the same.
    QSignalSpy rows(&g.view, &ui::GridView::rowsChanged);
    const int last = g.page.rows() - 1;
    g.go(last, "Frequency");
    QTest::keyClicks(&g.view, "460.5");
    g.key(Qt::Key_Return);
    QCOMPARE(g.cell(last, "Frequency"), std::string("460.500000"));
    QCOMPARE(g.page.rows(), last + 2);
    QCOMPARE(g.view.gridModel()->rowCount(), last + 1);
    QCOMPARE(g.view.currentIndex().row(), last);
    QCOMPARE(g.page.textMatrix(last + 1, 0), std::to_string(last + 1));
    g.key(Qt::Key_Down);
    QCOMPARE(g.view.gridModel()->rowCount(), last + 2);
    QCOMPARE(g.view.currentIndex().row(), last + 1);
    QCOMPARE(rows.count(), 2);
  }

  void clickingAnotherCellEndsTheEditAndKeepsTheText() {
    Grid g;
    g.go(1, "Alpha Tag");
    QTest::keyClicks(&g.view, "Dispatch");
    const QRect other = g.view.visualRect(g.view.gridModel()->index(3, g.col("Frequency") - 1));
    QTest::mouseClick(g.view.viewport(), Qt::LeftButton, {}, other.center());
    QVERIFY(g.view.editBox()->isHidden());
    QCOMPARE(g.cell(1, "Alpha Tag"), std::string("Dispatch"));
    QCOMPARE(g.view.currentIndex().row(), 3);
    // The next key goes to the clicked cell, not to the name.
    QTest::keyClicks(&g.view, "155");
    g.key(Qt::Key_Return);
    QCOMPARE(g.cell(4, "Frequency"), std::string("155.000000"));
    QCOMPARE(g.cell(1, "Alpha Tag"), std::string("Dispatch"));
    // finishEdit, as before the page is stored, closes the box and keeps the text.
    g.go(2, "Alpha Tag");
    QTest::keyClicks(&g.view, "Tac 2");
    g.view.finishEdit();
    QVERIFY(g.view.editBox()->isHidden());
    QCOMPARE(g.cell(2, "Alpha Tag"), std::string("Tac 2"));
    QCOMPARE(g.view.currentIndex().row(), 1);
  }

  void spaceAndDoubleClickToggleAnOnOffColumn() {
    Grid g;
    g.set(1, "Avoid", "Off");
    g.go(1, "Avoid");
    g.key(Qt::Key_Space);
    QCOMPARE(g.cell(1, "Avoid"), std::string("On"));
    g.key(Qt::Key_Space);
    QCOMPARE(g.cell(1, "Avoid"), std::string("Off"));
    const QRect r = g.view.visualRect(g.view.currentIndex());
    QTest::mouseDClick(g.view.viewport(), Qt::LeftButton, {}, r.center());
    QCOMPARE(g.cell(1, "Avoid"), std::string("On"));
    // Space means nothing on a free column and opens no box.
    g.go(1, "Alpha Tag");
    g.key(Qt::Key_Space);
    QVERIFY(g.view.editBox()->isHidden());
    QVERIFY(g.changed);
  }

  void optionBarAndDropListPick() {
    Grid g;
    g.set(1, "Mode", "AM");
    g.go(1, "Mode");
    g.key(Qt::Key_F2);
    QFrame* bar = g.view.optionBar();
    QVERIFY(!bar->isHidden());
    QPushButton* fm = nullptr;
    for (QPushButton* b : bar->findChildren<QPushButton*>()) {
      if (b->text() == "FM") fm = b;
    }
    QVERIFY(fm);
    QTest::mouseClick(fm, Qt::LeftButton);
    QCOMPARE(g.cell(1, "Mode"), std::string("FM"));
    QVERIFY(bar->isHidden());

    // Without a mouse: the bar starts on the cell's word; Right and Return take the next.
    g.key(Qt::Key_F2);
    g.key(Qt::Key_Right);
    g.key(Qt::Key_Return);
    QCOMPARE(g.cell(1, "Mode"), std::string("WFM"));
    // Escape closes the bar and keeps the cell.
    g.key(Qt::Key_F2);
    g.key(Qt::Key_Right);
    g.key(Qt::Key_Escape);
    QVERIFY(bar->isHidden());
    QCOMPARE(g.cell(1, "Mode"), std::string("WFM"));

    // A longer list is a drop list.
    g.go(1, "Service Type");
    g.key(Qt::Key_F2);
    QListWidget* list = g.view.dropList();
    QVERIFY(!list->isHidden());
    QVERIFY(list->count() > 10);
    g.key(Qt::Key_Down);
    g.key(Qt::Key_Down);
    const QString chosen = list->item(2)->text();
    QCOMPARE(list->currentRow(), 2);
    g.key(Qt::Key_Return);
    QCOMPARE(QString::fromLatin1(g.cell(1, "Service Type").c_str()), chosen);
    QVERIFY(list->isHidden());
  }

  void pasteGoesThroughTheCommit() {
    Grid g;
    g.set(2, "Frequency", "460.000000");
    g.go(1, "Frequency");
    QSignalSpy rows(&g.view, &ui::GridView::rowsChanged);
    const int refused = g.view.pasteText(
        "154.1\tFire, Main\tOff\tNFM\r\n"
        "abc\tPolice\tOn\tXYZ\n");
    QCOMPARE(refused, 2);
    // Letters are no frequency and a word outside the list is no mode: both cells keep theirs.
    QCOMPARE(g.column("Frequency", 1, 2) + " " + g.column("Alpha Tag", 1, 2) + " " +
                 g.column("Avoid", 1, 2) + " " + g.column("Mode", 1, 2),
             std::string("154.100000|460.000000 Fire; Main|Police Off|On NFM|"));
    QCOMPARE(rows.count(), 1);
    QVERIFY(g.changed);

    // Pasting beyond the last row grows the page.
    const int last = g.page.rows() - 1;
    g.go(last, "Frequency");
    QApplication::clipboard()->setText("151.1\n151.2\n151.3\n");
    g.key(Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(g.page.rows(), last + 3);
    QCOMPARE(g.cell(last + 2, "Frequency"), std::string("151.300000"));
    QCOMPARE(g.view.gridModel()->rowCount(), last + 2);
  }

  void copyAndCutSelection() {
    Grid g;
    g.set(1, "Frequency", "154.100000");
    g.set(1, "Alpha Tag", "Fire");
    g.set(2, "Frequency", "155.200000");
    g.set(2, "Alpha Tag", "Police");
    g.selectBlock(1, 2, "Frequency", "Alpha Tag");
    g.key(Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(QApplication::clipboard()->text(), QString("154.100000\tFire\n155.200000\tPolice\n"));
    g.selectBlock(2, 2, "Alpha Tag", "Alpha Tag");
    g.key(Qt::Key_X, Qt::ControlModifier);
    QCOMPARE(QApplication::clipboard()->text(), QString("Police\n"));
    QCOMPARE(g.cell(2, "Frequency") + "|" + g.cell(2, "Alpha Tag"), std::string("155.200000|"));
  }

  void insertDeleteSortAndFillDown() {
    Grid g;
    const char* freqs[] = {"460.000000", "154.000000", "851.000000"};
    const char* tags[] = {"A", "B", "C"};
    for (int r = 1; r <= 3; ++r) {
      g.set(r, "Frequency", freqs[r - 1]);
      g.set(r, "Alpha Tag", tags[r - 1]);
    }
    const int rows = g.page.rows();

    // A click on a heading sorts by it; empty rows stay below.
    QHeaderView* header = g.view.horizontalHeader();
    const QPoint at(header->sectionViewportPosition(g.col("Frequency") - 1) + 5, 5);
    QTest::mouseClick(header->viewport(), Qt::LeftButton, {}, at);
    QCOMPARE(g.column("Alpha Tag", 1, 4) + " " + g.cell(4, "Frequency"), std::string("B|A|C| "));
    QTest::mouseClick(header->viewport(), Qt::LeftButton, {}, at);
    QCOMPARE(g.column("Alpha Tag", 1, 3), std::string("C|A|B"));
    g.view.sortByColumn(g.col("Alpha Tag") - 1, true);
    QCOMPARE(g.cell(1, "Frequency"), std::string("460.000000"));
    for (int r = 1; r < g.page.rows(); ++r) QCOMPARE(g.page.textMatrix(r, 0), std::to_string(r));

    // Ins puts an empty row above the cursor; Ctrl+Ins below.
    g.go(2, "Alpha Tag");
    g.key(Qt::Key_Insert);
    QCOMPARE(g.page.rows(), rows + 1);
    QCOMPARE(g.column("Alpha Tag", 2, 3), std::string("|B"));
    QCOMPARE(g.page.textMatrix(4, 0), std::string("4"));
    g.go(1, "Alpha Tag");
    g.key(Qt::Key_Insert, Qt::ControlModifier);
    QCOMPARE(g.column("Alpha Tag", 1, 4), std::string("A|||B"));
    QCOMPARE(g.view.gridModel()->rowCount(), rows + 1);

    // Deleting more than one row asks first; No keeps them.
    g.selectBlock(2, 3, "Frequency", "Alpha Tag");
    g.feedback.answers = {Answer::No, Answer::Yes};
    g.key(Qt::Key_Delete, Qt::ControlModifier);
    QCOMPARE(g.page.rows(), rows + 2);
    QCOMPARE(g.feedback.questions.size(), std::size_t(1));
    g.key(Qt::Key_Delete, Qt::ControlModifier);
    QCOMPARE(g.page.rows(), rows);
    QCOMPARE(g.cell(2, "Alpha Tag") + " " + g.page.textMatrix(2, 0), std::string("B 2"));
    QCOMPARE(g.view.gridModel()->rowCount(), rows - 1);
    // One row goes without a question.
    g.go(3, "Alpha Tag");
    g.key(Qt::Key_Delete, Qt::ControlModifier);
    QCOMPARE(g.feedback.questions.size(), std::size_t(2));
    QCOMPARE(g.column("Alpha Tag", 2, 3), std::string("B|"));

    // Fill Down copies the top cell of the selection down its column.
    g.set(1, "Mode", "FM");
    g.selectBlock(1, 3, "Mode", "Mode");
    g.key(Qt::Key_D, Qt::ControlModifier);
    QCOMPARE(g.column("Mode", 1, 4), std::string("FM|FM|FM|"));
  }

  void returnRepeatsOverTheSelection() {
    Grid g;
    g.selectBlock(1, 3, "Alpha Tag", "Alpha Tag");
    QTest::keyClicks(&g.view, "Tac");
    g.key(Qt::Key_Return);
    QCOMPARE(g.column("Alpha Tag", 1, 4), std::string("Tac|Tac|Tac|"));
  }

  void copyAlphaAndAlignTextReachThePage() {
    Grid g;
    g.set(1, "Frequency", "154.100000");
    g.set(2, "Alpha Tag", "Keep");
    g.selectBlock(1, 2, "Frequency", "Frequency");
    g.view.copyAlpha();
    QCOMPARE(g.cell(1, "Alpha Tag"), std::string("154.100000"));
    QVERIFY(g.changed);
    g.view.alignText(2);
    QVERIFY(g.cell(2, "Alpha Tag") != "Keep");
  }

  void longPageKeepsOneRowHeightAndGrowsAtTheEnd() {
    Grid g;
    g.page.setRows(10001);
    for (int r = 1; r < g.page.rows(); ++r) {
      g.page.setTextMatrix(r, 0, std::to_string(r));
      g.page.setTextMatrix(r, 1, "154.100000");
    }
    g.view.setPage(&g.page, {}, &g.feedback);
    g.view.fitColumns();
    QCOMPARE(g.view.gridModel()->rowCount(), 10000);
    QCOMPARE(g.view.verticalHeader()->sectionResizeMode(0), QHeaderView::Fixed);
    g.go(1, "Frequency");
    g.key(Qt::Key_End, Qt::ControlModifier);
    QCOMPARE(g.view.currentIndex().row(), 9999);
    g.key(Qt::Key_Down);
    QCOMPARE(g.view.gridModel()->rowCount(), 10001);
    QCOMPARE(g.page.textMatrix(10001, 0), std::string("10001"));
    // A reload of the same page keeps the widths the columns were given.
    g.view.setColumnWidth(1, 77);
    g.view.gridModel()->reload();
    QCOMPARE(g.view.columnWidth(1), 77);
  }

  void statusTextFollowsTheColumn() {
    Grid g;
    QSignalSpy status(&g.view, &ui::GridView::statusText);
    for (const char* heading : {"Volume Offset", "Alpha Tag"}) {
      g.go(3, heading);
      QVERIFY(!status.isEmpty());
      QCOMPARE(status.last().first().toString().toStdString(),
               EditModel::helpText(heading));
    }
  }

  void talkgroupGridAndHiddenWorkingColumns() {
    Grid g(true);
    QCOMPARE(g.view.gridModel()->heading(0), QString("Talkgroup"));
    g.go(1, "Talkgroup");
    QTest::keyClicks(&g.view, "12a34");  // letters are refused in a talkgroup
    g.key(Qt::Key_Return);
    QCOMPARE(g.cell(1, "Talkgroup"), std::string("1234"));
    g.go(1, "AudioType");
    g.key(Qt::Key_D);
    QCOMPARE(g.cell(1, "AudioType"), std::string("Digital"));

    // A working column behind the data stays hidden, and a page of none shows nothing.
    g.page.setCols(g.page.cols() + 1);
    g.page.setTextMatrix(0, g.page.cols() - 1, "hiddensort");
    g.view.setPage(&g.page, {}, &g.feedback);
    g.view.fitColumns();
    QVERIFY(g.view.isColumnHidden(g.page.cols() - 2));
    QVERIFY(!g.view.isColumnHidden(0));
    QVERIFY(g.view.columnWidth(0) <= 260);
    g.view.setPage(nullptr, {}, nullptr);
    QCOMPARE(g.view.gridModel()->rowCount(), 0);
    QVERIFY(g.view.editModel() == nullptr);
    g.key(Qt::Key_A);  // nothing to type into, nothing breaks
  }
};

QTEST_MAIN(GridViewTest)
#include "grid_view_test.moc"
