// The gesture that takes an item from the source area: press, drag, and drop on a target, or glide
// back. A lost release, a second press and a pointer that the system took away all end it with
// nothing changed.
#pragma once

#include "form/interaction/DragRooms.h"

namespace zav {

class SourceDrag {
 public:
  SourceDrag(FormCore& form, const DragRooms& rooms) : form_(form), rooms_(rooms) {}

  // Handlers of imgSourceCover; index is that of the source item. They report under the names of
  // the events: "imgSourceCover_MouseDown" and so on.
  void CoverMouseDown(int index, const MouseEvent& event);
  void CoverMouseMove(int index, const MouseEvent& event);
  void CoverMouseUp(int index, const MouseEvent& event);
  void CoverHover(int index);

  void SourceDragStart(int index, float x, float y);
  void SourceMouseMove(int index, float x, float y);
  void SourceMouseUp(int index, float x, float y);
  // What shows of the target in CurrentTarget.
  void TrackTarget(int index);

 private:
  void EnterTarget(int index, int target);
  void LeaveTargets(int index);
  void Drop(int index);
  void Place(int index);
  void ShowDragEnded(int index);
  [[nodiscard]] bool Accepts(int target, int index) const;
  [[nodiscard]] bool Holds(int target, int index) const;
  void SetCoverPointer(int index, const PictureBox& hand);
  void SetItemPointer(int index, Pointer pointer);

  FormCore& form_;
  DragRooms rooms_;
};

}  // namespace zav
