#include "document/XmlParser.h"

#include <algorithm>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "automation/AutomationError.h"
#include "automation/Text.h"
#include "document/XmlNamespaces.h"

namespace zav {

namespace {

constexpr std::size_t kExcerptCharacters = 20;
constexpr std::string_view kBlanks = " \t\r\n";
constexpr std::string_view kSectionEnd = "]]>";
constexpr char32_t kPastCharacters = 0x110000;
constexpr char32_t kPastAscii = 0x80;

// What an error says was expected.
constexpr std::string_view kAllowed = "expected what may stand here in XML";
constexpr std::string_view kEnd = "expected the end of what begins here";
constexpr std::string_view kElement = "expected an element";
constexpr std::string_view kDeclaration = "expected a well-formed XML declaration";

struct Range {
  char32_t first;
  char32_t last;
};

constexpr Range kNameStarts[] = {
    {':', ':'},       {'A', 'Z'},       {'_', '_'},       {'a', 'z'},
    {0xC0, 0xD6},     {0xD8, 0xF6},     {0xF8, 0x2FF},    {0x370, 0x37D},
    {0x37F, 0x1FFF},  {0x200C, 0x200D}, {0x2070, 0x218F}, {0x2C00, 0x2FEF},
    {0x3001, 0xD7FF}, {0xF900, 0xFDCF}, {0xFDF0, 0xFFFD}, {0x10000, 0xEFFFF}};
constexpr Range kOtherNameCharacters[] = {
    {'-', '.'}, {'0', '9'}, {0xB7, 0xB7}, {0x300, 0x36F}, {0x203F, 0x2040}};

bool IsOneOf(std::span<const Range> ranges, char32_t character) {
  return std::any_of(ranges.begin(), ranges.end(), [=](const Range& range) {
    return character >= range.first && character <= range.last;
  });
}

bool StartsName(char32_t character) { return IsOneOf(kNameStarts, character); }

bool ContinuesName(char32_t character) {
  return StartsName(character) || IsOneOf(kOtherNameCharacters, character);
}

bool IsBlank(char character) { return Contains(kBlanks, {&character, 1}); }

bool IsForbidden(char32_t character) {
  const bool isControl = character < ' ' && !IsBlank(static_cast<char>(character));
  return isControl || character == 0xFFFE || character == 0xFFFF;
}

std::string ByteText(char byte) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  const auto value = static_cast<unsigned char>(byte);
  return std::string("the byte 0x") + kDigits[value >> 4] + kDigits[value & 0xF];
}

// The beginning of text as it can stand in a message of one line.
std::string Excerpt(std::string_view text) {
  if (text.empty()) return "the end of the text";
  std::string_view excerpt = FirstCharacters(text, kExcerptCharacters);
  std::size_t length = 0;
  while (length < excerpt.size() && static_cast<unsigned char>(excerpt[length]) >= ' ') ++length;
  excerpt = excerpt.substr(0, length);
  if (excerpt.empty() || !IsWellFormedUtf8(excerpt)) return ByteText(text.front());
  return "\"" + std::string(excerpt) + "\"";
}

std::string Latin1ToUtf8(std::string_view bytes) {
  std::string text;
  for (const char byte : bytes) AppendUtf8(text, static_cast<unsigned char>(byte));
  return text;
}

// The digit's value, or nothing for what is no digit of that base.
std::optional<char32_t> DigitValue(char digit, char32_t base) {
  const auto code = static_cast<unsigned char>(digit);
  if (code >= '0' && code <= '9') return code - '0';
  const char32_t letter = code | 0x20U;
  if (base == 16 && letter >= 'a' && letter <= 'f') return letter - 'a' + 10;
  return std::nullopt;
}

// One run through a text. It goes forward only, and nothing recurses.
class Reader {
 public:
  Reader(XmlTree& tree, std::string_view source, std::string_view documentName)
      : tree_(tree), source_(source), documentName_(documentName) {}

  XmlTree::NodeId Read(XmlEncoding encoding) {
    try {
      ReadDocument(encoding);
    } catch (...) {
      if (root_ != XmlTree::kNone) tree_.Remove(root_);
      throw;
    }
    return root_;
  }

