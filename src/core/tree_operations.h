// The operations every part of the suite uses on the record tree: numbering, walking,
// reading and changing record lines. Panes, readers, writers and imports change the
// document only through these.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "core/document.h"
#include "core/ports.h"

namespace zel::treemod {

// The lowest free number of a kind in a system, searching upward to the kind's limit.
// Kind words: "system"/"SYSTEM"/"SYS"/"sys", "group"/"GROUP"/"grp"/"GRP",
// "site"/"SITE"/"SIT"/"sit", "channel" (department rows, needs `department`).
// An unknown word says "error in routine g_n_i" and searches up to 999. Returns 0 when no
// number is free or the tree is full ("ERROR: Out of storage space").
int g_n_i(Document& doc, std::string_view kindWord, int system, Feedback& feedback,
          int department = 0);

// The system nodes: top-level nodes whose keys begin "SYS-", in tree order.
std::vector<NodeId> walkSystems(const DocumentTree& tree);
NodeId findSystem(const DocumentTree& tree, int number);
NodeId findSite(const DocumentTree& tree, int system, int number);
NodeId findDepartment(const DocumentTree& tree, int system, int number);

// The text of the node keyed `key`, or "" when no node has it.
std::string getText(const DocumentTree& tree, std::string_view key);
// Replaces a node's text. A missing node stays missing, except that a "TRN-" key is added
// as a child of the system of the same number.
void setText(DocumentTree& tree, std::string_view key, std::string_view text);
// Stores the trimmed value at field n of the node's line, leaving the other fields alone.
void setField(DocumentTree& tree, std::string_view key, int field, std::string_view value);
std::string getField(const DocumentTree& tree, std::string_view key, int field);
// Removes a node (and what hangs below it); keys shorter than three characters and missing
// keys do nothing.
void removeNode(DocumentTree& tree, std::string_view key);
void clearTree(DocumentTree& tree);
void expandAll(DocumentTree& tree, bool expanded);
void sortFavorites(DocumentTree& tree);

}  // namespace zel::treemod
