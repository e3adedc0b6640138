// The reader walks the file once. Each line is put into the editor's comma form, its type
// found by its leading characters, and the line converted (hpd_line_readers) and placed:
//
//   Conventional / Trunk   new system SYS-sss (Trunk also UID-sss-001 "UID, OPEN FILE")
//   C-Group / T-Group      department GRP-999-sss-ddd, ddd from 0 in each system
//   C-Freq / TGID          row n of the department's page file, n from 1
//   Site                   SIT-sss-nnn, nnn from 1;  BandPlan_Mot  MCP-sss-nnn of that site
//   T-Freq                 TFQ-sss-nnn-fff under the site and, flat, in the frequency tree
//   FleetMap               FMP-sss-000;  UnitIds  UDD-sss-00-uuuu under UID-sss-001
//
// Rows of a department are gathered and written to its page file in one go when the next
// department or system begins. Everything the read adds is remembered, so that a read that
// fails half way can take it all back.
#include "formats/hpd_reader.h"

#include <array>
#include <optional>
#include <utility>

#include "core/keys.h"
#include "core/record_line.h"
#include "core/tables.h"
#include "core/text.h"
#include "formats/hpd_line_readers.h"
#include "formats/hpi_file.h"
#include "formats/text_file.h"

namespace zel::formats {

namespace {

constexpr std::string_view kFileError = "File error: check if file exists:    ";
constexpr std::string_view kNotCompatible = "File not compatible, or saved in newer format";
constexpr std::string_view kOutOfStorage = "ERROR: Out of storage space";
constexpr std::size_t kShownLength = 80;

std::string shortName(const std::string& path) {
  std::size_t slash = path.find_last_of("/\\");
  return slash == std::string::npos ? path : path.substr(slash + 1);
}

std::string_view nthField(std::string_view line, int n) {
  std::size_t start = 0;
  for (int i = 0; i < n; ++i) {
    start = line.find(',', start);
    if (start == std::string_view::npos) return {};
    ++start;
  }
  return line.substr(start, line.find(',', start) - start);
}

// The editor's form of a file line: its commas become ";", its TABs the field commas.
constexpr std::array<char, 256> kCommaForm = [] {
  std::array<char, 256> map{};
  for (int c = 0; c < 256; ++c) map[c] = static_cast<char>(c);
  map[','] = ';';
  map['\t'] = ',';
  return map;
}();

enum class SystemClass { None, Conventional, Trunked };

class Reader {
 public:
  Reader(Document& doc, RowStore& rows, const std::string& path, const HpdReadOptions& options,
         Feedback& feedback, HpdReadResult& result)
      : doc_(doc),
        rows_(rows),
        path_(path),
        options_(options),
        feedback_(feedback),
        result_(result),
        lines_(HpdLevel::V3, doc.x36Mode, options.fileIndex) {}

  void run(std::string_view content);

 private:
  void handle(std::string_view line, std::string_view original);
  void onConventional(std::string_view line);
  void onTrunk(std::string_view line);
  void onGroup(std::string_view line, bool talkgroups, std::string_view original);
  void onRow(std::string_view line, bool talkgroup, std::string_view original);
  void onSite(std::string_view line, std::string_view original);
  void onBandPlan(std::string_view line, std::string_view original);
  void onSiteFrequency(std::string_view line, std::string_view original);
  void onFleetMap(std::string_view line, std::string_view original);
  void onUnitId(std::string_view line, std::string_view original);

  bool beginSystem();
  void adoptNumber(std::string_view idField);
  bool needTrunked(std::string_view original);
  void skip(std::string_view reason, std::string_view original);
  bool addNode(const std::string& parent, const std::string& key, const std::string& text,
               std::string_view original);
  void flushRows();
  void laterNode(std::string key, std::string text);
  void addLaterNodes();
  void fail(HpdReadStatus status, std::string message);
  void rollBack();
  void openFileRecord();

  Document& doc_;
  RowStore& rows_;
  const std::string& path_;
  const HpdReadOptions& options_;
  Feedback& feedback_;
  HpdReadResult& result_;
  LineReaders lines_;
  HpdLevel level_ = HpdLevel::V3;
  bool failed_ = false;
  int lineNumber_ = 0;

