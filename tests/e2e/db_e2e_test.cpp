// `zel db` end to end on a small database folder: the states, a list, an apply that writes the
// state file back, and the refusals, each one sentence and nothing written.
#include "zel_run.h"

namespace {

namespace fs = std::filesystem;
using zel::e2e::pieces;
using zel::e2e::slurp;
using zel::e2e::ZelRun;

const char* const kState =
    "TargetModel\tBCDx36HP\r\n"
    "FormatVersion\t1.00\r\n"
    "Conventional\tCountyId=1\tStateId=6\tAlameda\tOff\t\tConventional\r\n"
    "C-Group\tCGroupId=1\tCountyId=1\tFire, EMS\tOff\t37.80\t-122.27\t5.0\tCircle\r\n"
    "C-Freq\tCFreqId=1\tCGroupId=1\tTac, 1\tOff\t154070000\tNFM\t\t3\t\t\t\t\t\t\t\t\t\r\n"
    "Trunk\tTrunkId=2\tStateId=6\tMetro\tOff\t\tP25Standard\r\n"
    "T-Group\tTGroupId=7\tTrunkId=2\tPolice\tOff\t37.90\t-122.27\t2.0\tCircle\r\n"
    "TGID\tTid=1\tTGroupId=7\tDispatch\tOff\t100\tALL\t2\t\t\t\t\t\t\t\t\tAny\r\n";

class DbCommand : public zel::e2e::ZelTest {
 protected:
  void SetUp() override {
    ZelTest::SetUp();
    fs::create_directories(path("HPDB"));
    std::ofstream(path("HPDB/hpdb.cfg"), std::ios::binary)
        << "StateInfo\tStateId=6\tCountryId=1\tCalifornia\tCA\r\n";
    std::ofstream(path("HPDB/s_000006.hpd"), std::ios::binary) << kState;
  }
  std::string db() { return " --folder '" + path("HPDB") + "'"; }
};

TEST_F(DbCommand, ApplyWritesTheListedChannelsBack) {
  ZelRun list = zel("db list California --system 2 --json" + db());
  ASSERT_EQ(list.exitCode, 0) << list.err;
  EXPECT_NE(list.out.find("\"key\":\"DAT-0002-0001-0001-0008\""), std::string::npos) << list.out;

  ZelRun r = zel("db apply s_000006.hpd --set 'Delay:=5' --set 'Attenuator:=On' --json" + db());
  ASSERT_EQ(r.exitCode, 0) << r.err;
  EXPECT_NE(r.out.find("\"channels\":2,\"linesChanged\":2"), std::string::npos) << r.out;
  const std::vector<std::string> lines = pieces(slurp(path("HPDB/s_000006.hpd")));
  // Attenuator and delay of the channel; the talkgroup's field 9 is the volume offset.
  EXPECT_EQ(lines.at(4).substr(lines.at(4).find("\tNFM\t")), "\tNFM\t\t3\tOn\t5\t\t\t\t\t\t\t\r");
  EXPECT_EQ(pieces(lines.at(7), '\t').at(8) + "|" + pieces(lines.at(7), '\t').at(9), "5|");
}

// A system's sites come first, numbered as `zel db import --site` takes them.
TEST_F(DbCommand, SystemsListsASystemsSitesThenItsDepartments) {
  std::string state = kState;
  state.insert(state.find("T-Group"), "Site\tSiteId=3\tTrunkId=2\tHill\tOff\r\n");
  std::ofstream(path("HPDB/s_000006.hpd"), std::ios::binary) << state;
  ZelRun r = zel("db systems California --system 2" + db());
  ASSERT_EQ(r.exitCode, 0) << r.err;
  EXPECT_EQ(r.out, "site 1\tHill\ndepartment 1\tPolice\n");
}

TEST_F(DbCommand, RefusalsAreOneSentenceAndWriteNothing) {
  struct Case {
    std::string args;
    int exitCode;
    std::string err;  // the start of standard error
  };
  const Case cases[] = {
      {"db list California --system 3" + db(), 1,
       "--system takes a system number from 1 to 2, not 3."},
      {"db list California --system 1 --department 2" + db(), 1,
       "--department takes a department number from 1 to 1, not 2."},
      {"db apply Texas --set Delay:=5" + db(), 1, "No state \"Texas\" in the database index"},
      {"db apply California --service 'Fire Tac' --set Delay:=5" + db(), 1,
       "\"Fire Tac\" is not a service type."},
      {"db near 91 0" + db(), 1, "LAT takes a latitude from -90 to 90"},
      {"db near 37.8 -122.27 --range -1" + db(), 1,
       "--range takes a number of miles from 0 to 1000"},
      {"db states", 2, "--root or --folder is required"},
  };
  for (const Case& c : cases) {
    ZelRun r = zel(c.args);
    EXPECT_EQ(r.exitCode, c.exitCode) << c.args << "\n" << r.err;
    EXPECT_EQ(r.err.rfind(c.err, 0), 0u) << c.args << "\n" << r.err;
    if (c.exitCode == 1) EXPECT_EQ(pieces(r.err).size(), 1u) << r.err;
  }
  EXPECT_EQ(slurp(path("HPDB/s_000006.hpd")), kState);
  EXPECT_FALSE(fs::exists(path("HPDB/s_000006.hpd.bak")));
}

TEST_F(DbCommand, NearListsWhatCoversThePlaceNearestFirst) {
  ZelRun r = zel("db near 37.88 -122.27 --range 1" + db());
  ASSERT_EQ(r.exitCode, 0) << r.err;
  const std::vector<std::string> lines = pieces(r.out);
  ASSERT_EQ(lines.size(), 5u) << r.out;
  EXPECT_EQ(lines[1].rfind("1.38\t\tsystem\tCalifornia\tMetro", 0), 0u) << r.out;
}

}  // namespace
