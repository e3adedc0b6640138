#include "gps/distance.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace zel::gps {

double distanceMiles(double lat1, double lon1, double lat2, double lon2) {
  constexpr double kRadians = std::numbers::pi / 180.0;
  const double dLat = (lat2 - lat1) * kRadians;
  const double dLon = (lon2 - lon1) * kRadians;
  const double a = std::sin(dLat / 2) * std::sin(dLat / 2) +
                   std::cos(lat1 * kRadians) * std::cos(lat2 * kRadians) * std::sin(dLon / 2) *
                       std::sin(dLon / 2);
  return 2 * kEarthRadiusMiles * std::asin(std::sqrt(std::clamp(a, 0.0, 1.0)));
}

bool circlesMeet(double lat1, double lon1, double range1, double lat2, double lon2,
                 double range2) {
  return distanceMiles(lat1, lon1, lat2, lon2) <= std::max(range1, 0.0) + std::max(range2, 0.0);
}

}  // namespace zel::gps
