// The session of the main window: its folders, settings, the document with its page files,
// the selected node, and what happens at start and at close.
#pragma once

#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "core/document.h"
#include "core/page_files.h"
#include "core/ports.h"
#include "core/settings.h"

namespace zel {

struct SessionFolders {
  std::string data;           // "My Scanner Data Files"
  std::string temp;           // page files
  std::string waterfall;
  std::string serviceSearch;
  std::string hpdFiles;
  std::string recordings;     // "My Scanner Recordings"
  std::string homePatrolDatabase;
  std::string x36Database;

  // The folders of a data folder; `documents` is where the recordings and the scanner
  // databases live (the data folder's parent when it has the standard name).
  static SessionFolders forDataFolder(const std::string& dataFolder);
  bool make() const;  // creates the folders that the session writes to
};

// The settings the main window keeps, with their defaults.
struct SessionSettings {
  int comport = 1;
  int baudrate = 57600;
  std::map<int, std::string> options;  // optie<n> of section "options"
  std::string checkUpdates = "True";
  std::string hp2model = "False";
  std::string multihpd;
  std::vector<std::string> treeSort;   // one flag per entry of the tree sort menu
  std::string defLat = "False", defLong = "False", defRange = "1";
  std::string defEna[4] = {"1", "1", "1", "1"};
  int wheight = 100, wwidth = 100, wleft = 100, wtop = 100, wstate = 0;
  int browserLeft = 3200;
  std::string autoLoad;                // file or profile opened after start

  std::string option(int n) const;
};

inline constexpr int kTreeSortEntries = 4;
inline constexpr int kOptionCount = 40;

// What the main window does when the selection moves: write the shown pane back, save the
// shown grid to its page file, then show the new node.
class SelectionHost {
 public:
  virtual ~SelectionHost() = default;
  virtual void storePane(std::string_view key, std::string_view kind) = 0;
  virtual void storeGrid(std::string_view departmentKey) = 0;
  virtual void showPane(std::string_view key, std::string_view kind) = 0;
  virtual void loadGrid(std::string_view departmentKey) = 0;
};

// How a new selection relates to the old one.
enum class SelectionCase {
  First,             // nothing was selected
  SameSystemSite,    // same system, another site
  SameSystemItself,  // same system, the system clicked
  NewSystem,         // another system (or a node outside any system)
  SameSystemGroup,   // same system, another department
  SameSystemOther,   // same system, another kind of node
};

class Session {
 public:
  Session(SettingsStore& store, Feedback& feedback, Clock& clock, std::string dataFolder,
          std::string applicationName = "ZEL536");

  // Start-up, in order: clock, tables, mode word, flags, family code, limits, open-file
  // table, serial settings, folders, page files cleared, options, the backup reminder.
  // Returns the file or profile to load automatically ("" for none): the caller opens it
  // from a timer, showing "Auto Loading File" in the progress label.
  std::string start(bool remindBackup = true);

  // Selecting a node of the visible tree: save what is shown, then show the new node.
  SelectionCase select(std::string_view key, SelectionHost& host);
  const std::string& selectedKey() const { return lastKey_; }
  const std::string& selectedKind() const { return lastKind_; }
  int selectedSystem() const;

  // Systems that belong to no file (field 23 of 0).
  int unsavedSystems() const;
  std::string unsavedText() const { return "Unsaved Systems:" + std::to_string(unsavedSystems()); }
  // The window title for the node: product, file (or "Unsaved HPD systems") and profile.
  std::string windowTitle(std::string_view key) const;

  // The close of the main window. Asks about unsaved changes (false: the close is
  // cancelled) and then writes the settings in their order and clears the temp folder.
  bool shutdown();

  Document& document() { return document_; }
  const Document& document() const { return document_; }
  PageFiles& pages() { return *pages_; }
  const SessionFolders& folders() const { return folders_; }
  SessionSettings& settings() { return settings_; }
  const SessionSettings& settings() const { return settings_; }
  Settings& settingsCodec() { return codec_; }
  Feedback& feedback() { return feedback_; }
  Clock& clock() { return clock_; }
  const std::string& startTime() const { return startTime_; }
  std::string activeFile() const { return activeFile_; }
  void setActiveFile(std::string path) { activeFile_ = std::move(path); }
  const std::string& activeProfile() const { return activeProfile_; }
  void setActiveProfile(std::string name) { activeProfile_ = std::move(name); }
  // The file of the active profile, where Save Profile writes ("" when none is active).
  const std::string& activeProfilePath() const { return activeProfilePath_; }
  void setActiveProfilePath(std::string path) { activeProfilePath_ = std::move(path); }
  // Removes every system, the page files and the open files.
  void clearDocument();
  // Logs a tree problem to "tree_error.txt" in the data folder.
  void logTreeError(std::string_view text) const;

 private:
  void readSettings();
  void writeSettings();

  SettingsStore& store_;
  Settings codec_;
  Feedback& feedback_;
  Clock& clock_;
  std::string applicationName_;
  SessionFolders folders_;
  std::unique_ptr<PageFiles> pages_;
  Document document_;
  SessionSettings settings_;
  std::string lastKey_;
  std::string lastKind_;
  std::string startTime_;
  std::string activeFile_;
  std::string activeProfile_;
  std::string activeProfilePath_;
};

}  // namespace zel
