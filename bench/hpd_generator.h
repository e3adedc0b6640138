// Large favorites files for the benchmarks: conventional systems of departments of channels,
// or trunked systems of sites and talkgroups, in the level 3 form the scanner reads.
#pragma once

#include <cstdio>
#include <string>

namespace zel::bench {

// `channels` C-Freq lines spread over systems of `departments` departments, each department
// holding `perDepartment` channels (the last one what is left).
inline std::string generateConventional(int channels, int departments, int perDepartment) {
  static const char* const kTones[] = {"TONE=C67.0", "TONE=D023",   "NAC=293",
                                       "",           "ColorCode=3", "TONE=Srch"};
  static const char* const kModes[] = {"NFM", "FM", "AM", "AUTO"};
  std::string out = "TargetModel\tBCDx36HP\r\nFormatVersion\t1.00\r\n";
  out.reserve(static_cast<std::size_t>(channels) * 110 + 4096);
  char line[256];
  int made = 0;
  for (int system = 1; made < channels; ++system) {
    std::snprintf(line, sizeof line,
                  "Conventional\t\t\tGenerated system %d\tOff\t\tConventional\tOff\tOff\t0\tOff\t"
                  "Off\t400\tAuto\t8\r\n",
                  system);
    out += line;
    for (int d = 0; d < departments && made < channels; ++d) {
      std::snprintf(line, sizeof line,
                    "C-Group\t\t\tDepartment %d-%d\tOff\t41.300000\t-81.700000\t4.0\tCircle\tOff\t"
                    "Global\r\n",
                    system, d);
      out += line;
      for (int c = 0; c < perDepartment && made < channels; ++c, ++made) {
        const long hz = 25000000L + (made % 40000) * 12500L;
        std::snprintf(
            line, sizeof line,
            "C-Freq\t\t\tChannel %d\tOff\t%ld\t%s\t%s\t%d\tOff\t2\t0\tOff\tAuto\tOff\tOn\t"
            "Off\tOff\r\n",
            made, hz, kModes[made % 4], kTones[made % 6], 1 + made % 37);
        out += line;
      }
    }
  }
  return out;
}

}  // namespace zel::bench
