// The bandscope sweeping the simulated scanner's 2 m band through a pseudo-terminal: busy
// channels listed, graph and waterfall filled, the picture written, the settings kept; and the
// SDS window's waterfall page. With ZEL_SCREENSHOT_DIR set the windows are saved as pictures.
#include "ui/bandscope_window.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QProcess>
#include <QPushButton>
#include <QTest>
#include <cmath>

#include "scope/sds_waterfall_page.h"
#include "ui/bandscope_stats.h"
#include "ui/bandscope_views.h"
#include "ui/vc_sds_waterfall.h"
#include "ui/vc_window.h"
#include "window_fixture.h"

using namespace zel;

namespace {

struct Simulator {
  QProcess process;
  QString device;
  explicit Simulator(const QString& model) {
    process.start(QString(ZEL_BIN_DIR) + "/zel",
                  {"sim", "scanner", "--model", model, "--seed", "11"});
    if (process.waitForReadyRead(5000)) device = QString::fromUtf8(process.readLine()).trimmed();
  }
  ~Simulator() {
    process.terminate();
    if (!process.waitForFinished(2000)) process.kill();
  }
};

void screenshot(QWidget* w, const char* name) {
  const QByteArray dir = qgetenv("ZEL_SCREENSHOT_DIR");
  if (dir.isEmpty()) return;
  w->grab().save(QString::fromUtf8(dir) + "/" + name + ".png");
}

// Pixels of an image in `colour` (the trace: green the readings, yellow the live row), or
// with `other`, those not in it (the background).
int pixels(const QImage& image, QRgb colour = qRgb(0, 255, 0), bool other = false) {
  int n = 0;
  for (int y = 0; y < image.height(); ++y)
    for (int x = 0; x < image.width(); ++x) n += (image.pixel(x, y) == colour) != other;
  return n;
}

}  // namespace

class BandscopeWindowTest : public QObject {
  Q_OBJECT

  struct Fixture : test::WindowFixture {
    ui::BandscopeWindow* open() {
      if (!window->runCommand("Bandscope")) return nullptr;
      return window->findChild<ui::BandscopeWindow*>();
    }
  };

  static void connectTo(ui::BandscopeWindow* scope, const QString& device) {
    scope->portList()->lineEdit()->setText(device);
    test::click(scope, "connect");
  }

  static void setRange(ui::BandscopeWindow* scope, const char* start, const char* stop,
                       int stepIndex) {
    test::child<QLineEdit>(scope, "Text1_2")->setText(start);
    test::child<QLineEdit>(scope, "Text1_3")->setText(stop);
    test::child<QComboBox>(scope, "Combo2")->setCurrentIndex(stepIndex);
  }

