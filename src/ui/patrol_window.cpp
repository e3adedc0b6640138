#include "ui/patrol_window.h"

#include <QApplication>
#include <QCheckBox>
#include <QCloseEvent>
#include <QComboBox>
#include <QDesktopServices>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QTreeWidget>
#include <QUrl>
#include <QVBoxLayout>
#include <algorithm>
#include <filesystem>

#include "core/settings.h"
#include "core/text.h"
#include "core/tree_operations.h"
#include "formats/profile_config.h"
#include "formats/text_file.h"
#include "transfer/card_transfer.h"
#include "transfer/service_search.h"
#include "ui/qt_feedback.h"

namespace zel::ui {

namespace {

constexpr int kRowRole = Qt::UserRole + 1;     // index into the card's rows
constexpr int kOrphanRole = Qt::UserRole + 2;  // the orphan's file name

enum Column { Tag, Name, File, Monitor, Location, Keys, Startup, SystemKeys, State, Columns };

const char* const kServiceCaptions[9] = {"CB",       "FRS",         "GMRS",
                                         "Marine",   "RailRoad",    "HAM 2 mtr",
                                         "HAM 70cm", "AIR 118-136", "Public Safety"};
const char* const kQuickKeyCaptions[4] = {"Clear FL Qkey", "Auto Assign Qkey", "All Sys Qkey On",
                                          "All On"};

QString lampStyle(int colour) {
  return QString("background-color: #%1; border: 1px solid #404040; border-radius: 7px;")
      .arg(colour == 0 ? 0x802020 : colour, 6, 16, QChar('0'));
}

std::string flipped(const std::string& onOff) {
  return onOff == "On" ? "Off" : "On";
}

}  // namespace

// The window's own feedback: progress goes to `Label3`, everything else to the session's.
class Label3Feedback : public Feedback {
 public:
  Label3Feedback(Feedback& inner, QLabel* label) : inner_(inner), label_(label) {}
  void message(std::string_view text, std::string_view title = {}) override {
    inner_.message(text, title);
  }
  Answer ask(std::string_view title, std::string_view text, Buttons buttons) override {
    return inner_.ask(title, text, buttons);
  }
  void status(std::string_view text) override { inner_.status(text); }
  void progress(std::string_view text) override {
    label_->setText(fromLatin1(text));
    inner_.progress(text);
    QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
  }
  void log(std::string_view line) override { inner_.log(line); }
  void beep() override { inner_.beep(); }

