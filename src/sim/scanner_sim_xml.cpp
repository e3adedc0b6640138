// The XML replies of the simulated scanner, shaped as the SDS200 sends them: the command
// word and "<XML>", then CR-separated lines, two blanks before each element.
//
//   GSI,<XML>,<CR><?xml version="1.0" encoding="utf-8"?><CR>
//   <ScannerInfo Mode="Scan Mode" V_Screen="conventional_scan"><CR>
//     <MonitorList .../><CR>  <System .../><CR>  <Department .../><CR>
//     <ConvFrequency .../> | <Site .../> <TGID .../> <UnitID .../> <SiteFrequency .../>
//     <DualWatch PRI="Off" CC="Off" WX="Priority" /><CR>
//     <Property F="Off" VOL="4" SQL="4" ... Mute="Mute" A_Led="Off" Rssi="-999" /><CR>
//     <ViewDescription><CR>    <OverWrite Text="Scanning..." /><CR>  </ViewDescription><CR>
//   </ScannerInfo><CR>
//
//   AST,<XML>,<CR><?xml ...?><CR><AST><CR>  <CurrentActivity No="0" /> ... <CR></AST><CR>
#include "core/text.h"
#include "sim/scanner_sim.h"

namespace zel::sim {

namespace {

std::string mhz6(long long hz) {
  long long whole = hz / 1000000, frac = hz % 1000000;
  std::string w = std::to_string(whole);
  if (w.size() < 4) w.insert(0, 4 - w.size(), ' ');
  return w + "." + padNumber(frac, 6) + "MHz";
}

struct Xml {
  std::string text;
  explicit Xml(std::string_view word) {
    text = std::string(word) + ",<XML>,\r<?xml version=\"1.0\" encoding=\"utf-8\"?>\r";
  }
  void line(std::string_view l) {
    text += l;
    text += '\r';
  }
};

}  // namespace

std::string ScannerSim::infoReply() const {
  const SimChannel& c = channel();
  const bool rx = receiving();
  const bool shown = rx || phase_ == Phase::Hangtime || holdChannel_ || mode_ == SimMode::Weather;
  Xml x("GSI");
  std::string mode = "Scan Mode";
  std::string screen = c.trunked ? "trunk_scan" : "conventional_scan";
  if (holdChannel_) mode = "Scan Hold";
  if (mode_ == SimMode::Weather) {
    mode = "WX Hold";
    screen = "wx_alert";
  } else if (mode_ == SimMode::CustomSearch) {
    mode = "Custom Search";
    screen = "custom_search";
  } else if (mode_ == SimMode::Waterfall) {
    mode = "Waterfall";
    screen = "waterfall";
  } else if (mode_ == SimMode::CloseCall) {
    mode = "Close Call";
    screen = "close_call";
  }
  x.line("<ScannerInfo Mode=\"" + mode + "\" V_Screen=\"" + screen + "\">");
  if (mode_ == SimMode::Waterfall) {
    x.line(
        "  <WaterfallBand Lower=\" 144.000000MHz\" Center=\" 146.000000MHz\" Upper=\" "
        "148.000000MHz\" Span=\"4.000000MHz\" Step=\"12.5kHz\" Mod=\"NFM\" />");
    x.line("  <WaterfallSettings MF=\" 146.000000MHz\" Gain=\"0\" />");
  } else {
    x.line("  <MonitorList Name=\"" + markupEscape(options_.list.name) +
           "\" Index=\"0\" ListType=\"FL\" Q_Key=\"1\" N_Tag=\"None\" DB_Counter=\"0\" />");
    x.line("  <System Name=\"" + markupEscape(c.system) + "\" Index=\"" +
           std::to_string(100 + current_ / 4) + "\" Avoid=\"Off\" SystemType=\"" +
           markupEscape(c.systemType) + "\" Q_Key=\"None\" N_Tag=\"None\" Hold=\"" +
           (holdSystem_ ? "On" : "Off") + "\" />");
    x.line("  <Department Name=\"" + markupEscape(c.department) + "\" Index=\"" +
           std::to_string(200 + current_ / 2) + "\" Avoid=\"Off\" Q_Key=\"None\" Hold=\"" +
           (holdDepartment_ ? "On" : "Off") + "\" />");
    const std::string avoid = avoided_.count(current_) ? "On" : "Off";
    const std::string hold = holdChannel_ ? "On" : "Off";
    if (c.trunked) {
      x.line("  <Site Name=\"" + markupEscape(c.siteName) + "\" Index=\"" +
             std::to_string(c.siteIndex) +
             "\" Avoid=\"Off\" Q_Key=\"None\" Hold=\"Off\" Mod=\"NFM\" />");
      x.line("  <TGID Name=\"" + markupEscape(c.name) + "\" Index=\"" +
             std::to_string(1000 + current_) + "\" Avoid=\"" + avoid + "\" TGID=\"" +
             (shown ? c.tgid : "TGID None") +
             "\" SetSlot=\"Any\" RecSlot=\"Slot 1\" N_Tag=\"None\" Hold=\"" + hold +
             "\" SvcType=\"" + markupEscape(c.serviceType) + "\" P_Ch=\"Off\" LVL=\"0\" />");
      if (rx && !uid_.empty()) {
        std::string name = "UID " + uid_;
        for (const auto& u : c.units)
          if (u.id == uid_) name = u.name;
        x.line("  <UnitID Name=\"" + markupEscape(name) + "\" U_Id=\"" + uid_ + "\" />");
      }
      x.line("  <SiteFrequency Freq=\"" + mhz6(c.hz) + "\" IFX=\"Off\" SAS=\"All\" SAD=\"" + c.nac +
             "\" />");
    } else {
      std::string sad = rx && !c.toneValue.empty() ? c.toneValue : "None";
      x.line("  <ConvFrequency Name=\"" + markupEscape(c.name) + "\" Index=\"" +
             std::to_string(1000 + current_) + "\" Avoid=\"" + avoid + "\" Freq=\"" + mhz6(c.hz) +
             "\" Mod=\"" + c.modulation + "\" N_Tag=\"None\" Hold=\"" + hold + "\" SvcType=\"" +
             markupEscape(c.serviceType) + "\" P_Ch=\"Off\" SAS=\"" +
             (c.toneValue.empty() ? "All" : c.toneValue) + "\" SAD=\"" + sad +
             "\" RecSlot=\"Slot None\" LVL=\"0\" IFX=\"Off\" TGID=\"TGID None\" U_Id=\"UID None\" "
             "/>");
    }
    x.line("  <DualWatch PRI=\"Off\" CC=\"Off\" WX=\"Priority\" />");
  }
  const std::string rssiText = rx ? std::to_string(-120 + rssi() / 10) : "-999";
  x.line("  <Property F=\"" + std::string(functionKey_ ? "On" : "Off") + "\" VOL=\"" +
         std::to_string(volume_) + "\" SQL=\"" + std::to_string(squelch_) + "\" Sig=\"" +
         std::to_string(rx ? signal_ : 0) +
         "\" Att=\"Off\" Rec=\"Off\" KeyLock=\"Off\" P25Status=\"" + (c.trunked ? "P25" : "None") +
         "\" Mute=\"" + (rx ? "Unmute" : "Mute") + "\" Backlight=\"100\" A_Led=\"" +
         (mode_ == SimMode::CloseCall ? "Red" : "Off") + "\" Dir=\"Up\" Rssi=\"" + rssiText +
         "\" />");
  x.line("  <ViewDescription>");
  if (!shown) x.line("    <OverWrite Text=\"Scanning...\" />");
  x.line("  </ViewDescription>");
  x.line("</ScannerInfo>");
  return x.text;
}

std::string ScannerSim::siteReport() {
  Xml x("AST");
  x.line("<AST>");
  const auto& list = options_.list.channels;
  std::uniform_int_distribution<int> busy(0, 3);
  int active = busy(rng_);
  int slot = 0;
  for (std::size_t i = 0; i < list.size() && slot < 16; ++i) {
    const SimChannel& c = list[i];
    if (!c.trunked) continue;
    if (slot < active) {
      x.line("  <CurrentActivity No=\"" + std::to_string(slot) + "\" Lcn=\"" +
             std::to_string(slot + 1) + "\" TGID=\"" + c.tgid + "\" Name=\"" +
             markupEscape(c.name) + "\" UID=\"" +
             (c.units.empty() ? std::string() : c.units[0].id) + "\" Freq=\"" +
             mhz6(c.hz + slot * 12500) + "\" Site=\"" + std::to_string(siteIndex_) + "\" />");
    } else {
      x.line("  <CurrentActivity No=\"" + std::to_string(slot) + "\" />");
    }
    ++slot;
  }
  x.line("</AST>");
  return x.text;
}

}  // namespace zel::sim
