#include "core/settings.h"

#include <gtest/gtest.h>

#include "core/memory_ports.h"

namespace zel {
namespace {

TEST(Settings, TrailingMarkIsAddedAndStripped) {
  MemorySettingsStore store;
  Settings s(store);
  s.put("com", "comport", "3");
  std::string raw;
  ASSERT_TRUE(store.read("com", "comport", raw));
  EXPECT_EQ(raw, "3x");
  EXPECT_EQ(s.get("com", "comport", "1x"), "3");
  // Missing: the default loses its last character too.
  EXPECT_EQ(s.get("gps", "def_range", "10"), "1");
  EXPECT_EQ(s.get("colwidth", "ccol_width1", "1200x"), "1200");
  // An empty stored value and an empty default both give "".
  s.put("options", "optie5", "");
  EXPECT_EQ(s.get("options", "optie5", "zz"), "");
  EXPECT_EQ(s.get("options", "optie6", ""), "");
}

TEST(Settings, SerialClamps) {
  struct Case {
    const char* text;
    int port;
    int baud;
  } cases[] = {{"0", 1, 57600},      {"1", 1, 57600},        {"99", 99, 57600},
               {"100", 99, 57600},   {"-4", 1, 57600},       {"abc", 1, 57600},
               {"9600", 99, 9600},   {"19200", 99, 19200},   {"38400", 99, 38400},
               {"115200", 99, 115200}, {"57600", 99, 57600}, {"4800", 99, 57600}};
  for (const auto& c : cases) {
    EXPECT_EQ(clampComPort(c.text), c.port) << c.text;
    EXPECT_EQ(clampBaudRate(c.text), c.baud) << c.text;
  }
}

}  // namespace
}  // namespace zel
