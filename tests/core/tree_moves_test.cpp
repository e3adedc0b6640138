#include "core/tree_moves.h"

#include <gtest/gtest.h>

#include "core/keys.h"
#include "core/memory_ports.h"
#include "core/new_commands.h"
#include "core/record_line.h"
#include "core/tree_operations.h"
#include "test_folder.h"

namespace zel {
namespace {

// Two conventional systems and a P25 system with a site, a site frequency, a fleet-less
// unit list and rows in its department.
struct Moves {
  TestFolder dir;
  PageFiles pages{dir.file("temp")};
  Document doc;
  RecordingFeedback feedback;
  Moves() {
    pages.clearAll();
    newSystem(doc, "New Conventional System", feedback);  // 1, GRP-999-001-001
    newSystem(doc, "New Conventional System", feedback);  // 2, GRP-999-002-001
    newSystem(doc, "New P25 Trunk System", feedback);     // 3, GRP-999-003-001
    newSite(doc, 3, feedback);                            // SIT-003-001
    doc.data.addChild(doc.data.find("SIT-003-001"), "TFQ-003-001-001", "TFQ,851.012500,1,");
    doc.frequencies.add({}, "TFQ-003-001-001", "TFQ,851.012500,1,");
    pages.save("GRP-999-001-001", {"1,154.280000,Fire", "2,155.000000,EMS"});
    pages.save("GRP-999-003-001", {"1,1234,Dispatch"});
    doc.changed = false;
  }
};

TEST(TreeMoves, SystemNumberIsReplacedAtItsPlaceInEveryKeyKind) {
  const struct {
    const char* key;
    int system;
    const char* expected;
  } cases[] = {
      {"SYS-004", 7, "SYS-007"},
      {"SIT-004-002", 7, "SIT-007-002"},
      {"GRP-999-004-002", 7, "GRP-999-007-002"},
      {"TFQ-004-002-010", 12, "TFQ-012-002-010"},
      {"FMP-004-000", 100, "FMP-100-000"},
      {"UDD-004-00-0012", 1, "UDD-001-00-0012"},
  };
  for (const auto& c : cases)
    EXPECT_EQ(treemod::withSystemNumber(c.key, c.system), c.expected) << c.key;
}

TEST(TreeMoves, ACopiedSystemCarriesEveryPartUnderItsNewNumber) {
  Moves m;
  auto r = treemod::copySystemToList(m.doc, m.pages, "SYS-003", 2, m.feedback);
  ASSERT_TRUE(r.ok);
  EXPECT_EQ(r.key, "SYS-004");
  for (const char* key : {"SIT-004-001", "TFQ-004-001-001", "GRP-999-004-001"})
    EXPECT_TRUE(m.doc.data.contains(key)) << key;
  EXPECT_TRUE(m.doc.frequencies.contains("TFQ-004-001-001"));
  EXPECT_EQ(m.pages.load("GRP-999-004-001"), m.pages.load("GRP-999-003-001"));
  EXPECT_EQ(treemod::getField(m.doc.data, "SYS-004", 23), "002");
  EXPECT_TRUE(m.doc.systems.inUse(4));
  EXPECT_EQ(m.doc.systems.get(4, 10), m.doc.systems.get(3, 10));
  EXPECT_TRUE(m.doc.data.contains("TFQ-003-001-001")) << "the source is untouched";
  EXPECT_EQ(m.pages.load("GRP-999-003-001").size(), 1u);
  EXPECT_TRUE(m.doc.changed);
}

TEST(TreeMoves, MovingASystemToAListOnlyChangesItsFile) {
  Moves m;
  const std::string before = m.doc.data.text(m.doc.data.find("SYS-001"));
  ASSERT_TRUE(treemod::moveSystemToList(m.doc, "SYS-001", 3, m.feedback).ok);
  const std::string after = m.doc.data.text(m.doc.data.find("SYS-001"));
  EXPECT_EQ(after, before.substr(0, before.rfind(',') + 1) + "003");
  EXPECT_FALSE(treemod::moveSystemToList(m.doc, "GRP-999-001-001", 3, m.feedback).ok);
}

TEST(TreeMoves, ADepartmentMovesWithItsRowsToTheLowestFreeNumber) {
  Moves m;
  auto r = treemod::moveDepartment(m.doc, m.pages, "GRP-999-001-001", 2, m.feedback);
  ASSERT_TRUE(r.ok);
  EXPECT_EQ(r.key, "GRP-999-002-002");
  EXPECT_FALSE(m.doc.data.contains("GRP-999-001-001"));
  EXPECT_FALSE(m.pages.exists("GRP-999-001-001"));
  EXPECT_EQ(m.pages.load("GRP-999-002-002").size(), 2u);
  EXPECT_EQ(m.doc.data.key(m.doc.data.parent(m.doc.data.find(r.key))), "SYS-002");

  // A copy keeps the source and takes the next number.
  auto c = treemod::copyDepartment(m.doc, m.pages, "GRP-999-002-002", 2, m.feedback);
  ASSERT_TRUE(c.ok);
  EXPECT_EQ(c.key, "GRP-999-002-003");
  EXPECT_EQ(m.pages.load("GRP-999-002-002"), m.pages.load("GRP-999-002-003"));
}

TEST(TreeMoves, ADepartmentRefusesASystemOfTheOtherKindAndNothingChanges) {
  Moves m;
  const std::size_t nodes = m.doc.data.count();
  auto r = treemod::moveDepartment(m.doc, m.pages, "GRP-999-001-001", 3, m.feedback);
  EXPECT_FALSE(r.ok);
  EXPECT_EQ(m.feedback.messages.back(),
            "A department moves only between systems of the same kind.");
  EXPECT_EQ(m.doc.data.count(), nodes);
  EXPECT_EQ(m.pages.load("GRP-999-001-001").size(), 2u);
  EXPECT_FALSE(m.doc.changed);
  EXPECT_FALSE(treemod::moveDepartment(m.doc, m.pages, "GRP-999-001-001", 9, m.feedback).ok);
}

}  // namespace
}  // namespace zel
