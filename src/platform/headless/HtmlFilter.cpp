#include "platform/headless/HtmlFilter.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <span>
#include <system_error>
#include <utility>
#include <vector>

#include "automation/Text.h"
#include "platform/headless/HtmlTokens.h"
#include "platform/headless/StyleFilter.h"
#include "platform/headless/TextMetrics.h"

namespace zav {
namespace {

constexpr std::string_view kBlanks = " \t\n\r\f";

using Names = std::span<const std::string_view>;

bool IsOneOf(Names names, std::string_view name) {
  return std::find(names.begin(), names.end(), name) != names.end();
}

constexpr std::array<std::string_view, 15> kHidden{
    "script",   "title",    "noscript", "iframe", "object", "applet", "textarea", "select",
    "template", "noframes", "audio",    "video",  "canvas", "xmp",    "svg"};
constexpr std::array<std::string_view, 3> kVoid{"br", "hr", "img"};
constexpr std::array<std::string_view, 28> kInline{
    "span", "b",     "strong", "i",    "em",    "u",    "s",    "strike", "del",  "ins",
    "big",  "small", "sub",    "sup",  "font",  "code", "tt",   "kbd",    "samp", "var",
    "cite", "dfn",   "q",      "abbr", "label", "a",    "nobr", "button"};
constexpr std::array<std::string_view, 24> kBlock{
    "p",    "div", "center", "blockquote", "pre",   "address", "h1",      "h2",
    "h3",   "h4",  "h5",     "h6",         "ul",    "ol",      "dl",      "fieldset",
    "form", "li",  "dt",     "dd",         "table", "section", "article", "main"};
constexpr std::array<std::string_view, 3> kTableGroup{"thead", "tbody", "tfoot"};
constexpr std::array<std::string_view, 2> kTableCell{"td", "th"};
constexpr std::array<std::string_view, 13> kKept{
    "align", "valign", "color", "bgcolor", "face",        "size",       "type",
    "width", "border", "start", "dir",     "cellpadding", "cellspacing"};
constexpr std::array<std::string_view, 2> kSpans{"colspan", "rowspan"};

bool IsTablePart(std::string_view name) {
  return name == "table" || name == "tr" || IsOneOf(kTableGroup, name);
}

void AppendCharacter(std::string& text, char32_t character, std::string_view bytes) {
  const bool isBroken = character == 0 || character == 0xFFFD;
  text += isBroken ? std::string_view("\xEF\xBF\xBD") : bytes;
}

// Well-formed UTF-8 without NULs, no longer than the limit.
std::string Cleaned(std::string_view html) {
  html = html.substr(0, html_limit::kBytes);
  std::string clean;
  clean.reserve(html.size());
  while (!html.empty()) {
    std::string_view rest = html;
    const char32_t character = TakeCharacter(rest);
    AppendCharacter(clean, character, html.substr(0, html.size() - rest.size()));
    html = rest;
  }
  return clean;
}

std::string Replaced(std::string_view text, char what, std::string_view with) {
  std::string replaced;
  for (const char c : text) {
    if (c == what) {
      replaced += with;
    } else {
      replaced += c;
    }
  }
  return replaced;
}

std::string Attribute(std::string_view name, std::string_view value) {
  std::string text(" ");
  return text.append(name).append("=\"").append(Replaced(value, '"', "&quot;")).append("\"");
}

std::string BoundedSpan(std::string_view value) {
  int span = 1;
  std::from_chars(value.data(), value.data() + value.size(), span);
  return std::to_string(std::clamp(span, 1, html_limit::kSpan));
}

// The seven sizes of the font element, absolute or counted from the middle one.
std::string FontSizeStyle(std::string_view size) {
  static constexpr std::array<std::string_view, 7> kSizes{"10px", "13px", "16px", "18px",
                                                          "24px", "32px", "48px"};
  constexpr int kMiddle = 3;
  const bool isRelative = size.starts_with('+') || size.starts_with('-');
  if (size.starts_with('+')) size.remove_prefix(1);
  int step = kMiddle;
  if (std::from_chars(size.data(), size.data() + size.size(), step).ec != std::errc()) return {};
  step = std::clamp(step, -7, 7) + (isRelative ? kMiddle : 0);
  const auto index = static_cast<std::size_t>(std::clamp(step, 1, 7) - 1);
  return "font-size:" + std::string(kSizes[index]) + ";";
}

// What an attribute says about the looks of its element and the layout engine takes from a style
// only; empty for other attributes.
std::string StyleOfAttribute(std::string_view element, const HtmlAttribute& attribute) {
  if (attribute.name == "nowrap") return "white-space:nowrap;";
  if (attribute.name == "size" && element == "font") return FontSizeStyle(attribute.value);
  if (attribute.name != "height") return {};
  std::string style = "height:" + WithBoundedNumbers(attribute.value, html_limit::kNumber);
  return style += attribute.value.ends_with('%') ? ";" : "px;";
}

// An attribute as the layout engine may see it; empty for one that it does not know.
std::string BearableAttribute(const HtmlAttribute& attribute) {
  static constexpr std::array<std::string_view, 4> kTexts{"id", "class", "src", "background"};
  const auto& [name, value] = attribute;
  if (IsOneOf(kSpans, name)) return Attribute(name, BoundedSpan(value));
  if (IsOneOf(kTexts, name)) return Attribute(name, value);
  const bool isNoBorder = name == "border" && value == "0";
  if (isNoBorder || !IsOneOf(kKept, name)) return {};
  return Attribute(name, WithBoundedNumbers(value, html_limit::kNumber));
}

// An element's own style comes last, so that it wins.
std::string BearableAttributes(const HtmlToken& tag) {
  std::string attributes;
  std::string hints;
  std::string style;
  for (const HtmlAttribute& attribute : tag.attributes) {
    const std::string hint = StyleOfAttribute(tag.name, attribute);
    hints += hint;
    if (attribute.name == "style") style += BearableDeclarations(attribute.value);
    if (hint.empty()) attributes += BearableAttribute(attribute);
  }
  style.insert(0, hints);
  return style.empty() ? attributes : attributes + Attribute("style", style);
}

bool IsBlank(char c) { return kBlanks.find(c) != std::string_view::npos; }

// The part of text that makes no more pieces than there are left, which are taken off: a piece is a
// word or a blank, as the layout engine has them.
std::string_view TakePieces(std::string_view text, std::size_t& piecesLeft) {
  bool inWord = false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool isPiece = IsBlank(text[i]) || !inWord;
    if (isPiece && piecesLeft == 0) return text.substr(0, i);
    if (isPiece) --piecesLeft;
    inWord = !IsBlank(text[i]);
  }
  return text;
}

// Writes the page again, well nested.
class PageWriter {
 public:
  std::string Write(std::string_view page) {
    HtmlTokens tokens(page);
    while (!tokens.AtEnd() && !IsFull()) Take(tokens.Next(), tokens);
    CloseDownTo(0);
    return "<html><head><style>" + rules_ + "</style></head><body" + bodyAttributes_ + ">" + out_ +
           "</body></html>";
  }

