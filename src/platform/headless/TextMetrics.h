// How large text is on the headless platform: the same on every machine, whatever fonts it has.
//
// A screen inch has 96 pixels, so 10 points are 13.33 pixels. Every family is measured as one. A
// character stands where the advances of those before it end, in fractions of a pixel; the width of
// a line is rounded up to a whole pixel. No kerning, no ligatures, text runs from left to right.
#pragma once

#include <string_view>

#include "platform/Font.h"

namespace zav {

struct TextStyle {
  float pixels = 13;  // per em
  bool bold = false;
  bool italic = false;
  bool underline = false;
  bool struckOut = false;
};

// Sizes beyond what a screen can show are brought back to 1 to 500 pixels.
TextStyle StyleOf(const Font& font);

// Takes the first character off text, which must not be empty. A byte that is not UTF-8 counts as
// one character, U+FFFD.
char32_t TakeCharacter(std::string_view& text);

// How far the next character stands to the right of this one, in pixels.
float AdvanceOf(char32_t character, const TextStyle& style);
// The sum of the advances, not rounded.
float ExactTextWidth(std::string_view text, const TextStyle& style);
int TextWidth(std::string_view text, const TextStyle& style);

// Of one line, rounded up; the base line stands AscentPixels below its top.
int LineHeightPixels(const TextStyle& style);
int AscentPixels(const TextStyle& style);

}  // namespace zav
