// frm_qkey_browser, "Scanner QuickKey Overview:": the quick keys of every favorites list on
// the card the card detection finds, as a tree (lists, systems, departments and sites) and
// as a list with the columns "Name:", "#", "FL QuickKey:", "SYS QuickKey:", "DEP QuickKey:",
// "Shortcut:" and the hidden "hiddensort:". Keys used twice in their scope show in red, with
// one sentence each under the list. The first scan runs just after the window shows.
#pragma once

#include <QDialog>
#include <functional>
#include <vector>

#include "core/session.h"
#include "database/qkey_card.h"
#include "transfer/card_detect.h"
#include "transfer/drive_roots.h"

class QLabel;
class QListWidget;
class QTreeWidget;

namespace zel::ui {

class QkeyBrowserWindow : public QDialog {
  Q_OBJECT
 public:
  QkeyBrowserWindow(Session& session, Feedback& feedback, const transfer::DriveRoots& roots,
                    QWidget* parent = nullptr);

  // "Scan For Scanner": detection, then Refresh when a card is found.
  bool scan();
  // "Refresh": reads the card's lists again.
  void refresh();
  void copyToClipboard();
  // "Create HTML": asks for a file name (through the chooser when one is set).
  bool createHtml();
  void sortByKeys();
  // Tests answer the file question instead of a dialog; an empty answer cancels.
  void setHtmlChooser(std::function<QString()> chooser) { chooser_ = std::move(chooser); }

  QTreeWidget* list() const { return listView1_; }
  QTreeWidget* tree() const { return tv_; }
  QListWidget* duplicates() const { return twice_; }
  QString statusText() const;

 private:
  void build();
  void fillViews();

  Session& session_;
  Feedback& feedback_;
  const transfer::DriveRoots& roots_;
  transfer::CardDetector detector_;
  qkeys::CardOverview overview_;
  std::vector<qkeys::CardRow> rows_;
  std::function<QString()> chooser_;
  QLabel* status_ = nullptr;
  QTreeWidget* tv_ = nullptr;
  QTreeWidget* listView1_ = nullptr;
  QListWidget* twice_ = nullptr;
};

QkeyBrowserWindow* openQuickKeyBrowser(QWidget* parent, Session& session, Feedback& feedback,
                                       const transfer::DriveRoots& roots);

}  // namespace zel::ui
