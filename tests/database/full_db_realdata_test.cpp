// The real SDS200 database: every state file round-trips; an apply changes only the table's fields.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <map>
#include <set>

#include "core/text.h"
#include "database/hpdb_index.h"
#include "core/atomic_file.h"
#include "database/state_edit.h"
#include "database/state_file.h"
#include "formats/text_file.h"
#include "test_folder.h"

namespace zel::database {
namespace {

namespace fs = std::filesystem;

const std::string kCard = std::string(ZEL_REALDATA_DIR) + "/card_sds200";

IndexReadResult realIndex() {
  const std::optional<DatabaseLocation> location = locateOnCard(kCard);
  if (!location) return {};
  return readIndex(*location);
}

TEST(FullDbRealdata, EveryStateFileComesBackByteForByte) {
  const IndexReadResult index = realIndex();
  ASSERT_TRUE(index.ok()) << index.error;
  int loaded = 0;
  for (const StateEntry& state : index.states) {
    if (!fs::exists(state.path)) continue;  // the multi-state file is missing on this card
    const std::optional<std::string> bytes = formats::readWholeFile(state.path);
    ASSERT_TRUE(bytes);
    const StateFile file = StateFile::fromText(*bytes);
    EXPECT_EQ(file.text(), *bytes) << state.fileName;
    ++loaded;
  }
  EXPECT_EQ(loaded, 67);
}

// Splits text into file lines and their TAB fields.
std::vector<std::vector<std::string>> linesAndFields(const std::string& text) {
  std::vector<std::vector<std::string>> out;
  for (std::string_view line : formats::splitLines(text)) out.push_back(split(line, '\t'));
  return out;
}

struct ApplyCase {
  const char* state;  // as the user names it
  bool trunk;         // which kind of system to take
  std::vector<std::string> sets;
};

TEST(FullDbRealdata, ApplyChangesOnlyTheTableFieldsOfTheChosenLines) {
  const IndexReadResult index = realIndex();
  ASSERT_TRUE(index.ok());
  const ApplyCase cases[] = {
      {"California", false, {"Attenuator:=On", "Delay:=5", "Alert Light:=Red"}},
      {"s_000006.hpd", true, {"Attenuator:=On", "Delay:=-5", "Alert Pattern:=Slow Blink"}},
      {"ohio", true, {"Alert Tone:=3", "Alert Volume:=15"}},
  };
  for (const ApplyCase& c : cases) {
    SCOPED_TRACE(c.state);
    const StateEntry* state = resolveState(index.states, c.state);
    ASSERT_NE(state, nullptr);
    TestFolder dir;
    const std::string copy = dir.file(state->fileName);
    fs::copy_file(state->path, copy);
    fs::permissions(copy, fs::perms::owner_read | fs::perms::owner_write);
    StateLoad load = loadStateFile(copy);
    ASSERT_TRUE(load.file);
    StateFile& file = *load.file;

    // The second system of the wanted kind, its first department with channels.
    int system = 0, seen = 0;
    for (const SystemInfo& s : file.systems()) {
      if (s.trunk == c.trunk && ++seen == 2) system = s.number;
    }
    ASSERT_NE(system, 0);
    std::vector<ChannelItem> items;
    for (const DepartmentInfo& d : departmentsOf(file, system)) {
      items = listChannels(file, {system, d.number, ChannelKinds::Both, 0});
      if (!items.empty()) break;
    }
    ASSERT_FALSE(items.empty());
    std::vector<DbChange> changes;
    for (const std::string& s : c.sets) changes.push_back(*parseDbChange(s).change);
    std::vector<std::size_t> rows;
    std::set<std::size_t> chosen;
    for (const ChannelItem& i : items) {
      rows.push_back(i.row);
      chosen.insert(i.row);
    }
    applyChanges(file, rows, changes);
    ASSERT_TRUE(writeFileAtomically(copy, file.text(), KeepBackup::OncePerSession).ok);

    const auto before = linesAndFields(*formats::readWholeFile(state->path));
    const auto after = linesAndFields(*formats::readWholeFile(copy));
    ASSERT_EQ(before.size(), after.size());
    for (std::size_t n = 0; n < before.size(); ++n) {
      if (!chosen.count(n)) {
        EXPECT_EQ(before[n], after[n]) << "line " << n + 1;
        continue;
      }
      const bool talkgroup = before[n][0] == "TGID";
      std::map<int, std::string> expected;
      for (const DbChange& ch : changes) {
        const int field = talkgroup ? dbInfo(ch.setting).talkgroupField
                                    : dbInfo(ch.setting).frequencyField;
        if (field) expected[field] = ch.value;
      }
      ASSERT_EQ(after[n].size(), std::max<std::size_t>(before[n].size(),
                                                       expected.rbegin()->first + 1));
      for (std::size_t f = 0; f < after[n].size(); ++f) {
        const auto e = expected.find(static_cast<int>(f));
        const std::string old = f < before[n].size() ? before[n][f] : "";
        EXPECT_EQ(after[n][f], e == expected.end() ? old : e->second) << "line " << n + 1;
      }
    }
    // The first write kept the original as the backup copy.
    EXPECT_EQ(formats::readWholeFile(backupPathFor(copy)), formats::readWholeFile(state->path));
  }
}

}  // namespace
}  // namespace zel::database
