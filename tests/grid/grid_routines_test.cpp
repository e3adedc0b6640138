#include "grid/grid_routines.h"

#include <gtest/gtest.h>

#include "core/memory_ports.h"
#include "grid/column_schemas.h"
#include "grid/grid_setup.h"
#include "grid_test_support.h"

namespace zel {
namespace {

using test::cursor;
using test::moveTo;

class GridRoutines : public ::testing::Test {
 protected:
  GridRoutines() { clock.time = "09:15:30"; }
  GridPage build(Schema schema, ScannerFamily family = ScannerFamily::BCD) {
    GridPage grid;
    GridSetup setup;
    setup.family = family;
    test::setupFor(&grid, schema, setup);
    return grid;
  }
  GridEnv env() { return {&feedback, &clock}; }

  RecordingFeedback feedback;
  ManualClock clock;
};

TEST_F(GridRoutines, ColumnsAreFoundByHeadingInEverySchemaAndFamily) {
  struct Case {
    Schema schema;
    ScannerFamily family;
    const char* heading;
    int col;
  };
  const auto B = ScannerFamily::BCD, H = ScannerFamily::HP;
  // Where each heading stands is the schemas' (and the files' field order, proved by the
  // real-data round trips); here the finding: any case, the family's own columns, -1 if none.
  const Case cases[] = {
      {Schema::Channel, B, "alpha tag", 2},    {Schema::Channel, B, "Alert Light", 13},
      {Schema::Channel, H, "Alert Level", 12}, {Schema::Channel, H, "Alert Light", -1},
      {Schema::Channel, B, "LockOut", -1},     {Schema::Channel, B, "#", -1},
      {Schema::Talkgroup, B, "ALPHA TAG", 2},  {Schema::Talkgroup, H, "DMR Tslot", -1},
      {Schema::Talkgroup, B, "SQ Code", -1},   {Schema::Unit, H, "Alert Level", 4},
      {Schema::Site, B, "colorcode", 3},       {Schema::Site, B, "Alert Light", -1},
  };
  for (const auto& c : cases) {
    GridPage grid = build(c.schema, c.family);
    EXPECT_EQ(g_get_colnum(&grid, c.heading), c.col)
        << c.heading << " in schema " << static_cast<int>(c.schema)
        << (c.family == H ? " HP" : " BCD");
  }
  EXPECT_TRUE(feedback.logs.empty());
}

TEST_F(GridRoutines, ANullGridLogsItsPhraseWithTheTimeAndDoesNothing) {
  EXPECT_EQ(g_get_colnum(nullptr, "Frequency", env()), -1);
  EXPECT_EQ(g_get_data(nullptr, 1, "Frequency", env()), "");
  EXPECT_EQ(g_get_header(nullptr, env()), "");
  EXPECT_EQ(g_remove_hidd(nullptr, env()), -1);
  EXPECT_FALSE(incr_celld(nullptr, env()));
  EXPECT_EQ(g_copy_alpha(nullptr, env()), 0);
  EXPECT_EQ(g_align_text(nullptr, "Alpha Tag", TagAlignment::Right, env()), 0);
  EXPECT_FALSE(moveRight(nullptr, env()));
  GridSetup setup;
  setup.env = env();
  EXPECT_FALSE(setup_grid(nullptr, setup));
  std::string logs;
  for (const std::string& l : feedback.logs) logs += l + ";";
  EXPECT_EQ(logs,
            "func g_get_colnum no_invoer 09:15:30;func g_get_data no_invoer 09:15:30;func "
            "g_get_header no_invoer 09:15:30;func g_remove_hidd no_invoer 09:15:30;incr_celld "
            "no_invoer 09:15:30;g_copy_alpha no_invoer 09:15:30;g_align_text no_invoer 09:15:30;"
            "g_r_elines no_invoer 09:15:30;g_r_elines no_invoer 09:15:30;");
  EXPECT_TRUE(feedback.messages.empty());
}

TEST_F(GridRoutines, GetDataAndHeaderReadByHeadingAndRefuseRowsOutsideTheGrid) {
  GridPage grid = build(Schema::Channel);
  grid.setTextMatrix(3, 4, "NFM");
  EXPECT_EQ(g_get_data(&grid, 3, "mode", env()) + "|" + g_get_data(&grid, 3, "Talkgroup", env()),
            "NFM|");
  EXPECT_TRUE(feedback.messages.empty());
  EXPECT_EQ(g_get_data(&grid, grid.rows(), "Mode", env()) + g_get_data(&grid, -1, "Mode", env()),
            "");
  EXPECT_EQ(feedback.messages,
            (std::vector<std::string>{"row error in get_data", "row error in get_data"}));
  GridPage talkgroups = build(Schema::Talkgroup);
  for (const auto& [col, heading] : {std::pair{4, "AudioType"}, {0, "#"}}) {
    talkgroups.setCol(col);
    EXPECT_EQ(g_get_header(&talkgroups), heading);
  }
}

TEST_F(GridRoutines, RemoveHiddDropsOnlyATrailingLastsortColumn) {
  struct Case {
    std::vector<const char*> extra;
    int found;
    int colsLost;
  };
  const Case cases[] = {
      {{"lastsort"}, 17, 1},
      {{"lastsort", "hiddensort"}, 17, 0},  // not the last column: Cols stays
      {{"hiddensort"}, -1, 0},
      {{}, -1, 0},
  };
  for (const auto& c : cases) {
    GridPage grid = build(Schema::Channel);
    for (const char* heading : c.extra) {
      grid.setCols(grid.cols() + 1);
      grid.setTextMatrix(0, grid.cols() - 1, heading);
    }
    int before = grid.cols();
    EXPECT_EQ(g_remove_hidd(&grid), c.found);
    EXPECT_EQ(before - grid.cols(), c.colsLost);
  }
}

TEST_F(GridRoutines, MovingDownFromTheLastRowAddsOneRowAndSkipsHiddenRows) {
  GridPage grid = build(Schema::Channel);
  ASSERT_EQ(grid.rows(), 11);
  moveTo(grid, 10, 3);
  EXPECT_TRUE(incr_celld(&grid));
  EXPECT_EQ(cursor(grid) + " of " + std::to_string(grid.rows()), "11,3 of 12");
  EXPECT_EQ(grid.textMatrix(11, 0), "11");
  EXPECT_EQ(grid.takeRowsForColours(), std::vector<int>{11});
  EXPECT_TRUE(grid.takeRowsForColours().empty());

  grid.setRow(4);
  EXPECT_TRUE(incr_celld(&grid));
  EXPECT_EQ(cursor(grid) + " of " + std::to_string(grid.rows()), "5,3 of 12");

  // Hidden rows are passed over, hidden last rows too: the page grows past them.
  GridPage hidden = build(Schema::Channel);
  hidden.setRowHeight(6, 0);
  hidden.setRowHeight(7, 0);
  hidden.setRow(5);
  incr_celld(&hidden);
  EXPECT_EQ(hidden.row(), 8);
  hidden.setRowHeight(9, 0);
  hidden.setRowHeight(10, 0);
  incr_celld(&hidden);
  EXPECT_EQ(std::make_pair(hidden.row(), hidden.rows()), std::make_pair(11, 12));
}

TEST_F(GridRoutines, MovingDownKeepsGrowingForALongPage) {
  GridPage grid = build(Schema::Channel);
  grid.setRow(1);
  for (int i = 0; i < 100000; ++i) incr_celld(&grid);
  EXPECT_EQ(std::make_pair(grid.row(), grid.rows()), std::make_pair(100001, 100002));
  EXPECT_EQ(grid.textMatrix(100001, 0), "100001");
}

TEST_F(GridRoutines, MovingRightSkipsHiddenColumnsAndWrapsToTheNextRow) {
  GridPage grid = build(Schema::Channel);
  grid.setColWidth(4, 0);
  grid.setColWidth(5, 0);
  moveTo(grid, 2, 3);
  EXPECT_TRUE(moveRight(&grid));
  EXPECT_EQ(cursor(grid), "2,6");
  grid.setCol(16);
  EXPECT_TRUE(moveRight(&grid));
  EXPECT_EQ(cursor(grid), "3,1");

  grid.setRowHeight(4, 0);  // the wrap skips a hidden row
  grid.setCol(16);
  moveRight(&grid);
  EXPECT_EQ(grid.row(), 5);

  moveTo(grid, 10, 16);  // nothing after the last column of the last row
  EXPECT_FALSE(moveRight(&grid));
  EXPECT_EQ(cursor(grid), "10,16");
  grid.setColWidth(16, 0);  // a hidden last column is passed over by the wrap
  moveTo(grid, 6, 15);
  moveRight(&grid);
  EXPECT_EQ(cursor(grid), "7,1");
}

TEST_F(GridRoutines, CopyAlphaFillsTheTagsOfTheSelectedRowsWithAKey) {
  GridPage grid = build(Schema::Channel);
  // Row 2 has no frequency and is left alone; row 4 is outside the selection.
  test::fill(grid, {{1, 1, "154.785000"}, {2, 2, "Kept"}, {3, 1, "460.125000"}, {3, 2, "Old"}});
  grid.setTextMatrix(4, 1, "851.012500");
  moveTo(grid, 1, 2);
  grid.setRowSel(3);
  EXPECT_EQ(g_copy_alpha(&grid), 2);
  EXPECT_EQ(test::cells(grid, {{1, 2}, {2, 2}, {3, 2}, {4, 2}}), "154.785000|Kept|460.125000|");

  // A talkgroup is copied; a unit grid has neither key column and nothing happens.
  for (const auto& [schema, copied] : {std::pair{Schema::Talkgroup, 1}, {Schema::Unit, 0}}) {
    GridPage other = build(schema);
    other.setTextMatrix(2, 1, "1234");
    other.setRow(2);
    EXPECT_EQ(g_copy_alpha(&other), copied);
    EXPECT_EQ(other.textMatrix(2, 2), copied ? "1234" : "");
  }
}

TEST_F(GridRoutines, AlignTextPadsTagsOnTheScannerLine) {
  struct Case {
    const char* tag;
    TagAlignment mode;
    const char* result;
  };
  const Case cases[] = {
      {"Fire", TagAlignment::Centre, "      Fire"},
      {"Fire", TagAlignment::Right, "            Fire"},
      {"   Fire  ", TagAlignment::Left, "Fire"},
      {"  Fire", TagAlignment::Centre, "      Fire"},  // blanks already there don't add up
      {"County Fire Dispatch", TagAlignment::Right, "County Fire Dispatch"},
      {"", TagAlignment::Right, ""},
  };
  for (const auto& c : cases) {
    GridPage grid = build(Schema::Channel);
    grid.setTextMatrix(5, 2, c.tag);
    g_align_text(&grid, "Alpha Tag", c.mode);
    EXPECT_EQ(grid.textMatrix(5, 2), c.result) << c.tag;
  }
  GridPage grid = build(Schema::Channel);
  grid.setTextMatrix(1, 2, "Fire");
  EXPECT_EQ(g_align_text(&grid, "Comments", TagAlignment::Right), 0);
  EXPECT_EQ(grid.textMatrix(1, 2), "Fire");
}

}  // namespace
}  // namespace zel