 private slots:
  void sweepsTheTwoMetreBandAndWritesTheWaterfall() {
    Simulator sim("BCD536HP");
    QVERIFY2(sim.device.startsWith("/dev/"), qPrintable(sim.device));
    Fixture f;
    ui::BandscopeWindow* scope = f.open();
    QVERIFY(scope);
    QCOMPARE(scope->objectName(), QString("frm_bandscope"));
    scope->resize(1280, 820);
    connectTo(scope, sim.device);
    QTRY_VERIFY_WITH_TIMEOUT(test::child<QLabel>(scope, "model")->text().contains("BCD536HP"),
                             5000);

    setRange(scope, "144.0000", "148.0000", 5);  // 12.50 kHz: 320 steps
    test::child<QCheckBox>(scope, "Check3")->setChecked(true);
    test::click(scope, "Command1");  // the steps and label texts: the sweep engine's tests
    QCOMPARE(test::child<QLabel>(scope, "Label6_0")->text(), QString("144.0000"));
    QCOMPARE(test::child<QLabel>(scope, "Label6_1")->text(), QString("148.0000"));
    QTRY_VERIFY_WITH_TIMEOUT(scope->engine().sweepCount >= 4, 20000);
    QTest::qWait(300);  // one more tick: the list and the labels of the last sweep
    if (!qEnvironmentVariableIsEmpty("ZEL_SCREENSHOT_DIR")) {
      // A picture worth looking at: a waterfall of some height.
      QTRY_VERIFY_WITH_TIMEOUT(scope->engine().sweepCount >= 60, 90000);
      screenshot(scope, "bandscope_sweeping");
    }

    // The busy channels of the band are in the statistics list (which they are: the sweep
    // engine's tests).
    ui::ScopeStatsList* stats = scope->statistics();
    QVERIFY(stats->topLevelItemCount() > 0);
    // Sorting by hits puts the busiest first, as numbers rather than as texts.
    stats->sortByColumn(1, Qt::DescendingOrder);
    for (int i = 1; i < stats->topLevelItemCount(); ++i) {
      QVERIFY(stats->topLevelItem(i - 1)->text(1).toInt() >=
              stats->topLevelItem(i)->text(1).toInt());
    }

    // The graph carries the trace, the waterfall one row a finished sweep.
    QVERIFY(scope->waterfall().rows() >= 3);
    QCOMPARE(scope->waterfall().steps(), 320);
    scope->graph()->repaint();
    scope->waterfallView()->repaint();
    QVERIFY(pixels(scope->graph()->lastImage()) > 100);
    const QImage fall = scope->waterfallView()->lastImage();
    QCOMPARE(fall.width(), scope->waterfallView()->width());
    QVERIFY(pixels(fall, qRgb(0, 0, 40), true) > fall.width() * 3 / 2);

    // The marker names the frequency under the mouse.
    QCOMPARE(scope->markerText(400, 800), QString("Marker=146.0000"));
    QVERIFY(scope->markerText(-1, 800).isEmpty());  // the mouse left the picture
    QCOMPARE(scope->markerText(0, 800), QString("Marker=144.0000"));
    QWidget* fall4 = scope->waterfallView();
    const QPointF at(fall4->width() / 4, 10);
    QMouseEvent move(QEvent::MouseMove, at, fall4->mapToGlobal(at), Qt::NoButton, Qt::NoButton,
                     Qt::NoModifier);
    QApplication::sendEvent(fall4, &move);
    const QString marked = test::child<QLabel>(scope, "marker")->text();
    QVERIFY2(marked.startsWith("Marker=") && std::abs(marked.mid(7).toDouble() - 145.0) < 0.01,
             qPrintable(marked));

    test::click(scope, "Command4");
    QVERIFY(!scope->engine().timer1Enabled());
    const std::string bmp = scope->lastBmp(), png = scope->lastPng();
    QVERIFY2(bmp.find("/Waterfall/Waterfall_") != std::string::npos, bmp.c_str());
    QVERIFY(bmp.size() > 4 && bmp.substr(bmp.size() - 4) == ".bmp");
    QCOMPARE(png, bmp.substr(0, bmp.size() - 4) + ".png");
    QVERIFY(std::filesystem::exists(png));
    scope::Raster written;
    QVERIFY(scope::readBmp(bmp, written));
    QCOMPARE(written.height, scope->waterfall().rows());
    // "Save WaterFall" kept the history for the next open.
    const std::string kept = f.session.folders().data + "/waterfall.bmp";
    QVERIFY(std::filesystem::exists(kept));

    scope->close();
    QStringList stored;  // bc_height is kept too, its value the window's own
    for (const char* key : {"bc_step", "bc_sw", "bc_height", "usbporttext"}) {
      std::string value = "(none)";
      f.store.read("scope", key, value);
      stored << QString("%1=%2").arg(
          key, key == std::string("bc_height") && value != "(none)" ? "" : value.c_str());
    }
    QCOMPARE(stored, (QStringList{"bc_step=5x", "bc_sw=1x",
                                  "bc_height=", "usbporttext=" + sim.device + "x"}));
    QTest::qWait(50);  // the closed window is deleted

    ui::BandscopeWindow* again = f.open();
    QVERIFY(again);
    QCOMPARE(test::child<QComboBox>(again, "Combo2")->currentIndex(), 5);
    QVERIFY(test::child<QCheckBox>(again, "Check3")->isChecked());
    QCOMPARE(again->portList()->currentText(), sim.device);
    QCOMPARE(again->reloadedPicture().height, written.height);
    again->close();
  }

