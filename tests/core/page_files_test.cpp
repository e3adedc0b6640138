#include "core/page_files.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "test_folder.h"

namespace zel {
namespace {

TEST(PageFiles, SaveReplacesAppendAddsScratchIsRemovedAndNoRowsIsNoFile) {
  TestFolder dir;
  PageFiles pages(dir.path());
  std::ofstream(pages.scratchPath()) << "scratch";
  ASSERT_TRUE(pages.append("GRP-999-002-000", "1,154.100000,a"));
  ASSERT_TRUE(pages.appendAll("GRP-999-002-000", {"2,154.200000,b", "3,154.300000,c"}));
  EXPECT_EQ(pages.load("GRP-999-002-000").size(), 3u);
  ASSERT_TRUE(pages.save("GRP-999-002-000", {"1,155.000000,z"}));
  EXPECT_EQ(pages.load("GRP-999-002-000"), std::vector<std::string>{"1,155.000000,z"});
  EXPECT_FALSE(std::filesystem::exists(pages.scratchPath()));
  EXPECT_EQ(pages.pathOf("GRP-999-002-000"),
            (std::filesystem::path(dir.path()) / "GRP-999-002-000.tmp").string());
  // A department without rows has no file.
  EXPECT_TRUE(pages.load("GRP-999-001-001").empty());
  EXPECT_TRUE(pages.exists("GRP-999-002-000"));
  EXPECT_TRUE(pages.save("GRP-999-002-000", {}));
  EXPECT_FALSE(pages.exists("GRP-999-002-000"));
}

TEST(PageFiles, ClearAllRemovesOnlyPageFiles) {
  TestFolder dir;
  PageFiles pages(dir.path());
  pages.append("GRP-999-001-001", "1,1.000000");
  std::ofstream(std::filesystem::path(dir.path()) / "keep.txt") << "x";
  pages.clearAll();
  EXPECT_FALSE(pages.exists("GRP-999-001-001"));
  EXPECT_TRUE(std::filesystem::exists(std::filesystem::path(dir.path()) / "keep.txt"));
}

TEST(PageFiles, RebuildKeyedRowsTellsFrequenciesFromTalkgroups) {
  TestFolder dir;
  PageFiles pages(dir.path());
  pages.appendAll("GRP-999-004-002", {"1,154.785000,Fire", "2,460.125000,EMS"});
  pages.appendAll("GRP-999-005-000", {"1,1234,Dispatch"});
  DocumentTree work;
  std::string error;
  ASSERT_TRUE(pages.rebuildKeyedRows(work, error));
  for (const char* key : {"FRQ-004-002-0001", "FRQ-004-002-0002", "TID-005-000-0001"})
    EXPECT_TRUE(work.contains(key)) << key;
  EXPECT_EQ(work.text(work.find("TID-005-000-0001")), "1,1234,Dispatch");

  DocumentTree small;
  EXPECT_FALSE(pages.rebuildKeyedRows(small, error, 2));
  EXPECT_EQ(error, "error, temp memory is full");
}

TEST(PageFiles, RowsReachTheFilesOnlyAtFlushAndAnotherRunReadsThem) {
  TestFolder dir;
  {
    PageFiles pages(dir.path());
    pages.clearAll();
    pages.appendAll("GRP-999-001-001", {"1,154.100000,a", "2,154.200000,b"});
    pages.save("GRP-999-001-002", {"1,155.000000,z"});
    EXPECT_FALSE(std::filesystem::exists(pages.pathOf("GRP-999-001-001")));
    ASSERT_TRUE(pages.flush());
    EXPECT_TRUE(std::filesystem::exists(pages.pathOf("GRP-999-001-001")));
    // Emptied and renamed departments lose their files at the next flush.
    pages.save("GRP-999-001-002", {});
    ASSERT_TRUE(pages.rename("GRP-999-001-001", "GRP-999-002-001"));
    ASSERT_TRUE(pages.flush());
    EXPECT_FALSE(std::filesystem::exists(pages.pathOf("GRP-999-001-002")));
    EXPECT_FALSE(std::filesystem::exists(pages.pathOf("GRP-999-001-001")));
  }
  PageFiles again(dir.path());
  EXPECT_EQ(again.departments(), std::vector<std::string>{"GRP-999-002-001"});
  EXPECT_EQ(again.load("GRP-999-002-001"),
            (std::vector<std::string>{"1,154.100000,a", "2,154.200000,b"}));
  ASSERT_TRUE(again.copy("GRP-999-002-001", "GRP-999-003-001"));
  again.remove("GRP-999-002-001");
  EXPECT_EQ(again.departments(), std::vector<std::string>{"GRP-999-003-001"});
}

TEST(PageFiles, MissingFolderIsMadeAndReadErrorsKeepWhatWasRead) {
  TestFolder dir;
  PageFiles pages((std::filesystem::path(dir.path()) / "a" / "b").string());
  EXPECT_TRUE(std::filesystem::is_directory(pages.folder()));
  std::ofstream(pages.pathOf("GRP-999-001-001"), std::ios::binary) << "1,a\r\n2,b\r\n3,c";
  EXPECT_EQ(pages.load("GRP-999-001-001"), (std::vector<std::string>{"1,a", "2,b", "3,c"}));
}

}  // namespace
}  // namespace zel
