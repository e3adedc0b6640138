// GSI: the scanner's state as XML (see xml_attribute.h for the reply's shape). The SDS
// window reads it fully; the BCD window keeps a few values for its debug page.
//
//   <ScannerInfo Mode="Scan Mode" V_Screen="conventional_scan">
//     <MonitorList Name=".." ListType=".." Q_Key=".." />
//     <System Name=".." SystemType=".." Q_Key=".." />   <Department Name=".." Q_Key=".." />
//     <Site Name=".." Index=".." Q_Key=".." />
//     <ConvFrequency Name=".." Freq=" 462.612500MHz" Mod="NFM" SAS="All" SAD="None" ... />
//     <TGID Name=".." TGID="2412" ... />  <SiteFrequency Freq=".." SAD=".." />
//     <UnitID Name=".." U_Id=".." />
//     <Property VOL="4" SQL="4" Mute="Unmute" A_Led="Off" Rssi="-49" ... />
#include <algorithm>
#include <cmath>
#include <filesystem>
#include <fstream>

#include "control/status_decoder.h"
#include "control/xml_attribute.h"
#include "core/text.h"

namespace zel::control {

namespace {
bool isNoValue(const std::string& v) {
  return v.empty() || v == "---" || v == "TGID None" || v == "TGID: ---" || v == "UID None" ||
         v == "UID: ---";
}

std::string channelValue(const std::string& xml, std::string_view tag, std::string_view attr) {
  std::string v = trim(XmlAttribute(xml, tag, attr));
  if (isNoValue(v)) return {};
  if (attr == "Freq=") {
    // " 462.612500MHz" is held as GLG gives it, "462.6125": the window polls both, and
    // one channel must not look like two.
    if (endsWith(v, "MHz")) v.resize(v.size() - 3);
    std::size_t point = v.find('.');
    if (point != std::string::npos && v.size() > point + 5) v.resize(point + 5);
  }
  return v;
}
}  // namespace

void StatusDecoder::SetSignalNeedle(int level) {
  DisplayModel& d = st_.display;
  d.needleLevel = level;
  double angle = level <= 59 ? level * 1.2 : (level - 59) * 0.9 + 71;
  double radians = (angle + 30) * 3.1415 / 180;
  d.needleX = 1250 - 1000 * std::cos(radians);
  d.needleY = 1250 - 1000 * std::sin(radians);
}

void StatusDecoder::readGsiChannel(const std::string& xml) {
  auto& l = st_.ldat;
  struct Read {
    std::string_view attr;
    int cell;
  };
  auto apply = [&](std::string_view tag, std::initializer_list<Read> reads) {
    for (const Read& r : reads) {
      if (r.cell >= 0) l[r.cell] = channelValue(xml, tag, r.attr);
    }
  };
  if (xml.find("<<SrchFrequency") != std::string::npos) {
    apply("SrchFrequency", {{"Freq=", ld::kFrequency},
                            {"Mod=", ld::kModulation},
                            {"TGID=", ld::kTalkgroup},
                            {"SAS=", ld::kSubtone},
                            {"SAD=", ld::kDetectedSubtone},
                            {"RecSlot=", ld::kRecSlot},
                            {"U_Id=", ld::kUid}});
  }
  if (xml.find("<<ConvFrequency") != std::string::npos) {
    apply("ConvFrequency", {{"U_Id=", ld::kUid},
                            {"Name=", ld::kChannel},
                            {"Freq=", ld::kFrequency},
                            {"TGID=", ld::kTalkgroup},
                            {"Mod=", ld::kModulation},
                            {"SAS=", ld::kSubtone},
                            {"SAD=", ld::kDetectedSubtone},
                            {"RecSlot=", ld::kRecSlot},
                            {"N_Tag=", ld::kTag},
                            {"SvcType=", ld::kServiceType}});
  }
  if (xml.find("<<TGID") != std::string::npos) {
    apply("TGID", {{"N_Tag=", ld::kTag},
                   {"TGID=", ld::kTalkgroup},
                   {"Name=", ld::kChannel},
                   {"RecSlot=", ld::kRecSlot},
                   {"SetSlot=", ld::kSetSlot},
                   {"SvcType=", ld::kServiceType}});
  }
  if (xml.find("<<UnitID Name") != std::string::npos) {
    apply("UnitID", {{"U_Id=", ld::kUid}, {"Name=", ld::kUidName}});
    l[ld::kInfoUid] = l[ld::kUid];
  }
  if (xml.find("<<SiteFrequency ") != std::string::npos) {
    apply("SiteFrequency", {{"SAD=", ld::kDetectedSubtone}});
    // A talkgroup hit stays keyed by its talkgroup, as GLG has it, so that the logger does
    // not see two channels in one transmission; the site frequency is kept beside it.
    st_.siteFrequency = channelValue(xml, "SiteFrequency", "Freq=");
    if (l[ld::kTalkgroup].empty()) l[ld::kFrequency] = st_.siteFrequency;
  }
}

ParseResult StatusDecoder::parseGsi(const std::string& rx) {
  if (rx.find("</ScannerInfo>") == std::string::npos) return ParseResult::Waiting;
  std::string xml = reshapeGsi(rx);
  st_.gsiPending = false;
  st_.gsiText = xml;
  std::string site = XmlAttribute(xml, "Site ", "Index=");
  st_.siteIndex = site.empty() ? "0" : site;

  if (family_ == Family::Bcd) {
    gsiDebug.system = XmlAttribute(xml, "System", "Name=");
    gsiDebug.detectedSubtone = XmlAttribute(xml, "SrchFrequency", "SAD=");
    gsiDebug.recSlot = XmlAttribute(xml, "SrchFrequency", "RecSlot=");
    gsiDebug.mode = XmlAttribute(xml, "ScannerInfo", "Mode=");
    return ParseResult::Accepted;
  }

  if (options_.xmlDebug && !dataFolder.empty()) {
    std::string stamp = clock_.date() + " " + clock_.timeOfDay();
    std::string suffix =
        std::string(mid(clock_.date(), 9, 2)) + "_" + std::string(mid(clock_.timeOfDay(), 1, 2));
    std::ofstream out(std::filesystem::path(dataFolder) / ("xml_log_" + suffix + ".txt"),
                      std::ios::app | std::ios::binary);
    if (out) out << xml << "\r\n" << stamp << "\r\n";
  }

  auto& l = st_.ldat;
  auto keep = [&](int cell, const std::string& v) {
    if (!v.empty()) l[cell] = v;
  };
  std::string mode = XmlAttribute(xml, "ScannerInfo", "Mode=");
  keep(ld::kScanMode, mode);
  keep(ld::kInfoScanMode, mode);
  if (mode == "Waterfall") {
    st_.waterfallBand = XmlAttribute(xml, "WaterfallBand", "Lower=") + ";" +
                        XmlAttribute(xml, "WaterfallBand", "Upper=") + ";" +
                        XmlAttribute(xml, "WaterfallBand", "Step=");
    st_.waterfallExtra = XmlAttribute(xml, "WaterfallBand", "Center=") + ";" +
                         XmlAttribute(xml, "WaterfallBand", "Span=") + ";" +
                         XmlAttribute(xml, "WaterfallBand", "Mod=");
    st_.waterfallSettings = XmlAttribute(xml, "WaterfallSettings", "MF=") + ";" +
                            XmlAttribute(xml, "WaterfallSettings", "Gain=");
  } else if (!link_.waterfallPage) {
    std::string screen = XmlAttribute(xml, "ScannerInfo", "V_Screen=");
    keep(ld::kScreen, screen);
    keep(ld::kInfoScreen, screen);
    keep(ld::kSystem, XmlAttribute(xml, "System", "Name="));
    keep(ld::kDepartment, XmlAttribute(xml, "Department", "Name="));
    keep(ld::kRssi, XmlAttribute(xml, "Property", "Rssi="));
    keep(ld::kSystemType, XmlAttribute(xml, "System", "SystemType="));
    keep(ld::kListName, XmlAttribute(xml, "MonitorList", "Name="));
    keep(ld::kListType, XmlAttribute(xml, "MonitorList", "ListType="));
    keep(ld::kListQKey, XmlAttribute(xml, "MonitorList", "Q_Key="));
    keep(ld::kSysQKey, XmlAttribute(xml, "System", "Q_Key="));
    keep(ld::kDepQKey, XmlAttribute(xml, "Department", "Q_Key="));
    keep(ld::kSiteQKey, XmlAttribute(xml, "Site ", "Q_Key="));
    keep(ld::kUidName, XmlAttribute(xml, "UnitID", "Name="));
    keep(ld::kInfoUid, XmlAttribute(xml, "UnitID", "U_Id="));
  }
  readGsiChannel(xml);

  static const char* kLights[] = {"White", "Red", "Blue", "Magenta", "Green", "Yellow", "Cyan"};
  std::string light = XmlAttribute(xml, "Property", "A_Led=");
  st_.display.backlight = "Off";
  for (const char* c : kLights) {
    if (light == c) st_.display.backlight = c;
  }
  if (XmlAttribute(xml, "Property", "Mute=") == "Unmute") st_.busy = true;

  st_.rssiText = l[ld::kRssi];
  if (st_.rssiText == "-999") {
    st_.rssiText.clear();
    SetSignalNeedle(0);
  } else if (st_.rssiText != "---" && !st_.rssiText.empty()) {
    long long level = leadingInteger(st_.rssiText) + 130;
    SetSignalNeedle(static_cast<int>(std::clamp<long long>(level, 0, 120)));
  }
  return ParseResult::Accepted;
}

}  // namespace zel::control
