// The quick key layout: buckets, what a move writes back, the next free key and the overviews.
#include "database/qkey_layout.h"

#include <gtest/gtest.h>

#include "core/keys.h"
#include "core/record_line.h"
#include "core/tree_operations.h"

namespace zel::qkeys {
namespace {

std::string systemLine(bool conventional, const std::string& name, const std::string& key) {
  const std::string base = conventional
                               ? "SIN,Conventional,0,StateId=0,x,Off,,Conventional,,,,,,x,Off,Off,0"
                               : "SIN,P25 Standard,2,StateId=0,x,0,,P25Standard,0,0,Auto,0,Search,x,"
                                 "None,0,0,0,Analog,0,0,On,,001";
  return record::withField(record::withField(base, 4, name), 13, key);
}

// Three systems: a conventional one without a key and two trunked ones; the second has a
// department, a site and a department without a key.
struct Doc {
  Document doc;
  Doc(const std::vector<std::string>& systemKeys = {"None", "7", "99"}) {
    for (std::size_t i = 0; i < systemKeys.size(); ++i) {
      const std::string key = keys::system(static_cast<int>(i) + 1);
      doc.data.add("", key, systemLine(i == 0, "Sys" + std::to_string(i + 1), systemKeys[i]));
    }
    doc.data.add("SYS-002", "GRP-999-002-000", "GIN,T-Group,,,Fire,Off,41.3,-81.7,4.0,Circle,3");
    doc.data.add("SYS-002", "SIT-002-001",
                 "SIT,Site,,,North,Off,41.4,-81.7,19.1,AUTO,Standard,Wide(standard),Circle,0,400,"
                 "Auto,8,12");
    doc.data.add("SYS-002", "GRP-999-002-001", "GIN,T-Group,,,Police,Off,41.3,-81.7,4.0,Circle,Off");
    doc.data.add("SYS-002", "TFQ-002-001-001", "TFQ,851.0125,1,");
  }
  std::vector<std::string> bucket(const Layout& layout, int key) const {
    std::vector<std::string> out;
    for (const Item* item : bucketItems(layout, key)) out.push_back(item->text);
    return out;
  }
};

TEST(QkeyLayout, EachFieldValueGoesToItsBucket) {
  const struct {
    const char* field;
    int bucket;
  } cases[] = {{"None", kNoKey}, {"Off", kNoKey}, {".", kNoKey}, {"", kNoKey},  {"abc", kNoKey},
               {"100", kNoKey},  {"-1", kNoKey},  {"0", 0},       {" 7 ", 7},   {"99", 99}};
  for (const auto& c : cases) {
    Doc d({"1", c.field});
    const Layout layout = systemLayout(d.doc.data);
    EXPECT_EQ(d.bucket(layout, c.bucket), std::vector<std::string>{"[T] Sys2"}) << c.field;
  }
}

TEST(QkeyLayout, SystemAndDepartmentViewsNameTheirItems) {
  Doc d;
  const Layout systems = systemLayout(d.doc.data);
  using Buckets = std::vector<std::vector<std::string>>;
  EXPECT_EQ((Buckets{d.bucket(systems, kNoKey), d.bucket(systems, 7), d.bucket(systems, 99)}),
            (Buckets{{"[C] Sys1"}, {"[T] Sys2"}, {"[T] Sys3"}}));

  const Layout departments = departmentLayout(d.doc.data, 2);
  ASSERT_EQ(departments.items.size(), 3u);  // the site frequency is no item
  EXPECT_EQ(
      (Buckets{d.bucket(departments, 3), d.bucket(departments, 12), d.bucket(departments, kNoKey)}),
      (Buckets{{"[DEP] Fire"}, {"[SITE] North"}, {"[DEP] Police"}}));
}

TEST(QkeyLayout, AMoveWritesOnlyTheKeyFieldOfTheMovedRecords) {
  const struct {
    const char* node;
    int target;
    int field;
    const char* written;
  } cases[] = {
      {"GRP-999-002-000", kNoKey, 10, "Off"},  {"SIT-002-001", kNoKey, 17, "Off"},
      {"SYS-002", kNoKey, 13, "None"},         {"GRP-999-002-001", 0, 10, "0"},
      {"SIT-002-001", 45, 17, "45"},           {"SYS-001", 99, 13, "99"},
  };
  for (const auto& c : cases) {
    Doc d;
    const std::string before = treemod::getText(d.doc.data, c.node);
    Layout layout = c.node[0] == 'S' && c.node[1] == 'Y' ? systemLayout(d.doc.data)
                                                         : departmentLayout(d.doc.data, 2);
    EXPECT_EQ(moveTo(layout, {c.node}, c.target), 1) << c.node;
    EXPECT_EQ(writeBack(d.doc, layout), 1) << c.node;
    const std::string after = treemod::getText(d.doc.data, c.node);
    EXPECT_EQ(after, record::withField(before, c.field, c.written)) << c.node;
    EXPECT_TRUE(d.doc.changed) << c.node;
  }
}

TEST(QkeyLayout, ItemsDroppedOnTheirOwnBucketKeepTheirKeyAndChangeNothing) {
  Doc d;
  Layout layout = systemLayout(d.doc.data);
  EXPECT_EQ(moveTo(layout, {"SYS-002"}, 7), 0);
  EXPECT_FALSE(changed(layout));
  EXPECT_EQ(writeBack(d.doc, layout), 0);
  EXPECT_FALSE(d.doc.changed);

  // A selection from two buckets dropped on one of them moves only the other's item, and a
  // move back to where an item started is no change.
  EXPECT_EQ(moveTo(layout, {"SYS-002", "SYS-003", "SYS-404"}, 7), 1);
  EXPECT_EQ(d.bucket(layout, 7), (std::vector<std::string>{"[T] Sys2", "[T] Sys3"}));
  EXPECT_EQ(moveTo(layout, {"SYS-003"}, 99), 1);
  EXPECT_FALSE(changed(layout));
  EXPECT_EQ(moveTo(layout, {"SYS-003"}, 100), 0);
}

TEST(QkeyLayout, NextFreeKeyIsTheFirstNumberNoItemUses) {
  const struct {
    std::vector<std::string> keys;
    int free;
  } cases[] = {
      {{"None", "Off"}, 0}, {{"0", "1", "2"}, 3}, {{"1", "2"}, 0}, {{"0", "2", "Off"}, 1},
  };
  for (const auto& c : cases) {
    Doc d(c.keys);
    EXPECT_EQ(nextFreeKey(systemLayout(d.doc.data)), c.free) << c.keys.size();
  }
  std::vector<std::string> all;
  for (int k = 0; k < kKeyCount; ++k) all.push_back(std::to_string(k));
  Doc full(all);
  EXPECT_EQ(nextFreeKey(systemLayout(full.doc.data)), kNoKey);
  // The layout, not the records: a key freed by a move counts as free.
  Layout moved = systemLayout(full.doc.data);
  moveTo(moved, {moved.items[41].key}, kNoKey);
  EXPECT_EQ(nextFreeKey(moved), 41);
}

TEST(QkeyLayout, NamesOnASystemKeyAreItsSystemsThenItsSites) {
  Doc d({"7", "7", "None"});
  EXPECT_EQ(namesOnSystemKey(d.doc.data, 7), (std::vector<std::string>{"Sys1", "Sys2"}));
  EXPECT_EQ(namesOnSystemKey(d.doc.data, 12), std::vector<std::string>{"site: North"});
  EXPECT_EQ(namesOnSystemKey(d.doc.data, 8), std::vector<std::string>{"None"});
}

TEST(QkeyLayout, OverviewListsSystemsByKeyWithTheirChildrenAndNoKeyLast) {
  Doc d({"None", "7", "2"});
  const std::vector<std::string> expected = {
      "Quickkey Overview:", "ZEL536", "",
      "Quickkey: 2", "    [T] Sys3",
      "Quickkey: 7", "    [T] Sys2", "        03  [DEP] Fire", "        12  [SITE] North",
      "        --  [DEP] Police",
      "No Key Assigned:", "    [C] Sys1"};
  EXPECT_EQ(overviewLines(d.doc.data, "ZEL536"), expected);
}

TEST(QkeyLayout, PrintedSystemViewNamesTheTenKeysOfTheDecadeOnShow) {
  Doc d;
  Layout layout = departmentLayout(d.doc.data, 2);
  moveTo(layout, {"GRP-999-002-001"}, 19);
  const std::vector<std::string> lines = bucketPrintLines(layout, "Sys2", 1);
  ASSERT_EQ(lines.size(), 11u);
  EXPECT_EQ(std::tuple(lines[0], lines[1], lines[3], lines[10]),
            std::tuple("QuickKeys for: Sys2", "QuicKey 1:", "QuicKey 3:  [SITE] North",
                       "QuicKey 10:  [DEP] Police"));
}

}  // namespace
}  // namespace zel::qkeys
