#include "transfer/favorites_config.h"

#include <gtest/gtest.h>

#include "card_tree_support.h"
#include "core/text.h"

namespace zel::transfer {
namespace {

using testing::entryLine;

const std::string kHead = "TargetModel\tBCDx36HP\r\nFormatVersion\t1.00\r\n";

TEST(FavoritesConfig, ReadsBothTagSpellingsAndSkipsOtherLines) {
  const std::string text = kHead + entryLine("F-List", "Alpha", "f_000001.hpd") +
                           "Comment\tnot a list\r\n" + entryLine("F-1ist", "Beta", "f_000004.hpd") +
                           entryLine("F-List ", "Gamma", "f_000002.hpd");
  auto rows = parseFavoritesConfig(text);
  ASSERT_EQ(rows.size(), 3u);
  EXPECT_EQ(rows[0].name, "Alpha");
  EXPECT_EQ(rows[1].name, "Beta");
  EXPECT_EQ(rows[1].key, "a-000004");
  EXPECT_EQ(rows[2].tag, "F-List ");
  EXPECT_EQ(rows[0].monitor, "On");
  EXPECT_EQ(rows[0].startupKeys, "1001001001");
  ASSERT_EQ(rows[0].systemKeys.size(), 100u);
  EXPECT_EQ(rows[0].systemKeys.substr(0, 4), "0010");  // flag 10 onward of the 110
}

TEST(FavoritesConfig, CommaInNameReadsAsSemicolon) {
  auto rows = parseFavoritesConfig(kHead + entryLine("F-List", "Fire, EMS", "f_000001.hpd"));
  ASSERT_EQ(rows.size(), 1u);
  EXPECT_EQ(rows[0].name, "Fire; EMS");
  EXPECT_EQ(rows[0].file, "f_000001.hpd");
}

TEST(FavoritesConfig, TagByCard) {
  struct Case {
    bool ubcd, is3600;
    const char* tag;
  } cases[] = {{false, false, "F-List"},
               {true, false, "F-List "},
               {false, true, "F-1ist"},
               {true, true, "F-List "}};
  for (const auto& c : cases) EXPECT_EQ(favoritesTag(c.ubcd, c.is3600), c.tag);
}

TEST(FavoritesConfig, QuickKeyRule) {
  struct Case {
    const char* in;
    const char* out;
  } cases[] = {{"0", "0"},      {"98", "98"},   {"99", "Off"}, {"-1", "Off"},  {"", "Off"},
               {"None", "Off"}, {"Off", "Off"}, {"7", "7"},    {"1000", "Off"}};
  for (const auto& c : cases) EXPECT_EQ(normaliseQuickKey(c.in), c.out) << c.in;
}

TEST(FavoritesConfig, ListFileNumbers) {
  struct Case {
    const char* file;
    int number;
  } cases[] = {{"f_000001.hpd", 1},  {"f_000123.hpd", 123}, {"favorites_000007.hpd", 7},
               {"s_000001.hpd", -1}, {"f_abc.hpd", -1},     {"f_.hpd", -1}};
  for (const auto& c : cases) EXPECT_EQ(listFileNumber(c.file), c.number) << c.file;
  EXPECT_EQ(rowKey(12), "a-000012");
}

TEST(FavoritesConfig, WritesEveryRowInFullWithTrailingTab) {
  FavoritesRow a;
  a.name = "";
  a.file = "f_000001.hpd";
  a.locationControl = "maybe";
  a.monitor = "weird";
  a.quickKey = "99";
  a.numberTag = "";
  FavoritesRow b;
  b.name = "Beta";
  b.file = "f_000002.hpd";
  b.monitor = "Off";
  b.quickKey = "5";
  b.startupKeys = "10";  // an older row with few flags: nothing is added
  b.systemKeys = "";
  const std::string text = formatFavoritesConfig({a, b}, "F-1ist");
  auto lines = split(text, '\n');
  ASSERT_EQ(lines.size(), 5u);  // two header lines, two rows, the empty rest
  EXPECT_EQ(lines[0], "TargetModel\tBCDx36HP\r");
  EXPECT_EQ(lines[1], "FormatVersion\t1.00\r");
  EXPECT_TRUE(startsWith(lines[2], "F-1ist\tNew system 1\tf_000001.hpd\tOff\tOn\tOff\tOff\tOn\t"));
  EXPECT_EQ(split(lines[2], '\t').size(), 118u);  // 117 fields and the empty one after the TAB
  EXPECT_EQ(lines[3], "F-1ist\tBeta\tf_000002.hpd\tOff\tOff\t5\tOff\tOn\tOff\t\r");
}

TEST(FavoritesConfig, RoundTripKeepsTheRows) {
  const std::string text = kHead + entryLine("F-List", "Alpha", "f_000001.hpd") +
                           entryLine("F-List", "B", "f_000003.hpd");
  EXPECT_EQ(formatFavoritesConfig(parseFavoritesConfig(text), "F-List"), text);
}

}  // namespace
}  // namespace zel::transfer
