// Every real list and state file reads without a skipped line, as counted, and saves to a fixpoint.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <map>

#include "core/keys.h"
#include "core/record_line.h"
#include "core/text.h"
#include "formats/hpd_check.h"
#include "formats/hpd_save_diff.h"
#include "formats/text_file.h"
#include "formats_test_support.h"

namespace zel::formats {
namespace {

namespace fs = std::filesystem;
const std::string kRoot = ZEL_REALDATA_DIR;

std::vector<std::string> realFiles() {
  std::vector<std::string> files = {
      kRoot + "/card_bcd536hp/BCDx36HP/favorites_lists/f_000001.hpd",
      kRoot + "/card_sds200/BCDx36HP/favorites_lists/f_000001.hpd",
  };
  std::vector<std::string> states;
  for (const auto& e : fs::directory_iterator(kRoot + "/card_sds200/BCDx36HP/HPDB")) {
    const std::string name = e.path().filename().string();
    if (startsWith(name, "s_") && endsWith(name, ".hpd")) states.push_back(e.path().string());
  }
  std::sort(states.begin(), states.end());
  files.insert(files.end(), states.begin(), states.end());
  return files;
}

TEST(RealFiles, TheDatabaseHasItsSixtySevenStateFiles) {
  EXPECT_EQ(realFiles().size(), 69u);
}

// Lines of each type, counted by the first field alone.
std::map<std::string, int> lineTypes(const std::string& text) {
  std::map<std::string, int> n;
  forEachLine(text,
              [&](std::string_view line) { ++n[std::string(line.substr(0, line.find('\t')))]; });
  return n;
}

class RealHpd : public ::testing::TestWithParam<std::string> {};

TEST_P(RealHpd, OpensWithoutSkippedLinesAndCountsItsLineTypes) {
  const std::string text = test::slurp(GetParam());
  std::map<std::string, int> types = lineTypes(text);
  test::Scratch s;
  HpdReadResult r = s.readFile(GetParam());
  ASSERT_TRUE(r.ok()) << r.message;
  EXPECT_EQ(r.level, HpdLevel::V3);
  EXPECT_TRUE(r.skipped.empty()) << r.skipped.front().lineNumber << " " << r.skipped.front().reason;
  const HpdCounts& n = r.counts;
  EXPECT_EQ((std::vector<int>{n.systems, n.sites, n.departments, n.channels, n.talkgroups,
                              n.frequencies, n.unitIds, n.bandPlans, n.bandPlansP25, n.fleetMaps}),
            (std::vector<int>{types["Conventional"] + types["Trunk"], types["Site"],
                              types["C-Group"] + types["T-Group"], types["C-Freq"], types["TGID"],
                              types["T-Freq"], types["UnitIds"], types["BandPlan_Mot"],
                              types["BandPlan_P25"], types["FleetMap"]}));
  EXPECT_TRUE(s.feedback.messages.empty());

  // The rows of the page files are the channel and talkgroup lines, one for one.
  std::size_t rows = 0;
  for (const std::string& dept : s.pages.departments()) rows += s.pages.load(dept).size();
  EXPECT_EQ(rows, static_cast<std::size_t>(types["C-Freq"] + types["TGID"]));

  // Names reach the system table as the file has them.
  std::vector<HpdSystemInfo> systems = systemsRead(s.doc, r);
  ASSERT_FALSE(systems.empty());
  std::string firstSystem;
  forEachLine(text, [&](std::string_view line) {
    if (firstSystem.empty() && (startsWith(line, "Conventional\t") || startsWith(line, "Trunk\t")))
      firstSystem = std::string(splitView(line, '\t')[3]);
  });
  EXPECT_EQ(systems[0].name, replaceAll(firstSystem, ",", ";"));
}

TEST_P(RealHpd, ASavedFileSavesAgainToTheSameBytes) {
  test::Scratch first;
  ASSERT_TRUE(first.readFile(GetParam()).ok());
  const std::string once = first.render();
  test::Scratch second;
  HpdReadResult again = second.read(once);
  ASSERT_TRUE(again.ok());
  EXPECT_TRUE(again.skipped.empty());
  const std::string twice = second.render();
  EXPECT_EQ(twice.size(), once.size());
  EXPECT_TRUE(twice == once) << "first difference at byte "
                             << std::mismatch(once.begin(), once.end(), twice.begin()).first -
                                    once.begin();
}

std::string testName(const ::testing::TestParamInfo<std::string>& info) {
  const std::string name = fs::path(info.param).stem().string();
  if (info.param.find("card_bcd536hp") != std::string::npos) return "bcd536hp_" + name;
  return info.param.find("favorites_lists") != std::string::npos ? "sds200_" + name : name;
}

INSTANTIATE_TEST_SUITE_P(Cards, RealHpd, ::testing::ValuesIn(realFiles()), testName);

// The lines of each type of a file, in order.
std::map<std::string, std::vector<std::string>> linesByType(const std::string& text) {
  std::map<std::string, std::vector<std::string>> out;
  forEachLine(text, [&](std::string_view line) {
    if (!trimView(line).empty()) out[std::string(line.substr(0, line.find('\t')))].emplace_back(line);
  });
  return out;
}

// Compares a file with what a convert wrote, the n-th line of a type with the n-th: differing
// fields by "type field", and lines by type that one side has more of.
struct PlainDiff {
  std::map<std::string, int> fields;
  std::map<std::string, int> moreLines;  // written minus original
};
PlainDiff plainDiff(const std::string& original, const std::string& written) {
  PlainDiff d;
  auto before = linesByType(original);
  auto after = linesByType(written);
  for (auto& [type, lines] : before) d.moreLines[type] -= static_cast<int>(lines.size());
  for (auto& [type, lines] : after) d.moreLines[type] += static_cast<int>(lines.size());
  for (auto& [type, lines] : before) {
    const auto& other = after[type];
    for (std::size_t i = 0; i < std::min(lines.size(), other.size()); ++i) {
      const auto a = splitView(lines[i], '\t');
      const auto b = splitView(other[i], '\t');
      for (std::size_t f = 1; f < std::max(a.size(), b.size()); ++f) {
        const std::string_view x = f < a.size() ? a[f] : "";
        const std::string_view y = f < b.size() ? b[f] : "";
        if (x != y) ++d.fields[type + " " + std::to_string(f)];
      }
    }
  }
  std::erase_if(d.moreLines, [](const auto& entry) { return entry.second == 0; });
  return d;
}

// A convert of the file, written to the disk as `zel hpd convert` does.
std::string convertOnDisk(const std::string& path) {
  test::Scratch s;
  EXPECT_TRUE(s.readFile(path).ok());
  HpdWriteOptions options;
  options.fileIndex = 1;
  EXPECT_TRUE(writeHpd(s.doc, s.pages, s.dir.file("out.hpd"), options, s.feedback).ok());
  return test::slurp(s.dir.file("out.hpd"));
}

TEST(RealHpdCheck, TheCheckCountsWhatADiffOfTheConvertShows) {
  for (const char* file : {"/card_sds200/BCDx36HP/HPDB/s_000006.hpd",
                           "/card_bcd536hp/BCDx36HP/favorites_lists/f_000001.hpd",
                           "/card_sds200/BCDx36HP/favorites_lists/f_000001.hpd"}) {
    const std::string path = kRoot + file;
    test::Scratch s;
    MemoryRows rows;
    const HpdCheck check = checkHpd(s.doc, rows, path, s.feedback);
    ASSERT_TRUE(check.read.ok());
    const std::string converted = convertOnDisk(path);
    EXPECT_TRUE(check.written == converted) << file;
    const PlainDiff want = plainDiff(test::slurp(path), converted);

    PlainDiff got;
    for (const FieldChange& f : check.changes.fields) {
      if (f.kind != FieldChangeKind::TailDropped) got.fields[f.lineType + " " + std::to_string(f.field)] += f.count;
    }
    for (const LineChange& l : check.changes.lines) got.moreLines[l.lineType] = l.added ? l.count : -l.count;
    EXPECT_EQ(got.fields, want.fields) << file;
    EXPECT_EQ(got.moreLines, want.moreLines) << file;
  }
}

// The largest state file: no line skipped, few values moved, and its losses counted.
TEST(RealHpdCheck, TheStateFileReportNamesItsLossesWithTheirCounts) {
  test::Scratch s;
  MemoryRows rows;
  const HpdCheck check =
      checkHpd(s.doc, rows, kRoot + "/card_sds200/BCDx36HP/HPDB/s_000006.hpd", s.feedback);
  ASSERT_TRUE(check.read.ok());
  EXPECT_TRUE(check.read.skipped.empty());
  EXPECT_EQ(check.read.notKept.at("AreaState"), 689);
  EXPECT_EQ(check.read.notKept.at("AreaCounty"), 854);
  // Two DCS codes of this file are on no list of the scanner.
  ASSERT_EQ(check.audit.moved.size(), 2u);
  EXPECT_EQ(check.audit.moved[0].field, "SQ Code");
  EXPECT_EQ(check.audit.filled.at("Delay Time").at("2"), 12515 + 11764);
  EXPECT_NE(formatCheck(check).find("Skipped lines: 0\n"), std::string::npos);
  const SaveDiff& d = check.changes;
  EXPECT_EQ(d.lineCount("AreaState", false), 689);
  EXPECT_EQ(d.lineCount("AreaCounty", false), 854);
  EXPECT_EQ(d.lineCount("DQKs_Status", true), 317 + 372);
  EXPECT_EQ(d.fieldCount("C-Freq", 1, FieldChangeKind::IdEmptied), 12515);
  EXPECT_EQ(d.fieldCount("TGID", 1, FieldChangeKind::IdEmptied), 11764);
  EXPECT_EQ(d.fieldCount("C-Freq", 7, FieldChangeKind::Emptied), 2);  // DCS codes off the list
  EXPECT_EQ(d.fieldCount("C-Freq", 10, FieldChangeKind::Filled), 12515);
  EXPECT_EQ(d.fieldCount("Site", 1, FieldChangeKind::IdNumbered), 725);
}

TEST(RealHpdCheck, AConvertOfTheBcd536ListKeepsEverySystemLine) {
  const std::string path = kRoot + "/card_bcd536hp/BCDx36HP/favorites_lists/f_000001.hpd";
  auto before = linesByType(test::slurp(path));
  auto after = linesByType(convertOnDisk(path));
  for (const char* type : {"Trunk", "Conventional", "TargetModel", "FormatVersion"}) {
    EXPECT_EQ(after[type], before[type]) << type;
  }
  EXPECT_EQ(before["Conventional"].size(), 2u);
}

}  // namespace
}  // namespace zel::formats
