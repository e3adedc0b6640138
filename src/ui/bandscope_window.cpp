#include "ui/bandscope_window.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QCloseEvent>
#include <QComboBox>
#include <QDoubleValidator>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QSplitter>
#include <QTabWidget>
#include <QTimer>
#include <QVBoxLayout>
#include <filesystem>

#include "scope/sds_waterfall_page.h"
#include "ui/bandscope_stats.h"
#include "ui/bandscope_views.h"
#include "ui/qt_feedback.h"

namespace zel::ui {

const std::array<ScopePreset, 6>& scopePresets() {
  // Steps by the list's index: 4 "10.00", 5 "12.50", 8 "25.00"; modes 1 AM, 3 NFM.
  static const std::array<ScopePreset, 6> presets{{
      {"Airband", "118.0000", "137.0000", 8, 1},
      {"Marine VHF", "156.0000", "162.0000", 8, 3},
      {"2 m", "144.0000", "148.0000", 5, 3},
      {"70 cm", "420.0000", "450.0000", 8, 3},
      {"FRS/GMRS", "462.0000", "468.0000", 5, 3},
      {"800 MHz", "851.0000", "869.0000", 5, 3},
  }};
  return presets;
}

namespace {

constexpr int kDefaultWidth = 1280;
constexpr int kDefaultHeight = 820;

// The scope area is dark whatever the desktop's theme, so that a trace stands out.
void darken(QWidget* w) {
  QPalette p = w->palette();
  p.setColor(QPalette::Window, QColor(16, 18, 22));
  p.setColor(QPalette::WindowText, QColor(210, 220, 230));
  w->setPalette(p);
  w->setAutoFillBackground(true);
}

QLabel* scopeLabel(const QString& text, QWidget* parent, const char* name) {
  auto* l = new QLabel(text, parent);
  l->setObjectName(name);
  QFont f = l->font();
  f.setPointSizeF(f.pointSizeF() * 1.1);
  l->setFont(f);
  return l;
}

}  // namespace

BandscopeWindow::BandscopeWindow(SettingsStore& settings, Feedback& feedback,
                                 const std::string& dataFolder, QWidget* parent)
    : QMainWindow(parent), settings_(settings), feedback_(feedback), dataFolder_(dataFolder) {
  setObjectName("frm_bandscope");
  setWindowTitle("Bandscope");
  engine_ =
      std::make_unique<scope::SweepEngine>(scope::SweepPorts{port_, clock_, pump_, feedback_});
  engine_->onDraw = [this](bool ended) { drawn(ended); };

  auto* split = new QSplitter(Qt::Horizontal, this);
  auto* side = new QWidget(split);
  buildControls(side);
  split->addWidget(side);
  split->addWidget(buildScopeArea(split));
  split->setStretchFactor(1, 1);
  split->setSizes({380, 900});
  setCentralWidget(split);

  for (int i = 0; i < 3; ++i) {
    timers_[i] = new QTimer(this);
    connect(timers_[i], &QTimer::timeout, this, [this, i] { fire(i); });
  }
  resize(kDefaultWidth, kDefaultHeight);
  loadSettings();
}

BandscopeWindow::~BandscopeWindow() {
  for (QTimer* t : timers_) t->stop();
}

void BandscopeWindow::buildControls(QWidget* host) {
  auto* layout = new QVBoxLayout(host);
  layout->setContentsMargins(6, 6, 6, 6);

  auto* portBox = new QGroupBox("Scanner", host);
  auto* portRow = new QGridLayout(portBox);
  ports_ = new QComboBox(portBox);
  ports_->setObjectName("ports");
  ports_->setEditable(true);  // a path typed by name: the simulator's pseudo-terminal
  ports_->setMinimumContentsLength(14);
  auto* connectButton = new QPushButton("Connect", portBox);
  connectButton->setObjectName("connect");
  connect(connectButton, &QPushButton::clicked, this, &BandscopeWindow::connectPort);
  model_ = new QLabel(portBox);
  model_->setObjectName("model");
  portRow->addWidget(new QLabel("Port:", portBox), 0, 0);
  portRow->addWidget(ports_, 0, 1);
  portRow->addWidget(connectButton, 0, 2);
  portRow->addWidget(model_, 1, 0, 1, 3);
  layout->addWidget(portBox);

  auto* rangeBox = new QGroupBox("Range (MHz)", host);
  auto* range = new QGridLayout(rangeBox);
  startStop_ = new QRadioButton("Start/Stop", rangeBox);
  startStop_->setObjectName("Option1_0");
  centerSpan_ = new QRadioButton("Center/Span", rangeBox);
  centerSpan_->setObjectName("Option1_1");
  auto* group = new QButtonGroup(rangeBox);
  group->addButton(startStop_);
  group->addButton(centerSpan_);
  startStop_->setChecked(true);
  const char* names[] = {"Text1_2", "Text1_3", "Text1_4", "Text1_5"};
  for (int i = 0; i < 4; ++i) {
    freq_[i] = new QLineEdit(rangeBox);
    freq_[i]->setObjectName(names[i]);
    auto* v = new QDoubleValidator(0, 9999.9999, 4, freq_[i]);
    v->setLocale(QLocale::c());
    freq_[i]->setValidator(v);
  }
  range->addWidget(startStop_, 0, 0);
  range->addWidget(freq_[0], 0, 1);
  range->addWidget(freq_[1], 0, 2);
  range->addWidget(centerSpan_, 1, 0);
  range->addWidget(freq_[2], 1, 1);
  range->addWidget(freq_[3], 1, 2);
  connect(startStop_, &QRadioButton::toggled, this, [this] { centerSpanChanged(); });
  auto* presets = new QGridLayout;
  for (int i = 0; i < static_cast<int>(scopePresets().size()); ++i) {
    auto* b = new QPushButton(scopePresets()[i].caption, rangeBox);
    b->setObjectName(QString("preset%1").arg(i));
    connect(b, &QPushButton::clicked, this, [this, i] { applyPreset(i); });
    presets->addWidget(b, i / 3, i % 3);
  }
  range->addLayout(presets, 2, 0, 1, 3);
  layout->addWidget(rangeBox);

  auto* options = new QFormLayout;
  auto combo = [&](const char* name) {
    auto* c = new QComboBox(host);
    c->setObjectName(name);
    return c;
  };
  mode_ = combo("Combo1");
  for (const char* m : scope::modeList()) mode_->addItem(m);
  step_ = combo("Combo2");
  for (const auto& s : scope::stepList()) step_->addItem(s.caption);
  slot_ = combo("Combo3");
  for (int i = 0; i < 10; ++i) slot_->addItem(QString::number(i + 1), i);
  noise_ = combo("Combo5");
  noise_->addItem("Off");
  for (int d = 2; d <= 8; ++d) noise_->addItem(QString("1/%1").arg(d));
  amplify_ = combo("Combo6");
  for (int i = 0; i <= 6; ++i) amplify_->addItem(QString("x%1").arg(1 + i * 0.5, 0, 'f', 1));
  squelch_ = combo("Combo7");
  for (int i = 0; i < 20; ++i) squelch_->addItem(QString::number(i));
  squelch_->setCurrentIndex(3);  // what the search is programmed with
  connect(squelch_, &QComboBox::activated, this, [this](int i) {
    if (port_.isOpen() && !engine_->isSds()) port_.write("SQL," + std::to_string(i) + "\r");
  });
  options->addRow("Mode:", mode_);
  options->addRow("Step (kHz):", step_);
  options->addRow("Use Custom Search:", slot_);
  options->addRow("Noise Filter:", noise_);
  options->addRow("Amplify:", amplify_);
  options->addRow("SQL:", squelch_);
  layout->addLayout(options);

  const char* captions[] = {"Att On",
                            "Data Skip On",
                            "Save WaterFall",
                            "Ignore Signal Below SQ threshold",
                            "Minimum Signal Level",
                            "Log threshold"};
  auto* checks = new QGridLayout;
  for (int i = 0; i < 6; ++i) {
    check_[i] = new QCheckBox(captions[i], host);
    check_[i]->setObjectName(QString("Check%1").arg(i + 1));
  }
  checks->addWidget(check_[0], 0, 0);
  checks->addWidget(check_[1], 0, 1);
  checks->addWidget(check_[2], 1, 0);
  peakHold_ = new QCheckBox("Peak hold", host);
  peakHold_->setObjectName("peakHold");
  lowHold_ = new QCheckBox("Low hold", host);
  lowHold_->setObjectName("lowHold");
  checks->addWidget(peakHold_, 1, 1);
  checks->addWidget(lowHold_, 2, 1);
  checks->addWidget(check_[3], 3, 0, 1, 2);
  checks->addWidget(check_[4], 2, 0);
  auto* levelRow = new QHBoxLayout;
  level_ = new QScrollBar(Qt::Horizontal, host);
  level_->setObjectName("HScroll1");
  level_->setRange(0, 1023);
  level_->setValue(300);
  levelText_ = new QLabel("300", host);
  levelText_->setMinimumWidth(36);
  connect(level_, &QScrollBar::valueChanged, this,
          [this](int v) { levelText_->setText(QString::number(v)); });
  levelRow->addWidget(check_[5]);
  levelRow->addWidget(level_, 1);
  levelRow->addWidget(levelText_);
  layout->addLayout(checks);
  layout->addLayout(levelRow);
  for (QCheckBox* c : {check_[3], check_[4], peakHold_, lowHold_})
    connect(c, &QCheckBox::toggled, this, [this] { graph_->update(); });

  auto* buttons = new QHBoxLayout;
  auto* start = new QPushButton("Start/Update", host);
  start->setObjectName("Command1");
  auto* stop = new QPushButton("Stop", host);
  stop->setObjectName("Command4");
  auto* save = new QPushButton("Save/Clear Waterfall", host);
  save->setObjectName("saveWaterfall");
  connect(start, &QPushButton::clicked, this, [this] { startUpdate(); });
  connect(stop, &QPushButton::clicked, this, &BandscopeWindow::stopSweep);
  connect(save, &QPushButton::clicked, this, &BandscopeWindow::saveAndClearWaterfall);
  buttons->addWidget(start);
  buttons->addWidget(stop);
  layout->addLayout(buttons);
  layout->addWidget(save);

  auto* tabs = new QTabWidget(host);
  stats_ = new ScopeStatsList(tabs);
  stream_ = new QListWidget(tabs);
  stream_->setObjectName("List1");
  open_ = new QListWidget(tabs);
  open_->setObjectName("List2");
  tabs->addTab(stats_, "Statistics");
  tabs->addTab(stream_, "Stream");
  tabs->addTab(open_, "Squelch open");
  layout->addWidget(tabs, 1);
}

QWidget* BandscopeWindow::buildScopeArea(QWidget* parent) {
  auto* area = new QWidget(parent);
  darken(area);
  auto* layout = new QVBoxLayout(area);
  layout->setContentsMargins(6, 6, 6, 6);
  layout->setSpacing(4);

  auto* top = new QHBoxLayout;
  label9_ = scopeLabel("", area, "Label9");
  label8_ = scopeLabel("", area, "Label8");
  label8_->setStyleSheet("color: #ff6060; font-weight: bold;");
  label5_[0] = scopeLabel("", area, "Label5_0");
  label5_[1] = scopeLabel("", area, "Label5_1");
  label5_[0]->setStyleSheet("color: #ffe060; font-weight: bold;");
  marker_ = scopeLabel("", area, "marker");
  marker_->setStyleSheet("color: #80e0ff;");
  top->addWidget(label9_);
  top->addWidget(label8_);
  top->addStretch();
  top->addWidget(marker_);
  top->addSpacing(16);
  top->addWidget(label5_[0]);
  top->addWidget(label5_[1]);
  layout->addLayout(top);

  auto* split = new QSplitter(Qt::Vertical, area);
  graph_ = new ScopePicture(split);
  graph_->setObjectName("Picture4");
  graph_->setRenderer([this](QSize s) { return renderGraph(s); });
  auto* lower = new QWidget(split);
  auto* lowerLayout = new QVBoxLayout(lower);
  lowerLayout->setContentsMargins(0, 0, 0, 0);
  lowerLayout->setSpacing(2);
  auto* edges = new QHBoxLayout;
  label6_[0] = scopeLabel("", lower, "Label6_0");
  label6_[2] = scopeLabel("", lower, "Label6_2");
  label6_[1] = scopeLabel("", lower, "Label6_1");
  edges->addWidget(label6_[0]);
  edges->addStretch();
  edges->addWidget(label6_[2]);
  edges->addStretch();
  edges->addWidget(label6_[1]);
  lowerLayout->addLayout(edges);
  waterfallView_ = new ScopePicture(lower);
  waterfallView_->setObjectName("picwaterfall");
  waterfallView_->setRenderer([this](QSize s) { return renderWaterfall(s); });
  lowerLayout->addWidget(waterfallView_, 1);
  split->addWidget(graph_);
  split->addWidget(lower);
  split->setStretchFactor(0, 1);
  split->setStretchFactor(1, 1);
  layout->addWidget(split, 1);

  auto pointer = [this](int x, int width) { marker_->setText(markerText(x, width)); };
  graph_->setPointerHandler(pointer);
  waterfallView_->setPointerHandler(pointer);
  return area;
}

void BandscopeWindow::centerSpanChanged() {
  const bool centred = centerSpan_->isChecked();
  freq_[0]->setEnabled(!centred);
  freq_[1]->setEnabled(!centred);
  freq_[2]->setEnabled(centred);
  freq_[3]->setEnabled(centred);
}

void BandscopeWindow::fillPorts(const std::string& saved) {
  ports_->clear();
  for (const auto& p : port_.availablePorts()) ports_->addItem(fromLatin1(p.name));
  if (!saved.empty()) {
    int at = ports_->findText(fromLatin1(saved));
    if (at < 0) {
      ports_->addItem(fromLatin1(saved));
      at = ports_->count() - 1;
    }
    ports_->setCurrentIndex(at);
  }
}

scope::SweepRequest BandscopeWindow::request() const {
  scope::SweepRequest q;
  q.centerSpan = centerSpan_->isChecked();
  q.start = toLatin1(freq_[0]->text());
  q.stop = toLatin1(freq_[1]->text());
  q.center = toLatin1(freq_[2]->text());
  q.span = toLatin1(freq_[3]->text());
  q.stepIndex = step_->currentIndex();
  q.modeIndex = std::max(0, mode_->currentIndex());
  q.slot = slot_->currentData().toInt();
  q.attenuator = check_[0]->isChecked();
  q.noiseFilterIndex = std::max(0, noise_->currentIndex());
  q.amplifyIndex = std::max(0, amplify_->currentIndex());
  q.forceSql = check_[5]->isChecked();
  q.forceSqlLevel = level_->value();
  return q;
}

void BandscopeWindow::loadSettings() {
  const scope::ScopeSettings s = scope::ScopeSettings::load(settings_);
  const scope::SweepRequest& q = s.request;
  freq_[0]->setText(fromLatin1(q.start));
  freq_[1]->setText(fromLatin1(q.stop));
  freq_[2]->setText(fromLatin1(q.center));
  freq_[3]->setText(fromLatin1(q.span));
  (q.centerSpan ? centerSpan_ : startStop_)->setChecked(true);
  centerSpanChanged();
  mode_->setCurrentIndex(q.modeIndex);
  step_->setCurrentIndex(q.stepIndex);
  slot_->setCurrentIndex(std::clamp(s.rangeIndex, 0, slot_->count() - 1));
  noise_->setCurrentIndex(std::clamp(q.noiseFilterIndex, 0, noise_->count() - 1));
  amplify_->setCurrentIndex(std::clamp(q.amplifyIndex, 0, amplify_->count() - 1));
  check_[0]->setChecked(q.attenuator);
  check_[2]->setChecked(s.saveWaterfall);
  check_[3]->setChecked(s.chk1);
  check_[4]->setChecked(s.chk2);
  peakHold_->setChecked(s.view1);
  lowHold_->setChecked(s.view2);
  fillPorts(s.port);
  if (s.height > 0) {
    move(s.left, s.top);
    resize(width(), s.height);
  }
  // The history kept at the last stop is shown until the new sweeps push it down.
  const std::string kept = (std::filesystem::path(dataFolder_) / "waterfall.bmp").string();
  if (std::filesystem::exists(kept)) scope::readBmp(kept, reloaded_);
}

void BandscopeWindow::saveSettings() {
  scope::ScopeSettings s = scope::ScopeSettings::load(settings_);
  s.request = request();
  s.rangeIndex = slot_->currentIndex();
  s.saveWaterfall = check_[2]->isChecked();
  s.chk1 = check_[3]->isChecked();
  s.chk2 = check_[4]->isChecked();
  s.view1 = peakHold_->isChecked();
  s.view2 = lowHold_->isChecked();
  s.port = toLatin1(ports_->currentText());
  s.com = std::to_string(ports_->currentIndex());
  s.left = x();
  s.top = y();
  s.height = height();
  s.save(settings_);
}

void BandscopeWindow::closeEvent(QCloseEvent* event) {
  if (!closing_) {
    closing_ = true;
    if (engine_->state() != scope::SweepState::Stopped) stopSweep();
    saveSettings();
    if (port_.isOpen()) port_.close();
  }
  event->accept();
}

BandscopeWindow* openBandscope(QWidget* parent, SettingsStore& settings, Feedback& feedback,
                               const std::string& dataFolder) {
  auto* w = new BandscopeWindow(settings, feedback, dataFolder, parent);
  w->setAttribute(Qt::WA_DeleteOnClose);
  w->setWindowFlag(Qt::Window);
  w->show();
  return w;
}

}  // namespace zel::ui
