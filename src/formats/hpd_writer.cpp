// The walk of the writer, system by system in tree order:
//
//   Trunk            AreaState, AreaCounty (below level 3) or DQKs_Status (level 3)
//     FleetMap       when the system has one that is not all zero
//     UnitIds        one a unit ID of the UID- node
//     Site           per SIT- child, then BandPlan_Mot when due, then its T-Freq lines
//     T-Group        per GRP- child, then its page rows as TGID lines
//
// Within a trunked system the kinds go in this order whatever the tree's order: a site added
// after a department is still written before every department.
//   Conventional     area lines or DQKs_Status as above
//     C-Group        per GRP- child, then its page rows as C-Freq lines
//
// Site, group and band plan Ids are the nodes' positions in the tree's collection at the
// moment of writing, so two saves can differ in them when nodes were added in between.
#include "formats/hpd_writer.h"

#include <cerrno>
#include <filesystem>

#include "core/keys.h"
#include "core/record_line.h"
#include "core/text.h"
#include "core/tree_operations.h"
#include "formats/hpi_file.h"
#include "formats/text_file.h"

namespace zel::formats {

namespace {

constexpr std::string_view kNothingToSave = "No data to save, please add at least one system.";
constexpr std::string_view kSaveError = "There was an error saving this file: ";

class Walk {
 public:
  Walk(Document& doc, const RowStore& rows, const HpdWriteOptions& options, Feedback& feedback,
       std::string& out)
      : doc_(doc), tree_(doc.data), rows_(rows), options_(options), feedback_(feedback), out_(out) {
    context_.level = writeLevel(doc);
    context_.serviceFallback = options.serviceFallback;
    context_.audit = options.audit;
  }

  int run();

 private:
  void line(std::string_view text) {
    if (text.empty()) return;
    out_.append(text);
    out_.append("\r\n");
  }
  void where(std::string text) {
    if (context_.audit) context_.audit->where = std::move(text);
  }
  void trunked(NodeId system);
  void conventional(NodeId system);
  void site(NodeId site, const std::string& number, const std::string& systemWord, bool nxdn);
  void department(NodeId group, bool talkgroups, const std::string& number);
  void systemHead(const std::string& sin, bool trunked);