 private:
  [[nodiscard]] bool IsFull() const {
    return elements_ >= html_limit::kElements || piecesLeft_ == 0;
  }

  void Take(const HtmlToken& token, HtmlTokens& tokens) {
    if (token.kind == HtmlToken::Kind::Text) {
      Text(token.text);
    } else if (token.kind == HtmlToken::Kind::StartTag) {
      Start(token, tokens);
    } else if (token.kind == HtmlToken::Kind::EndTag) {
      End(token.name);
    }
  }

  void Text(std::string_view text) {
    const bool isBlank = std::all_of(text.begin(), text.end(), IsBlank);
    if (InTableFrame() && isBlank) return;
    EnsureCell();
    out_ += Replaced(TakePieces(text, piecesLeft_), '<', "&lt;");
  }

  void Start(const HtmlToken& tag, HtmlTokens& tokens) {
    if (tag.name == "style") {
      rules_ += BearableRules(tokens.TakeContent(tag.name), rulesLeft_);
    } else if (IsOneOf(kHidden, tag.name)) {
      tokens.TakeContent(tag.name);
    } else if (tag.name == "body") {
      if (bodyAttributes_.empty()) bodyAttributes_ = BearableAttributes(tag);
    } else if (IsOneOf(kVoid, tag.name)) {
      EnsureCell();
      Emit(tag);
    } else if (IsOneOf(kInline, tag.name)) {
      StartInline(tag);
    } else if (IsOneOf(kBlock, tag.name)) {
      StartBlock(tag);
    } else {
      StartTablePart(tag);
    }
  }

  void StartInline(const HtmlToken& tag) {
    const bool standsAlone = tag.name == "a" || tag.name == "nobr" || tag.name == "button";
    if (standsAlone) CloseOpen({{tag.name}}, {});
    EnsureCell();
    Open(tag);
  }

