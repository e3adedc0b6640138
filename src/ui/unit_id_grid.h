// The unit IDs of a trunked system: the UDD children of its unit-ID list head, one row each,
// in the columns of the unit grid.
//
//   UID,1872000,Station 1,Off,Auto,Red,On     Unit ID  Alpha Tag  Alert Tone  Alert Level
//                                             Alert Light  Alert Pattern (x36 family)
//
// A system read from a file has its list head; a new one gets it when the user starts the
// list, so that merely looking at a system changes nothing.
#pragma once

#include "ui/record_grid.h"

class QPushButton;

namespace zel::ui {

class UnitIdGrid : public QWidget {
  Q_OBJECT

 public:
  UnitIdGrid(Document& document, Feedback& feedback, GridSetup setup, QWidget* parent = nullptr);
  // Shows the unit IDs of the system keyed `systemKey` ("" for none).
  void showSystem(const std::string& systemKey);
  RecordGrid* grid() const { return grid_; }
  // Adds the list head of the shown system ("UID,UID Editor"); false when it has one.
  bool startList();

 signals:
  void childrenChanged();

 private:
  Document& document_;
  RecordGrid* grid_ = nullptr;
  QPushButton* start_ = nullptr;
  std::string systemKey_;
};

// The key of a new unit ID of a system, or "" when it has 9999.
std::string nextUnitIdKey(const Document& document, const std::string& headKey);

}  // namespace zel::ui
