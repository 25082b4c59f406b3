#include "document/XmlWriter.h"

#include <set>
#include <string_view>
#include <utility>

#include "automation/Text.h"
#include "document/XmlNamespaces.h"

namespace zav {

namespace {

enum class Place { Text, AttributeValue };

// What stands for the character, or nothing when it may stand for itself.
std::string_view EscapeOf(char character, Place place) {
  switch (character) {
    case '&':
      return "&amp;";
    case '<':
      return "&lt;";
    case '>':
      return "&gt;";
    case '\r':
      return "&#13;";
    default:
      break;
  }
  if (place == Place::Text) return {};
  switch (character) {
    case '"':
      return "&quot;";
    case '\t':
      return "&#9;";
    case '\n':
      return "&#10;";
    default:
      return {};
  }
}

class Writer {
 public:
  explicit Writer(const XmlTree& tree) : tree_(tree) {}

  std::string Write(XmlTree::NodeId top) {
    XmlTree::NodeId node = top;
    while (node != XmlTree::kNone) {
      Open(node, node == top);
      const XmlTree::NodeId next = tree_.NextBelow(top, node);
      CloseUpTo(top, node, next);
      node = next;
    }
    return std::move(xml_);
  }

 private:
  void Open(XmlTree::NodeId id, bool isTop) {
    const XmlTree::Node& node = tree_.At(id);
    if (!node.isElement) {
      AppendEscaped(node.content, Place::Text);
      return;
    }
    xml_ += '<';
    xml_ += node.content;
    for (const XmlAttribute& attribute : node.attributes) AppendAttribute(attribute);
    if (isTop) AppendInheritedPrefixes(id);
    xml_ += node.firstChild == XmlTree::kNone ? "/>" : ">";
  }

  // Writes the end tags of the elements that end between node and the next node to be written.
  void CloseUpTo(XmlTree::NodeId top, XmlTree::NodeId node, XmlTree::NodeId next) {
    const XmlTree::NodeId stop = tree_.At(next).parent;
    if (stop == node) return;
    while (node != top && (next == XmlTree::kNone || tree_.At(node).parent != stop)) {
      node = tree_.At(node).parent;
      xml_ += Concatenate({"</", tree_.At(node).content, ">"});
    }
  }

  void AppendAttribute(const XmlAttribute& attribute) {
    xml_ += ' ';
    xml_ += attribute.name;
    xml_ += "=\"";
    AppendEscaped(attribute.value, Place::AttributeValue);
    xml_ += '"';
  }

  void AppendInheritedPrefixes(XmlTree::NodeId element) {
    std::set<std::string_view> declared;
    for (XmlTree::NodeId node = element; node != XmlTree::kNone; node = tree_.At(node).parent) {
      for (const XmlAttribute& attribute : tree_.At(node).attributes) {
        const std::string_view prefix = DeclaredPrefix(attribute);
        const bool isNew = !prefix.empty() && declared.insert(prefix).second;
        if (isNew && node != element) AppendAttribute(attribute);
      }
    }
  }

  void AppendEscaped(std::string_view text, Place place) {
    for (const char character : text) {
      const std::string_view escape = EscapeOf(character, place);
      if (escape.empty()) {
        xml_ += character;
      } else {
        xml_ += escape;
      }
    }
  }

  const XmlTree& tree_;
  std::string xml_;
};

}  // namespace

std::string WriteXml(const XmlTree& tree, XmlTree::NodeId element) {
  return Writer(tree).Write(element);
}

}  // namespace zav
