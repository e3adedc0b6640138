#include "database/qkey_card.h"

#include <algorithm>
#include <filesystem>
#include <map>

#include "core/document.h"
#include "core/memory_ports.h"
#include "core/record_line.h"
#include "core/text.h"
#include "core/tree_operations.h"
#include "database/qkey_layout.h"
#include "formats/favorites_config.h"
#include "formats/hpd_reader.h"
#include "formats/row_store.h"

namespace zel::qkeys {

namespace {

constexpr int kNameField = 4;
constexpr int kSortNoKey = 999;

std::string keyText(int key) { return key == kNoKey ? "Off" : std::to_string(key); }

// One list file's systems with their departments and sites, read by the HPD reader into a
// document of its own.
bool readListFile(const std::string& path, CardList& list) {
  Document doc;
  formats::MemoryRows rows;
  RecordingFeedback quiet;
  formats::HpdReadOptions options;
  options.fileIndex = 1;
  options.fromScanner = true;
  if (!formats::readHpd(doc, rows, path, options, quiet).ok()) return false;
  for (NodeId sys : treemod::walkSystems(doc.data)) {
    const std::string& line = doc.data.text(sys);
    CardSystem system;
    system.item = startsWith(line, "SIN,Conventional") ? CardItem::Conventional : CardItem::Trunk;
    system.name = record::field(line, kNameField);
    system.key = nodeKey(doc.data, doc.data.key(sys));
    for (NodeId child : doc.data.childList(sys)) {
      const std::string& key = doc.data.key(child);
      const bool site = startsWith(key, "SIT-");
      if (!site && !startsWith(key, "GRP-999-")) continue;
      system.children.push_back(CardChild{site ? CardItem::Site : CardItem::Department,
                                          record::field(doc.data.text(child), kNameField),
                                          nodeKey(doc.data, key), false});
    }
    list.systems.push_back(std::move(system));
  }
  return true;
}

// Marks every member of a scope whose key another member has, and reports each such key.
template <typename T>
void markScope(std::vector<T>& members, const std::string& scope, const std::string& where,
               std::vector<CardDuplicate>& out) {
  std::map<int, std::vector<T*>> byKey;
  for (T& m : members)
    if (m.key != kNoKey) byKey[m.key].push_back(&m);
  for (auto& [key, group] : byKey) {
    if (group.size() < 2) continue;
    CardDuplicate dup{scope, key, where, {}};
    for (T* m : group) {
      m->twice = true;
      dup.names.push_back(m->name);
    }
    out.push_back(std::move(dup));
  }
}

std::string sortPart(int key) { return padNumber(key == kNoKey ? kSortNoKey : key, 3); }

}  // namespace

const char* cardItemWord(CardItem item) {
  switch (item) {
    case CardItem::Conventional:
      return "[CONV]";
    case CardItem::Trunk:
      return "[TRUNK]";
    case CardItem::Site:
      return "[SITE]";
    default:
      return "[DEP]";
  }
}

std::string CardDuplicate::sentence() const {
  static const std::map<std::string, std::string> words = {
      {"FL", "Favorites list quick key "}, {"SYS", "System quick key "},
      {"DEP", "Department quick key "}};
  std::string text = words.at(scope) + std::to_string(key) + " is used by";
  for (std::size_t i = 0; i < names.size(); ++i)
    text += (i == 0 ? " \"" : i + 1 == names.size() ? " and \"" : ", \"") + names[i] + "\"";
  if (!where.empty()) text += " in " + where;
  return text + ".";
}

CardOverview readCardOverview(const std::string& scannerRoot) {
  CardOverview overview;
  const std::string folder = scannerRoot + "/favorites_lists";
  const std::optional<formats::FavoritesConfig> config =
      formats::readFavoritesConfig(folder + "/f_list.cfg");
  if (!config) {
    overview.error = "Cannot read " + folder + "/f_list.cfg.";
    return overview;
  }
  int number = 0;
  for (const formats::FavoritesListRow& row : config->rows) {
    CardList list;
    list.number = ++number;
    list.name = row.name;
    list.file = row.file;
    list.key = parseKey(row.quickKey);
    list.missing = row.file.empty() || !readListFile(folder + "/" + row.file, list);
    overview.lists.push_back(std::move(list));
  }
  overview.ok = true;
  markDuplicates(overview);
  return overview;
}

void markDuplicates(CardOverview& overview) {
  overview.duplicates.clear();
  markScope(overview.lists, "FL", "", overview.duplicates);
  for (CardList& list : overview.lists) {
    markScope(list.systems, "SYS", "list \"" + list.name + "\"", overview.duplicates);
    for (CardSystem& system : list.systems)
      markScope(system.children, "DEP", "system \"" + system.name + "\" of list \"" + list.name + "\"",
                overview.duplicates);
  }
}

std::vector<CardRow> overviewRows(const CardOverview& overview) {
  std::vector<CardRow> rows;
  int order = 0;
  for (const CardList& list : overview.lists) {
    const std::string fl = "FL:" + keyText(list.key);
    for (const CardSystem& system : list.systems) {
      const std::string systemSort = sortPart(list.key) + sortPart(system.key) + padNumber(order++, 5);
      const bool reachable = list.key != kNoKey && system.key != kNoKey;
      const std::string path = "FL " + keyText(list.key) + " > SYS " + keyText(system.key);
      CardRow row;
      row.name = std::string(cardItemWord(system.item)) + " " + system.name;
      row.list = list.number;
      row.flKey = fl;
      row.sysKey = keyText(system.key);
      row.shortcut = reachable ? path : "";
      row.sortKey = systemSort + "0000";
      row.system = true;
      if (list.twice) row.twice.push_back("FL");
      if (system.twice) row.twice.push_back("SYS");
      rows.push_back(row);
      for (const CardChild& child : system.children) {
        CardRow c;
        c.name = std::string(cardItemWord(child.item)) + " " + child.name;
        c.list = list.number;
        c.flKey = fl;
        c.sysKey = keyText(system.key);
        c.depKey = keyText(child.key);
        c.shortcut = reachable && child.key != kNoKey ? path + " > DEP " + keyText(child.key) : "";
        c.sortKey = systemSort + "1" + sortPart(child.key);
        if (child.twice) c.twice.push_back("DEP");
        rows.push_back(std::move(c));
      }
    }
  }
  return rows;
}

void sortByKeys(std::vector<CardRow>& rows) {
  std::stable_sort(rows.begin(), rows.end(),
                   [](const CardRow& a, const CardRow& b) { return a.sortKey < b.sortKey; });
}

std::string clipboardText(const std::vector<CardRow>& rows) {
  std::string out = "Name:\t#\tFL QuickKey:\tSYS QuickKey:\tDEP QuickKey:\tShortcut:\tUsed twice:\n";
  for (const CardRow& r : rows) {
    out += r.name + "\t" + std::to_string(r.list) + "\t" + r.flKey + "\t" + r.sysKey + "\t" +
           r.depKey + "\t" + r.shortcut + "\t" + join(r.twice, ' ') + "\n";
  }
  return out;
}

}  // namespace zel::qkeys
