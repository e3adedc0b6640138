// `zel csv export` of a real favorites list and back through `zel csv import`: the channels
// return with their systems, departments, names, tones, modes and service types, and the
// talkgroups are counted and skipped rather than made channels.
#include "zel_run.h"

namespace {

namespace fs = std::filesystem;
using zel::e2e::slurp;
using zel::e2e::ZelRun;
using zel::e2e::ZelTest;

TEST_F(ZelTest, RealListExportComesBackThroughTheImport) {
  const fs::path list =
      fs::path(ZEL_REALDATA_DIR) / "card_bcd536hp/BCDx36HP/favorites_lists/f_000001.hpd";
  if (!fs::exists(list)) GTEST_SKIP() << "no shared real cards";
  ASSERT_EQ(zel("csv export '" + list.string() + "' -o '" + path("a.csv") + "'").exitCode, 0);
  ZelRun in = zel("csv import '" + path("a.csv") + "' -o '" + path("b.hpd") + "'");
  ASSERT_EQ(in.exitCode, 0) << in.err;
  EXPECT_NE(in.out.find("9 talkgroup rows skipped"), std::string::npos) << in.out;
  ASSERT_EQ(zel("csv export '" + path("b.hpd") + "' -o '" + path("b.csv") + "'").exitCode, 0);
  // The channel part of both exports is the same text, line for line.
  const std::string a = slurp(path("a.csv"));
  const std::string channels = a.substr(0, a.find("System,Department,Talkgroup"));
  EXPECT_EQ(slurp(path("b.csv")), channels);
  // The one-line-a-system form names each system.
  ASSERT_EQ(zel("csv export --zel '" + list.string() + "' -o '" + path("z.csv") + "'").exitCode, 0);
  EXPECT_NE(slurp(path("z.csv")).find("[FQK] Southwest/South Central Region,"), std::string::npos)
      << slurp(path("z.csv"));
}

}  // namespace
