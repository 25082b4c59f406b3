#include "form/ChromePages.h"

#include <initializer_list>
#include <utility>

#include "automation/Text.h"

namespace zav {
namespace {

// Class names and their styles.
using Rules = std::initializer_list<std::pair<std::string_view, std::string_view>>;

constexpr std::string_view kLineEnd = "\r\n";
constexpr std::string_view kWideTable = "<TABLE cellspacing=0 cellpadding=0 border=0 width=100%>";
constexpr std::string_view kHighTable = "<TABLE cellspacing=0 cellpadding=0 border=0 height=100%>";
constexpr std::string_view kTitleStyle = "FONT-FAMILY:'verdana';FONT-SIZE:10pt;";

std::string Lines(std::initializer_list<std::string_view> lines) {
  std::string text;
  for (const std::string_view line : lines) text.append(line).append(kLineEnd);
  return text;
}

std::string Page(const Rules& rules, std::string_view body) {
  // Not a style that any browser knows; the page's own background is what shows.
  std::string styles = Lines({addStyleRule("Background", "#99ccff")});
  for (const auto& [className, style] : rules) styles += Lines({addStyleRule(className, style)});
  return Concatenate(
      {Lines({"<HTML>", "<HEAD>", "<STYLE>"}), styles,
       Lines({"</STYLE>", "</HEAD>", "<BODY style=\"MARGIN:0px;\" class=\"Background\">"}), body,
       Lines({"</BODY>", "</HTML>"})});
}

std::string TitleCell(std::string_view id, std::string_view text) {
  return Concatenate(
      {"<TD id=\"", id, "\" class=\"TitleCell\"><SPAN class=\"Title\">", text, "</SPAN></TD>"});
}

std::string TitleCellStyle(std::string_view picture, std::string_view repeat,
                           std::string_view padding, std::string_view textColor) {
  return Concatenate({"BACKGROUND-IMAGE:url(", picture, "); BACKGROUND-REPEAT:", repeat, "; ",
                      padding, " COLOR:", textColor, "; overflow:hidden;"});
}

// A table of one row that holds just the cell with the text.
std::string HeadingPage(std::string_view rowHeight, std::string_view cellStyle,
                        std::string_view cellId, std::string_view text) {
  return Page(
      {{"TitleRow", Concatenate({"HEIGHT: ", rowHeight, "px;"})},
       {"TitleCell", cellStyle},
       {"Title", kTitleStyle}},
      Lines({kWideTable, "<TR class=\"TitleRow\">", TitleCell(cellId, text), "</TR>", "</TABLE>"}));
}

std::string AreaTitlePage(std::string_view rightPadding, std::string_view text) {
  const std::string padding = Concatenate(
      {"PADDING-TOP:3px; PADDING-LEFT:10px; PADDING-BOTTOM:3px; PADDING-RIGHT:", rightPadding,
       ";"});
  return HeadingPage("27", TitleCellStyle("AreaTitle_Bar_tilekvt.bmp", "repeat", padding, "white"),
                     "WorkHeading", text);
}

// side is "Left" or "Right".
std::string EdgePage(std::string_view side, std::string_view picture) {
  const std::string row = Concatenate({side, "EdgeRow"});
  const std::string cell = Concatenate({side, "EdgeCell"});
  return Page({{row, ""},
               {cell, Concatenate({"WIDTH:8px; BACKGROUND-IMAGE:url(", picture,
                                   "); BACKGROUND-REPEAT:repeat-y;"})}},
              Lines({kHighTable,
                     Concatenate({"<TR class=\"", row, "\"><TD class=\"", cell, "\"></TD></TR>"}),
                     "</TABLE>"}));
}

}  // namespace

std::string addStyleRule(std::string_view className, std::string_view style) {
  return Concatenate({".", className, "{", style, "}"});
}

std::string createTitle(std::string_view heading) {
  return Page(
      {{"LeftCornerCell", "WIDTH:10px; BACKGROUND-IMAGE:url(Left_cornerkvt.bmp);"},
       {"TitleRow", "HEIGHT: 27px;"},
       {"TitleCell",
        TitleCellStyle("Top_Bar_tilekvt.bmp", "repeat-x",
                       "PADDING-TOP:3px; PADDING-LEFT:10px; PADDING-BOTTOM:0px; PADDING-RIGHT:0px;",
                       "white")},
       {"Title", kTitleStyle},
       {"RightCornerCell", "WIDTH:10px; BACKGROUND-IMAGE:url(Rt_cornerkvt.bmp);"}},
      Lines({kWideTable, "<TR class=\"TitleRow\">", "<TD class=\"LeftCornerCell\"></TD>",
             TitleCell("ItemStemHeading", heading), "<TD class=\"RightCornerCell\"></TD>", "</TR>",
             "</TABLE>"}));
}

std::string createWorkHeading(std::string_view heading) { return AreaTitlePage("3px", heading); }

std::string createAreaTitle(std::string_view text) { return AreaTitlePage("10px", text); }

std::string createCallout(std::string_view body, std::string_view height) {
  return HeadingPage(
      height,
      TitleCellStyle("Calloutbackgroundkvt.bmp", "repeat",
                     "PADDING-TOP:0px; PADDING-LEFT:10px; PADDING-BOTTOM:0px; PADDING-RIGHT:0px;",
                     "black"),
      "Callout", body);
}

std::string createLeftEdge() { return EdgePage("Left", "Left_vert_bar_tilekvt.bmp"); }

std::string createRightEdge() { return EdgePage("Right", "Rt_vert_bar_tilekvt.bmp"); }

std::string createBottom() {
  return Page(
      {{"BottomLeftCornerCell", "WIDTH:10px; BACKGROUND-IMAGE:url(Lt_Lower_Cornerkvt.bmp);"},
       {"BottomRow", "HEIGHT: 8px;"},
       {"BottomCell", "BACKGROUND-IMAGE:url(Bottom_Tilekvt.bmp); BACKGROUND-REPEAT:repeat-x;"},
       {"BottomRightCornerCell", "WIDTH:10px; BACKGROUND-IMAGE:url(Rt_Lower_Cornerkvt.bmp);"}},
      Lines({kWideTable, "<TR class=\"BottomRow\">", "<TD class=\"BottomLeftCornerCell\"></TD>",
             "<TD id=\"BottomCellholder\" class=\"BottomCell\"><SPAN>. </SPAN></TD>",
             "<TD class=\"BottomRightCornerCell\"></TD>", "</TR>", "</TABLE>"}));
}

std::string createButtons(const std::vector<FooterButton>& buttons) {
  std::string body = Lines({kWideTable, "<TR class=\"FooterRow\">"});
  for (const FooterButton& button : buttons) {
    body +=
        Lines({Concatenate({"<TD class=\"FooterCell\" valign=middle>&nbsp;<Button id=\"", button.id,
                            "\" class=\"Button\">", button.caption, "</Button>&nbsp;</TD>"})});
  }
  body += Lines({"<TD class=\"FooterCell\" width=100%></TD>", "</TR>", "</TABLE>"});
  return Page(
      {{"FooterRow", "HEIGHT:41px;"},
       {"FooterCell", "BACKGROUND-IMAGE:url(Bottom_bar_tilekvt.bmp); BACKGROUND-REPEAT:repeat-x;"},
       {"Button", "width:97px; height:22px;"},
       {"Highlighting", "BORDER:thin inset white; BACKGROUND:LightGrey"},
       {"NotHighlighting", "BORDER:thin outset white; BACKGROUND:LightGrey"}},
      body);
}

}  // namespace zav
