// What `zel rr` prints, built once and written either as plain text or as JSON. A listing is
// a tree of records: each has its fields in order (the first is its own id) and named lists
// of records below it.
//
//   plain:  ctid 841  countyName Linn  ...          JSON:  {"ctid":"841","countyName":"Linn",
//             Categories (5):                                 "cats":[{...}]}
//               cid 8028  cName Linn County
#pragma once

#include <iosfwd>
#include <string>
#include <utility>
#include <vector>

namespace zel::cli {

struct Listing {
  struct List;
  struct Field {
    std::string key;
    std::string value;  // Latin-1 text
    bool number = false;
  };
  std::vector<Field> fields;
  std::vector<List> lists;

  Listing& field(std::string key, std::string value) {
    fields.push_back({std::move(key), std::move(value), false});
    return *this;
  }
  Listing& field(std::string key, long long value) {
    fields.push_back({std::move(key), std::to_string(value), true});
    return *this;
  }
  Listing& field(std::string key, int value) { return field(std::move(key), static_cast<long long>(value)); }
  Listing& field(std::string key, double value);
  // true or false (not an overload of field: a text literal would convert to bool first).
  Listing& flag(std::string key, bool value) {
    fields.push_back({std::move(key), value ? "true" : "false", true});
    return *this;
  }
  // A new list `key` shown under `caption`; records go into the returned vector.
  std::vector<Listing>& list(std::string key, std::string caption);
};

struct Listing::List {
  std::string key;
  std::string caption;
  std::vector<Listing> items;
};

// A text held as 8-bit (Latin-1) as a quoted JSON string in UTF-8.
std::string jsonString(const std::string& latin1);
// The same without its quotes, for a string written between quotes of its own.
std::string jsonInside(const std::string& latin1);

void printPlain(std::ostream& out, const Listing& listing, int indent = 0);
void printJson(std::ostream& out, const Listing& listing);
// A list of records as one JSON array on a line: "[{...},{...}]".
void printJsonArray(std::ostream& out, const std::vector<Listing>& items);

}  // namespace zel::cli
