// Formatted text: plain text in the control's font, or HTML. It measures its content and exports
// it in a form that it can load back.
#pragma once

#include <string>

#include "controls/Control.h"

namespace zav {

class RichText : public Control {
 public:
  RichText(ControlHost& host, Control* container, std::string name, int index = -1)
      : Control(host, ControlKind::RichText, container, std::move(name), index) {}

  void SetText(std::string plain);
  void LoadHtml(std::string html);
  void ClearContents();

  // Export gives a form that Load takes back unchanged. HTML is told from plain text by its
  // beginning, as everywhere in an item.
  [[nodiscard]] const std::string& Export() const { return content_; }
  void Load(std::string exported);
  // Takes over what the other holds and how high that was when it was measured last.
  void LoadFrom(const RichText& other);

  [[nodiscard]] bool IsHtmlContent() const { return isHtml_; }
  [[nodiscard]] bool HasText() const { return !content_.empty(); }

  // Of the content laid out as wide as the control is now, in twips; 0 without content.
  [[nodiscard]] float ContentHeightTwips() const;
  // The same for a width other than the control's own, in twips.
  [[nodiscard]] float ContentHeightTwips(float widthTwips) const;

 private:
  static constexpr int kNever = -1;

  void SetContent(bool isHtml, std::string text);

  bool isHtml_ = false;
  std::string content_;
  // The height that the content took when it was measured last, laid out that wide in that font.
  mutable int measuredHeight_ = 0;
  mutable int measuredWidth_ = kNever;
  mutable Font measuredFont_;
};

}  // namespace zav