  Document& doc_;
  DocumentTree& tree_;
  const RowStore& rows_;
  const HpdWriteOptions& options_;
  Feedback& feedback_;
  std::string& out_;
  BuildContext context_;
  std::string systemName_;
};

int Walk::run() {
  for (const std::string& header : headerLines(context_.level)) line(header);
  int written = 0;
  const std::string only = options_.onlySystem > 0 ? keys::system(options_.onlySystem) : "";
  for (NodeId system : treemod::walkSystems(tree_)) {
    const std::string& key = tree_.key(system);
    if (!only.empty() && key != only) continue;
    const std::string& sin = tree_.text(system);
    // Outside the family mode the reader keeps no file numbers: every system belongs to the
    // file being saved.
    if (options_.fileIndex > 0 && doc_.x36Mode &&
        leadingInteger(record::field(sin, 23)) != options_.fileIndex) {
      continue;
    }
    systemName_ = record::field(sin, 4);
    feedback_.progress("Saving System: " + systemName_);
    if (record::field(sin, 1) == "Conventional") {
      conventional(system);
    } else {
      trunked(system);
    }
    ++written;
  }
  return written;
}

void Walk::systemHead(const std::string& sin, bool trunkedSystem) {
  if (context_.level == HpdLevel::V3) {
    line(buildDqkStatusLine());
  } else {
    for (const std::string& area : buildAreaLines(sin, trunkedSystem)) line(area);
  }
}

void Walk::trunked(NodeId system) {
  // A trunked system needs a number for its TrunkId fields; the record keeps the one given.
  const std::string& before = tree_.text(system);
  const std::string number = systemNumberField(before);
  if (trimView(record::field(before, 2)) != number) {
    tree_.setText(system, record::withField(before, 2, number));
  }
  const std::string sin = tree_.text(system);
  const std::string label = record::field(sin, 1);
  const std::string word = systemWordFromLabel(label);
  const bool nxdn = labelIsNxdn(label);

  where("System \"" + systemName_ + "\"");
  line(buildTrunkLine(sin, context_));
  systemHead(sin, true);
  if (word == "Motorola") {
    line(buildFleetMapLine(
        treemod::getText(tree_, keys::fleetMap(keys::systemOf(tree_.key(system)))), number));
  }
  // Unit IDs, then every site with its band plan and frequencies, then the departments,
  // whatever order the tree holds them in: the scanner's files are laid out so.
  auto children = [&](std::string_view prefix, auto&& fn) {
    for (NodeId child = tree_.child(system); child != kNoNode; child = tree_.next(child)) {
      if (startsWith(tree_.key(child), prefix)) fn(child);
    }
  };
  children("UID-", [&](NodeId head) {
    where("System \"" + systemName_ + "\", unit IDs");
    for (NodeId unit = tree_.child(head); unit != kNoNode; unit = tree_.next(unit)) {
      if (startsWith(tree_.key(unit), "UDD-")) line(buildUnitIdLine(tree_.text(unit), context_));
    }
  });
  children("SIT-", [&](NodeId site) { this->site(site, number, word, nxdn); });
  children("GRP-", [&](NodeId group) { department(group, true, number); });
}

void Walk::conventional(NodeId system) {
  const std::string& sin = tree_.text(system);
  const std::string number = systemNumberField(sin);
  where("System \"" + systemName_ + "\"");
  line(buildConventionalLine(sin, context_));
  systemHead(sin, false);
  for (NodeId child = tree_.child(system); child != kNoNode; child = tree_.next(child)) {
    if (startsWith(tree_.key(child), "GRP-")) department(child, false, number);
  }
}

void Walk::site(NodeId site, const std::string& number, const std::string& systemWord, bool nxdn) {
  const std::string& text = tree_.text(site);
  const int siteId = tree_.index(site);
  where("System \"" + systemName_ + "\", site \"" + record::field(text, 4) + "\"");
  line(buildSiteLine(text, siteId, number, context_));
  if (bandPlanDue(text, systemWord)) {
    const std::string& siteKey = tree_.key(site);
    const std::string planKey = "MCP-" + siteKey.substr(4, 3) + "-" +
                                siteKey.substr(siteKey.size() >= 3 ? siteKey.size() - 3 : 0);
    NodeId plan = tree_.find(planKey);
    if (plan == kNoNode) {
      plan = tree_.addChild(tree_.parent(site), planKey, std::string(kDefaultBandPlan));
    }
    line(buildBandPlanLine(plan != kNoNode ? tree_.text(plan) : std::string(kDefaultBandPlan),
                           siteId));
  }
  int position = 0;
  for (NodeId f = tree_.child(site); f != kNoNode; f = tree_.next(f)) {
    if (!startsWith(tree_.key(f), "TFQ-")) continue;
    line(buildSiteFrequencyLine(tree_.text(f), siteId, ++position, nxdn));
  }
}

void Walk::department(NodeId group, bool talkgroups, const std::string& number) {
  const std::string& text = tree_.text(group);
  const std::string groupName = record::field(text, 4);
  where("System \"" + systemName_ + "\", department \"" + groupName + "\"");
  line(buildGroupLine(text, talkgroups, tree_.index(group), number, context_));
  const std::string& key = tree_.key(group);
  int row = 0;
  rows_.visit(key, [&](std::string_view pageRow) {
    ++row;
    if (context_.audit) {
      where("System \"" + systemName_ + "\", department \"" + groupName + "\", row " +
            std::to_string(row));
    }
    const bool written = talkgroups ? appendTgidLine(out_, pageRow, context_)
                                    : appendCFreqLine(out_, pageRow, context_);
    if (written) out_.append("\r\n");
  });
}

std::string uniquePath(std::string path) {
  std::error_code ec;
  while (std::filesystem::exists(path, ec)) {
    std::size_t dot = path.rfind(".hpd");
    if (dot == std::string::npos) dot = path.size();
    path = path.substr(0, dot) + std::string(1, '_') + path.substr(dot);
  }
  return path;
}

}  // namespace

HpdLevel writeLevel(const Document& doc) {
  return doc.x36Mode ? HpdLevel::V3 : HpdLevel::V2;
}

std::string renderHpd(Document& doc, const RowStore& rows, const HpdWriteOptions& options,
                      Feedback& feedback, HpdWriteResult& result) {
  std::string out;
  // Room for the whole file at once: a row line is about as long as its row, a node's line
  // rarely longer than 160 characters.
  out.reserve(rows.sizeHint() + rows.sizeHint() / 8 + doc.data.count() * 160 + 4096);
  result.level = writeLevel(doc);
  if (doc.data.empty()) {
    result.status = HpdWriteStatus::NothingToSave;
    result.message = std::string(kNothingToSave);
    return out;
  }
  Walk walk(doc, rows, options, feedback, out);
  result.systems = walk.run();
  return out;
}

HpdWriteResult writeHpd(Document& doc, const RowStore& rows, const std::string& path,
                        const HpdWriteOptions& options, Feedback& feedback) {
  HpdWriteResult result;
  if (doc.data.empty()) {
    result.status = HpdWriteStatus::NothingToSave;
    result.message = std::string(kNothingToSave);
    feedback.message(result.message);
    return result;
  }
  result.path = options.uniqueName ? uniquePath(path) : path;
  std::string text = renderHpd(doc, rows, options, feedback, result);

  WriteStatus written = writeFileAtomically(result.path, text, KeepBackup::OncePerSession);
  if (!written.ok) {
    result.status = HpdWriteStatus::WriteError;
    // A target the user may not write is refused in a sentence of its own.
    result.message = written.error == EACCES ? written.message
                                             : std::string(kSaveError) + result.path;
    feedback.message(result.message);
    return result;
  }

  const int index = options.fileIndex;
  if (index > 0) {
    OpenFileTable& files = doc.files;
    if (files.get(index, OpenFileTable::ListName).empty()) {
      files.set(index, OpenFileTable::ListName,
                replaceAll(files.get(index, OpenFileTable::ShortName), ".hpd", ""));
    }
    files.set(index, options.toScanner ? OpenFileTable::ScannerPath : OpenFileTable::Path,
              result.path);
    if (!options.toScanner && doc.x36Mode) {
      HpiAttributes attributes;
      for (int c = 0; c < OpenFileTable::kColumns; ++c) attributes[c] = files.get(index, c);
      const std::string hpiPath = hpiPathFor(result.path);
      const WriteStatus companion = writeHpi(hpiPath, attributes);
      if (!companion.ok) {
        result.companionError = result.path + " was written, but its companion " + hpiPath +
                                " was not: " + companion.description + ".";
        feedback.message(result.companionError);
      }
    }
    result.fileStatus = files.get(index, 0) + "\t" + files.get(index, 1) + "\t" +
                        files.get(index, 2) + "\t" + files.get(index, 3);
  }
  doc.changed = false;
  feedback.progress("Done Saving.");
  return result;
}

std::string renderHpd(Document& doc, const PageFiles& pages, const HpdWriteOptions& options,
                      Feedback& feedback, HpdWriteResult& result) {
  return renderHpd(doc, PageFileRows(pages), options, feedback, result);
}

HpdWriteResult writeHpd(Document& doc, const PageFiles& pages, const std::string& path,
                        const HpdWriteOptions& options, Feedback& feedback) {
  return writeHpd(doc, PageFileRows(pages), path, options, feedback);
}

}  // namespace zel::formats
