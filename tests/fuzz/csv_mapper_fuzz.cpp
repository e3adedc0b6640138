// The CSV mapper on any text: the load, the detection, the filters, the clipboard text and
// its paste into a channel grid, and the tone texts of every cell.
#include <cstdlib>

#include "exchange/csv_mapper.h"
#include "exchange/tone_text.h"
#include "fuzz_support.h"
#include "grid/column_schemas.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace zel;
  using namespace zel::exchange;
  CsvMapper mapper;
  if (!mapper.loadText(fuzz::textOf(data, size))) return 0;
  if (mapper.columnCount() > kMaxColumns) std::abort();
  mapper.autoDetect();
  for (int c = 1; c <= mapper.columnCount() && c <= 8; ++c) {
    for (int r = 1; r <= mapper.rowCount() && r <= 8; ++r) {
      (void)readToneText(mapper.grid().textMatrix(r, c));
    }
  }
  const std::string clip = mapper.clipboardText();
  const HeadingList& headings = schemaHeadings(Schema::Channel, ScannerFamily::BCD);
  const int cols = headingCount(headings) + 1;
  GridPage grid(2, cols);
  for (int c = 1; c < cols; ++c) grid.setTextMatrix(0, c, headings[c]);
  const int added = pasteFrequencies(grid, clip, cell::CommitEnv{});
  // Nothing lands past the department's last row, and no cell holds the record's field mark.
  if (added < 0 || grid.rows() > 10000) std::abort();
  for (int r = 1; r < grid.rows(); ++r) {
    for (int c = 1; c < cols; ++c) {
      if (grid.textMatrix(r, c).find(',') != std::string::npos) std::abort();
    }
  }
  RowFilters filters;
  filters.frequency = filters.comma = filters.dash = filters.dividableBy16 = (size & 1) != 0;
  filters.digits = static_cast<int>(size % 5);
  mapper.applyRowFilters(filters);
  mapper.removeEmptyLines();
  (void)mapper.plainExport();
  return 0;
}
