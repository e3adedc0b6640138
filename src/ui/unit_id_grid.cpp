#include "ui/unit_id_grid.h"

#include <QPushButton>
#include <QVBoxLayout>

#include "core/document.h"
#include "core/keys.h"
#include "core/tree_operations.h"

namespace zel::ui {

namespace {
constexpr int kMaxUnitIds = 9999;
constexpr std::string_view kNewListHead = "UID,UID Editor";

RecordGridShape unitSpec(const Document& document) {
  RecordGridShape shape;
  shape.setup = setup_ugrid;
  shape.schema = Schema::Unit;
  shape.fields = {{"Unit ID", 1},     {"Alpha Tag", 2},   {"Alert Tone", 3},
                 {"Alert Level", 4}, {"Alert Light", 5}, {"Alert Pattern", 6}};
  shape.identityHeading = "Unit ID";
  shape.childPrefix = "UDD-";
  shape.newKey = nextUnitIdKey;
  const bool x36 = document.x36Mode;
  // The defaults of the alert lists, so a new unit writes as the scanner expects.
  shape.newLine = [x36](const std::string& id) {
    return "UID," + id + ",,Off,Auto" + (x36 ? ",Off,On" : "");
  };
  return shape;
}
}  // namespace

std::string nextUnitIdKey(const Document& document, const std::string& headKey) {
  const int system = keys::systemOf(headKey);
  if (system <= 0) return {};
  for (int n = 1; n <= kMaxUnitIds; ++n) {
    std::string key = keys::unitId(system, n);
    if (!document.data.contains(key)) return key;
  }
  return {};
}

UnitIdGrid::UnitIdGrid(Document& document, Feedback& feedback, GridSetup setup, QWidget* parent)
    : QWidget(parent), document_(document) {
  setObjectName("unitIdGrid");
  auto* layout = new QVBoxLayout(this);
  start_ = new QPushButton(tr("Start a unit ID list for this system"), this);
  start_->setObjectName("startUnitIds");
  grid_ = new RecordGrid(document, feedback, unitSpec(document), setup, this);
  layout->addWidget(start_, 0, Qt::AlignLeft);
  layout->addWidget(grid_, 1);
  connect(start_, &QPushButton::clicked, this, [this] { startList(); });
  connect(grid_, &RecordGrid::childrenChanged, this, &UnitIdGrid::childrenChanged);
}

void UnitIdGrid::showSystem(const std::string& systemKey) {
  systemKey_ = systemKey;
  const int system = keys::systemOf(systemKey);
  const std::string head = system > 0 ? keys::unitHead(system) : std::string();
  const bool hasHead = !head.empty() && document_.data.contains(head);
  start_->setVisible(!systemKey.empty() && !hasHead);
  grid_->load(hasHead ? head : std::string());
}

bool UnitIdGrid::startList() {
  const int system = keys::systemOf(systemKey_);
  if (system <= 0 || !document_.data.contains(systemKey_)) return false;
  const std::string head = keys::unitHead(system);
  if (document_.data.contains(head)) return false;
  if (document_.data.add(systemKey_, head, kNewListHead) == kNoNode) return false;
  document_.changed = true;
  showSystem(systemKey_);
  return true;
}

}  // namespace zel::ui
