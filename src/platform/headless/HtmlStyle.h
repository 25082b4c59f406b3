// The looks of elements where a page does not say otherwise.
#pragma once

namespace zav {

inline constexpr const char* kHtmlStyle = R"css(
html, body, div, p, center, blockquote, form, fieldset, address, pre,
h1, h2, h3, h4, h5, h6, ul, ol, dl, dt, dd, hr { display: block; }
html, body { height: 100%; margin: 0; }
head, style, script, title, link, meta { display: none; }
p { margin: 1em 0; }
h1 { font-size: 2em; margin: 0.67em 0; font-weight: bold; }
h2 { font-size: 1.5em; margin: 0.75em 0; font-weight: bold; }
h3 { font-size: 1.17em; margin: 0.83em 0; font-weight: bold; }
h4 { margin: 1.12em 0; font-weight: bold; }
h5 { font-size: 0.83em; margin: 1.5em 0; font-weight: bold; }
h6 { font-size: 0.75em; margin: 1.67em 0; font-weight: bold; }
b, strong, th { font-weight: bold; }
i, em, cite, dfn, var, address { font-style: italic; }
u, ins { text-decoration: underline; }
s, strike, del { text-decoration: line-through; }
small, sub, sup { font-size: 0.83em; }
sub { position: relative; top: 0.3em; }
sup { position: relative; top: -0.4em; }
big { font-size: 1.17em; }
center, th, caption { text-align: center; }
blockquote { margin: 1em 40px; }
pre { white-space: pre; margin: 1em 0; }
nobr { white-space: nowrap; }
ul, ol { margin: 1em 0; padding-left: 40px; }
ul { list-style-type: disc; }
ol { list-style-type: decimal; }
li { display: list-item; }
dl { margin: 1em 0; }
dd { margin-left: 40px; }
hr { border: 1px inset #c0c0c0; margin: 8px 0; }
br, img { display: inline-block; }
table { display: table; border-collapse: separate; border-spacing: 2px; }
table { border-top-color: gray; border-left-color: gray; text-indent: 0; }
tbody { display: table-row-group; vertical-align: middle; }
thead { display: table-header-group; vertical-align: middle; }
tfoot { display: table-footer-group; vertical-align: middle; }
tr { display: table-row; vertical-align: inherit; }
td, th { display: table-cell; vertical-align: inherit; padding: 1px; }
caption { display: table-caption; }
table[border] { border: 1px solid #a8b0b8; }
table[border] td, table[border] th { border: 1px solid #a8b0b8; padding: 2px 4px; }
table[border="0"], table[border="0"] td, table[border="0"] th { border: none; padding: 1px; }
button { display: inline-block; box-sizing: border-box; padding: 1px 4px;
  border: 1px outset #8a8a8a; border-radius: 3px; background: #f0f0f0; color: black;
  text-align: center; white-space: nowrap; overflow: hidden; }
)css";

}  // namespace zav
