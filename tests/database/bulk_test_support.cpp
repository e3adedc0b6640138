#include "database/bulk_test_support.h"

#include <algorithm>

#include "core/keys.h"
#include "core/new_commands.h"
#include "core/record_line.h"
#include "core/text.h"
#include "core/tree_operations.h"

namespace zel::bulk::test {

int BulkDoc::addSystem(const char* command, const std::string& name) {
  NewNodeResult r = newSystem(doc, command, feedback);
  if (!r.ok) return 0;
  treemod::setField(doc.data, r.key, 4, name);
  return keys::systemOf(r.key);
}

std::string BulkDoc::firstDepartment(int system, const std::string& name,
                                     const std::vector<std::string>& lines) {
  for (NodeId c : doc.data.childList(doc.data.find(keys::system(system)))) {
    const std::string& key = doc.data.key(c);
    if (!startsWith(key, "GRP-")) continue;
    treemod::setField(doc.data, key, 4, name);
    if (!lines.empty()) rows.append(key, lines);
    return key;
  }
  return {};
}

std::string BulkDoc::addDepartment(int system, const std::string& name,
                                   const std::vector<std::string>& lines) {
  NewNodeResult r = newDepartment(doc, system, feedback);
  if (!r.ok) return {};
  treemod::setField(doc.data, r.key, 4, name);
  if (!lines.empty()) rows.append(r.key, lines);
  return r.key;
}

std::string BulkDoc::addSite(int system, const std::string& name) {
  NewNodeResult r = newSite(doc, system, feedback);
  if (!r.ok) return {};
  treemod::setField(doc.data, r.key, 4, name);
  return r.key;
}

std::string BulkDoc::line(const std::string& key) const {
  return treemod::getText(doc.data, key);
}

std::string frq(const std::string& department, int row) {
  return keys::channel(keys::numberAt(department, 9), keys::numberAt(department, 13), row);
}

std::string tid(const std::string& department, int row) {
  return keys::talkgroup(keys::numberAt(department, 9), keys::numberAt(department, 13), row);
}

std::string markedRow(int row, const std::string& first, int count) {
  std::string out = std::to_string(row) + "," + first;
  for (int c = 2; c <= count; ++c) out += ",c" + std::to_string(c);
  return out;
}

std::vector<int> changedFields(const std::string& before, const std::string& after) {
  std::vector<int> out;
  const int n = std::max(record::fieldCount(before), record::fieldCount(after));
  for (int i = 0; i < n; ++i) {
    if (record::field(before, i) != record::field(after, i)) out.push_back(i);
  }
  return out;
}

}  // namespace zel::bulk::test
