// Delimited text into the document: tone texts, tone columns, the paste's cleaning and row
// limit, and the import that puts back what the export wrote.
#include "exchange/csv_import.h"

#include <gtest/gtest.h>

#include "core/memory_ports.h"
#include "core/tables.h"
#include "exchange/csv_export.h"
#include "exchange/tone_text.h"
#include "test_folder.h"

namespace zel::exchange {
namespace {

TEST(ToneText, TheFormsOfChannelLists) {
  const struct {
    const char* text;
    const char* code;
    const char* mode;
  } cases[] = {
      {"127.3", "127.3", "CTCSS"},  {"PL 127.3", "127.3", "CTCSS"},
      {"127.3 PL", "127.3", "CTCSS"}, {"CTCSS 127.3", "127.3", "CTCSS"},
      {"127.3 Hz", "127.3", "CTCSS"}, {"T100", "100.0", "CTCSS"},
      {"D023N", "023", "DCS"},      {"d754i", "754", "DCS"},
      {"DPL 023", "023", "DCS"},    {"DCS 23", "023", "DCS"},
      {"023", "023", "DCS"},        {"NAC 293", "293", "P25"},
      {"nac f7e", "F7E", "P25"},    {"$293", "293", "P25"},
      {"293", "293", ""},           {"", "", ""},
      {"CSQ", "", ""},              {"none", "", ""},
  };
  for (const auto& c : cases) {
    const ToneText t = readToneText(c.text);
    EXPECT_EQ(t.code, c.code) << c.text;
    EXPECT_EQ(t.mode, c.mode) << c.text;
  }
}

// Each row takes its squelch mode and code from the tone column that holds its value: an
// empty DCS cell does not wipe the CTCSS tone beside it.
TEST(CsvTones, BothToneColumnsMapped) {
  CsvMapper m;
  m.loadText("154.1,Fire,127.3,\n155.2,Police,,023\n156.3,Plain,,\n");
  m.setMeaning(1, "Frequency (MHz)");
  m.setMeaning(2, "Tag/Name");
  m.setMeaning(3, "CTCSS");
  m.setMeaning(4, "DCS");
  EXPECT_EQ(m.clipboardText(),
            "Frequency\tAlpha Tag\tSQ Code\tSQ Mode\r\n"
            "154.1\tFire\t127.3\tCTCSS\r\n"
            "155.2\tPolice\t023\tDCS\r\n"
            "156.3\tPlain\t\t\r\n");
}

GridPage channelGrid(int rows) {
  GridPage grid(rows, 4);
  const char* headings[] = {"#", "Frequency", "Alpha Tag", "Avoid"};
  for (int c = 0; c < 4; ++c) grid.setTextMatrix(0, c, headings[c]);
  return grid;
}

TEST(CsvPaste, ACommaStaysInItsCellAndTheDepartmentStopsAt9999) {
  GridPage grid = channelGrid(2);
  RecordingFeedback said;
  cell::CommitEnv env{{}, &said, nullptr};
  EXPECT_EQ(pasteFrequencies(grid, "Frequency\tAlpha Tag\r\n154.1\tFire, Dispatch\r\n", env), 1);
  EXPECT_EQ(grid.textMatrix(1, 2), "Fire; Dispatch");
  EXPECT_EQ(grid.textMatrix(1, 3), "");

  GridPage full = channelGrid(kMaxChannels - 1);
  for (int r = 1; r < kMaxChannels - 1; ++r) full.setTextMatrix(r, 1, "154.000000");
  EXPECT_EQ(pasteFrequencies(full, "Frequency\r\n155.1\r\n155.2\r\n155.3\r\n155.4\r\n", env), 2);
  EXPECT_EQ(full.rows(), kMaxChannels + 1);
  EXPECT_EQ(said.messages.back(), departmentFullMessage(2));
}

class CsvImport : public ::testing::Test {
 protected:
  CsvImportResult import(const std::string& text) {
    mapper.loadText(text);
    mapper.autoDetect();
    return importCsv(mapper, doc, pages, {});
  }
  TestFolder folder;
  PageFiles pages{folder.path()};
  Document doc;
  CsvMapper mapper;
};

// What the export writes comes back through the import with its systems, departments,
// names, tones, modes and service types; the talkgroups are counted, not made channels.
TEST_F(CsvImport, TheExportComesBackAsItWasWritten) {
  const std::string channels =
      "System,Department,Frequency,Alpha Tag,Avoid,Mode,SQ Mode,SQ Code,Service Type,"
      "Attenuator,Delay Time,Volume Offset,Alert Tone,Alert Level,Alert Light,Alert Pattern,"
      "NumberTag,Priority\r\n"
      "County,Fire,154.100000,Fire Dispatch,Off,NFM,CTCSS,127.3,Fire Dispatch,Off,2,0,Off,"
      "Auto,Off,On,3,Off\r\n"
      "County,Fire,154.250000,Fireground,On,FM,DCS,023,Fire-Tac,Off,-5,0,Off,Auto,Off,On,"
      "3,Off\r\n"
      "County,Police,460.125000,Police Main,Off,NFM,P25,293,Law Dispatch,Off,2,0,Off,Auto,Off,"
      "On,3,Off\r\n"
      "City,Works,453.500000,Public Works,Off,NFM,,,Public Works,Off,2,0,Off,Auto,Off,On,3,"
      "Off\r\n";
  const std::string talkgroups =
      "System,Department,Talkgroup,Alpha Tag,Avoid,AudioType,Service Type,Delay Time\r\n"
      "Metro,Ops,1234,Fire TG,Off,All,Fire Dispatch,2\r\n"
      "Metro,Ops,1235,Law TG,Off,All,Law Dispatch,2\r\n";
  CsvImportResult r = import(channels + talkgroups);
  ASSERT_TRUE(r.ok) << r.message;
  EXPECT_EQ(r.channels, 4);
  EXPECT_EQ(r.systems, 2);
  EXPECT_EQ(r.departments, 3);
  EXPECT_EQ(r.talkgroupsSkipped, 2);
  EXPECT_EQ(channelCsvExport(doc, pages), channels);
}

TEST_F(CsvImport, CommonHeadingsOfHobbyistLists) {
  CsvImportResult r =
      import("Name,Frequency,Tone,Mode\nFire,154.1,PL 127.3,FM\nPolice,155.2,D023N,NFM\n");
  ASSERT_TRUE(r.ok) << r.message;
  const std::string out = channelCsvExport(doc, pages);
  EXPECT_NE(out.find("CSV Import,CSV Import,154.100000,Fire,,FM,CTCSS,127.3,"), std::string::npos)
      << out;
  EXPECT_NE(out.find("155.200000,Police,,NFM,DCS,023,"), std::string::npos) << out;
}

TEST_F(CsvImport, ADepartmentTakes9999RowsAndTheRestContinue) {
  std::string text;
  for (int i = 0; i < kMaxChannels + 5; ++i) text += "154.1,Ch " + std::to_string(i) + "\n";
  CsvImportResult r = import(text);
  ASSERT_TRUE(r.ok) << r.message;
  EXPECT_EQ(r.channels, kMaxChannels + 5);
  EXPECT_EQ(r.departments, 2);
  EXPECT_EQ(r.continued, (std::vector<std::string>{"CSV Import 2"}));
  for (const std::string& dept : pages.departments()) {
    EXPECT_LE(pages.load(dept).size(), static_cast<std::size_t>(kMaxChannels)) << dept;
  }
}

TEST_F(CsvImport, OnlyTalkgroupsImportNothing) {
  CsvImportResult r = import("Talkgroup,Alpha Tag\n1234,Fire\n");
  EXPECT_FALSE(r.ok);
  EXPECT_EQ(r.talkgroupsSkipped, 1);
  EXPECT_TRUE(pages.departments().empty());
}

}  // namespace
}  // namespace zel::exchange
