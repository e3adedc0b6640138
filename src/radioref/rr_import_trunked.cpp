// The trunked import: the checks of the import button, the system with its departments and
// talkgroups (create_data245), then one site a ticked site (create_site245).
//
// Order of the nodes. A new system's nodes join the tree in the order an HPD file of it
// would give them when read: system, unit-ID head, each site with its frequencies, the
// departments, then fleet map and band plans. Site and department Ids in a saved file are
// node positions, so a system saved and read back keeps its Ids and saves to the same bytes.
// The departments are made (and their rows counted) before the sites, as the import tells,
// but their nodes wait for the sites.
#include <algorithm>
#include <array>
#include <utility>

#include "core/keys.h"
#include "core/new_commands.h"
#include "core/text.h"
#include "core/tree_operations.h"
#include "radioref/rr_import_text.h"
#include "radioref/rr_import_trunk_lines.h"
#include "radioref/rr_readers.h"

namespace zel::radioref {

namespace {

constexpr const char* kNoSite = "Please select at least one site.";
constexpr const char* kNoFilter = "Error: all tg filters are disabled";
constexpr const char* kStorageFull = "Out of storage space, reached storage limit (30000 objects).";
constexpr const char* kNotSupported = "trunk system type not supported by this scanner model";
constexpr const char* kLcnTitle = "Edacs/LTR LCN warning";
constexpr const char* kLcnWarning =
    "Warning: You selected more than one site, your scanner may not trunk this system "
    "properly.\nPlease select only one site.";
constexpr int kDepartmentSlots = 399;

// The department table of one import: entries 1 to 399, found by exact name.
struct Department {
  std::string name;
  std::string line;
  int rows = 0;
  std::vector<std::string> pageRows;
};

class TrunkBuilder {
 public:
  TrunkBuilder(ImportTarget& target, const TrunkImport& input, const ImportOptions& options)
      : target_(target), input_(input), options_(options) {}

  ImportResult run();

 private:
  bool create_data245(const std::string& type);
  void addTalkgroup(const TalkgroupRow& row, TrunkFamily family);
  Department* department(const TalkgroupRow& row);
  bool finish(SiteBuild& sites);
  ImportResult refuse(const std::string& text);
  void rollBack(const SiteBuild* sites);

