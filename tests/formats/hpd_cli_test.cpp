// zel hpd info, convert and check as a user runs them. Skipped when the build has no `zel`.
#include <gtest/gtest.h>

#include "formats_test_support.h"
#include "hpd_cli_support.h"

namespace zel::formats {
namespace {

using test::hpdFile;
using test::runZel;

class HpdCli : public ::testing::Test {
 protected:
  void SetUp() override {
    if (test::zelProgram().empty()) GTEST_SKIP() << "no zel in " << ZEL_BIN_DIR;
    file = dir.file("metro.hpd");
    test::spit(file, hpdFile({
                         "Trunk|||Metro|Off||P25Standard",
                         "UnitIds|||Medic|77|Off|Auto|Red|On",
                         "Site|||North|Off|41.4|-81.7|19.1|AUTO|Custom|Wide|Circle|Off",
                         "T-Freq|||||851900000|1",
                         "T-Group|||Fire|Off",
                         "TGID|||Dispatch|Off|56421|ALL|3",
                         "Conventional|||Caf\xE9|Off||Conventional",
                         "C-Group|||G|Off",
                         "C-Freq|||Ch|Off|155000000|WFM|TONE=C146.3|3",
                         "Bogus|line",
                     }));
  }
  test::TempDir dir;
  std::string file;
};

TEST_F(HpdCli, InfoCountsAndSystems) {
  test::Run r = runZel("hpd info '" + file + "'");
  ASSERT_EQ(r.code, 0) << r.out;
  for (const char* line :
       {"Level: 3\n", "Systems: 2\n", "Sites: 1\n", "Departments: 2\n", "Channels: 1\n",
        "Talkgroups: 1\n", "Site frequencies: 1\n", "Unit IDs: 1\n", "Band plans: 0\n",
        "Fleet maps: 0\n", "  1  P25 Standard  Metro\n", "  2  Conventional  Caf\xE9\n"}) {
    EXPECT_NE(r.out.find(line), std::string::npos) << line << "\n" << r.out;
  }
}

TEST_F(HpdCli, InfoAsJson) {
  test::Run r = runZel("hpd info --json '" + file + "'");
  ASSERT_EQ(r.code, 0) << r.out;
  EXPECT_NE(r.out.find("\"counts\":{\"systems\":2,\"sites\":1,"), std::string::npos) << r.out;
  // The name's byte 233 comes out as the Latin-1 letter it stands for, in UTF-8.
  EXPECT_NE(r.out.find("\"name\":\"Caf\xC3\xA9\",\"type\":\"Conventional\""), std::string::npos)
      << r.out;
}

TEST_F(HpdCli, ConvertReachesItsFixpointAtOnce) {
  const std::string out = dir.file("out.hpd");
  const std::string again = dir.file("again.hpd");
  test::Run first = runZel("hpd convert '" + file + "' '" + out + "'");
  ASSERT_EQ(first.code, 0) << first.out;
  EXPECT_NE(first.out.find("2 systems"), std::string::npos);
  ASSERT_EQ(runZel("hpd convert '" + out + "' '" + again + "'").code, 0);
  EXPECT_EQ(test::slurp(again), test::slurp(out));
  EXPECT_NE(test::slurp(out).find("BandPlan_Mot\t"), std::string::npos);
}

TEST_F(HpdCli, CheckListsSkippedLinesAndMovedValues) {
  test::Run r = runZel("hpd check '" + file + "'");
  ASSERT_EQ(r.code, 0) << r.out;
  EXPECT_NE(r.out.find("Skipped lines: 1\n  line 12: unknown line type: Bogus\tline\n"),
            std::string::npos)
      << r.out;
  EXPECT_NE(r.out.find("Mode \"WFM\" -> \"AUTO\""), std::string::npos) << r.out;
  EXPECT_NE(r.out.find("SQ Code \"146.3\" -> \"\""), std::string::npos) << r.out;
  EXPECT_NE(r.out.find("Name \"Caf\xE9\" -> \"Caf\""), std::string::npos) << r.out;
}

TEST_F(HpdCli, MissingFileAndMissingHeaderAreUserErrors) {
  const std::string missing = dir.file("none.hpd");
  test::Run a = runZel("hpd info '" + missing + "'");
  EXPECT_EQ(a.code, 1);
  EXPECT_EQ(a.out, "File error: check if file exists:    " + missing + "\n");

  const std::string headless = dir.file("headless.hpd");
  test::spit(headless, "Conventional\t\t\tA\r\n");
  for (const char* command : {"info", "check"}) {
    test::Run b = runZel(std::string("hpd ") + command + " '" + headless + "'");
    EXPECT_EQ(b.code, 1);
    EXPECT_EQ(b.out, "File not compatible, or saved in newer format\n");
  }
  test::Run c = runZel("hpd convert '" + headless + "' '" + dir.file("x.hpd") + "'");
  EXPECT_EQ(c.code, 1);
  EXPECT_FALSE(std::filesystem::exists(dir.file("x.hpd")));
  EXPECT_EQ(runZel("hpd info").code, 2);  // a missing argument is a usage error
}

}  // namespace
}  // namespace zel::formats
