// Menu accelerators for keyboard users: every entry of a menu that has none gets the first
// letter of its caption that no other entry of the same menu uses ("&Open", "S&ave As"), so
// that Alt and two letters reach any command. Captions keep their words; a caption's own "&"
// is kept as it is.
#pragma once

class QMenu;
class QMenuBar;

namespace zel::ui {

void giveAccelerators(QMenu* menu);
void giveAccelerators(QMenuBar* bar);

}  // namespace zel::ui
