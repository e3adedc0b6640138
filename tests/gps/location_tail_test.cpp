#include "gps/location_tail.h"

#include <gtest/gtest.h>

namespace zel::gps {
namespace {

TEST(BuildLocationTail, EachUnsetPartTakesItsDefault) {
  struct Case {
    LocationTail tail;
    const char* expected;
  };
  const Case cases[] = {
      {{}, "00000000N,000000000W,1,0"},
      {{true, "40123456N", true, "074003012W", true, "5", true}, "40123456N,074003012W,5,1"},
      {{true, "40123456N", false, "ignored", false, "ignored", false}, "40123456N,000000000W,1,0"},
      {{false, "ignored", true, "074003012W", false, "", true}, "00000000N,074003012W,1,1"},
      // A part that is set but empty is written empty: only "not set" takes the default.
      {{false, "", false, "", true, "", false}, "00000000N,000000000W,,0"},
  };
  for (const auto& c : cases) EXPECT_EQ(BuildLocationTail(c.tail), c.expected);
}

}  // namespace
}  // namespace zel::gps
