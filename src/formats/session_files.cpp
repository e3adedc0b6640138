#include "formats/session_files.h"

#include <cstdio>
#include <filesystem>

#include "core/keys.h"
#include "core/new_commands.h"
#include "core/record_line.h"
#include "core/text.h"
#include "core/tree_operations.h"
#include "formats/favorites_config.h"

namespace fs = std::filesystem;

namespace zel::formats {

namespace {

constexpr int kFileField = 23;  // a system's open-file row; 0 for none

int systemFileRow(const DocumentTree& tree, NodeId system) {
  return static_cast<int>(leadingInteger(record::field(tree.text(system), kFileField)));
}

bool isProfilePath(const std::string& path) {
  return endsWith(path, ".pfl") || endsWith(path, ".PFL");
}

std::string fileListName(const std::string& path) {
  std::string stem = fs::path(path).stem().string();
  return stem.empty() ? "New system" : stem;
}

}  // namespace

HpdReadOptions sessionReadOptions(const Session& session) {
  HpdReadOptions o;
  o.channelServiceFallback = session.settings().option(7);
  o.talkgroupServiceFallback = session.settings().option(0);
  o.openFileFlag = session.settings().option(21) == "1";
  return o;
}

OpenOutcome openDocumentFile(Session& session, const std::string& path, bool autoload) {
  if (isProfilePath(path)) return openSessionProfile(session, path, autoload);
  OpenOutcome out;
  Document& doc = session.document();
  const int row = doc.files.freeRow();
  if (row == 0) {
    out.message = "Error, maximum number of hpd files is 99!";
    session.feedback().message(out.message);
    return out;
  }
  HpdReadOptions options = sessionReadOptions(session);
  options.fileIndex = row;
  const bool wasChanged = doc.changed;
  HpdReadResult read = readHpd(doc, session.pages(), path, options, session.feedback());
  doc.changed = wasChanged;
  if (!read.ok()) {
    out.message = read.message;
    return out;
  }
  if (doc.files.get(row, OpenFileTable::ListName).empty())
    doc.files.set(row, OpenFileTable::ListName, fileListName(path));
  rebuildVisibleTree(doc);
  session.setActiveFile(path);
  out.ok = true;
  out.fileRows.push_back(row);
  return out;
}

OpenOutcome openSessionConfig(Session& session, const std::string& cfgPath) {
  OpenOutcome out;
  Document& doc = session.document();
  const bool wasChanged = doc.changed;
  ConfigOpenResult r =
      openConfigFile(doc, session.pages(), cfgPath, sessionReadOptions(session), session.feedback());
  doc.changed = wasChanged;
  rebuildVisibleTree(doc);
  out.ok = r.ok;
  out.fileRows = r.fileRows;
  if (!r.ok) {
    out.message = !endsWith(cfgPath, ".cfg") && !endsWith(cfgPath, ".CFG")
                      ? "Please choose a favorites configuration file (.cfg)."
                      : "No favorites list of this configuration could be read.";
  }
  return out;
}

int fileRowForSave(const Session& session) {
  const Document& doc = session.document();
  const int system = session.selectedSystem();
  if (system > 0) {
    const NodeId node = treemod::findSystem(doc.data, system);
    return node == kNoNode ? 0 : systemFileRow(doc.data, node);
  }
  // Nothing of a system selected: the one open file, when exactly one is open.
  if (doc.files.loadedCount() != 1) return 0;
  for (int row = 1; row <= kOpenFileRows; ++row)
    if (doc.files.loaded(row)) return row;
  return 0;
}

std::string savePathOf(const Session& session, int fileRow) {
  if (fileRow <= 0) return {};
  return session.document().files.get(fileRow, OpenFileTable::Path);
}

HpdWriteResult saveDocumentFile(Session& session, int fileRow, const std::string& path) {
  Document& doc = session.document();
  std::vector<NodeId> adopted;
  int row = fileRow;
  if (row <= 0) {
    row = doc.files.freeRow();
    if (row == 0) {
      HpdWriteResult full;
      full.status = HpdWriteStatus::WriteError;
      full.message = "Error, maximum number of hpd files is 99!";
      session.feedback().message(full.message);
      return full;
    }
    for (NodeId sys : treemod::walkSystems(doc.data))
      if (systemFileRow(doc.data, sys) == 0) adopted.push_back(sys);
    for (NodeId sys : adopted)
      treemod::setField(doc.data, doc.data.key(sys), kFileField, std::to_string(row));
  }
  const std::array<std::string, OpenFileTable::kColumns> rowBefore = doc.files.row(row);
  if (!doc.files.loaded(row)) {
    doc.files.set(row, OpenFileTable::Loaded, "1");
    doc.files.set(row, OpenFileTable::ShortName, fs::path(path).filename().string());
    doc.files.set(row, OpenFileTable::ListName, fileListName(path));
  }
  HpdWriteOptions options;
  options.fileIndex = row;
  options.serviceFallback = session.settings().option(7);
  HpdWriteResult result = writeHpd(doc, session.pages(), path, options, session.feedback());
  if (!result.ok()) {
    // Nothing of the document changes when the file could not be written.
    for (NodeId sys : adopted) treemod::setField(doc.data, doc.data.key(sys), kFileField, "0");
    doc.files.row(row) = rowBefore;
    return result;
  }
  doc.files.set(row, OpenFileTable::ShortName, fs::path(result.path).filename().string());
  session.setActiveFile(result.path);
  if (!adopted.empty()) rebuildVisibleTree(doc);
  bool allSaved = true;
  for (NodeId sys : treemod::walkSystems(doc.data)) {
    const int r = systemFileRow(doc.data, sys);
    if (r == 0 || (r != row && savePathOf(session, r).empty())) allSaved = false;
  }
  if (allSaved && doc.files.loadedCount() <= 1) doc.changed = false;
  return result;
}

ConfigSaveOutcome saveSessionConfig(Session& session, const std::string& cfgPath) {
  ConfigSaveOutcome out;
  Document& doc = session.document();
  if (!endsWith(cfgPath, ".cfg") && !endsWith(cfgPath, ".CFG")) {
    out.message = "Please choose a favorites configuration file (.cfg).";
    return out;
  }
  const fs::path folder = fs::path(cfgPath).parent_path();
  std::vector<FavoritesListRow> lists;
  int number = 0;
  for (int row = 1; row <= kOpenFileRows; ++row) {
    if (!doc.files.loaded(row)) continue;
    ++number;
    char name[32];
    std::snprintf(name, sizeof name, "f_%06d.hpd", number);
    HpdWriteOptions options;
    options.fileIndex = row;
    options.toScanner = true;
    options.serviceFallback = session.settings().option(7);
    const std::array<std::string, OpenFileTable::kColumns> rowBefore = doc.files.row(row);
    HpdWriteResult r =
        writeHpd(doc, session.pages(), (folder / name).string(), options, session.feedback());
    doc.files.row(row) = rowBefore;  // the PC copy stays the file the list came from
    if (!r.ok()) {
      out.message = r.message;
      return out;
    }
    out.written.push_back(r.path);
    FavoritesListRow list;
    list.name = doc.files.get(row, OpenFileTable::ListName);
    list.file = name;
    list.monitor = "On";
    list.locationControl = "Off";
    list.quickKey = "Off";
    list.numberTag = "Off";
    list.startupKeys = std::string(10, '0');
    list.systemQuickKeys = std::string(100, '1');
    lists.push_back(std::move(list));
  }
  if (lists.empty()) {
    out.message = "No data to save, please add at least one system.";
    session.feedback().message(out.message);
    return out;
  }
  if (!writeFavoritesConfig(cfgPath, lists, favoritesListTag(false, false))) {
    out.message = "There was an error saving this file: " + cfgPath;
    session.feedback().message(out.message);
    return out;
  }
  out.written.push_back(cfgPath);
  out.ok = true;
  return out;
}

ProfileSaveState saveSessionProfile(Session& session, const std::string& pathOrEmpty,
                                    std::string& message) {
  std::string path = pathOrEmpty.empty() ? session.activeProfilePath() : pathOrEmpty;
  if (path.empty()) return ProfileSaveState::NeedsName;
  if (!endsWith(path, ".pfl") && !endsWith(path, ".PFL")) path += ".pfl";
  ProfileSaveResult r =
      saveProfile(path, session.document().files, session.folders().data, session.feedback());
  message = r.message;
  if (!r.ok) return ProfileSaveState::Failed;
  session.setActiveProfilePath(path);
  session.setActiveProfile(profileName(path));
  session.feedback().status(activeProfileText(session.activeProfile()));
  return ProfileSaveState::Saved;
}

OpenOutcome openSessionProfile(Session& session, const std::string& path, bool autoload) {
  OpenOutcome out;
  Document& doc = session.document();
  const bool wasChanged = doc.changed;
  ProfileOpenResult r = openProfile(doc, session.pages(), path, sessionReadOptions(session),
                                    autoload, session.folders().data, session.feedback());
  doc.changed = wasChanged;
  rebuildVisibleTree(doc);
  out.ok = r.ok;
  out.fileRows = r.fileRows;
  if (r.ok) {
    session.setActiveProfile(r.name);
    session.setActiveProfilePath(path);
    out.profileName = r.name;
  }
  return out;
}

void clearSessionProfile(Session& session) {
  session.setActiveProfile("");
  session.setActiveProfilePath("");
  clearProfileName(session.feedback());
}

}  // namespace zel::formats
