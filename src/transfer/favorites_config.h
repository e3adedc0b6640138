// The scanner's list of favorites lists, "favorites_lists/f_list.cfg" (the HomePatrol
// family names the same content "favorites_lists.config"). Fields split by TAB:
//
//   TargetModel<TAB>BCDx36HP
//   FormatVersion<TAB>1.00
//   F-List<TAB>Name<TAB>f_000001.hpd<TAB>Off<TAB>On<TAB>1<TAB>Off<TAB>On<TAB>Off ... <TAB>
//   tag    name      file            loc.   mon.  FQK  num.  10 startup keys, 100 sys. keys
//
// The tag is "F-List", "F-List " on a card with the UBCDx36 folder, "F-1ist" on the
// UBCD3600XLT; a reader takes any line that begins with "F-List" or "F-1ist". The flag
// groups are held as strings of "1" and "0" and written as "On"/"Off", each followed by a
// TAB, so that an entry ends in a TAB.
//
// The lines are read and written by the file's one reader and writer
// (formats/favorites_config.h); a row here adds what the card keeps about each list: its
// key, the tag it was read with, and whether this session saved it.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace zel::transfer {

struct FavoritesRow {
  std::string key;  // "a-" and six digits: the number of the list file
  std::string tag;  // as read
  std::string name;
  std::string file;  // "f_000001.hpd"
  std::string locationControl = "Off";
  std::string monitor = "On";
  std::string quickKey = "Off";
  std::string numberTag = "Off";
  std::string startupKeys = "1111111111";
  std::string systemKeys = std::string(100, '1');
  std::string state;  // "saved" once written by this system in this session

  // "1 / FQK: Off": the quick key and the number tag as the view shows them.
  std::string quickKeyText() const { return quickKey + " / FQK: " + numberTag; }
};

// The number of a list file ("f_000012.hpd" and "favorites_000012.hpd" give 12), or -1.
int listFileNumber(std::string_view file);
std::string rowKey(int number);  // "a-000012"

// The rows of a configuration text, in file order; lines that are not lists are passed over.
std::vector<FavoritesRow> parseFavoritesConfig(std::string_view text);

// The tag a card takes: "F-List " with the UBCDx36 folder, else "F-1ist" on the 3600,
// else "F-List". The folder test wins.
std::string favoritesTag(bool isUbcdFolder, bool is3600);

// The configuration text of `rows`, CR LF ended, each row written in full.
std::string formatFavoritesConfig(const std::vector<FavoritesRow>& rows, std::string_view tag);

// The quick key of a row as written: a whole number 0 to 98 stays; anything else is "Off".
std::string normaliseQuickKey(std::string_view value);

}  // namespace zel::transfer
