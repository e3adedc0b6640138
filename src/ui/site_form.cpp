#include "ui/site_form.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QLineEdit>
#include <QSpinBox>
#include <QTabWidget>
#include <QVBoxLayout>

#include "core/document.h"
#include "core/keys.h"
#include "core/record_line.h"
#include "core/tree_operations.h"
#include "formats/hpd_line_builders.h"
#include "grid/vocabulary.h"
#include "ui/band_plan_editor.h"
#include "ui/site_frequency_grid.h"
#include "ui/system_form.h"

namespace zel::ui {

namespace {

constexpr int kEdacsNarrowWide = 2;
constexpr int kEdacsScat = 3;

// The site's own modulation list: the file takes these three words only.
std::vector<Choice> modulationChoices() {
  return {{"AUTO", "AUTO"}, {"FM", "FM"}, {"NFM", "NFM"}};
}

// The record's words with the captions the file uses for them.
std::vector<Choice> bandPlanChoices() {
  return {{"Standard", QObject::tr("Standard")},
          {"Splinter", QObject::tr("Splinter")},
          {"Custom/Rebanded", QObject::tr("Custom")}};
}

std::vector<Choice> bandwidthChoices() {
  return {{"Wide(standard)", QObject::tr("Wide")}, {"Narrow", QObject::tr("Narrow")}};
}

std::vector<Choice> shapeChoices() {
  return {{"Circle", QObject::tr("Circle")}, {"Rectangles", QObject::tr("Rectangles")}};
}

}  // namespace

SiteForm::SiteForm(Document& document, Feedback& feedback, GridSetup setup,
                   cell::FrequencyRules frequency, QWidget* parent)
    : QWidget(parent), document_(document) {
  setObjectName("siteForm");
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
  QCheckBox* avoid =
      binder_->onOff(5, tr("Avoid this site while scanning"), rules::SwitchForm::Words, page);
  avoid->setObjectName("avoid");
  form_->addRow(QString(), avoid);
  addLocationRows(form_, *binder_, 6, page);
  QComboBox* shape = binder_->choice(12, shapeChoices(), page);
  shape->setObjectName("shape");
  form_->addRow(tr("Location shape:"), shape);
  QComboBox* modulation = binder_->choice(9, modulationChoices(), page);
  modulation->setObjectName("modulation");
  form_->addRow(tr("Modulation:"), modulation);
  QComboBox* plan = binder_->choice(10, bandPlanChoices(), page);
  plan->setObjectName("bandPlanType");
  form_->addRow(tr("Band plan:"), plan);
  planRow_ = plan;
  QComboBox* width = binder_->choice(11, bandwidthChoices(), page);
  width->setObjectName("bandwidth");
  form_->addRow(tr("Bandwidth:"), width);
  widthRow_ = width;
  QCheckBox* attenuator = binder_->onOff(13, tr("Attenuator"), rules::SwitchForm::Digits, page);
  attenuator->setObjectName("attenuator");
  form_->addRow(QString(), attenuator);
  QSpinBox* quickKey = binder_->keyNumber(17, 99, "Off", page);
  quickKey->setObjectName("quickKey");
  form_->addRow(tr("Quick key:"), quickKey);
  tabs_->addTab(page, tr("Site"));

  frequencies_ = new SiteFrequencyGrid(document, feedback, setup, frequency, tabs_);
  tabs_->addTab(frequencies_, tr("Frequencies"));
  bandPlan_ = new BandPlanEditor(document, feedback, tabs_);
  tabs_->addTab(bandPlan_, tr("Band plan"));

  connect(binder_, &FieldBinder::stored, this, &SiteForm::onStored);
  showSite({});
}

bool SiteForm::bandPlanDue() const {
  const std::string line = treemod::getText(document_.data, key_);
  if (line.empty()) return false;
  const SystemTraits t =
      systemTraits(treemod::getText(document_.data, keys::system(keys::systemOf(key_))));
  return formats::bandPlanDue(line, t.word);
}

void SiteForm::updateRows() {
  const SystemTraits t =
      systemTraits(treemod::getText(document_.data, keys::system(keys::systemOf(key_))));
  const int type = formats::systemKindFromWord(t.word).type;
  // Band plans belong to Motorola and P25 sites, the bandwidth to EDACS sites.
  form_->setRowVisible(planRow_, key_.empty() || t.motorola || t.p25);
  form_->setRowVisible(widthRow_, type == kEdacsNarrowWide || type == kEdacsScat);
  tabs_->setTabVisible(static_cast<int>(Tab::BandPlan), bandPlanDue());
}

void SiteForm::showSite(const std::string& key, Tab tab) {
  key_ = key;
  binder_->bind(key);
  frequencies_->showSite(key);
  bandPlan_->showSite(key);
  updateRows();
  const bool shown = tab != Tab::BandPlan || bandPlanDue();
  tabs_->setCurrentIndex(shown ? static_cast<int>(tab) : 0);
}

void SiteForm::flush() {
  binder_->flush();
  frequencies_->flush();
  bandPlan_->binder().flush();
}

void SiteForm::onStored(int field) {
  if (field == 10) updateRows();
  if (field == 4) emit nameStored(QString::fromStdString(key_));
}

}  // namespace zel::ui
