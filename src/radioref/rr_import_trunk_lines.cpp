// The system and talkgroup line rules of the trunked import.
#include "radioref/rr_import_trunk_lines.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <string_view>

#include "core/text.h"
#include "grid/cell_commit_talkgroup.h"
#include "radioref/rr_readers.h"

namespace zel::radioref {

TrunkHeader trunkHeader(const std::string& importType) {
  struct Row {
    std::string_view type, first, second;
    int code;
  };
  // An LTR system's second text is the Motorola one: the scanner's LTR systems carry that
  // type word in their header.
  static constexpr std::array<Row, 10> kRows{{
      {"MOT 800/900", "SIN,Motorola,", ",Motorola,,,,,,,,,,,,,,,,", 1},
      {"MOT VHF/UHF", "SIN,Motorola,", ",Motorola,,,,,,,,,,,,,,,,", 1},
      {"EDACS NARROW", "SIN,Edacs Narrow/Wide,", ",Edacs Narrow/Wide,,,,,,,,,,,,,,,,", 2},
      {"EDACS STANDARD", "SIN,Edacs Narrow/Wide,", ",Edacs Narrow/Wide,,,,,,,,,,,,,,,,", 2},
      {"LTR", "SIN,LTR,", ",Motorola,,,,,,,,,,,,,,,,", 4},
      {"P25 AUTO", "SIN,P25 Standard,", ",P25 Standard,,,,,,,,,,,,,,,,", 5},
      {"P25 X2", "SIN,P25 X2 TDMA,", ",P25 X2 TDMA,,,,,,,,,,,,,,,,", 7},
      {"MotoTRBO", "SIN,MotoTRBO,", ",DMR,,,,,,,,,,,,,,,,", 8},
      {"DMR One Frequency", "SIN,DMR One Frequency,", ",DMR,,,,,,,,,,,,,,,,", 9},
      {"Nxdn", "SIN,Nxdn,", ",Nxdn,,,,,,,,,,,,,,,,", 10},
  }};
  if (importType == "Nxdn One Frequency") {
    return {"SIN,Nxdn One Frequency,", ",Nxdn,,,,,,,,,,,,,,,,", 11};
  }
  for (const Row& r : kRows) {
    if (r.type == importType) return {std::string(r.first), std::string(r.second), r.code};
  }
  return {};
}

std::string headerDate(const std::string& lastUpdated) {
  const std::string d = trim(lastUpdated);
  if (d.empty()) return "10-10-2001 10:10:10";
  auto digitsAt = [&](std::size_t pos, std::size_t n) {
    if (pos + n > d.size()) return false;
    return std::all_of(d.begin() + pos, d.begin() + pos + n,
                       [](char c) { return std::isdigit(static_cast<unsigned char>(c)) != 0; });
  };
  const bool iso = d.size() >= 19 && digitsAt(0, 4) && d[4] == '-' && digitsAt(5, 2) &&
                   d[7] == '-' && digitsAt(8, 2) && (d[10] == 'T' || d[10] == ' ') &&
                   digitsAt(11, 2) && d[13] == ':' && digitsAt(14, 2) && d[16] == ':' &&
                   digitsAt(17, 2);
  if (!iso) return commasToSemicolons(d);
  return d.substr(5, 2) + "/" + d.substr(8, 2) + "/" + d.substr(0, 4) + " " + d.substr(11, 8);
}

std::string systemLine(const TrunkHeader& header, int importNumber, const std::string& name,
                       const std::string& date, int fileNumber) {
  return header.first + std::to_string(importNumber) + ",StateId=0," + name + ",Off," + date +
         header.second + padNumber(fileNumber, 3);
}

int lookup_fm(const std::string& letter) {
  static constexpr std::string_view kLetters = "2ABCDEFGHIJKMOQ";
  const std::string l = toUpper(trim(letter));
  if (l.size() != 1) return 0;
  const std::size_t at = kLetters.find(l[0]);
  return at == std::string_view::npos ? 0 : static_cast<int>(at);
}

std::string fleetMapLine(const std::vector<std::string>& fleetmap) {
  if (fleetmap.size() < 8) return {};
  std::string line = "FMP";
  for (std::size_t i = 0; i < 8; ++i) line += "," + std::to_string(lookup_fm(fleetmap[i]));
  return line;
}

std::string talkgroupId(const TalkgroupRow& row, TrunkFamily family, bool edacsAfs,
                        const std::string& flavorCode) {
  std::string id = trim(row.id);
  if (id.empty() || id == "0") id = trim(row.subfleet);
  if (family == TrunkFamily::Ltr) {
    if (id.size() == 4) id = "00" + id;
    if (id.size() == 5) id = "0" + id;
  }
  if (family == TrunkFamily::Edacs && edacsAfs) {
    if (auto afs = cell::toAfs(id)) id = *afs;
  }
  if (flavorCode == "36") {
    if (id.size() == 5) {
      id = "0" + id.substr(0, 1) + "-" + id.substr(1);
    } else if (id.size() == 6) {
      id = id.substr(0, 2) + "-" + id.substr(2);
    }
  }
  return id;
}

std::string talkgroupMode(const std::string& tgMode) {
  const std::string m = toUpper(trim(tgMode));
  if (m == "A") return "Analog";
  if (m == "D" || m == "T") return "Digital";
  return "All";
}

TalkgroupLines talkgroupLines(const std::string& id, const std::string& name,
                              const std::string& mode, const std::string& service, bool edacs,
                              const std::vector<LedRule>& leds) {
  const std::string body = id + "," + name + ",Off," + mode + "," + service + ",2,0,Off,Auto";
  TalkgroupLines lines;
  lines.record = "TID," + body + ",,,,,";
  std::vector<std::string> grid = split(body + ",,,,," + (edacs ? "" : "Any"), ',');
  if (!service.empty()) {
    for (const LedRule& led : leds) {
      if (led.enabled && led.service == service) {
        grid[9] = led.color;
        grid[10] = led.pattern;
        break;
      }
    }
  }
  lines.grid = join(grid, ',');
  return lines;
}

std::string trunkDepartmentLine(const std::string& name, const std::string& gps,
                                const std::string& quickKey) {
  const bool noPlace = gps.empty() || gps == "0,0,0" || gps == ",,";
  const std::string location = noPlace ? "0.000000,-00.000000,0.0" : gps;
  return "GIN,C-Group,CGroupId=0,AgencyId=0," + name.substr(0, kTagLimit) + ",Off," + location +
         ",," + quickKey + ",";
}

}  // namespace zel::radioref
