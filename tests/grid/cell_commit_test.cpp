// The cell commit by heading: number rules, filters, cuts, talkgroup forms, and what the
// commit does to a grid (the selection, the changed mark, messages, the beep).
#include "grid/cell_commit.h"

#include <gtest/gtest.h>

#include "core/memory_ports.h"
#include "core/text.h"
#include "grid/cell_commit_talkgroup.h"

namespace zel::cell {
namespace {

struct HeadingCase {
  const char* heading;
  const char* in;
  const char* out;
};

const HeadingCase kHeadings[] = {
    {"Frequency", "154.16", "154.160000"},
    {"Start Frequency", "25", "025.000000"},
    {"Stop Frequency", "1500", "1300.000000"},
    {"Base:", "851.0125", "851.012500"},
    {"Upper:", "869.5", "868.987500"},
    {"frequency", "88.5", "088.500000"},  // headings compare without case
    {"dPMR Scr. Key", "0", "1"},
    {"NXDN Enc. Key", "40000", "32767"},
    {"DCR Enc. Key", "", "1"},
    {"DCR Enc. Key", "123abc", "123"},
    {"Offset Frequency", "0.6", "0.600000"},
    {"Latitude", "95", "90"},
    {"Longitude", "-200", "-180"},
    {"Latitude", "41.5, x", "41.5"},  // a coordinate keeps its number only
    {"Longitude", "ire, \"Dispatch\"", ""},
    {"Longitude", " -81.25\r\n", "-81.25"},
    {"Step:", "12.5", "12.500000"},
    {"Spacing:", "112.5", "112.500000"},
    {"Talkgroup", "I1234", "i1234"},
    {"FIPS Code", "06-037", "06037"},
    {"Event", "*12 x", "*12x"},
    {"Alpha Tag", "Fire \"Dispatch\"", "Fire _Dispatch_"},
    {"Comments", "a[b]c", "abc"},
    {"Car#", "007", "007"},
    {"Car#", "07", "07"},
    {"Car", "1234", "999"},
    {"Car#", "0", "0"},
    {"Car#", "-3", "0"},
    {"Delay Time", "300", "200"},
    {"Delay Time", "-5", "-5"},  // words of the column's own list pass as they are
    {"Delay Time", " -10 ", "-10"},
    {"Dwell", "-3", "0"},
    {"Delay Time", "", "0"},
    {"LCN", "", ""},
    {"LCN", "5000", "4094"},
    {"LCN", "-1", "0"},
    {"NumberTag", "", ""},
    {"NumberTag", "1000", "999"},
    {"NumberTag", "12.5", "12.5"},
    {"NumberTag", "abc", "0"},
    {"NumberTag", "off", "Off"},  // the files' word for no number tag
    {"NumberTag", "7 of 9", "7"},
    {"Bank Channel", "150", "99"},
    {"Threshold Low", "-4", "0"},
    {"Threshold High", "", ""},
    {"RF Gain", "12", "12"},
    {"Lo Chan:", "70000", "65535"},
    {"Hi Chan:", "", ""},
    {"Offset:", "380", "380"},
    {"TGID", "-1", "0"},
    {"Unit ID", "0", "1"},
    {"Unit ID", "123.9", "123"},
    {"Unit ID", "123456789", "99999999"},
    {"Unit ID", "", ""},
    {"ColorCode", "16", "15"},
    {"ColorCode", "", ""},
    {"SQ Code", "1a2", "1A2"},
    {"P25NAC", "f7e", "F7E"},
    {"NAC", "293 ", "293"},
    {"GSSI:", "12345678901", "1234567890"},
};

TEST(CommitText, EveryHeadingRule) {
  for (const HeadingCase& c : kHeadings) {
    CommitResult r = commitText(c.heading, c.in, FrequencyRules{});
    EXPECT_EQ(r.status, CommitStatus::Stored) << c.heading << " " << c.in;
    EXPECT_EQ(r.text, c.out) << c.heading << " " << c.in;
  }
}

TEST(CommitText, NamesAndCommentsAreCut) {
  std::string longText(70, 'n');
  for (const char* heading : {"Alpha Tag", "Name", "Name:"}) {
    EXPECT_EQ(commitText(heading, longText, {}).text, std::string(64, 'n')) << heading;
  }
  EXPECT_EQ(commitText("Comments", longText, {}).text, std::string(60, 'n'));
}

TEST(CommitText, UnknownHeadingStoresNothing) {
  EXPECT_EQ(commitText("Mode", "AM", {}).status, CommitStatus::UnknownHeading);
  EXPECT_EQ(commitText("", "1", {}).status, CommitStatus::UnknownHeading);
}

GridPage channelGrid() {
  GridPage g(5, 4);
  g.setTextMatrix(0, 1, "Frequency");
  g.setTextMatrix(0, 2, "Alpha Tag");
  g.setTextMatrix(0, 3, "Mode");
  return g;
}

TEST(CellCommit, WhatEachOutcomeDoesToTheCellTheMarkAndTheFeedback) {
  struct Case {
    int col;
    const char* typed;
    CommitStatus status;
    const char* cell;  // what the cell holds afterwards, it held "154.000000" or nothing
    bool changed;
    int beeps;
    const char* message;
  };
  const Case cases[] = {
      {1, "154.16", CommitStatus::Stored, "154.160000", true, 0, nullptr},
      {1, "0", CommitStatus::Stored, "", true, 1, nullptr},  // zero empties with a beep
      {1, "1.2.3", CommitStatus::Failed, "154.000000", false, 0, nullptr},
      {3, "AM", CommitStatus::UnknownHeading, "", false, 0, "define table cgrid Mode"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.typed);
    GridPage g = channelGrid();
    RecordingFeedback fb;
    bool changed = false;
    CommitEnv env{FrequencyRules{}, &fb, &changed};
    g.setTextMatrix(2, 1, "154.000000");
    g.setRow(2);
    g.setCol(c.col);
    std::string text = c.typed;
    EXPECT_EQ(cellCommit(&g, text, kModePlain, env), c.status);
    EXPECT_EQ(g.textMatrix(2, c.col), c.cell);
    if (c.status == CommitStatus::Stored) EXPECT_EQ(text, c.cell);  // the stored form goes back
    EXPECT_EQ(g.textMatrix(1, 1), "");
    EXPECT_EQ(changed, c.changed);
    EXPECT_EQ(fb.beeps, c.beeps);
    EXPECT_EQ(fb.messages,
              c.message ? std::vector<std::string>{c.message} : std::vector<std::string>{});
  }
  // A repeat fill reaches the whole selection.
  GridPage g = channelGrid();
  CommitEnv env;
  g.setRow(1);
  g.setCol(1);
  g.setRowSel(3);
  g.setFillStyle(GridPage::FillStyle::Repeat);
  std::string text = "460.0125";
  cellCommit(&g, text, kModePlain, env);
  for (int r = 1; r <= 3; ++r) EXPECT_EQ(g.textMatrix(r, 1), "460.012500") << r;
  EXPECT_EQ(g.textMatrix(4, 1), "");
}

TEST(CellCommit, DuplicateTrunkNameWarnsAndStores) {
  GridPage g(4, 3);
  g.setTextMatrix(0, 2, "Name");
  g.setTextMatrix(1, 2, "County P25");
  g.setTextMatrix(2, 2, "City EDACS");
  RecordingFeedback fb;
  CommitEnv env{FrequencyRules{}, &fb, nullptr};
  g.setRow(3);
  g.setCol(2);
  std::string text = "City EDACS";
  cellCommit(&g, text, kModeTrunkName, env);
  ASSERT_EQ(fb.messages.size(), 1u);
  EXPECT_EQ(fb.messages[0],
            "Warning: Duplicate Trunk System Name\nTo avoid problems make sure that every trunk "
            "system has a unique name.");
  EXPECT_EQ(g.textMatrix(3, 2), "City EDACS");
  // Its own row is no duplicate, and the plain mode never checks.
  fb.messages.clear();
  g.setTextMatrix(3, 2, "");
  g.setRow(2);
  text = "City EDACS";
  cellCommit(&g, text, kModeTrunkName, env);
  g.setRow(3);
  text = "County P25";
  cellCommit(&g, text, kModePlain, env);
  EXPECT_TRUE(fb.messages.empty());
}

TEST(TalkgroupForms, ToAfs) {
  struct Case {
    const char* in;
    const char* out;
  } cases[] = {{"100", "00-124"},  {"0", "00-000"},   {"2047", "15-157"}, {"3000", "15-157"},
               {"2046", "15-156"}, {"128", "01-000"}, {"9", "00-011"},    {"0.4", "00-000"}};
  for (const Case& c : cases) EXPECT_EQ(toAfs(c.in).value_or("?"), c.out) << c.in;
  // Texts that are not numbers keep their own form.
  for (const char* kept : {"05-123", "", "i123", "*", "12ab"})
    EXPECT_FALSE(toAfs(kept).has_value()) << kept;
}

TEST(TalkgroupForms, ToDecimal) {
  struct Case {
    const char* in;
    const char* out;
  } cases[] = {{"01-000", "0128"}, {"15-157", "2047"}, {"15-15", "2040"},
               {"99-997", "2047"}, {"00-011", "0009"}, {"1-1", "0128"}};
  for (const Case& c : cases) EXPECT_EQ(toDecimal(c.in).value_or("?"), c.out) << c.in;
  EXPECT_FALSE(toDecimal("1234").has_value());
}

TEST(TalkgroupForms, RoundTripOverTheWholeRange) {
  for (int n = 1; n < 2047; ++n) {
    auto afs = toAfs(std::to_string(n));
    ASSERT_TRUE(afs.has_value());
    EXPECT_EQ(toDecimal(*afs).value_or("?"), padNumber(n, 4)) << n << " " << *afs;
  }
}

}  // namespace
}  // namespace zel::cell
