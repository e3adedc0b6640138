// Finding a scanner's card for the full database editor. Two searches run over the card
// roots that DriveRoots gives, each trying every root; a later accepted root replaces an
// earlier one, as in the card window's search.
//
//   detectDatabaseCard   BCDx36HP/scanner.inf (BCD series) and HomePatrol/HomePatrol.info
//                        (or Homepatrol/...) on each root. The info file's model line gives
//                        the family: a BCD536HP, BCD436HP or another model of the x36 card
//                        layout (SDS, UBCD) is the BCD series, "HomePatrol" a HomePatrol.
//   detectHomePatrol1    Homepatrol/HPDB/HPDB.config on each root: the HomePatrol-1 alone.
//
// The model line's TAB fields (taken as commas) give the serial (element 2) and the firmware
// (element 3); a firmware beginning "2." is file format 2. The three are stored under
// section "general" as "serienum", "firmware" and "hpinfo". Each probe appends one line to
// "drivetest.txt" and "version.txt" in the report folder, when one is given.
#pragma once

#include <optional>
#include <string>

#include "core/settings.h"
#include "database/hpdb_index.h"
#include "transfer/drive_roots.h"

namespace zel::database {

inline constexpr const char* kScannerNotFound =
    "Scanner not found, please plug USB cable in, select MASS STORAGE DEVICE and try again by "
    "pressing yellow 'Detect' button.";
inline constexpr const char* kHomePatrol1NotFound =
    "HP1 not found, please plug USB cable in, select MASS STORAGE DEVICE and try again by "
    "pressing 'Detect HP1' button.";
inline constexpr const char* kLocalBaseNotFound =
    "US Database not found, please install Sentinel software first";
inline constexpr const char* kHomePatrolFirmwareTooOld =
    "This HomePatrol runs a firmware before version 2: please update its firmware to V2 first.";

struct DbDetection {
  bool found = false;
  DbFamily family = DbFamily::Bcd;
  std::string drive;      // the root as the user reads it
  std::string infoLine;   // the model line, TABs as commas
  std::string firmware;
  std::string serial;
  std::string dbVersion;  // the index's "DateModified"
  int fileFormat = 1;
  bool firmwareTooOld = false;  // a HomePatrol-1 below version 2
  std::optional<DatabaseLocation> location;
  std::string label;  // the status line: what was found, or the words for nothing found
};

DbDetection detectDatabaseCard(const transfer::DriveRoots& roots, const std::string& reportFolder,
                               Settings* settings);
// Stores the database date under "general", "hpdbase".
DbDetection detectHomePatrol1(const transfer::DriveRoots& roots, const std::string& reportFolder,
                              Settings* settings);

}  // namespace zel::database
