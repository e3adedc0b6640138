// The quick keys of a real BCD536HP card's list: its one list on key 1, the three systems on
// keys 1 to 3, their departments numbered from 1, and no key used twice.
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
  ASSERT_EQ(list.systems.size(), 3u);
  const struct {
    CardItem item;
    int key;
    std::size_t children;
  } expected[] = {{CardItem::Trunk, 1, 3}, {CardItem::Conventional, 2, 5}, {CardItem::Conventional, 3, 2}};
  for (std::size_t i = 0; i < 3; ++i) {
    const CardSystem& s = list.systems[i];
    EXPECT_EQ(s.item, expected[i].item) << s.name;
    EXPECT_EQ(s.key, expected[i].key) << s.name;
    EXPECT_EQ(s.children.size(), expected[i].children) << s.name;
  }
  EXPECT_EQ(list.systems[1].children[0].key, 1);
  EXPECT_EQ(list.systems[1].children[4].key, 5);
  EXPECT_TRUE(overview.duplicates.empty());
}

}  // namespace
}  // namespace zel::qkeys
