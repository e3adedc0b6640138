// The line graph: the grid, the traces with their running means and the cursor.
#include <algorithm>
#include <cmath>

#include "scope/waterfall.h"

namespace zel::scope {
namespace {

constexpr int kDefaultPoints = 1024;
constexpr int kDefaultGrid = 10;
constexpr double kValueRange = 1024.0;

// A coordinate to its pixel, kept far enough inside int that a wild value cannot overflow.
int toPixel(double coordinate) {
  if (std::isnan(coordinate)) return 0;
  return static_cast<int>(std::floor(std::clamp(coordinate, -1.0e7, 1.0e7)));
}

int orDefault(int value, int fallback) {
  return value > 0 ? value : fallback;
}

void drawGridLines(Raster& picture, int columns, int rows, Rgb colour) {
  const int w = picture.width, h = picture.height;
  for (int c = 0; c < columns; ++c) {
    const int x = static_cast<int>(static_cast<long long>(c) * w / columns);
    drawLine(picture, x, 0, x, h - 1, colour);
  }
  for (int r = 0; r < rows; ++r) {
    const int y = static_cast<int>(static_cast<long long>(r) * h / rows);
    drawLine(picture, 0, y, w - 1, y, colour);
  }
  drawLine(picture, w - 1, 0, w - 1, h - 1, colour);
  drawLine(picture, 0, h - 1, w - 1, h - 1, colour);
}

}  // namespace

double LineGraph::pointToPixelX(double point, int width) const {
  return point / orDefault(XPoints, kDefaultPoints) * width;
}

double LineGraph::valueToPixelY(double value, int height) const {
  return height - value / kValueRange * height;
}

void LineGraph::Plot(Raster& picture, const Traces& traces, unsigned rows, int cursorBin) const {
  const int w = picture.width, h = picture.height;
  if (w <= 0 || h <= 0) return;
  const int points = orDefault(XPoints, kDefaultPoints);
  const double factor = scale == 0 ? 1.0 : scale;
  std::fill(picture.pixels.begin(), picture.pixels.end(), background);
  if (drawGrid) {
    drawGridLines(picture, orDefault(gridColumns, kDefaultGrid), orDefault(gridRows, kDefaultGrid),
                  gridColour);
  }

  const double sx = static_cast<double>(w) / points;
  const int stride = sx >= 1 ? static_cast<int>(sx) - 1 : 0;
  for (std::size_t r = 0; r < traces.rows.size(); ++r) {
    if (!(rows & (1u << r))) continue;
    const std::vector<double>& values = traces.rows[r];
    const int n = static_cast<int>(std::min<std::size_t>(values.size(), points));
    const Rgb colour = traceColours[r];
    int lastX = 0, lastY = 0;
    for (int i = 0; i < n; ++i) {
      double value = values[i];
      if (i == 1) {
        value = (values[0] + values[1]) / 2;
      } else if (i >= 2) {
        value = (values[i - 2] + values[i - 1] + values[i]) / 3;
      }
      const int x = toPixel(i * sx);
      const int y = toPixel(valueToPixelY(value * factor, h));
      drawLine(picture, i == 0 ? x : lastX, i == 0 ? y : lastY, x, y, colour);
      if (stride > 0) drawLine(picture, x, y, x + stride, y, colour);
      lastX = x;
      lastY = y;
    }
  }

  if (cursorBin >= 0) {
    const int x = toPixel(pointToPixelX(cursorBin, w));
    drawLine(picture, x, 0, x, h - 1, cursorColour);
  }
}

}  // namespace zel::scope
