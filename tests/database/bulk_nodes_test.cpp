// The GPS and site panels over department, site and system records: each item writes its
// own field through the set-field operation and nothing else, a switch keeps the form its
// field holds, the location is read before anything changes, and the GPS buttons' sources.
#include "database/bulk_nodes.h"

#include <gtest/gtest.h>

#include "core/memory_ports.h"
#include "core/record_line.h"
#include "database/bulk_test_support.h"

namespace zel::bulk {
namespace {

using test::BulkDoc;
using test::changedFields;

// A department, a site and a system with records as a file read leaves them.
struct Nodes : BulkDoc {
  int conv = addSystem("New Conventional System", "Conv");
  int trunk = addSystem("New P25 Trunk System", "Trunk");
  std::string dept = firstDepartment(conv, "Fire");
  std::string site = addSite(trunk, "Simulcast");
  std::string system = "SYS-002";
  Nodes() {
    doc.data.setText(doc.data.find(dept),
                     "GIN,C-Group,,,Fire,Off,41.316497,-81.744117,3.5,Circle,1,Global");
    doc.data.setText(doc.data.find(site),
                     "SIT,Site,,,Simulcast,Off,41.453639,-81.705047,19.1,AUTO,Standard,"
                     "Wide(standard),Circle,0,400,Auto,8,Off");
    doc.data.setText(doc.data.find(system),
                     "SIN,P25 Standard,2,StateId=0,Trunk,0,,P25Standard,0,0,Auto,0,Search,5,"
                     "None,0,0,0,Analog,0,0,On,,001");
    doc.changed = false;
  }
};

TEST(BulkNodes, EachItemWritesItsFieldInEachKindOfRecord) {
  struct Case {
    const char* what;
    Scope scope;
    std::string Nodes::*key;
    NodeChanges changes;
    std::vector<int> fields;
    const char* values;  // the changed fields' texts, '|' between
  };
  const Location where{"40.5", "-80.25", "12.5"};
  const Scope D = Scope::Departments, S = Scope::Sites, Y = Scope::Systems;
  const Case cases[] = {
      {"department location", D, &Nodes::dept, {.location = where}, {6, 7, 8}, "40.5|-80.25|12.5"},
      {"department quick key", D, &Nodes::dept, {.quickKey = "42"}, {10}, "42"},
      {"department lockout", D, &Nodes::dept, {.lockout = true}, {5}, "On"},
      {"site location", S, &Nodes::site, {.location = where}, {6, 7, 8}, "40.5|-80.25|12.5"},
      {"site quick key", S, &Nodes::site, {.quickKey = "7"}, {17}, "7"},
      {"site modulation", S, &Nodes::site, {.modulation = "NFM"}, {9}, "NFM"},
      {"site plan", S, &Nodes::site, {.motBandPlan = "Custom/Rebanded"}, {10}, "Custom/Rebanded"},
      {"site Edacs", S, &Nodes::site, {.edacsSite = "Narrow"}, {11}, "Narrow"},
      {"site lockout", S, &Nodes::site, {.lockout = true}, {5}, "On"},
      {"system quick key", Y, &Nodes::system, {.quickKey = "9"}, {13}, "9"},
      {"system lockout in digits", Y, &Nodes::system, {.lockout = true}, {5}, "1"},
      {"system no key keeps None", Y, &Nodes::system, {.quickKey = "Off"}, {13}, "None"},
      {"department no key", D, &Nodes::dept, {.quickKey = "Off"}, {10}, "Off"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    Nodes d;
    const std::string key = d.*c.key;
    const std::string before = d.line(key);
    BulkResult r = applyToNodes(d.doc, c.scope, {key}, c.changes, d.feedback, DecimalMark::point());
    ASSERT_TRUE(r.ok) << r.message;
    const std::string after = d.line(key);
    EXPECT_EQ(changedFields(before, after), c.fields);
    std::string values;
    for (int f : c.fields) values += (values.empty() ? "" : "|") + record::field(after, f);
    EXPECT_EQ(values, c.values);
    EXPECT_EQ(r.changed, 1);
    EXPECT_TRUE(d.doc.changed);
    EXPECT_TRUE(d.feedback.messages.empty());
  }
}

TEST(BulkNodes, TypedLocationsAreReadClampedOrRefused) {
  struct Case {
    Location typed;
    DecimalMark mark;
    const char* result;  // latitude|longitude|range written, or the refusal
  };
  const DecimalMark P = DecimalMark::point();
  const Case cases[] = {
      {{"91", "-180.5", "1200"}, P, "90|-180|999.9"},
      {{"41,5", "-81,25", "2,5"}, DecimalMark::comma(), "41.5|-81.25|2.5"},
      {{"", "", "25"}, P, "41.316497|-81.744117|25"},
      {{"x12", "-81", "5"},
       P,
       "The latitude must be decimal degrees from -90 to 90, such as 41.453639."},
      {{"41", "W81", "5"},
       P,
       "The longitude must be decimal degrees from -180 to 180, such as -81.705047."},
      {{"41", "-81", "far"}, P, "The range must be a number of miles, such as 25."},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.typed.latitude + "|" + c.typed.longitude + "|" + c.typed.range);
    Nodes d;
    const std::string before = d.line(d.dept);
    const bool ok = std::string(c.result).find(' ') == std::string::npos;
    // A refused location stops the quick key of the same apply as well.
    BulkResult r = applyToNodes(d.doc, Scope::Departments, {d.dept},
                                {.location = c.typed, .quickKey = "5"}, d.feedback, c.mark);
    EXPECT_EQ(r.ok, ok);
    const std::string after = d.line(d.dept);
    if (ok) {
      EXPECT_EQ(
          record::field(after, 6) + "|" + record::field(after, 7) + "|" + record::field(after, 8),
          c.result);
    } else {
      EXPECT_EQ(d.feedback.messages, std::vector<std::string>{c.result});
      EXPECT_EQ(after, before);
      EXPECT_FALSE(d.doc.changed);
    }
  }
}

TEST(BulkNodes, NothingTickedIsRefusedAndMissingNodesArePassedOver) {
  struct Case {
    Scope scope;
    bool withNode;
    NodeChanges changes;
    const char* message;
  };
  const std::string pick = "Please select which item to change.";
  const Case cases[] = {
      {Scope::Departments, true, {}, pick.c_str()},
      // A system has no location and a department no modulation.
      {Scope::Systems, true, {.location = Location{"1", "2", "3"}}, pick.c_str()},
      {Scope::Departments, true, {.modulation = "FM"}, pick.c_str()},
      {Scope::Departments, false, {.lockout = true}, "Please select one or more departments"},
      {Scope::Sites, false, {.lockout = true}, "Please select one or more sites"},
      {Scope::Sites, true, {.quickKey = "100"}, "\"100\" is not a value of QuickKey."},
      {Scope::Sites, true, {.modulation = "WFM"}, "\"WFM\" is not a value of Modulation."},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.message);
    Nodes d;
    const std::string key = c.scope == Scope::Sites     ? d.site
                            : c.scope == Scope::Systems ? d.system
                                                        : d.dept;
    const std::string before = d.line(key);
    std::vector<std::string> keys;
    if (c.withNode) keys.push_back(key);
    BulkResult r = applyToNodes(d.doc, c.scope, keys, c.changes, d.feedback);
    EXPECT_FALSE(r.ok);
    EXPECT_EQ(d.feedback.messages, std::vector<std::string>{c.message});
    EXPECT_EQ(d.line(key), before);
    EXPECT_FALSE(d.doc.changed);
  }
  // Many nodes change together and missing ones are passed over.
  Nodes d;
  const std::string second = d.addDepartment(d.conv, "EMS");
  BulkResult r = applyToNodes(d.doc, Scope::Departments, {d.dept, second, "GRP-999-009-009"},
                              {.location = Location{"", "", "25"}}, d.feedback);
  ASSERT_TRUE(r.ok);
  EXPECT_EQ(r.matched, 2);
  EXPECT_EQ(r.changed, 2);
  EXPECT_EQ(record::field(d.line(second), 8), "25");
  EXPECT_EQ(record::field(d.line(d.dept), 8), "25");
}

TEST(BulkNodes, UseHomeUseDefaultAndPasteGpsReadTheirSettings) {
  MemorySettingsStore store;
  Settings settings(store);
  // Nothing stored: home has the range "25"; "False" is no default position, its range "1".
  const auto text = [](const Location& l) {
    return l.latitude + "|" + l.longitude + "|" + l.range;
  };
  EXPECT_EQ(text(homeLocation(settings)), "||25");
  EXPECT_EQ(text(defaultLocation(settings)), "||1");
  settings.put("gps", "home_lat", "41.5");
  settings.put("gps", "home_long", "-81.7");
  settings.put("gps", "home_range", "");  // an empty range is still 25
  EXPECT_EQ(text(homeLocation(settings)), "41.5|-81.7|25");
  settings.put("gps", "home_range", "10");
  EXPECT_EQ(homeLocation(settings).range, "10");
  settings.put("gps", "def_lat", "40.1");
  settings.put("gps", "def_long", "-75.2");
  settings.put("gps", "def_range", "5");
  EXPECT_EQ(text(defaultLocation(settings)), "40.1|-75.2|5");
  saveCountyCentre(settings, {"41.4", "-81.6", "30"});
  EXPECT_EQ(text(countyCentre(settings)), "41.4|-81.6|30");
}

// The quick keys offered; the other items' words are checked where the apply refuses a word.
TEST(BulkNodes, ItemsOfferTheirWords) {
  EXPECT_EQ(nodeChoices(NodeItem::QuickKey).size(), 101u);
  EXPECT_EQ(nodeChoices(NodeItem::QuickKey).front(), "Off");
  EXPECT_EQ(nodeChoices(NodeItem::QuickKey).back(), "99");
  EXPECT_TRUE(itemAppliesTo(NodeItem::Location, Scope::Sites));
  EXPECT_FALSE(itemAppliesTo(NodeItem::Location, Scope::Systems));
  EXPECT_FALSE(itemAppliesTo(NodeItem::QuickKey, Scope::TalkGroups));
}

}  // namespace
}  // namespace zel::bulk
