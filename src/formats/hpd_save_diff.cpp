#include "formats/hpd_save_diff.h"

#include <algorithm>
#include <map>
#include <tuple>
#include <unordered_map>

#include "core/text.h"
#include "formats/hpd_check.h"
#include "formats/text_file.h"

namespace zel::formats {

namespace {

std::string_view typeOf(std::string_view line) {
  return line.substr(0, line.find('\t'));
}

// "CFreqId=217635", "Tid=5", "SiteId=4": a database or position Id.
bool looksLikeId(std::string_view value) {
  const std::size_t eq = value.find('=');
  if (eq == std::string_view::npos || eq < 2) return false;
  const std::string_view word = value.substr(0, eq);
  return word.substr(word.size() - 2) == "Id" || word.substr(word.size() - 2) == "ID" ||
         word == "Tid";
}

FieldChangeKind classify(std::string_view from, std::string_view to) {
  if (looksLikeId(from) || looksLikeId(to)) {
    return to.empty() ? FieldChangeKind::IdEmptied : FieldChangeKind::IdNumbered;
  }
  if (from.empty()) return FieldChangeKind::Filled;
  if (to.empty()) return FieldChangeKind::Emptied;
  return FieldChangeKind::Changed;
}

class Collector {
 public:
  void note(std::string_view type, int field, FieldChangeKind kind, std::string_view from,
            std::string_view to) {
    auto [it, fresh] = index_.try_emplace(std::make_tuple(std::string(type), field, kind), 0);
    if (fresh) {
      it->second = diff_.fields.size();
      diff_.fields.push_back({std::string(type), field, kind, 0, std::string(from), std::string(to)});
    }
    ++diff_.fields[it->second].count;
  }
  SaveDiff& diff() { return diff_; }

