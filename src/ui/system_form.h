// The pane of a system: its record (SIN line) with the options its type has, and for a
// trunked system its unit IDs and, for Motorola, its fleet map.
//
//   SIN,P25 Standard,2,StateId=0,Greater Cleveland,0,,P25Standard,0,0,Auto,Ignore,Search,1,0,...
//       ^1 label          ^4 name        ^5 avoid   ^8 ID search ^9 ^10 ^11  ^12 NAC ^13 quick key
//
// Fields as the reader leaves them: 14 number tag, 15 hold time, 16 priority ID scan,
// 17 end code, 18 analog AGC, 19 digital AGC; for a conventional system 20 digital waiting
// time and 21 digital threshold mode.
#pragma once

#include <QWidget>
#include <string>

#include "grid/grid_setup.h"
#include "ui/pane_fields.h"

class QFormLayout;
class QLabel;
class QTabWidget;
class QCheckBox;

namespace zel::ui {

class FleetMapEditor;
class UnitIdGrid;

class SystemForm : public QWidget {
  Q_OBJECT

 public:
  enum class Tab { System = 0, FleetMap = 1, UnitIds = 2 };

  SystemForm(Document& document, Feedback& feedback, GridSetup setup, QWidget* parent = nullptr);
  // Shows the system keyed `key` on the given tab (a tab the system lacks shows the first).
  void showSystem(const std::string& key, Tab tab = Tab::System);
  void flush();

  FieldBinder& binder() { return *binder_; }
  QTabWidget* tabs() const { return tabs_; }
  FleetMapEditor* fleetMap() const { return fleetMap_; }
  UnitIdGrid* unitIds() const { return unitIds_; }
  // Whether the row of a field shows for the system on show.
  bool rowShown(int field) const;

 signals:
  void nameStored(const QString& key);

 private:
  void addRow(int field, const QString& label, QWidget* widget);
  void addRow(int field, QWidget* widget);
  void onStored(int field);

  Document& document_;
  Feedback& feedback_;
  FieldBinder* binder_ = nullptr;
  QTabWidget* tabs_ = nullptr;
  QFormLayout* form_ = nullptr;
  QLabel* type_ = nullptr;
  FleetMapEditor* fleetMap_ = nullptr;
  UnitIdGrid* unitIds_ = nullptr;
  std::vector<std::pair<int, QWidget*>> rows_;
  std::string key_;
};

// What a system record says of its type: conventional or trunked, and which options apply.
struct SystemTraits {
  bool trunked = false;
  bool motorola = false;
  bool p25 = false;
  std::string word;  // the type word of the file ("P25Standard")
};
SystemTraits systemTraits(std::string_view sinLine);

}  // namespace zel::ui
