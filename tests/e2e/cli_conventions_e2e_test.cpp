// The conventions every zel command keeps: --json prints one JSON value, a number outside what
// an option takes is refused with one sentence (exit 1) while a malformed one is bad usage
// (exit 2), a message that speaks of a window is followed by the option to use, and `zel demo`
// walks the whole suite on its simulators.
#include <cctype>
#include <string>
#include <vector>

#include "zel_run.h"

namespace zel::e2e {
namespace {

// A small JSON reader that only says whether `text` is one JSON value (and nothing more).
class JsonCheck {
 public:
  explicit JsonCheck(const std::string& text) : s_(text) {}
  bool valid() {
    bool ok = value();
    space();
    return ok && at_ == s_.size();
  }

 private:
  void space() {
    while (at_ < s_.size() && std::isspace(static_cast<unsigned char>(s_[at_]))) ++at_;
  }
  bool eat(char c) {
    space();
    if (at_ < s_.size() && s_[at_] == c) return ++at_, true;
    return false;
  }
  bool word(const std::string& w) {
    if (s_.compare(at_, w.size(), w) != 0) return false;
    at_ += w.size();
    return true;
  }
  bool string() {
    if (!eat('"')) return false;
    while (at_ < s_.size() && s_[at_] != '"') {
      if (static_cast<unsigned char>(s_[at_]) < 0x20) return false;
      if (s_[at_] == '\\') {
        ++at_;
        if (at_ >= s_.size() || std::string("\"\\/bfnrtu").find(s_[at_]) == std::string::npos)
          return false;
      }
      ++at_;
    }
    return at_++ < s_.size();
  }
  bool number() {
    const std::size_t from = at_;
    if (at_ < s_.size() && s_[at_] == '-') ++at_;
    while (at_ < s_.size() && std::string("0123456789.eE+-").find(s_[at_]) != std::string::npos)
      ++at_;
    return at_ > from && std::isdigit(static_cast<unsigned char>(s_[at_ - 1]));
  }
  template <typename Item>
  bool sequence(char close, Item item) {
    if (eat(close)) return true;
    do {
      if (!item()) return false;
    } while (eat(','));
    return eat(close);
  }
  bool value() {
    space();
    if (at_ >= s_.size()) return false;
    switch (s_[at_]) {
      case '{':
        ++at_;
        return sequence('}', [&] { return string() && eat(':') && value(); });
      case '[':
        ++at_;
        return sequence(']', [&] { return value(); });
      case '"':
        return string();
      case 't':
        return word("true");
      case 'f':
        return word("false");
      case 'n':
        return word("null");
      default:
        return number();
    }
  }
  const std::string& s_;
  std::size_t at_ = 0;
};

TEST(JsonCheckSelf, TellsJsonFromText) {
  for (const char* good : {"[]", "{\"a\":[1,-2.5e3,\"x\\\"\"],\"b\":{},\"c\":true}", "null"})
    EXPECT_TRUE(JsonCheck(good).valid()) << good;
  for (const char* bad : {"", "[1,]", "{\"a\" 1}", "Wrote x", "[\"a\"] x", "{\"a\":\"b}"})
    EXPECT_FALSE(JsonCheck(bad).valid()) << bad;
}

// A favorites file of one conventional system with two departments.
const char* const kList =
    "TargetModel\tBCDx36HP\r\n"
    "FormatVersion\t1.00\r\n"
    "Conventional\t\t\tCounty\tOff\t\tConventional\tOff\tOff\t0\tOff\tOff\t400\tAuto\t8\r\n"
    "C-Group\t\t\tAirport\tOff\t41.4\t-81.8\t5.0\tCircle\t3\tGlobal\r\n"
    "C-Freq\t\t\tTower\tOff\t118300000\tAM\t\t15\tOff\t2\t0\tOff\tAuto\tOff\tOn\tOff\tOff\r\n"
    "C-Group\t\t\tHarbor\tOff\t41.4\t-81.8\t5.0\tCircle\t3\tGlobal\r\n"
    "C-Freq\t\t\tPilots\tOff\t156650000\tFM\t\t15\tOff\t2\t0\tOff\tAuto\tOff\tOn\tOff\tOff\r\n";

// A card, a favorites file and `zel ARGS` with CARD, IN, DIR and OUT put in.
class Convention : public CardCommand {
 protected:
  ZelRun run(std::string args) {
    if (card_.empty()) {
      card_ = card("c", "BCD536HP");
      std::ofstream(path("in.hpd"), std::ios::binary) << kList;
      std::ofstream(path("in.csv")) << "Frequency,Name\n155.1000,Fire\n";
    }
    for (auto [from, to] : {std::pair<std::string, std::string>{"CARD", root(card_)},
                            {"IN.csv", "'" + path("in.csv") + "'"},
                            {"IN", "'" + path("in.hpd") + "'"},
                            {"DIR", "'" + path("made") + "'"},
                            {"OUT", "'" + path("out.txt") + "'"}}) {
      for (std::size_t at = args.find(from); at != std::string::npos; at = args.find(from, at))
        args.replace(at, from.size(), to);
    }
    return zel(args);
  }
  std::string card_;
};

class JsonOutput : public Convention, public ::testing::WithParamInterface<std::string> {};

TEST_P(JsonOutput, IsOneJsonValueOnOneLine) {
  ZelRun r = run(GetParam());
  ASSERT_EQ(r.exitCode, 0) << r.err;
  EXPECT_TRUE(JsonCheck(r.out).valid()) << r.out;
  EXPECT_EQ(pieces(r.out).size(), 1u) << r.out;
}

INSTANTIATE_TEST_SUITE_P(
    EveryCommandThatPrintsData, JsonOutput,
    ::testing::Values("version --json", "cell Frequency 155.1 --json", "vocab Mode --json",
                      "hpd info IN --json", "hpd banknames IN --json",
                      "hpd banknames IN --rename Harbor=Port -o IN --json", "dups IN --json",
                      "card detect --json CARD", "card list --json CARD",
                      "card order 2 --json CARD", "card qkeys auto --json CARD",
                      "card orphans --json CARD", "card enable-all 1 --json CARD",
                      "sim card DIR --json", "ports --json", "card write IN --name New --json CARD",
                      "card read 1 -o IN --json CARD", "card delete 1 --yes --json CARD",
                      "card service cb --json CARD", "csv import IN.csv -o IN --json",
                      "csv export IN -o IN.csv --json", "hpd convert IN -o IN --json",
                      "hpd bulk-set IN --scope frequencies --set Delay:=5 -o IN --json"));

struct RangeCase {
  std::string args;
  std::string err;  // the whole of standard error
};
void PrintTo(const RangeCase& c, std::ostream* os) {
  *os << c.args;
}

class NumberOutOfRange : public Convention, public ::testing::WithParamInterface<RangeCase> {};

TEST_P(NumberOutOfRange, IsAUserErrorOfOneSentence) {
  ZelRun r = run(GetParam().args);
  EXPECT_EQ(r.exitCode, 1);
  EXPECT_EQ(r.out, "");
  EXPECT_EQ(r.err, GetParam().err);
}

const char* const kSweep = "sweep --port /dev/null --step 12.5 ";

INSTANTIATE_TEST_SUITE_P(
    EveryNumericOption, NumberOutOfRange,
    ::testing::Values(
        RangeCase{"dups IN --system 1000",
                  "--system takes a system number from 1 to 999, not 1000.\n"},
        RangeCase{"dups IN --system -3", "--system takes a system number from 1 to 999, not -3.\n"},
        RangeCase{"hpd report IN --system 0",
                  "--system takes a system number from 1 to 999, not 0.\n"},
        RangeCase{"card delete 1000 --yes CARD",
                  "N takes a list number from 1 to 999, not 1000.\n"},
        RangeCase{"card read 1 0 -o x.hpd CARD", "N takes a list number from 1 to 999, not 0.\n"},
        RangeCase{"card order 2 1000 CARD", "N takes a list number from 1 to 999, not 1000.\n"},
        RangeCase{"card write IN --overwrite 0 --yes CARD",
                  "--overwrite takes a list number from 1 to 999, not 0.\n"},
        RangeCase{"sim radioref --port 70000",
                  "--port takes a port number from 0 to 65535, not 70000.\n"},
        RangeCase{"sim radioref --slow -1",
                  "--slow takes a number of milliseconds from 0 to 600000, not -1.\n"},
        RangeCase{"sim scanner --activity 1.5", "--activity takes a share from 0 to 1, not 1.5.\n"},
        RangeCase{"sim scanner --sweep-rate 0",
                  "--sweep-rate takes a number of steps a second from 1 to 100000, not 0.\n"},
        RangeCase{"sim scanner --silent-after -2",
                  "--silent-after takes a number of seconds of 0 or more, not -2.\n"},
        RangeCase{"monitor --port /dev/null --seconds -1",
                  "--seconds takes a number of seconds of 0 or more, not -1.\n"},
        RangeCase{std::string(kSweep) + "--start 10 --stop 148",
                  "--start takes a frequency in MHz from 25 to 1300, not 10.\n"},
        RangeCase{std::string(kSweep) + "--center 146 --span 0",
                  "--span takes a width in MHz above 0, not 0.\n"},
        RangeCase{std::string(kSweep) + "--start 144 --stop 148 --slot 10",
                  "--slot takes a slot number from 0 to 9, not 10.\n"},
        RangeCase{std::string(kSweep) + "--start 144 --stop 148 --seconds 0",
                  "--seconds takes a number of seconds above 0, not 0.\n"},
        RangeCase{"rr browse county 0", "CTID takes an id from 1 to 2147483647, not 0.\n"},
        RangeCase{"rr search county 9011 2000",
                  "FREQ takes a frequency in MHz from 25 to 1300, not 2000.\n"},
        RangeCase{"rr import --zip 123456 -o x.hpd",
                  "--zip takes a zip code from 1 to 99999, not 123456.\n"},
        RangeCase{"rr import --county 1 --updated-days 5 -o x.hpd",
                  "--updated-days takes 0, 1, 7, 30 or 90, not 5.\n"},
        RangeCase{"rr login --timeout 0",
                  "--timeout takes a number of milliseconds from 1 to 3600000, not 0.\n"}));

TEST_F(Convention, AMalformedNumberIsBadUsage) {
  for (const char* args :
       {"sim radioref --port eighty", "dups IN --system 1x",
        "sweep --port /dev/null --step 12.5 --start 144 --stop 148 --slot 1.5"}) {
    ZelRun r = run(args);
    EXPECT_EQ(r.exitCode, 2) << args;
    EXPECT_EQ(r.out, "") << args;
  }
}

// The suite's message stays; the next line names the option that does the window's job.
TEST_F(Convention, AMessageAboutAWindowIsFollowedByTheOptionToUse) {
  ZelRun noName = run("card write IN CARD");
  EXPECT_EQ(noName.exitCode, 1);
  EXPECT_EQ(noName.err,
            "Please enter a name for the new Favorite List\n"
            "On the command line: give the new list's name with --name NAME.\n");
  ZelRun noList = run("card write IN --overwrite 7 --yes CARD");
  EXPECT_EQ(noList.exitCode, 1);
  EXPECT_EQ(pieces(noList.err).size(), 2u) << noList.err;
  EXPECT_NE(noList.err.find("with --overwrite N (zel card list"), std::string::npos) << noList.err;
  for (const char* noun : {"db detect", "qkeys card"}) {
    ZelRun noDatabase = run(std::string(noun) + " --root '" + path("empty") + "'");
    EXPECT_EQ(noDatabase.exitCode, 1) << noun;
    EXPECT_EQ(pieces(noDatabase.err).back(),
              "On the command line: give the card's folder with --root DIR when it is mounted "
              "elsewhere.")
        << noun;
  }
  ZelRun noCard = run("card detect --root '" + path("empty") + "'");
  EXPECT_EQ(noCard.exitCode, 1);
  EXPECT_EQ(pieces(noCard.out).back(),
            "On the command line: give the card's folder with --root DIR when it is mounted "
            "elsewhere.");
}

// A command that writes a file or finds nothing says so in one line; one that changes the
// card ends with such a line.
TEST_F(Convention, CommandsEndWithASummaryLine) {
  const std::string out = path("out.txt");
  const std::pair<std::string, std::string> cases[] = {
      {"card order 2 CARD", "Wrote the order of 2 lists."},
      {"card qkeys clear CARD", "Set the quick keys of 2 lists."},
      {"card orphans CARD", "No orphan files."},
      {"csv export IN OUT", "Wrote " + out},
      {"csv export IN -o OUT", "Wrote " + out},
      {"csv export IN --out OUT", "Wrote " + out},
      {"hpd convert IN -o OUT", "Wrote " + out + ": 1 systems"},
      {"dups IN", "No duplicates found."},
      {"dups IN --json", "[]"},
  };
  for (const auto& [args, last] : cases) {
    ZelRun r = run(args);
    ASSERT_EQ(r.exitCode, 0) << args << r.err;
    EXPECT_EQ(pieces(r.out).back(), last) << args;
    if (args.find("CARD") == std::string::npos) EXPECT_EQ(pieces(r.out).size(), 1u) << r.out;
  }
}

TEST_F(ZelTest, DemoWalksTheWholeRoadOneLineAStep) {
  ZelRun r = zel("demo");
  ASSERT_EQ(r.exitCode, 0) << r.err << r.out;
  const std::vector<std::string> lines = pieces(r.out);
  const std::vector<std::string> steps = {"1/6 The demo favorites list: ",
                                          "2/6 Written to a simulated BCD536HP card",
                                          "3/6 Read list ",
                                          "4/6 Live scan of the simulated BCD536HP",
                                          "5/6 From the simulated RadioReference service",
                                          "6/6 The bandscope of the simulated scanner"};
  ASSERT_EQ(lines.size(), steps.size() + 1) << r.out;
  for (std::size_t i = 0; i < steps.size(); ++i) {
    EXPECT_EQ(lines[i].rfind(steps[i], 0), 0u) << lines[i];
  }
  EXPECT_NE(lines[2].find(", as many as written."), std::string::npos) << lines[2];
  EXPECT_NE(lines[3].find("the first: LOG,"), std::string::npos) << lines[3];
  EXPECT_NE(lines[5].find(" sweeps of 144.0000 to 148.0000 MHz"), std::string::npos) << lines[5];
  EXPECT_EQ(lines.back().rfind("The demo took ", 0), 0u);
}

}  // namespace
}  // namespace zel::e2e
