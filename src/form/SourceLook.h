// How a source item looks: usable, or used up.
#pragma once

#include "form/interaction/Drawing.h"

namespace zav {

class SourceLook {
 public:
  SourceLook(FormCore& form, Drawing& drawing) : form_(form), drawing_(drawing) {}

  // White, enabled unless the item is read-only, on its normal card.
  void ShowUsable(int source);
  // Greyed and disabled, on the card of a used-up item.
  void ShowUsedUp(int source);
  [[nodiscard]] bool LooksUsedUp(int source) const;

  // The item's card as it looks now.
  void DrawCard(int source);

 private:
  FormCore& form_;
  Drawing& drawing_;
};

}  // namespace zav
