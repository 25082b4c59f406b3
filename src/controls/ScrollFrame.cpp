#include "controls/ScrollFrame.h"

#include <algorithm>

namespace zav {

void ScrollFrame::ScrollTo(float x, float y) {
  if (!Hears()) return;
  const Size most = MostScrolled();
  const float newX = std::clamp(x, 0.0F, most.width);
  const float newY = std::clamp(y, 0.0F, most.height);
  const bool movedX = newX != scrollX_;
  const bool movedY = newY != scrollY_;
  host().RunEvent([&] {
    SetScrollX(newX);
    SetScrollY(newY);
    if (movedX && onHorizontalScroll) onHorizontalScroll();
    if (movedY && onVerticalScroll) onVerticalScroll();
  });
}

// Each bar takes room from what the other one scrolls.
Size ScrollFrame::MostScrolled() const {
  const TwipsPerPixel twips = host().twipsPerPixel();
  const auto bar = [](int perPixel) { return static_cast<float>(kScrollBarPixels * perPixel); };
  const bool isWider = scrollWidth_ > width();
  const bool isHigher = scrollHeight_ > height();
  return {isWider ? scrollWidth_ - width() + (isHigher ? bar(twips.x) : 0) : 0,
          isHigher ? scrollHeight_ - height() + (isWider ? bar(twips.y) : 0) : 0};
}

bool ScrollFrame::IsInFrame(const Control& child) const {
  return std::find(framed_.begin(), framed_.end(), &child) != framed_.end();
}

Point ScrollFrame::ChildOffset(const Control& child) const {
  if (IsInFrame(child)) return {};
  return {-scrollX_, -scrollY_};
}

}  // namespace zav
