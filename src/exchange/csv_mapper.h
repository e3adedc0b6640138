// The CSV mapper: any delimited text into a work grid, one row a source line and one column
// a field, with a meaning chosen for each column. Lines are read like this:
//
//   raw line        "154.1000\tFire Disp,fm,OFF"
//   1. controls     "154.1000 Fire Disp,fm,OFF"     control and tab characters -> blank
//   2. separator    a line with no "," is split on "-", or else on runs of blanks
//   3. words        ",fm," -> ",FM,", ",am," ",wfm," likewise, ",OFF" -> ",Off", ",ON" -> ",On"
//   4. split        on ",", a comma always separates (a decimal comma splits a number)
//
// At most 15000 lines are taken; a longer text stops the load with "File too large,
// quiting import." and leaves the grid empty. An unreadable or empty file gives an empty
// grid and no message.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "core/ports.h"
#include "grid/cell_commit.h"
#include "grid/grid_page.h"

namespace zel::exchange {

inline constexpr int kMaxLines = 15000;
// Fields past this column of a line are dropped, so a line of 100,000 commas cannot make a
// grid that fills the memory.
inline constexpr int kMaxColumns = 256;
inline constexpr std::string_view kTooLarge = "File too large, quiting import.";
inline constexpr std::string_view kTitle = "CSV Mapper: Import And Modify CSV Files .104";
inline constexpr std::string_view kOpenFilter =
    "CSV Files|*.csv|Text Files|*.txt|MEM Files|*.mem|M96 Files|*.m96|ICOM PCR "
    "files|*.mch|All Files|*.*";
inline constexpr std::string_view kPlainHeader = "WebCatcher,data,Torvo,Freeland";

// The meanings a column can take, in the order each column's list offers them.
const std::vector<std::string>& columnMeanings();
// The grid heading a meaning stands for ("Frequency (MHz)" -> "Frequency"), "" for none.
std::string targetHeading(std::string_view meaning);

struct RowFilters {
  bool frequency = false;      // "Line must include a frequency"
  bool comma = false;          // "Line must have at least one comma"
  int digits = 0;              // "Line must include a number of at least" N "digits."
  bool dash = false;           // "Line must include a dash"
  std::string text;            // "Line must include following string:"
  bool dividableBy16 = false;  // "Line must include a number dividable by 16"
};

enum class CellOp { Upper, Lower, Replace, Remove };

class CsvMapper {
 public:
  CsvMapper();

  // Loads a text or a file into the grid, replacing what was there. Returns false only for
  // a text over the line limit (the message goes to feedback).
  bool loadText(std::string_view text, Feedback* feedback = nullptr);
  bool loadFile(const std::string& path, Feedback* feedback = nullptr);

  const GridPage& grid() const { return grid_; }
  GridPage& grid() { return grid_; }
  int rowCount() const { return grid_.rows() - 1; }
  int columnCount() const { return grid_.cols() - 1; }
  // The meaning of column c (1-based); "Unknown" when not set.
  const std::string& meaning(int col) const;
  void setMeaning(int col, std::string_view meaning);
  // "Add Column": one empty column at the right.
  void addColumn();

  // Sets meanings from headings and values in the first rows; a column the user has set
  // keeps its meaning.
  void autoDetect(int rowsToScan = 5);

  // Keeps only the rows that pass every checked condition; returns the rows removed.
  int applyRowFilters(const RowFilters& filters);
  int removeEmptyLines();
  int removeWithoutNumbers();
  // The cell filters on rows top..bottom (1-based, inclusive) and one column, or all
  // columns with col 0. Returns the cells changed.
  int applyCellFilter(CellOp op, int top, int bottom, int col, std::string_view find = {},
                      std::string_view replacement = {});

  // The plain grid export: the header line, then each row as its cells each followed by ",".
  std::string plainExport() const;
  // Writes plainExport to a file (".csv" added when the name has no "."), through a temporary
  // name. Returns the path written, or "" when it could not be written.
  std::string saveFile(const std::string& path) const;
  // The mapped columns for "Paste Frequencies": a heading line of grid headings and a line a
  // row, tab-separated; rows without a value in any mapped column are left out.
  std::string clipboardText() const;

 private:
  std::vector<std::string> lineOf(int row) const;
  void removeRows(const std::vector<bool>& drop);

  GridPage grid_;
  std::vector<std::string> meanings_;  // by column, slot 0 unused
  std::vector<std::string> lines_;     // the normalised source line of each row, slot 0 unused
};

// Reads a source line as the mapper does (steps 1 to 3 above).
std::string normaliseLine(std::string_view line);

// "Paste Frequencies": the clipboard text of the mapper into a grid, every value through
// the cell commit (a list column takes a word of its list only; a comma becomes ";" as in
// the grid's own Paste). Rows go below the last row that has a key, up to row 9999: what
// does not fit is left out and the feedback says how many rows. Returns the rows added.
int pasteFrequencies(GridPage& grid, std::string_view clipboard, const cell::CommitEnv& env);
// "A department holds at most 9999 rows: N rows were not pasted."
std::string departmentFullMessage(int rowsLeft);

}  // namespace zel::exchange
