// The card's quick key overview: keys used twice, the rows, their order and the HTML page.
#include "database/qkey_card.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "test_folder.h"

namespace zel::qkeys {
namespace {

CardSystem system(const char* name, int key, std::vector<CardChild> children = {}) {
  return CardSystem{CardItem::Trunk, name, key, false, std::move(children)};
}
CardChild dep(const char* name, int key) { return CardChild{CardItem::Department, name, key, false}; }
CardChild site(const char* name, int key) { return CardChild{CardItem::Site, name, key, false}; }
CardList list(int number, const char* name, int key, std::vector<CardSystem> systems) {
  return CardList{number, name, "f_00000" + std::to_string(number) + ".hpd", key, false, false,
                  std::move(systems)};
}

TEST(QkeyCard, KeysUsedTwiceAreFoundInTheirOwnScopeOnly) {
  const struct {
    const char* what;
    std::vector<CardList> lists;
    std::vector<std::string> sentences;
  } cases[] = {
      {"two lists on one key, no key twice elsewhere",
       {list(1, "A", 1, {system("S", 1)}), list(2, "B", 1, {system("S", 1)}),
        list(3, "C", -1, {}), list(4, "D", -1, {})},
       {"Favorites list quick key 1 is used by \"A\" and \"B\"."}},
      {"two systems of one list; the same key in another list is no fault",
       {list(1, "A", 1, {system("P", 4), system("Q", 4), system("R", -1), system("T", -1)}),
        list(2, "B", 2, {system("P", 4)})},
       {"System quick key 4 is used by \"P\" and \"Q\" in list \"A\"."}},
      {"a department and a site of one system; three on one key",
       {list(1, "A", 1,
             {system("P", 1, {dep("Fire", 3), site("North", 3), dep("EMS", 5)}),
              system("Q", 2, {dep("Fire", 3), dep("A", 0), dep("B", 0), dep("C", 0), dep("D", -1),
                              dep("E", -1)})})},
       {"Department quick key 3 is used by \"Fire\" and \"North\" in system \"P\" of list \"A\".",
        "Department quick key 0 is used by \"A\", \"B\" and \"C\" in system \"Q\" of list \"A\"."}},
  };
  for (const auto& c : cases) {
    CardOverview overview;
    overview.lists = c.lists;
    markDuplicates(overview);
    std::vector<std::string> sentences;
    for (const CardDuplicate& d : overview.duplicates) sentences.push_back(d.sentence());
    EXPECT_EQ(sentences, c.sentences) << c.what;
  }
}

TEST(QkeyCard, RowsCarryTheirKeysShortcutsAndMarksAndSortByKeys) {
  CardOverview overview;
  overview.lists = {list(1, "A", 3, {system("P", 2, {dep("Fire", 1), dep("Police", -1)})}),
                    list(2, "B", -1, {system("Q", 0)}),
                    list(3, "C", 3, {system("R", 0, {site("Hill", 7), site("Dale", 7)})})};
  markDuplicates(overview);
  std::vector<CardRow> rows = overviewRows(overview);
  std::vector<std::string> lines;
  for (const CardRow& r : rows)
    lines.push_back(r.name + "|" + std::to_string(r.list) + "|" + r.flKey + "|" + r.sysKey + "|" +
                    r.depKey + "|" + r.shortcut + "|" + (r.twice.empty() ? "" : r.twice.back()));
  EXPECT_EQ(lines, (std::vector<std::string>{
                       "[TRUNK] P|1|FL:3|2||FL 3 > SYS 2|FL",
                       "[DEP] Fire|1|FL:3|2|1|FL 3 > SYS 2 > DEP 1|",
                       "[DEP] Police|1|FL:3|2|Off||",
                       "[TRUNK] Q|2|FL:Off|0|||",
                       "[TRUNK] R|3|FL:3|0||FL 3 > SYS 0|FL",
                       "[SITE] Hill|3|FL:3|0|7|FL 3 > SYS 0 > DEP 7|DEP",
                       "[SITE] Dale|3|FL:3|0|7|FL 3 > SYS 0 > DEP 7|DEP",
                   }));
  sortByKeys(rows);
  std::vector<std::string> sorted;
  for (const CardRow& r : rows) sorted.push_back(r.name);
  EXPECT_EQ(sorted, (std::vector<std::string>{"[TRUNK] R", "[SITE] Hill", "[SITE] Dale", "[TRUNK] P",
                                              "[DEP] Fire", "[DEP] Police", "[TRUNK] Q"}));
}

void writeFile(const std::string& path, const std::string& text) {
  std::filesystem::create_directories(std::filesystem::path(path).parent_path());
  std::ofstream(path, std::ios::binary) << text;
}

TEST(QkeyCard, HtmlPageOfACardFolder) {
  TestFolder dir;
  const std::string root = dir.file("BCDx36HP");
  std::string flags;
  for (int i = 0; i < 110; ++i) flags += "On\t";
  writeFile(root + "/favorites_lists/f_list.cfg",
            "TargetModel\tBCDx36HP\r\nFormatVersion\t1.00\r\n"
            "F-List\tAlpha\tf_000001.hpd\tOff\tOn\t1\tOff\t" + flags + "\r\n"
            "F-List\tGone\tf_000009.hpd\tOff\tOn\tOff\tOff\t" + flags + "\r\n");
  writeFile(root + "/favorites_lists/f_000001.hpd",
            "TargetModel\tBCDx36HP\r\nFormatVersion\t1.00\r\n"
            "Conventional\t\t\tCounty & City\tOff\t\tConventional\t2\tOff\t0\tOff\tOff\t400\tAuto\t8\r\n"
            "C-Group\t\t\tFire\tOff\t41.316497\t-81.744117\t3.5\tCircle\t1\r\n"
            "C-Freq\t\t\tDispatch\tOff\t154415000\tFM\t\t3\tOff\t2\t0\tOff\tAuto\tOff\tOn\tOff\tOff\r\n"
            "C-Group\t\t\tPolice <North>\tOff\t41.316497\t-81.744117\t3.5\tCircle\t1\r\n");

  const CardOverview overview = readCardOverview(root);
  ASSERT_TRUE(overview.ok) << overview.error;
  ASSERT_EQ(overview.lists.size(), 2u);
  EXPECT_TRUE(overview.lists[1].missing);
  EXPECT_EQ(overview.duplicates.size(), 1u);

  const std::string font = "<font face=\"Arial,Helvetica\" size=2";
  // One cell: its alignment, the font's further attributes and ">", its text.
  auto cell = [&](const char* align, const std::string& attributes, const std::string& text) {
    return std::string("<td nowrap align=") + align + font + attributes + text +
           "&nbsp;</font></td>\n";
  };
  auto row = [&](const char* colour, const char* name, const std::string& depKey,
                 const char* shortcut) {
    return std::string("<tr bgcolor=\"#") + colour + "\">\n" + cell("left>", ">", name) +
           cell("center>", ">", "FL:1") + cell("center>", ">", "2") + cell("center>", depKey, "") +
           cell("left>", ">", shortcut) + "</tr>\n";
  };
  std::string expected =
      "<html>\n<head>\n<title>Quickkey overview generated by ZEL536:</title>\n</head>\n"
      "<body bgcolor=\"#FFFFFF\">\n"
      "<font face=\"Arial,Helvetica\" size=3><b>Quickkey overview generated by ZEL536:</b></font>"
      "<br><br>\n"
      "<table border=0 cellspacing=0 cellpadding=2>\n<!-- Grid header -->\n<tr>\n";
  for (const char* heading :
       {"Item", "Fl Quickkey", "System Quickkey", "Department Quickkey", "Shortcut"})
    expected +=
        cell("left bgcolor=\"#404070\">", " color=\"#FFFFFF\"><b>", heading + std::string("</b>"));
  const std::string twice = " color=\"#C00000\"><b>1 (twice)</b>";
  expected += "</tr>\n" + row("FFFFFF", "[CONV] County &amp; City", ">", "FL 1 &gt; SYS 2") +
              row("EEEEFF", "[DEP] Fire", twice, "FL 1 &gt; SYS 2 &gt; DEP 1") +
              row("FFFFFF", "[DEP] Police &lt;North&gt;", twice, "FL 1 &gt; SYS 2 &gt; DEP 1") +
              "</table>\n</body>\n</html>\n";
  EXPECT_EQ(overviewHtml(overviewRows(overview)), expected);
}

TEST(QkeyCard, ACardWithoutConfigurationSaysWhichFileIsMissing) {
  TestFolder dir;
  const CardOverview overview = readCardOverview(dir.path());
  EXPECT_FALSE(overview.ok);
  EXPECT_EQ(overview.error, "Cannot read " + dir.path() + "/favorites_lists/f_list.cfg.");
}

}  // namespace
}  // namespace zel::qkeys
