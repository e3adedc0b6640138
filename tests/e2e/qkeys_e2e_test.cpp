// `zel qkeys` end to end: show, set with its refusals (nothing written), and the card
// overview with a key used twice and its HTML page.
#include "zel_run.h"

namespace {

namespace fs = std::filesystem;
using zel::e2e::pieces;
using zel::e2e::slurp;
using zel::e2e::ZelRun;

const char* const kList =
    "TargetModel\tBCDx36HP\r\n"
    "FormatVersion\t1.00\r\n"
    "Trunk\t\t\tMetro P25\tOff\t\tP25Standard\tOff\tOff\tAuto\tIgnore\tSrch\t4\tNone\t0\tOff\tOff"
    "\tAnalog\tOff\tOff\tOn\r\n"
    "Site\t\t\tSimulcast\tOff\t41.453639\t-81.705047\t19.1\tAUTO\tStandard\tWide\tCircle\tOff\t400"
    "\tAuto\t8\tOff\r\n"
    "T-Group\t\t\tFire\tOff\t41.3121\t-81.744\t4.0\tCircle\t1\r\n"
    "TGID\t\t\tFire Dispatch\tOff\t1001\tALL\t3\t2\t0\tOff\tAuto\tRed\tOn\tOff\tOff\tSrch\r\n"
    "Conventional\t\t\tCounty\tOff\t\tConventional\tOff\tOff\t0\tOff\tOff\t400\tAuto\t8\r\n"
    "C-Group\t\t\tAirport\tOff\t41.4\t-81.8\t5.0\tCircle\t3\tGlobal\r\n";

class QkeysCommand : public zel::e2e::ZelTest {
 protected:
  void SetUp() override {
    ZelTest::SetUp();
    std::ofstream(path("in.hpd"), std::ios::binary) << kList;
  }
};

TEST_F(QkeysCommand, ShowListsTheBucketsInUseAndTheNextFreeKey) {
  ZelRun r = zel("qkeys show '" + path("in.hpd") + "'");
  ASSERT_EQ(r.exitCode, 0) << r.err;
  EXPECT_EQ(r.out,
            "QuickKey: 4\n  SYS-001  [T] Metro P25\nNo Key Assigned:\n  SYS-002  [C] County\n"
            "Next free quick key: 0\n");
  r = zel("qkeys show '" + path("in.hpd") + "' --system 1 --json");
  ASSERT_EQ(r.exitCode, 0) << r.err;
  EXPECT_NE(r.out.find("{\"node\":\"GRP-999-001-000\",\"text\":\"[DEP] Fire\",\"quickKey\":1}"),
            std::string::npos)
      << r.out;
}

TEST_F(QkeysCommand, SetWritesEachKeyWherePositionalOrOption) {
  ZelRun r =
      zel("qkeys set '" + path("in.hpd") + "' 2=7 SIT-001-001=12 --set GRP-999-001-000=Off " +
          "--set sys-001=Off -o '" + path("out.hpd") + "'");
  ASSERT_EQ(r.exitCode, 0) << r.err;
  EXPECT_EQ(r.out, "Set 4 quick keys; wrote " + path("out.hpd") + ".\n");
  // Where each key lands is the library's (quick key tests); here it shows in the file's overview.
  EXPECT_EQ(zel("qkeys show '" + path("out.hpd") + "'").out.rfind("QuickKey: 7\n  SYS-002", 0), 0u);
}

TEST_F(QkeysCommand, SetRefusesBadAssignmentsAndWritesNothing) {
  const struct {
    const char* assignment;
    int exit;
    const char* message;
  } cases[] = {
      {"9=5", 1, "The file holds no SYS-009.\n"},
      {"1=100", 1, "A quick key is a number from 0 to 99 or Off, not \"100\".\n"},
      {"1=None", 1, "A quick key is a number from 0 to 99 or Off, not \"None\".\n"},
      {"1000=1", 1, "A system number goes from 1 to 999, not 1000.\n"},
      {"FMP-001-000=3", 1,
       "\"FMP-001-000\" names no system, department or site (SYS-001, GRP-999-001-002, "
       "SIT-001-001).\n"},
      {"SYS-001", 2, "\"SYS-001\" is not KEY=NUMBER (SYS-001=5, 1=Off).\n"},
  };
  for (const auto& c : cases) {
    ZelRun r = zel("qkeys set '" + path("in.hpd") + "' '" + c.assignment + "' -o '" +
                   path("out.hpd") + "'");
    EXPECT_EQ(r.exitCode, c.exit) << c.assignment;
    EXPECT_NE(r.err.find(c.message), std::string::npos) << c.assignment << ": " << r.err;
    EXPECT_FALSE(fs::exists(path("out.hpd"))) << c.assignment;
  }
}

TEST_F(QkeysCommand, CardOverviewNamesTheKeysUsedTwiceAndWritesTheHtml) {
  ZelRun none = zel("qkeys card --root '" + path("nothing") + "'");
  EXPECT_EQ(none.exitCode, 1);
  EXPECT_NE(none.err.find("BCDx36HP not found, please plug USB cable in"), std::string::npos);

  const fs::path root = fs::path(path("card")) / "BCDx36HP";
  fs::create_directories(root / "favorites_lists");
  std::ofstream(root / "scanner.inf", std::ios::binary)
      << "TargetModel\tBCDx36HP\r\nFormatVersion\t1.00\r\nScanner\tBCD536HP\t0\t1.00.00\r\n";
  std::string flags;
  for (int i = 0; i < 110; ++i) flags += "On\t";
  std::ofstream(root / "favorites_lists" / "f_list.cfg", std::ios::binary)
      << "TargetModel\tBCDx36HP\r\nFormatVersion\t1.00\r\n"
      << "F-List\tNorth\tf_000001.hpd\tOff\tOn\t1\tOff\t" << flags << "\r\n"
      << "F-List\tSouth\tf_000002.hpd\tOff\tOn\t1\tOff\t" << flags << "\r\n";
  fs::copy_file(path("in.hpd"), root / "favorites_lists" / "f_000001.hpd");
  fs::copy_file(path("in.hpd"), root / "favorites_lists" / "f_000002.hpd");

  ZelRun r = zel("qkeys card --root '" + path("card") + "' --html '" + path("q.html") + "'");
  ASSERT_EQ(r.exitCode, 0) << r.err;
  const std::vector<std::string> lines = pieces(r.out);
  ASSERT_EQ(lines.size(), 1u + 10u + 1u);  // headings, five rows a list, one sentence
  EXPECT_EQ(lines[1], "[TRUNK] Metro P25\t1\tFL:1\t4\t\tFL 1 > SYS 4\tFL");
  EXPECT_EQ(lines.back(), "Favorites list quick key 1 is used by \"North\" and \"South\".");
  EXPECT_EQ(slurp(path("q.html")).rfind("<html>\n<head>\n<title>Quickkey overview", 0), 0u);
}

}  // namespace
