// The raster and its line drawer.
#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "scope/waterfall.h"

namespace zel::scope {

Raster::Raster(int w, int h, Rgb fill)
    : width(std::max(w, 0)),
      height(std::max(h, 0)),
      pixels(static_cast<std::size_t>(width) * height, fill) {}

namespace {

// Cuts the line to the raster's rectangle (Liang-Barsky) so that a line running far outside
// costs no more than its visible part. False when nothing of it is visible.
bool clip(const Raster& picture, long long& x0, long long& y0, long long& x1, long long& y1) {
  const double dx = static_cast<double>(x1 - x0), dy = static_cast<double>(y1 - y0);
  double t0 = 0, t1 = 1;
  const double p[4] = {-dx, dx, -dy, dy};
  const double q[4] = {static_cast<double>(x0), static_cast<double>(picture.width - 1 - x0),
                       static_cast<double>(y0), static_cast<double>(picture.height - 1 - y0)};
  for (int k = 0; k < 4; ++k) {
    if (p[k] == 0) {
      if (q[k] < 0) return false;
      continue;
    }
    const double t = q[k] / p[k];
    if (p[k] < 0) {
      t0 = std::max(t0, t);
    } else {
      t1 = std::min(t1, t);
    }
    if (t0 > t1) return false;
  }
  const long long ax = x0, ay = y0;
  if (t1 < 1) {
    x1 = ax + std::llround(t1 * dx);
    y1 = ay + std::llround(t1 * dy);
  }
  if (t0 > 0) {
    x0 = ax + std::llround(t0 * dx);
    y0 = ay + std::llround(t0 * dy);
  }
  return true;
}

}  // namespace

void drawLine(Raster& picture, int x0, int y0, int x1, int y1, Rgb colour) {
  if (picture.width <= 0 || picture.height <= 0) return;
  long long ax = x0, ay = y0, bx = x1, by = y1;
  const bool inside = picture.contains(x0, y0) && picture.contains(x1, y1);
  if (!inside && !clip(picture, ax, ay, bx, by)) return;
  const long long dx = std::llabs(bx - ax), dy = -std::llabs(by - ay);
  const int sx = ax < bx ? 1 : -1, sy = ay < by ? 1 : -1;
  long long err = dx + dy;
  for (;;) {
    if (picture.contains(static_cast<int>(ax), static_cast<int>(ay))) {
      picture.at(static_cast<int>(ax), static_cast<int>(ay)) = colour;
    }
    if (ax == bx && ay == by) break;
    const long long e2 = 2 * err;
    if (e2 >= dy) {
      err += dy;
      ax += sx;
    }
    if (e2 <= dx) {
      err += dx;
      ay += sy;
    }
  }
}

}  // namespace zel::scope
