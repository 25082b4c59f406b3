#include "platform/headless/TextLayout.h"

#include <algorithm>

namespace zav {
namespace {

// The length of the line end that text begins with; 0 when it begins with none.
std::size_t LineEndLength(std::string_view text) {
  if (text.starts_with("\r\n")) return 2;
  return text.starts_with('\n') || text.starts_with('\r') ? 1 : 0;
}

// Breaks one paragraph, which has no line end in it.
class ParagraphBreaker {
 public:
  ParagraphBreaker(std::vector<std::string_view>& lines, const TextStyle& style, int widthPixels)
      : lines_(lines), style_(style), width_(static_cast<float>(widthPixels)) {}

  void Break(std::string_view paragraph) {
    paragraph_ = paragraph;
    while (position_ < paragraph.size()) TakeNext();
    lines_.push_back(paragraph.substr(lineStart_));
  }

 private:
  void TakeNext() {
    std::string_view rest = paragraph_.substr(position_);
    const char32_t character = TakeCharacter(rest);
    const std::size_t next = paragraph_.size() - rest.size();
    lineWidth_ += AdvanceOf(character, style_);
    // A blank may stand beyond the edge: nobody sees it there.
    const bool isTooWide = lineWidth_ > width_ && character != U' ' && position_ > lineStart_;
    if (isTooWide) {
      EndLine();
      return;
    }
    position_ = next;
    if (character == U' ') wordStart_ = next;
  }

  // At the last blank, or right here where the line is one long word.
  void EndLine() {
    const bool hasBlank = wordStart_ > lineStart_;
    const std::size_t end = hasBlank ? wordStart_ : position_;
    const std::string_view line = paragraph_.substr(lineStart_, end - lineStart_);
    lines_.push_back(line.substr(0, line.find_last_not_of(' ') + 1));
    lineStart_ = position_ = wordStart_ = end;
    lineWidth_ = 0;
  }

  std::vector<std::string_view>& lines_;
  const TextStyle& style_;
  const float width_;
  std::string_view paragraph_;
  std::size_t position_ = 0;
  std::size_t lineStart_ = 0;
  std::size_t wordStart_ = 0;  // behind the last blank of the line
  float lineWidth_ = 0;
};

}  // namespace

std::vector<std::string_view> BreakLines(std::string_view text, const TextStyle& style,
                                         int widthPixels) {
  std::vector<std::string_view> lines;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find_first_of("\r\n"), text.size());
    ParagraphBreaker(lines, style, widthPixels).Break(text.substr(0, end));
    text.remove_prefix(end);
    const std::size_t lineEnd = LineEndLength(text);
    text.remove_prefix(lineEnd);
    if (lineEnd > 0 && text.empty()) lines.push_back(text);
  }
  return lines;
}

int TextHeightPixels(const RichContent& content, int widthPixels,
                     const PictureLoader& loadPicture) {
  constexpr std::size_t kMostLines = 100000;
  if (content.text.empty()) return 0;
  if (content.isHtml) {
    return HtmlHeightPixels(content.text, widthPixels,
                            {kRichTextMargin, content.font, loadPicture});
  }
  const TextStyle style = StyleOf(content.font);
  const int room = widthPixels - 2 * kRichTextMargin;
  const std::size_t lines = std::min(kMostLines, BreakLines(content.text, style, room).size());
  return static_cast<int>(lines) * LineHeightPixels(style) + 2 * kRichTextMargin;
}

}  // namespace zav
