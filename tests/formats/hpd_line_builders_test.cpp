#include "formats/hpd_line_builders.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "core/text.h"
#include "formats_test_support.h"

namespace zel::formats {
namespace {

std::string shown(std::string_view line) {
  return replaceAll(line, "\t", "|");
}

TEST(ToneRules, SearchUnderTheFiveDigitalModesIsAlwaysNacSrch) {
  struct Case {
    const char* mode;
    const char* code;
    const char* field;
  };
  const Case cases[] = {
      {"P25", "Search", "NAC=Srch"},  {"DMR", "Search", "NAC=Srch"},
      {"RAN", "Search", "NAC=Srch"},  {"IDAS", "Search", "NAC=Srch"},
      {"dPMR", "Search", "NAC=Srch"}, {"CTCSS", "Search", "TONE=Srch"},
      {"DCS", "Search", "TONE=Srch"}, {"CTCSS", "146.2", "TONE=C146.2"},
      {"CTCSS", "146.3", ""},  // on neither list: no code at all
      {"DCS", "023", "TONE=D023"},    {"DCS", "017", ""},
      {"P25", "293", "NAC=293"},      {"DMR", "3", "ColorCode=3"},
      {"RAN", "5", "RAN=5"},          {"IDAS", "1", "Area=1"},
      {"dPMR", "12", "CommonId=12"},  {"All", "Search", ""},
      {"None", "146.2", ""},          {"", "Search", ""},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(toneField(c.mode, c.code), c.field) << c.mode << " " << c.code;
  }
}

TEST(NumberTags, OffWordsAndTheRange) {
  struct Case {
    const char* value;
    const char* field;
  };
  const Case cases[] = {{"Off", "Off"}, {"", "Off"},    {"None", "Off"}, {"1000", "Off"},
                        {"0", "0"},     {"999", "999"}, {"1001", "999"}, {"-4", "0"},
                        {"12.7", "12"}, {"abc", "0"}};
  for (const Case& c : cases) EXPECT_EQ(numberTagField(c.value), c.field) << c.value;
}

TEST(CFreqBuilder, ValuesOutsideTheirListsTakeTheDefaults) {
  BuildContext c;
  EXPECT_EQ(shown(buildCFreqLine(
                "1,154.785000,Fire,Off,NFM,CTCSS,123.0,Fire Dispatch,Off,2,0,Off,Auto,Off,On,"
                "Off,Off",
                c)),
            "C-Freq|||Fire|Off|154785000|NFM|TONE=C123.0|3|Off|2|0|Off|Auto|Off|On|Off|Off");
  EXPECT_EQ(shown(buildCFreqLine(
                "2,46.100000,,Maybe,WFM,DMR,Search,Nonsense,x,7,9,10,16,Purple,Blink,1000,Yes", c)),
            "C-Freq|||46.100000|Off|46100000|AUTO|NAC=Srch|1|Off|2|0|Off|Auto|Off|On|Off|Off");
  EXPECT_EQ(
      shown(buildCFreqLine("3,121.500000,Air,On,AM,,,,On,-2,-3,9,15,White,Fast Blink,5,On", c)),
      "C-Freq|||Air|On|121500000|AM||208|On|-2|-3|9|15|White|Fast Blink|5|On");
  EXPECT_EQ(buildCFreqLine("4,,No frequency,Off", c), "");
}

TEST(CFreqBuilder, LevelTwoEndsAfterTheAlertVolume) {
  BuildContext c;
  c.level = HpdLevel::V2;
  c.serviceFallback = "Custom 4";
  EXPECT_EQ(shown(buildCFreqLine("1,155.000000,Ch,Off,FM,All,Search,,Off,2,0,Off,Auto", c)),
            "C-Freq|||Ch|Off|155000000|FM||211|Off|2|0|Off|Auto");
}

TEST(TgidBuilder, AudioCapitalsAndSlotSrch) {
  BuildContext c;
  EXPECT_EQ(shown(buildTgidLine(
                "1,56421,Fire Dispatch,Off,All,Fire Dispatch,2,0,Off,Auto,Red,On,Off,Off,Any", c)),
            "TGID|||Fire Dispatch|Off|56421|ALL|3|2|0|Off|Auto|Red|On|Off|Off|Srch");
  EXPECT_EQ(shown(buildTgidLine("2,100,,On,Analog,Law Talk,5,1,3,2,Blue,Slow Blink,7,On,2", c)),
            "TGID|||100|On|100|ANALOG|23|5|1|3|2|Blue|Slow Blink|7|On|2");
  EXPECT_EQ(shown(buildTgidLine("3,i2001,Unit,Off,Digital,Other,0,0,Off,Auto,Off,On,Off,Off,3", c)),
            "TGID|||Unit|Off|i2001|DIGITAL|21|0|0|Off|Auto|Off|On|Off|Off|Srch");
  EXPECT_EQ(buildTgidLine("4,,Empty", c), "");
}

TEST(WriteAuditNotes, WordsMovedAndEmptiesFilled) {
  WriteAudit audit;
  audit.where = "row 2";
  BuildContext c;
  c.audit = &audit;
  buildCFreqLine("2,46.100000,Name,Off,WFM,CTCSS,146.3,Law Tac,Off,7,,Off,Auto,,,,", c);
  std::vector<std::string> moved;
  for (const WriteNote& n : audit.moved) moved.push_back(n.field + ":" + n.from + ">" + n.to);
  EXPECT_EQ(moved, (std::vector<std::string>{"Mode:WFM>AUTO", "SQ Code:146.3>", "Delay Time:7>2"}));
  EXPECT_EQ(audit.moved[0].where, "row 2");
  EXPECT_EQ(audit.filled.at("Volume Offset").at("0"), 1);
  EXPECT_EQ(audit.filled.at("Alert Light").at("Off"), 1);
  EXPECT_EQ(audit.filled.count("Alert Tone"), 0u);  // "Off" is on its list
}

TEST(SystemLineBuilders, TrunkTakesItsFieldsFromTheRecordPositions) {
  BuildContext c;
  const std::string sin =
      "SIN,P25 Standard,77,,Metro,1,,P25 Standard,1,v9,v10,1,Search,None,v14,v15,1,v17,0,1,,,,"
      "001";
  EXPECT_EQ(shown(buildTrunkLine(sin, c)),
            "Trunk|||Metro|On||P25Standard|On|v9|v10|Yes|Srch|Off|v14|v15|Off|On|v17|On|Off|On");
  c.level = HpdLevel::V2;
  EXPECT_EQ(shown(buildTrunkLine(sin, c)), "Trunk|||Metro|On||P25Standard|On|v9|v10|Yes|Srch|Off");
}

TEST(SystemLineBuilders, ConventionalAtBothLevels) {
  const std::string sin =
      "SIN,Conventional,,,Federal,0,,Conventional,,,,,,12,q,0,,,1,0,400,Auto,8,001";
  BuildContext c;
  EXPECT_EQ(shown(buildConventionalLine(sin, c)),
            "Conventional|||Federal|Off||Conventional|12|q|0|On|Off|400|Auto|8");
  c.level = HpdLevel::V2;
  EXPECT_EQ(shown(buildConventionalLine(sin, c)),
            "Conventional|CountyID=2|StateId=0|Federal|Off||Conventional");
}

TEST(SystemLineBuilders, AreaAndQuickKeyLines) {
  EXPECT_EQ(buildAreaLines("SIN,Motorola,41", true),
            (std::vector<std::string>{"AreaState\tTrunkId=41\tStateId=0",
                                      "AreaCounty\tTrunkId=41\tCountyId=0"}));
  EXPECT_EQ(buildAreaLines("SIN,Conventional,0", false)[0], "AreaState\tAgencyId=2\tStateId=0");
  const std::string dqk = buildDqkStatusLine();
  EXPECT_EQ(dqk.substr(0, 16), "DQKs_Status\t\tOn\t");
  EXPECT_EQ(std::count(dqk.begin(), dqk.end(), '\t'), 101);
  EXPECT_EQ(dqk.size(), std::string("DQKs_Status\t").size() + 100 * 3);
}

TEST(FleetMaps, OnlyWhenSetAndNotAllZero) {
  for (const char* none : {"", "FRN,0,0,0,0,0,0,0,0", "FMP,0,0,0,0,0,0,0,0"})
    EXPECT_EQ(buildFleetMapLine(none, "2"), "") << none;
  EXPECT_EQ(shown(buildFleetMapLine("FMP,4,4,12,0,,14,0,16", "1492")),
            "FleetMap|TrunkId=1492|4|4|C|0|SRCH|E|0|10");
}

TEST(SiteBuilders, RecordWordsBackToFileWords) {
  BuildContext c;
  const std::string site =
      "SIT,Site,SiteId=5,TrunkId=2,Hill,Off,41.4,-81.7,19.1,NFM,Custom/Rebanded,Wide(standard),"
      "Circle,1,400,Auto,8,None,a,b";
  EXPECT_EQ(shown(buildSiteLine(site, 130, "41", c)),
            "Site|SiteId=130|TrunkId=41|Hill|Off|41.4|-81.7|19.1|NFM|Custom|Wide|Circle|On|400|"
            "Auto|8|Off|a|b");
  EXPECT_EQ(shown(buildSiteLine("SIT,Site,,,,On,,,,WFM,Splinter,Odd,Square,0", 7, "2", c)),
            "Site|SiteId=7|TrunkId=2|A New Site|On|0.000000|-0.000000|0.0|AUTO|Sprinter|Wide|"
            "Circle|Off||||Off||");
  c.level = HpdLevel::V2;
  EXPECT_EQ(shown(buildSiteLine(site, 1, "2", c)),
            "Site|SiteId=1|TrunkId=2|Hill|Off|41.4|-81.7|19.1|NFM|Custom|Wide|Circle|On");
}

TEST(SiteBuilders, BandPlansAreDueForCustomSitesOfThreeSystemTypes) {
  struct Case {
    const char* plan;
    const char* word;
    bool due;
  };
  const Case cases[] = {
      {"Custom/Rebanded", "Motorola", true},   {"Custom", "P25Standard", true},
      {"Custom/Rebanded", "P25X2_TDMA", true}, {"Custom/Rebanded", "Edacs", false},
      {"Custom/Rebanded", "Ltr", false},       {"Standard", "Motorola", false},
      {"Splinter", "Motorola", false},
  };
  for (const Case& c : cases) {
    std::string site = std::string("SIT,Site,,,S,Off,1,2,3,AUTO,") + c.plan;
    EXPECT_EQ(bandPlanDue(site, c.word), c.due) << c.plan << " " << c.word;
  }
}

TEST(SiteBuilders, BandPlanWritesFiveGroupsInFileUnits) {
  EXPECT_EQ(shown(buildBandPlanLine(kDefaultBandPlan, 12)),
            "BandPlan_Mot|SiteId=12|851025000|854000000|25000|440|851012500|868987500|25000|0|0|0|"
            "25000|0|0|0|25000|0|0|0|25000|0");
  // A record read from a file has four groups; the fifth comes from the default plan.
  EXPECT_EQ(shown(buildBandPlanLine("MCP,type,851.0250,854.0000,6.25,440,1,2,3,4,5,6,7,8,9,10,11,"
                                    "12",
                                    3)),
            "BandPlan_Mot|SiteId=3|851025000|854000000|6250|440|1000000|2000000|3000|4|5000000|"
            "6000000|7000|8|9000000|10000000|11000|12|0|0|25000|0");
}

TEST(SiteBuilders, SiteFrequencies) {
  EXPECT_EQ(shown(buildSiteFrequencyLine("TFQ,851.900000,1,8", 130, 1, false)),
            "T-Freq|TFreqId=0|SiteId=130||Off|851900000|1|8|Srch");
  EXPECT_EQ(shown(buildSiteFrequencyLine("TFQ,851.900000,,", 130, 6, false)),
            "T-Freq|TFreqId=0|SiteId=130||Off|851900000|6|Srch|Srch");
  for (const auto& [code, field] :
       {std::pair{"RAN=5", "RAN=5"}, std::pair{"7", "RAN=7"}, std::pair{"Area=1", "Area=1"}}) {
    EXPECT_EQ(shown(buildSiteFrequencyLine(std::string("TFQ,451.937500,3,,") + code, 2, 1, true)),
              "T-Freq|TFreqId=0|SiteId=2||Off|451937500|3|" + std::string(field) + "|" + field);
  }
}

TEST(GroupBuilders, DepartmentLinesWithTheirIds) {
  BuildContext c;
  EXPECT_EQ(
      shown(buildGroupLine("GIN,C-Group,CGroupId=69578,183,Fire,Off,37.7,-121.9,25.0,Circle,,",
                           false, 44, "183", c)),
      "C-Group|CGroupId=44|AgencyId=183|Fire|Off|37.7|-121.9|25.0|Circle||Global");
  EXPECT_EQ(shown(buildGroupLine("TIN,T-Group,,,,On,,,,Circle,1", true, 9, "2", c)),
            "T-Group|TGroupId=9|TrunkId=2|Group|On|0.000000|-0.000000|0.0|Circle|1");
  c.level = HpdLevel::V2;
  EXPECT_EQ(
      shown(buildGroupLine("GIN,C-Group,,,Fire,Off,1,2,3,Circle,Off,Local", false, 4, "2", c)),
      "C-Group|CGroupId=4|AgencyId=2|Fire|Off|1|2|3|Circle");
}

TEST(UnitIdBuilders, LeadingIAndDefaults) {
  BuildContext c;
  EXPECT_EQ(shown(buildUnitIdLine("UID,i1872000,,12,16,Pink,Odd", c)),
            "UnitIds|||No Tag|1872000|Off|Auto|Off|On");
  EXPECT_EQ(shown(buildUnitIdLine("UID,42,Medic,3,5,Blue,Slow Blink", c)),
            "UnitIds|||Medic|42|3|5|Blue|Slow Blink");
  c.level = HpdLevel::V2;
  EXPECT_EQ(shown(buildUnitIdLine("UID,42,Medic,3,5,Blue,Slow Blink", c)),
            "UnitIds|||Medic|42|3|5");
}

}  // namespace
}  // namespace zel::formats
