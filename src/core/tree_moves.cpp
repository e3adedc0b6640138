#include "core/tree_moves.h"

#include <functional>

#include "core/keys.h"
#include "core/record_line.h"
#include "core/text.h"
#include "core/tree_operations.h"

namespace zel::treemod {

namespace {

constexpr int kFileField = 23;

std::string fileFieldText(int fileRow) { return padNumber(fileRow, 3); }

bool isConventionalSystem(const Document& doc, int system) {
  return record::field(getText(doc.data, keys::system(system)), 1) == "Conventional";
}

bool isConventionalDepartment(std::string_view line) {
  return record::field(line, 1) == "C-Group";
}

MoveResult refuse(Feedback& feedback, std::string message) {
  feedback.message(message);
  MoveResult r;
  r.message = std::move(message);
  return r;
}

// Adds a copy of `from` (and its descendants) below `toParent` in `to`, each key through
// `rename`. Returns the copy.
NodeId copySubtree(const DocumentTree& from, NodeId node, DocumentTree& to, NodeId toParent,
                   const std::function<std::string(std::string_view)>& rename) {
  const std::string key = rename(from.key(node));
  NodeId made = toParent == kNoNode ? to.add({}, key, from.text(node))
                                    : to.addChild(toParent, key, from.text(node));
  for (NodeId child : from.childList(node)) copySubtree(from, child, to, made, rename);
  return made;
}

MoveResult placeDepartment(Document& doc, PageFiles& pages, std::string_view departmentKey,
                           int targetSystem, Feedback& feedback, bool keepSource) {
  const NodeId source = doc.data.find(departmentKey);
  if (source == kNoNode || !startsWith(departmentKey, "GRP-"))
    return refuse(feedback, "error: please click on a department first");
  const NodeId target = findSystem(doc.data, targetSystem);
  if (target == kNoNode) return refuse(feedback, "error: please click on a system first");
  const std::string line = doc.data.text(source);
  if (isConventionalDepartment(line) != isConventionalSystem(doc, targetSystem))
    return refuse(feedback, "A department moves only between systems of the same kind.");
  if (!keepSource && keys::systemOf(departmentKey) == targetSystem) {
    MoveResult same;
    same.ok = true;
    same.key = std::string(departmentKey);
    return same;
  }
  const int number = g_n_i(doc, "group", targetSystem, feedback);
  if (number <= 0) return refuse(feedback, "ERROR: Out of storage space");
  const std::string key = keys::department(targetSystem, number);
  doc.data.addChild(target, key, line);
  const bool pageOk =
      keepSource ? pages.copy(departmentKey, key) : pages.rename(departmentKey, key);
  if (!pageOk) {
    doc.data.remove(key);
    return refuse(feedback, "Could not move the rows of the department.");
  }
  if (!keepSource) doc.data.remove(departmentKey);
  doc.changed = true;
  MoveResult r;
  r.ok = true;
  r.key = key;
  return r;
}

}  // namespace

std::string withSystemNumber(std::string_view key, int system) {
  std::string out(key);
  const std::size_t at = startsWith(key, "GRP-") ? 8 : 4;
  if (out.size() >= at + 3) out.replace(at, 3, padNumber(system, 3));
  return out;
}

MoveResult moveSystemToList(Document& doc, std::string_view systemKey, int fileRow,
                            Feedback& feedback) {
  if (!startsWith(systemKey, "SYS-") || !doc.data.contains(systemKey))
    return refuse(feedback, "error: please click on a system first");
  setField(doc.data, systemKey, kFileField, fileFieldText(fileRow));
  doc.changed = true;
  MoveResult r;
  r.ok = true;
  r.key = std::string(systemKey);
  return r;
}

MoveResult copySystemToList(Document& doc, PageFiles& pages, std::string_view systemKey,
                            int fileRow, Feedback& feedback) {
  const NodeId source = doc.data.find(systemKey);
  if (!startsWith(systemKey, "SYS-") || source == kNoNode)
    return refuse(feedback, "error: please click on a system first");
  const int from = keys::systemOf(systemKey);
  const int to = g_n_i(doc, "system", 0, feedback);
  if (to <= 0) return refuse(feedback, "ERROR: Out of storage space");
  auto rename = [to](std::string_view key) { return withSystemNumber(key, to); };
  const NodeId made = copySubtree(doc.data, source, doc.data, kNoNode, rename);
  const std::string key = doc.data.key(made);
  setField(doc.data, key, kFileField, fileFieldText(fileRow));
  for (int field = 0; field < SystemTable::kFields; ++field)
    doc.systems.set(to, field, doc.systems.get(from, field));
  doc.systems.markInUse(to, true);
  // The flat copies of the site frequencies, and the rows of every department.
  std::vector<std::pair<std::string, std::string>> frequencies;
  const std::string prefix = "TFQ-" + padNumber(from, 3) + "-";
  for (NodeId n : doc.frequencies.topLevel())
    if (startsWith(doc.frequencies.key(n), prefix))
      frequencies.emplace_back(rename(doc.frequencies.key(n)), doc.frequencies.text(n));
  for (auto& [k, text] : frequencies) doc.frequencies.add({}, k, text);
  bool pagesOk = true;
  for (NodeId child : doc.data.childList(source)) {
    const std::string& childKey = doc.data.key(child);
    if (startsWith(childKey, "GRP-")) pagesOk = pages.copy(childKey, rename(childKey)) && pagesOk;
  }
  doc.changed = true;
  if (!pagesOk) feedback.message("Could not copy the rows of every department.");
  MoveResult r;
  r.ok = true;
  r.key = key;
  return r;
}

MoveResult moveDepartment(Document& doc, PageFiles& pages, std::string_view departmentKey,
                          int targetSystem, Feedback& feedback) {
  return placeDepartment(doc, pages, departmentKey, targetSystem, feedback, false);
}

MoveResult copyDepartment(Document& doc, PageFiles& pages, std::string_view departmentKey,
                          int targetSystem, Feedback& feedback) {
  return placeDepartment(doc, pages, departmentKey, targetSystem, feedback, true);
}

}  // namespace zel::treemod
