#include "transfer/service_search.h"

#include <gtest/gtest.h>

#include "core/text.h"

namespace zel::transfer {
namespace {

// Channel counts and known frequencies of each band plan, as Hz digits in the file.
TEST(ServiceSearch, EachListHoldsItsBandPlan) {
  struct Case {
    const char* key;
    const char* file;
    int channels;
    const char* mustHold;  // a C-Freq name and frequency
    const char* mod;
  } cases[] = {
      {"cb", "cb.hpd", 40, "CB 19\tOff\t27185000\tAM", "AM"},
      {"frs", "frs.hpd", 22, "FRS 8\tOff\t467562500\tNFM", "NFM"},
      {"gmrs", "gmrs.hpd", 30, "GMRS 22\tOff\t462725000\tFM", "FM"},
      {"marine", "MarineVHF.hpd", 35, "Marine 16 Distress\tOff\t156800000\tFM", "FM"},
      {"railroad", "railroad.hpd", 91, "AAR 97\tOff\t161565000\tNFM", "NFM"},
      {"ham2m", "HAM2meter.hpd", 25, "2m Calling\tOff\t146520000\tFM", "FM"},
      {"ham70cm", "HAM70cm.hpd", 10, "70cm Calling\tOff\t446000000\tFM", "FM"},
      {"air", "Airband.hpd", 721, "Air Emergency\tOff\t121500000\tAM", "AM"},
  };
  ASSERT_EQ(serviceSearchLists().size(), 8u);
  for (const auto& c : cases) {
    const auto* l = findServiceSearch(c.key);
    ASSERT_NE(l, nullptr) << c.key;
    EXPECT_EQ(l->fileName, c.file);
    EXPECT_EQ(l->channels, c.channels) << c.key;
    EXPECT_TRUE(
        startsWith(l->text, "TargetModel\tBCDx36HP\r\nFormatVersion\t1.00\r\nConventional"));
    EXPECT_NE(l->text.find(c.mustHold), std::string::npos) << c.key;
    int lines = 0;
    for (const auto& line : split(l->text, '\n')) {
      if (!startsWith(line, "C-Freq")) continue;
      ++lines;
      auto f = split(line, '\t');
      ASSERT_GE(f.size(), 18u);
      EXPECT_EQ(f[6], c.mod);
      EXPECT_EQ(f[17], "Off\r");
    }
    EXPECT_EQ(lines, c.channels);
  }
  EXPECT_EQ(findServiceSearch("public"), nullptr);
  // CB channels 23 to 25 are out of order in the band plan.
  const std::string& cb = findServiceSearch("cb")->text;
  for (const char* channel : {"CB 23\tOff\t27255000", "CB 24\tOff\t27235000",
                              "CB 25\tOff\t27245000", "CB 40\tOff\t27405000"})
    EXPECT_NE(cb.find(channel), std::string::npos) << channel;
}

}  // namespace
}  // namespace zel::transfer
