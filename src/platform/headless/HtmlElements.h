// The elements of a page as the layout engine has them, with a limit to the work that they cause.
// Part of HtmlLayout.
//
// The engine lays out the content of tables, floats and inline blocks several times; within one
// another they cost more than any page is worth. When the budget of a page is used up, its elements
// are laid out no more, and match no style rule any more, so that every page comes to an end.
#pragma once

#include <litehtml/litehtml.h>

#include <algorithm>
#include <memory>
#include <string_view>

namespace zav {

struct HtmlBudget {
  int layouts = 500000;    // of one element, times the depth that it stands in
  int matches = 20000000;  // of one element with one part of a style rule

  // Whether there was enough left.
  static bool Spend(int& budget, int cost) {
    budget -= std::min(budget, cost);
    return budget > 0;
  }
};

// Null for an element that the engine makes best itself. The budget outlives the element.
std::shared_ptr<litehtml::element> MakeHtmlElement(
    std::string_view name, const std::shared_ptr<litehtml::document>& document, HtmlBudget& budget);

}  // namespace zav
