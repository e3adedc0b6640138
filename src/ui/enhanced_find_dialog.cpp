#include "ui/enhanced_find_dialog.h"

#include <QApplication>
#include <QClipboard>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QHideEvent>
#include <QLabel>
#include <QMenuBar>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QTimer>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <map>
#include <set>

#include "core/keys.h"
#include "core/record_line.h"
#include "core/text.h"
#include "core/tree_operations.h"
#include "grid/row_record.h"
#include "ui/dialog_pages.h"
#include "ui/qt_feedback.h"

namespace zel::ui {

namespace {

constexpr std::string_view kNoSystem = "Please click on a system first.";
// Events are processed at most this often during a search, so the search itself does
// not spend its time repainting.
constexpr qint64 kPaintEveryMs = 30;

std::string departmentOfRow(std::string_view key) {
  return keys::department(keys::numberAt(key, 5), keys::numberAt(key, 9));
}

}  // namespace

void addDuplicateSearchEntries(QMenu* menu, const std::function<EnhancedFindDialog&()>& dialog) {
  QObject::connect(menu->addAction("In Current System"), &QAction::triggered, menu,
                   [dialog] { dialog().startInCurrentSystem(); });
  // Offered, with no search behind it: choosing it only closes the menu.
  menu->addAction("In Current System With Subtone");
  QObject::connect(menu->addAction("In All Systems (Frequencies)"), &QAction::triggered, menu,
                   [dialog] { dialog().start(dups::Selector::FrequenciesAll); });
  QObject::connect(menu->addAction("In All Systems (TGid)"), &QAction::triggered, menu,
                   [dialog] { dialog().start(dups::Selector::TalkgroupsAll); });
  menu->addAction("In All Systems With Subtone");
}

bool isConventionalSystem(const Document& doc, int system) {
  const std::string& type = doc.systems.get(system, 10);
  if (!type.empty()) return type == "0";
  return record::field(treemod::getText(doc.data, keys::system(system)), 1) == "Conventional";
}

EnhancedFindDialog::EnhancedFindDialog(Session& session, Feedback& feedback, GridPage* grid,
                                       std::function<void()> changed, QWidget* parent)
    : QDialog(parent),
      session_(session),
      feedback_(feedback),
      grid_(grid),
      changed_(std::move(changed)) {
  setObjectName("frm_find_enh");
  setWindowTitle("Enhanced Find:");
  buildMenu();

  list_ = new QTreeWidget(this);
  list_->setObjectName("ListView1");
  list_->setRootIsDecorated(false);
  list_->setUniformRowHeights(true);
  list_->setSelectionMode(QAbstractItemView::ExtendedSelection);
  QStringList headings;
  for (std::string_view h : dups::kListHeadings) headings << fromLatin1(h);
  list_->setHeaderLabels(headings);

  progress_ = new QProgressBar(this);
  progress_->setObjectName("ProgressBar1");
  progress_->setRange(0, 100);
  progress_->setValue(0);

  allBanks_ = new QRadioButton("All Banks", this);
  allBanks_->setObjectName("optAllBanks");
  allBanks_->setChecked(true);
  activeBank_ = new QRadioButton("Active Bank", this);
  activeBank_->setObjectName("optActiveBank");
  count_ = new QLabel(this);
  count_->setObjectName("lblCount");

  auto* options = new QHBoxLayout;
  options->addWidget(allBanks_);
  options->addWidget(activeBank_);
  options->addStretch(1);
  options->addWidget(count_);
  auto* buttons = new QHBoxLayout;
  buildButtons(buttons);

  auto* layout = new QVBoxLayout(this);
  layout->setMenuBar(menu_);
  layout->addLayout(options);
  layout->addWidget(list_, 1);
  layout->addWidget(progress_);
  layout->addLayout(buttons);
  resize(900, 480);
  arrangeFor(selector_);
}

EnhancedFindDialog::~EnhancedFindDialog() {
  stopFlag_ = true;
}

void EnhancedFindDialog::buildButtons(QHBoxLayout* row) {
  auto button = [&](const char* caption, const char* name, auto handler) {
    auto* b = new QPushButton(caption, this);
    b->setObjectName(name);
    b->setAutoDefault(false);
    connect(b, &QPushButton::clicked, this, handler);
    row->addWidget(b);
    return b;
  };
  selectAll_ = button("Select All", "cmdSelectAll", [this] { selectAll(true); });
  unselectAll_ = button("UnSelect All", "cmdUnSelectAll", [this] { selectAll(false); });
  selectDups_ = button("Select Dups", "cmdSelectDups", [this] { selectDups(); });
  delete_ = button("Delete Selected Channels", "cmdDelete", [this] { deleteSelected(); });
  unlockSelected_ =
      button("Unlock Selected Channels", "cmdUnlockSelected", [this] { unlockSelected(); });
  copy_ = button("Copy To Clipboard", "cmdCopy", [this] { copyToClipboard(); });
  stop_ = button("Stop", "cmdStop", [this] { stop(); });
  row->addStretch(1);
  done_ = button("Done", "cmdDone", [this] { close(); });
}

void EnhancedFindDialog::buildMenu() {
  menu_ = new QMenuBar(this);
  QMenu* unlockMenu = menu_->addMenu("Unlock");
  unlockMenu->setObjectName("mnu_unlock");
  const std::pair<const char*, dups::UnlockScope> entries[] = {
      {"All Systems", dups::UnlockScope::AllSystems},
      {"All Channels In Active System", dups::UnlockScope::ActiveSystem},
      {"All Conv. Channels (All Systems)", dups::UnlockScope::ConventionalChannels},
      {"All Talkgroups (All Systems)", dups::UnlockScope::Talkgroups},
  };
  for (const auto& [caption, scope] : entries) {
    const dups::UnlockScope s = scope;
    connect(unlockMenu->addAction(caption), &QAction::triggered, this, [this, s] { unlock(s); });
  }
  QMenu* lockMenu = menu_->addMenu("LockOut");
  connect(lockMenu->addAction("Review LockOut Channels"), &QAction::triggered, this,
          [this] { start(dups::Selector::LockOut); });
  connect(lockMenu->addAction("Clear LockOut"), &QAction::triggered, this,
          [this] { unlockSelected(); });
}

void EnhancedFindDialog::setGrid(GridPage* grid) {
  grid_ = grid;
}

void EnhancedFindDialog::arrangeFor(dups::Selector selector) {
  const bool review = selector == dups::Selector::LockOut;
  setWindowTitle(review ? "Review LockOut Data:" : "Enhanced Find:");
  // The review has nothing to remove: its unlock button stands where Delete stood, and
  // Select All where Select Dups stood.
  delete_->setVisible(!review);
  selectDups_->setVisible(!review);
  unlockSelected_->setVisible(review);
}

bool EnhancedFindDialog::startInCurrentSystem() {
  const int system = session_.selectedSystem();
  if (system <= 0) {
    feedback_.message(kNoSystem);
    return false;
  }
  return start(isConventionalSystem(session_.document(), system)
                   ? dups::Selector::FrequenciesOneSystem
                   : dups::Selector::TalkgroupsOneSystem);
}

bool EnhancedFindDialog::prepare(dups::Selector selector) {
  if (searching_) return false;
  const bool oneSystem = selector == dups::Selector::FrequenciesOneSystem ||
                         selector == dups::Selector::TalkgroupsOneSystem;
  if (oneSystem && session_.selectedSystem() <= 0) {
    feedback_.message(kNoSystem);
    return false;
  }
  selector_ = selector;
  prepared_ = true;
  rows_.clear();
  locked_.clear();
  lockedMarks_.clear();
  list_->clear();
  progress_->setValue(0);
  arrangeFor(selector);
  return true;
}

bool EnhancedFindDialog::start(dups::Selector selector) {
  if (!prepare(selector)) return false;
  runWhenShown_ = true;
  if (isVisible()) {
    // Already open: the timer lets a new title and the empty list paint first.
    runWhenShown_ = false;
    QTimer::singleShot(0, this, [this] { runSearch(); });
  }
  show();
  raise();
  return true;
}

void EnhancedFindDialog::showEvent(QShowEvent* event) {
  QDialog::showEvent(event);
  if (!runWhenShown_) return;
  runWhenShown_ = false;
  QTimer::singleShot(0, this, [this] { runSearch(); });
}

bool EnhancedFindDialog::progressStep(int percent) {
  if (percent != progress_->value()) progress_->setValue(percent);
  if (sincePaint_.elapsed() >= kPaintEveryMs) {
    QCoreApplication::processEvents();
    sincePaint_.restart();
  }
  return !stopFlag_;
}

void EnhancedFindDialog::runSearch() {
  if (searching_ || !prepared_) return;
  searching_ = true;
  stopFlag_ = false;
  for (QPushButton* b : {selectAll_, unselectAll_, selectDups_, delete_, unlockSelected_, copy_})
    b->setEnabled(false);
  menu_->setEnabled(false);
  sincePaint_.start();

  const dups::OpenPage open = openPageOf(session_, grid_);
  const std::string only = activeBank_->isChecked() ? open.departmentKey : std::string();
  if (activeBank_->isChecked() && only.empty()) {
    // "Active Bank" with no department on show has nothing to look through.
  } else if (selector_ == dups::Selector::LockOut) {
    std::vector<std::unique_ptr<GridPage>> loaded;
    locked_ = dups::reviewLockOut(reviewPages(loaded, false));
    lockedMarks_.assign(locked_.size(), false);
  } else {
    const bool talkgroups = selector_ == dups::Selector::TalkgroupsOneSystem ||
                            selector_ == dups::Selector::TalkgroupsAll;
    const std::string prefix = talkgroups ? "TID-" : "FRQ-";
    const std::vector<dups::KeyedRow> rows = documentRows(session_, open, prefix, only);
    const dups::NameLookup names = documentNames(session_.document());
    const dups::Progress progress = [this](int percent) { return progressStep(percent); };
    if (selector_ == dups::Selector::FrequenciesAll || selector_ == dups::Selector::TalkgroupsAll)
      rows_ = dups::sortedSearch(rows, prefix, names, progress);
    else
      rows_ = dups::pairwiseSearch(rows, prefix, session_.selectedSystem(), names, progress);
  }
  if (!stopFlag_) progress_->setValue(100);
  showRows();
  for (QPushButton* b : {selectAll_, unselectAll_, selectDups_, delete_, unlockSelected_, copy_})
    b->setEnabled(true);
  menu_->setEnabled(true);
  searching_ = false;
}

std::vector<dups::ReviewPage> EnhancedFindDialog::reviewPages(
    std::vector<std::unique_ptr<GridPage>>& loaded, bool onlyMarked) {
  const dups::OpenPage open = openPageOf(session_, grid_);
  const Document& doc = session_.document();
  const int system = session_.selectedSystem();
  std::set<std::string> marked;
  for (std::size_t i = 0; i < locked_.size(); ++i) {
    // The key is "c" or "t", the page's key and "-*".
    if (lockedMarks_[i] && locked_[i].key.size() > 3)
      marked.insert(locked_[i].key.substr(1, locked_[i].key.size() - 3));
  }
  std::vector<dups::ReviewPage> pages;
  for (const std::string& department : departmentsWithRows(session_, open)) {
    // The review covers the open system; with none selected, every system.
    if (system > 0 && keys::numberAt(department, 9) != system) continue;
    if (onlyMarked && !marked.count(department)) continue;
    dups::ReviewPage page;
    const int sys = keys::numberAt(department, 9);
    page.name = treemod::getField(doc.data, keys::system(sys), 4) + " / " +
                treemod::getField(doc.data, department, 4);
    page.pageKey = department;
    page.talkgroups = isTalkgroupDepartment(doc, department);
    if (open.grid && department == open.departmentKey) {
      page.grid = open.grid;
    } else {
      loaded.push_back(std::make_unique<GridPage>());
      loadDepartmentGrid(session_, department, *loaded.back());
      page.grid = loaded.back().get();
    }
    pages.push_back(std::move(page));
  }
  return pages;
}

void EnhancedFindDialog::showRows() {
  list_->clear();
  QList<QTreeWidgetItem*> items;
  if (selector_ == dups::Selector::LockOut) {
    for (std::size_t i = 0; i < locked_.size(); ++i) {
      auto* item = new QTreeWidgetItem;
      item->setText(0, QString::number(i + 1));
      item->setText(1, fromLatin1(locked_[i].text));
      item->setText(8, fromLatin1(locked_[i].key));
      item->setCheckState(0, lockedMarks_[i] ? Qt::Checked : Qt::Unchecked);
      items << item;
    }
  } else {
    for (const dups::MatchRow& r : rows_) {
      auto* item = new QTreeWidgetItem;
      int c = 0;
      for (const std::string* cell : {&r.number, &r.data, &r.subtone, &r.alphaTag, &r.system,
                                      &r.department, &r.group, &r.channel, &r.key})
        item->setText(c++, fromLatin1(*cell));
      item->setCheckState(0, r.marked ? Qt::Checked : Qt::Unchecked);
      items << item;
    }
  }
  list_->addTopLevelItems(items);
  count_->setText(QString("%1 rows").arg(items.size()));
}

void EnhancedFindDialog::readMarks() {
  const int n = list_->topLevelItemCount();
  for (int i = 0; i < n; ++i) {
    const bool marked = list_->topLevelItem(i)->checkState(0) == Qt::Checked;
    if (selector_ == dups::Selector::LockOut) {
      if (i < static_cast<int>(lockedMarks_.size())) lockedMarks_[i] = marked;
    } else if (i < static_cast<int>(rows_.size())) {
      rows_[i].marked = marked;
    }
  }
}

void EnhancedFindDialog::selectAll(bool marked) {
  dups::selectAll(rows_, marked);
  lockedMarks_.assign(locked_.size(), marked);
  showRows();
}

int EnhancedFindDialog::selectDups() {
  const int count = dups::selectDups(rows_);
  showRows();
  return count;
}

int EnhancedFindDialog::deleteSelected() {
  if (searching_ || selector_ == dups::Selector::LockOut) return 0;
  readMarks();
  const std::vector<dups::MatchRow> before = rows_;
  const int removed =
      dups::deleteSelected(rows_, session_.pages(), openPageOf(session_, grid_), feedback_);
  if (removed > 0) {
    renumberAfterDelete(before);
    finishChange(removed);
  }
  showRows();
  return removed;
}

// The rows that stay name their channels by number; a removal moves the later channels of
// its department up, so their keys move with them and a second removal finds its rows.
void EnhancedFindDialog::renumberAfterDelete(const std::vector<dups::MatchRow>& before) {
  std::map<std::string, std::vector<int>> removed;
  for (const dups::MatchRow& r : before) {
    if (r.marked) removed[departmentOfRow(r.key)].push_back(keys::numberAt(r.key, 13));
  }
  for (std::size_t i = 0; i < rows_.size(); ++i) {
    dups::MatchRow& r = rows_[i];
    r.number = std::to_string(i + 1);
    r.listKey = "A*" + r.number;
    auto it = removed.find(departmentOfRow(r.key));
    if (it == removed.end()) continue;
    const int channel = keys::numberAt(r.key, 13);
    int below = 0;
    for (int gone : it->second) below += gone < channel ? 1 : 0;
    if (below == 0) continue;
    r.channel = padNumber(channel - below, 4);
    r.key = r.key.substr(0, 12) + r.channel;
  }
}

int EnhancedFindDialog::unlockSelected() {
  if (searching_) return 0;
  readMarks();
  std::vector<std::unique_ptr<GridPage>> loaded;
  std::vector<dups::ReviewPage> pages = reviewPages(loaded, true);
  const int changed = dups::clearLockOut(pages);
  if (changed > 0) {
    for (const dups::ReviewPage& page : pages) {
      if (page.grid == grid_) continue;
      session_.pages().save(page.pageKey, savePageLines(*page.grid));
    }
    finishChange(changed);
  }
  return changed;
}

int EnhancedFindDialog::unlock(dups::UnlockScope scope) {
  if (searching_) return 0;
  const int changed = dups::unlock(scope, session_.selectedSystem(), session_.document().data,
                                   session_.pages(), openPageOf(session_, grid_));
  finishChange(changed);
  return changed;
}

void EnhancedFindDialog::finishChange(int changes) {
  if (changes <= 0) return;
  session_.document().changed = true;
  if (changed_) changed_();
}

QString EnhancedFindDialog::copyToClipboard() {
  readMarks();
  std::string text;
  if (selector_ == dups::Selector::LockOut) {
    for (std::size_t i = 0; i < locked_.size(); ++i)
      text += std::to_string(i + 1) + "\t" + locked_[i].text + "\t" + locked_[i].key + "\r\n";
  } else {
    text = dups::listText(rows_);
  }
  const QString out = fromLatin1(text);
  QApplication::clipboard()->setText(out);
  return out;
}

void EnhancedFindDialog::hideEvent(QHideEvent* event) {
  // Closing (Done, Escape or the window's frame) ends a running search at its next step;
  // the list stays as it stands.
  stopFlag_ = true;
  QDialog::hideEvent(event);
}

}  // namespace zel::ui
