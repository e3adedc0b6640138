#include "ui/bulk_edit_dialog.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <map>
#include <set>

#include "database/bulk_edit.h"
#include "formats/row_store.h"
#include "ui/qt_feedback.h"

namespace zel::ui {

namespace {

constexpr int kKeyRole = Qt::UserRole;

// The scope buttons with their accelerators; the captions are the scopes' own words.
constexpr std::array<const char*, bulk::kScopeCount> kScopeButtons = {
    "&Departments", "S&ites", "S&ystems", "&TalkGroups", "Con&v. frequencies"};

QStringList toList(const std::vector<std::string>& words) {
  QStringList out;
  for (const std::string& w : words) out << fromLatin1(w);
  return out;
}

QPushButton* makeButton(QWidget* parent, const char* name, const QString& caption) {
  auto* b = new QPushButton(caption, parent);
  b->setObjectName(name);
  b->setAutoDefault(false);
  return b;
}

// Every checkable item of a tree, parents (systems of a grouped tree) left out.
std::vector<QTreeWidgetItem*> leaves(const QTreeWidget* tree) {
  std::vector<QTreeWidgetItem*> out;
  for (int i = 0; i < tree->topLevelItemCount(); ++i) {
    QTreeWidgetItem* top = tree->topLevelItem(i);
    if (top->childCount() == 0) {
      if (!top->data(0, kKeyRole).toString().isEmpty()) out.push_back(top);
      continue;
    }
    for (int c = 0; c < top->childCount(); ++c) out.push_back(top->child(c));
  }
  return out;
}

std::vector<std::string> tickedKeys(const std::vector<QTreeWidgetItem*>& items) {
  std::vector<std::string> out;
  for (QTreeWidgetItem* item : items) {
    if (item->checkState(0) == Qt::Checked)
      out.push_back(toLatin1(item->data(0, kKeyRole).toString()));
  }
  return out;
}

void selectWord(QComboBox* combo, const std::string& word) {
  const int at = combo->findText(fromLatin1(word));
  combo->setCurrentIndex(at >= 0 ? at : 0);
}

}  // namespace

BulkEditDialog::BulkEditDialog(Session& session, Feedback& feedback, std::function<void()> changed,
                               QWidget* parent)
    : QDialog(parent), session_(session), feedback_(feedback), changed_(std::move(changed)) {
  setObjectName("frm_superedit");
  setWindowTitle("Bulk Channel Editor:");
  buildScopes();
  buildLists();
  buildSettingsPanel();
  buildGpsPanel();
  buildSitePanel();
  buildButtons();
  restore();
  resize(1180, 660);
}

BulkEditDialog::~BulkEditDialog() = default;

void BulkEditDialog::buildScopes() {
  scopeBox_ = new QGroupBox(this);
  scopeBox_->setObjectName("Option2");
  auto* row = new QHBoxLayout(scopeBox_);
  for (int i = 0; i < bulk::kScopeCount; ++i) {
    scopes_[i] = new QRadioButton(kScopeButtons[i], scopeBox_);
    scopes_[i]->setObjectName(QString("Option2_%1").arg(i));
    row->addWidget(scopes_[i]);
    const auto scope = static_cast<bulk::Scope>(i);
    connect(scopes_[i], &QRadioButton::toggled, this, [this, scope](bool on) {
      if (on && scope != scope_) setScope(scope);
    });
  }
  row->addStretch(1);
}

void BulkEditDialog::buildLists() {
  systems_ = new QComboBox(this);
  systems_->setObjectName("Combo1");
  systems_->setMinimumContentsLength(36);
  systems_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  connect(systems_, qOverload<int>(&QComboBox::activated), this,
          [this](int index) { chooseSystem(index); });

  auto tree = [this](const char* name) {
    auto* t = new QTreeWidget(this);
    t->setObjectName(name);
    t->setHeaderHidden(true);
    t->setUniformRowHeights(true);
    return t;
  };
  departments_ = tree("TreeView1");
  sites_ = tree("TreeView2");
  departmentsLabel_ = new QLabel(this);
  sitesLabel_ = new QLabel("Select Sites:", this);

  channelList_ = new QTreeWidget(this);
  channelList_->setObjectName("ListView1");
  channelList_->setRootIsDecorated(false);
  channelList_->setUniformRowHeights(true);
  channelList_->setSelectionMode(QAbstractItemView::ExtendedSelection);
  channelList_->setColumnCount(4);

  selectAll_ = makeButton(this, "Command2", QString());
  connect(selectAll_, &QPushButton::clicked, this, [this] { selectAll(); });
  selectChannels_ = makeButton(this, "Command8", "Select Cha&nnels");
  connect(selectChannels_, &QPushButton::clicked, this, [this] { selectChannels(); });
}

void BulkEditDialog::buildSettingsPanel() {
  settingsPanel_ = new QGroupBox("Channel Settings:", this);
  settingsPanel_->setObjectName("frm_settings");
  auto* grid = new QGridLayout(settingsPanel_);
  for (const bulk::SettingInfo& info : bulk::settingTable()) {
    const int n = bulk::settingIndex(info.setting);
    checks_[n] = new QCheckBox(fromLatin1(info.caption), settingsPanel_);
    checks_[n]->setObjectName(QString("check1_%1").arg(n));
    combos_[n] = new QComboBox(settingsPanel_);
    combos_[n]->setObjectName(QString("cmb_s_%1").arg(n));
    combos_[n]->addItems(toList(bulk::choicesFor(info.setting)));
    combos_[n]->setMaxVisibleItems(20);
    grid->addWidget(checks_[n], n, 0);
    grid->addWidget(combos_[n], n, 1);
  }
  grid->setRowStretch(bulk::kSettingCount, 1);
}

void BulkEditDialog::buildGpsPanel() {
  gpsPanel_ = new QGroupBox("GPS Settings:", this);
  gpsPanel_->setObjectName("frm_gps");
  auto* form = new QFormLayout(gpsPanel_);
  auto edit = [this](const char* name, const char* placeholder) {
    auto* e = new QLineEdit(gpsPanel_);
    e->setObjectName(name);
    e->setPlaceholderText(placeholder);
    e->setMaximumWidth(150);
    return e;
  };
  gpsEnabled_ = new QCheckBox("GPS enabled", gpsPanel_);
  gpsEnabled_->setObjectName("chkGps");
  latitude_ = edit("Text1", "0.000000");
  longitude_ = edit("Text2", "-0.000000");
  range_ = edit("Text3", "0.0");
  form->addRow(gpsEnabled_);
  auto* latLabel = new QLabel("Latitude:", gpsPanel_);
  auto* longLabel = new QLabel("Longitude:", gpsPanel_);
  auto* rangeLabel = new QLabel("Range:", gpsPanel_);
  form->addRow(latLabel, latitude_);
  form->addRow(longLabel, longitude_);
  form->addRow(rangeLabel, range_);

  auto* paste = makeButton(gpsPanel_, "Command6", "Paste &GPS");
  auto* home = makeButton(gpsPanel_, "Command7_0", "Use &Home");
  auto* preset = makeButton(gpsPanel_, "Command7_1", "Use D&efault");
  connect(paste, &QPushButton::clicked, this, [this] { pasteGps(); });
  connect(home, &QPushButton::clicked, this, [this] { useHome(); });
  connect(preset, &QPushButton::clicked, this, [this] { useDefault(); });
  auto* buttons = new QHBoxLayout;
  buttons->addWidget(paste);
  buttons->addWidget(home);
  buttons->addWidget(preset);
  form->addRow(buttons);

  auto* countyLabel = new QLabel("County Centre GPS data:", gpsPanel_);
  form->addRow(countyLabel);
  const char* countyNames[] = {"Text5", "Text6", "Text7"};
  const char* countyCaptions[] = {"Latitude:", "Longitude:", "Range:"};
  std::vector<QWidget*> countyWidgets{countyLabel};
  for (int i = 0; i < 3; ++i) {
    county_[i] = edit(countyNames[i], "");
    auto* label = new QLabel(countyCaptions[i], gpsPanel_);
    form->addRow(label, county_[i]);
    countyWidgets.push_back(label);
    countyWidgets.push_back(county_[i]);
  }
  locationWidgets_ = {gpsEnabled_, latLabel, latitude_, longLabel, longitude_,
                      rangeLabel,  range_,   paste,     home,      preset};
  locationWidgets_.insert(locationWidgets_.end(), countyWidgets.begin(), countyWidgets.end());

  quickKey_ = new QCheckBox("QuickKey", gpsPanel_);
  quickKey_->setObjectName("chkQuickKey");
  quickKeyValue_ = new QComboBox(gpsPanel_);
  quickKeyValue_->setObjectName("cmbQuickKey");
  quickKeyValue_->addItems(toList(bulk::nodeChoices(bulk::NodeItem::QuickKey)));
  form->addRow(quickKey_, quickKeyValue_);
}

void BulkEditDialog::buildSitePanel() {
  sitePanel_ = new QGroupBox("Select Site Settings:", this);
  sitePanel_->setObjectName("frm_site");
  auto* grid = new QGridLayout(sitePanel_);
  const std::pair<bulk::NodeItem, const char*> rows[] = {
      {bulk::NodeItem::Lockout, "Lockout"},
      {bulk::NodeItem::EdacsSite, "Edacs Site"},
      {bulk::NodeItem::MotBandPlan, "Mot Bandplan"},
      {bulk::NodeItem::Modulation, "Modulation"},
  };
  const char* names[] = {"Lockout", "Edacs", "Bandplan", "Modulation"};
  int r = 0;
  for (const auto& [item, caption] : rows) {
    SiteRow row{item};
    row.check = new QCheckBox(caption, sitePanel_);
    row.check->setObjectName(QString("chk%1").arg(names[r]));
    row.value = new QComboBox(sitePanel_);
    row.value->setObjectName(QString("cmb%1").arg(names[r]));
    row.value->addItems(toList(bulk::nodeChoices(item)));
    grid->addWidget(row.check, r, 0);
    grid->addWidget(row.value, r, 1);
    siteRows_.push_back(row);
    ++r;
  }
  grid->setRowStretch(r, 1);
}

void BulkEditDialog::buildButtons() {
  auto* apply = makeButton(this, "Command3", "A&pply Settings To Selected Channels");
  auto* close = makeButton(this, "Command4", "&Close");
  auto* refresh = makeButton(this, "Command5", "&Refresh");
  connect(apply, &QPushButton::clicked, this, [this] { this->apply(); });
  connect(close, &QPushButton::clicked, this, [this] { reject(); });
  connect(refresh, &QPushButton::clicked, this, [this] { rebuild(); });

  auto* systemRow = new QHBoxLayout;
  systemRow->addWidget(new QLabel("Select System:", this));
  systemRow->addWidget(systems_, 1);

  auto* left = new QVBoxLayout;
  left->addWidget(departmentsLabel_);
  left->addWidget(departments_, 1);
  left->addWidget(sitesLabel_);
  left->addWidget(sites_, 1);
  left->addWidget(selectAll_);
  auto* middle = new QVBoxLayout;
  middle->addWidget(channelList_, 1);
  middle->addWidget(selectChannels_);
  auto* right = new QVBoxLayout;
  right->addWidget(settingsPanel_);
  right->addWidget(gpsPanel_);
  right->addWidget(sitePanel_);
  right->addStretch(1);
  auto* body = new QHBoxLayout;
  body->addLayout(left, 2);
  body->addLayout(middle, 3);
  body->addLayout(right, 0);

  auto* bottom = new QHBoxLayout;
  bottom->addWidget(refresh);
  bottom->addStretch(1);
  bottom->addWidget(apply);
  bottom->addWidget(close);

  auto* layout = new QVBoxLayout(this);
  layout->addWidget(scopeBox_);
  layout->addLayout(systemRow);
  layout->addLayout(body, 1);
  layout->addLayout(bottom);
}

void BulkEditDialog::setScope(bulk::Scope scope) {
  scope_ = scope;
  QRadioButton* button = scopes_[static_cast<int>(scope)];
  if (!button->isChecked()) {
    const QSignalBlocker block(button);
    button->setChecked(true);
  }
  arrange();
  fillSystems();
  chooseSystem(0);
}

void BulkEditDialog::arrange() {
  const bool channels = bulk::isChannelScope(scope_);
  const bool sites = scope_ == bulk::Scope::Sites;
  departmentsLabel_->setText(scope_ == bulk::Scope::Systems ? "Select Systems:"
                                                            : "Select Departments:");
  departmentsLabel_->setVisible(!sites);
  departments_->setVisible(!sites);
  sitesLabel_->setVisible(sites);
  sites_->setVisible(sites);
  selectAll_->setText(sites ? "Select &All Sites" : "Select &All Groups");
  channelList_->setVisible(channels);
  selectChannels_->setVisible(channels);
  channelList_->setHeaderLabels(toList(bulk::channelHeadings(scope_)));

  settingsPanel_->setVisible(channels);
  // A talkgroup row has no mode, squelch or attenuator column: those rows go, and the
  // audio type shows in their place.
  for (const bulk::SettingInfo& info : bulk::settingTable()) {
    const int n = bulk::settingIndex(info.setting);
    const bool shown = bulk::appliesTo(info.setting, scope_);
    checks_[n]->setVisible(shown);
    combos_[n]->setVisible(shown);
  }
  gpsPanel_->setVisible(!channels);
  const bool location = bulk::itemAppliesTo(bulk::NodeItem::Location, scope_);
  for (QWidget* w : locationWidgets_) w->setVisible(location);
  sitePanel_->setVisible(!channels);
  for (const SiteRow& row : siteRows_) {
    const bool shown = bulk::itemAppliesTo(row.item, scope_);
    row.check->setVisible(shown);
    row.value->setVisible(shown);
  }
}

void BulkEditDialog::fillSystems() {
  systems_->clear();
  systems_->addItem(fromLatin1(bulk::kAllSystems), 0);
  for (const bulk::SystemEntry& s : bulk::listSystems(session_.document(), scope_))
    systems_->addItem(fromLatin1(s.name), s.number);
}

void BulkEditDialog::chooseSystem(int comboIndex) {
  if (comboIndex < 0 || comboIndex >= systems_->count()) return;
  if (systems_->currentIndex() != comboIndex) systems_->setCurrentIndex(comboIndex);
  const int system = systems_->itemData(comboIndex).toInt();
  const std::vector<bulk::NodeEntry> nodes = bulk::listNodes(session_.document(), scope_, system);
  fillNodes(scope_ == bulk::Scope::Sites ? sites_ : departments_, nodes);
  (scope_ == bulk::Scope::Sites ? departments_ : sites_)->clear();
  fillChannels(system);
}

void BulkEditDialog::fillNodes(QTreeWidget* tree, const std::vector<bulk::NodeEntry>& nodes) {
  tree->setUpdatesEnabled(false);
  tree->clear();
  QList<QTreeWidgetItem*> tops;
  std::map<int, QTreeWidgetItem*> bySystem;
  for (const bulk::NodeEntry& n : nodes) {
    auto* item = new QTreeWidgetItem(QStringList{fromLatin1(n.name)});
    item->setData(0, kKeyRole, fromLatin1(n.key));
    item->setFlags(item->flags() | Qt::ItemIsUserCheckable);
    item->setCheckState(0, Qt::Unchecked);
    if (scope_ == bulk::Scope::Systems) {
      tops.append(item);
      continue;
    }
    // Departments and sites hang under their system; ticking the system ticks them all.
    QTreeWidgetItem*& parent = bySystem[n.system];
    if (!parent) {
      parent = new QTreeWidgetItem(QStringList{fromLatin1(n.systemName)});
      parent->setFlags(parent->flags() | Qt::ItemIsUserCheckable | Qt::ItemIsAutoTristate);
      parent->setCheckState(0, Qt::Unchecked);
      tops.append(parent);
    }
    parent->addChild(item);
  }
  tree->addTopLevelItems(tops);
  tree->expandAll();
  tree->setUpdatesEnabled(true);
}

void BulkEditDialog::fillChannels(int system) {
  channelList_->setUpdatesEnabled(false);
  channelList_->clear();
  channels_.clear();
  if (bulk::isChannelScope(scope_)) {
    const formats::PageFileRows rows(session_.pages());
    channels_ = bulk::listChannels(session_.document(), rows, scope_, system);
    QList<QTreeWidgetItem*> items;
    items.reserve(static_cast<qsizetype>(channels_.size()));
    int n = 0;
    for (const bulk::ChannelEntry& c : channels_) {
      auto* item =
          new QTreeWidgetItem(QStringList{QString::number(++n), fromLatin1(c.first),
                                          fromLatin1(c.name), fromLatin1(c.departmentName)});
      item->setData(0, kKeyRole, fromLatin1(c.key));
      item->setFlags(item->flags() | Qt::ItemIsUserCheckable);
      item->setCheckState(0, Qt::Unchecked);
      items.append(item);
    }
    channelList_->addTopLevelItems(items);
    for (int c = 0; c < 4; ++c) channelList_->resizeColumnToContents(c);
  }
  channelList_->setUpdatesEnabled(true);
}

void BulkEditDialog::rebuild() {
  const int system = systems_->currentData().toInt();
  fillSystems();
  const int at = systems_->findData(system);
  chooseSystem(at >= 0 ? at : 0);
}

QTreeWidget* BulkEditDialog::nodeTree() const {
  return scope_ == bulk::Scope::Sites ? sites_ : departments_;
}

void BulkEditDialog::selectAll() {
  const std::vector<QTreeWidgetItem*> items = leaves(nodeTree());
  bool all = !items.empty();
  for (QTreeWidgetItem* item : items) all = all && item->checkState(0) == Qt::Checked;
  for (QTreeWidgetItem* item : items) item->setCheckState(0, all ? Qt::Unchecked : Qt::Checked);
}

int BulkEditDialog::selectChannels() {
  const std::vector<std::string> ticked = tickedNodes();
  const std::set<std::string> departments(ticked.begin(), ticked.end());
  const std::vector<std::string> keys = bulk::channelsOfDepartments(channels_, departments);
  const std::set<QString> chosen = [&] {
    std::set<QString> out;
    for (const std::string& k : keys) out.insert(fromLatin1(k));
    return out;
  }();
  for (int i = 0; i < channelList_->topLevelItemCount(); ++i) {
    QTreeWidgetItem* item = channelList_->topLevelItem(i);
    item->setCheckState(
        0, chosen.count(item->data(0, kKeyRole).toString()) ? Qt::Checked : Qt::Unchecked);
  }
  return static_cast<int>(keys.size());
}

bool BulkEditDialog::tickNode(const std::string& key, bool ticked) {
  for (QTreeWidgetItem* item : leaves(nodeTree())) {
    if (toLatin1(item->data(0, kKeyRole).toString()) != key) continue;
    item->setCheckState(0, ticked ? Qt::Checked : Qt::Unchecked);
    return true;
  }
  return false;
}

std::vector<std::string> BulkEditDialog::tickedNodes() const {
  return tickedKeys(leaves(nodeTree()));
}

std::vector<std::string> BulkEditDialog::tickedChannels() const {
  std::vector<QTreeWidgetItem*> items;
  for (int i = 0; i < channelList_->topLevelItemCount(); ++i)
    items.push_back(channelList_->topLevelItem(i));
  return tickedKeys(items);
}

bool BulkEditDialog::apply() {
  // A hundred thousand rows take a noticeable moment: the cursor says the window is working.
  QGuiApplication::setOverrideCursor(Qt::WaitCursor);
  feedback_.progress("Applying settings...");
  const bool ok = bulk::isChannelScope(scope_) ? applyToChannels() : applyToNodes();
  feedback_.progress(ok ? "Done." : "");
  QGuiApplication::restoreOverrideCursor();
  if (ok) {
    remember();
    if (changed_) changed_();
  }
  return ok;
}

bool BulkEditDialog::applyToChannels() {
  std::vector<bulk::ChannelChange> changes;
  for (const bulk::SettingInfo& info : bulk::settingTable()) {
    const int n = bulk::settingIndex(info.setting);
    // A setting that this scope's rows lack is hidden, and stays out whatever its tick.
    if (!bulk::appliesTo(info.setting, scope_) || !checks_[n]->isChecked()) continue;
    changes.push_back({info.setting, toLatin1(combos_[n]->currentText())});
  }
  formats::PageFileRows rows(session_.pages());
  const bulk::BulkResult r =
      bulk::applyToChannels(session_.document(), rows, tickedChannels(), changes, feedback_);
  if (r.ok) feedback_.status(std::to_string(r.changed) + " channels changed");
  return r.ok;
}

bool BulkEditDialog::applyToNodes() {
  bulk::NodeChanges changes;
  if (gpsEnabled_->isChecked()) {
    changes.location = bulk::Location{toLatin1(latitude_->text()), toLatin1(longitude_->text()),
                                      toLatin1(range_->text())};
  }
  if (quickKey_->isChecked()) changes.quickKey = toLatin1(quickKeyValue_->currentText());
  for (const SiteRow& row : siteRows_) {
    if (!row.check->isChecked()) continue;
    const std::string word = toLatin1(row.value->currentText());
    switch (row.item) {
      case bulk::NodeItem::Lockout:
        changes.lockout = word == "On";
        break;
      case bulk::NodeItem::EdacsSite:
        changes.edacsSite = word;
        break;
      case bulk::NodeItem::MotBandPlan:
        changes.motBandPlan = word;
        break;
      case bulk::NodeItem::Modulation:
        changes.modulation = word;
        break;
      default:
        break;
    }
  }
  const bulk::BulkResult r =
      bulk::applyToNodes(session_.document(), scope_, tickedNodes(), changes, feedback_);
  if (r.ok) feedback_.status(std::to_string(r.changed) + " items changed");
  return r.ok;
}

void BulkEditDialog::pasteGps() {
  latitude_->setText(county_[0]->text());
  longitude_->setText(county_[1]->text());
  range_->setText(county_[2]->text());
}

void BulkEditDialog::useHome() {
  const bulk::Location home = bulk::homeLocation(session_.settingsCodec());
  latitude_->setText(fromLatin1(home.latitude));
  longitude_->setText(fromLatin1(home.longitude));
  range_->setText(fromLatin1(home.range));
}

void BulkEditDialog::useDefault() {
  const bulk::Location preset = bulk::defaultLocation(session_.settingsCodec());
  latitude_->setText(fromLatin1(preset.latitude));
  longitude_->setText(fromLatin1(preset.longitude));
  range_->setText(fromLatin1(preset.range));
}

void BulkEditDialog::remember() {
  bulk::Remembered r;
  r.scope = scope_;
  for (int n = 0; n < bulk::kSettingCount; ++n) {
    r.ticked[n] = checks_[n]->isChecked();
    r.values[n] = toLatin1(combos_[n]->currentText());
  }
  Settings& settings = session_.settingsCodec();
  bulk::saveRemembered(settings, r);
  bulk::saveCountyCentre(settings, {toLatin1(county_[0]->text()), toLatin1(county_[1]->text()),
                                    toLatin1(county_[2]->text())});
}

void BulkEditDialog::restore() {
  const Settings& settings = session_.settingsCodec();
  const bulk::Remembered r = bulk::loadRemembered(settings);
  for (int n = 0; n < bulk::kSettingCount; ++n) {
    checks_[n]->setChecked(r.ticked[n]);
    selectWord(combos_[n], r.values[n]);
  }
  const bulk::Location county = bulk::countyCentre(settings);
  county_[0]->setText(fromLatin1(county.latitude));
  county_[1]->setText(fromLatin1(county.longitude));
  county_[2]->setText(fromLatin1(county.range));
  setScope(r.scope);
}

void BulkEditDialog::done(int result) {
  remember();
  QDialog::done(result);
}

}  // namespace zel::ui
