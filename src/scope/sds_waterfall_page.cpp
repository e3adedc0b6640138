#include "scope/sds_waterfall_page.h"

#include <algorithm>
#include <cmath>

#include "core/text.h"

namespace zel::scope {

namespace {

std::string field(std::string_view text, std::size_t index) {
  const std::vector<std::string_view> parts = splitView(text, ';');
  return index < parts.size() ? std::string(parts[index]) : std::string();
}

std::int32_t unitsOfLabel(const std::string& label) {
  if (trimView(label).empty()) return 0;
  return static_cast<std::int32_t>(std::llround(leadingNumber(trimView(label)) * 10000.0));
}

}  // namespace

std::string bandLabel(std::string_view text) {
  return trim(replaceAll(text, "00MHz", ""));
}

std::string maskedMhz(double mhz) {
  std::string text = formatFixed(std::fabs(mhz), 4);
  // At least two digits before the decimal mark.
  const std::size_t mark = text.find_first_of(".,");
  if (mark != std::string::npos && mark < 2) text.insert(0, 2 - mark, '0');
  return mhz < 0 ? "-" + text : text;
}

SdsWaterfallBand SdsWaterfallBand::fromStatus(std::string_view band, std::string_view extra,
                                              std::string_view settings) {
  SdsWaterfallBand b;
  b.lower = bandLabel(field(band, 0));
  b.upper = bandLabel(field(band, 1));
  b.step = bandLabel(field(band, 2));
  b.center = bandLabel(field(extra, 0));
  b.span = bandLabel(field(extra, 1));
  b.mod = bandLabel(field(extra, 2));
  b.mf = bandLabel(field(settings, 0));
  b.gain = bandLabel(field(settings, 1));
  const std::int32_t low = b.lowUnits(), high = b.highUnits();
  if (b.center.empty() && high > low) b.center = formatFixed((low + high) / 2 / 10000.0, 4);
  if (b.span.empty() && high > low) b.span = formatFixed((high - low) / 10000.0, 4);
  return b;
}

std::int32_t SdsWaterfallBand::lowUnits() const {
  return unitsOfLabel(lower);
}
std::int32_t SdsWaterfallBand::highUnits() const {
  return unitsOfLabel(upper);
}

SdsWaterfallPage::SdsWaterfallPage() = default;

void SdsWaterfallPage::setDepth(int frames) {
  depth_ = std::clamp(frames, 1, kMaxDepth);
  smooth();
}

bool SdsWaterfallPage::receive(std::string_view line) {
  if (holdSpectrum) return false;
  // A reply that came in the same read (a key's "KEY,OK") may follow the frame's CR.
  line = line.substr(0, line.find_first_of("\r\n"));
  const std::vector<std::string_view> parts = splitView(line, ',');
  if (parts.size() < 2 || trimView(parts[0]) != "GWF") return false;
  std::vector<double> frame;
  frame.reserve(parts.size() - 1);
  for (std::size_t i = 1; i < parts.size(); ++i) {
    std::string_view v = trimView(parts[i]);
    if (v.size() >= 2 && v.front() == '"' && v.back() == '"') v = v.substr(1, v.size() - 2);
    frame.push_back(std::clamp(std::trunc(leadingNumber(v)), 0.0, 1023.0));
  }
  // A frame of another width starts the mean and the history afresh.
  if (!history_.empty() && history_.front().size() != frame.size()) history_.clear();
  if (waterfall_.steps() != static_cast<int>(frame.size()))
    waterfall_.Initialize(static_cast<int>(frame.size()));
  history_.push_front(frame);
  while (history_.size() > kMaxDepth) history_.pop_back();
  last_ = std::move(frame);
  ++frames_;
  smooth();
  waterfall_.Paint(traces_);
  return true;
}

void SdsWaterfallPage::smooth() {
  if (history_.empty()) return;
  const std::size_t n = history_.front().size();
  const std::size_t used = std::min<std::size_t>(static_cast<std::size_t>(depth_), history_.size());
  smoothed_.assign(n, 0.0);
  for (std::size_t f = 0; f < used; ++f)
    for (std::size_t i = 0; i < n; ++i) smoothed_[i] += history_[f][i];
  maxBin_ = -1;
  maxLevel_ = 0;
  traces_.resize(n + 1);
  for (std::size_t i = 0; i < n; ++i) {
    smoothed_[i] /= static_cast<double>(used);
    if (maxBin_ < 0 || smoothed_[i] > maxLevel_) {
      maxBin_ = static_cast<int>(i);
      maxLevel_ = smoothed_[i];
    }
    traces_.rows[0][i + 1] = smoothed_[i];
    traces_.rows[2][i + 1] = smoothed_[i];
  }
}

std::string SdsWaterfallPage::maxSignalText() const {
  if (maxBin_ < 0) return "Max signal:";
  std::string text = "Max signal: " + std::to_string(std::lround(maxLevel_)) + " at bin " +
                     std::to_string(maxBin_ + 1);
  if (band_.highUnits() > band_.lowUnits()) text += " (" + maskedMhz(binMhz(maxBin_)) + " MHz)";
  return text;
}

double SdsWaterfallPage::binMhz(int bin) const {
  const int n = std::max(bins(), 1);
  const double low = band_.lowUnits() / 10000.0, high = band_.highUnits() / 10000.0;
  return low + (high - low) * (bin + 0.5) / n;
}

double SdsWaterfallPage::pixelMhz(int x, int width) const {
  if (width <= 0) return band_.lowUnits() / 10000.0;
  return markerFrequency(x, width, band_.lowUnits(), band_.highUnits());
}

std::string SdsWaterfallPage::pointerText(int x, int width) const {
  if (band_.highUnits() <= band_.lowUnits()) return {};
  return "Pointer= " + maskedMhz(pixelMhz(x, width));
}

}  // namespace zel::scope
