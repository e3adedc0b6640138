#include "ui/column_width_watch.h"

#include <QEvent>
#include <QHeaderView>

namespace zel::ui {

ColumnWidthWatch::ColumnWidthWatch(QHeaderView* header) : QObject(header), header_(header) {
  header->viewport()->installEventFilter(this);
  connect(header, &QHeaderView::sectionResized, this, [this](int column, int, int size) {
    if (mouseDown_ && size > 0) emit chosen(column, size);
  });
}

bool ColumnWidthWatch::eventFilter(QObject* watched, QEvent* event) {
  if (watched == header_->viewport()) {
    switch (event->type()) {
      case QEvent::MouseButtonPress:
      case QEvent::MouseButtonDblClick:
        mouseDown_ = true;
        break;
      case QEvent::MouseButtonRelease:
        // The border follows the mouse while it moves; the release only ends the drag.
        mouseDown_ = false;
        break;
      default:
        break;
    }
  }
  return QObject::eventFilter(watched, event);
}

}  // namespace zel::ui