 private:
  void ReadDocument(XmlEncoding encoding) {
    if (Starts("<?xml") && source_.size() > 5 && IsBlank(source_[5])) ReadDeclaration(encoding);
    SkipMiscellaneous();
    if (Take("<!DOCTYPE")) RefuseDoctype();
    if (!Take("<")) Fail(at_, kElement);
    ReadStartTag();
    while (open_ != XmlTree::kNone) ReadContent();
    SkipMiscellaneous();
    if (!AtEnd() && !Starts("</")) Fail(at_, "expected nothing after the document element");
    if (!AtEnd()) Fail(at_ + 1, kAllowed);
  }

  // Errors

  [[noreturn]] void Raise(std::size_t at, const std::string& problem) const {
    std::size_t line = 1;
    std::size_t lineStart = 0;
    for (std::size_t i = 0; i < at; ++i) {
      const bool isLoneReturn = source_[i] == '\r' && !source_.substr(i + 1).starts_with('\n');
      if (source_[i] != '\n' && !isLoneReturn) continue;
      ++line;
      lineStart = i + 1;
    }
    const std::size_t column = CharacterCount(source_.substr(lineStart, at - lineStart)) + 1;
    std::string description = "XML error";
    if (!documentName_.empty()) description += " in " + std::string(documentName_);
    description += " at line " + std::to_string(line) + ", column " + std::to_string(column);
    throw AutomationError(error_number::kComponent, description + ": " + problem, "DataIO");
  }

  [[noreturn]] void Fail(std::size_t at, std::string_view expectation) const {
    Raise(at, std::string(expectation) + ", found " + Excerpt(source_.substr(at)));
  }

  // What stands next is not what must stand here.
  [[noreturn]] void FailHere() const {
    if (AtEnd()) Fail(token_, kEnd);
    Fail(at_, kAllowed);
  }

  [[noreturn]] void RefuseDoctype() {
    TakeBlanks();
    Raise(token_, "expected an element, found <!DOCTYPE " + std::string(TakeName()) + ">");
  }

  // Characters

  [[nodiscard]] bool AtEnd() const { return at_ == source_.size(); }
  [[nodiscard]] char Next() const { return AtEnd() ? '\0' : source_[at_]; }
  [[nodiscard]] bool Starts(std::string_view text) const {
    return source_.substr(at_).starts_with(text);
  }
  [[nodiscard]] std::string_view Since(std::size_t start) const {
    return source_.substr(start, at_ - start);
  }

  bool Take(std::string_view text) {
    if (!Starts(text)) return false;
    at_ += text.size();
    return true;
  }

  void Expect(char character) {
    if (Next() != character) FailHere();
    ++at_;
  }

  // Whether there are any.
  bool TakeBlanks() {
    const std::size_t start = at_;
    at_ = std::min(source_.find_first_not_of(kBlanks, at_), source_.size());
    return at_ > start;
  }

  char32_t TakeCharacter() {
    if (AtEnd()) FailHere();
    std::size_t next = at_;
    const std::optional<char32_t> character = zav::TakeCharacter(source_, next);
    if (!character || IsForbidden(*character) || *character >= pastCharacters_) FailHere();
    at_ = next;
    return *character;
  }

  std::string_view TakeName() {
    const std::size_t start = at_;
    if (AtEnd()) FailHere();
    bool (*belongs)(char32_t) = StartsName;
    for (;;) {
      const std::size_t before = at_;
      if (belongs(TakeCharacter())) {
        belongs = ContinuesName;
        continue;
      }
      at_ = before;
      if (before == start) FailHere();
      return Since(start);
    }
  }

  // Up to the end mark and past it.
  std::string_view TakeUntil(std::string_view end) {
    const std::size_t start = at_;
    while (!Starts(end)) TakeCharacter();
    const std::string_view taken = Since(start);
    at_ += end.size();
    return taken;
  }

  // What stands around the document element

  void SkipMiscellaneous() {
    for (;;) {
      TakeBlanks();
      token_ = at_;
      if (Take("<!--")) {
        SkipComment();
      } else if (Take("<?")) {
        SkipInstruction();
      } else {
        return;
      }
    }
  }

