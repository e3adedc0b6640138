// The grid keyboard driven by key events, with no window: typing, commits, moves, Escape,
// shortcuts, the edit aids, default data and the status texts.
#include "grid/edit_model.h"

#include <gtest/gtest.h>

#include "core/memory_ports.h"
#include "core/text.h"
#include "grid/vocabulary.h"
#include "grid_test_support.h"

namespace zel {
namespace {

using test::cells;

class EditModelTest : public ::testing::Test {
 protected:
  EditModelTest() : grid(4, 9), model(grid, cell::CommitEnv{{}, &feedback, &changed}) {
    const char* headings[] = {"#",       "Frequency", "Alpha Tag",  "Avoid",        "Mode",
                              "SQ Mode", "SQ Code",   "Delay Time", "Volume Offset"};
    for (int c = 0; c < 9; ++c) grid.setTextMatrix(0, c, headings[c]);
    for (int r = 1; r < 4; ++r) grid.setTextMatrix(r, 0, std::to_string(r));
    grid.setRow(1);
    grid.setCol(1);
  }
  void type(std::string_view text) {
    for (char c : text) model.key(KeyEvent::character(c));
  }
  GridPage grid;
  RecordingFeedback feedback;
  bool changed = false;
  EditModel model;
};

TEST_F(EditModelTest, TypingOpensTheBoxAndShowsTheRunningForm) {
  type("154.1");
  EXPECT_TRUE(model.editing());
  EXPECT_EQ(model.editText() + "|" + grid.textMatrix(1, 1) + "|" + model.statusText(),
            "154.1|154.100000|5");
  model.key(KeyEvent::of(EditKey::Return));
  EXPECT_FALSE(model.editing());
  EXPECT_EQ(model.editText() + "|" + grid.textMatrix(1, 1), "|154.100000");
  EXPECT_EQ(grid.row(), 2);
  EXPECT_TRUE(changed);
}

TEST_F(EditModelTest, ReturnFillsTheSelectionAndResetsTheFillStyle) {
  grid.setRowSel(3);
  model.key(KeyEvent::of(EditKey::F2));
  ASSERT_EQ(model.aid().aid, EditAid::EditBox);
  type("460.0125");
  model.key(KeyEvent::of(EditKey::Return));
  for (int r = 1; r <= 3; ++r) EXPECT_EQ(grid.textMatrix(r, 1), "460.012500") << r;
  EXPECT_EQ(grid.fillStyle(), GridPage::FillStyle::Single);
}

TEST_F(EditModelTest, TabCommitsAndMovesRight) {
  type("88.5");
  model.key(KeyEvent::of(EditKey::Tab));
  EXPECT_EQ(grid.textMatrix(1, 1), "088.500000");
  EXPECT_EQ(std::make_pair(grid.row(), grid.col()), std::make_pair(1, 2));
}

TEST_F(EditModelTest, EscapeRestoresTheCell) {
  grid.setTextMatrix(1, 1, "154.000000");
  model.key(KeyEvent::of(EditKey::F2));
  EXPECT_EQ(model.editText(), "154.000000");
  for (int i = 0; i < 10; ++i) model.key(KeyEvent::of(EditKey::Backspace));
  type("460");
  EXPECT_EQ(grid.textMatrix(1, 1), "460.000000");
  model.key(KeyEvent::of(EditKey::Escape));
  EXPECT_EQ(grid.textMatrix(1, 1), "154.000000");
  EXPECT_FALSE(model.editing());
}

TEST_F(EditModelTest, KeyFiltersRefuseKeysByColumnGroup) {
  // heading|key and + for allowed, - for refused
  const std::string cases =
      "Frequency|5+;Frequency|.+;Frequency|a-;Frequency|,-;Frequency|--;NumberTag| -;SQ Code|a+;"
      "SQ Code|F+;SQ Code|g-;SQ Code| +;SQ Code|.+;Talkgroup|*+;Talkgroup|-+;Talkgroup|i-;"
      "TGID|7+;Alpha Tag|,-;Alpha Tag|=-;Alpha Tag|\"-;Alpha Tag|\\-;Alpha Tag|x+;Comments|{-;"
      "Alpha Tag|\b+;Unit ID|.-";
  for (const std::string& text : split(cases, ';')) {
    const auto c = split(text, '|');
    EXPECT_EQ(EditModel::keyAllowed(c[0], static_cast<unsigned char>(c[1][0])), c[1][1] == '+')
        << text;
  }
}

TEST_F(EditModelTest, TheNameColumnRefusesACommaAndStopsAt64Characters) {
  grid.setCol(2);
  type("Fire,Disp");
  EXPECT_EQ(model.editText(), "FireDisp");
  model.key(KeyEvent::of(EditKey::Return));
  EXPECT_EQ(grid.textMatrix(1, 2), "FireDisp");
  grid.setCol(2);
  type(std::string(70, 'x'));
  EXPECT_EQ(model.aid().maxLength, 64);
  EXPECT_EQ(model.editText().size(), 64u);
}

// Each key of `keys` on an empty cell of the column gives the text at the same place.
TEST_F(EditModelTest, ShortcutTable) {
  // heading|keys|the text of each key, ',' between
  const std::string cases =
      "Mode|uTOaFnWbx|AUTO,AUTO,AUTO,AM,FM,NFM,WFM,FMB,;"
      "SQ Mode|0nTdPrIs|All,All,CTCSS,DCS,P25,RAN,IDAS,Search;SQ Code|S|Search;"
      "Delay Time|F1Nd35-|0,10,2,2,30,5,-5;Volume Offset|3-|3,-1;"
      "Alert Light|fMy|Off,Magenta,Yellow;Alert Pattern|OsF|On,Slow Blink,Fast Blink;"
      "AudioType|LaD|All,Analog,Digital;Alert Tone|F|Off;Alert Level|A0|Auto,10;"
      "DMR Tslot|a2|Any,2;Avoid|N|On;Priority|1|On";
  for (const std::string& text : split(cases, ';')) {
    const auto c = split(text, '|');
    const auto texts = split(c[2], ',');
    ASSERT_EQ(c[1].size(), texts.size()) << text;
    for (std::size_t i = 0; i < texts.size(); ++i)
      EXPECT_EQ(EditModel::shortcut(c[0], c[1][i], ""), texts[i]) << c[0] << " '" << c[1][i] << "'";
  }
  // Minus turns the cell's value negative where the list has it; "0" on "On" is Off.
  // heading|key|cell|text
  const std::string onAValue =
      "Delay Time|-|5|-5;Delay Time|-|2|-2;Delay Time|-|10|-10;Delay Time|-|30|;"
      "Volume Offset|-|2|-2;Volume Offset|-|3|-3;Avoid|0|On|Off";
  for (const std::string& text : split(onAValue, ';')) {
    const auto c = split(text, '|');
    EXPECT_EQ(EditModel::shortcut(c[0], c[1][0], c[2]), c[3]) << text;
  }
  EXPECT_EQ(EditModel::shortcut("Delay Time", 0, "", true), "2");
}

TEST_F(EditModelTest, ShortcutKeysOnListColumnsWriteTheCell) {
  grid.setCol(4);
  EXPECT_TRUE(model.key(KeyEvent::character('n')));
  EXPECT_FALSE(model.key(KeyEvent::character('q')));
  EXPECT_EQ(grid.textMatrix(1, 4), "NFM");
  EXPECT_FALSE(model.editing());
  grid.setCol(7);
  grid.setTextMatrix(1, 7, "2");
  model.key(KeyEvent::character('-'));
  EXPECT_EQ(grid.textMatrix(1, 7), "-2");
}

TEST_F(EditModelTest, SpaceTogglesOnOff) {
  grid.setCol(3);
  EXPECT_TRUE(model.key(KeyEvent::of(EditKey::Space)));
  const std::string first = grid.textMatrix(1, 3);
  model.key(KeyEvent::of(EditKey::Space));
  EXPECT_EQ(first + "|" + grid.textMatrix(1, 3), "On|Off");
  grid.setCol(4);
  EXPECT_FALSE(model.key(KeyEvent::of(EditKey::Space)));
}

TEST_F(EditModelTest, F2OpensTheAidThatFitsTheListAndAPickStoresTheWord) {
  grid.setCol(3);  // Off, On
  EXPECT_EQ(model.openEditAid().aid, EditAid::OptionBar);
  grid.setCol(4);  // six modes
  EditAidState modes = model.openEditAid();
  EXPECT_EQ(modes.aid, EditAid::OptionBar);
  EXPECT_EQ(modes.items, vocab::tabel("Mode"));
  grid.setCol(6);  // SQ Code follows SQ Mode
  grid.setTextMatrix(1, 5, "DCS");
  EditAidState dcs = model.openEditAid();
  EXPECT_EQ(std::make_pair(dcs.aid, dcs.items.size()), std::make_pair(EditAid::DropList, 105ul));
  grid.setTextMatrix(1, 5, "DMR");
  EXPECT_EQ(model.openEditAid().items.size(), 17u);
  grid.setCol(7);  // ten delays: still an option bar
  EXPECT_EQ(model.openEditAid().aid, EditAid::OptionBar);
  grid.setCol(1);
  EXPECT_EQ(model.openEditAid().aid, EditAid::EditBox);
  // A pick stores the word unchanged and closes the aid.
  grid.setCol(4);
  model.openEditAid();
  model.pick("WFM");
  EXPECT_EQ(std::make_pair(grid.textMatrix(1, 4), model.aid().aid),
            std::make_pair(std::string("WFM"), EditAid::None));
}

TEST_F(EditModelTest, DefaultDataFillsANewRowOnceItsKeyIsFilled) {
  model.setDefaultData({{"Avoid", "Off"}, {"Mode", "AUTO"}, {"Delay Time", "2"}});
  grid.setRow(2);
  grid.setTextMatrix(2, 4, "FM");  // a value already there is kept
  type("1");
  EXPECT_EQ(cells(grid, {{2, 3}, {2, 4}, {2, 7}}), "Off|FM|2");
  model.key(KeyEvent::of(EditKey::Return));
  EXPECT_EQ(grid.textMatrix(2, 1), "025.000000");
  // A row that already had its key takes nothing.
  grid.setRow(1);
  grid.setTextMatrix(1, 1, "154.000000");
  model.key(KeyEvent::of(EditKey::F2));
  type("5");
  model.key(KeyEvent::of(EditKey::Return));
  EXPECT_EQ(grid.textMatrix(1, 3), "");
}

TEST_F(EditModelTest, StatusHelpTexts) {
  EXPECT_EQ(model.statusText(),
            "Enter frequency, press enter or TAB to store frequency. Use escape to restore "
            "original frequency.");
  grid.setCol(8);
  EXPECT_EQ(model.statusText(), "Enter volume offset: -3 to 3 (default = 0)");
  grid.setCol(3);
  EXPECT_EQ(model.statusText(),
            "Select ON or OFF. You can use shortcuts 0 or F = OFF, 1 or N = ON. Use double click "
            "or space bar to toggle data ON/OFF.");
  EXPECT_EQ(EditModel::helpText("NumberTag") + "|" + EditModel::helpText("Car#") + "|" +
                EditModel::helpText("Step"),
            "Enter number tag 0-999 (optional)|Enter car number (1-999)|Select step. Use F2 or "
            "double click to edit.");
}

}  // namespace
}  // namespace zel
