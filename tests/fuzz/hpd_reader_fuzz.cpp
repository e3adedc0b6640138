// Fuzzing the favorites file reader and, on what it reads, the writer and the comparison of
// the file with what a save writes. The first byte of an
// input picks the mode and whether the text gets a header, so that the fuzzer spends its time
// past the header check as well as on it.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "core/document.h"
#include "core/memory_ports.h"
#include "formats/hpd_reader.h"
#include "formats/hpd_save_diff.h"
#include "formats/hpd_writer.h"
#include "formats/row_store.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace zel;
  using namespace zel::formats;
  if (size == 0) return 0;
  const std::uint8_t mode = data[0];
  std::string content;
  if (mode & 1) content = "TargetModel\tBCDx36HP\r\nFormatVersion\t1.00\r\n";
  content.append(reinterpret_cast<const char*>(data + 1), size - 1);

  Document doc;
  doc.x36Mode = (mode & 2) == 0;
  MemoryRows rows;
  RecordingFeedback feedback;
  HpdReadOptions options;
  options.fileIndex = 1 + (mode >> 4);
  options.loadFlags = (mode >> 2) & 3;
  HpdReadResult read = readHpdText(doc, rows, content, "", options, feedback);
  // A failed read leaves nothing behind.
  if (!read.ok() && (!doc.data.empty() || rows.departments() != 0)) std::abort();
  if (read.ok() && !doc.data.empty()) {
    HpdWriteOptions write;
    write.fileIndex = options.fileIndex;
    HpdWriteResult result;
    std::string text = renderHpd(doc, rows, write, feedback, result);
    // What this system writes, it reads without a skipped line.
    Document again;
    again.x36Mode = doc.x36Mode;
    MemoryRows againRows;
    HpdReadResult reread = readHpdText(again, againRows, text, "", options, feedback);
    if (!reread.ok()) std::abort();
    if (options.loadFlags == 0 && !reread.skipped.empty()) std::abort();
    // The check's comparison pairs every line: what is not paired was dropped or added.
    const SaveDiff diff = diffSave(content, text);
    int balance = diff.linesBefore;
    for (const LineChange& l : diff.lines) balance += l.added ? l.count : -l.count;
    if (balance != diff.linesAfter || !diffSave(text, text).empty()) std::abort();
  }
  return 0;
}
