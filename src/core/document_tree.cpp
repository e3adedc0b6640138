#include "core/document_tree.h"

namespace zel {

namespace {
const std::string kEmpty;
}

DocumentTree::DocumentTree() { clear(); }

void DocumentTree::clear() {
  nodes_.assign(1, Node{});
  fenwick_.assign(1, 0);
  byKey_.clear();
  firstTop_ = lastTop_ = kNoNode;
  liveCount_ = 0;
}

void DocumentTree::fenwickAdd(std::size_t slot, int delta) {
  for (; slot < fenwick_.size(); slot += slot & (~slot + 1)) fenwick_[slot] += delta;
}

int DocumentTree::fenwickPrefix(std::size_t slot) const {
  int sum = 0;
  for (; slot > 0; slot -= slot & (~slot + 1)) sum += fenwick_[slot];
  return sum;
}

NodeId DocumentTree::append(NodeId parent, std::string_view key, std::string_view text) {
  if (key.empty() || byKey_.count(std::string(key))) return kNoNode;
  NodeId id = static_cast<NodeId>(nodes_.size());
  Node node;
  node.key = std::string(key);
  node.text = std::string(text);
  node.parent = parent;
  node.live = true;
  if (parent == kNoNode) {
    node.prev = lastTop_;
    if (lastTop_ != kNoNode) nodes_[lastTop_].next = id;
    if (firstTop_ == kNoNode) firstTop_ = id;
    lastTop_ = id;
  } else {
    Node& p = nodes_[parent];
    node.prev = p.lastChild;
    if (p.lastChild != kNoNode) nodes_[p.lastChild].next = id;
    if (p.firstChild == kNoNode) p.firstChild = id;
    p.lastChild = id;
    ++p.childCount;
  }
  nodes_.push_back(std::move(node));
  // Grow the Fenwick tree: a new slot's cell covers a range of earlier slots.
  std::size_t slot = fenwick_.size();
  int cover = 0;
  std::size_t low = slot - (slot & (~slot + 1));
  cover = fenwickPrefix(slot - 1) - fenwickPrefix(low);
  fenwick_.push_back(cover + 1);
  byKey_.emplace(nodes_[id].key, id);
  ++liveCount_;
  return id;
}

NodeId DocumentTree::add(std::string_view relativeKey, std::string_view key,
                         std::string_view text) {
  NodeId parent = kNoNode;
  if (!relativeKey.empty()) {
    parent = find(relativeKey);
    if (parent == kNoNode) return kNoNode;
  }
  return append(parent, key, text);
}

NodeId DocumentTree::addChild(NodeId parent, std::string_view key, std::string_view text) {
  if (parent != kNoNode && !valid(parent)) return kNoNode;
  return append(parent, key, text);
}

NodeId DocumentTree::find(std::string_view key) const {
  auto it = byKey_.find(std::string(key));
  return it == byKey_.end() ? kNoNode : it->second;
}

void DocumentTree::unlink(NodeId id) {
  Node& n = nodes_[id];
  if (n.prev != kNoNode) nodes_[n.prev].next = n.next;
  if (n.next != kNoNode) nodes_[n.next].prev = n.prev;
  if (n.parent == kNoNode) {
    if (firstTop_ == id) firstTop_ = n.next;
    if (lastTop_ == id) lastTop_ = n.prev;
  } else {
    Node& p = nodes_[n.parent];
    if (p.firstChild == id) p.firstChild = n.next;
    if (p.lastChild == id) p.lastChild = n.prev;
    --p.childCount;
  }
}

void DocumentTree::remove(NodeId id) {
  if (!valid(id)) return;
  unlink(id);
  // Remove the whole subtree without recursion.
  std::vector<NodeId> stack{id};
  while (!stack.empty()) {
    NodeId cur = stack.back();
    stack.pop_back();
    for (NodeId c = nodes_[cur].firstChild; c != kNoNode; c = nodes_[c].next) stack.push_back(c);
    Node& n = nodes_[cur];
    byKey_.erase(n.key);
    n.live = false;
    n.key.clear();
    n.text.clear();
    n.text.shrink_to_fit();
    fenwickAdd(cur, -1);
    --liveCount_;
  }
}

bool DocumentTree::remove(std::string_view key) {
  NodeId id = find(key);
  if (id == kNoNode) return false;
  remove(id);
  return true;
}

const std::string& DocumentTree::text(NodeId node) const {
  return valid(node) ? nodes_[node].text : kEmpty;
}

void DocumentTree::setText(NodeId node, std::string text) {
  if (valid(node)) nodes_[node].text = std::move(text);
}

const std::string& DocumentTree::key(NodeId node) const {
  return valid(node) ? nodes_[node].key : kEmpty;
}

bool DocumentTree::setKey(NodeId node, std::string_view newKey) {
  if (!valid(node) || newKey.empty()) return false;
  if (nodes_[node].key == newKey) return true;
  if (byKey_.count(std::string(newKey))) return false;
  byKey_.erase(nodes_[node].key);
  nodes_[node].key = std::string(newKey);
  byKey_.emplace(nodes_[node].key, node);
  return true;
}

NodeId DocumentTree::root(NodeId node) const {
  if (!valid(node)) return kNoNode;
  while (nodes_[node].parent != kNoNode) node = nodes_[node].parent;
  return node;
}

NodeId DocumentTree::firstTopLevel() const { return firstTop_; }

NodeId DocumentTree::firstSibling(NodeId node) const {
  if (!valid(node)) return kNoNode;
  NodeId p = nodes_[node].parent;
  return p == kNoNode ? firstTop_ : nodes_[p].firstChild;
}

NodeId DocumentTree::lastSibling(NodeId node) const {
  if (!valid(node)) return kNoNode;
  NodeId p = nodes_[node].parent;
  return p == kNoNode ? lastTop_ : nodes_[p].lastChild;
}

NodeId DocumentTree::next(NodeId node) const { return valid(node) ? nodes_[node].next : kNoNode; }
NodeId DocumentTree::previous(NodeId node) const {
  return valid(node) ? nodes_[node].prev : kNoNode;
}
NodeId DocumentTree::parent(NodeId node) const {
  return valid(node) ? nodes_[node].parent : kNoNode;
}
NodeId DocumentTree::child(NodeId node) const {
  return valid(node) ? nodes_[node].firstChild : kNoNode;
}
int DocumentTree::children(NodeId node) const {
  return valid(node) ? nodes_[node].childCount : 0;
}

std::vector<NodeId> DocumentTree::childList(NodeId node) const {
  std::vector<NodeId> out;
  if (!valid(node)) return out;
  out.reserve(nodes_[node].childCount);
  for (NodeId c = nodes_[node].firstChild; c != kNoNode; c = nodes_[c].next) out.push_back(c);
  return out;
}

std::vector<NodeId> DocumentTree::topLevel() const {
  std::vector<NodeId> out;
  for (NodeId c = firstTop_; c != kNoNode; c = nodes_[c].next) out.push_back(c);
  return out;
}

int DocumentTree::index(NodeId node) const {
  if (!valid(node)) return 0;
  return fenwickPrefix(node);
}

NodeId DocumentTree::atIndex(int index) const {
  if (index < 1 || static_cast<std::size_t>(index) > liveCount_) return kNoNode;
  // Descend the Fenwick tree to the smallest slot whose prefix count reaches index.
  std::size_t pos = 0;
  std::size_t step = 1;
  while (step * 2 < fenwick_.size()) step *= 2;
  int remaining = index;
  for (; step > 0; step /= 2) {
    if (pos + step < fenwick_.size() && fenwick_[pos + step] < remaining) {
      pos += step;
      remaining -= fenwick_[pos];
    }
  }
  return static_cast<NodeId>(pos + 1);
}

bool DocumentTree::sorted(NodeId node) const { return valid(node) && nodes_[node].sorted; }
void DocumentTree::setSorted(NodeId node, bool sorted) {
  if (valid(node)) nodes_[node].sorted = sorted;
}
bool DocumentTree::expanded(NodeId node) const { return valid(node) && nodes_[node].expanded; }
void DocumentTree::setExpanded(NodeId node, bool expanded) {
  if (valid(node)) nodes_[node].expanded = expanded;
}

std::vector<NodeId> DocumentTree::all() const {
  std::vector<NodeId> out;
  out.reserve(liveCount_);
  for (NodeId i = 1; i < nodes_.size(); ++i) {
    if (nodes_[i].live) out.push_back(i);
  }
  return out;
}

}  // namespace zel
