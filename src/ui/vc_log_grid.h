// The activity log of a virtual control window: the log grid over the 1000-row page, its
// buttons (Save Log, Clear Log, the log file, Delete Log File), the logging options and
// the site analysis controls.
#pragma once

#include <QAbstractTableModel>
#include <QWidget>
#include <functional>
#include <string>

#include "control/virtual_control.h"

class QCheckBox;
class QComboBox;
class QLabel;
class QTableView;

namespace zel::ui {

class LogPageModel : public QAbstractTableModel {
  Q_OBJECT
 public:
  LogPageModel(control::Family family, const control::LogPage& page, QObject* parent = nullptr);
  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
  void pageChanged();

 private:
  control::Family family_;
  const control::LogPage& page_;
};

class LogPanel : public QWidget {
  Q_OBJECT
 public:
  LogPanel(control::VirtualControl& vc, QWidget* parent = nullptr);
  QTableView* grid() const { return grid_; }
  LogPageModel* model() const { return model_; }
  // The page changed (a row was logged): show it.
  void pageChanged();
  // Puts the options of the controls back into the window's options (done on every change).
  void syncOptions();
  // The site analysis capture text, for the window's refresh tick.
  void refresh();
  // "Fr.Search": the owner opens the RadioReference frequency search with the frequency of
  // the selected row. Without a stored user name nothing happens.
  std::function<void(const std::string& frequency)> onFrequencySearch;
  std::function<std::string()> storedUser;

 private:
  void chooseLogFile();
  control::VirtualControl& vc_;
  LogPageModel* model_;
  QTableView* grid_;
  QCheckBox* logToFile_;
  QLabel* logFile_;
  QComboBox* action_;
  QComboBox* resumeAfter_;
  QCheckBox* logSubtones_;
  QCheckBox* debug_;
  QComboBox* report_;
  QLabel* capture_;
};

}  // namespace zel::ui
