// DataIO is one XML document with one cursor, the current element. Every XML text of the component
// is read and written through it.
//
// Names are qualified names, compared exactly. Operations that take an element's name act on the
// first element of that name in scope, in document order: the scope is the whole document while
// FromRoot is True (as it is at first), else the current element itself and what is below it.
// Children are element children, counted from 0. A text is all characters inside an element, those
// of its descendants included, exactly as they stood in the source.
//
// What is missing reads as an empty variant, an empty text or False, a document that was never
// loaded included; then the cursor stays. Errors are raised with the source "DataIO".
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "automation/Handler.h"
#include "automation/Object.h"
#include "automation/Variant.h"
#include "document/DocumentValue.h"
#include "document/XmlTree.h"

namespace zav {

class DataIO : public Object {
 public:
  // Raises 53 for a missing file.
  using FileReader = Handler<std::vector<std::uint8_t>(const std::string& path)>;

  // Without a reader no document can be loaded by path: that raises 53.
  explicit DataIO(FileReader readFile = {});

  // Kept as a reference only; not owned.
  void SetOwner(Object* owner) { owner_ = owner; }
  [[nodiscard]] Object* Owner() const { return owner_; }

  [[nodiscard]] bool GetFromRoot() const { return fromRoot_; }
  void SetFromRoot(bool fromRoot) { fromRoot_ = fromRoot; }

  // Source is XML text when its first character that is neither blank nor line end is "<" (a
  // byte-order mark before it is skipped), else the path of an XML file in UTF-8, in UTF-16 with a
  // byte-order mark, or in the ISO-8859-1 or US-ASCII that it declares. The cursor moves to the
  // document element. Raises a component error that names line and column for what is not
  // well-formed and for a DOCTYPE; the document that was there then stays.
  void LoadXml(std::string_view source);
  // The same for a text that is XML whatever it begins with, and never a path.
  void LoadText(std::string_view xml);
  void Clear();

  // These tell whether there is such an element; when there is none the cursor stays.
  bool MoveToChild(std::int32_t index);
  bool MoveToTop();
  bool MoveToParent();
  bool FindNode(std::string_view name);

  // Removes the element with all below it. A cursor in there moves to the document element.
  bool RemoveNode(std::string_view name);
  // Appends the fragment, which is one element, to the element named parent. Raises as LoadXml.
  bool InsertXml(std::string_view parent, std::string_view fragment);
  // Appends a copy of the first element of that name in the source to the element named parent;
  // False where either is missing. The documents are two.
  bool InsertCopy(std::string_view parent, const DataIO& source, std::string_view name);
  // Appends an empty element to the element named parent; the cursor moves to it. Raises 5 for a
  // name that XML does not allow there.
  bool AddNode(std::string_view parent, std::string_view name);

  // The document or the element as XML text that parses back to the same texts and values; no XML
  // declaration, comment or processing instruction.
  [[nodiscard]] std::string GetXml() const;
  [[nodiscard]] std::string GetNodeXml(std::string_view name) const;

  [[nodiscard]] bool HasAttribute(std::string_view name) const;
  // Values of attributes are the document's own, good until it changes.
  [[nodiscard]] DocumentValue GetAttribute(std::string_view name) const;
  // Adds or replaces; False without a current element. Raises 5 for a name that XML does not
  // allow there, and for a value with characters that XML cannot carry.
  bool SetAttribute(std::string_view name, std::string_view value);

  [[nodiscard]] Variant GetText() const;
  // A text of the current element's, with its place. The text must outlive the value.
  [[nodiscard]] DocumentValue WithPlace(const std::string& text) const {
    return {tree_, cursor_, {}, &text};
  }
  // Replaces everything inside the current element; False without one. Raises 5 for a text with
  // characters that XML cannot carry.
  bool SetText(std::string_view text);

  [[nodiscard]] std::int32_t ChildCount() const;
  [[nodiscard]] Variant GetChildText(std::int32_t index) const;
  // The first child whose text contains that part; -1 for none.
  [[nodiscard]] std::int32_t FindChildText(std::string_view part) const;
  [[nodiscard]] DocumentValue GetChildAttribute(std::int32_t index, std::string_view name) const;
  // Of the first child element of that name.
  [[nodiscard]] DocumentValue GetChildAttributeByName(std::string_view child,
                                                      std::string_view name) const;

  // Another number after every change of the document.
  [[nodiscard]] std::uint64_t Revision() const { return revision_; }

  // A handle to an element that is no longer in the document moves the cursor to the document
  // element.
  void SetCurrentNode(NodeHandle node);
  [[nodiscard]] NodeHandle GetCurrentNode() const { return tree_.HandleOf(cursor_); }

  // The operations above by name. Their results are returned, a node as an opaque object.
  Variant Invoke(std::string_view name, std::span<Variant> arguments,
                 InvokeKind kind = InvokeKind::Call) override;

 private:
  using NodeId = XmlTree::NodeId;

  NodeId ParseFile(const std::string& path);
  void Replace(NodeId root);
  [[nodiscard]] NodeId FindInScope(std::string_view name) const;
  bool MoveTo(NodeId node);
  [[nodiscard]] Variant TextOf(NodeId element) const;
  [[nodiscard]] DocumentValue AttributeOf(NodeId element, std::string_view name) const {
    return {tree_, element, name, tree_.FindAttribute(element, name)};
  }

  FileReader readFile_;
  Object* owner_ = nullptr;
  XmlTree tree_;
  NodeId root_ = XmlTree::kNone;
  NodeId cursor_ = XmlTree::kNone;
  bool fromRoot_ = true;
  std::uint64_t revision_ = 0;
};

using DataIORef = std::shared_ptr<DataIO>;

// Gives a document's cursor and FromRoot flag back at the end of a block.
class CursorScope {
 public:
  explicit CursorScope(DataIO& document)
      : document_(document), node_(document.GetCurrentNode()), fromRoot_(document.GetFromRoot()) {}
  CursorScope(const CursorScope&) = delete;
  CursorScope& operator=(const CursorScope&) = delete;
  ~CursorScope() {
    document_.SetCurrentNode(node_);
    document_.SetFromRoot(fromRoot_);
  }

 private:
  DataIO& document_;
  NodeHandle node_;
  bool fromRoot_;
};

}  // namespace zav
