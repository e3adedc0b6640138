// The cell commit: any text under any heading with a rule, under both decimal marks, every
// region and the airband step. The first byte picks heading and rules; the rest is the text.
#include <cstdlib>
#include <string>
#include <vector>

#include "fuzz_support.h"
#include "grid/cell_commit.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace zel;
  static const std::vector<std::string> kHeadings = {
      "Frequency",   "Start Frequency", "Offset Frequency", "Latitude", "Longitude", "Step:",
      "Talkgroup",   "FIPS Code",       "Alpha Tag",        "Comments", "Car#",      "Delay Time",
      "LCN",         "NumberTag",       "Bank Channel",     "Lo Chan:", "Unit ID",   "ColorCode",
      "SQ Code",     "GSSI:",           "NXDN Enc. Key",    "Avoid"};
  if (size == 0) return 0;
  const std::uint8_t pick = data[0];
  cell::FrequencyRules rules;
  rules.mark = (pick & 0x80) ? DecimalMark::comma() : DecimalMark::point();
  rules.airband = (pick & 0x40) != 0;
  rules.region = static_cast<cell::Region>((pick >> 4) % 3);
  const std::string& heading = kHeadings[pick % kHeadings.size()];
  const std::string text(fuzz::textOf(data + 1, size - 1));
  cell::CommitResult r = cell::commitText(heading, text, rules);
  // A stored text never holds the record's field mark or a line end.
  if (r.status == cell::CommitStatus::Stored &&
      r.text.find_first_of(",\r\n") != std::string::npos && heading != "Alpha Tag" &&
      heading != "Comments" && heading != "GSSI:") {
    std::abort();
  }
  return 0;
}
