#include "formats/row_store.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "core/keys.h"
#include "formats_test_support.h"

namespace zel::formats {
namespace {

TEST(MemoryRows, KeepsRowsInOrderAndCountsTheirBytes) {
  MemoryRows rows;
  EXPECT_TRUE(rows.append("GRP-999-001-000", {"1,a", "2,bb"}));
  std::vector<std::string> more = {"3,ccc"};
  EXPECT_TRUE(rows.take("GRP-999-001-000", std::move(more)));
  EXPECT_TRUE(rows.take("GRP-999-001-001", {"1,x"}));
  EXPECT_EQ(rows.load("GRP-999-001-000"), (std::vector<std::string>{"1,a", "2,bb", "3,ccc"}));
  std::vector<std::string> seen;
  rows.visit("GRP-999-001-001", [&](std::string_view r) { seen.emplace_back(r); });
  EXPECT_EQ(seen, (std::vector<std::string>{"1,x"}));
  EXPECT_EQ(rows.sizeHint(), 4u + 5u + 6u + 4u);
  rows.remove("GRP-999-001-000");
  EXPECT_EQ(rows.sizeHint(), 4u);
  EXPECT_TRUE(rows.load("GRP-999-001-000").empty());
  EXPECT_EQ(rows.departments(), 1u);
}

TEST(MemoryRows, SaveToPageFilesWritesEachDepartment) {
  test::TempDir dir;
  PageFiles pages(dir.file("temp"));
  MemoryRows rows;
  rows.append("GRP-999-002-003", {"1,154.000000,A", "2,155.000000,B"});
  ASSERT_TRUE(rows.saveTo(pages));
  EXPECT_EQ(pages.load("GRP-999-002-003"),
            (std::vector<std::string>{"1,154.000000,A", "2,155.000000,B"}));
}

TEST(PageFileRows, TheReaderFillsPagesThatOnlyAFlushWrites) {
  test::Scratch s;
  const std::string file = test::hpdFile(
      {"Conventional|||A|Off||Conventional", "C-Group|||G|Off", "C-Freq|||Ch|Off|155000000|FM||3"});
  ASSERT_TRUE(s.read(file).ok());
  EXPECT_TRUE(s.pages.exists(keys::department(1, 0)));

  // A page folder that cannot take a file: the read still succeeds, the flush says it failed
  // and the rows stay readable.
  test::Scratch broken;
  std::filesystem::remove_all(broken.pages.folder());
  test::spit(broken.pages.folder(), "not a folder");
  ASSERT_TRUE(broken.read(file).ok());
  EXPECT_FALSE(broken.pages.flush());
  EXPECT_EQ(broken.pages.load(keys::department(1, 0)).size(), 1u);
}

}  // namespace
}  // namespace zel::formats
