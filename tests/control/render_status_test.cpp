#include <gtest/gtest.h>

#include "vc_test_support.h"

namespace zel::control {
namespace {

using Names = std::array<std::string, 3>;

std::string pad(std::string s, std::size_t n) {
  s.resize(n, ' ');
  return s;
}

// A channel screen of seven 36-character lines with the marks at column 33.
std::vector<std::string> channelScreen() {
  return {pad("Scan", 36),
          pad("List", 36),
          pad("County", 32) + "    ",
          pad("Fire", 32) + "    ",
          pad("154.4300MHz", 36),
          pad("Fire Dispatch", 32) + "    ",
          pad("", 20) + pad("My List", 16)};
}

TEST(RenderStatus, TheFormatWordGivesClassListScreenAndVisibleLines) {
  struct Case {
    const char* word;
    int displayClass;
    int listScreen;
  } cases[] = {{"0000100", 0, 0},        {"00111", 1, 0},      {"1111", 2, 1},
               {"00110110110000", 3, 0}, {"1111111111", 0, 1}, {"0101", 0, 0}};
  for (const auto& c : cases) {
    VcRig rig(Family::Bcd);
    rig.sts(stsReply(c.word, {"a", "b"}));
    EXPECT_EQ(std::tie(rig.vc->status.displayClass, rig.vc->status.listScreen),
              std::tie(c.displayClass, c.listScreen))
        << c.word;
    const auto& rows = rig.vc->status.display.rows;  // a line per character, at most all ten
    const std::size_t len = std::string(c.word).size();
    for (std::size_t i = 0; i < rows.size(); ++i)
      EXPECT_EQ(rows[i].visible, i < len) << c.word << " row " << i;
  }
  VcRig four(Family::Bcd);
  four.sts(stsReply("1111", {"a"}));
  EXPECT_EQ(four.vc->status.display.formatWord, "  1111");
}

// A word that is no layout ends the rendering; the long screens are the SDS window's only; a
// key echo is no screen at all.
TEST(RenderStatus, WhatIsNoScreenLeavesTheDisplayAlone) {
  for (const char* word : {"011", "00000000000000000", "abcd"}) {
    VcRig rig(Family::Bcd);
    rig.vc->status.listScreen = 1;
    rig.sts(stsReply(word, {"Menu line"}));
    EXPECT_EQ(rig.vc->status.listScreen, 1) << word;
    EXPECT_EQ(rig.vc->status.display.rows[0].text, "") << word;
  }
  for (const char* word : {"00001010100000000", "00000000000000000000", "00001110000000000"}) {
    VcRig sds(Family::Sds);
    sds.sts(stsReply(word, {"Top"}));
    EXPECT_EQ(sds.vc->status.display.rows[0].text, "Top") << word;
    VcRig bcd(Family::Bcd);
    bcd.sts(stsReply(word, {"Top"}));
    EXPECT_EQ(bcd.vc->status.display.rows[0].text, "") << word;
  }
  VcRig rig(Family::Bcd);
  rig.sts(stsReply("0000100", channelScreen()));
  rig.sts("KEY,OK\r");
  EXPECT_EQ(rig.vc->status.display.rows[2].text, pad("County", 32) + "    ");
}

TEST(RenderStatus, RuleLinesAreExactly24Or30Or36Asterisks) {
  VcRig rig(Family::Bcd);
  rig.sts(stsReply("0000100", {std::string(30, '*'), std::string(29, '*'), std::string(24, '*'),
                               std::string(36, '*'), std::string(29, '*') + " "}));
  const auto& r = rig.vc->status.lineIsRule;
  EXPECT_EQ((std::vector<std::string>{r[2], r[4], r[6], r[8], r[10], r[3]}),
            (std::vector<std::string>{"1", "0", "1", "1", "0", "0"}));
}

TEST(RenderStatus, AFoundCloseCallIsAcceptedOncePerScreen) {
  VcRig rig(Family::Bcd);
  rig.connect();
  auto screen = stsReply("0000100", {"CC Found!", "x"});
  rig.sts(screen);
  rig.sts(screen);
  int accepts = static_cast<int>(
      std::count(rig.port.commands().begin(), rig.port.commands().end(), "KEY,E,P"));
  EXPECT_EQ(accepts, 2);
}

TEST(RenderStatus, SignalBarsShowOnlyWhileBusyAndTheLastGlyphFoundWins) {
  struct Case {
    std::string top;
    bool busy;
    int bars;
  } cases[] = {
      {"Scan " + glyphs({172, 173}), false, 0},
      {"Scan " + glyphs({172, 173}), true, 4},
      {"Scan " + glyphs({170, 171}) + glyphs({167}), true, 3},  // order of the search, not text
      {"Scan " + glyphs({168, 169}), true, 2},
      {"Scan " + glyphs({167}), true, 1},
      {"Scan " + glyphs({166}), true, 0},
      {"Scan", true, 0},
  };
  for (const auto& c : cases) {
    VcRig rig(Family::Bcd);
    rig.vc->status.busy = c.busy;
    rig.vc->status.display.signalBars = 5;
    rig.sts(stsReply("0000100", {c.top}));
    EXPECT_EQ(rig.vc->status.display.signalBars, c.bars) << c.busy;
  }
  VcRig rig(Family::Bcd);
  rig.vc->decoder.SetSignalBars(150);
  EXPECT_EQ(rig.vc->status.display.signalBars, 0);
  rig.vc->decoder.SetSignalBars(3);
  EXPECT_EQ(rig.vc->status.display.signalBars, 3);
}

TEST(RenderStatus, IconAndArrowGlyphsSetTheirMarksAndAreBlanked) {
  VcRig rig(Family::Bcd);
  rig.sts(stsReply("0000100", {glyphs({4}) + "A" + glyphs({135, 136}) + "B" + glyphs({137, 138}),
                               glyphs({2}) + "List" + glyphs({183, 184})}));
  const auto& d = rig.vc->status.display;
  EXPECT_EQ(std::tie(d.fIcon, d.icon, d.arrow, d.rows[0].text, d.rows[1].text),
            std::make_tuple(true, 1, "t", " A  B  ", " List  "));
  rig.sts(stsReply("0000100", {"x", glyphs({181, 182, 3})}));
  EXPECT_EQ(std::tie(d.fIcon, d.icon, d.arrow), std::make_tuple(false, 2, "u"));
}

TEST(RenderStatus, HoldAndAvoidMarksSitWhereTheLayoutPutsThem) {
  const std::string hold = glyphs({156, 157, 158, 159});
  const std::string both = glyphs({152, 153, 154, 155});
  struct Case {
    const char* word;
    int fields[3];
    std::size_t column;
  } cases[] = {
      {"0000100", {6, 8, 12}, 33}, {"00111", {6, 8, 10}, 33}, {"00110110110000", {10, 16, 24}, 21}};
  for (const auto& c : cases) {
    std::vector<std::string> lines(13, pad("", 40));
    auto put = [&](int field, const std::string& mark) {
      lines[field / 2 - 1].replace(c.column - 1, 4, mark);
    };
    put(c.fields[0], hold);
    put(c.fields[1], both);
    put(c.fields[2], "    ");
    VcRig rig(Family::Bcd);
    rig.vc->status.display.marks[2] = {true, true};
    rig.sts(stsReply(c.word, lines));
    const auto& m = rig.vc->status.display.marks;
    EXPECT_TRUE(m[0].hold && !m[0].avoid) << c.word;
    EXPECT_TRUE(m[1].hold && m[1].avoid) << c.word;
    EXPECT_TRUE(!m[2].hold && !m[2].avoid) << c.word;
  }
}

TEST(RenderStatus, GlyphsOfEveryLineTranslateToText) {
  struct Case {
    std::string in;
    std::string out;
  } cases[] = {
      {"A" + glyphs({8, 9, 11}), "A AM"},           {"A" + glyphs({12, 14, 11}), "A FM"},
      {"A" + glyphs({15, 16, 14, 11}), "A NFM"},    {"A" + glyphs({18, 20, 14, 11}), "A WFM"},
      {"A" + glyphs({12, 14, 21, 22}), "A FMB"},    {glyphs({177, 178, 179}), "IFX"},
      {"Scanning" + glyphs({6, 7}), "Scanning..."}, {glyphs({145, 146}) + "Fire", "PRI Fire"},
      {"a" + glyphs({128}) + "b", "a_b"},           {"x " + glyphs({2}) + " y", "x U y"},
      {"x " + glyphs({3}) + " y", "x D y"},         {"x" + glyphs({200}) + glyphs({135}), "x  "},
  };
  for (const auto& c : cases) {
    VcRig rig(Family::Bcd);
    // Line 3 (field 6): the arrow rule of lines 1 and 2 does not touch it.
    rig.sts(stsReply("0000100", {"", "", c.in}));
    EXPECT_EQ(rig.vc->status.display.rows[2].text, c.out);
  }
}

TEST(RenderStatus, NameRowsFollowTheChannelRecordOrTheScreenBetweenHits) {
  VcRig rig(Family::Bcd);
  auto& st = rig.vc->status;
  rig.glg(glgReply("0154.4300", "Dispatch", "", true, "NONE", "County", "Fire"));
  rig.sts(stsReply("0000100", channelScreen()));
  EXPECT_EQ(st.display.names[0] + "/" + st.display.names[2], "County/Dispatch");

  rig.glg("GLG,,,,,,,,,,,,\r");
  st.ldat[ld::kSystem] = "Last System";
  st.ldat[ld::kDepartment] = "Last Dept";
  rig.sts(stsReply("0000100", channelScreen()));
  EXPECT_EQ(st.display.names, (Names{pad("County", 34), pad("Fire", 34), "Scanning"}));

  rig.vc->options.namesWhileScanning = true;
  rig.sts(stsReply("0000100", channelScreen()));
  EXPECT_EQ(st.display.names[0] + "/" + st.display.names[2], "Last System/Scanning");

  std::vector<std::string> lines(13);
  for (int i = 0; i < 13; ++i) lines[i] = pad("L" + std::to_string(2 * (i + 1)), 30);
  rig.sts(stsReply("00110110110000", lines));
  EXPECT_EQ(st.display.names, (Names{pad("L6", 24) + pad("L8", 24), pad("L12", 24) + pad("L14", 24),
                                     pad("L18", 24) + pad("L20", 24)}));
}

TEST(RenderStatus, MenuLinesInvertWhereTheirAttributeIsOne) {
  VcRig rig(Family::Bcd);
  rig.sts(
      "STS,1111111111,Item 1,,Item 2,1,Item 3,0,Item 4,,Item 5,,Item 6,,Item 7,,Item 8,,"
      "Item 9,,Item 10,\r");
  const auto& rows = rig.vc->status.display.rows;
  EXPECT_EQ(std::tie(rows[1].text, rows[9].text), std::make_tuple("Item 2", "Item 10"));
  EXPECT_EQ(std::make_tuple(rows[0].inverted, rows[1].inverted, rows[2].inverted),
            std::make_tuple(false, true, false));

  std::string sparse = "STS,0001111000000000";
  for (int f = 2; f <= 29; ++f) sparse += ",F" + std::to_string(f);
  rig.sts(sparse + "\r");
  const int expected[10] = {2, 4, 8, 10, 14, 18, 20, 22, 26, 28};
  for (int k = 0; k < 10; ++k) EXPECT_EQ(rows[k].text, "F" + std::to_string(expected[k]));
}

TEST(RenderStatus, TheChannelScreenGivesServiceFavoritesAndFrequencyLines) {
  VcRig rig(Family::Bcd);
  auto lines = channelScreen();
  lines[5] = pad("Fire Dispatch  ", 15) + " " + pad("Engine 1", 16) + "    ";
  rig.sts(stsReply("0000100", lines));
  const auto& d = rig.vc->status.display;  // frequency line 3: line 5, and the empty field 16
  EXPECT_EQ(std::tie(d.service, d.fav, d.frequencyLines[0], d.frequencyLines[2]),
            std::make_tuple("Fire Dispatch  ", "My List         ", pad("Scan", 36),
                            pad("154.4300MHz", 36)));
}

TEST(StsParser, CloseCallAndUidComeFromTheirLines) {
  VcRig rig(Family::Bcd);
  auto& st = rig.vc->status;
  auto lines = channelScreen();
  lines[2] = pad("Close Call", 36);
  lines[3] = pad(pad("155.4750MHz", 17) + "NFM", 36);
  lines[6] = pad("UID:1872001", 20) + pad("My List", 16);
  rig.sts(stsReply("0000100", lines));
  EXPECT_EQ(std::tie(st.ccdata[0], st.ccdata[1], st.ldat[ld::kUid], st.uidText),
            std::make_tuple("155.4750MHz ", "NFM", "1872001", "1872001"));

  lines = channelScreen();
  lines[5] = pad("Fire Dispatch", 14) + "TGID:2412";
  lines[6] = pad("Engine 5 tagged", 40);
  rig.sts(stsReply("0000100", lines));
  EXPECT_EQ(std::tie(st.ccdata[0], st.ldat[ld::kUid], st.uidText),
            std::make_tuple("", pad("Engine 5 tagged", 37), "TaggedID?"));

  std::vector<std::string> eleven(11, "");
  eleven[10] = "UID:  99     x";  // nine characters from column 5, trimmed
  rig.sts(stsReply("00110110110000", eleven));
  EXPECT_EQ(st.ldat[ld::kUid], "99");
}

TEST(StsParser, TwoKnownNamesWithCommasAreRepaired) {
  EXPECT_EQ(StatusDecoder::fixStatus("STS,0000100,Springfield, City of,,x\r"),
            "STS,0000100,Springfield; City of,,x\r");
  EXPECT_EQ(StatusDecoder::fixStatus("STS,0,Precincts 121, 122, 123,"),
            "STS,0,Precincts 121 122 123,");
  EXPECT_EQ(StatusDecoder::fixGlg("GLG,1,FM,0,,Springfield, City of,Fire"),
            "GLG,1,FM,0,,Springfield; City of,Fire");
}

TEST(StsParser, TheSdsWindowReadsTheSiteLines) {
  VcRig rig(Family::Sds);
  rig.sts(
      "STS,00001010100000000,Scan Mode.,,Sys ID: 1A2     TGID: 2412    ,,"
      "RFSS ID: 1      Site ID: 12   ,,WACN: ---       NOISE:38500   ,\r");
  const auto& l = rig.vc->status.ldat;
  EXPECT_EQ(std::tie(l[ld::kSystemIndex], l[ld::kRfssId], l[ld::kSiteIndex], l[ld::kWacn],
                     l[ld::kInfoScanMode]),
            std::make_tuple("1A2", "1", "12", "", "Scan Mode"));
}

TEST(RenderStatusSds, BetweenHitsTheChannelScreensNamesComeFromItsOwnLines) {
  VcRig rig(Family::Sds);
  auto& st = rig.vc->status;
  rig.glg("GLG,,,,,,,,,,,,\r");
  std::vector<std::string> lines(13);
  for (int i = 0; i < 13; ++i) lines[i] = "L" + std::to_string(2 * (i + 1));
  struct Case {
    const char* word;
    const char* system;
    const char* department;
  } cases[] = {{"00001010100000000", "L10", "L14"}, {"0000100", "L6", "L8"}};
  for (const Case& c : cases) {
    rig.sts(stsReply(c.word, lines));
    EXPECT_EQ(std::tie(st.display.names[0], st.display.names[1]),
              std::make_tuple(c.system, c.department))
        << c.word;
  }
}

}  // namespace
}  // namespace zel::control
