#include "ui/favorites_tree.h"

#include <QDropEvent>

namespace zel::ui {

FavoritesTree::FavoritesTree(QWidget* parent) : QTreeWidget(parent) {
  setDragEnabled(true);
  setAcceptDrops(true);
  setDropIndicatorShown(true);
  setDragDropMode(QAbstractItemView::DragDrop);
  setDefaultDropAction(Qt::MoveAction);
  setSelectionMode(QAbstractItemView::SingleSelection);
}

QString FavoritesTree::keyOf(const QTreeWidgetItem* item) {
  return item ? item->data(0, kKeyRole).toString() : QString();
}

bool FavoritesTree::accepts(const QTreeWidgetItem* source, const QTreeWidgetItem* target) const {
  if (!source || !target || source == target) return false;
  const QString from = keyOf(source);
  const QString to = keyOf(target);
  if (from.startsWith("SYS-")) {
    // Onto a list, or onto any node inside a list.
    for (const QTreeWidgetItem* t = target; t; t = t->parent())
      if (keyOf(t).startsWith("FAV-")) return true;
    return false;
  }
  if (from.startsWith("GRP-")) return to.startsWith("SYS-") || to.startsWith("SIT-") || to.startsWith("GRP-");
  return false;
}

void FavoritesTree::dragMoveEvent(QDragMoveEvent* event) {
  if (event->source() != this ||
      !accepts(currentItem(), itemAt(event->position().toPoint()))) {
    event->ignore();
    return;
  }
  event->setDropAction((event->modifiers() & Qt::ControlModifier) ? Qt::CopyAction
                                                                   : Qt::MoveAction);
  event->accept();
}

void FavoritesTree::dropEvent(QDropEvent* event) {
  QTreeWidgetItem* target = itemAt(event->position().toPoint());
  QTreeWidgetItem* source = currentItem();
  if (event->source() != this || !accepts(source, target)) {
    event->ignore();
    return;
  }
  const bool copy = event->modifiers() & Qt::ControlModifier;
  // The tree's own item move is not wanted: the document decides where the node goes.
  event->setDropAction(Qt::IgnoreAction);
  event->accept();
  emit nodeDropped(keyOf(source), keyOf(target), copy);
}

}  // namespace zel::ui
