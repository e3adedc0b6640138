// The bandscope's statistics list: one row a frequency that was heard, keyed "A" + bin, with
// its hits and occupancy; the rows heard in the sweep now running are bold. Sorting by any
// column compares numbers as numbers.
#pragma once

#include <QTreeWidget>
#include <string>
#include <unordered_map>
#include <vector>

#include "scope/sweep_engine.h"

namespace zel::ui {

class ScopeStatsList : public QTreeWidget {
  Q_OBJECT
 public:
  static const QStringList& headers();
  explicit ScopeStatsList(QWidget* parent = nullptr);
  // Brings the list in line with the engine's rows (new rows added, old ones updated).
  void sync(const std::vector<scope::StatRow>& rows);
  void clearRows();
  // The row of a key ("A" + bin), or nullptr.
  QTreeWidgetItem* row(const std::string& key) const;

 private:
  std::unordered_map<std::string, QTreeWidgetItem*> items_;
};

}  // namespace zel::ui
