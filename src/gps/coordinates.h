// Coordinates: the location forms a favorites list meets, and the clamps on them.
//
//   packed latitude    DDMMSSss then "N" or "S"     "40123456N"   (no point: the last two
//   packed longitude   DDDMMSSss then "E" or "W"    "074003012W"   digits are 1/100 seconds)
//   decimal degrees    signed, six decimals         "40.209600", "-74.008367"
//   numeric DMS        DDDMMSS.ss, negative for south and west     "401234.56"
//
// Everything goes in and out as text. Input is read with the system's decimal mark (a
// "." is accepted under a decimal comma too); output always carries a ".".
#pragma once

#include <string>
#include <string_view>

#include "core/decimal_mark.h"

namespace zel::gps {

// Latitudes stop at -90 and 90, longitudes at -180 and 180; a value inside the range and
// an empty text come back exactly as given.
std::string ClampLatitude(std::string_view text, DecimalMark mark = DecimalMark::system());
std::string ClampLongitude(std::string_view text, DecimalMark mark = DecimalMark::system());

// Packed degree-minute-second text of an older record to signed decimal degrees.
std::string PackedToDegrees(std::string_view text, bool isLongitude,
                            DecimalMark mark = DecimalMark::system());

// Numeric DMS (DDDMMSS.ss) to decimal degrees "##0.000000"; 0 gives "0". Values beyond
// 1800000 are taken as 1800000, that is 180 degrees.
std::string DmsToDegrees(std::string_view number, DecimalMark mark = DecimalMark::system());

// Decimal degrees to DMS text in one of five forms; 0 or an empty text gives "".
//   form 0, 1   D MM SS.ss, point kept, "-" when negative        "-740030.12"
//   form 2      D MM SS ss, point removed, "N" or "S"             "40123456N"
//   form 3      DDD MM SS ss, point removed, "E" or "W"           "074003012W"
//   form 4      DDD MM SS.ss, point kept, no sign                 "0740000.50"
std::string DegreesToDms(std::string_view degrees, int form,
                         DecimalMark mark = DecimalMark::system());

}  // namespace zel::gps
