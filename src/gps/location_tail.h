// The location tail of a record: latitude, longitude, range and the location-enable flag,
// as the four last fields of an older record carry them.
//
//   40123456N,074003012W,5,1        all set
//   00000000N,000000000W,1,0        nothing set
#pragma once

#include <string>

namespace zel::gps {

// What the location editor last set. A part that is not set is written as its default.
struct LocationTail {
  bool latitudeSet = false;
  std::string latitude;
  bool longitudeSet = false;
  std::string longitude;
  bool rangeSet = false;
  std::string range;
  bool locationEnabled = false;
};

std::string BuildLocationTail(const LocationTail& tail);

}  // namespace zel::gps
