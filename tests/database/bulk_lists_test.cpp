// What the bulk editor lists: systems of the scope's kind, their departments, sites or
// themselves, the channel rows of the right kind with keys that lead back to the row, and
// the channels that Command8 ticks for the ticked departments.
#include "database/bulk_lists.h"

#include <gtest/gtest.h>

#include <tuple>

#include "database/bulk_test_support.h"

namespace zel::bulk {
namespace {

using test::BulkDoc;

// Two conventional systems and one trunked one with a site.
struct Listed : BulkDoc {
  int conv = addSystem("New Conventional System", "County Fire");
  int trunk = addSystem("New P25 Trunk System", "Metro P25");
  int conv2 = addSystem("New Conventional System", "Airport");
  std::string fire = firstDepartment(
      conv, "Fire", {"1,154.100000,Fire Main,Off,NFM", "2,154.250000,Fire Tac,Off,NFM"});
  std::string ems = addDepartment(conv, "EMS", {"1,155.340000,EMS Main,Off,FM"});
  std::string law =
      firstDepartment(trunk, "Law", {"1,1234,Law Disp,Off,All", "3,1240,Law Tac,Off"});
  std::string tower = firstDepartment(conv2, "Tower", {"1,118.300000,Tower,Off,AM"});
  std::string site = addSite(trunk, "Simulcast");
};

std::vector<std::string> names(const std::vector<SystemEntry>& v) {
  std::vector<std::string> out;
  for (const auto& e : v) out.push_back(e.name);
  return out;
}
std::vector<std::string> keysOf(const std::vector<NodeEntry>& v) {
  std::vector<std::string> out;
  for (const auto& e : v) out.push_back(e.key);
  return out;
}

TEST(BulkLists, EachScopeListsTheSystemsOfItsKind) {
  Listed d;
  struct Case {
    Scope scope;
    std::vector<std::string> systems;
  };
  const Case cases[] = {
      {Scope::Frequencies, {"County Fire", "Airport"}},
      {Scope::TalkGroups, {"Metro P25"}},
      {Scope::Sites, {"Metro P25"}},
      {Scope::Departments, {"County Fire", "Metro P25", "Airport"}},
      {Scope::Systems, {"County Fire", "Metro P25", "Airport"}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(std::string(scopeCaption(c.scope)));
    EXPECT_EQ(names(listSystems(d.doc, c.scope)), c.systems);
  }
}

TEST(BulkLists, NodesOfOneSystemOrOfAll) {
  Listed d;
  struct Case {
    Scope scope;
    int system;
    std::vector<std::string> keys;
  };
  const Case cases[] = {
      {Scope::Frequencies, 0, {d.fire, d.ems, d.tower}},
      {Scope::Frequencies, d.conv, {d.fire, d.ems}},
      {Scope::Frequencies, d.trunk, {}},  // a trunked system is no choice for frequencies
      {Scope::TalkGroups, 0, {d.law}},
      {Scope::Departments, 0, {d.fire, d.ems, d.law, d.tower}},
      {Scope::Sites, 0, {d.site}},
      {Scope::Systems, d.conv2, {"SYS-003"}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(std::string(scopeCaption(c.scope)) + " " + std::to_string(c.system));
    EXPECT_EQ(keysOf(listNodes(d.doc, c.scope, c.system)), c.keys);
  }
  const std::vector<NodeEntry> ems = listNodes(d.doc, Scope::Frequencies, d.conv);
  EXPECT_EQ(ems[1].name + "|" + ems[1].systemName, "EMS|County Fire");
}

TEST(BulkLists, ChannelsCarryKeysToTheirRowsAndOnlyTheScopesKindUnderItsHeadings) {
  Listed d;
  // A talkgroup row that strayed into a conventional department is no frequency.
  d.rows.append(d.ems, {"2,4501,Stray,Off"});
  const std::vector<ChannelEntry> freq = listChannels(d.doc, d.rows, Scope::Frequencies, d.conv);
  ASSERT_EQ(freq.size(), 3u);
  EXPECT_EQ(std::tie(freq[1].key, freq[1].row, freq[1].first, freq[1].name, freq[1].departmentName),
            std::make_tuple(test::frq(d.fire, 2), 2, "154.250000", "Fire Tac", "Fire"));
  EXPECT_EQ(freq[2].department, d.ems);
  EXPECT_EQ(departmentOfChannel(freq[2].key), d.ems);

  const std::vector<ChannelEntry> tg = listChannels(d.doc, d.rows, Scope::TalkGroups, 0);
  ASSERT_EQ(tg.size(), 2u);
  // The key takes the row number of the line, not its position.
  EXPECT_EQ(tg[1].key, test::tid(d.law, 3));
  EXPECT_TRUE(listChannels(d.doc, d.rows, Scope::Departments, 0).empty());
  EXPECT_EQ(channelHeadings(Scope::Frequencies),
            (std::vector<std::string>{"#", "Frequency:", "Tag:", "Group:"}));
  EXPECT_EQ(channelHeadings(Scope::TalkGroups),
            (std::vector<std::string>{"#", "Talkgroup:", "Tag:", "Group:"}));
}

TEST(BulkLists, Command8TicksTheChannelsOfTheTickedDepartmentsFrequenciesFirst) {
  std::vector<ChannelEntry> list = {
      {"TID-001-001-0001", "GRP-999-001-001", 1, "1", "a", "A"},
      {"FRQ-002-001-0001", "GRP-999-002-001", 1, "1.0", "b", "B"},
      {"FRQ-002-002-0001", "GRP-999-002-002", 1, "2.0", "c", "C"},
      {"FRQ-002-001-0002", "GRP-999-002-001", 2, "3.0", "d", "B"},
  };
  EXPECT_EQ(channelsOfDepartments(list, {"GRP-999-001-001", "GRP-999-002-001"}),
            (std::vector<std::string>{"FRQ-002-001-0001", "FRQ-002-001-0002", "TID-001-001-0001"}));
  EXPECT_TRUE(channelsOfDepartments(list, {}).empty());
}

TEST(BulkLists, ASystemIsNamedByItsNumberOrItsName) {
  Listed d;
  struct Case {
    const char* text;
    Scope scope;
    int expected;  // 0 for none
  };
  const Case cases[] = {
      {"3", Scope::Frequencies, d.conv2},       {"003", Scope::Frequencies, d.conv2},
      {"airport", Scope::Frequencies, d.conv2}, {"Metro P25", Scope::TalkGroups, d.trunk},
      {"Metro P25", Scope::Frequencies, 0},     {"2", Scope::Frequencies, 0},
      {"Nowhere", Scope::Departments, 0},       {"", Scope::Departments, 0},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.text);
    EXPECT_EQ(systemNamed(d.doc, c.scope, c.text).value_or(0), c.expected);
  }
}

TEST(BulkLists, SystemsOfAFileAreToldByTheTypeLabelWhenTheTableDoesNotKnowThem) {
  BulkDoc d;
  d.doc.data.add({}, "SYS-007", "SIN,Conventional,0,StateId=0,Read Later,Off,,Conventional");
  d.doc.data.add({}, "SYS-008", "SIN,P25 Standard,0,StateId=0,Trunked,Off,,P25Standard");
  EXPECT_TRUE(isConventional(d.doc, 7));
  EXPECT_FALSE(isConventional(d.doc, 8));
  d.doc.systems.set(7, 10, "5");  // the table wins where it knows the system
  EXPECT_FALSE(isConventional(d.doc, 7));
}

}  // namespace
}  // namespace zel::bulk
