// The HPD writer: walks the record tree and writes one favorites file for one open list, one
// system, or all systems. In the x36-family mode it writes level 3 with its ".hpi"
// companion; otherwise level 2.
//
// The file is written through writeFileAtomically: a unique temporary name beside the
// target, renamed over it only when complete; the first save of a run over an existing file
// keeps that file as "<name>.bak". The walk itself changes the document in two ways the scanner needs: a trunked
// system without a number gets 2, and a custom site without a band plan gets the default one.
#pragma once

#include <string>
#include <string_view>

#include "core/document.h"
#include "core/page_files.h"
#include "core/ports.h"
#include "formats/hpd_format.h"
#include "formats/hpd_line_builders.h"
#include "formats/row_store.h"

namespace zel::formats {

// The save dialog's filter. Its three entries write the same form in the x36-family mode.
inline constexpr std::string_view kHpdSaveFilter =
    "HPD Files|*.hpd|HPD Files (HP1 format)|*.hpd|HPD Files (V1_0)|*.hpd";

struct HpdWriteOptions {
  int fileIndex = 0;            // the open file whose systems are saved; 0 saves every system
  int onlySystem = 0;           // a system number to save alone; 0 for none
  bool uniqueName = false;      // while the target exists, ".hpd" becomes "_.hpd"
  bool toScanner = false;       // the target is the scanner's card (no .hpi, column 11)
  std::string serviceFallback;  // option entry 7: the service type of a row without one
  WriteAudit* audit = nullptr;  // filled with what the save moves to defaults
};

enum class HpdWriteStatus {
  Ok,
  NothingToSave,  // "No data to save, please add at least one system."
  WriteError,     // "There was an error saving this file: " + path
};

struct HpdWriteResult {
  HpdWriteStatus status = HpdWriteStatus::Ok;
  std::string message;
  std::string path;  // the file written (after the unique-name rule)
  HpdLevel level = HpdLevel::V3;
  int systems = 0;         // systems written
  std::string fileStatus;  // columns 0 to 3 of the open-file record, TAB-joined
  // The list was written but its ".hpi" companion was not: one sentence, shown as a message.
  std::string companionError;
  bool ok() const { return status == HpdWriteStatus::Ok; }
};

HpdWriteResult writeHpd(Document& doc, const PageFiles& pages, const std::string& path,
                        const HpdWriteOptions& options, Feedback& feedback);

// The text the writer would put in a file (CR LF ends), without touching the disk or the
// open-file table. `result.status` tells whether there was anything to save.
std::string renderHpd(Document& doc, const PageFiles& pages, const HpdWriteOptions& options,
                      Feedback& feedback, HpdWriteResult& result);

// The same with the rows in any row store.
HpdWriteResult writeHpd(Document& doc, const RowStore& rows, const std::string& path,
                        const HpdWriteOptions& options, Feedback& feedback);
std::string renderHpd(Document& doc, const RowStore& rows, const HpdWriteOptions& options,
                      Feedback& feedback, HpdWriteResult& result);

// The level a save writes in the document's mode.
HpdLevel writeLevel(const Document& doc);

}  // namespace zel::formats
