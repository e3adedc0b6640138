#include "transfer/favorites_card.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "card_tree_support.h"
#include "core/text.h"
#include "test_folder.h"

namespace zel::transfer {
namespace {

namespace fs = std::filesystem;
using testing::entryLine;
using testing::readText;
using testing::snapshot;
using testing::writeText;

const std::string kHead = "TargetModel\tBCDx36HP\r\nFormatVersion\t1.00\r\n";
const std::string kHpd = kHead + "Conventional\t\t\tX\tOff\t\tConventional\r\n";

class CardFixture : public ::testing::Test {
 protected:
  void SetUp() override {
    testing::writeMarker(t.path(), "BCDx36HP", "Scanner\tBCD536HP\tS\t1.0");
    fav = t.path() + "/BCDx36HP/favorites_lists";
    state.scannerRoot = t.path() + "/BCDx36HP";
    state.lamp = kLampGreen;
  }
  // Lists 1 and 3 named by the configuration; their files on the card.
  FavoritesCard cardWithGap() {
    writeText(fav + "/f_000001.hpd", kHpd + "one\r\n");
    writeText(fav + "/f_000003.hpd", kHpd + "three\r\n");
    writeText(fav + "/f_list.cfg", kHead + entryLine("F-List", "One", "f_000001.hpd") +
                                       entryLine("F-List", "Three", "f_000003.hpd"));
    FavoritesCard card(state);
    EXPECT_TRUE(card.load().ok);
    return card;
  }
  TestFolder t;
  std::string fav;
  CardState state;
};

TEST_F(CardFixture, NewListTakesTheLowestFreeNumberAndACopiedInNameIsWrappedOnce) {
  auto card = cardWithGap();
  EXPECT_EQ(card.lowestFreeNumber(), 2);
  auto out = card.saveList(kHpd, "Two", std::nullopt, false);
  ASSERT_TRUE(out.status.ok) << out.status.message;
  EXPECT_EQ(out.file, "f_000002.hpd");
  EXPECT_EQ(readText(fav + "/f_000002.hpd"), kHpd);
  EXPECT_EQ(card.lowestFreeNumber(), 4);
  FavoritesCard again(state);
  again.load();
  ASSERT_EQ(again.rows().size(), 3u);
  EXPECT_EQ(again.rows()[2].name, "Two");
  EXPECT_EQ(again.rows()[2].systemKeys, std::string(100, '1'));
  // A copied-in name is wrapped once.
  card.saveList(kHpd, "Lake", std::nullopt, true);
  card.saveList(kHpd, "[FDone]", std::nullopt, true);
  EXPECT_EQ(card.rows()[3].name, "[FLake]");
  EXPECT_EQ(card.rows()[4].name, "[FDone]");
}

TEST_F(CardFixture, DeleteKeepsTheListAsBacAndDropsTheRow) {
  auto card = cardWithGap();
  const std::string cfg = readText(fav + "/f_list.cfg");
  ASSERT_TRUE(card.deleteList(1).ok);
  EXPECT_FALSE(fs::exists(fav + "/f_000001.hpd"));
  EXPECT_EQ(readText(fav + "/f_000001.bac"), kHpd + "one\r\n");
  EXPECT_EQ(readText(fav + "/f_list.bac"), cfg);
  FavoritesCard again(state);
  again.load();
  ASSERT_EQ(again.rows().size(), 1u);
  EXPECT_EQ(again.rows()[0].name, "Three");
  EXPECT_FALSE(card.deleteList(7).ok);
}

// The first overwrite of a list keeps the original as ".bac"; a second one in the same
// session, and the delete after it, leave that backup as it was.
TEST_F(CardFixture, OverwriteKeepsTheNumberAndTheOriginalAsBac) {
  auto card = cardWithGap();
  auto out = card.saveList(kHpd + "first\r\n", "", 3, false);
  ASSERT_TRUE(out.status.ok);
  EXPECT_EQ(out.number, 3);
  ASSERT_TRUE(card.saveList(kHpd + "second\r\n", "", 3, false).status.ok);
  EXPECT_EQ(readText(fav + "/f_000003.hpd"), kHpd + "second\r\n");
  EXPECT_EQ(readText(fav + "/f_000003.bac"), kHpd + "three\r\n");
  EXPECT_EQ(card.rows()[1].name, "Three");
  EXPECT_FALSE(card.saveList(kHpd, "x", 9, false).status.ok);
  ASSERT_TRUE(card.deleteList(3).ok);
  EXPECT_EQ(readText(fav + "/f_000003.bac"), kHpd + "three\r\n");
}

TEST_F(CardFixture, ReorderPutsNamedListsFirst) {
  writeText(fav + "/f_list.cfg", kHead + entryLine("F-List", "A", "f_000001.hpd") +
                                     entryLine("F-List", "B", "f_000002.hpd") +
                                     entryLine("F-List", "C", "f_000003.hpd"));
  FavoritesCard card(state);
  card.load();
  ASSERT_TRUE(card.reorder({3, 1}).ok);
  FavoritesCard again(state);
  again.load();
  ASSERT_EQ(again.rows().size(), 3u);
  EXPECT_EQ(again.rows()[0].name, "C");
  EXPECT_EQ(again.rows()[1].name, "A");
  EXPECT_EQ(again.rows()[2].name, "B");
  const auto snap = snapshot(t.path());
  EXPECT_FALSE(card.reorder({1, 1}).ok);
  EXPECT_FALSE(card.reorder({9}).ok);
  EXPECT_EQ(snapshot(t.path()), snap);
}

TEST_F(CardFixture, QuickKeyCommands) {
  writeText(fav + "/f_list.cfg", kHead +
                                     replaceAll(entryLine("F-List", "A", "f_000001.hpd"),
                                                "\tOn\tOff\tOff\t", "\tOn\t0\tOff\t") +
                                     entryLine("F-List", "B", "f_000002.hpd") +
                                     entryLine("F-List", "C", "f_000003.hpd"));
  FavoritesCard card(state);
  card.load();
  ASSERT_EQ(card.rows()[0].quickKey, "0");
  ASSERT_TRUE(card.quickKeys(QuickKeyCommand::Auto).ok);
  EXPECT_EQ(card.rows()[0].quickKey, "0");
  EXPECT_EQ(card.rows()[1].quickKey, "1");
  EXPECT_EQ(card.rows()[2].quickKey, "2");
  ASSERT_TRUE(card.quickKeys(QuickKeyCommand::SystemsOn).ok);
  EXPECT_EQ(card.rows()[1].systemKeys, std::string(100, '1'));
  EXPECT_NE(card.rows()[1].startupKeys, "1111111111");
  ASSERT_TRUE(card.quickKeys(QuickKeyCommand::AllOn).ok);
  EXPECT_EQ(card.rows()[1].startupKeys, "1111111111");
  ASSERT_TRUE(card.quickKeys(QuickKeyCommand::Clear).ok);
  FavoritesCard again(state);
  again.load();
  for (const auto& r : again.rows()) EXPECT_EQ(r.quickKey, "Off");
}

TEST_F(CardFixture, OrphansAreFilesNoRowNames) {
  auto card = cardWithGap();
  writeText(fav + "/f_000009.hpd", kHpd);
  writeText(fav + "/favorites_000004.hpd", kHpd);
  writeText(fav + "/notes.hpd", kHpd);
  writeText(fav + "/f_000001.bac", kHpd);
  EXPECT_EQ(card.orphans(), (std::vector<std::string>{"f_000009.hpd", "favorites_000004.hpd"}));
  auto out = card.recoverOrphan("f_000009.hpd");
  ASSERT_TRUE(out.status.ok);
  EXPECT_EQ(out.file, "f_000002.hpd");
  EXPECT_EQ(card.rows().back().name, "Orphan f_000009.hpd");
  ASSERT_TRUE(card.deleteOrphan("f_000009.hpd").ok);
  EXPECT_FALSE(fs::exists(fav + "/f_000009.hpd"));
  EXPECT_FALSE(card.deleteOrphan("f_000001.hpd").ok);  // a listed file is not an orphan
  EXPECT_TRUE(fs::exists(fav + "/f_000001.hpd"));
}

// Only a file of the list naming that no row names can be recovered; everything else of the
// folder and of the card is refused and the configuration stays as it was.
TEST_F(CardFixture, RecoverTakesOnlyTrueOrphans) {
  auto card = cardWithGap();
  writeText(fav + "/f_000001.bac", kHpd);
  const std::string cfg = readText(fav + "/f_list.cfg");
  for (const char* file : {"f_000001.hpd", "f_list.cfg", "f_list.bac", "f_000001.bac",
                           "../scanner.inf", "scanner.inf", "f_.hpd"}) {
    auto out = card.recoverOrphan(file);
    EXPECT_FALSE(out.status.ok) << file;
    EXPECT_EQ(card.rows().size(), 2u) << file;
  }
  EXPECT_EQ(readText(fav + "/f_list.cfg"), cfg);
}

// A name is one TAB-separated field of a CR LF line: whatever the name cleaner drops never
// reaches the file, so the list stays named and the next write cannot take its number.
TEST_F(CardFixture, NamesWithLineBreaksKeepTheirListNamed) {
  const struct {
    const char* typed;
    const char* kept;
  } cases[] = {{"Fire\tDispatch", "FireDispatch"},
               {"Fire\r\nDispatch", "FireDispatch"},
               {"Fire\rDispatch\n", "FireDispatch"},
               {"\t\r\n", "New system 3"}};
  for (const auto& c : cases) {
    fs::remove_all(fav);
    auto card = cardWithGap();
    auto out = card.saveList(kHpd, c.typed, std::nullopt, false);
    ASSERT_TRUE(out.status.ok) << out.status.message;
    card.editRow(0, [&] {
      FavoritesRow r = card.rows()[0];
      r.name = std::string("One\t") + c.typed;
      return r;
    }());
    ASSERT_TRUE(card.writeConfig().ok);
    FavoritesCard again(state);
    ASSERT_TRUE(again.load().ok);
    ASSERT_EQ(again.rows().size(), 3u) << c.typed;
    EXPECT_EQ(again.rows()[2].name, c.kept);
    EXPECT_EQ(again.rows()[2].file, "f_000002.hpd");
    EXPECT_EQ(again.rows()[0].file, "f_000001.hpd");
    EXPECT_TRUE(again.orphans().empty());
    EXPECT_EQ(again.lowestFreeNumber(), 4);
  }
}

// A step that fails at any point puts every file back: the file the step writes is blocked
// (a read-only file, or a folder where a new file would go), so that write is refused.
TEST_F(CardFixture, FailedWriteLeavesTheCardByteForByte) {
  struct Case {
    const char* blocked;  // the file whose write fails
    const char* step;
  } cases[] = {{"f_list.cfg", "save"},     {"f_000002.hpd", "save"},
               {"f_list.bac", "save"},     {"f_list.cfg", "delete"},
               {"f_000001.bac", "delete"}, {"f_list.cfg", "qkeys"}};
  for (const auto& c : cases) {
    TestFolder fresh;
    testing::writeMarker(fresh.path(), "BCDx36HP", "Scanner\tBCD536HP\tS\t1.0");
    const std::string f = fresh.path() + "/BCDx36HP/favorites_lists";
    writeText(f + "/f_000001.hpd", kHpd);
    writeText(f + "/f_list.bac", "old backup");
    writeText(f + "/f_list.cfg", kHead + entryLine("F-List", "One", "f_000001.hpd"));
    CardState s = state;
    s.scannerRoot = fresh.path() + "/BCDx36HP";
    FavoritesCard card(s);
    ASSERT_TRUE(card.load().ok);
    const auto before = snapshot(fresh.path());
    const std::string blocked = f + "/" + c.blocked;
    const bool existed = fs::exists(blocked);
    if (existed) {
      fs::permissions(blocked, fs::perms::owner_read | fs::perms::group_read);
    } else {
      fs::create_directories(blocked);
    }
    StepStatus st;
    if (std::string(c.step) == "save") st = card.saveList(kHpd, "Two", std::nullopt, false).status;
    if (std::string(c.step) == "delete") st = card.deleteList(1);
    if (std::string(c.step) == "qkeys") st = card.quickKeys(QuickKeyCommand::AllOn);
    EXPECT_FALSE(st.ok) << c.blocked;
    EXPECT_NE(st.message.find("the card was left as it was."), std::string::npos) << st.message;
    if (existed) {
      fs::permissions(blocked, fs::perms::owner_read | fs::perms::owner_write);
    } else {
      fs::remove(blocked);
    }
    EXPECT_EQ(snapshot(fresh.path()), before) << c.step << " " << c.blocked;
    EXPECT_EQ(card.rows().size(), 1u);
  }
}

TEST_F(CardFixture, CardWithoutConfigurationHasNoListsAndGetsOne) {
  FavoritesCard card(state);
  ASSERT_TRUE(card.load().ok);
  EXPECT_TRUE(card.rows().empty());
  ASSERT_TRUE(card.saveList(kHpd, "First", std::nullopt, false).status.ok);
  EXPECT_FALSE(fs::exists(fav + "/f_list.bac"));  // nothing to keep yet
  EXPECT_TRUE(startsWith(readText(fav + "/f_list.cfg"), kHead + "F-List\tFirst\tf_000001.hpd\t"));
  // The temporaries of a killed run are removed at the next load.
  writeText(fav + "/f_000002.hpd.zeltmp", "half a list");
  FavoritesCard again(state);
  ASSERT_TRUE(again.load().ok);
  EXPECT_FALSE(fs::exists(fav + "/f_000002.hpd.zeltmp"));
}

}  // namespace
}  // namespace zel::transfer
