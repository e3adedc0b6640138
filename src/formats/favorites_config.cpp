#include "formats/favorites_config.h"

#include "core/text.h"
#include "formats/hpd_format.h"
#include "formats/text_file.h"

namespace zel::formats {

namespace {

constexpr std::size_t kStartupKeys = 10;
constexpr std::size_t kSystemKeys = 100;
// Tag, name, file, four key fields, then the flag groups: nothing past them is read.
constexpr std::size_t kFieldCap = 7 + kStartupKeys + kSystemKeys;

bool isListLine(std::string_view line) {
  return startsWith(line, "F-List") || startsWith(line, "F-1ist");
}

std::string flagsFromFields(const std::vector<std::string_view>& fields, std::size_t from,
                            std::size_t count) {
  std::string flags;
  for (std::size_t i = from; i < fields.size() && i < from + count; ++i) {
    if (fields[i].empty()) break;  // the TAB that ends the line
    flags.push_back(fields[i] == "On" ? '1' : '0');
  }
  return flags;
}

}  // namespace

std::string favoritesListTag(bool isUbcdFolder, bool is3600) {
  if (isUbcdFolder) return "F-List ";
  if (is3600) return "F-1ist";
  return "F-List";
}

std::string favoritesQuickKeyField(std::string_view value) {
  std::string_view v = trimView(value);
  if (v.empty() || v == "None") return "Off";
  for (char c : v) {
    if (c < '0' || c > '9') return "Off";
  }
  const long long key = v.size() > 3 ? 999 : leadingInteger(v);
  if (key > 98) return "Off";  // 0 to 98; 99 is not a key
  return std::to_string(key);
}

std::string favoritesFlagFields(std::string_view flags) {
  std::string out;
  out.reserve(flags.size() * 4);
  for (char c : flags) {
    if (c == '1') {
      out += "On\t";
    } else if (c == '0') {
      out += "Off\t";
    } else {
      out.push_back(c);
    }
  }
  return out;
}

FavoritesConfig parseFavoritesConfig(std::string_view text) {
  FavoritesConfig config;
  std::vector<std::string_view> f;
  forEachLine(text, [&](std::string_view line) {
    if (!isListLine(line)) return;
    f = splitView(line, '\t', kFieldCap);
    if (config.rows.empty()) config.tag = std::string(f[0]);
    FavoritesListRow row;
    row.tag = std::string(f[0]);
    auto at = [&](std::size_t n) { return n < f.size() ? std::string(f[n]) : std::string(); };
    row.name = at(1);
    row.file = at(2);
    row.locationControl = at(3);
    row.monitor = at(4);
    row.quickKey = at(5);
    row.numberTag = at(6);
    row.startupKeys = flagsFromFields(f, 7, kStartupKeys);
    row.systemQuickKeys = flagsFromFields(f, 7 + kStartupKeys, kSystemKeys);
    config.rows.push_back(std::move(row));
  });
  return config;
}

std::optional<FavoritesConfig> readFavoritesConfig(const std::string& path) {
  std::optional<std::string> text = readWholeFile(path);
  if (!text) return std::nullopt;
  return parseFavoritesConfig(*text);
}

std::string formatFavoritesConfig(const std::vector<FavoritesListRow>& rows, std::string_view tag) {
  std::string out = "TargetModel\tBCDx36HP\r\nFormatVersion\t1.00\r\n";
  int number = 0;
  for (const FavoritesListRow& row : rows) {
    ++number;
    std::string line(tag);
    line += '\t';
    // A TAB, CR or LF in a name would cut the line and orphan the list: the name cleaner
    // drops them as it does for every name that reaches a file.
    const std::string name = cleanName(row.name, "");
    line += name.empty() ? "New system " + std::to_string(number) : name;
    line += '\t';
    line += row.file;
    line += '\t';
    line += row.locationControl == "On" ? "On" : "Off";
    line += '\t';
    line += row.monitor == "Off" ? "Off" : "On";
    line += '\t';
    line += favoritesQuickKeyField(row.quickKey);
    line += '\t';
    line += favoritesQuickKeyField(row.numberTag);
    line += '\t';
    line += favoritesFlagFields(row.startupKeys);
    line += favoritesFlagFields(row.systemQuickKeys);
    out += line;
    out += "\r\n";
  }
  return out;
}

bool writeFavoritesConfig(const std::string& path, const std::vector<FavoritesListRow>& rows,
                          std::string_view tag) {
  if (path.empty()) return true;
  return writeFileAtomically(path, formatFavoritesConfig(rows, tag)).ok;
}

}  // namespace zel::formats
