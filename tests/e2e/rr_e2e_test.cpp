// zel rr against zel sim radioref: two processes, real HTTP on this machine, the same
// QtNetwork transport the desktop uses.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "monitor_process.h"
#include "zel_run.h"

namespace zel::e2e {
namespace {

using ::testing::HasSubstr;
using ::testing::StartsWith;

class RRCommand : public RRServiceTest {
 protected:
  // zel rr with the simulated service's end point, a key and the password in the environment.
  ZelRun rr(const std::string& args, const std::string& password = "demo") const {
    return zel("rr " + args + " --endpoint " + endpoint_ + " --app-key 12345678",
               password.empty() ? "" : "ZEL_RR_PASSWORD='" + password + "' ");
  }
};

// The text form of login is proven on the recorded replies.
TEST_F(RRCommand, LoginPrintsTheExpiryDate) {
  const ZelRun json = rr("login --user demo --json");
  ASSERT_EQ(json.exitCode, 0) << json.err;
  EXPECT_THAT(json.out, StartsWith("{\"user\":\"demo\",\"subExpireDate\":\""));
}

TEST_F(RRCommand, RefusalsAreOneSentenceAndExitOne) {
  struct Case {
    std::string args;
    std::string password;
    std::string err;
  };
  const std::vector<Case> cases = {
      {"login --user demo", "wrong",
       "Invalid Username or Password.  Make sure you are logging in with your username and not "
       "your email address.\n"},
      {"login", "demo", "No user name given: use --user NAME.\n"},
      {"login --user demo", "",
       "No password given: use --password-file FILE, the ZEL_RR_PASSWORD variable, or a "
       "terminal.\n"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.args + " / " + c.password);
    fs::remove(path("settings.ini"));
    const ZelRun run = rr(c.args + " </dev/null", c.password);
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_EQ(run.err, c.err);
    EXPECT_TRUE(run.out.empty()) << run.out;
  }
  fs::remove(path("settings.ini"));
  const ZelRun noKey = zel("rr login --user demo --endpoint " + endpoint_, "ZEL_RR_PASSWORD=demo ");
  EXPECT_EQ(noKey.exitCode, 1);
  EXPECT_EQ(noKey.err,
            "No RadioReference application key is set: enter the key the service issued to you "
            "once.\n");
  EXPECT_EQ(zel("rr browse planet 1").exitCode, 2);
}

TEST_F(RRCommand, KeyAndUserAreRememberedThePasswordNowhere) {
  std::ofstream(path("pw.txt")) << "demo\n";
  ASSERT_EQ(rr("login --user demo").exitCode, 0);
  // No --user, no --app-key, the password from a file: the settings supply the rest.
  const ZelRun again =
      zel("rr login --endpoint " + endpoint_ + " --debug --password-file " + path("pw.txt"));
  ASSERT_EQ(again.exitCode, 0) << again.err;
  const std::string trace = slurp(path("soaplog.txt"));
  EXPECT_THAT(trace, AllOf(HasSubstr("SET_HTTP1 "),
                           HasSubstr("<password xsi:type=\"xsd:string\">********</password>")));
  EXPECT_THAT(slurp(path("settings.ini")), Not(HasSubstr("pass")));
}

TEST_F(RRCommand, BrowseWalksDownWithEveryId) {
  const ZelRun country = rr("browse country 1 --user demo --json");
  ASSERT_EQ(country.exitCode, 0) << country.err;
  const long long stid = jsonNumber(country.out, "stid");
  ASSERT_GT(stid, 0) << country.out;
  const ZelRun state = rr("browse state " + std::to_string(stid) + " --user demo");
  ASSERT_EQ(state.exitCode, 0) << state.err;
  EXPECT_THAT(state.out, AllOf(HasSubstr("ctid "), HasSubstr("sid ")));
}

}  // namespace
}  // namespace zel::e2e
