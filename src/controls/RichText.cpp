#include "controls/RichText.h"

#include <utility>

#include "automation/Text.h"

namespace zav {

void RichText::SetContent(bool isHtml, std::string text) {
  isHtml_ = isHtml;
  Set(content_, std::move(text), change::kContent);
}

void RichText::SetText(std::string plain) { SetContent(false, std::move(plain)); }
void RichText::LoadHtml(std::string html) { SetContent(true, std::move(html)); }
void RichText::ClearContents() { SetContent(false, {}); }

void RichText::Load(std::string exported) {
  const bool isHtml = IsHtml(exported);
  SetContent(isHtml, std::move(exported));
}

float RichText::ContentHeightTwips() const { return ContentHeightTwips(SizeInTwips().width); }

float RichText::ContentHeightTwips(float widthTwips) const {
  if (content_.empty()) return 0;
  const TwipsPerPixel twips = host().twipsPerPixel();
  const int widthPixels = static_cast<int>(widthTwips / static_cast<float>(twips.x));
  const int height = host().services().RichTextHeight({isHtml_, content_, font()}, widthPixels);
  return static_cast<float>(height * twips.y);
}

}  // namespace zav
