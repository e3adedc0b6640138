#include "ui/full_database_window.h"

#include <QApplication>
#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QFileDialog>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTimer>
#include <QToolButton>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "core/atomic_file.h"
#include "grid/vocabulary.h"
#include "ui/qt_feedback.h"

namespace zel::ui {

namespace {

using database::ChannelKinds;
using database::DbSetting;

constexpr const char* kWindowCaption = "Manage Full Database (US models only!)";
constexpr const char* kNoSelection = "Please select one or more channels";

QPushButton* button(QWidget* parent, const char* name, const QString& caption,
                    const QString& tip) {
  auto* b = new QPushButton(caption, parent);
  b->setObjectName(name);
  b->setToolTip(tip);
  return b;
}

void selectWord(QComboBox* combo, const std::string& word) {
  const int at = combo->findText(fromLatin1(word));
  if (at >= 0) combo->setCurrentIndex(at);
}

// Shows the wait cursor while a long step runs.
class Busy {
 public:
  Busy() { QApplication::setOverrideCursor(Qt::WaitCursor); }
  ~Busy() { QApplication::restoreOverrideCursor(); }
  Busy(const Busy&) = delete;
  Busy& operator=(const Busy&) = delete;
};

}  // namespace

FullDatabaseWindow::FullDatabaseWindow(Session& session, Feedback& feedback,
                                       const transfer::DriveRoots& roots, QWidget* parent)
    : QDialog(parent), session_(session), feedback_(feedback), roots_(roots) {
  setObjectName("frm_dbase_superedit");
  setWindowTitle(kWindowCaption);
  remembered_ = database::loadDbRemembered(session_.settingsCodec());
  build();
  resize(980, 680);
}

FullDatabaseWindow::~FullDatabaseWindow() = default;

void FullDatabaseWindow::build() {
  // The source of the database: the card or the local copy.
  auto* source = new QGroupBox("Database", this);
  optionCard_ = new QRadioButton("Database in Scanner", source);
  optionCard_->setObjectName("Option1_0");
  optionLocal_ = new QRadioButton("Sentinel Database", source);
  optionLocal_->setObjectName("Option1_1");
  (remembered_.source == 1 ? optionLocal_ : optionCard_)->setChecked(true);
  auto* detect = button(this, "Command6", "&Detect Scanner",
                        "Look for a scanner card in mass storage mode and read its database index");
  auto* detectHp1 = button(this, "Command5", "detect hp1",
                           "Look for a HomePatrol-1 card and read its database index");
  auto* openLocal = button(this, "Command9", "open sentinel base",
                           "Read the index of the local copy in the folder below");
  localFolder_ = new QLineEdit(fromLatin1(remembered_.localFolder), source);
  localFolder_->setObjectName("txtLocalFolder");
  localFolder_->setToolTip("The folder of the local copy that holds HPDB.cfg (HPDB.config for a HomePatrol)");
  auto* browse = new QToolButton(source);
  browse->setObjectName("cmdLocalFolder");
  browse->setText("...");
  browse->setToolTip("Choose the folder of the local copy");
  connect(detect, &QPushButton::clicked, this, [this] { detectScanner(); });
  connect(detectHp1, &QPushButton::clicked, this, [this] { detectHomePatrol1(); });
  connect(openLocal, &QPushButton::clicked, this, [this] { openLocalBase(); });
  connect(browse, &QToolButton::clicked, this, [this] { chooseLocalFolder(); });
  auto* sourceGrid = new QGridLayout(source);
  sourceGrid->addWidget(optionCard_, 0, 0);
  sourceGrid->addWidget(detect, 0, 1);
  sourceGrid->addWidget(detectHp1, 0, 2);
  sourceGrid->addWidget(optionLocal_, 1, 0);
  sourceGrid->addWidget(localFolder_, 1, 1);
  sourceGrid->addWidget(browse, 1, 2);
  sourceGrid->addWidget(openLocal, 1, 3);

  label_ = new QLabel(this);
  label_->setObjectName("Label1");
  label_->setWordWrap(true);

  combo1_ = new QComboBox(this);
  combo1_->setObjectName("Combo1");
  combo1_->addItem(fromLatin1(std::string(database::kSelectFileHead)));
  combo2_ = new QComboBox(this);
  combo2_->setObjectName("Combo2");
  combo4_ = new QComboBox(this);
  combo4_->setObjectName("Combo4");
  connect(combo1_, qOverload<int>(&QComboBox::activated), this, [this](int i) { chooseState(i); });
  connect(combo2_, qOverload<int>(&QComboBox::activated), this, [this](int i) { chooseSystem(i); });
  connect(combo4_, qOverload<int>(&QComboBox::activated), this,
          [this](int i) { chooseDepartment(i); });

  auto* listAllButton = button(this, "Command8_0", "List All", "List every channel of the file");
  auto* listConv = button(this, "Command8_1", "List All Conv.", "List every conventional frequency");
  auto* listTrunk = button(this, "Command8_2", "List All Trunk", "List every talkgroup");
  connect(listAllButton, &QPushButton::clicked, this, [this] { listAll(ChannelKinds::Both); });
  connect(listConv, &QPushButton::clicked, this, [this] { listAll(ChannelKinds::Conventional); });
  connect(listTrunk, &QPushButton::clicked, this, [this] { listAll(ChannelKinds::Trunk); });

  listView3_ = new QTreeWidget(this);
  listView3_->setObjectName("ListView3");
  listView3_->setRootIsDecorated(false);
  listView3_->setUniformRowHeights(true);
  QStringList heads;
  for (std::string_view h : database::kChannelColumns) heads << fromLatin1(std::string(h));
  listView3_->setHeaderLabels(heads);
  listView3_->header()->setSectionResizeMode(QHeaderView::Interactive);
  listView3_->setColumnWidth(0, 70);
  listView3_->setColumnWidth(1, 110);
  listView3_->setColumnWidth(2, 260);
  // The space bar ticks the current row, as the check box of a list view does.
  listView3_->setToolTip("Tick the channels to change; Space ticks the current row");

  // The settings panel: one check box and one combo a setting, then the service filter.
  auto* settings = new QGroupBox("Settings", this);
  auto* settingsGrid = new QGridLayout(settings);
  int r = 0;
  for (const database::DbSettingInfo& info : database::dbSettingTable()) {
    auto* check = new QCheckBox(fromLatin1(std::string(info.caption)), settings);
    check->setObjectName(QString("check1_%1").arg(r));
    auto* combo = new QComboBox(settings);
    combo->setObjectName(QString("cmb_s_%1").arg(r));
    for (const std::string& w : database::dbChoices(info.setting)) combo->addItem(fromLatin1(w));
    check->setChecked(remembered_.ticked[r]);
    selectWord(combo, remembered_.values[r]);
    check->setToolTip(info.talkgroupField == 0 ? "Written on conventional frequencies only"
                                               : "Written on frequencies and talkgroups");
    settingsGrid->addWidget(check, r, 0);
    settingsGrid->addWidget(combo, r, 1);
    checks_[r] = check;
    combos_[r] = combo;
    ++r;
  }
  settingsGrid->addWidget(new QLabel("ServiceType Filter:", settings), r, 0);
  combo5_ = new QComboBox(settings);
  combo5_->setObjectName("Combo5");
  combo5_->addItem(fromLatin1(std::string(database::kNoServiceFilter)));
  for (const std::string& s : vocab::serviceTypesOffered()) combo5_->addItem(fromLatin1(s));
  if (combo5_->findText(fromLatin1(remembered_.service)) < 0) {
    combo5_->addItem(fromLatin1(remembered_.service));
  }
  selectWord(combo5_, remembered_.service);
  connect(combo5_, &QComboBox::textActivated, this, [this](const QString& t) { setServiceFilter(t); });
  settingsGrid->addWidget(combo5_, r, 1);
  settingsGrid->setRowStretch(r + 1, 1);

  selectAll_ = button(this, "Command2", "Select All", "Tick or untick every listed channel");
  auto* applyButton = button(this, "Command3", "&Apply Settings To Selected Channels",
                             "Write the ticked settings into the ticked channels and save the file");
  auto* led = button(this, "Command1", "Apply Led Color Filter", "");
  auto* close = button(this, "Command4", "&Close", "Close the window");
  connect(selectAll_, &QPushButton::clicked, this, [this] { selectAll(); });
  connect(applyButton, &QPushButton::clicked, this, [this] { apply(); });
  connect(led, &QPushButton::clicked, this, [this] { ledColorFilter(); });
  connect(close, &QPushButton::clicked, this, [this] { reject(); });

  auto* picks = new QGridLayout;
  picks->addWidget(new QLabel("Select State File:", this), 0, 0);
  picks->addWidget(combo1_, 0, 1, 1, 3);
  picks->addWidget(new QLabel("Select System:", this), 1, 0);
  picks->addWidget(combo2_, 1, 1, 1, 3);
  picks->addWidget(new QLabel("Select Department:", this), 2, 0);
  picks->addWidget(combo4_, 2, 1, 1, 3);
  picks->addWidget(listAllButton, 3, 1);
  picks->addWidget(listConv, 3, 2);
  picks->addWidget(listTrunk, 3, 3);
  picks->setColumnStretch(1, 1);
  picks->setColumnStretch(2, 1);
  picks->setColumnStretch(3, 1);

  auto* left = new QVBoxLayout;
  left->addLayout(picks);
  left->addWidget(listView3_, 1);
  auto* right = new QVBoxLayout;
  right->addWidget(settings, 1);
  right->addWidget(selectAll_);
  right->addWidget(applyButton);
  right->addWidget(led);
  right->addWidget(close);
  auto* body = new QHBoxLayout;
  body->addLayout(left, 3);
  body->addLayout(right, 1);
  auto* all = new QVBoxLayout(this);
  all->addWidget(source);
  all->addWidget(label_);
  all->addLayout(body, 1);
}

database::DbFamily FullDatabaseWindow::family() const {
  return session_.document().family == ScannerFamily::HP ? database::DbFamily::HomePatrol
                                                         : database::DbFamily::Bcd;
}

void FullDatabaseWindow::setStatus(const QString& text) {
  label_->setText(text);
}

QString FullDatabaseWindow::statusText() const {
  return label_->text();
}

void FullDatabaseWindow::showEvent(QShowEvent* event) {
  QDialog::showEvent(event);
  if (!firstShow_) return;
  firstShow_ = false;
  // The first search runs once the window is on screen, so that it shows while the card
  // roots are tried.
  QTimer::singleShot(0, this, [this] {
    if (optionCard_->isChecked()) detectScanner();
    else if (!localFolder_->text().isEmpty()) openLocalBase();
  });
}

bool FullDatabaseWindow::detectScanner() {
  optionCard_->setChecked(true);
  Busy busy;
  const database::DbDetection d =
      database::detectDatabaseCard(roots_, session_.folders().data, &session_.settingsCodec());
  setStatus(fromLatin1(d.label));
  if (!d.found) {
    feedback_.message(database::kScannerNotFound);
    return false;
  }
  if (!d.location) {
    feedback_.message("The scanner's card at " + d.drive + " holds no full database.");
    return false;
  }
  fillStates(*d.location);
  return true;
}

bool FullDatabaseWindow::detectHomePatrol1() {
  optionCard_->setChecked(true);
  Busy busy;
  const database::DbDetection d =
      database::detectHomePatrol1(roots_, session_.folders().data, &session_.settingsCodec());
  setStatus(fromLatin1(d.label));
  if (!d.found) {
    feedback_.message(database::kHomePatrol1NotFound);
    return false;
  }
  if (d.firmwareTooOld) feedback_.message(database::kHomePatrolFirmwareTooOld);
  fillStates(*d.location);
  return true;
}

void FullDatabaseWindow::chooseLocalFolder() {
  QString folder;
  if (chooser_) {
    folder = chooser_();
  } else {
    folder = QFileDialog::getExistingDirectory(this, "The folder of the local database copy",
                                               localFolder_->text());
  }
  if (folder.isEmpty()) return;
  localFolder_->setText(folder);
  remember();
}

bool FullDatabaseWindow::openLocalBase() {
  optionLocal_->setChecked(true);
  if (localFolder_->text().isEmpty()) chooseLocalFolder();
  const std::string folder = toLatin1(localFolder_->text());
  std::optional<database::DatabaseLocation> location;
  if (!folder.empty()) location = database::locateInFolder(folder, family());
  if (location) {
    const database::IndexReadResult index = database::readIndex(*location);
    if (!index.ok() || index.states.empty()) location.reset();
  }
  if (!location) {
    setStatus(database::kLocalBaseNotFound);
    feedback_.message(database::kLocalBaseNotFound);
    return false;
  }
  setStatus(fromLatin1("Local database at " + location->folder));
  remember();
  fillStates(*location);
  return true;
}

void FullDatabaseWindow::fillStates(const database::DatabaseLocation& location) {
  const database::IndexReadResult index = database::readIndex(location);
  states_ = index.states;
  listFamily_ = location.family;
  combo1_->clear();
  combo1_->addItem(fromLatin1(std::string(database::kSelectFileHead)));
  for (const database::StateEntry& s : states_) {
    combo1_->addItem(fromLatin1(database::stateListEntry(s, listFamily_)));
  }
  combo2_->clear();
  combo4_->clear();
  listView3_->clear();
  file_.reset();
  path_.clear();
  if (!index.ok()) feedback_.message(index.error);
}

bool FullDatabaseWindow::chooseState(int comboIndex) {
  if (comboIndex < 1 || comboIndex > static_cast<int>(states_.size())) return false;
  combo1_->setCurrentIndex(comboIndex);
  const database::StateEntry& state = states_[comboIndex - 1];
  combo2_->clear();
  combo4_->clear();
  listView3_->clear();
  file_.reset();
  path_.clear();
  Busy busy;
  database::StateLoad load = database::loadStateFile(state.path);
  if (!load.file) {
    feedback_.message(load.error);
    return false;
  }
  file_ = std::move(load.file);
  path_ = state.path;
  combo2_->addItem(fromLatin1(std::string(database::kSelectSystemHead)));
  for (const database::SystemInfo& s : file_->systems()) combo2_->addItem(fromLatin1(s.label));
  setStatus(fromLatin1(state.fileName + ": " + std::to_string(file_->systems().size()) +
                       " systems, " + std::to_string(file_->departments().size()) +
                       " departments, " + std::to_string(file_->rows().size()) + " lines"));
  return true;
}

void FullDatabaseWindow::chooseSystem(int comboIndex) {
  if (!file_ || comboIndex < 1 || comboIndex > static_cast<int>(file_->systems().size())) return;
  combo2_->setCurrentIndex(comboIndex);
  combo4_->clear();
  combo4_->addItem(fromLatin1(std::string(database::kAllDepartmentsHead)));
  for (const database::DepartmentInfo& d : database::departmentsOf(*file_, comboIndex)) {
    combo4_->addItem(fromLatin1(d.name));
  }
  database::ChannelFilter filter;
  filter.system = comboIndex;
  fillChannels(filter);
}

void FullDatabaseWindow::chooseDepartment(int comboIndex) {
  const int system = combo2_->currentIndex();
  if (!file_ || system < 1 || comboIndex < 0 || comboIndex >= combo4_->count()) return;
  combo4_->setCurrentIndex(comboIndex);
  database::ChannelFilter filter;
  filter.system = system;
  filter.department = comboIndex;  // 0, the head, lists every department
  fillChannels(filter);
}

void FullDatabaseWindow::listAll(ChannelKinds kinds) {
  if (!file_) return;
  database::ChannelFilter filter;
  filter.kinds = kinds;
  fillChannels(filter);
}

void FullDatabaseWindow::setServiceFilter(const QString& text) {
  selectWord(combo5_, toLatin1(text));
  if (file_) fillChannels(lastFilter_);
}

void FullDatabaseWindow::fillChannels(const database::ChannelFilter& wanted) {
  lastFilter_ = wanted;
  database::ChannelFilter filter = wanted;
  filter.service = std::max(0, database::serviceFilterNumber(toLatin1(combo5_->currentText())));
  Busy busy;
  const std::vector<database::ChannelItem> items = database::listChannels(*file_, filter);
  listView3_->setUpdatesEnabled(false);
  listView3_->clear();
  QList<QTreeWidgetItem*> rows;
  rows.reserve(static_cast<int>(items.size()));
  int n = 0;
  for (const database::ChannelItem& i : items) {
    auto* item = new QTreeWidgetItem(
        {QString::number(++n), fromLatin1(i.frequencyOrId), fromLatin1(i.alphaTag),
         fromLatin1(i.serviceName)});
    item->setData(0, Qt::UserRole, QString::fromStdString(i.key));
    item->setFlags(item->flags() | Qt::ItemIsUserCheckable);
    item->setCheckState(0, Qt::Unchecked);
    rows.append(item);
  }
  listView3_->addTopLevelItems(rows);
  listView3_->setUpdatesEnabled(true);
  selectAll_->setText("Select All");
}

void FullDatabaseWindow::selectAll() {
  const bool tick = selectAll_->text() == "Select All";
  for (int i = 0; i < listView3_->topLevelItemCount(); ++i) {
    listView3_->topLevelItem(i)->setCheckState(0, tick ? Qt::Checked : Qt::Unchecked);
  }
  selectAll_->setText(tick ? "UnSelect All" : "Select All");
}

void FullDatabaseWindow::tickChannel(int row, bool ticked) {
  if (QTreeWidgetItem* item = listView3_->topLevelItem(row)) {
    item->setCheckState(0, ticked ? Qt::Checked : Qt::Unchecked);
  }
}

void FullDatabaseWindow::setSetting(DbSetting setting, bool ticked, const QString& value) {
  const int n = static_cast<int>(setting);
  checks_[n]->setChecked(ticked);
  if (!value.isEmpty()) selectWord(combos_[n], toLatin1(value));
}

bool FullDatabaseWindow::apply() {
  std::vector<std::size_t> rows;
  for (int i = 0; i < listView3_->topLevelItemCount(); ++i) {
    const QTreeWidgetItem* item = listView3_->topLevelItem(i);
    if (item->checkState(0) != Qt::Checked || !file_) continue;
    const long row = file_->findRow(item->data(0, Qt::UserRole).toString().toStdString());
    if (row >= 0) rows.push_back(static_cast<std::size_t>(row));
  }
  if (rows.empty()) {
    feedback_.message(kNoSelection);
    return false;
  }
  std::vector<database::DbChange> changes;
  for (int n = 0; n < database::kDbSettingCount; ++n) {
    if (checks_[n]->isChecked()) {
      changes.push_back({database::dbSettingTable()[n].setting, toLatin1(combos_[n]->currentText())});
    }
  }
  remember();
  // The rows are changed on a copy, so that a failed write leaves the window's rows as the
  // file still is.
  database::StateFile changed = *file_;
  const database::ApplyResult result = database::applyChanges(changed, rows, changes);
  Busy busy;
  const WriteStatus written =
      writeFileAtomically(path_, changed.text(), KeepBackup::OncePerSession);
  if (!written.ok) {
    setStatus(fromLatin1(written.message));
    feedback_.message(written.message);
    return false;
  }
  file_ = std::move(changed);
  std::string status = "Changed " + std::to_string(result.linesChanged) + " of " +
                       std::to_string(rows.size()) + " ticked channels; " + path_ + " written.";
  if (written.backupMade) status += " The previous content is kept in " + backupPathFor(path_) + ".";
  setStatus(fromLatin1(status));
  return true;
}

void FullDatabaseWindow::remember() {
  for (int n = 0; n < database::kDbSettingCount; ++n) {
    remembered_.ticked[n] = checks_[n]->isChecked();
    remembered_.values[n] = toLatin1(combos_[n]->currentText());
  }
  remembered_.service = toLatin1(combo5_->currentText());
  remembered_.source = optionLocal_->isChecked() ? 1 : 0;
  remembered_.localFolder = toLatin1(localFolder_->text());
  database::saveDbRemembered(session_.settingsCodec(), remembered_);
}

void FullDatabaseWindow::done(int result) {
  remember();
  QDialog::done(result);
}

FullDatabaseWindow* openFullDatabase(QWidget* parent, Session& session, Feedback& feedback,
                                     const transfer::DriveRoots& roots) {
  auto* window = new FullDatabaseWindow(session, feedback, roots, parent);
  window->setAttribute(Qt::WA_DeleteOnClose);
  window->setWindowFlag(Qt::Window);
  window->show();
  return window;
}

}  // namespace zel::ui
