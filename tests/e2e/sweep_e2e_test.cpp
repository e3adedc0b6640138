// `zel sweep` against `zel sim scanner` through a pseudo-terminal: the busy channels come out
// among the busiest, for a BCD stream and SDS waterfall frames, with the files written.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

#include "monitor_process.h"
#include "zel_run.h"

namespace zel::e2e {
namespace {

namespace fs = std::filesystem;
using ::testing::HasSubstr;
using ::testing::StartsWith;

ZelRun sweep(const std::string& device, const std::vector<std::string>& options) {
  return onPort("sweep", device, options, 30000);
}

// The frequencies (MHz) of the "top" list of the JSON summary.
std::vector<double> topFrequencies(const std::string& json) {
  std::vector<double> out;
  const std::string key = "\"frequencyMhz\":";
  for (std::size_t at = json.find(key); at != std::string::npos; at = json.find(key, at + 1))
    out.push_back(std::stod(json.substr(at + key.size())));
  return out;
}

bool near(const std::vector<double>& list, double mhz, double within) {
  for (double f : list)
    if (std::abs(f - mhz) <= within) return true;
  return false;
}

// The 2 m busy channels of the simulator (146.52 simplex and two repeater outputs).
const double kBusy[] = {146.52, 146.94, 147.33};

class SweepE2E : public ZelTest {};

TEST_F(SweepE2E, BcdStreamFindsTheBusyChannelsAndWritesTheFiles) {
  SimulatedScanner sim({"--model", "BCD536HP", "--seed", "3", "--sweep-rate", "1500"});
  ASSERT_EQ(sim.device().rfind("/dev/", 0), 0u) << sim.process().err();
  const fs::path csv = fs::path(path("levels.csv")), png = fs::path(path("waterfall.png")),
                 stats = fs::path(path("stats.csv"));
  ZelRun m = sweep(sim.device(),
                   {"--start", "144", "--stop", "148", "--step", "12.5", "--sweeps", "25", "--json",
                    "--csv", csv.string(), "--waterfall", png.string(), "--stats", stats.string()});
  ASSERT_EQ(m.exitCode, 0) << m.err;
  EXPECT_EQ(jsonNumber(m.out, "sweeps"), 25) << m.out;
  EXPECT_EQ(jsonNumber(m.out, "steps"), 320);
  auto top = topFrequencies(m.out);
  ASSERT_FALSE(top.empty()) << m.out;
  int found = 0;
  for (double busy : kBusy) found += near(top, busy, 0.0125) ? 1 : 0;
  EXPECT_GE(found, 2) << m.out;

  // One line a sweep and bin, after the header.
  auto lines = pieces(slurp(csv));
  ASSERT_FALSE(lines.empty());
  EXPECT_EQ(lines[0], "sweep,frequency_mhz,level");
  EXPECT_EQ(lines.size(), 1u + 25u * 321u);
  EXPECT_THAT(lines[1], StartsWith("1,144.0000,"));
  EXPECT_THAT(lines.back(), StartsWith("25,148.0000,"));
  // The PNG signature, and the statistics list with its columns.
  EXPECT_EQ(slurp(png).substr(0, 8), std::string("\x89PNG\r\n\x1a\n", 8));
  auto rows = pieces(slurp(stats));
  ASSERT_GE(rows.size(), 2u);
  EXPECT_EQ(rows[0],
            "Frequency:,Hits:,Occupancy (%):,Occ. (%) this hour:,Occ. (%) this day:,Low:,High:,"
            "Last Hit Date:,Last Hit Time:");
}

TEST_F(SweepE2E, SdsFramesWithAThresholdFindTheBusyChannels) {
  SimulatedScanner sim({"--model", "SDS100", "--seed", "4"});
  ASSERT_FALSE(sim.device().empty()) << sim.process().err();
  const fs::path png = fs::path(path("sds.png")), hits = fs::path(path("hits.csv"));
  ZelRun m = sweep(sim.device(), {"--center", "146", "--span", "4", "--step", "12.5", "--sweeps",
                                  "20", "--threshold", "300", "--waterfall", png.string(), "--csv",
                                  hits.string(), "--hits"});
  ASSERT_EQ(m.exitCode, 0) << m.err;
  EXPECT_THAT(m.out, AllOf(HasSubstr("Sweep 20\n"), HasSubstr("Busiest frequencies:")));
  std::vector<double> top;
  const auto lines = pieces(m.out);
  for (auto it = std::find(lines.begin(), lines.end(), "Busiest frequencies:");
       it != lines.end() && ++it != lines.end();)
    top.push_back(std::stod(*it));
  int found = 0;
  // A frame has 250 bins over the 4 MHz: 16 kHz a bin.
  for (double busy : kBusy) found += near(top, busy, 0.016) ? 1 : 0;
  EXPECT_GE(found, 2) << m.out;
  EXPECT_EQ(slurp(png).substr(1, 3), "PNG");
  auto rows = pieces(slurp(hits));
  ASSERT_GE(rows.size(), 2u);
  EXPECT_EQ(rows[0], "sweep,frequency_mhz,level,date,time");
}

TEST_F(SweepE2E, RefusalsAndUsage) {
  SimulatedScanner sim({"--model", "BCD436HP"});
  ASSERT_FALSE(sim.device().empty());
  struct Case {
    std::vector<std::string> options;
    int code;
    std::string err = {};
  };
  const Case cases[] = {
      {{"--start", "144", "--stop", "144.1125", "--step", "12.5"},
       1,
       "Search range is too small (9), please increase range or select smaller step.\n"
       "On the command line: widen --start and --stop (or --span), or give a smaller --step.\n"},
      {{"--start", "148", "--stop", "144", "--step", "12.5"}, 1, "Error, check frequency range\n"},
      {{"--start", "144", "--stop", "148", "--step", "11"}, 2},
      {{"--start", "144", "--span", "4", "--step", "12.5"}, 2},
      {{"--center", "146", "--step", "12.5"}, 2},
      {{"--start", "144", "--stop", "148", "--step", "12.5", "--sweeps", "1", "--seconds", "1"}, 2},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.options[0] + " " + c.options[1] + " " + c.options[2] + " " + c.options[3]);
    ZelRun m = sweep(sim.device(), c.options);
    EXPECT_EQ(m.exitCode, c.code) << m.err;
    if (!c.err.empty()) EXPECT_EQ(m.err, c.err);
    EXPECT_TRUE(m.out.empty()) << m.out;
  }
  ZelRun none = sweep("/dev/zel-no-such-port", {"--start", "144", "--stop", "148", "--step", "5"});
  EXPECT_EQ(none.exitCode, 1);
  EXPECT_THAT(none.err, StartsWith("Error#: "));
  EXPECT_EQ(std::count(none.err.begin(), none.err.end(), '\n'), 1);
}

}  // namespace
}  // namespace zel::e2e
