#pragma once
// The bandscope's pictures as plain memory: the line graph of the traces and the waterfall.
// The waterfall keeps its history as one byte of level a bin per sweep, not as pixels, so that
// a day of sweeps stays small; a picture of any size is rendered from it.
//
//   colour map: 256 entries, blue (0,0,255) -> cyan (0,247,255)@64 -> green (0,255,4)@128
//               -> yellow (251,255,0)@192 -> red (255,4,0)@255
#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "scope/sweep_engine.h"

namespace zel::scope {

struct Rgb {
  std::uint8_t r = 0, g = 0, b = 0;
  bool operator==(const Rgb&) const = default;
};

// A picture: width x height RGB pixels, row 0 at the top.
struct Raster {
  int width = 0, height = 0;
  std::vector<Rgb> pixels;
  Raster() = default;
  Raster(int w, int h, Rgb fill = {});
  Rgb& at(int x, int y) { return pixels[static_cast<std::size_t>(y) * width + x]; }
  const Rgb& at(int x, int y) const { return pixels[static_cast<std::size_t>(y) * width + x]; }
};

// The 256 colours of the waterfall.
const std::array<Rgb, 256>& colourMap();

// The line graph: points 0..XPoints-1, values 0..1024 upward.
class LineGraph {
 public:
  int XPoints = 1024;
  int gridColumns = 10, gridRows = 10;
  double scale = 1.0;  // 0 draws as 1
  bool drawGrid = true;
  Rgb background{0, 0, 0}, gridColour{0, 64, 0};
  std::array<Rgb, 4> traceColours{{{255, 255, 0}, {0, 128, 255}, {0, 255, 0}, {255, 0, 0}}};

  double pointToPixelX(double point, int width) const;
  double valueToPixelY(double value, int height) const;
  // Draws `rows` of the traces (a bit mask of rows 0..3) with the smoothing and the stride.
  void Plot(Raster& picture, const Traces& traces, unsigned rows, int cursorBin = -1) const;
};

// The waterfall's history: one row of levels (0..255) a sweep, newest first.
class Waterfall {
 public:
  static constexpr int kMaxRows = 80000;
  // "set discrete steps" until the step count is set.
  void Initialize(int steps);
  int steps() const { return steps_; }
  // One sweep from row 2 of the traces: level Int(v) / 4 limited to 0..255. Returns false
  // (the message "set discrete steps!") when no step count is set.
  bool Paint(const Traces& traces);
  int rows() const { return static_cast<int>(levels_.size() / (steps_ ? steps_ : 1)); }
  std::uint8_t level(int row, int bin) const;
  void clear();
  // The picture: `width` pixels wide, one pixel a sweep (the newest at the top), each bin
  // drawn from (i-1)*dx to i*dx with the gap filled.
  Raster render(int width, int maxRows = kMaxRows) const;
  std::size_t bytes() const { return levels_.size(); }

 private:
  int steps_ = 0;
  std::vector<std::uint8_t> levels_;  // newest row first
};

// Pictures to files, written whole to a temporary name and renamed. False on failure.
bool writeBmp(const Raster& picture, const std::string& path);
bool writePng(const Raster& picture, const std::string& path);
// "\Waterfall\Waterfall_" + date and time with ":" "-" ";" "_" as separators + ".bmp".
std::string waterfallFileName(const std::string& date, const std::string& timeOfDay,
                              const std::string& prefix = "Waterfall_");

// The marker: the frequency (MHz) under pixel x of a picture w wide over the sweep.
double markerFrequency(int x, int width, std::int32_t lowFreq, std::int32_t highFreq);

}  // namespace zel::scope
