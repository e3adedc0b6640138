// The scanner's list of favorites lists: "favorites_lists/f_list.cfg" on a BCDx36HP or SDS
// card, "favorites_lists/favorites_lists.config" in the HomePatrol family.
//
//   TargetModel<TAB>BCDx36HP
//   FormatVersion<TAB>1.00
//   F-List<TAB>Name<TAB>f_000001.hpd<TAB>Off<TAB>On<TAB>1<TAB>Off<TAB>On<TAB>Off ... <TAB>
//   ^tag   ^name ^file         ^location ^monitor ^quick key ^number tag ^10 startup keys,
//                                                              then 100 system quick keys
//
// The tag names the model: "F-List", "F-List " (with a blank) on a UBCDx36 card, "F-1ist"
// on a UBCD3600XLT. The flag groups end every flag with a TAB, so a list line ends in one.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zel::formats {

// One row of the list view: sub-items 1 to 8, and the tag its line was read with.
struct FavoritesListRow {
  std::string tag;              // as read: "F-List", "F-List " or "F-1ist"; not written
  std::string name;             // 1
  std::string file;             // 2: f_000nnn.hpd
  std::string monitor;          // 3: "On" / "Off"
  std::string locationControl;  // 4: "On" / "Off"
  std::string quickKey;         // 5: 0 to 98, or "Off"
  std::string numberTag;        // 6
  std::string startupKeys;      // 7: ten characters "1" or "0"
  std::string systemQuickKeys;  // 8: a hundred characters "1" or "0"

  // What the view shows for the keys: the quick key and the number tag.
  std::string keysText() const { return quickKey + " / FQK: " + numberTag; }
};

struct FavoritesConfig {
  std::string tag;  // the tag of the first list line read ("F-List", "F-List ", "F-1ist")
  std::vector<FavoritesListRow> rows;
};

// The tag a card takes: a UBCDx36 folder wins over a UBCD3600XLT scanner.inf.
std::string favoritesListTag(bool isUbcdFolder, bool is3600);

// Reads the lists of a configuration file; nothing when it cannot be opened. A line is a
// list when it begins "F-List" or "F-1ist"; a list whose file is missing is listed all the
// same. Fields are kept byte for byte (a comma in a name stays a comma); the flag groups
// come back as "1" and "0", and stop at the first empty field, the TAB that ends the line.
// This is the one reader of the file: the card's rows and Open Config File build on it.
std::optional<FavoritesConfig> readFavoritesConfig(const std::string& path);
FavoritesConfig parseFavoritesConfig(std::string_view text);

// The text of the file for these rows, each row in full, CR LF ended.
std::string formatFavoritesConfig(const std::vector<FavoritesListRow>& rows, std::string_view tag);
// Writes the file (nothing for an empty path). Returns false when it could not be written.
bool writeFavoritesConfig(const std::string& path, const std::vector<FavoritesListRow>& rows,
                          std::string_view tag);

// The fields of a list line as written: exposed for the rules of each field.
std::string favoritesQuickKeyField(std::string_view value);
std::string favoritesFlagFields(std::string_view flags);

}  // namespace zel::formats
