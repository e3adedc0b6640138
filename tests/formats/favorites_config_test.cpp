#include "formats/favorites_config.h"

#include <gtest/gtest.h>

#include "formats_test_support.h"

namespace zel::formats {
namespace {

FavoritesListRow row(std::string name, std::string quickKey, std::string numberTag) {
  FavoritesListRow r;
  r.name = std::move(name);
  r.file = "f_000001.hpd";
  r.monitor = "On";
  r.locationControl = "Off";
  r.quickKey = std::move(quickKey);
  r.numberTag = std::move(numberTag);
  r.startupKeys = "1000000000";
  r.systemQuickKeys = std::string(100, '0');
  return r;
}

TEST(FavoritesConfig, TagOfEachModel) {
  EXPECT_EQ(favoritesListTag(false, false), "F-List");
  EXPECT_EQ(favoritesListTag(true, false), "F-List ");
  EXPECT_EQ(favoritesListTag(false, true), "F-1ist");
  EXPECT_EQ(favoritesListTag(true, true), "F-List ");  // the folder test wins
}

TEST(FavoritesConfig, QuickKeyAndNumberTagRules) {
  struct Case {
    const char* value;
    const char* field;
  };
  const Case cases[] = {{"0", "0"},  {"98", "98"},    {"99", "Off"},  {"100", "Off"}, {"-1", "Off"},
                        {"", "Off"}, {"None", "Off"}, {"Off", "Off"}, {"07", "7"},    {" 5 ", "5"}};
  for (const Case& c : cases) EXPECT_EQ(favoritesQuickKeyField(c.value), c.field) << c.value;
}

TEST(FavoritesConfig, FlagsBecomeOnOffEachWithATab) {
  EXPECT_EQ(favoritesFlagFields("10"), "On\tOff\t");
  EXPECT_EQ(favoritesFlagFields(""), "");
  EXPECT_EQ(favoritesFlagFields("1x0"), "On\txOff\t");
}

TEST(FavoritesConfig, RowsAreWrittenInFullWithTheirDefaults) {
  std::vector<FavoritesListRow> rows = {row("North", "1", "Off"), row("", "99", "")};
  rows[1].monitor = "Maybe";
  rows[1].locationControl = "On";
  rows[1].startupKeys = "11";  // an older row with fewer flags: nothing is added
  rows[1].systemQuickKeys = "";
  const std::string text = formatFavoritesConfig(rows, "F-List");
  const std::vector<std::string> lines = test::fileLines(text);
  std::string first = "F-List\tNorth\tf_000001.hpd\tOff\tOn\t1\tOff\tOn\t";
  for (int i = 0; i < 9 + 100; ++i) first += "Off\t";
  EXPECT_EQ(lines, (std::vector<std::string>{
                       "TargetModel\tBCDx36HP", "FormatVersion\t1.00", first,
                       "F-List\tNew system 2\tf_000001.hpd\tOn\tOn\tOff\tOff\tOn\tOn\t"}));
  EXPECT_EQ(text.substr(text.size() - 3), "\t\r\n");
}

TEST(FavoritesConfig, ReadingTurnsFlagsBackAndKeepsTheTag) {
  const std::string text =
      "TargetModel\tBCDx36HP\r\nFormatVersion\t1.00\r\n"
      "F-List \tA, B\tf_000003.hpd\tOn\tOff\t4\t12\tOn\tOff\tOn\t\r\n"
      "Something else\r\n"
      "F-1ist\tC\tf_000009.hpd\tOff\tOn\tOff\tOff\r\n";
  FavoritesConfig c = parseFavoritesConfig(text);
  EXPECT_EQ(c.tag, "F-List ");
  ASSERT_EQ(c.rows.size(), 2u);
  const FavoritesListRow& a = c.rows[0];
  EXPECT_EQ(std::tuple(a.name, a.file, a.locationControl, a.monitor, a.keysText(), a.startupKeys,
                       a.systemQuickKeys, a.tag),
            std::tuple("A, B", "f_000003.hpd", "On", "Off", "4 / FQK: 12", "101", "", "F-List "));
  // Listed though no such file exists; each line keeps the tag it was read with.
  EXPECT_EQ(std::tuple(c.rows[1].file, c.rows[1].tag), std::tuple("f_000009.hpd", "F-1ist"));
}

TEST(FavoritesConfig, WriteThenReadKeepsEveryRow) {
  test::TempDir dir;
  std::vector<FavoritesListRow> rows = {row("North", "3", "12"), row("South", "Off", "Off")};
  rows[0].systemQuickKeys[42] = '1';
  const std::string path = dir.file("f_list.cfg");
  ASSERT_TRUE(writeFavoritesConfig(path, rows, "F-1ist"));
  std::optional<FavoritesConfig> back = readFavoritesConfig(path);
  ASSERT_TRUE(back.has_value());
  EXPECT_EQ(back->tag, "F-1ist");
  ASSERT_EQ(back->rows.size(), 2u);
  EXPECT_EQ(back->rows[0].systemQuickKeys, rows[0].systemQuickKeys);
  EXPECT_EQ(back->rows[0].startupKeys, rows[0].startupKeys);
  EXPECT_EQ(back->rows[0].numberTag, "12");
  EXPECT_EQ(formatFavoritesConfig(back->rows, back->tag), test::slurp(path));
  EXPECT_TRUE(writeFavoritesConfig("", rows, "F-List"));  // an empty path does nothing
  EXPECT_FALSE(readFavoritesConfig(dir.file("missing.cfg")).has_value());
}

}  // namespace
}  // namespace zel::formats
