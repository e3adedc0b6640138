#include "grid/file_forms.h"

#include <gtest/gtest.h>

#include "grid/vocabulary.h"

namespace zel::vocab {
namespace {

TEST(ToneToFile, EachModeWritesItsCodeForm) {
  struct Case {
    const char* mode;
    const char* code;
    const char* file;
  };
  const Case cases[] = {
      {"CTCSS", "67.0", "TONE=C67.0"},
      {"CTCSS", "254.1", "TONE=C254.1"},
      {"Whatever", "100.0", "TONE=C100.0"},  // unknown modes take the CTCSS form
      {"DCS", "023", "TONE=D023"},
      {"DTCS", "754", "TONE=D754"},
      {"DCS-R", "023", "TONE=D023"},
      {"DTCS-R", "023", "TONE=D023"},
      {"P25", "293", "NAC=293"},
      {"P25", "F7E", "NAC=F7E"},
      {"DMR", "7", "ColorCode=7"},
      {"RAN", "63", "RAN=63"},
      {"IDAS", "1", "Area=1"},
      {"dPMR", "255", "CommonId=255"},
      {"Common ID", "12", "CommonId=12"},
      // Searching.
      {"P25", "Search", "NAC=Srch"},
      {"CTCSS", "Search", "TONE=Srch"},
      {"DCS", "Search", "TONE=Srch"},
      {"DMR", "Search", "TONE=Srch"},
      // No code at all.
      {"All", "67.0", ""},
      {"None", "67.0", ""},
      {"", "67.0", ""},
      {"All", "Search", ""},
      {"Digital", "5", ""},
      {"Analog", "5", ""},
      {"P25", "", ""},
      {"CTCSS", "71.0", ""},  // a tone of other models
      {"CTCSS", "023", ""},   // a DCS code under CTCSS
      {"CTCSS", "293", ""},   // the P25 code a cell keeps when its mode changes
      {"DCS", "67.0", ""},
      {"DCS", "024", ""},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(toneToFile(c.mode, c.code), c.file) << c.mode << " / " << c.code;
  }
}

TEST(FileForms, ModulationAndAudioType) {
  struct Case {
    const char* cell;
    const char* modulation;
    const char* audio;
  };
  const Case cases[] = {
      {"AM", "AM", "ALL"},
      {"FM", "FM", "ALL"},
      {"NFM", "NFM", "ALL"},
      {"WFM", "AUTO", "ALL"},
      {"FMB", "AUTO", "ALL"},
      {"AUTO", "AUTO", "ALL"},
      {"", "AUTO", "ALL"},
      {"nfm", "AUTO", "ALL"},
      {"All", "AUTO", "ALL"},
      {"Analog", "AUTO", "ANALOG"},
      {"Digital", "AUTO", "DIGITAL"},
      {"DIGITAL", "AUTO", "ALL"},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(fileModulation(c.cell), c.modulation) << c.cell;
    EXPECT_EQ(fileAudioType(c.cell), c.audio) << c.cell;
  }
}

TEST(FileForms, AudioTypeReadsBackInMixedCase) {
  struct Case {
    const char* file;
    const char* cell;
  };
  const Case cases[] = {{"ALL", "All"},  {"ANALOG", "Analog"}, {"DIGITAL", "Digital"},
                        {"All", "All"},  {"Analog", "Analog"}, {"Digital", "Digital"},
                        {"Srch", "All"}, {"", "All"}};
  for (const auto& c : cases) EXPECT_EQ(cellAudioType(c.file), c.cell) << c.file;
  for (const auto& word : tabel("AudioType")) EXPECT_EQ(cellAudioType(fileAudioType(word)), word);
}

TEST(FileForms, UnknownWordsBecomeTheListDefault) {
  struct Case {
    std::string (*convert)(std::string_view);
    const char* word;
    const char* expected;
  };
  const Case cases[] = {
      {fileVolumeOffset, "2", "2"},
      {fileVolumeOffset, "-3", "-3"},
      {fileVolumeOffset, "4", "0"},
      {fileVolumeOffset, "", "0"},
      {fileAlertTone, "9", "9"},
      {fileAlertTone, "10", "Off"},
      {fileAlertLevel, "15", "15"},
      {fileAlertLevel, "16", "Auto"},
      {fileAlertLevel, "auto", "Auto"},
      {fileAlertLight, "Magenta", "Magenta"},
      {fileAlertLight, "Purple", "Off"},
      {fileAlertPattern, "Slow Blink", "Slow Blink"},
      {fileAlertPattern, "Blink", "On"},
      {fileOnOff, "On", "On"},
      {fileOnOff, "1", "Off"},
      {fileDelay, "30", "30"},
      {fileDelay, "-10", "-10"},
      {fileDelay, "-2", "-2"},
      {fileDelay, "7", "2"},
      {fileDelay, "", "2"},
  };
  for (const auto& c : cases) EXPECT_EQ(c.convert(c.word), c.expected) << c.word;
}

}  // namespace
}  // namespace zel::vocab
