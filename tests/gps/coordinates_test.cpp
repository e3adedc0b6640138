#include "gps/coordinates.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

#include "core/decimal_mark.h"
#include "core/text.h"

namespace zel::gps {
namespace {

// Inputs with a point (or none) read the same under both marks: every table below runs
// under a decimal point and a decimal comma.
class BothMarks : public ::testing::TestWithParam<DecimalMark> {};

INSTANTIATE_TEST_SUITE_P(Marks, BothMarks,
                         ::testing::Values(DecimalMark::point(), DecimalMark::comma()),
                         [](const auto& info) {
                           return std::string(info.param.isComma() ? "Comma" : "Point");
                         });

// Each table holds cases split by ';', the fields of a case by '|'.
std::vector<std::vector<std::string>> cases(const std::string& table) {
  std::vector<std::vector<std::string>> out;
  for (const std::string& c : split(table, ';')) out.push_back(split(c, '|'));
  return out;
}

// text|latitude|longitude. An empty position stays empty, it is not set to "0".
TEST_P(BothMarks, ClampsKeepTextInsideTheRangeAndStopAtTheEdges) {
  for (const auto& c : cases("90.0001|90|90.0001;-90.5|-90|-90.5;90|90|90;-180.5|-90|-180;"
                             "180.0001|90|180;181|90|180;45.123456|45.123456|45.123456;"
                             "-0.000001|-0.000001|-0.000001;||;north|north|north")) {
    EXPECT_EQ(ClampLatitude(c[0], GetParam()), c[1]) << c[0];
    EXPECT_EQ(ClampLongitude(c[0], GetParam()), c[2]) << c[0];
  }
}

// number|degrees. Zero is "0", not "0.000000"; up to two digits are seconds, the next two
// minutes, the rest degrees; a fraction belongs to the seconds, seconds above 59 are taken as
// they are, the sign is kept and 180 degrees is the cap.
TEST_P(BothMarks, DmsToDegreesSplitsTheDigitsByLength) {
  for (const auto& c : cases("0|0;|0;-0|0;5|0.001389;45|0.012500;130|0.025000;1234|0.209444;"
                             "12345|1.395833;401234.56|40.209600;-401234.56|-40.209600;"
                             "1234567|123.768611;1800000|180.000000;1900000|180.000000;"
                             "-99999999|-180.000000"))
    EXPECT_EQ(DmsToDegrees(c[0], GetParam()), c[1]) << c[0];
}

// packed|1 for a longitude|degrees. W means west only for a longitude, S south only for a
// latitude; of 11 characters a latitude takes the first 8, a longitude 9; no suffix is north.
TEST_P(BothMarks, PackedTextBecomesSignedDegrees) {
  for (const auto& c : cases("40123456N|0|40.209600;40123456S|0|-40.209600;40123456W|0|40.209600;"
                             "074003012W|1|-74.008367;074003012E|1|74.008367;"
                             "074003012S|1|74.008367;40123456999|0|40.209600;"
                             "0740030129W|1|-74.008367;00000000N|0|0;40123456|0|40.209600"))
    EXPECT_EQ(PackedToDegrees(c[0], c[1] == "1", GetParam()), c[2]) << c[0];
}

// degrees|form|text. Form 4 carries no sign, form 0 leaves the degrees unpadded, seconds keep
// two integer digits, and zero or nothing gives nothing.
TEST_P(BothMarks, DegreesToDmsInEveryForm) {
  for (const auto& c : cases("40.2096|0|401234.56;-40.2096|0|-401234.56;-40.2096|1|-401234.56;"
                             "40.2096|2|40123456N;-40.2096|2|40123456S;74.008367|3|074003012E;"
                             "-74.008367|3|074003012W;74.008367|4|0740030.12;"
                             "-74.008367|4|0740030.12;5.5|0|53000.00;0.5|0|03000.00;"
                             "0.5|4|0003000.00;7.0025|2|7000900N;0|0|;0.0|3|;|2|"))
    EXPECT_EQ(DegreesToDms(c[0], std::stoi(c[1]), GetParam()), c[2]) << c[0] << " form " << c[1];
}

TEST_P(BothMarks, PackedFormsComeBackToTheirDegrees) {
  // To packed and back loses at most a hundredth of a second (under 3e-6 degrees).
  const char* latitudes[] = {"40.2096", "-33.868820", "51.500729", "-0.127500", "89.999999"};
  for (const char* text : latitudes) {
    std::string packed = DegreesToDms(text, 2, GetParam());
    std::string back = PackedToDegrees(packed, false, GetParam());
    EXPECT_NEAR(std::stod(back), std::stod(text), 3e-6) << text << " via " << packed;
  }
  const char* longitudes[] = {"-74.008367", "151.209290", "-0.127500", "179.999999"};
  for (const char* text : longitudes) {
    std::string packed = DegreesToDms(text, 3, GetParam());
    std::string back = PackedToDegrees(packed, true, GetParam());
    EXPECT_NEAR(std::stod(back), std::stod(text), 3e-6) << text << " via " << packed;
  }
}

// A comma is a decimal sign only under a comma locale; a point is one under both.
TEST(Coordinates, TheMarkDecidesWhatACommaMeans) {
  const DecimalMark comma = DecimalMark::comma(), point = DecimalMark::point();
  EXPECT_EQ(ClampLatitude("90,5", comma), "90");
  EXPECT_EQ(ClampLatitude("90,5", point), "90,5");  // reads 90 and stands as typed
  EXPECT_EQ(ClampLongitude("-180,25", comma), "-180");
  EXPECT_EQ(ClampLongitude("-180,25", point), "-180,25");
  EXPECT_EQ(DmsToDegrees("12,5", comma), "0.003472");
  EXPECT_EQ(DmsToDegrees("12,5", point), "0.003333");
  EXPECT_EQ(DmsToDegrees("12.5", comma), "0.003472");
  EXPECT_EQ(DegreesToDms("40,5", 0, comma), "403000.00");
  EXPECT_EQ(DegreesToDms("40,5", 0, point), "400000.00");
}

}  // namespace
}  // namespace zel::gps
