// The waterfall's history of levels, its picture, the saved picture's name and the marker.
#include "scope/waterfall.h"

#include <algorithm>
#include <cctype>
#include <cmath>

namespace zel::scope {
namespace {

// Int(v) / 4 limited to 0..255.
std::uint8_t levelOf(double value) {
  if (std::isnan(value)) return 0;
  const double whole = std::floor(std::clamp(value, -1.0e9, 1.0e9));
  return static_cast<std::uint8_t>(std::clamp(static_cast<long long>(whole) / 4, 0LL, 255LL));
}

}  // namespace

int Waterfall::maxRows() const {
  if (steps_ <= 0) return 0;
  const std::size_t byBudget = kMaxBytes / static_cast<std::size_t>(steps_);
  return static_cast<int>(std::max<std::size_t>(1, std::min<std::size_t>(kMaxRows, byBudget)));
}

bool Waterfall::Initialize(int steps) {
  clear();
  steps_ = std::max(steps, 0);
  message_ = steps_ == 0 ? kInitializeMessage : "";
  return steps_ != 0;
}

void Waterfall::clear() {
  std::vector<std::uint8_t>().swap(levels_);
  count_ = 0;
  next_ = 0;
}

bool Waterfall::Paint(const Traces& traces) {
  if (steps_ == 0) {
    message_ = kPaintMessage;
    return false;
  }
  message_.clear();
  const std::size_t width = static_cast<std::size_t>(steps_);
  const int cap = maxRows();
  if (count_ < cap) {
    // Grow by doubling, but never past the cap, so the budget holds for the capacity too.
    const std::size_t needed = (static_cast<std::size_t>(count_) + 1) * width;
    if (needed > levels_.capacity()) {
      levels_.reserve(std::min(static_cast<std::size_t>(cap) * width,
                               std::max(needed, 2 * levels_.capacity())));
    }
    levels_.resize(needed);
    ++count_;
  }
  std::uint8_t* out = levels_.data() + static_cast<std::size_t>(next_) * width;
  next_ = (next_ + 1) % cap;

  const std::vector<double>& filtered = traces.rows[2];
  const std::size_t reach = std::min(filtered.size(), width + 1);
  for (std::size_t i = 1; i <= width; ++i) out[i - 1] = i < reach ? levelOf(filtered[i]) : 0;
  return true;
}

const std::uint8_t* Waterfall::row(int r) const {
  const int slot = ((next_ - 1 - r) % count_ + count_) % count_;
  return levels_.data() + static_cast<std::size_t>(slot) * steps_;
}

std::uint8_t Waterfall::level(int r, int bin) const {
  if (r < 0 || r >= count_ || bin < 1 || bin > steps_) return 0;
  return row(r)[bin - 1];
}

Raster Waterfall::render(int width, int rowLimit) const {
  const int height = std::clamp(count_, 0, std::max(rowLimit, 0));
  Raster picture(width, steps_ > 0 ? height : 0);
  if (picture.width == 0 || picture.height == 0) return picture;

  // Which bin each column shows: bin i spans the pixels from (i-1)*dx up to i*dx, so the
  // spans meet with no gap; where dx < 1 several bins start on one pixel and the last shows.
  std::vector<int> binOf(static_cast<std::size_t>(width), 0);
  for (long long i = 1; i <= steps_; ++i) {
    const int x0 = static_cast<int>((i - 1) * width / steps_);
    const int x1 = std::min(static_cast<int>(i * width / steps_), width);
    for (int x = x0; x < x1; ++x) binOf[x] = static_cast<int>(i - 1);
  }

  const auto& colours = colourMap();
  for (int y = 0; y < height; ++y) {
    const std::uint8_t* levels = row(y);
    Rgb* out = &picture.at(0, y);
    for (int x = 0; x < width; ++x) out[x] = colours[levels[binOf[x]]];
  }
  return picture;
}

std::string waterfallFileName(const std::string& date, const std::string& timeOfDay,
                              const std::string& prefix) {
  std::string name = "Waterfall/" + prefix;
  for (const char c : date) {
    name += std::isalnum(static_cast<unsigned char>(c)) ? c : '-';
  }
  name += '_';
  for (const char c : timeOfDay) {
    if (std::isalnum(static_cast<unsigned char>(c))) {
      name += c;
    } else if (c == ':' || c == '.') {
      name += ';';
    } else if (c == ' ') {
      name += '_';
    } else {
      name += '-';
    }
  }
  return name + ".bmp";
}

double markerFrequency(int x, int width, std::int32_t lowFreq, std::int32_t highFreq) {
  constexpr double kUnitsPerMhz = 10000.0;
  if (width <= 0) return lowFreq / kUnitsPerMhz;
  const double span = static_cast<double>(highFreq) - lowFreq;
  return (static_cast<double>(x) / width * span + lowFreq) / kUnitsPerMhz;
}

}  // namespace zel::scope
