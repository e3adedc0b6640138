#include "gps/coordinates.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "core/decimal_mark.h"

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

struct ClampCase {
  const char* text;
  const char* latitude;
  const char* longitude;
};

TEST_P(BothMarks, ClampsKeepTextInsideTheRangeAndStopAtTheEdges) {
  const ClampCase cases[] = {
      {"90.0001", "90", "90.0001"},
      {"-90.5", "-90", "-90.5"},
      {"90", "90", "90"},
      {"-180.5", "-90", "-180"},
      {"180.0001", "90", "180"},
      {"181", "90", "180"},
      {"45.123456", "45.123456", "45.123456"},
      {"-0.000001", "-0.000001", "-0.000001"},
      {"", "", ""},  // an empty position stays empty, it is not set to "0"
      {"north", "north", "north"},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(ClampLatitude(c.text, GetParam()), c.latitude) << c.text;
    EXPECT_EQ(ClampLongitude(c.text, GetParam()), c.longitude) << c.text;
  }
}

struct DmsCase {
  const char* number;
  const char* degrees;
};

TEST_P(BothMarks, DmsToDegreesSplitsTheDigitsByLength) {
  const DmsCase cases[] = {
      {"0", "0"},  // zero is "0", not "0.000000"
      {"", "0"},
      {"-0", "0"},
      {"5", "0.001389"},             // seconds only
      {"45", "0.012500"},            // two digits: still seconds
      {"130", "0.025000"},           // one minute digit
      {"1234", "0.209444"},          // two minute digits
      {"12345", "1.395833"},         // one degree digit
      {"401234.56", "40.209600"},    // fraction belongs to the seconds
      {"-401234.56", "-40.209600"},  // sign kept
      {"1234567", "123.768611"},     // seconds above 59 are taken as they are
      {"1800000", "180.000000"},
      {"1900000", "180.000000"},  // capped at 180 degrees
      {"-99999999", "-180.000000"},
  };
  for (const auto& c : cases) EXPECT_EQ(DmsToDegrees(c.number, GetParam()), c.degrees) << c.number;
}

struct PackedCase {
  const char* packed;
  bool isLongitude;
  const char* degrees;
};

TEST_P(BothMarks, PackedTextBecomesSignedDegrees) {
  const PackedCase cases[] = {
      {"40123456N", false, "40.209600"},   {"40123456S", false, "-40.209600"},
      {"40123456W", false, "40.209600"},  // W means west only for a longitude
      {"074003012W", true, "-74.008367"},  {"074003012E", true, "74.008367"},
      {"074003012S", true, "74.008367"},    // S means south only for a latitude
      {"40123456999", false, "40.209600"},  // 11 characters: the first 8 count
      {"0740030129W", true, "-74.008367"},  // longitudes keep 9
      {"00000000N", false, "0"},           {"40123456", false, "40.209600"},  // no suffix: north
  };
  for (const auto& c : cases) {
    EXPECT_EQ(PackedToDegrees(c.packed, c.isLongitude, GetParam()), c.degrees) << c.packed;
  }
}

struct ToDmsCase {
  const char* degrees;
  int form;
  const char* dms;
};

TEST_P(BothMarks, DegreesToDmsInEveryForm) {
  const ToDmsCase cases[] = {
      {"40.2096", 0, "401234.56"},
      {"-40.2096", 0, "-401234.56"},
      {"-40.2096", 1, "-401234.56"},
      {"40.2096", 2, "40123456N"},
      {"-40.2096", 2, "40123456S"},
      {"74.008367", 3, "074003012E"},
      {"-74.008367", 3, "074003012W"},
      {"74.008367", 4, "0740030.12"},
      {"-74.008367", 4, "0740030.12"},  // form 4 carries no sign
      {"5.5", 0, "53000.00"},
      {"0.5", 0, "03000.00"},  // degrees unpadded in form 0
      {"0.5", 4, "0003000.00"},
      {"7.0025", 2, "7000900N"},  // seconds keep two integer digits
      {"0", 0, ""},
      {"0.0", 3, ""},
      {"", 2, ""},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(DegreesToDms(c.degrees, c.form, GetParam()), c.dms)
        << c.degrees << " form " << c.form;
  }
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
