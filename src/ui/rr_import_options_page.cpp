// The import window's option tabs: the service tag filter with its lists, every import
// option as a check box, the talkgroup filter, "Untagged Data:", the Led table, and the
// update list with its day limits. The boxes show ImportOptions and are read back into it
// before each import and when the window closes.
#include <QCheckBox>
#include <QComboBox>
#include <QDate>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <algorithm>

#include "radioref/rr_readers.h"
#include "ui/qt_feedback.h"
#include "ui/rr_import_window.h"

namespace zel::ui {

using namespace radioref;

namespace {

constexpr const char* kAllTagsOff =
    "ERROR: All service tags are disabled! Click Service Tags tab to check your settings or "
    "disable the filter.";
constexpr int kLedRows = 6;
constexpr int kTagRole = Qt::UserRole;

struct BoolOption {
  const char* name;
  const char* caption;
  bool ImportOptions::*field;
};

const BoolOption kTagOptions[] = {
    {"removeSpaces", "Automatically Remove Spaces from Tags", &ImportOptions::removeSpaces},
    {"useTagFilters", "Use Tag Filters", &ImportOptions::useTagFilters},
    {"keepShortTags", "Do not modify tags smaller than 16 characters",
     &ImportOptions::keepShortTags},
    {"shortAlpha", "Use short Alpha Tag (if available)", &ImportOptions::shortAlpha},
    {"upperCase", "Convert To Upper Case", &ImportOptions::upperCase},
};
const BoolOption kConvOptions[] = {
    {"lockoutEncrypted", "Lock Out Encrypted conventional frequencies",
     &ImportOptions::lockoutEncrypted},
    {"skipEncrypted", "Do NOT import encrypted conventional frequencies",
     &ImportOptions::skipEncrypted},
    {"skipTelemetry", "Do NOT import Telemetry conventional frequencies",
     &ImportOptions::skipTelemetry},
    {"qkeysConventional", "AutoAssign Quickkeys to conv. departments",
     &ImportOptions::qkeysConventional},
};
const BoolOption kTrunkOptions[] = {
    {"importGps", "Import GPS data (if available)", &ImportOptions::importGps},
    {"qkeysTrunk", "Auto Assign Quickkeys to trunk departments", &ImportOptions::qkeysTrunk},
    {"qkeysSites", "Auto Assign Quickkeys to sites", &ImportOptions::qkeysSites},
    {"edacsAfs", "Convert Edacs To AFS", &ImportOptions::edacsAfs},
    {"ccPrimary", "Import Primary Control Channels", &ImportOptions::ccPrimary},
    {"ccAlternate", "Import Alternate Control Channels", &ImportOptions::ccAlternate},
    {"ccAll", "Import All Control Channels", &ImportOptions::ccAll},
};
const char* const kIgnoreModes[] = {"Ignore NXDN mode", "Ignore Dstar/NXDN mode"};
const char* const kTalkgroupKinds[] = {
    "Analog Talkgroups",       "Digital Talkgroups",         "Mixed Analog/Digital",
    "TDMA capable talkgroups", "Fully Encrypted talkgroups", "Partial Encrypted talkgroups"};
const char* const kDays[] = {"1 day", "7 days", "30 days", "90 days"};
const int kDayValues[] = {1, 7, 30, 90};
const char* const kColors[] = {"Off", "Blue", "Red", "Magenta", "Green", "Cyan", "Yellow", "White"};
const char* const kPatterns[] = {"On", "Slow Blink", "Fast Blink"};

// The service types by id, in the order of their names.
const std::vector<std::pair<int, std::string>>& serviceTags() {
  static const auto tags = [] {
    std::vector<std::pair<int, std::string>> v;
    for (int id = 1; id < 256; ++id) {
      std::string name = serviceTagName(id);
      if (!name.empty()) v.emplace_back(id, std::move(name));
    }
    std::sort(v.begin(), v.end(), [](const auto& a, const auto& b) {
      return QString::fromLatin1(a.second.c_str()).compare(b.second.c_str(), Qt::CaseInsensitive) <
             0;
    });
    return v;
  }();
  return tags;
}

QTreeWidget* tagList(const char* name, QWidget* parent) {
  auto* list = new QTreeWidget(parent);
  list->setObjectName(name);
  list->setHeaderLabels({"Groups:", "# TGid's:"});
  list->setRootIsDecorated(false);
  list->setAlternatingRowColors(true);
  list->header()->setSectionResizeMode(0, QHeaderView::Stretch);
  list->header()->setSectionResizeMode(1, QHeaderView::ResizeToContents);
  return list;
}

// Days from an ISO date ("2026-06-16..." ) to today; -1 when either is unreadable.
int daysSince(const std::string& iso, const QDate& today) {
  const QDate d = QDate::fromString(QString::fromLatin1(iso.substr(0, 10).c_str()), Qt::ISODate);
  return d.isValid() && today.isValid() ? int(d.daysTo(today)) : -1;
}

}  // namespace

QWidget* RRImportWindow::buildServiceTagsTab() {
  auto* page = new QWidget;
  auto* layout = new QVBoxLayout(page);
  serviceFilter_ = new QCheckBox("Enable Service Tags Filter:", page);
  serviceFilter_->setObjectName("servicefilter");
  serviceFilter_->setToolTip("Import only the rows whose service tag is ticked below");
  connect(serviceFilter_, &QCheckBox::toggled, this, [this] { serviceCheck(); });
  layout->addWidget(serviceFilter_);
  auto* lists = new QHBoxLayout;
  auto* filterBox = new QGroupBox("Service tags the filter lets through", page);
  auto* fl = new QVBoxLayout(filterBox);
  list5_ = tagList("ListView5", filterBox);
  for (const auto& [id, name] : serviceTags()) {
    auto* item = new QTreeWidgetItem(list5_, {fromLatin1(name), "0"});
    item->setData(0, kTagRole, id);
    item->setFlags(item->flags() | Qt::ItemIsUserCheckable);
    item->setCheckState(0, Qt::Checked);
  }
  connect(list5_, &QTreeWidget::itemChanged, this, [this](QTreeWidgetItem*, int column) {
    if (!filling_ && column == 0) serviceCheck();
  });
  fl->addWidget(list5_);
  auto* buttons = new QHBoxLayout;
  auto* all = new QPushButton("Select All", filterBox);
  all->setObjectName("TagsAll");
  auto* none = new QPushButton("Clear All", filterBox);
  none->setObjectName("TagsNone");
  for (auto [button, on] : {std::pair{all, true}, std::pair{none, false}}) {
    connect(button, &QPushButton::clicked, this, [this, on = on] {
      for (int i = 0; i < list5_->topLevelItemCount(); ++i)
        list5_->topLevelItem(i)->setCheckState(0, on ? Qt::Checked : Qt::Unchecked);
    });
  }
  auto* apply = new QPushButton("Apply Filter", filterBox);
  apply->setObjectName("Command16");
  connect(apply, &QPushButton::clicked, this, [this] { applyServiceFilter(); });
  buttons->addWidget(all);
  buttons->addWidget(none);
  buttons->addStretch();
  buttons->addWidget(apply);
  fl->addLayout(buttons);
  lists->addWidget(filterBox, 1);
  auto* loadedBox = new QGroupBox("Service tags of the ticked rows", page);
  auto* ll = new QVBoxLayout(loadedBox);
  list7_ = tagList("ListView7", loadedBox);
  ll->addWidget(list7_);
  lists->addWidget(loadedBox, 1);
  layout->addLayout(lists, 1);
  return page;
}

QWidget* RRImportWindow::buildOptionsTab() {
  auto* inner = new QWidget;
  auto* grid = new QGridLayout(inner);
  auto group = [this, inner](const char* title, const auto& options) {
    auto* box = new QGroupBox(title, inner);
    auto* l = new QVBoxLayout(box);
    for (const BoolOption& o : options) {
      auto* check = new QCheckBox(o.caption, box);
      check->setObjectName(o.name);
      checks_[o.name] = check;
      l->addWidget(check);
    }
    return std::pair{box, l};
  };
  auto [tags, tagsLayout] = group("Tags", kTagOptions);
  tagsLayout->addStretch();
  grid->addWidget(tags, 0, 0);
  auto [conv, convLayout] = group("Conventional", kConvOptions);
  for (int i = 0; i < 2; ++i) {
    auto* check = new QCheckBox(kIgnoreModes[i], conv);
    const std::string name = "ignore_mode" + std::to_string(i + 1);
    check->setObjectName(QString::fromStdString(name));
    checks_[name] = check;
    convLayout->addWidget(check);
  }
  convLayout->addStretch();
  grid->addWidget(conv, 0, 1);
  auto [trunk, trunkLayout] = group("Trunked", kTrunkOptions);
  trunkLayout->addStretch();
  grid->addWidget(trunk, 1, 0);

  auto* tg = new QGroupBox("Import only the following talkgroups:", inner);
  tg->setObjectName("tfilter");
  auto* tgl = new QVBoxLayout(tg);
  for (int i = 0; i < 6; ++i) {
    auto* check = new QCheckBox(kTalkgroupKinds[i], tg);
    const std::string name = "tfilter" + std::to_string(i + 1);
    check->setObjectName(QString::fromStdString(name));
    checks_[name] = check;
    tgl->addWidget(check);
  }
  tgl->addStretch();
  grid->addWidget(tg, 1, 1);

  auto* untagged = new QGroupBox("Untagged Data:", inner);
  auto* ul = new QGridLayout(untagged);
  auto untagCombo = [untagged](const char* name) {
    auto* c = new QComboBox(untagged);
    c->setObjectName(name);
    c->addItem(" Leave Untagged", 0);
    for (int id = 1; id < 256; ++id) {
      const std::string s = serviceTagName(id);
      if (!s.empty()) c->addItem(fromLatin1(s), id);
    }
    return c;
  };
  untagConv_ = untagCombo("untag_conv");
  untagTrunk_ = untagCombo("untag_trunk");
  ul->addWidget(new QLabel("Conventional:", untagged), 0, 0);
  ul->addWidget(untagConv_, 0, 1);
  ul->addWidget(new QLabel("Trunked:", untagged), 1, 0);
  ul->addWidget(untagTrunk_, 1, 1);
  ul->setColumnStretch(1, 1);
  ul->setRowStretch(2, 1);
  grid->addWidget(untagged, 2, 0);

  auto* led = new QGroupBox("Set the default Led Color/Pattern per Service Type:", inner);
  auto* ll = new QGridLayout(led);
  ll->addWidget(new QLabel("Service Type", led), 0, 1);
  ll->addWidget(new QLabel("Color", led), 0, 2);
  ll->addWidget(new QLabel("Pattern", led), 0, 3);
  for (int k = 0; k < kLedRows; ++k) {
    LedRow r{new QCheckBox(led), new QComboBox(led), new QComboBox(led), new QComboBox(led)};
    r.enabled->setObjectName(QString("Check13_%1").arg(k));
    r.service->setObjectName(QString("Combo3_%1").arg(k));
    r.color->setObjectName(QString("Combo4_%1").arg(k));
    r.pattern->setObjectName(QString("Combo5_%1").arg(k));
    for (const auto& [id, name] : serviceTags()) r.service->addItem(fromLatin1(name));
    for (const char* c : kColors) r.color->addItem(c);
    for (const char* p : kPatterns) r.pattern->addItem(p);
    ll->addWidget(r.enabled, k + 1, 0);
    ll->addWidget(r.service, k + 1, 1);
    ll->addWidget(r.color, k + 1, 2);
    ll->addWidget(r.pattern, k + 1, 3);
    leds_.push_back(r);
  }
  ll->setColumnStretch(1, 1);
  grid->addWidget(led, 2, 1);
  grid->setRowStretch(3, 1);

  auto* scroll = new QScrollArea;
  scroll->setWidget(inner);
  scroll->setWidgetResizable(true);
  scroll->setFrameShape(QFrame::NoFrame);
  return scroll;
}

QWidget* RRImportWindow::buildUpdatesTab() {
  auto* page = new QWidget;
  auto* layout = new QVBoxLayout(page);
  auto* row = new QHBoxLayout;
  auto* check = new QCheckBox("Frequencies/Talkgroups updated in the last 90 days:", page);
  check->setObjectName("updated");
  check->setToolTip("Import only the rows updated within the limit");
  checks_["updated"] = check;
  updatedDays_ = new QComboBox(page);
  updatedDays_->setObjectName("UpdatedDays");
  for (int i = 0; i < 4; ++i) updatedDays_->addItem(kDays[i], kDayValues[i]);
  updatedDays_->setCurrentIndex(3);
  row->addWidget(check);
  row->addWidget(updatedDays_);
  row->addStretch();
  layout->addLayout(row);
  list6_ = new QTreeWidget(page);
  list6_->setObjectName("ListView6");
  list6_->setHeaderLabels({"Frequency/TGid:", "Alpha Tag:", "Description:", "Subtone:",
                           "ServiceTag:", "Last Updated:", "sort"});
  list6_->setColumnHidden(6, true);
  list6_->setRootIsDecorated(false);
  list6_->setAlternatingRowColors(true);
  layout->addWidget(list6_, 1);
  auto changed = [this] {
    if (filling_) return;
    readOptions();
    refillConventional();
    refillTalkgroups();
  };
  connect(check, &QCheckBox::toggled, this, changed);
  connect(updatedDays_, &QComboBox::currentIndexChanged, this, changed);
  return page;
}

// ---- options to boxes and back ---------------------------------------------------------------

void RRImportWindow::showOptions() {
  filling_ = true;
  auto show = [this](const auto& options) {
    for (const BoolOption& o : options) checks_[o.name]->setChecked(options_.*(o.field));
  };
  show(kTagOptions);
  show(kConvOptions);
  show(kTrunkOptions);
  for (int i = 0; i < 2; ++i)
    checks_["ignore_mode" + std::to_string(i + 1)]->setChecked(options_.ignoreMode[std::size_t(i)]);
  for (int i = 0; i < 6; ++i)
    checks_["tfilter" + std::to_string(i + 1)]->setChecked(
        options_.talkgroupFilter[std::size_t(i)]);
  checks_["updated"]->setChecked(options_.updatedDays > 0);
  const int day = updatedDays_->findData(options_.updatedDays);
  if (day >= 0) updatedDays_->setCurrentIndex(day);
  serviceFilter_->setChecked(options_.serviceFilter);
  for (int i = 0; i < list5_->topLevelItemCount(); ++i) {
    QTreeWidgetItem* item = list5_->topLevelItem(i);
    const int id = item->data(0, kTagRole).toInt();
    const bool on = !options_.serviceFilter ||
                    std::find(options_.serviceTags.begin(), options_.serviceTags.end(), id) !=
                        options_.serviceTags.end();
    item->setCheckState(0, on ? Qt::Checked : Qt::Unchecked);
  }
  untagConv_->setCurrentIndex(std::max(0, untagConv_->findData(options_.untaggedConventional)));
  untagTrunk_->setCurrentIndex(std::max(0, untagTrunk_->findData(options_.untaggedTrunk)));
  for (std::size_t k = 0; k < leds_.size(); ++k) {
    const LedRule rule = k < options_.leds.size() ? options_.leds[k] : LedRule{};
    leds_[k].enabled->setChecked(rule.enabled);
    const int s = leds_[k].service->findText(fromLatin1(rule.service));
    leds_[k].service->setCurrentIndex(std::max(0, s));
    leds_[k].color->setCurrentIndex(std::max(0, leds_[k].color->findText(fromLatin1(rule.color))));
    leds_[k].pattern->setCurrentIndex(
        std::max(0, leds_[k].pattern->findText(fromLatin1(rule.pattern))));
  }
  filling_ = false;
}

void RRImportWindow::readOptions() {
  auto read = [this](const auto& options) {
    for (const BoolOption& o : options) options_.*(o.field) = checks_[o.name]->isChecked();
  };
  read(kTagOptions);
  read(kConvOptions);
  read(kTrunkOptions);
  for (int i = 0; i < 2; ++i)
    options_.ignoreMode[std::size_t(i)] =
        checks_["ignore_mode" + std::to_string(i + 1)]->isChecked();
  for (int i = 0; i < 6; ++i)
    options_.talkgroupFilter[std::size_t(i)] =
        checks_["tfilter" + std::to_string(i + 1)]->isChecked();
  options_.updatedDays = checks_["updated"]->isChecked() ? updatedDays_->currentData().toInt() : 0;
  options_.untaggedConventional = untagConv_->currentData().toInt();
  options_.untaggedTrunk = untagTrunk_->currentData().toInt();
  options_.leds.clear();
  for (const LedRow& r : leds_) {
    options_.leds.push_back({r.enabled->isChecked(), toLatin1(r.service->currentText()),
                             toLatin1(r.color->currentText()), toLatin1(r.pattern->currentText())});
  }
  // The service filter takes effect with "Apply Filter"; only its switch is read here.
  options_.serviceFilter = serviceFilter_->isChecked();
}

// ---- service tags --------------------------------------------------------------------------

bool RRImportWindow::allServiceTagsOff() const {
  for (int i = 0; i < list5_->topLevelItemCount(); ++i)
    if (list5_->topLevelItem(i)->checkState(0) == Qt::Checked) return false;
  return true;
}

void RRImportWindow::serviceCheck() {
  if (serviceFilter_->isChecked() && allServiceTagsOff())
    setStatus(kAllTagsOff);
  else if (statusText() == kAllTagsOff)
    setStatus({});
}

void RRImportWindow::applyServiceFilter() {
  if (allServiceTagsOff()) {
    feedback_.message("Please select at least one service tag.");
    return;
  }
  options_.serviceTags.clear();
  for (int i = 0; i < list5_->topLevelItemCount(); ++i) {
    const QTreeWidgetItem* item = list5_->topLevelItem(i);
    if (item->checkState(0) == Qt::Checked)
      options_.serviceTags.push_back(item->data(0, kTagRole).toInt());
  }
  readOptions();
  refillConventional();
  refillTalkgroups();
  done();
}

void RRImportWindow::refreshServiceCounts() {
  std::map<int, int> all, ticked;
  for (const ConvRow& r : conventionalList()) {
    const int tag = std::atoi(r.tag.c_str());
    ++all[tag];
    if (r.ticked) ++ticked[tag];
  }
  for (const TalkgroupRow& r : talkgroupList()) {
    const int tag = std::atoi(r.tag.c_str());
    ++all[tag];
    if (r.ticked) ++ticked[tag];
  }
  filling_ = true;
  for (int i = 0; i < list5_->topLevelItemCount(); ++i) {
    QTreeWidgetItem* item = list5_->topLevelItem(i);
    item->setText(1, QString::number(all[item->data(0, kTagRole).toInt()]));
  }
  list7_->clear();
  for (const auto& [tag, count] : ticked) {
    const std::string name = serviceTagName(tag);
    new QTreeWidgetItem(list7_,
                        {name.empty() ? "(untagged)" : fromLatin1(name), QString::number(count)});
  }
  filling_ = false;
}

void RRImportWindow::refreshUpdates() {
  const QDate today = QDate::fromString(QString::fromStdString(todayText()), Qt::ISODate);
  const int limit = updatedDays_->currentData().toInt();
  list6_->clear();
  auto add = [&](const std::string& id, const std::string& alpha, const std::string& descr,
                 const std::string& tone, const std::string& tag, const std::string& date) {
    const int days = daysSince(date, today);
    if (days < 0 || days > limit) return;
    const std::string service = serviceTagName(std::atoi(tag.c_str()));
    const QString day = fromLatin1(date.substr(0, 10));
    new QTreeWidgetItem(list6_, {fromLatin1(id), fromLatin1(alpha), fromLatin1(descr),
                                 fromLatin1(tone), fromLatin1(service), day, day});
  };
  for (const ConvRow& r : conventionalList())
    add(r.frequency, r.alpha, r.descr, r.tone, r.tag, r.updated);
  for (const TalkgroupRow& r : talkgroupList()) add(r.id, r.alpha, r.descr, "", r.tag, r.date);
  list6_->sortItems(6, Qt::DescendingOrder);
  for (int c = 0; c < 6; ++c) list6_->resizeColumnToContents(c);
}

void RRImportWindow::checkFiltersAtLoad() {
  if (options_.serviceFilter && options_.serviceTags.empty()) {
    const Answer a = feedback_.ask(
        "Warning",
        "Warning: Please check your Service Tag filter settings. Please enable at least one "
        "service tag for import. Do you want to clear all the filters?",
        Buttons::YesNo);
    if (a == Answer::Yes) {
      options_.serviceFilter = false;
      showOptions();
    }
  }
  if (std::none_of(options_.talkgroupFilter.begin(), options_.talkgroupFilter.end(),
                   [](bool b) { return b; })) {
    feedback_.message(
        "Warning: your Talkgroup Filter setting are incorrect. Please select at least one "
        "talkgroup type in the TG Filters tab!");
  }
  serviceCheck();
}

}  // namespace zel::ui
