// The main window: the tree of favorites lists, systems, sites and departments on the
// left, the pane of the selected node on the right, the menus of the editor, and the
// status bar with the progress label.
#pragma once

#include <QMainWindow>
#include <QPointer>
#include <functional>
#include <map>
#include <memory>

#include "core/session.h"
#include "grid/grid_page.h"
#include "grid/grid_setup.h"

class QLabel;
class QLineEdit;
class QListWidget;
class QTableView;
class QTreeWidget;
class QTreeWidgetItem;
class QSplitter;
class QAction;
class QPrinter;

namespace zel::ui {

struct RRImportPreset;
class RRImportWindow;

class MainWindow : public QMainWindow, public SelectionHost {
  Q_OBJECT

 public:
  MainWindow(Session& session, Feedback& feedback, QWidget* parent = nullptr);
  ~MainWindow() override;

  // Runs a menu command by its caption, as a click on it would ("New P25 Trunk System").
  bool runCommand(const QString& caption);
  QAction* action(const QString& caption) const;
  // Shows the document's visible tree again after the document changed.
  void refreshTree();
  // Selects a node of the visible tree by key, as a click would.
  bool selectKey(const QString& key);
  // A folder the card manager treats as a card root besides the removable media.
  void addCardRoot(const QString& folder);
  // A node dropped on another in the tree: a system into a list, a department into a
  // system; `copy` keeps the source. False when the document refused it.
  bool dropNode(const QString& sourceKey, const QString& targetKey, bool copy);
  // Prints the selected system, or every system when none is selected, on `printer`.
  void printReport(QPrinter& printer);
  // Opens a favorites list (.hpd) or a profile (.pfl) into the document.
  bool openPath(const QString& path);
  // File > Import > Import from RadioReference: opens the import window (or raises it).
  RRImportWindow* openRadioReferenceImport();
  // An end point and account the import window starts with in this run only.
  void setRadioReferencePreset(const RRImportPreset& preset);

  // How the window asks for a file name; tests answer instead of a dialog. An empty answer
  // cancels the command.
  enum class FileAsk {
    Open,
    SaveAs,
    SaveUnsavedAs,
    OpenConfig,
    SaveConfig,
    OpenProfile,
    SaveProfileAs,
    ExportCsv
  };
  using FileChooser = std::function<QString(FileAsk, const QString& suggested)>;
  void setFileChooser(FileChooser chooser) { chooser_ = std::move(chooser); }

  QTreeWidget* tree() const { return tree_; }
  class NodePane* nodePane() const {
    return pane_;
  }
  QTableView* rowsPane() const;
  GridPage& channelPage() { return convgrid_; }
  GridPage& talkgroupPage() { return trunkgrid_; }
  // The grid of the department on show (null when none is).
  GridPage* shownPage() const { return shownPage_; }
  QLabel* progressLabel() const { return lblSys_; }
  Session& session() { return session_; }

  // SelectionHost
  void storePane(std::string_view key, std::string_view kind) override;
  void storeGrid(std::string_view departmentKey) override;
  void showPane(std::string_view key, std::string_view kind) override;
  void loadGrid(std::string_view departmentKey) override;

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  Schema shownSchema() const;
  void keepColumnWidth(int column, int twips);
  void editBanknamesCommand();
  void editDepartmentsCommand();
  void printCommand();
  void showSelectedAgain();
  void buildMenus();
  void buildCentre();
  QAction* addCommand(QMenu* menu, const QString& caption, std::function<void()> handler,
                      const QKeySequence& shortcut = {});
  void later(const QString& caption);
  void newSystemCommand(const QString& caption);
  void newSiteCommand();
  void newDepartmentCommand();
  void onTreeClicked(QTreeWidgetItem* item);
  void onCaptionChanged(const QString& key);
  // The windows of the Edit and File menus that work on the grid on show.
  void openFind();
  class EnhancedFindDialog& enhancedFind();
  void openCsvMapper();
  void exportCsvCommand();
  void gridChanged();
  void openCardManager();
  void newChannelCommand();
  void updateStatus();
  void restoreGeometryFromSettings();
  // File commands (main_window_files.cpp).
  QString askFile(FileAsk ask, const QString& suggested);
  void commitShown();
  void afterFilesChanged();
  void newDocumentCommand();
  void newListCommand();
  void openCommand();
  void saveCommand();
  void saveAsCommand();
  void openConfigCommand();
  void saveConfigCommand();
  void openProfileCommand();
  void saveProfileCommand(bool askName);
  void clearProfileCommand();

  Session& session_;
  Feedback& feedback_;
  QTreeWidget* tree_ = nullptr;
  class NodePane* pane_ = nullptr;
  class FindDialog* find_ = nullptr;
  class EnhancedFindDialog* enhancedFind_ = nullptr;
  class CsvMapperDialog* csvMapper_ = nullptr;
  class GridView* rows_ = nullptr;
  class GridPageModel* model_ = nullptr;
  GridPage convgrid_;
  GridPage trunkgrid_;
  GridPage* shownPage_ = nullptr;
  ColumnWidthTable widths_;
  QLabel* paneTitle_ = nullptr;
  QLabel* lblSys_ = nullptr;
  QLabel* unsaved_ = nullptr;
  QListWidget* list5_ = nullptr;
  QSplitter* splitter_ = nullptr;
  std::map<QString, QAction*> actions_;
  bool filling_ = false;
  bool refreshing_ = false;
  ::QLineEdit* filter_ = nullptr;  // finds nodes of the tree by name
  static constexpr int kLargeTree = 300;  // items; a larger tree opens with its systems closed
  int countItems() const;
  void applyFilter();  // the tree is being built again
  FileChooser chooser_;
  std::unique_ptr<class CardRootsHolder> cardRoots_;
  std::shared_ptr<RRImportPreset> rrPreset_;
  QPointer<RRImportWindow> rrImport_;
};

}  // namespace zel::ui
