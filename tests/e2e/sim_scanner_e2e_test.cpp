// `zel sim scanner` on its own: the first line names a pseudo-terminal that answers the
// scanner's protocol, and the options are checked before anything starts.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <termios.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>

#include "monitor_process.h"

namespace zel::e2e {
namespace {

// Writes a command to the terminal and collects the reply until its CR.
std::string ask(int fd, const std::string& command, int timeoutMs = 2000) {
  std::string line = command + "\r";
  if (write(fd, line.data(), line.size()) != static_cast<ssize_t>(line.size())) return {};
  std::string reply;
  while (reply.empty() || reply.back() != '\r') {
    pollfd p{fd, POLLIN, 0};
    if (poll(&p, 1, timeoutMs) <= 0) break;
    char buffer[4096];
    ssize_t n = read(fd, buffer, sizeof buffer);
    if (n <= 0) break;
    reply.append(buffer, static_cast<std::size_t>(n));
  }
  return reply;
}

int openRaw(const std::string& device) {
  int fd = open(device.c_str(), O_RDWR | O_NOCTTY);
  if (fd < 0) return fd;
  termios tio{};
  tcgetattr(fd, &tio);
  cfmakeraw(&tio);
  tcsetattr(fd, TCSANOW, &tio);
  return fd;
}

TEST(SimScannerE2E, ThePathComesFirstAndTheTerminalAnswers) {
  for (const char* model : {"UBCD3600XLT", "SDS200"}) {
    SimulatedScanner sim({"--model", model});
    ASSERT_EQ(sim.device().rfind("/dev/", 0), 0u) << sim.process().err();
    int fd = openRaw(sim.device());
    ASSERT_GE(fd, 0);
    EXPECT_EQ(ask(fd, "MDL"), std::string("MDL,") + model + "\r");
    close(fd);
    // A second client after the first has gone is answered as well.
    fd = openRaw(sim.device());
    EXPECT_EQ(ask(fd, "KEY,L,P"), "KEY,OK\r");
    close(fd);
    EXPECT_EQ(sim.process().stop(), 0);
    EXPECT_NE(sim.process().err().find("replies"), std::string::npos);
  }
}

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
