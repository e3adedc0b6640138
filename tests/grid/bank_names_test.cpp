#include "grid/bank_names.h"

#include <gtest/gtest.h>

#include <tuple>

#include "core/memory_ports.h"
#include "core/new_commands.h"
#include "core/record_line.h"
#include "core/tree_operations.h"

namespace zel {
namespace {

// Two systems of two departments each, made by the New commands.
struct TwoSystems {
  Document doc;
  RecordingFeedback feedback;
  std::vector<std::string> keys;
  TwoSystems() {
    for (const char* command : {"New P25 Trunk System", "New Conventional System"}) {
      NewNodeResult sys = newSystem(doc, command, feedback);
      const int number = std::stoi(sys.key.substr(4));
      newDepartment(doc, number, feedback);
    }
    for (const banks::BankName& b : banks::list(doc.data)) keys.push_back(b.key);
    doc.changed = false;
  }
};

TEST(BankNames, ListsEveryDepartmentUnderItsSystemInTreeOrder) {
  TwoSystems t;
  treemod::setField(t.doc.data, "GRP-999-002-002", 4, "Harbour");
  const std::vector<banks::BankName> names = banks::list(t.doc.data);
  ASSERT_EQ(names.size(), 4u);
  EXPECT_EQ(names[0].key + "|" + names[0].system + ";" + names[3].key + "|" + names[3].system +
                "|" + names[3].name,
            "GRP-999-001-001|New P25 System;GRP-999-002-002|New System|Harbour");
}

TEST(BankNames, TypedNamesAreMadeFitForALine) {
  struct Case {
    std::string typed;
    std::optional<std::string> stored;
  } cases[] = {
      {"Fire, North", "Fire; North"},
      {"  Padded  ", "Padded"},
      {std::string(70, 'a'), std::string(64, 'a')},
      {std::string(63, 'b') + "  c", std::string(63, 'b')},  // no blank left at the cut
      {"", std::nullopt},
      {"   ", std::nullopt},
  };
  for (const Case& c : cases) EXPECT_EQ(banks::cleanName(c.typed), c.stored) << c.typed;
}

TEST(BankNames, RenameIsAllOrNothingAndMarksOnlyARealChange) {
  TwoSystems t;
  const std::string first = treemod::getField(t.doc.data, t.keys[0], 4);

  banks::RenameResult same = banks::rename(t.doc, {{t.keys[0], first}, {"GRP-999-009-001", "X"}});
  EXPECT_EQ(std::make_tuple(same.renamed, same.error, t.doc.changed),
            std::make_tuple(0, std::string(), false));

  banks::RenameResult refused = banks::rename(t.doc, {{t.keys[0], "Fire"}, {t.keys[1], " "}});
  EXPECT_FALSE(refused.error.empty());
  EXPECT_EQ(treemod::getField(t.doc.data, t.keys[0], 4), first);
  EXPECT_FALSE(t.doc.changed);

  // A system key is not a department: its name stays.
  banks::RenameResult done =
      banks::rename(t.doc, {{t.keys[0], "Fire, Main"}, {t.keys[3], "Law"}, {"SYS-001", "No"}});
  EXPECT_EQ(done.renamed, 2);
  EXPECT_TRUE(t.doc.changed);
  EXPECT_EQ(treemod::getField(t.doc.data, t.keys[0], 4) + "|" +
                treemod::getField(t.doc.data, t.keys[3], 4) + "|" +
                treemod::getField(t.doc.data, "SYS-001", 4),
            "Fire; Main|Law|New P25 System");
  // Every other field of the line is as it was.
  EXPECT_EQ(record::withField(treemod::getText(t.doc.data, t.keys[3]), 4, "New Department:"),
            record::withField(treemod::getText(t.doc.data, t.keys[2]), 4, "New Department:"));
}

}  // namespace
}  // namespace zel
