#pragma once
// The waterfall page of the SDS virtual control window, without its widgets: the band the
// scanner reports, the frames of levels it answers to "GWF,1", their running mean, the
// strongest bin and the history the page paints.
//
//   GSI (waterfall mode):  <WaterfallBand Lower=" 144.000000MHz" Center=" 146.000000MHz"
//                            Upper=" 148.000000MHz" Span="4.000000MHz" Step="12.5kHz" Mod="NFM"/>
//                          <WaterfallSettings MF=" 146.000000MHz" Gain="0"/>
//   frame:                 GWF,<level 1>,<level 2>,...,<level n>     (levels 0..1023)
//
// The band texts are shown with "00MHz" cut ("144.000000MHz" -> "144.0000"). A frame's level
// i belongs to bin i of the band, the bins spread evenly from Lower to Upper.
#include <cstdint>
#include <deque>
#include <string>
#include <string_view>
#include <vector>

#include "scope/sweep_engine.h"
#include "scope/waterfall.h"

namespace zel::scope {

// The band labels of the page, as shown.
struct SdsWaterfallBand {
  std::string lower, center, upper, span, step, mod;  // WaterfallBand
  std::string mf, gain;                               // WaterfallSettings
  // From the decoder's texts: band "Lower;Upper;Step", extra "Center;Span;Mod" (may be
  // empty: the centre and span are then worked out of the edges), settings "MF;Gain".
  static SdsWaterfallBand fromStatus(std::string_view band, std::string_view extra,
                                     std::string_view settings);
  // The edges in 100 Hz units; 0 when unreadable.
  std::int32_t lowUnits() const;
  std::int32_t highUnits() const;
  bool operator==(const SdsWaterfallBand&) const = default;
};

// "00MHz" cut from a band text, blanks trimmed.
std::string bandLabel(std::string_view text);
// A frequency in MHz with the mask "##00.0000": at least two digits before the mark, four
// after ("5.1" -> "05.1000").
std::string maskedMhz(double mhz);

class SdsWaterfallPage {
 public:
  static constexpr int kMaxDepth = 5;
  static constexpr const char* kPictureName = "waterfall_sds.bmp";

  SdsWaterfallPage();

  void setBand(const SdsWaterfallBand& band) { band_ = band; }
  const SdsWaterfallBand& band() const { return band_; }

  // The running mean's depth 1..5 (the slider); values outside are moved inside.
  void setDepth(int frames);
  int depth() const { return depth_; }
  // "Hold Spectrum": while on, frames are not taken.
  bool holdSpectrum = false;

  // Receive step 0: takes a "GWF,..." line. False (nothing changed) while the spectrum is
  // held, or when the line is no frame or carries no levels.
  bool receive(std::string_view line);

  // The levels of the last frame, and their mean over the last `depth` frames.
  const std::vector<double>& lastFrame() const { return last_; }
  const std::vector<double>& smoothed() const { return smoothed_; }
  int bins() const { return static_cast<int>(smoothed_.size()); }
  int frames() const { return frames_; }

  // The strongest bin of the smoothed trace (0-based; -1 before the first frame) and its level.
  int maxBin() const { return maxBin_; }
  double maxLevel() const { return maxLevel_; }
  // "Max signal: 812 at bin 125 (146.0000 MHz)"; "Max signal:" before the first frame.
  std::string maxSignalText() const;

  // The frequency (MHz) of bin b (0-based) of the band, and of pixel x of a picture w wide.
  double binMhz(int bin) const;
  double pixelMhz(int x, int width) const;
  // "Pointer= 146.0000"; "" when the band is unknown.
  std::string pointerText(int x, int width) const;

  // The smoothed trace as row 0 and 2 of traces (1-based bins, as the line graph and the
  // waterfall take them), and the waterfall history of the smoothed frames.
  const Traces& traces() const { return traces_; }
  const Waterfall& waterfall() const { return waterfall_; }
  void clearWaterfall() { waterfall_.clear(); }

 private:
  void smooth();
  SdsWaterfallBand band_;
  int depth_ = 1;
  int frames_ = 0;
  std::deque<std::vector<double>> history_;  // newest first, at most kMaxDepth
  std::vector<double> last_, smoothed_;
  int maxBin_ = -1;
  double maxLevel_ = 0;
  Traces traces_;
  Waterfall waterfall_;
};

}  // namespace zel::scope
