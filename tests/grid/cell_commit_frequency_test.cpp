// The frequency rule, the offset and the step, case by case: the documented examples and
// cases worked out by hand from the steps, in every region and family, under both marks.
#include "grid/cell_commit_frequency.h"

#include <gtest/gtest.h>

#include "core/memory_ports.h"
#include "core/settings.h"

namespace zel::cell {
namespace {

FrequencyRules rules(Region region = Region::US, ScannerFamily family = ScannerFamily::BCD,
                     bool airband = false) {
  FrequencyRules r;
  r.region = region;
  r.family = family;
  r.airband = airband;
  return r;
}

struct FrequencyCase {
  const char* typed;
  Region region;
  ScannerFamily family;
  bool airband;
  const char* stored;
  const char* why;
};

constexpr auto US = Region::US;
constexpr auto EU = Region::Europe;
constexpr auto AU = Region::Australia;
constexpr auto BCD = ScannerFamily::BCD;
constexpr auto HP = ScannerFamily::HP;

const FrequencyCase kCases[] = {
    // The documented examples.
    {"154", US, BCD, false, "154.000000", "whole MHz"},
    {"154.1625", US, BCD, false, "154.162500", "four decimals kept"},
    {"154.16", US, BCD, false, "154.160000", "two decimals"},
    {"118.005", US, BCD, true, "118.000000", "airband channel name 118.005"},
    {"118.005", US, BCD, false, "118.005000", "no airband option"},
    {"146.0031", US, BCD, false, "146.003125", "3.125 kHz tail"},
    {"151.123", US, BCD, false, "151.123000", "no rounding in the window"},
    {"155.123", US, BCD, false, "155.120000", "down to 5 kHz"},
    {"600", US, BCD, false, "512.000000", "UHF TV gap, US"},
    {"600", AU, BCD, false, "520.000000", "UHF TV gap, Australia"},
    {"88.5", US, BCD, false, "088.500000", "three integer digits"},
    {"154.16125", US, BCD, false, "154.161250", "fifth decimal cut, tail completes"},
    {"130.130", US, BCD, true, "1250.125000", "both 130 rewritten: 1250.125 is in no gap"},
    {"130.130", EU, HP, true, "960.000000", "both 130 rewritten, HP clamps above 960"},
    // Airband channel names worked out from the rewrite table.
    {"118.010", US, BCD, true, "118.008300", "8.33 channel 010"},
    {"118.015", US, BCD, true, "118.016600", "8.33 channel 015"},
    {"122.135", US, BCD, true, "122.133300", "8.33 channel 135"},
    {"121.5", US, BCD, true, "121.500000", "e 00 is no channel name"},
    {"125.025", US, BCD, true, "125.025000", "e 25 is no channel name"},
    {"118.010", US, BCD, false, "118.010000", "without the option"},
    {"130.130", US, BCD, false, "130.130000", "without the option"},
    {"135.010", US, BCD, true, "135.010000", "135 is outside the airband"},
    // Tails, inside the window where nothing is rounded: each pair completes as typed.
    {"152.0025", US, BCD, false, "152.002500", "25 -> 00"},
    {"152.0031", US, BCD, false, "152.003125", "31 -> 25"},
    {"152.0056", US, BCD, false, "152.005625", "56 -> 25"},
    {"152.0062", US, BCD, false, "152.006250", "62 -> 50"},
    {"152.0093", US, BCD, false, "152.009375", "93 -> 75"},
    {"152.0087", US, BCD, false, "152.008750", "87 -> 50"},
    {"152.0018", US, BCD, false, "152.001875", "18 -> 75"},
    {"152.0081", US, BCD, false, "152.008125", "81 -> 25"},
    {"152.0043", US, BCD, false, "152.004375", "43 -> 75"},
    {"152.0068", US, BCD, false, "152.006875", "68 -> 75"},
    {"152.0012", US, BCD, false, "152.001250", "12 -> 50"},
    {"152.0006", US, BCD, false, "152.000625", "06 -> 25"},
    {"152.0037", US, BCD, false, "152.003750", "37 -> 50"},
    {"152.0044", US, BCD, false, "152.004400", "44 has no tail"},
    // The same tails outside the window: a tail on a raster stays, one off them rounds.
    {"460.0125", US, BCD, false, "460.012500", "6.25 kHz raster"},
    {"460.0062", US, BCD, false, "460.006250", "3.125 kHz raster"},
    {"460.0093", US, BCD, false, "460.009375", "3.125 kHz raster"},
    {"460.0087", US, BCD, false, "460.008750", "1.25 kHz raster"},
    {"460.0012", US, BCD, false, "460.001250", "1.25 kHz raster"},
    {"460.0037", US, BCD, false, "460.003750", "1.25 kHz raster"},
    {"460.0056", US, BCD, false, "460.005000", "5.625 kHz is on no raster"},
    {"460.0081", US, BCD, false, "460.005000", "8.125 kHz is on no raster"},
    {"460.0043", US, BCD, false, "460.000000", "4.375 kHz is on no raster"},
    {"460.0068", US, BCD, false, "460.005000", "6.875 kHz is on no raster"},
    {"460.0006", US, BCD, false, "460.000000", "0.625 kHz is on no raster"},
    {"460.0018", US, BCD, false, "460.000000", "1.875 kHz is on no raster"},
    {"162.0133", US, BCD, false, "162.013333", "33 -> 33, off-raster ending"},
    {"162.0083", US, BCD, false, "162.008333", "83 -> 33"},
    {"162.0016", US, BCD, false, "162.001666", "16 -> 66"},
    {"162.0066", US, BCD, false, "162.006666", "66 -> 66"},
    // Rounding and its window.
    {"155.1234", US, BCD, false, "155.120000", "off every raster"},
    {"851.0123", US, BCD, false, "851.010000", "off every raster, 800 band"},
    {"150.8099", US, BCD, false, "150.805000", "just below the window"},
    {"150.8101", US, BCD, false, "150.810100", "inside the window"},
    {"154.6299", US, BCD, false, "154.629900", "inside the window"},
    {"154.6301", US, BCD, false, "154.630000", "just above the window"},
    {"25.0001", US, BCD, false, "025.000000", "lowest band edge rounds"},
    // Band clamps, family BCD.
    {"10", US, BCD, false, "025.000000", "below 25"},
    {"24.99", EU, BCD, false, "025.000000", "below 25, Europe"},
    {"512.5", US, BCD, false, "512.000000", "in the UHF TV gap"},
    {"515", AU, BCD, false, "515.000000", "Australia keeps 512 to 520"},
    {"758", US, BCD, false, "758.000000", "the gap's upper edge stands"},
    {"830", US, BCD, false, "823.987500", "cellular gap, US"},
    {"830", EU, BCD, false, "830.000000", "no cellular gap in Europe"},
    {"870", US, BCD, false, "868.987500", "second cellular gap, US"},
    {"870", AU, BCD, false, "870.000000", "no cellular gap in Australia"},
    {"849", US, BCD, false, "849.000000", "edge stands"},
    {"1000", US, BCD, false, "960.000000", "960 to 1240 gap"},
    {"1000", EU, BCD, false, "960.000000", "960 to 1240 gap, Europe"},
    {"1240", US, BCD, false, "1240.000000", "23 cm band"},
    {"1500", US, BCD, false, "1300.000000", "above the top"},
    {"99999999999", AU, BCD, false, "1300.000000", "a very long number"},
    // Band clamps, family HP, whatever the region.
    {"20", EU, HP, false, "025.000000", "below 25"},
    {"60", US, HP, false, "053.995000", "VHF TV gap"},
    {"100", AU, HP, false, "053.995000", "FM broadcast gap"},
    {"108", US, HP, false, "108.000000", "edge stands"},
    {"600", AU, HP, false, "512.000000", "HP ignores the Australian 520"},
    {"830", EU, HP, false, "823.987500", "cellular gap in every region"},
    {"1240", US, HP, false, "960.000000", "above 960"},
    // Filtering and padding.
    {" 154.1625 MHz", US, BCD, false, "154.162500", "blanks and letters dropped"},
    {"00154.1625", US, BCD, false, "154.162500", "leading zeros"},
    {"-154.1625", US, BCD, false, "154.162500", "minus dropped"},
};

TEST(FrequencyRule, TableUnderBothDecimalMarks) {
  for (DecimalMark mark : {DecimalMark::point(), DecimalMark::comma()}) {
    for (const FrequencyCase& c : kCases) {
      FrequencyRules r = rules(c.region, c.family, c.airband);
      r.mark = mark;
      FrequencyResult result = normaliseFrequency(c.typed, r);
      EXPECT_EQ(result.text, c.stored) << c.typed << " (" << c.why << ") mark " << mark.sign();
      EXPECT_FALSE(result.beep) << c.typed;
      EXPECT_FALSE(result.failed) << c.typed;
    }
  }
}

// A comma is the decimal sign only where the system's decimal mark is a comma.
TEST(FrequencyRule, ACommaReadsByTheDecimalMark) {
  const struct {
    DecimalMark mark;
    const char* typed;
    const char* stored;
  } cases[] = {{DecimalMark::point(), "154,1625", "1300.000000"},
               {DecimalMark::comma(), "154,1625", "154.162500"},
               {DecimalMark::comma(), "851,0125", "851.012500"},
               {DecimalMark::comma(), "88,5", "088.500000"}};
  for (const auto& c : cases) {
    FrequencyRules r = rules(US, BCD, false);
    r.mark = c.mark;
    EXPECT_EQ(normaliseFrequency(c.typed, r).text, c.stored) << c.typed << " " << c.mark.sign();
  }
}

// Zero empties the cell with a beep, nothing left after the filter empties it quietly, and
// unreadable text fails so the cell keeps what it had.
TEST(FrequencyRule, ZeroNothingAndUnreadableText) {
  struct Case {
    const char* typed;
    bool beep;
    bool failed;
  };
  const Case cases[] = {
      {"0", true, false},     {".", true, false},         {"0000", true, false},
      {"0.0", true, false},   {"000.00000", true, false}, {"", false, false},
      {"abc", false, false},  {"MHz", false, false},      {"-,+", false, false},
      {"1.2.3", false, true}, {"15:4", false, true},      {"154..1", false, true}};
  for (const Case& c : cases) {
    FrequencyResult result = normaliseFrequency(c.typed, rules());
    if (!c.failed) EXPECT_EQ(result.text, "") << c.typed;
    EXPECT_EQ(result.beep, c.beep) << c.typed;
    EXPECT_EQ(result.failed, c.failed) << c.typed;
  }
}

TEST(FrequencyRule, OptionsComeFromTheSettings) {
  MemorySettingsStore store;
  Settings settings(store);
  settings.put("options", "optie10", "1");
  settings.put("options", "optie22", "2");
  FrequencyRules r = rulesFromSettings(settings, ScannerFamily::HP, DecimalMark::comma());
  EXPECT_TRUE(r.airband && r.mark.isComma() && r.family == ScannerFamily::HP);
  EXPECT_EQ(r.region, Region::Australia);
  settings.put("options", "optie22", "1");
  EXPECT_EQ(rulesFromSettings(settings, ScannerFamily::BCD).region, Region::Europe);
  settings.put("options", "optie22", "7");
  EXPECT_EQ(rulesFromSettings(settings, ScannerFamily::BCD).region, Region::US);
}

TEST(FixedForm, PadsAndCuts) {
  struct Case {
    const char* in;
    int width;
    const char* out;
  } cases[] = {
      {"154.16125", 8, "0154.1612"},  {"154", 8, "0154.0000"},     {"  088.5", 8, "0088.5000"},
      {".", 8, "0000.0000"},          {"12345.6", 8, "12345.600"}, {"154.1", 10, "0154.100000"},
      {"154.100050", 8, "0154.1000"}, {"", 8, "0000.0000"},
  };
  for (const Case& c : cases) EXPECT_EQ(padFixed(c.in, 5, c.width), c.out) << c.in;
  EXPECT_EQ(padFixed("154,1", 5, 8, ','), "0154,1000");
}

TEST(OffsetRule, SixDecimalsAndAWholePartUpTo159) {
  struct Case {
    const char* in;
    const char* out;
  } cases[] = {
      {"0.6", "0.600000"},     {"5", "5.000000"},      {"1.6", "1.600000"}, {"45", "045.000000"},
      {"159.9", "159.900000"}, {"160", "159.000000"},  {"0", "0.000000"},   {"", ""},
      {"-0.6", "0.600000"},    {"10.5", "010.500000"},
  };
  for (DecimalMark mark : {DecimalMark::point(), DecimalMark::comma()}) {
    for (const Case& c : cases) {
      auto out = normaliseOffset(c.in, mark);
      ASSERT_TRUE(out.has_value()) << c.in;
      EXPECT_EQ(*out, c.out) << c.in;
    }
  }
  EXPECT_FALSE(normaliseOffset("1.2.3", DecimalMark::point()).has_value());
}

TEST(StepRule, TypedInKilohertzOnAKnownRaster) {
  struct Case {
    const char* in;
    const char* out;
  } cases[] = {
      {"5", "5.000000"},         {"12.5", "12.500000"},
      {"6.25", "6.250000"},      {"8.33", "8.330000"},
      {"7.3", "5.000000"},       {"0.05", "2.500000"},
      {"0", "2.500000"},         {"150.5", "150.000000"},
      {"152.5", "152.500000"},   {"101.1", "100.000000"},
      {"108.329", "108.329000"}, {"108.33", "105.000000"},
      {"112.5", "112.500000"},   {"103.125", "103.125000"},
      {"123.4", "120.000000"},   {"", ""},
  };
  for (DecimalMark mark : {DecimalMark::point(), DecimalMark::comma()}) {
    for (const Case& c : cases) {
      auto out = normaliseStep(c.in, mark);
      ASSERT_TRUE(out.has_value()) << c.in;
      EXPECT_EQ(*out, c.out) << c.in;
    }
  }
}

}  // namespace
}  // namespace zel::cell
