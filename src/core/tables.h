// The session's work tables: the global system table (a row for each system number)
// and the open-file table (a row for each open favorites file).
#pragma once

#include <array>
#include <string>
#include <vector>

namespace zel {

// Numeric system types, as field 10 of the system table holds them.
enum class SystemType {
  Conventional = 0,
  Motorola = 1,
  EdacsNarrowWide = 2,
  EdacsScat = 3,
  Ltr = 4,
  P25Standard = 5,
  P25OneFreqTrunk = 6,
  P25X2Tdma = 7,
  MotoTrbo = 8,
  DmrOneFrequency = 9,
  Nxdn = 10,
  NxdnOneFrequency = 11,
};

inline constexpr int kMaxSystems = 999;
inline constexpr int kMaxSites = 999;
inline constexpr int kMaxDepartments = 399;
inline constexpr int kMaxChannels = 9999;
inline constexpr std::size_t kMaxTreeNodes = 30000;
inline constexpr int kMaxOpenFiles = 99;
inline constexpr int kOpenFileRows = 999;
inline constexpr int kFamilyCode = 245;

// 1000 systems by 26 fields: field 0 "1" while the slot is in use, field 1 the name,
// field 10 the numeric system type.
class SystemTable {
 public:
  static constexpr int kRows = 1000;
  static constexpr int kFields = 26;
  SystemTable() : rows_(kRows) {}
  const std::string& get(int system, int field) const;
  void set(int system, int field, std::string value);
  bool inUse(int system) const { return get(system, 0) == "1"; }
  void markInUse(int system, bool used);
  void clearRow(int system);
  void clear();

 private:
  std::vector<std::array<std::string, kFields>> rows_;
};

// Twelve string columns by up to 999 rows, at most 99 rows in use. Column 0 "1" when
// loaded; 1 short name; 2 list name; 3 full path; 5 a flag; 11 the path on the scanner.
// Row numbers are the file numbers that field 23 of a SIN line holds.
class OpenFileTable {
 public:
  static constexpr int kColumns = 12;
  enum Column { Loaded = 0, ShortName = 1, ListName = 2, Path = 3, Flag = 5, ScannerPath = 11 };
  OpenFileTable() : rows_(kOpenFileRows + 1) {}
  const std::string& get(int row, int column) const;
  void set(int row, int column, std::string value);
  std::array<std::string, kColumns>& row(int row);
  bool loaded(int row) const { return get(row, Loaded) == "1"; }
  int loadedCount() const;
  // The lowest row that is not loaded, or 0 when 99 rows are in use already.
  int freeRow() const;
  void clearRow(int row);
  void clear();

 private:
  std::vector<std::array<std::string, kColumns>> rows_;  // row 0 unused
};

}  // namespace zel
