// Page files: the rows of one department, one text file a department, so that the tree
// stays small and only the department on show sits in a grid.
//
//   <data folder>/temp/GRP-999-001-000.tmp
//   1,154.785000,Fire Dispatch,Off,NFM,CTCSS,123.0,Fire Dispatch,Off,2,0,Off,Auto,...
//   2,...
//
// A line is the row number (1-based order of the row in the department), a comma and the
// FRQ or TID fields. A department that has no rows has no file.
//
// The rows are kept in memory and the files are written by flush(): opening a state file of
// four thousand departments must not create four thousand files before the window can show
// it. Until clearAll() has emptied the folder, a department the memory does not hold is read
// from its file, so a folder left by an earlier run still reads.
#pragma once

#include <functional>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "core/document_tree.h"

namespace zel {

class PageFiles {
 public:
  // `folder` is the session's temp folder; it is made when missing.
  explicit PageFiles(std::string folder);

  const std::string& folder() const { return folder_; }
  std::string pathOf(std::string_view departmentKey) const;
  bool exists(std::string_view departmentKey) const;

  // The lines of a department's file, without line ends. A missing file is an empty
  // department. A read error stops the reading and keeps what was read.
  std::vector<std::string> load(std::string_view departmentKey) const;
  // Replaces the department's file with these lines (each a row: "n,fields..."); no lines
  // removes the file. Removes "temp.tmp" first. Written to a temporary name and renamed.
  bool save(std::string_view departmentKey, const std::vector<std::string>& lines) const;
  // Appends one line to the department's file (the reader adds rows one at a time).
  bool append(std::string_view departmentKey, std::string_view line) const;
  // Appends many lines at once; the same as calling append for each.
  bool appendAll(std::string_view departmentKey, const std::vector<std::string>& lines) const;
  bool appendAll(std::string_view departmentKey, std::vector<std::string>&& lines) const;
  // Calls `fn` with each line of the department, without copying them.
  void visit(std::string_view departmentKey,
             const std::function<void(std::string_view)>& fn) const;
  bool remove(std::string_view departmentKey) const;
  // Renames a department's file when the department moves (a copy keeps both).
  bool rename(std::string_view fromKey, std::string_view toKey) const;
  bool copy(std::string_view fromKey, std::string_view toKey) const;
  // Deletes every "*.tmp" of the folder (the session clears all pages).
  void clearAll() const;
  // The department keys that have rows, in key order.
  std::vector<std::string> departments() const;
  // Writes the departments changed since the last flush to their files (each to a temporary
  // name, then renamed) and removes the files of departments emptied since. False when a
  // file could not be written; the rows stay in memory either way.
  bool flush() const;
  // About how many bytes of rows the memory holds.
  std::size_t bytesHeld() const { return bytes_; }

  // For every department file, adds keys "FRQ-sss-ddd-nnnn" or "TID-sss-ddd-nnnn" to the
  // work tree, with the row's line as text. Returns false with "error, temp memory is full"
  // as `error` when the work tree would pass its limit.
  bool rebuildKeyedRows(DocumentTree& work, std::string& error,
                        std::size_t limit = 30000) const;

  // The scratch file used while rows are rewritten.
  std::string scratchPath() const;

 private:
  struct Page {
    std::vector<std::string> lines;
    bool dirty = false;
  };
  // The page of a department, read from its file first when the memory does not hold it.
  Page* page(std::string_view departmentKey, bool create) const;
  void forget(std::string_view departmentKey) const;

  std::string folder_;
  // Every member below is a cache of the files, so the const interface keeps it.
  mutable std::map<std::string, Page, std::less<>> pages_;
  mutable std::set<std::string, std::less<>> emptied_;  // files to remove at the next flush
  mutable bool authoritative_ = false;  // true once clearAll() emptied the folder
  mutable std::size_t bytes_ = 0;
};

// The row number and fields of a page line: "12,154.785000,Name,..." -> 12 and the rest.
struct PageRow {
  int number = 0;
  std::string_view fields;
};
PageRow splitPageLine(std::string_view line);

}  // namespace zel
