// The text rules of the import at their edges, where the whole imports of the conventional,
// trunked and real-data tests do not reach: the name rule with its options, filter_sp, the
// tone forms, and the options as the settings keep them. Expected texts are worked out from
// the rules by hand.
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

TEST(ImportName, FollowsTheNameRule) {
  struct Case {
    const char* label;
    std::string alpha, descr;
    bool shortAlpha, removeSpaces, keepShort, upper;
    std::string expected;
  };
  const std::vector<Case> cases = {
      {"empty alpha takes descr", "", "Fire Dispatch", true, false, false, false, "Fire Dispatch"},
      {"short alpha takes the alpha", "HC Fire", "Fire", true, false, false, false, "HC Fire"},
      {"descr wins over alpha", "HC Fire", "Fire Dispatch", false, false, false, false,
       "Fire Dispatch"},
      {"an empty descr stays empty", "HC Fire", "", false, false, false, false, ""},
      {"blanks go, then the cut at 64", "", kLong, false, true, true, false,
       std::string(16, 'a') + std::string(17, 'b') + std::string(17, 'c') + std::string(14, 'd')},
      {"blanks kept: cut at 64", "", kLong, false, false, true, false, kLong.substr(0, 64)},
      {"within the limit blanks stay", "", "Fire Dispatch Main 2", false, true, false, false,
       "Fire Dispatch Main 2"},
      {"short alpha keeps its blanks", kLong, "x", true, true, false, false, kLong.substr(0, 64)},
      {"upper case after the filter", "", "Fire &amp; EMS, Main", false, false, false, true,
       "FIRE & EMS; MAIN"},
  };
  for (const Case& c : cases) {
    ImportOptions o;
    o.shortAlpha = c.shortAlpha;
    o.removeSpaces = c.removeSpaces;
    o.keepShortTags = c.keepShort;
    o.upperCase = c.upper;
    EXPECT_EQ(importName(c.alpha, c.descr, o), c.expected) << c.label;
  }
  ImportOptions o;
  EXPECT_EQ(importSystemName(std::string(70, 'x'), o), std::string(64, 'x'));
  o.removeSpaces = true;
  EXPECT_EQ(importSystemName("Harbor  County \"North\"", o), "HarborCounty'North'");
}

TEST(FilterSp, ReplacesThenRemovesInOrder) {
  const std::vector<std::pair<std::string, std::string>> cases = {
      {"Fire &amp; Rescue", "Fire & Rescue"},
      {"&quot;Main&quot;", "'Main'"},
      {"&amp;quot;", "'"},  // "&amp;" first makes "&quot;", which then becomes "'"
      {"a,b,c", "a;b;c"},
      {"\"Guard\"", "'Guard'"},
      {"Montr\xE9" "al", "Montral"},  // Latin-1 letters go
      {"a\tb\x01\x0B\x0D\x0E\x1F" "c", "abc"},
      {"a\nb", "a\nb"},  // the line feed is not among the removed codes
      {"Ch. 12 (A-B) #3", "Ch. 12 (A-B) #3"},
  };
  for (const auto& [in, out] : cases) EXPECT_EQ(filter_sp(in), out) << in;
}

// The tone forms no whole import shows; the rest (CSQ, PL, DPL, NAC, "1 CC", RAN) are in the
// builder's rows.
TEST(ToneAndMode, FormsAtTheEdges) {
  struct Case {
    std::string tone, mode, colorCode, kind, columns;  // the grid's tone columns
  };
  const std::vector<Case> cases = {
      {"", "1", "", "", "All,Search"},
      {"3 DMR", "1", "", "DMR", "DMR,Search"},  // a DMR tone names no colour code
      {"131.8 PL", "6", "2", "DMR", "DMR,2"},   // mode 6 wins over the tone
      {"05 RAN", "7", "", "RAN", "RAN,5"},
      {"CSQ 100.0 PL", "1", "", "CTCSS", "CTCSS,C100.0"},  // A to F stay with the digits
  };
  for (const Case& c : cases) {
    const ToneKind tone = toneAndMode(c.tone, c.mode);
    EXPECT_EQ(tone.kind, c.kind) << c.tone;
    const ChannelLines lines = channelLines("155.475000", "SO", tone, c.colorCode, "Ham", {});
    EXPECT_EQ(lines.grid, "155.475000,SO,Off,AUTO," + c.columns + ",Ham,Off,2,0,Off,Auto")
        << c.tone;
  }
  // The record line leaves a search's tone columns empty.
  EXPECT_EQ(channelLines("155.475000", "SO", toneAndMode("CSQ", "1"), "", "Ham", {}).record,
            "FRQ,155.475000,SO,Off,AUTO,,,Ham,Off,2,0,Off,Auto");
}

