// What in the full database covers a place: the sites and departments whose location circle
// reaches a point, and the systems they belong to, across every state file, nearest first.
//
// A Site, C-Group or T-Group line carries its circle in fields 5 to 7 (TAB-separated, the
// type word being field 0): latitude and longitude in signed decimal degrees, range in miles.
//
//   Site     SiteId=30714  TrunkId=9630  Lindbergh Field  Off  32.738270  -117.183679  1.0
//   C-Group  CGroupId=1    CountyId=183  Alameda Fire     Off  37.703380  -121.934509  25.0
//
// A circle at 0, 0 is a location never set and reaches nothing. A system is listed when one of
// its sites or departments is, at the distance of the nearest of them. The files are scanned
// as plain lines, without building rows, so that the whole database takes well under a second.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "database/hpdb_index.h"

namespace zel::database {

struct NearQuery {
  double latitude = 0;
  double longitude = 0;
  double rangeMiles = 0;      // the circles may fall short of the point by this much
  std::vector<int> services;  // when given, only departments with a channel of one of these
                              // service types, and sites and systems that have one
};

enum class NearKind { System, Site, Department };
std::string_view nearKindName(NearKind kind);  // "system", "site", "department"

struct NearHit {
  NearKind kind = NearKind::Site;
  std::string stateFile;  // "s_000006.hpd"
  std::string stateName;  // "California"
  std::string system;     // the system's name
  std::string name;       // the site's or department's name; the system's for a system
  double latitude = 0;
  double longitude = 0;
  double range = 0;     // miles; 0 for a system
  double distance = 0;  // miles from the point to the centre
  int line = 0;         // the line of the file, from 1
};

// Great-circle distance in miles.
double distanceMiles(double lat1, double lon1, double lat2, double lon2);

// The hits of one state file's text, in file order.
std::vector<NearHit> scanStateText(std::string_view text, const StateEntry& state,
                                   const NearQuery& query);

struct NearResult {
  std::vector<NearHit> hits;  // nearest first; at equal distance systems, sites, departments
  int filesRead = 0;
  std::vector<std::string> missing;  // state files the index names that could not be read
};
NearResult findNear(const std::vector<StateEntry>& states, const NearQuery& query);

}  // namespace zel::database
