#include "transfer/favorites_card.h"

#include <algorithm>
#include <filesystem>
#include <set>
#include <system_error>

#include "core/text.h"
#include "formats/hpd_format.h"
#include "formats/text_file.h"

namespace zel::transfer {

namespace fs = std::filesystem;

std::string CardPaths::listFileName(int number) const {
  const std::string stem = family == CardFamily::HomePatrol ? "favorites_000" : "f_000";
  return stem + padNumber(number, 3) + ".hpd";
}

CardPaths cardPaths(const std::string& scannerRoot, CardFamily family) {
  CardPaths p;
  p.family = family;
  p.folder = (fs::path(scannerRoot) / "favorites_lists").string();
  if (family == CardFamily::HomePatrol) {
    p.config = p.folder + "/favorites_lists.config";
    p.backup = p.folder + "/favorites_lists.backup";
  } else {
    p.config = p.folder + "/f_list.cfg";
    p.backup = p.folder + "/f_list.bac";
  }
  return p;
}

// The row of a list about to be made under `number`, before its flags are set.
static FavoritesRow newListRow(int number, const std::string& name, const std::string& file) {
  FavoritesRow r;
  r.key = rowKey(number);
  r.tag = "F-List";
  r.name = name;
  r.file = file;
  return r;
}

std::string backupNameOf(std::string_view file) {
  std::string name(file);
  auto dot = name.rfind('.');
  if (dot != std::string::npos) name.resize(dot);
  return name + ".bac";
}

FavoritesCard::FavoritesCard(const CardState& card, CardFamily family)
    : card_(card),
      paths_(cardPaths(card.scannerRoot, family)),
      tag_(favoritesTag(card.isUbcdFolder, card.is3600)) {}

StepStatus FavoritesCard::load() {
  rows_.clear();
  viewChanged_ = false;
  removeStaleTemporaries(paths_.folder);
  if (!formats::fileExists(paths_.config)) return {};
  auto text = formats::readWholeFile(paths_.config);
  if (!text) return {false, "Cannot read " + fs::path(paths_.config).filename().string() + "."};
  rows_ = parseFavoritesConfig(*text);
  return {};
}

int FavoritesCard::lowestFreeNumber() const {
  std::set<std::string> keys;
  for (const auto& r : rows_) keys.insert(r.key);
  const CardPaths bcd = cardPaths(card_.scannerRoot, CardFamily::Bcd);
  const CardPaths home = cardPaths(card_.scannerRoot, CardFamily::HomePatrol);
  auto fileOnCard = [&](int n) {
    return formats::fileExists(bcd.path(bcd.listFileName(n))) ||
           formats::fileExists(home.path(home.listFileName(n)));
  };
  int n = 1;
  while (keys.count(rowKey(n)) || (!overwriteFiles_ && fileOnCard(n))) ++n;
  return n;
}

int FavoritesCard::rowOfNumber(int number) const {
  const std::string key = rowKey(number);
  for (std::size_t i = 0; i < rows_.size(); ++i) {
    if (rows_[i].key == key) return static_cast<int>(i);
  }
  return -1;
}

StepStatus FavoritesCard::keepBackup(CardTransaction& tx, const std::string& file,
                                     std::vector<std::string>& kept) {
  const std::string bac = backupNameOf(file);
  if (std::find(backupsMade_.begin(), backupsMade_.end(), bac) != backupsMade_.end()) return {};
  kept.push_back(bac);
  return tx.copy(paths_.path(file), paths_.path(bac));
}

StepStatus FavoritesCard::writeConfigIn(CardTransaction& tx,
                                        const std::vector<FavoritesRow>& rows) {
  // The backup is refreshed from the configuration on the card before it is replaced.
  if (formats::fileExists(paths_.config)) {
    auto st = tx.copy(paths_.config, paths_.backup);
    if (!st.ok) return st;
  }
  return tx.write(paths_.config, formatFavoritesConfig(rows, tag_));
}

StepStatus FavoritesCard::replaceRows(std::vector<FavoritesRow> rows) {
  CardTransaction tx;
  auto st = writeConfigIn(tx, rows);
  if (!st.ok) {
    tx.rollback();
    return st;
  }
  tx.commit();
  rows_ = std::move(rows);
  viewChanged_ = false;
  return {};
}

StepStatus FavoritesCard::writeConfig() {
  return replaceRows(rows_);
}

SaveOutcome FavoritesCard::saveList(std::string_view hpdText, std::string name,
                                    std::optional<int> overwrite, bool copyInName) {
  SaveOutcome out;
  // The name ends up as one TAB-separated field of a CR LF line.
  name = formats::cleanName(name, "");
  if (copyInName && !startsWith(name, "[F")) name = "[F" + name + "]";
  auto rows = rows_;
  int row = -1;
  if (overwrite) {
    row = rowOfNumber(*overwrite);
    if (row < 0) {
      out.status = {false, "There is no favorites list " + std::to_string(*overwrite) + "."};
      return out;
    }
    out.number = *overwrite;
    out.file = rows[row].file;
    if (!name.empty()) rows[row].name = name;
  } else {
    out.number = lowestFreeNumber();
    if (out.number > 999) {
      out.status = {false, "The card holds no free favorites list number."};
      return out;
    }
    out.file = paths_.listFileName(out.number);
    rows.push_back(newListRow(out.number, name, out.file));
    row = static_cast<int>(rows.size()) - 1;
  }
  rows[row].startupKeys = "1111111111";
  rows[row].systemKeys = std::string(100, '1');
  rows[row].state = "saved";

  // A fresh card may lack the folder; a failed save takes it away again.
  std::error_code ec;
  const bool madeFolder = fs::create_directories(paths_.folder, ec);
  CardTransaction tx;
  const std::string listPath = paths_.path(out.file);
  std::vector<std::string> kept;
  if (formats::fileExists(listPath)) out.status = keepBackup(tx, out.file, kept);
  // The list is complete on the card before the configuration names it.
  if (out.status.ok) out.status = tx.write(listPath, hpdText);
  if (out.status.ok) out.status = writeConfigIn(tx, rows);
  if (!out.status.ok) {
    tx.rollback();
    if (madeFolder) fs::remove(paths_.folder, ec);
    return out;
  }
  tx.commit();
  backupsMade_.insert(backupsMade_.end(), kept.begin(), kept.end());
  rows_ = std::move(rows);
  viewChanged_ = false;
  return out;
}

StepStatus FavoritesCard::deleteList(int number) {
  const int row = rowOfNumber(number);
  if (row < 0) return {false, "There is no favorites list " + std::to_string(number) + "."};
  auto rows = rows_;
  const std::string file = rows[row].file;
  rows.erase(rows.begin() + row);
  CardTransaction tx;
  StepStatus st;
  const std::string listPath = paths_.path(file);
  const bool hasFile = !file.empty() && formats::fileExists(listPath);
  std::vector<std::string> kept;
  if (hasFile) st = keepBackup(tx, file, kept);
  if (st.ok) st = writeConfigIn(tx, rows);
  if (st.ok && hasFile) st = tx.remove(listPath);
  if (!st.ok) {
    tx.rollback();
    return st;
  }
  tx.commit();
  backupsMade_.insert(backupsMade_.end(), kept.begin(), kept.end());
  rows_ = std::move(rows);
  viewChanged_ = false;
  return {};
}

StepStatus FavoritesCard::reorder(const std::vector<int>& numbers) {
  std::vector<FavoritesRow> rows;
  std::vector<bool> taken(rows_.size(), false);
  for (int n : numbers) {
    const int row = rowOfNumber(n);
    if (row < 0) return {false, "There is no favorites list " + std::to_string(n) + "."};
    if (taken[row]) return {false, "List " + std::to_string(n) + " is named twice."};
    taken[row] = true;
    rows.push_back(rows_[row]);
  }
  for (std::size_t i = 0; i < rows_.size(); ++i) {
    if (!taken[i]) rows.push_back(rows_[i]);
  }
  return replaceRows(std::move(rows));
}

std::vector<FavoritesRow> withQuickKeys(std::vector<FavoritesRow> rows, QuickKeyCommand command) {
  switch (command) {
    case QuickKeyCommand::Clear:
      for (auto& r : rows) r.quickKey = "Off";
      break;
    case QuickKeyCommand::Auto: {
      std::set<int> used;
      for (const auto& r : rows) {
        const std::string key = normaliseQuickKey(r.quickKey);
        if (key != "Off") used.insert(std::stoi(key));
      }
      int next = 0;
      for (auto& r : rows) {
        if (normaliseQuickKey(r.quickKey) != "Off") continue;
        while (used.count(next)) ++next;
        if (next > 98) break;  // no key left: the rest stay "Off"
        r.quickKey = std::to_string(next);
        used.insert(next);
      }
      break;
    }
    case QuickKeyCommand::SystemsOn:
      for (auto& r : rows) r.systemKeys = std::string(100, '1');
      break;
    case QuickKeyCommand::AllOn:
      for (auto& r : rows) {
        r.startupKeys = std::string(10, '1');
        r.systemKeys = std::string(100, '1');
      }
      break;
  }
  return rows;
}

StepStatus FavoritesCard::quickKeys(QuickKeyCommand command) {
  auto rows = withQuickKeys(rows_, command);
  return replaceRows(std::move(rows));
}

std::vector<std::string> FavoritesCard::orphans() const {
  std::set<std::string> named;
  for (const auto& r : rows_) named.insert(r.file);
  std::vector<std::string> out;
  std::error_code ec;
  for (fs::directory_iterator it(paths_.folder, ec), end; !ec && it != end; it.increment(ec)) {
    const std::string name = it->path().filename().string();
    if (!endsWith(toLower(name), ".hpd")) continue;
    // Only the list naming: f_000nnn.hpd or favorites_000nnn.hpd, nothing else of the folder.
    if (!endsWith(name, ".hpd") || listFileNumber(name) < 0) continue;
    if (!named.count(name)) out.push_back(name);
  }
  std::sort(out.begin(), out.end());
  return out;
}

SaveOutcome FavoritesCard::recoverOrphan(const std::string& file) {
  SaveOutcome out;
  const auto listed = orphans();
  if (std::find(listed.begin(), listed.end(), file) == listed.end()) {
    out.status = {false, file + " is not an orphan list."};
    return out;
  }
  auto bytes = formats::readWholeFile(paths_.path(file));
  if (!bytes) {
    out.status = {false, "Cannot read " + file + " on the card."};
    return out;
  }
  // The orphan keeps its own file until the copy at the free number is complete.
  return saveList(*bytes, "Orphan " + file, std::nullopt, false);
}

StepStatus FavoritesCard::deleteOrphan(const std::string& file) {
  for (const auto& o : orphans()) {
    if (o == file) {
      CardTransaction tx;
      auto st = tx.remove(paths_.path(file));
      if (!st.ok) {
        tx.rollback();
        return st;
      }
      tx.commit();
      return {};
    }
  }
  return {false, file + " is not an orphan list."};
}

void FavoritesCard::applyQuickKeys(QuickKeyCommand command) {
  rows_ = withQuickKeys(std::move(rows_), command);
  viewChanged_ = true;
}

void FavoritesCard::enableAllKeys(const std::vector<int>& rowIndexes) {
  for (int i : rowIndexes) {
    if (i < 0 || i >= static_cast<int>(rows_.size())) continue;
    rows_[i].startupKeys = std::string(10, '1');
    rows_[i].systemKeys = std::string(100, '1');
    viewChanged_ = true;
  }
}

bool FavoritesCard::arrangeRows(const std::vector<int>& rowIndexes) {
  std::vector<bool> taken(rows_.size(), false);
  std::vector<FavoritesRow> rows;
  rows.reserve(rows_.size());
  for (int i : rowIndexes) {
    if (i < 0 || i >= static_cast<int>(rows_.size()) || taken[i]) return false;
    taken[i] = true;
    rows.push_back(rows_[i]);
  }
  for (std::size_t i = 0; i < rows_.size(); ++i) {
    if (!taken[i]) rows.push_back(rows_[i]);
  }
  if (rows.size() != rows_.size()) return false;
  bool same = true;
  for (std::size_t i = 0; i < rows.size() && same; ++i) same = rows[i].key == rows_[i].key;
  rows_ = std::move(rows);
  if (!same) viewChanged_ = true;
  return true;
}

bool FavoritesCard::moveDown(int rowIndex) {
  if (rowIndex < 0 || rowIndex + 1 >= static_cast<int>(rows_.size())) return false;
  std::swap(rows_[rowIndex], rows_[rowIndex + 1]);
  viewChanged_ = true;
  return true;
}

bool FavoritesCard::editRow(int rowIndex, const FavoritesRow& edited) {
  if (rowIndex < 0 || rowIndex >= static_cast<int>(rows_.size())) return false;
  FavoritesRow& r = rows_[rowIndex];
  // The view's names go back into the document one day: a comma is its field mark; and
  // the name is one TAB-separated field of the configuration's line.
  r.name = replaceAll(formats::cleanName(edited.name, ""), ",", ";");
  r.monitor = edited.monitor;
  r.locationControl = edited.locationControl;
  r.quickKey = edited.quickKey;
  r.numberTag = edited.numberTag;
  viewChanged_ = true;
  return true;
}

SaveOutcome FavoritesCard::addServiceSearch(std::string_view hpdText, const std::string& caption) {
  SaveOutcome out;
  // The prepared lists have always gone to the card under the HomePatrol names and its
  // configuration file; a BCD card's own f_list.cfg takes the row when the view is saved.
  const CardPaths home = cardPaths(card_.scannerRoot, CardFamily::HomePatrol);
  out.number = lowestFreeNumber();
  if (out.number > 999) {
    out.status = {false, "The card holds no free favorites list number."};
    return out;
  }
  out.file = home.listFileName(out.number);
  auto rows = rows_;
  rows.push_back(newListRow(out.number, caption, out.file));

  std::error_code ec;
  const bool madeFolder = fs::create_directories(home.folder, ec);
  CardTransaction tx;
  const std::string listPath = home.path(out.file);
  if (formats::fileExists(listPath)) {
    out.status = tx.copy(listPath, home.path(backupNameOf(out.file)));
  }
  if (out.status.ok) out.status = tx.write(listPath, hpdText);
  if (out.status.ok && formats::fileExists(home.config)) {
    out.status = tx.copy(home.config, home.backup);
  }
  if (out.status.ok) out.status = tx.write(home.config, formatFavoritesConfig(rows, tag_));
  if (!out.status.ok) {
    tx.rollback();
    if (madeFolder) fs::remove(home.folder, ec);
    return out;
  }
  tx.commit();
  rows_ = std::move(rows);
  // On a HomePatrol card the whole view is now the card's configuration; elsewhere
  // f_list.cfg does not name the list yet.
  viewChanged_ = paths_.config != home.config;
  return out;
}

}  // namespace zel::transfer
