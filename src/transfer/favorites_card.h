// The favorites lists on a detected card: the rows of the configuration in the scanner's
// order, and the steps that change them. Every step runs in a CardTransaction: a list file
// is complete on the card before the configuration names it, the configuration is never
// rewritten without its backup being refreshed first, and a step that fails puts back
// every file it touched.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "transfer/card_detect.h"
#include "transfer/card_transaction.h"
#include "transfer/favorites_config.h"

namespace zel::transfer {

enum class CardFamily { Bcd, HomePatrol };

struct CardPaths {
  std::string folder;  // scannerRoot + "/favorites_lists"
  std::string config;  // f_list.cfg or favorites_lists.config
  std::string backup;  // f_list.bac or favorites_lists.backup
  CardFamily family = CardFamily::Bcd;
  // "f_000" + three digits + ".hpd", or "favorites_000" + three digits + ".hpd".
  std::string listFileName(int number) const;
  std::string path(std::string_view file) const { return folder + "/" + std::string(file); }
};
CardPaths cardPaths(const std::string& scannerRoot, CardFamily family);
// "f_000003.hpd" -> "f_000003.bac".
std::string backupNameOf(std::string_view file);

enum class QuickKeyCommand {
  Clear,      // "Clear FL Qkey": every list's quick key "Off"
  Auto,       // "Auto Assign Qkey": lists without a key get the free keys from the first
  SystemsOn,  // "All Sys Qkey On": every system quick key of every list on
  AllOn,      // "All On": startup keys and system quick keys of every list on
};

struct SaveOutcome {
  StepStatus status;
  int number = -1;
  std::string file;
};

class FavoritesCard {
 public:
  FavoritesCard(const CardState& card, CardFamily family = CardFamily::Bcd);

  // Reads the configuration. A card without one has no lists; temporaries left by a run
  // that was killed while writing are removed first.
  StepStatus load();
  const std::vector<FavoritesRow>& rows() const { return rows_; }
  const CardPaths& paths() const { return paths_; }
  std::string tag() const { return tag_; }

  // The lowest number from 1 that no row's key holds and, unless files of the same name
  // are to be overwritten, whose list file (of either family's naming) is not on the card:
  // an orphan keeps its number out of reach.
  int lowestFreeNumber() const;
  // "Overwrite files with same name": false (the default) passes over numbers whose file is
  // on the card but named by no row; true lets a new list take them, the file kept as
  // ".bac" first.
  void setOverwriteFiles(bool overwrite) { overwriteFiles_ = overwrite; }
  // The row of list number n, or -1.
  int rowOfNumber(int number) const;

  // Writes `hpdText` as a list: a new list at the lowest free number, or over list
  // `overwrite` (which keeps its number; the old file is kept as ".bac" first, and only the
  // first time in the life of this object, so a second overwrite keeps the original). The
  // name loses what the name cleaner drops (TAB, CR, LF and the other control bytes); with
  // `copyInName` it is wrapped "[F" + name + "]" unless it already begins "[F".
  SaveOutcome saveList(std::string_view hpdText, std::string name, std::optional<int> overwrite,
                       bool copyInName);
  // Keeps the list file as ".bac" and the configuration as its backup, deletes the file and
  // rewrites the configuration without the row.
  StepStatus deleteList(int number);
  // Puts the named lists first, in the order given, the others after them as they were.
  StepStatus reorder(const std::vector<int>& numbers);
  StepStatus quickKeys(QuickKeyCommand command);

  // Edits of the view. They stay in memory until the configuration is written (writeConfig,
  // or any step above, which writes the whole view); viewChanged() tells that some are
  // pending, so that the window can ask before it closes.
  void applyQuickKeys(QuickKeyCommand command);
  // "Enable All Quickkeys/Service Type" for these rows: ten startup keys and a hundred
  // system quick keys on.
  void enableAllKeys(const std::vector<int>& rowIndexes);
  // Puts the rows in this order (indexes into rows()); rows not named follow as they were.
  // False when an index is out of range or named twice.
  bool arrangeRows(const std::vector<int>& rowIndexes);
  // Moves a row one place down ("Down"); false at the last row.
  bool moveDown(int rowIndex);
  // Takes the fields a user edits (name, monitor, location control, quick key, number tag)
  // from `edited`; the key, file and flags stay.
  bool editRow(int rowIndex, const FavoritesRow& edited);
  bool viewChanged() const { return viewChanged_; }

  // A prepared Service Search list: copied to the next free number as
  // "favorites_000nnn.hpd", added to the view as an "F-List" row, and named in
  // "favorites_lists.config" (its backup refreshed first), whatever the card's family.
  SaveOutcome addServiceSearch(std::string_view hpdText, const std::string& caption);

  // List files in the folder ("f_000nnn.hpd", "favorites_000nnn.hpd") that no row names.
  std::vector<std::string> orphans() const;
  // Copies an orphan to the next free number and adds it as "Orphan " + its file name.
  // Any file that orphans() does not list is refused.
  SaveOutcome recoverOrphan(const std::string& file);
  StepStatus deleteOrphan(const std::string& file);

  // The view order written to the configuration, backup refreshed first.
  StepStatus writeConfig();

 private:
  StepStatus writeConfigIn(CardTransaction& tx, const std::vector<FavoritesRow>& rows);
  // Writes `rows` as the configuration (backup first) and, when that held, makes them the view.
  StepStatus replaceRows(std::vector<FavoritesRow> rows);
  // Keeps `file` of the folder as its ".bac" in `tx`, unless this object made that backup
  // already; `kept` collects the backups to remember once the step holds.
  StepStatus keepBackup(CardTransaction& tx, const std::string& file,
                        std::vector<std::string>& kept);

  CardState card_;
  CardPaths paths_;
  std::string tag_;
  std::vector<FavoritesRow> rows_;
  bool viewChanged_ = false;
  bool overwriteFiles_ = false;
  std::vector<std::string> backupsMade_;  // ".bac" files this object wrote
};

// The rows after a quick key command ("Clear FL Qkey", "Auto Assign Qkey", ...).
std::vector<FavoritesRow> withQuickKeys(std::vector<FavoritesRow> rows, QuickKeyCommand command);

}  // namespace zel::transfer
