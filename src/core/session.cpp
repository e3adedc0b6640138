#include "core/session.h"

#include <filesystem>
#include <fstream>

#include "core/keys.h"
#include "core/record_line.h"
#include "core/text.h"
#include "core/tree_operations.h"

namespace fs = std::filesystem;

namespace zel {

SessionFolders SessionFolders::forDataFolder(const std::string& dataFolder) {
  SessionFolders f;
  fs::path data(dataFolder);
  f.data = data.string();
  f.temp = (data / "temp").string();
  f.waterfall = (data / "Waterfall").string();
  f.serviceSearch = (data / "ServiceSearch").string();
  f.hpdFiles = (data / "hpd files").string();
  // The recordings and the scanner's own databases sit beside the data folder in the
  // documents folder; a data folder of another name keeps them inside it instead.
  fs::path documents = data.filename() == "My Scanner Data Files" ? data.parent_path() : data;
  f.recordings = (documents / "My Scanner Recordings").string();
  f.homePatrolDatabase = (documents / "Uniden" / "HomePatrol_Sentinel" / "Database").string();
  f.x36Database = (documents / "Uniden" / "BCDx36HP_Sentinel" / "Database").string();
  return f;
}

bool SessionFolders::make() const {
  bool ok = true;
  for (const std::string* p : {&data, &temp, &waterfall, &serviceSearch, &hpdFiles, &recordings}) {
    std::error_code ec;
    fs::create_directories(*p, ec);
    ok = ok && !ec;
  }
  return ok;
}

std::string SessionSettings::option(int n) const {
  auto it = options.find(n);
  return it == options.end() ? std::string() : it->second;
}

Session::Session(SettingsStore& store, Feedback& feedback, Clock& clock, std::string dataFolder,
                 std::string applicationName)
    : store_(store),
      codec_(store),
      feedback_(feedback),
      clock_(clock),
      applicationName_(std::move(applicationName)),
      folders_(SessionFolders::forDataFolder(dataFolder)) {}

std::string Session::start(bool remindBackup) {
  startTime_ = clock_.timeOfDay();
  document_.clear();
  document_.x36Mode = applicationName_ != "ZEL_PATROL";
  lastKey_.clear();
  lastKind_.clear();
  activeFile_.clear();
  document_.family = ScannerFamily::BCD;
  settings_.comport = clampComPort(codec_.get("com", "comport", "1x"));
  settings_.baudrate = clampBaudRate(codec_.get("com", "baudrate", "57600x"));
  if (!folders_.make()) feedback_.log("The data folder could not be made: " + folders_.data);
  pages_ = std::make_unique<PageFiles>(folders_.temp);
  pages_->clearAll();
  readSettings();
  if (remindBackup) feedback_.message("Please backup your data and store in a safe place!");
  return settings_.autoLoad;
}

void Session::readSettings() {
  SessionSettings& s = settings_;
  s.options.clear();
  s.options[0] = codec_.get("options", "optie0", "testx");
  for (int n = 1; n < kOptionCount; ++n) {
    s.options[n] = codec_.get("options", "optie" + std::to_string(n), "x");
  }
  s.checkUpdates = codec_.get("", "checkupdates", "Truex");
  s.hp2model = codec_.get("", "hp2model", "Falsex");
  s.multihpd = codec_.get("", "multihpd", "x");
  s.treeSort.assign(kTreeSortEntries, "");
  for (int n = 0; n < kTreeSortEntries; ++n) {
    s.treeSort[n] = codec_.get("", "treesort" + std::to_string(n), "x");
  }
  s.defLat = codec_.get("gps", "def_lat", "Falsex");
  s.defLong = codec_.get("gps", "def_long", "Falsex");
  s.defRange = codec_.get("gps", "def_range", "10");
  for (int n = 0; n < 4; ++n) s.defEna[n] = codec_.get("gps", "def_ena" + std::to_string(n), "1x");
  auto number = [&](const char* key, const char* def) {
    return static_cast<int>(leadingInteger(codec_.get("", key, def)));
  };
  s.wheight = number("wheight", "100x");
  s.wwidth = number("wwidth", "100x");
  s.wleft = number("wleft", "100x");
  s.wtop = number("wtop", "100x");
  s.wstate = number("wstate", "0x");
  s.browserLeft = number("browser_left", "3200x");
  s.autoLoad = codec_.get("", "autoload", "x");
}

int Session::selectedSystem() const { return keys::systemOf(lastKey_); }

SelectionCase Session::select(std::string_view key, SelectionHost& host) {
  const std::string kind = keys::nodeKind(key);
  const std::string oldKey = lastKey_;
  const std::string oldKind = lastKind_;
  SelectionCase result = SelectionCase::First;
  if (!oldKey.empty()) {
    const int oldSystem = keys::systemOf(oldKey);
    const int newSystem = keys::systemOf(key);
    if (oldSystem == 0 || oldSystem != newSystem) {
      result = SelectionCase::NewSystem;
    } else if (kind == "SITE") {
      result = SelectionCase::SameSystemSite;
    } else if (kind == "SYSTEM") {
      result = SelectionCase::SameSystemItself;
    } else if (kind == "GROUP") {
      result = SelectionCase::SameSystemGroup;
    } else {
      result = SelectionCase::SameSystemOther;
    }
    // Save what is shown: the pane's fields to the node's line, a department's grid to
    // its page file.
    if (document_.data.contains(oldKey) || oldKind == "FAV") host.storePane(oldKey, oldKind);
    if (oldKind == "GROUP" && document_.data.contains(oldKey)) host.storeGrid(oldKey);
  }
  lastKey_ = std::string(key);
  lastKind_ = kind;
  host.showPane(key, kind);
  if (kind == "GROUP") host.loadGrid(key);
  return result;
}

int Session::unsavedSystems() const {
  int count = 0;
  for (NodeId sys : treemod::walkSystems(document_.data)) {
    if (leadingInteger(record::field(document_.data.text(sys), 23)) == 0) ++count;
  }
  return count;
}

std::string Session::windowTitle(std::string_view key) const {
  std::string title = "ZEL536";
  int file = 0;
  if (startsWith(key, "FAV-")) {
    file = keys::numberAt(key, 5);
  } else if (int sys = keys::systemOf(key); sys > 0) {
    file = static_cast<int>(
        leadingInteger(treemod::getField(document_.data, keys::system(sys), 23)));
  }
  if (!key.empty()) {
    const std::string& path = document_.files.get(file, OpenFileTable::Path);
    if (file > 0 && !path.empty()) {
      title += " - file: " + path;
    } else {
      title += " - Unsaved HPD systems";
    }
    title += ": " + std::to_string(file);
  }
  if (!activeProfile_.empty()) title += " - Profile: " + activeProfile_;
  return title;
}

bool Session::shutdown() {
  if (!document_.data.empty() && document_.changed) {
    // Enter keeps the work: Yes is the answer that throws it away.
    Answer a = feedback_.askPreferring(
        "Warning",
        "Changes are not saved yet.\nIf not saved, data is lost!\nContinue without saving ?",
        Buttons::YesNoCancel, Answer::No);
    if (a != Answer::Yes) return false;
  }
  activeFile_.clear();
  writeSettings();
  if (pages_) pages_->clearAll();
  std::error_code ec;
  for (fs::directory_iterator it(folders_.temp, ec), end; !ec && it != end; it.increment(ec)) {
    std::error_code rm;
    fs::remove_all(it->path(), rm);
  }
  store_.flush();
  return true;
}

void Session::writeSettings() {
  const SessionSettings& s = settings_;
  codec_.put("com", "comport", std::to_string(s.comport));
  codec_.put("com", "baudrate", std::to_string(s.baudrate));
  codec_.put("", "checkupdates", s.checkUpdates);
  codec_.put("", "wleft", std::to_string(s.wleft));
  codec_.put("", "wtop", std::to_string(s.wtop));
  codec_.put("", "wwidth", std::to_string(s.wwidth));
  codec_.put("", "wheight", std::to_string(s.wheight));
  codec_.put("", "wstate", std::to_string(s.wstate));
  codec_.put("gps", "def_lat", s.defLat);
  codec_.put("gps", "def_long", s.defLong);
  codec_.put("gps", "def_range", s.defRange);
  for (int n = 0; n < 4; ++n) codec_.put("gps", "def_ena" + std::to_string(n), s.defEna[n]);
  codec_.put("", "multihpd", s.multihpd);
  codec_.put("", "hp2model", s.hp2model);
  for (int n = 0; n < static_cast<int>(s.treeSort.size()); ++n) {
    codec_.put("", "treesort" + std::to_string(n), s.treeSort[n]);
  }
  codec_.put("", "browser_left", std::to_string(s.browserLeft));
  for (const auto& [n, value] : s.options) codec_.put("options", "optie" + std::to_string(n), value);
}

void Session::clearDocument() {
  document_.clear();
  if (pages_) pages_->clearAll();
  lastKey_.clear();
  lastKind_.clear();
}

void Session::logTreeError(std::string_view text) const {
  std::ofstream out((fs::path(folders_.data) / "tree_error.txt").string(), std::ios::app);
  out << clock_.timeOfDay() << " " << text << "\r\n";
}

}  // namespace zel
