// A grid over child nodes of the record tree: one row a child, one column a field of its
// line, found by heading. The site frequencies of a site and the unit IDs of a system are
// edited this way; each cell edit passes the cell commit of its heading (or the grid's own
// rule for that heading) and then reaches the child's line through the set-field operation.
//
//   heading     "Frequency"  "LCN"  "ColorCode"  "RAN"        site grid
//   field       1            2      3            4            of TFQ,851.900000,1,Srch
//
// A value typed into the identity column of an empty row adds a child; other cells of a
// row that has no child yet wait in the grid until it has one.
#pragma once

#include <QWidget>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "core/ports.h"
#include "grid/grid_page.h"
#include "grid/grid_setup.h"
#include "ui/grid_page_model.h"
#include "ui/pane_fields.h"

class QTableView;
class QPushButton;
class QLabel;

namespace zel {
struct Document;
}

namespace zel::ui {

// The model of a record grid: headings with a rule of the grid's own are decided here,
// the rest by the cell commit.
class RecordGridModel : public GridPageModel {
  Q_OBJECT

 public:
  RecordGridModel(Feedback& feedback, QObject* parent = nullptr);
  void setRule(const std::string& heading, FieldRule rule, QString refusal);
  bool setData(const QModelIndex& index, const QVariant& value, int role) override;

 private:
  struct OwnRule {
    FieldRule rule;
    QString refusal;
  };
  Feedback& feedback_;
  std::map<std::string, OwnRule> rules_;
};

struct RecordGridShape {
  // Builds the empty table of the grid's schema (setup_fgrid, setup_ugrid).
  std::function<bool(GridPage*, const GridSetup&)> setup;
  Schema schema = Schema::Site;  // whose "colwidth" keys the widths the user chose go to
  // Field of the child's line for each heading; headings not named are not stored.
  std::map<std::string, int> fields;
  std::string identityHeading;  // the column whose value makes a child
  std::string childPrefix;      // "TFQ-", "UDD-"
  // The key and the first line of a new child of `parentKey` ("" when no number is free).
  std::function<std::string(const Document&, const std::string& parentKey)> newKey;
  std::function<std::string(const std::string& identity)> newLine;
  // Called after a child was added, changed or removed, for trees that keep a copy.
  std::function<void(const std::string& key)> added;
  std::function<void(const std::string& key, int field, const std::string& value)> changed;
  std::function<void(const std::string& key)> removed;
  cell::FrequencyRules frequency;  // for the "Frequency" heading of the cell commit
};

class RecordGrid : public QWidget {
  Q_OBJECT

 public:
  RecordGrid(Document& document, Feedback& feedback, RecordGridShape shape, GridSetup setup,
             QWidget* parent = nullptr);

  // Shows the children of `parentKey` ("" shows an empty, disabled grid).
  void load(const std::string& parentKey);
  RecordGridModel* model() const { return model_; }
  QTableView* view() const { return view_; }
  GridPage& page() { return page_; }
  // The child key of a data row (1-based page row), "" for a row without a child.
  std::string rowKey(int pageRow) const;
  // Removes the children of the selected rows.
  void removeSelected();
  // Commits an edit that is still open in the grid.
  void flush();

 signals:
  void childrenChanged();

 private:
  void onCommitted(int row, int column, const QString& stored);
  void fillRow(int row, const std::string& line);

  Document& document_;
  Feedback& feedback_;
  RecordGridShape shape_;
  GridSetup setup_;
  GridPage page_;
  RecordGridModel* model_ = nullptr;
  QTableView* view_ = nullptr;
  QPushButton* remove_ = nullptr;
  QLabel* count_ = nullptr;
  std::string parentKey_;
  std::vector<std::string> rowKeys_;  // index = page row; [0] unused
};

}  // namespace zel::ui
