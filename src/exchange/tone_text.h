// Tone texts as channel lists write them, read into the squelch mode and code of a row:
//
//   "127.3", "PL 127.3", "127.3 PL", "CTCSS 127.3", "127.3 Hz", "T127.3"   CTCSS 127.3
//   "023", "D023N", "D023", "DPL 023", "DCS 023", "023 DPL", "D023I"        DCS 023
//   "NAC 293", "$293", "293 NAC"                                            P25 293
//
// A bare number with a "." is a tone, a bare three-digit octal code a DCS code; any other
// bare number says nothing of its mode, which the column's own meaning then supplies.
#pragma once

#include <string>
#include <string_view>

namespace zel::exchange {

struct ToneText {
  std::string code;  // "127.3", "023", "293"; empty when the text holds none
  std::string mode;  // "CTCSS", "DCS", "P25", or empty when the text does not say
};

ToneText readToneText(std::string_view text);

}  // namespace zel::exchange
