#include "grid/grid_setup.h"

#include <gtest/gtest.h>

#include "core/memory_ports.h"
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
    EXPECT_EQ(grid.cols(), s.cols);
    EXPECT_EQ(grid.rows(), 11);
    EXPECT_EQ(grid.textMatrix(0, 0), "#");
    EXPECT_EQ(grid.textMatrix(0, s.cols - 1), s.lastHeading);
    EXPECT_EQ(grid.textMatrix(1, 0), "1");
    EXPECT_EQ(grid.textMatrix(10, 0), "10");
    EXPECT_EQ(grid.textMatrix(2, 1), "");
    EXPECT_EQ(grid.rowHeight(0), 400);
    EXPECT_EQ(grid.colWidth(0), 700);
    EXPECT_EQ(grid.colAlignment(0), GridPage::kAlignCentre);
    for (int c = 1; c < grid.cols(); ++c) {
      EXPECT_EQ(grid.colAlignment(c), GridPage::kAlignLeft);
      EXPECT_EQ(grid.colWidth(c), defaultColumnWidth(s.schema));
      EXPECT_EQ(grid.textMatrix(0, c), schemaHeadings(s.schema, s.family)[c]);
    }
    EXPECT_TRUE(grid.redraw());
    EXPECT_EQ(grid.row(), 1);
    EXPECT_EQ(grid.col(), 1);
  }
}

TEST(Setup, StoredWidthsAboveAHundredAreTaken) {
  struct Case {
    Schema schema;
    const char* key;
    const char* stored;  // with its trailing mark
    int width;
  };
  const Case cases[] = {
      {Schema::Channel, "ccol_width3", "100x", 1200},
      {Schema::Channel, "ccol_width3", "101x", 101},
      {Schema::Channel, "ccol_width3", "0x", 1200},
      {Schema::Channel, "ccol_width3", "-500x", 1200},
      {Schema::Channel, "ccol_width3", "2500 twipsx", 2500},  // leading digits
      {Schema::Channel, "ccol_width3", "widex", 1200},
      {Schema::Channel, "ccol_width1", "3000x", 3000},  // beats the fixed 4500
      {Schema::Talkgroup, "tcol_width3", "100x", 1200},
      {Schema::Talkgroup, "tcol_width3", "101x", 101},
      {Schema::Unit, "ucol_width3", "100x", 1500},
      {Schema::Unit, "ucol_width3", "101x", 101},
      {Schema::Site, "fcol_width3", "99x", 1200},
      {Schema::Site, "fcol_width3", "1800x", 1800},
  };
  for (const auto& c : cases) {
    MemorySettingsStore store;
    store.write("colwidth", c.key, c.stored);
    ColumnWidthTable widths;
    GridSetup setup;
    setup.settings = &store;
    setup.widths = &widths;
    GridPage grid;
    test::setupFor(&grid, c.schema, setup);
    int col = c.key[std::string_view(c.key).size() - 1] - '0';
    EXPECT_EQ(grid.colWidth(col), c.width) << c.key << "=" << c.stored;
    EXPECT_EQ(widths.get(c.schema, col), c.width) << c.key;
    EXPECT_EQ(storedColumnWidth(&store, c.schema, col), c.width) << c.key;
  }
}

TEST(Setup, WidthKeysNameTheGrid) {
  EXPECT_EQ(columnWidthKey(Schema::Channel, 1), "ccol_width1");
  EXPECT_EQ(columnWidthKey(Schema::Talkgroup, 14), "tcol_width14");
  EXPECT_EQ(columnWidthKey(Schema::Unit, 2), "ucol_width2");
  EXPECT_EQ(columnWidthKey(Schema::Site, 4), "fcol_width4");
  EXPECT_EQ(columnWidthKey(Schema::Search, 1), "");
}

TEST(Setup, AListWithoutHeadingsIsReportedAndTheBuildGoesOn) {
  RecordingFeedback feedback;
  GridSetup setup;
  setup.env.feedback = &feedback;
  GridPage grid(5, 5);
  EXPECT_TRUE(setupFromHeadings(&grid, Schema::Unit, HeadingList{}, "setup_ugrid", setup));
  EXPECT_EQ(feedback.messages, std::vector<std::string>{"setup_ugrid error"});
  EXPECT_EQ(grid.cols(), 1);
  EXPECT_EQ(grid.rows(), 11);
  EXPECT_EQ(grid.textMatrix(0, 0), "#");
}

TEST(Setup, AnEmptySlotInsideAListEndsNothing) {
  HeadingList headings{};
  headings[1] = "Frequency";
  headings[4] = "RAN";
  GridPage grid;
  ASSERT_TRUE(setupFromHeadings(&grid, Schema::Site, headings, "setup_fgrid", GridSetup{}));
  EXPECT_EQ(grid.cols(), 5);
  EXPECT_EQ(grid.textMatrix(0, 2), "");
  EXPECT_EQ(grid.textMatrix(0, 4), "RAN");
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
  EXPECT_EQ(again.colWidth(2), 2600);
  EXPECT_EQ(again.colWidth(5), 1200);
}

}  // namespace
}  // namespace zel
