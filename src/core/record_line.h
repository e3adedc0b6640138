// RecordLine: the tag-led, comma-separated text line that carries a node's fields.
//
//   SIN,Conventional,0,StateId=0,New System,Off,,Conventional,,,,,None,...
//   ^0  ^1           ^2 ^3        ^4         ^5 ...
//
// Field 0 is the tag. There is no quoting or escape: a value bound for a RecordLine has
// its commas replaced by ";" where it is read in.
#pragma once

#include <string>
#include <string_view>

namespace zel::record {

// Field n with CR and LF removed, "" beyond the end, and one leading and one trailing
// double quote stripped.
std::string field(std::string_view line, int n);
// The number of fields (an empty line has one empty field).
int fieldCount(std::string_view line);
// Replaces field n, keeping every other field as it was; fields are added when n lies
// beyond the end. The value is trimmed, as every stored field is.
std::string withField(std::string_view line, int n, std::string_view value);
// The text made safe for a field: commas become ";", CR and LF are dropped.
std::string sanitize(std::string_view value);

}  // namespace zel::record
