// The bandscope's settings, section "scope". Values are stored with their trailing "x" mark
// (core/settings.h); a missing key gives its default.
#include <algorithm>

#include "core/settings.h"
#include "core/text.h"
#include "scope/sweep_engine.h"

namespace zel::scope {

namespace {

constexpr std::string_view kSection = "scope";

class Reader {
 public:
  explicit Reader(const SettingsStore& store) : store_(store) {}
  std::string text(std::string_view key, std::string_view plainDefault) const {
    std::string raw;
    if (!store_.read(kSection, key, raw)) return std::string(plainDefault);
    return Settings::decode(raw);
  }
  int number(std::string_view key, int plainDefault, int low, int high) const {
    const std::string value = text(key, std::to_string(plainDefault));
    if (trimView(value).empty()) return plainDefault;
    return static_cast<int>(std::clamp<long long>(leadingInteger(value), low, high));
  }
  bool flag(std::string_view key) const { return number(key, 0, -1, 1) != 0; }

 private:
  const SettingsStore& store_;
};

constexpr int kBig = 1000000;

}  // namespace

ScopeSettings ScopeSettings::load(const SettingsStore& store) {
  const Reader r(store);
  ScopeSettings s;
  SweepRequest& q = s.request;
  q.start = r.text("bc_fr1", "144.0000");
  q.stop = r.text("bc_fr2", "148.0000");
  q.center = r.text("bc_fr3", "146.0000");
  q.span = r.text("bc_fr4", "4.0");
  s.chk1 = r.flag("bc_chk1");
  s.chk2 = r.flag("bc_chk2");
  q.attenuator = r.flag("bc_att");
  s.saveWaterfall = r.flag("bc_sw");
  s.view1 = r.flag("bc_view1");
  s.view2 = r.flag("bc_view2");
  q.modeIndex = r.number("bc_mode", 0, 0, static_cast<int>(modeList().size()) - 1);
  q.stepIndex = r.number("bc_step", 7, -1, static_cast<int>(stepList().size()) - 1);
  s.rangeIndex = r.number("bc_range", 9, -1, kBig);
  q.noiseFilterIndex = r.number("noise_filter", 0, 0, kBig);
  q.amplifyIndex = r.number("amp_filter", 0, 0, kBig);
  s.left = r.number("bc_left", 0, -kBig, kBig);
  s.top = r.number("bc_top", 0, -kBig, kBig);
  s.height = r.number("bc_height", 0, 0, kBig);
  s.gain = r.number("bs_gain", 0, -kBig, kBig);
  s.shift = r.number("bs_shift", 0, -kBig, kBig);
  s.port = r.text("usbporttext", "");
  s.com = r.text("com", "");
  return s;
}

void ScopeSettings::save(SettingsStore& store) const {
  Settings w(store);
  auto put = [&](std::string_view key, const std::string& value) { w.put(kSection, key, value); };
  auto flag = [](bool on) { return std::string(on ? "1" : "0"); };
  const SweepRequest& q = request;
  put("bc_fr1", q.start);
  put("bc_fr2", q.stop);
  put("bc_fr3", q.center);
  put("bc_fr4", q.span);
  put("bc_chk1", flag(chk1));
  put("bc_chk2", flag(chk2));
  put("bc_att", flag(q.attenuator));
  put("bc_sw", flag(saveWaterfall));
  put("bc_view1", flag(view1));
  put("bc_view2", flag(view2));
  put("bc_mode", std::to_string(q.modeIndex));
  put("bc_step", std::to_string(q.stepIndex));
  put("bc_range", std::to_string(rangeIndex));
  put("noise_filter", std::to_string(q.noiseFilterIndex));
  put("amp_filter", std::to_string(q.amplifyIndex));
  put("bc_left", std::to_string(left));
  put("bc_top", std::to_string(top));
  put("bc_height", std::to_string(height));
  put("bs_gain", std::to_string(gain));
  put("bs_shift", std::to_string(shift));
  put("usbporttext", port);
  put("com", com);
}

}  // namespace zel::scope
