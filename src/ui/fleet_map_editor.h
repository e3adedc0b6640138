// The fleet map of a Motorola system: eight blocks, each with the size code of the fleets
// it holds (0 for a block of type II radios, 1 to 14 for the type I size codes), kept in
// decimal in the system's FMP node.
//
//   FMP,0,0,0,0,0,0,0,0        all type II (the default, written to no file)
//   FMP,4,4,0,0,0,0,0,0        blocks 0 and 1 in size code 4
#pragma once

#include <QWidget>
#include <array>
#include <string>

#include "ui/pane_fields.h"

class QComboBox;
class QPushButton;
class QLabel;

namespace zel::ui {

class FleetMapEditor : public QWidget {
  Q_OBJECT

 public:
  static constexpr int kBlocks = 8;

  FleetMapEditor(Document& document, Feedback& feedback, QWidget* parent = nullptr);
  // Shows the fleet map of the system keyed `systemKey` ("" for none).
  void showSystem(const std::string& systemKey);
  // Gives the shown system a fleet map of its own, all type II; false when it has one.
  bool startFleetMap();
  QComboBox* block(int n) const { return blocks_[n]; }
  FieldBinder& binder() { return *binder_; }

 private:
  Document& document_;
  FieldBinder* binder_ = nullptr;
  std::array<QComboBox*, kBlocks> blocks_{};
  QPushButton* start_ = nullptr;
  QLabel* note_ = nullptr;
  std::string systemKey_;
};

}  // namespace zel::ui
