#include "exchange/csv_import.h"

#include <algorithm>
#include <map>
#include <optional>

#include "core/keys.h"
#include "core/memory_ports.h"
#include "core/new_commands.h"
#include "core/record_line.h"
#include "core/tables.h"
#include "core/text.h"
#include "exchange/tone_text.h"
#include "formats/text_file.h"
#include "grid/column_schemas.h"

namespace zel::exchange {

namespace {

// What a heading of a source column stands for.
enum class Role { None, System, Department, Grid, Tone, Talkgroup };
struct ColumnRole {
  Role role = Role::None;
  std::string heading;   // the grid heading (Role::Grid)
  std::string toneMode;  // the mode a tone column implies (Role::Tone)
};

ColumnRole roleOf(std::string_view cell, const HeadingList& grid) {
  const std::string h = toLower(trimView(cell));
  if (h.empty()) return {};
  if (h == "system") return {Role::System, "", ""};
  if (h == "department" || h == "group") return {Role::Department, "", ""};
  if (h == "talkgroup" || h == "tgid" || h == "trunk id") return {Role::Talkgroup, "", ""};
  static const std::map<std::string, std::string> kTones = {
      {"tone", ""},      {"subtone", ""}, {"pl", "CTCSS"}, {"ctcss", "CTCSS"},
      {"pl tone", "CTCSS"}, {"dpl", "DCS"}, {"dcs", "DCS"},  {"nac", "P25"},
      {"ctcss/dcs", ""}};
  if (auto it = kTones.find(h); it != kTones.end()) return {Role::Tone, "", it->second};
  static const std::map<std::string, std::string> kAliases = {
      {"name", "Alpha Tag"},      {"tag", "Alpha Tag"},   {"alpha tag", "Alpha Tag"},
      {"description", "Alpha Tag"}, {"freq", "Frequency"}, {"frequency (mhz)", "Frequency"},
      {"lockout", "Avoid"},       {"skip", "Avoid"}};
  if (auto it = kAliases.find(h); it != kAliases.end()) return {Role::Grid, it->second, ""};
  for (int i = 1; i <= headingCount(grid); ++i) {
    if (toLower(grid[i]) == h) return {Role::Grid, grid[i], ""};
  }
  return {};
}

// The roles of a row read as a heading line, or nothing when it is not one: it must name a
// frequency or a talkgroup column and one more column this system knows.
std::optional<std::vector<ColumnRole>> headingRow(const GridPage& g, int row,
                                                   const HeadingList& grid) {
  std::vector<ColumnRole> roles(g.cols());
  int known = 0;
  bool key = false;
  for (int c = 1; c < g.cols(); ++c) {
    roles[c] = roleOf(g.textMatrix(row, c), grid);
    if (roles[c].role == Role::None) continue;
    ++known;
    key = key || roles[c].role == Role::Talkgroup ||
          (roles[c].role == Role::Grid && roles[c].heading == "Frequency");
  }
  if (!key || known < 2) return std::nullopt;
  return roles;
}

// One department's rows as a clipboard text of grid headings.
struct Bucket {
  std::string system, department;
  std::vector<std::string> lines;  // TAB-separated values under `headings`
};

class Builder {
 public:
  Builder(Document& doc, const PageFiles& pages, const CsvImportOptions& options,
          CsvImportResult& result)
      : doc_(doc), pages_(pages), options_(options), result_(result) {}

  // Writes every bucket: systems in the order first named, departments likewise.
  bool write(const std::vector<std::string>& headings, const std::vector<Bucket>& buckets) {
    std::string headingLine = join(headings, '\t');
    for (const Bucket& b : buckets) {
      const int system = systemNumber(b.system);
      if (system == 0) return false;
      // Each 9999 rows go to a department of their own.
      for (std::size_t from = 0, part = 1; from < b.lines.size(); from += kMaxChannels, ++part) {
        std::string name = b.department;
        if (part > 1) {
          name += " " + std::to_string(part);
          result_.continued.push_back(name);
        }
        const std::string key = departmentKey(system, name);
        if (key.empty()) return false;
        const std::size_t to = std::min(b.lines.size(), from + kMaxChannels);
        std::string clip = headingLine + "\r\n";
        for (std::size_t i = from; i < to; ++i) clip += b.lines[i] + "\r\n";
        if (!pastePage(key, clip)) return false;
      }
    }
    return true;
  }

 private:
  int systemNumber(const std::string& name) {
    if (auto it = systems_.find(name); it != systems_.end()) return it->second;
    RecordingFeedback said;
    NewNodeResult sys = newSystem(doc_, systemTemplates().front().command, said, 0);
    if (!sys.ok) {
      result_.message = "Cannot make the system " + name + ".";
      return 0;
    }
    const int number = keys::systemOf(sys.key);
    NodeId node = doc_.data.find(sys.key);
    doc_.data.setText(node, record::withField(doc_.data.text(node), 4, record::sanitize(name)));
    doc_.systems.set(number, 1, record::sanitize(name));
    // The template's first department waits for the first department name.
    for (NodeId child : doc_.data.childList(node)) {
      if (startsWith(doc_.data.key(child), "GRP-")) spare_[number] = doc_.data.key(child);
    }
    systems_[name] = number;
    ++result_.systems;
    return number;
  }

