// A scanner card in a folder, for demos and tests: the marker "scanner.inf", a
// "favorites_lists" folder with two lists named by "f_list.cfg", a "profile.cfg", and a
// small "HPDB" database. The tree looks like what a scanner in mass-storage mode shows:
//
//   DIR/BCDx36HP/scanner.inf                  (DIR/UBCDx36/ for the UBCD x36 models)
//   DIR/BCDx36HP/profile.cfg
//   DIR/BCDx36HP/favorites_lists/f_list.cfg
//   DIR/BCDx36HP/favorites_lists/f_000001.hpd  a conventional list
//   DIR/BCDx36HP/favorites_lists/f_000002.hpd  a P25 trunked list
//   DIR/BCDx36HP/HPDB/hpdb.cfg, s_000001.hpd
#pragma once

#include <string>
#include <vector>

namespace zel::sim {

struct SimCardResult {
  bool ok = false;
  std::string message;             // why it failed
  std::string scannerRoot;         // the folder holding scanner.inf
  std::vector<std::string> files;  // every file written, relative to DIR
};

// The models a simulated card can hold.
const std::vector<std::string>& simCardModels();

// Makes the card tree under `dir` (created when missing). An existing scanner root is
// refused rather than overwritten.
SimCardResult makeSimCard(const std::string& dir, const std::string& model);

// The serial number a simulated card carries (the same for every model).
inline constexpr const char* kSimSerial = "00000-123456789-000";

}  // namespace zel::sim
