#include "transfer/favorites_config.h"

#include "core/text.h"
#include "formats/favorites_config.h"

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

std::vector<FavoritesRow> parseFavoritesConfig(std::string_view text) {
  // The file's own reader gives the lines; the card adds the key of each row and keeps
  // names fit for the document, where a comma is the field mark and comes back as ";".
  formats::FavoritesConfig config = formats::parseFavoritesConfig(text);
  std::vector<FavoritesRow> rows;
  rows.reserve(config.rows.size());
  for (auto& line : config.rows) {
    FavoritesRow row;
    row.tag = std::move(line.tag);
    row.name = replaceAll(line.name, ",", ";");
    row.file = std::move(line.file);
    row.locationControl = std::move(line.locationControl);
    row.monitor = std::move(line.monitor);
    row.quickKey = std::move(line.quickKey);
    row.numberTag = std::move(line.numberTag);
    row.startupKeys = std::move(line.startupKeys);
    row.systemKeys = std::move(line.systemQuickKeys);
    const int n = listFileNumber(row.file);
    row.key = n >= 0 ? rowKey(n) : std::string{};
    rows.push_back(std::move(row));
  }
  return rows;
}

std::string favoritesTag(bool isUbcdFolder, bool is3600) {
  return formats::favoritesListTag(isUbcdFolder, is3600);
}

std::string normaliseQuickKey(std::string_view value) {
  return formats::favoritesQuickKeyField(value);
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
