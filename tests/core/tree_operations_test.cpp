#include "core/tree_operations.h"

#include <gtest/gtest.h>

#include "core/keys.h"
#include "core/memory_ports.h"
#include "core/new_commands.h"

namespace zel {
namespace {

TEST(NextFreeIndex, EmptyTreeGivesSystemOneAndATableRowAloneTakesNoNumber) {
  Document doc;
  RecordingFeedback fb;
  EXPECT_EQ(treemod::g_n_i(doc, "system", 0, fb), 1);
  EXPECT_TRUE(doc.systems.inUse(1));
  Document used;
  used.data.add("", "SYS-002", "SIN");
  used.systems.markInUse(1, true);  // once used, its node gone
  EXPECT_EQ(treemod::g_n_i(used, "system", 0, fb), 1);
}

TEST(NextFreeIndex, FillsGapsForEveryKindWord) {
  Document doc;
  RecordingFeedback fb;
  doc.data.add("", "SYS-001", "SIN");
  doc.data.add("", "SYS-003", "SIN");
  doc.data.add("SYS-001", "GRP-999-001-001", "GIN");
  doc.data.add("SYS-001", "GRP-999-001-002", "GIN");
  doc.data.add("SYS-001", "GRP-999-001-004", "GIN");
  doc.data.add("SYS-001", "SIT-001-001", "SIF");
  for (const char* w : {"system", "SYSTEM", "SYS", "sys"}) EXPECT_EQ(treemod::g_n_i(doc, w, 0, fb), 2) << w;
  for (const char* w : {"group", "GROUP", "grp", "GRP"}) EXPECT_EQ(treemod::g_n_i(doc, w, 1, fb), 3) << w;
  for (const char* w : {"site", "SITE", "SIT", "sit"}) EXPECT_EQ(treemod::g_n_i(doc, w, 1, fb), 2) << w;
  // Another system's departments do not count.
  EXPECT_EQ(treemod::g_n_i(doc, "group", 3, fb), 1);
  EXPECT_TRUE(fb.messages.empty());
}

TEST(NextFreeIndex, UnknownWordAndMissingSystemAreReported) {
  Document doc;
  RecordingFeedback fb;
  doc.data.add("", "SYS-001", "SIN");
  EXPECT_EQ(treemod::g_n_i(doc, "department", 0, fb), 2);
  EXPECT_EQ(fb.messages.back(), "error in routine g_n_i");
  EXPECT_EQ(treemod::g_n_i(doc, "group", 0, fb), 0);
  EXPECT_EQ(fb.messages.back(), "error: set sys index!");
}

TEST(NextFreeIndex, DepartmentLimitIs399) {
  Document doc;
  RecordingFeedback fb;
  doc.data.add("", "SYS-001", "SIN");
  for (int n = 1; n <= 399; ++n) doc.data.add("SYS-001", keys::department(1, n), "GIN");
  EXPECT_EQ(treemod::g_n_i(doc, "group", 1, fb), 0);
  doc.data.remove(keys::department(1, 250));
  EXPECT_EQ(treemod::g_n_i(doc, "group", 1, fb), 250);
}

TEST(NextFreeIndex, FullTreeRefusesWithOutOfStorage) {
  Document doc;
  RecordingFeedback fb;
  for (std::size_t n = 0; n <= kMaxTreeNodes; ++n) doc.data.add("", "N" + std::to_string(n), "");
  EXPECT_EQ(treemod::g_n_i(doc, "system", 0, fb), 0);
  ASSERT_FALSE(fb.messages.empty());
  EXPECT_EQ(fb.messages.back(), "ERROR: Out of storage space");
}

TEST(TreeOperations, TextAndFieldAccess) {
  Document doc;
  doc.data.add("", "SYS-001", "SIN,Conventional,0,StateId=0,Old,Off");
  EXPECT_EQ(treemod::getText(doc.data, "SYS-404"), "");
  treemod::setField(doc.data, "SYS-001", 4, " New name ");
  EXPECT_EQ(treemod::getText(doc.data, "SYS-001"), "SIN,Conventional,0,StateId=0,New name,Off");
  treemod::setText(doc.data, "SIT-001-001", "SIF");  // missing stays missing
  EXPECT_FALSE(doc.data.contains("SIT-001-001"));
  treemod::setText(doc.data, "TRN-001-000", "TRN,x");  // TRN- is added below its system
  NodeId trn = doc.data.find("TRN-001-000");
  ASSERT_NE(trn, kNoNode);
  EXPECT_EQ(doc.data.parent(trn), doc.data.find("SYS-001"));
  treemod::removeNode(doc.data, "SY");  // too short: nothing
  EXPECT_TRUE(doc.data.contains("SYS-001"));
  treemod::removeNode(doc.data, "SYS-001");
  EXPECT_TRUE(doc.data.empty());
}

TEST(TreeOperations, WalkAndFindSystems) {
  Document doc;
  doc.data.add("", "FAV-001", "");
  doc.data.add("", "SYS-004", "SIN");
  doc.data.add("", "SYS-002", "SIN");
  doc.data.add("SYS-002", "SIT-002-007", "SIF");
  doc.data.add("SYS-002", "GRP-999-002-003", "GIN");
  auto systems = treemod::walkSystems(doc.data);
  ASSERT_EQ(systems.size(), 2u);
  EXPECT_EQ(doc.data.key(systems[0]), "SYS-004");
  EXPECT_EQ(treemod::findSystem(doc.data, 2), doc.data.find("SYS-002"));
  EXPECT_EQ(treemod::findSite(doc.data, 2, 7), doc.data.find("SIT-002-007"));
  EXPECT_EQ(treemod::findDepartment(doc.data, 2, 3), doc.data.find("GRP-999-002-003"));
  EXPECT_EQ(treemod::findSystem(doc.data, 3), kNoNode);
}

TEST(TreeOperations, SortFavoritesOnlyMarksListsWithChildren) {
  DocumentTree t;
  t.add("", "FAV-001", "a");
  t.add("FAV-001", "SYS-001", "s");
  t.add("", "FAV-002", "b");
  treemod::sortFavorites(t);
  EXPECT_TRUE(t.sorted(t.find("FAV-001")));
  EXPECT_FALSE(t.sorted(t.find("FAV-002")));
}

}  // namespace
}  // namespace zel
