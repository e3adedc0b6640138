// Where the scanner's full database lives and what its index says.
//
// The database is a folder of HPD text files: one index and one file per state.
//
//   card root/BCDx36HP/HPDB/hpdb.cfg          BCD series and SDS cards
//   card root/HomePatrol/HPDB/hpdb.config     HomePatrol cards ("Homepatrol" is accepted too)
//   local copy/HPDB.cfg or HPDB.config        the copy the vendor's PC software keeps; the
//                                             scanner family picks the index's name
//
// Index lines that begin "StateInfo" name a state, fields split by TAB:
//
//   StateInfo<TAB>StateId=6<TAB>CountryId=1<TAB>California<TAB>CA
//
// The state's file is "s_" + the number in six digits + ".hpd": s_000006.hpd. Other lines
// of the index (CountyInfo, LM, ...) are not read here.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zel::database {

enum class DbFamily { Bcd, HomePatrol };

struct DatabaseLocation {
  DbFamily family = DbFamily::Bcd;
  std::string folder;     // the folder holding the index and the state files
  std::string indexPath;  // the index file inside it
};

// The index's name in a local copy, by family: "HPDB.cfg" or "HPDB.config".
std::string_view localIndexName(DbFamily family);

// The database on a card whose root (the drive or mount point) is given: "BCDx36HP/HPDB"
// with "hpdb.cfg" first, then "HomePatrol/HPDB" (or "Homepatrol/HPDB") with "hpdb.config".
// Names are matched without regard to case. Nothing when neither index exists.
std::optional<DatabaseLocation> locateOnCard(const std::string& cardRoot);

// The database in a folder that holds the index itself (a card's HPDB folder or a local
// copy). `preferred` decides which index name is tried first; either is accepted, in any
// case. Nothing when the folder has neither.
std::optional<DatabaseLocation> locateInFolder(const std::string& folder,
                                               DbFamily preferred = DbFamily::Bcd);

struct StateEntry {
  std::string name;      // "California"
  int number = 0;        // 6
  std::string fileName;  // "s_000006.hpd"
  std::string path;      // folder + file name
};

// "s_" + six digits + ".hpd".
std::string stateFileName(int number);

// The states of an index text, in file order. A StateInfo line whose number cannot be read
// is left out. `folder` makes the paths.
std::vector<StateEntry> parseIndex(std::string_view text, const std::string& folder);

struct IndexReadResult {
  std::vector<StateEntry> states;
  std::string dateModified;  // the "DateModified" value, "" when absent
  std::string error;         // a sentence when the index could not be read or has no lines
  bool ok() const { return error.empty(); }
};
// Reads the index of a located database.
IndexReadResult readIndex(const DatabaseLocation& location);

// The state a user names: its file name ("s_000006.hpd", any case) or its name as the index
// gives it ("California", any case). nullptr when no state matches.
const StateEntry* resolveState(const std::vector<StateEntry>& states, std::string_view text);

// The entry of the state list in the window: name + " : " + file name for the BCD series,
// the file name for HomePatrol.
std::string stateListEntry(const StateEntry& state, DbFamily family);
// The head entry of that list.
inline constexpr std::string_view kSelectFileHead = " << Select File  >> ";

}  // namespace zel::database
