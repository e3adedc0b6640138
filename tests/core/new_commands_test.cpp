#include "core/new_commands.h"

#include <gtest/gtest.h>

#include "core/keys.h"
#include "core/memory_ports.h"
#include "core/record_line.h"
#include "core/tree_operations.h"

namespace zel {
namespace {

// The given fields of a record line, '|' between.
std::string fieldsOf(const std::string& line, std::initializer_list<int> fields) {
  std::string out;
  for (int f : fields) out += (out.empty() ? "" : "|") + record::field(line, f);
  return out;
}

TEST(NewCommands, EveryTrunkTemplateHasItsLabelNameAndTypeWord) {
  struct Case {
    const char* command;
    const char* label;
    const char* name;
    const char* typeWord;
    int type;
  } cases[] = {
      {"New Motorola Trunk System", "Motorola", "New MOT System", "Motorola", 1},
      {"New Trunk System", "Motorola", "New MOT System", "Motorola", 1},
      {"New LT Trunk System", "LTR", "New LT System", "LTR", 4},
      {"New Edacs Trunk System", "Edacs Narrow/Wide", "New EDA System", "Edacs", 2},
      {"New P25 Trunk System", "P25 Standard", "New P25 System", "P25 Standard", 5},
      {"New X2 TDMA Trunk System", "P25 X2 TDMA", "New TDMA System", "P25X2_TDMA", 7},
      {"New Nxdn Trunk System", "Nxdn", "New Nxdn System", "Nxdn", 10},
      {"New Nxdn One Frequency", "Nxdn One Frequency", "New Nxdn One Frequency System", "Nxdn", 11},
      {"New MotoTRBO Trunk System", "MotoTRBO", "New MotoTRBO System", "MotoTRBO", 8},
      {"New DMR One Frequency System", "DMR One Frequency", "New DMR One Frequency System", "DMR",
       9},
      {"New Rebanded Trunk System", "Motorola", "New System", "Motorola", 1},
  };
  for (const auto& c : cases) {
    Document doc;
    RecordingFeedback fb;
    auto r = newSystem(doc, c.command, fb);
    ASSERT_TRUE(r.ok) << c.command;
    const std::string line = treemod::getText(doc.data, r.key);
    EXPECT_EQ(fieldsOf(line, {0, 1, 4, 7, 12, 17}),
              std::string("SIN|") + c.label + "|" + c.name + "|" + c.typeWord + "|Search|Analog")
        << c.command;
    EXPECT_EQ(record::fieldCount(line), 24) << line;
    EXPECT_EQ(doc.systems.get(1, 10), std::to_string(c.type)) << c.command;
    // The first department comes from the trunked template.
    EXPECT_EQ(treemod::getText(doc.data, keys::department(1, 1)),
              "GIN,T-Group,TGroupId=0,AgencyId=0,New Department:,Off,0.000000,-00.000000,0.0,"
              "Circle,Off");
  }
}

TEST(NewCommands, ConventionalSystemFields) {
  Document doc;
  RecordingFeedback fb;
  auto r = newSystem(doc, "New Conventional System", fb);
  ASSERT_TRUE(r.ok);
  const std::string line = treemod::getText(doc.data, r.key);
  EXPECT_EQ(fieldsOf(line, {7, 13, 20, 23}), "Conventional|None|400|000");
  EXPECT_EQ(doc.systems.get(1, 10), "0");
  EXPECT_EQ(record::field(treemod::getText(doc.data, keys::department(1, 1)), 1), "C-Group");
  EXPECT_TRUE(doc.changed);
}

TEST(NewCommands, SitesOnlyOnTrunkedSystemsWithModeTail) {
  Document doc;
  RecordingFeedback fb;
  newSystem(doc, "New Conventional System", fb);
  EXPECT_FALSE(newSite(doc, 1, fb).ok);
  EXPECT_EQ(fb.messages.back(), "error, not a trunk system.");
  EXPECT_FALSE(newSite(doc, 0, fb).ok);
  EXPECT_EQ(fb.messages.back(), "error: please click on a system first");

  newSystem(doc, "New P25 Trunk System", fb);
  auto site = newSite(doc, 2, fb);
  ASSERT_TRUE(site.ok);
  EXPECT_EQ(site.key, "SIT-002-001");
  EXPECT_EQ(treemod::getText(doc.data, site.key),
            "SIF,Site,SiteId=0,TrunkId=0,A New Site,Off,00.000000,-00.000000,0.0,AUTO,Standard,"
            "Wide,Circle,0,500,Auto,9,None");
  doc.x36Mode = false;
  auto second = newSite(doc, 2, fb);
  EXPECT_EQ(second.key, "SIT-002-002");
  EXPECT_EQ(record::fieldCount(treemod::getText(doc.data, second.key)), 14);

  newSystem(doc, "New Rebanded Trunk System", fb);
  EXPECT_EQ(record::field(treemod::getText(doc.data, newSite(doc, 3, fb).key), 10),
            "Custom/Rebanded");
}

TEST(NewCommands, DepartmentNeedsASystemAndFillsGapsAndUnknownCommandsAreRefused) {
  Document doc;
  RecordingFeedback fb;
  EXPECT_FALSE(newDepartment(doc, 0, fb).ok);
  EXPECT_EQ(fb.messages.back(),
            "Can't add department. Please add a new system or select existing system.");
  newSystem(doc, "New Conventional System", fb);
  EXPECT_EQ(newDepartment(doc, 1, fb).key, "GRP-999-001-002");
  EXPECT_EQ(newDepartment(doc, 1, fb).key, "GRP-999-001-003");
  treemod::removeNode(doc.data, "GRP-999-001-002");
  EXPECT_EQ(newDepartment(doc, 1, fb).key, "GRP-999-001-002");
  // A command the templates do not know shows its caption and adds nothing.
  const std::size_t nodes = doc.data.count();
  EXPECT_FALSE(newSystem(doc, "New Banana System", fb).ok);
  EXPECT_EQ(fb.messages.back(), "New Banana System");
  EXPECT_EQ(doc.data.count(), nodes);
}

TEST(NewCommands, VisibleTreeShowsNamesUnderTheirParents) {
  Document doc;
  RecordingFeedback fb;
  newSystem(doc, "New P25 Trunk System", fb);
  newSite(doc, 1, fb);
  NodeId sys = doc.visible.find("SYS-001");
  ASSERT_NE(sys, kNoNode);
  EXPECT_EQ(doc.visible.text(sys), "New P25 System");
  EXPECT_EQ(doc.visible.children(sys), 2);
  EXPECT_EQ(doc.visible.text(doc.visible.find("SIT-001-001")), "A New Site");
  treemod::setField(doc.data, "SYS-001", 4, "County P25");
  rebuildVisibleTree(doc);
  EXPECT_EQ(doc.visible.text(doc.visible.find("SYS-001")), "County P25");
}

}  // namespace
}  // namespace zel