  void SkipComment() {
    TakeUntil("--");
    Expect('>');
  }

  void SkipInstruction() {
    const std::string_view target = TakeName();
    if (target == "xml") Fail(token_, "expected an XML declaration only at the beginning");
    if (EqualIgnoringCase(target, "xml")) FailHere();
    if (!Starts("?>") && !TakeBlanks()) FailHere();
    TakeUntil("?>");
  }

  void ReadDeclaration(XmlEncoding encoding) {
    at_ += 5;
    if (!TakeSetting("version")) Fail(at_, kDeclaration);
    const std::optional<std::string_view> name = TakeSetting("encoding");
    const std::size_t nameAt = at_ - (name ? name->size() + 1 : 0);
    if (name && (name->empty() || !StartsName(static_cast<unsigned char>(name->front())))) {
      Fail(nameAt, kDeclaration);
    }
    const std::optional<std::string_view> standalone = TakeSetting("standalone");
    if (standalone && standalone != "yes" && standalone != "no") Fail(at_, kDeclaration);
    TakeBlanks();
    if (!Take("?>")) Fail(at_, kDeclaration);
    if (name && encoding == XmlEncoding::Declared) TakeEncoding(*name, nameAt);
  }

  // The value of what a declaration sets, or nothing when it does not set that.
  std::optional<std::string_view> TakeSetting(std::string_view name) {
    const std::size_t before = at_;
    if (!TakeBlanks() || !Take(name)) {
      at_ = before;
      return std::nullopt;
    }
    TakeBlanks();
    Expect('=');
    TakeBlanks();
    const char quote = TakeQuote();
    const std::string_view value = TakeUntil({&quote, 1});
    const bool isPlain = std::all_of(value.begin(), value.end(), [](char character) {
      return ContinuesName(static_cast<unsigned char>(character)) && character != ':';
    });
    if (!isPlain) Fail(at_ - value.size() - 1, kDeclaration);
    return value;
  }

  char TakeQuote() {
    if (Next() != '"' && Next() != '\'') FailHere();
    return source_[at_++];
  }

  void TakeEncoding(std::string_view name, std::size_t nameAt) {
    if (EqualIgnoringCase(name, "ISO-8859-1")) {
      const std::string_view read = source_.substr(0, at_);
      converted_ = std::string(read) + Latin1ToUtf8(source_.substr(at_));
      source_ = converted_;
    } else if (EqualIgnoringCase(name, "US-ASCII")) {
      pastCharacters_ = kPastAscii;
    } else if (!EqualIgnoringCase(name, "UTF-8")) {
      Fail(nameAt, "expected the encoding UTF-8, UTF-16, ISO-8859-1 or US-ASCII");
    }
  }

  // What stands in an element

  void ReadContent() {
    token_ = at_;
    if (AtEnd()) Fail(at_, EndTag());
    if (Take("<!--")) {
      SkipComment();
    } else if (Take("<![CDATA[")) {
      ReadSection();
    } else if (Take("<?")) {
      SkipInstruction();
    } else if (Take("</")) {
      ReadEndTag();
    } else if (Take("<")) {
      ReadStartTag();
    } else if (Next() == '&') {
      std::string text;
      TakeReference(text);
      tree_.AppendText(open_, text);
    } else {
      ReadText();
    }
  }

  [[nodiscard]] std::string EndTag() const { return "expected </" + tree_.At(open_).content + ">"; }

  void ReadText() {
    while (!AtEnd() && Next() != '<' && Next() != '&') {
      if (Starts(kSectionEnd)) Fail(at_ + 2, kAllowed);
      TakeCharacter();
    }
    tree_.AppendText(open_, Since(token_));
  }

  void ReadSection() {
    const std::size_t start = at_;
    while (!Starts(kSectionEnd)) {
      if (AtEnd()) Fail(at_, "expected ]]>");
      TakeCharacter();
    }
    if (at_ > start) tree_.AppendText(open_, Since(start));
    at_ += kSectionEnd.size();
  }

