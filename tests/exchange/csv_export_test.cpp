// The two exports: the "[ZEL CSV FILE]" system lines and the line-per-channel text.
#include "exchange/csv_export.h"

#include <gtest/gtest.h>

#include "test_folder.h"

namespace zel::exchange {
namespace {

TEST(ZelCsvExport, SelectedSystemsOnlyInTheirFieldOrder) {
  std::vector<FavoritesRow> rows = {
      {"1", "F0,f1,12,f3,f4,f5,County,f7"},
      {"0", "F0,f1,13,f3,f4,f5,Skipped,f7"},
      {"1", "F0,,,,,,Short"},
  };
  EXPECT_EQ(zelCsvExport(rows),
            "[ZEL CSV FILE]\r\n[FQK] County,f3,f7,Numtag: 12,\r\n[FQK] Short,,,Numtag: ,\r\n");
  EXPECT_EQ(zelCsvExport({}), "[ZEL CSV FILE]\r\n");
}

TEST(ChannelCsvExport, ChannelsThenTalkgroupsWithTheirHeadings) {
  TestFolder folder;
  PageFiles pages(folder.path());
  pages.save("GRP-999-002-001", {"1,1234,Fire TG,Off,All"});
  pages.save("GRP-999-001-001", {"1,154.100000,Fire,Off,NFM", "2,,empty row"});
  std::string text = channelCsvExport(pages, ScannerFamily::HP);
  EXPECT_EQ(text,
            "Frequency,Alpha Tag,Avoid,Mode,SQ Mode,SQ Code,Service Type,Attenuator,Delay Time,"
            "Volume Offset,Alert Tone,Alert Level\r\n"
            "154.100000,Fire,Off,NFM,,,,,,,,\r\n"
            "Talkgroup,Alpha Tag,Avoid,AudioType,Service Type,Delay Time,Volume Offset,Alert "
            "Tone,Alert Level\r\n"
            "1234,Fire TG,Off,All,,,,,\r\n");
  PageFiles none(folder.file("empty"));
  EXPECT_EQ(channelCsvExport(none, ScannerFamily::BCD), "");
}

}  // namespace
}  // namespace zel::exchange
