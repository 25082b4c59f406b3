// What both kinds of drag, from a source item and from a target, share.
#pragma once

#include "form/AreaRefresh.h"
#include "form/ItemLookup.h"
#include "form/TargetLook.h"
#include "form/interaction/DragFeedback.h"
#include "form/interaction/DragPicture.h"
#include "form/interaction/Drawing.h"
#include "form/interaction/DropLocation.h"
#include "form/interaction/Placement.h"

namespace zav {

struct DragRooms {
  Drawing& drawing;
  DropLocation& location;
  DragPicture& picture;
  DragFeedback& feedback;
  Placement& placement;
  AreaRefresh& refresh;
  TargetLook& targetLook;
};

// Whether the pointer moved more than four pixels, on either axis, since the press. The vertical
// size of a pixel serves for both axes.
bool MovedEnough(const FormCore& form, const MouseEvent& event, std::int32_t pressX,
                 std::int32_t pressY);

// Follows the target in CurrentTarget while an item is dragged: the frame goes from the target that
// the item left to the one it came over. entered is called when it came over another target, left
// whenever it is over none.
void FollowTarget(FormCore& form, const DragRooms& rooms, FunctionRef<void(int target)> entered,
                  Procedure left);

// Ends a drag as if it had never begun: the item is where it was, and nothing shows of the drag.
void CancelDrag(FormCore& form, const DragRooms& rooms);

// A press on a cover while another one is pressed: the mouse stays with the one that was pressed,
// so its release was lost, and that drag ends.
void EndLostDrag(FormCore& form, const DragRooms& rooms, const Control& cover);

// Glides the drag picture to a source item's place, where it disappears.
void GlideToSource(FormCore& form, DragPicture& picture, int source);

// Where the source pane, or the work picture as it is scrolled now, stands on the form, in twips.
Point SourcePaneOrigin(const FormCore& form);
Point WorkPictureOrigin(const FormCore& form);

}  // namespace zav
