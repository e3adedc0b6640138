#include "database/state_file.h"

#include <cstring>

#include "core/text.h"
#include "formats/text_file.h"

namespace zel::database {

namespace {

struct Prefix {
  std::string_view word;  // as in a record line; a file line has a TAB where this has ","
  LineKind kind;
};

// The words a line is recognised by. A trailing "," means the word must be a whole field;
// "T-Freq" and the header words are matched by their letters alone.
constexpr Prefix kPrefixes[] = {
    {"FormatVersion", LineKind::FormatVersion},
    {"TargetModel", LineKind::TargetModel},
    {"Conventional,", LineKind::Conventional},
    {"Trunk,", LineKind::Trunk},
    {"Site,", LineKind::Site},
    {"C-Group,", LineKind::CGroup},
    {"T-Group,", LineKind::TGroup},
    {"C-Freq,", LineKind::CFreq},
    {"T-Freq", LineKind::TFreq},
    {"TGID,", LineKind::Tgid},
    {"AreaState", LineKind::AreaState},
    {"AreaCounty", LineKind::AreaCounty},
    {"Rectangle", LineKind::Rectangle},
    {"BandPlan_Mot", LineKind::BandPlanMot},
    {"BandPlan_P25", LineKind::BandPlanP25},
    {"FleetMap", LineKind::FleetMap},
};

// Whether a line begins with a word, a "," of the word matching a TAB of a file line or a
// "," of a record line. (A "," of the file would be a ";" in record form, so it never
// matches.)
bool beginsWith(std::string_view line, std::string_view word) {
  if (line.size() < word.size()) return false;
  for (std::size_t i = 0; i < word.size(); ++i) {
    const char c = line[i];
    if (word[i] == ',') {
      if (c != '\t' && c != ',') return false;
    } else if (c != word[i]) {
      return false;
    }
  }
  return true;
}

std::string recordValue(std::string_view fileValue) {
  std::string out(fileValue);
  for (char& c : out) {
    if (c == ',') c = ';';
  }
  return out;
}

}  // namespace

std::string_view rawField(std::string_view line, int n) {
  std::size_t start = 0;
  for (int i = 0; i < n; ++i) {
    const std::size_t tab = line.find('\t', start);
    if (tab == std::string_view::npos) return {};
    start = tab + 1;
  }
  const std::size_t end = line.find('\t', start);
  return line.substr(start, end == std::string_view::npos ? std::string_view::npos : end - start);
}

LineKind lineKindOf(std::string_view line) {
  if (line.empty()) return LineKind::Other;
  for (const Prefix& p : kPrefixes) {
    if (line[0] == p.word[0] && beginsWith(line, p.word)) return p.kind;
  }
  return LineKind::Other;
}

std::string toRecordForm(std::string_view fileLine) {
  std::string out(fileLine);
  for (char& c : out) {
    if (c == ',') c = ';';
  }
  for (char& c : out) {
    if (c == '\t') c = ',';
  }
  return out;
}

std::string toFileForm(std::string_view recordLine) {
  std::string out(recordLine);
  for (char& c : out) {
    if (c == ',') c = '\t';
  }
  for (char& c : out) {
    if (c == ';') c = ',';
  }
  return out;
}

std::string rowKey(const StateRow& row) {
  if (row.system == 0) return "DUM-" + padNumber(row.running, 5);
  return "DAT-" + padNumber(row.system, 4) + "-" + padNumber(row.department, 4) + "-" +
         padNumber(row.channel, 4) + "-" + padNumber(row.running, 4);
}

StateFile StateFile::fromText(std::string text) {
  StateFile file;
  file.content_ = std::move(text);
  const std::string_view all(file.content_);
  file.rows_.reserve(all.size() / 80 + 1);

  int system = 0;
  int department = 0;
  int channel = 0;
  int running = 0;
  std::size_t pos = 0;
  while (pos < all.size()) {
    const char* start = all.data() + pos;
    const void* lf = std::memchr(start, '\n', all.size() - pos);
    std::size_t end = lf ? static_cast<const char*>(lf) - all.data() : all.size();
    StateRow row;
    row.offset = static_cast<std::uint32_t>(pos);
    std::size_t bodyEnd = end;
    if (lf) {
      row.endLength = 1;
      if (bodyEnd > pos && all[bodyEnd - 1] == '\r') {
        --bodyEnd;
        row.endLength = 2;
      }
    }
    row.length = static_cast<std::uint32_t>(bodyEnd - pos);
    const std::string_view line = all.substr(pos, row.length);
    row.kind = lineKindOf(line);
    row.running = ++running;
    const std::size_t index = file.rows_.size();

    switch (row.kind) {
      case LineKind::Conventional:
      case LineKind::Trunk: {
        ++system;
        department = 0;
        channel = 0;
        SystemInfo info;
        info.number = system;
        info.trunk = row.kind == LineKind::Trunk;
        info.name = recordValue(rawField(line, 3));
        info.row = index;
        if (info.trunk) {
          info.type = recordValue(rawField(line, 6));
          info.label = "Trunk: " + info.name + " / " + info.type;
        } else {
          info.label = "Conventional: " + info.name;
        }
        file.systems_.push_back(std::move(info));
        break;
      }
      case LineKind::Site:
        department = 0;
        channel = 0;
        break;
      case LineKind::CGroup:
      case LineKind::TGroup:
        if (system == 0) break;  // a group above every system stays with the header lines
        ++department;
        channel = 0;
        file.departments_.push_back(
            DepartmentInfo{system, department, recordValue(rawField(line, 3)), index});
        break;
      case LineKind::CFreq:
      case LineKind::Tgid:
        if (system != 0) ++channel;
        break;
      default:
        break;
    }
    row.system = system;
    row.department = department;
    row.channel = (row.kind == LineKind::CFreq || row.kind == LineKind::Tgid) ? channel : 0;
    file.rows_.push_back(row);
    pos = lf ? end + 1 : all.size();
  }
  return file;
}

std::string_view StateFile::fileLine(std::size_t row) const {
  const StateRow& r = rows_[row];
  if (r.edited) return editedText_.at(row);
  return std::string_view(content_).substr(r.offset, r.length);
}

std::string StateFile::field(std::size_t row, int n) const {
  return recordValue(rawField(fileLine(row), n));
}

bool StateFile::setField(std::size_t row, int n, std::string_view value) {
  const std::string_view line = fileLine(row);
  std::vector<std::string_view> fields = splitView(line, '\t');
  const std::string fileValue = toFileForm(value);
  if (static_cast<int>(fields.size()) > n && fields[n] == fileValue) return false;
  while (static_cast<int>(fields.size()) <= n) fields.emplace_back();
  fields[n] = fileValue;
  std::string joined;
  joined.reserve(line.size() + fileValue.size() + 8);
  for (std::size_t i = 0; i < fields.size(); ++i) {
    if (i) joined += '\t';
    joined += fields[i];
  }
  editedText_[row] = std::move(joined);
  rows_[row].edited = true;
  return true;
}

long StateFile::findRow(std::string_view key) const {
  const std::size_t dash = key.rfind('-');
  const std::string_view digits = key.substr(dash == std::string_view::npos ? 0 : dash + 1);
  if (dash == std::string_view::npos || digits.empty() || digits.size() > 9 ||
      digits.find_first_not_of("0123456789") != std::string_view::npos) {
    return -1;
  }
  const long long running = leadingInteger(digits);
  if (running < 1 || running > static_cast<long long>(rows_.size())) return -1;
  const std::size_t index = static_cast<std::size_t>(running - 1);
  return rowKey(rows_[index]) == key ? static_cast<long>(index) : -1;
}

std::string StateFile::text() const {
  std::string out;
  out.reserve(content_.size() + 1024);
  const std::string_view all(content_);
  for (std::size_t i = 0; i < rows_.size(); ++i) {
    const StateRow& r = rows_[i];
    out += fileLine(i);
    out += all.substr(r.offset + r.length, r.endLength);
  }
  return out;
}

std::size_t StateFile::editedCount() const {
  return editedText_.size();
}

StateLoad loadStateFile(const std::string& path) {
  StateLoad load;
  std::optional<std::string> text = formats::readWholeFile(path);
  if (!text) {
    load.error = "The state file " + path + " cannot be read.";
    return load;
  }
  if (text->size() >= 0xffffffffULL) {
    load.error = "The state file " + path + " is too large to be a state file.";
    return load;
  }
  load.file = StateFile::fromText(std::move(*text));
  return load;
}

}  // namespace zel::database
