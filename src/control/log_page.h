// The activity log page: a fixed table of 1000 rows, newest on top, shown by the log grid
// under one header row. Kept on disk as "loggrid.ini" ("loggridsds.ini" for the SDS
// window), one line a row, every cell quoted:
//
//   "LOG","154.4300","","Dispatch","127.3C","","","County","Fire","3","512","NFM","10:04:11","2026-05-01",""
//
// The log file ("log.csvx") gets the same rows unquoted, one line each, appended.
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "control/vc_state.h"

namespace zel::control {

// Where each meaning sits in a row; the SDS page has "Extra Info" after "UID".
struct LogColumns {
  int type = 0, frequency = 1, talkgroup = 2, channel = 3, subtone = 4, nac = 5, uid = 6;
  int extra = -1, system = 7, department = 8, hits = 9, signal = 10, mode = 11, time = 12,
      date = 13;
  int count = 15;  // the grid's columns, the last one unnamed ("N/A")
};
const LogColumns& logColumns(Family family);

// Grid captions ("Type", "Frequency", ...) and the header line of a saved log.
const std::vector<std::string>& logHeaders(Family family);
std::string logFileHeader(Family family);

class LogPage {
 public:
  static constexpr int kRows = 1000;
  explicit LogPage(int columns);

  int columns() const { return columns_; }
  // Rows count from 1 (row 0 of the grid is its header); "" outside the table.
  const std::string& cell(int row, int column) const;
  void setCell(int row, int column, std::string value);
  bool rowEmpty(int row) const;
  void clear();

  // Every row moves one down (the oldest falls off) and the line, split at its commas,
  // becomes row 1.
  void addLine(std::string_view line);

  // The page as the ini file holds it, and back. read() leaves the page as it was when
  // the file cannot be read.
  std::string toIni() const;
  void fromIni(std::string_view text);
  bool writeIni(const std::string& path) const;
  bool readIni(const std::string& path);

  // The saved log: two header lines, then every row, each cell followed by a comma.
  std::string toCsv(Family family, std::string_view date, std::string_view time) const;

 private:
  int columns_;
  std::vector<std::vector<std::string>> rows_;  // index 0 is row 1
};

// Writes text to path through a temporary file beside it; false on any failure, and the
// target is then untouched.
bool writeFileReplacing(const std::string& path, std::string_view text);

}  // namespace zel::control
