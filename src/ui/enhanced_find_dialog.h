// Enhanced Find: the duplicate searches over the whole document and Review LockOut
// Channels, listed for review, marking and removal. The search runs after the window has
// painted, on the window's thread, and keeps the window alive by processing its events
// between outer steps; the stop button and closing the window end it at the next step and
// leave the list as it stands.
#pragma once

#include <QDialog>
#include <QElapsedTimer>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "core/session.h"
#include "grid/duplicates.h"
#include "grid/duplicates_removal.h"
#include "grid/grid_page.h"

class QHBoxLayout;
class QLabel;
class QMenu;
class QMenuBar;
class QProgressBar;
class QPushButton;
class QRadioButton;
class QTreeWidget;
class QTreeWidgetItem;

namespace zel::ui {

class EnhancedFindDialog : public QDialog {
  Q_OBJECT

 public:
  // `grid` is the grid on show (null when no department is); `changed` is called after the
  // window changed that grid, the page files or the records, so the main window reloads.
  EnhancedFindDialog(Session& session, Feedback& feedback, GridPage* grid,
                     std::function<void()> changed, QWidget* parent = nullptr);
  ~EnhancedFindDialog() override;

  void setGrid(GridPage* grid);

  // The menu entries. "In Current System" picks 10 or 11 by the selected system's type;
  // without a system it says "Please click on a system first." and returns false.
  bool startInCurrentSystem();
  // Sets the search up, shows the window and starts the search from a timer.
  bool start(dups::Selector selector);
  // Sets the search up without showing or running it.
  bool prepare(dups::Selector selector);
  dups::Selector selector() const { return selector_; }
  // The timer's work: runs the prepared search and fills the list.
  void runSearch();
  bool searching() const { return searching_; }
  // The stop flag: the running search ends at its next outer step.
  void stop() { stopFlag_ = true; }

  // The buttons.
  void selectAll(bool marked);
  int selectDups();
  int deleteSelected();       // "Delete Selected Channels"
  int unlockSelected();       // "Unlock Selected Channels" (Clear LockOut of the review)
  QString copyToClipboard();  // "Copy To Clipboard": also returns the text
  // The "Unlock" submenu.
  int unlock(dups::UnlockScope scope);

  const std::vector<dups::MatchRow>& rows() const { return rows_; }
  QTreeWidget* list() const { return list_; }
  QProgressBar* progressBar() const { return progress_; }

 protected:
  void hideEvent(QHideEvent* event) override;
  void showEvent(QShowEvent* event) override;

 private:
  void buildButtons(QHBoxLayout* row);
  void buildMenu();
  void arrangeFor(dups::Selector selector);
  void showRows();
  void readMarks();
  void renumberAfterDelete(const std::vector<dups::MatchRow>& before);
  bool progressStep(int percent);
  std::vector<dups::ReviewPage> reviewPages(std::vector<std::unique_ptr<GridPage>>& loaded,
                                            bool onlyMarked);
  void finishChange(int changes);

  Session& session_;
  Feedback& feedback_;
  GridPage* grid_;
  std::function<void()> changed_;
  dups::Selector selector_ = dups::Selector::FrequenciesAll;
  bool prepared_ = false;
  bool searching_ = false;
  bool stopFlag_ = false;
  bool runWhenShown_ = false;
  std::vector<dups::MatchRow> rows_;
  std::vector<dups::LockedRow> locked_;
  std::vector<bool> lockedMarks_;
  QElapsedTimer sincePaint_;

  QMenuBar* menu_ = nullptr;
  QTreeWidget* list_ = nullptr;
  QProgressBar* progress_ = nullptr;
  QRadioButton* allBanks_ = nullptr;
  QRadioButton* activeBank_ = nullptr;
  QPushButton* selectAll_ = nullptr;
  QPushButton* unselectAll_ = nullptr;
  QPushButton* selectDups_ = nullptr;
  QPushButton* delete_ = nullptr;
  QPushButton* unlockSelected_ = nullptr;
  QPushButton* copy_ = nullptr;
  QPushButton* done_ = nullptr;
  QPushButton* stop_ = nullptr;
  QLabel* count_ = nullptr;
};

// Fills a "Find Duplicates" (or "Remove Duplicates") submenu with its entries: "In Current
// System", "In Current System With Subtone", "In All Systems (Frequencies)", "In All
// Systems (TGid)", "In All Systems With Subtone". The two subtone entries do nothing. The
// others ask `dialog` for the window (made on first use by the caller) and start its
// search.
void addDuplicateSearchEntries(QMenu* menu, const std::function<EnhancedFindDialog&()>& dialog);

// Whether a system's record makes it conventional: the system table's type "0", or, for a
// system the table does not know, its record's type label.
bool isConventionalSystem(const Document& doc, int system);

}  // namespace zel::ui
