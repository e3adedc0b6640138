// `zel hpd bulk-set` and `zel hpd banknames` on a small favorites file: output, exit codes and
// the refusals that write nothing.
#include "zel_run.h"

namespace {

namespace fs = std::filesystem;
using zel::e2e::slurp;
using zel::e2e::ZelRun;

const char* const kList =
    "TargetModel\tBCDx36HP\r\n"
    "FormatVersion\t1.00\r\n"
    "Trunk\t\t\tMetro P25\tOff\t\tP25Standard\tOff\tOff\tAuto\tIgnore\tSrch\tOff\tNone\t0\tOff\tOff"
    "\tAnalog\tOff\tOff\tOn\r\n"
    "Site\t\t\tSimulcast\tOff\t41.453639\t-81.705047\t19.1\tAUTO\tStandard\tWide\tCircle\tOff\t400"
    "\tAuto\t8\tOff\r\n"
    "T-Freq\tTFreqId=0\t\t\tOff\t851012500\t1\tSrch\r\n"
    "T-Group\t\t\tFire\tOff\t41.3121\t-81.744\t4.0\tCircle\t1\r\n"
    "TGID\t\t\tFire Dispatch\tOff\t1001\tALL\t3\t2\t0\tOff\tAuto\tRed\tOn\tOff\tOff\tSrch\r\n"
    "TGID\t\t\tFireground\tOff\t1002\tALL\t8\t2\t0\tOff\tAuto\tRed\tSlow Blink\tOff\tOff\tSrch\r\n"
    "T-Group\t\t\tLaw\tOff\t41.3121\t-81.744\t4.0\tCircle\t2\r\n"
    "TGID\t\t\tLaw Dispatch\tOff\t2001\tALL\t2\t2\t0\tOff\tAuto\tBlue\tOn\tOff\tOff\tSrch\r\n"
    "Conventional\t\t\tCounty\tOff\t\tConventional\tOff\tOff\t0\tOff\tOff\t400\tAuto\t8\r\n"
    "C-Group\t\t\tAirport\tOff\t41.4\t-81.8\t5.0\tCircle\t3\tGlobal\r\n"
    "C-Freq\t\t\tTower\tOff\t118300000\tAM\t\t15\tOff\t2\t0\tOff\tAuto\tOff\tOn\tOff\tOff\r\n";

class HpdCommand : public zel::e2e::ZelTest {
 protected:
  void SetUp() override {
    ZelTest::SetUp();
    std::ofstream(path("in.hpd"), std::ios::binary) << kList;
  }
};

// Which fields a bulk set moves is the library's (bulk settings tests); here the command line.
TEST_F(HpdCommand, SetsTheChosenDepartmentsTalkgroups) {
  ZelRun r = zel("hpd bulk-set '" + path("in.hpd") +
                 "' --scope talkgroups --system 'metro p25' --department Fire"
                 " --set 'Delay:=5' --set 'alert tone=7' -o '" +
                 path("out.hpd") + "'");
  ASSERT_EQ(r.exitCode, 0) << r.err;
  EXPECT_EQ(r.out, "Changed 2 of 2 talkgroups in 1 department; wrote " + path("out.hpd") + "\n");
}

TEST_F(HpdCommand, JsonCountsAndAFileSavedOverItself) {
  ZelRun r = zel("hpd bulk-set '" + path("in.hpd") +
                 "' --scope frequencies --set Mode=nfm --json -o '" + path("in.hpd") + "'");
  ASSERT_EQ(r.exitCode, 0) << r.err;
  EXPECT_EQ(r.out, "{\"file\":\"" + path("in.hpd") +
                       "\",\"scope\":\"frequencies\",\"ticked\":1,\"changed\":1,"
                       "\"departments\":1,\"pages\":1}\n");
  EXPECT_NE(slurp(path("in.hpd")).find("\tNFM\t"), std::string::npos);
  for (const auto& entry : fs::directory_iterator(dir_))
    EXPECT_EQ(entry.path().string().find(".zeltmp"), std::string::npos) << entry.path();
}

TEST_F(HpdCommand, MistakesAreToldAndNothingIsWritten) {
  struct Case {
    const char* args;
    int exitCode;
    const char* said;  // a piece of standard error
  };
  const Case cases[] = {
      {"--scope talkgroups --set 'Delay:=5' --department Nobody", 1,
       "No department named \"Nobody\""},
      {"--scope frequencies --set 'Delay:=5' --system 'Metro P25'", 1,
       "No conventional system \"Metro P25\""},
      {"--scope frequencies --set 'Delay:=5' --department Fire", 1, "No department named \"Fire\""},
      {"--scope sites --set 'Delay:=5'", 2, "scope"},
      {"--scope talkgroups", 2, "--set is required"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.args);
    ZelRun r =
        zel("hpd bulk-set '" + path("in.hpd") + "' " + c.args + " -o '" + path("out.hpd") + "'");
    EXPECT_EQ(r.exitCode, c.exitCode);
    EXPECT_NE(r.err.find(c.said), std::string::npos) << r.err;
    EXPECT_FALSE(fs::exists(path("out.hpd")));
  }
  ZelRun missing = zel("hpd bulk-set '" + path("none.hpd") +
                       "' --scope talkgroups --set Delay=5 -o '" + path("out.hpd") + "'");
  EXPECT_EQ(missing.exitCode, 1);
  EXPECT_NE(missing.err.find("File error: check if file exists"), std::string::npos) << missing.err;
  ZelRun noOut = zel("hpd bulk-set '" + path("in.hpd") + "' --scope talkgroups --set Delay=5");
  EXPECT_EQ(noOut.exitCode, 2);
  EXPECT_FALSE(fs::exists(path("out.hpd")));
}

}  // namespace

