// The service's fixed tables: tag ids to service type names (the same numbering as the
// scanner's service types), the names offered by the service filter, and the trunk system
// types by sType.
#include <array>
#include <string>
#include <vector>

#include "grid/vocabulary.h"
#include "radioref/rr_readers.h"

namespace zel::radioref {

namespace {

constexpr int kTypeSlots = 100;  // sType 0 to 99

const std::string kNoName;

const std::array<std::string, kTypeSlots>& typeTable() {
  static const std::array<std::string, kTypeSlots> table = [] {
    std::array<std::string, kTypeSlots> t{};
    t[0] = "Motorola";
    t[1] = "Motorola";
    t[2] = "Edacs";
    t[3] = "LTR";
    t[4] = "MPT-1327";
    t[5] = "TETRA";
    t[6] = "Midland CMS";
    t[7] = "OpenSky";
    t[8] = "Project 25";
    t[9] = "iDEN";
    t[10] = "SmarTrunk";
    t[11] = "NXDN";
    t[12] = "DMR";
    t[90] = "Other";
    t[91] = "Unknown";
    return t;
  }();
  return table;
}

}  // namespace

// A reply's tagId is the scanner's own service type number: one table serves both.
std::string serviceTagName(int tagId) { return vocab::serviceTypeName(tagId); }

// By name, case-blind, with the custom and racing types at the end as the scanner offers
// its service types; the two tactical dispatch names are spelled as the filter shows them.
const std::vector<std::string>& serviceFilterNames() {
  static const std::vector<std::string> names = {"Aircraft",      "Business",
                                                 "Corrections",   "Emergency Ops",
                                                 "EMS Dispatch",  "EMS-Tac",
                                                 "EMS-Talk",      "Federal",
                                                 "Fire Dispatch", "Fire-Tac",
                                                 "Fire-Talk",     "Ham",
                                                 "Hospital",      "Interop",
                                                 "Law Dispatch",  "Law TAC",
                                                 "Law Talk",      "Media",
                                                 "Military",      "Multi-Dispatch",
                                                 "Multi-TAC",     "Multi-Talk",
                                                 "Other",         "Public Works",
                                                 "Railroad",      "Schools",
                                                 "Security",      "Transportation",
                                                 "Utilities",     "Custom 1",
                                                 "Custom 2",      "Custom 3",
                                                 "Custom 4",      "Custom 5",
                                                 "Custom 6",      "Custom 7",
                                                 "Custom 8",      "Racing Officials",
                                                 "Racing Teams"};
  return names;
}

const std::string& trunkTypeName(int sType) {
  if (sType < 0 || sType >= kTypeSlots) return kNoName;
  return typeTable()[sType];
}

}  // namespace zel::radioref
