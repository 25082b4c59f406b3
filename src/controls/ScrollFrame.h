// A frame that shows a part of something larger. Scroll values and scrolling sizes are twips.
//
// Children move when the frame is scrolled, all but those that belong to the frame itself, such as
// a prompt in its corner.
#pragma once

#include <vector>

#include "controls/Control.h"

namespace zav {

class ScrollFrame : public Control {
 public:
  ScrollFrame(ControlHost& host, Control* container, std::string name)
      : Control(host, ControlKind::ScrollFrame, container, std::move(name)) {}

  // The size of what is scrolled.
  [[nodiscard]] float scrollWidth() const { return scrollWidth_; }
  [[nodiscard]] float scrollHeight() const { return scrollHeight_; }
  void SetScrollWidth(float width) { Set(scrollWidth_, width, change::kContent); }
  void SetScrollHeight(float height) { Set(scrollHeight_, height, change::kContent); }

  // Setters raise no event: scroll events come from the candidate only.
  [[nodiscard]] float scrollX() const { return scrollX_; }
  [[nodiscard]] float scrollY() const { return scrollY_; }
  void SetScrollX(float x) { Set(scrollX_, x, change::kContent); }
  void SetScrollY(float y) { Set(scrollY_, y, change::kContent); }

  // The candidate scrolls: the values are kept within what can be scrolled, up to where the end of
  // what is scrolled stands beside the bars, and the events of the axes that moved are raised,
  // horizontal first. Called by the platform.
  void ScrollTo(float x, float y);

  void KeepInFrame(const Control& child) { framed_.push_back(&child); }
  [[nodiscard]] bool IsInFrame(const Control& child) const;
  [[nodiscard]] Point ChildOffset(const Control& child) const override;

  Handler<void()> onHorizontalScroll;
  Handler<void()> onVerticalScroll;

 private:
  [[nodiscard]] Size MostScrolled() const;

  float scrollWidth_ = 0;
  float scrollHeight_ = 0;
  float scrollX_ = 0;
  float scrollY_ = 0;
  std::vector<const Control*> framed_;
};

}  // namespace zav
