#include "platform/headless/ListMarkers.h"

#include <algorithm>
#include <array>
#include <utility>

namespace zav {
namespace {

// Text as counted letters: a, b, ... z, aa.
std::string LetterNumber(int number, char first) {
  if (number < 1) return std::to_string(number);
  std::string text;
  for (; number > 0; number = (number - 1) / 26) {
    text.insert(text.begin(), static_cast<char>(first + (number - 1) % 26));
  }
  return text;
}

std::string RomanNumber(int number, bool upper) {
  static constexpr std::array<std::pair<int, const char*>, 13> kSteps{{{1000, "m"},
                                                                       {900, "cm"},
                                                                       {500, "d"},
                                                                       {400, "cd"},
                                                                       {100, "c"},
                                                                       {90, "xc"},
                                                                       {50, "l"},
                                                                       {40, "xl"},
                                                                       {10, "x"},
                                                                       {9, "ix"},
                                                                       {5, "v"},
                                                                       {4, "iv"},
                                                                       {1, "i"}}};
  if (number < 1 || number > 3999) return std::to_string(number);
  std::string text;
  for (const auto& [value, letters] : kSteps) {
    for (; number >= value; number -= value) text += letters;
  }
  if (upper)
    std::transform(text.begin(), text.end(), text.begin(), [](char c) { return c & ~0x20; });
  return text;
}

}  // namespace

std::string MarkerText(litehtml::list_style_type type, int number) {
  switch (type) {
    case litehtml::list_style_type_lower_alpha:
    case litehtml::list_style_type_lower_latin:
      return LetterNumber(number, 'a') + ".";
    case litehtml::list_style_type_upper_alpha:
    case litehtml::list_style_type_upper_latin:
      return LetterNumber(number, 'A') + ".";
    case litehtml::list_style_type_lower_roman:
      return RomanNumber(number, false) + ".";
    case litehtml::list_style_type_upper_roman:
      return RomanNumber(number, true) + ".";
    default:
      return std::to_string(number) + ".";
  }
}

}  // namespace zav
