#include "formats/hpi_file.h"

#include "core/text.h"
#include "formats/text_file.h"

namespace zel::formats {

std::string hpiPathFor(const std::string& hpdPath) {
  if (hpdPath.size() >= 4 && iequals(std::string_view(hpdPath).substr(hpdPath.size() - 4), ".hpd"))
    return hpdPath.substr(0, hpdPath.size() - 4) + ".hpi";
  return hpdPath + ".hpi";
}

std::optional<HpiAttributes> readHpi(const std::string& hpiPath) {
  std::optional<std::string> text = readWholeFile(hpiPath);
  if (!text) return std::nullopt;
  HpiAttributes attributes;
  std::vector<std::string_view> lines = splitLines(*text);
  // Line 0 is the header; the attributes follow one a line.
  for (std::size_t i = 0; i < attributes.size(); ++i) {
    std::string_view value = i + 1 < lines.size() ? lines[i + 1] : std::string_view{};
    if (value.size() >= 2 && value.front() == '"' && value.back() == '"')
      value = value.substr(1, value.size() - 2);
    attributes[i] = std::string(value);
  }
  return attributes;
}

std::string formatHpi(const HpiAttributes& attributes) {
  std::string out = kHpiHeader;
  out += "\r\n";
  for (const std::string& value : attributes) {
    // One line a value: a line end inside it would move every later attribute. A value
    // that begins and ends with '"' gets one more pair, which the reader takes off again.
    std::string line;
    for (char c : value) {
      if (c != '\r' && c != '\n') line.push_back(c);
    }
    if (line.size() >= 2 && line.front() == '"' && line.back() == '"') line = '"' + line + '"';
    out += line;
    out += "\r\n";
  }
  return out;
}

WriteStatus writeHpi(const std::string& hpiPath, const HpiAttributes& attributes) {
  return writeFileAtomically(hpiPath, formatHpi(attributes), KeepBackup::OncePerSession);
}

}  // namespace zel::formats
