// Systems of a real state file into a new list: the list saves, reads back and saves to
// the same bytes, and holds what the state file gives those systems.
#include <gtest/gtest.h>

#include "core/memory_ports.h"
#include "database/db_import.h"
#include "formats/hpd_reader.h"
#include "formats/hpd_writer.h"
#include "formats/text_file.h"
#include "test_folder.h"

namespace zel::database {
namespace {

const std::string kState = std::string(ZEL_REALDATA_DIR) + "/card_sds200/BCDx36HP/HPDB/s_000049.hpd";

int count(const std::string& text, const std::string& lineStart) {
  int n = 0;
  for (std::size_t at = text.find("\n" + lineStart); at != std::string::npos;
       at = text.find("\n" + lineStart, at + 1)) {
    ++n;
  }
  return n;
}

std::string save(Document& doc, formats::RowStore& rows, const std::string& path) {
  RecordingFeedback quiet;
  formats::HpdWriteOptions options;
  EXPECT_TRUE(formats::writeHpd(doc, rows, path, options, quiet).ok());
  return formats::readWholeFile(path).value_or("");
}

struct Case {
  const char* what;
  std::vector<DbChoice> choices;
  int trunks, conventionals, sites, departments, fleetMaps, bandPlans;
};

TEST(DbImportRealdata, TwoSystemsOfAStateSaveToAFixpoint) {
  RecordingFeedback quiet;
  StateDatabase state;
  ASSERT_TRUE(state.read(kState, true, quiet).ok());
  const DbSystem* fleet = state.system(104);
  const DbSystem* plan = state.system(103);
  ASSERT_TRUE(fleet && plan);
  ASSERT_EQ(fleet->name, "Salt Lake City Services");
  ASSERT_EQ(plan->name, "Salt Lake City Public Safety");

  const std::vector<Case> cases = {
      // The fleet map's system first: the band plan of the second still follows it.
      {"whole systems", {{104, {}, {}}, {103, {}, {}}}, 2, 0, 2,
       static_cast<int>(fleet->departments.size() + plan->departments.size()), 1, 1},
      {"one department of a conventional system and a trunked one",
       {{1, {}, {1}}, {103, {1}, {2, 3}}}, 1, 1, 1, 3, 0, 1},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    TestFolder folder;
    Document doc;
    formats::MemoryRows rows;
    const DbImportResult r = importSystems({doc, rows, quiet, 0}, state, c.choices);
    ASSERT_TRUE(r.ok) << r.message;
    const std::string once = save(doc, rows, folder.file("once.hpd"));

    Document again;
    formats::MemoryRows againRows;
    ASSERT_TRUE(formats::readHpd(again, againRows, folder.file("once.hpd"), {}, quiet).ok());
    EXPECT_EQ(save(again, againRows, folder.file("twice.hpd")), once);

    EXPECT_EQ(count(once, "Trunk\t"), c.trunks);
    EXPECT_EQ(count(once, "Conventional\t"), c.conventionals);
    EXPECT_EQ(count(once, "Site\t"), c.sites);
    EXPECT_EQ(count(once, "C-Group\t") + count(once, "T-Group\t"), c.departments);
    EXPECT_EQ(count(once, "FleetMap\t"), c.fleetMaps);
    EXPECT_EQ(count(once, "BandPlan_Mot\t"), c.bandPlans);
    EXPECT_EQ(count(once, "C-Freq\t") + count(once, "TGID\t"), r.channels);
  }
}

}  // namespace
}  // namespace zel::database
