#include "document/XmlTree.h"

#include <algorithm>
#include <utility>

namespace zav {

XmlTree::XmlTree() : nodes_(1) {}

XmlTree::NodeId XmlTree::AddElement(std::string_view name, std::vector<XmlAttribute> attributes) {
  Node node;
  node.content = name;
  node.attributes = std::move(attributes);
  return Add(std::move(node));
}

XmlTree::NodeId XmlTree::AddText(std::string_view text) {
  Node node;
  node.isElement = false;
  node.content = text;
  return Add(std::move(node));
}

XmlTree::NodeId XmlTree::Add(Node node) {
  node.serial = ++lastSerial_;
  if (free_.empty()) {
    nodes_.push_back(std::move(node));
    return static_cast<NodeId>(nodes_.size() - 1);
  }
  const NodeId id = free_.back();
  nodes_[id] = std::move(node);
  free_.pop_back();
  return id;
}

void XmlTree::AppendChild(NodeId parent, NodeId child) {
  Node& above = nodes_[parent];
  Node& added = nodes_[child];
  added.parent = parent;
  added.previous = above.lastChild;
  (above.lastChild == kNone ? above.firstChild : nodes_[above.lastChild].next) = child;
  above.lastChild = child;
  if (added.isElement) ++above.childElements;
}

void XmlTree::AppendText(NodeId element, std::string_view text) {
  const NodeId last = nodes_[element].lastChild;
  if (last == kNone || nodes_[last].isElement) {
    AppendChild(element, AddText(text));
  } else {
    nodes_[last].content += text;
  }
}

void XmlTree::SetAttribute(NodeId element, std::string_view name, std::string_view value) {
  std::vector<XmlAttribute>& attributes = nodes_[element].attributes;
  for (XmlAttribute& attribute : attributes) {
    if (attribute.name != name) continue;
    attribute.value = value;
    return;
  }
  attributes.push_back({std::string(name), std::string(value)});
}

void XmlTree::Remove(NodeId node) {
  RemoveChildren(node);
  Unlink(node);
  Free(node);
}

// Frees from the leaves upwards, so that no list of what is still to be freed is needed.
void XmlTree::RemoveChildren(NodeId node) {
  NodeId current = node;
  for (;;) {
    while (nodes_[current].firstChild != kNone) current = nodes_[current].firstChild;
    if (current == node) return;
    const NodeId parent = nodes_[current].parent;
    Unlink(current);
    Free(current);
    current = parent;
  }
}

void XmlTree::Unlink(NodeId node) {
  const Node& gone = nodes_[node];
  lastChild_ = {};
  if (gone.parent == kNone) return;
  Node& above = nodes_[gone.parent];
  (gone.previous == kNone ? above.firstChild : nodes_[gone.previous].next) = gone.next;
  (gone.next == kNone ? above.lastChild : nodes_[gone.next].previous) = gone.previous;
  if (gone.isElement) --above.childElements;
}

void XmlTree::Free(NodeId node) {
  nodes_[node] = Node();
  free_.push_back(node);
}

const std::string* XmlTree::FindAttribute(NodeId element, std::string_view name) const {
  for (const XmlAttribute& attribute : nodes_[element].attributes) {
    if (attribute.name == name) return &attribute.value;
  }
  return nullptr;
}

XmlTree::NodeId XmlTree::ChildElement(NodeId parent, std::int32_t index) const {
  if (index < 0 || index >= nodes_[parent].childElements) return kNone;
  const bool goesOn =
      lastChild_.parent == parent && lastChild_.child != kNone && lastChild_.index <= index;
  NodeId child = goesOn ? lastChild_.child : nodes_[parent].firstChild;
  std::int32_t position = goesOn ? lastChild_.index : 0;
  while (!nodes_[child].isElement || position < index) {
    if (nodes_[child].isElement) ++position;
    child = nodes_[child].next;
  }
  lastChild_ = {parent, index, child};
  return child;
}

XmlTree::NodeId XmlTree::NextBelow(NodeId top, NodeId node) const {
  if (nodes_[node].firstChild != kNone) return nodes_[node].firstChild;
  while (node != top && nodes_[node].next == kNone) node = nodes_[node].parent;
  return node == top ? kNone : nodes_[node].next;
}

std::string XmlTree::TextOf(NodeId node) const {
  std::string text;
  for (NodeId next = node; next != kNone; next = NextBelow(node, next)) {
    if (!nodes_[next].isElement) text += nodes_[next].content;
  }
  return text;
}

XmlTree::NodeId XmlTree::NodeOf(NodeHandle handle) const {
  const bool exists = handle.id < nodes_.size() && nodes_[handle.id].serial == handle.serial;
  return exists ? handle.id : kNone;
}

}  // namespace zav
