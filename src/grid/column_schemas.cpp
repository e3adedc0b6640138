#include "grid/column_schemas.h"

#include <initializer_list>

#include "core/text.h"

namespace zel {

namespace {

HeadingList makeList(std::initializer_list<const char*> headings) {
  HeadingList list{};
  int slot = 1;
  for (const char* heading : headings) list[slot++] = heading;
  return list;
}

struct SchemaSet {
  HeadingList channel, talkgroup, unit, site, search;
};

SchemaSet bcdSchemas() {
  return {makeList({"Frequency", "Alpha Tag", "Avoid", "Mode", "SQ Mode", "SQ Code", "Service Type",
                    "Attenuator", "Delay Time", "Volume Offset", "Alert Tone", "Alert Level",
                    "Alert Light", "Alert Pattern", "NumberTag", "Priority"}),
          makeList({"Talkgroup", "Alpha Tag", "Avoid", "AudioType", "Service Type", "Delay Time",
                    "Volume Offset", "Alert Tone", "Alert Level", "Alert Light", "Alert Pattern",
                    "NumberTag", "Priority", "DMR Tslot"}),
          makeList({"Unit ID", "Alpha Tag", "Alert Tone", "Alert Level", "Alert Light",
                    "Alert Pattern"}),
          makeList({"Frequency", "LCN", "ColorCode", "RAN"}),
          makeList({"Start Frequency", "Stop Frequency"})};
}

// Family HP ends each list before the first BCD-only column.
SchemaSet hpSchemas() {
  SchemaSet set = bcdSchemas();
  auto cut = [](HeadingList& list, int firstDropped) {
    for (int slot = firstDropped; slot < kHeadingSlots; ++slot) list[slot].clear();
  };
  cut(set.channel, 13);
  cut(set.talkgroup, 10);
  cut(set.unit, 5);
  return set;
}

const HeadingList& pick(const SchemaSet& set, Schema schema) {
  switch (schema) {
    case Schema::Channel:
      return set.channel;
    case Schema::Talkgroup:
      return set.talkgroup;
    case Schema::Unit:
      return set.unit;
    case Schema::Site:
      return set.site;
    case Schema::Search:
      return set.search;
  }
  return set.channel;
}

}  // namespace

const HeadingList& schemaHeadings(Schema schema, ScannerFamily family) {
  static const SchemaSet bcd = bcdSchemas();
  static const SchemaSet hp = hpSchemas();
  return pick(family == ScannerFamily::HP ? hp : bcd, schema);
}

int headingCount(const HeadingList& headings) {
  for (int slot = kHeadingSlots - 1; slot >= 1; --slot) {
    if (!headings[slot].empty()) return slot;
  }
  return 0;
}

bool isWorkingColumn(std::string_view heading) {
  return heading == kSortColumn || heading == kLastSortColumn || heading == kObjectIdColumn ||
         heading == kIndexColumn || heading == kTrunkIndexColumn;
}

}  // namespace zel
