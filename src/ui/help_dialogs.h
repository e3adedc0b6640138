// The Help menu's windows: the keyboard map, made from the menus' own actions so that it
// lists every shortcut the window really has, and the About box with the version and the
// licences of the libraries the program is built with.
#pragma once

#include <QString>
#include <vector>

class QDialog;
class QMenu;
class QMenuBar;
class QWidget;

namespace zel::ui {

struct ShortcutRow {
  QString place;    // "File > Import", "Grid"
  QString command;  // the caption without its accelerator mark
  QString keys;     // as the desktop writes them ("Ctrl+Shift+A")
};

// Every command of the menu bar with its shortcut, in menu order; then those of `extra`
// (the grid's context menu) under `extraPlace`.
std::vector<ShortcutRow> shortcutRows(QMenuBar* bar, QMenu* extra = nullptr,
                                      const QString& extraPlace = {});

// Opens the keyboard map over `parent` (deleted when closed).
QDialog* showKeyboardMap(QWidget* parent, const std::vector<ShortcutRow>& rows);

// The About box's text: program, version, Qt, and each library with its licence.
QString aboutText();
QDialog* showAbout(QWidget* parent);

}  // namespace zel::ui
