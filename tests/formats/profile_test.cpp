#include <gtest/gtest.h>

#include <filesystem>

#include "formats/config_file_open.h"
#include "formats/profile_config.h"
#include "formats/profile_file.h"
#include "formats_test_support.h"

namespace zel::formats {
namespace {

using test::hpdFile;
using test::Scratch;

int countOn(const std::string& line) {
  int n = 0;
  for (std::size_t p = line.find("\tOn"); p != std::string::npos; p = line.find("\tOn", p + 1)) ++n;
  return n;
}

TEST(ProfileConfig, ThreeLinesGetEveryFlagOnAndTheRestPassThrough) {
  const std::string text =
      "TargetModel\tBCDx36HP\r\n\r\nServiceType\tOn\tOff\r\nCustomServiceType\tOff\r\n"
      "QuickKeys\tOff\tOff\r\nWeather\t\t2\tOff\r\n\r\n";
  const std::vector<std::string> lines = test::fileLines(enableAllFlags(text));
  ASSERT_EQ(lines.size(), 5u);  // the empty lines are gone
  EXPECT_EQ(lines[0], "TargetModel\tBCDx36HP");
  EXPECT_EQ(lines[1].substr(0, 12), "ServiceType\t");
  EXPECT_EQ(countOn(lines[1]), 36);
  EXPECT_EQ(lines[1].find("Off"), std::string::npos);
  EXPECT_EQ(countOn(lines[2]), 9);
  EXPECT_EQ(lines[2].substr(0, 18), "CustomServiceType\t");
  EXPECT_EQ(countOn(lines[3]), 99);
  EXPECT_EQ(lines[4], "Weather\t\t2\tOff");
  // A file without quick keys gets none.
  EXPECT_EQ(enableAllFlags("ServiceType\tOff\r\nOther\r\n").find("QuickKeys"), std::string::npos);
}

TEST(ProfileConfig, TheStepSaysFixAndLeavesAMissingFileAlone) {
  test::TempDir card;
  RecordingFeedback feedback;
  EXPECT_EQ(enableAllInProfile(card.path(), "0101", feedback), ProfileRewrite::Missing);
  EXPECT_EQ(feedback.messages, (std::vector<std::string>{"fix"}));
  EXPECT_FALSE(std::filesystem::exists(profileConfigPath(card.path())));

  std::filesystem::create_directories(card.file("BCDx36HP"));
  test::spit(profileConfigPath(card.path() + "/"), "QuickKeys\tOff\r\n");
  EXPECT_EQ(enableAllInProfile(card.path(), "0000", feedback), ProfileRewrite::Written);
  EXPECT_EQ(countOn(test::slurp(card.file("BCDx36HP/profile.cfg"))), 99);
}

TEST(Profiles, SaveWritesTheLoadedFilesOnly) {
  test::TempDir dir;
  RecordingFeedback feedback;
  OpenFileTable files;
  const std::string path = dir.file("zel536profile.pfl");
  EXPECT_FALSE(saveProfile(path, files, dir.path(), feedback).ok);
  EXPECT_EQ(feedback.messages, (std::vector<std::string>{"Nothing to save."}));
  EXPECT_FALSE(std::filesystem::exists(path));

  files.set(1, 0, "1");
  files.set(1, 3, "/lists/a.hpd");
  files.set(2, 3, "/lists/not-loaded.hpd");
  files.set(5, 0, "1");
  files.set(5, 3, "/lists/b.hpd");
  ASSERT_TRUE(saveProfile(path, files, dir.path(), feedback).ok);
  EXPECT_EQ(test::slurp(path), "ZEL536 PRF V1.00\r\n/lists/a.hpd\r\n/lists/b.hpd\r\n");
  EXPECT_EQ(feedback.statuses.back(), "Active Profile: zel536profile");
}

TEST(Profiles, AFailedSaveIsLoggedToTheProfileErrorLog) {
  test::TempDir dir;
  RecordingFeedback feedback;
  OpenFileTable files;
  files.set(1, 0, "1");
  files.set(1, 3, "/lists/a.hpd");
  ProfileSaveResult r = saveProfile(dir.file("no/such/folder/p.pfl"), files, dir.path(), feedback);
  EXPECT_FALSE(r.ok);
  const std::string log = test::slurp(dir.file("profile_error.txt"));
  EXPECT_EQ(log.substr(0, 8), "/error: ");
  EXPECT_EQ(log.substr(log.size() - 2), "\r\n");
}

TEST(Profiles, OpenReadsEachListIntoTheNextRow) {
  Scratch s;
  const std::string a = s.dir.file("a.hpd");
  const std::string b = s.dir.file("b.HPD");
  test::spit(a, hpdFile({"Conventional|||A|Off||Conventional"}));
  test::spit(b, hpdFile({"Conventional|||B|Off||Conventional"}));
  const std::string profile = s.dir.file("mine.pfl");
  test::spit(profile, "ZEL536 PRF V1.00\r\n" + a + "\r\nnotes.txt\r\n" + b + "\r\n");
  s.doc.files.set(1, 0, "1");  // a list already open keeps its row

  ProfileOpenResult r = openProfile(s.doc, s.pages, profile, {}, false, s.dir.path(), s.feedback);
  ASSERT_TRUE(r.ok);
  EXPECT_EQ(r.fileRows, (std::vector<int>{2, 3}));
  EXPECT_EQ(s.doc.files.get(3, 3), b);
  EXPECT_EQ(s.doc.data.count(), 2u);
  EXPECT_EQ(s.feedback.progresses.front(), " - file: " + a);
  EXPECT_EQ(s.feedback.statuses.back(), "Active Profile: mine");
  EXPECT_EQ(profileTitle(r.name), " - Profile: mine");
}

TEST(Profiles, AProfileWithoutListsSaysSo) {
  Scratch s;
  const std::string profile = s.dir.file("empty.pfl");
  test::spit(profile, "ZEL536 PRF V1.00\r\nreadme.txt\r\n");
  EXPECT_FALSE(openProfile(s.doc, s.pages, profile, {}, false, s.dir.path(), s.feedback).ok);
  EXPECT_FALSE(openProfile(s.doc, s.pages, profile, {}, true, s.dir.path(), s.feedback).ok);
  EXPECT_EQ(
      s.feedback.messages,
      (std::vector<std::string>{"Cannot load profile. No ZEL536 hpd files in selected profile!",
                                "No ZEL536 hpd files in selected profile!"}));
  clearProfileName(s.feedback);
  EXPECT_EQ(s.feedback.statuses.back(), "Active Profile: None");
}

TEST(ConfigFileOpen, ListsOfTheCardConfigurationAreReadUnderTheirNames) {
  Scratch s;
  test::spit(s.dir.file("f_000001.hpd"), hpdFile({"Conventional|||A|Off||Conventional"}));
  test::spit(s.dir.file("f_000002.hpd"), hpdFile({"Trunk|||B|Off||Motorola"}));
  test::spit(s.dir.file("f_list.cfg"),
             "TargetModel\tBCDx36HP\r\nFormatVersion\t1.00\r\n"
             "F-List\tFirst list\tf_000001.hpd\tOff\tOn\tOff\tOff\t\r\n"
             "F-List\tNo file\tnothing\tOff\tOn\tOff\tOff\t\r\n"
             "F-1ist\tOther model\tf_000002.hpd\tOff\tOn\tOff\tOff\t\r\n"
             "F-List\tSecond\tf_000002.hpd\tOff\tOn\tOff\tOff\t\r\n");
  ConfigOpenResult r = openConfigFile(s.doc, s.pages, s.dir.file("f_list.cfg"), {}, s.feedback);
  ASSERT_TRUE(r.ok);
  EXPECT_EQ(r.fileRows, (std::vector<int>{1, 2}));
  EXPECT_EQ(s.doc.files.get(1, 2), "First list");
  EXPECT_EQ(s.doc.files.get(2, 2), "Second");
  EXPECT_EQ(s.doc.data.count(), 3u);  // two systems and a unit-ID head

  Scratch other;
  test::spit(other.dir.file("lists.txt"), "F-List\tA\tf_000001.hpd\r\n");
  EXPECT_FALSE(
      openConfigFile(other.doc, other.pages, other.dir.file("lists.txt"), {}, other.feedback).ok);
  EXPECT_TRUE(other.doc.data.empty());
}

}  // namespace
}  // namespace zel::formats
