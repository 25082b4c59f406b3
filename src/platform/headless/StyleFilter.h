// Makes style rules bearable for the layout engine. Part of HtmlFilter.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace zav {

// Numbers in text that are larger than the most become the most; those in quotes, in parentheses
// and in colour codes stay.
std::string WithBoundedNumbers(std::string_view text, int most);

// The contents of a style attribute: "name: value; ...". No element becomes part of a table by its
// style.
std::string BearableDeclarations(std::string_view declarations);

// The contents of a style element. Rules without conditions only: no at-rules, no pseudo-classes,
// no selectors of more than three parts. Takes one off rulesLeft for every
// selector, and ends before the first rule for which it does not suffice.
std::string BearableRules(std::string_view rules, std::size_t& rulesLeft);

}  // namespace zav
