#include "database/hpdb_detect.h"

#include <filesystem>
#include <fstream>
#include <system_error>
#include <vector>

#include "core/text.h"
#include "transfer/card_detect.h"

namespace zel::database {

namespace fs = std::filesystem;

namespace {

// Appends a probe's line to both reports.
class ProbeReport {
 public:
  explicit ProbeReport(const std::string& folder) : folder_(folder) {}
  void add(const std::string& line) const {
    if (folder_.empty()) return;
    for (const char* name : {"drivetest.txt", "version.txt"}) {
      std::ofstream out(fs::path(folder_) / name, std::ios::binary | std::ios::app);
      out << line << "\r\n";
    }
  }

 private:
  std::string folder_;
};

// The entry of `folder` named `name` in any case, or "" (FAT cards ignore case, a copy on
// Linux does not).
fs::path childNoCase(const fs::path& folder, const std::string& name) {
  std::error_code ec;
  if (fs::exists(folder / name, ec)) return folder / name;
  for (const fs::directory_entry& e : fs::directory_iterator(folder, ec)) {
    if (iequals(e.path().filename().string(), name)) return e.path();
  }
  return {};
}

fs::path pathNoCase(const fs::path& root, std::initializer_list<const char*> parts) {
  fs::path p = root;
  for (const char* part : parts) {
    p = childNoCase(p, part);
    if (p.empty()) return {};
  }
  return p;
}

std::vector<std::string> firstLines(const fs::path& file, int count) {
  std::vector<std::string> lines;
  std::ifstream in(file, std::ios::binary);
  std::string line;
  while (static_cast<int>(lines.size()) < count && std::getline(in, line)) {
    while (!line.empty() && (line.back() == '\r' || line.back() == '\n')) line.pop_back();
    lines.push_back(line);
  }
  return lines;
}

enum class Found { None, Bcd, HomePatrol };

Found familyOfLine(const std::string& line) {
  if (line.find("BCD536HP") != std::string::npos || line.find("BCD436HP") != std::string::npos ||
      transfer::isAcceptedModelLine(line)) {
    return Found::Bcd;
  }
  if (line.find("HomePatrol") != std::string::npos) return Found::HomePatrol;
  return Found::None;
}

// The model line of an info file: the first of its opening lines that names a model and has
// the serial and firmware fields, else the first that names a model.
std::string modelLine(const std::vector<std::string>& lines) {
  for (const std::string& l : lines) {
    if (familyOfLine(l) != Found::None && split(l, '\t').size() >= 4) return l;
  }
  for (const std::string& l : lines) {
    if (familyOfLine(l) != Found::None) return l;
  }
  return {};
}

std::string dateModified(const fs::path& index) {
  for (const std::string& line : firstLines(index, 10)) {
    if (!startsWith(line, "DateModified")) continue;
    const std::size_t tab = line.find('\t');
    return tab == std::string::npos ? std::string{} : trim(line.substr(tab + 1));
  }
  return {};
}

void fillFromModelLine(DbDetection& d, const std::string& line) {
  d.infoLine = replaceAll(line, "\t", ",");
  const std::vector<std::string> fields = split(d.infoLine, ',');
  d.serial = fields.size() > 2 ? fields[2] : std::string{};
  d.firmware = fields.size() > 3 ? fields[3] : std::string{};
  d.fileFormat = startsWith(trim(d.firmware), "2.") ? 2 : 1;
}

void storeGeneral(Settings* settings, const DbDetection& d) {
  if (!settings || d.infoLine.empty()) return;
  settings->put("general", "firmware", d.firmware);
  settings->put("general", "serienum", d.serial);
  settings->put("general", "hpinfo", d.infoLine);
}

}  // namespace

DbDetection detectDatabaseCard(const transfer::DriveRoots& roots, const std::string& reportFolder,
                               Settings* settings) {
  const ProbeReport report(reportFolder);
  DbDetection found;
  for (const transfer::DriveRoot& root : roots.roots()) {
    const fs::path bcdInfo = pathNoCase(root.path, {"BCDx36HP", "scanner.inf"});
    const fs::path hpInfo = pathNoCase(root.path, {"HomePatrol", "HomePatrol.info"});
    report.add(root.label + " BCDx36HP/scanner.inf: " + (bcdInfo.empty() ? "no" : "yes"));
    report.add(root.label + " HomePatrol/HomePatrol.info: " + (hpInfo.empty() ? "no" : "yes"));
    for (const fs::path& info : {bcdInfo, hpInfo}) {
      if (info.empty()) continue;
      const std::string line = modelLine(firstLines(info, 5));
      const Found family = familyOfLine(line);
      if (family == Found::None) continue;
      DbDetection d;
      d.found = true;
      d.family = family == Found::Bcd ? DbFamily::Bcd : DbFamily::HomePatrol;
      d.drive = root.label;
      fillFromModelLine(d, line);
      d.location = locateOnCard(root.path);
      if (d.location) d.dbVersion = dateModified(d.location->indexPath);
      d.label = std::string(d.family == DbFamily::Bcd ? "BCDx36HP detected at drive "
                                                      : "HP1/2 detected at drive ") +
                d.drive + " DBase=" + d.dbVersion + " Firmware=" + d.firmware +
                " Serial=" + d.serial + " FileFormat:" + std::to_string(d.fileFormat);
      report.add("detected: " + d.label);
      found = d;
      break;  // the BCD marker wins over a HomePatrol one on the same root
    }
  }
  if (!found.found) {
    found.label = kScannerNotFound;
    return found;
  }
  storeGeneral(settings, found);
  return found;
}

DbDetection detectHomePatrol1(const transfer::DriveRoots& roots, const std::string& reportFolder,
                              Settings* settings) {
  const ProbeReport report(reportFolder);
  DbDetection found;
  for (const transfer::DriveRoot& root : roots.roots()) {
    const fs::path index = pathNoCase(root.path, {"Homepatrol", "HPDB", "HPDB.config"});
    report.add(root.label + " Homepatrol/HPDB/HPDB.config: " + (index.empty() ? "no" : "yes"));
    if (index.empty()) continue;
    DbDetection d;
    d.found = true;
    d.family = DbFamily::HomePatrol;
    d.drive = root.label;
    d.dbVersion = dateModified(index);
    d.location = DatabaseLocation{DbFamily::HomePatrol, index.parent_path().string() + "/",
                                  index.string()};
    const fs::path info = pathNoCase(root.path, {"HomePatrol", "HomePatrol.info"});
    if (!info.empty()) fillFromModelLine(d, modelLine(firstLines(info, 5)));
    d.firmwareTooOld = !d.firmware.empty() && leadingNumber(d.firmware) < 2.0;
    d.label = "HP-1 detected at drive " + d.drive + " DBase=" + d.dbVersion;
    report.add("detected: " + d.label);
    found = d;
  }
  if (!found.found) {
    found.label = kHomePatrol1NotFound;
    return found;
  }
  storeGeneral(settings, found);
  if (settings) settings->put("general", "hpdbase", found.dbVersion);
  return found;
}

}  // namespace zel::database
