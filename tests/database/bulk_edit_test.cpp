// The apply to channels: each setting lands in its own column of a frequency or talkgroup
// row, nothing else in the row moves, rows that are not ticked and other departments stay as
// they were, and the two refusals leave the store alone.
#include "database/bulk_edit.h"

#include <gtest/gtest.h>

#include "core/keys.h"
#include "core/record_line.h"
#include "database/bulk_lists.h"
#include "database/bulk_test_support.h"
#include "grid/column_schemas.h"
#include "grid/grid_routines.h"

namespace zel::bulk {
namespace {

using test::BulkDoc;
using test::changedFields;
using test::frq;
using test::markedRow;
using test::tid;

// A conventional system whose first department, Fire, holds `lines`.
struct FireDoc : BulkDoc {
  int conv = addSystem("New Conventional System", "Conv");
  std::string fd;
  explicit FireDoc(const std::vector<std::string>& lines = {markedRow(1, "154.100000", 16)})
      : fd(firstDepartment(conv, "Fire", lines)) {
    doc.changed = false;
  }
};

struct ColumnCase {
  Setting setting;
  const char* value;
  int frequencyColumn;  // expected column in a channel row, 0 for none
  int talkgroupColumn;  // expected column in a talkgroup row, 0 for none
};

const ColumnCase kColumns[] = {
    {Setting::Mode, "NFM", 4, 0},
    {Setting::AudioType, "Digital", 0, 4},
    {Setting::SqMode, "DCS", 5, 0},
    {Setting::ServiceType, "Law Dispatch", 7, 5},
    {Setting::Attenuator, "On", 8, 0},
    {Setting::Delay, "5", 9, 6},
    {Setting::VolumeOffset, "-2", 10, 7},
    {Setting::AlertTone, "7", 11, 8},
    {Setting::AlertVolume, "12", 12, 9},
    {Setting::AlertLight, "Magenta", 13, 10},
    {Setting::AlertPattern, "Fast Blink", 14, 11},
};

TEST(BulkEdit, EachSettingWritesOnlyItsOwnColumnInBothKindsOfRow) {
  for (const ColumnCase& c : kColumns) {
    SCOPED_TRACE(std::string(info(c.setting).caption));
    BulkDoc d;
    const int conv = d.addSystem("New Conventional System", "Conv");
    const int trunk = d.addSystem("New P25 Trunk System", "Trunk");
    const std::string fd = d.firstDepartment(conv, "Fire", {markedRow(1, "154.100000", 16)});
    const std::string td = d.firstDepartment(trunk, "Law", {markedRow(1, "1234", 14)});
    const std::string frqBefore = d.page(fd)[0];
    const std::string tidBefore = d.page(td)[0];
    BulkResult r = applyToChannels(d.doc, d.rows, {frq(fd, 1), tid(td, 1)}, {{c.setting, c.value}},
                                   d.feedback);
    ASSERT_TRUE(r.ok) << r.message;
    EXPECT_EQ(r.matched, 2);
    const std::string frqAfter = d.page(fd)[0];
    const std::string tidAfter = d.page(td)[0];
    EXPECT_EQ(changedFields(frqBefore, frqAfter),
              c.frequencyColumn ? std::vector<int>{c.frequencyColumn} : std::vector<int>{});
    EXPECT_EQ(changedFields(tidBefore, tidAfter),
              c.talkgroupColumn ? std::vector<int>{c.talkgroupColumn} : std::vector<int>{});
    if (c.frequencyColumn) EXPECT_EQ(record::field(frqAfter, c.frequencyColumn), c.value);
    if (c.talkgroupColumn) EXPECT_EQ(record::field(tidAfter, c.talkgroupColumn), c.value);
    EXPECT_EQ(r.changed, (c.frequencyColumn ? 1 : 0) + (c.talkgroupColumn ? 1 : 0));
  }
}

// The column numbers must be where the grids show the setting's heading: a grid built with
// the family's schema finds the heading at that column.
TEST(BulkEdit, ColumnsAreWhereTheGridsShowTheSameHeading) {
  for (Schema schema : {Schema::Channel, Schema::Talkgroup}) {
    const bool talkgroup = schema == Schema::Talkgroup;
    const HeadingList& headings = schemaHeadings(schema, ScannerFamily::BCD);
    GridPage grid(2, headingCount(headings) + 1);
    for (int c = 1; c <= headingCount(headings); ++c) grid.setTextMatrix(0, c, headings[c]);
    for (const SettingInfo& i : settingTable()) {
      const int column = columnFor(i.setting, talkgroup);
      if (column == 0) continue;
      EXPECT_EQ(g_get_colnum(&grid, std::string(i.heading)), column) << i.caption;
    }
  }
}

TEST(BulkEdit, HomePatrolRowsHaveNoAlertLightSoTheyKeepTheirLength) {
  BulkDoc d;
  d.doc.family = ScannerFamily::HP;
  const int conv = d.addSystem("New Conventional System", "Conv");
  const std::string fd = d.firstDepartment(conv, "Fire", {markedRow(1, "154.100000", 12)});
  const std::string before = d.page(fd)[0];
  BulkResult r =
      applyToChannels(d.doc, d.rows, {frq(fd, 1)},
                      {{Setting::AlertLight, "Red"}, {Setting::Delay, "10"}}, d.feedback);
  ASSERT_TRUE(r.ok);
  const std::string after = d.page(fd)[0];
  EXPECT_EQ(changedFields(before, after), std::vector<int>{9});
  EXPECT_EQ(record::fieldCount(after), record::fieldCount(before));
}

TEST(BulkEdit, UntickedRowsOtherPagesAndEveryOtherByteStayAsTheyWere) {
  // Odd but legal texts: blanks inside, quotes, an empty field and a trailing empty field.
  const std::vector<std::string> lines = {
      "1,154.100000, Fire  Main ,Off,NFM,CTCSS,123.0,Fire Dispatch,Off,2,0,Off,Auto,Red,On,,",
      "2,155.220000,\"Quoted\",On,FM,,,Law Dispatch,Off,-2,0,Off,Auto,Off,On,5,Off",
      "3,460.500000,Works,Off,AUTO,DCS,023,Public Works,On,30,3,9,15,White,Slow Blink,7,On"};
  FireDoc d(lines);
  const std::string fd = d.fd, other = d.addDepartment(d.conv, "Other", {lines[0], lines[1]});
  BulkResult r =
      applyToChannels(d.doc, d.rows, {frq(fd, 1), frq(fd, 3)}, {{Setting::Delay, "5"}}, d.feedback);
  ASSERT_TRUE(r.ok);
  EXPECT_EQ(r.changed, 2);
  EXPECT_EQ(r.pages, 1);
  const std::vector<std::string> after = d.page(fd);
  ASSERT_EQ(after.size(), 3u);
  EXPECT_EQ(
      after[0],
      "1,154.100000, Fire  Main ,Off,NFM,CTCSS,123.0,Fire Dispatch,Off,5,0,Off,Auto,Red,On,,");
  EXPECT_EQ(after[1], lines[1]);
  EXPECT_EQ(after[2],
            "3,460.500000,Works,Off,AUTO,DCS,023,Public Works,On,5,3,9,15,White,Slow Blink,7,On");
  EXPECT_EQ(d.page(other), (std::vector<std::string>{lines[0], lines[1]}));
  EXPECT_TRUE(d.doc.changed);
}

TEST(BulkEdit, SettingsGoInInTableOrderWhateverOrderTheyAreGiven) {
  FireDoc d;
  const std::string fd = d.fd;
  std::vector<ChannelChange> reversed;
  for (auto it = std::rbegin(kColumns); it != std::rend(kColumns); ++it)
    reversed.push_back({it->setting, it->value});
  ASSERT_TRUE(applyToChannels(d.doc, d.rows, {frq(fd, 1)}, reversed, d.feedback).ok);
  EXPECT_EQ(d.page(fd)[0],
            "1,154.100000,c2,c3,NFM,DCS,c6,Law Dispatch,On,5,-2,7,12,Magenta,Fast Blink,c15,c16");
}

TEST(BulkEdit, RefusalsSayTheirSentenceAndChangeNothing) {
  struct Case {
    const char* what;
    bool withRows;
    std::vector<ChannelChange> changes;
    const char* message;
  };
  const char* const channels = "Please select one or more channels";
  const Case cases[] = {
      {"no channel ticked", false, {{Setting::Delay, "5"}}, channels},
      {"no setting ticked", true, {}, "Please select which item to change."},
      {"neither: the channels are asked for first", false, {}, channels},
      {"a word off the list",
       true,
       {{Setting::Mode, "FM"}, {Setting::Delay, "7"}},
       "\"7\" is not a value of Delay:"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    FireDoc d;
    const std::string fd = d.fd;
    std::vector<std::string> keys;
    if (c.withRows) keys.push_back(frq(fd, 1));
    BulkResult r = applyToChannels(d.doc, d.rows, keys, c.changes, d.feedback);
    EXPECT_FALSE(r.ok);
    EXPECT_EQ(r.message, c.message);
    EXPECT_EQ(d.feedback.messages, std::vector<std::string>{c.message});
    EXPECT_EQ(d.page(fd), std::vector<std::string>{markedRow(1, "154.100000", 16)});
    EXPECT_FALSE(d.doc.changed);
  }
}

// A key that leads nowhere is passed over and not counted; a value equal to the row's own is
// matched but no change. Neither marks the document.
TEST(BulkEdit, KeysThatLeadNowhereAndValuesAlreadyThereChangeNothing) {
  const std::string row = "1,154.100000,A,Off,FM,,,Other,Off,5";
  for (bool nowhere : {true, false}) {
    SCOPED_TRACE(nowhere ? "nowhere" : "same value");
    FireDoc d({row});
    const std::string fd = d.fd;
    const std::vector<std::string> ticked =
        nowhere ? std::vector<std::string>{frq(fd, 2), keys::channel(d.conv, 55, 1), "junk"}
                : std::vector<std::string>{frq(fd, 1)};
    BulkResult r = applyToChannels(d.doc, d.rows, ticked, {{Setting::Delay, "5"}}, d.feedback);
    EXPECT_TRUE(r.ok);
    EXPECT_EQ(r.matched, nowhere ? 0 : 1);
    EXPECT_EQ(r.changed, 0);
    EXPECT_FALSE(d.doc.changed);
    EXPECT_EQ(d.page(fd), std::vector<std::string>{row});
  }
}

}  // namespace
}  // namespace zel::bulk
