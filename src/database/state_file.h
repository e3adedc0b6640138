// One state file of the scanner's full database, held as plain lines.
//
// The file is not read into the document tree: every line becomes one row, in file order,
// and a row knows where it stands by the numbers of its key:
//
//   DUM-00001                  a line above the first system (TargetModel, FormatVersion)
//   DAT-0003-0000-0000-0042    the third system's line, running line number 42
//   DAT-0003-0002-0000-0045    the second department of that system
//   DAT-0003-0002-0007-0052    its seventh channel (C-Freq or TGID)
//
// Lines are recognised by their first characters; a line of any other type stays in its row
// untouched. The rows keep the file's own bytes, line ends included, and a field is read in
// the record form of a line (every "," of the file turned into ";", then every TAB into
// ","), so an unchanged line is written back byte for byte, a value that holds a comma
// survives, and a ";" of the file is never turned into a ",".
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace zel::database {

enum class LineKind : std::uint8_t {
  TargetModel,
  FormatVersion,
  Conventional,
  Trunk,
  Site,
  CGroup,
  TGroup,
  CFreq,
  TFreq,
  Tgid,
  AreaState,
  AreaCounty,
  Rectangle,
  BandPlanMot,
  BandPlanP25,
  FleetMap,
  Other,  // kept as it is under a key of its own
};

// The kind of a line by its start, as a file line (TAB) or a record line (",").
LineKind lineKindOf(std::string_view line);

// Field n (0: the type word) of a file line, its bytes as the file holds them; empty past
// the last field.
std::string_view rawField(std::string_view line, int n);

// The two replacements between a file line and its record form.
std::string toRecordForm(std::string_view fileLine);  // "," -> ";", then TAB -> ","
std::string toFileForm(std::string_view recordLine);  // "," -> TAB, then ";" -> ","

struct StateRow {
  std::uint32_t offset = 0;  // the line's bytes in the file's text, without its end
  std::uint32_t length = 0;
  std::uint8_t endLength = 0;  // 2 for CR LF, 1 for LF, 0 for a last line without an end
  LineKind kind = LineKind::Other;
  bool edited = false;  // the row's text is in StateFile::editedText
  int system = 0;       // 0 above the first system
  int department = 0;   // 0 on the system's own lines and its sites
  int channel = 0;      // 0 on lines that are not channels
  int running = 0;      // the line's number in the file, from 1
};

// "DAT-" + system, department, channel and running number ("0000" each), or "DUM-" + the
// running number in five digits for the lines above the first system.
std::string rowKey(const StateRow& row);

struct SystemInfo {
  int number = 0;
  bool trunk = false;
  std::string name;   // field 3
  std::string type;   // field 6 of a Trunk line
  std::string label;  // "Conventional: " + name or "Trunk: " + name + " / " + type
  std::size_t row = 0;
};

struct DepartmentInfo {
  int system = 0;
  int number = 0;
  std::string name;  // field 3 of the group line
  std::size_t row = 0;
};

class StateFile {
 public:
  // Takes the file's bytes; never fails: any text makes rows.
  static StateFile fromText(std::string text);

  const std::vector<StateRow>& rows() const { return rows_; }
  const std::vector<SystemInfo>& systems() const { return systems_; }
  const std::vector<DepartmentInfo>& departments() const { return departments_; }

  // The row's line as the file holds it (without its end).
  std::string_view fileLine(std::size_t row) const;
  // Field n of the row in record form ("" past the end of the line).
  std::string field(std::size_t row, int n) const;
  // Replaces field n of a row; the line grows by empty fields when it is shorter. The
  // value is record form: a ";" goes to the file as ",". Returns whether the line changed.
  bool setField(std::size_t row, int n, std::string_view value);

  // The row with a key, or -1.
  long findRow(std::string_view key) const;

  // The whole text, every row with its own line end.
  std::string text() const;
  std::size_t editedCount() const;

 private:
  std::string content_;
  std::vector<StateRow> rows_;
  std::unordered_map<std::size_t, std::string> editedText_;  // by row, file form
  std::vector<SystemInfo> systems_;
  std::vector<DepartmentInfo> departments_;
};

// Reads a state file from the disk; on failure `error` is one sentence.
struct StateLoad {
  std::optional<StateFile> file;
  std::string error;
};
StateLoad loadStateFile(const std::string& path);

}  // namespace zel::database