  void StartBlock(const HtmlToken& tag) {
    static constexpr std::array<std::string_view, 1> kItem{"li"};
    static constexpr std::array<std::string_view, 2> kLists{"ul", "ol"};
    static constexpr std::array<std::string_view, 2> kTerms{"dt", "dd"};
    static constexpr std::array<std::string_view, 1> kTermList{"dl"};
    static constexpr std::array<std::string_view, 1> kParagraph{"p"};
    if (tag.name == "li") CloseOpen(kItem, kLists);
    if (IsOneOf(kTerms, tag.name)) CloseOpen(kTerms, kTermList);
    CloseOpen(kParagraph, {});
    EnsureCell();
    Open(tag);
  }

  // Parts of a table stand in it as they must; outside of one they are left out.
  void StartTablePart(const HtmlToken& tag) {
    const bool isRow = tag.name == "tr";
    const bool isCell = IsOneOf(kTableCell, tag.name);
    const bool isGroup = IsOneOf(kTableGroup, tag.name);
    const std::size_t table = LastTable();
    if (table == open_.size() || (!isRow && !isCell && !isGroup)) return;
    std::size_t keep = table + 1;
    const auto isNext = [&](Names names) {
      return keep < open_.size() && IsOneOf(names, open_[keep]);
    };
    if (!isGroup && isNext(kTableGroup)) ++keep;
    if (isCell && isNext({{std::string_view("tr")}})) ++keep;
    CloseDownTo(keep);
    if (isCell && open_.back() != "tr") OpenImplied("tr");
    Open(tag);
  }

  // Whether text or an element here would stand in a table, but in no cell of it.
  [[nodiscard]] bool InTableFrame() const { return !open_.empty() && IsTablePart(open_.back()); }

  void EnsureCell() {
    if (!InTableFrame()) return;
    if (open_.back() != "tr") OpenImplied("tr");
    OpenImplied("td");
  }

  void OpenImplied(std::string_view name) {
    HtmlToken tag;
    tag.name = name;
    Open(tag);
  }

  void Emit(const HtmlToken& tag) {
    ++elements_;
    out_ += "<" + tag.name + BearableAttributes(tag) + ">";
  }

  // Room is kept for a table's row and cell, so that it is never cut between them.
  void Open(const HtmlToken& tag) {
    const bool isTableInside = tag.name == "tr" || IsOneOf(kTableCell, tag.name);
    if (open_.size() >= html_limit::kDepth + (isTableInside ? 2 : 0)) return;
    Emit(tag);
    open_.push_back(tag.name);
  }

  void End(const std::string& name) {
    const std::size_t first = IsTablePart(name) || IsOneOf(kTableCell, name) ? 0 : AfterLastCell();
    for (std::size_t i = open_.size(); i > first; --i) {
      if (open_[i - 1] != name) continue;
      CloseDownTo(i - 1);
      return;
    }
  }

  // Closes the innermost open element of one of the names, unless a boundary or a cell stands
  // between.
  void CloseOpen(Names names, Names boundaries) {
    const std::size_t first = AfterLastCell();
    for (std::size_t i = open_.size(); i > first; --i) {
      if (IsOneOf(boundaries, open_[i - 1])) return;
      if (!IsOneOf(names, open_[i - 1])) continue;
      CloseDownTo(i - 1);
      return;
    }
  }

  void CloseDownTo(std::size_t count) {
    while (open_.size() > count) {
      out_ += "</" + open_.back() + ">";
      open_.pop_back();
    }
  }

  // Elements within a cell, or within a table, end before it does.
  [[nodiscard]] std::size_t AfterLastCell() const {
    std::size_t after = open_.size();
    while (after > 0 && !IsTablePart(open_[after - 1]) && !IsOneOf(kTableCell, open_[after - 1])) {
      --after;
    }
    return after;
  }

  [[nodiscard]] std::size_t LastTable() const {
    const auto found = std::find(open_.rbegin(), open_.rend(), "table");
    return found == open_.rend() ? open_.size()
                                 : static_cast<std::size_t>(open_.rend() - found) - 1;
  }

  std::vector<std::string> open_;
  std::size_t elements_ = 0;
  std::size_t piecesLeft_ = html_limit::kPieces;
  std::size_t rulesLeft_ = html_limit::kRules;
  std::string rules_;
  std::string bodyAttributes_;
  std::string out_;
};

}  // namespace

std::string BearableHtml(std::string_view html) { return PageWriter().Write(Cleaned(html)); }

}  // namespace zav
