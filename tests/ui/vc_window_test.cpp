// The BCD virtual control window opened from the main window's Scanner menu, talking to the
// simulated scanner through a real pseudo-terminal: the display fills, a key press reaches
// the scanner, and transmissions land in the activity log. (The SDS window opened from the
// menu: the bandscope window test's waterfall page; the replies it reads: control tests.)
#include "ui/vc_window.h"

#include <QComboBox>
#include <QLineEdit>
#include <QProcess>
#include <QPushButton>
#include <QTableView>
#include <QTest>

#include "ui/vc_log_grid.h"
#include "ui/vc_scanner_face.h"
#include "window_fixture.h"

using namespace zel;

class VcWindowTest : public QObject {
  Q_OBJECT

  struct Simulator {
    QProcess process;
    QString device;
    explicit Simulator(const QString& model) {
      process.start(QString(ZEL_BIN_DIR) + "/zel",
                    {"sim", "scanner", "--model", model, "--seed", "7"});
      if (process.waitForReadyRead(5000)) device = QString::fromUtf8(process.readLine()).trimmed();
    }
    ~Simulator() {
      process.terminate();
      if (!process.waitForFinished(2000)) process.kill();
    }
  };

  struct Fixture : test::WindowFixture {
    ui::VirtualControlWindow* open(const QString& caption) {
      if (!window->runCommand(caption)) return nullptr;
      return window->findChild<ui::VirtualControlWindow*>();
    }
  };

  // Enter in the port box connects to the port typed there.
  static void connectTo(ui::VirtualControlWindow* vc, const QString& device) {
    QComboBox* ports = vc->portList();
    ports->lineEdit()->setText(device);
    QTest::keyClick(ports->lineEdit(), Qt::Key_Return);
  }

 private slots:
  void bcdWindowShowsTheScannerAndLogsItsTransmissions() {
    Simulator sim("BCD536HP");
    QVERIFY2(sim.device.startsWith("/dev/"), qPrintable(sim.device));
    Fixture f;
    ui::VirtualControlWindow* vc = f.open("Virtual Control BCDx36HP / UBCD3600XLT");
    QVERIFY(vc);
    connectTo(vc, sim.device);
    QTRY_VERIFY_WITH_TIMEOUT(!vc->control().status.screenText.empty(), 5000);
    QTRY_VERIFY_WITH_TIMEOUT(vc->control().status.model.find("BCD536HP") != std::string::npos,
                             5000);
    // A key on the face goes to the scanner as a key command and is answered.
    QPushButton* hold = vc->face()->key("CHANNEL");
    QVERIFY(hold);
    hold->click();
    QTRY_VERIFY_WITH_TIMEOUT(vc->logPanel()->model()->rowCount() > 0, 20000);
    vc->close();
    // The window keeps its port for the next time.
    std::string stored;
    QVERIFY(f.store.read("vc", "comport", stored));
  }
};

QTEST_MAIN(VcWindowTest)
#include "vc_window_test.moc"
