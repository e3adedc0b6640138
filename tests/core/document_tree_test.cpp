#include "core/document_tree.h"

#include <gtest/gtest.h>

#include <vector>

namespace zel {
namespace {

DocumentTree sample() {
  DocumentTree t;
  t.add("", "SYS-001", "SIN,a");
  t.add("SYS-001", "SIT-001-001", "SIF,site");
  t.add("SYS-001", "GRP-999-001-001", "GIN,dept");
  t.add("", "SYS-002", "SIN,b");
  t.add("SYS-002", "GRP-999-002-001", "GIN,dept2");
  return t;
}

TEST(DocumentTree, AddRefusesDuplicateKeysAndUnknownRelatives) {
  DocumentTree t = sample();
  EXPECT_EQ(t.add("", "SYS-001", "again"), kNoNode);
  EXPECT_EQ(t.add("SYS-404", "SIT-404-001", "x"), kNoNode);
  EXPECT_EQ(t.add("", "", "no key"), kNoNode);
  EXPECT_EQ(t.count(), 5u);
  EXPECT_EQ(t.text(t.find("SYS-001")), "SIN,a");
}

TEST(DocumentTree, WalksFollowTheTree) {
  DocumentTree t = sample();
  NodeId sys1 = t.find("SYS-001"), sys2 = t.find("SYS-002");
  NodeId site = t.find("SIT-001-001"), dept = t.find("GRP-999-001-001");
  EXPECT_EQ(t.children(sys1), 2);
  // child, next twice, parent, first and last sibling, root, top-level siblings, top parent
  EXPECT_EQ(
      (std::vector<NodeId>{t.child(sys1), t.next(site), t.next(dept), t.parent(dept),
                           t.firstSibling(dept), t.lastSibling(site), t.root(dept),
                           t.firstSibling(sys2), t.lastSibling(sys1), t.parent(sys1)}),
      (std::vector<NodeId>{site, dept, kNoNode, sys1, site, dept, sys1, sys1, sys2, kNoNode}));
}

TEST(DocumentTree, IndexIsPositionInCollectionAndShiftsOnRemove) {
  DocumentTree t = sample();
  const auto index = [&t](const char* key) { return t.index(t.find(key)); };
  EXPECT_EQ(
      (std::vector<int>{index("SYS-001"), index("GRP-999-001-001"), index("GRP-999-002-001")}),
      (std::vector<int>{1, 3, 5}));
  ASSERT_TRUE(t.remove("SYS-001"));  // takes its site and department along
  EXPECT_EQ(t.count(), 2u);
  EXPECT_FALSE(t.contains("SIT-001-001"));
  EXPECT_EQ((std::vector<int>{index("SYS-002"), index("GRP-999-002-001")}),
            (std::vector<int>{1, 2}));
  EXPECT_EQ(t.atIndex(2), t.find("GRP-999-002-001"));
  EXPECT_EQ(t.atIndex(3), kNoNode);
  // A node added after removals takes the last position.
  NodeId n = t.add("", "SYS-003", "SIN,c");
  EXPECT_EQ(t.index(n), 3);
  EXPECT_EQ(t.atIndex(3), n);
}

TEST(DocumentTree, IndexStaysRightOverManyAddsAndRemoves) {
  DocumentTree t;
  for (int i = 0; i < 500; ++i) t.add("", "K" + std::to_string(i), "");
  for (int i = 0; i < 500; i += 3) t.remove("K" + std::to_string(i));
  int expected = 0;
  for (int i = 0; i < 500; ++i) {
    if (i % 3 == 0) continue;
    ++expected;
    NodeId n = t.find("K" + std::to_string(i));
    ASSERT_EQ(t.index(n), expected) << i;
    ASSERT_EQ(t.atIndex(expected), n) << i;
  }
}

TEST(DocumentTree, SetKeyKeepsLookupConsistentAndClearEmptiesEverything) {
  DocumentTree t = sample();
  NodeId n = t.find("GRP-999-001-001");
  EXPECT_FALSE(t.setKey(n, "SYS-002"));
  EXPECT_TRUE(t.setKey(n, "GRP-999-001-005"));
  EXPECT_EQ(t.find("GRP-999-001-005"), n);
  EXPECT_FALSE(t.contains("GRP-999-001-001"));
  t.clear();
  EXPECT_TRUE(t.empty());
  EXPECT_EQ(t.firstTopLevel(), kNoNode);
  EXPECT_NE(t.add("", "SYS-001", "x"), kNoNode);
}

}  // namespace
}  // namespace zel
