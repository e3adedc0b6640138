// The service's fixed tables: tag ids to service type names (the same numbering as the
// scanner's service types), the names offered by the service filter, and the trunk system
// types by sType.
#include <array>
#include <string>
#include <vector>

#include "radioref/rr_readers.h"

namespace zel::radioref {

namespace {

constexpr int kTagSlots = 218;   // tag ids 0 to 217
constexpr int kTypeSlots = 100;  // sType 0 to 99

const std::string kNoName;

const std::array<std::string, kTagSlots>& tagTable() {
  static const std::array<std::string, kTagSlots> table = [] {
    std::array<std::string, kTagSlots> t{};
    t[1] = "Multi-Dispatch";
    t[2] = "Law Dispatch";
    t[3] = "Fire Dispatch";
    t[4] = "EMS Dispatch";
    t[6] = "Multi-Tac";
    t[7] = "Law Tac";
    t[8] = "Fire-Tac";
    t[9] = "EMS-Tac";
    t[11] = "Interop";
    t[12] = "Hospital";
    t[13] = "Ham";
    t[14] = "Public Works";
    t[15] = "Aircraft";
    t[16] = "Federal";
    t[17] = "Business";
    t[20] = "Railroad";
    t[21] = "Other";
    t[22] = "Multi-Talk";
    t[23] = "Law Talk";
    t[24] = "Fire-Talk";
    t[25] = "EMS-Talk";
    t[26] = "Transportation";
    t[29] = "Emergency Ops";
    t[30] = "Military";
    t[31] = "Media";
    t[32] = "Schools";
    t[33] = "Security";
    t[34] = "Utilities";
    t[37] = "Corrections";
    for (int i = 0; i < 8; ++i) t[208 + i] = "Custom " + std::to_string(i + 1);
    t[216] = "Racing Officials";
    t[217] = "Racing Teams";
    return t;
  }();
  return table;
}

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

const std::string& serviceTagName(int tagId) {
  if (tagId < 0 || tagId >= kTagSlots) return kNoName;
  return tagTable()[tagId];
}

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
