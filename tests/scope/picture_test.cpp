#include <gtest/gtest.h>
#include <zlib.h>

#include <filesystem>
#include <fstream>
#include <iterator>

#include "scope/waterfall.h"
#include "test_folder.h"

namespace zel::scope {
namespace {

constexpr Rgb kYellow{255, 255, 0}, kBlack{0, 0, 0};

// The picture as text: '#' where the colour is `ink`, '.' elsewhere.
std::vector<std::string> inked(const Raster& p, Rgb ink) {
  std::vector<std::string> rows(p.height, std::string(p.width, '.'));
  for (int y = 0; y < p.height; ++y)
    for (int x = 0; x < p.width; ++x)
      if (p.at(x, y) == ink) rows[y][x] = '#';
  return rows;
}

Traces oneRow(std::vector<double> values, int row = 0) {
  Traces t;
  t.rows[row] = std::move(values);
  return t;
}

TEST(ColourMap, EveryAnchorHoldsAndEachRampMovesOneChannelByAboutFour) {
  const std::vector<std::pair<int, Rgb>> anchors = {
      {0, {0, 0, 255}},     {1, {0, 0, 255}},     {64, {0, 247, 255}},
      {65, {0, 255, 251}},  {128, {0, 255, 4}},   {129, {4, 255, 0}},
      {192, {251, 255, 0}}, {193, {255, 251, 0}}, {255, {255, 4, 0}}};
  const auto& map = colourMap();
  for (const auto& [i, colour] : anchors) EXPECT_EQ(map[i], colour) << "entry " << i;
  for (const auto& [first, last] :
       std::vector<std::pair<int, int>>{{1, 64}, {65, 128}, {129, 192}, {193, 255}}) {
    for (int i = first + 1; i <= last; ++i) {
      const int steps[3] = {map[i].r - map[i - 1].r, map[i].g - map[i - 1].g,
                            map[i].b - map[i - 1].b};
      int moving = 0;
      for (int d : steps) {
        if (d == 0) continue;
        ++moving;
        EXPECT_TRUE(std::abs(d) >= 3 && std::abs(d) <= 5) << "entry " << i << " step " << d;
      }
      EXPECT_EQ(moving, 1) << "entry " << i;
    }
  }
}

TEST(DrawLine, LinesAreEightConnectedAndClippedToThePicture) {
  struct Case {
    int x0, y0, x1, y1;
    std::vector<std::string> picture;
  };
  const std::vector<Case> cases = {
      {0, 0, 3, 0, {"####", "....", "....", "...."}},
      {3, 3, 0, 0, {"#...", ".#..", "..#.", "...#"}},
      {0, 0, 1, 3, {"#...", "#...", ".#..", ".#.."}},
      {-5, 2, 9, 2, {"....", "....", "####", "...."}},
      {2, -100000000, 2, 100000000, {"..#.", "..#.", "..#.", "..#."}},
      {-3, -3, -1, 5, {"....", "....", "....", "...."}},
  };
  for (const auto& c : cases) {
    Raster p(4, 4);
    drawLine(p, c.x0, c.y0, c.x1, c.y1, kYellow);
    EXPECT_EQ(inked(p, kYellow), c.picture) << c.x0 << "," << c.y0 << " " << c.x1 << "," << c.y1;
  }
}

TEST(LineGraph, PointsAndValuesConvertToPixels) {
  LineGraph g;
  const std::vector<double> pixels = {g.pointToPixelX(512, 800), g.pointToPixelX(1024, 800),
                                      g.valueToPixelY(0, 400), g.valueToPixelY(1024, 400),
                                      g.valueToPixelY(256, 1000)};
  EXPECT_EQ(pixels, (std::vector<double>{400, 800, 400, 0, 750}));
  g.XPoints = 250;
  EXPECT_DOUBLE_EQ(g.pointToPixelX(125, 1000), 500);
}

// Eight points on 16 x 8: sx = 2 (stride 1), y = 8 - value / 128. The smoothed values are
// 640, 384, 384, 384, 640, 640, 640, 384: rows 3 and 5, joined by diagonals.
TEST(LineGraph, PlotsTheSmoothedTraceWithItsStride) {
  LineGraph g;
  g.XPoints = 8;
  g.drawGrid = false;
  Raster p(16, 8, {9, 9, 9});
  g.Plot(p, oneRow({640, 128, 384, 640, 896, 384, 640, 128}), 0b0001);
  const std::vector<std::string> expected = {
      "................", "................", "................", "##......######..",
      ".#.....#.....#..", "..######......##", "................", "................"};
  EXPECT_EQ(inked(p, g.traceColours[0]), expected);
  std::vector<std::string> rest = expected;  // everything else is the cleared background
  for (auto& row : rest)
    for (char& c : row) c = c == '#' ? '.' : '#';
  EXPECT_EQ(inked(p, kBlack), rest);
}

TEST(LineGraph, GridFrameCursorAndChosenRows) {
  LineGraph g;
  g.XPoints = 8;
  g.gridColumns = 4;
  g.gridRows = 2;
  Traces t;
  for (auto& row : t.rows) row.assign(8, 0);
  t.rows[1].assign(8, 512);  // row 4
  t.rows[3].assign(8, 768);  // row 2
  t.rows[0].assign(8, 896);  // row 1, not chosen
  Raster p(16, 8);
  g.Plot(p, t, 0b1010, 3);
  EXPECT_EQ(inked(p, g.gridColour),
            (std::vector<std::string>{"######.#########", "#...#...#...#..#", "................",
                                      "#...#...#...#..#", "................", "#...#...#...#..#",
                                      "#...#...#...#..#", "######.#########"}));
  EXPECT_EQ(inked(p, g.traceColours[1])[4], "######.#########");
  EXPECT_EQ(inked(p, g.traceColours[3])[2], "######.#########");
  EXPECT_EQ(inked(p, g.cursorColour), std::vector<std::string>(8, "......#........."));
  EXPECT_EQ(inked(p, g.traceColours[0]), std::vector<std::string>(8, "................"));
}

TEST(LineGraph, StrideIsTheWholePixelsOfAPointLessOne) {
  struct Case {
    int width;
    std::string row;
  };
  // A flat trace at 512 on row 4 of a picture 8 high.
  for (const Case& c : std::vector<Case>{{4, "####"},
                                         {16, "################"},
                                         {20, "###################."},
                                         {24, "########################"}}) {
    LineGraph g;
    g.XPoints = 8;
    g.drawGrid = false;
    Raster p(c.width, 8);
    g.Plot(p, oneRow(std::vector<double>(8, 512)), 1);
    EXPECT_EQ(inked(p, g.traceColours[0])[4], c.row) << "width " << c.width;
  }
}

TEST(LineGraph, AScaleOfZeroDrawsAsOne) {
  const Traces t = oneRow({100, 300, 500, 200, 900, 50, 700, 400, 250, 600});
  auto plot = [&](double scale) {
    LineGraph g;
    g.XPoints = 10;
    g.scale = scale;
    Raster p(40, 30);
    g.Plot(p, t, 1);
    return p.pixels;
  };
  EXPECT_EQ(plot(0), plot(1));
  EXPECT_NE(plot(2), plot(1));
  LineGraph g;
  g.XPoints = 4;
  g.scale = 2;
  g.drawGrid = false;
  Raster p(8, 8);
  g.Plot(p, oneRow({256, 256, 256, 256}), 1);  // 256 x 2 is half height
  EXPECT_EQ(inked(p, g.traceColours[0])[4], "########");
}

TEST(LineGraph, AWildValueIsClippedNotDrawnOffThePicture) {
  LineGraph g;
  g.XPoints = 4;
  g.drawGrid = false;
  Raster p(8, 8);
  g.Plot(p, oneRow({512, 1e15, std::nan(""), 512, 512}), 1);
  EXPECT_NE(inked(p, g.traceColours[0])[0], "........");
  EXPECT_EQ(p.pixels.size(), 64u);
}

std::vector<std::uint8_t> readAll(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

std::uint32_t be32(const std::vector<std::uint8_t>& b, std::size_t at) {
  return std::uint32_t{b[at]} << 24 | std::uint32_t{b[at + 1]} << 16 | b[at + 2] << 8 | b[at + 3];
}

std::uint32_t le32(const std::vector<std::uint8_t>& b, std::size_t at) {
  return b[at] | b[at + 1] << 8 | b[at + 2] << 16 | std::uint32_t{b[at + 3]} << 24;
}

// The PNG check sum worked bit by bit, apart from the writer's.
std::uint32_t crcOf(const std::uint8_t* data, std::size_t n) {
  std::uint32_t c = 0xFFFFFFFFu;
  for (std::size_t i = 0; i < n; ++i) {
    c ^= data[i];
    for (int k = 0; k < 8; ++k) c = (c >> 1) ^ (0xEDB88320u & (0u - (c & 1u)));
  }
  return ~c;
}

// 5 x 3: five bytes of row padding in a BMP row of 15, and every pixel different.
Raster sample() {
  Raster p(5, 3);
  for (int y = 0; y < 3; ++y)
    for (int x = 0; x < 5; ++x)
      p.at(x, y) = {static_cast<std::uint8_t>(10 * x + 1), static_cast<std::uint8_t>(50 * y + 2),
                    static_cast<std::uint8_t>(x * y + 3)};
  return p;
}

TEST(PictureFiles, BmpIsBottomUpWithPaddedRowsAndReadsBack) {
  TestFolder folder;
  const std::string path = folder.file("Waterfall/w.bmp");
  const Raster p = sample();
  ASSERT_TRUE(writeBmp(p, path));
  const auto b = readAll(path);
  ASSERT_EQ(b.size(), 54u + 16 * 3);
  EXPECT_EQ((std::vector<std::uint32_t>{b[0], b[1], le32(b, 2), le32(b, 10), le32(b, 18),
                                        le32(b, 22), b[28]}),
            (std::vector<std::uint32_t>{'B', 'M', 54 + 16 * 3, 54, 5, 3, 24}));
  const Rgb bottomLeft = p.at(0, 2);
  EXPECT_EQ((std::vector<int>{b[54], b[55], b[56], b[69]}),
            (std::vector<int>{bottomLeft.b, bottomLeft.g, bottomLeft.r, 0}));
  Raster back;
  ASSERT_TRUE(readBmp(path, back));
  EXPECT_TRUE(back.width == 5 && back.pixels == p.pixels);
  EXPECT_FALSE(std::filesystem::exists(path + ".tmp"));
}

TEST(PictureFiles, ReadBmpRefusesWhatItCannotShow) {
  TestFolder folder;
  ASSERT_TRUE(writeBmp(sample(), folder.file("a.bmp")));
  auto b = readAll(folder.file("a.bmp"));
  b[28] = 32;
  std::ofstream(folder.file("b.bmp"), std::ios::binary)
      .write(reinterpret_cast<const char*>(b.data()), static_cast<std::streamsize>(b.size()));
  b[28] = 24;
  b.resize(80);
  std::ofstream(folder.file("c.bmp"), std::ios::binary)
      .write(reinterpret_cast<const char*>(b.data()), static_cast<std::streamsize>(b.size()));
  Raster r;
  for (const char* name : {"b.bmp", "c.bmp", "missing.bmp"})
    EXPECT_FALSE(readBmp(folder.file(name), r)) << name;
  EXPECT_FALSE(writeBmp(Raster(0, 4), folder.file("d.bmp")));
  EXPECT_FALSE(writePng(Raster(4, 0), folder.file("d.png")));
}

TEST(PictureFiles, PngChunksCarryTheirCheckSumsAndTheRowsInflateBack) {
  TestFolder folder;
  const Raster p = sample();
  ASSERT_TRUE(writePng(p, folder.file("w.png")));
  const auto b = readAll(folder.file("w.png"));
  const std::vector<std::uint8_t> signature = {0x89, 'P', 'N', 'G', 13, 10, 26, 10};
  ASSERT_GT(b.size(), 8u);
  EXPECT_TRUE(std::equal(signature.begin(), signature.end(), b.begin()));
  std::vector<std::string> types;
  std::vector<std::uint8_t> header, packed;
  for (std::size_t at = 8; at + 12 <= b.size();) {
    const std::uint32_t n = be32(b, at);
    ASSERT_LE(at + 12 + n, b.size());
    const std::string type(b.begin() + at + 4, b.begin() + at + 8);
    types.push_back(type);
    EXPECT_EQ(be32(b, at + 8 + n), crcOf(&b[at + 4], n + 4)) << type;
    std::vector<std::uint8_t>& into = type == "IHDR" ? header : packed;
    if (type != "IEND") into.insert(into.end(), b.begin() + at + 8, b.begin() + at + 8 + n);
    at += 12 + n;
  }
  EXPECT_EQ(types, (std::vector<std::string>{"IHDR", "IDAT", "IEND"}));
  ASSERT_EQ(header.size(), 13u);
  EXPECT_EQ(std::make_pair(be32(header, 0), be32(header, 4)), std::make_pair(5u, 3u));
  EXPECT_EQ((std::vector<int>(header.begin() + 8, header.end())),
            (std::vector<int>{8, 2, 0, 0, 0}));
  std::vector<std::uint8_t> raw(3 * 16 + 1);
  uLongf size = raw.size();
  ASSERT_EQ(uncompress(raw.data(), &size, packed.data(), packed.size()), Z_OK);
  ASSERT_EQ(size, 3u * 16);
  for (int y = 0; y < 3; ++y) {
    EXPECT_EQ(raw[y * 16], 0) << "filter of row " << y;
    for (int x = 0; x < 5; ++x) {
      const std::uint8_t* px = &raw[y * 16 + 1 + 3 * x];
      EXPECT_EQ((Rgb{px[0], px[1], px[2]}), p.at(x, y)) << x << "," << y;
    }
  }
}

}  // namespace
}  // namespace zel::scope
