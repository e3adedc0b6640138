// The real cards' f_list.cfg written back, and profile.cfg changed only in its three flag lines.
#include <gtest/gtest.h>

#include <filesystem>

#include "formats/favorites_config.h"
#include "formats/profile_config.h"
#include "formats/text_file.h"
#include "formats_test_support.h"

namespace zel::formats {
namespace {

const std::string kRoot = ZEL_REALDATA_DIR;

TEST(RealFavoritesConfig, TheSds200ListWritesBackByteForByte) {
  const std::string path = kRoot + "/card_sds200/BCDx36HP/favorites_lists/f_list.cfg";
  std::optional<FavoritesConfig> c = readFavoritesConfig(path);
  ASSERT_TRUE(c.has_value());
  ASSERT_EQ(c->rows.size(), 1u);
  EXPECT_EQ(std::tuple(c->tag, c->rows[0].file, c->rows[0].startupKeys.size(),
                       c->rows[0].systemQuickKeys.size()),
            std::tuple("F-List", "f_000001.hpd", 10u, 100u));
  EXPECT_EQ(formatFavoritesConfig(c->rows, c->tag), test::slurp(path));
}

TEST(RealFavoritesConfig, TheBcd536ListGainsOnlyItsEndingTab) {
  const std::string path = kRoot + "/card_bcd536hp/BCDx36HP/favorites_lists/f_list.cfg";
  std::optional<FavoritesConfig> c = readFavoritesConfig(path);
  ASSERT_TRUE(c.has_value());
  ASSERT_EQ(c->rows.size(), 1u);
  const FavoritesListRow& row = c->rows[0];
  EXPECT_EQ(std::tuple(row.name, row.monitor, row.keysText(), row.startupKeys,
                       row.systemQuickKeys.substr(0, 4)),
            std::tuple("(1) North Royalton", "On", "1 / FQK: Off", "0000000000", "0111"));
  // The scanner ended its last line without TAB or line end; this system writes both.
  EXPECT_EQ(formatFavoritesConfig(c->rows, c->tag), test::slurp(path) + "\t\r\n");
}

TEST(RealProfileConfig, OnlyTheFlagLinesChange) {
  const std::string original = test::slurp(kRoot + "/card_sds200/BCDx36HP/profile.cfg");
  test::TempDir card;
  std::filesystem::create_directories(card.file("BCDx36HP"));
  test::spit(card.file("BCDx36HP/profile.cfg"), original);
  RecordingFeedback feedback;
  ASSERT_EQ(enableAllInProfile(card.path(), "", feedback), ProfileRewrite::Written);
  const std::vector<std::string_view> before = splitLines(original);
  const std::string rewritten = test::slurp(card.file("BCDx36HP/profile.cfg"));
  const std::vector<std::string_view> after = splitLines(rewritten);
  ASSERT_EQ(after.size(), before.size());
  int changed = 0;
  for (std::size_t i = 0; i < before.size(); ++i) {
    if (before[i] != after[i]) {
      ++changed;
      EXPECT_TRUE(after[i].rfind("ServiceType", 0) == 0 ||
                  after[i].rfind("CustomServiceType", 0) == 0 ||
                  after[i].rfind("QuickKeys", 0) == 0)
          << after[i];
      EXPECT_EQ(after[i].find("Off"), std::string_view::npos);
    }
  }
  EXPECT_EQ(changed, 3);
}

}  // namespace
}  // namespace zel::formats
