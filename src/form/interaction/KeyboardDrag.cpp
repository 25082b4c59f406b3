#include "form/interaction/KeyboardDrag.h"

#include <utility>

#include "document/ItemTag.h"

namespace zav {
namespace {

bool PicksOrDrops(const KeyEvent& event) {
  return event.keyCode == key::kEnter || event.keyCode == key::kSpace;
}

int StepOf(const KeyEvent& event) {
  switch (event.keyCode) {
    case key::kRight:
    case key::kDown:
      return 1;
    case key::kLeft:
    case key::kUp:
      return -1;
    default:
      return 0;
  }
}

}  // namespace

void KeyboardDrag::SourceKey(int source, const KeyEvent& event) {
  form_.Trap("KeyboardDrag", [&] {
    if (form_.drag.ItemPressed) return;
    if (!Carrying()) {
      if (PicksOrDrops(event)) PickUp(Carried::FromSource, source);
    } else if (PicksOrDrops(event)) {
      DropOn(form_.drag.CurrentTarget);
    } else {
      CarriedKey(event);
    }
  });
}

void KeyboardDrag::TargetKey(int target, const KeyEvent& event) {
  form_.Trap("KeyboardDrag", [&] {
    if (form_.drag.ItemPressed) return;
    if (!Carrying()) {
      if (PicksOrDrops(event)) {
        PickUp(Carried::FromTarget, target);
      } else {
        targetDrag_.CoverKeyDown(target, event);
      }
      return;
    }
    const bool isOrigin =
        form_.drag.carried == Carried::FromTarget && form_.drag.carriedIndex == target;
    if (PicksOrDrops(event)) {
      DropOn(isOrigin ? form_.drag.CurrentTarget : target);
    } else {
      CarriedKey(event);
    }
  });
}

void KeyboardDrag::SourceClick(int source) {
  form_.Trap("KeyboardDrag", [&] {
    const bool same =
        form_.drag.carried == Carried::FromSource && form_.drag.carriedIndex == source;
    if (Carrying()) GiveBack();
    if (!same) PickUp(Carried::FromSource, source);
  });
}

void KeyboardDrag::TargetClick(int target) {
  form_.Trap("KeyboardDrag", [&] {
    if (Carrying()) {
      DropOn(target);
    } else {
      PickUp(Carried::FromTarget, target);
    }
  });
}

// What is carried is not seen under the pointer: the frames say where it comes from and where it
// would go.
void KeyboardDrag::PickUp(Carried from, int index) {
  rooms_.picture.FinishGlide();  // what still glides was not picked up now
  if (from == Carried::FromSource) {
    form_.drag.CurrentTarget = 0;
    sourceDrag_.SourceDragStart(index, 0, 0);
  } else {
    form_.drag.CurrentTarget = static_cast<std::int16_t>(index);
    targetDrag_.TargetDragStart(index, 0, 0);
  }
  if (!rooms_.picture.Visible()) return;
  rooms_.picture.Hide();
  form_.drag.carried = from;
  form_.drag.carriedIndex = index;
}

void KeyboardDrag::CarriedKey(const KeyEvent& event) {
  if (event.keyCode == key::kEscape) GiveBack();
  if (event.keyCode == key::kDelete) DeleteCarried();
  const int step = StepOf(event);
  if (step != 0) Walk(step);
}

void KeyboardDrag::Walk(int step) {
  const int count = static_cast<int>(form_.tables.TargetList.Count());
  int target = form_.drag.CurrentTarget;
  if (target == 0 && step < 0) target = 1;  // backwards from nowhere is the last one
  for (int seen = 0; seen < count; ++seen) {
    target = (target - 1 + step + count) % count + 1;
    if (!Takes(target)) continue;
    form_.drag.CurrentTarget = static_cast<std::int16_t>(target);
    if (form_.drag.carried == Carried::FromSource) {
      sourceDrag_.TrackTarget(form_.drag.carriedIndex);
    } else {
      targetDrag_.TrackTarget(form_.drag.carriedIndex);
    }
    return;
  }
}

void KeyboardDrag::DropOn(int target) {
  const Carried from = std::exchange(form_.drag.carried, Carried::Nothing);
  const int index = form_.drag.carriedIndex;
  if (target == 0 || !Takes(target)) {
    GiveBack();
    return;
  }
  form_.drag.CurrentTarget = static_cast<std::int16_t>(target);
  if (from == Carried::FromSource) {
    sourceDrag_.SourceMouseUp(index, 0, 0);
  } else {
    targetDrag_.FinishDrag(index);
  }
  form_.drag.CurrentTarget = 0;
}

void KeyboardDrag::DeleteCarried() {
  const bool fromTarget = form_.drag.carried == Carried::FromTarget;
  const int target = form_.drag.carriedIndex;
  GiveBack();
  if (fromTarget) targetDrag_.RemoveItem(target);
}

bool KeyboardDrag::Takes(int target) const {
  const FormControls& controls = form_.controls;
  return GetGroupId(controls.imgTarget[target].tag()) == GetGroupId(controls.imgDrag.tag());
}

}  // namespace zav
