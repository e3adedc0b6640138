#include "scope/waterfall.h"

#include <gtest/gtest.h>

#include <cmath>

namespace zel::scope {
namespace {

// Row 2 of the traces for bins 1..n (element 0 is no bin).
Traces filtered(const std::vector<double>& bins) {
  Traces t;
  t.resize(bins.size() + 1);
  for (std::size_t i = 0; i < bins.size(); ++i) t.rows[2][i + 1] = bins[i];
  return t;
}

TEST(Waterfall, WithoutStepsNothingIsPaintedAndTheUserIsTold) {
  Waterfall w;
  EXPECT_FALSE(w.Paint(filtered({400, 400})));
  EXPECT_EQ(w.message(), "set discrete steps!");
  EXPECT_FALSE(w.Initialize(0));
  EXPECT_EQ(w.message(), "set discrete steps");
  EXPECT_FALSE(w.Paint(filtered({400, 400})));
  EXPECT_EQ(std::make_tuple(w.rows(), w.bytes(), w.render(100).pixels.size()),
            std::make_tuple(0, std::size_t{0}, std::size_t{0}));
  EXPECT_TRUE(w.Initialize(2));
  EXPECT_TRUE(w.Paint(filtered({400, 400})));
  EXPECT_EQ(w.message(), "");
}

TEST(Waterfall, LevelIsTheWholeValueOverFourWithinAByte) {
  const std::vector<std::pair<double, int>> cases = {
      {0, 0},        {3.99, 0},   {4, 1},      {7.99, 1}, {100.7, 25}, {1020, 255},
      {1023.9, 255}, {1024, 255}, {5000, 255}, {-4, 0},   {-0.5, 0},   {std::nan(""), 0}};
  std::vector<double> bins;
  for (const auto& c : cases) bins.push_back(c.first);
  Waterfall w;
  w.Initialize(static_cast<int>(bins.size()));
  ASSERT_TRUE(w.Paint(filtered(bins)));
  for (std::size_t i = 0; i < cases.size(); ++i)
    EXPECT_EQ(w.level(0, static_cast<int>(i) + 1), cases[i].second) << "value " << cases[i].first;
}

TEST(Waterfall, BinsAreOneBasedAndATraceTooShortLeavesZeros) {
  Waterfall w;
  w.Initialize(4);
  Traces t;
  t.rows[2] = {800, 40, 80};  // element 0 is no bin; bins 3 and 4 are missing
  ASSERT_TRUE(w.Paint(t));
  EXPECT_EQ((std::vector<int>{w.level(0, 1), w.level(0, 2), w.level(0, 3), w.level(0, 4)}),
            (std::vector<int>{10, 20, 0, 0}));
}

// Eight sweeps of eight bins on 16 x 8: sweep k has bin k at the top level, the rest at 0.
// The newest sweep is the top row, so the red runs from the top right to the bottom left.
TEST(Waterfall, RendersTheNewestSweepOnTop) {
  Waterfall w;
  w.Initialize(8);
  for (int k = 1; k <= 8; ++k) {
    std::vector<double> bins(8, 0);
    bins[k - 1] = 1020;
    w.Paint(filtered(bins));
  }
  const Raster p = w.render(16);
  ASSERT_EQ(p.height, 8);
  const Rgb red = colourMap()[255], blue = colourMap()[0];
  std::vector<std::string> seen(8, std::string(16, '?'));
  for (int y = 0; y < 8; ++y)
    for (int x = 0; x < 16; ++x)
      seen[y][x] = p.at(x, y) == red ? 'r' : p.at(x, y) == blue ? 'b' : '?';
  EXPECT_EQ(seen,
            (std::vector<std::string>{"bbbbbbbbbbbbbbrr", "bbbbbbbbbbbbrrbb", "bbbbbbbbbbrrbbbb",
                                      "bbbbbbbbrrbbbbbb", "bbbbbbrrbbbbbbbb", "bbbbrrbbbbbbbbbb",
                                      "bbrrbbbbbbbbbbbb", "rrbbbbbbbbbbbbbb"}));
  EXPECT_EQ(w.render(16, 3).height, 3);
  EXPECT_EQ(w.render(16, 3).pixels, std::vector<Rgb>(p.pixels.begin(), p.pixels.begin() + 48));
}

TEST(Waterfall, EachBinSpansItsShareOfTheWidthWithTheGapFilled) {
  struct Case {
    int width;
    std::string bins;  // the bin shown in each column
  };
  const std::vector<Case> cases = {{16, "1122334455667788"},
                                   {12, "122344566788"},
                                   {20, "11222334445566677888"},
                                   {4, "2468"},
                                   {1, "8"}};
  Waterfall w;
  w.Initialize(8);
  w.Paint(filtered({40, 240, 440, 640, 840, 920, 960, 1000}));
  for (const Case& c : cases) {
    const Raster p = w.render(c.width);
    std::string shown;
    for (int x = 0; x < p.width; ++x)
      for (int bin = 1; bin <= 8; ++bin)
        if (p.at(x, 0) == colourMap()[w.level(0, bin)]) shown += static_cast<char>('0' + bin);
    EXPECT_EQ(shown, c.bins) << "width " << c.width;
  }
}

TEST(Waterfall, HistoryStopsAtEightyThousandSweepsDroppingTheOldest) {
  Waterfall w;
  w.Initialize(250);
  ASSERT_EQ(w.maxRows(), 80000);
  Traces t = filtered(std::vector<double>(250, 0));
  for (int k = 0; k < 80005; ++k) {
    t.rows[2][1] = (k % 256) * 4;
    t.rows[2][2] = (k / 256 % 256) * 4;
    w.Paint(t);
  }
  EXPECT_EQ(std::make_pair(w.rows(), w.bytes()), std::make_pair(80000, std::size_t{80000} * 250));
  auto sweepAt = [&](int row) { return w.level(row, 1) + 256 * w.level(row, 2); };
  EXPECT_EQ(std::make_tuple(sweepAt(0), sweepAt(79999), w.level(80000, 1)),
            std::make_tuple(80004 % 65536, 5, 0));
}

TEST(Waterfall, TheMemoryBudgetCapsWideSweeps) {
  const std::vector<std::pair<int, int>> cases = {
      {10, 80000}, {838, 80000}, {839, 79986}, {1000, 67108}, {3200, 20971}};
  for (const auto& [steps, rows] : cases) {
    Waterfall w;
    w.Initialize(steps);
    EXPECT_EQ(w.maxRows(), rows) << steps << " steps";
  }
  Waterfall w;
  w.Initialize(3200);
  Traces t = filtered(std::vector<double>(3200, 500));
  for (int k = 0; k < 20973; ++k) {
    t.rows[2][3200] = k % 2 ? 1020 : 0;
    w.Paint(t);
  }
  EXPECT_LE(w.bytes(), Waterfall::kMaxBytes);  // row 0 is sweep 20972
  EXPECT_EQ(std::make_tuple(w.rows(), w.level(0, 3200), w.level(1, 3200)),
            std::make_tuple(20971, 0, 255));
  w.clear();
  EXPECT_EQ(std::make_pair(w.bytes(), w.rows()), std::make_pair(std::size_t{0}, 0));
}

TEST(WaterfallFileName, SeparatorsBecomeThoseAFileNameMayHold) {
  struct Case {
    std::string date, time, prefix, name;
  };
  const std::vector<Case> cases = {
      {"2026-11-24", "16:05:03", "Waterfall_", "Waterfall/Waterfall_2026-11-24_16;05;03.bmp"},
      {"24/11/2026", "4:05:03 PM", "Waterfall_", "Waterfall/Waterfall_24-11-2026_4;05;03_PM.bmp"},
      {"24.11.2026", "16.05.03", "waterfall_saved_",
       "Waterfall/waterfall_saved_24-11-2026_16;05;03.bmp"},
  };
  for (const Case& c : cases) EXPECT_EQ(waterfallFileName(c.date, c.time, c.prefix), c.name);
  EXPECT_EQ(waterfallFileName("2026-11-24", "16:05:03"),
            "Waterfall/Waterfall_2026-11-24_16;05;03.bmp");
}

TEST(Marker, PixelToFrequencyAcrossTheSpan) {
  struct Case {
    int x, width;
    double mhz;
  };
  for (const Case& c : std::vector<Case>{{0, 800, 144.0},
                                         {200, 800, 145.0},
                                         {400, 800, 146.0},
                                         {800, 800, 148.0},
                                         {1, 3200, 144.00125},
                                         {50, 0, 144.0}})
    EXPECT_NEAR(markerFrequency(c.x, c.width, 1440000, 1480000), c.mhz, 1e-9)
        << c.x << " of " << c.width;
}

}  // namespace
}  // namespace zel::scope
