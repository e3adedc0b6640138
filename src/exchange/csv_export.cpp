#include "exchange/csv_export.h"

#include <algorithm>
#include <functional>

#include "core/keys.h"
#include "core/record_line.h"
#include "grid/column_schemas.h"

namespace zel::exchange {

std::string zelCsvExport(const std::vector<FavoritesRow>& rows) {
  std::string out(kZelCsvHeader);
  out += "\r\n";
  for (const FavoritesRow& row : rows) {
    if (row.mark != "1") continue;
    const std::string field6 = record::field(row.line, 6);
    const std::string name = field6.empty() ? row.name : field6;
    out += "[FQK] " + name + "," + record::field(row.line, 3) + "," +
           record::field(row.line, 7) + ",Numtag: " + record::field(row.line, 2) + ",\r\n";
  }
  return out;
}

namespace {

std::string headingLine(Schema schema, ScannerFamily family) {
  const HeadingList& headings = schemaHeadings(schema, family);
  int count = headingCount(headings);
  std::string out;
  for (int i = 1; i <= count; ++i) out += (i > 1 ? "," : "") + headings[i];
  return out + "\r\n";
}

// `prefix(department)` gives the first cells of each line of a department ("" for none).
std::string exportRows(const PageFiles& pages, ScannerFamily family, std::string_view headPrefix,
                       const std::function<std::string(const std::string&)>& prefix) {
  std::vector<std::string> departments = pages.departments();
  std::sort(departments.begin(), departments.end());
  std::string channels, talkgroups;
  int channelColumns = headingCount(schemaHeadings(Schema::Channel, family));
  int talkgroupColumns = headingCount(schemaHeadings(Schema::Talkgroup, family));
  for (const std::string& department : departments) {
    const std::string first = prefix(department);
    for (const std::string& line : pages.load(department)) {
      std::string value = record::field(line, 1);
      if (value.empty()) continue;
      // A "." in the first field makes a channel, none a talkgroup.
      bool channel = value.find('.') != std::string::npos;
      int columns = channel ? channelColumns : talkgroupColumns;
      std::string row = first;
      for (int i = 1; i <= columns; ++i) row += (i > 1 ? "," : "") + record::field(line, i);
      (channel ? channels : talkgroups) += row + "\r\n";
    }
  }
  std::string out;
  if (!channels.empty()) out += std::string(headPrefix) + headingLine(Schema::Channel, family) + channels;
  if (!talkgroups.empty()) {
    out += std::string(headPrefix) + headingLine(Schema::Talkgroup, family) + talkgroups;
  }
  return out;
}

}  // namespace

std::string channelCsvExport(const PageFiles& pages, ScannerFamily family) {
  return exportRows(pages, family, "", [](const std::string&) { return std::string(); });
}

std::string channelCsvExport(const Document& doc, const PageFiles& pages) {
  return exportRows(pages, doc.family, "System,Department,", [&](const std::string& key) {
    // Names hold no comma (the record's field mark); the key gives the system.
    const NodeId dept = doc.data.find(key);
    const NodeId sys = doc.data.find(keys::system(keys::systemOf(key)));
    const std::string system = sys ? record::field(doc.data.text(sys), 4) : std::string();
    const std::string department = dept ? record::field(doc.data.text(dept), 4) : std::string();
    return system + "," + department + ",";
  });
}

}  // namespace zel::exchange
