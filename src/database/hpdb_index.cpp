#include "database/hpdb_index.h"

#include <filesystem>
#include <system_error>

#include "core/text.h"
#include "formats/text_file.h"

namespace zel::database {

namespace fs = std::filesystem;

namespace {

// The entry of `folder` called `name` in any case, the exact spelling first; "" when none.
// Cards are FAT file systems that ignore case, while a copy on Linux does not.
std::string findNoCase(const fs::path& folder, std::string_view name, bool wantDirectory) {
  std::error_code ec;
  const fs::path exact = folder / std::string(name);
  const bool exactFits = wantDirectory ? fs::is_directory(exact, ec) : fs::is_regular_file(exact, ec);
  if (exactFits) return exact.string();
  fs::directory_iterator it(folder, ec);
  if (ec) return {};
  for (const fs::directory_entry& entry : it) {
    if (!iequals(entry.path().filename().string(), name)) continue;
    const bool fits = wantDirectory ? entry.is_directory(ec) : entry.is_regular_file(ec);
    if (fits) return entry.path().string();
  }
  return {};
}

std::string withSlash(std::string folder) {
  if (!folder.empty() && folder.back() != '/' && folder.back() != '\\') folder += '/';
  return folder;
}

bool allDigits(std::string_view text) {
  if (text.empty()) return false;
  for (char c : text) {
    if (c < '0' || c > '9') return false;
  }
  return true;
}

std::string_view cardIndexName(DbFamily family) {
  return family == DbFamily::Bcd ? "hpdb.cfg" : "hpdb.config";
}

}  // namespace

std::string_view localIndexName(DbFamily family) {
  return family == DbFamily::Bcd ? "HPDB.cfg" : "HPDB.config";
}

std::optional<DatabaseLocation> locateOnCard(const std::string& cardRoot) {
  struct Place {
    std::string_view top;
    DbFamily family;
  };
  // "Homepatrol" is matched by the case-blind search of "HomePatrol".
  constexpr Place places[] = {{"BCDx36HP", DbFamily::Bcd}, {"HomePatrol", DbFamily::HomePatrol}};
  for (const Place& place : places) {
    const std::string top = findNoCase(cardRoot, place.top, true);
    if (top.empty()) continue;
    const std::string hpdb = findNoCase(top, "HPDB", true);
    if (hpdb.empty()) continue;
    const std::string index = findNoCase(hpdb, cardIndexName(place.family), false);
    if (index.empty()) continue;
    return DatabaseLocation{place.family, withSlash(hpdb), index};
  }
  return std::nullopt;
}

std::optional<DatabaseLocation> locateInFolder(const std::string& folder, DbFamily preferred) {
  const DbFamily other = preferred == DbFamily::Bcd ? DbFamily::HomePatrol : DbFamily::Bcd;
  for (DbFamily family : {preferred, other}) {
    const std::string index = findNoCase(folder, localIndexName(family), false);
    if (!index.empty()) return DatabaseLocation{family, withSlash(folder), index};
  }
  return std::nullopt;
}

std::string stateFileName(int number) {
  return "s_" + padNumber(number, 6) + ".hpd";
}

std::vector<StateEntry> parseIndex(std::string_view text, const std::string& folder) {
  std::vector<StateEntry> states;
  const std::string base = withSlash(folder);
  formats::forEachLine(text, [&](std::string_view line) {
    if (line.substr(0, 9) != "StateInfo") return;
    const std::vector<std::string_view> fields = splitView(line, '\t');
    if (fields.size() < 2) return;
    std::string_view id = trimView(fields[1]);
    if (startsWith(id, "StateId=")) id.remove_prefix(8);
    if (id.size() > 6 || !allDigits(id)) return;
    StateEntry entry;
    entry.number = static_cast<int>(leadingInteger(id));
    // The name is the field after CountryId; an index without it names the state by number.
    entry.name = fields.size() > 3 ? trim(fields[3]) : std::string{};
    if (entry.name.empty()) entry.name = "State " + std::to_string(entry.number);
    entry.fileName = stateFileName(entry.number);
    entry.path = base + entry.fileName;
    states.push_back(std::move(entry));
  });
  return states;
}

IndexReadResult readIndex(const DatabaseLocation& location) {
  IndexReadResult result;
  const std::optional<std::string> text = formats::readWholeFile(location.indexPath);
  if (!text || text->empty()) {
    result.error = "The database index " + location.indexPath + " cannot be read or is empty.";
    return result;
  }
  result.states = parseIndex(*text, location.folder);
  formats::forEachLine(std::string_view(*text).substr(0, 4096), [&](std::string_view line) {
    if (result.dateModified.empty() && startsWith(line, "DateModified")) {
      const std::size_t tab = line.find('\t');
      if (tab != std::string_view::npos) result.dateModified = trim(line.substr(tab + 1));
    }
  });
  return result;
}

const StateEntry* resolveState(const std::vector<StateEntry>& states, std::string_view text) {
  const std::string wanted = trim(text);
  if (wanted.empty()) return nullptr;
  for (const StateEntry& s : states) {
    if (iequals(s.fileName, wanted)) return &s;
  }
  for (const StateEntry& s : states) {
    if (iequals(s.name, wanted)) return &s;
  }
  return nullptr;
}

std::string stateListEntry(const StateEntry& state, DbFamily family) {
  if (family == DbFamily::Bcd) return state.name + " : " + state.fileName;
  return state.fileName;
}

}  // namespace zel::database
