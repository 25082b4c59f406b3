// What the candidate sees of a drag over targets: the highlight frame, and the hint that an item
// would be, or was, replaced.
#pragma once

#include "form/interaction/Drawing.h"

namespace zav {

class DragFeedback {
 public:
  DragFeedback(FormCore& form, Drawing& drawing) : form_(form), drawing_(drawing) {}

  // Frames the target that the drag came over.
  void Highlight(int target);
  // Takes the frame of the highlighted target away, if one is highlighted.
  void RemoveHighlight();

  // Shows the hint at a target that holds another item than the dragged one; hides it otherwise.
  // holdsDraggedItem: the target holds the very item, or is where the drag began. Reports under
  // "SetReplaceLabel".
  void SetReplaceLabel(bool holdsDraggedItem, int target);
  void HideHint() { form_.controls.pcdroptext.Hide(); }
  // Turns a hint that shows into the notice that an item was replaced, for a while.
  void ShowReplaced();
  void tmFade_Timer();

 private:
  void PlaceHint(int target);

  FormCore& form_;
  Drawing& drawing_;
};

}  // namespace zav
