#include "ui/qkey_browser_window.h"

#include <QApplication>
#include <QClipboard>
#include <QCoreApplication>
#include <QFileDialog>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QSplitter>
#include <QTimer>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <filesystem>

#include "formats/atomic_file.h"
#include "ui/qt_feedback.h"

namespace zel::ui {

namespace {

constexpr const char* kNotFound =
    "BCDx36HP not found, please plug USB cable in, select MASS STORAGE DEVICE and try again by "
    "pressing yellow 'Detect' button.";
const QColor kTwiceBackground(255, 215, 215);
enum Column { Name, Number, Fl, Sys, Dep, Shortcut, Hidden };

QString keyWithTwice(int key, bool twice) {
  const QString text = key < 0 ? QString("Off") : QString::number(key);
  return twice ? text + " (twice)" : text;
}

}  // namespace

QkeyBrowserWindow::QkeyBrowserWindow(Session& session, Feedback& feedback,
                                     const transfer::DriveRoots& roots, QWidget* parent)
    : QDialog(parent), session_(session), feedback_(feedback), roots_(roots) {
  setObjectName("frm_qkey_browser");
  setWindowTitle("Scanner QuickKey Overview:");
  build();
  resize(1180, 640);
  // The first scan waits until the window is on show.
  QTimer::singleShot(0, this, [this] { scan(); });
}

void QkeyBrowserWindow::build() {
  auto* root = new QVBoxLayout(this);
  status_ = new QLabel(this);
  status_->setObjectName("statusLabel");
  status_->setWordWrap(true);
  root->addWidget(status_);

  auto* splitter = new QSplitter(this);
  tv_ = new QTreeWidget(splitter);
  tv_->setObjectName("tv");
  tv_->setHeaderLabel("Favorites lists");
  listView1_ = new QTreeWidget(splitter);
  listView1_->setObjectName("ListView1");
  listView1_->setRootIsDecorated(false);
  listView1_->setAlternatingRowColors(true);
  listView1_->setHeaderLabels({"Name:", "#", "FL QuickKey:", "SYS QuickKey:", "DEP QuickKey:",
                               "Shortcut:", "hiddensort:"});
  listView1_->setColumnHidden(Hidden, true);
  listView1_->setSortingEnabled(false);
  listView1_->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
  listView1_->header()->setSectionResizeMode(Name, QHeaderView::Stretch);
  listView1_->header()->setStretchLastSection(false);
  splitter->setSizes({300, 880});
  root->addWidget(splitter, 1);
  root->addWidget(new QLabel("Quick keys used twice:", this));
  twice_ = new QListWidget(this);
  twice_->setObjectName("duplicates");
  twice_->setMaximumHeight(90);
  root->addWidget(twice_);

  auto* buttons = new QHBoxLayout;
  auto add = [this, buttons](const char* name, const char* caption, const char* tip) {
    auto* b = new QPushButton(caption, this);
    b->setObjectName(name);
    b->setToolTip(tip);
    buttons->addWidget(b);
    return b;
  };
  connect(add("Command6", "Scan For Scanner", "Look for the scanner's card again"),
          &QPushButton::clicked, this, [this] { scan(); });
  connect(add("Command3", "Refresh", "Read the card's favorites lists again"),
          &QPushButton::clicked, this, &QkeyBrowserWindow::refresh);
  connect(add("Command5", "Copy To Clipboard", "The list as text, one row a line"),
          &QPushButton::clicked, this, &QkeyBrowserWindow::copyToClipboard);
  connect(add("Command7", "Create HTML", "Save the list as a web page"), &QPushButton::clicked,
          this, [this] { createHtml(); });
  connect(add("Command8", "Sort by FL Qkey", "Sort by list, system and department key"),
          &QPushButton::clicked, this, &QkeyBrowserWindow::sortByKeys);
  buttons->addStretch(1);
  auto* close = add("Command4", "Close", "Close this window");
  connect(close, &QPushButton::clicked, this, &QDialog::accept);
  root->addLayout(buttons);
}

QString QkeyBrowserWindow::statusText() const { return status_->text(); }

bool QkeyBrowserWindow::scan() {
  transfer::DetectOptions options;
  Settings& settings = session_.settingsCodec();
  options.includeD = settings.getPlain("scanner", "include_drive_d", "0") == "1";
  options.includeE = settings.getPlain("scanner", "include_drive_e", "0") == "1";
  options.version = toLatin1(QCoreApplication::applicationVersion());
  std::error_code ec;
  std::filesystem::create_directories(session_.folders().data, ec);
  if (!ec) options.reportPath = session_.folders().data + "/drivetest.txt";
  const transfer::CardState& state = detector_.detect(roots_, options, &settings);
  if (!state.detected()) {
    status_->setText(kNotFound);
    overview_ = {};
    rows_.clear();
    fillViews();
    return false;
  }
  status_->setText("BCDx36HP detected at drive " + fromLatin1(state.drive));
  refresh();
  return true;
}

void QkeyBrowserWindow::refresh() {
  if (!detector_.state().detected()) {
    status_->setText(kNotFound);
    return;
  }
  overview_ = qkeys::readCardOverview(detector_.state().scannerRoot);
  if (!overview_.ok) feedback_.message(overview_.error);
  rows_ = qkeys::overviewRows(overview_);
  fillViews();
}

void QkeyBrowserWindow::fillViews() {
  tv_->clear();
  for (const qkeys::CardList& list : overview_.lists) {
    auto* l = new QTreeWidgetItem(tv_);
    l->setText(0, "FL:" + keyWithTwice(list.key, list.twice) + "  " + fromLatin1(list.name) +
                      (list.missing ? "  (" + fromLatin1(list.file) + " cannot be read)" : ""));
    if (list.twice) l->setBackground(0, kTwiceBackground);
    for (const qkeys::CardSystem& sys : list.systems) {
      auto* s = new QTreeWidgetItem(l);
      s->setText(0, QString("%1 %2  %3").arg(qkeys::cardItemWord(sys.item),
                                             keyWithTwice(sys.key, sys.twice), fromLatin1(sys.name)));
      if (sys.twice) s->setBackground(0, kTwiceBackground);
      for (const qkeys::CardChild& child : sys.children) {
        auto* c = new QTreeWidgetItem(s);
        c->setText(0, QString("%1 %2  %3").arg(qkeys::cardItemWord(child.item),
                                               keyWithTwice(child.key, child.twice),
                                               fromLatin1(child.name)));
        if (child.twice) c->setBackground(0, kTwiceBackground);
      }
    }
    l->setExpanded(true);
  }
  listView1_->clear();
  for (const qkeys::CardRow& r : rows_) {
    auto* item = new QTreeWidgetItem(listView1_);
    item->setText(Name, fromLatin1(r.name));
    item->setText(Number, QString::number(r.list));
    item->setText(Fl, fromLatin1(r.flKey));
    item->setText(Sys, fromLatin1(r.sysKey));
    item->setText(Dep, fromLatin1(r.depKey));
    item->setText(Shortcut, fromLatin1(r.shortcut));
    item->setText(Hidden, QString::fromStdString(r.sortKey));
    if (r.system) {
      QFont f = item->font(Name);
      f.setBold(true);
      item->setFont(Name, f);
    }
    for (const std::string& scope : r.twice) {
      const int column = scope == "FL" ? Fl : scope == "SYS" ? Sys : Dep;
      item->setBackground(column, kTwiceBackground);
      item->setToolTip(column, "This quick key is used twice in its scope.");
    }
  }
  twice_->clear();
  for (const qkeys::CardDuplicate& d : overview_.duplicates) twice_->addItem(fromLatin1(d.sentence()));
  if (overview_.ok && overview_.duplicates.empty()) twice_->addItem("None: every quick key is unique in its scope.");
}

void QkeyBrowserWindow::copyToClipboard() {
  QApplication::clipboard()->setText(fromLatin1(qkeys::clipboardText(rows_)));
}

bool QkeyBrowserWindow::createHtml() {
  if (rows_.empty()) {
    feedback_.message("Nothing to write: no quick keys were read from a card.");
    return false;
  }
  const QString path = chooser_ ? chooser_()
                                : QFileDialog::getSaveFileName(this, "Create HTML",
                                                               "qkey_overview.html",
                                                               "Web pages (*.html *.htm)");
  if (path.isEmpty()) return false;
  const formats::WriteStatus written =
      formats::writeFileAtomically(path.toStdString(), qkeys::overviewHtml(rows_));
  if (!written.ok) {
    feedback_.message(written.message);
    return false;
  }
  feedback_.status("Quickkey overview written to " + path.toStdString());
  return true;
}

void QkeyBrowserWindow::sortByKeys() {
  qkeys::sortByKeys(rows_);
  fillViews();
}

QkeyBrowserWindow* openQuickKeyBrowser(QWidget* parent, Session& session, Feedback& feedback,
                                       const transfer::DriveRoots& roots) {
  auto* window = new QkeyBrowserWindow(session, feedback, roots, parent);
  window->setAttribute(Qt::WA_DeleteOnClose);
  window->setWindowFlag(Qt::Window);
  window->show();
  return window;
}

}  // namespace zel::ui
