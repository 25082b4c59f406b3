// The gesture that takes an item from a target: to another target of its group, back to its own,
// or away, which empties the target. The target keeps its item until the drop.
#pragma once

#include "form/interaction/DragRooms.h"

namespace zav {

class TargetDrag {
 public:
  TargetDrag(FormCore& form, const DragRooms& rooms) : form_(form), rooms_(rooms) {}

  // Handlers of imgTargetCover; index is that of the target. Those of press and release report
  // under "imgTargetCover_MouseDown" and "imgTargetCover_MouseUp", the others under the names that
  // they have with "imgTargetCover_" in front.
  void CoverMouseDown(int index, const MouseEvent& event);
  void CoverMouseMove(int index, const MouseEvent& event);
  void CoverMouseUp(int index, const MouseEvent& event);
  void CoverKeyDown(int index, const KeyEvent& event);
  void CoverHover(int index);
  void CoverFocus(int index) { rooms_.targetLook.Restack(index); }

  void TargetDragStart(int index, float x, float y);
  void TargetMouseMove(int index, float x, float y);
  void TargetMouseUp(int index, float x, float y);
  // The two halves of a drag that need no pointer: what shows of the target in CurrentTarget, and
  // the drop there.
  void TrackTarget(int index);
  void FinishDrag(int index);

  // Takes the item off the target, as the Delete key does.
  void RemoveItem(int index);

 private:
  void EnterTarget(int index, int target);
  void LeaveTargets(int index);
  void Drop(int index);
  void ShowDragEnded(int index);
  void MoveItem(int index, int target);
  void ReturnToSource(int index);
  void GlideHome(int index);
  [[nodiscard]] bool HoldsAnItem(int index) const;
  [[nodiscard]] bool Accepts(int target, int index) const;
  [[nodiscard]] int SourceOf(int index) const;
  [[nodiscard]] Point OriginOnForm(int index) const;
  void SetHandPointer(int index);
  void RestackAll();

  FormCore& form_;
  DragRooms rooms_;
};

}  // namespace zav
