// The import window's trees and lists: TV1 (categories and subcategories) with ListView3
// (conventional frequencies), and for a trunked system tv2 (talkgroup categories) with
// ListView1 (talkgroups), ListView4 (sites), ListView2 (site frequencies) and the details.
// Ticking a node fetches its rows; unticking takes the rows whose keys carry the node away.
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QSplitter>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <algorithm>

#include "radioref/rr_readers.h"
#include "ui/qt_feedback.h"
#include "ui/rr_import_window.h"

namespace zel::ui {

using namespace radioref;

namespace {

constexpr int kKeyRole = Qt::UserRole;       // "c12", "d345", "t7", "cvfr-..", "tgr-.."
constexpr int kNameRole = Qt::UserRole + 1;  // a node's name without its counts

QTreeWidget* makeList(const char* name, const QStringList& headers, QWidget* parent) {
  auto* list = new QTreeWidget(parent);
  list->setObjectName(name);
  list->setHeaderLabels(headers);
  list->setRootIsDecorated(false);
  list->setUniformRowHeights(true);
  list->setAlternatingRowColors(true);
  list->setSelectionMode(QAbstractItemView::ExtendedSelection);
  list->header()->setSectionResizeMode(QHeaderView::Interactive);
  list->header()->setMinimumSectionSize(28);
  list->header()->setStretchLastSection(false);
  return list;
}

QTreeWidget* makeTree(const char* name, const QString& header, QWidget* parent) {
  auto* tree = new QTreeWidget(parent);
  tree->setObjectName(name);
  tree->setHeaderLabel(header);
  tree->setMinimumWidth(260);
  // A node's counts make its text long: the column grows and the tree scrolls sideways.
  tree->header()->setSectionResizeMode(0, QHeaderView::ResizeToContents);
  tree->header()->setStretchLastSection(false);
  return tree;
}

// The digits behind `letter` in a node key ("c12" -> 12).
int keyNumber(const QString& key, QChar letter) {
  const int at = key.indexOf(letter);
  if (at < 0) return 0;
  int n = 0;
  for (int i = at + 1; i < key.size() && key[i].isDigit(); ++i) n = n * 10 + key[i].digitValue();
  return n;
}

QString q(const std::string& s) {
  return fromLatin1(s);
}

void setChecked(QTreeWidgetItem* item, bool on) {
  item->setCheckState(0, on ? Qt::Checked : Qt::Unchecked);
}

// Columns as wide as their texts, a long description no wider than a third of a screen.
void fitColumns(QTreeWidget* list) {
  for (int c = 0; c < list->columnCount(); ++c) {
    list->resizeColumnToContents(c);
    list->setColumnWidth(c, std::min(list->columnWidth(c), 320));
  }
}

// Forgets the rows fetched for a node that was unticked, and where it stood in the order.
template <class Held>
void forgetFetched(Held& held, std::vector<int>& order, int id) {
  held.erase(id);
  order.erase(std::remove(order.begin(), order.end(), id), order.end());
}

}  // namespace

QWidget* RRImportWindow::buildConventionalTab() {
  auto* page = new QWidget;
  auto* layout = new QVBoxLayout(page);
  auto* split = new QSplitter(Qt::Horizontal, page);
  tv1_ = makeTree("TV1", "Categories (tick to fetch frequencies)", split);
  connect(tv1_, &QTreeWidget::itemChanged, this,
          [this](QTreeWidgetItem* item, int column) { onCategoryItemChanged(item, column); });
  list3_ = makeList(
      "ListView3",
      {"Frequencies:", "Description:", "Display:", "Subtone:", "SubCategory/Category:", "Callsign:",
       "SubCategory:", "Mode:", "GPS:", "Service:", "CC", "slut", "upd", "enc", "tg"},
      split);
  connect(list3_, &QTreeWidget::itemChanged, this, [this](QTreeWidgetItem* item, int column) {
    if (filling_ || column != 0) return;
    ticks_[item->data(0, kKeyRole).toString().toStdString()] = item->checkState(0) == Qt::Checked;
    refreshServiceCounts();
  });
  split->addWidget(tv1_);
  split->addWidget(list3_);
  split->setStretchFactor(1, 1);
  split->setSizes({300, 800});
  layout->addWidget(split, 1);

  auto* row = new QHBoxLayout;
  unsupported_ = new QLabel(">> Unsupported Mode", page);
  unsupported_->setObjectName("lbl_unsupported");
  unsupported_->setStyleSheet("color: #b00000; font-weight: bold;");
  unsupported_->setToolTip("Rows in red are in a mode this scanner cannot receive.");
  unsupported_->setVisible(false);
  selSupported_ = new QPushButton("Sel. All Sup.", page);
  selSupported_->setObjectName("SelAllSup");
  selSupported_->setToolTip("Select Only Supported Mode Channels");
  connect(selSupported_, &QPushButton::clicked, this, [this] { selectSupportedOnly(); });
  auto* all = new QPushButton("Select All", page);
  all->setObjectName("SelAllConv");
  auto* none = new QPushButton("Select None", page);
  none->setObjectName("SelNoneConv");
  for (auto [button, on] : {std::pair{all, true}, std::pair{none, false}}) {
    connect(button, &QPushButton::clicked, this, [this, on = on] {
      for (int i = 0; i < list3_->topLevelItemCount(); ++i) setChecked(list3_->topLevelItem(i), on);
    });
  }
  row->addWidget(unsupported_);
  row->addStretch();
  row->addWidget(all);
  row->addWidget(none);
  row->addWidget(selSupported_);
  layout->addLayout(row);
  return page;
}

QWidget* RRImportWindow::buildTrunkTab() {
  auto* page = new QWidget;
  auto* layout = new QVBoxLayout(page);
  layout->addWidget(buildDetailsBox());
  auto* split = new QSplitter(Qt::Horizontal, page);
  tv2_ = makeTree("tv2", "Talkgroup categories (tick to fetch)", split);
  connect(tv2_, &QTreeWidget::itemChanged, this,
          [this](QTreeWidgetItem* item, int column) { onTalkgroupItemChanged(item, column); });
  auto* right = new QSplitter(Qt::Vertical, split);
  list4_ = makeList("ListView4",
                    {"#", "Site:", "ID:", "key:", "reband:", "splinter:", "lat:", "lon:", "range",
                     "county", "upd", "qkey:"},
                    right);
  list1_ = makeList("ListView1",
                    {"#", "Talkgroup:", "Description:", "Display:", "Group:", "Subfleet:", "tag:",
                     "mode:", "", "gps:", "slot:", "date:"},
                    right);
  list1_->setColumnHidden(8, true);
  connect(list1_, &QTreeWidget::itemChanged, this, [this](QTreeWidgetItem* item, int column) {
    if (filling_ || column != 0) return;
    ticks_[item->data(0, kKeyRole).toString().toStdString()] = item->checkState(0) == Qt::Checked;
    refreshServiceCounts();
  });
  list2_ = makeList("ListView2",
                    {"#", "Site:", "Freq:", "LCN:", "USe", "key", "id", "colorcode", "ch_id", "RAN",
                     "freq count", "NAC"},
                    right);
  right->setStretchFactor(0, 1);
  right->setStretchFactor(1, 2);
  right->setStretchFactor(2, 1);
  split->addWidget(tv2_);
  split->addWidget(right);
  split->setStretchFactor(1, 1);
  split->setSizes({300, 800});
  layout->addWidget(split, 1);
  return page;
}

QWidget* RRImportWindow::buildDetailsBox() {
  auto* box = new QGroupBox("System Details", nullptr);
  auto* grid = new QGridLayout(box);
  const char* captions[] = {
      "System ID:", "Sites:",   "FleetMap:", "Type:",     "Flavor:",   "Voice:",
      "Groups:",    "Updated:", "Wacn:",     "Latitude:", "Longitude:"};
  int i = 0;
  for (const char* caption : captions) {
    auto* value = new QLabel(box);
    value->setObjectName(QString("lbl_") + QString(caption).remove(':').remove(' '));
    value->setTextInteractionFlags(Qt::TextSelectableByMouse);
    value->setMinimumWidth(110);
    value->setWordWrap(true);
    auto* label = new QLabel(caption, box);
    label->setStyleSheet("color: palette(mid);");
    grid->addWidget(label, i % 4, (i / 4) * 2);
    grid->addWidget(value, i % 4, (i / 4) * 2 + 1);
    details_[caption] = value;
    ++i;
  }
  grid->addWidget(new QLabel("Band Plan:", box), 0, 6, Qt::AlignTop);
  bandPlan_ = new QTreeWidget(box);
  bandPlan_->setObjectName("BandPlan");
  bandPlan_->setHeaderLabels({"Base", "OffSet", "Step"});
  bandPlan_->setRootIsDecorated(false);
  bandPlan_->setMaximumHeight(100);
  bandPlan_->setMinimumWidth(240);
  grid->addWidget(bandPlan_, 0, 7, 4, 1);
  for (int c : {1, 3, 5}) grid->setColumnStretch(c, 1);
  return box;
}

// ---- TV1 ------------------------------------------------------------------------------------

void RRImportWindow::fillCategoryTree(const std::vector<RRCategory>& cats) {
  filling_ = true;
  tv1_->clear();
  categoryOf_.clear();
  for (const RRCategory& cat : cats) {
    auto* top = new QTreeWidgetItem(tv1_, {q(cat.cName)});
    top->setData(0, kKeyRole, QString("c%1").arg(cat.cid));
    top->setData(0, kNameRole, q(cat.cName));
    top->setFlags(top->flags() | Qt::ItemIsUserCheckable);
    setChecked(top, false);
    for (const RRSubcat& sub : cat.subcats) {
      auto* item = new QTreeWidgetItem(top, {q(sub.scName)});
      item->setData(0, kKeyRole, QString("c%1d%2").arg(cat.cid).arg(sub.scid));
      item->setData(0, kNameRole, q(sub.scName));
      item->setFlags(item->flags() | Qt::ItemIsUserCheckable);
      setChecked(item, false);
      categoryOf_[sub.scid] = cat;
    }
    top->setExpanded(true);
  }
  filling_ = false;
}

void RRImportWindow::onCategoryItemChanged(QTreeWidgetItem* item, int column) {
  if (filling_ || column != 0) return;
  const bool on = item->checkState(0) == Qt::Checked;
  if (!item->parent()) {  // a category ticks or unticks all its subcategories
    for (int i = 0; i < item->childCount(); ++i) setChecked(item->child(i), on);
    return;
  }
  const int scid = keyNumber(item->data(0, kKeyRole).toString(), 'd');
  const bool held = subcatFreqs_.count(scid) > 0;
  if (on == held) return;
  if (on) {
    fetchSubcat(item);
  } else {
    forgetFetched(subcatFreqs_, subcatOrder_, scid);
    restoreCaption(item);
  }
  refillConventional();
}

// A node's caption without its counts, and a tick taken back, both without the change handlers.
void RRImportWindow::restoreCaption(QTreeWidgetItem* item) {
  filling_ = true;
  item->setText(0, item->data(0, kNameRole).toString());
  filling_ = false;
}

void RRImportWindow::untickQuietly(QTreeWidgetItem* item) {
  filling_ = true;
  setChecked(item, false);
  filling_ = false;
}

void RRImportWindow::fetchSubcat(QTreeWidgetItem* item) {
  const int scid = keyNumber(item->data(0, kKeyRole).toString(), 'd');
  if (!beginCall()) {
    untickQuietly(item);
    return;
  }
  waitStatus(4);
  rr_->getSubcatFreqs(scid);
  endCall();
  const auto& freqs = rr_->subcatFreqs;
  subcatFreqs_[scid] = freqs;
  subcatOrder_.push_back(scid);
  const bool encrypted =
      std::any_of(freqs.begin(), freqs.end(), [](const RRFrequency& f) { return f.enc != 0; });
  QString text = item->data(0, kNameRole).toString() + QString("  (%1").arg(freqs.size()) +
                 (freqs.size() == 1 ? " Frequency" : " Frequencies") +
                 (encrypted ? " / Encrypted" : "") + ")";
  filling_ = true;
  item->setText(0, text);
  item->setToolTip(0, text);
  filling_ = false;
  done();
}

void RRImportWindow::refillConventional() {
  const std::string today = todayText();
  convRows_.clear();
  filling_ = true;
  list3_->clear();
  for (int scid : subcatOrder_) {
    const auto cat = categoryOf_.find(scid);
    if (cat == categoryOf_.end()) continue;
    const auto sub = std::find_if(cat->second.subcats.begin(), cat->second.subcats.end(),
                                  [scid](const RRSubcat& s) { return s.scid == scid; });
    if (sub == cat->second.subcats.end()) continue;
    for (const ConvRow& row :
         conventionalRows(subcatFreqs_[scid], cat->second, *sub, options_, today)) {
      const std::string key = "cvfr-" + std::to_string(scid) + "-" + std::to_string(row.fid);
      convRows_[key] = row;
      auto* item = new QTreeWidgetItem(
          list3_, {q(row.frequency), q(row.descr), q(row.alpha), q(row.tone), q(row.category),
                   q(row.tag), q(row.department), q(row.mode), q(row.gps), q(row.service),
                   q(row.colorCode), q(row.slot), q(row.updated), q(row.enc), q(row.tg)});
      item->setData(0, kKeyRole, QString::fromStdString(key));
      item->setFlags(item->flags() | Qt::ItemIsUserCheckable);
      const auto tick = ticks_.find(key);
      setChecked(item, tick == ticks_.end() ? row.ticked : tick->second);
      if (row.unsupported) {
        for (int c = 0; c < item->columnCount(); ++c) {
          item->setForeground(c, QColor(0xb0, 0, 0));
          item->setToolTip(c, ">> Unsupported Mode");
        }
      }
    }
  }
  filling_ = false;
  fitColumns(list3_);
  updateUnsupportedMark();
  refreshServiceCounts();
  refreshUpdates();
}

void RRImportWindow::updateUnsupportedMark() {
  const bool any = std::any_of(convRows_.begin(), convRows_.end(),
                               [](const auto& r) { return r.second.unsupported; });
  unsupported_->setVisible(any);
}

void RRImportWindow::selectSupportedOnly() {
  for (int i = 0; i < list3_->topLevelItemCount(); ++i) {
    QTreeWidgetItem* item = list3_->topLevelItem(i);
    const auto row = convRows_.find(item->data(0, kKeyRole).toString().toStdString());
    setChecked(item, row != convRows_.end() && !row->second.unsupported);
  }
}

std::vector<ConvRow> RRImportWindow::conventionalList() const {
  std::vector<ConvRow> rows;
  for (int i = 0; i < list3_->topLevelItemCount(); ++i) {
    const QTreeWidgetItem* item = list3_->topLevelItem(i);
    const auto row = convRows_.find(item->data(0, kKeyRole).toString().toStdString());
    if (row == convRows_.end()) continue;
    rows.push_back(row->second);
    rows.back().ticked = item->checkState(0) == Qt::Checked;
  }
  return rows;
}

// ---- tv2 and the trunked lists ----------------------------------------------------------------

void RRImportWindow::fillTrunkSystem() {
  filling_ = true;
  tv2_->clear();
  list4_->clear();
  list2_->clear();
  bandPlan_->clear();
  for (auto& [caption, label] : details_) label->clear();
  if (!trunkLoaded_) {
    filling_ = false;
    return;
  }
  for (const RRTalkgroupCat& cat : trunk_.categories) {
    auto* item = new QTreeWidgetItem(tv2_, {q(cat.tgCname)});
    item->setData(0, kKeyRole, QString("t%1").arg(cat.tgCid));
    item->setData(0, kNameRole, q(cat.tgCname));
    item->setFlags(item->flags() | Qt::ItemIsUserCheckable);
    setChecked(item, false);
  }
  for (const SiteRow& s : siteRows(trunk_)) {
    auto* item = new QTreeWidgetItem(
        list4_, {QString::number(s.number), q(s.name), QString::number(s.siteId), q(s.key),
                 s.rebanded ? "1" : "0", s.splinter ? "1" : "0", q(s.lat), q(s.lon), q(s.range),
                 q(s.county), q(s.updated), q(s.qkey)});
    item->setData(0, kKeyRole, s.number);
    item->setFlags(item->flags() | Qt::ItemIsUserCheckable);
    setChecked(item, s.ticked);
  }
  for (const SiteFreqRow& f : siteFreqRows(trunk_)) {
    new QTreeWidgetItem(
        list2_, {QString::number(f.number), q(f.site), q(f.freq), q(f.lcn), q(f.use), q(f.key),
                 q(f.id), q(f.colorCode), q(f.chId), q(f.ran), q(f.freqCount), q(f.nac)});
  }
  filling_ = false;
  fitColumns(list4_);
  fitColumns(list2_);

  const RRSystemDetails& d = trunk_.details;
  std::string fleet;
  for (const std::string& b : d.fleetmap) fleet += (fleet.empty() ? "" : "-") + b;
  if (fleet.empty()) fleet = " - - - - - - - - ";
  std::string voice;
  for (const RRVoice& v : rr_->voices)
    if (v.sType == d.sType && v.sVoice == d.sVoice) voice = v.sVoiceDescr;
  auto set = [this](const char* caption, const std::string& text) {
    details_[caption]->setText(q(text));
  };
  set("System ID:", d.sysid.empty() ? "" : d.sysid.front().sysid);
  set("Sites:", std::to_string(trunk_.sites.size()));
  set("FleetMap:", fleet);
  set("Type:", trunk_.typeName + (trunk_.bandLabel.empty() ? "" : " " + trunk_.bandLabel));
  set("Flavor:", trunk_.flavorText.empty() ? trunk_.flavorCode
                                           : trunk_.flavorText + " (" + trunk_.flavorCode + ")");
  set("Voice:", voice);
  set("Groups:", std::to_string(trunk_.categories.size()));
  set("Updated:", monthDayYear(trunk_.ref.lastUpdated));
  set("Wacn:", d.sysid.empty() ? "" : d.sysid.front().wacn);
  set("Latitude:", QString::number(d.lat, 'f', 6).toStdString());
  set("Longitude:", QString::number(d.lon, 'f', 6).toStdString());
  for (const RRBandPlan& b : d.bandplan)
    new QTreeWidgetItem(bandPlan_, {q(b.base), q(b.offset), q(b.spacing)});
}

void RRImportWindow::onTalkgroupItemChanged(QTreeWidgetItem* item, int column) {
  if (filling_ || column != 0) return;
  const int tgCid = keyNumber(item->data(0, kKeyRole).toString(), 't');
  const bool on = item->checkState(0) == Qt::Checked;
  if (on == (categoryTalkgroups_.count(tgCid) > 0)) return;
  if (on) {
    fetchTalkgroups(item);
  } else {
    forgetFetched(categoryTalkgroups_, categoryOrder_, tgCid);
    restoreCaption(item);
  }
  refillTalkgroups();
}

void RRImportWindow::fetchTalkgroups(QTreeWidgetItem* item) {
  const int tgCid = keyNumber(item->data(0, kKeyRole).toString(), 't');
  if (!beginCall()) {
    untickQuietly(item);
    return;
  }
  waitStatus(4);
  rr_->getTrsTalkgroups(trunk_.sid, tgCid, 0, 0);
  endCall();
  const auto& tgs = rr_->talkgroups;
  categoryTalkgroups_[tgCid] = tgs;
  categoryOrder_.push_back(tgCid);
  const bool partial =
      std::any_of(tgs.begin(), tgs.end(), [](const RRTalkgroup& t) { return t.enc == "1"; });
  const bool full =
      std::any_of(tgs.begin(), tgs.end(), [](const RRTalkgroup& t) { return t.enc == "2"; });
  const QString text =
      item->data(0, kNameRole).toString() + QString("  (TalkGroups: %1").arg(tgs.size()) +
      (tgs.size() == 1 ? " Tgid" : " Tgid's") + (partial ? " / Partial Encrypted" : "") +
      (full ? " / Full Encrypted" : "") + ")";
  filling_ = true;
  item->setText(0, text);
  item->setToolTip(0, text);
  filling_ = false;
  done();
}

void RRImportWindow::refillTalkgroups() {
  tgRows_.clear();
  filling_ = true;
  list1_->clear();
  int number = 1;
  for (int tgCid : categoryOrder_) {
    const auto cat = std::find_if(trunk_.categories.begin(), trunk_.categories.end(),
                                  [tgCid](const RRTalkgroupCat& c) { return c.tgCid == tgCid; });
    if (cat == trunk_.categories.end()) continue;
    const auto rows = talkgroupRows(categoryTalkgroups_[tgCid], *cat, trunk_, options_, number);
    int index = 0;
    for (const TalkgroupRow& row : rows) {
      const std::string key = "tgr-" + std::to_string(tgCid) + "-" + std::to_string(index++);
      tgRows_[key] = row;
      auto* item = new QTreeWidgetItem(
          list1_, {QString::number(row.number), q(row.id), q(row.descr), q(row.alpha), q(row.group),
                   q(row.subfleet), q(row.tag), q(row.mode), q(row.hidden), q(row.gps), q(row.slot),
                   q(row.date)});
      item->setData(0, kKeyRole, QString::fromStdString(key));
      item->setFlags(item->flags() | Qt::ItemIsUserCheckable);
      const auto tick = ticks_.find(key);
      setChecked(item, tick == ticks_.end() ? row.ticked : tick->second);
    }
    number += int(rows.size());
  }
  filling_ = false;
  fitColumns(list1_);
  refreshServiceCounts();
  refreshUpdates();
}

std::vector<TalkgroupRow> RRImportWindow::talkgroupList() const {
  std::vector<TalkgroupRow> rows;
  for (int i = 0; i < list1_->topLevelItemCount(); ++i) {
    const QTreeWidgetItem* item = list1_->topLevelItem(i);
    const auto row = tgRows_.find(item->data(0, kKeyRole).toString().toStdString());
    if (row == tgRows_.end()) continue;
    rows.push_back(row->second);
    rows.back().ticked = item->checkState(0) == Qt::Checked;
  }
  return rows;
}

std::vector<SiteRow> RRImportWindow::siteList() const {
  std::vector<SiteRow> rows = trunkLoaded_ ? siteRows(trunk_) : std::vector<SiteRow>{};
  for (int i = 0; i < list4_->topLevelItemCount() && i < int(rows.size()); ++i)
    rows[std::size_t(i)].ticked = list4_->topLevelItem(i)->checkState(0) == Qt::Checked;
  return rows;
}

}  // namespace zel::ui
