#include "document/XmlParser.h"

#include <expat.h>

#include <algorithm>
#include <limits>
#include <memory>
#include <new>
#include <optional>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "automation/AutomationError.h"
#include "automation/Text.h"
#include "document/XmlNamespaces.h"

namespace zav {

namespace {

constexpr std::size_t kExcerptCharacters = 20;

struct ParserDeleter {
  void operator()(XML_Parser parser) const { XML_ParserFree(parser); }
};

using ParserPointer = std::unique_ptr<std::remove_pointer_t<XML_Parser>, ParserDeleter>;

ParserPointer MakeParser(XmlEncoding encoding) {
  ParserPointer parser(XML_ParserCreate(encoding == XmlEncoding::Utf8 ? "UTF-8" : nullptr));
  if (!parser) throw std::bad_alloc();
  return parser;
}

std::string ByteText(char byte) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  const auto value = static_cast<unsigned char>(byte);
  return Concatenate({"the byte 0x", std::string{kDigits[value / 16U], kDigits[value % 16U]}});
}

// The beginning of text as it can stand in a message of one line.
std::string Excerpt(std::string_view text) {
  if (text.empty()) return "the end of the text";
  std::string_view excerpt = FirstCharacters(text, kExcerptCharacters);
  std::size_t length = 0;
  while (length < excerpt.size() && static_cast<unsigned char>(excerpt[length]) >= ' ') ++length;
  excerpt = excerpt.substr(0, length);
  if (excerpt.empty() || !IsWellFormedUtf8(excerpt)) return ByteText(text.front());
  return Concatenate({"\"", excerpt, "\""});
}

std::string_view Expectation(XML_Error error) {
  switch (error) {
    case XML_ERROR_NO_ELEMENTS:
    case XML_ERROR_SYNTAX:
      return "expected an element";
    case XML_ERROR_INVALID_TOKEN:
      return "expected what may stand here in XML";
    case XML_ERROR_UNCLOSED_TOKEN:
      return "expected the end of what begins here";
    case XML_ERROR_PARTIAL_CHAR:
      return "expected a whole character";
    case XML_ERROR_DUPLICATE_ATTRIBUTE:
      return "expected each attribute once";
    case XML_ERROR_JUNK_AFTER_DOC_ELEMENT:
      return "expected nothing after the document element";
    case XML_ERROR_UNDEFINED_ENTITY:
      return "expected amp, lt, gt, quot or apos as entity";
    case XML_ERROR_BAD_CHAR_REF:
      return "expected the number of a character";
    case XML_ERROR_MISPLACED_XML_PI:
      return "expected an XML declaration only at the beginning";
    case XML_ERROR_XML_DECL:
      return "expected version, encoding and standalone in an XML declaration";
    case XML_ERROR_UNKNOWN_ENCODING:
    case XML_ERROR_INCORRECT_ENCODING:
      return "expected the encoding UTF-8, UTF-16, ISO-8859-1 or US-ASCII";
    case XML_ERROR_UNCLOSED_CDATA_SECTION:
      return "expected ]]>";
    default:
      return "expected well-formed XML";
  }
}

// Of an element that is open, the end is what is missing.
std::string Expectation(XML_Error error, std::string_view openElement) {
  const bool isEnd =
      error == XML_ERROR_TAG_MISMATCH || (error == XML_ERROR_NO_ELEMENTS && !openElement.empty());
  return isEnd ? Concatenate({"expected </", openElement, ">"}) : std::string(Expectation(error));
}

// One run of the parser. No exception may pass through the parser, which is C: what goes wrong in
// a handler is kept, stops the parser and is raised afterwards.
class Reader {
 public:
  Reader(XmlTree& tree, std::string_view source, XmlEncoding encoding,
         std::string_view documentName)
      : tree_(tree), source_(source), documentName_(documentName), parser_(MakeParser(encoding)) {
    XML_SetUserData(parser_.get(), this);
    XML_SetElementHandler(parser_.get(), OnStart, OnEnd);
    XML_SetCharacterDataHandler(parser_.get(), OnText);
    XML_SetStartDoctypeDeclHandler(parser_.get(), OnDoctype);
  }

  XmlTree::NodeId Read() {
    if (source_.size() > static_cast<std::size_t>(std::numeric_limits<int>::max())) {
      throw std::bad_alloc();
    }
    const auto length = static_cast<int>(source_.size());
    const XML_Status status = XML_Parse(parser_.get(), source_.data(), length, XML_TRUE);
    if (status != XML_STATUS_OK && !failure_) failure_ = ParserError();
    if (!failure_) return root_;
    if (root_ != XmlTree::kNone) tree_.Remove(root_);
    throw *failure_;
  }

