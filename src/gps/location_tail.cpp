#include "gps/location_tail.h"

namespace zel::gps {

std::string BuildLocationTail(const LocationTail& tail) {
  std::string out;
  out += tail.latitudeSet ? tail.latitude + "," : std::string("00000000N,");
  out += tail.longitudeSet ? tail.longitude + "," : std::string("000000000W,");
  out += tail.rangeSet ? tail.range + "," : std::string("1,");
  out += tail.locationEnabled ? "1" : "0";
  return out;
}

}  // namespace zel::gps
