// `zel sim scanner` scanning a favorites list from a real BCD536HP card.
#include <gtest/gtest.h>

#include <set>

#include "monitor_process.h"

namespace zel::e2e {
namespace {

TEST(SimScannerRealList, TheMonitorLogsChannelsOfTheRealList) {
  const std::string list =
      std::string(ZEL_REALDATA_DIR) + "/card_bcd536hp/BCDx36HP/favorites_lists/f_000001.hpd";
  SimulatedScanner sim({"--list", list, "--activity", "0.6", "--seed", "2"});
  ASSERT_EQ(sim.device().rfind("/dev/", 0), 0u) << sim.process().err();
  Process monitor;
  ASSERT_TRUE(monitor.start({zelBinary(), "monitor", "--port", sim.device(), "--seconds", "5"}));
  ASSERT_EQ(monitor.wait(15000), 0) << monitor.err();
  // Every hit names a system of the real list (a comma in a name would read as ";").
  std::set<std::string> systems;
  for (const std::string& line : pieces(slurp(list))) {
    const std::vector<std::string> f = pieces(line, '\t');
    if (f.size() > 3 && (f[0] == "Trunk" || f[0] == "Conventional")) systems.insert(f[3]);
  }
  ASSERT_EQ(systems.size(), 3u);
  int hits = 0;
  for (const std::string& line : pieces(monitor.out())) {
    if (line.rfind("LOG,", 0) != 0) continue;
    const std::vector<std::string> f = pieces(line, ',');
    ASSERT_GE(f.size(), 14u) << line;
    EXPECT_TRUE(systems.count(f[7]) || f[7] == "CloseCall") << line;
    ++hits;
  }
  EXPECT_GE(hits, 1) << monitor.err();
  sim.process().stop();
  EXPECT_NE(sim.process().err().find("scanning 17 channels of \"f_000001\""), std::string::npos);
}

}  // namespace
}  // namespace zel::e2e
