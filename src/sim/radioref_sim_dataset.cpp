// The built-in geography and conventional frequencies of the simulated service.
//
// Ids of the built-in data (none collides with an id of the recorded replies):
//
//   countries  coid 1 United States, coid 2 Canada
//   states     stid 901 Ashland (AH), 902 Bellmont (BM), 903 Coastal (CX)   [coid 1]
//              stid 951 Québec (QC, a Latin-1 accent)                     [coid 2]
//   counties   ctid 9011 Harbor (901), 9012 Oak Valley (901), 9021 Granite (902),
//              9031 Bay Parish (903, header "Parish"), 9511 Montréal (951, "Region")
//   agencies   aid 90001 National Interoperability (nationwide, coid 1)
//              aid 90101 Ashland State Police, 90102 Ashland Dept. of "Natural" Resources
//              (statewide 901), 90111 Harbor Port Authority (county 9011),
//              aid 95101 Sûreté du Québec (statewide 951)
//   categories cid 900001..900012, subcategories scid 900101..900117 (see subcats()):
//              Harbor 900101-900105, Oak Valley 900106-900107 (900107 telemetry),
//              Granite 900108, Bay 900109, Montréal 900110-900111, agencies 900112-900117
//   freqs      fid 9000001.. (every tone form: CSQ, PL, DPL, NAC, CC, RAN, none;
//              encrypted and telemetry rows; recent and old dates)
//   zip codes  10501 (9011), 10777 (9012), 20202 (9021), 30303 (9031)
//   systems    see radioref_sim_dataset_trunk.cpp: sid 90001..90011
#include "sim/radioref_sim_dataset.h"

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <ctime>

