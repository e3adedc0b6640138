#include "sim/scanner_sim_list.h"

#include <gtest/gtest.h>

#include <fstream>

#include "test_folder.h"

namespace zel::sim {
namespace {

TEST(SimScanList, TheBuiltInListHasEveryKindOfChannel) {
  SimScanList list = builtInScanList();
  bool comma = false, trunked = false, ctcss = false, dcs = false, am = false;
  for (const auto& c : list.channels) {
    comma = comma || c.system.find(',') != std::string::npos;
    trunked = trunked || (c.trunked && !c.units.empty() && !c.nac.empty());
    ctcss = ctcss || c.toneType == "CTCSS";
    dcs = dcs || c.toneType == "DCS";
    am = am || c.modulation == "AM";
    EXPECT_GT(c.hz, 0) << c.name;
  }
  EXPECT_TRUE(comma && trunked && ctcss && dcs && am);
}

TEST(SimScanList, AFavoritesFileBecomesChannelsInFileOrder) {
  TestFolder folder;
  std::ofstream(folder.file("list.hpd"), std::ios::binary)
      << "TargetModel\tBCDx36HP\r\nFormatVersion\t1.00\r\n"
         "Conventional\t\t\tHarbor\tOff\t\tConventional\tOff\r\n"
         "C-Group\tCGroupId=1\tAgencyId=2\tMarine\tOff\t0.000000\t-0.000000\t0.0\tCircle\r\n"
         "C-Freq\t\t\tCh 16\tOff\t156800000\tFM\tTONE=C100.0\t1\tOff\t2\t0\tOff\tAuto\r\n"
         "C-Freq\t\t\tBridge\tOff\t156650000\tNFM\t\t1\tOff\t2\t0\tOff\tAuto\r\n";
  ScanListRead read = readScanList(folder.file("list.hpd"));
  ASSERT_TRUE(read.ok) << read.message;
  ASSERT_EQ(read.list.channels.size(), 2u);
  const SimChannel& c = read.list.channels[0];
  EXPECT_EQ(c.system + "|" + c.department + "|" + c.name + "|" + std::to_string(c.hz) + "|" +
                c.modulation + "|" + c.toneType + "|" + c.toneValue + "|" + read.list.name,
            "Harbor|Marine|Ch 16|156800000|FM|CTCSS|100.0|list");
}

TEST(SimScanList, AFileWithoutChannelsOrWithoutHeaderIsRefused) {
  TestFolder folder;
  std::ofstream(folder.file("empty.hpd"), std::ios::binary)
      << "TargetModel\tBCDx36HP\r\nFormatVersion\t1.00\r\n";
  ScanListRead empty = readScanList(folder.file("empty.hpd"));
  EXPECT_FALSE(empty.ok);
  EXPECT_NE(empty.message.find("no channel"), std::string::npos);
  ScanListRead missing = readScanList(folder.file("nothing.hpd"));
  EXPECT_FALSE(missing.ok);
  EXPECT_FALSE(missing.message.empty());
}

}  // namespace
}  // namespace zel::sim
