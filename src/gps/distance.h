// Distances between two places given in signed decimal degrees, along the earth's surface.
// Ranges of sites and departments are in miles, so distances are too.
#pragma once

namespace zel::gps {

inline constexpr double kEarthRadiusMiles = 3958.8;

// The great-circle distance in miles (haversine on a sphere of the earth's mean radius).
double distanceMiles(double lat1, double lon1, double lat2, double lon2);

// Whether two circles (centre and radius in miles) touch or overlap.
bool circlesMeet(double lat1, double lon1, double range1, double lat2, double lon2,
                 double range2);

}  // namespace zel::gps
