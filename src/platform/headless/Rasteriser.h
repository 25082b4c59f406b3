// Draws a form from its controls, so that a screen can be looked at without a screen.
//
// What is drawn follows from the controls alone: their places, order, colours and contents. Text is
// measured and drawn with the fixed metrics of TextMetrics. Pages are drawn by HtmlLayout; their
// pictures come from the form's own platform.
#pragma once

#include <cstdint>
#include <vector>

#include "controls/Form.h"
#include "platform/headless/Canvas.h"

namespace zav {

// With the form's top left corner in that of the canvas; what lies outside the canvas is cut.
void DrawForm(const Form& form, Canvas& canvas);

// The form in its own size as a PNG file. Raises 5 for a form without an area.
std::vector<std::uint8_t> FormAsPng(const Form& form);

}  // namespace zav
