// What a user wants to know of a favorites file before trusting a save: what it holds, the
// lines the reader passes over, and every change a save would make to its lines.
#pragma once

#include <string>
#include <vector>

#include "core/document.h"
#include "core/page_files.h"
#include "core/ports.h"
#include "formats/hpd_line_builders.h"
#include "formats/hpd_reader.h"
#include "formats/hpd_save_diff.h"

namespace zel::formats {

struct HpdSystemInfo {
  int number = 0;
  std::string name;
  std::string type;  // the record's type label ("P25 Standard", "Conventional", ...)
};

// The systems a read added, in file order.
std::vector<HpdSystemInfo> systemsRead(const Document& doc, const HpdReadResult& read);

struct HpdCheck {
  HpdReadResult read;
  WriteAudit audit;
  std::string written;  // the bytes a save (zel hpd convert) writes
  SaveDiff changes;     // the file's lines against `written`
};

// Reads the file into `doc` (a fresh document is meant), renders a save into memory with an
// audit, and compares the file with it. Nothing is written but the rows of `rows`.
HpdCheck checkHpd(Document& doc, RowStore& rows, const std::string& path, Feedback& feedback);

// The plain text report of a check, and the same as one JSON object.
std::string formatCheck(const HpdCheck& check);
std::string formatCheckJson(const std::string& path, const HpdCheck& check);

// The counts and systems of a read as plain text lines and as a JSON object.
std::string formatInfo(const std::string& path, const HpdReadResult& read,
                       const std::vector<HpdSystemInfo>& systems);
std::string formatInfoJson(const std::string& path, const HpdReadResult& read,
                           const std::vector<HpdSystemInfo>& systems);

// A JSON string literal of 8-bit text: bytes above 127 are taken as Latin-1.
std::string jsonString(std::string_view text);

}  // namespace zel::formats
