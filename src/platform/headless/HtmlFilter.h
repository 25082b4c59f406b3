// Makes any text bearable for the layout engine, which trusts its input.
//
// What comes out is HTML of known elements only, well nested, not too deep, not too large, with
// attributes and style rules that keep within what a screen can show. Unknown elements are left out
// and their content stays; scripts, embedded objects and form fields go with their content. Text
// keeps its characters; bytes that are not UTF-8 become U+FFFD.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace zav {

namespace html_limit {
inline constexpr std::size_t kBytes = 2000000;  // what comes after is not read
inline constexpr std::size_t kDepth = 100;  // elements within each other; deeper ones are left out
inline constexpr std::size_t kElements = 4000;
inline constexpr std::size_t kPieces = 40000;  // words, and blanks between them
inline constexpr std::size_t kRules = 500;     // style rules
inline constexpr int kSpan = 50;               // columns or rows of one table cell
inline constexpr int kNumber = 9999;           // in a style or a size
}  // namespace html_limit

std::string BearableHtml(std::string_view html);

}  // namespace zav
