#include "ui/help_dialogs.h"

#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QDialogButtonBox>
#include <QHeaderView>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QTableWidget>
#include <QVBoxLayout>
#include <functional>

#include "ui/node_icons.h"

namespace zel::ui {

namespace {

QString plain(QString caption) {
  caption.replace("&&", QString(QChar(1)));
  caption.remove('&');
  caption.replace(QChar(1), '&');
  return caption;
}

void collect(QMenu* menu, const QString& place, std::vector<ShortcutRow>& rows) {
  for (QAction* a : menu->actions()) {
    if (a->isSeparator()) continue;
    if (a->menu()) {
      collect(a->menu(), place + " > " + plain(a->text()), rows);
      continue;
    }
    QStringList keys;
    for (const QKeySequence& k : a->shortcuts()) keys << k.toString(QKeySequence::NativeText);
    rows.push_back({place, plain(a->text()), keys.join(", ")});
  }
}

QDialog* dialog(QWidget* parent, const QString& title, const QString& name) {
  auto* d = new QDialog(parent);
  d->setObjectName(name);
  d->setWindowTitle(title);
  d->setAttribute(Qt::WA_DeleteOnClose);
  return d;
}

void addCloseButton(QDialog* d, QVBoxLayout* layout) {
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close, d);
  QObject::connect(buttons, &QDialogButtonBox::rejected, d, &QDialog::reject);
  layout->addWidget(buttons);
}

}  // namespace

std::vector<ShortcutRow> shortcutRows(QMenuBar* bar, QMenu* extra, const QString& extraPlace) {
  std::vector<ShortcutRow> rows;
  for (QAction* top : bar->actions())
    if (top->menu()) collect(top->menu(), plain(top->text()), rows);
  if (extra) collect(extra, extraPlace, rows);
  return rows;
}

QDialog* showKeyboardMap(QWidget* parent, const std::vector<ShortcutRow>& rows) {
  QDialog* d = dialog(parent, "Keyboard Map", "keyboardMap");
  auto* layout = new QVBoxLayout(d);
  auto* table = new QTableWidget(static_cast<int>(rows.size()), 3, d);
  table->setHorizontalHeaderLabels({"Menu", "Command", "Shortcut"});
  table->verticalHeader()->hide();
  table->verticalHeader()->setDefaultSectionSize(table->fontMetrics().height() + 6);
  table->setEditTriggers(QAbstractItemView::NoEditTriggers);
  table->setSelectionBehavior(QAbstractItemView::SelectRows);
  for (int r = 0; r < static_cast<int>(rows.size()); ++r) {
    table->setItem(r, 0, new QTableWidgetItem(rows[r].place));
    table->setItem(r, 1, new QTableWidgetItem(rows[r].command));
    table->setItem(r, 2, new QTableWidgetItem(rows[r].keys));
  }
  table->resizeColumnsToContents();
  table->horizontalHeader()->setStretchLastSection(true);
  layout->addWidget(table);
  addCloseButton(d, layout);
  d->resize(640, 560);
  d->show();
  return d;
}

QString aboutText() {
  QString version = QApplication::applicationVersion();
  if (version.isEmpty()) version = "development build";
  QString libraries =
      "<li>Qt " + QString(qVersion()) +
      ": GNU Lesser General Public License v3 (LGPLv3)</li>"
      "<li>pugixml: MIT License</li>"
      "<li>CLI11: BSD 3-Clause License</li>"
      "<li>cpp-httplib: MIT License</li>"
      "<li>zlib: zlib License</li>";
#ifdef ZEL_HAVE_KEYCHAIN
  libraries += "<li>QtKeychain: BSD 3-Clause License</li>";
#endif
  return "<h3>ZEL536 " + version +
         "</h3><p>Favorites lists, the scanner card and the live scanner.</p>"
         "<p>Built with these libraries, each under its own licence:</p><ul>" +
         libraries + "</ul>";
}

QDialog* showAbout(QWidget* parent) {
  QDialog* d = dialog(parent, "About ZEL536", "aboutBox");
  auto* layout = new QVBoxLayout(d);
  auto* row = new QHBoxLayout;
  auto* picture = new QLabel(d);
  picture->setPixmap(applicationIcon().pixmap(64, 64));
  picture->setAlignment(Qt::AlignTop);
  auto* text = new QLabel(aboutText(), d);
  text->setObjectName("aboutText");
  text->setTextFormat(Qt::RichText);
  text->setWordWrap(true);
  row->addWidget(picture);
  row->addWidget(text, 1);
  layout->addLayout(row);
  addCloseButton(d, layout);
  d->show();
  return d;
}

}  // namespace zel::ui
