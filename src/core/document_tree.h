// DocumentTree: a keyed tree of text lines, the one store of systems, sites, departments
// and their parts. Nodes are addressed by their key ("SYS-001", "GRP-999-001-000", ...);
// a node's text is its RecordLine.
//
// The walk operations follow the tree control the document was first kept in: top-level
// nodes are siblings of one another, Root is a node's top-level ancestor, and Index is the
// 1-based position of a node in the collection of all nodes in the order they were added
// (removing a node moves the positions of later nodes down).
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace zel {

// A handle to a node. Handles stay valid until the node is removed or the tree cleared;
// kNoNode (0) stands for "no node".
using NodeId = std::uint32_t;
inline constexpr NodeId kNoNode = 0;

class DocumentTree {
 public:
  DocumentTree();

  // Adds a node as the last child of the node keyed `relativeKey`, or as the last
  // top-level node when `relativeKey` is empty. Fails (kNoNode) when the key is already
  // in use, the key is empty, or the relative does not exist.
  NodeId add(std::string_view relativeKey, std::string_view key, std::string_view text);
  NodeId addChild(NodeId parent, std::string_view key, std::string_view text);

  NodeId find(std::string_view key) const;
  bool contains(std::string_view key) const { return find(key) != kNoNode; }
  std::size_t count() const { return liveCount_; }
  bool empty() const { return liveCount_ == 0; }
  void clear();
  // Removes a node with all its descendants. Returns false when the key is unknown.
  bool remove(std::string_view key);
  void remove(NodeId node);

  const std::string& text(NodeId node) const;
  void setText(NodeId node, std::string text);
  const std::string& key(NodeId node) const;
  // Re-keys a node; fails when the new key is taken.
  bool setKey(NodeId node, std::string_view newKey);

  // Walks. Each yields kNoNode where there is no such node.
  NodeId root(NodeId node) const;          // top-level ancestor of the node
  NodeId firstTopLevel() const;            // the first top-level node
  NodeId firstSibling(NodeId node) const;
  NodeId lastSibling(NodeId node) const;
  NodeId next(NodeId node) const;          // next sibling
  NodeId previous(NodeId node) const;      // previous sibling
  NodeId parent(NodeId node) const;
  NodeId child(NodeId node) const;         // first child
  int children(NodeId node) const;         // number of children
  std::vector<NodeId> childList(NodeId node) const;
  std::vector<NodeId> topLevel() const;
  // 1-based position in the collection of all nodes; 0 for no node.
  int index(NodeId node) const;
  // The node at a 1-based position of the collection.
  NodeId atIndex(int index) const;

  // The visible tree shows the children of a sorted node in key order.
  bool sorted(NodeId node) const;
  void setSorted(NodeId node, bool sorted);
  bool expanded(NodeId node) const;
  void setExpanded(NodeId node, bool expanded);

  // Every live node in collection order (the order of Index).
  std::vector<NodeId> all() const;

 private:
  struct Node {
    std::string key;
    std::string text;
    NodeId parent = kNoNode;
    NodeId firstChild = kNoNode;
    NodeId lastChild = kNoNode;
    NodeId prev = kNoNode;
    NodeId next = kNoNode;
    int childCount = 0;
    bool live = false;
    bool sorted = false;
    bool expanded = false;
  };
  bool valid(NodeId node) const { return node < nodes_.size() && nodes_[node].live; }
  NodeId append(NodeId parent, std::string_view key, std::string_view text);
  void unlink(NodeId node);
  void fenwickAdd(std::size_t slot, int delta);
  int fenwickPrefix(std::size_t slot) const;

  std::vector<Node> nodes_;  // slot 0 is the unused "no node"
  std::vector<int> fenwick_; // live counts by slot, for Index
  std::unordered_map<std::string, NodeId> byKey_;
  NodeId firstTop_ = kNoNode;
  NodeId lastTop_ = kNoNode;
  std::size_t liveCount_ = 0;
};

}  // namespace zel
