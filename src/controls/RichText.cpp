#include "controls/RichText.h"

#include <utility>

#include "automation/Text.h"

namespace zav {

void RichText::SetContent(bool isHtml, std::string text) {
  if (isHtml_ != isHtml || content_ != text) measuredWidth_ = kNever;
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

void RichText::LoadFrom(const RichText& other) {
  SetContent(other.isHtml_, other.content_);
  measuredHeight_ = other.measuredHeight_;
  measuredWidth_ = other.measuredWidth_;
  measuredFont_ = other.measuredFont_;
}

float RichText::ContentHeightTwips() const { return ContentHeightTwips(SizeInTwips().width); }

float RichText::ContentHeightTwips(float widthTwips) const {
  if (content_.empty()) return 0;
  const TwipsPerPixel twips = host().twipsPerPixel();
  const int widthPixels = static_cast<int>(widthTwips / static_cast<float>(twips.x));
  if (measuredWidth_ != widthPixels || measuredFont_ != font()) {
    measuredHeight_ = host().services().RichTextHeight({isHtml_, content_, font()}, widthPixels);
    measuredWidth_ = widthPixels;
    measuredFont_ = font();
  }
  return static_cast<float>(measuredHeight_ * twips.y);
}

}  // namespace zav
