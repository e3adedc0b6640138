// The pictures of the bandscope and of the SDS waterfall page: a widget that paints whatever
// its renderer makes at the widget's own size (so only what is visible is ever drawn), with a
// marker line that follows the mouse and reports the pixel under it.
#pragma once

#include <QImage>
#include <QWidget>
#include <functional>

#include "scope/waterfall.h"

namespace zel::ui {

// A raster of the scope library as a QImage (a deep copy).
QImage toImage(const scope::Raster& picture);

class ScopePicture : public QWidget {
  Q_OBJECT
 public:
  explicit ScopePicture(QWidget* parent = nullptr);
  // Makes the picture for a size; called on every paint.
  void setRenderer(std::function<QImage(QSize)> render) { render_ = std::move(render); }
  // Told the pixel under the mouse and the width, or -1 when the mouse leaves.
  void setPointerHandler(std::function<void(int x, int width)> handler) {
    pointer_ = std::move(handler);
  }
  // The picture as last painted (for checks and for the saved copies).
  const QImage& lastImage() const { return last_; }
  int markerX() const { return marker_; }
  QSize sizeHint() const override { return {640, 240}; }
  QSize minimumSizeHint() const override { return {200, 80}; }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void leaveEvent(QEvent* event) override;

 private:
  std::function<QImage(QSize)> render_;
  std::function<void(int, int)> pointer_;
  QImage last_;
  int marker_ = -1;
};

}  // namespace zel::ui
