// The keyboard of a grid, without a window: which keys a column takes, which edit aid F2
// or a double click opens, how Return, Tab and Escape commit, move and restore, the list
// shortcuts, the status help texts and the count of typed characters. The desktop grid
// forwards its key events here; tests drive it with the same events and no window.
//
//   key              on a free column                  on a list column
//   letter, digit    opens the edit box with it        shortcut of the column
//   F2, dbl click    edit box                          option bar (<= 10 items), drop list
//   Return           commit to the selection, down     -
//   Tab              commit, right                     -
//   Escape           restore the cell as it was        -
//   Space            -                                 toggles an On/Off column
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "grid/cell_commit.h"
#include "grid/grid_env.h"
#include "grid/grid_page.h"

namespace zel {

enum class EditKey { Character, Return, Tab, Escape, Space, F2, KeypadPlus, Backspace };

struct KeyEvent {
  EditKey key = EditKey::Character;
  char ch = 0;  // for Character
  static KeyEvent character(char c) { return {EditKey::Character, c}; }
  static KeyEvent of(EditKey k) { return {k, 0}; }
};

enum class EditAid { None, EditBox, OptionBar, DropList };

struct EditAidState {
  EditAid aid = EditAid::None;
  std::vector<std::string> items;  // the option bar or drop list
  int maxLength = 0;               // the edit box's limit, 0 for none
};

class EditModel {
 public:
  EditModel(GridPage& grid, cell::CommitEnv env, GridEnv gridEnv = {});

  // One key arriving at the grid (or, while the edit box is open, at the box). Returns
  // false when the key was refused or meant nothing here.
  bool key(const KeyEvent& event);
  // F2 or a double click on the current cell.
  EditAidState openEditAid();
  // A pick from the option bar or the drop list: stored in the current cell unchanged.
  void pick(std::string_view item);

  bool editing() const { return aid_.aid == EditAid::EditBox; }
  const EditAidState& aid() const { return aid_; }
  const std::string& editText() const { return editText_; }
  // The help text of the current column, or while the box is filled the count of typed
  // characters.
  std::string statusText() const;

  // The values a new row takes when its key cell is first filled, by heading.
  void setDefaultData(std::map<std::string, std::string> values) { defaults_ = std::move(values); }
  const std::map<std::string, std::string>& defaultData() const { return defaults_; }

  // Column groups of the key filter of the edit box; public for the desktop's own boxes.
  static bool keyAllowed(std::string_view heading, unsigned char code);
  // The shortcut of a list column for a key, given the cell's present text; "" for none.
  static std::string shortcut(std::string_view heading, char key, std::string_view current,
                              bool keypadPlus = false);
  static std::string helpText(std::string_view heading);
  static bool isOnOffColumn(std::string_view heading);

 private:
  std::string heading() const;
  std::vector<std::string> listFor(std::string_view heading) const;
  void openBox(std::string initial);
  void typeInBox(char c);
  bool commitBox(bool repeat);
  void closeBox();
  void fillDefaults(int row, bool wasEmpty);
  void store(std::string_view text);

  GridPage& grid_;
  cell::CommitEnv env_;
  GridEnv gridEnv_;
  EditAidState aid_;
  std::string editText_;
  std::string restore_;  // the cell as it was when the box opened
  bool keyWasEmpty_ = false;
  std::map<std::string, std::string> defaults_;
};

}  // namespace zel
