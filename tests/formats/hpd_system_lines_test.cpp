// System lines, read or new, come out of a save as the scanner writes them.
#include <gtest/gtest.h>

#include "core/new_commands.h"
#include "core/record_line.h"
#include "formats_test_support.h"

namespace zel::formats {
namespace {

using test::hpdFile;
using test::lineOf;
using test::Scratch;

TEST(SystemLineSave, FieldsTheWriterCopiesKeepTheirText) {
  // The switches that the writer turns back into words may be held as digits, and the end code
  // "Analog+Digital" as "Analog and Digital"; every other field goes back as it came.
  const char* lines[] = {
      "Trunk|||Metro|Off||P25Standard|Off|Off|Auto|Ignore|Srch|1|Off|0|Off|Off|Analog|Off|Off|On",
      "Trunk|||Metro|On||Motorola|On|On|Auto|Yes|Srch|Off|On|5|On|On|Analog+Digital|On|Off|On",
      "Conventional|||Federal|Off||Conventional|Off|Off|0|Off|Off|400|Auto|8",
      "Conventional|||Region|On||Conventional|2|On|0|On|On|400|Auto|8",
  };
  for (const char* line : lines) {
    Scratch s;
    ASSERT_TRUE(s.read(hpdFile({line})).ok());
    const std::string word = std::string(line).substr(0, std::string(line).find('|'));
    EXPECT_EQ(lineOf(s.render(), word), line);
  }
}

TEST(SystemLineSave, EveryNewSystemIsWrittenAsTheScannerWritesOne) {
  // A new system's options as a scanner's file has them, the quick key "Off" for none.
  const std::string trunkTail = "|Off|Off|Auto|Ignore|Srch|Off|Off|0|Off|Off|Analog|Off|Off|On";
  struct Case {
    const char* command;
    std::string line;
  };
  const Case cases[] = {
      {"New Conventional System",
       "Conventional|||New System|Off||Conventional|Off|Off|0|Off|Off|400|Auto|8"},
      {"New Motorola Trunk System", "Trunk|||New MOT System|Off||Motorola" + trunkTail},
      {"New Trunk System", "Trunk|||New MOT System|Off||Motorola" + trunkTail},
      {"New LT Trunk System", "Trunk|||New LT System|Off||Ltr" + trunkTail},
      {"New Edacs Trunk System", "Trunk|||New EDA System|Off||Edacs" + trunkTail},
      {"New P25 Trunk System", "Trunk|||New P25 System|Off||P25Standard" + trunkTail},
      {"New X2 TDMA Trunk System", "Trunk|||New TDMA System|Off||P25X2_TDMA" + trunkTail},
      {"New Nxdn Trunk System", "Trunk|||New Nxdn System|Off||Nxdn" + trunkTail},
      {"New Nxdn One Frequency",
       "Trunk|||New Nxdn One Frequency System|Off||NxdnOneFrequency" + trunkTail},
      {"New MotoTRBO Trunk System", "Trunk|||New MotoTRBO System|Off||MotoTrbo" + trunkTail},
      {"New DMR One Frequency System",
       "Trunk|||New DMR One Frequency System|Off||DmrOneFrequency" + trunkTail},
      {"New Rebanded Trunk System", "Trunk|||New System|Off||Motorola" + trunkTail},
  };
  ASSERT_EQ(std::size(cases), systemTemplates().size());
  for (const Case& c : cases) {
    Scratch s;
    ASSERT_TRUE(newSystem(s.doc, c.command, s.feedback, 1).ok) << c.command;
    const std::string saved = s.render();
    const std::string word = c.line.substr(0, c.line.find('|'));
    EXPECT_EQ(lineOf(saved, word), c.line) << c.command;
    // And a read of that file saves it again unchanged.
    Scratch again;
    ASSERT_TRUE(again.read(saved).ok());
    EXPECT_EQ(lineOf(again.render(), word), c.line) << c.command;
  }
}

TEST(SystemLineSave, SitesAreWrittenBeforeDepartmentsWhateverTheTreeOrder) {
  Scratch s;
  ASSERT_TRUE(newSystem(s.doc, "New P25 Trunk System", s.feedback, 1).ok);
  ASSERT_TRUE(newSite(s.doc, 1, s.feedback).ok);  // after the system's first department
  ASSERT_TRUE(newDepartment(s.doc, 1, s.feedback).ok);
  ASSERT_TRUE(newSite(s.doc, 1, s.feedback).ok);
  std::vector<std::string> words;
  for (const std::string& line : test::fileLines(s.render())) {
    const std::string word = line.substr(0, line.find('\t'));
    if (word == "Site" || word == "T-Group") words.push_back(word);
  }
  EXPECT_EQ(words, (std::vector<std::string>{"Site", "Site", "T-Group", "T-Group"}));
}

}  // namespace
}  // namespace zel::formats
