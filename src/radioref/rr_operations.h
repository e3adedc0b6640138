#pragma once
// The service's operations by the index the client selects them with: the order in which
// their names stand here is the index. Operations whose parameters are not settled keep their
// place in the table and are never called.
#include <array>
#include <string_view>

namespace zel::radioref {

enum RROperation : int {
  opGetTrsTalkgroups = 0,
  opGetTrsTalkgroupCats = 1,
  opGetTrsDetails = 2,
  opGetTrsBySysid = 3,
  opGetTrsSites = 4,
  opGetStatesByList = 5,
  opGetCountiesByList = 6,
  opGetTag = 7,
  opGetMode = 8,
  opGetTrsType = 9,
  opGetTrsFlavor = 10,
  opGetTrsVoice = 11,
  opGetCountryList = 12,
  opGetCountryInfo = 13,
  opGetStateInfo = 14,
  opGetCountyInfo = 15,
  opGetAgencyInfo = 16,
  opGetSubcatFreqs = 17,
  opSearchCountyFreq = 18,
  opSearchStateFreq = 19,
  opSearchMetroFreq = 20,
  opGetCountyFreqsByTag = 21,
  opGetAgencyFreqsByTag = 22,
  opGetMetroArea = 23,
  opGetZipcodeInfo = 24,
  opFccGetCallsign = 25,
  opFccGetRadioServiceCode = 26,
  opFccGetProxCallsigns = 27,
  opGetUserData = 28,
};

inline constexpr int kOperationCount = 29;

struct RROperationInfo {
  std::string_view name;
  bool settled;  // false: stands in the table, never called
};

inline constexpr std::array<RROperationInfo, kOperationCount> kOperations{{
    {"getTrsTalkgroups", true},      {"getTrsTalkgroupCats", true},
    {"getTrsDetails", true},         {"getTrsBySysid", false},
    {"getTrsSites", true},           {"getStatesByList", false},
    {"getCountiesByList", false},    {"getTag", true},
    {"getMode", true},               {"getTrsType", true},
    {"getTrsFlavor", true},          {"getTrsVoice", true},
    {"getCountryList", false},       {"getCountryInfo", true},
    {"getStateInfo", true},          {"getCountyInfo", true},
    {"getAgencyInfo", true},         {"getSubcatFreqs", true},
    {"searchCountyFreq", true},      {"searchStateFreq", true},
    {"searchMetroFreq", false},      {"getCountyFreqsByTag", true},
    {"getAgencyFreqsByTag", false},  {"getMetroArea", true},
    {"getZipcodeInfo", true},        {"fccGetCallsign", false},
    {"fccGetRadioServiceCode", false}, {"fccGetProxCallsigns", false},
    {"getUserData", true},
}};

inline std::string_view operationName(int index) {
  return index >= 0 && index < kOperationCount ? kOperations[index].name : std::string_view{};
}

}  // namespace zel::radioref
