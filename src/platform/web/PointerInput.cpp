#include "platform/web/PointerInput.h"

#include <utility>

namespace zav {
namespace {

MouseEvent EventFor(const Control& control, MouseButton button, Point at) {
  const Control* form = &control;
  while (form->container() != nullptr) form = form->container();
  const Point origin = control.OriginInForm();
  const TwipsPerPixel twips = control.host().twipsPerPixel();
  return {button, at.x * static_cast<float>(twips.x) - form->left() - origin.x,
          at.y * static_cast<float>(twips.y) - form->top() - origin.y};
}

}  // namespace

void PointerInput::Press(ControlId under, Point at) {
  if (platform_.Find(captured_) == nullptr) {
    Hover(under);
    const Control* control = platform_.Find(under);
    captured_ = control != nullptr && control->enabled() ? under : 0;
  }
  if (Control* control = platform_.Find(captured_)) {
    control->RaiseMouseDown(EventFor(*control, MouseButton::Left, at));
  }
}

void PointerInput::Move(ControlId under, Point at) {
  const bool isCaptured = captured_ != 0;
  if (!isCaptured) Hover(under);
  Control* control = platform_.Find(isCaptured ? captured_ : under);
  if (control == nullptr) return;
  const MouseButton button = isCaptured ? MouseButton::Left : MouseButton::None;
  control->RaiseMouseMove(EventFor(*control, button, at));
}

void PointerInput::Release(Point at) {
  Control* control = platform_.Find(std::exchange(captured_, 0));
  if (control != nullptr) control->RaiseMouseUp(EventFor(*control, MouseButton::Left, at));
}

void PointerInput::Cancel() {
  Control* control = platform_.Find(std::exchange(captured_, 0));
  if (control != nullptr) control->RaiseMouseCancel();
}

// A control is told when the pointer was not over it before.
void PointerInput::Hover(ControlId under) {
  if (std::exchange(hovered_, under) == under) return;
  if (Control* control = platform_.Find(under)) control->RaiseHover();
}

}  // namespace zav
