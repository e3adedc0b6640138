#include "ui/main_window.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenuBar>
#include <QSplitter>
#include <QStatusBar>
#include <QTableView>
#include <QTableWidget>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "core/keys.h"
#include "core/new_commands.h"
#include "core/record_line.h"
#include "core/text.h"
#include "core/tree_moves.h"
#include "core/tree_operations.h"
#include "grid/row_record.h"
#include "ui/bandscope_window.h"
#include "ui/csv_mapper_dialog.h"
#include "ui/db_import_window.h"
#include "ui/enhanced_find_dialog.h"
#include "ui/favorites_tree.h"
#include "ui/find_dialog.h"
#include "ui/full_database_window.h"
#include "ui/grid_page_model.h"
#include "ui/grid_view.h"
#include "ui/help_dialogs.h"
#include "ui/menu_accelerators.h"
#include "ui/menu_shortcuts.h"
#include "ui/node_icons.h"
#include "ui/node_pane.h"
#include "ui/patrol_window.h"
#include "ui/qkey_browser_window.h"
#include "ui/qkey_view_dialog.h"
#include "ui/qt_feedback.h"
#include "ui/system_qkeys_dialog.h"
#include "ui/vc_window.h"

namespace zel::ui {

namespace {
constexpr int kKeyRole = FavoritesTree::kKeyRole;

}  // namespace

MainWindow::MainWindow(Session& session, Feedback& feedback, QWidget* parent)
    : QMainWindow(parent), session_(session), feedback_(feedback) {
  setObjectName("mdi_editor_patrol");
  setWindowIcon(applicationIcon());
  buildCentre();
  buildMenus();
  lblSys_ = new QLabel(this);
  lblSys_->setObjectName("lbl_sys");
  unsaved_ = new QLabel(this);
  statusBar()->addPermanentWidget(lblSys_);
  statusBar()->addPermanentWidget(unsaved_);
  statusBar()->showMessage("Ready");
  if (auto* qf = dynamic_cast<QtFeedback*>(&feedback_))
    qf->attach(this, statusBar(), lblSys_, list5_);
  restoreGeometryFromSettings();
  refreshTree();
  updateStatus();
}

void MainWindow::buildCentre() {
  splitter_ = new QSplitter(Qt::Horizontal, this);
  auto* left = new QWidget(splitter_);
  auto* leftLayout = new QVBoxLayout(left);
  leftLayout->setContentsMargins(0, 0, 0, 0);
  filter_ = new QLineEdit(left);
  filter_->setObjectName("treeFilter");
  filter_->setPlaceholderText("Find a system, site or department");
  filter_->setClearButtonEnabled(true);
  connect(filter_, &QLineEdit::textChanged, this, [this] { applyFilter(); });
  leftLayout->addWidget(filter_);
  auto* favorites = new FavoritesTree(left);
  leftLayout->addWidget(favorites);
  connect(favorites, &FavoritesTree::nodeDropped, this, &MainWindow::dropNode);
  tree_ = favorites;
  tree_->setObjectName("TreeView2");
  tree_->setHeaderLabel("Favorites");
  tree_->setMinimumWidth(220);
  connect(tree_, &QTreeWidget::itemClicked, this,
          [this](QTreeWidgetItem* item, int) { onTreeClicked(item); });
  connect(tree_, &QTreeWidget::itemActivated, this,
          [this](QTreeWidgetItem* item, int) { onTreeClicked(item); });
  // The arrow keys move the current node; the pane follows it as it follows a click.
  connect(tree_, &QTreeWidget::currentItemChanged, this,
          [this](QTreeWidgetItem* item, QTreeWidgetItem*) {
            if (refreshing_ || !item) return;
            if (item->data(0, kKeyRole).toString().toStdString() == session_.selectedKey()) return;
            onTreeClicked(item);
          });

  auto* right = new QWidget(splitter_);
  auto* layout = new QVBoxLayout(right);
  layout->setContentsMargins(4, 4, 4, 4);
  paneTitle_ = new QLabel("Select a favorites list, system, site or department.", right);
  QFont f = paneTitle_->font();
  f.setBold(true);
  f.setPointSizeF(f.pointSizeF() * 1.15);
  paneTitle_->setFont(f);
  layout->addWidget(paneTitle_);
  pane_ = new NodePane(session_, feedback_, right);
  connect(pane_, &NodePane::captionChanged, this, &MainWindow::onCaptionChanged);
  layout->addWidget(pane_, 0);
  rows_ = new GridView(right);
  rows_->setObjectName("convgrid");
  model_ = rows_->gridModel();
  connect(rows_, &GridView::statusText, this,
          [this](const QString& text) { statusBar()->showMessage(text); });
  connect(rows_, &GridView::rowsChanged, this, [this] { updateStatus(); });
  connect(rows_, &GridView::columnWidthChosen, this, &MainWindow::keepColumnWidth);
  rows_->hide();
  layout->addWidget(rows_, 2);
  GridSetup setup;
  setup.family = session_.document().family;
  setup.settings = &session_.settingsCodec().store();
  setup.widths = &widths_;
  setup_grid(&convgrid_, setup);
  setup_tgrid(&trunkgrid_, setup);
  list5_ = new QListWidget(right);
  list5_->setObjectName("List5");
  list5_->setMaximumHeight(60);
  layout->addWidget(list5_);
  splitter_->setStretchFactor(1, 1);
  setCentralWidget(splitter_);
}

QAction* MainWindow::addCommand(QMenu* menu, const QString& caption, std::function<void()> handler,
                                const QKeySequence& shortcut) {
  QAction* a = menu->addAction(caption);
  if (!shortcut.isEmpty()) a->setShortcut(shortcut);
  connect(a, &QAction::triggered, this, [handler] { handler(); });
  actions_[caption] = a;
  return a;
}

void MainWindow::later(const QString& caption) {
  feedback_.message(toLatin1(caption) + " is not available in this version yet.");
}

// The card roots the card windows share, made on first use.
const transfer::DriveRoots& cardRootsOf(std::unique_ptr<CardRootsHolder>& holder);

void MainWindow::buildMenus() {
  QMenu* file = menuBar()->addMenu("&File");
  QMenu* fileNew = file->addMenu("&New");
  addCommand(
      fileNew, "New HPD", [this] { newDocumentCommand(); }, QKeySequence::New);
  addCommand(fileNew, "New File", [this] { newListCommand(); });
  addCommand(fileNew, "New Favourite", [this] { newListCommand(); });
  addCommand(
      file, "Open", [this] { openCommand(); }, QKeySequence::Open);
  addCommand(
      file, "Save", [this] { saveCommand(); }, QKeySequence::Save);
  addCommand(
      file, "Save As", [this] { saveAsCommand(); }, QKeySequence("Ctrl+Shift+A"));
  addCommand(file, "Open Config File", [this] { openConfigCommand(); });
  addCommand(file, "Save Config File", [this] { saveConfigCommand(); });
  QMenu* import = file->addMenu("&Import");
  addCommand(
      import, "Import CSV File", [this] { openCsvMapper(); }, QKeySequence("Ctrl+I"));
  addCommand(
      import, "Import from RadioReference", [this] { openRadioReferenceImport(); },
      QKeySequence("Ctrl+Shift+R"));
  addCommand(import, "Import RSF File", [this] { later("Import RSF File"); });
  addCommand(import, "Import System(s) from Database", [this] {
    commitShown();
    openDatabaseImport(this, session_, feedback_, cardRootsOf(cardRoots_), [this](const QString& key) {
      afterFilesChanged();
      selectKey(key);
    });
  });
  for (const char* c : {"Import ZEL XT File", "Import ZEL396/996 File"}) {
    addCommand(import, c, [this, c] { later(c); });
  }
  QMenu* exportMenu = file->addMenu("&Export");
  addCommand(exportMenu, "Export CSV", [this] { exportCsvCommand(); });
  addCommand(
      file, "Print", [this] { printCommand(); }, QKeySequence::Print);
  file->addSeparator();
  addCommand(
      file, "Exit", [this] { close(); }, QKeySequence::Quit);

  QMenu* edit = menuBar()->addMenu("&Edit");
  // The history of the department on show (the grid keeps it until another node is shown).
  QAction* undo = addCommand(
      edit, "Undo", [this] { rows_->undo(); }, QKeySequence::Undo);
  QAction* redo = addCommand(
      edit, "Redo", [this] { rows_->redo(); }, QKeySequence("Ctrl+Y"));
  auto historyShown = [this, undo, redo] {
    undo->setEnabled(rows_->canUndo());
    redo->setEnabled(rows_->canRedo());
  };
  connect(rows_, &GridView::historyChanged, this, historyShown);
  historyShown();
  edit->addSeparator();
  addCommand(
      edit, "New Channel", [this] { newChannelCommand(); }, QKeySequence("Ctrl+Shift+N"));
  addCommand(
      edit, "New Department", [this] { newDepartmentCommand(); }, QKeySequence("Ctrl+Shift+D"));
  edit->addSeparator();
  const char* systems[] = {
      "New Conventional System",      "New Motorola Trunk System",     "New LT Trunk System",
      "New Edacs Trunk System",       "New P25 Trunk System",          "New X2 TDMA Trunk System",
      "New Nxdn Trunk System",        "New Nxdn One Frequency System", "New MotoTRBO Trunk System",
      "New DMR One Frequency System", "New Rebanded Trunk System"};
  for (const char* c : systems) {
    QKeySequence key;
    if (QString(c) == "New Conventional System") key = QKeySequence("Ctrl+Shift+C");
    if (QString(c) == "New P25 Trunk System") key = QKeySequence("Ctrl+Shift+P");
    addCommand(
        edit, c, [this, c] { newSystemCommand(c); }, key);
  }
  addCommand(
      edit, "New Site", [this] { newSiteCommand(); }, QKeySequence("Ctrl+Shift+S"));
  edit->addSeparator();
  addCommand(
      edit, "Edit Departments", [this] { editDepartmentsCommand(); }, QKeySequence("Ctrl+E"));
  // The favorites configuration is the card's: its manager edits it.
  addCommand(edit, "Edit Favorites Configuration", [this] { openCardManager(); });
  addCommand(
      edit, "Edit Banknames", [this] { editBanknamesCommand(); }, QKeySequence("Ctrl+Shift+B"));
  addCommand(
      edit, "Find", [this] { openFind(); }, QKeySequence::Find);
  QMenu* dupMenu = edit->addMenu("Find Duplicates");
  actions_["Find Duplicates"] = dupMenu->menuAction();
  addDuplicateSearchEntries(dupMenu, [this]() -> EnhancedFindDialog& { return enhancedFind(); });
  addCommand(edit, "Review LockOut Channels",
             [this] { enhancedFind().start(dups::Selector::LockOut); });

  QMenu* scanner = menuBar()->addMenu("&Scanner");
  // Both directions of the card are the card manager's: reading lists into the document
  // and writing the document as a list.
  addCommand(
      scanner, "Read Data", [this] { openCardManager(); }, QKeySequence("Ctrl+R"));
  addCommand(
      scanner, "Write Data", [this] { openCardManager(); }, QKeySequence("Ctrl+W"));
  scanner->addSeparator();
  addCommand(
      scanner, "Virtual Control BCDx36HP / UBCD3600XLT",
      [this] {
        openVirtualControl(this, session_.settingsCodec().store(), feedback_,
                           session_.folders().data, control::Family::Bcd);
      },
      QKeySequence("Ctrl+Shift+V"));
  addCommand(
      scanner, "Virtual Control SDS100 / SDS200",
      [this] {
        openVirtualControl(this, session_.settingsCodec().store(), feedback_,
                           session_.folders().data, control::Family::Sds);
      },
      QKeySequence("Ctrl+Alt+V"));
  addCommand(
      scanner, "Bandscope",
      [this] {
        openBandscope(this, session_.settingsCodec().store(), feedback_, session_.folders().data);
      },
      QKeySequence("Ctrl+B"));

  QMenu* tools = menuBar()->addMenu("&Tools");
  addCommand(tools, "QuickKey Layout Viewer And Editor", [this] {
    commitShown();
    if (!openQuickKeyView(this, session_, feedback_)) return;
    showSelectedAgain();
    updateStatus();
  });
  addCommand(tools, "System Quickkeys HP", [this] { openSystemQuickKeys(this, session_); });
  addCommand(tools, "Scanner QuickKey Overview", [this] {
    openQuickKeyBrowser(this, session_, feedback_, cardRootsOf(cardRoots_));
  });
  addCommand(tools, "Manage Full Database (US models only!)", [this] {
    openFullDatabase(this, session_, feedback_, cardRootsOf(cardRoots_));
  });

  QMenu* profile = menuBar()->addMenu("&Profile");
  addCommand(profile, "Open Profile", [this] { openProfileCommand(); });
  addCommand(profile, "Save Profile", [this] { saveProfileCommand(false); });
  addCommand(profile, "Save Profile As", [this] { saveProfileCommand(true); });
  addCommand(profile, "Clear Profile Name", [this] { clearProfileCommand(); });
  QMenu* help = menuBar()->addMenu("&Help");
  addCommand(
      help, "Keyboard Map",
      [this] {
        std::unique_ptr<QMenu> grid(rows_->buildMenu());
        showKeyboardMap(this, shortcutRows(menuBar(), grid.get(), "Grid"));
      },
      QKeySequence::HelpContents);
  addCommand(help, "About ZEL536", [this] { showAbout(this); });
  // The busiest menu: these two take their letters before the others are handed out.
  action("Find")->setText("&Find");
  action("Find Duplicates")->setText("Find &Duplicates");
  giveShortcuts(menuBar());
  giveAccelerators(menuBar());
}

QAction* MainWindow::action(const QString& caption) const {
  auto it = actions_.find(caption);
  return it == actions_.end() ? nullptr : it->second;
}

bool MainWindow::runCommand(const QString& caption) {
  QAction* a = action(caption);
  if (!a) {
    feedback_.message(toLatin1(caption));  // an unknown menu word shows its caption
    return false;
  }
  a->trigger();
  return true;
}

void MainWindow::newSystemCommand(const QString& caption) {
  auto r = newSystem(session_.document(), toLatin1(caption), feedback_);
  if (!r.ok) return;
  refreshTree();
  selectKey(QString::fromStdString(r.key));
}

void MainWindow::newSiteCommand() {
  auto r = newSite(session_.document(), session_.selectedSystem(), feedback_);
  if (!r.ok) return;
  refreshTree();
  selectKey(QString::fromStdString(r.key));
}

void MainWindow::newDepartmentCommand() {
  auto r = newDepartment(session_.document(), session_.selectedSystem(), feedback_);
  if (!r.ok) return;
  refreshTree();
  selectKey(QString::fromStdString(r.key));
}

void MainWindow::refreshTree() {
  const DocumentTree& vis = session_.document().visible;
  refreshing_ = true;
  tree_->clear();
  std::function<void(NodeId, QTreeWidgetItem*)> addChildren = [&](NodeId node,
                                                                  QTreeWidgetItem* parent) {
    for (NodeId c : vis.childList(node)) {
      auto* item = new QTreeWidgetItem(parent);
      const QString key = QString::fromStdString(vis.key(c));
      item->setText(0, fromLatin1(vis.text(c)));
      item->setIcon(0, nodeIcon(nodeKindOf(session_.document(), key.toStdString())));
      item->setToolTip(0, fromLatin1(vis.text(c)));
      item->setData(0, kKeyRole, key);
      addChildren(c, item);
    }
  };
  for (NodeId top : vis.topLevel()) {
    auto* item = new QTreeWidgetItem(tree_);
    const QString key = QString::fromStdString(vis.key(top));
    item->setText(0, fromLatin1(vis.text(top)));
    item->setIcon(0, nodeIcon(nodeKindOf(session_.document(), key.toStdString())));
    item->setData(0, kKeyRole, key);
    addChildren(top, item);
  }
  // A large document opens with its systems shown and closed.
  if (countItems() > kLargeTree) {
    tree_->collapseAll();
    for (int i = 0; i < tree_->topLevelItemCount(); ++i) {
      QTreeWidgetItem* top = tree_->topLevelItem(i);
      if (top->data(0, kKeyRole).toString().startsWith("FAV-")) top->setExpanded(true);
    }
  } else {
    tree_->expandAll();
  }
  applyFilter();
  refreshing_ = false;
  updateStatus();
}

int MainWindow::countItems() const {
  int n = 0;
  for (QTreeWidgetItemIterator it(tree_); *it; ++it) ++n;
  return n;
}

void MainWindow::applyFilter() {
  const QString text = filter_->text().trimmed();
  // Shows the items whose name holds the text, with the nodes above them opened.
  std::function<bool(QTreeWidgetItem*)> show = [&](QTreeWidgetItem* item) {
    bool any = false;
    for (int i = 0; i < item->childCount(); ++i) any = show(item->child(i)) || any;
    const bool own = text.isEmpty() || item->text(0).contains(text, Qt::CaseInsensitive);
    item->setHidden(!own && !any);
    if (!text.isEmpty() && any) item->setExpanded(true);
    return own || any;
  };
  for (int i = 0; i < tree_->topLevelItemCount(); ++i) show(tree_->topLevelItem(i));
}

bool MainWindow::selectKey(const QString& key) {
  QTreeWidgetItemIterator it(tree_);
  while (*it) {
    if ((*it)->data(0, kKeyRole).toString() == key) {
      tree_->setCurrentItem(*it);  // selects the node when it was not current yet
      if (session_.selectedKey() != key.toStdString()) onTreeClicked(*it);
      return true;
    }
    ++it;
  }
  return false;
}

void MainWindow::onTreeClicked(QTreeWidgetItem* item) {
  if (!item) return;
  const std::string key = item->data(0, kKeyRole).toString().toStdString();
  session_.select(key, *this);
  setWindowTitle(QString::fromStdString(session_.windowTitle(key)));
  updateStatus();
}

void MainWindow::storePane(std::string_view, std::string_view) {
  pane_->storeNode();
}

void MainWindow::storeGrid(std::string_view departmentKey) {
  if (!shownPage_) return;
  rows_->finishEdit();
  session_.pages().save(departmentKey, savePageLines(*shownPage_));
}

void MainWindow::showPane(std::string_view key, std::string_view kind) {
  paneTitle_->setText(key.empty() ? QString("Select a favorites list, system, site or department.")
                                  : QString::fromStdString(std::string(kind)) + ": " +
                                        fromLatin1(visibleCaption(session_.document(), key)));
  pane_->showNode(key, kind);
  shownPage_ = nullptr;
  rows_->setPage(nullptr, {}, nullptr);
  rows_->hide();
  if (find_) find_->setGrid(nullptr);
  if (enhancedFind_) enhancedFind_->setGrid(nullptr);
  if (csvMapper_) csvMapper_->setGrid(nullptr);
}

void MainWindow::loadGrid(std::string_view departmentKey) {
  const std::string line = treemod::getText(session_.document().data, departmentKey);
  const bool trunked = record::field(line, 1) == "T-Group" || record::field(line, 0) == "TIN";
  shownPage_ = trunked ? &trunkgrid_ : &convgrid_;
  rows_->setObjectName(trunked ? "trunkgrid" : "convgrid");
  loadPageLines(*shownPage_, session_.pages().load(departmentKey));
  cell::CommitEnv env;
  env.feedback = &feedback_;
  env.changed = &session_.document().changed;
  rows_->setPage(shownPage_, env, &feedback_);
  if (find_) find_->setGrid(shownPage_);
  if (enhancedFind_) enhancedFind_->setGrid(shownPage_);
  if (csvMapper_) csvMapper_->setGrid(shownPage_);
  SettingsStore* store = &session_.settingsCodec().store();
  rows_->fitColumns([store, schema = shownSchema()](int column) {
    return columnWidthChosen(store, schema, column);
  });
  rows_->show();
}

Schema MainWindow::shownSchema() const {
  return shownPage_ == &trunkgrid_ ? Schema::Talkgroup : Schema::Channel;
}

// A width the user dragged goes to the settings at once, so that it survives a crash as
// well as the next department and the next run.
void MainWindow::keepColumnWidth(int column, int twips) {
  if (!shownPage_) return;
  GridSetup setup;
  setup.settings = &session_.settingsCodec().store();
  setup.widths = &widths_;
  keepChosenColumnWidth(setup, shownSchema(), column, twips);
}

// The mount points of removable media and the roots given on the command line; it outlives
// every card manager window it serves.
class CardRootsHolder {
 public:
  transfer::MountPointRoots roots;
};

const transfer::DriveRoots& cardRootsOf(std::unique_ptr<CardRootsHolder>& holder) {
  if (!holder) holder = std::make_unique<CardRootsHolder>();
  return holder->roots;
}

QTableView* MainWindow::rowsPane() const {
  return rows_;
}

MainWindow::~MainWindow() {
  // The card manager windows read the card roots: they go first.
  qDeleteAll(findChildren<PatrolWindow*>(QString(), Qt::FindDirectChildrenOnly));
}

void MainWindow::addCardRoot(const QString& folder) {
  if (!cardRoots_) cardRoots_ = std::make_unique<CardRootsHolder>();
  cardRoots_->roots.addUserRoot(toLatin1(folder));
}

// New Channel: the cursor goes to the first empty row of the department on show, where
// typing starts the channel (the grid adds rows when the page is full).
void MainWindow::newChannelCommand() {
  if (!shownPage_) {
    feedback_.message("error: please click on a department first");
    return;
  }
  int row = 0;
  while (row < model_->rowCount() && !model_->index(row, 0).data().toString().isEmpty()) ++row;
  if (row >= model_->rowCount()) row = std::max(0, model_->rowCount() - 1);
  rows_->setFocus();
  rows_->setCurrentIndex(model_->index(row, 0));
  rows_->scrollTo(model_->index(row, 0));
}

void MainWindow::openCardManager() {
  if (!cardRoots_) cardRoots_ = std::make_unique<CardRootsHolder>();
  auto* card = new PatrolWindow(session_, feedback_, cardRoots_->roots, this);
  card->setAttribute(Qt::WA_DeleteOnClose);
  card->setWindowFlag(Qt::Window);
  card->show();
  connect(card, &PatrolWindow::documentNeeded, this, [this] { commitShown(); });
  connect(card, &PatrolWindow::documentChanged, this, [this] {
    shownPage_ = nullptr;
    rows_->setPage(nullptr, {}, nullptr);
    rebuildVisibleTree(session_.document());
    afterFilesChanged();
  });
}

bool MainWindow::dropNode(const QString& sourceKey, const QString& targetKey, bool copy) {
  const std::string source = toLatin1(sourceKey);
  const std::string target = toLatin1(targetKey);
  // What is on show goes back to the document first; the moved node may get a new key, so
  // nothing of the old one stays on show to be stored under it later.
  commitShown();
  shownPage_ = nullptr;
  rows_->setPage(nullptr, {}, nullptr);
  Document& doc = session_.document();
  treemod::MoveResult moved;
  if (startsWith(source, "SYS-")) {
    int fileRow = 0;
    for (NodeId n = doc.visible.find(target); n != kNoNode; n = doc.visible.parent(n))
      if (startsWith(doc.visible.key(n), "FAV-")) fileRow = keys::numberAt(doc.visible.key(n), 5);
    if (fileRow <= 0) return false;
    moved = copy ? treemod::copySystemToList(doc, session_.pages(), source, fileRow, feedback_)
                 : treemod::moveSystemToList(doc, source, fileRow, feedback_);
  } else if (startsWith(source, "GRP-")) {
    const int system = keys::systemOf(target);
    moved = copy ? treemod::copyDepartment(doc, session_.pages(), source, system, feedback_)
                 : treemod::moveDepartment(doc, session_.pages(), source, system, feedback_);
  }
  if (!moved.ok) {
    selectKey(sourceKey);
    return false;
  }
  rebuildVisibleTree(doc);
  refreshTree();
  selectKey(QString::fromStdString(moved.key));
  return true;
}

void MainWindow::onCaptionChanged(const QString& key) {
  QTreeWidgetItemIterator it(tree_);
  for (; *it; ++it) {
    if ((*it)->data(0, kKeyRole).toString() != key) continue;
    (*it)->setText(0, fromLatin1(visibleCaption(session_.document(), toLatin1(key))));
    (*it)->setIcon(0, nodeIcon(nodeKindOf(session_.document(), toLatin1(key))));
  }
  paneTitle_->setText(QString::fromStdString(session_.selectedKind()) + ": " +
                      fromLatin1(visibleCaption(session_.document(), toLatin1(key))));
  updateStatus();
}

void MainWindow::updateStatus() {
  unsaved_->setText(QString::fromStdString(session_.unsavedText()));
  if (session_.selectedKey().empty())
    setWindowTitle(QString::fromStdString(session_.windowTitle("")));
}

void MainWindow::restoreGeometryFromSettings() {
  const auto& s = session_.settings();
  // Stored geometry is in twips, as the settings always kept it (15 twips a pixel).
  const int w = s.wwidth > 100 ? s.wwidth / 15 : 1100;
  const int h = s.wheight > 100 ? s.wheight / 15 : 700;
  resize(std::max(w, 640), std::max(h, 420));
  if (s.wleft > 100 || s.wtop > 100) move(s.wleft / 15, s.wtop / 15);
  // The stored default (3200 twips) is narrower than the names of real systems.
  const int left = std::clamp(s.browserLeft / 15, 300, 700);
  splitter_->setSizes({left, std::max(width() - left, 200)});
  if (s.wstate == 2) setWindowState(Qt::WindowMaximized);
}

void MainWindow::closeEvent(QCloseEvent* event) {
  auto& s = session_.settings();
  s.wleft = x() * 15;
  s.wtop = y() * 15;
  s.wwidth = width() * 15;
  s.wheight = height() * 15;
  s.wstate = isMaximized() ? 2 : (isMinimized() ? 1 : 0);
  if (!splitter_->sizes().isEmpty()) s.browserLeft = splitter_->sizes().first() * 15;
  if (!session_.shutdown()) {
    event->ignore();
    return;
  }
  event->accept();
}

}  // namespace zel::ui
