#include "ui/system_form.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QSpinBox>
#include <QTabWidget>
#include <QVBoxLayout>

#include "core/document.h"
#include "core/keys.h"
#include "core/record_line.h"
#include "core/tree_operations.h"
#include "formats/hpd_format.h"
#include "grid/cell_commit.h"
#include "grid/vocabulary.h"
#include "ui/fleet_map_editor.h"
#include "ui/qt_feedback.h"
#include "ui/unit_id_grid.h"

namespace zel::ui {

namespace {

// Which rows a system type shows. Fields not named here show for every system.
enum Show { All, TrunkedOnly, MotorolaOnly, P25Only, ConventionalOnly };

Show rowFor(int field) {
  switch (field) {
    case 8:
    case 9:
    case 10:
    case 16:
      return TrunkedOnly;
    case 11:
    case 17:
      return MotorolaOnly;
    case 12:
      return P25Only;
    case 20:
    case 21:
      return ConventionalOnly;
    default:
      return All;
  }
}

// Numeric system types of the system table that carry a network access code.
constexpr int kP25Standard = 5;
constexpr int kP25OneFrequency = 6;
constexpr int kP25X2Tdma = 7;
constexpr int kMotorola = 1;
constexpr int kMaxHoldTime = 255;

}  // namespace

SystemTraits systemTraits(std::string_view sinLine) {
  SystemTraits t;
  const std::string label = record::field(sinLine, 1);
  t.trunked = !label.empty() && label != "Conventional";
  if (!t.trunked) return t;
  t.word = formats::systemWordFromLabel(label);
  const int type = formats::systemKindFromWord(t.word).type;
  t.motorola = type == kMotorola;
  t.p25 = type == kP25Standard || type == kP25OneFrequency || type == kP25X2Tdma;
  return t;
}

SystemForm::SystemForm(Document& document, Feedback& feedback, GridSetup setup, QWidget* parent)
    : QWidget(parent), document_(document), feedback_(feedback) {
  setObjectName("systemForm");
  binder_ = new FieldBinder(document, feedback, this);
  auto* outer = new QVBoxLayout(this);
  outer->setContentsMargins(0, 0, 0, 0);
  tabs_ = new QTabWidget(this);
  outer->addWidget(tabs_);

  auto* page = new QWidget(tabs_);
  form_ = new QFormLayout(page);
  form_->setFieldGrowthPolicy(QFormLayout::FieldsStayAtSizeHint);
  form_->setLabelAlignment(Qt::AlignRight);
  addNameRow(form_, *binder_, 4, page);
  type_ = new QLabel(page);
  form_->addRow(tr("Type:"), type_);
  addRow(5, binder_->onOff(5, tr("Avoid this system while scanning"), rules::SwitchForm::Digits,
                           page));
  addRow(13, tr("Quick key:"), binder_->keyNumber(13, 99, "None", page));
  addRow(14, tr("Number tag:"), binder_->keyNumber(14, 999, "Off", page));
  addRow(15, tr("Hold time (s):"), binder_->number(15, 0, kMaxHoldTime, page));
  addRow(8, binder_->onOff(8, tr("ID search"), rules::SwitchForm::Digits, page));
  // The record keeps the file's "Off"; a list saved by an older build may hold "0" instead.
  std::vector<Choice> alert = choicesOf(vocab::tabel("Alert Tone"));
  if (!alert.empty()) alert.front().alias = "0";
  addRow(9, tr("Emergency alert:"), binder_->choice(9, alert, page));
  addRow(10, tr("Alert level:"), binder_->choice(10, choicesOf(vocab::tabel("Alert Level")), page));
  addRow(11, binder_->onOff(11, tr("Status bit"), rules::SwitchForm::Digits, page));
  addRow(17, tr("End code:"), binder_->choice(17, choicesOf(vocab::tabel("mot_end1")), page));
  QLineEdit* nac =
      binder_->text(12, rules::nac, tr("A NAC is Search or hexadecimal from 1 to FFF."), page);
  nac->setObjectName("nac");
  nac->setMaximumWidth(80);
  addRow(12, tr("NAC:"), nac);
  addRow(16, binder_->onOff(16, tr("Priority ID scan"), rules::SwitchForm::Digits, page));
  addRow(18, binder_->onOff(18, tr("Analog AGC"), rules::SwitchForm::Digits, page));
  addRow(19, binder_->onOff(19, tr("Digital AGC"), rules::SwitchForm::Digits, page));
  addRow(20, tr("Digital waiting time:"),
         binder_->choice(20, choicesOf(vocab::tabel("p25wait")), page));
  addRow(21, tr("Digital threshold:"),
         binder_->choice(21, choicesOf(vocab::tabel("P25_thres")), page));
  tabs_->addTab(page, tr("System"));

  fleetMap_ = new FleetMapEditor(document, feedback, tabs_);
  tabs_->addTab(fleetMap_, tr("Fleet map"));
  unitIds_ = new UnitIdGrid(document, feedback, setup, tabs_);
  tabs_->addTab(unitIds_, tr("Unit IDs"));

  connect(binder_, &FieldBinder::stored, this, &SystemForm::onStored);
  showSystem({});
}

void SystemForm::addRow(int field, const QString& label, QWidget* widget) {
  widget->setObjectName(QString("field%1").arg(field));
  form_->addRow(label, widget);
  rows_.emplace_back(field, widget);
}

void SystemForm::addRow(int field, QWidget* widget) {
  widget->setObjectName(QString("field%1").arg(field));
  form_->addRow(QString(), widget);
  rows_.emplace_back(field, widget);
}

bool SystemForm::rowShown(int field) const {
  const SystemTraits t = systemTraits(treemod::getText(document_.data, key_));
  switch (rowFor(field)) {
    case TrunkedOnly:
      return t.trunked;
    case MotorolaOnly:
      return t.motorola;
    case P25Only:
      return t.p25;
    case ConventionalOnly:
      return !key_.empty() && !t.trunked;
    case All:
      return true;
  }
  return true;
}

void SystemForm::showSystem(const std::string& key, Tab tab) {
  key_ = key;
  binder_->bind(key);
  const std::string line = treemod::getText(document_.data, key);
  const SystemTraits t = systemTraits(line);
  type_->setText(line.empty() ? QString() : fromLatin1(record::field(line, 1)));
  for (auto& [field, widget] : rows_) form_->setRowVisible(widget, rowShown(field));
  tabs_->setTabVisible(static_cast<int>(Tab::FleetMap), t.motorola);
  tabs_->setTabVisible(static_cast<int>(Tab::UnitIds), t.trunked);
  fleetMap_->showSystem(t.motorola ? key : std::string());
  unitIds_->showSystem(t.trunked ? key : std::string());
  const bool shown = (tab == Tab::FleetMap && t.motorola) || (tab == Tab::UnitIds && t.trunked);
  tabs_->setCurrentIndex(shown ? static_cast<int>(tab) : 0);
}

void SystemForm::flush() {
  binder_->flush();
  fleetMap_->binder().flush();
  unitIds_->grid()->flush();
}

void SystemForm::onStored(int field) {
  if (field != 4) return;
  const std::string name = binder_->field(4);
  const int number = keys::systemOf(key_);
  if (number > 0) document_.systems.set(number, 1, name);
  // Two trunked systems of one name confuse the scanner; the name is kept all the same.
  if (systemTraits(treemod::getText(document_.data, key_)).trunked) {
    for (NodeId sys : treemod::walkSystems(document_.data)) {
      if (document_.data.key(sys) == key_) continue;
      const std::string& other = document_.data.text(sys);
      if (systemTraits(other).trunked && record::field(other, 4) == name) {
        feedback_.message(cell::kDuplicateTrunkName);
        break;
      }
    }
  }
  emit nameStored(QString::fromStdString(key_));
}

}  // namespace zel::ui
