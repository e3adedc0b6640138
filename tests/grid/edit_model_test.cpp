// The grid keyboard driven by key events, with no window: typing, commits, moves, Escape,
// shortcuts, the edit aids, default data and the status texts.
#include "grid/edit_model.h"

#include <gtest/gtest.h>

#include "core/memory_ports.h"

namespace zel {
namespace {

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
  EXPECT_EQ(model.editText(), "154.1");
  EXPECT_EQ(grid.textMatrix(1, 1), "154.100000");
  EXPECT_EQ(model.statusText(), "5");
  model.key(KeyEvent::of(EditKey::Return));
  EXPECT_FALSE(model.editing());
  EXPECT_EQ(model.editText(), "");
  EXPECT_EQ(grid.row(), 2);
  EXPECT_EQ(grid.textMatrix(1, 1), "154.100000");
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
  EXPECT_EQ(grid.row(), 1);
  EXPECT_EQ(grid.col(), 2);
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
  struct Case {
    const char* heading;
    char key;
    bool allowed;
  } cases[] = {
      {"Frequency", '5', true},   {"Frequency", '.', true},  {"Frequency", 'a', false},
      {"Frequency", ',', false},  {"Frequency", '-', false}, {"NumberTag", ' ', false},
      {"SQ Code", 'a', true},     {"SQ Code", 'F', true},    {"SQ Code", 'g', false},
      {"SQ Code", ' ', true},     {"SQ Code", '.', true},    {"Talkgroup", '*', true},
      {"Talkgroup", '-', true},   {"Talkgroup", 'i', false}, {"TGID", '7', true},
      {"Alpha Tag", ',', false},  {"Alpha Tag", '=', false}, {"Alpha Tag", '"', false},
      {"Alpha Tag", '\\', false}, {"Alpha Tag", 'x', true},  {"Comments", '{', false},
      {"Alpha Tag", '\b', true},  {"Unit ID", '.', false},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(EditModel::keyAllowed(c.heading, static_cast<unsigned char>(c.key)), c.allowed)
        << c.heading << " '" << c.key << "'";
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

TEST_F(EditModelTest, ShortcutTable) {
  struct Case {
    const char* heading;
    char key;
    const char* current;
    const char* text;
  } cases[] = {
      {"Mode", 'u', "", "AUTO"},
      {"Mode", 'T', "", "AUTO"},
      {"Mode", 'O', "", "AUTO"},
      {"Mode", 'a', "", "AM"},
      {"Mode", 'F', "", "FM"},
      {"Mode", 'n', "", "NFM"},
      {"Mode", 'W', "", "WFM"},
      {"Mode", 'b', "", "FMB"},
      {"Mode", 'x', "", ""},
      {"SQ Mode", '0', "", "All"},
      {"SQ Mode", 'n', "", "All"},
      {"SQ Mode", 'T', "", "CTCSS"},
      {"SQ Mode", 'd', "", "DCS"},
      {"SQ Mode", 'P', "", "P25"},
      {"SQ Mode", 'r', "", "RAN"},
      {"SQ Mode", 'I', "", "IDAS"},
      {"SQ Mode", 's', "", "Search"},
      {"SQ Code", 'S', "", "Search"},
      {"Delay Time", 'F', "", "0"},
      {"Delay Time", '1', "", "10"},
      {"Delay Time", 'N', "", "2"},
      {"Delay Time", 'd', "", "2"},
      {"Delay Time", '3', "", "30"},
      {"Delay Time", '5', "", "5"},
      {"Delay Time", '-', "", "-5"},
      {"Delay Time", '-', "5", "-5"},
      {"Delay Time", '-', "2", "-2"},
      {"Delay Time", '-', "10", "-10"},
      {"Delay Time", '-', "30", ""},
      {"Volume Offset", '3', "", "3"},
      {"Volume Offset", '-', "", "-1"},
      {"Volume Offset", '-', "2", "-2"},
      {"Volume Offset", '-', "3", "-3"},
      {"Alert Light", 'f', "", "Off"},
      {"Alert Light", 'M', "", "Magenta"},
      {"Alert Light", 'y', "", "Yellow"},
      {"Alert Pattern", 'O', "", "On"},
      {"Alert Pattern", 's', "", "Slow Blink"},
      {"Alert Pattern", 'F', "", "Fast Blink"},
      {"AudioType", 'L', "", "All"},
      {"AudioType", 'a', "", "Analog"},
      {"AudioType", 'D', "", "Digital"},
      {"Alert Tone", 'F', "", "Off"},
      {"Alert Level", 'A', "", "Auto"},
      {"Alert Level", '0', "", "10"},
      {"DMR Tslot", 'a', "", "Any"},
      {"DMR Tslot", '2', "", "2"},
      {"Avoid", 'N', "", "On"},
      {"Avoid", '0', "On", "Off"},
      {"Priority", '1', "", "On"},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(EditModel::shortcut(c.heading, c.key, c.current), c.text)
        << c.heading << " '" << c.key << "' from '" << c.current << "'";
  }
  EXPECT_EQ(EditModel::shortcut("Delay Time", 0, "", true), "2");
}

TEST_F(EditModelTest, ShortcutKeysOnListColumnsWriteTheCell) {
  grid.setCol(4);
  EXPECT_TRUE(model.key(KeyEvent::character('n')));
  EXPECT_EQ(grid.textMatrix(1, 4), "NFM");
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
  EXPECT_EQ(grid.textMatrix(1, 3), "On");
  model.key(KeyEvent::of(EditKey::Space));
  EXPECT_EQ(grid.textMatrix(1, 3), "Off");
  grid.setCol(4);
  EXPECT_FALSE(model.key(KeyEvent::of(EditKey::Space)));
}

TEST_F(EditModelTest, F2OpensTheAidThatFitsTheListAndAPickStoresTheWord) {
  grid.setCol(3);  // Off, On
  EXPECT_EQ(model.openEditAid().aid, EditAid::OptionBar);
  grid.setCol(4);  // six modes
  EditAidState modes = model.openEditAid();
  EXPECT_EQ(modes.aid, EditAid::OptionBar);
  ASSERT_EQ(modes.items.size(), 6u);
  EXPECT_EQ(modes.items[0], "AUTO");
  grid.setCol(6);  // SQ Code follows SQ Mode
  grid.setTextMatrix(1, 5, "DCS");
  EditAidState dcs = model.openEditAid();
  EXPECT_EQ(dcs.aid, EditAid::DropList);
  EXPECT_EQ(dcs.items.size(), 105u);
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
  EXPECT_EQ(grid.textMatrix(1, 4), "WFM");
  EXPECT_EQ(model.aid().aid, EditAid::None);
}

TEST_F(EditModelTest, DefaultDataFillsANewRowOnceItsKeyIsFilled) {
  model.setDefaultData({{"Avoid", "Off"}, {"Mode", "AUTO"}, {"Delay Time", "2"}});
  grid.setRow(2);
  grid.setTextMatrix(2, 4, "FM");  // a value already there is kept
  type("1");
  EXPECT_EQ(grid.textMatrix(2, 3), "Off");
  EXPECT_EQ(grid.textMatrix(2, 4), "FM");
  EXPECT_EQ(grid.textMatrix(2, 7), "2");
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
  EXPECT_EQ(EditModel::helpText("NumberTag"), "Enter number tag 0-999 (optional)");
  EXPECT_EQ(EditModel::helpText("Car#"), "Enter car number (1-999)");
  EXPECT_EQ(EditModel::helpText("Step"), "Select step. Use F2 or double click to edit.");
}

}  // namespace
}  // namespace zel
