#include "grid/edit_model.h"

#include <cctype>

#include "core/text.h"
#include "grid/grid_routines.h"
#include "grid/vocabulary.h"

namespace zel {

EditModel::EditModel(GridPage& grid, cell::CommitEnv env, GridEnv gridEnv)
    : grid_(grid), env_(env), gridEnv_(gridEnv) {}

std::string EditModel::heading() const {
  return grid_.textMatrix(0, grid_.col());
}

std::vector<std::string> EditModel::listFor(std::string_view h) const {
  if (iequals(h, "SQ Code")) {
    // The codes on offer follow the kind of subtone chosen in the same row.
    return vocab::tabel(vocab::squelchCodeKey(g_get_data(&grid_, grid_.row(), "SQ Mode")));
  }
  if (isOnOffColumn(h)) return vocab::tabel("Avoid");
  return vocab::tabel(h);
}

EditAidState EditModel::openEditAid() {
  std::string h = heading();
  std::vector<std::string> items = listFor(h);
  if (items.empty()) {
    openBox(grid_.text());
  } else {
    aid_ = {};
    aid_.aid = items.size() <= 10 ? EditAid::OptionBar : EditAid::DropList;
    aid_.items = std::move(items);
  }
  return aid_;
}

void EditModel::openBox(std::string initial) {
  aid_ = {};
  aid_.aid = EditAid::EditBox;
  std::string h = heading();
  if (iequals(h, "Alpha Tag") || iequals(h, "Name") || iequals(h, "Name:")) aid_.maxLength = 64;
  if (iequals(h, "Comments")) aid_.maxLength = 60;
  if (h == "GSSI:") aid_.maxLength = 10;
  restore_ = grid_.text();
  keyWasEmpty_ = grid_.col() == 1 && trimView(grid_.textMatrix(grid_.row(), 1)).empty();
  editText_ = std::move(initial);
}

void EditModel::closeBox() {
  aid_ = {};
  editText_.clear();
}

void EditModel::fillDefaults(int row, bool wasEmpty) {
  if (!wasEmpty || trimView(grid_.textMatrix(row, 1)).empty()) return;
  for (const auto& [h, value] : defaults_) {
    int col = grid_.findColumn(h);
    if (col > 1 && grid_.textMatrix(row, col).empty()) grid_.setTextMatrix(row, col, value);
  }
}

void EditModel::typeInBox(char c) {
  if (aid_.maxLength > 0 && static_cast<int>(editText_.size()) >= aid_.maxLength) return;
  editText_.push_back(c);
  // Each keystroke is committed, so the cell shows the running form of what is typed.
  std::string running = editText_;
  int row = grid_.row();
  cell::cellCommit(&grid_, running, cell::kModePlain, env_);
  fillDefaults(row, keyWasEmpty_);
}

bool EditModel::commitBox(bool repeat) {
  std::string text = editText_;
  int row = grid_.row();
  if (repeat) grid_.setFillStyle(GridPage::FillStyle::Repeat);
  cell::CommitStatus status = cell::cellCommit(&grid_, text, cell::kModePlain, env_);
  grid_.setFillStyle(GridPage::FillStyle::Single);
  fillDefaults(row, keyWasEmpty_);
  return status == cell::CommitStatus::Stored;
}

void EditModel::store(std::string_view text) {
  grid_.setText(text);
  if (env_.changed) *env_.changed = true;
}

void EditModel::pick(std::string_view item) {
  store(item);
  aid_ = {};
}

bool EditModel::key(const KeyEvent& event) {
  if (editing()) {
    switch (event.key) {
      case EditKey::Character:
      case EditKey::Space: {
        char c = event.key == EditKey::Space ? ' ' : event.ch;
        if (!keyAllowed(heading(), static_cast<unsigned char>(c))) return false;
        typeInBox(c);
        return true;
      }
      case EditKey::Backspace: {
        if (editText_.empty()) return false;
        editText_.pop_back();
        std::string running = editText_;
        cell::cellCommit(&grid_, running, cell::kModePlain, env_);
        return true;
      }
      case EditKey::Return:
        commitBox(true);
        closeBox();
        incr_celld(&grid_, gridEnv_);
        return true;
      case EditKey::Tab:
        commitBox(false);
        closeBox();
        moveRight(&grid_, gridEnv_);
        return true;
      case EditKey::Escape:
        grid_.setTextMatrix(grid_.row(), grid_.col(), restore_);
        closeBox();
        return true;
      case EditKey::F2:
      case EditKey::KeypadPlus:
        return false;
    }
    return false;
  }

  std::string h = heading();
  bool listColumn = !listFor(h).empty();
  switch (event.key) {
    case EditKey::F2:
      openEditAid();
      return true;
    case EditKey::Return:
      return incr_celld(&grid_, gridEnv_);
    case EditKey::Tab:
      return moveRight(&grid_, gridEnv_);
    case EditKey::Space:
      if (!isOnOffColumn(h)) return false;
      store(grid_.text() == "On" ? "Off" : "On");
      return true;
    case EditKey::KeypadPlus: {
      std::string text = shortcut(h, 0, grid_.text(), true);
      if (text.empty()) return false;
      store(text);
      return true;
    }
    case EditKey::Character: {
      if (listColumn) {
        std::string text = shortcut(h, event.ch, grid_.text());
        if (text.empty()) return false;
        store(text);
        return true;
      }
      if (!std::isalnum(static_cast<unsigned char>(event.ch)) && event.ch != '.' &&
          event.ch != '-' && event.ch != '*')
        return false;
      if (!keyAllowed(h, static_cast<unsigned char>(event.ch))) return false;
      openBox({});
      typeInBox(event.ch);
      return true;
    }
    case EditKey::Escape:
    case EditKey::Backspace:
      return false;
  }
  return false;
}

std::string EditModel::statusText() const {
  if (editing() && !editText_.empty()) return std::to_string(editText_.size());
  return helpText(grid_.textMatrix(0, grid_.col()));
}

}  // namespace zel