  ImportTarget& target_;
  const TrunkImport& input_;
  const ImportOptions& options_;
  ImportResult result_;
  int system_ = 0;
  std::string fleetMap_;
  std::array<Department, kDepartmentSlots + 1> departments_{};  // entry 0 unused
  int departmentCount_ = 0;
  int talkgroups_ = 0;
};

ImportResult TrunkBuilder::refuse(const std::string& text) {
  target_.feedback.message(text);
  result_.ok = false;
  result_.message = text;
  return result_;
}

ImportResult TrunkBuilder::run() {
  Document& doc = target_.doc;
  const bool anySite = std::any_of(input_.sites.begin(), input_.sites.end(),
                                   [](const SiteRow& s) { return s.ticked; });
  if (!anySite) return refuse(kNoSite);
  if (std::none_of(options_.talkgroupFilter.begin(), options_.talkgroupFilter.end(),
                   [](bool on) { return on; })) {
    return refuse(kNoFilter);
  }
  const std::string type = importType(input_.system);
  if (type.empty()) return refuse(kNotSupported);
  const int tickedSites = static_cast<int>(std::count_if(
      input_.sites.begin(), input_.sites.end(), [](const SiteRow& s) { return s.ticked; }));
  if ((type == "LTR" || type.starts_with("EDACS")) && tickedSites > 1) {
    target_.feedback.message(kLcnWarning, kLcnTitle);
  }
  if (doc.data.count() > kMaxTreeNodes) return refuse(kStorageFull);

  if (!create_data245(type)) return result_;

  const std::vector<SiteFreqRow> frequencyRows = siteFreqRows(input_.system);
  SiteBuild sites{.doc = doc,
                  .feedback = target_.feedback,
                  .trunk = input_.system,
                  .options = options_,
                  .frequencyRows = frequencyRows,
                  .countyInfo = input_.countyInfo,
                  .system = system_,
                  .importNumber = system_,
                  .frequencies = 0,
                  .laterNodes = {},
                  .frequencyKeys = {}};
  const bool motorola = toUpper(input_.system.typeName) == "MOTOROLA";
  for (const SiteRow& row : input_.sites) {
    if (!row.ticked) continue;
    const bool rebanded = motorola && row.rebanded;
    const bool splinter = motorola && row.splinter;
    if (!create_site245(sites, row, rebanded, splinter).empty()) ++result_.sites;
  }
  if (!finish(sites)) return result_;
  result_.frequencies = sites.frequencies;
  rebuildVisibleTree(doc);
  doc.changed = true;
  result_.ok = true;
  return result_;
}

bool TrunkBuilder::create_data245(const std::string& type) {
  Document& doc = target_.doc;
  const TrunkSystem& trunk = input_.system;
  const std::string rawName = !trunk.ref.sName.empty() ? trunk.ref.sName : trunk.details.sName;
  const std::string name = importSystemName(commasToSemicolons(rawName), options_);
  const int number = treemod::g_n_i(doc, "system", 0, target_.feedback);
  if (number < 1) {
    refuse("Error, can not create new system: " + name);
    return false;
  }
  const TrunkHeader header = trunkHeader(type);
  const std::string updated =
      !trunk.ref.lastUpdated.empty() ? trunk.ref.lastUpdated : trunk.details.lastUpdated;
  const std::string key = keys::system(number);
  doc.data.add({}, key, systemLine(header, number, name, headerDate(updated), target_.fileNumber));
  doc.systems.clearRow(number);
  doc.systems.markInUse(number, true);
  doc.systems.set(number, 1, name);
  doc.systems.set(number, 10, std::to_string(header.typeCode));
  system_ = number;
  result_.systemKey = key;
  doc.data.add(key, keys::unitHead(number), "UID,UID Editor");
  if (header.typeCode == static_cast<int>(SystemType::Motorola)) {
    fleetMap_ = fleetMapLine(trunk.details.fleetmap);
  }

  const TrunkFamily family = iequals(trunk.typeName, "LTR")     ? TrunkFamily::Ltr
                             : iequals(trunk.typeName, "Edacs") ? TrunkFamily::Edacs
                                                                : TrunkFamily::Other;
  for (const TalkgroupRow& row : input_.talkgroups) {
    if (row.ticked) addTalkgroup(row, family);
  }
  if (departmentCount_ == 0) {
    Department& d = departments_[0];
    d.name = kDefaultDepartment;
    d.line = "GIN,C-Group,CGroupId=0,AgencyId=0," + std::string(kDefaultDepartment) +
             ",Off,0.000000,-00.000000,0.0,,,";
  }
  return true;
}

Department* TrunkBuilder::department(const TalkgroupRow& row) {
  const std::string& name = row.group;
  for (int i = 1; i <= kDepartmentSlots; ++i) {
    if (!departments_[i].name.empty() && departments_[i].name == name) return &departments_[i];
  }
  for (int i = 1; i <= kDepartmentSlots; ++i) {
    Department& d = departments_[i];
    if (!d.name.empty()) continue;
    d.name = name;
    std::string quickKey;
    if (options_.qkeysTrunk) quickKey = i >= 99 ? "99" : std::to_string(i);
    d.line = trunkDepartmentLine(name, row.gps, quickKey);
    ++departmentCount_;
    return &d;
  }
  return nullptr;  // a 400th name finds no entry: its talkgroups go nowhere
}

void TrunkBuilder::addTalkgroup(const TalkgroupRow& row, TrunkFamily family) {
  Department* d = department(row);
  if (!d) return;
  const TrunkSystem& trunk = input_.system;
  const std::string id = talkgroupId(row, family, options_.edacsAfs, trunk.flavorCode);
  const std::string name = importName(row.alpha, row.descr, options_);
  std::string service = serviceTagName(static_cast<int>(leadingInteger(row.tag)));
  if (service.empty() && options_.untaggedTrunk > 0) {
    service = serviceTagName(options_.untaggedTrunk);
  }
  const TalkgroupLines lines = talkgroupLines(id, name, talkgroupMode(row.mode), service,
                                              family == TrunkFamily::Edacs, options_.leds);
  d->pageRows.push_back(std::to_string(++d->rows) + "," + lines.grid);
  ++talkgroups_;
}

bool TrunkBuilder::finish(SiteBuild& sites) {
  Document& doc = target_.doc;
  const std::string systemKey = keys::system(system_);
  for (int i = 0; i <= kDepartmentSlots; ++i) {
    Department& d = departments_[i];
    if (d.name.empty()) continue;
    const std::string key = keys::department(system_, i);
    doc.data.add(systemKey, key, d.line);
    ++result_.departments;
    if (d.pageRows.empty()) continue;
    if (!target_.rows.append(key, d.pageRows)) {
      rollBack(&sites);
      refuse("Could not write the page file " + target_.rows.where(key));
      return false;
    }
  }
  if (!fleetMap_.empty()) doc.data.add(systemKey, keys::fleetMap(system_), fleetMap_);
  for (const auto& [key, text] : sites.laterNodes) doc.data.add(systemKey, key, text);
  result_.channels = talkgroups_;
  return true;
}

void TrunkBuilder::rollBack(const SiteBuild* sites) {
  Document& doc = target_.doc;
  for (int i = 0; i <= kDepartmentSlots; ++i) {
    if (!departments_[i].name.empty()) target_.rows.remove(keys::department(system_, i));
  }
  if (sites) {
    for (const std::string& key : sites->frequencyKeys) doc.frequencies.remove(key);
  }
  doc.data.remove(keys::system(system_));
  doc.systems.clearRow(system_);
  result_ = {};
}

}  // namespace

std::string importType(const TrunkSystem& system) {
  const std::string type = toUpper(system.typeName);
  const std::string flavorText = toUpper(system.flavorText);
  // The model holds these system types; any other has no import type.
  static constexpr std::array<std::string_view, 6> kHeld = {"MOTOROLA", "LTR",  "EDACS",
                                                            "DMR",      "NXDN", "PROJECT 25"};
  if (std::find(kHeld.begin(), kHeld.end(), type) == kHeld.end()) return {};
  constexpr bool kPhase2 = true;  // this model decodes P25 phase 2
  std::string result = "MOT 800/900";
  if (type == "LTR") result = "LTR";
  if (type == "EDACS") result = "EDACS STANDARD";
  if (type == "EDACS" && (system.flavorCode == "10" || system.flavorCode == "11")) {
    result = "EDACS NARROW";
  }
  if (type == "DMR") result = "MotoTRBO";
  if (type == "NXDN") result = "Nxdn";
  if (system.bandLabel == "VHF" || system.bandLabel == "UHF") result = "MOT VHF/UHF";
  if (type == "PROJECT 25") result = "P25 AUTO";
  if (system.flavorCode == "33" && kPhase2) result = "P25 X2";
  if (type == "DMR" && flavorText == "CONVENTIONAL NETWORKED") result = "DMR One Frequency";
  if (type == "NXDN" && flavorText == "CONVENTIONAL NETWORKED") result = "Nxdn One Frequency";
  return result;
}

ImportResult importTrunked(ImportTarget target, const TrunkImport& input,
                           const ImportOptions& options) {
  TrunkBuilder builder(target, input, options);
  return builder.run();
}

}  // namespace zel::radioref
