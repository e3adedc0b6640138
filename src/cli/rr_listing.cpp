#include "cli/rr_listing.h"

#include <cstdio>
#include <ostream>

#include "radioref/soap_envelope.h"

namespace zel::cli {

namespace {

std::string utf8(const std::string& latin1) {
  return radioref::latin1ToUtf8(latin1);
}

void printJsonTo(std::ostream& out, const Listing& listing) {
  out << '{';
  bool first = true;
  for (const auto& f : listing.fields) {
    if (!first) out << ',';
    first = false;
    out << jsonString(f.key) << ':' << (f.number ? f.value : jsonString(f.value));
  }
  for (const auto& list : listing.lists) {
    if (!first) out << ',';
    first = false;
    out << jsonString(list.key) << ":[";
    for (std::size_t i = 0; i < list.items.size(); ++i) {
      if (i) out << ',';
      printJsonTo(out, list.items[i]);
    }
    out << ']';
  }
  out << '}';
}

}  // namespace

std::string jsonInside(const std::string& latin1) {
  std::string out;
  for (unsigned char c : utf8(latin1)) {
    switch (c) {
      case '"':
        out += "\\\"";
        break;
      case '\\':
        out += "\\\\";
        break;
      case '\n':
        out += "\\n";
        break;
      case '\r':
        out += "\\r";
        break;
      case '\t':
        out += "\\t";
        break;
      default:
        if (c < 0x20) {
          char buf[8];
          std::snprintf(buf, sizeof buf, "\\u%04x", c);
          out += buf;
        } else {
          out += static_cast<char>(c);
        }
    }
  }
  return out;
}

std::string jsonString(const std::string& latin1) {
  return "\"" + jsonInside(latin1) + "\"";
}

Listing& Listing::field(std::string key, double value) {
  char buf[64];
  std::snprintf(buf, sizeof buf, "%.10g", value);
  fields.push_back({std::move(key), buf, true});
  return *this;
}

std::vector<Listing>& Listing::list(std::string key, std::string caption) {
  lists.push_back({std::move(key), std::move(caption), {}});
  return lists.back().items;
}

void printPlain(std::ostream& out, const Listing& listing, int indent) {
  const std::string pad(indent, ' ');
  if (!listing.fields.empty()) {
    out << pad;
    bool first = true;
    for (const auto& f : listing.fields) {
      if (f.value.empty()) continue;
      if (!first) out << "  ";
      first = false;
      out << f.key << ' ' << utf8(f.value);
    }
    out << '\n';
  }
  for (const auto& list : listing.lists) {
    out << pad << "  " << list.caption << " (" << list.items.size() << "):\n";
    for (const auto& item : list.items) printPlain(out, item, indent + 4);
  }
}

void printJson(std::ostream& out, const Listing& listing) {
  printJsonTo(out, listing);
  out << '\n';
}

void printJsonArray(std::ostream& out, const std::vector<Listing>& items) {
  out << '[';
  for (std::size_t i = 0; i < items.size(); ++i) {
    if (i) out << ',';
    printJsonTo(out, items[i]);
  }
  out << "]\n";
}

}  // namespace zel::cli
