// Find/Replace Data: a text looked for in one column of the department on show, and
// replaced there or in every department's page ("Current Bank" / "All Banks").
#pragma once

#include <QDialog>
#include <functional>
#include <string>
#include <vector>

#include "core/session.h"
#include "grid/grid_page.h"

class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;
class QRadioButton;

namespace zel::ui {

class FindDialog : public QDialog {
  Q_OBJECT

 public:
  // `grid` is the grid on show (null when no department is); `changed` is called after
  // the window moved the grid's cursor or changed the grid or page files, so the main
  // window can show the cursor and reload.
  FindDialog(Session& session, Feedback& feedback, GridPage* grid, std::function<void()> changed,
             QWidget* parent = nullptr);

  // The main window shows another department.
  void setGrid(GridPage* grid);

  // "Find >": the rows of the open grid that match, in order; the last stays selected.
  std::vector<int> find();
  // "Replace >": returns the cells changed. Each replaced text passes the cell commit of
  // the column (a list column keeps only a word of its list).
  int replace();

  // The chosen column's heading: "Frequency" when none is chosen.
  QString column() const;
  void setColumn(const QString& heading);

 private:
  void fillColumns();
  int replaceIn(GridPage& grid, const std::string& heading, const std::string& search,
                const std::string& by);
  void report(const QString& text);

  Session& session_;
  Feedback& feedback_;
  GridPage* grid_;
  std::function<void()> changed_;
  QLineEdit* find_ = nullptr;
  QLineEdit* replace_ = nullptr;
  QListWidget* columns_ = nullptr;
  QRadioButton* currentBank_ = nullptr;
  QRadioButton* allBanks_ = nullptr;
  QPushButton* findButton_ = nullptr;
  QPushButton* replaceButton_ = nullptr;
  QLabel* result_ = nullptr;
};

}  // namespace zel::ui
