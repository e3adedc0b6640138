#include "ui/vc_window.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QComboBox>
#include <QDoubleValidator>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSplitter>
#include <QTimer>
#include <QVBoxLayout>

#include "control/command_surface.h"
#include "ui/bandscope_window.h"
#include "ui/vc_log_grid.h"
#include "ui/vc_mini_view.h"
#include "ui/vc_scanner_face.h"
#include "ui/vc_sds_waterfall.h"

namespace zel::ui {

VirtualControlWindow::VirtualControlWindow(control::Family family, SettingsStore& settings,
                                           Feedback& feedback, const std::string& dataFolder,
                                           QWidget* parent)
    : QMainWindow(parent), settings_(settings), feedback_(feedback), dataFolder_(dataFolder) {
  vc_ = std::make_unique<control::VirtualControl>(
      family, control::VcPorts{port_, clock_, pump_, feedback, settings}, dataFolder);
  setWindowTitle(family == control::Family::Sds ? "ZEL536PRO for SDS series - Virtual Control"
                                                : "ZEL536PRO Virtual Control");
  vc_->load();

  auto* central = new QWidget(this);
  auto* layout = new QVBoxLayout(central);
  auto* split = new QSplitter(Qt::Horizontal, central);
  face_ = new ScannerFace(
      family, vc_->status, [this](const std::string& k) { pressKey(k); }, split);
  auto* side = new QWidget(split);
  buildControls(side);
  split->addWidget(face_);
  split->addWidget(side);
  layout->addWidget(split, 3);
  if (family == control::Family::Sds) {
    waterfall_ = new SdsWaterfallPanel(dataFolder, central);
    waterfall_->hide();
    layout->addWidget(waterfall_, 3);
    vc_->decoder.waterfallSink = [this](const std::string& line) { waterfall_->receive(line); };
  }
  log_ = new LogPanel(*vc_, central);
  layout->addWidget(log_, 2);
  setCentralWidget(central);

  vc_->link.onTitle = [this](const std::string& t) { setWindowTitle(latin1(t)); };
  vc_->logger.onLine = [this](const std::string&) { log_->pageChanged(); };
  vc_->decoder.onCloseRequested = [this] {
    // The model guard closes the window; the close runs once the parser has returned.
    QTimer::singleShot(0, this, &QWidget::close);
  };
  host_ = std::make_unique<QtTimerHost>(vc_->timers, [this](int id) { vc_->fire(id); });
  showLinkState();

  refresh_ = new QTimer(this);
  connect(refresh_, &QTimer::timeout, this, &VirtualControlWindow::refresh);
  refresh_->start(100);
  resize(980, 820);  // room for every line of the scanner's screen at a readable size
}

VirtualControlWindow::~VirtualControlWindow() {
  host_.reset();  // the QTimers stop before the bank they serve goes
}

void VirtualControlWindow::buildControls(QWidget* host) {
  auto& vc = *vc_;
  const bool sds = vc.family() == control::Family::Sds;
  auto* layout = new QVBoxLayout(host);

  auto* portRow = new QHBoxLayout;
  ports_ = new QComboBox(host);
  ports_->setObjectName("ports");
  ports_->setToolTip("The scanner's port: choose one or type its name (/dev/ttyACM0, COM3)");
  auto* connectButton = new QPushButton("Connect", host);
  connectButton->setObjectName("connect");
  auto* disconnectButton = new QPushButton("Disconnect", host);
  disconnectButton->setObjectName("disconnect");
  connectButton->setToolTip("Open the port and start polling the scanner (Enter in the port box)");
  disconnectButton->setToolTip("Stop polling and close the port");
  auto* findPorts = new QPushButton("Find Ports", host);
  findPorts->setToolTip("Keep only the ports that answer");
  portRow->addWidget(new QLabel("Port:", host));
  portRow->addWidget(ports_, 1);
  portRow->addWidget(findPorts);
  layout->addLayout(portRow);
  auto* linkRow = new QHBoxLayout;
  linkState_ = new QLabel(host);
  linkState_->setObjectName("linkState");
  linkRow->addWidget(linkState_, 1);
  linkRow->addWidget(connectButton);
  linkRow->addWidget(disconnectButton);
  layout->addLayout(linkRow);
  fillPorts();
  connect(connectButton, &QPushButton::clicked, this, &VirtualControlWindow::connectChosenPort);
  connect(disconnectButton, &QPushButton::clicked, this, [this] {
    vc_->link.disconnect();
    showLinkState();
  });
  connect(findPorts, &QPushButton::clicked, this, [this] {
    vc_->link.scanPorts(vc_->settings);
    fillPorts();
  });
  // A port typed by name (the simulator's pseudo-terminal, for one); Enter connects.
  ports_->setEditable(true);
  ports_->setInsertPolicy(QComboBox::NoInsert);  // the link keeps the list
  connect(ports_->lineEdit(), &QLineEdit::returnPressed, this,
          &VirtualControlWindow::connectChosenPort);

  modes_ = new QComboBox(host);
  for (const auto& m : control::modeList(vc.family()))
    modes_->addItem(QString::fromStdString(m.caption), m.number);
  connect(modes_, &QComboBox::activated, this, [this](int index) {
    if (port_.isOpen()) vc_->commands.selectMode(modes_->itemData(index).toInt());
  });
  volume_ = new QComboBox(host);
  squelch_ = new QComboBox(host);
  for (int i = 0; i < 20; ++i) {
    volume_->addItem(QString::number(i));
    squelch_->addItem(QString::number(i));
  }
  volume_->setCurrentIndex(vc.options.volumeIndex);
  squelch_->setCurrentIndex(vc.options.squelchIndex);
  connect(volume_, &QComboBox::activated, this, [this](int i) {
    vc_->options.volumeIndex = i;
    vc_->commands.setVolume(i);
  });
  connect(squelch_, &QComboBox::activated, this, [this](int i) {
    vc_->options.squelchIndex = i;
    vc_->commands.setSquelch(i);
  });
  modes_->setToolTip("Jump the scanner to a mode");
  volume_->setToolTip("The scanner's volume (0 to 19)");
  squelch_->setToolTip("The scanner's squelch (0 to 19)");
  auto* knobs = new QHBoxLayout;
  knobs->addWidget(new QLabel("Mode:", host));
  knobs->addWidget(modes_, 1);
  knobs->addWidget(new QLabel("Vol:", host));
  knobs->addWidget(volume_);
  knobs->addWidget(new QLabel("Sql:", host));
  knobs->addWidget(squelch_);
  layout->addLayout(knobs);

  quickHold_ = new QLineEdit(host);
  quickHold_->setPlaceholderText("Quick hold MHz (9999.9999)");
  quickHold_->setToolTip("Type a frequency in MHz and press Enter: the scanner holds on it");
  auto* validator = new QDoubleValidator(0, 9999.9999, 4, quickHold_);
  validator->setLocale(QLocale::c());
  quickHold_->setValidator(validator);
  connect(quickHold_, &QLineEdit::returnPressed, this,
          [this] { vc_->commands.quickHold(quickHold_->text().toStdString()); });
  layout->addWidget(quickHold_);

  if (sds) {
    auto* keyCode = new QLineEdit(host);
    keyCode->setPlaceholderText("Key code");
    keyCode->setToolTip("A key code of the scanner's remote protocol, sent as a key press");
    connect(keyCode, &QLineEdit::returnPressed, this,
            [this, keyCode] { vc_->commands.sendKeyCode(keyCode->text().toStdString()); });
    layout->addWidget(keyCode);
    auto* gps = new QCheckBox("Use GPS port", host);
    gps->setToolTip("The scanner is on its GPS port, which is slower: poll it less often");
    gps->setChecked(vc.options.useGpsPort);
    connect(gps, &QCheckBox::toggled, this, [this](bool on) {
      vc_->options.useGpsPort = on;
      vc_->link.useGpsPort = on;
    });
    layout->addWidget(gps);
    waterfallCheck_ = new QCheckBox("Waterfall page", host);
    waterfallCheck_->setObjectName("waterfallPage");
    waterfallCheck_->setToolTip("Show the scanner's waterfall in place of the activity log");
    connect(waterfallCheck_, &QCheckBox::toggled, this, [this](bool on) { showWaterfallPage(on); });
    layout->addWidget(waterfallCheck_);
  }
  auto* bandscope = new QPushButton("Bandscope", host);
  bandscope->setObjectName("bandscope");
  bandscope->setToolTip("Sweep a band with this scanner and show its spectrum (Ctrl+B)");
  connect(bandscope, &QPushButton::clicked, this, [this] {
    openBandscope(parentWidget() ? parentWidget() : this, settings_, feedback_, dataFolder_);
  });
  layout->addWidget(bandscope);
  auto* mini = new QPushButton("Mini View", host);
  mini->setToolTip("A small window with the display and three keys");
  connect(mini, &QPushButton::clicked, this, &VirtualControlWindow::showMiniView);
  layout->addWidget(mini);
  layout->addStretch();
}

void VirtualControlWindow::showWaterfallPage(bool on) {
  if (!waterfall_) return;
  vc_->link.waterfallPage = on;
  waterfall_->setVisible(on);
  log_->setVisible(!on);
  if (waterfallCheck_ && waterfallCheck_->isChecked() != on) waterfallCheck_->setChecked(on);
}

void VirtualControlWindow::connectTo(const QString& portName) {
  ports_->setEditText(portName);
  connectChosenPort();
}

// The port is the one typed when the box holds a text that is no entry of the list.
void VirtualControlWindow::connectChosenPort() {
  const std::string typed = ports_->currentText().trimmed().toStdString();
  const auto& entries = vc_->link.entries();
  int listed = -1;
  for (std::size_t i = 0; i < entries.size(); ++i)
    if (entries[i].text == typed) listed = static_cast<int>(i);
  if (listed >= 0) {
    vc_->link.selectIndex(listed);
  } else if (!typed.empty()) {
    vc_->link.selectPortName(typed);
  }
  fillPorts();
  vc_->link.connect();
  showLinkState();
}

void VirtualControlWindow::showLinkState() {
  const auto& link = vc_->link;
  const QString port = latin1(link.connectedPort());
  QString text;
  if (link.polling()) {
    text = QString("Connected to %1: polling, %2 replies").arg(port).arg(link.repliesAccepted);
  } else if (link.portOpen()) {
    text = QString("Connected to %1, not polling").arg(port);
  } else {
    text = "Not connected";
  }
  if (link.watchdogFirings > 0 && (link.portOpen() || link.polling()))
    text += "; no reply, the port was reset " +
            (link.watchdogFirings == 1 ? QString("once")
                                       : QString("%1 times").arg(link.watchdogFirings));
  if (linkState_->text() != text) linkState_->setText(text);
}

void VirtualControlWindow::fillPorts() {
  QSignalBlocker block(ports_);
  ports_->clear();
  for (const auto& e : vc_->link.entries()) ports_->addItem(latin1(e.text));
  ports_->setCurrentIndex(vc_->link.selectedIndex());
}

void VirtualControlWindow::pressKey(const std::string& name) {
  vc_->commands.PressKey(name);
}

void VirtualControlWindow::refresh() {
  if (ports_->count() != static_cast<int>(vc_->link.entries().size())) fillPorts();
  // The saved port is restored by a timer after load.
  if (!ports_->hasFocus() && ports_->currentIndex() != vc_->link.selectedIndex())
    ports_->setCurrentIndex(vc_->link.selectedIndex());
  showLinkState();
  face_->refresh();
  log_->refresh();
  if (waterfall_ && waterfall_->isVisible()) waterfall_->refreshBand(vc_->status);
  if (mini_) mini_->refresh();
}

void VirtualControlWindow::showMiniView() {
  if (!mini_) {
    mini_ = new MiniView(
        vc_->family(), vc_->status, vc_->settings, [this](const std::string& k) { pressKey(k); },
        this);
  }
  mini_->show();
  mini_->raise();
}

void VirtualControlWindow::keyPressEvent(QKeyEvent* event) {
  control::Keyboard key = control::Keyboard::Other;
  switch (event->key()) {
    case Qt::Key_Up:
      key = control::Keyboard::Up;
      break;
    case Qt::Key_Down:
      key = control::Keyboard::Down;
      break;
    case Qt::Key_Left:
      key = control::Keyboard::Left;
      break;
    case Qt::Key_Right:
      key = control::Keyboard::Right;
      break;
    case Qt::Key_Space:
      key = control::Keyboard::Space;
      break;
    case Qt::Key_Return:
    case Qt::Key_Enter:
      key = control::Keyboard::Enter;
      break;
    case Qt::Key_Escape:
      key = control::Keyboard::Escape;
      break;
    default:
      break;
  }
  std::string name = control::keyboardKey(key);
  if (name.empty()) {
    QMainWindow::keyPressEvent(event);
    return;
  }
  pressKey(name);
  event->accept();
}

void VirtualControlWindow::changeEvent(QEvent* event) {
  if (event->type() == QEvent::WindowStateChange && isMinimized() &&
      vc_->options.miniViewWhenMinimized)
    showMiniView();
  QMainWindow::changeEvent(event);
}

void VirtualControlWindow::closeEvent(QCloseEvent* event) {
  if (!closing_) {
    closing_ = true;
    refresh_->stop();
    log_->syncOptions();
    if (mini_) mini_->close();
    if (waterfall_) waterfall_->keepPicture();
    vc_->close();
  }
  event->accept();
}

VirtualControlWindow* openVirtualControl(QWidget* parent, SettingsStore& settings,
                                         Feedback& feedback, const std::string& dataFolder,
                                         control::Family family) {
  auto* w = new VirtualControlWindow(family, settings, feedback, dataFolder, parent);
  w->setAttribute(Qt::WA_DeleteOnClose);
  w->setWindowFlag(Qt::Window);
  w->show();
  return w;
}

}  // namespace zel::ui
