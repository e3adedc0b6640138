#include "core/session.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <tuple>

#include "core/keys.h"
#include "core/memory_ports.h"
#include "core/new_commands.h"
#include "core/tree_operations.h"
#include "test_folder.h"

namespace zel {
namespace {

// Remembers the order of every write.
class OrderedStore : public MemorySettingsStore {
 public:
  void write(std::string_view section, std::string_view key, std::string_view value) override {
    order.push_back(std::string(section) + "/" + std::string(key));
    MemorySettingsStore::write(section, key, value);
  }
  std::vector<std::string> order;
};

class HostLog : public SelectionHost {
 public:
  void storePane(std::string_view key, std::string_view) override {
    calls.push_back("store " + std::string(key));
  }
  void storeGrid(std::string_view key) override { calls.push_back("grid> " + std::string(key)); }
  void showPane(std::string_view key, std::string_view kind) override {
    calls.push_back("show " + std::string(kind) + " " + std::string(key));
  }
  void loadGrid(std::string_view key) override { calls.push_back("grid< " + std::string(key)); }
  std::vector<std::string> calls;
};

struct SessionFixture : ::testing::Test {
  TestFolder dir;
  OrderedStore store;
  RecordingFeedback feedback;
  ManualClock clock;
  std::string dataFolder() { return dir.file("My Scanner Data Files"); }
};

TEST_F(SessionFixture, StartMakesFoldersClampsAndReminds) {
  Settings(store).put("com", "comport", "150");
  Settings(store).put("com", "baudrate", "1234");
  Session s(store, feedback, clock, dataFolder());
  std::filesystem::create_directories(dataFolder() + "/temp");
  std::ofstream(dataFolder() + "/temp/GRP-999-001-001.tmp") << "1,old";
  s.start();
  EXPECT_EQ(std::tie(s.settings().comport, s.settings().baudrate), std::make_tuple(99, 57600));
  for (const auto& sub : {"temp", "Waterfall", "ServiceSearch", "hpd files"}) {
    EXPECT_TRUE(std::filesystem::is_directory(dataFolder() + "/" + sub)) << sub;
  }
  EXPECT_TRUE(std::filesystem::is_directory(dir.file("My Scanner Recordings")));
  EXPECT_FALSE(std::filesystem::exists(dataFolder() + "/temp/GRP-999-001-001.tmp"));
  EXPECT_EQ(feedback.messages,
            std::vector<std::string>{"Please backup your data and store in a safe place!"});
  EXPECT_EQ(
      std::make_tuple(s.settings().option(0), s.settings().defRange, s.settings().browserLeft),
      std::make_tuple(std::string("test"), std::string("1"), 3200));
  EXPECT_TRUE(s.document().x36Mode);
  Session patrol(store, feedback, clock, dataFolder(), "ZEL_PATROL");
  patrol.start(false);
  EXPECT_FALSE(patrol.document().x36Mode);
}

TEST_F(SessionFixture, SelectionSavesWhatIsShownThenShowsTheNew) {
  Session s(store, feedback, clock, dataFolder());
  s.start(false);
  Document& doc = s.document();
  newSystem(doc, "New P25 Trunk System", feedback);
  newSite(doc, 1, feedback);
  newSystem(doc, "New Conventional System", feedback);
  HostLog host;
  EXPECT_EQ(s.select("GRP-999-001-001", host), SelectionCase::First);
  EXPECT_EQ(host.calls,
            (std::vector<std::string>{"show GROUP GRP-999-001-001", "grid< GRP-999-001-001"}));
  host.calls.clear();
  EXPECT_EQ(s.select("SIT-001-001", host), SelectionCase::SameSystemSite);
  EXPECT_EQ(host.calls, (std::vector<std::string>{"store GRP-999-001-001", "grid> GRP-999-001-001",
                                                  "show SITE SIT-001-001"}));
  EXPECT_EQ(s.select("SYS-001", host), SelectionCase::SameSystemItself);
  EXPECT_EQ(s.select("GRP-999-001-001", host), SelectionCase::SameSystemGroup);
  EXPECT_EQ(s.select("GRP-999-002-001", host), SelectionCase::NewSystem);
  EXPECT_EQ(s.selectedSystem(), 2);
}

TEST_F(SessionFixture, UnsavedCountAndTitle) {
  Session s(store, feedback, clock, dataFolder());
  s.start(false);
  Document& doc = s.document();
  newSystem(doc, "New Conventional System", feedback);
  newSystem(doc, "New Conventional System", feedback, 3);
  doc.files.set(3, OpenFileTable::Loaded, "1");
  doc.files.set(3, OpenFileTable::Path, "/cards/f_000003.hpd");
  EXPECT_EQ(s.unsavedSystems(), 1);
  EXPECT_EQ(s.unsavedText(), "Unsaved Systems:1");
  EXPECT_EQ(s.windowTitle("GRP-999-002-001"), "ZEL536 - file: /cards/f_000003.hpd: 3");
  EXPECT_EQ(s.windowTitle("SYS-001"), "ZEL536 - Unsaved HPD systems: 0");
  s.setActiveProfile("home");
  EXPECT_EQ(s.windowTitle(""), "ZEL536 - Profile: home");
}

TEST_F(SessionFixture, ShutdownAsksOnlyWhenChangedAndWritesInOrder) {
  {
    Session unchanged(store, feedback, clock, dir.file("unchanged"));
    unchanged.start(false);
    EXPECT_TRUE(unchanged.shutdown());
    EXPECT_TRUE(feedback.questions.empty());
  }
  Session s(store, feedback, clock, dataFolder());
  s.start(false);
  newSystem(s.document(), "New Conventional System", feedback);
  s.pages().append("GRP-999-001-001", "1,154.000000");
  feedback.answers = {Answer::No, Answer::Cancel, Answer::Yes};
  EXPECT_FALSE(s.shutdown());
  EXPECT_FALSE(s.shutdown());
  EXPECT_EQ(feedback.questions[0],
            "Warning|Changes are not saved yet.\nIf not saved, data is lost!\nContinue without "
            "saving ?");
  store.order.clear();
  s.settings().comport = 4;
  EXPECT_TRUE(s.shutdown());
  ASSERT_GE(store.order.size(), 10u);
  EXPECT_EQ((std::vector<std::string>{store.order.begin(), store.order.begin() + 4}),
            (std::vector<std::string>{"com/comport", "com/baudrate", "/checkupdates", "/wleft"}));
  EXPECT_EQ(store.order[8], "gps/def_lat");
  auto pos = [&](const std::string& k) {
    return std::find(store.order.begin(), store.order.end(), k) - store.order.begin();
  };
  EXPECT_LT(pos("gps/def_ena3"), pos("/multihpd"));
  EXPECT_LT(pos("/hp2model"), pos("/treesort0"));
  EXPECT_LT(pos("/treesort3"), pos("/browser_left"));
  EXPECT_LT(pos("/browser_left"), pos("options/optie0"));
  EXPECT_EQ(Settings(store).get("com", "comport", "1x"), "4");
  EXPECT_FALSE(s.pages().exists("GRP-999-001-001"));
}

}  // namespace
}  // namespace zel
