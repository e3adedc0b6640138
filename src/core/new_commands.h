// The New commands of the Edit menu: systems of every kind, sites and departments, each
// from its record template, numbered with the lowest free number of its kind.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "core/document.h"
#include "core/ports.h"

namespace zel {

struct SystemTemplate {
  std::string command;   // menu caption, "New P25 Trunk System"
  std::string label;     // SIN field 1
  std::string name;      // SIN field 4
  std::string typeWord;  // SIN field 7
  SystemType type;       // numeric type of the system table
  bool rebanded = false; // its new sites use the "Custom/Rebanded" band plan
};

// Every New ... System command in menu order, conventional first.
const std::vector<SystemTemplate>& systemTemplates();
const SystemTemplate* findSystemTemplate(std::string_view command);

// The record templates.
std::string conventionalSystemLine();
std::string trunkSystemLine(const SystemTemplate& t);
std::string siteLine(bool x36Mode, bool rebanded);
std::string conventionalDepartmentLine(std::string_view name);
std::string trunkDepartmentLine();

struct NewNodeResult {
  bool ok = false;
  std::string key;  // the key of the node that was added
};

// Adds a system of the command's kind with its first department. `fileNumber` is the open
// file the system belongs to (0: none yet, an unsaved system).
NewNodeResult newSystem(Document& doc, std::string_view command, Feedback& feedback,
                        int fileNumber = 0);
// Adds a site to a trunked system; refuses a conventional one.
NewNodeResult newSite(Document& doc, int system, Feedback& feedback);
// Adds a department to a system.
NewNodeResult newDepartment(Document& doc, int system, Feedback& feedback);

// Keeps the visible tree in step with a node added to the record tree: favorites list,
// system, site or department, shown by name.
void showInVisibleTree(Document& doc, std::string_view key);
// Rebuilds the visible tree from the record tree and the open-file table.
void rebuildVisibleTree(Document& doc);
// The caption of a node in the visible tree: the name field of its record line.
std::string visibleCaption(const Document& doc, std::string_view key);

}  // namespace zel
