// Finding the scanner's card. A root holds a scanner when it has the marker
// "UBCDx36/scanner.inf" or "BCDx36HP/scanner.inf"; the folder of the marker is the scanner
// root, with "favorites_lists" under it. The marker is a text file of which the third line
// names the scanner, fields split by TAB:
//
//   TargetModel<TAB>BCDx36HP
//   FormatVersion<TAB>1.00
//   Scanner<TAB>SDS200<TAB>SERIAL<TAB>1.10.08<TAB>...      element 2 serial, 3 firmware
//
// The scan does not stop at the first hit: every root is tried and a later accepted root
// replaces an earlier one. Each step is written to the report "drivetest.txt" in the data
// folder, so that a user whose card is not found can send it in.
#pragma once

#include <string>
#include <vector>

#include "core/settings.h"
#include "transfer/drive_roots.h"

namespace zel::transfer {

// The colour of the detection lamp once a card is found. That colour is the one gate of
// every transfer; no other flag stands for it.
inline constexpr int kLampGreen = 65280;
inline constexpr int kLampOff = 0;

inline constexpr const char* kNotDetected = "Error: Scanner not detected.";
inline constexpr const char* kNotFoundHelp =
    "(u)BCDx36HP/sds not found, please plug USB cable in, select MASS STORAGE DEVICE and try "
    "again by pressing yellow 'Detect' button. Also make sure software has full admin rights.";

struct DetectOptions {
  bool includeC = false;  // only adds a line to the report
  bool includeD = false;
  bool includeE = false;
  std::string version;     // the program's version for the report's first line
  std::string reportPath;  // "drivetest.txt" in the data folder; empty: no report
};

// What the detector keeps until the window closes.
struct CardState {
  bool isUbcdFolder = false;
  bool is3600 = false;
  bool isSds = false;
  int fileFormat = 0;       // 2 when the firmware text begins "2."; not cleared by a scan
  std::string scannerRoot;  // the folder holding the marker
  std::string drive;        // the root it was found on, as the user reads it
  std::string modelLine;    // the third line of the marker, TABs as commas
  std::string model;        // element 1 of that line: "SDS200", "BCD536HP", ...
  std::string firmware;
  std::string serial;
  std::string dbVersion;
  std::string label3;  // the status text of the card window
  int lamp = kLampOff;

  bool detected() const { return lamp == kLampGreen; }
};

// The models whose marker is accepted.
const std::vector<std::string>& acceptedModels();
// True when the third line of a marker names a known model.
bool isAcceptedModelLine(const std::string& line);

class CardDetector {
 public:
  // Runs the scan over `roots`; stores "firmware", "serienum" and "hpinfo" under
  // "general" when `settings` is given. Returns the state, also kept for later calls.
  const CardState& detect(const DriveRoots& roots, const DetectOptions& options,
                          Settings* settings);
  const CardState& state() const { return state_; }

  // The gate of every transfer: true when the lamp is green; otherwise puts
  // "Error: Scanner not detected." in the status text and returns false.
  bool gate();

 private:
  CardState state_;
};

// The database version shown after " DBase=": the "DateModified" value of the card's
// "HPDB/hpdb.cfg", or "" when there is none.
std::string readDatabaseVersion(const std::string& scannerRoot);

}  // namespace zel::transfer