TEST(ImportOptions, DefaultsAndAnEmptyStore) {
  const ImportOptions d = ImportOptions::defaults();
  // 29 single entries of the tag table, 208 to 215 and 216, 217.
  ASSERT_EQ(d.serviceTags.size(), 39u);
  EXPECT_EQ(std::vector<int>(d.serviceTags.begin(), d.serviceTags.begin() + 5),
            (std::vector<int>{1, 2, 3, 4, 6}));
  EXPECT_EQ(std::make_pair(d.serviceTags[28], d.serviceTags.back()), std::make_pair(37, 217));
  for (bool on : d.talkgroupFilter) EXPECT_TRUE(on);
  EXPECT_FALSE(d.removeSpaces || d.shortAlpha || d.serviceFilter || d.qkeysConventional ||
               d.lockoutEncrypted || d.ccAll);
  EXPECT_TRUE(d.updatedDays == 0 && d.leds.empty());

  MemorySettingsStore empty;
  const ImportOptions loaded = ImportOptions::load(Settings(empty));
  EXPECT_EQ(loaded.serviceTags, d.serviceTags);
  EXPECT_EQ(loaded.talkgroupFilter, d.talkgroupFilter);
  EXPECT_FALSE(loaded.removeSpaces || loaded.qkeysConventional || !loaded.leds.empty());
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
      {"useroptc1", "0x"},        {"useroptc4", "1x"},
      {"useroptc8", "1x"},        {"useroptc11", "1x"},
      {"useroptc12", "30x"},      {"user_opt_qk_", "1x"},
      {"ignore_mode3", "1x"},     {"ignore_mode1", "0x"},
      {"servicefilter", "1x"},    {"service", "2;3x"},
      {"tfilter", "101010x"},     {"ccalt", "1x"},
      {"ccpri", "0x"},            {"ledenabled", "1;0x"},
      {"ledtag", "Law Dispatch;Hamx"}, {"ledcolor", "Red;Bluex"},
      {"ledpattern", "Slow Blink;Onx"}, {"untag_conv", "21x"},
      {"untag_trunk", "2x"},      {"imp_gps_site", "0x"},
  };
  for (const auto& [key, value] : stored) {
    std::string raw;
    ASSERT_TRUE(store.read("rrimport", key, raw)) << key;
    EXPECT_EQ(raw, value) << key;
  }

  const ImportOptions back = ImportOptions::load(settings);
  EXPECT_TRUE(back.shortAlpha && back.skipTelemetry && back.edacsAfs && back.qkeysConventional);
  EXPECT_FALSE(back.removeSpaces || back.upperCase || back.qkeysTrunk);
  EXPECT_TRUE(back.ignoreMode[2] && !back.ignoreMode[0]);
  EXPECT_EQ(back.serviceTags, (std::vector<int>{2, 3}));
  EXPECT_EQ(back.talkgroupFilter, o.talkgroupFilter);
  ASSERT_EQ(back.leds.size(), 2u);
  EXPECT_EQ(std::tie(back.leds[0].enabled, back.leds[0].pattern, back.leds[1].enabled,
                     back.leds[1].service),
            std::make_tuple(true, "Slow Blink", false, "Ham"));
  EXPECT_EQ(std::tie(back.updatedDays, back.untaggedConventional, back.untaggedTrunk),
            std::make_tuple(30, 21, 2));

  // An empty tag list stays empty rather than falling back to every tag.
  o.serviceTags.clear();
  o.save(settings);
  EXPECT_TRUE(ImportOptions::load(settings).serviceTags.empty());
}

}  // namespace
}  // namespace zel::radioref
