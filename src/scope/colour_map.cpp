// The waterfall's 256 colours: four ramps, each a straight run between its two end entries,
// rounded to the nearest step (about 4 a step):
//   0, 1      (0,0,255)
//   1..64     green 0 -> 247, red 0, blue 255
//   65..128   blue 251 -> 4, red 0, green 255
//   129..192  red 4 -> 251, green 255, blue 0
//   193..255  green 251 -> 4, red 255, blue 0
#include "scope/waterfall.h"

namespace zel::scope {
namespace {

// The value at entry i of a ramp running from `from` at entry `first` to `to` at `last`.
std::uint8_t ramp(int i, int first, int last, int from, int to) {
  const int span = last - first;
  const int rise = (to - from) * (i - first);
  // Round half away from zero, for falling ramps as for rising ones.
  const int step = rise >= 0 ? (2 * rise + span) / (2 * span) : -((-2 * rise + span) / (2 * span));
  return static_cast<std::uint8_t>(from + step);
}

std::array<Rgb, 256> buildMap() {
  std::array<Rgb, 256> map{};
  map[0] = {0, 0, 255};
  for (int i = 1; i <= 64; ++i) map[i] = {0, ramp(i, 1, 64, 0, 247), 255};
  for (int i = 65; i <= 128; ++i) map[i] = {0, 255, ramp(i, 65, 128, 251, 4)};
  for (int i = 129; i <= 192; ++i) map[i] = {ramp(i, 129, 192, 4, 251), 255, 0};
  for (int i = 193; i <= 255; ++i) map[i] = {255, ramp(i, 193, 255, 251, 4), 0};
  return map;
}

}  // namespace

const std::array<Rgb, 256>& colourMap() {
  static const std::array<Rgb, 256> map = buildMap();
  return map;
}

}  // namespace zel::scope
