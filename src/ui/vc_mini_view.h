// The mini view: a small window that stays on top with the three name rows of the
// scanner, its busy mark and three keys (Hold/Res, Scan, Avoid). Its place is kept under
// section "minivc".
#pragma once

#include <QWidget>
#include <functional>

#include "control/vc_state.h"
#include "core/settings.h"

class QLabel;

namespace zel::ui {

class MiniView : public QWidget {
  Q_OBJECT
 public:
  MiniView(control::Family family, const control::ScannerStatus& status, Settings& settings,
           std::function<void(const std::string&)> pressKey, QWidget* parent = nullptr);
  void refresh();

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  std::string key(const char* what) const;  // "vcsdsminileft", "vc396minitop", ...
  control::Family family_;
  const control::ScannerStatus& status_;
  Settings& settings_;
  QLabel* rows_[3];
  QLabel* busy_;
};

}  // namespace zel::ui
