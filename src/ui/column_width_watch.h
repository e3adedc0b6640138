// Tells a width the user chose by dragging a column border (or double-clicking it) from the
// widths a view sets itself whenever it shows a page: only the first are kept in the settings.
#pragma once

#include <QObject>

class QHeaderView;

namespace zel::ui {

class ColumnWidthWatch : public QObject {
  Q_OBJECT

 public:
  explicit ColumnWidthWatch(QHeaderView* header);

 signals:
  // A view column and its new width in pixels.
  void chosen(int column, int pixels);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QHeaderView* header_;
  bool mouseDown_ = false;  // a mouse button is down on the heading row
};

}  // namespace zel::ui
