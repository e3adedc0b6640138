// Random and cut inputs: a read fails leaving nothing, or saves to a file that reads back whole.
#include <gtest/gtest.h>

#include <random>

#include "core/document.h"
#include "core/memory_ports.h"
#include "formats/hpd_reader.h"
#include "formats/hpd_writer.h"
#include "formats/row_store.h"

namespace zel::formats {
namespace {

const char* const kPieces[] = {
    "Trunk\t\t\tT\tOff\t\tMotorola\tOn\tOff\tAuto\tYes\tSrch\t5",
    "Trunk\tTrunkId=7\t\tN\tOff\t\tNxdnOneFrequency",
    "Conventional\t\t\tC\tOff\t\tConventional\tOff\tOff\t0",
    "C-Group\t\t\tG\tOff\t1\t2\t3\tCircle\tOff\tGlobal",
    "T-Group\tTGroupId=1\tTrunkId=2\tG\tOn",
    "C-Freq\t\t\tCh\tOff\t155000000\tFM\tTONE=C67.0\t3\tOn\t5",
    "C-Freq\t\t\t\t\t\t\tNAC=Srch",
    "TGID\t\t\tTg\tOff\t5\tDIGITAL\t3\t2\t0\tOff\tAuto\tRed\tOn\tOff\tOff\t2",
    "Site\t\t\tS\tOff\t1\t2\t3\tAUTO\tCustom\tWide\tCircle\tOn",
    "T-Freq\tTFreqId=0\tSiteId=1\t\tOff\t851000000\t\tRAN=Srch",
    "BandPlan_Mot\tSiteId=1\t851025000\t854000000\t25000\t440",
    "BandPlan_P25\tSiteId=1\t1\t2",
    "FleetMap\tTrunkId=3\t4\tSRCH\tnoneerr\tE\tzz",
    "UnitIds\t\t\tU\ti77\t3\t5\tBlue\tOn",
    "FormatVersion\t2.03",
    "AreaState\tTrunkId=1\tStateId=0",
    "DQKs_Status\t\tOn\tOff",
    "TargetModel\tBCDx36HP",
    "",
    "a,b,c\td,e",
    "\xFF\xFE\x01\x7F\xE9",
};

std::string randomInput(std::mt19937& random) {
  std::uniform_int_distribution<int> pieces(0, std::size(kPieces) - 1);
  std::uniform_int_distribution<int> count(0, 40);
  std::uniform_int_distribution<int> byte(0, 255);
  std::uniform_int_distribution<int> coin(0, 9);
  static const char* const kEnds[] = {"\r\n", "\n", "\r"};
  std::string text = coin(random) < 8 ? "TargetModel\tBCDx36HP\r\n" : "";
  for (int i = count(random); i > 0; --i) {
    std::string piece = kPieces[pieces(random)];
    if (coin(random) == 0 && !piece.empty()) piece.resize(piece.size() / 2);  // a cut line
    if (coin(random) == 0 && !piece.empty()) {                                // one byte changed
      piece[byte(random) % piece.size()] = static_cast<char>(byte(random));
    }
    text += piece;
    text += kEnds[coin(random) % 3];
  }
  if (coin(random) == 0) {
    for (int i = 0; i < 64; ++i) text.push_back(static_cast<char>(byte(random)));
  }
  return text;
}

TEST(HpdRobustness, OddInputsNeverLeaveHalfAReadAndSaveToReadableFiles) {
  std::mt19937 random(536);
  int read = 0, failed = 0;
  for (int run = 0; run < 600; ++run) {
    const std::string input = randomInput(random);
    Document doc;
    doc.x36Mode = run % 4 != 3;
    MemoryRows rows;
    RecordingFeedback feedback;
    HpdReadOptions options;
    options.fileIndex = 1;
    HpdReadResult r = readHpdText(doc, rows, input, "", options, feedback);
    if (!r.ok()) {
      ++failed;
      EXPECT_TRUE(doc.data.empty()) << run;
      EXPECT_EQ(rows.departments(), 0u) << run;
      EXPECT_EQ(doc.files.get(1, 0), "") << run;
      continue;
    }
    ++read;
    if (doc.data.empty()) continue;
    HpdWriteResult written;
    const std::string text = renderHpd(doc, rows, HpdWriteOptions{}, feedback, written);
    Document again;
    again.x36Mode = doc.x36Mode;
    MemoryRows againRows;
    HpdReadResult back = readHpdText(again, againRows, text, "", options, feedback);
    ASSERT_TRUE(back.ok()) << run;
    EXPECT_TRUE(back.skipped.empty()) << run << ": " << back.skipped.front().text;
    EXPECT_EQ(back.counts.systems, r.counts.systems) << run;
  }
  // Both kinds of outcome are met, so the table exercises both paths.
  EXPECT_GT(read, 300);
  EXPECT_GT(failed, 20);
}

}  // namespace
}  // namespace zel::formats
