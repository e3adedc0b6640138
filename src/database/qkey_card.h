// The quick keys of every favorites list on a scanner's card: the lists of
// "favorites_lists/f_list.cfg" with their favorites list key, each list file's systems
// with their system key, and each system's departments and sites with their department key.
//
// A scanner reaches an item only by a unique key in its scope, so the overview also finds
// the keys used twice: two lists with one list key, two systems of one list with one system
// key, two departments or sites of one system with one department key.
#pragma once

#include <string>
#include <vector>

namespace zel::qkeys {

enum class CardItem { Conventional, Trunk, Department, Site };
// "[CONV]", "[TRUNK]", "[DEP]", "[SITE]".
const char* cardItemWord(CardItem item);

struct CardChild {
  CardItem item = CardItem::Department;
  std::string name;
  int key = -1;
  bool twice = false;  // another department or site of the system has the key
};

struct CardSystem {
  CardItem item = CardItem::Conventional;
  std::string name;
  int key = -1;
  bool twice = false;  // another system of the list has the key
  std::vector<CardChild> children;
};

struct CardList {
  int number = 0;  // 1-based position in the configuration
  std::string name;
  std::string file;
  int key = -1;
  bool twice = false;  // another list has the key
  bool missing = false;  // the configuration names a file that cannot be read
  std::vector<CardSystem> systems;
};

// One row of the overview list: a system or a department or site.
struct CardRow {
  std::string name;    // "[TRUNK] Cleveland", "[DEP] Fire"
  int list = 0;        // "#": the list's position
  std::string flKey;   // "FL:1", "FL:Off"
  std::string sysKey;  // "2", "Off"
  std::string depKey;  // "3", "Off"; "" on a system's row
  std::string shortcut;  // "FL 1 > SYS 2 > DEP 3"; "" when a key on the way is off
  std::string sortKey;   // list, system and department key as "000" digits, then order
  // The keys of the row used twice in their scope: any of "FL", "SYS", "DEP".
  std::vector<std::string> twice;
  bool system = false;
};

struct CardDuplicate {
  std::string scope;  // "FL", "SYS" or "DEP"
  int key = -1;
  std::string where;               // "" for lists, the list name, or list and system names
  std::vector<std::string> names;  // the lists, systems or departments sharing the key
  std::string sentence() const;
};

struct CardOverview {
  bool ok = false;
  std::string error;  // why the configuration could not be read
  std::vector<CardList> lists;
  std::vector<CardDuplicate> duplicates;
};

// Reads "favorites_lists/f_list.cfg" under the scanner root and every list file it names.
CardOverview readCardOverview(const std::string& scannerRoot);
// Sets the twice marks and fills the duplicates.
void markDuplicates(CardOverview& overview);

// The rows of the list, in card order.
std::vector<CardRow> overviewRows(const CardOverview& overview);
// "Sort by FL Qkey": by the hidden sort key (no key sorts after 99).
void sortByKeys(std::vector<CardRow>& rows);
// The text of "Copy To Clipboard": the headings and one line a row, TAB separated.
std::string clipboardText(const std::vector<CardRow>& rows);
// The page of "Create HTML".
std::string overviewHtml(const std::vector<CardRow>& rows);

}  // namespace zel::qkeys
