#include "formats/hpd_line_readers.h"

#include <gtest/gtest.h>

#include "core/record_line.h"

namespace zel::formats {
namespace {

TEST(ToneField, TakenApartInOrder) {
  struct Case {
    const char* field;
    const char* mode;
    const char* code;
  };
  const Case cases[] = {
      {"", "All", "Search"},           {"TONE=C146.2", "CTCSS", "146.2"},
      {"TONE=D023", "DCS", "023"},     {"TONE=Srch", "CTCSS", "Search"},
      {"NAC=293", "P25", "293"},       {"NAC=Srch", "P25", "Search"},
      {"ColorCode=3", "DMR", "3"},     {"ColorCode=Srch", "DMR", "Search"},
      {"RAN=5", "RAN", "5"},           {"RAN=Srch", "RAN", "Search"},
      {"RAN=Search", "RAN", "Search"}, {"Area=1", "IDAS", "1"},
      {"CommonId=12", "dPMR", "12"},   {"junk", "", ""},
  };
  for (const Case& c : cases) {
    ToneCells t = toneFromFile(c.field);
    EXPECT_EQ(t.mode, c.mode) << c.field;
    EXPECT_EQ(t.code, c.code) << c.field;
  }
}

TEST(ServiceText, KnownNumbersNameTheTypeOthersTakeTheFallback) {
  struct Case {
    const char* number;
    const char* fallback;
    const char* text;
  };
  const Case cases[] = {
      {"3", "", "Fire Dispatch"},     {"37", "", "Corrections"},
      {"208", "", "Custom 1"},        {"217", "", "Racing Teams"},
      {"0", "", "NOT DEFINED"},       {"5", "", "NOT DEFINED"},  // unassigned number
      {"38", "Custom 3", "Custom 3"}, {"207", "", "NOT DEFINED"},
      {"218", "Other", "Other"},      {"", "", "NOT DEFINED"},
  };
  for (const Case& c : cases) EXPECT_EQ(serviceTextFromFile(c.number, c.fallback), c.text);
}

TEST(SystemLines, ConventionalIsRebuiltWithTheFileNumberInField23) {
  LineReaders r(HpdLevel::V3, true, 7);
  SystemRecord s =
      r.conventional("Conventional,,,Federal,Off,,Conventional,Off,Off,0,Off,On,400,Auto,8");
  // Only the switches the writer turns back into words become digits; the rest keep their text.
  EXPECT_EQ(s.text,
            "SIN,Conventional,,,Federal,0,,Conventional,,,,,,None,Off,0,,,0,1,400,Auto,8,007");
  EXPECT_EQ(s.name, "Federal");
  EXPECT_EQ(s.kind.type, 0);
  // A number tag is kept and the id words dropped.
  LineReaders one(HpdLevel::V3, true, 1);
  s = one.conventional("Conventional,CountyId=183,StateId=6,Alameda,Off,,Conventional,12,,,,,,,,");
  EXPECT_EQ(s.text.substr(0, 45), "SIN,Conventional,183,StateId=6,Alameda,0,,Con");
  EXPECT_EQ(record::field(s.text, 13), "12");
  EXPECT_EQ(record::field(s.text, 23), "001");
}

TEST(SystemLines, TrunkFieldsLandWhereTheWriterLooksForThem) {
  LineReaders r(HpdLevel::V3, true, 3);
  SystemRecord s = r.trunk(
      "Trunk,TrunkId=77,,Name,On,,Motorola,On,Off,Auto,Yes,Srch,5,None,0,On,Off,"
      "Analog+Digital,On,Off,On");
  EXPECT_EQ(s.text,
            "SIN,Motorola,77,,Name,1,,Motorola,1,Off,Auto,1,Search,5,None,0,1,Analog and Digital,1,"
            "0,,,,003");
  EXPECT_EQ(s.kind.type, 1);
}

TEST(SystemLines, TrunkLabelsFollowTheTypeWord) {
  LineReaders r(HpdLevel::V3, true, 1);
  EXPECT_EQ(r.trunk("Trunk,,,A,Off,,P25X2_TDMA").text.substr(0, 16), "SIN,P25 X2 TDMA,");
  EXPECT_EQ(r.trunk("Trunk,,,A,Off,,Edacs").text.substr(0, 22), "SIN,Edacs Narrow/Wide,");
  SystemRecord n = r.trunk("Trunk,,,A,Off,,NxdnOneFrequency");
  EXPECT_TRUE(n.kind.nxdn);
  EXPECT_EQ(n.kind.type, 11);
  EXPECT_EQ(record::field(n.text, 13), "None");  // an empty number tag
  // A name that reads like a switch stays as written.
  EXPECT_EQ(r.trunk("Trunk,,,On,Off,,Motorola").name, "On");
  EXPECT_EQ(r.conventional("Conventional,,,Off,Off,,Conventional").name, "Off");
}

TEST(SystemLines, LevelOneTrunkIsCompletedAndNotRebuiltOutsideTheFamilyMode) {
  LineReaders r(HpdLevel::V1, false, 1);
  EXPECT_EQ(r.trunk("Trunk,,,Old,Off,,Motorola").text,
            "SIN,Motorola,,,Old,0,,Motorola,0,Off,Auto,0,Search");
}

TEST(SiteLines, WordsOfTheFileBecomeTheWordsOfTheRecord) {
  LineReaders r(HpdLevel::V3, true, 1);
  EXPECT_EQ(r.site("Site,SiteId=5,TrunkId=2,Wide,Off,41.4,-81.7,19.1,AUTO,Custom,Wide,Circle,Off,"
                   "400,Auto,8,Off"),
            "SIT,Site,SiteId=5,TrunkId=2,Wide,Off,41.4,-81.7,19.1,AUTO,Custom/Rebanded,"
            "Wide(standard),Circle,0,400,Auto,8,Off");
  EXPECT_EQ(r.site("Site,,,S,Off,1,2,3,FM,Sprinter,Narrow,Rectangles,On"),
            "SIT,Site,,,S,Off,1,2,3,FM,Splinter,Narrow,Rectangles,1");
  LineReaders old(HpdLevel::V1, false, 0);
  EXPECT_EQ(old.site("Site,,,Old,Off,1,2,3,FM,Standard,Wide"),
            "SIT,Site,,,Old,Off,1,2,3,FM,Standard,Wide(standard),Circle,0");
}

TEST(BandPlanLines, FourGroupsInRecordUnitsAndHexFleetMaps) {
  LineReaders r(HpdLevel::V3, true, 1);
  EXPECT_EQ(r.bandPlan("BandPlan_Mot,SiteId=9,851025000,854000000,25000,440,851012500,868987500,"
                       "25000,0,0,0,25000,0,0,0,6250,0,1,1,1,1,2,2,2,2"),
            "MCP,type,851.0250,854.0000,25.0,440,851.0125,868.9875,25.0,0,0.0000,0.0000,25.0,0,"
            "0.0000,0.0000,6.25,0");
  // Fleet map blocks are hexadecimal, with search words.
  EXPECT_EQ(r.fleetMap("FleetMap,TrunkId=1,4,c,SRCH,noneerr,E,0,10,zz"), "FMP,4,12,,,14,0,16,0");
}

TEST(SiteFrequencyLines, ColourCodeOrRan) {
  LineReaders r(HpdLevel::V3, true, 1);
  EXPECT_EQ(r.siteFrequency("T-Freq,TFreqId=0,SiteId=1,,Off,851900000,1,8", false),
            "TFQ,851.900000,1,8");
  EXPECT_EQ(r.siteFrequency("T-Freq,,,,Off,851900000,2", false), "TFQ,851.900000,2,Srch");
  EXPECT_EQ(r.siteFrequency("T-Freq,,,,Off,451937500,3,RAN=Srch,RAN=Srch", false),
            "TFQ,451.937500,3,Srch");
  EXPECT_EQ(r.siteFrequency("T-Freq,,,,Off,451937500,3,RAN=5,RAN=5", true),
            "TFQ,451.937500,3,,RAN=5");
}

TEST(UnitIdLines, AlertColourAndPatternOnlyInTheFamilyMode) {
  LineReaders x36(HpdLevel::V3, true, 1);
  EXPECT_EQ(x36.unitId("UnitIds,,,Station 1,1872000,Off,Auto,Red,On"),
            "UID,1872000,Station 1,Off,Auto,Red,On");
  LineReaders hp(HpdLevel::V2, false, 1);
  EXPECT_EQ(hp.unitId("UnitIds,,,Station 1,1872000,Off,Auto,Red,On"),
            "UID,1872000,Station 1,Off,Auto");
}

TEST(TalkgroupRows, AudioWordsAndSlot) {
  LineReaders r(HpdLevel::V3, true, 1);
  EXPECT_EQ(
      r.talkgroupRow(
          1, "TGID,Tid=1,TGroupId=2,Disp,Off,56421,ANALOG,3,2,0,Off,Auto,Red,On,Off,Off,Srch", ""),
      "1,56421,Disp,Off,Analog,Fire Dispatch,2,0,Off,Auto,Red,On,Off,Off,Any");
  EXPECT_EQ(r.talkgroupRow(2, "TGID,,,D,Off,5,DIGITAL,99,,,,,,,,,2", "test"),
            "2,5,D,Off,Digital,test,,,,,,,,,2");
  LineReaders old(HpdLevel::V1, false, 0);
  EXPECT_EQ(old.talkgroupRow(4, "TGID,,,D,Off,5,ALL,2", ""),
            "4,5,D,Off,All,Law Dispatch,2,0,Off,Auto");
}

}  // namespace
}  // namespace zel::formats
