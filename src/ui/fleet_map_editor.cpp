#include "ui/fleet_map_editor.h"

#include <QComboBox>
#include <QFormLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "core/document.h"
#include "core/keys.h"
#include "formats/hpd_format.h"

namespace zel::ui {

namespace {
constexpr int kSizeCodes = 14;

std::vector<Choice> blockChoices() {
  std::vector<Choice> out;
  out.push_back({"0", QObject::tr("Type II")});
  for (int code = 1; code <= kSizeCodes; ++code) {
    out.push_back({std::to_string(code), QObject::tr("Size code S%1").arg(code)});
  }
  return out;
}
}  // namespace

FleetMapEditor::FleetMapEditor(Document& document, Feedback& feedback, QWidget* parent)
    : QWidget(parent), document_(document) {
  setObjectName("fleetMapEditor");
  binder_ = new FieldBinder(document, feedback, this);
  auto* layout = new QVBoxLayout(this);
  note_ = new QLabel(tr("Each block of the fleet map holds type II radios or type I fleets of "
                        "one size code. A map of all type II blocks is the default and is "
                        "not written to the file."),
                     this);
  note_->setWordWrap(true);
  layout->addWidget(note_);
  start_ = new QPushButton(tr("Give this system its own fleet map"), this);
  start_->setObjectName("startFleetMap");
  layout->addWidget(start_, 0, Qt::AlignLeft);
  auto* form = new QFormLayout;
  form->setFieldGrowthPolicy(QFormLayout::FieldsStayAtSizeHint);
  const std::vector<Choice> choices = blockChoices();
  for (int n = 0; n < kBlocks; ++n) {
    blocks_[n] = binder_->choice(n + 1, choices, this);
    blocks_[n]->setObjectName(QString("block%1").arg(n));
    form->addRow(tr("Block %1:").arg(n), blocks_[n]);
  }
  layout->addLayout(form);
  layout->addStretch(1);
  connect(start_, &QPushButton::clicked, this, [this] { startFleetMap(); });
  showSystem({});
}

void FleetMapEditor::showSystem(const std::string& systemKey) {
  systemKey_ = systemKey;
  const int system = keys::systemOf(systemKey);
  const std::string key = system > 0 ? keys::fleetMap(system) : std::string();
  const bool has = !key.empty() && document_.data.contains(key);
  start_->setVisible(system > 0 && !has);
  binder_->bind(has ? key : std::string());
}

bool FleetMapEditor::startFleetMap() {
  const int system = keys::systemOf(systemKey_);
  if (system <= 0 || !document_.data.contains(systemKey_)) return false;
  const std::string key = keys::fleetMap(system);
  if (document_.data.contains(key)) return false;
  if (document_.data.add(systemKey_, key, formats::kDefaultFleetMap) == kNoNode) return false;
  document_.changed = true;
  showSystem(systemKey_);
  return true;
}

}  // namespace zel::ui
