#include "platform/headless/HtmlElements.h"

#include <litehtml/el_body.h>
#include <litehtml/el_div.h>
#include <litehtml/el_font.h>
#include <litehtml/el_image.h>
#include <litehtml/el_para.h>
#include <litehtml/el_table.h>
#include <litehtml/el_td.h>
#include <litehtml/el_tr.h>

#include <algorithm>
#include <string>

namespace zav {
namespace {

template <typename Base>
class Limited : public Base {
 public:
  Limited(const std::shared_ptr<litehtml::document>& document, HtmlBudget& budget)
      : Base(document), budget_(budget) {}

  int render(int x, int y, int maxWidth, bool secondPass) override {
    if (!HtmlBudget::Spend(budget_.layouts, Depth())) return 0;
    return Base::render(x, y, maxWidth, secondPass);
  }
  int select(const litehtml::css_selector& selector, bool applyPseudo) override {
    if (!HtmlBudget::Spend(budget_.matches, 1)) return litehtml::select_no_match;
    return Base::select(selector, applyPseudo);
  }
  int select(const litehtml::css_element_selector& selector, bool applyPseudo) override {
    if (!HtmlBudget::Spend(budget_.matches, 1)) return litehtml::select_no_match;
    return Base::select(selector, applyPseudo);
  }

 private:
  // The engine looks for what an element inherits in all that it stands in.
  [[nodiscard]] int Depth() const {
    int depth = 1;
    for (auto outer = this->parent(); outer; outer = outer->parent()) ++depth;
    return depth;
  }

  HtmlBudget& budget_;
};

// A push button: its caption stands in the middle of its height.
class Button : public Limited<litehtml::html_tag> {
 public:
  using Limited::Limited;

  // A button's height goes around its padding and its borders.
  bool get_predefined_height(int& height) const override {
    const bool isGiven = Limited::get_predefined_height(height);
    if (isGiven) height = std::max(0, height - content_margins_height());
    return isGiven;
  }

  void draw_children(litehtml::uint_ptr canvas, int x, int y, const litehtml::position* clip,
                     litehtml::draw_flag flag, int zindex) override {
    const int content = m_boxes.empty() ? 0 : m_boxes.back()->bottom();
    const int shift = std::max(0, (m_pos.height - content) / 2);
    Limited::draw_children(canvas, x, y + shift, clip, flag, zindex);
  }
};

// A cell. No-break spaces hold the buttons beside them: a cell of nothing else is never broken.
class Cell : public Limited<litehtml::el_td> {
 public:
  using Limited::Limited;

  // The padding that the table asks for; the page's style rules come after it.
  void parse_attributes() override {
    Limited::parse_attributes();
    auto table = parent();
    while (table && std::string_view(table->get_tagName()) != "table") table = table->parent();
    const char* padding = table ? table->get_attr("cellpadding") : nullptr;
    if (padding == nullptr) return;
    m_style.add_property("padding", (std::string(padding) + "px").c_str(), nullptr, false, this);
  }

  void parse_styles(bool again) override {
    Limited::parse_styles(again);
    const auto isButton = [](const element::ptr& child) {
      return std::string_view(child->get_tagName()) == "button";
    };
    const auto isSpace = [](const element::ptr& child) { return child->is_white_space(); };
    if (std::any_of(m_children.begin(), m_children.end(), isButton) &&
        std::none_of(m_children.begin(), m_children.end(), isSpace)) {
      m_white_space = litehtml::white_space_nowrap;
    }
  }
};

}  // namespace

std::shared_ptr<litehtml::element> MakeHtmlElement(
    std::string_view name, const std::shared_ptr<litehtml::document>& document,
    HtmlBudget& budget) {
  if (name == "style" || name == "br" || name == "li") return nullptr;
  if (name == "button") return std::make_shared<Button>(document, budget);
  if (name == "img") return std::make_shared<Limited<litehtml::el_image>>(document, budget);
  if (name == "table") return std::make_shared<Limited<litehtml::el_table>>(document, budget);
  if (name == "tr") return std::make_shared<Limited<litehtml::el_tr>>(document, budget);
  if (name == "td" || name == "th") return std::make_shared<Cell>(document, budget);
  if (name == "p") return std::make_shared<Limited<litehtml::el_para>>(document, budget);
  if (name == "div") return std::make_shared<Limited<litehtml::el_div>>(document, budget);
  if (name == "font") return std::make_shared<Limited<litehtml::el_font>>(document, budget);
  if (name == "body") return std::make_shared<Limited<litehtml::el_body>>(document, budget);
  return std::make_shared<Limited<litehtml::html_tag>>(document, budget);
}

}  // namespace zav
