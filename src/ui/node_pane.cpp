#include "ui/node_pane.h"

#include <QLabel>

#include "core/keys.h"
#include "core/new_commands.h"
#include "core/session.h"
#include "core/text.h"
#include "grid/cell_commit_frequency.h"
#include "ui/department_form.h"
#include "ui/qt_feedback.h"
#include "ui/site_form.h"
#include "ui/system_form.h"

namespace zel::ui {

NodePane::NodePane(Session& session, Feedback& feedback, QWidget* parent)
    : QStackedWidget(parent), session_(session), feedback_(feedback) {
  setObjectName("nodePane");
  Document& doc = session.document();
  GridSetup setup;
  setup.family = doc.family;
  setup.settings = &session.settingsCodec().store();
  setup.widths = &widths_;
  setup.env.feedback = &feedback;
  const cell::FrequencyRules frequency =
      cell::rulesFromSettings(session.settingsCodec(), doc.family);

  empty_ = new QLabel(tr("Select a system, site or department to edit it."), this);
  empty_->setAlignment(Qt::AlignCenter);
  empty_->setWordWrap(true);
  system_ = new SystemForm(doc, feedback, setup, this);
  site_ = new SiteForm(doc, feedback, setup, frequency, this);
  department_ = new DepartmentForm(doc, feedback, this);
  addWidget(empty_);
  addWidget(system_);
  addWidget(site_);
  addWidget(department_);
  connect(system_, &SystemForm::nameStored, this, &NodePane::onNameStored);
  connect(site_, &SiteForm::nameStored, this, &NodePane::onNameStored);
  connect(department_, &DepartmentForm::nameStored, this, &NodePane::onNameStored);
  connect(this, &QStackedWidget::currentChanged, this, [this] { fitToCurrent(); });
  setCurrentWidget(empty_);
  fitToCurrent();
}

void NodePane::fitToCurrent() {
  // A stacked widget asks for the room of its largest page; the pane asks only for the
  // room of the page on show, so a department's short form leaves space to its channels.
  for (int i = 0; i < count(); ++i) {
    QWidget* page = widget(i);
    const bool shown = page == currentWidget();
    page->setSizePolicy(shown ? QSizePolicy::Preferred : QSizePolicy::Ignored,
                        shown ? QSizePolicy::Preferred : QSizePolicy::Ignored);
  }
  updateGeometry();
}

QSize NodePane::sizeHint() const {
  return currentWidget() ? currentWidget()->sizeHint() : QStackedWidget::sizeHint();
}

QSize NodePane::minimumSizeHint() const {
  return currentWidget() ? currentWidget()->minimumSizeHint() : QStackedWidget::minimumSizeHint();
}

void NodePane::showNode(std::string_view key, std::string_view kind) {
  key_ = std::string(key);
  const Document& doc = session_.document();
  const int system = keys::systemOf(key);
  const bool known = doc.data.contains(key);
  if (startsWith(key, "SYS-") || (kind == "SYSTEM" && known)) {
    system_->showSystem(key_);
    setCurrentWidget(system_);
  } else if (startsWith(key, "FMP-") || startsWith(key, "UID-") || startsWith(key, "UDD-")) {
    system_->showSystem(keys::system(system), startsWith(key, "FMP-") ? SystemForm::Tab::FleetMap
                                                                      : SystemForm::Tab::UnitIds);
    setCurrentWidget(system_);
  } else if (startsWith(key, "SIT-") || startsWith(key, "MCP-") || startsWith(key, "TFQ-")) {
    const int site = startsWith(key, "TFQ-") ? keys::numberAt(key, 9) : keys::siteOf(key);
    SiteForm::Tab tab = SiteForm::Tab::Site;
    if (startsWith(key, "MCP-")) tab = SiteForm::Tab::BandPlan;
    if (startsWith(key, "TFQ-")) tab = SiteForm::Tab::Frequencies;
    site_->showSite(keys::site(system, site), tab);
    setCurrentWidget(site_);
  } else if (startsWith(key, "GRP-")) {
    department_->showDepartment(key_);
    setCurrentWidget(department_);
  } else {
    system_->showSystem({});
    site_->showSite({});
    department_->showDepartment({});
    empty_->setText(kind == "FAV" ? tr("A favorites list: select one of its systems to edit it.")
                                  : tr("Select a system, site or department to edit it."));
    setCurrentWidget(empty_);
  }
}

void NodePane::storeNode() {
  if (currentWidget() == system_) system_->flush();
  if (currentWidget() == site_) site_->flush();
  if (currentWidget() == department_) department_->flush();
}

void NodePane::onNameStored(const QString& key) {
  Document& doc = session_.document();
  showInVisibleTree(doc, toLatin1(key));
  emit captionChanged(key);
}

}  // namespace zel::ui
