// The one place where an item lands on a target or leaves it. Everything that follows from it is
// done here: the target's look, tag and record, the response in the state section, and how often
// the source item is used.
//
// A placement that cannot be made changes nothing: whatever can fail is found out first.
#pragma once

#include <cstdint>
#include <string>

#include "form/AreaRefresh.h"
#include "form/PageLoading.h"
#include "form/SourceLook.h"
#include "form/StateRecorder.h"
#include "form/TargetLook.h"
#include "form/interaction/DragFeedback.h"

namespace zav {

class Placement {
 public:
  struct Rooms {
    StateRecorder& recorder;
    PageLoading& pages;
    TargetLook& targetLook;
    SourceLook& sourceLook;
    AreaRefresh& refresh;
    DragFeedback& feedback;
  };
  Placement(FormCore& form, const Rooms& rooms) : form_(form), rooms_(rooms) {}

  // Places the dragged item, which is the drag picture or a source item's text control. An item
  // that was on the target is released. Reports under "TargetDragDrop", with hint and frame taken
  // away first.
  void TargetDragDrop(int target, const Control& dragged);

  // Empties the target, takes its response out of the state section, and counts the uses of the
  // item that was on it again. Reports under "ClearTarget".
  void ClearTarget(int target);

  // Counts again on how many targets the source item is. One that can be used again gets its normal
  // look; SourceUsedUp tells whether its uses are spent. Reports under "CheckSourceUses".
  void CheckSourceUses(int source);
  // The same, and a source item whose uses are spent is shown so.
  void RecountUses(int source);

  // Empties every target on the screen and leaves the state section as it is.
  void ForgetPlacements();

 private:
  struct Landing;
  Landing Prepare(int target, const Control& dragged) const;
  [[nodiscard]] std::int16_t NumberOf(int source, const std::string& answerValue) const;
  void Apply(const Landing& landing);
  void EmptyTarget(int target);
  PictureRef LoadEmptyPicture(int target);
  void UpdateAnswerButton(int target);

  FormCore& form_;
  Rooms rooms_;
};

}  // namespace zav
