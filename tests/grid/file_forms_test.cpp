#include "grid/file_forms.h"

#include <gtest/gtest.h>

#include "core/text.h"
#include "grid/vocabulary.h"

namespace zel::vocab {
namespace {

// Unknown modes take the CTCSS form; a tone of other models, a DCS code under CTCSS and the P25
// code a cell keeps when its mode changes write nothing.
TEST(ToneToFile, EachModeWritesItsCodeForm) {
  // mode|code|file form, ';' between cases
  const std::string cases =
      "CTCSS|67.0|TONE=C67.0;CTCSS|254.1|TONE=C254.1;Whatever|100.0|TONE=C100.0;"
      "DCS|023|TONE=D023;DTCS|754|TONE=D754;DCS-R|023|TONE=D023;DTCS-R|023|TONE=D023;"
      "P25|293|NAC=293;P25|F7E|NAC=F7E;DMR|7|ColorCode=7;RAN|63|RAN=63;IDAS|1|Area=1;"
      "dPMR|255|CommonId=255;Common ID|12|CommonId=12;P25|Search|NAC=Srch;CTCSS|Search|TONE=Srch;"
      "DCS|Search|TONE=Srch;DMR|Search|TONE=Srch;All|67.0|;None|67.0|;|67.0|;All|Search|;"
      "Digital|5|;Analog|5|;P25||;CTCSS|71.0|;CTCSS|023|;CTCSS|293|;DCS|67.0|;DCS|024|";
  for (const std::string& text : split(cases, ';')) {
    const auto f = split(text, '|');
    EXPECT_EQ(toneToFile(f[0], f[1]), f[2]) << text;
  }
}

TEST(FileForms, ModulationAndAudioType) {
  // cell|modulation|audio type, ';' between cases
  const std::string cases =
      "AM|AM|ALL;FM|FM|ALL;NFM|NFM|ALL;WFM|AUTO|ALL;FMB|AUTO|ALL;AUTO|AUTO|ALL;|AUTO|ALL;"
      "nfm|AUTO|ALL;All|AUTO|ALL;Analog|AUTO|ANALOG;Digital|AUTO|DIGITAL;DIGITAL|AUTO|ALL";
  for (const std::string& text : split(cases, ';')) {
    const auto f = split(text, '|');
    EXPECT_EQ(fileModulation(f[0]) + "|" + fileAudioType(f[0]), f[1] + "|" + f[2]) << text;
  }
}

TEST(FileForms, AudioTypeReadsBackInMixedCase) {
  // file word|cell word
  const char* const cases[] = {"ALL|All",       "ANALOG|Analog",   "DIGITAL|Digital", "All|All",
                               "Analog|Analog", "Digital|Digital", "Srch|All",        "|All"};
  for (const char* text : cases) {
    const auto f = split(text, '|');
    EXPECT_EQ(cellAudioType(f[0]), f[1]) << text;
  }
  for (const auto& word : tabel("AudioType")) EXPECT_EQ(cellAudioType(fileAudioType(word)), word);
}

TEST(FileForms, UnknownWordsBecomeTheListDefault) {
  // word>file form, '|' between
  const std::pair<std::string (*)(std::string_view), const char*> cases[] = {
      {fileVolumeOffset, "2>2|-3>-3|4>0|>0"},
      {fileAlertTone, "9>9|10>Off"},
      {fileAlertLevel, "15>15|16>Auto|auto>Auto"},
      {fileAlertLight, "Magenta>Magenta|Purple>Off"},
      {fileAlertPattern, "Slow Blink>Slow Blink|Blink>On"},
      {fileOnOff, "On>On|1>Off"},
      {fileDelay, "30>30|-10>-10|-2>-2|7>2|>2"}};
  for (const auto& [convert, words] : cases) {
    for (const std::string& word : split(words, '|')) {
      const auto f = split(word, '>');
      EXPECT_EQ(convert(f[0]), f[1]) << words << ": " << word;
    }
  }
}

}  // namespace
}  // namespace zel::vocab
