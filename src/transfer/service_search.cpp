#include "transfer/service_search.h"

#include <cmath>

#include "core/text.h"
#include "formats/text_file.h"

namespace zel::transfer {

namespace {

struct Channel {
  std::string name;
  long long hz;
};

// Service type numbers of the scanner's table.
constexpr int kHam = 13;
constexpr int kAircraft = 15;
constexpr int kRailroad = 20;
constexpr int kOther = 21;
constexpr int kTransportation = 26;

long long hzOf(double mhz) {
  return std::llround(mhz * 1e6);
}

std::string build(const std::string& system, const std::string& group, const std::string& mod,
                  int service, const std::vector<Channel>& channels) {
  std::string t = "TargetModel\tBCDx36HP\r\nFormatVersion\t1.00\r\n";
  t += "Conventional\t\t\t" + system +
       "\tOff\t\tConventional\tOff\tOff\t0\tOff\tOff\t400\tAuto\t8\r\n";
  t += "DQKs_Status\t";
  for (int i = 0; i < 100; ++i) t += "\tOn";
  t += "\r\n";
  t += "C-Group\tCGroupId=1\tAgencyId=2\t" + group +
       "\tOff\t0.000000\t-0.000000\t0.0\tCircle\tOff\tGlobal\r\n";
  for (const auto& c : channels) {
    t += "C-Freq\t\t\t" + c.name + "\tOff\t" + std::to_string(c.hz) + "\t" + mod + "\t\t" +
         std::to_string(service) + "\tOff\t2\t0\tOff\tAuto\tOff\tOn\tOff\tOff\r\n";
  }
  return t;
}

std::vector<Channel> cb() {
  // 40 channels from 26.965 MHz; channels 23 to 25 are out of order in the plan.
  const double mhz[40] = {26.965, 26.975, 26.985, 27.005, 27.015, 27.025, 27.035, 27.055,
                          27.065, 27.075, 27.085, 27.105, 27.115, 27.125, 27.135, 27.155,
                          27.165, 27.175, 27.185, 27.205, 27.215, 27.225, 27.255, 27.235,
                          27.245, 27.265, 27.275, 27.285, 27.295, 27.305, 27.315, 27.325,
                          27.335, 27.345, 27.355, 27.365, 27.375, 27.385, 27.395, 27.405};
  std::vector<Channel> out;
  for (int i = 0; i < 40; ++i) out.push_back({"CB " + std::to_string(i + 1), hzOf(mhz[i])});
  return out;
}

// The 22 channels that FRS and GMRS share: 1-7 and 15-22 in the 462 MHz group, 8-14 at
// 467 MHz.
std::vector<Channel> frsGmrs(const std::string& prefix) {
  std::vector<Channel> out;
  for (int ch = 1; ch <= 22; ++ch) {
    double mhz = 0;
    if (ch <= 7)
      mhz = 462.5625 + 0.025 * (ch - 1);
    else if (ch <= 14)
      mhz = 467.5625 + 0.025 * (ch - 8);
    else
      mhz = 462.550 + 0.025 * (ch - 15);
    out.push_back({prefix + " " + std::to_string(ch), hzOf(mhz)});
  }
  return out;
}

std::vector<Channel> gmrs() {
  auto out = frsGmrs("GMRS");
  // Repeater inputs of channels 15 to 22, 5 MHz above their outputs.
  for (int ch = 15; ch <= 22; ++ch) {
    out.push_back({"GMRS " + std::to_string(ch) + "R In", hzOf(467.550 + 0.025 * (ch - 15))});
  }
  return out;
}

std::vector<Channel> marine() {
  const std::pair<const char*, double> plan[] = {{"06 Safety", 156.300},
                                                 {"07A", 156.350},
                                                 {"08", 156.400},
                                                 {"09 Calling", 156.450},
                                                 {"10", 156.500},
                                                 {"11", 156.550},
                                                 {"12 Port Ops", 156.600},
                                                 {"13 Bridge", 156.650},
                                                 {"14 Port Ops", 156.700},
                                                 {"15", 156.750},
                                                 {"16 Distress", 156.800},
                                                 {"17", 156.850},
                                                 {"18A", 156.900},
                                                 {"19A", 156.950},
                                                 {"20A", 157.000},
                                                 {"21A", 157.050},
                                                 {"22A CG Liaison", 157.100},
                                                 {"23A", 157.150},
                                                 {"63A", 156.175},
                                                 {"65A", 156.275},
                                                 {"66A", 156.325},
                                                 {"67", 156.375},
                                                 {"68", 156.425},
                                                 {"69", 156.475},
                                                 {"71", 156.575},
                                                 {"72", 156.625},
                                                 {"73", 156.675},
                                                 {"74", 156.725},
                                                 {"77", 156.875},
                                                 {"78A", 156.925},
                                                 {"79A", 156.975},
                                                 {"80A", 157.025},
                                                 {"81A", 157.075},
                                                 {"82A", 157.125},
                                                 {"83A", 157.175}};
  std::vector<Channel> out;
  for (const auto& [name, mhz] : plan) out.push_back({std::string("Marine ") + name, hzOf(mhz)});
  return out;
}

std::vector<Channel> railroad() {
  // AAR channels 07 to 97: 160.215 MHz and up in 15 kHz steps.
  std::vector<Channel> out;
  for (int ch = 7; ch <= 97; ++ch) {
    out.push_back({"AAR " + padNumber(ch, 2), hzOf(160.215 + 0.015 * (ch - 7))});
  }
  return out;
}

std::vector<Channel> ham2m() {
  // The FM simplex channels of the 2 m band plan, with the national calling frequency.
  std::vector<Channel> out;
  for (double mhz :
       {146.400, 146.415, 146.430, 146.445, 146.460, 146.475, 146.490, 146.505, 146.520,
        146.535, 146.550, 146.565, 146.580, 147.420, 147.435, 147.450, 147.465, 147.480,
        147.495, 147.510, 147.525, 147.540, 147.555, 147.570, 147.585}) {
    out.push_back({mhz == 146.520 ? "2m Calling" : "2m " + formatFixed(mhz, 3), hzOf(mhz)});
  }
  return out;
}

std::vector<Channel> ham70cm() {
  // FM simplex in 25 kHz steps from 445.950 to 446.175, 446.000 the calling frequency.
  std::vector<Channel> out;
  for (int i = 0; i < 10; ++i) {
    const double mhz = 445.950 + 0.025 * i;
    out.push_back({i == 2 ? "70cm Calling" : "70cm " + formatFixed(mhz, 3), hzOf(mhz)});
  }
  return out;
}

std::vector<Channel> airband() {
  // 118.000 to 136.000 MHz in 25 kHz steps; 121.500 is the emergency frequency.
  std::vector<Channel> out;
  for (int i = 0; i <= 720; ++i) {
    const long long hz = 118000000LL + 25000LL * i;
    std::string name = hz == 121500000 ? "Air Emergency" : "Air " + formatFixed(hz / 1e6, 3);
    out.push_back({name, hz});
  }
  return out;
}

ServiceSearchList make(const char* caption, const char* file, const char* key,
                       const std::string& system, const std::string& mod, int service,
                       const std::vector<Channel>& channels) {
  return {caption, file, key, static_cast<int>(channels.size()),
          build(system, system, mod, service, channels)};
}

}  // namespace

const std::vector<ServiceSearchList>& serviceSearchLists() {
  static const std::vector<ServiceSearchList> lists = {
      make("CB", "cb.hpd", "cb", "CB Radio", "AM", kOther, cb()),
      make("FRS", "frs.hpd", "frs", "FRS", "NFM", kOther, frsGmrs("FRS")),
      make("GMRS", "gmrs.hpd", "gmrs", "GMRS", "FM", kOther, gmrs()),
      make("Marine", "MarineVHF.hpd", "marine", "Marine VHF", "FM", kTransportation, marine()),
      make("RailRoad", "railroad.hpd", "railroad", "Railroad AAR", "NFM", kRailroad, railroad()),
      make("HAM 2 mtr", "HAM2meter.hpd", "ham2m", "HAM 2 m", "FM", kHam, ham2m()),
      make("HAM 70cm", "HAM70cm.hpd", "ham70cm", "HAM 70 cm", "FM", kHam, ham70cm()),
      make("AIR 118-136", "Airband.hpd", "air", "Airband 118-136", "AM", kAircraft, airband()),
  };
  return lists;
}

const ServiceSearchList* findServiceSearch(const std::string& key) {
  for (const auto& l : serviceSearchLists()) {
    if (l.key == key) return &l;
  }
  return nullptr;
}

std::optional<std::string> serviceSearchText(const std::string& folder, int index) {
  const auto& lists = serviceSearchLists();
  if (index < 0 || index >= static_cast<int>(lists.size())) return std::nullopt;
  const ServiceSearchList& list = lists[index];
  if (!folder.empty()) {
    if (auto text = formats::readWholeFile(folder + "/" + list.fileName)) return text;
  }
  return list.text;
}

}  // namespace zel::transfer
