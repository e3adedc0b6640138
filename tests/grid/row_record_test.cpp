#include "grid/row_record.h"

#include <gtest/gtest.h>

#include "grid/grid_setup.h"
#include "grid_test_support.h"

namespace zel {
namespace {

GridPage channelGrid(ScannerFamily family = ScannerFamily::BCD) {
  GridPage grid;
  GridSetup setup;
  setup.family = family;
  setup_grid(&grid, setup);
  return grid;
}

GridPage talkgroupGrid() {
  GridPage grid;
  setup_tgrid(&grid, GridSetup{});
  return grid;
}

const char* kChannel =
    "7,154.785000,Fire Dispatch,Off,NFM,CTCSS,123.0,Fire Dispatch,Off,2,0,Off,Auto,Off,On,,Off";
const char* kTalkgroup = "3,1234,County PD,Off,Digital,Law Dispatch,2,0,Off,Auto,Off,On,5,Off,Any";

TEST(RowRecord, RecordsComeBackFromTheirRowUnchanged) {
  struct Case {
    GridPage grid;
    const char* record;
    const char* index;
  };
  Case cases[] = {
      {channelGrid(), kChannel, "7"},
      {talkgroupGrid(), kTalkgroup, "3"},
      {channelGrid(ScannerFamily::HP), "1,88.500000,Radio,On,WFM,All,,Media,Off,0,0,Off,Auto", "1"},
      {channelGrid(), "12,460.125000,,,,,,,,,,,,,,,", "12"},  // empty cells stay empty fields
  };
  for (auto& c : cases) {
    recordToRow(c.grid, 4, c.record);
    auto back = rowToRecord(c.grid, 4, c.index);
    ASSERT_TRUE(back.has_value()) << c.record;
    EXPECT_EQ(*back, c.record);
  }
}

TEST(RowRecord, FieldNGoesToColumnN) {
  GridPage grid = channelGrid();
  recordToRow(grid, 2, kChannel);
  std::string texts;
  for (const char* heading : {"Frequency", "SQ Code", "Alert Pattern", "NumberTag"})
    texts += grid.textMatrix(2, grid.findColumn(heading)) + "|";
  EXPECT_EQ(texts, "154.785000|123.0|On||");
  EXPECT_EQ(grid.textMatrix(2, 0), "2");  // the label is the grid's, not the record's
}

TEST(RowRecord, ShortRecordsEmptyTheRestAndLongOnesAreCut) {
  GridPage grid = channelGrid();
  recordToRow(grid, 1, kChannel);
  recordToRow(grid, 1, "1,146.520000,Simplex\r\n");
  EXPECT_EQ(test::cells(grid, {{1, 2}, {1, 4}, {1, 16}}), "Simplex||");

  GridPage hp = channelGrid(ScannerFamily::HP);
  recordToRow(hp, 1, kChannel);
  EXPECT_EQ(*rowToRecord(hp, 1, "7"),
            "7,154.785000,Fire Dispatch,Off,NFM,CTCSS,123.0,Fire Dispatch,Off,2,0,Off,Auto");
}

TEST(RowRecord, ARowWithoutAKeyIsNoRecord) {
  GridPage grid = channelGrid();
  grid.setTextMatrix(3, 2, "Name only");
  EXPECT_FALSE(rowToRecord(grid, 3, "3").has_value());
  EXPECT_FALSE(rowToRecord(grid, 0, "0").has_value());  // the heading row
  EXPECT_FALSE(rowToRecord(grid, 99, "99").has_value());
}

TEST(RowRecord, WorkingColumnsNeverReachARecord) {
  GridPage grid = channelGrid();
  for (const char* heading : {"hiddensort", "lastsort", "index"}) {
    grid.setCols(grid.cols() + 1);
    grid.setTextMatrix(0, grid.cols() - 1, heading);
  }
  EXPECT_EQ(recordColumnCount(grid), 16);
  recordToRow(grid, 1, std::string(kChannel) + ",sortkey,x,y");
  EXPECT_EQ(grid.textMatrix(1, 17), "");
  grid.setTextMatrix(1, 17, "0001");
  EXPECT_EQ(*rowToRecord(grid, 1, "7"), kChannel);
}

TEST(RecordKey, APointInFieldOneMakesAFrequencyRecord) {
  for (const auto& [record, frequency] : {std::pair{kChannel, true},
                                          {kTalkgroup, false},
                                          {"1,12-034,EDACS", false},
                                          {"1,,Empty", false},
                                          {"1,.5", true},
                                          {"1", false}}) {
    EXPECT_EQ(isFrequencyRecord(record), frequency) << record;
    EXPECT_EQ(recordKey(record, 1, 2, 3), frequency ? "FRQ-001-002-0003" : "TID-001-002-0003")
        << record;
  }
  EXPECT_EQ(recordKey(kChannel, 999, 399, 9999), "FRQ-999-399-9999");
}

TEST(PageLines, LoadingFillsRowsInOrderAndKeepsTheFreshPageSize) {
  GridPage grid = channelGrid();
  // What the last department left behind must go.
  grid.setTextMatrix(9, 1, "999.000000");
  grid.setRowHeight(5, 0);
  std::vector<std::string> lines = {kChannel, "8,155.000000,Two", "9,156.000000,Three"};
  EXPECT_EQ(loadPageLines(grid, lines), 3);
  EXPECT_EQ(grid.rows(), 11);
  EXPECT_EQ(test::cells(grid, {{1, 1}, {3, 2}, {9, 1}, {10, 0}}), "154.785000|Three||10");
  EXPECT_FALSE(grid.rowHidden(5));

  std::vector<std::string> many;
  for (int i = 1; i <= 25; ++i) many.push_back(std::to_string(i) + ",1" + std::to_string(i) + ".5");
  loadPageLines(grid, many);
  EXPECT_EQ(grid.rows(), 26);
  EXPECT_EQ(test::cells(grid, {{25, 0}, {25, 1}}), "25|125.5");
  loadPageLines(grid, {});
  EXPECT_EQ(std::make_pair(grid.rows(), grid.textMatrix(1, 1)), std::make_pair(11, std::string()));
}

TEST(PageLines, SavingNumbersTheStoredRowsFromOne) {
  GridPage grid = talkgroupGrid();
  test::fill(grid, {{2, 1, "100"}, {2, 2, "First"}, {3, 2, "No key"}, {5, 1, "200"}});
  grid.setRowHeight(5, 0);  // hidden rows are still data
  EXPECT_EQ(savePageLines(grid),
            (std::vector<std::string>{"1,100,First,,,,,,,,,,,,", "2,200,,,,,,,,,,,,,"}));
}

}  // namespace
}  // namespace zel
