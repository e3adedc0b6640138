// The pane of a trunked site: its record (SIT or SIF line), its frequencies, and its custom
// band plan when the plan type and the system's type call for one.
//
//   SIT,Site,SiteId=7,TrunkId=2,Simulcast,Off,41.453639,-81.705047,19.1,AUTO,Standard,
//       Wide(standard),Circle,0,400,Auto,8,Off
//   ^4 name ^5 avoid ^6-8 location ^9 modulation ^10 band plan ^11 bandwidth ^12 shape
//   ^13 attenuator "0"/"1"   ^17 quick key
#pragma once

#include <QWidget>
#include <string>

#include "grid/cell_commit_frequency.h"
#include "grid/grid_setup.h"
#include "ui/pane_fields.h"

class QFormLayout;
class QTabWidget;

namespace zel::ui {

class SiteFrequencyGrid;
class BandPlanEditor;

class SiteForm : public QWidget {
  Q_OBJECT

 public:
  enum class Tab { Site = 0, Frequencies = 1, BandPlan = 2 };

  SiteForm(Document& document, Feedback& feedback, GridSetup setup, cell::FrequencyRules frequency,
           QWidget* parent = nullptr);
  void showSite(const std::string& key, Tab tab = Tab::Site);
  void flush();

  FieldBinder& binder() { return *binder_; }
  QTabWidget* tabs() const { return tabs_; }
  SiteFrequencyGrid* frequencies() const { return frequencies_; }
  BandPlanEditor* bandPlan() const { return bandPlan_; }
  // Whether the band plan tab shows: a Custom plan in a system type that uses one.
  bool bandPlanDue() const;

 signals:
  void nameStored(const QString& key);

 private:
  void onStored(int field);
  void updateRows();

  Document& document_;
  FieldBinder* binder_ = nullptr;
  QTabWidget* tabs_ = nullptr;
  QFormLayout* form_ = nullptr;
  QWidget* planRow_ = nullptr;
  QWidget* widthRow_ = nullptr;
  SiteFrequencyGrid* frequencies_ = nullptr;
  BandPlanEditor* bandPlan_ = nullptr;
  std::string key_;
};

}  // namespace zel::ui
