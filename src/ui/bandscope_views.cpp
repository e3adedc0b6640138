#include "ui/bandscope_views.h"

#include <QMouseEvent>
#include <QPainter>
#include <cstring>

namespace zel::ui {

static_assert(sizeof(scope::Rgb) == 3, "a raster row is packed RGB");

QImage toImage(const scope::Raster& picture) {
  if (picture.width <= 0 || picture.height <= 0) return {};
  QImage image(picture.width, picture.height, QImage::Format_RGB888);
  const std::size_t rowBytes = static_cast<std::size_t>(picture.width) * 3;
  for (int y = 0; y < picture.height; ++y) {
    std::memcpy(image.scanLine(y), &picture.pixels[static_cast<std::size_t>(y) * picture.width],
                rowBytes);
  }
  return image;
}

ScopePicture::ScopePicture(QWidget* parent) : QWidget(parent) {
  setMouseTracking(true);
  setAttribute(Qt::WA_OpaquePaintEvent);
  setCursor(Qt::CrossCursor);
}

void ScopePicture::paintEvent(QPaintEvent*) {
  QPainter p(this);
  last_ = render_ ? render_(size()) : QImage();
  p.fillRect(rect(), Qt::black);
  if (!last_.isNull()) p.drawImage(0, 0, last_);
  if (marker_ >= 0) {
    p.setPen(QPen(QColor(255, 255, 255, 160), 1, Qt::DashLine));
    p.drawLine(marker_, 0, marker_, height() - 1);
  }
}

void ScopePicture::mouseMoveEvent(QMouseEvent* event) {
  marker_ = static_cast<int>(event->position().x());
  if (pointer_) pointer_(marker_, width());
  update();
}

void ScopePicture::leaveEvent(QEvent*) {
  marker_ = -1;
  if (pointer_) pointer_(-1, width());
  update();
}

}  // namespace zel::ui
