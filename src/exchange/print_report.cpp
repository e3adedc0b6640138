#include "exchange/print_report.h"

#include <array>
#include <vector>

#include "core/keys.h"
#include "core/record_line.h"
#include "core/text.h"
#include "core/tree_operations.h"
#include "grid/column_schemas.h"

namespace zel::exchange {

namespace {

// The columns a printed page has room for, by heading; a heading the family's grid lacks is
// left out.
constexpr std::array kChannelColumns = {"Frequency",    "Alpha Tag", "Avoid",
                                        "Mode",         "SQ Mode",   "SQ Code",
                                        "Service Type", "NumberTag", "Priority"};
constexpr std::array kTalkgroupColumns = {"Talkgroup",    "Alpha Tag", "Avoid",    "AudioType",
                                          "Service Type", "NumberTag", "Priority", "DMR Tslot"};

struct Column {
  std::string heading;
  int field = 0;  // field of the page row, the row number being field 0
};

template <std::size_t N>
std::vector<Column> columnsOf(const std::array<const char*, N>& wanted, Schema schema,
                              ScannerFamily family) {
  const HeadingList& headings = schemaHeadings(schema, family);
  std::vector<Column> out;
  for (const char* name : wanted) {
    for (int slot = 1; slot <= headingCount(headings); ++slot) {
      if (headings[slot] == name) out.push_back({name, slot});
    }
  }
  return out;
}

constexpr const char* kStyle =
    "body{font-family:sans-serif;font-size:9pt}"
    "h1{font-size:14pt}h2{font-size:12pt;margin-bottom:0}h3{font-size:10pt;margin-bottom:2pt}"
    "p.kind,p.site{margin:0 0 2pt 0;color:#404040}"
    "table{border-collapse:collapse}"
    "th{background:#404070;color:#ffffff;text-align:left;padding:1pt 4pt}"
    "td{padding:1pt 4pt;border-bottom:1px solid #dddddd}";

void appendSites(std::string& out, const DocumentTree& data, NodeId system) {
  for (NodeId site = data.child(system); site != kNoNode; site = data.next(site)) {
    if (!startsWith(data.key(site), "SIT-")) continue;
    std::vector<std::string> frequencies;
    for (NodeId f = data.child(site); f != kNoNode; f = data.next(f)) {
      if (startsWith(data.key(f), "TFQ-")) frequencies.push_back(record::field(data.text(f), 1));
    }
    out += "<p class=site>Site: " + markupEscape(record::field(data.text(site), 4));
    for (std::size_t i = 0; i < frequencies.size(); ++i) {
      out += (i == 0 ? ": " : ", ") + markupEscape(frequencies[i]);
    }
    out += "</p>\n";
  }
}

void appendDepartment(std::string& out, const DocumentTree& data, NodeId department,
                      const formats::RowStore& rows, const std::vector<Column>& columns) {
  const std::string& key = data.key(department);
  out += "<h3>" + markupEscape(record::field(data.text(department), 4)) + "</h3>\n";
  std::string body;
  int count = 0;
  rows.visit(key, [&](std::string_view row) {
    ++count;
    body += "<tr>";
    for (const Column& c : columns)
      body += "<td>" + markupEscape(record::field(row, c.field)) + "</td>";
    body += "</tr>\n";
  });
  if (count == 0) {
    out += "<p class=kind>No channels.</p>\n";
    return;
  }
  out += "<table><tr>";
  for (const Column& c : columns) out += "<th>" + markupEscape(c.heading) + "</th>";
  out += "</tr>\n" + body + "</table>\n";
}

}  // namespace

std::string favoritesReport(const Document& doc, const formats::RowStore& rows,
                            const ReportOptions& options) {
  const std::vector<Column> channels = columnsOf(kChannelColumns, Schema::Channel, doc.family);
  const std::vector<Column> talkgroups =
      columnsOf(kTalkgroupColumns, Schema::Talkgroup, doc.family);
  const std::string title = options.title.empty() ? "Favorites" : options.title;
  std::string out =
      "<html><head><meta http-equiv=\"Content-Type\" content=\"text/html; charset=iso-8859-1\">"
      "<title>" +
      markupEscape(title) + "</title><style>" + kStyle + "</style></head><body>\n<h1>" +
      markupEscape(title) + "</h1>\n";
  const DocumentTree& data = doc.data;
  for (NodeId system : treemod::walkSystems(data)) {
    if (options.system != 0 && keys::numberAt(data.key(system), 5) != options.system) continue;
    const std::string& line = data.text(system);
    const bool trunked = record::field(line, 1) != "Conventional";
    out += "<h2>" + markupEscape(record::field(line, 4)) + "</h2>\n<p class=kind>" +
           markupEscape(record::field(line, 1)) + "</p>\n";
    if (trunked) appendSites(out, data, system);
    for (NodeId d = data.child(system); d != kNoNode; d = data.next(d)) {
      if (startsWith(data.key(d), "GRP-")) {
        appendDepartment(out, data, d, rows, trunked ? talkgroups : channels);
      }
    }
  }
  out += "</body></html>\n";
  return out;
}

}  // namespace zel::exchange
