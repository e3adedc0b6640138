// The CSV mapper window: loading with the line limit and the separators, meanings chosen
// by hand and by detection, line and cell filters, the exports, and "Paste Frequencies"
// into the grid on show through the cell commit; its place kept in the "csv" section.
#include "ui/csv_mapper_dialog.h"

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QFile>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>
#include <QTableView>
#include <QTest>
#include <fstream>

#include "core/record_line.h"
#include "window_fixture.h"

using namespace zel;
using test::child;
using test::click;

class CsvMapperDialogTest : public QObject {
  Q_OBJECT

  static void write(const std::string& path, const std::string& text) {
    std::ofstream(path, std::ios::binary) << text;
  }
  static QString cell(ui::CsvMapperDialog& d, int row, int col) {
    return QString::fromStdString(d.mapper().grid().textMatrix(row, col));
  }

 private slots:
  void theLineLimitStopsTheLoadWithItsMessage() {
    test::DialogFixture f;
    ui::CsvMapperDialog d(f.session, f.feedback, nullptr, f.onChange());
    QCOMPARE(d.windowTitle(), QString("CSV Mapper: Import And Modify CSV Files .104"));
    // Where the limit lies is the mapper's (CsvLoad.TheLineLimit); a refused file empties the grid.
    QVERIFY(d.loadText("154.1,Tag\n"));
    std::string text;
    for (int i = 0; i <= 15000; ++i) text += "154.1,Tag\r\n";
    const std::string path = f.dir.file("big.csv");
    write(path, text);
    QVERIFY(!d.loadFile(QString::fromStdString(path)));
    QCOMPARE(f.feedback.messages, (std::vector<std::string>{"File too large, quiting import."}));
    QCOMPARE(d.mapper().rowCount(), 0);
    QCOMPARE(d.workGrid()->model()->rowCount(), 0);

    // A file that cannot be read leaves an empty grid and says nothing.
    QVERIFY(d.loadFile(QString::fromStdString(f.dir.file("missing.csv"))));
    QCOMPARE(d.mapper().rowCount(), 0);
    QCOMPARE(f.feedback.messages.size(), size_t(1));
  }

  void separatorsLineFiltersAndCellFilters() {
    test::DialogFixture f;
    ui::CsvMapperDialog d(f.session, f.feedback, nullptr, f.onChange());
    const QString text = "Freq;Name;Tone\n154.1;fire main;CTCSS 100.0\n\n155-22;police;off\n";
    QVERIFY(d.loadText(text));
    // How a line without the separator splits is the mapper's (CsvLines).
    QCOMPARE(cell(d, 2, 1), QString("154.1;fire"));
    child<QComboBox>(&d, "cmbSeparator")->setCurrentText("Semicolon ;");
    QVERIFY(d.loadText(text));
    QCOMPARE(cell(d, 2, 2), QString("fire main"));

    // The clipboard is read like a file, with the same separator.
    QApplication::clipboard()->setText("1;2;3;4\n5;6\n");
    click(&d, "Command6");
    QCOMPARE(d.workGrid()->model()->columnCount(), 4);
    QCOMPARE(d.meaningBox(4)->currentText(), QString("Unknown"));
    QVERIFY(d.loadText(text));

    click(&d, "cmdRemoveEmpty");
    QCOMPARE(d.mapper().rowCount(), 3);
    child<QCheckBox>(&d, "chkDash")->setChecked(true);
    click(&d, "cmdFilterLines");
    QCOMPARE(d.mapper().rowCount(), 1);
    QCOMPARE(cell(d, 1, 1), QString("155-22"));

    // The checked conditions act on a load too.
    child<QCheckBox>(&d, "chkDash")->setChecked(false);
    child<QCheckBox>(&d, "chkDigits")->setChecked(true);
    child<QSpinBox>(&d, "spnDigits")->setValue(3);
    QVERIFY(d.loadText(text));
    // The heading and the empty line hold no run of three digits.
    QCOMPARE(d.mapper().rowCount(), 2);
    QCOMPARE(cell(d, 1, 1), QString("154.1"));

    child<QCheckBox>(&d, "chkDigits")->setChecked(false);
    QVERIFY(d.loadText(text));
    child<QRadioButton>(&d, "optSingleColumn")->setChecked(true);
    child<QSpinBox>(&d, "spnColumn")->setValue(2);
    click(&d, "cmdApply");  // upper case, every row (nothing is selected)
    QCOMPARE(cell(d, 2, 2) + "|" + cell(d, 2, 3), QString("FIRE MAIN|CTCSS 100.0"));
    // "Selected Rows" with the second row selected.
    d.workGrid()->selectRow(3);
    child<QRadioButton>(&d, "optSelectedRows")->setChecked(true);
    child<QRadioButton>(&d, "optAllColumns")->setChecked(true);
    child<QRadioButton>(&d, "optReplace")->setChecked(true);
    QTest::keyClicks(child<QLineEdit>(&d, "txtReplaceFind"), "1");
    QTest::keyClicks(child<QLineEdit>(&d, "txtReplaceBy"), "I");
    click(&d, "cmdApply");
    QCOMPARE(cell(d, 4, 1) + "|" + cell(d, 2, 1), QString("I55-22|154.1"));
  }

