// A delimited text into conventional systems of a document, as `zel csv import` does it.
//
// A file with a heading line this system knows (its own export: "System", "Department",
// "Frequency", "Alpha Tag", ... and the common ones of channel lists: "Name", "Tag",
// "Tone", "PL", "DPL", "NAC") is read by those headings: each row goes to the system and
// department it names, its tone text to the squelch mode and code it stands for. Rows under
// a talkgroup heading ("Talkgroup", "TGID") are counted and skipped: a conventional system
// holds no talkgroups. Any other file goes through the mapper's meanings (set or detected)
// into one system and department.
//
// A department takes at most 9999 rows; the rest continue into further departments named
// "<name> 2", "<name> 3", ... Every value passes the cell commit of its column under the
// rules given.
#pragma once

#include <string>
#include <vector>

#include "core/document.h"
#include "core/page_files.h"
#include "exchange/csv_mapper.h"
#include "grid/cell_commit.h"

namespace zel::exchange {

struct CsvImportOptions {
  std::string system = "CSV Import";      // for rows that name no system
  std::string department = "CSV Import";  // for rows that name no department
  cell::FrequencyRules rules;
};

struct CsvImportResult {
  bool ok = false;
  std::string message;  // why nothing was imported
  int channels = 0;
  int systems = 0;
  int departments = 0;
  int talkgroupsSkipped = 0;
  std::vector<std::string> continued;  // departments made because one was full: "Fire 2"
};

CsvImportResult importCsv(const CsvMapper& mapper, Document& doc, const PageFiles& pages,
                          const CsvImportOptions& options);

}  // namespace zel::exchange
