// The card's view edits (kept in memory until written), the Service Search step, the
// "Overwrite files with same name" option, and the document steps: the order of the
// refusals, the question before an overwrite, and lists read beside open files.
#include <gtest/gtest.h>

#include <filesystem>
#include <functional>

#include "card_tree_support.h"
#include "core/memory_ports.h"
#include "core/new_commands.h"
#include "test_folder.h"
#include "transfer/card_transfer.h"
#include "transfer/favorites_card.h"
#include "transfer/service_search.h"

namespace zel::transfer {
namespace {

namespace fs = std::filesystem;
using testing::entryLine;
using testing::readText;
using testing::writeText;

const std::string kHead = "TargetModel\tBCDx36HP\r\nFormatVersion\t1.00\r\n";
const std::string kHpd = kHead + "Conventional\t\t\tX\tOff\t\tConventional\r\n";

class CardView : public ::testing::Test {
 protected:
  void SetUp() override {
    testing::writeMarker(t.path(), "BCDx36HP", "Scanner\tBCD536HP\tS\t1.0");
    writeText(fav + "/f_000001.hpd", kHpd);
    writeText(fav + "/f_000002.hpd", kHpd);
    config = kHead + entryLine("F-List", "One", "f_000001.hpd") +
             entryLine("F-List", "Two", "f_000002.hpd");
    writeText(fav + "/f_list.cfg", config);
    ASSERT_TRUE(card.load().ok);
  }
  static CardState detectedAt(const TestFolder& t) {
    CardState s;
    s.scannerRoot = t.path() + "/BCDx36HP";
    s.lamp = kLampGreen;
    return s;
  }
  TestFolder t;
  std::string fav = t.path() + "/BCDx36HP/favorites_lists";
  std::string config;
  CardState state = detectedAt(t);
  FavoritesCard card{state};
};

TEST_F(CardView, EditsStayInMemoryUntilTheViewIsWritten) {
  struct Step {
    const char* what;
    std::function<bool(FavoritesCard&)> run;
    std::function<bool(const FavoritesCard&)> check;
  };
  const Step steps[] = {
      {"quick keys assigned",
       [](FavoritesCard& c) {
         c.applyQuickKeys(QuickKeyCommand::Auto);
         return true;
       },
       [](const FavoritesCard& c) {
         return c.rows()[0].quickKey == "0" && c.rows()[1].quickKey == "1";
       }},
      {"moved down", [](FavoritesCard& c) { return c.moveDown(0); },
       [](const FavoritesCard& c) { return c.rows()[0].name == "Two"; }},
      {"arranged back", [](FavoritesCard& c) { return c.arrangeRows({1}); },
       [](const FavoritesCard& c) { return c.rows()[0].name == "One"; }},
      {"renamed with a comma",
       [](FavoritesCard& c) {
         FavoritesRow r = c.rows()[1];
         r.name = "Fire, EMS";
         r.monitor = "Off";
         return c.editRow(1, r);
       },
       [](const FavoritesCard& c) {
         return c.rows()[1].name == "Fire; EMS" && c.rows()[1].monitor == "Off";
       }},
      {"flags on for one row",
       [](FavoritesCard& c) {
         c.enableAllKeys({0});
         return true;
       },
       [](const FavoritesCard& c) {
         return c.rows()[0].startupKeys == "1111111111" &&
                c.rows()[0].systemKeys == std::string(100, '1') &&
                c.rows()[1].startupKeys != "1111111111";
       }},
  };
  for (const Step& s : steps) {
    ASSERT_TRUE(s.run(card)) << s.what;
    EXPECT_TRUE(s.check(card)) << s.what;
    EXPECT_TRUE(card.viewChanged()) << s.what;
    EXPECT_EQ(readText(fav + "/f_list.cfg"), config) << s.what;
  }
  ASSERT_TRUE(card.writeConfig().ok);
  EXPECT_FALSE(card.viewChanged());
  EXPECT_EQ(readText(fav + "/f_list.bac"), config);
  FavoritesCard again(state);
  ASSERT_TRUE(again.load().ok);
  ASSERT_EQ(again.rows().size(), 2u);
  EXPECT_EQ(again.rows()[1].name, "Fire; EMS");
  EXPECT_EQ(again.rows()[1].monitor, "Off");
  EXPECT_EQ(again.rows()[0].quickKey, "0");
  EXPECT_EQ(again.rows()[0].startupKeys, "1111111111");
}

TEST_F(CardView, RefusedEditsChangeNothing) {
  EXPECT_FALSE(card.moveDown(1));  // the last row
  EXPECT_FALSE(card.moveDown(-1));
  EXPECT_FALSE(card.arrangeRows({0, 0}));
  EXPECT_FALSE(card.arrangeRows({2}));
  EXPECT_FALSE(card.editRow(5, FavoritesRow{}));
  EXPECT_TRUE(card.arrangeRows({0, 1}));  // the order it has already
  EXPECT_FALSE(card.viewChanged());
}

TEST_F(CardView, AStepThatWritesTheViewTakesPendingEditsAlong) {
  card.applyQuickKeys(QuickKeyCommand::Auto);
  ASSERT_TRUE(card.deleteList(2).ok);
  EXPECT_FALSE(card.viewChanged());
  EXPECT_NE(readText(fav + "/f_list.cfg").find("One\tf_000001.hpd\tOff\tOn\t0\t"),
            std::string::npos);
}

TEST_F(CardView, ServiceSearchGoesToTheHomePatrolNamesOnce) {
  const auto text = serviceSearchText("", 0);
  ASSERT_TRUE(text.has_value());
  auto out = card.addServiceSearch(*text, "CB");
  ASSERT_TRUE(out.status.ok) << out.status.message;
  EXPECT_EQ(out.number, 3);
  EXPECT_EQ(out.file, "favorites_000003.hpd");
  EXPECT_EQ(readText(fav + "/favorites_000003.hpd"), *text);
  const std::string hp = readText(fav + "/favorites_lists.config");
  EXPECT_NE(hp.find("F-List\tCB\tfavorites_000003.hpd\t"), std::string::npos);
  EXPECT_NE(hp.find("F-List\tOne\tf_000001.hpd\t"), std::string::npos);  // the whole view
  EXPECT_EQ(readText(fav + "/f_list.cfg"), config);
  EXPECT_TRUE(card.viewChanged());
  EXPECT_EQ(card.rows().back().key, "a-000003");

  // A second list refreshes the HomePatrol backup before that file is replaced.
  auto second = card.addServiceSearch(*serviceSearchText("", 1), "FRS");
  ASSERT_TRUE(second.status.ok);
  EXPECT_EQ(second.file, "favorites_000004.hpd");
  EXPECT_EQ(readText(fav + "/favorites_lists.backup"), hp);
}

TEST(ServiceSearchText, AFileInTheFolderWinsOverTheListBuiltIn) {
  TestFolder t;
  const auto& lists = serviceSearchLists();
  writeText(t.file(lists[3].fileName), "mine");
  EXPECT_EQ(serviceSearchText(t.path(), 3).value_or(""), "mine");
  EXPECT_EQ(serviceSearchText(t.path(), 2).value_or(""), lists[2].text);
  EXPECT_FALSE(serviceSearchText(t.path(), 8).has_value());  // "Public Safety"
  EXPECT_FALSE(serviceSearchText(t.path(), -1).has_value());
}

// An orphan's number is taken unless the user chose to overwrite: by default a new list, a
// recovered one or a Service Search list passes over it, in either family's naming.
TEST_F(CardView, FilesOfTheSameNameAreKeptUnlessOverwriteIsChosen) {
  writeText(fav + "/f_000003.hpd", "an orphan");
  writeText(fav + "/favorites_000004.hpd", "another");
  writeText(fav + "/f_000009.hpd", "to recover");
  auto out = card.saveList(kHpd, "New", std::nullopt, false);
  ASSERT_TRUE(out.status.ok);
  EXPECT_EQ(out.file, "f_000005.hpd");
  out = card.recoverOrphan("f_000009.hpd");
  ASSERT_TRUE(out.status.ok) << out.status.message;
  EXPECT_EQ(out.file, "f_000006.hpd");
  EXPECT_EQ(readText(fav + "/f_000003.hpd"), "an orphan");
  EXPECT_EQ(readText(fav + "/favorites_000004.hpd"), "another");
  card.setOverwriteFiles(true);
  out = card.saveList(kHpd, "Over", std::nullopt, false);
  ASSERT_TRUE(out.status.ok);
  EXPECT_EQ(out.file, "f_000003.hpd");
  EXPECT_EQ(readText(fav + "/f_000003.bac"), "an orphan");
}

class DocumentSteps : public CardView {
 protected:
  RecordingFeedback feedback;
  Document doc;
  PageFiles pages{t.file("pages")};
  void addSystem() { ASSERT_TRUE(newSystem(doc, "New Conventional System", feedback).ok); }
};

TEST_F(DocumentSteps, RefusalsComeInTheirOrder) {
  struct Case {
    bool withSystem;
    std::optional<int> overwrite;
    const char* name;
    const char* message;
  } cases[] = {
      {false, 9, "", "No systems to upload"},
      {true, 9, "", "Please select a favorite file."},
      {true, std::nullopt, "", "Please enter a name for the new Favorite List"},
  };
  for (const Case& c : cases) {
    if (c.withSystem && doc.data.empty()) addSystem();
    SaveListRequest request{c.name, c.overwrite, false};
    auto out = saveDocumentToCard(card, doc, pages, request, feedback);
    EXPECT_FALSE(out.status.ok);
    ASSERT_FALSE(feedback.messages.empty());
    EXPECT_EQ(feedback.messages.back(), c.message);
  }
  EXPECT_EQ(readText(fav + "/f_list.cfg"), config);
  EXPECT_TRUE(feedback.questions.empty());
}

TEST_F(DocumentSteps, OverwriteAsksAndANoWritesNothing) {
  addSystem();
  feedback.answers = {Answer::No, Answer::Yes};
  const SaveListRequest request{"", 2, false};
  auto out = saveDocumentToCard(card, doc, pages, request, feedback);
  EXPECT_FALSE(out.status.ok);
  EXPECT_TRUE(out.status.message.empty());
  ASSERT_EQ(feedback.questions.size(), 1u);
  EXPECT_EQ(feedback.questions[0],
            "|Warning, data in existing Favorite List will be lost, Continue?");
  EXPECT_EQ(readText(fav + "/f_000002.hpd"), kHpd);
  EXPECT_FALSE(fs::exists(fav + "/f_000002.bac"));

  out = saveDocumentToCard(card, doc, pages, request, feedback);
  ASSERT_TRUE(out.status.ok) << out.status.message;
  EXPECT_EQ(out.file, "f_000002.hpd");
  EXPECT_EQ(readText(fav + "/f_000002.bac"), kHpd);
  EXPECT_EQ(feedback.progresses.back(), "Save finished.");
}

TEST_F(DocumentSteps, ListsAreReadBesideTheFilesAlreadyOpen) {
  doc.files.set(1, OpenFileTable::Loaded, "1");  // a file the user has open
  auto out = readCardLists(card, {2, 1}, doc, pages, feedback);
  ASSERT_TRUE(out.status.ok) << out.status.message;
  EXPECT_EQ(out.systems, 2);
  EXPECT_EQ(doc.files.get(2, OpenFileTable::ListName), "Two");
  EXPECT_EQ(doc.files.get(3, OpenFileTable::ListName), "One");
  EXPECT_EQ(feedback.progresses.front(), "Wait reading data: Two");
  EXPECT_EQ(readCardLists(card, {}, doc, pages, feedback).status.message,
            "Error, no files selected for upload.");
}

}  // namespace
}  // namespace zel::transfer
