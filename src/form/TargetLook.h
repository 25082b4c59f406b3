// How a target looks, empty or with an item on it: one layout for load, drop, restore and clear.
#pragma once

#include <string>

#include "form/FormCore.h"

namespace zav {

class TargetLook {
 public:
  explicit TargetLook(FormCore& form) : form_(form) {}

  // Sizes and places the target's controls from its group's item size. A target whose group was not
  // built stays without a size.
  void Arrange(int target);
  // The source item on the target: its picture and its text, where it has them.
  void ShowItem(int target, int source);
  // The target without an item: the group's picture for that (or null), and its caption.
  void ShowEmpty(int target, PictureRef emptyPicture);

  // Picture, caption when it is visible, cover: to the front, in that order.
  void Restack(int target);
  void SetPointer(int target, Pointer pointer);

  // The target's item tag, on all of its controls that carry it.
  void SetTag(int target, const std::string& tag);

 private:
  void ArrangeHolding(int target, bool holdsItem);

  FormCore& form_;
};

}  // namespace zav