  // Where the reader stands.
  int system_ = 0;
  std::string systemKey_;
  bool numberKnown_ = true;
  SystemClass class_ = SystemClass::None;
  bool nxdn_ = false;
  int nextSystem_ = 1;
  int department_ = -1;
  std::string departmentKey_;  // "" while no department takes rows
  bool departmentTalkgroups_ = false;
  int row_ = 0;
  int site_ = 0;
  std::string siteKey_;
  int siteFrequency_ = 0;
  int unit_ = 0;
  std::vector<std::string> pendingRows_;
  struct LaterNode {
    std::string parent;
    std::string key;
    std::string text;
  };
  std::vector<LaterNode> laterNodes_;

  // What the read added, to be taken back when it fails.
  std::vector<std::pair<std::string, std::string>> frequencyNodes_;  // key, previous text
  std::vector<std::string> frequencyKeysAdded_;
  std::vector<std::string> pagesWritten_;
  std::array<std::string, OpenFileTable::kColumns> fileRowBefore_;
  bool fileRowSaved_ = false;
};

void Reader::run(std::string_view content) {
  if (content.size() >= 3 && content.substr(0, 3) == "\xEF\xBB\xBF") content.remove_prefix(3);
  if (options_.requireHeader) {
    // An empty file is a list without systems; anything else must begin with its header.
    std::size_t start = content.find_first_not_of(" \t\r\n");
    if (start != std::string_view::npos) {
      start = content.find_last_of("\r\n", start);
      start = start == std::string_view::npos ? 0 : start + 1;
      if (!startsWith(content.substr(start), "TargetModel")) {
        fail(HpdReadStatus::NotCompatible, std::string(kNotCompatible));
        return;
      }
    }
  }

  level_ = doc_.x36Mode ? HpdLevel::V3 : HpdLevel::V1;
  lines_.setLevel(level_);
  openFileRecord();

  std::string converted;
  forEachLine(content, [&](std::string_view line) {
    if (failed_) return;
    ++lineNumber_;
    ++result_.counts.lines;
    converted.resize(line.size());
    const unsigned char* from = reinterpret_cast<const unsigned char*>(line.data());
    for (std::size_t i = 0; i < line.size(); ++i) converted[i] = kCommaForm[from[i]];
    handle(converted, line);
  });
  if (failed_) return;
  flushRows();
  if (failed_) return;
  addLaterNodes();
  result_.level = level_;
  feedback_.status("Load Ok.");
  feedback_.progress("Finished Loading.");
}

void Reader::openFileRecord() {
  const int index = options_.fileIndex;
  if (index <= 0) return;
  fileRowBefore_ = doc_.files.row(index);
  fileRowSaved_ = true;
  if (doc_.x36Mode && path_.find("f_000") == std::string::npos && !path_.empty()) {
    if (auto attributes = readHpi(hpiPathFor(path_))) {
      for (int c = 0; c < OpenFileTable::kColumns; ++c) doc_.files.set(index, c, (*attributes)[c]);
    }
  }
  doc_.files.set(index, OpenFileTable::Loaded, "1");
  if (options_.fromScanner) {
    doc_.files.set(index, OpenFileTable::ShortName, "");
    doc_.files.set(index, OpenFileTable::Path, "");
  } else {
    doc_.files.set(index, OpenFileTable::ShortName, shortName(path_));
    doc_.files.set(index, OpenFileTable::Path, path_);
    doc_.files.set(index, OpenFileTable::Flag, options_.openFileFlag ? "1" : "0");
  }
}

void Reader::handle(std::string_view line, std::string_view original) {
  switch (matchLineType(line, options_.loadFlags)) {
    case HpdLineType::FormatVersion:
      if (line.find("2.") != std::string_view::npos) {
        level_ = HpdLevel::V2;
        lines_.setLevel(level_);
      }
      ++result_.notKept["FormatVersion"];
      return;
    case HpdLineType::Conventional:
      return onConventional(line);
    case HpdLineType::CGroup:
      return onGroup(line, false, original);
    case HpdLineType::CFreq:
      return onRow(line, false, original);
    case HpdLineType::Trunk:
      return onTrunk(line);
    case HpdLineType::FleetMap:
      return onFleetMap(line, original);
    case HpdLineType::Site:
      return onSite(line, original);
    case HpdLineType::BandPlanMot:
      return onBandPlan(line, original);
    case HpdLineType::BandPlanP25:
      ++result_.counts.bandPlansP25;
      return;
    case HpdLineType::TFreq:
      return onSiteFrequency(line, original);
    case HpdLineType::TGroup:
      return onGroup(line, true, original);
    case HpdLineType::UnitIds:
      return onUnitId(line, original);
    case HpdLineType::Tgid:
      return onRow(line, true, original);
    case HpdLineType::None:
      break;
  }
  if (trimView(original).empty()) return;
  if (std::string_view word = notKeptWord(original); !word.empty()) {
    ++result_.notKept[std::string(word)];
    return;
  }
  if (options_.loadFlags != 0 && matchLineType(line, 0) != HpdLineType::None) {
    skip("left out by the load flags", original);
    return;
  }
  skip("unknown line type", original);
}

void Reader::skip(std::string_view reason, std::string_view original) {
  SkippedLine s;
  s.lineNumber = lineNumber_;
  s.reason = std::string(reason);
  s.text = std::string(original.substr(0, kShownLength));
  result_.skipped.push_back(std::move(s));
}

bool Reader::beginSystem() {
  flushRows();
  if (failed_) return false;
  // The next free number, as numbering a new system finds it: the lowest number that no
  // node bears. The read only adds, so the search goes on from the last number given.
  if (doc_.data.count() > kMaxTreeNodes) {
    fail(HpdReadStatus::OutOfStorage, std::string(kOutOfStorage));
    return false;
  }
  while (nextSystem_ <= kMaxSystems && doc_.data.contains(keys::system(nextSystem_))) ++nextSystem_;
  if (nextSystem_ > kMaxSystems) {
    fail(HpdReadStatus::OutOfStorage, std::string(kOutOfStorage));
    return false;
  }
  system_ = nextSystem_++;
  systemKey_ = keys::system(system_);
  ++result_.counts.systems;
  department_ = -1;
  departmentKey_.clear();
  row_ = 0;
  site_ = 0;
  siteKey_.clear();
  siteFrequency_ = 0;
  unit_ = 0;
  return true;
}

// The scanner and this writer leave the Ids of a system line empty, but the lines below it
// carry the system's number as "TrunkId=" or "AgencyId=". A system read without a number takes
// it from there, so that a file this system wrote reads back with the number it was saved with.
void Reader::adoptNumber(std::string_view idField) {
  if (numberKnown_) return;
  std::size_t eq = idField.find('=');
  std::string_view value =
      trimView(eq == std::string_view::npos ? idField : idField.substr(eq + 1));
  if (value.empty() || value == "0") return;
  NodeId node = doc_.data.find(systemKey_);
  doc_.data.setText(node, record::withField(doc_.data.text(node), 2, value));
  numberKnown_ = true;
}

void Reader::onConventional(std::string_view line) {
  if (!beginSystem()) return;
  SystemRecord r = lines_.conventional(line);
  class_ = SystemClass::Conventional;
  nxdn_ = false;
  doc_.systems.set(system_, 10, "0");
  doc_.systems.set(system_, 0, "1");
  doc_.systems.set(system_, 1, r.name);
  doc_.data.add({}, systemKey_, r.text);
  numberKnown_ = !trimView(record::field(r.text, 2)).empty();
  result_.systems.push_back(system_);
  feedback_.progress("Opening System: " + std::to_string(result_.counts.systems));
}

void Reader::onTrunk(std::string_view line) {
  if (!beginSystem()) return;
  SystemRecord r = lines_.trunk(line);
  class_ = SystemClass::Trunked;
  nxdn_ = r.kind.nxdn;
  doc_.systems.set(system_, 10, r.kind.type >= 0 ? std::to_string(r.kind.type) : std::string());
  doc_.systems.set(system_, 0, "1");
  doc_.systems.set(system_, 1, r.name);
  doc_.data.add({}, systemKey_, r.text);
  numberKnown_ = !trimView(record::field(r.text, 2)).empty();
  doc_.data.add(systemKey_, keys::unitHead(system_), "UID, OPEN FILE");
  result_.systems.push_back(system_);
  feedback_.progress("Opening System: " + std::to_string(result_.counts.systems));
}

bool Reader::needTrunked(std::string_view original) {
  if (class_ == SystemClass::Trunked) return true;
  skip(class_ == SystemClass::None ? "no system before this line"
                                   : "trunked line in a conventional system",
       original);
  return false;
}

bool Reader::addNode(const std::string& parent, const std::string& key, const std::string& text,
                     std::string_view original) {
  if (doc_.data.add(parent, key, text) != kNoNode) return true;
  skip("key " + key + " is in use", original);
  return false;
}

void Reader::onGroup(std::string_view line, bool talkgroups, std::string_view original) {
  flushRows();
  if (failed_) return;
  departmentKey_.clear();
  row_ = 0;
  if (class_ == SystemClass::None) return skip("no system before this line", original);
  if (talkgroups != (class_ == SystemClass::Trunked)) {
    return skip(talkgroups ? "T-Group in a conventional system" : "C-Group in a trunked system",
                original);
  }
  adoptNumber(nthField(line, 2));
  ++department_;
  if (department_ > 999) return skip("more than 1000 departments in the system", original);
  const std::string key = keys::department(system_, department_);
  if (!addNode(systemKey_, key, lines_.group(talkgroups ? "TIN" : "GIN", line), original)) return;
  ++result_.counts.departments;
  departmentKey_ = key;
  departmentTalkgroups_ = talkgroups;
}

void Reader::onRow(std::string_view line, bool talkgroup, std::string_view original) {
  if (class_ == SystemClass::None) return skip("no system before this line", original);
  if (departmentKey_.empty()) return skip("no department before this line", original);
  if (talkgroup != departmentTalkgroups_) {
    return skip(
        talkgroup ? "TGID in a conventional department" : "C-Freq in a talkgroup department",
        original);
  }
  if (row_ >= kMaxChannels) return skip("more than 9999 rows in the department", original);
  ++row_;
  if (talkgroup) {
    ++result_.counts.talkgroups;
    pendingRows_.push_back(lines_.talkgroupRow(row_, line, options_.talkgroupServiceFallback));
  } else {
    ++result_.counts.channels;
    pendingRows_.push_back(lines_.channelRow(row_, line, options_.channelServiceFallback));
  }
}

void Reader::onSite(std::string_view line, std::string_view original) {
  if (!needTrunked(original)) return;
  siteKey_.clear();
  siteFrequency_ = 0;
  adoptNumber(nthField(line, 2));
  if (site_ >= kMaxSites) return skip("more than 999 sites in the system", original);
  ++site_;
  const std::string key = keys::site(system_, site_);
  if (!addNode(systemKey_, key, lines_.site(line), original)) return;
  ++result_.counts.sites;
  siteKey_ = key;
}

void Reader::onBandPlan(std::string_view line, std::string_view original) {
  if (!needTrunked(original)) return;
  if (siteKey_.empty()) return skip("no site before this band plan", original);
  laterNode(keys::bandPlan(system_, site_), lines_.bandPlan(line));
  ++result_.counts.bandPlans;
}

// Band plans and fleet maps join the tree after the last line. Ids of sites and departments
// are node positions; a save creates a missing plan and leaves out an all-zero fleet map, and
// with these nodes at the end neither moves a position, so a saved file reads back to the
// same Ids. A second line for the same node replaces the first.
void Reader::laterNode(std::string key, std::string text) {
  for (LaterNode& n : laterNodes_) {
    if (n.key == key) {
      n.text = std::move(text);
      return;
    }
  }
  laterNodes_.push_back({systemKey_, std::move(key), std::move(text)});
}

void Reader::addLaterNodes() {
  for (LaterNode& n : laterNodes_) {
    NodeId existing = doc_.data.find(n.key);
    if (existing != kNoNode) {
      doc_.data.setText(existing, std::move(n.text));
    } else {
      doc_.data.add(n.parent, n.key, n.text);
    }
  }
  laterNodes_.clear();
}

void Reader::onSiteFrequency(std::string_view line, std::string_view original) {
  if (!needTrunked(original)) return;
  if (siteKey_.empty()) return skip("no site before this frequency", original);
  if (siteFrequency_ >= 999) return skip("more than 999 frequencies in the site", original);
  ++siteFrequency_;
  const std::string key = keys::siteFrequency(system_, site_, siteFrequency_);
  const std::string text = lines_.siteFrequency(line, nxdn_);
  if (!addNode(siteKey_, key, text, original)) return;
  NodeId flat = doc_.frequencies.find(key);
  if (flat != kNoNode) {
    frequencyNodes_.emplace_back(key, doc_.frequencies.text(flat));
    doc_.frequencies.setText(flat, text);
  } else {
    doc_.frequencies.add({}, key, text);
    frequencyKeysAdded_.push_back(key);
  }
  ++result_.counts.frequencies;
}

void Reader::onFleetMap(std::string_view line, std::string_view original) {
  if (!needTrunked(original)) return;
  adoptNumber(nthField(line, 1));
  laterNode(keys::fleetMap(system_), lines_.fleetMap(line));
  ++result_.counts.fleetMaps;
}

void Reader::onUnitId(std::string_view line, std::string_view original) {
  if (!needTrunked(original)) return;
  if (unit_ >= 9999) return skip("more than 9999 unit IDs in the system", original);
  ++unit_;
  if (!addNode(keys::unitHead(system_), keys::unitId(system_, unit_), lines_.unitId(line),
               original)) {
    return;
  }
  ++result_.counts.unitIds;
}

void Reader::flushRows() {
  if (pendingRows_.empty() || failed_) return;
  const std::string& key = departmentKey_;
  if (!rows_.take(key, std::move(pendingRows_))) {
    fail(HpdReadStatus::PageError, "Could not write the page file " + rows_.where(key));
    return;
  }
  pagesWritten_.push_back(key);
  pendingRows_ = {};
}

void Reader::fail(HpdReadStatus status, std::string message) {
  failed_ = true;
  result_.status = status;
  result_.message = std::move(message);
  rollBack();
}

void Reader::rollBack() {
  for (int number : result_.systems) {
    doc_.data.remove(keys::system(number));
    doc_.systems.clearRow(number);
  }
  result_.systems.clear();
  for (const std::string& key : frequencyKeysAdded_) doc_.frequencies.remove(key);
  for (auto& [key, text] : frequencyNodes_) {
    NodeId n = doc_.frequencies.find(key);
    if (n != kNoNode) doc_.frequencies.setText(n, text);
  }
  for (const std::string& key : pagesWritten_) rows_.remove(key);
  pendingRows_.clear();
  if (fileRowSaved_) doc_.files.row(options_.fileIndex) = fileRowBefore_;
}

}  // namespace

HpdReadResult readHpdText(Document& doc, RowStore& rows, std::string_view content,
                          const std::string& path, const HpdReadOptions& options,
                          Feedback& feedback) {
  HpdReadResult result;
  Reader reader(doc, rows, path, options, feedback, result);
  reader.run(content);
  if (!result.ok()) feedback.message(result.message);
  return result;
}

HpdReadResult readHpd(Document& doc, RowStore& rows, const std::string& path,
                      const HpdReadOptions& options, Feedback& feedback) {
  std::optional<std::string> content = readWholeFile(path);
  if (!content) {
    HpdReadResult result;
    result.status = HpdReadStatus::FileMissing;
    result.message = std::string(kFileError) + path;
    feedback.message(result.message);
    return result;
  }
  return readHpdText(doc, rows, *content, path, options, feedback);
}

HpdReadResult readHpdText(Document& doc, PageFiles& pages, std::string_view content,
                          const std::string& path, const HpdReadOptions& options,
                          Feedback& feedback) {
  PageFileRows rows(pages);
  return readHpdText(doc, rows, content, path, options, feedback);
}

HpdReadResult readHpd(Document& doc, PageFiles& pages, const std::string& path,
                      const HpdReadOptions& options, Feedback& feedback) {
  PageFileRows rows(pages);
  return readHpd(doc, rows, path, options, feedback);
}

}  // namespace zel::formats
