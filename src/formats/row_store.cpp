#include "formats/row_store.h"

namespace zel::formats {

bool MemoryRows::append(std::string_view department, const std::vector<std::string>& rows) {
  std::vector<std::string>& kept = rows_[std::string(department)];
  for (const std::string& row : rows) bytes_ += row.size() + 1;
  kept.insert(kept.end(), rows.begin(), rows.end());
  return true;
}

bool MemoryRows::take(std::string_view department, std::vector<std::string>&& rows) {
  std::vector<std::string>& kept = rows_[std::string(department)];
  for (const std::string& row : rows) bytes_ += row.size() + 1;
  if (kept.empty()) {
    kept = std::move(rows);
  } else {
    for (std::string& row : rows) kept.push_back(std::move(row));
  }
  return true;
}

std::vector<std::string> MemoryRows::load(std::string_view department) const {
  auto it = rows_.find(std::string(department));
  return it == rows_.end() ? std::vector<std::string>{} : it->second;
}

void MemoryRows::visit(std::string_view department,
                       const std::function<void(std::string_view)>& fn) const {
  auto it = rows_.find(std::string(department));
  if (it == rows_.end()) return;
  for (const std::string& row : it->second) fn(row);
}

void MemoryRows::remove(std::string_view department) {
  auto it = rows_.find(std::string(department));
  if (it == rows_.end()) return;
  for (const std::string& row : it->second) bytes_ -= row.size() + 1;
  rows_.erase(it);
}

bool MemoryRows::saveTo(const PageFiles& pages) const {
  bool ok = true;
  for (const auto& [department, rows] : rows_) ok = pages.save(department, rows) && ok;
  return ok;
}

}  // namespace zel::formats
