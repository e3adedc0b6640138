#include "ui/menu_shortcuts.h"

#include <QAction>
#include <QKeySequence>
#include <QMenu>
#include <QMenuBar>
#include <QSet>
#include <functional>

namespace zel::ui {

namespace {

void forEachCommand(QMenuBar* bar, const std::function<void(QAction*)>& visit) {
  std::function<void(QMenu*)> walk = [&](QMenu* menu) {
    for (QAction* a : menu->actions()) {
      if (a->isSeparator()) continue;
      if (a->menu()) {
        walk(a->menu());
      } else {
        visit(a);
      }
    }
  };
  for (QAction* top : bar->actions())
    if (top->menu()) walk(top->menu());
}

// The letters of a caption in the order they are tried: word starts, then the others.
QString candidateLetters(const QString& caption) {
  QString text = caption;
  text.remove('&');
  QString first, rest;
  for (int i = 0; i < text.size(); ++i) {
    const QChar c = text[i].toUpper();
    if (c < 'A' || c > 'Z') continue;
    (i == 0 || text[i - 1] == ' ' ? first : rest) += c;
  }
  return first + rest;
}

}  // namespace

void giveShortcuts(QMenuBar* bar) {
  QSet<QString> used;
  forEachCommand(bar, [&](QAction* a) {
    for (const QKeySequence& k : a->shortcuts()) used.insert(k.toString());
  });
  static const QString kReserved = "TLD";
  forEachCommand(bar, [&](QAction* a) {
    if (!a->shortcut().isEmpty()) return;
    const QString letters = candidateLetters(a->text()) + "ABCEFGHIJKMNOPQRSUVWXYZ";
    for (const char* prefix : {"Ctrl+Alt+", "Ctrl+Alt+Shift+"}) {
      for (QChar c : letters) {
        if (kReserved.contains(c)) continue;
        const QKeySequence key(prefix + QString(c));
        if (used.contains(key.toString())) continue;
        used.insert(key.toString());
        a->setShortcut(key);
        return;
      }
    }
  });
}

}  // namespace zel::ui
