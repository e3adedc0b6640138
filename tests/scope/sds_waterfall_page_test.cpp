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

// The labels and the edges of a band, as one line.
std::string labels(const SdsWaterfallBand& b) {
  return b.lower + "|" + b.center + "|" + b.upper + "|" + b.span + "|" + b.step + "|" + b.mod +
         "|" + b.mf + "|" + b.gain + "|" + std::to_string(b.lowUnits()) + "-" +
         std::to_string(b.highUnits());
}

SdsWaterfallBand twoMetres() {
  return SdsWaterfallBand::fromStatus(" 144.000000MHz; 148.000000MHz;12.5kHz",
                                      " 146.000000MHz;4.000000MHz;NFM", " 146.000000MHz;2");
}

TEST(SdsWaterfallBand, CutsTheMegahertzTailFromEveryLabel) {
  EXPECT_EQ(labels(twoMetres()),
            "144.0000|146.0000|148.0000|4.0000|12.5kHz|NFM|146.0000|2|1440000-1480000");
}

TEST(SdsWaterfallBand, WorksOutCentreAndSpanWhenTheScannerLeftThemOut) {
  EXPECT_EQ(labels(SdsWaterfallBand::fromStatus(" 156.000000MHz; 162.000000MHz;25kHz", "", "")),
            "156.0000|159.0000|162.0000|6.0000|25kHz||||1560000-1620000");
}

TEST(SdsWaterfallBand, UnknownBandHasNoEdges) {
  EXPECT_EQ(labels(SdsWaterfallBand::fromStatus("", "", "")), "||||||||0-0");
}

TEST(MaskedMhz, KeepsTwoDigitsBeforeTheMarkAndFourAfter) {
  for (const auto& [mhz, text] : {std::pair{5.1, "05.1000"},
                                  {146.52, "146.5200"},
                                  {0.0, "00.0000"},
                                  {1299.99995, "1300.0000"}})
    EXPECT_EQ(maskedMhz(mhz), text) << mhz;
}

TEST(SdsWaterfallPage, TakesTheLevelsOfAFrame) {
  SdsWaterfallPage page;
  ASSERT_TRUE(page.receive(frame({10, 20, 900, 30}) + "\r"));
  EXPECT_EQ(page.lastFrame(), (std::vector<double>{10, 20, 900, 30}));
  // The traces are 1-based for the graph and the waterfall; 225 is 900 / 4.
  EXPECT_EQ(std::make_tuple(page.bins(), page.maxBin(), page.maxLevel(), page.traces().rows[2][3],
                            page.traces().rows[0][1], page.waterfall().rows(),
                            page.waterfall().level(0, 3)),
            std::make_tuple(4, 2, 900.0, 900.0, 10.0, 1, 225));
}

TEST(SdsWaterfallPage, AReplyReadWithTheFrameIsNoPartOfIt) {
  SdsWaterfallPage page;
  ASSERT_TRUE(page.receive("GWF,5,6,7\rKEY,OK"));
  EXPECT_EQ(page.lastFrame(), (std::vector<double>{5, 6, 7}));
}

TEST(SdsWaterfallPage, RefusesOtherLinesAndEmptyFrames) {
  SdsWaterfallPage page;
  for (const char* line : {"GLG,01460000,NFM", "GWF", ""}) EXPECT_FALSE(page.receive(line)) << line;
  EXPECT_EQ(std::make_tuple(page.frames(), page.maxBin(), page.maxSignalText()),
            std::make_tuple(0, -1, "Max signal:"));
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
  EXPECT_EQ(page.smoothed(), (std::vector<double>{30, 300}));
  page.receive(frame({90, 0}));  // the first frame falls out of a depth of three
  EXPECT_EQ(page.smoothed(), (std::vector<double>{60, 200}));
  page.setDepth(1);  // a smaller depth takes effect at once on the frames held
  EXPECT_EQ(page.smoothed(), (std::vector<double>{90, 0}));
  EXPECT_EQ(page.maxBin(), 0);
}

TEST(SdsWaterfallPage, DepthStaysBetweenOneAndFive) {
  SdsWaterfallPage page;
  page.setDepth(9);
  const int high = page.depth();
  page.setDepth(0);
  EXPECT_EQ(std::make_pair(high, page.depth()), std::make_pair(5, 1));
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
  EXPECT_EQ(page.pointerText(0, 400) + "|" + page.pointerText(200, 400) + "|" +
                page.pointerText(100, 400),
            "Pointer= 144.0000|Pointer= 146.0000|Pointer= 145.0000");
}

}  // namespace
}  // namespace zel::scope
