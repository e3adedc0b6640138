#include "grid/grid_setup.h"

#include <gtest/gtest.h>

#include <map>

#include "core/memory_ports.h"
#include "core/text.h"
#include "grid_test_support.h"

namespace zel {
namespace {

struct Shape {
  Schema schema;
  ScannerFamily family;
  int cols;
  const char* lastHeading;
};

TEST(Setup, EachBuilderMakesItsSchemaTable) {
  const auto B = ScannerFamily::BCD;
  const auto H = ScannerFamily::HP;
  const Shape shapes[] = {
      {Schema::Channel, B, 17, "Priority"},
      {Schema::Channel, H, 13, "Alert Level"},
      {Schema::Talkgroup, B, 15, "DMR Tslot"},
      {Schema::Talkgroup, H, 10, "Alert Level"},
      {Schema::Unit, B, 7, "Alert Pattern"},
      {Schema::Unit, H, 5, "Alert Level"},
      {Schema::Site, B, 5, "RAN"},
      {Schema::Site, H, 5, "RAN"},
  };
  for (const auto& s : shapes) {
    GridPage grid(3, 40);
    grid.setTextMatrix(2, 30, "left over");
    GridSetup setup;
    setup.family = s.family;
    ASSERT_TRUE(test::setupFor(&grid, s.schema, setup));
    SCOPED_TRACE(s.lastHeading);
    EXPECT_EQ(std::make_tuple(grid.cols(), grid.rows(), grid.rowHeight(0), grid.colWidth(0)),
              std::make_tuple(s.cols, 11, 400, 700));
    EXPECT_EQ(test::cells(grid, {{0, 0}, {0, s.cols - 1}, {1, 0}, {10, 0}, {2, 1}}),
              std::string("#|") + s.lastHeading + "|1|10|");
    EXPECT_EQ(grid.colAlignment(0), GridPage::kAlignCentre);
    for (int c = 1; c < grid.cols(); ++c) {
      EXPECT_EQ(grid.colAlignment(c), GridPage::kAlignLeft);
      EXPECT_EQ(grid.colWidth(c), defaultColumnWidth(s.schema));
      EXPECT_EQ(grid.textMatrix(0, c), schemaHeadings(s.schema, s.family)[c]);
    }
    EXPECT_TRUE(grid.redraw());
    EXPECT_EQ(test::cursor(grid), "1,1");
  }
}

TEST(Setup, StoredWidthsAboveAHundredAreTaken) {
  // key|stored text with its trailing mark|width; the key's first letter names the grid. A
  // width is read from its leading digits, and column 1's stored width beats the fixed 4500.
  const std::string cases =
      "ccol_width3|100x|1200;ccol_width3|101x|101;ccol_width3|0x|1200;ccol_width3|-500x|1200;"
      "ccol_width3|2500 twipsx|2500;ccol_width3|widex|1200;ccol_width1|3000x|3000;"
      "tcol_width3|100x|1200;tcol_width3|101x|101;ucol_width3|100x|1500;ucol_width3|101x|101;"
      "fcol_width3|99x|1200;fcol_width3|1800x|1800";
  const std::map<char, Schema> schemas = {
      {'c', Schema::Channel}, {'t', Schema::Talkgroup}, {'u', Schema::Unit}, {'f', Schema::Site}};
  for (const std::string& text : split(cases, ';')) {
    const auto f = split(text, '|');
    const struct {
      Schema schema;
      std::string key, stored;
      int width;
    } c{schemas.at(text[0]), f[0], f[1], std::stoi(f[2])};
    MemorySettingsStore store;
    store.write("colwidth", c.key, c.stored);
    ColumnWidthTable widths;
    GridSetup setup;
    setup.settings = &store;
    setup.widths = &widths;
    GridPage grid;
    test::setupFor(&grid, c.schema, setup);
    const int col = c.key.back() - '0';
    EXPECT_EQ(grid.colWidth(col), c.width) << c.key << "=" << c.stored;
    EXPECT_EQ(widths.get(c.schema, col), c.width) << c.key;
    EXPECT_EQ(storedColumnWidth(&store, c.schema, col), c.width) << c.key;
  }
}

TEST(Setup, WidthKeysNameTheGrid) {
  EXPECT_EQ(columnWidthKey(Schema::Channel, 1) + "|" + columnWidthKey(Schema::Talkgroup, 14) + "|" +
                columnWidthKey(Schema::Unit, 2) + "|" + columnWidthKey(Schema::Site, 4) + "|" +
                columnWidthKey(Schema::Search, 1),
            "ccol_width1|tcol_width14|ucol_width2|fcol_width4|");
}

TEST(Setup, AListWithoutHeadingsIsReportedAndTheBuildGoesOn) {
  RecordingFeedback feedback;
  GridSetup setup;
  setup.env.feedback = &feedback;
  GridPage grid(5, 5);
  EXPECT_TRUE(setupFromHeadings(&grid, Schema::Unit, HeadingList{}, "setup_ugrid", setup));
  EXPECT_EQ(feedback.messages, std::vector<std::string>{"setup_ugrid error"});
  EXPECT_EQ(std::make_tuple(grid.cols(), grid.rows(), grid.textMatrix(0, 0)),
            std::make_tuple(1, 11, "#"));
}

TEST(Setup, AnEmptySlotInsideAListEndsNothing) {
  HeadingList headings{};
  headings[1] = "Frequency";
  headings[4] = "RAN";
  GridPage grid;
  ASSERT_TRUE(setupFromHeadings(&grid, Schema::Site, headings, "setup_fgrid", GridSetup{}));
  EXPECT_EQ(grid.cols(), 5);
  EXPECT_EQ(test::cells(grid, {{0, 2}, {0, 4}}), "|RAN");
}

TEST(Setup, ThePageSizeSetsTheFreshRows) {
  GridSetup setup;
  setup.pageSize = 25;
  GridPage grid;
  setup_grid(&grid, setup);
  EXPECT_EQ(grid.rows(), 26);
  EXPECT_EQ(grid.textMatrix(25, 0), "25");
}

TEST(Widths, TheSortColumnIsForcedHiddenAndUserWidthsGoBackToTheStore) {
  MemorySettingsStore store;
  ColumnWidthTable widths;
  GridSetup setup;
  setup.settings = &store;
  setup.widths = &widths;
  GridPage grid;
  setup_grid(&grid, setup);
  grid.setCols(grid.cols() + 1);
  grid.setTextMatrix(0, grid.cols() - 1, "hiddensort");
  grid.setColWidth(grid.cols() - 1, 900);
  grid.setColWidth(2, 2600);  // the user widened the name column
  grid.setColWidth(5, 0);     // and a column is hidden for the moment

  readBackColumnWidths(grid, Schema::Channel, widths);
  EXPECT_EQ(grid.colWidth(grid.cols() - 1), 0);
  EXPECT_EQ(widths.get(Schema::Channel, 2), 2600);

  widths.set(Schema::Channel, 5, 0);
  saveColumnWidths(widths, Schema::Channel, ScannerFamily::BCD, store);
  std::string raw;
  ASSERT_TRUE(store.read("colwidth", "ccol_width2", raw));
  EXPECT_EQ(raw, "2600x");
  EXPECT_FALSE(store.read("colwidth", "ccol_width5", raw));   // hidden: keeps what it had
  EXPECT_FALSE(store.read("colwidth", "ccol_width17", raw));  // working columns aren't kept

  GridPage again;
  setup_grid(&again, setup);
  EXPECT_EQ(std::make_pair(again.colWidth(2), again.colWidth(5)), std::make_pair(2600, 1200));
}

}  // namespace
}  // namespace zel
