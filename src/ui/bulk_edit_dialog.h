// The Bulk Channel Editor: lists what the open document holds for a scope (departments,
// sites, systems, talkgroups or conventional frequencies), lets the user tick rows and the
// settings to change, and applies them in one go to the channels' page rows or to the
// records of departments, sites and systems. The work is the database library's; this
// window only lists, ticks and remembers.
//
// The caller stores the grid on show into the page store before opening the window and
// reloads it whenever `changed` is called, which happens after each successful apply.
#pragma once

#include <QDialog>
#include <array>
#include <functional>
#include <string>
#include <vector>

#include "core/session.h"
#include "database/bulk_lists.h"
#include "database/bulk_nodes.h"
#include "database/bulk_settings.h"

class QCheckBox;
class QComboBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QTreeWidget;
class QTreeWidgetItem;

namespace zel::ui {

class BulkEditDialog : public QDialog {
  Q_OBJECT

 public:
  BulkEditDialog(Session& session, Feedback& feedback, std::function<void()> changed,
                 QWidget* parent = nullptr);
  ~BulkEditDialog() override;

  bulk::Scope scope() const { return scope_; }
  // Chooses a scope as its button does: the system list, the trees and the panels follow.
  void setScope(bulk::Scope scope);
  // Chooses an entry of the system list (0 is "   < All Systems >") and lists its nodes.
  void chooseSystem(int comboIndex);
  // Re-reads the document (Command5).
  void rebuild();

  // Command2: ticks every department or site of the tree on show, or unticks them all when
  // all are ticked.
  void selectAll();
  // Command8: ticks the channels of the ticked departments and unticks the others.
  int selectChannels();
  // Command3. True when the apply went through.
  bool apply();
  // Command6 and Command7.
  void pasteGps();
  void useHome();
  void useDefault();

  // Ticks a node of the tree on show by its key; false when the tree does not list it.
  bool tickNode(const std::string& key, bool ticked = true);
  std::vector<std::string> tickedNodes() const;
  std::vector<std::string> tickedChannels() const;

 protected:
  void done(int result) override;

 private:
  void buildScopes();
  void buildLists();
  void buildSettingsPanel();
  void buildGpsPanel();
  void buildSitePanel();
  void buildButtons();
  void fillSystems();
  void fillNodes(QTreeWidget* tree, const std::vector<bulk::NodeEntry>& nodes);
  void fillChannels(int system);
  void arrange();
  bool applyToChannels();
  bool applyToNodes();
  QTreeWidget* nodeTree() const;
  void remember();
  void restore();

  Session& session_;
  Feedback& feedback_;
  std::function<void()> changed_;
  bulk::Scope scope_ = bulk::Scope::Departments;
  std::vector<bulk::ChannelEntry> channels_;

  std::array<QRadioButton*, bulk::kScopeCount> scopes_{};
  QGroupBox* scopeBox_ = nullptr;
  QComboBox* systems_ = nullptr;  // Combo1
  QLabel* departmentsLabel_ = nullptr;
  QTreeWidget* departments_ = nullptr;  // TreeView1
  QLabel* sitesLabel_ = nullptr;
  QTreeWidget* sites_ = nullptr;           // TreeView2
  QTreeWidget* channelList_ = nullptr;     // ListView1
  QPushButton* selectAll_ = nullptr;       // Command2
  QPushButton* selectChannels_ = nullptr;  // Command8

  QGroupBox* settingsPanel_ = nullptr;
  std::array<QCheckBox*, bulk::kSettingCount> checks_{};  // check1
  std::array<QComboBox*, bulk::kSettingCount> combos_{};  // cmb_s

  QGroupBox* gpsPanel_ = nullptr;
  QLineEdit* latitude_ = nullptr;   // Text1
  QLineEdit* longitude_ = nullptr;  // Text2
  QLineEdit* range_ = nullptr;      // Text3
  QCheckBox* gpsEnabled_ = nullptr;
  QCheckBox* quickKey_ = nullptr;
  QComboBox* quickKeyValue_ = nullptr;
  std::array<QLineEdit*, 3> county_{};  // Text5 to Text7
  std::vector<QWidget*> locationWidgets_;

  QGroupBox* sitePanel_ = nullptr;
  struct SiteRow {
    bulk::NodeItem item;
    QCheckBox* check = nullptr;
    QComboBox* value = nullptr;
  };
  std::vector<SiteRow> siteRows_;
};

}  // namespace zel::ui
