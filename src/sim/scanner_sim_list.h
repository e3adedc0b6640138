// The scan list that the simulated scanner walks: systems, departments and channels
// flattened to one list of channels in scan order. It comes from a favorites file read by
// the HPD reader, or from the built-in list, which has a conventional county system (one
// of its names holds a comma, as real lists do), a weather department and a P25 trunked
// system with unit IDs.
#pragma once

#include <string>
#include <vector>

namespace zel::sim {

struct SimUnit {
  std::string id;
  std::string name;
};

struct SimChannel {
  std::string system;
  std::string department;
  std::string name;
  bool trunked = false;
  long long hz = 0;        // conventional: the channel; trunked: the site's control channel
  std::string modulation;  // "FM", "NFM", "AM", "AUTO"
  std::string toneType;    // "CTCSS", "DCS", "NAC" or ""
  std::string toneValue;   // "127.3", "023", "293"
  std::string tgid;        // trunked only
  std::string serviceType;
  std::string systemType;      // "Conventional", "P25 Standard", ...
  std::string siteName;        // trunked only
  int siteIndex = 0;           // trunked only
  std::string nac;             // trunked P25: the system's NAC
  std::vector<SimUnit> units;  // trunked: unit IDs that may key up
};

struct SimScanList {
  std::string name = "Simulated List";
  std::vector<SimChannel> channels;
};

SimScanList builtInScanList();

struct ScanListRead {
  bool ok = false;
  std::string message;
  SimScanList list;
};
// Reads a favorites file; a file with no channel is refused with a message.
ScanListRead readScanList(const std::string& path);

}  // namespace zel::sim
