// The candidate's pointer: from what the page saw to the events of controls.
//
// The page says which control lies under the pointer; places are CSS pixels of the window that the
// forms stand in. A press captures the pointer for the control under it until the button goes up.
#pragma once

#include <optional>

#include "controls/Control.h"
#include "platform/web/WebPlatform.h"

namespace zav {

class PointerInput {
 public:
  explicit PointerInput(const WebPlatform& platform) : platform_(platform) {}

  void Press(ControlId under, Point at);
  void Move(ControlId under, Point at);
  void Release(Point at);
  // Pressed and released on the control.
  static void Click(Control& control) { control.RaiseClick(); }
  // The system takes the pointer away.
  void Cancel();
  // The button went up where the page did not hear of it.
  void LoseRelease() { captured_ = 0; }

 private:
  void Hover(ControlId under);

  const WebPlatform& platform_;
  ControlId captured_ = 0;
  ControlId hovered_ = 0;
};

}  // namespace zav