TEST_F(HpdCommand, BanknamesListsAndRenamesOnlyTheNamedDepartments) {
  ZelRun listed = zel("hpd banknames '" + path("in.hpd") + "'");
  ASSERT_EQ(listed.exitCode, 0) << listed.err;
  EXPECT_EQ(listed.out, "Metro P25\tFire\nMetro P25\tLaw\nCounty\tAirport\n");

  ZelRun r = zel("hpd banknames '" + path("in.hpd") + "' --rename 'Law=Police, East' -o '" +
                 path("out.hpd") + "'");
  ASSERT_EQ(r.exitCode, 0) << r.err;
  EXPECT_EQ(r.out, "Renamed 1 department; wrote " + path("out.hpd") + "\n");
  EXPECT_NE(slurp(path("out.hpd")).find("\tPolice; East\t"), std::string::npos);  // no comma
}

TEST_F(HpdCommand, BanknamesRefusalsWriteNothing) {
  struct Case {
    const char* args;
    const char* error;
  } cases[] = {
      {"--rename 'Fire=  '", "A department name cannot be empty."},
      {"--rename 'Fire=Rescue' --rename 'Nowhere=X'", "No department is named \"Nowhere\"."},
      {"--rename 'FireRescue'", "A rename is written \"Old name=New name\": FireRescue"},
  };
  for (const Case& c : cases) {
    ZelRun r = zel("hpd banknames '" + path("in.hpd") + "' " + c.args + " -o '" +
                   path("refused.hpd") + "'");
    EXPECT_EQ(r.exitCode, 1) << c.args;
    EXPECT_NE(r.err.find(c.error), std::string::npos) << c.args << ": " << r.err;
    EXPECT_FALSE(fs::exists(path("refused.hpd"))) << c.args;
  }
  ZelRun noOut = zel("hpd banknames '" + path("in.hpd") + "' --rename 'Fire=Rescue'");
  EXPECT_EQ(noOut.exitCode, 1);
  EXPECT_NE(noOut.err.find("Renaming needs -o OUT"), std::string::npos);
}
