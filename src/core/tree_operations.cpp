#include "core/tree_operations.h"

#include "core/keys.h"
#include "core/record_line.h"
#include "core/text.h"

namespace zel::treemod {

namespace {

enum class Kind { System, Group, Site, Channel, Unknown };

Kind kindOf(std::string_view word) {
  if (word == "system" || word == "SYSTEM" || word == "SYS" || word == "sys") return Kind::System;
  if (word == "group" || word == "GROUP" || word == "grp" || word == "GRP") return Kind::Group;
  if (word == "site" || word == "SITE" || word == "SIT" || word == "sit") return Kind::Site;
  if (word == "channel") return Kind::Channel;
  return Kind::Unknown;
}

}  // namespace

int g_n_i(Document& doc, std::string_view kindWord, int system, Feedback& feedback,
          int department) {
  const DocumentTree& tree = doc.data;
  if (tree.count() > kMaxTreeNodes) {
    feedback.message("ERROR: Out of storage space");
    return 0;
  }
  Kind kind = kindOf(kindWord);
  int limit = 999;
  switch (kind) {
    case Kind::System:
      limit = kMaxSystems;
      break;
    case Kind::Group:
      limit = kMaxDepartments;
      break;
    case Kind::Site:
      limit = kMaxSites;
      break;
    case Kind::Channel:
      limit = kMaxChannels;
      break;
    case Kind::Unknown:
      feedback.message("error in routine g_n_i");
      break;
  }
  if ((kind == Kind::Group || kind == Kind::Site || kind == Kind::Channel) && system <= 0) {
    feedback.message("error: set sys index!");
    return 0;
  }
  if (kind == Kind::System && tree.empty()) {
    doc.systems.markInUse(1, true);
    return 1;
  }
  for (int n = 1; n <= limit; ++n) {
    bool taken = false;
    switch (kind) {
      case Kind::System:
        taken = tree.contains(keys::system(n));
        break;
      case Kind::Group:
        taken = tree.contains(keys::department(system, n));
        break;
      case Kind::Site:
        taken = tree.contains(keys::site(system, n));
        break;
      case Kind::Channel:
        taken = tree.contains(keys::channel(system, department, n)) ||
                tree.contains(keys::talkgroup(system, department, n));
        break;
      case Kind::Unknown:
        taken = tree.contains(keys::system(n));
        break;
    }
    if (!taken) return n;
  }
  return 0;
}

std::vector<NodeId> walkSystems(const DocumentTree& tree) {
  std::vector<NodeId> out;
  NodeId node = tree.firstTopLevel();
  if (node == kNoNode) return out;
  const int last = tree.index(tree.lastSibling(node));
  while (node != kNoNode) {
    if (startsWith(tree.key(node), "SYS-")) out.push_back(node);
    if (tree.index(node) == last) break;
    node = tree.next(node);
  }
  return out;
}

NodeId findSystem(const DocumentTree& tree, int number) {
  for (NodeId n : walkSystems(tree)) {
    if (keys::numberAt(tree.key(n), 5) == number) return n;
  }
  return kNoNode;
}

NodeId findSite(const DocumentTree& tree, int system, int number) {
  NodeId sys = tree.find(keys::system(system));
  for (NodeId c = tree.child(sys); c != kNoNode; c = tree.next(c)) {
    const std::string& k = tree.key(c);
    if (startsWith(k, "SIT-") && keys::numberAt(k, 9) == number) return c;
  }
  return kNoNode;
}

NodeId findDepartment(const DocumentTree& tree, int system, int number) {
  NodeId sys = tree.find(keys::system(system));
  for (NodeId c = tree.child(sys); c != kNoNode; c = tree.next(c)) {
    const std::string& k = tree.key(c);
    if (startsWith(k, "GRP-") && keys::numberAt(k, 13) == number) return c;
  }
  return kNoNode;
}

std::string getText(const DocumentTree& tree, std::string_view key) {
  return tree.text(tree.find(key));
}

void setText(DocumentTree& tree, std::string_view key, std::string_view text) {
  NodeId node = tree.find(key);
  if (node != kNoNode) {
    tree.setText(node, std::string(text));
    return;
  }
  if (startsWith(key, "TRN-")) {
    NodeId sys = tree.find(keys::system(keys::numberAt(key, 5)));
    if (sys != kNoNode) tree.addChild(sys, key, text);
  }
}

void setField(DocumentTree& tree, std::string_view key, int field, std::string_view value) {
  NodeId node = tree.find(key);
  if (node == kNoNode) return;
  tree.setText(node, record::withField(tree.text(node), field, value));
}

std::string getField(const DocumentTree& tree, std::string_view key, int field) {
  return record::field(getText(tree, key), field);
}

void removeNode(DocumentTree& tree, std::string_view key) {
  if (key.size() < 3) return;
  tree.remove(key);
}

void clearTree(DocumentTree& tree) { tree.clear(); }

void expandAll(DocumentTree& tree, bool expanded) {
  for (NodeId n : tree.all()) tree.setExpanded(n, expanded);
}

void sortFavorites(DocumentTree& tree) {
  for (NodeId n : tree.all()) {
    if (tree.key(n).find("FAV-") != std::string::npos && tree.children(n) > 0)
      tree.setSorted(n, true);
  }
}

}  // namespace zel::treemod
