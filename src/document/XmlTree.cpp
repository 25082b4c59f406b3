#include "document/XmlTree.h"

#include <algorithm>
#include <utility>

#include "automation/Text.h"

namespace zav {
namespace {

// What is the node's own, without its place in a tree.
XmlTree::Node Bare(const XmlTree::Node& node) {
  XmlTree::Node bare;
  bare.isElement = node.isElement;
  bare.content = node.content;
  bare.attributes = node.attributes;
  return bare;
}

}  // namespace

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

XmlTree::NodeId XmlTree::AddCopy(const XmlTree& source, NodeId node) {
  const NodeId copy = Add(Bare(source.At(node)));
  NodeId from = node;
  NodeId to = copy;  // the copy of what was copied last
  for (NodeId next = source.NextBelow(node, node); next != kNone;
       next = source.NextBelow(node, next)) {
    for (; from != source.At(next).parent; from = source.At(from).parent) to = nodes_[to].parent;
    const NodeId added = Add(Bare(source.At(next)));
    AppendChild(to, added);
    from = next;
    to = added;
  }
  return copy;
}

XmlTree::NodeId XmlTree::Add(Node node) {
  node.serial = ++lastSerial_;
  if (free_.empty()) {
    nodes_.emplace_back();
    free_.push_back(static_cast<NodeId>(nodes_.size() - 1));
  }
  const NodeId id = free_.back();
  if (node.isElement) {
    std::int32_t& named = Entry(node.content);
    if (named == 0) {
      named = static_cast<std::int32_t>(id);
    } else {
      named = named > 0 ? -2 : named - 1;
    }
  }
  nodes_[id] = std::move(node);
  free_.pop_back();
  return id;
}

std::int32_t& XmlTree::Entry(const std::string& name) {
  if (lastEntry_ != nullptr && lastName_ == name) return *lastEntry_;
  auto found = named_.find(name);
  if (found == named_.end()) {
    const std::int32_t none = 0;
    found = named_.emplace(std::string(name), none).first;
  }
  lastEntry_ = nullptr;
  lastName_ = name;
  lastEntry_ = &found->second;
  return found->second;
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
  if (gone.parent == kNone) return;
  Node& above = nodes_[gone.parent];
  above.askedChild = kNone;
  (gone.previous == kNone ? above.firstChild : nodes_[gone.previous].next) = gone.next;
  (gone.next == kNone ? above.lastChild : nodes_[gone.next].previous) = gone.previous;
  if (gone.isElement) --above.childElements;
}

void XmlTree::Free(NodeId node) {
  if (nodes_[node].isElement) {
    // Nothing may fail here, so the entry asked for last stays as it is.
    const std::string& name = nodes_[node].content;
    const bool isLast = lastEntry_ != nullptr && lastName_ == name;
    std::int32_t& named = isLast ? *lastEntry_ : named_.find(name)->second;
    named = named > 0 ? 0 : named + 1;
  }
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
  const Node& above = nodes_[parent];
  if (index < 0 || index >= above.childElements) return kNone;
  const bool goesOn = above.askedChild != kNone && index >= above.askedIndex / 2;
  NodeId child = goesOn ? above.askedChild : above.firstChild;
  if (!nodes_[child].isElement) child = NextElement(child);
  std::int32_t position = goesOn ? above.askedIndex : 0;
  for (; position < index; ++position) child = NextElement(child);
  for (; position > index; --position) child = PreviousElement(child);
  above.askedChild = child;
  above.askedIndex = index;
  return child;
}

XmlTree::NodeId XmlTree::NextElement(NodeId child) const {
  do {
    child = nodes_[child].next;
  } while (!nodes_[child].isElement);
  return child;
}

XmlTree::NodeId XmlTree::PreviousElement(NodeId child) const {
  do {
    child = nodes_[child].previous;
  } while (!nodes_[child].isElement);
  return child;
}

XmlTree::NodeId XmlTree::FindElement(NodeId top, std::string_view name) const {
  const auto named = named_.find(std::string(name));
  if (named == named_.end() || named->second == 0) return kNone;
  if (named->second > 0) {
    const auto only = static_cast<NodeId>(named->second);
    return StandsIn(top, only) ? only : kNone;
  }
  NodeId node = top;
  while (node != kNone && !(nodes_[node].isElement && nodes_[node].content == name)) {
    node = NextBelow(top, node);
  }
  if (named->second == -1 && node != kNone) named->second = static_cast<std::int32_t>(node);
  return node;
}

bool XmlTree::StandsIn(NodeId top, NodeId node) const {
  while (node != top && node != kNone) node = nodes_[node].parent;
  return node != kNone;
}

XmlTree::NodeId XmlTree::NextBelow(NodeId top, NodeId node) const {
  if (nodes_[node].firstChild != kNone) return nodes_[node].firstChild;
  while (node != top && nodes_[node].next == kNone) node = nodes_[node].parent;
  return node == top ? kNone : nodes_[node].next;
}

std::string XmlTree::PathOf(NodeId element) const {
  std::string path = NumberedName(element);
  NodeId above = nodes_[element].parent;
  while (above != kNone && nodes_[nodes_[above].parent].parent != kNone) {
    path = NumberedName(above).append(", ").append(path);
    above = nodes_[above].parent;
  }
  return path;
}

std::string XmlTree::NumberedName(NodeId element) const {
  const std::string& name = nodes_[element].content;
  int number = 0;
  int position = 0;
  int sameNames = 0;
  for (NodeId node = nodes_[nodes_[element].parent].firstChild; node != kNone;
       node = nodes_[node].next) {
    if (!nodes_[node].isElement) continue;
    ++position;
    if (node == element) number = position;
    sameNames += nodes_[node].content == name;
  }
  return sameNames < 2 ? name : name + " " + std::to_string(number);
}

std::string XmlTree::TextOf(NodeId node) const {
  std::string text;
  for (NodeId next = node; next != kNone; next = NextBelow(node, next)) {
    if (!nodes_[next].isElement) text += nodes_[next].content;
  }
  return text;
}

bool XmlTree::TextContains(NodeId node, std::string_view part) const {
  const Node& only = nodes_[nodes_[node].firstChild];
  if (!only.isElement && only.next == kNone) return Contains(only.content, part);
  return Contains(TextOf(node), part);
}

XmlTree::NodeId XmlTree::NodeOf(NodeHandle handle) const {
  const bool exists = handle.id < nodes_.size() && nodes_[handle.id].serial == handle.serial;
  return exists ? handle.id : kNone;
}

}  // namespace zav
