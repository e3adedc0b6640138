// The full database library; listing and applying are proven by the window and realdata tests.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "core/text.h"
#include "database/db_near.h"
#include "database/hpdb_index.h"
#include "database/state_edit.h"
#include "database/state_file.h"
#include "formats/text_file.h"
#include "test_folder.h"

namespace zel::database {
namespace {

namespace fs = std::filesystem;

void write(const std::string& path, const std::string& text) {
  fs::create_directories(fs::path(path).parent_path());
  std::ofstream(path, std::ios::binary) << text;
}

TEST(HpdbIndex, CardLayoutsAreFoundWhateverTheCaseOfTheirNames) {
  struct Case {
    const char* index;  // made under the card root
    bool found;
    DbFamily family;
  };
  const Case cases[] = {
      {"BCDx36HP/HPDB/hpdb.cfg", true, DbFamily::Bcd},
      {"bcdx36hp/hpdb/HPDB.CFG", true, DbFamily::Bcd},
      {"HomePatrol/HPDB/hpdb.config", true, DbFamily::HomePatrol},
      {"Homepatrol/HPDB/HPDB.config", true, DbFamily::HomePatrol},
      {"BCDx36HP/HPDB/hpdb.config", false, DbFamily::Bcd},  // the other family's index name
      {"BCDx36HP/favorites_lists/hpdb.cfg", false, DbFamily::Bcd},
  };
  for (const Case& c : cases) {
    TestFolder dir;
    write(dir.file(c.index), "StateInfo\tStateId=1\tCountryId=1\tAlabama\tAL\r\n");
    const auto location = locateOnCard(dir.path());
    ASSERT_EQ(location.has_value(), c.found) << c.index;
    if (!c.found) continue;
    EXPECT_EQ(location->family, c.family) << c.index;
    EXPECT_TRUE(fs::equivalent(location->indexPath, dir.file(c.index))) << c.index;
  }
}

TEST(HpdbIndex, StateInfoLinesNameTheStates) {
  const std::string text =
      "TargetModel\tBCDx36HP\r\n"
      "StateInfo\tStateId=6\tCountryId=1\tCalifornia\tCA\r\n"
      "StateInfo\tStateId=\tCountryId=1\tBroken\r\n"    // no number
      "StateInfo\tStateId=x1\tCountryId=1\tBroken\r\n"  // not a number
      "StateInfo\t39\tCountryId=1\tOhio\tOH\n"          // the number without its name
      "CountyInfo\tCountyId=1\tStateId=1\tAutauga\r\n"
      "StateInfo\tStateId=101\r\n";  // no name: named by its number
  const std::vector<StateEntry> states = parseIndex(text, "/db");
  using Entry = std::tuple<std::string, int, std::string>;
  std::vector<Entry> got;
  for (const StateEntry& s : states) got.emplace_back(s.name, s.number, s.path);
  ASSERT_EQ(got, (std::vector<Entry>{{"California", 6, "/db/s_000006.hpd"},
                                     {"Ohio", 39, "/db/s_000039.hpd"},
                                     {"State 101", 101, "/db/s_000101.hpd"}}));
  const std::pair<const char*, int> lookups[] = {
      {"california", 6}, {"S_000039.HPD", 39}, {" Ohio ", 39}, {"Texas", -1}, {"", -1}};
  for (const auto& [text, number] : lookups) {
    const StateEntry* s = resolveState(states, text);
    EXPECT_EQ(s ? s->number : -1, number) << text;
  }
  EXPECT_EQ(stateListEntry(states[0], DbFamily::Bcd), "California : s_000006.hpd");
}

TEST(StateFile, LinesAreRecognisedByTheirFirstWord) {
  const std::pair<const char*, LineKind> cases[] = {
      {"C-Freq\tCFreqId=1", LineKind::CFreq}, {"C-Freq,x", LineKind::CFreq},
      {"C-Frequency\tx", LineKind::Other},    {"T-Freq\tTFreqId=0", LineKind::TFreq},
      {"TGID\tTid=1", LineKind::Tgid},        {"TGIDs\tx", LineKind::Other},
      {"Trunk\tTrunkId=1", LineKind::Trunk},  {"TrunkId=1", LineKind::Other},
      {"Site\tSiteId=1", LineKind::Site},     {"SiteId=1", LineKind::Other},
      {"FleetMap\tx", LineKind::FleetMap},    {"BandPlan_P25\tx", LineKind::BandPlanP25},
      {"DQKs_Status\t\tOn", LineKind::Other}, {"", LineKind::Other},
  };
  for (const auto& [line, kind] : cases) EXPECT_EQ(lineKindOf(line), kind) << line;
}

TEST(StateFile, RowsAreKeyedByTheirPlaceAndFoundByKey) {
  const StateFile file = StateFile::fromText(
      "TargetModel\tBCDx36HP\r\n"
      "Conventional\t\t\tA\r\n"
      "C-Group\t\t\tG1\r\n"
      "C-Freq\t1\r\n"
      "C-Group\t\t\tG2\r\n"
      "C-Freq\t2\r\n"
      "C-Freq\t3\r\n"
      "Trunk\t\t\tB\tOff\t\tP25Standard\r\n"
      "Site\t\t\tS\r\n"
      "T-Group\t\t\tG3\r\n"
      "TGID\t4");
  const char* keys[] = {"DUM-00001",
                        "DAT-0001-0000-0000-0002",
                        "DAT-0001-0001-0000-0003",
                        "DAT-0001-0001-0001-0004",
                        "DAT-0001-0002-0000-0005",
                        "DAT-0001-0002-0001-0006",
                        "DAT-0001-0002-0002-0007",
                        "DAT-0002-0000-0000-0008",
                        "DAT-0002-0000-0000-0009",
                        "DAT-0002-0001-0000-0010",
                        "DAT-0002-0001-0001-0011"};
  ASSERT_EQ(file.rows().size(), std::size(keys));
  for (std::size_t n = 0; n < std::size(keys); ++n) {
    EXPECT_EQ(rowKey(file.rows()[n]), keys[n]);
    EXPECT_EQ(file.findRow(keys[n]), static_cast<long>(n));
  }
  for (const char* bad : {"DAT-0001-0001-0001-0005", "DAT-0001-0001-0001-0099", "DAT", ""}) {
    EXPECT_EQ(file.findRow(bad), -1) << bad;
  }
  EXPECT_EQ(file.systems()[1].label, "Trunk: B / P25Standard");
}

TEST(StateEdit, SettingsAreNamedByCaptionAndTakeAWordOfTheirList) {
  const std::tuple<const char*, bool, const char*> cases[] = {
      {"Delay:=5", true, "5"},
      {"delay = -10", true, "-10"},
      {"Alert Light=red", true, "Red"},
      {"Alert Pattern:=slow blink", true, "Slow Blink"},
      {"Attenuator=ON", true, "On"},
      {"Alert Level=15", true, "15"},  // the vocabulary's name
      {"Delay:=7", false, "is not a value of Delay:"},
      {"Volume Offset:=1", false, "Unknown setting"},
      {"Delay 5", false, "caption=value"},
  };
  for (const auto& [text, ok, want] : cases) {
    const ParsedDbChange p = parseDbChange(text);
    ASSERT_EQ(p.change.has_value(), ok) << text;
    if (ok) {
      EXPECT_EQ(p.change->value, want) << text;
    } else {
      EXPECT_NE(p.error.find(want), std::string::npos) << p.error;
    }
  }
}

// Every setting on one channel line and one talkgroup line, the fields worked out by hand:
// a channel takes attenuator 9, delay 10, tone 12, level 13, light 14, pattern 15 (11, the
// volume offset, never changes); a talkgroup delay 8, tone 10, level 11, light 12, pattern 13.
TEST(StateEdit, ApplyWritesEachSettingIntoItsOwnField) {
  StateFile file = StateFile::fromText(
      "Conventional\t\t\tA\r\n"
      "C-Group\t\t\tG\r\n"
      "C-Freq\tf1\tf2\tN, one\tf4\tf5\tf6\tf7\tf8\tf9\tf10\tf11\tf12\tf13\tf14\tf15\tf16\r\n"
      "Trunk\t\t\tB\tOff\t\tP25Standard\r\n"
      "T-Group\t\t\tH\r\n"
      "TGID\tt1\tt2\tt3\tt4\tt5\tt6\tt7\tt8\tt9\tt10\tt11\tt12\tt13\tt14\r\n");
  std::vector<DbChange> changes;
  for (const char* text : {"Attenuator=On", "Delay:=5", "Alert Tone=3", "Alert Level=15",
                           "Alert Light=Red", "Alert Pattern=Slow Blink"}) {
    const ParsedDbChange p = parseDbChange(text);
    ASSERT_TRUE(p.change) << text << ": " << p.error;
    changes.push_back(*p.change);
  }
  applyChanges(file, {2, 5}, changes);
  EXPECT_EQ(file.fileLine(2),
            "C-Freq\tf1\tf2\tN, one\tf4\tf5\tf6\tf7\tf8\tOn\t5\tf11\t3\t15\tRed\tSlow Blink\tf16");
  EXPECT_EQ(file.fileLine(5),
            "TGID\tt1\tt2\tt3\tt4\tt5\tt6\tt7\t5\tt9\t3\t15\tRed\tSlow Blink\tt14");
}

// Two systems near Oakland: a conventional one with a fire and a roads department, a trunked
// one with a site; a department without a location.
const char* const kNearFile =
    "Conventional\t\t\tAlameda\r\n"
    "C-Group\t\t\tFire\tOff\t37.800000\t-122.270000\t5.0\tCircle\r\n"
    "C-Freq\t\t\tE1\tOff\t154070000\tFM\t\t3\r\n"
    "C-Group\t\t\tRoads\tOff\t37.900000\t-122.270000\t2.0\tCircle\r\n"
    "C-Freq\t\t\tR1\tOff\t453100000\tFM\t\t14\r\n"
    "C-Group\t\t\tNowhere\tOff\t0.000000\t-0.000000\t0.0\tCircle\r\n"
    "Trunk\t\t\tEBRCS\tOff\t\tP25Standard\r\n"
    "Site\t\t\tOakland Hills\tOff\t37.820000\t-122.200000\t5.0\r\n"
    "T-Group\t\t\tPolice\tOff\t0.000000\t0.000000\t0.0\tCircle\r\n"
    "TGID\t\t\tDisp\tOff\t100\tALL\t2\r\n";

TEST(DbNear, CirclesThatReachThePointAreListedWithTheirSystems) {
  const StateEntry state{"California", 6, "s_000006.hpd", "/x"};
  struct Case {
    double lat, lon, range;
    std::vector<int> services;
    std::vector<std::string> names;  // kind:name in file order
  };
  const Case cases[] = {
      {37.80,
       -122.27,
       0,
       {},
       {"system:Alameda", "department:Fire", "system:EBRCS", "site:Oakland Hills"}},
      {37.90, -122.27, 0, {}, {"system:Alameda", "department:Roads"}},
      {37.94, -122.27, 0, {}, {}},                                      // 2.8 miles from Roads
      {37.94, -122.27, 1, {}, {"system:Alameda", "department:Roads"}},  // with a mile to spare
      {37.80, -122.27, 0, {14}, {}},  // Roads' service, Fire's circle
      {37.80, -122.27, 0, {3}, {"system:Alameda", "department:Fire"}},
      {37.80,
       -122.27,
       0,
       {2},
       {"system:EBRCS", "site:Oakland Hills"}},  // a talkgroup of the system
      {0.0, 0.0, 0, {}, {}},                     // unset locations reach nothing
  };
  for (const Case& c : cases) {
    NearQuery q{c.lat, c.lon, c.range, c.services};
    std::vector<std::string> got;
    for (const NearHit& h : scanStateText(kNearFile, state, q)) {
      got.push_back(std::string(nearKindName(h.kind)) + ":" + h.name);
    }
    EXPECT_EQ(got, c.names) << c.lat << "," << c.lon << " +" << c.range;
  }
  // One degree of latitude is about 69 miles.
  EXPECT_NEAR(distanceMiles(37.0, -122.0, 38.0, -122.0), 69.1, 0.1);
}

}  // namespace
}  // namespace zel::database