  // The character that a reference stands for, at the end of text.
  void TakeReference(std::string& text) {
    const std::size_t start = at_++;
    if (Take("#")) {
      AppendUtf8(text, TakeCharacterNumber(start));
      return;
    }
    const std::string_view name = TakeName();
    Expect(';');
    static constexpr std::pair<std::string_view, char> kEntities[] = {
        {"amp", '&'}, {"lt", '<'}, {"gt", '>'}, {"quot", '"'}, {"apos", '\''}};
    for (const auto& [entity, character] : kEntities) {
      if (entity != name) continue;
      text += character;
      return;
    }
    Fail(start, "expected amp, lt, gt, quot or apos as entity");
  }

  char32_t TakeCharacterNumber(std::size_t start) {
    const char32_t base = Take("x") ? 16 : 10;
    if (!DigitValue(Next(), base)) FailHere();
    char32_t number = 0;
    while (const std::optional<char32_t> digit = DigitValue(Next(), base)) {
      number = std::min<char32_t>(number * base + *digit, kPastCharacters);
      ++at_;
    }
    Expect(';');
    const bool isSurrogate = number >= 0xD800 && number <= 0xDFFF;
    if (isSurrogate || IsForbidden(number) || number >= kPastCharacters) {
      Fail(start, "expected the number of a character");
    }
    return number;
  }

  void ReadEndTag() {
    const std::size_t nameAt = at_;
    const std::string_view name = TakeName();
    TakeBlanks();
    Expect('>');
    if (name != tree_.At(open_).content) Fail(nameAt, EndTag());
    CloseElement();
  }

  void ReadStartTag() {
    const std::string_view name = TakeName();
    std::vector<XmlAttribute> attributes = ReadAttributes();
    const bool isEmpty = Take("/");
    Expect('>');
    const std::string problem = namespaces_.Open(name, attributes);
    if (!problem.empty()) Raise(token_, problem);
    const XmlTree::NodeId element = tree_.AddElement(name, std::move(attributes));
    if (open_ == XmlTree::kNone) {
      root_ = element;
    } else {
      tree_.AppendChild(open_, element);
    }
    open_ = element;
    if (isEmpty) CloseElement();
  }

  void CloseElement() {
    const XmlTree::Node& element = tree_.At(open_);
    namespaces_.Close(element.attributes);
    open_ = element.parent;
  }

  std::vector<XmlAttribute> ReadAttributes() {
    std::vector<XmlAttribute> attributes;
    std::set<std::string_view> names;
    for (;;) {
      const bool isApart = TakeBlanks();
      if (Next() == '>' || Next() == '/') return attributes;
      if (!isApart) FailHere();
      const std::size_t nameAt = at_;
      const std::string_view name = TakeName();
      if (!names.insert(name).second) Fail(nameAt, "expected each attribute once");
      TakeBlanks();
      Expect('=');
      TakeBlanks();
      attributes.push_back({std::string(name), ReadValue()});
    }
  }

  // Every blank in a value counts as a space, a line end of two characters as one.
  std::string ReadValue() {
    const char quote = TakeQuote();
    std::string value;
    while (Next() != quote) {
      const std::size_t start = at_;
      if (Next() == '<') FailHere();
      if (Next() == '&') {
        TakeReference(value);
      } else if (Take("\r\n") || IsBlank(Next())) {
        at_ = std::max(at_, start + 1);
        value += ' ';
      } else {
        TakeCharacter();
        value += Since(start);
      }
    }
    ++at_;
    return value;
  }

  XmlTree& tree_;
  std::string_view source_;
  std::string converted_;  // the source when it was not UTF-8
  std::string_view documentName_;
  char32_t pastCharacters_ = kPastCharacters;  // of the document's encoding
  std::size_t at_ = 0;
  std::size_t token_ = 0;  // where what is being read begins
  XmlNamespaces namespaces_;
  XmlTree::NodeId root_ = XmlTree::kNone;
  XmlTree::NodeId open_ = XmlTree::kNone;  // the innermost element that is still open
};

}  // namespace

XmlTree::NodeId ParseXml(XmlTree& tree, std::string_view source, XmlEncoding encoding,
                         std::string_view documentName) {
  return Reader(tree, source, documentName).Read(encoding);
}

}  // namespace zav
