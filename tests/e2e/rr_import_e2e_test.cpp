// From the web to the scanner in processes: the simulated service, zel rr import, a convert
// that must change nothing more, and the list on a simulated card.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "monitor_process.h"
#include "zel_run.h"

namespace zel::e2e {
namespace {

using ::testing::HasSubstr;

class RRImport : public RRServiceTest {
 protected:
  ZelRun import(const std::string& args) const {
    return zel("rr import " + args + " --user demo --app-key 12345678 --endpoint " + endpoint_,
               "ZEL_RR_PASSWORD=demo ");
  }
};

TEST_F(RRImport, FromTheServiceToTheCard) {
  const ZelRun conv =
      import("--county 9011 --subcat 900101 --subcat 900102 --out " + path("county.hpd"));
  ASSERT_EQ(conv.exitCode, 0) << conv.err;
  EXPECT_THAT(conv.out, ::testing::StartsWith("Imported SYS-001: 2 departments, "));
  const ZelRun trunk = import("--system 90001 --site 900001 --into " + path("county.hpd") +
                              " --out " + path("both.hpd") + " --json");
  ASSERT_EQ(trunk.exitCode, 0) << trunk.err;
  EXPECT_EQ(jsonNumber(trunk.out, "sites"), 1) << trunk.out;

  // Read and written back, the list changes no more.
  ASSERT_EQ(zel("hpd convert " + path("both.hpd") + " " + path("once.hpd")).exitCode, 0);
  ASSERT_EQ(zel("hpd convert " + path("once.hpd") + " " + path("twice.hpd")).exitCode, 0);
  EXPECT_EQ(slurp(path("once.hpd")), slurp(path("twice.hpd")));
  EXPECT_THAT(slurp(path("once.hpd")), AllOf(HasSubstr("Conventional\t"), HasSubstr("Trunk\t")));

  ASSERT_EQ(zel("sim card " + path("card")).exitCode, 0);
  // --root takes one value and leaves the file behind it alone.
  const ZelRun write =
      zel("card write --root " + path("card") + " " + path("both.hpd") + " --name County");
  ASSERT_EQ(write.exitCode, 0) << write.err;
  const ZelRun list = zel("card list --root " + path("card"));
  ASSERT_EQ(list.exitCode, 0) << list.err;
  EXPECT_THAT(list.out, HasSubstr("County"));
}

TEST_F(RRImport, RefusalsNameTheWrongId) {
  struct Case {
    std::string args;
    int exitCode;
    std::string err;
  };
  const std::vector<Case> cases = {
      {"--county 9011 --subcat 1", 1, "Subcategory 1 is not in county 9011.\n"},
      {"--system 90001 --site 7", 1, "Site 7 is not a site of system 90001.\n"},
      {"--system 90001", 2, "Give at least one --site SITEID.\n"},
      {"--county 9011 --system 90001 --site 900001", 2,
       "Give either --county, --agency or --zip, or --system.\n"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.args);
    const ZelRun run = import(c.args + " --out " + path("x.hpd"));
    EXPECT_EQ(run.exitCode, c.exitCode);
    EXPECT_EQ(run.err, c.err);
    EXPECT_FALSE(fs::exists(path("x.hpd")));
  }
}

}  // namespace
}  // namespace zel::e2e
