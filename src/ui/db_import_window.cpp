// The database import window: source, state list, filter boxes, the tree of systems with
// their sites and departments to tick, and the Import button with its progress.
#include "ui/db_import_window.h"

#include <QApplication>
#include <QCheckBox>
#include <QCloseEvent>
#include <QComboBox>
#include <QFileDialog>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "core/text.h"
#include "formats/row_store.h"
#include "gps/coordinates.h"
#include "ui/qt_feedback.h"

namespace zel::ui {

namespace {

constexpr std::string_view kSection = "dbimport";
constexpr int kNumberRole = Qt::UserRole;
constexpr int kSiteRole = Qt::UserRole + 1;  // true on a site, false on a department
constexpr const char* kAnyService = "(any service type)";

// The reader's progress in the window's status line, with the window kept alive.
class ReadFeedback : public Feedback {
 public:
  ReadFeedback(Feedback& outer, QLabel* label) : outer_(outer), label_(label) {}
  void message(std::string_view text, std::string_view title) override {
    outer_.message(text, title);
  }
  Answer ask(std::string_view title, std::string_view text, Buttons buttons) override {
    return outer_.ask(title, text, buttons);
  }
  void status(std::string_view) override {}
  void progress(std::string_view text) override {
    label_->setText(fromLatin1(text));
    QApplication::processEvents();
  }
  void log(std::string_view line) override { outer_.log(line); }
  void beep() override { outer_.beep(); }

