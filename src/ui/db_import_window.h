// File > Import > Import System(s) from Database: the scanner's full database as a picker.
//
// The database is found on a card (the drive roots the card manager uses) or in a folder
// the user chooses; the choice and the folder are kept in the settings section "dbimport".
// A state chosen in the list is read whole, its systems listed with their sites and
// departments to tick, and narrowed by name, service type and a place with a range. Import
// adds the ticked systems to the document as new systems, through database/db_import.h.
#pragma once

#include <QDialog>
#include <functional>
#include <memory>
#include <vector>

#include "core/session.h"
#include "database/db_import.h"
#include "database/hpdb_index.h"
#include "transfer/drive_roots.h"

class QCheckBox;
class QCloseEvent;
class QComboBox;
class QLabel;
class QLineEdit;
class QProgressBar;
class QPushButton;
class QRadioButton;
class QTreeWidget;
class QTreeWidgetItem;

namespace zel::ui {

class DbImportWindow : public QDialog {
  Q_OBJECT
 public:
  DbImportWindow(Session& session, Feedback& feedback, const transfer::DriveRoots& roots,
                 QWidget* parent = nullptr);
  ~DbImportWindow() override;

  // "Find Database": the card or the folder, as the source choice says; fills the states.
  bool findDatabase();
  // Reads the state at a row of the state list (1 is the first state under the head).
  bool loadState(int row);
  // Shows the systems that pass the filter boxes.
  void applyFilter();
  // "Import": the ticked systems into the document. False when nothing was imported.
  bool importTicked();

  // Tests answer the folder question instead of a dialog; an empty answer cancels.
  void setFolderChooser(std::function<QString()> chooser) { chooser_ = std::move(chooser); }

  QTreeWidget* systemTree() const { return tree_; }
  QComboBox* stateList() const { return states_; }
  QString statusText() const;

 signals:
  // New systems stand in the document; `firstKey` is the first of them.
  void imported(const QString& firstKey);

 protected:
  // A state being read or an import under way keeps the window open.
  void closeEvent(QCloseEvent* event) override;

 private:
  void build();
  void chooseFolder();
  void fillTree();
  void updateTickCount();
  std::vector<database::DbChoice> tickedChoices() const;
  void setStatus(const QString& text);

  Session& session_;
  Feedback& feedback_;
  const transfer::DriveRoots& roots_;
  std::function<QString()> chooser_;
  std::optional<database::DatabaseLocation> location_;
  std::vector<database::StateEntry> stateEntries_;
  std::unique_ptr<database::StateDatabase> state_;
  bool busy_ = false;

  QRadioButton* fromCard_ = nullptr;
  QRadioButton* fromFolder_ = nullptr;
  QLineEdit* folder_ = nullptr;
  QComboBox* states_ = nullptr;
  QLineEdit* name_ = nullptr;
  QComboBox* service_ = nullptr;
  QCheckBox* near_ = nullptr;
  QLineEdit* lat_ = nullptr;
  QLineEdit* lon_ = nullptr;
  QLineEdit* range_ = nullptr;
  QTreeWidget* tree_ = nullptr;
  QLabel* ticked_ = nullptr;
  QLabel* status_ = nullptr;
  QProgressBar* progress_ = nullptr;
  QPushButton* import_ = nullptr;
};

// Opens the window over `parent` (or raises the one already open); `imported` runs after
// each import that added systems.
DbImportWindow* openDatabaseImport(QWidget* parent, Session& session, Feedback& feedback,
                                   const transfer::DriveRoots& roots,
                                   std::function<void(const QString& firstKey)> imported);

}  // namespace zel::ui
