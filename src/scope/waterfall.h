#pragma once
// The bandscope's pictures as plain memory: the line graph of the traces and the waterfall.
// The waterfall keeps its history as one byte of level a bin per sweep, not as pixels, so that
// a day of sweeps stays small; a picture of any size is rendered from it.
//
//   colour map: 256 entries, blue (0,0,255) -> cyan (0,247,255)@64 -> green (0,255,4)@128
//               -> yellow (251,255,0)@192 -> red (255,4,0)@255
//
// Waterfall memory: the history holds at most kMaxRows sweeps and at most kMaxBytes of levels,
// whichever is less (rows = min(80000, 64 MiB / steps)); the oldest sweep goes first. At 3200
// bins that is 20971 sweeps (about 87 minutes at four sweeps a second) in 64 MiB; at 250 bins
// the full 80000 sweeps in 19.5 MB.
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
  bool contains(int x, int y) const { return x >= 0 && y >= 0 && x < width && y < height; }
};

// A straight line (Bresenham) from (x0,y0) to (x1,y1), both ends included; pixels outside the
// raster are left out.
void drawLine(Raster& picture, int x0, int y0, int x1, int y1, Rgb colour);

// The 256 colours of the waterfall.
const std::array<Rgb, 256>& colourMap();

// The line graph: points 0..XPoints-1, values 0..1024 upward.
//   x = p / XPoints * w, y = h - v / 1024 * h (floored to the pixel).
// Plot clears the picture, draws the grid (columns and rows, the frame at w-1 and h-1), then
// each chosen row of the traces in rows order 0..3: point 0 as it is, point 1 the mean of
// points 0 and 1, later points the mean of the last three; the values are multiplied by the
// scale (sy = h * scale / 1024). Consecutive points are joined by a line, and with sx = w /
// XPoints >= 1 each point also covers its stride, int(sx) - 1 pixels to its right, at its
// level. The cursor is a vertical line at the cursor bin.
class LineGraph {
 public:
  int XPoints = 1024;
  int gridColumns = 10, gridRows = 10;
  double scale = 1.0;  // 0 draws as 1
  bool drawGrid = true;
  Rgb background{0, 0, 0}, gridColour{0, 64, 0}, cursorColour{255, 255, 255};
  std::array<Rgb, 4> traceColours{{{255, 255, 0}, {0, 128, 255}, {0, 255, 0}, {255, 0, 0}}};

  double pointToPixelX(double point, int width) const;
  double valueToPixelY(double value, int height) const;
  // Draws `rows` of the traces (a bit mask of rows 0..3) with the smoothing and the stride.
  void Plot(Raster& picture, const Traces& traces, unsigned rows, int cursorBin = -1) const;
};

// The waterfall's history: one row of levels (0..255) a sweep, newest first. Bins are 1-based
// as in the traces: bin i (1..steps) is element i of a trace row.
class Waterfall {
 public:
  static constexpr int kMaxRows = 80000;
  static constexpr std::size_t kMaxBytes = std::size_t{64} << 20;
  static constexpr const char* kInitializeMessage = "set discrete steps";
  static constexpr const char* kPaintMessage = "set discrete steps!";
  // Sets the step count and empties the history. A count of 0 leaves the message
  // "set discrete steps" and returns false.
  bool Initialize(int steps);
  int steps() const { return steps_; }
  // One sweep from row 2 of the traces: level Int(v) / 4 limited to 0..255 (a bin the trace
  // does not reach is 0). Returns false and leaves the message "set discrete steps!", keeping
  // the history as it was, when no step count is set.
  bool Paint(const Traces& traces);
  // The last message for the user; empty when the last call went well.
  const std::string& message() const { return message_; }
  // Sweeps held, and the most the history holds for the step count.
  int rows() const { return count_; }
  int maxRows() const;
  // Level of bin 1..steps in row 0 (newest)..rows()-1; 0 outside.
  std::uint8_t level(int row, int bin) const;
  void clear();
  // The picture: `width` pixels wide, one pixel a sweep (the newest at the top) up to
  // maxRows sweeps, each bin drawn from (i-1)*dx to i*dx (dx = width / steps) with the gap
  // filled; where bins share a pixel the later bin shows.
  Raster render(int width, int maxRows = kMaxRows) const;
  std::size_t bytes() const { return levels_.size(); }

 private:
  const std::uint8_t* row(int r) const;
  int steps_ = 0;
  int count_ = 0;  // rows held
  int next_ = 0;   // slot the next sweep goes to once the history is full (the oldest)
  std::vector<std::uint8_t> levels_;  // a ring of rows, oldest overwritten first
  std::string message_;
};

// Pictures to files, written whole to a temporary name and renamed. False on failure.
bool writeBmp(const Raster& picture, const std::string& path);
bool writePng(const Raster& picture, const std::string& path);
// Reads a 24-bit uncompressed BMP (bottom-up or top-down) such as writeBmp writes, for the
// waterfall picture reloaded at load. False when the file is missing or of another kind.
bool readBmp(const std::string& path, Raster& picture);
// The saved picture's name, relative to the data folder: "Waterfall/" + prefix + date + "_" +
// time + ".bmp", where the date's separators become "-", the time's ":" become ";" (":" may
// not stand in a file name) and a space becomes "_". "2026-11-24", "16:05:03" ->
// "Waterfall/Waterfall_2026-11-24_16;05;03.bmp"; "24/11/2026" -> "..._24-11-2026_...".
// The clear button's copy uses the prefix "waterfall_saved_".
std::string waterfallFileName(const std::string& date, const std::string& timeOfDay,
                              const std::string& prefix = "Waterfall_");

// The marker: the frequency (MHz) under pixel x of a picture w wide over the sweep.
double markerFrequency(int x, int width, std::int32_t lowFreq, std::int32_t highFreq);

}  // namespace zel::scope
