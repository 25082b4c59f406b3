// What stands before the items of a numbered list. Part of HtmlLayout.
#pragma once

#include <litehtml/litehtml.h>

#include <string>

namespace zav {

// With the full stop behind it. Kinds of numbers that are not Latin letters or Roman numerals, and
// numbers that a kind cannot show, are decimal.
std::string MarkerText(litehtml::list_style_type type, int number);

}  // namespace zav
