#include "ui/band_plan_editor.h"

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "core/document.h"
#include "core/keys.h"
#include "formats/hpd_format.h"

namespace zel::ui {

BandPlanEditor::BandPlanEditor(Document& document, Feedback& feedback, QWidget* parent)
    : QWidget(parent), document_(document) {
  setObjectName("bandPlanEditor");
  binder_ = new FieldBinder(document, feedback, this);
  auto* layout = new QVBoxLayout(this);
  auto* note = new QLabel(tr("A site with the band plan Custom uses these ranges to turn channel "
                             "numbers into frequencies. Unused groups hold 0."),
                          this);
  note->setWordWrap(true);
  layout->addWidget(note);
  start_ = new QPushButton(tr("Give this site its own band plan"), this);
  start_->setObjectName("startBandPlan");
  layout->addWidget(start_, 0, Qt::AlignLeft);

  auto* grid = new QGridLayout;
  const QString headings[kValues] = {tr("Lower MHz"), tr("Upper MHz"), tr("Step kHz"),
                                     tr("Offset")};
  for (int w = 0; w < kValues; ++w) grid->addWidget(new QLabel(headings[w], this), 0, w + 1);
  const DecimalMark mark = DecimalMark::system();
  const FieldRule ruleOf[kValues] = {
      [mark](std::string_view t) { return rules::bandPlanEdge(t, mark); },
      [mark](std::string_view t) { return rules::bandPlanEdge(t, mark); },
      [mark](std::string_view t) { return rules::bandPlanStep(t, mark); },
      rules::bandPlanOffset,
  };
  const QString refusal[kValues] = {
      tr("A band edge is a frequency in MHz up to 1300, or 0 for an unused group."),
      tr("A band edge is a frequency in MHz up to 1300, or 0 for an unused group."),
      tr("A step is a number of kHz above 0, such as 12.5 or 25."),
      tr("An offset is a whole number from 0 to 1023."),
  };
  for (int g = 0; g < kGroups; ++g) {
    grid->addWidget(new QLabel(tr("Group %1").arg(g + 1), this), g + 1, 0);
    for (int w = 0; w < kValues; ++w) {
      QLineEdit* edit = binder_->text(fieldOf(g, w), ruleOf[w], refusal[w], this);
      edit->setMaximumWidth(w < 2 ? 110 : 80);
      edit->setObjectName(QString("group%1_%2").arg(g).arg(w));
      edits_[g][w] = edit;
      grid->addWidget(edit, g + 1, w + 1);
    }
  }
  grid->setColumnStretch(kValues + 1, 1);
  layout->addLayout(grid);
  layout->addStretch(1);
  connect(start_, &QPushButton::clicked, this, [this] { startPlan(); });
  showSite({});
}

void BandPlanEditor::showSite(const std::string& siteKey) {
  siteKey_ = siteKey;
  const int system = keys::systemOf(siteKey);
  const int site = keys::siteOf(siteKey);
  const std::string key = system > 0 && site > 0 ? keys::bandPlan(system, site) : std::string();
  const bool has = !key.empty() && document_.data.contains(key);
  start_->setVisible(!key.empty() && !has);
  binder_->bind(has ? key : std::string());
}

bool BandPlanEditor::startPlan() {
  const int system = keys::systemOf(siteKey_);
  const int site = keys::siteOf(siteKey_);
  if (system <= 0 || site <= 0 || !document_.data.contains(siteKey_)) return false;
  const std::string key = keys::bandPlan(system, site);
  if (document_.data.contains(key)) return false;
  // The plan belongs to the system, as the reader and the writer keep it.
  if (document_.data.add(keys::system(system), key, formats::kDefaultBandPlan) == kNoNode) {
    return false;
  }
  document_.changed = true;
  showSite(siteKey_);
  return true;
}

}  // namespace zel::ui
