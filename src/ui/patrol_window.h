// The card manager `frm_patrol`: finds the scanner's card, shows its favorites lists in
// the scanner's order, saves the open document as a list, reads lists into the document,
// deletes, reorders and fills the key columns of lists, recovers orphans and adds the
// prepared Service Search lists. Every file step is the transfer library's; the window
// only shows and asks.
//
// The main window opens it from its Scanner menu with openPatrolWindow() (or constructs a
// PatrolWindow itself) and connects documentChanged() to its tree refresh.
#pragma once

#include <QMainWindow>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "core/ports.h"
#include "core/session.h"
#include "transfer/card_detect.h"
#include "transfer/drive_roots.h"
#include "transfer/favorites_card.h"

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;
class QRadioButton;
class QTreeWidget;
class QTreeWidgetItem;
class QWidget;

namespace zel::ui {

class Label3Feedback;

class PatrolWindow : public QMainWindow {
  Q_OBJECT

 public:
  // `roots` are the places a card may appear; they must outlive the window.
  PatrolWindow(Session& session, Feedback& feedback, const transfer::DriveRoots& roots,
               QWidget* parent = nullptr);
  // The same over the mount points of removable media of this machine.
  PatrolWindow(Session& session, Feedback& feedback, QWidget* parent = nullptr);
  ~PatrolWindow() override;

  // Command2 "Detect": the search for the card; the window runs it at open as well.
  void detect();
  const transfer::CardState& cardState() const { return detector_.state(); }
  // The lamp's colour: 65280 once a card is found.
  int lampColour() const { return detector_.state().lamp; }
  QString label3Text() const;
  // The card's lists as the view holds them (null before a card is found).
  const transfer::FavoritesCard* card() const { return card_.get(); }
  QTreeWidget* listView() const { return listView1_; }
  // Selects the row of list `number` in ListView1 (adds it to the selection).
  bool selectList(int number);
  // Selects the orphan row of `file`.
  bool selectOrphan(const QString& file);
  bool viewChanged() const { return card_ && card_->viewChanged(); }

 signals:
  // The document is about to be read or written: the main window puts the rows of the
  // department on show back into its page file first.
  void documentNeeded();
  // Lists were read into the document: the main window shows its tree again.
  void documentChanged();

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  void build();
  QWidget* buildDetectionBox();
  QWidget* buildSaveBox();
  QWidget* buildListButtons();
  QWidget* buildProBox();
  QPushButton* button(const QString& objectName, const QString& caption, QWidget* parent);
  void restoreOptions();
  void storeOptions();

  // The gate of every transfer: the lamp is green, else "Error: Scanner not detected.".
  bool gate();
  void loadLists();
  void fillViews();
  void fillListView();
  void fillCombo();
  void fillDocumentList();
  std::vector<int> selectedRows() const;
  std::vector<QString> selectedOrphans() const;

  void saveFavoriteList();           // Command13
  void writeLists(bool all);         // Command10
  void deleteSelected();             // Command4
  void writeView();                  // Command6 "Sort"
  void selectAll();                  // Command6 "Sel.All"
  void editSelected();               // Command8 "Edit"
  void moveSelectedDown();           // Command8 "Down"
  void quickKeyCommand(int index);   // Command12
  void enableAllQuickkeys();         // Command9
  void enableInProfile();            // the profile.cfg step of Command9 and Check7
  void addServiceSearch(int index);  // Command11
  void keepOrphans();                // copies orphans to free numbers
  void switchLevel();                // Command5
  void sortByColumn(int column);     // a click on a heading of ListView1
  void onItemChanged(QTreeWidgetItem* item, int column);
  void onItemDoubleClicked(QTreeWidgetItem* item, int column);
  void openDriveReport();  // Command14

  Session& session_;
  Feedback& feedback_;
  std::unique_ptr<transfer::DriveRoots> ownedRoots_;
  const transfer::DriveRoots& roots_;
  std::unique_ptr<Label3Feedback> label3Feedback_;
  transfer::CardDetector detector_;
  std::unique_ptr<transfer::FavoritesCard> card_;
  bool pro_ = true;
  bool filling_ = false;
  bool serviceAdded_[9] = {};

  QLabel* lamp_ = nullptr;
  QLabel* label3_ = nullptr;
  QCheckBox* check10_[3] = {};
  QPushButton* command2_ = nullptr;
  QTreeWidget* listView1_ = nullptr;
  QListWidget* listView2_ = nullptr;
  QRadioButton* option2_[2] = {};
  QComboBox* combo2_ = nullptr;
  QLineEdit* newName_ = nullptr;
  QCheckBox* check6_ = nullptr;
  QCheckBox* check7_ = nullptr;
  QCheckBox* check8_ = nullptr;
  QCheckBox* check9_ = nullptr;
  QPushButton* command5_ = nullptr;
  QPushButton* command11_[9] = {};
  QWidget* proBox_ = nullptr;
};

// Opens the card manager over the mount points of this machine as a window of its own,
// deleted when it is closed. The caller connects its signals.
PatrolWindow* openPatrolWindow(QWidget* parent, Session& session, Feedback& feedback);

}  // namespace zel::ui
