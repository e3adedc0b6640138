// Shortcuts for keyboard users: every menu command that has none gets Ctrl+Alt and a letter
// of its caption (word starts first) that no other command of the menu bar uses, then
// Ctrl+Alt+Shift and a letter, so that every command has one and none is used twice. Keys
// that desktops commonly keep for themselves (Ctrl+Alt+T, L, D) are left out.
#pragma once

class QMenuBar;

namespace zel::ui {

void giveShortcuts(QMenuBar* bar);

}  // namespace zel::ui