 private:
  Feedback& outer_;
  QLabel* label_;
};

double numberIn(const QLineEdit* box) {
  return leadingNumber(replaceAll(toLatin1(box->text().trimmed()), ",", "."));
}

}  // namespace

DbImportWindow::DbImportWindow(Session& session, Feedback& feedback,
                               const transfer::DriveRoots& roots, QWidget* parent)
    : QDialog(parent), session_(session), feedback_(feedback), roots_(roots) {
  setWindowTitle("Import System(s) from Database");
  build();
  Settings& s = session_.settingsCodec();
  const bool folder = s.getPlain(kSection, "source", "card") == "folder";
  (folder ? fromFolder_ : fromCard_)->setChecked(true);
  folder_->setText(fromLatin1(s.getPlain(kSection, "folder", "")));
  lat_->setText(fromLatin1(s.getPlain(kSection, "lat", "")));
  lon_->setText(fromLatin1(s.getPlain(kSection, "lon", "")));
  range_->setText(fromLatin1(s.getPlain(kSection, "range", "25")));
}

DbImportWindow::~DbImportWindow() = default;

void DbImportWindow::build() {
  auto* layout = new QVBoxLayout(this);

  auto* source = new QGroupBox("Database", this);
  auto* sourceLayout = new QGridLayout(source);
  fromCard_ = new QRadioButton("On the scanner's card", source);
  fromCard_->setObjectName("fromCard");
  fromCard_->setToolTip("The card of a scanner connected as a mass storage device");
  fromFolder_ = new QRadioButton("In a folder:", source);
  fromFolder_->setObjectName("fromFolder");
  fromFolder_->setToolTip("A folder that holds hpdb.cfg (a card's HPDB folder or a copy of it)");
  folder_ = new QLineEdit(source);
  folder_->setObjectName("folder");
  auto* browse = new QPushButton("Browse...", source);
  browse->setObjectName("browse");
  auto* find = new QPushButton("&Find Database", source);
  find->setObjectName("find");
  sourceLayout->addWidget(fromCard_, 0, 0);
  sourceLayout->addWidget(find, 0, 2);
  sourceLayout->addWidget(fromFolder_, 1, 0);
  sourceLayout->addWidget(folder_, 1, 1);
  sourceLayout->addWidget(browse, 1, 2);
  layout->addWidget(source);

  auto* form = new QFormLayout;
  states_ = new QComboBox(this);
  states_->setObjectName("states");
  form->addRow("Select State File:", states_);
  name_ = new QLineEdit(this);
  name_->setObjectName("name");
  name_->setPlaceholderText("part of a system's, site's or department's name");
  name_->setClearButtonEnabled(true);
  form->addRow("&Name:", name_);
  service_ = new QComboBox(this);
  service_->setObjectName("service");
  form->addRow("&Service Type:", service_);
  auto* place = new QHBoxLayout;
  near_ = new QCheckBox("&Within", this);
  near_->setObjectName("near");
  near_->setToolTip("Only systems with a site or department whose range meets this circle");
  range_ = new QLineEdit(this);
  range_->setObjectName("range");
  lat_ = new QLineEdit(this);
  lat_->setObjectName("lat");
  lat_->setPlaceholderText("latitude, 40.712800");
  lon_ = new QLineEdit(this);
  lon_->setObjectName("lon");
  lon_->setPlaceholderText("longitude, -74.006000");
  place->addWidget(near_);
  place->addWidget(range_);
  place->addWidget(new QLabel("miles of", this));
  place->addWidget(lat_);
  place->addWidget(lon_);
  form->addRow("Location:", place);
  layout->addLayout(form);

  tree_ = new QTreeWidget(this);
  tree_->setObjectName("systems");
  tree_->setHeaderLabels({"System / Site / Department", "Type", "Channels"});
  tree_->setToolTip(
      "Tick systems to import. A system with none of its sites (or departments) ticked "
      "takes them all.");
  tree_->header()->setSectionResizeMode(0, QHeaderView::Stretch);
  layout->addWidget(tree_, 1);

  ticked_ = new QLabel(this);
  ticked_->setObjectName("ticked");
  layout->addWidget(ticked_);
  progress_ = new QProgressBar(this);
  progress_->setObjectName("progress");
  progress_->hide();
  layout->addWidget(progress_);
  status_ = new QLabel(this);
  status_->setObjectName("status");
  status_->setWordWrap(true);
  layout->addWidget(status_);

  auto* buttons = new QHBoxLayout;
  import_ = new QPushButton("&Import", this);
  import_->setObjectName("import");
  import_->setToolTip("Add the ticked systems to the favorites list");
  auto* close = new QPushButton("Close", this);
  close->setObjectName("close");
  buttons->addStretch(1);
  buttons->addWidget(import_);
  buttons->addWidget(close);
  layout->addLayout(buttons);
  // Enter in a box filters or finds; it never presses a button of its own accord.
  for (QPushButton* b : findChildren<QPushButton*>()) b->setAutoDefault(false);
  resize(760, 640);

  connect(browse, &QPushButton::clicked, this, [this] { chooseFolder(); });
  connect(find, &QPushButton::clicked, this, [this] { findDatabase(); });
  connect(folder_, &QLineEdit::returnPressed, this, [this] {
    fromFolder_->setChecked(true);
    findDatabase();
  });
  connect(states_, qOverload<int>(&QComboBox::activated), this, [this](int row) { loadState(row); });
  connect(name_, &QLineEdit::textChanged, this, [this] { applyFilter(); });
  connect(service_, qOverload<int>(&QComboBox::currentIndexChanged), this, [this] { applyFilter(); });
  connect(near_, &QCheckBox::toggled, this, [this] { applyFilter(); });
  for (QLineEdit* box : {range_, lat_, lon_}) {
    connect(box, &QLineEdit::editingFinished, this, [this] {
      if (near_->isChecked()) applyFilter();
    });
  }
  connect(tree_, &QTreeWidget::itemChanged, this, [this] { updateTickCount(); });
  connect(import_, &QPushButton::clicked, this, [this] { importTicked(); });
  connect(close, &QPushButton::clicked, this, &QDialog::close);
}

void DbImportWindow::chooseFolder() {
  const QString chosen =
      chooser_ ? chooser_()
               : QFileDialog::getExistingDirectory(this, "Folder of the database", folder_->text());
  if (chosen.isEmpty()) return;
  folder_->setText(chosen);
  fromFolder_->setChecked(true);
  findDatabase();
}

bool DbImportWindow::findDatabase() {
  const bool folder = fromFolder_->isChecked();
  Settings& s = session_.settingsCodec();
  s.put(kSection, "source", folder ? "folder" : "card");
  const std::string folderText = toLatin1(folder_->text().trimmed());
  if (folder) s.put(kSection, "folder", folderText);
  states_->clear();
  stateEntries_.clear();
  location_.reset();
  if (folder) {
    const auto family = session_.document().family == ScannerFamily::HP
                            ? database::DbFamily::HomePatrol
                            : database::DbFamily::Bcd;
    location_ = database::locateInFolder(folderText, family);
    // A card's root (or a copy of one) chosen as the folder is accepted too.
    if (!location_) location_ = database::locateOnCard(folderText);
  } else {
    // A later root wins, as in the card detection.
    for (const transfer::DriveRoot& root : roots_.roots()) {
      if (auto found = database::locateOnCard(root.path)) location_ = found;
    }
  }
  if (!location_) {
    setStatus(folder ? QString("No database index (HPDB.cfg or HPDB.config) in %1.")
                           .arg(folder_->text())
                     : QString("No scanner card with a database was found: connect the scanner "
                               "as a mass storage device, or choose a folder."));
    feedback_.beep();
    return false;
  }
  const database::IndexReadResult index = database::readIndex(*location_);
  if (!index.ok()) {
    setStatus(fromLatin1(index.error));
    return false;
  }
  stateEntries_ = index.states;
  states_->addItem(fromLatin1(database::kSelectFileHead));
  for (const database::StateEntry& e : stateEntries_) {
    states_->addItem(fromLatin1(database::stateListEntry(e, location_->family)));
  }
  setStatus(QString("%1 states in %2").arg(stateEntries_.size()).arg(fromLatin1(location_->folder)));
  states_->setFocus();
  return true;
}

bool DbImportWindow::loadState(int row) {
  if (busy_ || row < 1 || row > static_cast<int>(stateEntries_.size())) return false;
  if (states_->currentIndex() != row) states_->setCurrentIndex(row);
  const database::StateEntry& entry = stateEntries_[static_cast<std::size_t>(row - 1)];
  busy_ = true;
  progress_->setRange(0, 0);
  progress_->show();
  QApplication::setOverrideCursor(Qt::WaitCursor);
  auto state = std::make_unique<database::StateDatabase>();
  ReadFeedback fb(feedback_, status_);
  const formats::HpdReadResult r = state->read(entry.path, session_.document().x36Mode, fb);
  QApplication::restoreOverrideCursor();
  progress_->hide();
  busy_ = false;
  if (!r.ok()) {
    setStatus({});
    return false;
  }
  state_ = std::move(state);
  const QSignalBlocker block(service_);
  service_->clear();
  service_->addItem(kAnyService);
  for (const std::string& s : state_->services()) service_->addItem(fromLatin1(s));
  fillTree();
  applyFilter();
  setStatus(QString("%1: %2 systems").arg(fromLatin1(entry.name)).arg(state_->systems().size()));
  return true;
}

void DbImportWindow::fillTree() {
  const QSignalBlocker block(tree_);
  tree_->setUpdatesEnabled(false);
  tree_->clear();
  QList<QTreeWidgetItem*> tops;
  for (const database::DbSystem& s : state_->systems()) {
    auto* item = new QTreeWidgetItem({fromLatin1(s.name), fromLatin1(s.type), QString::number(s.rows)});
    item->setFlags(item->flags() | Qt::ItemIsUserCheckable | Qt::ItemIsAutoTristate);
    item->setCheckState(0, Qt::Unchecked);
    item->setData(0, kNumberRole, s.number);
    auto addParts = [item](const std::vector<database::DbPart>& parts, bool site) {
      for (const database::DbPart& p : parts) {
        auto* child = new QTreeWidgetItem(item, {fromLatin1(p.name), site ? "Site" : "Department"});
        child->setFlags(child->flags() | Qt::ItemIsUserCheckable);
        child->setCheckState(0, Qt::Unchecked);
        child->setData(0, kNumberRole, p.number);
        child->setData(0, kSiteRole, site);
      }
    };
    addParts(s.sites, true);
    addParts(s.departments, false);
    tops.push_back(item);
  }
  tree_->addTopLevelItems(tops);
  tree_->setUpdatesEnabled(true);
  updateTickCount();
}

void DbImportWindow::applyFilter() {
  if (!state_) return;
  database::DbFilter filter;
  filter.name = toLatin1(name_->text());
  if (service_->currentIndex() > 0) filter.service = toLatin1(service_->currentText());
  const bool placeGiven = !lat_->text().trimmed().isEmpty() && !lon_->text().trimmed().isEmpty();
  if (near_->isChecked() && placeGiven) {
    const DecimalMark dot = DecimalMark::point();
    database::DbCircle c;
    c.lat = leadingNumber(gps::ClampLatitude(formatFixed(numberIn(lat_), 6), dot));
    c.lon = leadingNumber(gps::ClampLongitude(formatFixed(numberIn(lon_), 6), dot));
    c.range = std::max(0.0, numberIn(range_));
    filter.location = c;
    Settings& s = session_.settingsCodec();
    s.put(kSection, "lat", toLatin1(lat_->text().trimmed()));
    s.put(kSection, "lon", toLatin1(lon_->text().trimmed()));
    s.put(kSection, "range", toLatin1(range_->text().trimmed()));
  }
  const std::vector<database::DbSystem>& systems = state_->systems();
  int shown = 0;
  tree_->setUpdatesEnabled(false);
  for (int i = 0; i < tree_->topLevelItemCount() && i < static_cast<int>(systems.size()); ++i) {
    const bool pass = database::passes(systems[static_cast<std::size_t>(i)], filter);
    tree_->topLevelItem(i)->setHidden(!pass);
    shown += pass ? 1 : 0;
  }
  tree_->setUpdatesEnabled(true);
  updateTickCount();
  setStatus(near_->isChecked() && !placeGiven
                ? QString("Give the place's latitude and longitude to filter by location.")
                : QString("%1 of %2 systems shown").arg(shown).arg(systems.size()));
}

std::vector<database::DbChoice> DbImportWindow::tickedChoices() const {
  std::vector<database::DbChoice> choices;
  for (int i = 0; i < tree_->topLevelItemCount(); ++i) {
    const QTreeWidgetItem* item = tree_->topLevelItem(i);
    if (item->checkState(0) == Qt::Unchecked) continue;
    database::DbChoice c;
    c.system = item->data(0, kNumberRole).toInt();
    for (int k = 0; k < item->childCount(); ++k) {
      const QTreeWidgetItem* part = item->child(k);
      if (part->checkState(0) != Qt::Checked) continue;
      (part->data(0, kSiteRole).toBool() ? c.sites : c.departments)
          .push_back(part->data(0, kNumberRole).toInt());
    }
    choices.push_back(std::move(c));
  }
  return choices;
}

void DbImportWindow::updateTickCount() {
  int n = 0;
  for (int i = 0; i < tree_->topLevelItemCount(); ++i) {
    if (tree_->topLevelItem(i)->checkState(0) != Qt::Unchecked) ++n;
  }
  ticked_->setText(QString("Ticked: %1 systems").arg(n));
  import_->setEnabled(n > 0 && !busy_);
}

bool DbImportWindow::importTicked() {
  if (busy_ || !state_) return false;
  const std::vector<database::DbChoice> choices = tickedChoices();
  if (choices.empty()) {
    feedback_.beep();
    setStatus("Tick one or more systems first.");
    return false;
  }
  busy_ = true;
  progress_->setRange(0, static_cast<int>(choices.size()));
  progress_->setValue(0);
  progress_->show();
  formats::PageFileRows store(session_.pages());
  const database::DbImportResult r = database::importSystems(
      {session_.document(), store, feedback_, 0}, *state_, choices, [this](int done, int) {
        progress_->setValue(done);
        QApplication::processEvents();
      });
  progress_->hide();
  busy_ = false;
  if (!r.ok) {
    setStatus({});
    updateTickCount();
    return false;
  }
  {
    const QSignalBlocker block(tree_);
    for (int i = 0; i < tree_->topLevelItemCount(); ++i) {
      QTreeWidgetItem* item = tree_->topLevelItem(i);
      item->setCheckState(0, Qt::Unchecked);
      for (int k = 0; k < item->childCount(); ++k) item->child(k)->setCheckState(0, Qt::Unchecked);
    }
  }
  updateTickCount();
  setStatus(QString("Imported %1 systems: %2 sites, %3 departments, %4 channels and talkgroups.")
                .arg(r.systemKeys.size())
                .arg(r.sites)
                .arg(r.departments)
                .arg(r.channels));
  emit imported(QString::fromStdString(r.systemKeys.front()));
  return true;
}

void DbImportWindow::closeEvent(QCloseEvent* event) {
  if (busy_) {
    event->ignore();
    return;
  }
  QDialog::closeEvent(event);
}

QString DbImportWindow::statusText() const {
  return status_->text();
}

void DbImportWindow::setStatus(const QString& text) {
  status_->setText(text);
}

DbImportWindow* openDatabaseImport(QWidget* parent, Session& session, Feedback& feedback,
                                   const transfer::DriveRoots& roots,
                                   std::function<void(const QString& firstKey)> imported) {
  auto* window = parent->findChild<DbImportWindow*>(QString(), Qt::FindDirectChildrenOnly);
  if (!window) {
    window = new DbImportWindow(session, feedback, roots, parent);
    window->setAttribute(Qt::WA_DeleteOnClose);
    window->setWindowFlag(Qt::Window);
    QObject::connect(window, &DbImportWindow::imported, parent, std::move(imported));
  }
  window->show();
  window->raise();
  window->activateWindow();
  return window;
}

}  // namespace zel::ui
