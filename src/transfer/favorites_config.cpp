#include "transfer/favorites_config.h"

#include "formats/favorites_config.h"

#include "core/text.h"
#include "formats/text_file.h"

namespace zel::transfer {

int listFileNumber(std::string_view file) {
  std::string_view stem = file;
  if (startsWith(stem, "favorites_")) {
    stem.remove_prefix(10);
  } else if (startsWith(stem, "f_")) {
    stem.remove_prefix(2);
  } else {
    return -1;
  }
  auto dot = stem.find('.');
  if (dot == std::string_view::npos || dot == 0) return -1;
  stem = stem.substr(0, dot);
  for (char c : stem) {
    if (c < '0' || c > '9') return -1;
  }
  return static_cast<int>(leadingInteger(stem));
}

std::string rowKey(int number) {
  return "a-" + padNumber(number, 6);
}

namespace {

std::string flagsFrom(const std::vector<std::string>& fields, std::size_t from, std::size_t count) {
  std::string flags;
  for (std::size_t i = from; i < from + count && i < fields.size(); ++i) {
    if (fields[i] == "On") {
      flags += '1';
    } else if (fields[i] == "Off") {
      flags += '0';
    }
  }
  return flags;
}

bool isWholeNumber(std::string_view v) {
  if (v.empty() || v.size() > 4) return false;
  for (char c : v) {
    if (c < '0' || c > '9') return false;
  }
  return true;
}

}  // namespace

std::vector<FavoritesRow> parseFavoritesConfig(std::string_view text) {
  std::vector<FavoritesRow> rows;
  formats::forEachLine(text, [&](std::string_view line) {
    if (!startsWith(line, "F-List") && !startsWith(line, "F-1ist")) return;
    // Commas are the editor's field mark: a comma inside a name comes back as ";".
    const std::string commas = replaceAll(replaceAll(line, ",", ";"), "\t", ",");
    const auto f = split(commas, ',');
    auto at = [&f](std::size_t i) { return i < f.size() ? f[i] : std::string{}; };
    FavoritesRow row;
    row.tag = at(0);
    row.name = at(1);
    row.file = at(2);
    row.locationControl = at(3);
    row.monitor = at(4);
    row.quickKey = at(5);
    row.numberTag = at(6);
    row.startupKeys = flagsFrom(f, 7, 10);
    row.systemKeys = flagsFrom(f, 17, 100);
    const int n = listFileNumber(row.file);
    row.key = n >= 0 ? rowKey(n) : std::string{};
    rows.push_back(std::move(row));
  });
  return rows;
}

std::string favoritesTag(bool isUbcdFolder, bool is3600) {
  return formats::favoritesListTag(isUbcdFolder, is3600);
}

std::string normaliseQuickKey(std::string_view value) {
  if (!isWholeNumber(value)) return "Off";
  const long long n = leadingInteger(value);
  if (n < 0 || n >= 99) return "Off";
  return std::to_string(n);
}

std::string formatFavoritesConfig(const std::vector<FavoritesRow>& rows, std::string_view tag) {
  // The card keeps its own bookkeeping per row (key, tag as read, state); the lines
  // themselves are the configuration file's, written by the one formatter of the file.
  std::vector<formats::FavoritesListRow> lines;
  lines.reserve(rows.size());
  for (const auto& row : rows) {
    formats::FavoritesListRow line;
    line.name = row.name;
    line.file = row.file;
    line.monitor = row.monitor;
    line.locationControl = row.locationControl;
    line.quickKey = normaliseQuickKey(row.quickKey);
    line.numberTag = row.numberTag.empty() ? std::string("Off") : normaliseQuickKey(row.numberTag);
    line.startupKeys = row.startupKeys;
    line.systemQuickKeys = row.systemKeys;
    lines.push_back(std::move(line));
  }
  return formats::formatFavoritesConfig(lines, tag);
}

}  // namespace zel::transfer
