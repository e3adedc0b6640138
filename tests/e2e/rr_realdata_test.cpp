// zel rr against the simulated service answering from recorded replies of the live service.
#include <gtest/gtest.h>

#include "monitor_process.h"
#include "zel_run.h"

namespace zel::e2e {
namespace {

class RRRecorded : public ZelTest {};

TEST_F(RRRecorded, BrowseReadsTheLiveServicesReplies) {
  Process service;
  ASSERT_TRUE(service.start({zelBinary(), "sim", "radioref", "--port", "0", "--data",
                             std::string(ZEL_REALDATA_DIR) + "/radioref/v18"}));
  const std::string endpoint = service.readLine(5000);
  ASSERT_EQ(endpoint.rfind("http://127.0.0.1:", 0), 0u) << endpoint << service.err();

  struct Case {
    std::string args;
    std::vector<std::string> expected;
  };
  const std::vector<Case> cases = {
      {"login", {"Subscription expires on: 11-24-2026"}},
      {"browse county 841", {"ctid 841  countyName Linn", "Categories (5):"}},
      {"browse system 6673", {"Sites (35):", "siteId 16863  siteNumber 1"}},
      {"browse talkgroups 6673", {"Talkgroups (1793):"}},
      {"browse zip 52401", {"zipCode 52401  city Cedar Rapids"}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.args);
    const ZelRun run =
        zel("rr " + c.args + " --user demo --app-key 12345678 --endpoint " + endpoint,
            "ZEL_RR_PASSWORD=demo ");
    EXPECT_EQ(run.exitCode, 0) << run.err;
    for (const auto& e : c.expected) {
      EXPECT_NE(run.out.find(e), std::string::npos) << run.out.substr(0, 800);
    }
  }
}

}  // namespace
}  // namespace zel::e2e
