// The text rules of the import: the name rule with its options, filter_sp, the tone and mode
// of a row with its record line and grid row, the department line, the Led columns, and the
// options as the settings keep them. Expected texts are worked out from the rules by hand.
#include "radioref/rr_import_text.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "core/memory_ports.h"
#include "radioref/rr_import.h"

namespace zel::radioref {
namespace {

// A 70-character description: words of 16, 17, 17 and 17 letters with three blanks.
const std::string kLong = std::string(16, 'a') + " " + std::string(17, 'b') + " " +
                          std::string(17, 'c') + " " + std::string(17, 'd');

struct NameCase {
  const char* label;
  std::string alpha;
  std::string descr;
  bool shortAlpha, removeSpaces, keepShort, upper;
  std::string expected;
};

TEST(ImportName, FollowsTheNameRule) {
  const std::vector<NameCase> cases = {
      {"empty alpha takes descr with short alpha", "", "Fire Dispatch", true, false, false, false,
       "Fire Dispatch"},
      {"short alpha takes the alpha", "HC Fire", "Fire Dispatch", true, false, false, false,
       "HC Fire"},
      {"without short alpha descr wins over alpha", "HC Fire", "Fire Dispatch", false, false, false,
       false, "Fire Dispatch"},
      {"without short alpha an empty descr stays empty", "HC Fire", "", false, false, false, false,
       ""},
      {"70 characters: blanks go, then the cut at 64", "", kLong, false, true, true, false,
       std::string(16, 'a') + std::string(17, 'b') + std::string(17, 'c') + std::string(14, 'd')},
      {"70 characters without removing spaces: cut at 64", "", kLong, false, false, true, false,
       std::string(16, 'a') + " " + std::string(17, 'b') + " " + std::string(17, 'c') + " " +
           std::string(11, 'd')},
      {"a text within the limit keeps its blanks", "", "Fire Dispatch Main 2", false, true, false,
       false, "Fire Dispatch Main 2"},
      {"with short alpha the blanks are not removed", kLong, "x", true, true, false, false,
       kLong.substr(0, 64)},
      {"upper case after the filter", "", "Fire &amp; EMS, Main", false, false, false, true,
       "FIRE & EMS; MAIN"},
      {"a comma arrives as a semicolon", "Police, Downtown", "d", true, false, false, false,
       "Police; Downtown"},
  };
  for (const NameCase& c : cases) {
    SCOPED_TRACE(c.label);
    ImportOptions o;
    o.shortAlpha = c.shortAlpha;
    o.removeSpaces = c.removeSpaces;
    o.keepShortTags = c.keepShort;
    o.upperCase = c.upper;
    EXPECT_EQ(importName(c.alpha, c.descr, o), c.expected);
  }
}

TEST(FilterSp, ReplacesThenRemovesInOrder) {
  const std::vector<std::pair<std::string, std::string>> cases = {
      {"Fire &amp; Rescue", "Fire & Rescue"},
      {"&quot;Main&quot;", "'Main'"},
      {"&amp;quot;", "'"},  // "&amp;" first makes "&quot;", which then becomes "'"
      {"a,b,c", "a;b;c"},
      {"\"Guard\"", "'Guard'"},
      {"Montr\xE9"
       "al",
       "Montral"},
      {"a\tb\x01\x0B\x0D\x0E\x1F"
       "c",
       "abc"},
      {"a\nb", "a\nb"},  // the line feed is not among the removed codes
      {"Ch. 12 (A-B) #3", "Ch. 12 (A-B) #3"},
  };
  for (const auto& [in, out] : cases) EXPECT_EQ(filter_sp(in), out) << in;
}

struct ToneCase {
  std::string tone, mode, colorCode;
  std::string kind;
  std::string record;  // from the frequency on
  std::string grid;
};

TEST(ToneAndMode, GivesKindValueRecordAndGridRow) {
  const std::string head = "155.475000,SO Disp,Off,AUTO,";
  const std::string tail = ",Law Dispatch,Off,2,0,Off,Auto";
  const std::vector<ToneCase> cases = {
      {"CSQ", "1", "", "SEARCH", head + "," + tail, head + "All,Search" + tail},
      {"", "1", "", "", head + "," + tail, head + "All,Search" + tail},
      {"123.0 PL", "1", "", "CTCSS", head + "CTCSS,123.0" + tail, head + "CTCSS,123.0" + tail},
      {"023 DPL", "1", "", "DCS", head + "DCS,023" + tail, head + "DCS,023" + tail},
      {"293 NAC", "4", "", "P25", head + "P25,293" + tail, head + "P25,293" + tail},
      {"1 CC", "6", "1", "DMR", head + "DMR,1" + tail, head + "DMR,1" + tail},
      {"3 DMR", "1", "", "DMR", head + "DMR,Search" + tail, head + "DMR,Search" + tail},
      {"", "6", "", "DMR", head + "DMR,Search" + tail, head + "DMR,Search" + tail},
      {"131.8 PL", "6", "2", "DMR", head + "DMR,2" + tail, head + "DMR,2" + tail},
      {"05 RAN", "7", "", "RAN", head + "RAN,5" + tail, head + "RAN,5" + tail},
      // Letters A to F stay with the digits: the "C" of "CSQ" is kept.
      {"CSQ 100.0 PL", "1", "", "CTCSS", head + "CTCSS,C100.0" + tail,
       head + "CTCSS,C100.0" + tail},
  };
  for (const ToneCase& c : cases) {
    SCOPED_TRACE(c.tone + " / mode " + c.mode);
    const ToneKind tone = toneAndMode(c.tone, c.mode);
    EXPECT_EQ(tone.kind, c.kind);
    const ChannelLines lines =
        channelLines("155.475000", "SO Disp", tone, c.colorCode, "Law Dispatch", {});
    EXPECT_EQ(lines.record, "FRQ," + c.record);
    EXPECT_EQ(lines.grid, c.grid);
  }
}

TEST(ChannelLines, LedColumnsAndLockoutGoIntoTheGridRow) {
  const std::vector<LedRule> leds = {
      {true, "Law Dispatch", "Red", "Slow Blink"},
      {false, "Law Dispatch", "Blue", "On"},
      {true, "Fire Dispatch", "Green", "On"},
  };
  EXPECT_EQ(ledColumns("Law Dispatch", leds), ",Red,Slow Blink");
  EXPECT_EQ(ledColumns("Fire Dispatch", leds), ",Green,On");
  EXPECT_EQ(ledColumns("Ham", leds), "");
  const ChannelLines lines =
      channelLines("154.130000", "Fire", toneAndMode("CSQ", "1"), "", "Fire Dispatch", leds, true);
  EXPECT_EQ(lines.grid,
            "154.130000,Fire,On,AUTO,All,Search,Fire Dispatch,Off,2,0,Off,Auto,Green,On");
  EXPECT_EQ(lines.record, "FRQ,154.130000,Fire,On,AUTO,,,Fire Dispatch,Off,2,0,Off,Auto");
}

TEST(DepartmentRecord, LocationAndQuickKey) {
  const std::string head = "GIN,C-Group,CGroupId=0,AgencyId=0,Sheriff,Off,";
  const std::string none = "0.000000,-00.000000,0.0";
  const std::vector<std::pair<std::string, std::string>> places = {
      {"41.5,-90.51,15", "41.5,-90.51,15"}, {"0,0,0", none}, {",,", none}, {"", none}};
  for (const auto& [gps, location] : places) {
    EXPECT_EQ(conventionalDepartmentRecord("Sheriff", gps, ""), head + location + ",Circle,")
        << gps;
  }
  EXPECT_EQ(conventionalDepartmentRecord("Sheriff", "0,0,0", "99"), head + none + ",Circle,99");

  ImportOptions on;
  on.qkeysConventional = true;
  const std::vector<std::pair<int, std::string>> keysOn = {
      {1, "1"}, {98, "98"}, {99, "99"}, {120, "99"}, {399, "99"}};
  for (const auto& [number, key] : keysOn) EXPECT_EQ(departmentQuickKey(number, on), key);
  EXPECT_EQ(departmentQuickKey(5, ImportOptions{}), "");
}

TEST(ImportSystemName, CutFilteredAndSpacesRemoved) {
  ImportOptions o;
  EXPECT_EQ(importSystemName("Harbor, County", o), "Harbor; County");
  EXPECT_EQ(importSystemName(std::string(70, 'x'), o), std::string(64, 'x'));
  o.removeSpaces = true;
  EXPECT_EQ(importSystemName("Harbor  County \"North\"", o), "HarborCounty'North'");
}

TEST(ImportOptions, DefaultsHaveEveryTagAndTypeOnAndAnEmptyStoreGivesThem) {
  const ImportOptions d = ImportOptions::defaults();
  // 29 single entries of the tag table, 208 to 215 and 216, 217.
  ASSERT_EQ(d.serviceTags.size(), 39u);
  EXPECT_EQ(d.serviceTags.front(), 1);
  EXPECT_EQ(d.serviceTags[4], 6);
  EXPECT_EQ(d.serviceTags[28], 37);
  EXPECT_EQ(d.serviceTags.back(), 217);
  for (bool on : d.talkgroupFilter) EXPECT_TRUE(on);
  EXPECT_FALSE(d.removeSpaces || d.shortAlpha || d.serviceFilter || d.qkeysConventional ||
               d.lockoutEncrypted || d.ccAll);
  EXPECT_EQ(d.updatedDays, 0);
  EXPECT_TRUE(d.leds.empty());

  MemorySettingsStore empty;
  const ImportOptions loaded = ImportOptions::load(Settings(empty));
  EXPECT_EQ(loaded.serviceTags, d.serviceTags);
  EXPECT_EQ(loaded.talkgroupFilter, d.talkgroupFilter);
  EXPECT_FALSE(loaded.removeSpaces || loaded.qkeysConventional);
  EXPECT_TRUE(loaded.leds.empty());
}

TEST(ImportOptions, SaveWritesTheKeysAndLoadReadsThemBack) {
  ImportOptions o = ImportOptions::defaults();
  o.shortAlpha = true;
  o.skipTelemetry = true;
  o.edacsAfs = true;
  o.qkeysConventional = true;
  o.ignoreMode[2] = true;
  o.serviceFilter = true;
  o.serviceTags = {2, 3};
  o.talkgroupFilter = {true, false, true, false, true, false};
  o.updatedDays = 30;
  o.ccAlternate = true;
  o.leds = {{true, "Law Dispatch", "Red", "Slow Blink"}, {false, "Ham", "Blue", "On"}};
  o.untaggedConventional = 21;
  o.untaggedTrunk = 2;
  MemorySettingsStore store;
  Settings settings(store);
  o.save(settings);

  const std::vector<std::pair<std::string, std::string>> stored = {
      {"useroptc1", "0x"},
      {"useroptc4", "1x"},
      {"useroptc8", "1x"},
      {"useroptc11", "1x"},
      {"useroptc12", "30x"},
      {"user_opt_qk_", "1x"},
      {"ignore_mode3", "1x"},
      {"ignore_mode1", "0x"},
      {"servicefilter", "1x"},
      {"service", "2;3x"},
      {"tfilter", "101010x"},
      {"ccalt", "1x"},
      {"ccpri", "0x"},
      {"ledenabled", "1;0x"},
      {"ledtag", "Law Dispatch;Hamx"},
      {"ledcolor", "Red;Bluex"},
      {"ledpattern", "Slow Blink;Onx"},
      {"untag_conv", "21x"},
      {"untag_trunk", "2x"},
      {"imp_gps_site", "0x"},
  };
  for (const auto& [key, value] : stored) {
    std::string raw;
    ASSERT_TRUE(store.read("rrimport", key, raw)) << key;
    EXPECT_EQ(raw, value) << key;
  }

  const ImportOptions back = ImportOptions::load(settings);
  EXPECT_TRUE(back.shortAlpha && back.skipTelemetry && back.edacsAfs && back.qkeysConventional);
  EXPECT_FALSE(back.removeSpaces || back.upperCase || back.qkeysTrunk);
  EXPECT_TRUE(back.ignoreMode[2]);
  EXPECT_FALSE(back.ignoreMode[0]);
  EXPECT_EQ(back.serviceTags, (std::vector<int>{2, 3}));
  EXPECT_EQ(back.talkgroupFilter, o.talkgroupFilter);
  EXPECT_EQ(back.updatedDays, 30);
  ASSERT_EQ(back.leds.size(), 2u);
  EXPECT_TRUE(back.leds[0].enabled);
  EXPECT_EQ(back.leds[0].pattern, "Slow Blink");
  EXPECT_FALSE(back.leds[1].enabled);
  EXPECT_EQ(back.leds[1].service, "Ham");
  EXPECT_EQ(back.untaggedConventional, 21);
  EXPECT_EQ(back.untaggedTrunk, 2);
}

TEST(ImportOptions, AnEmptyTagListStaysEmpty) {
  ImportOptions o = ImportOptions::defaults();
  o.serviceTags.clear();
  MemorySettingsStore store;
  Settings settings(store);
  o.save(settings);
  EXPECT_TRUE(ImportOptions::load(settings).serviceTags.empty());
}

}  // namespace
}  // namespace zel::radioref