  std::string departmentKey(int system, const std::string& name) {
    std::string key;
    if (auto it = spare_.find(system); it != spare_.end() && !it->second.empty()) {
      key = it->second;
      it->second.clear();
    } else {
      RecordingFeedback said;
      NewNodeResult dept = newDepartment(doc_, system, said);
      if (!dept.ok) {
        result_.message = "No room for the department " + name + ".";
        return {};
      }
      key = dept.key;
    }
    NodeId node = doc_.data.find(key);
    doc_.data.setText(node, record::withField(doc_.data.text(node), 4, record::sanitize(name)));
    ++result_.departments;
    return key;
  }

  bool pastePage(const std::string& key, const std::string& clip) {
    const HeadingList& headings = schemaHeadings(Schema::Channel, doc_.family);
    const int cols = headingCount(headings) + 1;
    GridPage grid(2, cols);
    for (int c = 1; c < cols; ++c) grid.setTextMatrix(0, c, headings[c]);
    cell::CommitEnv env;
    env.rules = options_.rules;
    pasteFrequencies(grid, clip, env);
    std::vector<std::string> lines;
    for (int r = 1; r < grid.rows(); ++r) {
      if (grid.textMatrix(r, 1).empty()) continue;
      std::string line = std::to_string(lines.size() + 1);
      for (int c = 1; c < cols; ++c) line += "," + grid.textMatrix(r, c);
      lines.push_back(std::move(line));
    }
    result_.channels += static_cast<int>(lines.size());
    if (!pages_.save(key, lines)) {
      result_.message = "Cannot write the page.";
      return false;
    }
    return true;
  }

  Document& doc_;
  const PageFiles& pages_;
  const CsvImportOptions& options_;
  CsvImportResult& result_;
  std::map<std::string, int> systems_;
  std::map<int, std::string> spare_;
};

Bucket& bucketFor(std::vector<Bucket>& buckets, const std::string& system,
                  const std::string& department) {
  for (Bucket& b : buckets) {
    if (b.system == system && b.department == department) return b;
  }
  buckets.push_back({system, department, {}});
  return buckets.back();
}

}  // namespace

CsvImportResult importCsv(const CsvMapper& mapper, Document& doc, const PageFiles& pages,
                          const CsvImportOptions& options) {
  CsvImportResult result;
  const GridPage& g = mapper.grid();
  const HeadingList& grid = schemaHeadings(Schema::Channel, doc.family);
  std::vector<std::string> headings;
  std::vector<Bucket> buckets;

  int first = 0;
  std::optional<std::vector<ColumnRole>> roles;
  for (int r = 1; r < g.rows() && r <= 5 && !roles; ++r) {
    roles = headingRow(g, r, grid);
    first = r;
  }
  if (!roles) {
    // No heading this system knows: the mapper's meanings make one department.
    const std::string clip = mapper.clipboardText();
    std::vector<std::string_view> lines;
    formats::forEachLine(clip, [&](std::string_view l) { lines.push_back(l); });
    if (lines.size() < 2) {
      result.message = "no row has a frequency to import";
      return result;
    }
    headings = split(lines[0], '\t');
    Bucket& b = bucketFor(buckets, options.system, options.department);
    for (std::size_t i = 1; i < lines.size(); ++i) b.lines.emplace_back(lines[i]);
  } else {
    // The grid headings in the order of the grid, then the squelch pair for tone columns.
    headings.assign(grid.begin() + 1, grid.begin() + 1 + headingCount(grid));
    // A heading line without a frequency column starts rows of talkgroups.
    auto talkgroupHeading = [](const std::vector<ColumnRole>& line) {
      return std::none_of(line.begin(), line.end(), [](const ColumnRole& c) {
        return c.role == Role::Grid && c.heading == "Frequency";
      });
    };
    bool talkgroups = talkgroupHeading(*roles);
    for (int r = first + 1; r < g.rows(); ++r) {
      if (auto again = headingRow(g, r, grid)) {
        roles = std::move(again);
        talkgroups = talkgroupHeading(*roles);
        continue;
      }
      std::map<std::string, std::string> values;
      std::string system = options.system, department = options.department;
      bool any = false;
      for (int c = 1; c < g.cols() && c < static_cast<int>(roles->size()); ++c) {
        const std::string cell = trim(g.textMatrix(r, c));
        if (cell.empty()) continue;
        const ColumnRole& role = (*roles)[c];
        switch (role.role) {
          case Role::System:
            system = cell;
            break;
          case Role::Department:
            department = cell;
            break;
          case Role::Grid:
            values[role.heading] = cell;
            any = true;
            break;
          case Role::Tone: {
            if (values.count("SQ Code")) break;  // the first tone column with a value wins
            ToneText tone = readToneText(cell);
            if (tone.code.empty()) break;
            values["SQ Code"] = tone.code;
            values["SQ Mode"] = tone.mode.empty() ? role.toneMode : tone.mode;
            break;
          }
          case Role::Talkgroup:
            any = true;
            break;
          case Role::None:
            break;
        }
      }
      if (!any) continue;
      if (talkgroups) {
        ++result.talkgroupsSkipped;
        continue;
      }
      std::string line;
      for (std::size_t i = 0; i < headings.size(); ++i) {
        auto it = values.find(headings[i]);
        line += (i ? "\t" : "") + (it == values.end() ? std::string() : it->second);
      }
      bucketFor(buckets, system, department).lines.push_back(std::move(line));
    }
  }
  Builder builder(doc, pages, options, result);
  if (!builder.write(headings, buckets)) return result;
  if (result.channels == 0) {
    result.message = "no row has a frequency to import";
    return result;
  }
  result.ok = true;
  return result;
}

}  // namespace zel::exchange
