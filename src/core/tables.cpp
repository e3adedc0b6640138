#include "core/tables.h"

namespace zel {

namespace {
const std::string kEmpty;
}

const std::string& SystemTable::get(int system, int field) const {
  if (system < 0 || system >= kRows || field < 0 || field >= kFields) return kEmpty;
  return rows_[system][field];
}

void SystemTable::set(int system, int field, std::string value) {
  if (system < 0 || system >= kRows || field < 0 || field >= kFields) return;
  rows_[system][field] = std::move(value);
}

void SystemTable::markInUse(int system, bool used) { set(system, 0, used ? "1" : ""); }

void SystemTable::clearRow(int system) {
  if (system >= 0 && system < kRows) rows_[system] = {};
}

void SystemTable::clear() {
  for (auto& r : rows_) r = {};
}

const std::string& OpenFileTable::get(int row, int column) const {
  if (row < 1 || row > kOpenFileRows || column < 0 || column >= kColumns) return kEmpty;
  return rows_[row][column];
}

void OpenFileTable::set(int row, int column, std::string value) {
  if (row < 1 || row > kOpenFileRows || column < 0 || column >= kColumns) return;
  rows_[row][column] = std::move(value);
}

std::array<std::string, OpenFileTable::kColumns>& OpenFileTable::row(int row) {
  if (row < 1 || row > kOpenFileRows) return rows_[0];
  return rows_[row];
}

int OpenFileTable::loadedCount() const {
  int n = 0;
  for (int r = 1; r <= kOpenFileRows; ++r) n += loaded(r);
  return n;
}

int OpenFileTable::freeRow() const {
  if (loadedCount() >= kMaxOpenFiles) return 0;
  for (int r = 1; r <= kOpenFileRows; ++r) {
    if (!loaded(r)) return r;
  }
  return 0;
}

void OpenFileTable::clearRow(int row) {
  if (row >= 1 && row <= kOpenFileRows) rows_[row] = {};
}

void OpenFileTable::clear() {
  for (auto& r : rows_) r = {};
}

}  // namespace zel
