// The visible tree `TreeView2`: favorites lists, systems, sites and departments by name.
// A system dragged onto a list (or anything in it) moves there; a department dragged onto a
// system (or anything in it) moves there; with Ctrl held the drop copies. The tree only
// reports the drop: the main window changes the document and shows the tree again.
#pragma once

#include <QTreeWidget>

namespace zel::ui {

class FavoritesTree : public QTreeWidget {
  Q_OBJECT
 public:
  static constexpr int kKeyRole = Qt::UserRole + 1;
  explicit FavoritesTree(QWidget* parent = nullptr);
  static QString keyOf(const QTreeWidgetItem* item);

 signals:
  void nodeDropped(const QString& sourceKey, const QString& targetKey, bool copy);

 protected:
  void dragMoveEvent(QDragMoveEvent* event) override;
  void dropEvent(QDropEvent* event) override;

 private:
  // Whether the dragged node may land on the target item.
  bool accepts(const QTreeWidgetItem* source, const QTreeWidgetItem* target) const;
};

}  // namespace zel::ui