namespace zel::sim::rrdata {

const std::vector<Country>& countries() {
  static const std::vector<Country> v{{1, "United States", "US"}, {2, "Canada", "CA"}};
  return v;
}

const std::vector<State>& states() {
  static const std::vector<State> v{
      {901, 1, "Ashland", "AH", "Counties"},
      {902, 1, "Bellmont", "BM", "Counties"},
      {903, 1, "Coastal", "CX", "Parishes"},
      {951, 2,
       "Qu\xE9"
       "bec",
       "QC", "Regions"},
  };
  return v;
}

const std::vector<County>& counties() {
  static const std::vector<County> v{
      {9011, 901, "Harbor", "County", "090011", 41.5012, -90.5125, 18, "-2"},
      {9012, 901, "Oak Valley", "County", "090012", 41.8123, -90.9001, 22.5,
       "2019-03-14T10:22:41+00:00"},
      {9021, 902, "Granite", "County", "090021", 43.1, -93.25, 25, "-40"},
      {9031, 903, "Bay", "Parish", "090031", 30.2241, -92.0198, 20, "2015-11-02T08:00:00+00:00"},
      {9511, 951,
       "Montr\xE9"
       "al",
       "Region", "", 45.5017, -73.5673, 30, "-10"},
  };
  return v;
}

const std::vector<Agency>& agencies() {
  static const std::vector<Agency> v{
      {90001, 1, 0, 0, "National Interoperability", "Federal", 11, 39.8, -98.6, 1500,
       "2021-01-05T12:00:00+00:00"},
      {90101, 1, 901, 0, "Ashland State Police", "State Police", -1, 41.6, -90.7, 120, "-5"},
      {90102, 1, 901, 0, "Ashland Dept. of \"Natural\" Resources", "State Agency", 4, 41.6, -90.7,
       120, "2012-07-30T16:45:00+00:00"},
      {90111, 1, 901, 9011, "Harbor Port Authority", "Transportation", 6, 41.49, -90.5, 5, "-60"},
      {95101, 2, 951, 0,
       "S\xFBret\xE9 du Qu\xE9"
       "bec",
       "Provincial Police", -1, 46.8, -71.2, 300, "-1"},
  };
  return v;
}

const std::vector<Category>& categories() {
  static const std::vector<Category> v{
      {900001, 9011, 0, "Harbor County"},
      {900002, 9011, 0, "Harbor City"},
      {900003, 9011, 0, "Amateur Radio"},
      {900004, 9012, 0, "Oak Valley County"},
      {900005, 9021, 0, "Granite County"},
      {900006, 9031, 0, "Bay Parish"},
      {900007, 9511, 0,
       "Montr\xE9"
       "al"},
      {900008, 0, 90101, "State Police"},
      {900009, 0, 90102, "Parks"},
      {900010, 0, 95101, "S\xFBret\xE9"},
      {900011, 0, 90001, "Interoperability"},
      {900012, 0, 90111, "Port Operations"},
  };
  return v;
}

const std::vector<Subcat>& subcats() {
  static const std::vector<Subcat> v{
      {900101, 900001, "Sheriff", 41.5, -90.51, 15},
      {900102, 900001, "Fire, EMS & Rescue", 41.5, -90.51, 15},
      {900103, 900002, "Police \"Downtown\"", 41.52, -90.55, 5},
      {900104, 900002, "Public Works", 41.52, -90.55, 5},
      {900105, 900003, "Repeaters", 41.5, -90.51, 25},
      {900106, 900004, "Dispatch", 41.81, -90.9, 20},
      {900107, 900004, "Telemetry & Data", 41.81, -90.9, 20},
      {900108, 900005, "Sheriff", 43.1, -93.25, 20},
      {900109, 900006, "Sheriff", 30.22, -92.02, 20},
      {900110, 900007, "Service de police", 45.5, -73.57, 15},
      {900111, 900007, "Pompiers", 45.5, -73.57, 15},
      {900112, 900008, "District 1", 41.6, -90.7, 60},
      {900113, 900008, "Statewide", 41.6, -90.7, 200},
      {900114, 900009, "Rangers", 41.6, -90.7, 80},
      {900115, 900010,
       "R\xE9gion Montr\xE9"
       "al",
       45.5, -73.57, 40},
      {900116, 900011, "National Interop", 39.8, -98.6, 1500},
      {900117, 900012, "Harbor Ops", 41.49, -90.5, 5},
  };
  return v;
}

// fid, scid, out, in, callsign, descr, alpha, tone, mode, class, tag, enc, colorCode, slot,
// tg, sort, updated
const std::vector<Frequency>& frequencies() {
  static const std::vector<Frequency> v{
      {9000001, 900101, "155.475", "155.475", "KAH901", "Sheriff Dispatch", "HC SO Disp",
       "123.0 PL", 1, "BM", 2, 0, nullptr, nullptr, nullptr, 1, "-3"},
      {9000002, 900101, "155.655", nullptr, "KAH901", "Sheriff Car-to-Car", "HC SO Tac", "CSQ", 3,
       "M", 7, 0, nullptr, nullptr, nullptr, 2, "2011-05-09T12:00:00+00:00"},
      {9000003, 900101, "460.350", "465.350", "WQAH123", "Sheriff Tactical, Encrypted", "HC SO Enc",
       "293 NAC", 4, "RM", 7, 1, nullptr, nullptr, nullptr, 3, "-20"},
      {9000004, 900102, "154.130", nullptr, "KAH902", "Fire Dispatch", "HC Fire Disp", "023 DPL", 1,
       "BM", 3, 0, nullptr, nullptr, nullptr, 1, "-1"},
      {9000005, 900102, "155.340", nullptr, "KAH903", "EMS to Hospital", "HC EMS Hosp", "CSQ", 3,
       "BM", 12, 0, nullptr, nullptr, nullptr, 2, "2016-08-21T07:30:00+00:00"},
      {9000006, 900103, "453.725", "458.725", "WQAH201", "Police \"Downtown\" Dispatch",
       "HPD Dwntwn", "1 CC", 6, "RM", 2, 0, "1", "1", "101", 1, "-7"},
      {9000007, 900103, "453.950", "458.950", "WQAH201", "Police Talk-around, Ch. 2", "HPD TA2",
       "3 CC", 6, "RM", 23, 0, "3", "2", "102", 2, "2020-02-02T02:02:02+00:00"},
      {9000008, 900104, "451.1125", "456.1125", "WQAH300", "Public Works, Streets", "HC PW",
       "1 RAN", 7, "RM", 14, 0, nullptr, nullptr, nullptr, 1, "-95"},
      {9000009, 900105, "146.940", "146.340", "W0AH", "Harbor ARC Repeater", "W0AH Rptr",
       "100.0 PL", 1, "RM", 13, 0, nullptr, nullptr, nullptr, 1, "2009-10-10T10:10:10+00:00"},
      {9000010, 900105, "146.520", nullptr, "", "National Simplex", "2m Simplex", "", 1, "M", 13, 0,
       nullptr, nullptr, nullptr, 2, "2009-10-10T10:10:10+00:00"},
      {9000011, 900106, "154.800", "159.030", "KAH950", "Oak Valley Dispatch", "OV Disp",
       "156.7 PL", 3, "BM", 1, 0, nullptr, nullptr, nullptr, 1, "-30"},
      {9000012, 900107, "217.6125", nullptr, "WQAH777", "Water Plant Telemetry", "OV Telm", "", 5,
       "FX", 34, 0, nullptr, nullptr, nullptr, 1, "2014-04-04T04:04:04+00:00"},
      {9000013, 900107, "463.9875", nullptr, "WQAH778", "SCADA Data Link", "OV SCADA", "", 5, "FX",
       35, 0, nullptr, nullptr, nullptr, 2, "2014-04-04T04:04:04+00:00"},
      {9000014, 900108, "155.505", nullptr, "KBM100", "Sheriff Dispatch", "GC SO", "131.8 PL", 1,
       "BM", 2, 0, nullptr, nullptr, nullptr, 1, "-12"},
      {9000015, 900108, "155.865", nullptr, "KBM100", "Sheriff Secure", "GC SO Sec", "293 NAC", 4,
       "BM", 7, 1, nullptr, nullptr, nullptr, 2, "-12"},
      {9000016, 900109, "154.785", nullptr, "KCX500", "Sheriff Dispatch", "BP SO", "073 DPL", 1,
       "BM", 2, 0, nullptr, nullptr, nullptr, 1, "2018-06-06T06:06:06+00:00"},
      {9000017, 900110, "460.250", "465.250", "CGQ500", "Police d\xE9partementale", "SPVM", "5 RAN",
       7, "RM", 2, 0, nullptr, nullptr, nullptr, 1, "-4"},
      {9000018, 900111, "154.250", nullptr, "CGQ600", "Pompiers r\xE9partition", "SIM R\xE9part",
       "CSQ", 1, "BM", 3, 0, nullptr, nullptr, nullptr, 1, "-4"},
      {9000019, 900112, "155.535", "155.535", "KAH800", "Troop A, District 1", "ASP D1", "123.0 PL",
       1, "BM", 2, 0, nullptr, nullptr, nullptr, 1, "-15"},
      {9000020, 900113, "155.370", nullptr, "KAH800", "Statewide Mutual Aid", "ASP Mutual", "CSQ",
       1, "BM", 11, 0, nullptr, nullptr, nullptr, 1, "2013-01-01T00:00:00+00:00"},
      {9000021, 900114, "159.345", nullptr, "KAH850", "Park Rangers", "DNR Rangers", "186.2 PL", 3,
       "BM", 16, 0, nullptr, nullptr, nullptr, 1, "-200"},
      {9000022, 900115, "142.110", nullptr, "CGQ900", "Patrouille r\xE9gionale", "SQ Mtl",
       "293 NAC", 4, "BM", 2, 2, nullptr, nullptr, nullptr, 1, "-8"},
      {9000023, 900116, "155.475", nullptr, "", "National Law Enforcement", "NLEC", "156.7 PL", 1,
       "BM", 11, 0, nullptr, nullptr, nullptr, 1, "2008-08-08T08:08:08+00:00"},
      {9000024, 900117, "156.600", nullptr, "", "Port Operations (Ch. 12)", "Port Ops", "", 1, "BM",
       26, 0, nullptr, nullptr, nullptr, 1, "-45"},
      {9000025, 900117, "121.500", nullptr, "", "Harbor Heliport, \"Guard\"", "Heli Guard", "", 2,
       "BM", 15, 0, nullptr, nullptr, nullptr, 2, "-45"},
  };
  return v;
}

const std::vector<Zipcode>& zipcodes() {
  static const std::vector<Zipcode> v{
      {10501, "41.501234", "-90.512345", "Harbor City", 901, 9011},
      {10777, "41.812300", "-90.900100", "Oak Valley", 901, 9012},
      {20202, "43.100000", "-93.250000", "Granite Falls", 902, 9021},
      {30303, "30.224100", "-92.019800", "Bayport", 903, 9031},
  };
  return v;
}

std::string resolveDate(const char* date) {
  if (date == nullptr) return {};
  if (date[0] != '-') return date;
  const long days = std::strtol(date + 1, nullptr, 10);
  const auto now = std::chrono::system_clock::now() - std::chrono::hours(24 * days);
  const std::time_t t = std::chrono::system_clock::to_time_t(now);
  std::tm tm{};
  gmtime_r(&t, &tm);
  char buffer[64];
  std::snprintf(buffer, sizeof buffer, "%04d-%02d-%02dT12:00:00+00:00", tm.tm_year + 1900,
                tm.tm_mon + 1, tm.tm_mday);
  return buffer;
}

}  // namespace zel::sim::rrdata
