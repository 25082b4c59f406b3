#include "controls/ScrollFrame.h"

#include <algorithm>

namespace zav {

void ScrollFrame::ScrollTo(float x, float y) {
  if (!Hears()) return;
  const float newX = std::clamp(x, 0.0F, std::max(0.0F, scrollWidth_ - width()));
  const float newY = std::clamp(y, 0.0F, std::max(0.0F, scrollHeight_ - height()));
  const bool movedX = newX != scrollX_;
  const bool movedY = newY != scrollY_;
  host().RunEvent([&] {
    SetScrollX(newX);
    SetScrollY(newY);
    if (movedX && onHorizontalScroll) onHorizontalScroll();
    if (movedY && onVerticalScroll) onVerticalScroll();
  });
}

bool ScrollFrame::IsInFrame(const Control& child) const {
  return std::find(framed_.begin(), framed_.end(), &child) != framed_.end();
}

Point ScrollFrame::ChildOffset(const Control& child) const {
  if (IsInFrame(child)) return {};
  return {-scrollX_, -scrollY_};
}

}  // namespace zav
