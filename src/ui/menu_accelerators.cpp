#include "ui/menu_accelerators.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <QSet>

namespace zel::ui {

namespace {

// The letter after a single "&" ("&&" is a plain ampersand), or a null character.
QChar acceleratorOf(const QString& text) {
  for (int i = 0; i + 1 < text.size(); ++i) {
    if (text[i] != '&') continue;
    if (text[i + 1] == '&') {
      ++i;
      continue;
    }
    return text[i + 1].toLower();
  }
  return {};
}

void giveAcceleratorsTo(const QList<QAction*>& actions) {
  QSet<QChar> used;
  for (QAction* a : actions) {
    if (QChar c = acceleratorOf(a->text()); !c.isNull()) used.insert(c);
  }
  for (QAction* a : actions) {
    const QString text = a->text();
    if (a->isSeparator() || text.isEmpty() || !acceleratorOf(text).isNull()) continue;
    // Word starts first, then any letter or digit.
    int at = -1;
    for (int pass = 0; pass < 2 && at < 0; ++pass) {
      for (int i = 0; i < text.size(); ++i) {
        const bool wordStart = i == 0 || text[i - 1] == ' ';
        if ((pass == 0 && !wordStart) || !text[i].isLetterOrNumber()) continue;
        if (used.contains(text[i].toLower())) continue;
        at = i;
        break;
      }
    }
    if (at < 0) continue;
    used.insert(text[at].toLower());
    QString marked = text;
    marked.insert(at, '&');
    a->setText(marked);
  }
}

}  // namespace

void giveAccelerators(QMenu* menu) {
  giveAcceleratorsTo(menu->actions());
  for (QAction* a : menu->actions()) {
    if (a->menu()) giveAccelerators(a->menu());
  }
}

void giveAccelerators(QMenuBar* bar) {
  giveAcceleratorsTo(bar->actions());
  for (QAction* a : bar->actions()) {
    if (a->menu()) giveAccelerators(a->menu());
  }
}

}  // namespace zel::ui