 private:
  template <typename Step>
  static void Run(void* userData, Step step) {
    auto& self = *static_cast<Reader*>(userData);
    if (self.failure_) return;
    try {
      step(self);
    } catch (...) {
      self.failure_ = CurrentError();
      XML_StopParser(self.parser_.get(), XML_FALSE);
    }
  }

  static void XMLCALL OnStart(void* userData, const XML_Char* name, const XML_Char** attributes) {
    Run(userData, [=](Reader& self) { self.Start(name, attributes); });
  }

  static void XMLCALL OnEnd(void* userData, const XML_Char* /*name*/) {
    Run(userData, [](Reader& self) { self.End(); });
  }

  static void XMLCALL OnText(void* userData, const XML_Char* text, int length) {
    const std::string_view characters(text, static_cast<std::size_t>(length));
    Run(userData, [=](Reader& self) { self.Text(characters); });
  }

  static void XMLCALL OnDoctype(void* userData, const XML_Char* name, const XML_Char* /*system*/,
                                const XML_Char* /*publicId*/, int /*hasInternalSubset*/) {
    Run(userData, [=](Reader& self) {
      throw self.Error(Concatenate({"expected an element, found <!DOCTYPE ", name, ">"}));
    });
  }

  void Start(const XML_Char* name, const XML_Char** namesAndValues) {
    std::vector<XmlAttribute> attributes;
    for (; *namesAndValues != nullptr; namesAndValues += 2) {
      attributes.push_back({namesAndValues[0], namesAndValues[1]});
    }
    const std::string problem = namespaces_.Open(name, attributes);
    if (!problem.empty()) throw Error(problem);
    const XmlTree::NodeId element = tree_.AddElement(name, std::move(attributes));
    if (open_ == XmlTree::kNone) {
      root_ = element;
    } else {
      tree_.AppendChild(open_, element);
    }
    open_ = element;
  }

  void End() {
    namespaces_.Close(tree_.At(open_).attributes);
    open_ = tree_.At(open_).parent;
  }

  void Text(std::string_view text) { tree_.AppendText(open_, text == "\n" ? LineEnd() : text); }

  // The parser hands over every line end as a line feed, each by itself.
  [[nodiscard]] std::string_view LineEnd() const {
    const std::string_view here = Here();
    if (here.starts_with("\r\n")) return "\r\n";
    return here.starts_with("\r") ? "\r" : "\n";
  }

  // The source from the parser's place on.
  [[nodiscard]] std::string_view Here() const {
    const XML_Index at = XML_GetCurrentByteIndex(parser_.get());
    const std::size_t offset = at < 0 ? source_.size() : static_cast<std::size_t>(at);
    return source_.substr(std::min(offset, source_.size()));
  }

  [[nodiscard]] AutomationError ParserError() const {
    const XML_Error error = XML_GetErrorCode(parser_.get());
    if (error == XML_ERROR_NO_MEMORY) return {error_number::kOutOfMemory, "Out of memory"};
    return Error(
        Concatenate({Expectation(error, tree_.At(open_).content), ", found ", Excerpt(Here())}));
  }

  [[nodiscard]] AutomationError Error(std::string_view problem) const {
    const std::string description =
        Concatenate({"XML error", documentName_.empty() ? "" : " in ", documentName_, " at line ",
                     std::to_string(XML_GetCurrentLineNumber(parser_.get())), ", column ",
                     std::to_string(XML_GetCurrentColumnNumber(parser_.get()) + 1), ": ", problem});
    return {error_number::kComponent, description, "DataIO"};
  }

  XmlTree& tree_;
  std::string_view source_;
  std::string_view documentName_;
  ParserPointer parser_;
  XmlNamespaces namespaces_;
  XmlTree::NodeId root_ = XmlTree::kNone;
  XmlTree::NodeId open_ = XmlTree::kNone;  // the innermost element that is still open
  std::optional<AutomationError> failure_;
};

}  // namespace

XmlTree::NodeId ParseXml(XmlTree& tree, std::string_view source, XmlEncoding encoding,
                         std::string_view documentName) {
  return Reader(tree, source, encoding, documentName).Read();
}

}  // namespace zav
