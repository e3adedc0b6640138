// Cell words to the words and codes of a favorites file line. Cells hold display words;
// the line builders turn them into file forms here, and a word that is not on its list
// becomes the list's default, never an error. The same rule serves the reader: an unknown
// alert light in a file reads as "Off".
//
//   cell "NFM"    -> "NFM"        cell "WFM"     -> "AUTO"       (modulation)
//   cell "Analog" -> "ANALOG"     file "DIGITAL" -> "Digital"    (audio type)
//   SQ Mode "CTCSS", SQ Code "67.0" -> "TONE=C67.0"
//   SQ Mode "P25",   SQ Code "293"  -> "NAC=293"
#pragma once

#include <string>
#include <string_view>

namespace zel::vocab {

// "AM", "FM" and "NFM" as they stand; every other word is written "AUTO".
std::string fileModulation(std::string_view cell);
// "All", "Analog", "Digital" to "ALL", "ANALOG", "DIGITAL"; anything else "ALL".
std::string fileAudioType(std::string_view cell);
// A file's audio type (capitals or mixed case) to the cell word; anything else "All".
std::string cellAudioType(std::string_view file);

// The word when it is on the key's list, else the default named after the arrow.
std::string fileVolumeOffset(std::string_view word);  // -> "0"
std::string fileAlertTone(std::string_view word);     // -> "Off"
std::string fileAlertLevel(std::string_view word);    // -> "Auto"
std::string fileAlertLight(std::string_view word);    // -> "Off"
std::string fileAlertPattern(std::string_view word);  // -> "On"
std::string fileOnOff(std::string_view word);         // -> "Off"
// The delay list and also "-2", which older lists hold; anything else -> "2".
std::string fileDelay(std::string_view word);

// The tone field of a channel line for the row's "SQ Mode" and "SQ Code":
//   CTCSS (and any mode not named below)  "TONE=C" + code, when the code is a CTCSS tone
//   DCS, DTCS, DCS-R, DTCS-R              "TONE=D" + code, when the code is a DCS code
//   P25 "NAC=", DMR "ColorCode=", RAN "RAN=", IDAS "Area=", dPMR and Common ID "CommonId="
//   code "Search": "NAC=Srch" under P25, "TONE=Srch" under the other modes
//   "All", "None", "", "Digital", "Analog", and an empty code: "" (no code)
std::string toneToFile(std::string_view sqMode, std::string_view code);

}  // namespace zel::vocab
