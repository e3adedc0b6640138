// The virtual control window's connection as a newcomer meets it, against the simulated
// scanner on a real pseudo-terminal: a typed port and Connect connect, the state line tells
// polling and the watchdog's resets, Disconnect closes the port; the keys explain themselves
// and the log's headings are readable at their first widths.
#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QProcess>
#include <QPushButton>
#include <QTableView>

#include "ui/vc_log_grid.h"
#include "ui/vc_scanner_face.h"
#include "ui/vc_window.h"
#include "window_fixture.h"

using namespace zel;

class VcConnectionTest : public QObject {
  Q_OBJECT

  struct Simulator {
    QProcess process;
    QString device;
    explicit Simulator(const QStringList& args) {
      process.start(QString(ZEL_BIN_DIR) + "/zel", QStringList{"sim", "scanner"} + args);
      if (process.waitForReadyRead(5000)) device = QString::fromUtf8(process.readLine()).trimmed();
    }
    ~Simulator() {
      process.terminate();
      if (!process.waitForFinished(2000)) process.kill();
    }
  };

  struct Fixture : test::SessionFixture {
    std::unique_ptr<ui::VirtualControlWindow> vc;
    explicit Fixture(control::Family family) {
      vc = std::make_unique<ui::VirtualControlWindow>(family, store, feedback, "");
      vc->show();
    }
    QString state() const { return vc->linkState()->text(); }
  };

 private slots:
  void connectUsesTheTypedPortAndDisconnectClosesIt() {
    Simulator sim({"--model", "BCD536HP", "--seed", "5"});
    QVERIFY(sim.device.startsWith("/dev/"));
    Fixture f(control::Family::Bcd);
    QCOMPARE(f.state(), QString("Not connected"));
    // Typed, not entered: Connect takes the text as it stands.
    f.vc->portList()->lineEdit()->setText(sim.device);
    test::click(f.vc.get(), "connect");
    QTRY_VERIFY_WITH_TIMEOUT(f.vc->control().link.repliesAccepted > 3, 5000);
    QVERIFY2(f.state().startsWith("Connected to " + sim.device + ": polling"),
             qPrintable(f.state()));
    // The restore of the saved port, half a second after opening, keeps the typed one.
    QTest::qWait(600);
    QVERIFY(f.vc->control().link.polling());

    test::click(f.vc.get(), "disconnect");
    QTRY_COMPARE(f.state(), QString("Not connected"));
    const int sent = f.vc->control().link.pollsSent;
    QTest::qWait(400);
    QCOMPARE(f.vc->control().link.pollsSent, sent);
  }

  void theStateLineCountsTheWatchdogsResets() {
    Simulator sim({"--model", "SDS200", "--silent-after", "0.5", "--silent-for", "3"});
    QVERIFY(sim.device.startsWith("/dev/"));
    Fixture f(control::Family::Sds);
    f.vc->connectTo(sim.device);
    QTRY_VERIFY_WITH_TIMEOUT(f.state().contains("the port was reset once"), 6000);
    // Once the scanner answers again, polling goes on over the reset port.
    QTRY_VERIFY_WITH_TIMEOUT(f.vc->control().link.repliesSinceReset > 3, 8000);
    QVERIFY(f.state().contains(": polling"));
  }

  // At the window's first size the SDS face has room for every line of the scanner's
  // screen, the frequency, channel, talkgroup, unit and signal lines among them.
  void theSdsFaceShowsTheWholeScreenAtItsFirstSize() {
    Simulator sim({"--model", "SDS200", "--seed", "3", "--activity", "0.9"});
    Fixture f(control::Family::Sds);
    f.vc->connectTo(sim.device);
    const auto& status = f.vc->control().status;
    QTRY_VERIFY_WITH_TIMEOUT(status.display.rows[8].text.find_first_not_of(' ') != std::string::npos,
                             8000);
    int visible = 0;
    for (const auto& row : status.display.rows) visible += row.visible ? 1 : 0;
    QCOMPARE(visible, 10);
    f.vc->grab();
    QCOMPARE(f.vc->face()->display()->rowsPainted(), visible);
  }

  void everyKeyExplainsItselfAndEveryHeadingFits() {
    for (control::Family family : {control::Family::Bcd, control::Family::Sds}) {
      Fixture f(family);
      for (const std::string& name : control::keyNames(family)) {
        QPushButton* key = f.vc->face()->key(QString::fromStdString(name));
        if (!key) continue;  // a key of the table that this face leaves out
        QVERIFY2(key->toolTip().size() > key->text().size() + 4, name.c_str());
      }
      auto* grid = f.vc->logPanel()->findChild<QTableView*>("loggrid");
      QHeaderView* header = grid->horizontalHeader();
      for (int c = 0; c < 14 && c < grid->model()->columnCount(); ++c) {
        const QString heading = grid->model()->headerData(c, Qt::Horizontal).toString();
        QVERIFY2(header->sectionSize(c) >= header->fontMetrics().horizontalAdvance(heading),
                 qPrintable(heading));
      }
    }
  }
};

QTEST_MAIN(VcConnectionTest)
#include "vc_connection_test.moc"
