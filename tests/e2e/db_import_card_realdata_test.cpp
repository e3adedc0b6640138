// From a real state file of the scanner's database to a simulated card, in processes: zel db
// import of two systems, a convert that changes nothing, and card write.
#include <gmock/gmock.h>

#include "monitor_process.h"
#include "zel_run.h"

namespace zel::e2e {
namespace {

using ::testing::HasSubstr;
const std::string kHpdb = std::string(ZEL_REALDATA_DIR) + "/card_sds200/BCDx36HP/HPDB";

class DbImportCommand : public ZelTest {
 protected:
  void SetUp() override {
    if (!fs::exists(kHpdb + "/hpdb.cfg")) GTEST_SKIP() << "no shared real database";
    ZelTest::SetUp();
  }
};

TEST_F(DbImportCommand, FromTheDatabaseToTheCard) {
  // Utah: a Motorola system with a band plan and the next one with a fleet map.
  const ZelRun import = zel("db import s_000049.hpd --folder '" + kHpdb +
                            "' --system 104 --system 103 --into " + path("utah.hpd") + " --json");
  ASSERT_EQ(import.exitCode, 0) << import.err;
  EXPECT_THAT(import.out, HasSubstr("\"systems\":[\"SYS-001\",\"SYS-002\"]"));
  EXPECT_EQ(jsonNumber(import.out, "sites"), 2) << import.out;

  ASSERT_EQ(zel("hpd convert " + path("utah.hpd") + " " + path("once.hpd")).exitCode, 0);
  EXPECT_EQ(slurp(path("once.hpd")), slurp(path("utah.hpd")));

  ASSERT_EQ(zel("sim card " + path("card")).exitCode, 0);
  const ZelRun write =
      zel("card write --root " + path("card") + " " + path("utah.hpd") + " --name Utah");
  ASSERT_EQ(write.exitCode, 0) << write.err;
  const ZelRun list = zel("card list --root " + path("card"));
  ASSERT_EQ(list.exitCode, 0) << list.err;
  EXPECT_THAT(list.out, HasSubstr("Utah"));
}

TEST_F(DbImportCommand, PartsAreNamedByTheirSystemWhenSeveralAreChosen) {
  struct Case {
    std::string args;
    int exitCode;
    std::string err;
  };
  const std::string state = "'" + kHpdb + "/s_000049.hpd' ";
  const std::vector<Case> cases = {
      {"--system 1 --system 103 --department 1", 2,
       "With more than one --system, write --department as SYSTEM:N.\n"},
      {"--system 1 --site 5:1", 2, "--site 5:1 names system 5, which no --system chose.\n"},
      {"--system 103 --site one", 2, "--site takes N or SYSTEM:N, not \"one\".\n"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.args);
    const ZelRun run = zel("db import " + state + c.args + " -o " + path("x.hpd"));
    EXPECT_EQ(run.exitCode, c.exitCode);
    EXPECT_EQ(run.err, c.err);
    EXPECT_FALSE(fs::exists(path("x.hpd")));
  }
}

}  // namespace
}  // namespace zel::e2e
