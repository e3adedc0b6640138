// The database import: the filter, what a choice takes under which keys, and the refusals.
#include <gtest/gtest.h>

#include "core/keys.h"
#include "core/memory_ports.h"
#include "core/record_line.h"
#include "core/text.h"
#include "database/db_import.h"
#include "database/db_state_sample.h"

namespace zel::database {
namespace {

class DbImport : public ::testing::Test {
 protected:
  void SetUp() override { ASSERT_TRUE(state_.readText(test::sampleStateText(), true, quiet_).ok()); }

  std::vector<std::string> passing(const DbFilter& filter) const {
    std::vector<std::string> names;
    for (const DbSystem* s : state_.filtered(filter)) names.push_back(s->name);
    return names;
  }
  DbImportResult import(const std::vector<DbChoice>& choices) {
    return importSystems({doc_, rows_, quiet_, 0}, state_, choices);
  }
  std::string name(const std::string& key) const {
    return record::field(textOf(key), 4);
  }
  std::string textOf(const std::string& key) const {
    const NodeId n = doc_.data.find(key);
    return n == kNoNode ? std::string("(none)") : doc_.data.text(n);
  }

  RecordingFeedback quiet_;
  StateDatabase state_;
  Document doc_;
  formats::MemoryRows rows_;
};

TEST_F(DbImport, FilterByNameServiceAndPlace) {
  struct Case {
    const char* what;
    DbFilter filter;
    std::vector<std::string> systems;
  };
  const std::vector<Case> cases = {
      {"nothing set", {}, {"Ada County", "Capital Net"}},
      {"system name in any case", {"CAPITAL", "", {}}, {"Capital Net"}},
      {"a department's name", {"roads", "", {}}, {"Ada County"}},
      {"a site's name", {"ridge", "", {}}, {"Capital Net"}},
      {"a name nobody has", {"Harbor", "", {}}, {}},
      {"a service of one system", {"", "Public Works", {}}, {"Ada County"}},
      {"a service that is nowhere", {"", "Railroad", {}}, {}},
      // About 27 miles from the fire department (range 10), 47 from the north site (15).
      {"place reaching the department's circle", {"", "", DbCircle{43.6, -116.75, 20}}, {"Ada County"}},
      {"place reaching both", {"", "", DbCircle{43.6, -116.75, 35}}, {"Ada County", "Capital Net"}},
      {"place far from all", {"", "", DbCircle{47.0, -100.0, 50}}, {}},
      // The roads department stands at 0,0: a place there finds nothing.
      {"place at 0,0", {"", "", DbCircle{0, 0, 1}}, {}},
      {"name and service both asked", {"Ada", "Schools", {}}, {}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    EXPECT_EQ(passing(c.filter), c.systems);
  }
}

TEST_F(DbImport, ChosenPartsBecomeNewNodesNumberedInTheDocument) {
  struct Case {
    const char* what;
    std::vector<DbChoice> choices;
    std::vector<std::string> keysAndNames;  // "key=name" of the nodes that must be there
    std::vector<std::string> absent;
    int channels;
  };
  const std::vector<Case> cases = {
      {"whole systems",
       {{1, {}, {}}, {2, {}, {}}},
       {"SYS-001=Ada County", "GRP-999-001-001=Roads", "SYS-002=Capital Net",
        "SIT-002-002=South Ridge", "GRP-999-002-001=Schools"},
       {},
       6},
      {"the second site and department only",
       {{2, {2}, {2}}},
       {"SYS-001=Capital Net", "SIT-001-001=South Ridge", "GRP-999-001-000=Schools"},
       {"SIT-001-002", "GRP-999-001-001", "TFQ-001-001-002"},
       2},
      {"departments chosen, every site kept",
       {{2, {}, {1}}},
       {"SIT-001-001=North Hill", "SIT-001-002=South Ridge", "GRP-999-001-000=Police"},
       {"GRP-999-001-001"},
       1},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    doc_ = Document{};
    rows_ = {};
    const DbImportResult r = import(c.choices);
    ASSERT_TRUE(r.ok) << r.message;
    EXPECT_EQ(r.channels, c.channels);
    for (const std::string& pair : c.keysAndNames) {
      const std::size_t eq = pair.find('=');
      EXPECT_EQ(name(pair.substr(0, eq)), pair.substr(eq + 1)) << pair;
    }
    for (const std::string& key : c.absent) EXPECT_FALSE(doc_.data.contains(key)) << key;
    EXPECT_TRUE(doc_.changed);
  }
}

TEST_F(DbImport, RowsAndSiteFrequenciesFollowTheirNewKeys) {
  // SYS-001 is taken: the trunked system becomes SYS-002 with its second site as site 1.
  doc_.data.add({}, keys::system(1), "SIN,Conventional,0,,Mine");
  const DbImportResult r = import({{2, {2}, {2}}});
  ASSERT_TRUE(r.ok) << r.message;
  EXPECT_EQ(r.systemKeys, (std::vector<std::string>{"SYS-002"}));
  const std::vector<std::string> rows = rows_.load("GRP-999-002-000");
  ASSERT_EQ(rows.size(), 2u);
  EXPECT_EQ(record::field(rows[1], 2), "Campus");
  EXPECT_EQ(record::field(textOf("TFQ-002-001-001"), 1), "852.012500");
  EXPECT_TRUE(doc_.frequencies.contains("TFQ-002-001-001"));
  EXPECT_EQ(doc_.systems.get(2, 1), "Capital Net");
}

TEST_F(DbImport, RefusalsLeaveTheDocumentAsItWas) {
  struct Case {
    const char* what;
    int systemsBefore;    // SYS- nodes already in the document
    std::size_t fillTo;   // nodes in the document before the import (0: no filling)
    std::vector<DbChoice> choices;
    std::string message;  // "" when the import must succeed
  };
  // The trunked system whole: system, unit-ID head, 2 sites, 3 frequencies, 2 departments.
  constexpr std::size_t kTrunkNodes = 9;
  const std::vector<Case> cases = {
      {"no such system", 0, 0, {{3, {}, {}}}, "The state file has no system 3 (it has 2)."},
      {"no such site", 0, 0, {{2, {3}, {}}}, "System 2 (Capital Net) has no site 3."},
      {"no such department", 0, 0, {{1, {}, {0}}}, "System 1 (Ada County) has no department 0."},
      {"nothing chosen", 0, 0, {}, "No system is chosen."},
      {"one number left, two systems", 998, 0, {{1, {}, {}}, {2, {}, {}}},
       "ERROR: Out of storage space"},
      {"one number left, one system", 998, 0, {{1, {}, {}}}, ""},
      {"one node short", 1, kMaxTreeNodes - kTrunkNodes + 1, {{2, {}, {}}},
       "ERROR: Out of storage space"},
      {"exactly enough nodes", 1, kMaxTreeNodes - kTrunkNodes, {{2, {}, {}}}, ""},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    doc_ = Document{};
    rows_ = {};
    for (int n = 1; n <= c.systemsBefore; ++n) doc_.data.add({}, keys::system(n), "SIN,x");
    for (int n = 0; doc_.data.count() < c.fillTo; ++n) {
      doc_.data.add(keys::system(1), "UDD-001-00-" + std::to_string(n), "UID,1");
    }
    const std::size_t before = doc_.data.count();
    quiet_.messages.clear();
    const DbImportResult r = import(c.choices);
    if (c.message.empty()) {
      EXPECT_TRUE(r.ok) << r.message;
      continue;
    }
    EXPECT_FALSE(r.ok);
    EXPECT_EQ(r.message, c.message);
    EXPECT_EQ(quiet_.messages, std::vector<std::string>{c.message});
    EXPECT_EQ(doc_.data.count(), before);
    EXPECT_EQ(doc_.frequencies.count(), 0u);
    EXPECT_EQ(rows_.departments(), 0u);
    EXPECT_FALSE(doc_.changed);
  }
}

}  // namespace
}  // namespace zel::database
