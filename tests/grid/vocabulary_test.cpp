#include "grid/vocabulary.h"

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

#include "core/text.h"

namespace zel::vocab {
namespace {

// Every key the list routine serves as key|size|first|last, ';' between keys. A key added to
// the vocabulary without a case here fails EveryKeyIsCovered.
const std::vector<std::string>& lists() {
  static const std::vector<std::string> all = split(
      "Avoid|2|Off|On;Attenuator|2|Off|On;Priority|2|Off|On;Mode|6|AUTO|FMB;"
      "AudioType|3|All|Digital;SQ Mode|8|All|dPMR;Delay Time|10|-10|30;Volume Offset|7|-3|3;"
      "Alert Tone|10|Off|9;Alert Level|16|Auto|15;Alert Light|8|Off|White;"
      "Alert Pattern|3|On|Fast Blink;DMR Tslot|3|Any|2;Prio|4|Off|DND;ufilter|8|Global|Off;"
      "GPS|3|None|Exact;Multi-Site|3|Off|Stationary;P25_thres|3|Auto|Default;"
      "mot_end1|3|Ignore|Analog and Digital;record|3|Off|All On;T-Tables|3|Default|Custom;"
      "sitetype_m|3|800/900 Standard|Custom;sitetype_m2|3|Standard|Custom/Rebanded;"
      "sitetype_e|2|Wide(standard)|Narrow;SQL Type|3|Off|Sel;afs|2|Decimal|AFS;p25wait|11|0|1000;"
      "RF-Gain|10|RFG1|RFGMAX;range|7|1|100;Offset|14|0.600|-45.000;Startkey|11|0|None;"
      "Step|15|1.0|100.0;Step SSB|15|1.0|100.0;Step FM|15|1.0|100.0;Step Adjust|15|1.0|100.0;"
      "servsearch|27|---|Hamradio 23cm (260 only);servsearch_eu|24|---|Hamradio 23cm (260 only);"
      "SQ Code_c|51|Search|254.1;SQ Code_d|105|Search|754;SQ Code_n|4095|1|FFF;"
      "SQ Code_dmr|17|Search|15;SQ Code_r|64|0|63;SQ Code_a|2|0|1;SQ Code_dpmr|255|1|255;"
      "SQ Code_digital|255|1|255;SQ Code_analog|255|1|255;Service Type|39|Aircraft|Racing Teams;"
      "System Type BC536|11|Conventional|Nxdn One Frequency;"
      "System Type HP1|7|Conventional|P25 X2 TDMA;bands|31|25.00 - 26.96|1240.00 - 1300.00;"
      "bands eu|31|25.00 - 29.99|1240.00 - 1300.00;"
      "bands_name|31|Petroleum Products & Broadcast Pickup|23 cm Amateur Band;"
      "pages|3|Frequencies|Settings",
      ';');
  return all;
}

TEST(Tabel, EveryListHasItsSizeAndEnds) {
  for (const std::string& c : lists()) {
    const auto f = split(c, '|');
    const auto& list = tabel(f[0]);
    ASSERT_EQ(std::to_string(list.size()), f[1]) << c;
    EXPECT_EQ(list.front() + "|" + list.back(), f[2] + "|" + f[3]) << c;
  }
}

TEST(Tabel, EveryKeyIsCoveredAndListedOnce) {
  std::set<std::string> tested;
  for (const std::string& c : lists()) tested.insert(split(c, '|')[0]);
  std::set<std::string> listed(keys().begin(), keys().end());
  EXPECT_EQ(listed.size(), keys().size()) << "a key is listed twice";
  EXPECT_EQ(listed, tested);
}

TEST(Tabel, NoListHoldsAnEmptyOrRepeatedItem) {
  for (const auto& key : keys()) {
    if (key == "bands_name") continue;  // two rows share a name there by design
    std::set<std::string> seen;
    for (const auto& item : tabel(key)) {
      EXPECT_FALSE(item.empty()) << key;
      EXPECT_TRUE(seen.insert(item).second) << key << " repeats " << item;
    }
  }
}

TEST(Tabel, AnUnknownKeyGivesAnEmptyList) {
  // "SQ Code" needs the mode (squelchCodeKey); keys are exact.
  for (const char* key : {"LockOut", "SQ Code", "mode", ""}) EXPECT_TRUE(tabel(key).empty()) << key;
}

// Inner items by list; the codes of "SQ Code_n" are upper-case hexadecimal without zeros ahead.
TEST(Tabel, ListsKeepTheirOfferedOrder) {
  // key|position|item, ';' between
  const std::string cases =
      "Mode|2|NFM;Mode|3|FM;SQ Mode|5|RAN;Delay Time|2|0;Alert Light|3|Magenta;"
      "ufilter|4|Wide Normal;Offset|1|-0.600;Step|2|3.125;Step|6|8.33;servsearch|2|Airband 8.33k;"
      "servsearch_eu|1|Airband 8.33;SQ Code_c|1|67.0;SQ Code_c|13|100.0;SQ Code_d|1|023;"
      "SQ Code_n|9|A;SQ Code_n|15|10;SQ Code_n|254|FF;SQ Code_dmr|1|0;p25wait|5|500;"
      "Service Type|3|Emergency Ops;Service Type|29|Custom 1;"
      "System Type BC536|2|Edacs Narrow/Wide;bands|10|108.00 - 136.9916;"
      "bands eu|16|160.60 - 162.025;bands_name|6|VHF TV Broadcast 2 \xE2\x80\x93 4;"
      "bands_name|25|Public Service Band;bands_name|29|Public Service Band";
  for (const std::string& text : split(cases, ';')) {
    const auto c = split(text, '|');
    const std::size_t position = std::stoul(c[1]);
    ASSERT_GT(tabel(c[0]).size(), position) << text;
    EXPECT_EQ(tabel(c[0])[position], c[2]) << text;
  }
}

TEST(Tabel, TheHomePatrolSystemTypesAreTheFirstSevenOfTheFullList) {
  const auto& full = tabel("System Type BC536");
  const auto& hp = tabel("System Type HP1");
  EXPECT_TRUE(std::equal(hp.begin(), hp.end(), full.begin()));
}

TEST(SquelchCodeKey, TheModeChoosesTheCodeList) {
  // mode|code list key; exact words only
  const std::string cases =
      "CTCSS|SQ Code_c;All|SQ Code_c;|SQ Code_c;Whatever|SQ Code_c;DCS|SQ Code_d;DTCS|SQ Code_d;"
      "DCS-R|SQ Code_d;DTCS-R|SQ Code_d;P25|SQ Code_n;DMR|SQ Code_dmr;RAN|SQ Code_r;"
      "IDAS|SQ Code_a;dPMR|SQ Code_dpmr;Common ID|SQ Code_dpmr;Digital|SQ Code_digital;"
      "Analog|SQ Code_analog;dcs|SQ Code_c";
  for (const std::string& text : split(cases, ';')) {
    const auto c = split(text, '|');
    EXPECT_EQ(squelchCodeKey(c[0]), c[1]) << text;
  }
}

TEST(ValueCheck, AnExactItemStandsAndAnythingElseTakesTheDefault) {
  // list key|text|default position|result: case matters, empty takes the default, an unknown
  // light reads as Off, a default outside the list gives nothing; older lists hold a delay of
  // -2 that is no item (fileDelay keeps it).
  const std::string cases =
      "Avoid|On|0|On;Avoid|on|0|Off;Avoid||1|On;Alert Light|Purple|0|Off;Alert Light|Cyan|0|Cyan;"
      "Alert Light|Cyan |0|Off;Alert Light|x|99|;Alert Light|x|-1|;Delay Time|-2|4|2";
  for (const std::string& text : split(cases, ';')) {
    const auto c = split(text, '|');
    EXPECT_EQ(valueCheck(c[1], tabel(c[0]), std::stoi(c[2])), c[3]) << text;
  }
}

TEST(ToneCheck, PositionsOnTheToneListsOrTheTextItself) {
  // text|result
  const std::string cases =
      "67.0|1;100.0|13;254.1|50;023|1;754|104;Search|Search;|;RAN 5|RAN 5;IDAS1|IDAS1;60.0|0;"
      "67|0;23|0;search|0";
  for (const std::string& text : split(cases, ';')) {
    const auto c = split(text, '|');
    EXPECT_EQ(toneCheck(c[0]), c[1]) << text;
  }
}

TEST(CombinedTones, OneRunOfEveryCodeWord) {
  const auto& table = combinedTones();
  ASSERT_EQ(table.size(), 50u + 104u + 64u + 2u);
  struct Case {
    int position;
    const char* word;
  };
  const Case cases[] = {{0, "67.0"},    {49, "254.1"},   {50, "023"},     {153, "754"},
                        {154, "RAN 0"}, {217, "RAN 63"}, {218, "Search"}, {219, "None"}};
  for (const auto& c : cases) {
    EXPECT_EQ(combinedToneAt(c.position), c.word);
    EXPECT_EQ(combinedTonePosition(c.word), c.position);
  }
  EXPECT_EQ(combinedToneAt(-1), "");
  EXPECT_EQ(combinedToneAt(220), "");
  EXPECT_EQ(combinedTonePosition("71.0"), -1);
}

// Every offered name goes to its number and back; a few numbers by hand, the rest are in the
// import and file tests' expected lines.
TEST(ServiceTypes, NamesByNumberInBothDirections) {
  const auto& names = serviceTypesOffered();
  const auto& numbers = serviceTypeOfferedNumbers();
  ASSERT_EQ(names.size(), numbers.size());
  for (std::size_t i = 0; i < names.size(); ++i) {
    EXPECT_EQ(serviceTypeName(numbers[i]), names[i]) << i;
    EXPECT_EQ(serviceTypeNumber(names[i]), numbers[i]) << names[i];
  }
  EXPECT_EQ(tabel("Service Type"), names);
  for (const auto& [number, name] : std::vector<std::pair<int, std::string>>{
           {2, "Law Dispatch"}, {37, "Corrections"}, {208, "Custom 1"}, {217, "Racing Teams"}})
    EXPECT_EQ(serviceTypeName(number), name);
}

TEST(ServiceTypes, UnassignedNumbersAreEmpty) {
  for (int number : {0, 5, 10, 18, 19, 27, 28, 35, 36, 38, 100, 207, 218, -1, 9999}) {
    EXPECT_EQ(serviceTypeName(number), "") << number;
  }
  int named = 0;
  for (int number = 0; number < 218; ++number) named += !serviceTypeName(number).empty();
  EXPECT_EQ(named, 39);
  for (const char* name : {"", "NOT DEFINED", "aircraft"}) EXPECT_EQ(serviceTypeNumber(name), 0);
  EXPECT_EQ(serviceTypeNumber(kDefaultServiceType), 208);
}

}  // namespace
}  // namespace zel::vocab
