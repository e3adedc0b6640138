// `zel hpd info`, `convert` and `check` as a user runs them: counts, JSON, the check report,
// and the errors of a missing file or header.
#include <gmock/gmock.h>

#include "zel_run.h"

namespace {

namespace fs = std::filesystem;
using ::testing::HasSubstr;
using zel::e2e::ZelRun;

// A level 3 file of the given lines, "|" standing for a TAB.
std::string hpdFile(std::initializer_list<std::string> lines) {
  std::string out = "TargetModel\tBCDx36HP\r\nFormatVersion\t1.00\r\n";
  for (std::string line : lines) {
    for (char& c : line) c = c == '|' ? '\t' : c;
    out += line + "\r\n";
  }
  return out;
}

class HpdInfo : public zel::e2e::ZelTest {
 protected:
  void SetUp() override {
    ZelTest::SetUp();
    file = path("metro.hpd");
    std::ofstream(file, std::ios::binary) << hpdFile({
        "Trunk|||Metro|Off||P25Standard",
        "UnitIds|||Medic|77|Off|Auto|Red|On",
        "Site|||North|Off|41.4|-81.7|19.1|AUTO|Custom|Wide|Circle|Off",
        "T-Freq|||||851900000|1",
        "T-Group|||Fire|Off",
        "TGID|||Dispatch|Off|56421|ALL|3",
        "Conventional|||Caf\xE9|Off||Conventional",
        "C-Group|||G|Off",
        "C-Freq|||Ch|Off|155000000|WFM|TONE=C146.3|3",
        "Bogus|line",
    });
  }
  std::string file;
};

TEST_F(HpdInfo, CountsAndSystemsAsTextAndAsJson) {
  ZelRun r = zel("hpd info '" + file + "'");
  ASSERT_EQ(r.exitCode, 0) << r.err;
  // Each count's line is proven on the real cards; here the level and the systems.
  for (const char* line : {"Level: 3\nSystems: 2\n", "  1  P25 Standard  Metro\n",
                           "  2  Conventional  Caf\xE9\n"})
    EXPECT_THAT(r.out, HasSubstr(line));
  ZelRun json = zel("hpd info --json '" + file + "'");
  ASSERT_EQ(json.exitCode, 0) << json.err;
  // The name's byte 233 comes out as the Latin-1 letter it stands for, in UTF-8.
  EXPECT_THAT(json.out, AllOf(HasSubstr("\"counts\":{\"systems\":2,\"sites\":1,"),
                              HasSubstr("\"name\":\"Caf\xC3\xA9\",\"type\":\"Conventional\"")));
}

TEST_F(HpdInfo, CheckListsSkippedLinesAndMovedValues) {
  ZelRun r = zel("hpd check '" + file + "'");
  ASSERT_EQ(r.exitCode, 0) << r.err;
  for (const char* said : {"Skipped lines: 1\n  line 12: unknown line type: Bogus\tline\n",
                           "C-Freq field 6 changed: 1 (\"WFM\" -> \"AUTO\")\n",
                           "C-Freq field 7 emptied: 1 (\"TONE=C146.3\" -> \"\")\n",
                           "Conventional field 3 changed: 1 (\"Caf\xE9\" -> \"Caf\")\n"})
    EXPECT_THAT(r.out, HasSubstr(said));
}

TEST_F(HpdInfo, MissingFileAndMissingHeaderAreUserErrors) {
  const std::string missing = path("none.hpd");
  ZelRun a = zel("hpd info '" + missing + "'");
  EXPECT_EQ(a.exitCode, 1);
  EXPECT_EQ(a.err, "File error: check if file exists:    " + missing + "\n");
  const std::string headless = path("headless.hpd");
  std::ofstream(headless, std::ios::binary) << "Conventional\t\t\tA\r\n";
  for (const char* command : {"info", "check"}) {
    ZelRun b = zel(std::string("hpd ") + command + " '" + headless + "'");
    EXPECT_EQ(b.exitCode, 1);
    EXPECT_EQ(b.err, "File not compatible, or saved in newer format\n");
  }
  ZelRun c = zel("hpd convert '" + headless + "' '" + path("x.hpd") + "'");
  EXPECT_EQ(c.exitCode, 1);
  EXPECT_FALSE(fs::exists(path("x.hpd")));
  EXPECT_EQ(zel("hpd info").exitCode, 2);  // a missing argument is a usage error
}

}  // namespace
