#include "exchange/csv_mapper.h"

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "core/atomic_file.h"
#include "core/record_line.h"
#include "core/tables.h"
#include "core/text.h"
#include "formats/text_file.h"
#include "exchange/tone_text.h"
#include "grid/vocabulary.h"

namespace zel::exchange {

namespace {

struct Meaning {
  const char* item;
  const char* target;
};
constexpr Meaning kMeanings[] = {
    {"Unknown", ""},
    {"Frequency (MHz)", "Frequency"},
    {"Trunk ID", "Talkgroup"},
    {"Tag/Name", "Alpha Tag"},
    {"Trunk On/Off", ""},
    {"Trunk Frequency", ""},
    {"LockOut", "Avoid"},
    {"Delay On/Off", ""},
    {"Delay Time (Sec.)", "Delay Time"},
    {"Mode", "Mode"},
    {"Step", ""},
    {"CTCSS", "SQ Code"},
    {"DCS", "SQ Code"},
    {"Attenuator On/Off", "Attenuator"},
    {"Beep On/Off", ""},
    {"Priority", "Priority"},
    {"Record On/Off", ""},
    {"Subtone", "SQ Code"},
};

const std::string kUnknown = "Unknown";

bool hasDigit(std::string_view text) {
  return std::any_of(text.begin(), text.end(),
                     [](char c) { return std::isdigit(static_cast<unsigned char>(c)); });
}

// A cell with a "." and digits that reads inside the scanner's range is a frequency.
bool looksLikeFrequency(std::string_view cell) {
  std::string_view t = trimView(cell);
  if (t.find('.') == std::string_view::npos || !hasDigit(t)) return false;
  double mhz = leadingNumber(t);
  return mhz >= 25 && mhz <= 1300;
}

// The whole numbers written in a text, as runs of digits.
std::vector<std::string_view> digitRuns(std::string_view text) {
  std::vector<std::string_view> runs;
  std::size_t i = 0;
  while (i < text.size()) {
    if (!std::isdigit(static_cast<unsigned char>(text[i]))) {
      ++i;
      continue;
    }
    std::size_t start = i;
    while (i < text.size() && std::isdigit(static_cast<unsigned char>(text[i]))) ++i;
    runs.push_back(text.substr(start, i - start));
  }
  return runs;
}

}  // namespace

const std::vector<std::string>& columnMeanings() {
  static const std::vector<std::string> list = [] {
    std::vector<std::string> out;
    for (const Meaning& m : kMeanings) out.emplace_back(m.item);
    return out;
  }();
  return list;
}

std::string targetHeading(std::string_view meaning) {
  for (const Meaning& m : kMeanings) {
    if (meaning == m.item) return m.target;
  }
  return {};
}

std::string normaliseLine(std::string_view raw) {
  std::string line(raw);
  for (char& c : line) {
    if (static_cast<unsigned char>(c) < 32 || c == 127) c = ' ';
  }
  if (line.find(',') == std::string::npos) {
    std::string t = trim(line);
    if (t.find('-') != std::string::npos) {
      line = replaceAll(t, "-", ",");
    } else {
      std::string out;
      bool blank = false;
      for (char c : t) {
        if (c == ' ') {
          blank = true;
          continue;
        }
        if (blank) out.push_back(',');
        blank = false;
        out.push_back(c);
      }
      line = out;
    }
  }
  static const std::pair<const char*, const char*> kWords[] = {
      {",fm,", ",FM,"}, {",am,", ",AM,"}, {",wfm,", ",WFM,"}, {",OFF", ",Off"}, {",ON", ",On"}};
  for (auto [from, to] : kWords) line = replaceAll(line, from, to);
  return line;
}

CsvMapper::CsvMapper() : grid_(1, 1), meanings_(1), lines_(1) {
  grid_.setTextMatrix(0, 0, "#");
}

const std::string& CsvMapper::meaning(int col) const {
  if (col < 1 || col >= static_cast<int>(meanings_.size()) || meanings_[col].empty())
    return kUnknown;
  return meanings_[col];
}

void CsvMapper::setMeaning(int col, std::string_view meaning) {
  if (col < 1 || col >= grid_.cols()) return;
  if (static_cast<int>(meanings_.size()) <= col) meanings_.resize(col + 1);
  meanings_[col] = std::string(meaning);
}

void CsvMapper::addColumn() {
  grid_.setCols(grid_.cols() + 1);
  grid_.setTextMatrix(0, grid_.cols() - 1, std::to_string(grid_.cols() - 1));
  meanings_.resize(grid_.cols());
}

bool CsvMapper::loadText(std::string_view text, Feedback* feedback) {
  std::vector<std::string> lines;
  std::vector<std::vector<std::string>> cells;
  std::size_t width = 0;
  std::size_t start = 0;
  while (start < text.size()) {
    std::size_t end = text.find('\n', start);
    if (end == std::string_view::npos) end = text.size();
    std::string_view raw = text.substr(start, end - start);
    start = end + 1;
    if (!raw.empty() && raw.back() == '\r') raw.remove_suffix(1);
    if (static_cast<int>(lines.size()) == kMaxLines) {
      if (feedback) feedback->message(kTooLarge);
      *this = CsvMapper();
      return false;
    }
    std::string line = normaliseLine(raw);
    std::vector<std::string> fields;
    for (std::string_view f : splitView(line, ',', kMaxColumns)) fields.emplace_back(f);
    width = std::max(width, fields.size());
    lines.push_back(std::move(line));
    cells.push_back(std::move(fields));
  }
  *this = CsvMapper();
  grid_.setRows(static_cast<int>(lines.size()) + 1);
  grid_.setCols(static_cast<int>(width) + 1);
  for (std::size_t c = 1; c <= width; ++c) grid_.setTextMatrix(0, c, std::to_string(c));
  for (std::size_t r = 0; r < cells.size(); ++r) {
    grid_.setTextMatrix(r + 1, 0, std::to_string(r + 1));
    for (std::size_t c = 0; c < cells[r].size(); ++c)
      grid_.setTextMatrix(r + 1, c + 1, cells[r][c]);
  }
  meanings_.assign(width + 1, "");
  lines_.assign(1, "");
  lines_.insert(lines_.end(), lines.begin(), lines.end());
  return true;
}

bool CsvMapper::loadFile(const std::string& path, Feedback* feedback) {
  std::ifstream in(path, std::ios::binary);
  if (!in) {
    *this = CsvMapper();
    return true;
  }
  std::ostringstream content;
  content << in.rdbuf();
  return loadText(content.str(), feedback);
}

void CsvMapper::autoDetect(int rowsToScan) {
  struct Rule {
    std::vector<const char*> words;
    const char* meaning;
  };
  // Searched in this order, case-sensitive, anywhere in the cell.
  static const std::vector<Rule> kRules = {
      {{"FREQ", "Frequency", "(MHz)"}, "Frequency (MHz)"},
      {{"tgid", "ID"}, "Trunk ID"},
      {{"DPL"}, "DCS"},
      {{"PL", "CSQ", "TSQL", "TONE"}, "CTCSS"},
      {{"AM", "FM", "NFM", "WFM", "Mode"}, "Mode"},
      {{"ATT"}, "Attenuator On/Off"},
      {{"TS"}, "Step"},
      {{"SKIP"}, "LockOut"},
  };
  int last = std::min(grid_.rows() - 1, rowsToScan);
  for (int c = 1; c < grid_.cols(); ++c) {
    if (meaning(c) != kUnknown) continue;
    for (int r = 1; r <= last && meaning(c) == kUnknown; ++r) {
      const std::string& cell = grid_.textMatrix(r, c);
      for (const Rule& rule : kRules) {
        bool hit = std::any_of(rule.words.begin(), rule.words.end(),
                               [&](const char* w) { return cell.find(w) != std::string::npos; });
        if (hit) {
          setMeaning(c, rule.meaning);
          break;
        }
      }
    }
  }
  for (int c = 1; c < grid_.cols(); ++c) {
    if (meaning(c) == "Frequency (MHz)") return;
  }
  for (int c = 1; c < grid_.cols(); ++c) {
    if (meaning(c) != kUnknown) continue;
    for (int r = 1; r <= last; ++r) {
      if (looksLikeFrequency(grid_.textMatrix(r, c))) {
        setMeaning(c, "Frequency (MHz)");
        return;
      }
    }
  }
}

std::vector<std::string> CsvMapper::lineOf(int row) const {
  std::vector<std::string> out;
  for (int c = 1; c < grid_.cols(); ++c) out.push_back(grid_.textMatrix(row, c));
  return out;
}

void CsvMapper::removeRows(const std::vector<bool>& drop) {
  std::vector<std::vector<std::string>> kept;
  std::vector<std::string> keptLines(1);
  for (int r = 1; r < grid_.rows(); ++r) {
    if (drop[r]) continue;
    kept.push_back(lineOf(r));
    keptLines.push_back(r < static_cast<int>(lines_.size()) ? lines_[r] : std::string());
  }
  int cols = grid_.cols();
  grid_.setRows(static_cast<int>(kept.size()) + 1);
  for (std::size_t r = 0; r < kept.size(); ++r) {
    grid_.setTextMatrix(r + 1, 0, std::to_string(r + 1));
    for (int c = 1; c < cols; ++c) grid_.setTextMatrix(r + 1, c, kept[r][c - 1]);
  }
  lines_ = std::move(keptLines);
}

int CsvMapper::applyRowFilters(const RowFilters& f) {
  std::vector<bool> drop(grid_.rows(), false);
  int removed = 0;
  for (int r = 1; r < grid_.rows(); ++r) {
    std::string line = r < static_cast<int>(lines_.size()) ? lines_[r] : join(lineOf(r), ',');
    bool keep = true;
    if (f.frequency) {
      std::vector<std::string> cells = lineOf(r);
      keep = keep && std::any_of(cells.begin(), cells.end(), looksLikeFrequency);
    }
    if (f.comma) keep = keep && line.find(',') != std::string::npos;
    if (f.digits > 0) {
      auto runs = digitRuns(line);
      keep = keep && std::any_of(runs.begin(), runs.end(), [&](std::string_view run) {
               return static_cast<int>(run.size()) >= f.digits;
             });
    }
    if (f.dash) keep = keep && line.find('-') != std::string::npos;
    if (!f.text.empty()) keep = keep && line.find(f.text) != std::string::npos;
    if (f.dividableBy16) {
      auto runs = digitRuns(line);
      keep = keep && std::any_of(runs.begin(), runs.end(), [](std::string_view run) {
               long long n = leadingInteger(run.substr(0, 15));
               return n > 0 && n % 16 == 0;
             });
    }
    if (!keep) {
      drop[r] = true;
      ++removed;
    }
  }
  if (removed) removeRows(drop);
  return removed;
}

int CsvMapper::removeEmptyLines() {
  std::vector<bool> drop(grid_.rows(), false);
  int removed = 0;
  for (int r = 1; r < grid_.rows(); ++r) {
    auto cells = lineOf(r);
    drop[r] = std::all_of(cells.begin(), cells.end(),
                          [](const std::string& c) { return trimView(c).empty(); });
    removed += drop[r];
  }
  if (removed) removeRows(drop);
  return removed;
}

int CsvMapper::removeWithoutNumbers() {
  std::vector<bool> drop(grid_.rows(), false);
  int removed = 0;
  for (int r = 1; r < grid_.rows(); ++r) {
    auto cells = lineOf(r);
    drop[r] =
        std::none_of(cells.begin(), cells.end(), [](const std::string& c) { return hasDigit(c); });
    removed += drop[r];
  }
  if (removed) removeRows(drop);
  return removed;
}

int CsvMapper::applyCellFilter(CellOp op, int top, int bottom, int col, std::string_view find,
                               std::string_view replacement) {
  top = std::max(top, 1);
  bottom = std::min(bottom, grid_.rows() - 1);
  int first = col > 0 ? col : 1;
  int last = col > 0 ? std::min(col, grid_.cols() - 1) : grid_.cols() - 1;
  int changed = 0;
  for (int r = top; r <= bottom; ++r) {
    for (int c = first; c <= last; ++c) {
      const std::string& cell = grid_.textMatrix(r, c);
      std::string out;
      switch (op) {
        case CellOp::Upper:
          out = toUpper(cell);
          break;
        case CellOp::Lower:
          out = toLower(cell);
          break;
        case CellOp::Replace:
          out = replaceAll(cell, find, replacement);
          break;
        case CellOp::Remove:
          out = replaceAll(cell, find, "");
          break;
      }
      if (out != cell) {
        grid_.setTextMatrix(r, c, out);
        ++changed;
      }
    }
  }
  return changed;
}

std::string CsvMapper::plainExport() const {
  std::string out(kPlainHeader);
  out += "\r\n";
  for (int r = 1; r < grid_.rows(); ++r) {
    for (int c = 1; c < grid_.cols(); ++c) {
      out += grid_.textMatrix(r, c);
      out.push_back(',');
    }
    out += "\r\n";
  }
  return out;
}

std::string CsvMapper::saveFile(const std::string& path) const {
  namespace fs = std::filesystem;
  std::string target = path;
  if (fs::path(target).filename().string().find('.') == std::string::npos) target += ".csv";
  if (!writeFileAtomically(target, plainExport()).ok) return {};
  return target;
}

std::string CsvMapper::clipboardText() const {
  std::vector<std::pair<int, std::string>> mapped;  // column, heading
  std::vector<std::pair<int, std::string>> tones;   // the tone columns, with their mode
  for (int c = 1; c < grid_.cols(); ++c) {
    const std::string& m = meaning(c);
    if (m == "CTCSS" || m == "DCS" || m == "Subtone") {
      tones.emplace_back(c, m == "Subtone" ? std::string() : m);
      continue;
    }
    std::string heading = targetHeading(m);
    if (!heading.empty()) mapped.emplace_back(c, heading);
  }
  if (mapped.empty() && tones.empty()) return {};
  std::string out;
  for (std::size_t i = 0; i < mapped.size(); ++i) out += (i ? "\t" : "") + mapped[i].second;
  // The tone columns become one code and its mode: each row takes both from the first tone
  // column that holds a value, so an empty DCS cell cannot wipe the CTCSS tone beside it.
  if (!tones.empty()) out += std::string(mapped.empty() ? "" : "\t") + "SQ Code\tSQ Mode";
  out += "\r\n";
  for (int r = 1; r < grid_.rows(); ++r) {
    bool any = false;
    std::string line;
    for (std::size_t i = 0; i < mapped.size(); ++i) {
      const std::string& cell = grid_.textMatrix(r, mapped[i].first);
      any = any || !trimView(cell).empty();
      line += (i ? "\t" : "") + trim(cell);
    }
    if (!tones.empty()) {
      std::string code, mode;
      for (const auto& [col, toneMode] : tones) {
        std::string cell = trim(grid_.textMatrix(r, col));
        if (cell.empty()) continue;
        ToneText tone = readToneText(cell);
        code = tone.code;
        mode = !tone.mode.empty() ? tone.mode : toneMode;
        break;
      }
      any = any || !code.empty();
      line += std::string(mapped.empty() ? "" : "\t") + code + "\t" + mode;
    }
    if (any) out += line + "\r\n";
  }
  return out;
}

int pasteFrequencies(GridPage& grid, std::string_view clipboard, const cell::CommitEnv& env) {
  std::vector<std::string_view> lines;
  formats::forEachLine(clipboard, [&](std::string_view l) {
    if (!l.empty()) lines.push_back(l);
  });
  if (lines.size() < 2) return 0;
  // Nothing past the grid's own columns can land anywhere: the splits stop there.
  const std::size_t cap = static_cast<std::size_t>(std::max(grid.cols(), 1));
  std::vector<int> columns;
  for (std::string_view h : splitView(lines[0], '\t', cap)) columns.push_back(grid.findColumn(h));
  int row = grid.rows();
  for (int r = grid.rows() - 1; r >= 1; --r) {
    if (!trimView(grid.textMatrix(r, 1)).empty()) break;
    row = r;
  }
  int added = 0;
  std::size_t i = 1;
  for (; i < lines.size(); ++i) {
    if (row > kMaxChannels) break;  // a department holds 9999 rows
    if (row >= grid.rows()) grid.setRows(row + 1);
    grid.setTextMatrix(row, 0, std::to_string(row));
    std::vector<std::string_view> values = splitView(lines[i], '\t', columns.size());
    for (std::size_t k = 0; k < values.size() && k < columns.size(); ++k) {
      int col = columns[k];
      if (col < 1) continue;
      const std::string& heading = grid.textMatrix(0, col);
      // A comma would split the row's record: it becomes ";" as in the grid's own Paste.
      std::string value = record::sanitize(values[k]);
      grid.setRow(row);
      grid.setCol(col);
      if (cell::ruleForHeading(heading)) {
        cell::cellCommit(&grid, value, cell::kModePlain, env);
      } else {
        // A list column takes only a word of its list, so a stray text cannot land there.
        const auto& list =
            vocab::tabel(heading == "Avoid" || heading == "Attenuator" || heading == "Priority"
                             ? std::string("Avoid")
                             : heading);
        if (std::find(list.begin(), list.end(), value) != list.end()) grid.setText(value);
      }
    }
    if (!trimView(grid.textMatrix(row, 1)).empty()) {
      ++row;
      ++added;
    } else {
      for (int c = 1; c < grid.cols(); ++c) grid.setTextMatrix(row, c, "");
    }
  }
  if (i < lines.size() && env.feedback) {
    env.feedback->message(departmentFullMessage(static_cast<int>(lines.size() - i)));
  }
  if (added > 0 && env.changed) *env.changed = true;
  return added;
}

std::string departmentFullMessage(int rowsLeft) {
  return "A department holds at most 9999 rows: " + std::to_string(rowsLeft) +
         " rows were not pasted.";
}

}  // namespace zel::exchange
