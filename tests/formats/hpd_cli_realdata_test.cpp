// zel hpd on the real cards: the counts of info are the counts of the line types, and a
// convert of a convert gives the same bytes.
#include <gtest/gtest.h>

#include <map>

#include "core/text.h"
#include "formats/text_file.h"
#include "formats_test_support.h"
#include "hpd_cli_support.h"

namespace zel::formats {
namespace {

const std::string kRoot = ZEL_REALDATA_DIR;

class RealHpdCli : public ::testing::TestWithParam<std::string> {
 protected:
  void SetUp() override {
    if (test::zelProgram().empty()) GTEST_SKIP() << "no zel in " << ZEL_BIN_DIR;
  }
};

TEST_P(RealHpdCli, InfoCountsTheLineTypesOfTheFile) {
  const std::string path = kRoot + GetParam();
  std::map<std::string, int> n;
  forEachLine(test::slurp(path),
              [&](std::string_view l) { ++n[std::string(l.substr(0, l.find('\t')))]; });
  test::Run r = test::runZel("hpd info '" + path + "'");
  ASSERT_EQ(r.code, 0) << r.out;
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

TEST_P(RealHpdCli, ASecondConvertGivesTheSameBytes) {
  test::TempDir dir;
  const std::string once = dir.file("once.hpd");
  const std::string twice = dir.file("twice.hpd");
  ASSERT_EQ(test::runZel("hpd convert '" + kRoot + GetParam() + "' '" + once + "'").code, 0);
  ASSERT_EQ(test::runZel("hpd convert '" + once + "' '" + twice + "'").code, 0);
  EXPECT_TRUE(test::slurp(once) == test::slurp(twice));
}

INSTANTIATE_TEST_SUITE_P(Cards, RealHpdCli,
                         ::testing::Values("/card_bcd536hp/BCDx36HP/favorites_lists/f_000001.hpd",
                                           "/card_sds200/BCDx36HP/favorites_lists/f_000001.hpd",
                                           "/card_sds200/BCDx36HP/HPDB/s_000006.hpd",
                                           "/card_sds200/BCDx36HP/HPDB/s_000048.hpd"));

}  // namespace
}  // namespace zel::formats
