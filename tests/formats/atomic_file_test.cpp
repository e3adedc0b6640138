#include "formats/atomic_file.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <thread>

#include "formats/text_file.h"
#include "formats_test_support.h"

namespace zel::formats {
namespace {

namespace fs = std::filesystem;

int modeOf(const std::string& path) {
  struct stat info {};
  ::stat(path.c_str(), &info);
  return static_cast<int>(info.st_mode & 07777);
}

std::vector<std::string> temporariesIn(const std::string& folder) {
  std::vector<std::string> found;
  for (const auto& entry : fs::directory_iterator(folder)) {
    const std::string name = entry.path().filename().string();
    if (name.find(kTemporarySuffix) != std::string::npos) found.push_back(name);
  }
  return found;
}

TEST(AtomicFile, ReplacingKeepsTheModeAndRefusesWhatMayNotBeWritten) {
  struct Case {
    int mode;
    bool written;
  };
  for (const Case c : {Case{0640, true}, Case{0600, true}, Case{0444, false}, Case{0400, false}}) {
    test::TempDir dir;
    const std::string path = dir.file("list.hpd");
    test::spit(path, "old");
    fs::permissions(path, static_cast<fs::perms>(c.mode));
    const WriteStatus status = writeFileAtomically(path, "new");
    EXPECT_EQ(status.ok, c.written) << std::oct << c.mode;
    EXPECT_EQ(test::slurp(path), c.written ? "new" : "old") << std::oct << c.mode;
    EXPECT_EQ(modeOf(path), c.mode);
    if (!c.written) EXPECT_EQ(status.message, path + " is read-only; it was left as it was.");
    EXPECT_TRUE(temporariesIn(dir.path()).empty());
  }
}

TEST(AtomicFile, ALinkPlantedAtTheOldTemporaryNameIsNotFollowed) {
  test::TempDir dir;
  const std::string victim = dir.file("victim.txt");
  test::spit(victim, "keep me");
  const std::string path = dir.file("list.hpd");
  fs::create_symlink(victim, path + ".zeltmp");
  ASSERT_TRUE(writeFileAtomically(path, "new").ok);
  EXPECT_EQ(test::slurp(victim), "keep me");
  EXPECT_FALSE(fs::is_symlink(path));
  EXPECT_EQ(test::slurp(path), "new");
}

TEST(AtomicFile, ATargetThatIsALinkStaysALink) {
  test::TempDir dir;
  const std::string real = dir.file("real.hpd");
  test::spit(real, "old");
  const std::string link = dir.file("link.hpd");
  fs::create_symlink(real, link);
  ASSERT_TRUE(writeFileAtomically(link, "new").ok);
  EXPECT_TRUE(fs::is_symlink(link));
  EXPECT_EQ(test::slurp(real), "new");
}

TEST(AtomicFile, TwoWritersOfOnePathNeverMixTheirBytes) {
  test::TempDir dir;
  const std::string path = dir.file("list.hpd");
  const std::string a(200000, 'a');
  const std::string b(100000, 'b');
  auto writer = [&](const std::string& bytes, bool& ok) {
    for (int i = 0; i < 40; ++i) ok = writeFileAtomically(path, bytes).ok && ok;
  };
  bool okA = true, okB = true;
  std::thread ta(writer, std::cref(a), std::ref(okA));
  std::thread tb(writer, std::cref(b), std::ref(okB));
  ta.join();
  tb.join();
  EXPECT_TRUE(okA && okB);
  const std::string end = test::slurp(path);
  EXPECT_TRUE(end == a || end == b) << end.size();
  EXPECT_TRUE(temporariesIn(dir.path()).empty());
}

TEST(AtomicFile, TheFirstReplacementOfARunKeepsTheOldBytesOnce) {
  test::TempDir dir;
  const std::string path = dir.file("list.hpd");
  const std::string copy = backupPathFor(path);
  // A new file has nothing to keep.
  ASSERT_TRUE(writeFileAtomically(path, "first", KeepBackup::OncePerSession).ok);
  EXPECT_FALSE(fs::exists(copy));
  fs::permissions(path, static_cast<fs::perms>(0640));
  const WriteStatus second = writeFileAtomically(path, "second", KeepBackup::OncePerSession);
  EXPECT_TRUE(second.backupMade);
  const WriteStatus third = writeFileAtomically(path, "third", KeepBackup::OncePerSession);
  EXPECT_FALSE(third.backupMade);
  EXPECT_EQ(test::slurp(copy), "first");
  EXPECT_EQ(modeOf(copy), 0640);
  EXPECT_EQ(test::slurp(path), "third");
}

}  // namespace
}  // namespace zel::formats
