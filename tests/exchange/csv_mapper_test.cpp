// The CSV mapper: reading lines, the line limit, bad input, detection of the column
// meanings, the row and cell filters, the exports and the paste into a channel grid.
#include "exchange/csv_mapper.h"

#include <gtest/gtest.h>

#include <fstream>

#include "core/memory_ports.h"
#include "test_folder.h"

namespace zel::exchange {
namespace {

std::string lines(int count, const std::string& line = "154.1,Fire") {
  std::string out;
  for (int i = 0; i < count; ++i) out += line + "\n";
  return out;
}

TEST(CsvLines, ReadingNormalisesSeparatorsAndWords) {
  struct Case {
    const char* in;
    const char* out;
  } cases[] = {
      {"154.1\tFire,fm,OFF", "154.1 Fire,FM,Off"},
      {"154.1 Fire  NFM", "154.1,Fire,NFM"},
      {"154.1-Fire-NFM", "154.1,Fire,NFM"},
      {"a,am,b,wfm,c", "a,AM,b,WFM,c"},
      {"x,OFFSET,ONE", "x,OffSET,OnE"},
      {"", ""},
  };
  for (const Case& c : cases) EXPECT_EQ(normaliseLine(c.in), c.out) << c.in;
}

TEST(CsvLoad, FieldsGoToColumnsAndColumnsGrow) {
  CsvMapper m;
  ASSERT_TRUE(m.loadText("154.1,Fire\r\n460,Law,NFM,x\n154,5\n"));
  EXPECT_EQ(m.rowCount(), 3);
  EXPECT_EQ(m.columnCount(), 4);
  EXPECT_EQ(m.grid().textMatrix(2, 4), "x");
  EXPECT_EQ(m.grid().textMatrix(3, 2), "5");  // a decimal comma splits the number
  EXPECT_EQ(m.meaning(1), "Unknown");
}

TEST(CsvLoad, TheLineLimit) {
  CsvMapper m;
  RecordingFeedback fb;
  EXPECT_TRUE(m.loadText(lines(15000), &fb));
  EXPECT_EQ(m.rowCount(), 15000);
  EXPECT_TRUE(fb.messages.empty());
  EXPECT_FALSE(m.loadText(lines(15001), &fb));
  ASSERT_EQ(fb.messages.size(), 1u);
  EXPECT_EQ(fb.messages[0], "File too large, quiting import.");
  EXPECT_EQ(m.rowCount(), 0);
}

TEST(CsvLoad, BadInputNeverCrashes) {
  CsvMapper m;
  RecordingFeedback fb;  // random bytes are the fuzz target's; these are the edges
  EXPECT_TRUE(m.loadText(std::string(100000, ','), &fb));
  EXPECT_EQ(m.rowCount(), 1);
  EXPECT_EQ(m.columnCount(), kMaxColumns);
  EXPECT_TRUE(m.loadText(std::string(100000, 'x') + "\n" + std::string(100000, ' '), &fb));
  EXPECT_EQ(m.rowCount(), 2);
  EXPECT_TRUE(m.loadText("", &fb));
  EXPECT_EQ(m.rowCount(), 0);
  EXPECT_TRUE(m.loadFile("/no/such/file.csv", &fb));
  EXPECT_EQ(m.rowCount(), 0);
  EXPECT_TRUE(fb.messages.empty());
  m.autoDetect();
  EXPECT_EQ(m.applyRowFilters({true, true, 3, true, "x", true}), 0);
  EXPECT_EQ(m.plainExport(), "WebCatcher,data,Torvo,Freeland\r\n");
}

TEST(CsvDetect, HeadingsThenValues) {
  CsvMapper m;
  m.loadText("Frequency,Name,PL Tone,Mode,DPL,ATT,TS,SKIP,tgid,Other\n");
  m.autoDetect();
  const char* expected[] = {"Frequency (MHz)",   "Unknown", "CTCSS",   "Mode",     "DCS",
                            "Attenuator On/Off", "Step",    "LockOut", "Trunk ID", "Unknown"};
  for (int c = 1; c <= 10; ++c) EXPECT_EQ(m.meaning(c), expected[c - 1]) << c;

  CsvMapper values;
  values.loadText("Fire,x,154.2500\nLaw,y,460.0\n");
  values.autoDetect();
  EXPECT_EQ(values.meaning(3), "Frequency (MHz)");
  EXPECT_EQ(values.meaning(1), "Unknown");
  CsvMapper outOfRange;
  outOfRange.loadText("Fire,3.5\n");
  outOfRange.autoDetect();
  EXPECT_EQ(outOfRange.meaning(2), "Unknown");
}

TEST(CsvFilters, RowConditions) {
  struct Case {
    RowFilters filters;
    int kept;
  } cases[] = {
      {{true, false, 0, false, "", false}, 2},   // 154.1 and 460.025
      {{false, true, 0, false, "", false}, 4},   // blanks became commas on reading
      {{false, false, 4, false, "", false}, 2},  // 1600 and 0460
      {{false, false, 0, true, "", false}, 1},  {{false, false, 0, false, "Law", false}, 1},
      {{false, false, 0, false, "", true}, 1},  // 1600
      {{true, true, 0, false, "", false}, 2},
  };
  for (const Case& c : cases) {
    CsvMapper m;
    m.loadText("154.1,Fire\n1600,TG-1\n0460.025,Law\nnothing here\n");
    m.applyRowFilters(c.filters);
    EXPECT_EQ(m.rowCount(), c.kept);
  }
  CsvMapper m;
  m.loadText("a,b\n,\n,x\nno digits\n12,\n");
  EXPECT_EQ(m.removeEmptyLines(), 1);
  EXPECT_EQ(m.removeWithoutNumbers(), 3);
  EXPECT_EQ(m.rowCount(), 1);
  EXPECT_EQ(m.grid().textMatrix(1, 1), "12");
  EXPECT_EQ(m.grid().textMatrix(1, 0), "1");
}

TEST(CsvFilters, CellOperations) {
  CsvMapper m;
  m.loadText("Fire Disp,abc\nLaw Tac,def\n");
  EXPECT_EQ(m.applyCellFilter(CellOp::Upper, 1, 1, 0), 2);
  EXPECT_EQ(m.grid().textMatrix(1, 1), "FIRE DISP");
  EXPECT_EQ(m.grid().textMatrix(2, 1), "Law Tac");
  EXPECT_EQ(m.applyCellFilter(CellOp::Lower, 1, 2, 1), 2);
  EXPECT_EQ(m.applyCellFilter(CellOp::Replace, 1, 2, 1, "tac", "TAC"), 1);
  EXPECT_EQ(m.grid().textMatrix(2, 1), "law TAC");
  EXPECT_EQ(m.applyCellFilter(CellOp::Remove, 1, 99, 2, "e"), 1);
  EXPECT_EQ(m.grid().textMatrix(2, 2), "df");
}

TEST(CsvExport, PlainGridAndFile) {
  TestFolder folder;
  CsvMapper m;
  m.loadText("154.1,,Fire\n460\n");
  EXPECT_EQ(m.plainExport(), "WebCatcher,data,Torvo,Freeland\r\n154.1,,Fire,\r\n460,,,\r\n");
  std::string written = m.saveFile(folder.file("out"));
  EXPECT_EQ(written, folder.file("out.csv"));
  std::ifstream in(written, std::ios::binary);
  std::string content((std::istreambuf_iterator<char>(in)), {});
  EXPECT_EQ(content, m.plainExport());
  EXPECT_EQ(m.saveFile(folder.file("no/such/dir/x.txt")), "");
}

TEST(CsvPaste, MappedColumnsPassTheCellCommit) {
  CsvMapper m;
  m.loadText("Freq,Tag,Mode,Junk\n154.16125,Fire \"1\",NFM,x\n,,,\n600,Law,BAD,y\n");
  m.autoDetect();
  m.setMeaning(2, "Tag/Name");
  std::string clip = m.clipboardText();
  EXPECT_EQ(clip.substr(0, clip.find('\r')), "Frequency\tAlpha Tag\tMode");

  GridPage grid(3, 5);
  const char* headings[] = {"#", "Frequency", "Alpha Tag", "Avoid", "Mode"};
  for (int c = 0; c < 5; ++c) grid.setTextMatrix(0, c, headings[c]);
  grid.setTextMatrix(1, 1, "851.000000");
  bool changed = false;
  cell::CommitEnv env{{}, nullptr, &changed};
  // The heading row of the source ("Freq") has no frequency in it and is left out.
  EXPECT_EQ(pasteFrequencies(grid, clip, env), 2);
  EXPECT_EQ(grid.textMatrix(2, 1), "154.161250");
  EXPECT_EQ(grid.textMatrix(2, 2), "Fire _1_");
  EXPECT_EQ(grid.textMatrix(2, 4), "NFM");
  EXPECT_EQ(grid.textMatrix(3, 1), "512.000000");
  EXPECT_EQ(grid.textMatrix(3, 4), "");  // not a word of the Mode list
  EXPECT_EQ(grid.textMatrix(1, 1), "851.000000");
  EXPECT_TRUE(changed);
}

}  // namespace
}  // namespace zel::exchange
