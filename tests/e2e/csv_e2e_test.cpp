// `zel csv import` under the settings and flags that decide how a frequency is stored: the
// region moves the band gaps and the airband step rounds, as in the window and `zel cell`.
#include "zel_run.h"

namespace {

using zel::e2e::slurp;
using zel::e2e::ZelRun;
using zel::e2e::ZelTest;

TEST_F(ZelTest, CsvImportTakesTheSettingsAndTheFlagsOfZelCell) {
  const struct {
    const char* settings;  // the [options] lines of the settings file
    const char* flags;
    const char* source;
    const char* stored;
  } cases[] = {
      {"", "", "830.0125,Cell\n", "823.987500"},
      {"optie22=1x\n", "", "830.0125,Cell\n", "830.012500"},
      {"", "--region eu", "830.0125,Cell\n", "830.012500"},
      {"optie22=1x\n", "--region us", "830.0125,Cell\n", "823.987500"},
      {"optie10=1x\n", "", "121.51,Tower\n", "121.508300"},
      {"", "--airband", "121.51,Tower\n", "121.508300"},
      {"", "", "121.51,Tower\n", "121.510000"},
  };
  for (const auto& c : cases) {
    std::ofstream(path("settings.ini"), std::ios::trunc) << "[options]\n" << c.settings;
    std::ofstream(path("in.csv"), std::ios::trunc) << c.source;
    ZelRun in = zel("csv import '" + path("in.csv") + "' -o '" + path("out.hpd") + "' " + c.flags);
    ASSERT_EQ(in.exitCode, 0) << c.settings << c.flags << in.err;
    ASSERT_EQ(zel("csv export '" + path("out.hpd") + "' -o '" + path("out.csv") + "'").exitCode, 0);
    const std::string out = slurp(path("out.csv"));
    EXPECT_NE(out.find(std::string(",") + c.stored + ","), std::string::npos)
        << c.settings << c.flags << "\n"
        << out;
  }
}

}  // namespace
