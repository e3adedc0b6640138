// `zel sim scanner` on its own: the options are checked before a terminal is made. The
// terminal's answers are proven through `zel monitor`, `zel key` and `zel sweep`.
#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>

#include "monitor_process.h"

namespace zel::e2e {
namespace {

TEST(SimScannerE2E, BadOptionsStopBeforeATerminalIsMade) {
  Process model;
  ASSERT_TRUE(model.start({zelBinary(), "sim", "scanner", "--model", "BC125AT"}));
  EXPECT_EQ(model.wait(5000), 2);
  EXPECT_EQ(model.out(), "");
  Process list;
  std::filesystem::path empty =
      std::filesystem::temp_directory_path() / ("zel-empty-" + std::to_string(getpid()) + ".hpd");
  std::ofstream(empty) << "TargetModel\tBCDx36HP\r\nFormatVersion\t1.00\r\n";
  ASSERT_TRUE(list.start({zelBinary(), "sim", "scanner", "--list", empty.string()}));
  EXPECT_EQ(list.wait(5000), 1);
  EXPECT_NE(list.err().find("holds no channel"), std::string::npos) << list.err();
  EXPECT_EQ(list.out(), "");
  std::filesystem::remove(empty);
}

}  // namespace
}  // namespace zel::e2e
