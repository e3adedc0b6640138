#include "formats/hpd_check.h"

#include <cstdio>
#include <optional>

#include "core/keys.h"
#include "core/record_line.h"
#include "formats/hpd_writer.h"
#include "formats/text_file.h"

namespace zel::formats {

namespace {

const char* levelText(HpdLevel level) {
  switch (level) {
    case HpdLevel::V1:
      return "1";
    case HpdLevel::V2:
      return "2";
    case HpdLevel::V3:
      return "3";
  }
  return "";
}

struct CountRow {
  const char* label;
  const char* jsonKey;
  int HpdCounts::*member;
};

constexpr CountRow kCountRows[] = {
    {"Systems", "systems", &HpdCounts::systems},
    {"Sites", "sites", &HpdCounts::sites},
    {"Departments", "departments", &HpdCounts::departments},
    {"Channels", "channels", &HpdCounts::channels},
    {"Talkgroups", "talkgroups", &HpdCounts::talkgroups},
    {"Site frequencies", "siteFrequencies", &HpdCounts::frequencies},
    {"Unit IDs", "unitIds", &HpdCounts::unitIds},
    {"Band plans", "bandPlans", &HpdCounts::bandPlans},
    {"P25 band plans", "bandPlansP25", &HpdCounts::bandPlansP25},
    {"Fleet maps", "fleetMaps", &HpdCounts::fleetMaps},
};

}  // namespace

std::vector<HpdSystemInfo> systemsRead(const Document& doc, const HpdReadResult& read) {
  std::vector<HpdSystemInfo> out;
  for (int number : read.systems) {
    const std::string& sin = doc.data.text(doc.data.find(keys::system(number)));
    out.push_back({number, record::field(sin, 4), record::field(sin, 1)});
  }
  return out;
}

HpdCheck checkHpd(Document& doc, RowStore& rows, const std::string& path, Feedback& feedback) {
  HpdCheck check;
  HpdReadOptions options;
  options.fileIndex = 1;
  const std::optional<std::string> text = readWholeFile(path);
  if (!text) {
    check.read = readHpd(doc, rows, path, options, feedback);  // says why it cannot
    return check;
  }
  check.read = readHpdText(doc, rows, *text, path, options, feedback);
  if (!check.read.ok()) return check;
  if (!doc.data.empty()) {
    HpdWriteOptions writeOptions;
    writeOptions.fileIndex = 1;
    writeOptions.audit = &check.audit;
    HpdWriteResult ignored;
    check.written = renderHpd(doc, rows, writeOptions, feedback, ignored);
  }
  check.changes = diffSave(*text, check.written);
  return check;
}

std::string formatCheck(const HpdCheck& check) {
  std::string out;
  const HpdReadResult& read = check.read;
  out += "Lines: " + std::to_string(read.counts.lines) + "\n";
  out += "Skipped lines: " + std::to_string(read.skipped.size()) + "\n";
  for (const SkippedLine& s : read.skipped) {
    out += "  line " + std::to_string(s.lineNumber) + ": " + s.reason + ": " + s.text + "\n";
  }
  out += "Lines a save changes: " + std::to_string(check.changes.linesChanged) + "\n";
  out += formatSaveDiff(check.changes);
  return out;
}

std::string formatCheckJson(const std::string& path, const HpdCheck& check) {
  std::string out = "{\"file\":" + jsonString(path) +
                    ",\"lines\":" + std::to_string(check.read.counts.lines) + ",\"skipped\":[";
  for (std::size_t i = 0; i < check.read.skipped.size(); ++i) {
    const SkippedLine& s = check.read.skipped[i];
    if (i) out += ",";
    out += "{\"line\":" + std::to_string(s.lineNumber) + ",\"reason\":" + jsonString(s.reason) +
           ",\"text\":" + jsonString(s.text) + "}";
  }
  out += "],\"changes\":" + saveDiffJson(check.changes) + "}\n";
  return out;
}

std::string formatInfo(const std::string& path, const HpdReadResult& read,
                       const std::vector<HpdSystemInfo>& systems) {
  std::string out = "File: " + path + "\n";
  out += std::string("Level: ") + levelText(read.level) + "\n";
  for (const CountRow& row : kCountRows) {
    out += std::string(row.label) + ": " + std::to_string(read.counts.*row.member) + "\n";
  }
  for (const HpdSystemInfo& s : systems) {
    char number[16];
    std::snprintf(number, sizeof number, "%3d", s.number);
    out += std::string("  ") + number + "  " + s.type + "  " + s.name + "\n";
  }
  return out;
}

std::string jsonString(std::string_view text) {
  std::string out = "\"";
  for (char c : text) {
    const unsigned char b = static_cast<unsigned char>(c);
    if (b == '"' || b == '\\') {
      out.push_back('\\');
      out.push_back(c);
    } else if (b < 0x20) {
      char buf[8];
      std::snprintf(buf, sizeof buf, "\\u%04x", b);
      out += buf;
    } else if (b < 0x80) {
      out.push_back(c);
    } else {
      out.push_back(static_cast<char>(0xC0 | (b >> 6)));
      out.push_back(static_cast<char>(0x80 | (b & 0x3F)));
    }
  }
  out.push_back('"');
  return out;
}

std::string formatInfoJson(const std::string& path, const HpdReadResult& read,
                           const std::vector<HpdSystemInfo>& systems) {
  std::string out =
      "{\"file\":" + jsonString(path) + ",\"level\":" + levelText(read.level) + ",\"counts\":{";
  bool first = true;
  for (const CountRow& row : kCountRows) {
    if (!first) out += ",";
    first = false;
    out += "\"" + std::string(row.jsonKey) + "\":" + std::to_string(read.counts.*row.member);
  }
  out += "},\"systems\":[";
  first = true;
  for (const HpdSystemInfo& s : systems) {
    if (!first) out += ",";
    first = false;
    out += "{\"number\":" + std::to_string(s.number) + ",\"name\":" + jsonString(s.name) +
           ",\"type\":" + jsonString(s.type) + "}";
  }
  out += "]}\n";
  return out;
}

}  // namespace zel::formats
