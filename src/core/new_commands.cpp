#include "core/new_commands.h"

#include "core/keys.h"
#include "core/record_line.h"
#include "core/text.h"
#include "core/tree_operations.h"

namespace zel {

const std::vector<SystemTemplate>& systemTemplates() {
  static const std::vector<SystemTemplate> list = {
      {"New Conventional System", "Conventional", "New System", "Conventional",
       SystemType::Conventional},
      {"New Motorola Trunk System", "Motorola", "New MOT System", "Motorola", SystemType::Motorola},
      {"New Trunk System", "Motorola", "New MOT System", "Motorola", SystemType::Motorola},
      {"New LT Trunk System", "LTR", "New LT System", "LTR", SystemType::Ltr},
      {"New Edacs Trunk System", "Edacs Narrow/Wide", "New EDA System", "Edacs",
       SystemType::EdacsNarrowWide},
      {"New P25 Trunk System", "P25 Standard", "New P25 System", "P25 Standard",
       SystemType::P25Standard},
      {"New X2 TDMA Trunk System", "P25 X2 TDMA", "New TDMA System", "P25X2_TDMA",
       SystemType::P25X2Tdma},
      {"New Nxdn Trunk System", "Nxdn", "New Nxdn System", "Nxdn", SystemType::Nxdn},
      {"New Nxdn One Frequency", "Nxdn One Frequency", "New Nxdn One Frequency System", "Nxdn",
       SystemType::NxdnOneFrequency},
      {"New MotoTRBO Trunk System", "MotoTRBO", "New MotoTRBO System", "MotoTRBO",
       SystemType::MotoTrbo},
      {"New DMR One Frequency System", "DMR One Frequency", "New DMR One Frequency System", "DMR",
       SystemType::DmrOneFrequency},
      {"New Rebanded Trunk System", "Motorola", "New System", "Motorola", SystemType::Motorola,
       true},
  };
  return list;
}

const SystemTemplate* findSystemTemplate(std::string_view command) {
  for (const auto& t : systemTemplates()) {
    if (t.command == command) return &t;
  }
  // The menu shows "New Nxdn One Frequency System"; both captions mean the same command.
  if (command == "New Nxdn One Frequency System") return findSystemTemplate("New Nxdn One Frequency");
  return nullptr;
}

std::string conventionalSystemLine() {
  // Fields 8 to 12 empty, 13 the quick key, 14 the number tag, 15 the hold time, 16 and 17
  // unused, 18 and 19 the two AGC switches, 20 to 22 the digital waiting time, threshold
  // mode and level, 23 the file number: where a read of a scanner's file puts them.
  return "SIN,Conventional,0,StateId=0,New System,Off,,Conventional,,,,,,None,"
         "Off,0,,,Off,Off,400,Auto,8,";
}

std::string trunkSystemLine(const SystemTemplate& t) {
  // 8 ID search, 9 emergency alert, 10 alert level, 11 status bit, 12 search mode, 13 quick
  // key, 14 number tag, 15 hold time, 16 priority ID scan, 17 end code, 18 and 19 the AGC
  // switches, 20 to 22 unused, 23 the file number: where a read of a scanner's file puts them.
  return "SIN," + t.label + ",0,StateId=0," + t.name + ",Off,," + t.typeWord +
         ",0,Off,Auto,0,Search,None,Off,0,Off,Analog,Off,Off,,,,";
}

std::string siteLine(bool x36Mode, bool rebanded) {
  std::string line = "SIF,Site,SiteId=0,TrunkId=0,A New Site,Off,00.000000,-00.000000,0.0,AUTO,";
  line += rebanded ? "Custom/Rebanded" : "Standard";
  line += ",Wide,Circle,0";
  if (x36Mode) line += ",500,Auto,9,None";
  return line;
}

std::string conventionalDepartmentLine(std::string_view name) {
  return "GIN,C-Group,CGroupId=0,AgencyId=0," + std::string(name) +
         ",Off,0.000000,-00.000000,0.0,Circle,Off";
}

std::string trunkDepartmentLine() {
  return "GIN,T-Group,TGroupId=0,AgencyId=0,New Department:,Off,0.000000,-00.000000,0.0,Circle,"
         "Off";
}

namespace {

bool isTrunked(const Document& doc, int system) {
  return doc.systems.get(system, 10) != "0" && !doc.systems.get(system, 10).empty();
}

}  // namespace

NewNodeResult newSystem(Document& doc, std::string_view command, Feedback& feedback,
                        int fileNumber) {
  const SystemTemplate* t = findSystemTemplate(command);
  if (!t) {
    feedback.message(command);
    return {};
  }
  int number = treemod::g_n_i(doc, "system", 0, feedback);
  if (number <= 0) return {};
  std::string line = t->type == SystemType::Conventional ? conventionalSystemLine()
                                                         : trunkSystemLine(*t);
  line = record::withField(line, 23, padNumber(fileNumber, 3));
  const std::string key = keys::system(number);
  if (doc.data.add({}, key, line) == kNoNode) return {};
  doc.systems.clearRow(number);
  doc.systems.markInUse(number, true);
  doc.systems.set(number, 1, t->name);
  doc.systems.set(number, 10, std::to_string(static_cast<int>(t->type)));
  if (t->rebanded) doc.systems.set(number, 2, "Rebanded");
  showInVisibleTree(doc, key);
  doc.changed = true;
  NewNodeResult dept = newDepartment(doc, number, feedback);
  if (!dept.ok) return {};
  return {true, key};
}

NewNodeResult newSite(Document& doc, int system, Feedback& feedback) {
  if (system <= 0 || !doc.data.contains(keys::system(system))) {
    feedback.message("error: please click on a system first");
    return {};
  }
  if (!isTrunked(doc, system)) {
    feedback.message("error, not a trunk system.");
    return {};
  }
  int number = treemod::g_n_i(doc, "site", system, feedback);
  if (number <= 0) return {};
  const std::string key = keys::site(system, number);
  const bool rebanded = doc.systems.get(system, 2) == "Rebanded";
  if (doc.data.add(keys::system(system), key, siteLine(doc.x36Mode, rebanded)) == kNoNode)
    return {};
  showInVisibleTree(doc, key);
  doc.changed = true;
  return {true, key};
}

NewNodeResult newDepartment(Document& doc, int system, Feedback& feedback) {
  if (system <= 0 || !doc.data.contains(keys::system(system))) {
    feedback.message("Can't add department. Please add a new system or select existing system.");
    return {};
  }
  int number = treemod::g_n_i(doc, "group", system, feedback);
  if (number <= 0) return {};
  const std::string key = keys::department(system, number);
  const std::string line = isTrunked(doc, system) ? trunkDepartmentLine()
                                                  : conventionalDepartmentLine("New Department:");
  if (doc.data.add(keys::system(system), key, line) == kNoNode) return {};
  showInVisibleTree(doc, key);
  doc.changed = true;
  return {true, key};
}

std::string visibleCaption(const Document& doc, std::string_view key) {
  if (startsWith(key, "FAV-")) {
    int file = keys::numberAt(key, 5);
    std::string name = doc.files.get(file, OpenFileTable::ListName);
    if (name.empty()) name = doc.files.get(file, OpenFileTable::ShortName);
    return name.empty() ? std::string(key) : name;
  }
  std::string name = record::field(treemod::getText(doc.data, key), 4);
  // A department of no name says so; its key means nothing to a user.
  if (name.empty() && startsWith(key, "GRP-")) return "(no name)";
  return name.empty() ? std::string(key) : name;
}

void showInVisibleTree(Document& doc, std::string_view key) {
  DocumentTree& vis = doc.visible;
  if (vis.contains(key)) {
    vis.setText(vis.find(key), visibleCaption(doc, key));
    return;
  }
  std::string parentKey;
  if (startsWith(key, "SYS-")) {
    int file = static_cast<int>(leadingInteger(treemod::getField(doc.data, key, 23)));
    if (file > 0) {
      parentKey = keys::favorites(file);
      if (!vis.contains(parentKey)) showInVisibleTree(doc, parentKey);
    }
  } else if (startsWith(key, "SIT-") || startsWith(key, "GRP-")) {
    parentKey = keys::system(keys::systemOf(key));
    if (!vis.contains(parentKey)) return;
  } else if (!startsWith(key, "FAV-")) {
    return;  // rows, frequencies and settings are not shown in the tree
  }
  vis.add(parentKey, key, visibleCaption(doc, key));
}

void rebuildVisibleTree(Document& doc) {
  doc.visible.clear();
  for (int row = 1; row <= kOpenFileRows; ++row) {
    if (doc.files.loaded(row)) showInVisibleTree(doc, keys::favorites(row));
  }
  for (NodeId sys : treemod::walkSystems(doc.data)) {
    showInVisibleTree(doc, doc.data.key(sys));
    for (NodeId c = doc.data.child(sys); c != kNoNode; c = doc.data.next(c)) {
      showInVisibleTree(doc, doc.data.key(c));
    }
  }
}

}  // namespace zel
