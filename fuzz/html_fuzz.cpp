// Any bytes can be laid out, drawn and probed as a page. An input that begins with an even byte
// stands for a page made of the pieces below, so that the elements get mixed in every way.
#include <array>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "platform/headless/Canvas.h"
#include "platform/headless/HeadlessPicture.h"
#include "platform/headless/HtmlLayout.h"

namespace {

constexpr std::array kPieces = {"text ",
                                "<b>",
                                "</b>",
                                "<p>",
                                "</p>",
                                "<div>",
                                "</div>",
                                "<br>",
                                "<table>",
                                "</table>",
                                "<tr>",
                                "</tr>",
                                "<td>",
                                "</td>",
                                "<th>",
                                "<tbody>",
                                "<thead>",
                                "<ul>",
                                "</ul>",
                                "<ol>",
                                "<li>",
                                "<button>",
                                "</button>",
                                "<img src=a>",
                                "<img src=a width=50% height=20>",
                                "<hr>",
                                "<table border=1 width=100%>",
                                "<table height=100% cellspacing=9>",
                                "<td colspan=3>",
                                "<td rowspan=2 width=30%>",
                                "<td colspan=99999999>",
                                "<td style='width:0'>",
                                "<div style='float:left'>",
                                "<div style='float:right;width:50%'>",
                                "<div style='clear:both'>",
                                "<div style='position:absolute;left:-5px'>",
                                "<div style='position:fixed;top:50%'>",
                                "<div style='position:relative;z-index:-1'>",
                                "<div style='display:inline-block'>",
                                "<span style='display:block'>",
                                "<span style='display:table-cell'>",
                                "<span style='display:table-row'>",
                                "<span style='display:table'>",
                                "<span style='display:inline-table'>",
                                "<span style='display:none'>",
                                "<p style='display:list-item;list-style:square inside'>",
                                "<span style='vertical-align:top'>",
                                "<span style='vertical-align:text-bottom'>",
                                "<div style='overflow:hidden;height:10px'>",
                                "<div style='margin:-9999px'>",
                                "<div style='width:99999999px'>",
                                "<td style='display:block'>",
                                "<tr style='display:inline'>",
                                "<table style='display:inline'>",
                                "<li style='float:left'>",
                                "<div style='min-width:200%;max-width:1px'>",
                                "<div style='text-indent:-99em'>",
                                "<div style='line-height:0;font-size:999em'>",
                                "<div style='white-space:pre'>",
                                "\n\n  ",
                                "<div style='border:9999px double red;border-radius:50%'>",
                                "<style>div div{float:left}td{display:inline-block}</style>",
                                "<style>*{width:50%}span,b{display:table-cell}</style>",
                                "<select>",
                                "</select>",
                                "<svg>",
                                "<math>",
                                "<form>",
                                "<nobr>",
                                "<h1>",
                                "</h2>",
                                "<pre>",
                                "<center>",
                                "&nbsp;",
                                "&#0;",
                                "<",
                                "<font size=7 color=red face=x>",
                                "</font>",
                                "<body bgcolor=red background=a>",
                                "</body>",
                                "<html>",
                                "</html>",
                                "<caption>",
                                "<colgroup><col>",
                                "<dl><dt>",
                                "<dd>",
                                "</dl>",
                                "<div style='background:red url(a) repeat-x 50% 50%'>"};

std::string PageOf(const std::uint8_t* data, std::size_t size) {
  if (size == 0 || data[0] % 2 == 1) return {reinterpret_cast<const char*>(data), size};
  std::string page;
  for (std::size_t i = 1; i < size; ++i) page += kPieces[data[i] % kPieces.size()];
  return page;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const zav::PictureRef picture =
      std::make_shared<zav::HeadlessPicture>(2, 2, std::vector<std::uint32_t>(4, 0xFF102030U));
  const auto load = [](const std::string& /*path*/) { return picture; };
  zav::HtmlLayout page(PageOf(data, size), 150, 100, {5, {}, load});
  zav::Canvas canvas(160, 120);
  page.Draw(canvas, 3, -20);
  for (int y = 0; y < 100; y += 25) {
    if (page.IdAt(y, y).size() > size) abort();
  }
  if (page.HeightPixels() < 10) abort();
  return 0;
}
