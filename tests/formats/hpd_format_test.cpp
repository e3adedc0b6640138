#include "formats/hpd_format.h"

#include <gtest/gtest.h>

namespace zel::formats {
namespace {

TEST(HpdLineTypes, LeadingCharactersDecideInTheFixedOrder) {
  struct Case {
    const char* line;
    int flags;
    HpdLineType type;
  };
  const Case cases[] = {
      {"FormatVersion,2.03", 0, HpdLineType::FormatVersion},
      {"Conventional,,,Name", 0, HpdLineType::Conventional},
      {"C-Group,,,Fire", 0, HpdLineType::CGroup},
      {"C-Freq,,,Ops", 0, HpdLineType::CFreq},
      {"Trunk,,,Name", 0, HpdLineType::Trunk},
      {"TrunkX,,,Name", 0, HpdLineType::Trunk},  // any line that begins with the word
      {"FleetMap,TrunkId=1", 0, HpdLineType::FleetMap},
      {"Site,,,Hill", 0, HpdLineType::Site},
      {"SiteFoo", 0, HpdLineType::Site},
      {"BandPlan_Mot,SiteId=1", 0, HpdLineType::BandPlanMot},
      {"BandPlan_P25,SiteId=1", 0, HpdLineType::BandPlanP25},
      {"T-Freq,TFreqId=0", 0, HpdLineType::TFreq},
      {"T-Group,,,Fire", 0, HpdLineType::TGroup},
      {"UnitIds,,,Medic", 0, HpdLineType::UnitIds},
      {"TGID,,,Dispatch", 0, HpdLineType::Tgid},
      {"TargetModel,BCDx36HP", 0, HpdLineType::None},
      {"AreaState,TrunkId=2", 0, HpdLineType::None},
      {"DQKs_Status,,On", 0, HpdLineType::None},
      {"conventional,,,lower case", 0, HpdLineType::None},
      {"", 0, HpdLineType::None},
      // Flag 2 drops the conventional types and the version test, flag 1 the trunked ones.
      {"FormatVersion,2.03", kSkipConventional, HpdLineType::None},
      {"C-Freq,,,Ops", kSkipConventional, HpdLineType::None},
      {"TGID,,,Dispatch", kSkipConventional, HpdLineType::Tgid},
      {"TGID,,,Dispatch", kSkipTrunked, HpdLineType::None},
      {"Site,,,Hill", kSkipTrunked, HpdLineType::None},
      {"C-Group,,,Fire", kSkipTrunked, HpdLineType::CGroup},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(matchLineType(c.line, c.flags), c.type) << c.line << " flags " << c.flags;
  }
}

TEST(HpdFrequencies, FileDigitsSplitByTheirLength) {
  struct Case {
    const char* digits;
    const char* mhz;
  };
  const Case cases[] = {
      {"46100000", "46.100000"},      // eight: two integer digits
      {"164225000", "164.225000"},    // nine: three
      {"1240000000", "1240.000000"},  // ten: four
      {"0851012500", "851.012500"},   // one leading zero dropped
      {"00450000", ".450000"},        // "00.450000": two dropped
      {"001234567", "1.234567"},      // "001.234567": two dropped
      {"1234567", "1234567"},         // any other length stays as it was
      {"", ""},
      {"12345678901", "12345678901"},
  };
  for (const Case& c : cases) EXPECT_EQ(frequencyFromFile(c.digits), c.mhz) << c.digits;
}

TEST(HpdFrequencies, RowTextBecomesWholeHertzAndFileDigitsComeBack) {
  struct Case {
    const char* mhz;
    const char* hz;
  };
  const Case cases[] = {
      {"154.785000", "154785000"},
      {"46.100000", "46100000"},
      {"088.500000", "88500000"},
      {"851.00625", "851006250"},
      {"154,785000", "154785000"},
      {"154.7850004", "154785000"},
      {"154.7850005", "154785001"},
      {"1240", "1240000000"},
      {"", ""},
      {"abc", "0"},
      {"  162.55", "162550000"},
      {"0.0000009", "1"},
  };
  for (const Case& c : cases) EXPECT_EQ(frequencyToFile(c.mhz), c.hz) << c.mhz;
  // Read and write are inverses for the digits of a file.
  for (const char* digits : {"46100000", "164225000", "851006250", "1240000000", "25000000"}) {
    EXPECT_EQ(frequencyToFile(frequencyFromFile(digits)), digits);
  }
}

TEST(HpdBandPlans, ValuesConvertBetweenFileUnitsAndRecordUnits) {
  EXPECT_EQ((std::vector<std::string>{
                bandPlanMhz("851025000"), bandPlanMhz("851006250"), bandPlanMhz("0"),
                bandPlanMhz(""), bandPlanKhz("25000"), bandPlanKhz("6250"), bandPlanKhz("3125"),
                bandPlanKhz("12500"), bandPlanHz("851.0250"), bandPlanHz("868.9875"),
                bandPlanHzThousandths("25.0"), bandPlanHzThousandths("6.25")}),
            (std::vector<std::string>{"851.0250", "851.00625", "0.0000", "0.0000", "25.0", "6.25",
                                      "3.125", "12.5", "851025000", "868987500", "25000", "6250"}));
}

TEST(HpdNames, TheCleanerCutsThenDropsControlAndHighBytes) {
  struct Case {
    std::string name;
    std::string clean;
  };
  const std::string sixtyFive(65, 'a');
  const Case cases[] = {
      {"", "Fallback"},
      {"Fire Dispatch", "Fire Dispatch"},
      {sixtyFive, std::string(64, 'a')},
      {"Caf\xE9 M\xFCnchen", "Caf Mnchen"},  // accents dropped, not mapped
      {std::string("A\x01"
                   "B\x14"
                   "C\x15"
                   "D"),
       "ABC\x15"
       "D"},  // 1..20 go, 21 stays
      {"Del\x7F", "Del"},
      {std::string(63, 'x') + "\xE9"
                              "y",
       std::string(63, 'x')},  // cut first, then cleaned
      {"\xE9\xE9", ""},        // not empty before cleaning: no fallback
  };
  for (const Case& c : cases) EXPECT_EQ(cleanName(c.name, "Fallback"), c.clean) << c.name;
}

TEST(HpdSystemTypes, EveryFileWordMapsToALabelAndBack) {
  struct Case {
    const char* word;
    const char* label;
    int type;
    bool dmr;
    bool nxdn;
  };
  const Case cases[] = {
      {"Motorola", "Motorola", 1, false, false},
      {"Edacs", "Edacs Narrow/Wide", 2, false, false},
      {"Scat", "Edacs Scat", 3, false, false},
      {"Ltr", "LTR", 4, false, false},
      {"P25Standard", "P25 Standard", 5, false, false},
      {"P25OneFrequency", "P25 One Freq Trunk", 6, false, false},
      {"P25X2_TDMA", "P25 X2 TDMA", 7, false, false},
      {"MotoTrbo", "MotoTRBO", 8, true, false},
      {"DmrOneFrequency", "DMR One Frequency", 9, true, false},
      {"Nxdn", "Nxdn", 10, false, true},
      {"NxdnOneFrequency", "Nxdn One Frequency", 11, false, true},
  };
  for (const Case& c : cases) {
    SystemKind k = systemKindFromWord(c.word);
    EXPECT_EQ(std::tuple(k.label, k.type, k.dmr, k.nxdn, systemWordFromLabel(k.label),
                         labelIsDmr(k.label), labelIsNxdn(k.label)),
              std::tuple(std::string(c.label), c.type, c.dmr, c.nxdn, std::string(c.word), c.dmr,
                         c.nxdn));
  }
  EXPECT_EQ(systemKindFromWord("P25 Standard").type, 5);
  EXPECT_EQ(systemWordFromLabel("P25 OneFreqTrunk"), "P25OneFrequency");
  SystemKind unknown = systemKindFromWord("Tetra");
  EXPECT_EQ(unknown.type, -1);
  EXPECT_EQ(systemWordFromLabel(unknown.label), "Tetra");
}

TEST(HpdHeaders, EachLevelHasItsTwoLines) {
  EXPECT_EQ(headerLines(HpdLevel::V3),
            (std::vector<std::string>{"TargetModel\tBCDx36HP", "FormatVersion\t1.00"}));
  EXPECT_EQ(headerLines(HpdLevel::V2),
            (std::vector<std::string>{"TargetModel HomePatrol-1", "FormatVersion   2.03"}));
  EXPECT_EQ(headerLines(HpdLevel::V1),
            (std::vector<std::string>{"TargetModel HomePatrol-1", "FormatVersion   1.00"}));
}

TEST(HpdFields, SplitKeepsEmptyFieldsAndTheLastOne) {
  std::vector<std::string_view> f;
  splitFields("a,,b,", f);
  EXPECT_EQ(f, (std::vector<std::string_view>{"a", "", "b", ""}));
  EXPECT_EQ(fieldAt(f, 2), "b");
  EXPECT_EQ(fieldAt(f, 9), "");
}

}  // namespace
}  // namespace zel::formats
