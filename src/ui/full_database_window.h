// "Manage Full Database (US models only!)": the scanner's own database, on the card or in the
// local copy that the vendor's PC software keeps, one state file at a time. The user picks a
// state file, lists its channels by system, department or kind, ticks channels and the
// settings to change, and applies them; the state file is written back through a temporary
// file and keeps what it replaced, once a session, as s_NNNNNN.hpd.bak. The work is the database
// library's; this window finds, lists, ticks and remembers.
#pragma once

#include <QDialog>
#include <array>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "core/session.h"
#include "database/hpdb_detect.h"
#include "database/hpdb_index.h"
#include "database/state_edit.h"
#include "database/state_file.h"
#include "transfer/drive_roots.h"

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QTreeWidget;

namespace zel::ui {

class FullDatabaseWindow : public QDialog {
  Q_OBJECT

 public:
  FullDatabaseWindow(Session& session, Feedback& feedback, const transfer::DriveRoots& roots,
                     QWidget* parent = nullptr);
  ~FullDatabaseWindow() override;

  // "Detect Scanner" and "detect hp1": the card search; the index fills the state list.
  bool detectScanner();
  bool detectHomePatrol1();
  // "open sentinel base": the index of the local copy in the folder of the folder box
  // (asked for through the chooser when the box is empty).
  bool openLocalBase();
  // The folder button: asks for the local copy's folder.
  void chooseLocalFolder();
  // Tests answer the folder question instead of a dialog; an empty answer cancels.
  void setFolderChooser(std::function<QString()> chooser) { chooser_ = std::move(chooser); }

  // "Select State File:": entry 0 is the head; false when the file cannot be read.
  bool chooseState(int comboIndex);
  // "Select System:" (entry 0 is the head) lists the system's channels and its departments.
  void chooseSystem(int comboIndex);
  // "Select Department:" (entry 0 is " << All Departments >> ").
  void chooseDepartment(int comboIndex);
  // "List All", "List All Conv.", "List All Trunk".
  void listAll(database::ChannelKinds kinds);
  // "ServiceType Filter:": a service name, or "None".
  void setServiceFilter(const QString& text);

  // "Select All" / "UnSelect All".
  void selectAll();
  void tickChannel(int row, bool ticked = true);
  // A setting's check box and word.
  void setSetting(database::DbSetting setting, bool ticked, const QString& value = {});
  // "Apply Settings To Selected Channels": true when the file was written.
  bool apply();
  // "Apply Led Color Filter": the button is there and does nothing.
  void ledColorFilter() {}

  QComboBox* stateCombo() const { return combo1_; }
  QComboBox* systemCombo() const { return combo2_; }
  QComboBox* departmentCombo() const { return combo4_; }
  QTreeWidget* channels() const { return listView3_; }
  QString statusText() const;
  const std::optional<database::StateFile>& file() const { return file_; }
  const std::string& filePath() const { return path_; }

 protected:
  void showEvent(QShowEvent* event) override;
  void done(int result) override;

 private:
  void build();
  void fillStates(const database::DatabaseLocation& location);
  void fillChannels(const database::ChannelFilter& filter);
  void remember();
  void setStatus(const QString& text);
  database::DbFamily family() const;

  Session& session_;
  Feedback& feedback_;
  const transfer::DriveRoots& roots_;
  std::function<QString()> chooser_;
  database::DbRemembered remembered_;
  std::vector<database::StateEntry> states_;
  database::DbFamily listFamily_ = database::DbFamily::Bcd;
  std::optional<database::StateFile> file_;
  std::string path_;
  database::ChannelFilter lastFilter_;
  bool firstShow_ = true;

  QRadioButton* optionCard_ = nullptr;
  QRadioButton* optionLocal_ = nullptr;
  QLineEdit* localFolder_ = nullptr;
  QLabel* label_ = nullptr;
  QComboBox* combo1_ = nullptr;
  QComboBox* combo2_ = nullptr;
  QComboBox* combo4_ = nullptr;
  QComboBox* combo5_ = nullptr;
  QTreeWidget* listView3_ = nullptr;
  QPushButton* selectAll_ = nullptr;
  std::array<QCheckBox*, database::kDbSettingCount> checks_{};
  std::array<QComboBox*, database::kDbSettingCount> combos_{};
};

// Opens the window from the main window's menu.
FullDatabaseWindow* openFullDatabase(QWidget* parent, Session& session, Feedback& feedback,
                                     const transfer::DriveRoots& roots);

}  // namespace zel::ui