 private:
  Feedback& inner_;
  QLabel* label_;
};

PatrolWindow::PatrolWindow(Session& session, Feedback& feedback, const transfer::DriveRoots& roots,
                           QWidget* parent)
    : QMainWindow(parent), session_(session), feedback_(feedback), roots_(roots) {
  build();
  restoreOptions();
  detect();
}

PatrolWindow::PatrolWindow(Session& session, Feedback& feedback, QWidget* parent)
    : QMainWindow(parent),
      session_(session),
      feedback_(feedback),
      ownedRoots_(std::make_unique<transfer::MountPointRoots>()),
      roots_(*ownedRoots_) {
  build();
  restoreOptions();
  detect();
}

PatrolWindow::~PatrolWindow() = default;

QPushButton* PatrolWindow::button(const QString& objectName, const QString& caption,
                                  QWidget* parent) {
  auto* b = new QPushButton(caption, parent);
  b->setObjectName(objectName);
  return b;
}

void PatrolWindow::build() {
  setObjectName("frm_patrol");
  setWindowTitle("Scanner Favorites Lists");
  auto* host = new QWidget(this);
  auto* layout = new QVBoxLayout(host);
  layout->addWidget(buildDetectionBox());

  auto* middle = new QHBoxLayout;
  listView1_ = new QTreeWidget(host);
  listView1_->setObjectName("ListView1");
  listView1_->setColumnCount(Columns);
  listView1_->setHeaderLabels({"", "Name", "File", "Monitor", "Location", "Quick Key",
                               "Startup Keys", "System Quick Keys", ""});
  listView1_->setRootIsDecorated(false);
  listView1_->setSelectionMode(QAbstractItemView::ExtendedSelection);
  listView1_->setEditTriggers(QAbstractItemView::NoEditTriggers);
  listView1_->header()->setSectionsClickable(true);
  connect(listView1_->header(), &QHeaderView::sectionClicked, this,
          [this](int column) { sortByColumn(column); });
  connect(listView1_, &QTreeWidget::itemChanged, this, &PatrolWindow::onItemChanged);
  connect(listView1_, &QTreeWidget::itemDoubleClicked, this, &PatrolWindow::onItemDoubleClicked);
  middle->addWidget(listView1_, 3);

  listView2_ = new QListWidget(host);
  listView2_->setObjectName("ListView2");
  middle->addWidget(listView2_, 1);
  layout->addLayout(middle, 1);
  layout->addWidget(buildListButtons());
  layout->addWidget(buildSaveBox());
  proBox_ = buildProBox();
  layout->addWidget(proBox_);
  setCentralWidget(host);
  label3Feedback_ = std::make_unique<Label3Feedback>(feedback_, label3_);
  resize(900, 640);
}

QWidget* PatrolWindow::buildDetectionBox() {
  auto* box = new QWidget(this);
  auto* row = new QHBoxLayout(box);
  row->setContentsMargins(0, 0, 0, 0);
  lamp_ = new QLabel(box);
  lamp_->setObjectName("detectLamp");
  lamp_->setFixedSize(14, 14);
  row->addWidget(lamp_);
  command2_ = button("Command2", "Detect", box);
  command2_->setStyleSheet("background-color: #f0e040;");
  connect(command2_, &QPushButton::clicked, this, &PatrolWindow::detect);
  row->addWidget(command2_);
  auto* command14 = button("Command14", "Drivetest", box);
  connect(command14, &QPushButton::clicked, this, &PatrolWindow::openDriveReport);
  row->addWidget(command14);
  const char* drives[3] = {"include_drive_c", "include_drive_d", "include_drive_e"};
  for (int i = 0; i < 3; ++i) {
    check10_[i] = new QCheckBox(drives[i], box);
    check10_[i]->setObjectName(QString("Check10_%1").arg(i));
    check10_[i]->hide();  // shown when no card is found, so that D: and E: can be added
    row->addWidget(check10_[i]);
  }
  label3_ = new QLabel(box);
  label3_->setObjectName("Label3");
  label3_->setWordWrap(true);
  row->addWidget(label3_, 1);
  return box;
}

QWidget* PatrolWindow::buildListButtons() {
  auto* box = new QWidget(this);
  auto* row = new QHBoxLayout(box);
  row->setContentsMargins(0, 0, 0, 0);
  auto* selected = button("Command10_0", "Write Selected", box);
  auto* all = button("Command10_1", "Write All", box);
  connect(selected, &QPushButton::clicked, this, [this] { writeLists(false); });
  connect(all, &QPushButton::clicked, this, [this] { writeLists(true); });
  auto* del = button("Command4", "Delete Selected Fav List", box);
  connect(del, &QPushButton::clicked, this, &PatrolWindow::deleteSelected);
  auto* sort = button("Command6_0", "Sort", box);
  connect(sort, &QPushButton::clicked, this, &PatrolWindow::writeView);
  auto* selAll = button("Command6_2", "Sel.All", box);
  connect(selAll, &QPushButton::clicked, this, &PatrolWindow::selectAll);
  auto* edit = button("Command8_0", "Edit", box);
  connect(edit, &QPushButton::clicked, this, &PatrolWindow::editSelected);
  auto* down = button("Command8_1", "Down", box);
  connect(down, &QPushButton::clicked, this, &PatrolWindow::moveSelectedDown);
  auto* keep = button("cmdKeepOrphan", "Keep Orphan", box);
  connect(keep, &QPushButton::clicked, this, &PatrolWindow::keepOrphans);
  check9_ = new QCheckBox("Clear Browser", box);
  check9_->setObjectName("Check9");
  for (QWidget* w : std::initializer_list<QWidget*>{selected, all, check9_, del, sort, selAll, edit,
                                                    down, keep}) {
    row->addWidget(w);
  }
  row->addStretch(1);
  command5_ = button("Command5", "Switch Basic", box);
  connect(command5_, &QPushButton::clicked, this, &PatrolWindow::switchLevel);
  row->addWidget(command5_);
  auto* closeButton = button("Command6_1", "Close", box);
  connect(closeButton, &QPushButton::clicked, this, &QWidget::close);
  row->addWidget(closeButton);
  return box;
}

QWidget* PatrolWindow::buildSaveBox() {
  auto* box = new QGroupBox("Save Favorite List", this);
  auto* grid = new QGridLayout(box);
  option2_[0] = new QRadioButton("Overwrite Existing Favorites List:", box);
  option2_[1] = new QRadioButton("Add as New Favorites List", box);
  option2_[0]->setObjectName("Option2_0");
  option2_[1]->setObjectName("Option2_1");
  option2_[1]->setChecked(true);
  combo2_ = new QComboBox(box);
  combo2_->setObjectName("Combo2");
  newName_ = new QLineEdit(box);
  newName_->setObjectName("Text1");
  newName_->setPlaceholderText("Name of the new list");
  check6_ = new QCheckBox("Copy in Name", box);
  check6_->setObjectName("Check6");
  check7_ = new QCheckBox("Enable Quickkeys/Service Type after upload", box);
  check7_->setObjectName("Check7");
  check8_ = new QCheckBox("Overwrite files with same name", box);
  check8_->setObjectName("Check8");
  check8_->setToolTip(
      "Let a new list take a number whose file lies on the card unnamed (kept as .bac)");
  connect(check8_, &QCheckBox::toggled, this, [this](bool on) {
    if (card_) card_->setOverwriteFiles(on);
  });
  auto* save = button("Command13", "Save Favorite List", box);
  connect(save, &QPushButton::clicked, this, &PatrolWindow::saveFavoriteList);
  grid->addWidget(option2_[0], 0, 0);
  grid->addWidget(combo2_, 0, 1);
  grid->addWidget(option2_[1], 1, 0);
  grid->addWidget(newName_, 1, 1);
  grid->addWidget(check6_, 2, 0);
  grid->addWidget(check7_, 2, 1);
  grid->addWidget(check8_, 3, 0);
  grid->addWidget(save, 3, 1);
  return box;
}

QWidget* PatrolWindow::buildProBox() {
  auto* box = new QGroupBox("Quick Keys and Service Search", this);
  auto* grid = new QGridLayout(box);
  for (int i = 0; i < 4; ++i) {
    auto* b = button(QString("Command12_%1").arg(i), kQuickKeyCaptions[i], box);
    connect(b, &QPushButton::clicked, this, [this, i] { quickKeyCommand(i); });
    grid->addWidget(b, 0, i);
  }
  auto* enable = button("Command9", "Enable All Quickkeys/Service Type", box);
  connect(enable, &QPushButton::clicked, this, &PatrolWindow::enableAllQuickkeys);
  grid->addWidget(enable, 0, 4, 1, 2);
  for (int i = 0; i < 9; ++i) {
    command11_[i] = button(QString("Command11_%1").arg(i), kServiceCaptions[i], box);
    connect(command11_[i], &QPushButton::clicked, this, [this, i] { addServiceSearch(i); });
    grid->addWidget(command11_[i], 1 + i / 6, i % 6);
  }
  return box;
}

void PatrolWindow::restoreOptions() {
  Settings& settings = session_.settingsCodec();
  const char* drives[3] = {"include_drive_c", "include_drive_d", "include_drive_e"};
  for (int i = 0; i < 3; ++i) {
    check10_[i]->setChecked(settings.getPlain("scanner", drives[i], "0") == "1");
  }
  if (settings.getPlain("scanner", "startup", "1") == "0") switchLevel();
}

void PatrolWindow::storeOptions() {
  Settings& settings = session_.settingsCodec();
  settings.put("scanner", "startup", pro_ ? "1" : "0");
  const char* drives[3] = {"include_drive_c", "include_drive_d", "include_drive_e"};
  for (int i = 0; i < 3; ++i)
    settings.put("scanner", drives[i], check10_[i]->isChecked() ? "1" : "0");
  settings.store().flush();
}

QString PatrolWindow::label3Text() const {
  return label3_->text();
}

void PatrolWindow::detect() {
  transfer::DetectOptions options;
  options.includeC = check10_[0]->isChecked();
  options.includeD = check10_[1]->isChecked();
  options.includeE = check10_[2]->isChecked();
  options.version = toLatin1(QCoreApplication::applicationVersion());
  std::error_code ec;
  std::filesystem::create_directories(session_.folders().data, ec);
  if (!ec) options.reportPath = session_.folders().data + "/drivetest.txt";
  label3_->clear();
  const transfer::CardState& state = detector_.detect(roots_, options, &session_.settingsCodec());
  lamp_->setStyleSheet(lampStyle(state.lamp));
  lamp_->setProperty("colour", state.lamp);
  label3_->setText(fromLatin1(state.label3));
  if (!state.detected()) {
    check10_[1]->show();
    check10_[2]->show();
    command2_->setEnabled(true);
    card_.reset();
    fillViews();
    return;
  }
  loadLists();
}

bool PatrolWindow::gate() {
  if (detector_.gate()) return true;
  label3_->setText(fromLatin1(detector_.state().label3));
  return false;
}

void PatrolWindow::loadLists() {
  card_ = std::make_unique<transfer::FavoritesCard>(detector_.state());
  card_->setOverwriteFiles(check8_->isChecked());
  const transfer::StepStatus st = card_->load();
  if (!st.ok) label3_->setText(fromLatin1(st.message));
  fillViews();
}

void PatrolWindow::fillViews() {
  fillListView();
  fillCombo();
  fillDocumentList();
}

void PatrolWindow::fillListView() {
  filling_ = true;
  listView1_->clear();
  if (card_) {
    const auto& rows = card_->rows();
    for (std::size_t i = 0; i < rows.size(); ++i) {
      const transfer::FavoritesRow& r = rows[i];
      auto* item = new QTreeWidgetItem(listView1_);
      item->setText(Tag, fromLatin1(r.tag.empty() ? "F-List" : r.tag));
      item->setText(Name, fromLatin1(r.name));
      item->setText(File, fromLatin1(r.file));
      item->setText(Monitor, fromLatin1(r.monitor));
      item->setText(Location, fromLatin1(r.locationControl));
      item->setText(Keys, fromLatin1(r.quickKeyText()));
      item->setText(Startup, fromLatin1(r.startupKeys));
      item->setText(SystemKeys, fromLatin1(r.systemKeys));
      item->setText(State, fromLatin1(r.state));
      item->setData(0, kRowRole, static_cast<int>(i));
      item->setFlags(item->flags() | Qt::ItemIsEditable);
      if (!formats::fileExists(card_->paths().path(r.file))) {
        // Listed all the same, so that the user sees what the scanner will miss.
        item->setForeground(File, QBrush(Qt::red));
        item->setToolTip(File, "The list file is not on the card.");
      }
    }
    for (const std::string& file : card_->orphans()) {
      auto* item = new QTreeWidgetItem(listView1_);
      item->setText(Name, fromLatin1("Orphan " + file));
      item->setText(File, fromLatin1(file));
      item->setData(0, kOrphanRole, fromLatin1(file));
      QFont italic = item->font(Name);
      italic.setItalic(true);
      item->setFont(Name, italic);
    }
  }
  listView1_->setColumnHidden(Startup, !pro_);
  listView1_->setColumnHidden(SystemKeys, !pro_);
  // The names are the column a user reads first: wide enough for them, within reason.
  listView1_->resizeColumnToContents(Name);
  listView1_->setColumnWidth(Name, std::min(listView1_->columnWidth(Name), 320));
  filling_ = false;
}

void PatrolWindow::fillCombo() {
  combo2_->clear();
  if (!card_) return;
  for (const auto& r : card_->rows()) {
    const int n = transfer::listFileNumber(r.file);
    if (n >= 0) combo2_->addItem(fromLatin1(r.name + " (" + r.file + ")"), n);
  }
  combo2_->setCurrentIndex(-1);
}

void PatrolWindow::fillDocumentList() {
  listView2_->clear();
  const Document& doc = session_.document();
  for (int row = 1; row <= kOpenFileRows; ++row) {
    if (!doc.files.loaded(row)) continue;
    std::string name = doc.files.get(row, OpenFileTable::ListName);
    if (name.empty()) name = doc.files.get(row, OpenFileTable::ShortName);
    listView2_->addItem(fromLatin1("File: " + name));
  }
  for (NodeId node : doc.data.all()) {
    const std::string& key = doc.data.key(node);
    if (!startsWith(key, "SYS-")) continue;
    listView2_->addItem(fromLatin1(treemod::getField(doc.data, key, 4)));
  }
}

std::vector<int> PatrolWindow::selectedRows() const {
  std::vector<int> rows;
  for (int i = 0; i < listView1_->topLevelItemCount(); ++i) {
    QTreeWidgetItem* item = listView1_->topLevelItem(i);
    const QVariant row = item->data(0, kRowRole);
    if (item->isSelected() && row.isValid()) rows.push_back(row.toInt());
  }
  return rows;
}

std::vector<QString> PatrolWindow::selectedOrphans() const {
  std::vector<QString> files;
  for (QTreeWidgetItem* item : listView1_->selectedItems()) {
    const QVariant file = item->data(0, kOrphanRole);
    if (file.isValid()) files.push_back(file.toString());
  }
  return files;
}

bool PatrolWindow::selectList(int number) {
  if (!card_) return false;
  const int row = card_->rowOfNumber(number);
  for (int i = 0; i < listView1_->topLevelItemCount(); ++i) {
    QTreeWidgetItem* item = listView1_->topLevelItem(i);
    const QVariant r = item->data(0, kRowRole);
    if (r.isValid() && r.toInt() == row) {
      item->setSelected(true);
      listView1_->setCurrentItem(item, 0, QItemSelectionModel::Select);
      return true;
    }
  }
  return false;
}

bool PatrolWindow::selectOrphan(const QString& file) {
  for (int i = 0; i < listView1_->topLevelItemCount(); ++i) {
    QTreeWidgetItem* item = listView1_->topLevelItem(i);
    if (item->data(0, kOrphanRole).toString() == file) {
      item->setSelected(true);
      return true;
    }
  }
  return false;
}

void PatrolWindow::saveFavoriteList() {
  if (!gate()) return;
  emit documentNeeded();
  transfer::SaveListRequest request;
  if (option2_[0]->isChecked()) {
    const QVariant n = combo2_->currentData();
    request.overwrite = n.isValid() ? n.toInt() : -1;
  } else {
    request.name = toLatin1(newName_->text().trimmed());
  }
  request.copyInName = check6_->isChecked();
  const transfer::SaveOutcome out = transfer::saveDocumentToCard(
      *card_, session_.document(), session_.pages(), request, *label3Feedback_);
  if (out.status.ok && check7_->isChecked()) enableInProfile();
  fillViews();
}

void PatrolWindow::writeLists(bool all) {
  if (!gate()) return;
  std::vector<int> numbers;
  const std::vector<int> rows = all ? std::vector<int>{} : selectedRows();
  if (all) {
    for (const auto& r : card_->rows()) numbers.push_back(transfer::listFileNumber(r.file));
  } else {
    for (int row : rows) numbers.push_back(transfer::listFileNumber(card_->rows()[row].file));
  }
  if (numbers.empty()) {
    feedback_.message("Error, no files selected for upload.");
    return;
  }
  emit documentNeeded();
  Document& doc = session_.document();
  if (!doc.data.empty()) {
    const Answer a = feedback_.ask("Warning",
                                   "This will delete all existing data.\nIf not saved, data is "
                                   "lost!\nContinue without saving?",
                                   Buttons::YesNo);
    if (a != Answer::Yes) return;
  }
  if (check9_->isChecked()) session_.clearDocument();
  const transfer::ReadListsOutcome out =
      transfer::readCardLists(*card_, numbers, doc, session_.pages(), *label3Feedback_);
  if (!out.status.ok) {
    label3_->setText(fromLatin1(out.status.message));
    feedback_.message(out.status.message);
  }
  fillDocumentList();
  emit documentChanged();
}

void PatrolWindow::deleteSelected() {
  if (!gate()) return;
  const std::vector<int> rows = selectedRows();
  const std::vector<QString> orphans = selectedOrphans();
  if (rows.empty() && orphans.empty()) {
    feedback_.message("Please select Favorite List");
    return;
  }
  if (!orphans.empty() && feedback_.ask("", "Are you sure you want to delete the selected files?",
                                        Buttons::YesNo) == Answer::Yes) {
    for (const QString& file : orphans) {
      const transfer::StepStatus st = card_->deleteOrphan(toLatin1(file));
      if (!st.ok) label3_->setText(fromLatin1(st.message));
    }
  }
  if (!rows.empty() &&
      feedback_.ask("", "Warning, all data in existing Favorite List will be lost, Continue?",
                    Buttons::YesNo) == Answer::Yes) {
    std::vector<int> numbers;
    for (int row : rows) numbers.push_back(transfer::listFileNumber(card_->rows()[row].file));
    for (int n : numbers) {
      const transfer::StepStatus st = card_->deleteList(n);
      if (!st.ok) label3_->setText(fromLatin1(st.message));
    }
  }
  fillViews();
}

void PatrolWindow::writeView() {
  if (!gate()) return;
  if (feedback_.ask("", "Ok to overwrite config file in scanner?", Buttons::YesNo) != Answer::Yes) {
    return;
  }
  const transfer::StepStatus st = card_->writeConfig();
  if (!st.ok) label3_->setText(fromLatin1(st.message));
  fillViews();
}

void PatrolWindow::selectAll() {
  for (int i = 0; i < listView1_->topLevelItemCount(); ++i) {
    listView1_->topLevelItem(i)->setSelected(true);
  }
}

void PatrolWindow::editSelected() {
  if (!gate()) return;
  QTreeWidgetItem* item = listView1_->currentItem();
  if (!item || !item->data(0, kRowRole).isValid()) {
    feedback_.message("Please select Favorite List");
    return;
  }
  listView1_->editItem(item, Name);
}

void PatrolWindow::moveSelectedDown() {
  if (!gate()) return;
  const std::vector<int> rows = selectedRows();
  if (rows.size() != 1) return;
  if (card_->moveDown(rows[0])) {
    fillListView();
    for (int i = 0; i < listView1_->topLevelItemCount(); ++i) {
      QTreeWidgetItem* item = listView1_->topLevelItem(i);
      if (item->data(0, kRowRole).toInt() == rows[0] + 1) item->setSelected(true);
    }
  }
}

void PatrolWindow::quickKeyCommand(int index) {
  if (!gate()) return;
  using transfer::QuickKeyCommand;
  const QuickKeyCommand commands[4] = {QuickKeyCommand::Clear, QuickKeyCommand::Auto,
                                       QuickKeyCommand::SystemsOn, QuickKeyCommand::AllOn};
  card_->applyQuickKeys(commands[index]);
  fillListView();
}

void PatrolWindow::enableAllQuickkeys() {
  if (!gate()) return;
  std::vector<int> rows = selectedRows();
  if (rows.empty()) {
    for (std::size_t i = 0; i < card_->rows().size(); ++i) rows.push_back(static_cast<int>(i));
  }
  card_->enableAllKeys(rows);
  fillListView();
  enableInProfile();
}

void PatrolWindow::enableInProfile() {
  // profile.cfg lies in the BCDx36HP folder of the card's root, whichever marker was found.
  const std::string cardRoot =
      std::filesystem::path(detector_.state().scannerRoot).parent_path().string();
  QApplication::setOverrideCursor(Qt::WaitCursor);
  const formats::ProfileRewrite done =
      formats::enableAllInProfile(cardRoot, "1111111111", feedback_);
  QApplication::restoreOverrideCursor();
  if (done == formats::ProfileRewrite::Failed) {
    label3_->setText("profile.cfg could not be rewritten; it is as it was.");
  }
}

void PatrolWindow::addServiceSearch(int index) {
  if (!gate()) return;
  command11_[index]->setEnabled(false);  // a list is added once while the window is open
  const std::optional<std::string> text =
      transfer::serviceSearchText(session_.folders().serviceSearch, index);
  if (!text) return;  // "Public Safety" has no file
  const transfer::SaveOutcome out = card_->addServiceSearch(*text, kServiceCaptions[index]);
  if (!out.status.ok) label3_->setText(fromLatin1(out.status.message));
  fillViews();
}

void PatrolWindow::keepOrphans() {
  if (!gate()) return;
  for (const QString& file : selectedOrphans()) {
    const transfer::SaveOutcome out = card_->recoverOrphan(toLatin1(file));
    if (!out.status.ok) label3_->setText(fromLatin1(out.status.message));
  }
  fillViews();
}

void PatrolWindow::switchLevel() {
  pro_ = !pro_;
  command5_->setText(pro_ ? "Switch Basic" : "Switch Pro");
  proBox_->setVisible(pro_);
  check8_->setVisible(pro_);
  listView1_->setColumnHidden(Startup, !pro_);
  listView1_->setColumnHidden(SystemKeys, !pro_);
}

void PatrolWindow::sortByColumn(int column) {
  if (!card_ || card_->rows().size() < 2) return;
  // The view order is the scanner's list order: a sort changes the view, and "Sort" (or
  // the question at close) writes it to the card.
  std::vector<std::pair<QString, int>> keys;
  for (int i = 0; i < listView1_->topLevelItemCount(); ++i) {
    QTreeWidgetItem* item = listView1_->topLevelItem(i);
    const QVariant row = item->data(0, kRowRole);
    if (row.isValid()) keys.emplace_back(item->text(column), row.toInt());
  }
  const bool ascending =
      !std::is_sorted(keys.begin(), keys.end(), [](const auto& a, const auto& b) {
        return QString::localeAwareCompare(a.first, b.first) < 0;
      });
  std::stable_sort(keys.begin(), keys.end(), [ascending](const auto& a, const auto& b) {
    const int c = QString::localeAwareCompare(a.first, b.first);
    return ascending ? c < 0 : c > 0;
  });
  std::vector<int> order;
  for (const auto& k : keys) order.push_back(k.second);
  card_->arrangeRows(order);
  fillListView();
}

void PatrolWindow::onItemChanged(QTreeWidgetItem* item, int column) {
  if (filling_ || !card_ || column != Name) return;
  const QVariant row = item->data(0, kRowRole);
  if (!row.isValid()) return;
  transfer::FavoritesRow edited = card_->rows()[row.toInt()];
  edited.name = toLatin1(item->text(Name));
  card_->editRow(row.toInt(), edited);
  filling_ = true;
  item->setText(Name, fromLatin1(card_->rows()[row.toInt()].name));
  filling_ = false;
}

void PatrolWindow::onItemDoubleClicked(QTreeWidgetItem* item, int column) {
  if (!card_ || (column != Monitor && column != Location)) return;
  const QVariant row = item->data(0, kRowRole);
  if (!row.isValid()) return;
  transfer::FavoritesRow edited = card_->rows()[row.toInt()];
  if (column == Monitor) {
    edited.monitor = flipped(edited.monitor);
  } else {
    edited.locationControl = flipped(edited.locationControl);
  }
  card_->editRow(row.toInt(), edited);
  fillListView();
}

void PatrolWindow::openDriveReport() {
  QDesktopServices::openUrl(
      QUrl::fromLocalFile(QString::fromStdString(session_.folders().data + "/drivetest.txt")));
}

void PatrolWindow::closeEvent(QCloseEvent* event) {
  if (card_ && card_->viewChanged() &&
      feedback_.ask("", "Save new Favorites Config file?", Buttons::YesNo) == Answer::Yes) {
    const transfer::StepStatus st = card_->writeConfig();
    if (!st.ok) feedback_.message(st.message);
  }
  storeOptions();
  event->accept();
}

PatrolWindow* openPatrolWindow(QWidget* parent, Session& session, Feedback& feedback) {
  auto* window = new PatrolWindow(session, feedback, parent);
  window->setAttribute(Qt::WA_DeleteOnClose);
  window->setWindowFlag(Qt::Window);
  window->show();
  return window;
}

}  // namespace zel::ui
