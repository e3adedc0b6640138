// Every word list under its key, in the order the lists are offered. No list is sorted:
// the order is part of the list.
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include "grid/vocabulary.h"
#include "grid/vocabulary_tables.h"

namespace zel::vocab {

namespace {

using List = std::vector<std::string>;

List numbers(int from, int to, int step = 1) {
  List out;
  for (int n = from; n <= to; n += step) out.push_back(std::to_string(n));
  return out;
}

List prepend(std::string first, const List& rest) {
  List out{std::move(first)};
  out.insert(out.end(), rest.begin(), rest.end());
  return out;
}

List append(List first, const List& rest) {
  first.insert(first.end(), rest.begin(), rest.end());
  return first;
}

List hexCodes(int from, int to) {
  static const char* digits = "0123456789ABCDEF";
  List out;
  out.reserve(to - from + 1);
  for (int n = from; n <= to; ++n) {
    std::string text;
    for (int v = n; v > 0; v /= 16) text.insert(text.begin(), digits[v % 16]);
    out.push_back(std::move(text));
  }
  return out;
}

struct Registry {
  std::vector<std::pair<std::string, List>> ordered;
  std::unordered_map<std::string, std::size_t> index;

  void add(std::string key, List list) {
    index.emplace(key, ordered.size());
    ordered.emplace_back(std::move(key), std::move(list));
  }
};

Registry build() {
  Registry r;
  const List onOff = {"Off", "On"};
  r.add("Avoid", onOff);
  r.add("Attenuator", onOff);
  r.add("Priority", onOff);
  r.add("Mode", {"AUTO", "AM", "NFM", "FM", "WFM", "FMB"});
  r.add("AudioType", {"All", "Analog", "Digital"});
  r.add("SQ Mode", {"All", "CTCSS", "DCS", "P25", "DMR", "RAN", "IDAS", "dPMR"});
  r.add("Delay Time", {"-10", "-5", "0", "1", "2", "3", "4", "5", "10", "30"});
  r.add("Volume Offset", numbers(-3, 3));
  r.add("Alert Tone", prepend("Off", numbers(1, 9)));
  r.add("Alert Level", prepend("Auto", numbers(1, 15)));
  r.add("Alert Light", {"Off", "Blue", "Red", "Magenta", "Green", "Cyan", "Yellow", "White"});
  r.add("Alert Pattern", {"On", "Slow Blink", "Fast Blink"});
  r.add("DMR Tslot", {"Any", "1", "2"});
  r.add("Prio", {"Off", "On", "Plus", "DND"});
  r.add("ufilter",
        {"Global", "Normal", "Invert", "Auto", "Wide Normal", "Wide Invert", "Wide Auto", "Off"});
  r.add("GPS", {"None", "Approximate", "Exact"});
  r.add("Multi-Site", {"Off", "Roam", "Stationary"});
  r.add("P25_thres", {"Auto", "Manual", "Default"});
  r.add("mot_end1", {"Ignore", "Analog", "Analog and Digital"});
  r.add("record", {"Off", "Marked", "All On"});
  r.add("T-Tables", {"Default", "Splinter", "Custom"});
  r.add("sitetype_m", {"800/900 Standard", "800 Splinter", "Custom"});
  r.add("sitetype_m2", {"Standard", "Splinter", "Custom/Rebanded"});
  r.add("sitetype_e", {"Wide(standard)", "Narrow"});
  r.add("SQL Type", {"Off", "NAC", "Sel"});
  r.add("afs", {"Decimal", "AFS"});
  r.add("p25wait", numbers(0, 1000, 100));
  r.add("RF-Gain", append(
                       [] {
                         List gains;
                         for (int g = 1; g <= 9; ++g) gains.push_back("RFG" + std::to_string(g));
                         return gains;
                       }(),
                       {"RFGMAX"}));
  r.add("range", {"1", "5", "10", "25", "50", "75", "100"});
  r.add("Offset", {"0.600", "-0.600", "1.600", "-1.600", "4.600", "-4.600", "4.800", "-4.800",
                   "10.500", "-10.500", "13.500", "-13.500", "45.000", "-45.000"});
  r.add("Startkey", append(numbers(0, 9), {"None"}));
  const List steps = {"1.0",  "2.5",  "3.125", "5.0",  "6.25", "7.5",  "8.33", "10.0",
                      "12.5", "15.0", "20.0",  "25.0", "30.0", "50.0", "100.0"};
  r.add("Step", steps);
  r.add("Step SSB", steps);
  r.add("Step FM", steps);
  r.add("Step Adjust", steps);
  r.add("servsearch", {"---",
                       "Airband 25k",
                       "Airband 8.33k",
                       "CB Radio AM",
                       "CB Radio FM",
                       "FM Broadcast",
                       "FRS/GMRS/MURS",
                       "Hamradio 10m",
                       "Hamradio 6m",
                       "Hamradio 2m",
                       "Hamradio 1.25m",
                       "Hamradio 70cm",
                       "Hamradio 33cm",
                       "Marine USA",
                       "Marine Canada",
                       "Marine INTL",
                       "Media",
                       "Military Air",
                       "Pub.Safety LOW",
                       "Pub.Safety HI",
                       "Pub.Safety UHF",
                       "Pub.Safety 800",
                       "Racing",
                       "Railroad STD",
                       "Railroad SPLT",
                       "Railroad Data",
                       "Hamradio 23cm (260 only)"});
  r.add("servsearch_eu", {"---",
                          "Airband 8.33",
                          "Airband 25k",
                          "CB Radio AM",
                          "CB Radio FM",
                          "CB Radio UK",
                          "CB Radio Poland",
                          "Church Radio NL",
                          "DMR 446",
                          "dPMR",
                          "Emergency",
                          "Freenet",
                          "Hamradio 10m",
                          "Hamradio 6m",
                          "Hamradio 4m",
                          "Hamradio 2m",
                          "Hamradio 70cm",
                          "LPD",
                          "Marine EU",
                          "Marine UK",
                          "Military Air",
                          "Mosque UK",
                          "PMR",
                          "Hamradio 23cm (260 only)"});

  // The "SQ Code" lists; which one a row offers follows its "SQ Mode" (squelchCodeKey).
  r.add("SQ Code_c", prepend("Search", ctcssTones()));
  r.add("SQ Code_d", prepend("Search", dcsCodes()));
  r.add("SQ Code_n", hexCodes(1, 0xFFF));
  r.add("SQ Code_dmr", prepend("Search", numbers(0, 15)));
  r.add("SQ Code_r", numbers(0, 63));
  r.add("SQ Code_a", numbers(0, 1));
  r.add("SQ Code_dpmr", numbers(1, 255));
  r.add("SQ Code_digital", numbers(1, 255));
  r.add("SQ Code_analog", numbers(1, 255));

  r.add("Service Type", serviceTypesOffered());
  const List systemTypes = {"Conventional", "Motorola",          "Edacs Narrow/Wide",
                            "LTR",          "P25 Standard",      "P25 One Freq Trunk",
                            "P25 X2 TDMA",  "MotoTRBO",          "DMR One Frequency",
                            "Nxdn",         "Nxdn One Frequency"};
  r.add("System Type BC536", systemTypes);
  r.add("System Type HP1", List(systemTypes.begin(), systemTypes.begin() + 7));

  r.add("bands", detail::bandsUs());
  r.add("bands eu", detail::bandsEurope());
  r.add("bands_name", detail::bandNames());
  // Other models add "Chain Search"; this family's editor has three pages.
  r.add("pages", {"Frequencies", "Talkgroups", "Settings"});
  return r;
}

const Registry& registry() {
  static const Registry r = build();
  return r;
}

}  // namespace

const std::vector<std::string>& tabel(std::string_view key) {
  static const List empty;
  const auto& r = registry();
  auto it = r.index.find(std::string(key));
  return it == r.index.end() ? empty : r.ordered[it->second].second;
}

const std::vector<std::string>& keys() {
  static const List all = [] {
    List out;
    for (const auto& [key, list] : registry().ordered) out.push_back(key);
    return out;
  }();
  return all;
}

}  // namespace zel::vocab
