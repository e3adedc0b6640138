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

// A command that writes a file or finds nothing says so in one line on standard output.
const char* const kList =
    "TargetModel\tBCDx36HP\r\n"
    "FormatVersion\t1.00\r\n"
    "Conventional\t\t\tCounty\tOff\t\tConventional\tOff\tOff\t0\tOff\tOff\t400\tAuto\t8\r\n"
    "C-Group\t\t\tAirport\tOff\t41.4\t-81.8\t5.0\tCircle\t3\tGlobal\r\n"
    "C-Freq\t\t\tTower\tOff\t118300000\tAM\t\t15\tOff\t2\t0\tOff\tAuto\tOff\tOn\tOff\tOff\r\n";

struct SummaryCase {
  std::string args;  // IN and OUT stand for the input and output files
  std::string out;   // OUT stands for the output file
};
// Test names show the command, not the bytes of the case.
void PrintTo(const SummaryCase& c, std::ostream* os) { *os << c.args; }

std::string replaced(std::string text, const std::string& from, const std::string& to) {
  for (std::size_t at = text.find(from); at != std::string::npos; at = text.find(from, at + to.size())) {
    text.replace(at, from.size(), to);
  }
  return text;
}

class SummaryLine : public ZelTest, public ::testing::WithParamInterface<SummaryCase> {};

TEST_P(SummaryLine, IsPrintedOnSuccess) {
  const SummaryCase& c = GetParam();
  std::ofstream(path("in.hpd"), std::ios::binary) << kList;
  const std::string args =
      replaced(replaced(c.args, "IN", "'" + path("in.hpd") + "'"), "OUT", "'" + path("out.txt") + "'");
  ZelRun r = zel(args);
  EXPECT_EQ(r.exitCode, 0) << r.err;
  EXPECT_EQ(r.out, replaced(c.out, "OUT", path("out.txt")));
}

INSTANTIATE_TEST_SUITE_P(Cases, SummaryLine,
                         ::testing::Values(SummaryCase{"csv export IN OUT", "Wrote OUT\n"},
                                           SummaryCase{"csv export IN -o OUT", "Wrote OUT\n"},
                                           SummaryCase{"csv export IN --out OUT", "Wrote OUT\n"},
                                           SummaryCase{"hpd convert IN -o OUT",
                                                       "Wrote OUT: 1 systems\n"},
                                           SummaryCase{"dups IN", "No duplicates found.\n"},
                                           SummaryCase{"dups IN --json", "[]\n"}));

}  // namespace
}  // namespace zel::e2e
