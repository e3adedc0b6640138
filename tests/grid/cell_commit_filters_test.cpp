// Every character filter, code by code: what each one keeps, deletes and turns into "_".
#include "grid/cell_commit_filters.h"

#include <gtest/gtest.h>

#include <string>

namespace zel::cell {
namespace {

bool isDigit(int c) {
  return c >= '0' && c <= '9';
}
bool isUpper(int c) {
  return c >= 'A' && c <= 'Z';
}
bool isLower(int c) {
  return c >= 'a' && c <= 'z';
}

struct FilterCase {
  CharFilter filter;
  const char* name;
  // The expected action for a code, stated by what the filter is for.
  CharAction (*expected)(int code);
};

CharAction keepIf(bool keep) {
  return keep ? CharAction::Keep : CharAction::Delete;
}

const FilterCase kFilters[] = {
    {CharFilter::Name, "name",
     [](int c) {
       if (c == '"' || c == '=' || c == '`') return CharAction::Underscore;
       // Printable ASCII without the brackets "[\]" and "{|}~".
       return keepIf(c >= 32 && c <= 122 && c != '[' && c != '\\' && c != ']');
     }},
    {CharFilter::Frequency, "frequency",
     [](int c) { return keepIf(c == 0 || c == '.' || isDigit(c) || c == ':'); }},
    {CharFilter::Code, "code",
     [](int c) { return keepIf(c == 0 || c == '.' || isDigit(c) || (c >= 'A' && c <= 'F')); }},
    {CharFilter::Talkgroup, "talkgroup",
     [](int c) { return keepIf(c == 0 || c == '*' || c == '-' || isDigit(c) || c == 'i'); }},
    {CharFilter::Comment, "comment",
     [](int c) {
       if (c == '"' || c == '`') return CharAction::Underscore;
       // The second form keeps the low control codes 0-13 (tab, line ends) and "=".
       return keepIf(c <= 13 || (c >= 32 && c <= 122 && c != '[' && c != '\\' && c != ']'));
     }},
    {CharFilter::Digits, "digits", [](int c) { return keepIf(c == 0 || c == '-' || isDigit(c)); }},
    {CharFilter::Fips, "fips",
     [](int c) { return keepIf(c == '*' || isDigit(c) || isUpper(c) || isLower(c)); }},
};

TEST(CharFilters, EveryCodeOfEveryFilter) {
  for (const FilterCase& f : kFilters) {
    for (int code = 0; code < 256; ++code) {
      EXPECT_EQ(filterAction(f.filter, static_cast<unsigned char>(code)), f.expected(code))
          << f.name << " code " << code;
    }
  }
}

TEST(CharFilters, Texts) {
  struct Case {
    CharFilter filter;
    const char* in;
    const char* out;
  } cases[] = {
      {CharFilter::Name, "Fire \"Disp\"=1`", "Fire _Disp__1_"},
      {CharFilter::Name, "[Law]{Tac}", "LawTac"},
      {CharFilter::Name, "a,b", "a,b"},  // commas are refused at the keyboard instead
      {CharFilter::Name, "Caf\xE9\t1", "Caf1"},
      {CharFilter::Code, "abc", "ABC"},
      {CharFilter::Code, "1a2g", "1A2"},
      {CharFilter::Code, "12.3 Hz", "12.3"},
      {CharFilter::Code, "f-f-f", "FFF"},
      {CharFilter::Talkgroup, "I123", "i123"},
      {CharFilter::Talkgroup, "1I23", "123"},
      {CharFilter::Talkgroup, "05-123", "05-123"},
      {CharFilter::Talkgroup, "*12 ab", "*12"},
      {CharFilter::Talkgroup, "TG 1,234", "1234"},
      {CharFilter::Fips, "06-037", "06037"},
      {CharFilter::Fips, "*ab_1", "*ab1"},
      {CharFilter::Digits, "+1 (555) 12-34", "155512-34"},
      {CharFilter::Comment, "a=\"b\"", "a=_b_"},
      {CharFilter::Frequency, "154.1625 MHz", "154.1625"},
  };
  for (const Case& c : cases) EXPECT_EQ(applyFilter(c.filter, c.in), c.out) << c.in;
}

}  // namespace
}  // namespace zel::cell
