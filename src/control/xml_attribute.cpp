#include "control/xml_attribute.h"

#include "core/text.h"

namespace zel::control {

std::string XmlAttribute(std::string_view xml, std::string_view tag, std::string_view attribute) {
  if (attribute.empty()) return {};
  const std::string notFound = attribute == "Rssi=" ? "-110" : "";
  // Line ends never fall inside a tag or an attribute name, so the search runs on the text
  // as it is and only the value found is cleaned: the SDS window reads some twenty values
  // of every reply.
  std::string open = "<";
  open += tag;
  std::size_t start = xml.find(open);
  if (start == std::string_view::npos) return notFound;
  std::size_t end = xml.find('>', start);
  std::string_view element =
      xml.substr(start, end == std::string_view::npos ? std::string_view::npos : end - start);
  std::size_t at = element.find(attribute);
  if (at == std::string_view::npos) return notFound;
  std::size_t q1 = element.find('"', at + attribute.size());
  if (q1 == std::string_view::npos) return notFound;
  std::size_t q2 = element.find('"', q1 + 1);
  if (q2 == std::string_view::npos) return notFound;
  std::string value;
  for (char c : element.substr(q1 + 1, q2 - q1 - 1)) {
    if (c == '\r' || c == '\n') continue;
    value += c == ',' ? ';' : c;
  }
  if (value.find("&amp;") == std::string::npos) return value;
  return replaceAll(value, "&amp;", "&");
}

std::string reshapeGsi(std::string_view reply) {
  std::string s = replaceAll(reply, " />", " />\r\n");
  s = replaceAll(s, "  <", "<<");
  s = replaceAll(s, "<ScannerInfo", "<ScannerInfo\r\n");
  std::string out;
  out.reserve(s.size());
  for (char c : s) {
    if (c == '\n') continue;
    out += c == ',' ? ';' : c;
  }
  return out;
}

}  // namespace zel::control
