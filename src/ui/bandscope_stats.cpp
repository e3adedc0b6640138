#include "ui/bandscope_stats.h"

#include <QHeaderView>

namespace zel::ui {

namespace {

// Numbers sort as numbers, dates and times as their text (they are written year first).
class StatItem : public QTreeWidgetItem {
 public:
  using QTreeWidgetItem::QTreeWidgetItem;
  bool operator<(const QTreeWidgetItem& other) const override {
    const int column = treeWidget() ? treeWidget()->sortColumn() : 0;
    bool a = false, b = false;
    const double x = text(column).toDouble(&a), y = other.text(column).toDouble(&b);
    if (a && b) return x < y;
    return text(column) < other.text(column);
  }
};

}  // namespace

const QStringList& ScopeStatsList::headers() {
  static const QStringList h{
      "Frequency:", "Hits:", "Occupancy (%):", "Occ. (%) this hour:", "Occ. (%) this day:",
      "Low:",       "High:", "Last Hit Date:", "Last Hit Time:"};
  return h;
}

ScopeStatsList::ScopeStatsList(QWidget* parent) : QTreeWidget(parent) {
  setObjectName("statistics");
  setHeaderLabels(headers());
  setRootIsDecorated(false);
  setUniformRowHeights(true);
  setAlternatingRowColors(true);
  setSortingEnabled(true);
  sortByColumn(1, Qt::DescendingOrder);
  header()->setSectionResizeMode(QHeaderView::ResizeToContents);
}

QTreeWidgetItem* ScopeStatsList::row(const std::string& key) const {
  auto it = items_.find(key);
  return it == items_.end() ? nullptr : it->second;
}

void ScopeStatsList::clearRows() {
  items_.clear();
  clear();
}

void ScopeStatsList::sync(const std::vector<scope::StatRow>& rows) {
  // Sorting once after all the texts changed, not once a text.
  setSortingEnabled(false);
  for (const scope::StatRow& r : rows) {
    QTreeWidgetItem*& item = items_[r.key];
    if (!item) {
      item = new StatItem(this);
      for (int c = 1; c < columnCount(); ++c) item->setTextAlignment(c, Qt::AlignRight);
    }
    const QString texts[] = {QString::fromLatin1(r.frequency.c_str()),
                             QString::number(r.hits),
                             QString::number(r.occupancy),
                             QString::number(r.occupancyHour),
                             QString::number(r.occupancyDay),
                             QString::number(r.low),
                             QString::number(r.high),
                             QString::fromLatin1(r.lastDate.c_str()),
                             QString::fromLatin1(r.lastTime.c_str())};
    for (int c = 0; c < 9; ++c) {
      if (item->text(c) != texts[c]) item->setText(c, texts[c]);
    }
    if (item->font(0).bold() != r.bold) {
      QFont f = item->font(0);
      f.setBold(r.bold);
      for (int c = 0; c < 9; ++c) item->setFont(c, f);
    }
  }
  setSortingEnabled(true);
}

}  // namespace zel::ui
