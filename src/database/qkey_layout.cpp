#include "database/qkey_layout.h"

#include <algorithm>
#include <map>

#include "core/keys.h"
#include "core/record_line.h"
#include "core/text.h"
#include "core/tree_operations.h"

namespace zel::qkeys {

namespace {

constexpr int kSystemField = 13;
constexpr int kDepartmentField = 10;
constexpr int kSiteField = 17;
constexpr int kNameField = 4;
constexpr std::string_view kFlagSection = "qkeysrs";

std::string nameOf(std::string_view line) { return record::field(line, kNameField); }

// "[C] " before a conventional system, "[T] " before any other.
std::string systemText(std::string_view line) {
  return (startsWith(line, "SIN,Conventional") ? "[C] " : "[T] ") + nameOf(line);
}

// The departments ("GRP-") and sites ("SIT-") below a system, in tree order.
std::vector<NodeId> keyedChildren(const DocumentTree& data, NodeId system) {
  std::vector<NodeId> out;
  for (NodeId child : data.childList(system)) {
    const std::string& key = data.key(child);
    if (startsWith(key, "GRP-999-") || startsWith(key, "SIT-")) out.push_back(child);
  }
  return out;
}

std::string childText(const DocumentTree& data, NodeId node) {
  const bool site = startsWith(data.key(node), "SIT-");
  return (site ? "[SITE] " : "[DEP] ") + nameOf(data.text(node));
}

Item itemOf(std::string key, std::string text, int quickKey) {
  return Item{std::move(key), std::move(text), quickKey, quickKey};
}

}  // namespace

int parseKey(std::string_view field) {
  const std::string_view t = trimView(field);
  if (t.empty() || t.size() > 2) return kNoKey;
  if (!std::all_of(t.begin(), t.end(), [](char c) { return c >= '0' && c <= '9'; })) return kNoKey;
  return static_cast<int>(leadingInteger(t));
}

int keyField(std::string_view key) {
  if (startsWith(key, "SYS-")) return kSystemField;
  if (startsWith(key, "GRP-")) return kDepartmentField;
  if (startsWith(key, "SIT-")) return kSiteField;
  return 0;
}

int nodeKey(const DocumentTree& data, std::string_view key) {
  const int field = keyField(key);
  if (field == 0) return kNoKey;
  return parseKey(treemod::getField(data, key, field));
}

std::string decadeCaption(int decade) {
  return std::to_string(decade * 10) + "-" + std::to_string(decade * 10 + 9);
}

std::string bucketCaption(int key) {
  return key == kNoKey ? std::string(kNoKeyCaption) : "QuickKey: " + std::to_string(key);
}

Layout systemLayout(const DocumentTree& data) {
  Layout layout;
  for (NodeId sys : treemod::walkSystems(data)) {
    const std::string& key = data.key(sys);
    layout.items.push_back(itemOf(key, systemText(data.text(sys)), nodeKey(data, key)));
  }
  return layout;
}

Layout departmentLayout(const DocumentTree& data, int system) {
  Layout layout;
  layout.view = View::Departments;
  layout.system = system;
  const NodeId sys = treemod::findSystem(data, system);
  if (sys == kNoNode) return layout;
  for (NodeId child : keyedChildren(data, sys)) {
    const std::string& key = data.key(child);
    layout.items.push_back(itemOf(key, childText(data, child), nodeKey(data, key)));
  }
  return layout;
}

std::vector<const Item*> bucketItems(const Layout& layout, int key) {
  std::vector<const Item*> out;
  for (const Item& item : layout.items)
    if (item.quickKey == key) out.push_back(&item);
  return out;
}

int moveTo(Layout& layout, const std::vector<std::string>& nodeKeys, int key) {
  if (key != kNoKey && (key < 0 || key >= kKeyCount)) return 0;
  int moved = 0;
  for (Item& item : layout.items) {
    if (item.quickKey == key) continue;
    if (std::find(nodeKeys.begin(), nodeKeys.end(), item.key) == nodeKeys.end()) continue;
    item.quickKey = key;
    ++moved;
  }
  return moved;
}

int nextFreeKey(const Layout& layout) {
  std::vector<bool> used(kKeyCount, false);
  for (const Item& item : layout.items)
    if (item.quickKey != kNoKey) used[item.quickKey] = true;
  for (int k = 0; k < kKeyCount; ++k)
    if (!used[k]) return k;
  return kNoKey;
}

bool changed(const Layout& layout) {
  return std::any_of(layout.items.begin(), layout.items.end(),
                     [](const Item& i) { return i.quickKey != i.original; });
}

int writeBack(Document& doc, const Layout& layout) {
  int written = 0;
  for (const Item& item : layout.items) {
    if (item.quickKey == item.original || !doc.data.contains(item.key)) continue;
    const bool system = startsWith(item.key, "SYS-");
    const std::string value = item.quickKey != kNoKey ? std::to_string(item.quickKey)
                              : system                ? "None"
                                                      : "Off";
    treemod::setField(doc.data, item.key, keyField(item.key), value);
    ++written;
  }
  if (written > 0) doc.changed = true;
  return written;
}

std::vector<std::string> overviewLines(const DocumentTree& data, std::string_view title) {
  std::vector<std::string> lines{"Quickkey Overview:", std::string(title), ""};
  std::map<int, std::vector<NodeId>> byKey;  // kNoKey sorts first; printed last
  for (NodeId sys : treemod::walkSystems(data)) byKey[nodeKey(data, data.key(sys))].push_back(sys);
  auto printKey = [&](int key, const std::vector<NodeId>& systems) {
    lines.push_back(key == kNoKey ? std::string(kNoKeyCaption) : "Quickkey: " + std::to_string(key));
    for (NodeId sys : systems) {
      lines.push_back("    " + systemText(data.text(sys)));
      for (NodeId child : keyedChildren(data, sys)) {
        const int k = nodeKey(data, data.key(child));
        lines.push_back("        " + (k == kNoKey ? std::string("--") : padNumber(k, 2)) + "  " +
                        childText(data, child));
      }
    }
  };
  for (const auto& [key, systems] : byKey)
    if (key != kNoKey) printKey(key, systems);
  if (byKey.count(kNoKey)) printKey(kNoKey, byKey[kNoKey]);
  return lines;
}

std::vector<std::string> bucketPrintLines(const Layout& layout, std::string_view name, int decade) {
  std::vector<std::string> lines{"QuickKeys for: " + std::string(name)};
  for (int i = 0; i < 10; ++i) {
    std::string line = "QuicKey " + std::to_string(i + 1) + ":";
    for (const Item* item : bucketItems(layout, bucketKey(decade, i))) line += "  " + item->text;
    lines.push_back(std::move(line));
  }
  return lines;
}

std::string loadSystemKeyFlags(Settings& settings) {
  std::string flags(kKeyCount, '1');
  for (int k = 0; k < kKeyCount; ++k)
    if (settings.get(kFlagSection, "qk" + std::to_string(k), "1x") == "0") flags[k] = '0';
  return flags;
}

void saveSystemKeyFlags(Settings& settings, std::string_view flags) {
  for (int k = 0; k < kKeyCount; ++k) {
    const bool on = k >= static_cast<int>(flags.size()) || flags[k] != '0';
    settings.put(kFlagSection, "qk" + std::to_string(k), on ? "1" : "0");
  }
}

std::vector<bool> systemKeysInUse(const DocumentTree& data) {
  std::vector<bool> used(kKeyCount, false);
  for (NodeId sys : treemod::walkSystems(data)) {
    const int k = nodeKey(data, data.key(sys));
    if (k != kNoKey) used[k] = true;
  }
  return used;
}

std::string autoEnabled(const DocumentTree& data, std::string_view flags) {
  std::string out(flags);
  out.resize(kKeyCount, '1');
  const std::vector<bool> used = systemKeysInUse(data);
  for (int k = 0; k < kKeyCount; ++k)
    if (used[k]) out[k] = '1';
  return out;
}

std::vector<std::string> namesOnSystemKey(const DocumentTree& data, int key) {
  std::vector<std::string> names;
  std::vector<std::string> sites;
  for (NodeId sys : treemod::walkSystems(data)) {
    if (nodeKey(data, data.key(sys)) == key) names.push_back(nameOf(data.text(sys)));
    for (NodeId child : keyedChildren(data, sys)) {
      if (!startsWith(data.key(child), "SIT-")) continue;
      if (nodeKey(data, data.key(child)) == key) sites.push_back("site: " + nameOf(data.text(child)));
    }
  }
  names.insert(names.end(), sites.begin(), sites.end());
  if (names.empty()) names.push_back("None");
  return names;
}

}  // namespace zel::qkeys
