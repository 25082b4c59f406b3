#include "document/DataIO.h"

#include <algorithm>
#include <utility>

#include "automation/AutomationError.h"
#include "automation/Text.h"
#include "document/XmlParser.h"
#include "document/XmlWriter.h"

namespace zav {

namespace {

constexpr std::string_view kSource = "DataIO";
constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";
constexpr std::string_view kUtf16LeMark = "\xFF\xFE";
constexpr std::string_view kUtf16BeMark = "\xFE\xFF";

std::string_view WithoutMark(std::string_view text) {
  return text.starts_with(kUtf8Mark) ? text.substr(kUtf8Mark.size()) : text;
}

bool IsXml(std::string_view text) {
  const std::size_t first = text.find_first_not_of(" \t\r\n");
  return first != std::string_view::npos && text[first] == '<';
}

struct FileText {
  std::string text;
  XmlEncoding encoding;
};

// A byte-order mark says what a file's bytes are, whatever their XML declaration says.
FileText Decode(std::vector<std::uint8_t> bytes) {
  std::string content(bytes.begin(), bytes.end());
  if (content.starts_with(kUtf8Mark)) return {content.substr(kUtf8Mark.size()), XmlEncoding::Utf8};
  const bool isBigEndian = content.starts_with(kUtf16BeMark);
  if (!isBigEndian && !content.starts_with(kUtf16LeMark)) {
    return {std::move(content), XmlEncoding::Declared};
  }
  if (isBigEndian) {
    for (std::size_t at = 0; at + 1 < bytes.size(); at += 2) std::swap(bytes[at], bytes[at + 1]);
  }
  return {Utf16LeToUtf8(std::span(bytes).subspan(kUtf16LeMark.size())), XmlEncoding::Utf8};
}

[[noreturn]] void RaiseInvalidArgument(std::initializer_list<std::string_view> description) {
  RaiseError(error_number::kInvalidArgument, description, kSource);
}

bool IsForbidden(char character) {
  const auto code = static_cast<unsigned char>(character);
  return code < ' ' && code != '\t' && code != '\n' && code != '\r';
}

// XML cannot carry control characters, not even by their numbers, nor U+FFFE and U+FFFF.
void RequireXmlCharacters(std::string_view text) {
  if (!IsWellFormedUtf8(text) || std::any_of(text.begin(), text.end(), IsForbidden) ||
      Contains(text, "\xEF\xBF\xBE") || Contains(text, "\xEF\xBF\xBF")) {
    RaiseInvalidArgument({"Text with a character that XML cannot carry"});
  }
}

bool IsLetter(char character) {
  return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z');
}

// What nearly every name is, told without a parser.
bool IsPlainName(std::string_view name) {
  return !name.empty() && std::all_of(name.begin(), name.end(), IsLetter);
}

// The parser alone knows what any name may be.
bool IsXmlName(std::string_view name) {
  XmlTree tree;
  try {
    const XmlTree::NodeId element =
        ParseXml(tree, Concatenate({"<", name, "/>"}), XmlEncoding::Utf8);
    return tree.At(element).content == name;
  } catch (const AutomationError&) {
    return false;
  }
}

void RequireXmlName(std::string_view name) {
  if (!IsPlainName(name) && !IsXmlName(name)) {
    RaiseInvalidArgument({"Not a name that XML allows here: ", name});
  }
}

}  // namespace

DataIO::DataIO(FileReader readFile) : readFile_(readFile) {}

void DataIO::LoadXml(std::string_view source) {
  if (IsXml(WithoutMark(source))) {
    LoadText(source);
  } else {
    Replace(ParseFile(std::string(source)));
  }
}

void DataIO::LoadText(std::string_view xml) {
  Replace(ParseXml(tree_, WithoutMark(xml), XmlEncoding::Utf8));
}

void DataIO::Replace(NodeId root) {
  Clear();
  root_ = root;
  cursor_ = root;
}

DataIO::NodeId DataIO::ParseFile(const std::string& path) {
  if (!readFile_) {
    RaiseError(error_number::kFileNotFound, {"File not found: ", path}, kSource);
  }
  const FileText file = Decode(readFile_(path));
  return ParseXml(tree_, file.text, file.encoding, path);
}

void DataIO::Clear() {
  ++revision_;
  if (root_ != XmlTree::kNone) tree_.Remove(root_);
  root_ = XmlTree::kNone;
  cursor_ = XmlTree::kNone;
}

bool DataIO::MoveTo(NodeId node) {
  if (node == XmlTree::kNone) return false;
  cursor_ = node;
  return true;
}

bool DataIO::MoveToChild(std::int32_t index) { return MoveTo(tree_.ChildElement(cursor_, index)); }

bool DataIO::MoveToTop() { return MoveTo(root_); }

bool DataIO::MoveToParent() { return MoveTo(tree_.At(cursor_).parent); }

bool DataIO::FindNode(std::string_view name) { return MoveTo(FindInScope(name)); }

DataIO::NodeId DataIO::FindInScope(std::string_view name) const {
  return tree_.FindElement(fromRoot_ ? root_ : cursor_, name);
}

bool DataIO::RemoveNode(std::string_view name) {
  const NodeId node = FindInScope(name);
  if (node == XmlTree::kNone) return false;
  const NodeHandle cursor = GetCurrentNode();
  ++revision_;
  tree_.Remove(node);
  if (node == root_) root_ = XmlTree::kNone;
  SetCurrentNode(cursor);
  return true;
}

bool DataIO::InsertXml(std::string_view parent, std::string_view fragment) {
  const NodeId element = ParseXml(tree_, WithoutMark(fragment), XmlEncoding::Utf8);
  const NodeId above = FindInScope(parent);
  if (above == XmlTree::kNone) {
    tree_.Remove(element);
    return false;
  }
  ++revision_;
  tree_.AppendChild(above, element);
  return true;
}

bool DataIO::InsertCopy(std::string_view parent, const DataIO& source, std::string_view name) {
  const NodeId copied = source.tree_.FindElement(source.root_, name);
  const NodeId above = FindInScope(parent);
  if (copied == XmlTree::kNone || above == XmlTree::kNone) return false;
  ++revision_;
  tree_.AppendChild(above, tree_.AddCopy(source.tree_, copied));
  return true;
}

bool DataIO::AddNode(std::string_view parent, std::string_view name) {
  RequireXmlName(name);
  const NodeId above = FindInScope(parent);
  if (above == XmlTree::kNone) return false;
  const NodeId added = tree_.AddElement(name);
  ++revision_;
  tree_.AppendChild(above, added);
  return MoveTo(added);
}

std::string DataIO::GetXml() const { return WriteXml(tree_, root_); }

std::string DataIO::GetNodeXml(std::string_view name) const {
  return WriteXml(tree_, FindInScope(name));
}

bool DataIO::HasAttribute(std::string_view name) const {
  return tree_.FindAttribute(cursor_, name) != nullptr;
}

DocumentValue DataIO::GetAttribute(std::string_view name) const {
  return AttributeOf(cursor_, name);
}

bool DataIO::SetAttribute(std::string_view name, std::string_view value) {
  RequireXmlCharacters(value);
  if (cursor_ == XmlTree::kNone) return false;
  if (!HasAttribute(name)) RequireXmlName(name);
  ++revision_;
  tree_.SetAttribute(cursor_, name, value);
  return true;
}

Variant DataIO::GetText() const { return TextOf(cursor_); }

Variant DataIO::TextOf(NodeId element) const {
  return element != XmlTree::kNone ? Variant(tree_.TextOf(element)) : Variant();
}

bool DataIO::SetText(std::string_view text) {
  RequireXmlCharacters(text);
  if (cursor_ == XmlTree::kNone) return false;
  const NodeId added = text.empty() ? XmlTree::kNone : tree_.AddText(text);
  ++revision_;
  tree_.RemoveChildren(cursor_);
  if (added != XmlTree::kNone) tree_.AppendChild(cursor_, added);
  return true;
}

std::int32_t DataIO::ChildCount() const { return tree_.At(cursor_).childElements; }

Variant DataIO::GetChildText(std::int32_t index) const {
  return TextOf(tree_.ChildElement(cursor_, index));
}

std::int32_t DataIO::FindChildText(std::string_view part) const {
  std::int32_t index = 0;
  for (NodeId child = tree_.At(cursor_).firstChild; child != XmlTree::kNone;
       child = tree_.At(child).next) {
    if (!tree_.At(child).isElement) continue;
    if (tree_.TextContains(child, part)) return index;
    ++index;
  }
  return -1;
}

DocumentValue DataIO::GetChildAttribute(std::int32_t index, std::string_view name) const {
  return AttributeOf(tree_.ChildElement(cursor_, index), name);
}

DocumentValue DataIO::GetChildAttributeByName(std::string_view child, std::string_view name) const {
  for (NodeId node = tree_.At(cursor_).firstChild; node != XmlTree::kNone;
       node = tree_.At(node).next) {
    const XmlTree::Node& found = tree_.At(node);
    if (found.isElement && found.content == child) return AttributeOf(node, name);
  }
  return AttributeOf(XmlTree::kNone, name);
}

void DataIO::SetCurrentNode(NodeHandle node) {
  const NodeId found = tree_.NodeOf(node);
  cursor_ = found != XmlTree::kNone ? found : root_;
}

}  // namespace zav
