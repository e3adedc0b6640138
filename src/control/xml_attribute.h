// Attribute reading on the scanner's GSI reply, which is XML sent as one serial reply:
//
//   GSI,<XML>,<CR><?xml version="1.0" encoding="utf-8"?><CR>
//   <ScannerInfo Mode="Scan Mode" V_Screen="conventional_scan"><CR>
//     <System Name="..." Index="20214" ... /><CR>
//     <ConvFrequency Name="Channel 3" Freq=" 462.612500MHz" Mod="NFM" ... /><CR>
//     <Property VOL="4" SQL="4" Mute="Mute" A_Led="Off" Rssi="-999" ... /><CR>
//   </ScannerInfo><CR>
//
// No XML parser is involved: the reply is reshaped so that every element line starts with
// a doubled "<<", and attributes are found by plain text search.
#pragma once

#include <string>
#include <string_view>

namespace zel::control {

// The text between the quotes after `attribute` inside the first element `tag`.
// `attribute` carries its "=" where the caller wants one ("Rssi="). An empty attribute
// gives ""; a missing "Rssi=" gives "-110". "&amp;" becomes "&", a comma becomes ";".
std::string XmlAttribute(std::string_view xml, std::string_view tag, std::string_view attribute);

// The reshaping done on a GSI reply before it is read: " />" gets CR LF behind it, "  <"
// becomes "<<", "<ScannerInfo" gets CR LF behind it, commas become ";", LF is removed.
std::string reshapeGsi(std::string_view reply);

}  // namespace zel::control