  void meaningsTravelThroughTheClipboardIntoTheGridOnShow() {
    test::DialogFixture f;
    const int sys = f.addSystem();
    const std::string dept = f.firstDepartment(sys);
    f.fill(dept, {"1,460.000000,Works,Off"});
    GridPage* grid = f.show(dept);
    ui::CsvMapperDialog d(f.session, f.feedback, grid, f.onChange());
    d.show();
    QVERIFY(d.loadText("Frequency,Name,Skip\n154.1,Fire, Main,x\n600,Too High,y\n,Empty,z\n"));
    click(&d, "cmdAutoDetect");
    QCOMPARE(d.meaningBox(1)->currentText(), QString("Frequency (MHz)"));
    QCOMPARE(d.meaningBox(2)->currentText(), QString("Unknown"));
    d.meaningBox(2)->setCurrentText("Tag/Name");
    QCOMPARE(QString::fromStdString(d.mapper().meaning(2)), QString("Tag/Name"));

    click(&d, "cmdAddColumn");
    QCOMPARE(d.mapper().columnCount(), 5);
    QVERIFY(d.meaningBox(5) != nullptr);

    click(&d, "mnu_copy");
    const QString copied = QApplication::clipboard()->text();
    QVERIFY(copied.startsWith("Frequency\tAlpha Tag\r\n"));

    click(&d, "cmdPaste");
    QCOMPARE(f.reloads, 1);
    QVERIFY(f.session.document().changed);
    // Below the last row with a key (each value through the cell commit: CsvPaste).
    QCOMPARE(test::DialogFixture::cell(grid, 1, "Frequency") + "|" +
                 test::DialogFixture::cell(grid, 2, "Frequency"),
             std::string("460.000000|154.100000"));

    // Without a grid on show there is nothing to paste into.
    d.setGrid(nullptr);
    QVERIFY(!child<QPushButton>(&d, "cmdPaste")->isEnabled());
    QCOMPARE(d.pasteFrequencies(), 0);
  }

  void theTwoFileExports() {
    test::DialogFixture f;
    const int sys = f.addSystem();
    NodeId node = f.session.document().data.find(keys::system(sys));
    std::string line = f.session.document().data.text(node);
    for (auto [n, v] : {std::pair{2, "7"}, {3, "StateId=3"}, {6, "Main"}, {7, "Conventional"}})
      line = record::withField(line, n, v);
    f.session.document().data.setText(node, line);
    const int unused = f.addSystem();
    f.session.document().systems.markInUse(unused, false);

    ui::CsvMapperDialog d(f.session, f.feedback, nullptr, f.onChange());
    QVERIFY(d.loadText("154.1,Fire,,\n155.2,Police\n"));
    const std::string plain = f.dir.file("plain");
    QCOMPARE(d.saveCsv(QString::fromStdString(plain)), QString::fromStdString(plain + ".csv"));
    QVERIFY(test::slurp(plain + ".csv").find("\r\n155.2,Police,") != std::string::npos);

    const std::string zel = f.dir.file("systems.csv");
    QVERIFY(d.exportZelCsv(QString::fromStdString(zel)));
    QCOMPARE(test::slurp(zel),
             std::string("[ZEL CSV FILE]\r\n[FQK] Main,StateId=3,Conventional,Numtag: 7,\r\n"));
    QVERIFY(!d.exportZelCsv(QString::fromStdString(f.dir.file("no/such/folder/x.csv"))));
  }

  void thePlaceIsKeptInTheCsvSection() {
    test::DialogFixture f;
    Settings& s = f.session.settingsCodec();
    {
      ui::CsvMapperDialog d(f.session, f.feedback, nullptr, f.onChange());
      QCOMPARE(d.size(), QSize(776, 540));  // the defaults, 11640 by 8100 twips
    }
    s.put("csv", "csvleft", "1500");
    s.put("csv", "csvtop", "3000");
    s.put("csv", "csvwidth", "13500");
    s.put("csv", "csvheight", "10500");
    ui::CsvMapperDialog d(f.session, f.feedback, nullptr, f.onChange());
    QCOMPARE(d.size(), QSize(900, 700));
    QCOMPARE(d.pos(), QPoint(100, 200));
    d.show();
    // A size the layout allows, kept in twips (15 a pixel) when the window closes.
    const QSize wanted = d.minimumSizeHint().expandedTo(QSize(960, 720)) + QSize(20, 10);
    d.resize(wanted);
    d.close();
    std::string raw;
    QVERIFY(f.store.read("csv", "csvwidth", raw));
    QCOMPARE(raw, std::to_string(wanted.width() * 15) + "x");
    QVERIFY(f.store.read("csv", "csvheight", raw));
    QCOMPARE(raw, std::to_string(wanted.height() * 15) + "x");
    QVERIFY(f.store.read("csv", "csvleft", raw));
    QCOMPARE(raw, std::to_string(d.x() * 15) + "x");
  }
};

QTEST_MAIN(CsvMapperDialogTest)
#include "csv_mapper_dialog_test.moc"
