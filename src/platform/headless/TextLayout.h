// Lays out plain text in lines, and measures what a rich-text control holds.
#pragma once

#include <string_view>
#include <vector>

#include "platform/Services.h"
#include "platform/headless/HtmlLayout.h"
#include "platform/headless/TextMetrics.h"

namespace zav {

// Breaks text into lines that are no wider than the given width: at line ends (CR LF, CR or LF), at
// blanks, and within a word that is wider than a whole line. Blanks at which a line is broken
// belong to no line. Every line holds at least one character of a text that has any, however narrow
// it is. Empty text has no lines, text that ends with a line end has an empty last one. The lines
// are parts of text.
std::vector<std::string_view> BreakLines(std::string_view text, const TextStyle& style,
                                         int widthPixels);

// Between the edges of a rich-text control and what it holds.
inline constexpr int kRichTextMargin = 3;

// The height that a rich-text control of that width needs for its content, margins included; 0
// without content. Pictures of HTML content come from loadPicture.
int TextHeightPixels(const RichContent& content, int widthPixels,
                     const PictureLoader& loadPicture = {});

}  // namespace zav
