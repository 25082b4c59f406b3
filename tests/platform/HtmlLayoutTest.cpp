// Pages of the form and of items, good ones and bad ones.
#include "platform/headless/HtmlLayout.h"

#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "platform/headless/Canvas.h"
#include "platform/headless/HeadlessPicture.h"
#include "platform/headless/HtmlFilter.h"

namespace zav {
namespace {

constexpr Argb kWhite = 0xFFFFFFFFU;
constexpr Argb kRed = 0xFFFF0000U;
constexpr Argb kBlue = 0xFF0000FFU;

PictureRef Plain(int width, int height, Argb color) {
  const auto count = static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
  return std::make_shared<HeadlessPicture>(width, height, std::vector<Argb>(count, color));
}

std::string Repeat(std::string_view text, int count) {
  std::string repeated;
  for (int i = 0; i < count; ++i) repeated += text;
  return repeated;
}

// What the layout engine gets to see of a page, without the frame around it.
std::string Body(std::string_view html) {
  const std::string page = BearableHtml(html);
  const std::size_t begin = page.find('>', page.find("<body")) + 1;
  return page.substr(begin, page.rfind("</body>") - begin);
}

// A page without font has 13 pixels to the em and lines of 16 pixels.
TEST(HtmlLayout, MeasuresPages) {
  const struct {
    const char* why;
    std::string html;
    int margin;
    int want;
  } rows[] = {
      {"nothing", "", 0, 0},
      {"margins alone", "", 5, 10},
      {"a line", "one", 0, 16},
      {"a margin on both sides", "<html>one</html>", 5, 26},
      {"line breaks", "a<br>b<br>c", 0, 48},
      {"words that do not fit side by side", "wwwwwwww wwwwwwww wwwwwwww", 0, 48},
      {"a no-break space keeps them together", "wwwwwwww&nbsp;wwwwwwww", 0, 16},
      {"a row has the height that it asks for",
       "<STYLE>.TitleRow{HEIGHT: 27px;}</STYLE><TABLE cellspacing=0 cellpadding=0 border=0>"
       "<TR class=\"TitleRow\"><TD>x</TD></TR></TABLE>",
       0, 27},
      {"and grows with its text",
       "<STYLE>.TitleRow{HEIGHT: 27px;}</STYLE><TABLE cellspacing=0 cellpadding=0 border=0>"
       "<TR class=\"TitleRow\"><TD>a<br>b</TD></TR></TABLE>",
       0, 32},
      {"a height of the whole page counts as none",
       "<TABLE cellspacing=0 cellpadding=0 height=100%><TR><TD>x</TD></TR></TABLE>", 0, 16},
      {"a picture in its own size", "<img src=p style='display:block'>", 0, 30},
      {"a picture as large as the page wants",
       "<img src=p width=20 height=10 style='display:block'>", 0, 10},
      {"what a script says is not shown", "<script>one<br>two</script>", 0, 0},
      {"nor what stands in a title", "<head><title>one</title></head>two", 0, 16},
      {"points are larger than pixels: 18 points are 24", "<font style='font-size:18pt'>x", 0, 28},
      {"the second size of the font element is 13 pixels", "<font size=2>x", 0, 16},
      {"the largest is 48", "<font size=+4>x", 0, 56},
  };
  const auto load = [](const std::string& /*path*/) { return Plain(40, 30, kRed); };
  for (const auto& row : rows) {
    EXPECT_EQ(HtmlHeightPixels(row.html, 150, {row.margin, {}, load}), row.want) << row.why;
  }
}

TEST(HtmlLayout, FindsTheElementUnderAPoint) {
  const std::string page =
      "<HTML><HEAD><STYLE>.Button{width:97px; height:22px;}.FooterRow{HEIGHT:41px;}</STYLE></HEAD>"
      "<BODY style=\"MARGIN:0px;\"><TABLE id=\"all\" cellspacing=0 cellpadding=0 border=0 "
      "width=100%>"
      "<TR class=\"FooterRow\"><TD valign=middle>&nbsp;<Button id=\"btnReset\" "
      "class=\"Button\"><b>Clear"
      "</b></Button>&nbsp;</TD><TD>&nbsp;<Button id=\"btnMore\" "
      "class=\"Button\">More</Button>&nbsp;</TD>"
      "<TD width=100%></TD></TR></TABLE></BODY></HTML>";
  const HtmlLayout layout(page, 400, 41, {});
  // Each button is 97 pixels wide with a blank of 4 and a cell's padding of 1 on both sides.
  const struct {
    const char* why;
    int x;
    int y;
    std::string want;
  } rows[] = {
      {"in the first button", 8, 20, "btnReset"},
      {"the text within it has no id of its own", 54, 20, "btnReset"},
      {"at its other end", 100, 20, "btnReset"},
      {"above it, in the cell", 54, 4, "all"},
      {"22 pixels high, its border among them: from 9 to 31", 54, 10, "btnReset"},
      {"so here is the cell again", 54, 33, "all"},
      {"in the second button", 160, 20, "btnMore"},
      {"beside the buttons", 300, 20, "all"},
      {"below the page", 54, 400, ""},
      {"left of the page", -10, 20, ""},
  };
  for (const auto& row : rows) EXPECT_EQ(layout.IdAt(row.x, row.y), row.want) << row.why;
}

TEST(HtmlLayout, DrawsBackgroundsWhereThePageWantsThem) {
  const std::string cell =
      "<TABLE cellspacing=0 cellpadding=0 border=0 width=100% height=100%><TR><TD class=\"Cell\">"
      "</TD></TR></TABLE>";
  const struct {
    const char* why;
    std::string rule;
    Argb atStart;
    Argb toTheRight;
    Argb below;
    Argb farCorner;
  } rows[] = {
      {"a colour fills the whole height", "background-color:red", kRed, kRed, kRed, kRed},
      {"a picture repeats both ways", "BACKGROUND-IMAGE:url(/a b/p.bmp); BACKGROUND-REPEAT:repeat;",
       kBlue, kBlue, kBlue, kBlue},
      {"also by itself", "BACKGROUND-IMAGE:url(/a b/p.bmp);", kBlue, kBlue, kBlue, kBlue},
      {"along the top only", "BACKGROUND-IMAGE:url(/a b/p.bmp); BACKGROUND-REPEAT:repeat-x;", kBlue,
       kBlue, kWhite, kWhite},
      {"along the left only", "BACKGROUND-IMAGE:url(/a b/p.bmp); BACKGROUND-REPEAT:repeat-y;",
       kBlue, kWhite, kBlue, kWhite},
      {"once", "BACKGROUND-IMAGE:url('/a b/p.bmp'); BACKGROUND-REPEAT:no-repeat;", kBlue, kWhite,
       kWhite, kWhite},
      {"a picture that cannot be had is none", "BACKGROUND-IMAGE:url(missing.bmp);", kWhite, kWhite,
       kWhite, kWhite},
      {"a rule without a property is none", "#ff0000", kWhite, kWhite, kWhite, kWhite},
  };
  const auto load = [](const std::string& path) -> PictureRef {
    if (path != "/a b/p.bmp") throw std::runtime_error("missing");
    return Plain(8, 8, kBlue);
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.why);
    Canvas canvas(100, 50);
    HtmlLayout layout("<STYLE>.Cell{" + row.rule + "}</STYLE>" + cell, 100, 50, {0, {}, load});
    layout.Draw(canvas, 0, 0);
    EXPECT_EQ(canvas.PixelAt(2, 2), row.atStart);
    EXPECT_EQ(canvas.PixelAt(90, 2), row.toTheRight);
    EXPECT_EQ(canvas.PixelAt(2, 45), row.below);
    EXPECT_EQ(canvas.PixelAt(90, 45), row.farCorner);
  }
}

TEST(HtmlLayout, DrawsOnlyWithinTheClip) {
  Canvas canvas(40, 40);
  HtmlLayout layout("<div style='background:red;width:100px;height:100px'></div>", 40, 40, {});
  {
    const ClipScope clip(canvas, {10, 10, 10, 10});
    layout.Draw(canvas, 0, 0);
  }
  EXPECT_EQ(canvas.PixelAt(9, 15), kWhite);
  EXPECT_EQ(canvas.PixelAt(10, 15), kRed);
  EXPECT_EQ(canvas.PixelAt(19, 15), kRed);
  EXPECT_EQ(canvas.PixelAt(20, 15), kWhite);
}

TEST(HtmlFilter, MakesPagesWellNested) {
  const struct {
    const char* why;
    std::string html;
    std::string want;
  } rows[] = {
      {"crossed ends", "<b><i>x</b>y</i>", "<b><i>x</i></b>y"},
      {"ends that are missing", "<div><b>x", "<div><b>x</b></div>"},
      {"ends without a beginning", "x</b></div>", "x"},
      {"a paragraph ends the one before", "<p>a<p>b", "<p>a</p><p>b</p>"},
      {"a block ends the paragraph", "<p>a<div>b</div>", "<p>a</p><div>b</div>"},
      {"list items end each other", "<ul><li>a<li>b</ul>", "<ul><li>a</li><li>b</li></ul>"},
      {"but not those of the list around them", "<ul><li>a<ul><li>b</ul></ul>",
       "<ul><li>a<ul><li>b</li></ul></li></ul>"},
      {"rows and cells end each other", "<table><tr><td>a<td>b<tr><td>c</table>",
       "<table><tr><td>a</td><td>b</td></tr><tr><td>c</td></tr></table>"},
      {"text in a table gets a cell", "<table>a</table>", "<table><tr><td>a</td></tr></table>"},
      {"blanks do not", "<table> <tr> <td>a</td> </tr> </table>",
       "<table><tr><td>a</td></tr></table>"},
      {"cells without a table are none", "<tr><td>a</td></tr>", "a"},
      {"an end does not reach out of its cell", "<b><table><tr><td>a</b>b</table>",
       "<b><table><tr><td>ab</td></tr></table></b>"},
      {"buttons do not nest", "<button>a<button>b", "<button>a</button><button>b</button>"},
      {"a page in a page", "<span><html><b>x</b></html></span>", "<span><b>x</b></span>"},
      {"unknown elements leave their content", "<blink>a<o:p>b</o:p></blink>", "ab"},
      {"scripts and objects take theirs along",
       "a<SCRIPT>if (a<b) x()</Script>b<object>c</object>d", "abd"},
      {"a script without an end takes the rest", "a<script>b<b>c", "a"},
      {"comments and declarations go", "<!DOCTYPE html>a<!-- <b> -->b<?xml?>c", "abc"},
      {"a comment without an end takes the rest", "a<!-- b", "a"},
      {"what is no tag is text", "a < b <3 </ <", "a &lt; b &lt;3 &lt;/ &lt;"},
      {"a tag without an end", "a<b", "a<b></b>"},
      {"entities stay as they are", "&eacute;&#233;&bogus;&", "&eacute;&#233;&bogus;&"},
      {"bytes that are no text", std::string("a\0\xFF", 3), "a\xEF\xBF\xBD\xEF\xBF\xBD"},
  };
  for (const auto& row : rows) EXPECT_EQ(Body(row.html), row.want) << row.why;
}

TEST(HtmlFilter, KeepsAttributesWithinWhatAScreenShows) {
  const struct {
    const char* why;
    std::string html;
    std::string want;
  } rows[] = {
      {"handlers and links go", "<a href=x onclick='y()' id=z>t</a>", "<a id=\"z\">t</a>"},
      {"without quotes, with blanks round the sign", "<td></td><p id = a class= 'b c'></p>",
       "<p id=\"a\" class=\"b c\"></p>"},
      {"a quote in a value", "<p id='a\"b'></p>", "<p id=\"a&quot;b\"></p>"},
      {"a value that never ends takes the rest", "<p id='a><b>", "<p id=\"a><b>\"></p>"},
      {"a height becomes a style", "<img height=100% style='color:red'>",
       "<img style=\"height:100%;color:red\">"},
      {"in pixels without a sign", "<img height=20>", "<img style=\"height:20px;\">"},
      {"no border is no attribute", "<table border=0></table>", "<table></table>"},
      {"cells span no more than 50", "<table><td colspan=99999999 rowspan=x></table>",
       "<table><tr><td colspan=\"50\" rowspan=\"1\"></td></tr></table>"},
      {"large numbers in styles", "<p style='width:100000px;color:#123456;margin:-77777px'></p>",
       "<p style=\"width:9999px;color:#123456;margin:-9999px\"></p>"},
      {"numbers in paths stay", "<p style='background:url(/a/1234567 8.bmp)'></p>",
       "<p style=\"background:url(/a/1234567 8.bmp)\"></p>"},
      {"no style makes a table", "<p style='color:red; DISPLAY: table-row; margin:1px'></p>",
       "<p style=\"color:red; margin:1px\"></p>"},
  };
  for (const auto& row : rows) EXPECT_EQ(Body(row.html), row.want) << row.why;
}

TEST(HtmlFilter, TakesPlainRulesOnly) {
  const struct {
    const char* why;
    std::string rules;
    std::string want;
  } rows[] = {
      {"rules of the form's pages", ".Background{#99ccff}\r\n.Row{HEIGHT: 27px;}",
       ".Background{#99ccff}\n\r\n.Row{HEIGHT: 27px;}\n"},
      {"imports go, what follows stays", "@import url(x.css); .a{color:red}", " .a{color:red}\n"},
      {"comments go", "/* .b{} */.a{color:red/* */}", ".a{color:red}\n"},
      {"also those of HTML", "<!-- .a{color:red} -->", " .a{color:red}\n"},
      {"conditions go", "a:hover{color:red}p[x]{color:red}.a{color:red}", ".a{color:red}\n"},
      {"selectors of many parts go", "a b c d{color:red}a b c{color:red}", "a b c{color:red}\n"},
      {"a rule without an end", ".a{color:red", ".a{color:red}\n"},
  };
  for (const auto& row : rows) {
    const std::string page = BearableHtml("<style>" + row.rules + "</style>");
    EXPECT_EQ(page, "<html><head><style>" + row.want + "</style></head><body></body></html>")
        << row.why;
  }
}

TEST(HtmlLayout, BearsAnyPage) {
  const struct {
    const char* why;
    std::string html;
  } rows[] = {
      {"deep blocks", Repeat("<div>", 100000)},
      {"deep formatting", Repeat("<b><i>x", 50000)},
      {"tables in tables, each laid out several times", Repeat("<table width=50%><tr><td>x", 1000)},
      {"inline blocks in each other", Repeat("<div style='display:inline-block'>x", 1000)},
      {"floats in each other", Repeat("<ul><li style='float:left'>x", 1000)},
      {"rows by style in each other", Repeat("<span style='display:table-row'>x", 1000)},
      {"a flood of elements", Repeat("<p>x<img src=a>", 100000)},
      {"a flood of words", Repeat("a ", 1000000)},
      {"a flood of blanks that count", "<pre>" + Repeat(" \n", 1000000)},
      {"a flood of cells",
       "<table>" + Repeat("<tr>" + Repeat("<td colspan=50 rowspan=50>", 50), 50)},
      {"a flood of rules", "<style>" + Repeat("b i u{color:red}", 10000) + "</style>" +
                               Repeat("<i><b>", 30) + Repeat("<u>x</u>", 10000)},
      {"a flood of selectors",
       "<style>" + Repeat("b,", 100000) + "i{color:red}</style>" + Repeat("<b>x</b>", 10000)},
      {"enormous sizes",
       "<div style='width:999999999px;padding:99999em;font-size:99999em'>x</div>"},
      {"negative sizes", "<div style='width:-9px;margin:-9999px;line-height:-9;font-size:-9px'>x"},
      {"one long word", std::string(3000000, 'w')},
      {"tags cut anywhere", "<table><tr><td style='width:1"},
      {"no text at all", std::string("\0\x01\xFF\xC3", 4)},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.why);
    Canvas canvas(100, 100);
    HtmlLayout layout(row.html, 100, 100, {});
    layout.Draw(canvas, 0, 0);
    EXPECT_GE(layout.HeightPixels(), 0);
    EXPECT_EQ(layout.IdAt(10, 10), "");
  }
}

}  // namespace
}  // namespace zav
