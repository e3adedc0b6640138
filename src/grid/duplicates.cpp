#include "grid/duplicates.h"

#include <algorithm>
#include <numeric>
#include <unordered_map>

#include "core/keys.h"
#include "core/record_line.h"
#include "core/text.h"
#include "grid/cell_commit_frequency.h"

namespace zel::dups {

namespace {

// Key positions: "FRQ-sss-ggg-cccc", system at 5, department at 9, channel at 13.
struct KeyParts {
  int system = 0;
  int department = 0;
  int channel = 0;
};

KeyParts partsOf(std::string_view key) {
  return {keys::numberAt(key, 5), keys::numberAt(key, 9), keys::numberAt(key, 13)};
}

MatchRow makeRow(const KeyedRow& row, const KeyParts& parts, std::string data,
                 const NameLookup& names) {
  MatchRow m;
  m.data = std::move(data);
  m.subtone = record::field(row.line, 4);
  m.alphaTag = record::field(row.line, 2);
  m.system = names.system ? names.system(parts.system) : padNumber(parts.system, 3);
  m.department = names.department ? names.department(parts.system, parts.department)
                                  : padNumber(parts.department, 3);
  m.group = padNumber(parts.department, 3);
  m.channel = padNumber(parts.channel, 4);
  m.key = row.key;
  return m;
}

void number(std::vector<MatchRow>& out) {
  for (std::size_t i = 0; i < out.size(); ++i) {
    out[i].number = std::to_string(i + 1);
    out[i].listKey = "A*" + out[i].number;
  }
}

}  // namespace

std::vector<KeyedRow> rowsOf(const DocumentTree& work, std::string_view prefix) {
  std::vector<KeyedRow> out;
  for (NodeId id : work.all()) {
    if (startsWith(work.key(id), prefix)) out.push_back({work.key(id), work.text(id)});
  }
  return out;
}

std::vector<MatchRow> pairwiseSearch(const std::vector<KeyedRow>& rows, std::string_view prefix,
                                     int currentSystem, const NameLookup& names,
                                     const Progress& progress) {
  const bool frequencies = prefix == "FRQ-";
  // Values are read once: a frequency as a number, so that 154.100000 and 154.1 meet; a
  // talkgroup as its text, interned to a number so the inner loop compares integers.
  struct Value {
    bool present = false;
    double number = 0;
    std::size_t textId = 0;
    std::string text;
  };
  std::vector<Value> values(rows.size());
  std::vector<KeyParts> parts(rows.size());
  std::vector<bool> inPrefix(rows.size());
  std::unordered_map<std::string, std::size_t> ids;
  for (std::size_t i = 0; i < rows.size(); ++i) {
    inPrefix[i] = startsWith(rows[i].key, prefix);
    if (!inPrefix[i]) continue;
    parts[i] = partsOf(rows[i].key);
    if (currentSystem > 0 && parts[i].system != currentSystem) continue;
    Value& v = values[i];
    v.text = trim(record::field(rows[i].line, 1));
    v.present = !v.text.empty();
    if (frequencies) v.number = leadingNumber(v.text);
    v.textId = ids.emplace(v.text, ids.size()).first->second;
  }

  std::vector<MatchRow> out;
  std::vector<bool> done(rows.size());
  for (std::size_t i = 0; i < rows.size(); ++i) {
    if (progress && !progress(static_cast<int>(i * 100 / rows.size()))) break;
    if (!inPrefix[i] || done[i] || !values[i].present) continue;
    const Value& vi = values[i];
    bool origin = false;
    for (std::size_t j = 0; j < rows.size(); ++j) {
      if (j == i || !inPrefix[j] || !values[j].present) continue;
      const Value& vj = values[j];
      bool equal = frequencies ? vi.number == vj.number : vi.textId == vj.textId;
      if (!equal || rows[i].key == rows[j].key) continue;
      if (!origin) {
        out.push_back(makeRow(rows[i], parts[i], "ORG:" + vi.text, names));
        done[i] = true;
        origin = true;
      }
      out.push_back(makeRow(rows[j], parts[j], "DUP:" + vj.text, names));
      done[j] = true;
    }
  }
  number(out);
  return out;
}

std::vector<MatchRow> sortedSearch(const std::vector<KeyedRow>& rows, std::string_view prefix,
                                   const NameLookup& names, const Progress& progress) {
  const bool frequencies = prefix == "FRQ-";
  std::vector<std::string> text;
  std::vector<std::size_t> index;
  text.reserve(rows.size());
  index.reserve(rows.size());
  for (std::size_t i = 0; i < rows.size(); ++i) {
    if (!startsWith(rows[i].key, prefix)) continue;
    std::string value = trim(record::field(rows[i].line, 1));
    // Frequencies compare on the fixed form of four decimals, as text.
    text.push_back(frequencies ? cell::padFixed(value, 5, 8) : std::move(value));
    index.push_back(i);
  }
  std::vector<std::size_t> order(text.size());
  std::iota(order.begin(), order.end(), 0);
  std::stable_sort(order.begin(), order.end(),
                   [&](std::size_t a, std::size_t b) { return text[a] < text[b]; });

  std::vector<MatchRow> out;
  const std::size_t count = order.size();
  const std::size_t step = std::max<std::size_t>(1, count / 100);
  for (std::size_t k = 0; k + 1 < count;) {
    if (progress && k % step == 0 && !progress(static_cast<int>(k * 100 / count))) break;
    std::size_t end = k + 1;
    while (end < count && text[order[end]] == text[order[k]]) ++end;
    if (end - k >= 2) {
      for (std::size_t r = k; r < end; ++r) {
        const KeyedRow& row = rows[index[order[r]]];
        std::string value = trim(record::field(row.line, 1));
        std::string data = r == k ? "ORG:" + value : "DUP: " + value;
        MatchRow m = makeRow(row, partsOf(row.key), std::move(data), names);
        if (frequencies) m.subtone = record::field(row.line, 6);
        out.push_back(std::move(m));
      }
    }
    k = end;
  }
  number(out);
  return out;
}

int selectDups(std::vector<MatchRow>& rows) {
  int count = 0;
  for (MatchRow& r : rows) {
    r.marked = r.data.find("DUP") != std::string::npos;
    count += r.marked;
  }
  return count;
}

void selectAll(std::vector<MatchRow>& rows, bool marked) {
  for (MatchRow& r : rows) r.marked = marked;
}

std::string listText(const std::vector<MatchRow>& rows) {
  std::string out;
  for (const MatchRow& r : rows) {
    for (const std::string* cell : {&r.number, &r.data, &r.subtone, &r.alphaTag, &r.system,
                                    &r.department, &r.group, &r.channel, &r.key}) {
      if (cell != &r.number) out.push_back('\t');
      out += *cell;
    }
    out += "\r\n";
  }
  return out;
}

}  // namespace zel::dups
