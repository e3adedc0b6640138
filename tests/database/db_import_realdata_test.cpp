// Parts of real systems into a new list that saves to a fixpoint with its fleet map and band plan.
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
       at = text.find("\n" + lineStart, at + 1))
    ++n;
  return n;
}

std::string save(Document& doc, formats::RowStore& rows, const std::string& path) {
  RecordingFeedback quiet;
  formats::HpdWriteOptions options;
  EXPECT_TRUE(formats::writeHpd(doc, rows, path, options, quiet).ok());
  return formats::readWholeFile(path).value_or("");
}

TEST(DbImportRealdata, ChosenPartsOfThreeSystemsSaveToAFixpoint) {
  RecordingFeedback quiet;
  StateDatabase state;
  ASSERT_TRUE(state.read(kState, true, quiet).ok());
  ASSERT_EQ(state.system(104)->name, "Salt Lake City Services");      // a fleet map
  ASSERT_EQ(state.system(103)->name, "Salt Lake City Public Safety");  // a band plan
  TestFolder folder;
  Document doc;
  formats::MemoryRows rows;
  // The fleet map's system first: the band plan of the second still follows it in the file.
  const DbImportResult r =
      importSystems({doc, rows, quiet, 0}, state, {{104, {}, {}}, {103, {1}, {2, 3}}, {1, {}, {1}}});
  ASSERT_TRUE(r.ok) << r.message;
  const std::string once = save(doc, rows, folder.file("once.hpd"));

  Document again;
  formats::MemoryRows againRows;
  ASSERT_TRUE(formats::readHpd(again, againRows, folder.file("once.hpd"), {}, quiet).ok());
  EXPECT_EQ(save(again, againRows, folder.file("twice.hpd")), once);

  EXPECT_EQ((std::vector<int>{
                count(once, "Trunk\t"), count(once, "Conventional\t"), count(once, "Site\t"),
                count(once, "C-Group\t") + count(once, "T-Group\t"), count(once, "FleetMap\t"),
                count(once, "BandPlan_Mot\t"), count(once, "C-Freq\t") + count(once, "TGID\t")}),
            (std::vector<int>{2, 1, 2, 4, 1, 1, r.channels}));
}

}  // namespace
}  // namespace zel::database
