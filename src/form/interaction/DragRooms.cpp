#include "form/interaction/DragRooms.h"

#include <cmath>

#include "automation/Conversions.h"

namespace zav {
namespace {

constexpr float kDragThresholdPixels = 4;

void ResetPointers(FormControls& controls) {
  for (int s = 1; s <= controls.imgSource.UpperBound(); ++s) {
    controls.imgSource[s].SetPointer(Pointer::Default);
    controls.txtSource[s].SetPointer(Pointer::Default);
  }
  for (int t = 1; t <= controls.imgTarget.UpperBound(); ++t) {
    controls.imgTarget[t].SetPointer(Pointer::Default);
    controls.txtTarget[t].SetPointer(Pointer::Default);
  }
}

}  // namespace

bool MovedEnough(const FormCore& form, const MouseEvent& event, std::int32_t pressX,
                 std::int32_t pressY) {
  const float threshold = kDragThresholdPixels * form.TwipsY();
  return threshold < std::abs(event.y - static_cast<float>(pressY)) ||
         threshold < std::abs(event.x - static_cast<float>(pressX));
}

void FollowTarget(FormCore& form, const DragRooms& rooms, FunctionRef<void(int)> entered,
                  Procedure left) {
  DragState& drag = form.drag;
  if (drag.CurrentTarget < 1) {
    if (drag.HighlightedTarget > 0) {
      rooms.feedback.RemoveHighlight();
      rooms.feedback.HideHint();
    }
    left();
  } else if (drag.CurrentTarget != drag.HighlightedTarget) {
    entered(drag.CurrentTarget);
    rooms.feedback.RemoveHighlight();
  }
  drag.HighlightedTarget = drag.CurrentTarget;
}

void CancelDrag(FormCore& form, const DragRooms& rooms) {
  rooms.picture.FinishGlide();
  rooms.picture.Hide();
  rooms.feedback.HideHint();
  form.controls.tmFade.SetEnabled(false);
  form.drag.ItemPressed = false;
  form.drag.carried = Carried::Nothing;
  form.drag.HighlightedTarget = 0;
  form.drag.CurrentTarget = 0;
  ResetPointers(form.controls);
  rooms.refresh.RefreshSourceArea();
  rooms.refresh.RefreshWorkArea();
}

void EndLostDrag(FormCore& form, const DragRooms& rooms, const Control& cover) {
  if (form.drag.ItemPressed && form.drag.PressedCover != &cover) CancelDrag(form, rooms);
  form.drag.PressedCover = &cover;
}

void GlideToSource(FormCore& form, DragPicture& picture, int source) {
  const Point pane = SourcePaneOrigin(form);
  const PictureButton& home = form.controls.imgSource[source];
  picture.Animate(true, form.controls.pcDrag, RoundToInt32(pane.x + home.left()),
                  RoundToInt32(pane.y + home.top()));
}

Point SourcePaneOrigin(const FormCore& form) {
  const Splitter& splitter = form.controls.spSplitter;
  const Rect& pane = splitter.Pane("SourceArea").rect;
  return {splitter.left() + pane.left, splitter.top() + pane.top};
}

Point WorkPictureOrigin(const FormCore& form) {
  const FormControls& controls = form.controls;
  const Rect& pane = controls.spSplitter.Pane("WorkArea").rect;
  return {controls.spSplitter.left() + pane.left + controls.scrWork.left() +
              controls.pcWork.left() - controls.scrWork.scrollX(),
          controls.spSplitter.top() + pane.top + controls.scrWork.top() + controls.pcWork.top() -
              controls.scrWork.scrollY()};
}

}  // namespace zav
