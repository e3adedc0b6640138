// `zel hpd` on the real cards: the counts of info are the counts of the line types, and a
// convert of a convert gives the same bytes.
#include "zel_run.h"

namespace {

using zel::e2e::pieces;
using zel::e2e::slurp;
using zel::e2e::ZelRun;

class RealHpdInfo : public zel::e2e::ZelTest, public ::testing::WithParamInterface<std::string> {
 protected:
  std::string file() const { return std::string(ZEL_REALDATA_DIR) + GetParam(); }
};

TEST_P(RealHpdInfo, InfoCountsTheLineTypesOfTheFile) {
  std::map<std::string, int> n;
  for (std::string line : pieces(slurp(file()))) ++n[line.substr(0, line.find('\t'))];
  ZelRun r = zel("hpd info '" + file() + "'");
  ASSERT_EQ(r.exitCode, 0) << r.err;
  const std::pair<std::string, int> want[] = {
      {"Systems", n["Conventional"] + n["Trunk"]},
      {"Sites", n["Site"]},
      {"Departments", n["C-Group"] + n["T-Group"]},
      {"Channels", n["C-Freq"]},
      {"Talkgroups", n["TGID"]},
      {"Site frequencies", n["T-Freq"]},
      {"Unit IDs", n["UnitIds"]},
      {"Band plans", n["BandPlan_Mot"]},
      {"Fleet maps", n["FleetMap"]},
  };
  for (const auto& [label, count] : want) {
    EXPECT_NE(r.out.find("\n" + label + ": " + std::to_string(count) + "\n"), std::string::npos)
        << label << " " << count;
  }
}

TEST_P(RealHpdInfo, ASecondConvertGivesTheSameBytes) {
  ASSERT_EQ(zel("hpd convert '" + file() + "' '" + path("once.hpd") + "'").exitCode, 0);
  ASSERT_EQ(zel("hpd convert '" + path("once.hpd") + "' '" + path("twice.hpd") + "'").exitCode, 0);
  EXPECT_TRUE(slurp(path("once.hpd")) == slurp(path("twice.hpd")));
}

INSTANTIATE_TEST_SUITE_P(Cards, RealHpdInfo,
                         ::testing::Values("/card_bcd536hp/BCDx36HP/favorites_lists/f_000001.hpd",
                                           "/card_sds200/BCDx36HP/favorites_lists/f_000001.hpd",
                                           "/card_sds200/BCDx36HP/HPDB/s_000006.hpd",
                                           "/card_sds200/BCDx36HP/HPDB/s_000048.hpd"));

}  // namespace
