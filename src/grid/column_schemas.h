// The column schemas: which headings each grid carries, in which order. A heading is a
// column's identity; code finds a column by its heading every time, never by a number
// kept from an earlier operation.
//
//   slot  0   1            2            3        4       5          ...  30
//         ""  "Frequency"  "Alpha Tag"  "Avoid"  "Mode"  "SQ Mode"  ...  ""
//
// A list has 31 slots with slot 0 left empty; the column count is the last non-empty slot.
// Field n of a channel or talkgroup record is column n of its grid.
#pragma once

#include <array>
#include <string>
#include <string_view>

#include "core/document.h"

namespace zel {

enum class Schema { Channel, Talkgroup, Unit, Site, Search };

inline constexpr int kHeadingSlots = 31;
using HeadingList = std::array<std::string, kHeadingSlots>;

// The headings of a schema in a scanner family; family HP lacks the BCD-only columns.
const HeadingList& schemaHeadings(Schema schema, ScannerFamily family);
// The index of the last non-empty slot in 1..30, 0 for an empty list.
int headingCount(const HeadingList& headings);

// Headings that operations on any schema name: the name column, the subtone column, and
// the comment and car columns that only the validators know.
inline constexpr std::string_view kNameHeading = "Alpha Tag";
inline constexpr std::string_view kSubtoneHeading = "SQ Code";
inline constexpr std::string_view kCommentHeading = "Comments";
inline constexpr std::string_view kCarHeading = "Car#";

// Working columns that stand behind the last visible column while an operation runs.
// They carry no document data and are never saved.
inline constexpr std::string_view kSortColumn = "hiddensort";  // width forced to 0
inline constexpr std::string_view kLastSortColumn = "lastsort";
inline constexpr std::string_view kObjectIdColumn = "Object_ID";
inline constexpr std::string_view kIndexColumn = "index";
inline constexpr std::string_view kTrunkIndexColumn = "tindex";
bool isWorkingColumn(std::string_view heading);

}  // namespace zel
