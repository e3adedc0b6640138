#include "exchange/csv_export.h"

#include <algorithm>

#include "core/record_line.h"
#include "grid/column_schemas.h"

namespace zel::exchange {

std::string zelCsvExport(const std::vector<FavoritesRow>& rows) {
  std::string out(kZelCsvHeader);
  out += "\r\n";
  for (const FavoritesRow& row : rows) {
    if (row.mark != "1") continue;
    out += "[FQK] " + record::field(row.line, 6) + "," + record::field(row.line, 3) + "," +
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

}  // namespace

std::string channelCsvExport(const PageFiles& pages, ScannerFamily family) {
  std::vector<std::string> departments = pages.departments();
  std::sort(departments.begin(), departments.end());
  std::string channels, talkgroups;
  int channelColumns = headingCount(schemaHeadings(Schema::Channel, family));
  int talkgroupColumns = headingCount(schemaHeadings(Schema::Talkgroup, family));
  for (const std::string& department : departments) {
    for (const std::string& line : pages.load(department)) {
      std::string value = record::field(line, 1);
      if (value.empty()) continue;
      // A "." in the first field makes a channel, none a talkgroup.
      bool channel = value.find('.') != std::string::npos;
      int columns = channel ? channelColumns : talkgroupColumns;
      std::string row;
      for (int i = 1; i <= columns; ++i) row += (i > 1 ? "," : "") + record::field(line, i);
      (channel ? channels : talkgroups) += row + "\r\n";
    }
  }
  std::string out;
  if (!channels.empty()) out += headingLine(Schema::Channel, family) + channels;
  if (!talkgroups.empty()) out += headingLine(Schema::Talkgroup, family) + talkgroups;
  return out;
}

}  // namespace zel::exchange
