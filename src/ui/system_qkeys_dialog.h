// frm_sysqkeys, "System Quickkeys HP": the enabled state of the hundred system quick keys,
// ten boxes to a row. A box on a key that some system uses has a green background; the mouse
// over a box (or a click on it) lists the systems and sites on that key. A click stores the
// state at once (settings section "qkeysrs"); the window's place is kept in "qkeyeditor".
#pragma once

#include <QDialog>
#include <array>
#include <string>

#include "core/session.h"

class QCheckBox;
class QLabel;
class QListWidget;

namespace zel::ui {

class SystemQkeysDialog : public QDialog {
  Q_OBJECT
 public:
  SystemQkeysDialog(Session& session, QWidget* parent = nullptr);

  QCheckBox* box(int key) const { return boxes_.at(key); }
  QListWidget* systemList() const { return list2_; }
  // Lists what is on a key, as the mouse over its box does.
  void showKey(int key);
  std::string flags() const;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void done(int result) override;

 private:
  void setAll(char flag);
  void store();

  Session& session_;
  std::array<QCheckBox*, 100> boxes_{};
  QListWidget* list2_ = nullptr;
  QLabel* assigned_ = nullptr;
};

void openSystemQuickKeys(QWidget* parent, Session& session);

}  // namespace zel::ui
