// The HPD reader: one favorites file into system, site and department nodes of the record
// tree, site frequencies into the flat frequency tree, and channel and talkgroup rows into
// the departments' page files. It serves File Open, the files a profile names, the lists of
// a scanner's card and the merging of lists.
//
// A read that fails (no file, no header, no room for another system, a page file that
// cannot be written) leaves the document and the page folder as they were.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "core/document.h"
#include "core/page_files.h"
#include "core/ports.h"
#include "formats/hpd_format.h"
#include "formats/row_store.h"

namespace zel::formats {

struct HpdReadOptions {
  int loadFlags = 0;         // kSkipTrunked, kSkipConventional
  int fileIndex = 0;         // row of the open-file table; 0 for none
  bool fromScanner = false;  // the file comes from the scanner's card
  // Option entries of the session: 7 is the service type of a channel whose number is not
  // a known type, 0 that of such a talkgroup, 21 "1" sets the open-file flag column.
  std::string channelServiceFallback;
  std::string talkgroupServiceFallback;
  bool openFileFlag = false;
  // The caller's checks before a read: the file exists, and it starts with a header.
  bool requireHeader = true;
};

enum class HpdReadStatus {
  Ok,
  FileMissing,    // "File error: check if file exists:    " + path
  NotCompatible,  // "File not compatible, or saved in newer format"
  OutOfStorage,   // no free system number, or the tree is full
  PageError,      // a page file could not be written
};

struct HpdCounts {
  int lines = 0;
  int systems = 0;
  int departments = 0;
  int channels = 0;
  int sites = 0;
  int frequencies = 0;
  int talkgroups = 0;
  int fleetMaps = 0;
  int bandPlans = 0;     // BandPlan_Mot lines kept as band plan records
  int bandPlansP25 = 0;  // BandPlan_P25 lines, counted only
  int unitIds = 0;
};

// A line the reader passed over, with why.
struct SkippedLine {
  int lineNumber = 0;  // 1-based
  std::string reason;
  std::string text;  // the start of the line as the file has it
};

struct HpdReadResult {
  HpdReadStatus status = HpdReadStatus::Ok;
  std::string message;  // the text shown to the user when the read failed
  HpdLevel level = HpdLevel::V3;
  HpdCounts counts;
  std::vector<int> systems;          // numbers of the systems added, in file order
  std::vector<SkippedLine> skipped;  // lines of no known type, or that had no place
  // Lines of the format's own words that the reader does not keep (TargetModel,
  // FormatVersion, AreaState, AreaCounty, DQKs_Status), by word.
  std::map<std::string, int> notKept;
  bool ok() const { return status == HpdReadStatus::Ok; }
};

// Reads the file at `path`. Status texts go to `feedback`: "Opening System: " and the count
// in the progress label for each system, "Load Ok." in the status bar and "Finished
// Loading." in the progress label at the end; a failure shows its message.
HpdReadResult readHpd(Document& doc, PageFiles& pages, const std::string& path,
                      const HpdReadOptions& options, Feedback& feedback);

// The same on text already in memory; `path` names the file for the open-file record and
// the companion file ("" for none).
HpdReadResult readHpdText(Document& doc, PageFiles& pages, std::string_view content,
                          const std::string& path, const HpdReadOptions& options,
                          Feedback& feedback);

// The same with the rows kept in any row store (memory for a one-off document).
HpdReadResult readHpd(Document& doc, RowStore& rows, const std::string& path,
                      const HpdReadOptions& options, Feedback& feedback);
HpdReadResult readHpdText(Document& doc, RowStore& rows, std::string_view content,
                          const std::string& path, const HpdReadOptions& options,
                          Feedback& feedback);

}  // namespace zel::formats
