// What a save changes in a favorites file, found by comparing the file's lines with the lines
// the writer produces for it, field by field. Lines are paired by type in order: the n-th
// "C-Freq" line of the file with the n-th "C-Freq" line written. A type with more lines on
// one side has lines dropped or added (AreaState and AreaCounty of a database file, or a
// DQKs_Status the scanner wants); each differing field of a pair is counted by line type,
// field position (the type word is 0) and kind.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace zel::formats {

enum class FieldChangeKind {
  Filled,       // an empty field gets a default
  Emptied,      // a value that a save drops (a code off the list, a field not kept)
  IdEmptied,    // a database Id ("CFreqId=217635") left empty
  IdNumbered,   // an Id given another number, or one where there was none
  Changed,      // a value replaced by another
  TailDropped,  // empty fields at the end of the line left out
};

std::string_view kindText(FieldChangeKind kind);

struct FieldChange {
  std::string lineType;
  int field = 0;
  FieldChangeKind kind = FieldChangeKind::Changed;
  int count = 0;
  std::string from;  // the first case seen
  std::string to;
};

struct LineChange {
  std::string lineType;
  bool added = false;  // else dropped
  int count = 0;
};

struct SaveDiff {
  int linesBefore = 0;  // lines of the file, empty ones not counted
  int linesAfter = 0;
  int linesChanged = 0;  // paired lines whose text differs, plus lines dropped and added
  std::vector<LineChange> lines;
  std::vector<FieldChange> fields;
  bool empty() const { return linesChanged == 0; }
  // The count of one kind of change, for reports and tests; 0 when there is none.
  int fieldCount(std::string_view lineType, int field, FieldChangeKind kind) const;
  int lineCount(std::string_view lineType, bool added) const;
};

SaveDiff diffSave(std::string_view original, std::string_view written);

// Plain text lines, indented by two blanks, one a kind of change; "" when nothing changes.
std::string formatSaveDiff(const SaveDiff& diff);
// A short summary for a question: the lines dropped and added, then at most `maxRows` rows
// of field changes, one a line type and kind, the largest first.
std::string summarizeSaveDiff(const SaveDiff& diff, int maxRows);
// {"linesBefore":..,"linesAfter":..,"linesChanged":..,"lines":[..],"fields":[..]}
std::string saveDiffJson(const SaveDiff& diff);

}  // namespace zel::formats
