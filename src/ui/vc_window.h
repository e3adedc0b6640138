// The virtual control window of either scanner family: the port choice and Connect, the
// scanner face, the modes, volume and squelch lists, quick hold, and the activity log. The
// state machines are the control library's; QTimers run them through the timer host.
//
// The lead window opens it with openVirtualControl() from its Scanner menu.
#pragma once

#include <QMainWindow>
#include <memory>
#include <string>

#include "control/virtual_control.h"
#include "core/memory_ports.h"
#include "core/ports.h"
#include "platform/qt_serial_port.h"
#include "platform/qt_timer_host.h"

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QTimer;

namespace zel::ui {

class LogPanel;
class MiniView;
class ScannerFace;
class SdsWaterfallPanel;

class VirtualControlWindow : public QMainWindow {
  Q_OBJECT
 public:
  VirtualControlWindow(control::Family family, SettingsStore& settings, Feedback& feedback,
                       const std::string& dataFolder, QWidget* parent = nullptr);
  ~VirtualControlWindow() override;

  control::VirtualControl& control() { return *vc_; }
  ScannerFace* face() const { return face_; }
  LogPanel* logPanel() const { return log_; }
  QComboBox* portList() const { return ports_; }
  // Chooses a port by name (as if typed) and connects to it.
  void connectTo(const QString& portName);
  // The line under the port: not connected, connecting, polling and the watchdog's resets.
  QLabel* linkState() const { return linkState_; }
  // The SDS window's waterfall page (nullptr in the other family).
  SdsWaterfallPanel* waterfallPanel() const { return waterfall_; }
  void showWaterfallPage(bool on);
  void showMiniView();
  // Repaints everything from the decoded state (the refresh tick does it 10 times a second).
  void refresh();

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void buildControls(QWidget* host);
  void fillPorts();
  void connectChosenPort();
  void showLinkState();
  void pressKey(const std::string& name);

  SettingsStore& settings_;
  Feedback& feedback_;
  std::string dataFolder_;
  QtSerialPort port_;
  SystemClock clock_;
  QtEventPump pump_;
  std::unique_ptr<control::VirtualControl> vc_;
  std::unique_ptr<QtTimerHost> host_;
  ScannerFace* face_ = nullptr;
  LogPanel* log_ = nullptr;
  MiniView* mini_ = nullptr;
  QComboBox* ports_ = nullptr;
  QLabel* linkState_ = nullptr;
  QComboBox* modes_ = nullptr;
  QComboBox* volume_ = nullptr;
  QComboBox* squelch_ = nullptr;
  QLineEdit* quickHold_ = nullptr;
  QTimer* refresh_ = nullptr;
  SdsWaterfallPanel* waterfall_ = nullptr;
  QCheckBox* waterfallCheck_ = nullptr;
  bool closing_ = false;
};

// Opens a virtual control window for a family (deleted when it is closed).
VirtualControlWindow* openVirtualControl(QWidget* parent, SettingsStore& settings,
                                         Feedback& feedback, const std::string& dataFolder,
                                         control::Family family);

}  // namespace zel::ui
