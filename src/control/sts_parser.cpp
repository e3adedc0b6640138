// The STS reply: the scanner's screen. RenderStatus paints it; this file keeps the rest of
// what the screen tells: the raw fields, the rule lines, a Close Call hit, the UID, and on
// the SDS series the site lines.
//
//   ... ,Close Call    <row 6>       , ,<row 8: "155.4750MHz     NFM">, ...
//   ... ,<row 14: "UID:12345678  ...">, ...
//   SDS: "Sys ID: 1A2     TGID: 1234 ", "RFSS ID: 1      Site ID: 12   ", "WACN: BEE00 ..."
#include "control/reply_fields.h"
#include "control/status_decoder.h"
#include "core/text.h"

namespace zel::control {

namespace {
bool isRuleOfAsterisks(std::string_view f) {
  if (f.size() != 36 && f.size() != 24 && f.size() != 30) return false;
  return f.find_first_not_of('*') == std::string_view::npos;
}

// The value after a label on an SDS site line: up to the next double blank. "---" is none.
std::string labelledValue(std::string_view row, std::string_view label) {
  std::size_t at = row.find(label);
  if (at == std::string_view::npos) return {};
  std::string_view rest = row.substr(at + label.size());
  while (!rest.empty() && rest.front() == ' ') rest.remove_prefix(1);
  std::size_t end = rest.find("  ");
  std::string value = trim(rest.substr(0, end));
  return value == "---" ? std::string() : value;
}
}  // namespace

ParseResult StatusDecoder::parseSts(const std::string& rx) {
  if (!endsWith(rx, "\r")) return ParseResult::Waiting;
  link_.watchdogCount = 0;
  std::string fixed = fixStatus(rx);
  RenderStatus(fixed);
  if (options_.debug) appendDatalog(stripLineEnds(fixed));
  st_.screenText = fixed;

  std::string stripped = stripLineEnds(fixed);
  auto fields = replyFields(stripped);
  auto field = [&](int i) -> std::string_view {
    return i < static_cast<int>(fields.size()) ? fields[i] : std::string_view();
  };
  for (int i = 0; i <= 28; ++i) {
    st_.screenFields[i] = std::string(field(i));
    st_.lineIsRule[i].assign(1, isRuleOfAsterisks(field(i)) ? '1' : '0');
  }

  if (mid(field(6), 1, 10) == "Close Call") {
    st_.ccdata[0] = std::string(mid(field(8), 1, 12));
    st_.ccdata[1] = std::string(mid(field(8), 18, 3));
  } else {
    st_.ccdata[0].clear();
    st_.ccdata[1].clear();
  }

  if (startsWith(field(14), "UID:")) {
    st_.ldat[ld::kUid] = trim(mid(field(14), 5, 9));
    st_.uidText = st_.ldat[ld::kUid];
  }
  if (mid(field(12), 15, 5) == "TGID:" && !field(14).empty() && !startsWith(field(14), "UID:")) {
    st_.ldat[ld::kUid] = std::string(mid(field(14), 1, 37));
    st_.uidText = "TaggedID?";
  }
  if (startsWith(field(22), "UID:")) {
    st_.ldat[ld::kUid] = trim(mid(field(22), 5, 9));
    st_.uidText = st_.ldat[ld::kUid];
  }
  if (family_ == Family::Sds) readSdsScreenWords(stripped);
  return ParseResult::Accepted;
}

void StatusDecoder::readSdsScreenWords(std::string_view text) {
  // The mode words end in a comma or a point, so they are looked for in the whole text.
  for (std::string_view word : {"Scan Mode", "Scan Hold"}) {
    for (char end : {',', '.'}) {
      std::string probe(word);
      probe += end;
      if (text.find(probe) != std::string_view::npos) st_.ldat[ld::kInfoScanMode] = word;
    }
  }
  for (const std::string& row : st_.statusFields) {
    if (row.find("Site ID:") != std::string::npos)
      st_.ldat[ld::kSiteIndex] = labelledValue(row, "Site ID:");
    if (row.find("Sys ID:") != std::string::npos)
      st_.ldat[ld::kSystemIndex] = labelledValue(row, "Sys ID:");
    if (row.find("RFSS ID:") != std::string::npos)
      st_.ldat[ld::kRfssId] = labelledValue(row, "RFSS ID:");
    if (row.find("WACN:") != std::string::npos) st_.ldat[ld::kWacn] = labelledValue(row, "WACN:");
  }
}

}  // namespace zel::control