 private:
  SaveDiff diff_;
  std::map<std::tuple<std::string, int, FieldChangeKind>, std::size_t> index_;
};

// Compares one pair of lines; true when their text differs.
bool comparePair(std::string_view before, std::string_view after, Collector& out) {
  if (before == after) return false;
  std::vector<std::string_view> a = splitView(before, '\t');
  std::vector<std::string_view> b = splitView(after, '\t');
  const std::string_view type = a.empty() ? std::string_view{} : a[0];
  bool anyField = false;
  const std::size_t n = std::max(a.size(), b.size());
  for (std::size_t i = 1; i < n; ++i) {
    const std::string_view x = i < a.size() ? a[i] : std::string_view{};
    const std::string_view y = i < b.size() ? b[i] : std::string_view{};
    if (x == y) continue;
    out.note(type, static_cast<int>(i), classify(x, y), x, y);
    anyField = true;
  }
  // The same fields, but the file had empty ones at the end that the save leaves out.
  if (!anyField) out.note(type, static_cast<int>(b.size()), FieldChangeKind::TailDropped, "", "");
  return true;
}

std::vector<std::string_view> nonEmptyLines(std::string_view text) {
  std::vector<std::string_view> lines;
  forEachLine(text, [&](std::string_view line) {
    if (!trimView(line).empty()) lines.push_back(line);
  });
  return lines;
}

}  // namespace

std::string_view kindText(FieldChangeKind kind) {
  switch (kind) {
    case FieldChangeKind::Filled:
      return "filled with a default";
    case FieldChangeKind::Emptied:
      return "emptied";
    case FieldChangeKind::IdEmptied:
      return "Id emptied";
    case FieldChangeKind::IdNumbered:
      return "Id renumbered";
    case FieldChangeKind::Changed:
      return "changed";
    case FieldChangeKind::TailDropped:
      return "empty fields at the end left out";
  }
  return "";
}

int SaveDiff::fieldCount(std::string_view lineType, int field, FieldChangeKind kind) const {
  for (const FieldChange& f : fields) {
    if (f.lineType == lineType && f.field == field && f.kind == kind) return f.count;
  }
  return 0;
}

int SaveDiff::lineCount(std::string_view lineType, bool added) const {
  for (const LineChange& l : lines) {
    if (l.lineType == lineType && l.added == added) return l.count;
  }
  return 0;
}

SaveDiff diffSave(std::string_view original, std::string_view written) {
  const std::vector<std::string_view> before = nonEmptyLines(original);
  const std::vector<std::string_view> after = nonEmptyLines(written);
  // The lines of each type in order, the types in the order they first appear.
  std::vector<std::string_view> types;
  std::unordered_map<std::string_view, std::pair<std::vector<std::string_view>,
                                                 std::vector<std::string_view>>>
      byType;
  auto file = [&](std::string_view line, bool isAfter) {
    auto [it, fresh] = byType.try_emplace(typeOf(line));
    if (fresh) types.push_back(typeOf(line));
    (isAfter ? it->second.second : it->second.first).push_back(line);
  };
  for (std::string_view line : before) file(line, false);
  for (std::string_view line : after) file(line, true);

  Collector collector;
  SaveDiff& diff = collector.diff();
  diff.linesBefore = static_cast<int>(before.size());
  diff.linesAfter = static_cast<int>(after.size());
  for (std::string_view type : types) {
    const auto& [was, now] = byType.at(type);
    const std::size_t paired = std::min(was.size(), now.size());
    for (std::size_t i = 0; i < paired; ++i) {
      if (comparePair(was[i], now[i], collector)) ++diff.linesChanged;
    }
    if (was.size() != now.size()) {
      const bool added = now.size() > was.size();
      const int count = static_cast<int>(added ? now.size() - was.size() : was.size() - now.size());
      diff.lines.push_back({std::string(type), added, count});
      diff.linesChanged += count;
    }
  }
  // Within the order of the types, by field.
  std::unordered_map<std::string_view, std::size_t> typeOrder;
  for (std::size_t i = 0; i < types.size(); ++i) typeOrder.emplace(types[i], i);
  std::stable_sort(diff.fields.begin(), diff.fields.end(),
                   [&](const FieldChange& a, const FieldChange& b) {
                     const std::size_t ta = typeOrder.at(a.lineType);
                     const std::size_t tb = typeOrder.at(b.lineType);
                     return ta != tb ? ta < tb : a.field < b.field;
                   });
  return std::move(collector.diff());
}

std::string formatSaveDiff(const SaveDiff& diff) {
  std::string out;
  for (const LineChange& l : diff.lines) {
    out += "  " + l.lineType + " lines " + (l.added ? "added" : "dropped") + ": " +
           std::to_string(l.count) + "\n";
  }
  // Neighbouring fields with the same change are one row: "fields 2 to 101".
  for (std::size_t i = 0; i < diff.fields.size();) {
    const FieldChange& f = diff.fields[i];
    std::size_t j = i + 1;
    while (j < diff.fields.size() && diff.fields[j].lineType == f.lineType &&
           diff.fields[j].field == diff.fields[j - 1].field + 1 && diff.fields[j].kind == f.kind &&
           diff.fields[j].count == f.count && diff.fields[j].from == f.from &&
           diff.fields[j].to == f.to) {
      ++j;
    }
    out += "  " + f.lineType;
    out += j - i > 1 ? " fields " + std::to_string(f.field) + " to " +
                           std::to_string(diff.fields[j - 1].field)
                     : " field " + std::to_string(f.field);
    out += " " + std::string(kindText(f.kind)) + ": " + std::to_string(f.count);
    if (f.kind != FieldChangeKind::TailDropped) {
      out += std::string(f.count > 1 ? " (e.g. \"" : " (\"") + f.from + "\" -> \"" + f.to + "\")";
    }
    out += "\n";
    i = j;
  }
  return out;
}

std::string summarizeSaveDiff(const SaveDiff& diff, int maxRows) {
  std::string out;
  for (const LineChange& l : diff.lines) {
    out += std::to_string(l.count) + " " + l.lineType + " lines " + (l.added ? "added" : "dropped") +
           "\n";
  }
  // One row for each kind of change of a line type, its fields listed, the largest first.
  struct Row {
    std::string lineType;
    FieldChangeKind kind;
    int lines = 0;
    std::string fields;
  };
  std::vector<Row> rows;
  for (const FieldChange& f : diff.fields) {
    auto it = std::find_if(rows.begin(), rows.end(), [&](const Row& r) {
      return r.lineType == f.lineType && r.kind == f.kind;
    });
    if (it == rows.end()) it = rows.insert(rows.end(), Row{f.lineType, f.kind, 0, {}});
    it->lines = std::max(it->lines, f.count);
    it->fields += (it->fields.empty() ? "" : ", ") + std::to_string(f.field);
  }
  std::stable_sort(rows.begin(), rows.end(),
                   [](const Row& a, const Row& b) { return a.lines > b.lines; });
  for (int i = 0; i < static_cast<int>(rows.size()) && i < maxRows; ++i) {
    const Row& r = rows[i];
    out += r.lineType + " lines, field " + r.fields + ": " + std::string(kindText(r.kind)) +
           " in " + std::to_string(r.lines) + "\n";
  }
  if (static_cast<int>(rows.size()) > maxRows) {
    out += "and " + std::to_string(rows.size() - maxRows) + " more kinds of change\n";
  }
  return out;
}

std::string saveDiffJson(const SaveDiff& diff) {
  std::string out = "{\"linesBefore\":" + std::to_string(diff.linesBefore) +
                    ",\"linesAfter\":" + std::to_string(diff.linesAfter) +
                    ",\"linesChanged\":" + std::to_string(diff.linesChanged) + ",\"lines\":[";
  for (std::size_t i = 0; i < diff.lines.size(); ++i) {
    const LineChange& l = diff.lines[i];
    if (i) out += ",";
    out += "{\"type\":" + jsonString(l.lineType) + ",\"change\":\"" +
           (l.added ? "added" : "dropped") + "\",\"count\":" + std::to_string(l.count) + "}";
  }
  out += "],\"fields\":[";
  for (std::size_t i = 0; i < diff.fields.size(); ++i) {
    const FieldChange& f = diff.fields[i];
    if (i) out += ",";
    out += "{\"type\":" + jsonString(f.lineType) + ",\"field\":" + std::to_string(f.field) +
           ",\"change\":" + jsonString(kindText(f.kind)) + ",\"count\":" + std::to_string(f.count) +
           ",\"from\":" + jsonString(f.from) + ",\"to\":" + jsonString(f.to) + "}";
  }
  out += "]}";
  return out;
}

}  // namespace zel::formats
