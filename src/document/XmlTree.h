// The elements and texts of XML documents as trees of nodes in one store.
//
// A node is named by its id, which is used again after the node was removed; a handle is not. Id 0
// is no node: it reads as an element without name, attributes, parent and children. No operation
// recurses, so trees may be as deep as memory allows. Knows no cursor, no parser and no syntax.
#pragma once

#include <cstdint>
#include <deque>
#include <map>
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

    // The child element that was asked for last; none after one was removed.
    mutable NodeId askedChild = kNone;
    mutable std::int32_t askedIndex = 0;
  };

  XmlTree();
  XmlTree(const XmlTree&) = delete;
  XmlTree& operator=(const XmlTree&) = delete;
  ~XmlTree() = default;

  // These make a node that has no parent yet; a copy has everything below it.
  NodeId AddElement(std::string_view name, std::vector<XmlAttribute> attributes = {});
  NodeId AddText(std::string_view text);
  NodeId AddCopy(const XmlTree& source, NodeId node);
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
  // The child element at that position from 0, or none. Walking through the positions, upwards or
  // downwards, takes constant time for each, whatever else is asked for in between.
  [[nodiscard]] NodeId ChildElement(NodeId parent, std::int32_t index) const;
  // The node after this one in document order, or none after the last one below top.
  [[nodiscard]] NodeId NextBelow(NodeId top, NodeId node) const;
  // The first element of that name in document order that is top or stands below it, or none. Takes
  // no longer for a large tree where the store has one such element only.
  [[nodiscard]] NodeId FindElement(NodeId top, std::string_view name) const;
  // How to tell the element from all others: its name, behind those of what it stands in, up to but
  // without what stands right below the document element. One that has others of its name beside it
  // is numbered from 1 among all elements there: "Group 2, ItemSettings".
  [[nodiscard]] std::string PathOf(NodeId element) const;
  // The texts below the node, one after the other.
  [[nodiscard]] std::string TextOf(NodeId node) const;
  [[nodiscard]] bool TextContains(NodeId node, std::string_view part) const;

  [[nodiscard]] NodeHandle HandleOf(NodeId node) const { return {node, nodes_[node].serial}; }
  // None when the node was removed.
  [[nodiscard]] NodeId NodeOf(NodeHandle handle) const;

 private:
  NodeId Add(Node node);
  std::int32_t& Entry(const std::string& name);
  [[nodiscard]] NodeId NextElement(NodeId child) const;
  [[nodiscard]] NodeId PreviousElement(NodeId child) const;
  [[nodiscard]] bool StandsIn(NodeId top, NodeId node) const;
  void Unlink(NodeId node);
  [[nodiscard]] std::string NumberedName(NodeId element) const;
  void Free(NodeId node);

  std::deque<Node> nodes_;  // by id; a free one has serial 0
  std::vector<NodeId> free_;
  std::uint64_t lastSerial_ = 0;
  // Elements by their names: the id of the only one; where that is not known, how many there are as
  // a number below 0; 0 for none.
  mutable std::map<std::string, std::int32_t> named_;
  // That was asked for last, as many elements are alike.
  std::string lastName_;
  std::int32_t* lastEntry_ = nullptr;
};

}  // namespace zav
