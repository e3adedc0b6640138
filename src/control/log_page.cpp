#include "control/log_page.h"

#include "core/atomic_file.h"

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "core/text.h"

namespace zel::control {

const LogColumns& logColumns(Family family) {
  static const LogColumns bcd{};
  static const LogColumns sds = [] {
    LogColumns c;
    c.extra = 7;
    c.system = 8;
    c.department = 9;
    c.hits = 10;
    c.signal = 11;
    c.mode = 12;
    c.time = 13;
    c.date = 14;
    c.count = 16;
    return c;
  }();
  return family == Family::Bcd ? bcd : sds;
}

const std::vector<std::string>& logHeaders(Family family) {
  static const std::vector<std::string> bcd{
      "Type",       "Frequency", "Talkgroup ID", "Channel Tag", "Subtone", "NAC",  "UID", "System",
      "Department", "Hitcount",  "Signal/RSSI",  "Mode",        "Time",    "Date", ""};
  static const std::vector<std::string> sds{
      "Type",       "Frequency", "Talkgroup ID", "Channel Tag", "Subtone-Detected", "NAC",  "UID",
      "Extra Info", "System",    "Department",   "Hitcount",    "Signal/RSSI",      "Mode", "Time",
      "Date",       ""};
  return family == Family::Bcd ? bcd : sds;
}

std::string logFileHeader(Family family) {
  if (family == Family::Bcd)
    return "TYPE,FREQUENCY,TALKGROUP ID,CHANNEL TAG,SUBTONE,NAC,UID,SYSTEM,DEPARTMENT,"
           "HITCOUNT,SIGNAL,MODE,TIME,DATE,N/A";
  return "TYPE,FREQUENCY,TALKGROUP ID,CHANNEL TAG,SUBTONE_DETECTED,NAC,UID,EXTRA INFO,SYSTEM,"
         "DEPARTMENT,HITCOUNT,SIGNAL,MODE,TIME,DATE,N/A";
}

LogPage::LogPage(int columns)
    : columns_(columns), rows_(kRows, std::vector<std::string>(columns)) {}

const std::string& LogPage::cell(int row, int column) const {
  static const std::string empty;
  if (row < 1 || row > kRows || column < 0 || column >= columns_) return empty;
  return rows_[row - 1][column];
}

void LogPage::setCell(int row, int column, std::string value) {
  if (row < 1 || row > kRows || column < 0 || column >= columns_) return;
  rows_[row - 1][column] = std::move(value);
}

bool LogPage::rowEmpty(int row) const {
  if (row < 1 || row > kRows) return true;
  for (const auto& c : rows_[row - 1])
    if (!c.empty()) return false;
  return true;
}

void LogPage::clear() {
  for (auto& r : rows_)
    for (auto& c : r) c.clear();
}

void LogPage::addLine(std::string_view line) {
  // Moving vectors keeps this a pointer shuffle, not a copy of 1000 rows of text.
  std::vector<std::string> fresh(columns_);
  auto parts = splitView(line, ',');
  for (int i = 0; i < columns_ && i < static_cast<int>(parts.size()); ++i)
    fresh[i] = std::string(parts[i]);
  rows_.pop_back();
  rows_.insert(rows_.begin(), std::move(fresh));
}

std::string LogPage::toIni() const {
  std::string out;
  out.reserve(kRows * columns_ * 4);
  for (const auto& r : rows_) {
    out += '"';
    for (int c = 0; c < columns_; ++c) {
      if (c) out += "\",\"";
      out += r[c];
    }
    out += "\"\r\n";
  }
  return out;
}

void LogPage::fromIni(std::string_view text) {
  clear();
  int row = 1;
  std::size_t pos = 0;
  while (pos < text.size() && row <= kRows) {
    std::size_t end = text.find('\n', pos);
    std::string_view line =
        text.substr(pos, end == std::string_view::npos ? std::string_view::npos : end - pos);
    pos = end == std::string_view::npos ? text.size() : end + 1;
    while (!line.empty() && (line.back() == '\r' || line.back() == '\n')) line.remove_suffix(1);
    if (!line.empty() && line.front() == '"') line.remove_prefix(1);
    if (!line.empty() && line.back() == '"') line.remove_suffix(1);
    int column = 0;
    std::size_t at = 0;
    while (column < columns_) {
      std::size_t sep = line.find("\",\"", at);
      std::string_view cellText =
          line.substr(at, sep == std::string_view::npos ? std::string_view::npos : sep - at);
      rows_[row - 1][column++] = std::string(cellText);
      if (sep == std::string_view::npos) break;
      at = sep + 3;
    }
    ++row;
  }
}

bool writeFileReplacing(const std::string& path, std::string_view text) {
  return writeFileAtomically(path, text).ok;
}

bool LogPage::writeIni(const std::string& path) const {
  if (path.empty()) return false;
  return writeFileReplacing(path, toIni());
}

bool LogPage::readIni(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  if (!in) return false;
  std::ostringstream buffer;
  buffer << in.rdbuf();
  if (in.bad()) return false;
  fromIni(buffer.str());
  return true;
}

std::string LogPage::toCsv(Family family, std::string_view date, std::string_view time) const {
  std::string out = "ZEL software,Torvo,Freeland,";
  out += date;
  out += ',';
  out += time;
  out += "\r\n";
  out += logFileHeader(family);
  out += "\r\n";
  for (const auto& r : rows_) {
    for (const auto& c : r) {
      out += c;
      out += ',';
    }
    out += "\r\n";
  }
  return out;
}

}  // namespace zel::control
