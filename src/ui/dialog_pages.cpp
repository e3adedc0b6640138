#include "ui/dialog_pages.h"

#include <algorithm>
#include <filesystem>
#include <fstream>

#include "core/atomic_file.h"
#include "core/keys.h"
#include "core/record_line.h"
#include "core/text.h"
#include "core/tree_operations.h"
#include "grid/grid_setup.h"
#include "grid/row_record.h"

namespace zel::ui {

dups::OpenPage openPageOf(Session& session, GridPage* grid) {
  dups::OpenPage open;
  const std::string& key = session.selectedKey();
  if (grid && keys::nodeKind(key) == "GROUP") {
    open.departmentKey = key;
    open.grid = grid;
  }
  return open;
}

bool isTalkgroupDepartment(const Document& doc, std::string_view departmentKey) {
  const std::string line = treemod::getText(doc.data, departmentKey);
  return record::field(line, 1) == "T-Group" || record::field(line, 0) == "TIN";
}

void loadDepartmentGrid(Session& session, std::string_view departmentKey, GridPage& grid) {
  GridSetup setup;
  setup.family = session.document().family;
  if (isTalkgroupDepartment(session.document(), departmentKey)) {
    setup_tgrid(&grid, setup);
  } else {
    setup_grid(&grid, setup);
  }
  loadPageLines(grid, session.pages().load(departmentKey));
}

std::vector<std::string> departmentsWithRows(Session& session, const dups::OpenPage& open) {
  std::vector<std::string> out = session.pages().departments();
  if (open.grid && std::find(out.begin(), out.end(), open.departmentKey) == out.end())
    out.push_back(open.departmentKey);
  std::sort(out.begin(), out.end());
  return out;
}

int forEachDepartmentGrid(
    Session& session, const dups::OpenPage& open,
    const std::function<bool(const std::string& key, GridPage& grid)>& visit) {
  int written = 0;
  for (const std::string& department : departmentsWithRows(session, open)) {
    if (open.grid && department == open.departmentKey) {
      written += visit(department, *open.grid) ? 1 : 0;
      continue;
    }
    GridPage grid;
    loadDepartmentGrid(session, department, grid);
    if (visit(department, grid)) {
      session.pages().save(department, savePageLines(grid));
      ++written;
    }
  }
  return written;
}

std::vector<dups::KeyedRow> documentRows(Session& session, const dups::OpenPage& open,
                                         std::string_view prefix, std::string_view onlyDepartment) {
  std::vector<dups::KeyedRow> rows;
  for (const std::string& department : departmentsWithRows(session, open)) {
    if (!onlyDepartment.empty() && department != onlyDepartment) continue;
    const int system = keys::numberAt(department, 9);
    const int number = keys::departmentOf(department);
    auto add = [&](std::string line, int channel) {
      std::string key = recordKey(line, system, number, channel);
      if (startsWith(key, prefix)) rows.push_back({std::move(key), std::move(line)});
    };
    if (open.grid && department == open.departmentKey) {
      // The key carries the grid row itself, so a removal finds the row it names even when
      // empty rows stand between the channels.
      for (int r = 1; r < open.grid->rows(); ++r) {
        if (auto line = rowToRecord(*open.grid, r, std::to_string(r))) add(std::move(*line), r);
      }
      continue;
    }
    for (const std::string& line : session.pages().load(department)) {
      PageRow row = splitPageLine(line);
      if (row.number > 0) add(line, row.number);
    }
  }
  return rows;
}

dups::NameLookup documentNames(const Document& doc) {
  dups::NameLookup names;
  names.system = [&doc](int system) {
    std::string name = treemod::getField(doc.data, keys::system(system), 4);
    return name.empty() ? doc.systems.get(system, 1) : name;
  };
  names.department = [&doc](int system, int department) {
    return treemod::getField(doc.data, keys::department(system, department), 4);
  };
  return names;
}

cell::CommitEnv commitEnv(Session& session, Feedback& feedback) {
  cell::CommitEnv env;
  env.rules = cell::rulesFromSettings(session.settingsCodec(), session.document().family);
  env.feedback = &feedback;
  env.changed = &session.document().changed;
  return env;
}

bool writeFileWhole(const std::string& path, std::string_view text) {
  return writeFileAtomically(path, text).ok;
}

}  // namespace zel::ui