  void presetsFillTheRangeAndSaveClearAsksFirst() {
    Fixture f;
    ui::BandscopeWindow* scope = f.open();
    QVERIFY(scope);
    test::click(scope, "preset0");  // airband
    QCOMPARE(test::child<QLineEdit>(scope, "Text1_2")->text(), QString("118.0000"));
    QCOMPARE(test::child<QLineEdit>(scope, "Text1_3")->text(), QString("137.0000"));
    QCOMPARE(test::child<QComboBox>(scope, "Combo1")->currentText(), QString("AM"));
    QCOMPARE(test::child<QLineEdit>(scope, "Text1_4")->text(), QString("127.5000"));
    // Every preset is a range the engine takes.
    for (const ui::ScopePreset& p : ui::scopePresets()) {
      const double span = QString(p.stop).toDouble() - QString(p.start).toDouble();
      const double step = QString(scope::stepList()[p.stepIndex].caption).toDouble() / 1000;
      const int steps = static_cast<int>(span / step + 1e-6);
      QVERIFY2(steps >= 10 && steps <= 3200, p.caption);
    }
    // Stop without a sweep writes no picture. (The range checks and their messages are the
    // sweep engine's: SweepStart.RangeChecksAndTimerInterval, and zel sweep's refusals.)
    test::click(scope, "Command4");
    QVERIFY(scope->lastBmp().empty());
    f.feedback.answers.push_back(Answer::No);
    scope->saveAndClearWaterfall();
    QCOMPARE(f.feedback.questions.size(), std::size_t{1});
    QVERIFY(f.feedback.questions.back().find("Are you sue you want to clear the waterfall?") !=
            std::string::npos);
    scope->close();
  }

  void sdsWindowShowsItsWaterfallPage() {
    Simulator sim("SDS200");
    QVERIFY(sim.device.startsWith("/dev/"));
    Fixture f;
    QVERIFY(f.window->runCommand("Virtual Control SDS100 / SDS200"));
    auto* vc = f.window->findChild<ui::VirtualControlWindow*>();
    QVERIFY(vc);
    QVERIFY(vc->waterfallPanel());
    QTest::qWait(700);  // the saved port is restored after the window opens
    vc->portList()->lineEdit()->setText(sim.device);
    QTest::keyClick(vc->portList()->lineEdit(), Qt::Key_Return);
    for (QPushButton* b : vc->findChildren<QPushButton*>())
      if (b->text() == "Connect") b->click();
    QTRY_VERIFY_WITH_TIMEOUT(vc->control().status.model.find("SDS200") != std::string::npos, 5000);
    vc->control().commands.selectMode(31);  // the scanner's waterfall mode
    test::child<QCheckBox>(vc, "waterfallPage")->setChecked(true);
    ui::SdsWaterfallPanel* page = vc->waterfallPanel();
    QVERIFY(page->isVisible());
    QTRY_VERIFY_WITH_TIMEOUT(page->page().frames() >= 3, 15000);
    QTRY_COMPARE_WITH_TIMEOUT(page->labelText("Lower"), QString("Lower: 144.0000"), 5000);
    QCOMPARE(page->labelText("Span") + ", " + page->labelText("Mod"),
             QString("Span: 4.0000, Mod: NFM"));
    QVERIFY(page->labelText("maxSignal").startsWith("Max signal: "));
    QCOMPARE(page->page().bins(), 250);
    vc->resize(1100, 900);
    screenshot(vc, "sds_waterfall_page");
    // Hold Spectrum stops taking frames.
    test::child<QCheckBox>(page, "holdSpectrum")->setChecked(true);
    const int held = page->page().frames();
    QTest::qWait(800);
    QCOMPARE(page->page().frames(), held);
    vc->close();
  }

  void sdsBandscopeReadsWaterfallFrames() {
    Simulator sim("SDS100");
    QVERIFY(sim.device.startsWith("/dev/"));
    Fixture f;
    ui::BandscopeWindow* scope = f.open();
    QVERIFY(scope);
    connectTo(scope, sim.device);
    QTRY_VERIFY_WITH_TIMEOUT(test::child<QLabel>(scope, "model")->text().contains("waterfall data"),
                             5000);
    QVERIFY(scope->engine().isSds());
    setRange(scope, "144.0000", "148.0000", 5);
    test::click(scope, "Command1");
    QTRY_VERIFY_WITH_TIMEOUT(scope->waterfall().rows() >= 3, 10000);
    QCOMPARE(scope->waterfall().steps(), 250);
    scope->graph()->repaint();
    QVERIFY(pixels(scope->graph()->lastImage(), qRgb(255, 255, 0)) > 100);
    screenshot(scope, "bandscope_sds");
    test::click(scope, "Command4");
    QVERIFY(!scope->engine().timer2Enabled() && !scope->engine().timer3Enabled());
    QVERIFY(std::filesystem::exists(scope->lastPng()));
    scope->close();
  }
};

QTEST_MAIN(BandscopeWindowTest)
#include "bandscope_window_test.moc"
