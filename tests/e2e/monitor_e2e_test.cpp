// `zel monitor` and `zel key` against `zel sim scanner`, through a real pseudo-terminal and
// the real serial port code, for both window families and with the simulator's faults.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "monitor_process.h"
#include "zel_run.h"

namespace zel::e2e {
namespace {

namespace fs = std::filesystem;
using ::testing::HasSubstr;

ZelRun monitor(const std::string& device, const std::vector<std::string>& options) {
  return onPort("monitor", device, options, 20000);
}

TEST(MonitorE2E, BcdFamilyLogsTheSimulatedScanToStdoutAndTheFile) {
  SimulatedScanner sim({"--model", "BCD536HP", "--seed", "5", "--activity", "0.5"});
  ASSERT_EQ(sim.device().rfind("/dev/", 0), 0u) << sim.process().err();
  fs::path log = fs::temp_directory_path() / ("zel-monitor-" + std::to_string(getpid()) + ".csvx");
  ZelRun m = monitor(sim.device(), {"--seconds", "4", "--log", log.string()});
  EXPECT_EQ(m.exitCode, 0) << m.err;
  EXPECT_THAT(m.out, HasSubstr("LOG,")) << m.err;
  std::string crlfLess = slurp(log);
  fs::remove(log);
  // The file holds the same lines, with CR LF ends.
  crlfLess.erase(std::remove(crlfLess.begin(), crlfLess.end(), '\r'), crlfLess.end());
  EXPECT_EQ(crlfLess, m.out);
  EXPECT_THAT(m.err, HasSubstr(" 0 watchdog resets"));
}

TEST(MonitorE2E, TheFamilyIsPickedFromTheModel) {
  SimulatedScanner sim({"--model", "SDS100", "--seed", "8", "--activity", "0.5"});
  ASSERT_FALSE(sim.device().empty());
  ZelRun m = monitor(sim.device(), {"--seconds", "4", "--json"});
  ASSERT_EQ(m.exitCode, 0) << m.err;
  EXPECT_THAT(m.out, HasSubstr("\"family\":\"sds\""));
  EXPECT_THAT(m.err, Not(HasSubstr("SDS VC")));
  // The SDS rows' Extra Info column is the activity logger's (control tests).
  EXPECT_THAT(m.out, HasSubstr("\"lines\":[\"")) << m.out;
}

TEST(MonitorE2E, ASilentScannerIsResetByTheWatchdogAndPollingResumes) {
  SimulatedScanner sim({"--model", "BCD436HP", "--silent-after", "1", "--silent-for", "2.5"});
  ASSERT_FALSE(sim.device().empty());
  ZelRun m = monitor(sim.device(), {"--seconds", "7", "--json"});
  ASSERT_EQ(m.exitCode, 0) << m.err;
  EXPECT_GE(jsonNumber(m.out, "watchdogResets"), 1) << m.out;
  EXPECT_GT(jsonNumber(m.out, "repliesSinceLastReset"), 20) << m.out;
  EXPECT_THAT(m.err, HasSubstr("resetting the port"));
}

TEST(MonitorE2E, TheBcdWindowAskedForRefusesAnSdsScanner) {
  SimulatedScanner sim({"--model", "SDS100"});
  ASSERT_FALSE(sim.device().empty());
  ZelRun m = monitor(sim.device(), {"--seconds", "4", "--family", "bcd"});
  EXPECT_EQ(m.exitCode, 1);
  EXPECT_THAT(m.err,
              HasSubstr("New sds model detected, please select SDS VC for correct interface"));
}

TEST(MonitorE2E, AMissingPortIsAUserError) {
  ZelRun m = monitor("/dev/zel-no-such-port", {"--seconds", "1"});
  EXPECT_EQ(m.exitCode, 1);
  EXPECT_THAT(m.err,
              HasSubstr("Cannot open the port /dev/zel-no-such-port: usb/comport error: 80"));
  EXPECT_EQ(monitor("/dev/null", {"--family", "hp"}).exitCode, 2);
}

TEST(KeyE2E, KeysReachTheScannerAndItsRepliesComeBack) {
  SimulatedScanner sim({"--model", "BCD536HP", "--verbose"});
  ASSERT_FALSE(sim.device().empty());
  Process key;
  ASSERT_TRUE(key.start({zelBinary(), "key", "--port", sim.device(), "SCAN", "AVOID", "7"}));
  EXPECT_EQ(key.wait(10000), 0) << key.err();
  EXPECT_EQ(key.out(), "SCAN: JPM,OK\nAVOID: KEY,OK\n7: KEY,OK\n");
  Process again;  // a second client after the first has gone is answered as well
  ASSERT_TRUE(again.start({zelBinary(), "key", "--port", sim.device(), "MENU"}));
  EXPECT_EQ(again.wait(10000), 0) << again.err();
  EXPECT_EQ(again.out(), "MENU: KEY,OK\n");
  sim.process().stop();
  EXPECT_THAT(sim.process().err(), HasSubstr("> KEY,L,P"));

  Process bad;
  ASSERT_TRUE(bad.start({zelBinary(), "key", "--port", sim.device(), "WARP"}));
  EXPECT_EQ(bad.wait(5000), 1);
  EXPECT_THAT(bad.err(), ::testing::StartsWith("Unknown key \"WARP\". Keys: SYSTEM DEPT CHANNEL"));
}

}  // namespace
}  // namespace zel::e2e
