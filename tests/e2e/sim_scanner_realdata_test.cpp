// `zel sim scanner` scanning a favorites list from a real BCD536HP card.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <termios.h>
#include <unistd.h>

#include <fstream>
#include <set>
#include <sstream>

#include "monitor_process.h"

namespace zel::e2e {
namespace {

TEST(SimScannerRealList, TheMonitorLogsChannelsOfTheRealList) {
  SimulatedScanner sim(
      {"--list",
       std::string(ZEL_REALDATA_DIR) + "/card_bcd536hp/BCDx36HP/favorites_lists/f_000001.hpd",
       "--activity", "0.6", "--seed", "2"});
  ASSERT_EQ(sim.device().rfind("/dev/", 0), 0u) << sim.process().err();
  Process monitor;
  ASSERT_TRUE(monitor.start({zelBinary(), "monitor", "--port", sim.device(), "--seconds", "5"}));
  ASSERT_EQ(monitor.wait(15000), 0) << monitor.err();
  // Every hit names a system of the real list (a comma in a name would read as ";").
  std::set<std::string> systems;
  std::ifstream hpd(std::string(ZEL_REALDATA_DIR) +
                    "/card_bcd536hp/BCDx36HP/favorites_lists/f_000001.hpd");
  for (std::string line; std::getline(hpd, line);) {
    if (line.rfind("Trunk\t", 0) != 0 && line.rfind("Conventional\t", 0) != 0) continue;
    std::istringstream fields(line);
    std::string f;
    for (int i = 0; i <= 3 && std::getline(fields, f, '\t'); ++i) {
    }
    systems.insert(f);
  }
  ASSERT_EQ(systems.size(), 3u);
  std::istringstream out(monitor.out());
  int hits = 0;
  for (std::string line; std::getline(out, line);) {
    if (line.rfind("LOG,", 0) != 0) continue;
    std::vector<std::string> f;
    std::istringstream cells(line);
    for (std::string c; std::getline(cells, c, ',');) f.push_back(c);
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
