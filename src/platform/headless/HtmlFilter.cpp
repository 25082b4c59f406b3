#include "platform/headless/HtmlFilter.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <vector>

#include "platform/headless/StyleFilter.h"
#include "platform/headless/TextMetrics.h"

namespace zav {
namespace {

constexpr std::string_view kBlanks = " \t\n\r\f";

enum class ElementKind {
  Unknown,    // left out, its content stays
  Hidden,     // left out with its content
  Document,   // stands around everything anyway
  Style,      // style rules
  Void,       // has no content
  Inline,
  Block,      // ends an open paragraph
  ListItem,   // ends an open item of the same list
  Table,
  TableGroup,  // the parts of tables stand only in one another
  TableRow,
  TableCell,
};

struct KnownElement {
  std::string_view name;
  ElementKind kind;
};

constexpr std::array<KnownElement, 81> kElements{{
    {"html", ElementKind::Document},       {"head", ElementKind::Document},
    {"body", ElementKind::Document},       {"style", ElementKind::Style},
    {"script", ElementKind::Hidden},       {"title", ElementKind::Hidden},
    {"noscript", ElementKind::Hidden},     {"iframe", ElementKind::Hidden},
    {"object", ElementKind::Hidden},       {"applet", ElementKind::Hidden},
    {"embed", ElementKind::Hidden},        {"textarea", ElementKind::Hidden},
    {"select", ElementKind::Hidden},       {"template", ElementKind::Hidden},
    {"svg", ElementKind::Hidden},          {"math", ElementKind::Hidden},
    {"frameset", ElementKind::Hidden},     {"noframes", ElementKind::Hidden},
    {"audio", ElementKind::Hidden},        {"video", ElementKind::Hidden},
    {"canvas", ElementKind::Hidden},       {"xmp", ElementKind::Hidden},
    {"br", ElementKind::Void},             {"hr", ElementKind::Void},
    {"img", ElementKind::Void},            {"span", ElementKind::Inline},
    {"b", ElementKind::Inline},            {"strong", ElementKind::Inline},
    {"i", ElementKind::Inline},            {"em", ElementKind::Inline},
    {"u", ElementKind::Inline},            {"s", ElementKind::Inline},
    {"strike", ElementKind::Inline},       {"del", ElementKind::Inline},
    {"ins", ElementKind::Inline},          {"small", ElementKind::Inline},
    {"big", ElementKind::Inline},          {"sub", ElementKind::Inline},
    {"sup", ElementKind::Inline},          {"font", ElementKind::Inline},
    {"code", ElementKind::Inline},         {"tt", ElementKind::Inline},
    {"kbd", ElementKind::Inline},          {"samp", ElementKind::Inline},
    {"var", ElementKind::Inline},          {"cite", ElementKind::Inline},
    {"dfn", ElementKind::Inline},          {"q", ElementKind::Inline},
    {"abbr", ElementKind::Inline},         {"label", ElementKind::Inline},
    {"nobr", ElementKind::Inline},         {"button", ElementKind::Inline},
    {"p", ElementKind::Block},             {"div", ElementKind::Block},
    {"center", ElementKind::Block},        {"blockquote", ElementKind::Block},
    {"pre", ElementKind::Block},           {"address", ElementKind::Block},
    {"h1", ElementKind::Block},            {"h2", ElementKind::Block},
    {"h3", ElementKind::Block},            {"h4", ElementKind::Block},
    {"h5", ElementKind::Block},            {"h6", ElementKind::Block},
    {"ul", ElementKind::Block},            {"ol", ElementKind::Block},
    {"dl", ElementKind::Block},            {"fieldset", ElementKind::Block},
    {"form", ElementKind::Block},          {"li", ElementKind::ListItem},
    {"dt", ElementKind::ListItem},         {"dd", ElementKind::ListItem},
    {"table", ElementKind::Table},         {"thead", ElementKind::TableGroup},
    {"tbody", ElementKind::TableGroup},    {"tfoot", ElementKind::TableGroup},
    {"tr", ElementKind::TableRow},         {"td", ElementKind::TableCell},
    {"th", ElementKind::TableCell},        {"center", ElementKind::Block},
    {"section", ElementKind::Block},
}};

ElementKind KindOf(std::string_view name) {
  const auto found = std::find_if(kElements.begin(), kElements.end(),
                                  [&](const KnownElement& known) { return known.name == name; });
  return found == kElements.end() ? ElementKind::Unknown : found->kind;
}
}  // namespace
}  // namespace zav
