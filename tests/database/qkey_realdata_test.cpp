// The quick keys of the real BCD536HP card's one list.
#include <gtest/gtest.h>

#include "database/qkey_card.h"

namespace zel::qkeys {
namespace {

TEST(QkeyRealdata, Bcd536hpCardOverview) {
  const CardOverview overview =
      readCardOverview(std::string(ZEL_REALDATA_DIR) + "/card_bcd536hp/BCDx36HP");
  ASSERT_TRUE(overview.ok) << overview.error;
  ASSERT_EQ(overview.lists.size(), 1u);
  const CardList& list = overview.lists[0];
  EXPECT_EQ(list.key, 1);
  std::vector<std::tuple<CardItem, int, std::size_t>> systems;
  for (const CardSystem& s : list.systems) systems.emplace_back(s.item, s.key, s.children.size());
  EXPECT_EQ(systems,
            (std::vector<std::tuple<CardItem, int, std::size_t>>{{CardItem::Trunk, 1, 3},
                                                                 {CardItem::Conventional, 2, 5},
                                                                 {CardItem::Conventional, 3, 2}}));
  ASSERT_EQ(list.systems.size(), 3u);
  EXPECT_EQ(std::pair(list.systems[1].children[0].key, list.systems[1].children[4].key),
            std::pair(1, 5));
  EXPECT_TRUE(overview.duplicates.empty());
}

}  // namespace
}  // namespace zel::qkeys
