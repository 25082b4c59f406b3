// The elements and texts of XML documents as trees of nodes in one store.
//
// A node is named by its id, which is used again after the node was removed; a handle is not. Id 0
// is no node: it reads as an element without name, attributes, parent and children. No operation
// recurses, so trees may be as deep as memory allows. Knows no cursor, no parser and no syntax.
#pragma once

#include <cstdint>
#include <deque>
#include <string>
#include <string_view>
#include <vector>

namespace zav {

struct XmlAttribute {
  std::string name;
  std::string value;
};

// Designates one node for as long as the store lives, and none once that node was removed.
struct NodeHandle {
  std::uint32_t id = 0;
  std::uint64_t serial = 0;
};

class XmlTree {
 public:
  using NodeId = std::uint32_t;
  static constexpr NodeId kNone = 0;

  struct Node {
    bool isElement = true;
    std::string content;  // an element's name, a text's characters
    std::vector<XmlAttribute> attributes;
    NodeId parent = kNone;
    NodeId previous = kNone;
    NodeId next = kNone;
    NodeId firstChild = kNone;
    NodeId lastChild = kNone;
    std::int32_t childElements = 0;
    std::uint64_t serial = 0;  // never used twice
  };

  XmlTree();

  // Both make a node that has no parent yet.
  NodeId AddElement(std::string_view name, std::vector<XmlAttribute> attributes = {});
  NodeId AddText(std::string_view text);
  // Child must have no parent.
  void AppendChild(NodeId parent, NodeId child);
  // Adds to the text that ends the element, or to a new one.
  void AppendText(NodeId element, std::string_view text);
  void SetAttribute(NodeId element, std::string_view name, std::string_view value);
  // Takes the node out of its parent and forgets it with everything below it.
  void Remove(NodeId node);
  void RemoveChildren(NodeId node);

  [[nodiscard]] const Node& At(NodeId node) const { return nodes_[node]; }
  // Null when the element has no such attribute.
  [[nodiscard]] const std::string* FindAttribute(NodeId element, std::string_view name) const;
  // The child element at that position from 0, or none. Walking through the positions upwards
  // takes constant time for each.
  [[nodiscard]] NodeId ChildElement(NodeId parent, std::int32_t index) const;
  // The node after this one in document order, or none after the last one below top.
  [[nodiscard]] NodeId NextBelow(NodeId top, NodeId node) const;
  // The texts below the node, one after the other.
  [[nodiscard]] std::string TextOf(NodeId node) const;

  [[nodiscard]] NodeHandle HandleOf(NodeId node) const { return {node, nodes_[node].serial}; }
  // None when the node was removed.
  [[nodiscard]] NodeId NodeOf(NodeHandle handle) const;

 private:
  struct ChildPlace {
    NodeId parent = kNone;
    std::int32_t index = 0;
    NodeId child = kNone;
  };

  NodeId Add(Node node);
  void Unlink(NodeId node);
  void Free(NodeId node);

  std::deque<Node> nodes_;  // by id; a free one has serial 0
  std::vector<NodeId> free_;
  std::uint64_t lastSerial_ = 0;
  mutable ChildPlace lastChild_;  // found by ChildElement; none after a change of the trees
};

}  // namespace zav
