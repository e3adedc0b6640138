#include "ui/vc_sds_waterfall.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QScrollBar>
#include <QSplitter>
#include <QVBoxLayout>
#include <filesystem>

#include "ui/bandscope_views.h"
#include "ui/qt_feedback.h"

namespace zel::ui {

namespace {

const char* const kBandNames[] = {"Lower", "Center", "Upper", "Span", "Step", "Mod", "MF", "Gain"};

std::string picturePath(const std::string& folder) {
  return (std::filesystem::path(folder) / scope::SdsWaterfallPage::kPictureName).string();
}

}  // namespace

SdsWaterfallPanel::SdsWaterfallPanel(const std::string& dataFolder, QWidget* parent)
    : QWidget(parent), dataFolder_(dataFolder) {
  setObjectName("sdsWaterfall");
  QPalette pal = palette();
  pal.setColor(QPalette::Window, QColor(16, 18, 22));
  pal.setColor(QPalette::WindowText, QColor(210, 220, 230));
  setPalette(pal);
  setAutoFillBackground(true);

  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(4, 4, 4, 4);
  auto* controls = new QHBoxLayout;
  hold_ = new QCheckBox("Hold Spectrum", this);
  hold_->setObjectName("holdSpectrum");
  connect(hold_, &QCheckBox::toggled, this, [this](bool on) { page_.holdSpectrum = on; });
  depth_ = new QScrollBar(Qt::Horizontal, this);
  depth_->setObjectName("HScroll2_2");
  depth_->setRange(1, scope::SdsWaterfallPage::kMaxDepth);
  depth_->setPageStep(1);
  depth_->setMinimumWidth(100);
  depthText_ = new QLabel("1", this);
  connect(depth_, &QScrollBar::valueChanged, this, [this](int v) {
    page_.setDepth(v);
    depthText_->setText(QString::number(v));
    graph_->update();
  });
  save_ = new QCheckBox("Save WaterFall", this);
  save_->setObjectName("saveWaterfallSds");
  controls->addWidget(hold_);
  controls->addSpacing(12);
  controls->addWidget(new QLabel("Average:", this));
  controls->addWidget(depth_);
  controls->addWidget(depthText_);
  controls->addSpacing(12);
  controls->addWidget(save_);
  controls->addStretch();
  layout->addLayout(controls);

  auto* labels = new QGridLayout;
  for (int i = 0; i < 8; ++i) {
    band_[i] = new QLabel(QString(kBandNames[i]) + ":", this);
    band_[i]->setObjectName(kBandNames[i]);
    labels->addWidget(band_[i], i / 4, i % 4);
  }
  layout->addLayout(labels);
  auto* readout = new QHBoxLayout;
  maxSignal_ = new QLabel("Max signal:", this);
  maxSignal_->setObjectName("maxSignal");
  maxSignal_->setStyleSheet("color: #ffe060; font-weight: bold;");
  pointer_ = new QLabel(this);
  pointer_->setObjectName("pointer");
  pointer_->setStyleSheet("color: #80e0ff;");
  readout->addWidget(maxSignal_);
  readout->addStretch();
  readout->addWidget(pointer_);
  layout->addLayout(readout);

  auto* split = new QSplitter(Qt::Vertical, this);
  graph_ = new ScopePicture(split);
  graph_->setObjectName("sdsGraph");
  graph_->setRenderer([this](QSize s) { return renderGraph(s); });
  waterfall_ = new ScopePicture(split);
  waterfall_->setObjectName("sdsWaterfallPicture");
  waterfall_->setRenderer([this](QSize s) { return renderWaterfall(s); });
  split->addWidget(graph_);
  split->addWidget(waterfall_);
  split->setSizes({200, 200});
  layout->addWidget(split, 1);
  auto pointer = [this](int x, int width) { pointerAt(x, width); };
  graph_->setPointerHandler(pointer);
  waterfall_->setPointerHandler(pointer);

  const std::string kept = picturePath(dataFolder_);
  if (std::filesystem::exists(kept)) {
    scope::readBmp(kept, reloaded_);
    save_->setChecked(true);
  }
}

void SdsWaterfallPanel::receive(const std::string& line) {
  if (!page_.receive(line)) return;
  maxSignal_->setText(fromLatin1(page_.maxSignalText()));
  graph_->update();
  waterfall_->update();
}

void SdsWaterfallPanel::refreshBand(const control::ScannerStatus& status) {
  const scope::SdsWaterfallBand band = scope::SdsWaterfallBand::fromStatus(
      status.waterfallBand, status.waterfallExtra, status.waterfallSettings);
  if (band == page_.band()) return;
  page_.setBand(band);
  const std::string* texts[] = {&band.lower, &band.center, &band.upper, &band.span,
                                &band.step,  &band.mod,    &band.mf,    &band.gain};
  for (int i = 0; i < 8; ++i)
    band_[i]->setText(QString(kBandNames[i]) + ": " + fromLatin1(*texts[i]));
}

void SdsWaterfallPanel::keepPicture() {
  if (!save_->isChecked() || page_.waterfall().rows() == 0) return;
  scope::writeBmp(page_.waterfall().render(500), picturePath(dataFolder_));
}

QString SdsWaterfallPanel::labelText(const QString& name) const {
  if (name == "maxSignal") return maxSignal_->text();
  if (name == "pointer") return pointer_->text();
  for (int i = 0; i < 8; ++i)
    if (name == kBandNames[i]) return band_[i]->text();
  return {};
}

void SdsWaterfallPanel::pointerAt(int x, int width) {
  pointer_->setText(x < 0 ? QString() : fromLatin1(page_.pointerText(x, width)));
}

QImage SdsWaterfallPanel::renderGraph(QSize size) const {
  scope::Raster picture(size.width(), size.height());
  scope::LineGraph g;
  g.background = {8, 12, 18};
  g.gridColour = {28, 48, 40};
  g.XPoints = page_.bins() > 0 ? page_.bins() + 1 : 251;
  g.Plot(picture, page_.traces(), page_.bins() > 0 ? 4u : 0u, page_.maxBin() + 1);
  return toImage(picture);
}

QImage SdsWaterfallPanel::renderWaterfall(QSize size) const {
  QImage image(size, QImage::Format_RGB888);
  image.fill(QColor(0, 0, 40));
  QPainter p(&image);
  int y = 0;
  if (page_.waterfall().rows() > 0) {
    const QImage live = toImage(page_.waterfall().render(size.width(), size.height()));
    p.drawImage(0, 0, live);
    y = live.height();
  }
  if (!reloaded_.pixels.empty() && y < size.height()) {
    const QImage kept = toImage(reloaded_);
    p.drawImage(QRect(0, y, size.width(), kept.height()), kept);
  }
  return image;
}

}  // namespace zel::ui
