// The bulk editor over favorites lists from real scanner cards: read through the HPD reader,
// one setting applied to the channels of one department, written, read back. The written
// file differs from a save of the untouched document in that department's channel lines
// only, and there only in the field of the setting.
#include <gtest/gtest.h>

#include <filesystem>
#include <set>

#include "core/memory_ports.h"
#include "core/record_line.h"
#include "core/text.h"
#include "database/bulk_edit.h"
#include "database/bulk_lists.h"
#include "formats/hpd_reader.h"
#include "formats/hpd_writer.h"
#include "formats/text_file.h"
#include "test_folder.h"

namespace zel::bulk {
namespace {

namespace fs = std::filesystem;

struct Opened {
  Document doc;
  formats::MemoryRows rows;
  RecordingFeedback quiet;
  bool ok = false;
  explicit Opened(const std::string& path) {
    formats::HpdReadOptions options;
    options.fileIndex = 1;
    ok = formats::readHpd(doc, rows, path, options, quiet).ok();
  }
  bool save(const std::string& path) {
    formats::HpdWriteOptions options;
    options.fileIndex = 1;
    return formats::writeHpd(doc, rows, path, options, quiet).ok();
  }
  std::string department(Scope scope, const std::string& name) const {
    for (const NodeEntry& n : listNodes(doc, scope, 0)) {
      if (n.name == name) return n.key;
    }
    return {};
  }
};

struct Case {
  const char* file;  // under the corpus folder
  Scope scope;
  const char* department;
  Setting setting;
  const char* value;
  int column;        // the page-row column the setting writes
  const char* tag;   // the channel lines of the file
  int fileField;     // the field of the setting in those lines (TAB-separated)
  int expectedRows;  // channels of the department
};

const Case kCases[] = {{"card_bcd536hp/BCDx36HP/favorites_lists/f_000001.hpd", Scope::TalkGroups,
                        "North Royalton", Setting::Delay, "5", 6, "TGID", 8, 4},
                       {"card_sds200/BCDx36HP/favorites_lists/f_000001.hpd", Scope::Frequencies,
                        "Department of Energy - Lawrence Berkeley National Laboratory",
                        Setting::Mode, "AM", 4, "C-Freq", 6, 1}};

TEST(BulkRealData, OneSettingOnOneDepartmentChangesOnlyThatFieldOfItsLines) {
  for (const Case& c : kCases) {
    SCOPED_TRACE(c.file);
    const ChannelChange change{c.setting, c.value};
    const std::string source = std::string(ZEL_REALDATA_DIR) + "/" + c.file;
    if (!fs::exists(source)) GTEST_SKIP() << "no real card files beside the checkout";
    TestFolder dir;
    Opened list(source);
    ASSERT_TRUE(list.ok);
    const std::string baseline = dir.file("baseline.hpd");
    ASSERT_TRUE(list.save(baseline));

    const std::string deptKey = list.department(c.scope, c.department);
    ASSERT_FALSE(deptKey.empty());
    const std::vector<ChannelEntry> channels = listChannels(list.doc, list.rows, c.scope, 0);
    const std::vector<std::string> ticked = channelsOfDepartments(channels, {deptKey});
    ASSERT_EQ(static_cast<int>(ticked.size()), c.expectedRows);
    BulkResult r = applyToChannels(list.doc, list.rows, ticked, {change}, list.quiet);
    ASSERT_TRUE(r.ok) << r.message;
    EXPECT_EQ(r.changed, c.expectedRows);  // none held the value before
    const std::string changed = dir.file("changed.hpd");
    ASSERT_TRUE(list.save(changed));

    // Read back: the department's rows hold the value, the other departments' rows are the
    // rows of the untouched file.
    Opened back(changed);
    Opened untouched(baseline);
    ASSERT_TRUE(back.ok && untouched.ok);
    for (const NodeEntry& n : listNodes(back.doc, Scope::Departments, 0)) {
      const std::vector<std::string> rows = back.rows.load(n.key);
      if (n.key == deptKey) {
        ASSERT_EQ(static_cast<int>(rows.size()), c.expectedRows);
        for (const std::string& row : rows) EXPECT_EQ(record::field(row, c.column), change.value);
      } else {
        EXPECT_EQ(rows, untouched.rows.load(n.key)) << n.name;
      }
    }

    // Line by line against the save of the untouched document.
    const std::vector<std::string> before = split(*formats::readWholeFile(baseline), '\n');
    const std::vector<std::string> after = split(*formats::readWholeFile(changed), '\n');
    ASSERT_EQ(before.size(), after.size());
    int differing = 0;
    for (std::size_t i = 0; i < before.size(); ++i) {
      if (before[i] == after[i]) continue;
      ++differing;
      ASSERT_TRUE(startsWith(after[i], c.tag)) << after[i];
      const std::vector<std::string> b = split(before[i], '\t');
      const std::vector<std::string> a = split(after[i], '\t');
      ASSERT_EQ(a.size(), b.size());
      for (std::size_t f = 0; f < a.size(); ++f) {
        if (static_cast<int>(f) == c.fileField) {
          EXPECT_EQ(a[f], change.value);
        } else {
          EXPECT_EQ(a[f], b[f]) << "field " << f << " of " << after[i];
        }
      }
    }
    EXPECT_EQ(differing, c.expectedRows);
  }
}

}  // namespace
}  // namespace zel::bulk
