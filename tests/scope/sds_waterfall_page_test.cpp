// The SDS waterfall page: band labels from the scanner's texts, frames taken or held, the
// running mean over the chosen depth, the strongest bin, and the pointer's frequency.
#include "scope/sds_waterfall_page.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace zel::scope {
namespace {

std::string frame(const std::vector<int>& levels) {
  std::string out = "GWF";
  for (int v : levels) out += "," + std::to_string(v);
  return out;
}

SdsWaterfallBand twoMetres() {
  return SdsWaterfallBand::fromStatus(" 144.000000MHz; 148.000000MHz;12.5kHz",
                                      " 146.000000MHz;4.000000MHz;NFM", " 146.000000MHz;2");
}

TEST(SdsWaterfallBand, CutsTheMegahertzTailFromEveryLabel) {
  const SdsWaterfallBand b = twoMetres();
  EXPECT_EQ(b.lower, "144.0000");
  EXPECT_EQ(b.center, "146.0000");
  EXPECT_EQ(b.upper, "148.0000");
  EXPECT_EQ(b.span, "4.0000");
  EXPECT_EQ(b.step, "12.5kHz");
  EXPECT_EQ(b.mod, "NFM");
  EXPECT_EQ(b.mf, "146.0000");
  EXPECT_EQ(b.gain, "2");
  EXPECT_EQ(b.lowUnits(), 1440000);
  EXPECT_EQ(b.highUnits(), 1480000);
}

TEST(SdsWaterfallBand, WorksOutCentreAndSpanWhenTheScannerLeftThemOut) {
  const SdsWaterfallBand b =
      SdsWaterfallBand::fromStatus(" 156.000000MHz; 162.000000MHz;25kHz", "", "");
  EXPECT_EQ(b.center, "159.0000");
  EXPECT_EQ(b.span, "6.0000");
  EXPECT_EQ(b.mod, "");
  EXPECT_EQ(b.mf, "");
}

TEST(SdsWaterfallBand, UnknownBandHasNoEdges) {
  const SdsWaterfallBand b = SdsWaterfallBand::fromStatus("", "", "");
  EXPECT_EQ(b.lowUnits(), 0);
  EXPECT_EQ(b.highUnits(), 0);
  EXPECT_EQ(b.center, "");
}

TEST(MaskedMhz, KeepsTwoDigitsBeforeTheMarkAndFourAfter) {
  EXPECT_EQ(maskedMhz(5.1), "05.1000");
  EXPECT_EQ(maskedMhz(146.52), "146.5200");
  EXPECT_EQ(maskedMhz(0), "00.0000");
  EXPECT_EQ(maskedMhz(1299.99995), "1300.0000");
}

TEST(SdsWaterfallPage, TakesTheLevelsOfAFrame) {
  SdsWaterfallPage page;
  ASSERT_TRUE(page.receive(frame({10, 20, 900, 30}) + "\r"));
  EXPECT_EQ(page.lastFrame(), (std::vector<double>{10, 20, 900, 30}));
  EXPECT_EQ(page.bins(), 4);
  EXPECT_EQ(page.maxBin(), 2);
  EXPECT_DOUBLE_EQ(page.maxLevel(), 900);
  // The traces are 1-based for the graph and the waterfall.
  EXPECT_DOUBLE_EQ(page.traces().rows[2][3], 900);
  EXPECT_DOUBLE_EQ(page.traces().rows[0][1], 10);
  EXPECT_EQ(page.waterfall().rows(), 1);
  EXPECT_EQ(page.waterfall().level(0, 3), 225);  // 900 / 4
}

TEST(SdsWaterfallPage, AReplyReadWithTheFrameIsNoPartOfIt) {
  SdsWaterfallPage page;
  ASSERT_TRUE(page.receive("GWF,5,6,7\rKEY,OK"));
  EXPECT_EQ(page.lastFrame(), (std::vector<double>{5, 6, 7}));
}

TEST(SdsWaterfallPage, RefusesOtherLinesAndEmptyFrames) {
  SdsWaterfallPage page;
  EXPECT_FALSE(page.receive("GLG,01460000,NFM"));
  EXPECT_FALSE(page.receive("GWF"));
  EXPECT_FALSE(page.receive(""));
  EXPECT_EQ(page.frames(), 0);
  EXPECT_EQ(page.maxBin(), -1);
  EXPECT_EQ(page.maxSignalText(), "Max signal:");
}

TEST(SdsWaterfallPage, HoldSpectrumKeepsTheTraceAsItWas) {
  SdsWaterfallPage page;
  page.receive(frame({100, 200}));
  page.holdSpectrum = true;
  EXPECT_FALSE(page.receive(frame({999, 999})));
  EXPECT_EQ(page.lastFrame(), (std::vector<double>{100, 200}));
  EXPECT_EQ(page.waterfall().rows(), 1);
  page.holdSpectrum = false;
  EXPECT_TRUE(page.receive(frame({999, 999})));
  EXPECT_EQ(page.waterfall().rows(), 2);
}

TEST(SdsWaterfallPage, MeansOverTheChosenDepthOfRecentFrames) {
  SdsWaterfallPage page;
  page.setDepth(3);
  page.receive(frame({0, 300}));
  EXPECT_DOUBLE_EQ(page.smoothed()[1], 300);  // one frame so far: its own value
  page.receive(frame({30, 600}));
  EXPECT_DOUBLE_EQ(page.smoothed()[1], 450);
  page.receive(frame({60, 0}));
  EXPECT_DOUBLE_EQ(page.smoothed()[0], 30);
  EXPECT_DOUBLE_EQ(page.smoothed()[1], 300);
  page.receive(frame({90, 0}));  // the first frame falls out of a depth of three
  EXPECT_DOUBLE_EQ(page.smoothed()[0], 60);
  EXPECT_DOUBLE_EQ(page.smoothed()[1], 200);
  // A smaller depth takes effect at once on the frames held.
  page.setDepth(1);
  EXPECT_DOUBLE_EQ(page.smoothed()[0], 90);
  EXPECT_DOUBLE_EQ(page.smoothed()[1], 0);
  EXPECT_EQ(page.maxBin(), 0);
}

TEST(SdsWaterfallPage, DepthStaysBetweenOneAndFive) {
  SdsWaterfallPage page;
  page.setDepth(9);
  EXPECT_EQ(page.depth(), 5);
  page.setDepth(0);
  EXPECT_EQ(page.depth(), 1);
  page.setDepth(5);
  for (int i = 0; i < 7; ++i) page.receive(frame({i * 100}));
  // The last five of 0..600: 200, 300, 400, 500, 600.
  EXPECT_DOUBLE_EQ(page.smoothed()[0], 400);
}

TEST(SdsWaterfallPage, AFrameOfAnotherWidthStartsTheMeanAfresh) {
  SdsWaterfallPage page;
  page.setDepth(5);
  page.receive(frame({500, 500, 500}));
  page.receive(frame({100, 200}));
  EXPECT_EQ(page.smoothed(), (std::vector<double>{100, 200}));
  EXPECT_EQ(page.waterfall().steps(), 2);
}

TEST(SdsWaterfallPage, LevelsAreHeldToTheScannersRange) {
  SdsWaterfallPage page;
  page.receive("GWF,-5,\"77\",5000,abc");
  EXPECT_EQ(page.lastFrame(), (std::vector<double>{0, 77, 1023, 0}));
}

TEST(SdsWaterfallPage, MaxSignalNamesTheBinAndItsFrequency) {
  SdsWaterfallPage page;
  page.setBand(twoMetres());
  std::vector<int> levels(250, 40);
  levels[125] = 700;
  page.receive(frame(levels));
  EXPECT_EQ(page.maxBin(), 125);
  // Bin 125 of 250 over 144..148 MHz has its middle at 144 + 4 * 125.5 / 250.
  EXPECT_EQ(page.maxSignalText(), "Max signal: 700 at bin 126 (146.0080 MHz)");
}

TEST(SdsWaterfallPage, PointerShowsTheFrequencyUnderThePixel) {
  SdsWaterfallPage page;
  EXPECT_EQ(page.pointerText(10, 100), "");  // no band yet
  page.setBand(twoMetres());
  EXPECT_EQ(page.pointerText(0, 400), "Pointer= 144.0000");
  EXPECT_EQ(page.pointerText(200, 400), "Pointer= 146.0000");
  EXPECT_EQ(page.pointerText(100, 400), "Pointer= 145.0000");
}

}  // namespace
}  // namespace zel::scope
