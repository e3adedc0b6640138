#include "formats/text_file.h"

#include <gtest/gtest.h>

#include "formats/hpi_file.h"
#include "formats_test_support.h"

namespace zel::formats {
namespace {

TEST(TextLines, EveryKindOfLineEnd) {
  struct Case {
    const char* text;
    std::vector<std::string_view> lines;
  };
  const Case cases[] = {
      {"", {}},
      {"a", {"a"}},
      {"a\r\nb\r\n", {"a", "b"}},
      {"a\nb", {"a", "b"}},
      {"a\rb\r", {"a", "b"}},
      {"a\r\n\r\nb", {"a", "", "b"}},
      {"a\n\rb", {"a", "", "b"}},  // LF then CR are two ends
  };
  for (const Case& c : cases) EXPECT_EQ(splitLines(c.text), c.lines) << c.text;
}

// A replacement and a refused folder are proven by the atomic writer's and the HPD writer's tests.
TEST(TextFiles, AMissingFileOrAFolderReadsAsNothing) {
  test::TempDir dir;
  EXPECT_FALSE(readWholeFile(dir.file("missing/x.txt")).has_value());
  EXPECT_FALSE(readWholeFile(dir.path()).has_value());  // a folder is no file
}

TEST(HpiFiles, PathsAndAttributes) {
  EXPECT_EQ(hpiPathFor("/a/b.hpd"), "/a/b.hpi");
  EXPECT_EQ(hpiPathFor("/a/B.HPD"), "/a/B.hpi");
  EXPECT_EQ(hpiPathFor("/a/b"), "/a/b.hpi");
  test::TempDir dir;
  test::spit(dir.file("x.hpi"), "[TargetModel HomePatrol-2]\r\n1\r\n\"quoted\"\r\n");
  std::optional<HpiAttributes> a = readHpi(dir.file("x.hpi"));
  ASSERT_TRUE(a.has_value());
  EXPECT_EQ(std::tuple((*a)[0], (*a)[1], (*a)[11]), std::tuple("1", "quoted", ""));
  HpiAttributes b;
  b[3] = "/path";
  std::string want = "[TargetModel HomePatrol-2]\r\n\r\n\r\n\r\n/path\r\n";
  for (int i = 0; i < 8; ++i) want += "\r\n";
  EXPECT_EQ(formatHpi(b), want);
  // Whatever a value holds, the written file reads back to the same attributes.
  HpiAttributes c;
  c[0] = "\"\"";
  c[1] = "\"in quotes\"";
  c[2] = "two\r\nlines";
  test::spit(dir.file("c.hpi"), formatHpi(c));
  std::optional<HpiAttributes> back = readHpi(dir.file("c.hpi"));
  ASSERT_TRUE(back.has_value());
  EXPECT_EQ(std::tuple((*back)[0], (*back)[1], (*back)[2], (*back)[3]),
            std::tuple(c[0], c[1], "twolines", ""));
}

}  // namespace
}  // namespace zel::formats
