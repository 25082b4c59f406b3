// How wide, how high and in how many lines text stands.
#include "platform/headless/TextLayout.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace zav {
namespace {

// At this size a hundredth of a pixel is one unit of the font: a digit, of 1303 units, is 13.03
// pixels wide, a blank 6.51.
constexpr TextStyle kStyle{20.48F};

TEST(TextMetrics, WidthsAddUpAndAreRoundedUp) {
  const TextStyle bold{20.48F, true};
  const TextStyle italic{20.48F, false, true};
  const struct {
    const char* why;
    std::string text;
    TextStyle style;
    int want;
  } rows[] = {
      {"nothing", "", kStyle, 0},
      {"a digit and its fraction", "1", kStyle, 14},
      {"fractions add up before rounding: 10 times 13.03", "0123456789", kStyle, 131},
      {"bold is wider: 14.25", "1", bold, 15},
      {"slanted is as wide as upright", "0123456789", italic, 131},
      {"a no-break space is a blank", "\xC2\xA0", kStyle, 7},
      {"a combining mark takes no room", "1\xCC\x81", kStyle, 14},
      {"a soft hyphen takes no room", "1\xC2\xAD", kStyle, 14},
      {"ideographs are an em wide: twice 20.48", "\xE6\x97\xA5\xE6\x9C\xAC", kStyle, 41},
      {"an ideograph beyond the basic plane too", "\xF0\xA0\x80\x80", kStyle, 21},
      {"a letter without an entry has the default: 12.29", "\xE0\xA4\x95", kStyle, 13},
      {"a stray byte counts as one character", "\xFF", kStyle, 13},
      {"a character cut short counts byte by byte", "\xE6\x97", kStyle, 25},
      {"controls take no room", "1\t\x01", kStyle, 14},
  };
  for (const auto& row : rows) EXPECT_EQ(TextWidth(row.text, row.style), row.want) << row.why;
}

TEST(TextMetrics, PointsBecomePixelsOfAScreenWith96ToTheInch) {
  const struct {
    const char* why;
    float points;
    int lineHeight;  // 2384 of 2048 units, rounded up
  } rows[] = {
      {"10 points are 13.33 pixels, a line 15.5", 10, 16},
      {"7.5 points are 10 pixels, a line 11.6", 7.5F, 12},
      {"36 points are 48 pixels, a line 55.9", 36, 56},
      {"no size is brought back to one pixel", 0, 2},
      {"a negative size too", -5, 2},
      {"500 pixels are the most", 1e30F, 583},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(LineHeightPixels(StyleOf({"Verdana", row.points})), row.lineHeight) << row.why;
  }
}

TEST(TextLayout, BreaksLinesAtBlanksAndLineEnds) {
  using Lines = std::vector<std::string_view>;
  const struct {
    const char* why;
    std::string text;
    int width;
    Lines want;
  } rows[] = {
      {"no text has no line", "", 100, {}},
      {"58.63 pixels fit into 59", "11 22", 59, {"11 22"}},
      {"and not into 58", "11 22", 58, {"11", "22"}},
      {"blanks at the break belong to no line", "11   22", 30, {"11", "22"}},
      {"blanks at the end may stand beyond the edge", "11   ", 30, {"11   "}},
      {"blanks at the beginning stay", "  1", 100, {"  1"}},
      {"a long word is broken where it must be", "11111", 30, {"11", "11", "1"}},
      {"and starts on a line of its own", "1 2222", 45, {"1", "222", "2"}},
      {"one character a line where nothing fits", "12 3", 0, {"1", "2", "3"}},
      {"a negative width is no worse", "12", -50, {"1", "2"}},
      {"every line end ends one line", "1\r\n2\n3\r4", 100, {"1", "2", "3", "4"}},
      {"a line end at the end opens a line", "1\n", 100, {"1", ""}},
      {"empty lines count", "\r\n\n", 100, {"", "", ""}},
      {"characters are never cut", "\xC3\xA9\xC3\xA9", 1, {"\xC3\xA9", "\xC3\xA9"}},
      {"a no-break space holds its words",
       "1\xC2\xA0"
       "2",
       30,
       {"1\xC2\xA0", "2"}},
  };
  for (const auto& row : rows)
    EXPECT_EQ(BreakLines(row.text, kStyle, row.width), row.want) << row.why;
}

TEST(TextLayout, MeasuresWhatARichTextControlHolds) {
  const Font font{"Verdana", 10};  // a line of plain text is 16 pixels high, the margins are 3
  const struct {
    const char* why;
    RichContent content;
    int width;
    int want;
  } rows[] = {
      {"nothing needs no room, margins neither", {false, "", font}, 100, 0},
      {"one line", {false, "one", font}, 100, 22},
      {"two lines", {false, "one\ntwo", font}, 100, 38},
      {"margins narrow the lines: 17 pixels for two digits of 8.48", {false, "11", font}, 23, 22},
      {"a pixel less breaks them", {false, "11", font}, 22, 38},
      {"HTML is laid out as such", {true, "<html>one<br>two</html>", font}, 100, 38},
      {"a control without width is survived", {false, "12", font}, 0, 38},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(TextHeightPixels(row.content, row.width), row.want) << row.why;
  }
}

}  // namespace
}  // namespace zav
