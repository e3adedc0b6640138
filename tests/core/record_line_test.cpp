#include "core/record_line.h"

#include <gtest/gtest.h>

#include "core/text.h"

namespace zel {
namespace {

TEST(RecordLine, FieldReading) {
  struct Case {
    const char* line;
    int n;
    const char* expected;
  } cases[] = {
      {"SIN,Conventional,0", 0, "SIN"},
      {"SIN,Conventional,0", 1, "Conventional"},
      {"SIN,Conventional,0", 3, ""},           // beyond the end
      {"SIN,\"quoted\",0", 1, "quoted"},       // one quote stripped at each end
      {"SIN,\"\"twice\"\",0", 1, "\"twice\""}, // only one
      {"SIN,a\r\n", 1, "a"},                   // CR and LF removed
      {"SIN,a\rb,c", 1, "ab"},
      {"SIN,,x", 1, ""},
      {"", 0, ""},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(record::field(c.line, c.n), c.expected) << c.line << " #" << c.n;
  }
}

TEST(RecordLine, WithFieldChangesOnlyThatField) {
  EXPECT_EQ(record::withField("SIN,a,b,c", 2, "  new  "), "SIN,a,new,c");
  EXPECT_EQ(record::withField("SIN,a", 4, "x"), "SIN,a,,,x");
  EXPECT_EQ(record::withField("SIN,a,b", 0, "SIT"), "SIT,a,b");
}

TEST(RecordLine, SanitizeMakesCommasSemicolons) {
  EXPECT_EQ(record::sanitize("Fire, EMS\r\n"), "Fire; EMS");
}

TEST(Text, LeadingNumberReadsLikeVal) {
  struct Case {
    const char* text;
    double value;
  } cases[] = {{"12abc", 12}, {"  -3.5x", -3.5}, {"abc", 0}, {"", 0}, {".5", 0.5},
               {"1200x", 1200}, {"+7", 7}, {"1.2.3", 1.2}};
  for (const auto& c : cases) EXPECT_DOUBLE_EQ(leadingNumber(c.text), c.value) << c.text;
}

TEST(Text, FormattingHelpers) {
  EXPECT_EQ(padNumber(7, 3), "007");
  EXPECT_EQ(padNumber(1234, 3), "1234");
  EXPECT_EQ(formatFixed(2.5, 0), "3");
  EXPECT_EQ(formatFixed(-0.0000001, 6), "0.000000");
  EXPECT_EQ(formatFixed(154.785, 6), "154.785000");
  EXPECT_EQ(mid("SYS-001", 5), "001");
  EXPECT_EQ(mid("SYS", 9), "");
  EXPECT_TRUE(isPlainNumber("-12.5"));
  EXPECT_FALSE(isPlainNumber("1.2.3"));
  EXPECT_FALSE(isPlainNumber("-"));
}

}  // namespace
}  // namespace zel
