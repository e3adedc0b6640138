// The name, tone and record rules that both import builders share. Texts are the document's
// 8-bit text, so "a character" is a byte throughout.
#include "radioref/rr_import_text.h"

#include <algorithm>
#include <array>
#include <cstdio>

#include "core/text.h"

namespace zel::radioref {

namespace {

void eraseBlanks(std::string& text) {
  std::erase(text, ' ');
}

void cutToTagLimit(std::string& text) {
  if (text.size() > static_cast<std::size_t>(kTagLimit)) text.resize(kTagLimit);
}

bool contains(const std::string& text, std::string_view part) {
  return text.find(part) != std::string::npos;
}

// The numeric value of a text as a plain number: "01" is 1, "2.50" is 2.5, "" is 0.
std::string numericValue(const std::string& text) {
  std::array<char, 32> buffer{};
  std::snprintf(buffer.data(), buffer.size(), "%.15g", leadingNumber(text));
  return buffer.data();
}

}  // namespace

std::string filter_sp(std::string text) {
  text = replaceAll(text, "&amp;", "&");
  text = replaceAll(text, "&quot;", "'");
  std::replace(text.begin(), text.end(), ',', ';');
  std::replace(text.begin(), text.end(), '"', '\'');
  // Codes 1 to 9, 11 to 31 and 128 to 255 go; the line feed (10) is not on the list.
  std::erase_if(text, [](char c) {
    const auto code = static_cast<unsigned char>(c);
    return code >= 128 || (code >= 1 && code <= 9) || (code >= 11 && code <= 31);
  });
  return text;
}

std::string importName(const std::string& alpha, const std::string& descr,
                       const ImportOptions& options) {
  std::string name = alpha.empty() ? descr : alpha;
  if (!options.shortAlpha) {
    // Without the short alpha tag the name is the description, whatever the alpha holds.
    // "Do not modify tags smaller than 16 characters" compares with the tag limit.
    name = descr;
    const bool fits = name.size() <= static_cast<std::size_t>(kTagLimit);
    if (!(options.keepShortTags && fits) && options.removeSpaces && !fits) eraseBlanks(name);
  }
  cutToTagLimit(name);
  name = filter_sp(std::move(name));
  if (options.upperCase) name = toUpper(name);
  return name;
}

std::string cleanListText(std::string text) {
  std::replace(text.begin(), text.end(), ',', ';');
  std::replace(text.begin(), text.end(), '"', '\'');
  std::erase_if(text, [](char c) { return c == '\t' || c == '\n' || c == '\r'; });
  return text;
}

std::string importSystemName(const std::string& text, const ImportOptions& options) {
  std::string name = text;
  cutToTagLimit(name);
  name = filter_sp(std::move(name));
  if (options.removeSpaces) eraseBlanks(name);
  return name;
}

std::string conventionalDepartmentRecord(const std::string& name, const std::string& gps,
                                         const std::string& quickKey) {
  const bool noPlace = gps.empty() || gps == "0,0,0" || gps == ",,";
  const std::string location = noPlace ? "0.000000,-00.000000,0.0" : gps;
  return "GIN,C-Group,CGroupId=0,AgencyId=0," + name.substr(0, kTagLimit) + ",Off," + location +
         ",Circle," + quickKey;
}

std::string departmentQuickKey(int number, const ImportOptions& options) {
  if (!options.qkeysConventional) return {};
  return number >= 99 ? "99" : std::to_string(number);
}

ToneKind toneAndMode(const std::string& tone, const std::string& mode) {
  // Each hit overrides the one before: "123.0 PL CSQ" is a CTCSS tone.
  static constexpr std::array<std::pair<std::string_view, std::string_view>, 7> kKinds = {{
      {"CSQ", "SEARCH"},
      {" PL", "CTCSS"},
      {" DPL", "DCS"},
      {" NAC", "P25"},
      {" DMR", "DMR"},
      {" CC", "DMR"},
      {" RAN", "RAN"},
  }};
  ToneKind result;
  for (const auto& [part, kind] : kKinds) {
    if (contains(tone, part)) result.kind = kind;
  }
  std::string text = tone;
  for (std::string_view part : {" PL", " NAC", " DPL", " CC", " DMR", " RAN"}) {
    text = replaceAll(text, part, "");
  }
  if (mode == "6") result.kind = "DMR";
  // Digits, the point and the letters A to F stay (with the signs between them, 46 to 70).
  std::erase_if(text, [](char c) {
    const auto code = static_cast<unsigned char>(c);
    return (code >= 1 && code <= 45) || code >= 71;
  });
  result.text = std::move(text);
  return result;
}

std::string ledColumns(const std::string& service, const std::vector<LedRule>& leds) {
  std::string columns;
  for (const LedRule& rule : leds) {
    if (rule.enabled && rule.service == service) columns += "," + rule.color + "," + rule.pattern;
  }
  return columns;
}

ChannelLines channelLines(const std::string& frequency, const std::string& name,
                          const ToneKind& tone, const std::string& colorCode,
                          const std::string& service, const std::vector<LedRule>& leds,
                          bool lockout) {
  const std::string& kind = tone.kind;
  std::string value;
  bool valued = true;
  if (kind == "DMR") {
    value = colorCode.empty() ? "Search" : colorCode;
  } else if (kind == "CTCSS" || kind == "DCS" || kind == "P25") {
    value = tone.text;
  } else if (kind == "NXDN" || kind == "RAN") {
    value = numericValue(tone.text);
  } else {
    valued = false;
  }
  const std::string head = frequency + "," + name + (lockout ? ",On" : ",Off") + ",AUTO,";
  const std::string tail = "," + service + ",Off,2,0,Off,Auto";
  ChannelLines lines;
  if (valued) {
    lines.grid = head + kind + "," + value + tail;
    lines.record = "FRQ," + lines.grid;
  } else {
    lines.record = "FRQ," + head + "," + tail;
    lines.grid = head + "All,Search" + tail;
  }
  lines.grid += ledColumns(service, leds);
  return lines;
}

}  // namespace zel::radioref
