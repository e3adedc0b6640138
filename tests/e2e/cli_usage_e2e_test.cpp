// What a new user meets when a word or a number on the command line is wrong: one sentence on
// standard error and exit 2, before any file is read.
#include <string>
#include <vector>

#include "zel_run.h"

namespace zel::e2e {
namespace {

struct UsageCase {
  std::string args;
  std::string err;  // the whole of standard error
};

class BadUsage : public ZelTest, public ::testing::WithParamInterface<UsageCase> {};

TEST_P(BadUsage, IsOneSentenceNamingWhatMayStandThere) {
  const UsageCase& c = GetParam();
  ZelRun r = zel(c.args);
  EXPECT_EQ(r.exitCode, 2);
  EXPECT_EQ(r.out, "");
  EXPECT_EQ(r.err, c.err);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, BadUsage,
    ::testing::Values(
        UsageCase{"card lsit",
                  "Unknown command \"lsit\" for \"zel card\": use one of detect, list, write, "
                  "read, delete, order, orphans, qkeys, service, enable-all.\n"},
        UsageCase{"hpd infoo x.hpd",
                  "Unknown command \"infoo\" for \"zel hpd\": use one of info, convert, check, "
                  "bulk-set, banknames, report.\n"},
        UsageCase{"dupz x.hpd",
                  "Unknown command \"dupz\" for \"zel\": use one of version, hpd, vocab, db, card, "
                  "cell, dups, csv, qkeys, sim, ports, rr, monitor, key, sweep, demo.\n"},
        UsageCase{"csv export missing.hpd", "Name the file to write with OUT or -o.\n"},
        UsageCase{"hpd convert missing.hpd", "Name the file to write with OUT or -o.\n"}));

}  // namespace
}  // namespace zel::e2e
