// Placing items without holding the mouse: an item is picked up by a key or by a click, carried
// over the targets that take it, and dropped, given back or deleted.
//
// Nothing of it has rules of its own: picking up, showing a target and dropping are the same steps
// as in a drag with the pointer, so that counts, messages and placements are the same too. A drag
// that begins with the pointer gives a carried item back first.
#pragma once

#include "form/interaction/SourceDrag.h"
#include "form/interaction/TargetDrag.h"

namespace zav {

namespace key {
inline constexpr int kEnter = 13;
inline constexpr int kEscape = 27;
inline constexpr int kSpace = 32;
inline constexpr int kLeft = 37;
inline constexpr int kUp = 38;
inline constexpr int kRight = 39;
inline constexpr int kDown = 40;
inline constexpr int kDelete = 46;
}  // namespace key

class KeyboardDrag {
 public:
  KeyboardDrag(FormCore& form, const DragRooms& rooms, SourceDrag& sourceDrag,
               TargetDrag& targetDrag)
      : form_(form), rooms_(rooms), sourceDrag_(sourceDrag), targetDrag_(targetDrag) {}

  // A key on the cover of a source item or of a target. Enter and the space bar pick the item up,
  // or drop the carried one: on the target that has the focus, else on the one walked to. Arrows
  // walk the targets of the item's group. Escape gives the item back, Delete takes a placed item
  // off its target. Both report under "KeyboardDrag".
  void SourceKey(int source, const KeyEvent& event);
  void TargetKey(int target, const KeyEvent& event);

  // A press and release without a drag in between: picks up, or drops what is carried.
  void SourceClick(int source);
  void TargetClick(int target);
  // Whether the release that comes now ends such a click.
  [[nodiscard]] bool IsClick() const { return form_.drag.ItemPressed && !rooms_.picture.Visible(); }
  [[nodiscard]] bool Carrying() const { return form_.drag.carried != Carried::Nothing; }

 private:
  void PickUp(Carried from, int index);
  void CarriedKey(const KeyEvent& event);
  void Walk(int step);
  void DropOn(int target);
  void GiveBack() { CancelDrag(form_, rooms_); }
  void DeleteCarried();
  [[nodiscard]] bool Takes(int target) const;

  FormCore& form_;
  DragRooms rooms_;
  SourceDrag& sourceDrag_;
  TargetDrag& targetDrag_;
};

}  // namespace zav
