#include "core/decimal_mark.h"

#include <gtest/gtest.h>

namespace zel {
namespace {

TEST(DecimalMark, TheSampleOfTwoThirdsTellsTheMark) {
  EXPECT_TRUE(DecimalMark::fromSample("0,666667").isComma());
  EXPECT_FALSE(DecimalMark::fromSample("0.666667").isComma());
  EXPECT_FALSE(DecimalMark::fromSample(".6666666666666666").isComma());
  EXPECT_EQ(DecimalMark().sign(), '.');
  EXPECT_EQ(DecimalMark::comma().sign(), ',');
  // The system's mark is detected once and is one of the two.
  DecimalMark first = DecimalMark::system();
  EXPECT_TRUE(first == DecimalMark::point() || first == DecimalMark::comma());
  EXPECT_TRUE(DecimalMark::system() == first);
}

TEST(DecimalMark, ParsingFollowsTheMark) {
  struct Case {
    const char* text;
    double point;
    double comma;
  };
  const Case cases[] = {
      {"12.5", 12.5, 12.5},  // a point is read under both marks
      {"12,5", 12, 12.5},    // a comma only under a comma
      {"-3.25", -3.25, -3.25}, {"-3,25", -3, -3.25}, {"  7,5 km", 7, 7.5}, {"", 0, 0}, {"x1", 0, 0},
  };
  for (const auto& c : cases) {
    EXPECT_DOUBLE_EQ(DecimalMark::point().parse(c.text), c.point) << c.text;
    EXPECT_DOUBLE_EQ(DecimalMark::comma().parse(c.text), c.comma) << c.text;
  }
}

}  // namespace
}  // namespace zel
