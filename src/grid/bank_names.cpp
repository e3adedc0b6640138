#include "grid/bank_names.h"

#include "core/record_line.h"
#include "core/text.h"
#include "core/tree_operations.h"
#include "grid/cell_commit_filters.h"

namespace zel::banks {

namespace {
constexpr int kNameField = 4;
constexpr std::size_t kMaxName = 64;
}  // namespace

std::vector<BankName> list(const DocumentTree& data) {
  std::vector<BankName> out;
  for (NodeId system : treemod::walkSystems(data)) {
    const std::string systemName = record::field(data.text(system), kNameField);
    for (NodeId c = data.child(system); c != kNoNode; c = data.next(c)) {
      if (!startsWith(data.key(c), "GRP-")) continue;
      out.push_back({data.key(c), systemName, record::field(data.text(c), kNameField)});
    }
  }
  return out;
}

std::optional<std::string> cleanName(std::string_view typed) {
  std::string text = trim(cell::applyFilter(cell::CharFilter::Name, record::sanitize(typed)));
  if (text.size() > kMaxName) text.resize(kMaxName);
  text = trim(text);
  if (text.empty()) return std::nullopt;
  return text;
}

RenameResult rename(Document& doc, const std::vector<std::pair<std::string, std::string>>& names) {
  RenameResult result;
  std::vector<std::pair<std::string, std::string>> changes;
  for (const auto& [key, typed] : names) {
    if (!startsWith(key, "GRP-") || !doc.data.contains(key)) continue;
    std::optional<std::string> name = cleanName(typed);
    if (!name) {
      result.error = "A department name cannot be empty.";
      return result;
    }
    if (*name != treemod::getField(doc.data, key, kNameField)) changes.emplace_back(key, *name);
  }
  for (const auto& [key, name] : changes) treemod::setField(doc.data, key, kNameField, name);
  result.renamed = static_cast<int>(changes.size());
  if (result.renamed > 0) doc.changed = true;
  return result;
}

}  // namespace zel::banks
