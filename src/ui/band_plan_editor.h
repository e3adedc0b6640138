// The custom band plan of a site: the MCP node of its system that bears the site's number.
// Five groups of lower and upper edge in MHz, channel step in kHz and channel offset are
// written to the file; the record keeps a sixth that the file has no place for.
//
//   MCP,type,851.0250,854.0000,25.0,440,851.0125,868.9875,25.0,0,0,0,25.0,0,...
//            ^2 lower  ^3 upper  ^4   ^5 offset  ^6 second group ...
#pragma once

#include <QWidget>
#include <array>
#include <string>

#include "ui/pane_fields.h"

class QLineEdit;
class QPushButton;

namespace zel::ui {

class BandPlanEditor : public QWidget {
  Q_OBJECT

 public:
  static constexpr int kGroups = 5;
  static constexpr int kValues = 4;  // lower, upper, step, offset

  BandPlanEditor(Document& document, Feedback& feedback, QWidget* parent = nullptr);
  // Shows the plan of the site keyed `siteKey` ("" for none).
  void showSite(const std::string& siteKey);
  // Gives the shown site a plan of its own from the default; false when it has one.
  bool startPlan();
  // The edit of a group's value (0-based group, 0 lower, 1 upper, 2 step, 3 offset).
  QLineEdit* value(int group, int which) const { return edits_[group][which]; }
  FieldBinder& binder() { return *binder_; }
  static int fieldOf(int group, int which) { return 2 + group * kValues + which; }

 private:
  Document& document_;
  FieldBinder* binder_ = nullptr;
  std::array<std::array<QLineEdit*, kValues>, kGroups> edits_{};
  QPushButton* start_ = nullptr;
  std::string siteKey_;
};

}  // namespace zel::ui
