// The bandscope's sweep: the port, Start/Update and Stop, the engine's timers on QTimers, the
// drawing after each tick and each finished sweep, and the pictures written to the data folder.
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPainter>
#include <QRadioButton>
#include <QScrollBar>
#include <QTimer>
#include <algorithm>
#include <filesystem>

#include "core/text.h"
#include "scope/sds_waterfall_page.h"
#include "ui/bandscope_stats.h"
#include "ui/bandscope_views.h"
#include "ui/bandscope_window.h"
#include "ui/qt_feedback.h"

namespace zel::ui {

namespace {

constexpr int kStreamLinesShown = 200;
constexpr std::size_t kCommonSteps = 250;  // the SDS frame's width

// The model and the version out of the answers to MDL and VER (each asked twice):
// "MDL,BCD536HP\rMDL,BCD536HP\rVER,Version 1.05.02\r..." -> "BCD536HP  Version 1.05.02".
QString modelLine(const std::string& answers) {
  QString model, version;
  for (const std::string& line : split(replaceAll(answers, "\n", "\r"), '\r')) {
    const std::string_view text = trimView(line);
    if (model.isEmpty() && startsWith(text, "MDL,")) model = fromLatin1(text.substr(4));
    if (version.isEmpty() && startsWith(text, "VER,")) version = fromLatin1(text.substr(4));
  }
  if (model.isEmpty() && version.isEmpty()) return fromLatin1(answers).simplified();
  return (model + "  " + version).trimmed();
}

}  // namespace

void BandscopeWindow::connectPort() {
  const std::string name = toLatin1(ports_->currentText().trimmed());
  if (name.empty()) return;
  for (QTimer* t : timers_) t->stop();
  const bool sds = engine_->OpenScannerPort(name);
  if (!port_.isOpen()) {
    model_->setText("Not connected");
    return;
  }
  QString text = modelLine(engine_->modelText());
  if (text.isEmpty()) text = "Connected, no answer to MDL";
  model_->setText(sds ? text + "  (waterfall data)" : text);
}

int BandscopeWindow::waterfallBins() const {
  return engine_->isSds() ? static_cast<int>(kCommonSteps) : engine_->realSteps;
}

bool BandscopeWindow::startUpdate() {
  if (!port_.isOpen()) connectPort();
  if (!port_.isOpen()) return false;
  for (QTimer* t : timers_) t->stop();
  if (!engine_->startUpdate(request())) {
    syncTimers();
    showLabels();
    return false;
  }
  waterfall_.Initialize(waterfallBins());
  frame_.resize(kCommonSteps + 1);
  stats_->clearRows();
  stream_->clear();
  open_->clear();
  // The search is programmed with squelch 3; another choice is sent after it.
  if (!engine_->isSds() && squelch_->currentIndex() != 3)
    port_.write("SQL," + std::to_string(squelch_->currentIndex()) + "\r");
  showLabels();
  syncTimers();
  graph_->update();
  waterfallView_->update();
  return true;
}

void BandscopeWindow::stopSweep() {
  engine_->stop();
  syncTimers();
  if (waterfall_.rows() == 0) return;
  writePictures("Waterfall_", &lastBmp_, &lastPng_);
  if (check_[2]->isChecked()) {
    // "Save WaterFall": the history is kept for the next time the window opens.
    const std::string kept = (std::filesystem::path(dataFolder_) / "waterfall.bmp").string();
    scope::writeBmp(waterfall_.render(std::clamp(waterfallBins(), 250, 2048)), kept);
  }
}

bool BandscopeWindow::writePictures(const std::string& prefix, std::string* bmp, std::string* png) {
  namespace fs = std::filesystem;
  const fs::path path =
      fs::path(dataFolder_) / scope::waterfallFileName(clock_.date(), clock_.timeOfDay(), prefix);
  std::error_code ec;
  fs::create_directories(path.parent_path(), ec);
  const scope::Raster picture = waterfall_.render(std::clamp(waterfallBins(), 250, 2048));
  fs::path pngPath = path;
  pngPath.replace_extension(".png");
  const bool ok =
      scope::writeBmp(picture, path.string()) && scope::writePng(picture, pngPath.string());
  if (!ok) {
    feedback_.message("Cannot write " + path.string() + ".");
    return false;
  }
  if (bmp) *bmp = path.string();
  if (png) *png = pngPath.string();
  return true;
}

void BandscopeWindow::saveAndClearWaterfall() {
  if (waterfall_.rows() > 0) writePictures("waterfall_saved_", nullptr, nullptr);
  if (feedback_.ask("Waterfall", "Are you sue you want to clear the waterfall?", Buttons::YesNo) !=
      Answer::Yes)
    return;
  waterfall_.clear();
  reloaded_ = {};
  waterfallView_->update();
}

void BandscopeWindow::applyPreset(int index) {
  const ScopePreset& p = scopePresets().at(static_cast<std::size_t>(index));
  startStop_->setChecked(true);
  freq_[0]->setText(p.start);
  freq_[1]->setText(p.stop);
  const double low = leadingNumber(p.start), high = leadingNumber(p.stop);
  freq_[2]->setText(QString::number((low + high) / 2, 'f', 4));
  freq_[3]->setText(QString::number(high - low, 'f', 4));
  step_->setCurrentIndex(p.stepIndex);
  mode_->setCurrentIndex(p.modeIndex);
  // A sweep running moves to the new range at once.
  if (engine_->state() != scope::SweepState::Stopped) startUpdate();
}

void BandscopeWindow::syncTimers() {
  const bool on[3] = {engine_->timer1Enabled(), engine_->timer2Enabled(), engine_->timer3Enabled()};
  const int ms[3] = {engine_->timer1IntervalMs(), scope::SweepEngine::kSdsTimerMs,
                     scope::SweepEngine::kSdsTimerMs};
  for (int i = 0; i < 3; ++i) {
    QTimer* t = timers_[i];
    if (!on[i]) {
      t->stop();
    } else if (!t->isActive() || t->interval() != ms[i]) {
      t->start(ms[i]);
    }
  }
}

void BandscopeWindow::fire(int timer) {
  switch (timer) {
    case 0:
      if (engine_->timer1Enabled()) engine_->onTimer1();
      break;
    case 1:
      if (engine_->timer2Enabled()) engine_->onTimer2();
      break;
    default:
      if (engine_->timer3Enabled()) engine_->onTimer3();
      break;
  }
  syncTimers();
}

void BandscopeWindow::drawn(bool sweepEnded) {
  if (sweepEnded) {
    if (engine_->isSds()) {
      // The frame's values sit in row 0 from element 0; the waterfall reads row 2 from 1.
      const auto& live = engine_->traces.rows[0];
      for (std::size_t i = 0; i < kCommonSteps && i < live.size(); ++i)
        frame_.rows[2][i + 1] = live[i];
      waterfall_.Paint(frame_);
    } else {
      waterfall_.Paint(engine_->traces);
    }
    waterfallView_->update();
    graph_->update();
    return;
  }
  stats_->sync(engine_->stats);
  const auto& lines = engine_->streamLines;
  const std::size_t from = lines.size() > kStreamLinesShown ? lines.size() - kStreamLinesShown : 0;
  stream_->clear();
  for (std::size_t i = from; i < lines.size(); ++i) stream_->addItem(fromLatin1(lines[i]));
  stream_->scrollToBottom();
  while (open_->count() < static_cast<int>(engine_->openLines.size()) && open_->count() < 5000)
    open_->addItem(fromLatin1(engine_->openLines[static_cast<std::size_t>(open_->count())]));
  // "Data Skip On": the graph is drawn once a sweep rather than once a tick.
  if (!check_[1]->isChecked()) graph_->update();
  showLabels();
}

void BandscopeWindow::showLabels() {
  label9_->setText(fromLatin1(engine_->label9));
  label8_->setText(fromLatin1(engine_->label8));
  label5_[0]->setText(fromLatin1(engine_->lastFrequency));
  label5_[1]->setText(engine_->lastLevel.empty() ? QString()
                                                 : "Level " + fromLatin1(engine_->lastLevel));
  for (int i = 0; i < 3; ++i) label6_[i]->setText(fromLatin1(engine_->label6[i]));
}

QString BandscopeWindow::markerText(int x, int width) const {
  if (x < 0 || width <= 0 || engine_->highFreq <= engine_->lowFreq) return {};
  const double mhz = scope::markerFrequency(x, width, engine_->lowFreq, engine_->highFreq);
  return "Marker=" + QString::fromStdString(scope::maskedMhz(mhz));
}

QImage BandscopeWindow::renderGraph(QSize size) const {
  scope::Raster picture(size.width(), size.height());
  scope::LineGraph g;
  g.background = {8, 12, 18};
  g.gridColour = {28, 48, 40};
  g.cursorColour = {90, 90, 110};
  const int points = engine_->isSds() ? static_cast<int>(kCommonSteps) : engine_->realSteps + 1;
  g.XPoints = points > 1 ? points : 1024;
  // Row 2 holds every reading with the noise filter; row 0 the open-squelch ones alone.
  unsigned rows = check_[3]->isChecked() ? 1u : 4u;
  if (engine_->isSds()) rows = 1u;  // a frame fills the live row
  if (check_[4]->isChecked()) rows |= 2u;
  if (peakHold_->isChecked()) rows |= 8u;
  if (engine_->traces.rows[0].empty()) rows = 0;
  g.Plot(picture, engine_->traces, rows,
         engine_->state() == scope::SweepState::Stopped ? -1 : engine_->cursorBin);
  if (check_[5]->isChecked()) {
    // The log threshold as a line across the graph.
    const int y = static_cast<int>(g.valueToPixelY(level_->value(), picture.height));
    scope::drawLine(picture, 0, y, picture.width - 1, y, {255, 80, 80});
  }
  return toImage(picture);
}

QImage BandscopeWindow::renderWaterfall(QSize size) const {
  QImage image(size, QImage::Format_RGB888);
  image.fill(QColor(0, 0, 40));
  QPainter p(&image);
  int y = 0;
  if (waterfall_.steps() > 0 && waterfall_.rows() > 0) {
    const QImage live = toImage(waterfall_.render(size.width(), size.height()));
    p.drawImage(0, 0, live);
    y = live.height();
  }
  if (!reloaded_.pixels.empty() && y < size.height()) {
    // The history kept from the last time continues beneath the sweeps of this one.
    const QImage kept = toImage(reloaded_);
    p.drawImage(QRect(0, y, size.width(), kept.height()), kept);
  }
  return image;
}

}  // namespace zel::ui
