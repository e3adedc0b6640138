// Find Duplicates over keyed rows: the pairwise search of one system, the sorted search of
// all, their different compares, Select Dups, deletion, unlock and the lockout review.
#include "grid/duplicates.h"

#include <gtest/gtest.h>

#include "core/memory_ports.h"
#include "core/page_files.h"
#include "grid/duplicates_removal.h"
#include "grid/find_replace.h"
#include "grid_test_support.h"
#include "test_folder.h"

namespace zel::dups {
namespace {

KeyedRow frq(int sys, int dept, int ch, const std::string& freq, const std::string& tag = "t") {
  char key[32];
  std::snprintf(key, sizeof key, "FRQ-%03d-%03d-%04d", sys, dept, ch);
  return {key, std::to_string(ch) + "," + freq + "," + tag + ",Off,NFM,CTCSS,123.0,Law"};
}
KeyedRow tid(int sys, int dept, int ch, const std::string& tg) {
  char key[32];
  std::snprintf(key, sizeof key, "TID-%03d-%03d-%04d", sys, dept, ch);
  return {key, std::to_string(ch) + "," + tg + ",TG,Off,All"};
}

std::vector<std::string> dataOf(const std::vector<MatchRow>& rows) {
  std::vector<std::string> out;
  for (const MatchRow& r : rows) out.push_back(r.data + "|" + r.key);
  return out;
}

TEST(PairwiseSearch, ThreeEqualGiveOneOriginAndTwoDups) {
  std::vector<KeyedRow> rows = {frq(1, 0, 1, "154.100000"), frq(1, 0, 2, "460.000000"),
                                frq(1, 1, 3, "154.1"), frq(1, 2, 4, "154.10")};
  auto found = pairwiseSearch(rows, "FRQ-", 1);
  EXPECT_EQ(dataOf(found), (std::vector<std::string>{"ORG:154.100000|FRQ-001-000-0001",
                                                     "DUP:154.1|FRQ-001-001-0003",
                                                     "DUP:154.10|FRQ-001-002-0004"}));
  EXPECT_EQ(std::tie(found[0].number, found[0].listKey, found[0].alphaTag, found[0].subtone,
                     found[2].channel),
            std::make_tuple("1", "A*1", "t", "NFM", "0004"));
}

TEST(PairwiseSearch, CompareIsNumericAndBoundToTheSystem) {
  std::vector<KeyedRow> rows = {frq(1, 0, 1, "154.100000"), frq(1, 0, 2, "154.100050"),
                                frq(2, 0, 1, "154.100000")};
  EXPECT_TRUE(pairwiseSearch(rows, "FRQ-", 1).empty());
  EXPECT_EQ(pairwiseSearch(rows, "FRQ-", 0).size(), 2u);
  EXPECT_TRUE(pairwiseSearch({frq(1, 0, 1, "154.1"), frq(1, 0, 2, "154.2")}, "FRQ-", 1).empty());
}

TEST(PairwiseSearch, TalkgroupsAreText) {
  std::vector<KeyedRow> rows = {tid(1, 0, 1, "1234"), tid(1, 0, 2, "01234"), tid(1, 0, 3, "1234"),
                                frq(1, 0, 4, "1234")};
  auto found = pairwiseSearch(rows, "TID-", 1);
  EXPECT_EQ(dataOf(found),
            (std::vector<std::string>{"ORG:1234|TID-001-000-0001", "DUP:1234|TID-001-000-0003"}));
}

TEST(PairwiseSearch, StopsWhenTheDialogCloses) {
  std::vector<KeyedRow> rows;
  for (int i = 1; i <= 50; ++i) rows.push_back(frq(1, 0, i, "154.100000"));
  int calls = 0;
  auto found = pairwiseSearch(rows, "FRQ-", 1, {}, [&](int) { return ++calls < 3; });
  EXPECT_EQ(calls, 3);
  EXPECT_EQ(found.size(), 50u);  // the first round had found the whole group
}

TEST(SortedSearch, ComparesFourDecimalsAsText) {
  std::vector<KeyedRow> rows = {frq(1, 0, 1, "154.100050"), frq(2, 0, 1, "460.0"),
                                frq(3, 0, 1, "154.100000"), frq(1, 0, 2, "154.2"),
                                frq(2, 1, 2, "154.1")};
  auto found = sortedSearch(rows, "FRQ-");
  EXPECT_EQ(dataOf(found), (std::vector<std::string>{"ORG:154.100050|FRQ-001-000-0001",
                                                     "DUP: 154.100000|FRQ-003-000-0001",
                                                     "DUP: 154.1|FRQ-002-001-0002"}));
  EXPECT_EQ(found[0].subtone, "123.0");
}

TEST(SortedSearch, TalkgroupsAreTextAndNamesAreLookedUp) {
  std::vector<KeyedRow> rows = {tid(1, 0, 1, "1234"), tid(2, 3, 1, "01234"), tid(2, 3, 2, "1234")};
  NameLookup names{[](int s) { return "Sys" + std::to_string(s); },
                   [](int s, int d) { return "Dept" + std::to_string(s) + std::to_string(d); }};
  auto found = sortedSearch(rows, "TID-", names);
  ASSERT_EQ(found.size(), 2u);
  EXPECT_EQ(std::tie(found[1].data, found[1].system, found[1].department),
            std::make_tuple("DUP: 1234", "Sys2", "Dept23"));
}

TEST(SelectDups, DeletingTheSelectionLeavesOneRowOfEachGroup) {
  TestFolder folder;
  PageFiles pages(folder.path());
  // Department 1 of system 1 in a page file, department 2 open in a grid.
  pages.save("GRP-999-001-001", {"1,154.100000,a", "2,154.100000,b", "3,460.000000,c"});
  GridPage grid(4, 3);
  test::fill(
      grid,
      {{0, 1, "Frequency"}, {1, 1, "154.100000"}, {2, 1, "460.000000"}, {3, 1, "851.000000"}});
  std::vector<KeyedRow> rows = {frq(1, 1, 1, "154.100000"), frq(1, 1, 2, "154.100000"),
                                frq(1, 1, 3, "460.000000"), frq(1, 2, 1, "154.100000"),
                                frq(1, 2, 2, "460.000000"), frq(1, 2, 3, "851.000000")};
  auto found = pairwiseSearch(rows, "FRQ-", 1);
  ASSERT_EQ(found.size(), 5u);
  EXPECT_EQ(selectDups(found), 3);

  RecordingFeedback feedback;
  feedback.answers.push_back(Answer::No);
  EXPECT_EQ(deleteSelected(found, pages, {"GRP-999-001-002", &grid}, feedback), 0);
  EXPECT_EQ(feedback.questions,
            std::vector<std::string>{"Warning|Are you sure you want to delete "
                                     "this data?\nWarning: data will be lost!"});

  EXPECT_EQ(deleteSelected(found, pages, {"GRP-999-001-002", &grid}, feedback), 3);
  EXPECT_EQ(pages.load("GRP-999-001-001"),
            (std::vector<std::string>{"1,154.100000,a", "2,460.000000,c"}));
  EXPECT_EQ(std::make_pair(grid.rows(), grid.textMatrix(1, 1)),
            std::make_pair(2, std::string("851.000000")));
  EXPECT_EQ(found.size(), 2u);  // the origins stay listed

  selectAll(found, false);
  EXPECT_EQ(deleteSelected(found, pages, {}, feedback), 0);
  EXPECT_EQ(feedback.messages.back(), "Please select at least one duplicate.");
}

TEST(Unlock, ScopesReachTheirRows) {
  TestFolder folder;
  PageFiles pages(folder.path());
  pages.save("GRP-999-001-000", {"1,154.100000,a,On,NFM"});
  pages.save("GRP-999-002-000", {"1,1234,tg,On,All"});
  DocumentTree data;
  data.add("", "SYS-001", "SIN,Conventional,1,StateId=0,Sys,1");
  data.add("", "SYS-002", "SIN,Motorola,2,StateId=0,Sys,1");

  EXPECT_EQ(unlock(UnlockScope::Talkgroups, 0, data, pages, {}), 1);
  const auto state = [&] {
    return pages.load("GRP-999-001-000")[0] + "|" + pages.load("GRP-999-002-000")[0] + "|" +
           data.text(data.find("SYS-001")) + "|" + data.text(data.find("SYS-002"));
  };
  EXPECT_EQ(state(),
            "1,154.100000,a,On,NFM|1,1234,tg,Off,All|SIN,Conventional,1,StateId=0,Sys,1|"
            "SIN,Motorola,2,StateId=0,Sys,1");

  EXPECT_EQ(unlock(UnlockScope::ActiveSystem, 1, data, pages, {}), 2);
  EXPECT_EQ(state(),
            "1,154.100000,a,Off,NFM|1,1234,tg,Off,All|SIN,Conventional,1,StateId=0,Sys,0|"
            "SIN,Motorola,2,StateId=0,Sys,1");
}

TEST(ReviewLockOut, ListsNothingInGridsHeadedAvoid) {
  GridPage avoid(2, 3), lockout(3, 4);
  test::fill(avoid, {{0, 1, "Frequency"}, {0, 2, "Avoid"}, {1, 2, "On"}});
  test::fill(lockout, {{0, 1, "Frequency"}, {0, 2, "LockOut"}, {0, 3, "Alpha Tag"}});
  test::fill(lockout, {{1, 1, "154.000000"}, {1, 2, "On"}, {1, 3, "Fire"}, {2, 2, "Off"}});
  std::vector<ReviewPage> review = {{"S / D", "GRP-999-001-000", false, &avoid},
                                    {"S / E", "GRP-999-001-001", false, &lockout}};
  auto rows = reviewLockOut(review);
  ASSERT_EQ(rows.size(), 1u);
  EXPECT_EQ(rows[0].text + "|" + rows[0].key, "S / E / 154.000000 /  / Fire|cGRP-999-001-001-*");
  EXPECT_EQ(clearLockOut(review), 1);
  EXPECT_EQ(lockout.textMatrix(1, 2) + "|" + avoid.textMatrix(1, 2), "Off|On");
}

TEST(FindReplace, FindsAnywhereInUpperCaseAndSelectsTheLast) {
  GridPage g(5, 3);
  test::fill(g, {{0, 1, "Frequency"},
                 {0, 2, "Alpha Tag"},
                 {1, 2, " fire disp "},
                 {2, 2, "Law"},
                 {3, 2, "FIRE TAC"},
                 {1, 1, "154.100000"}});
  auto found = findInGrid(g, "alpha tag", "Fire");
  EXPECT_EQ(found.rows, (std::vector<int>{1, 3}));
  EXPECT_EQ(std::make_pair(g.row(), g.col()), std::make_pair(3, 2));
  EXPECT_EQ(findInGrid(g, "", "154.1").rows, (std::vector<int>{1}));  // "Frequency"
  EXPECT_TRUE(findInGrid(g, "Mode", "x").rows.empty());

  GridPage other = g;
  EXPECT_EQ(replaceInPages({&g, &other}, "Alpha Tag", "fire", "EMS"), 4);
  EXPECT_EQ(test::cells(g, {{1, 2}, {2, 2}}) + "|" + other.textMatrix(3, 2),
            "EMS disp|Law|EMS TAC");
}

}  // namespace
}  // namespace zel::dups
