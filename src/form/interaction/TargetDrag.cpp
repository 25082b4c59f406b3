#include "form/interaction/TargetDrag.h"

#include "automation/Conversions.h"
#include "document/ItemTag.h"

namespace zav {
namespace {

constexpr int kDeleteKey = 46;

}  // namespace

void TargetDrag::CoverMouseDown(int index, const MouseEvent& event) {
  form_.Trap("imgTargetCover_MouseDown", [&] {
    EndLostDrag(form_, rooms_, form_.controls.imgTargetCover[index]);
    if (!form_.drag.ItemPressed && HoldsAnItem(index)) {
      form_.drag.TargetPressY = RoundToInt32(event.y);
      form_.drag.TargetPressX = RoundToInt32(event.x);
      form_.controls.imgTargetCover[index].SetPointer(Pointer::Custom,
                                                      form_.controls.picGrab.picture());
      form_.drag.ItemPressed = true;
      form_.drag.CurrentTarget = static_cast<std::int16_t>(index);
    }
    rooms_.refresh.RefreshWorkArea();
  });
}

void TargetDrag::CoverMouseMove(int index, const MouseEvent& event) {
  form_.Trap("imgTargetCover_MouseMove", [&] {
    const bool dragging = rooms_.picture.Visible() && !rooms_.picture.Gliding();
    if (event.button == MouseButton::None) {
      SetHandPointer(index);
      if (dragging) CancelDrag(form_, rooms_);
      return;
    }
    if (!form_.drag.ItemPressed) return;
    if (dragging) {
      TargetMouseMove(index, event.x, event.y);
    } else if (MovedEnough(form_, event, form_.drag.TargetPressX, form_.drag.TargetPressY)) {
      if (form_.drag.carried != Carried::Nothing) CancelDrag(form_, rooms_);
      form_.drag.ItemPressed = true;
      TargetDragStart(index, event.x, event.y);
    }
  });
}

void TargetDrag::CoverMouseUp(int index, const MouseEvent& event) {
  form_.Trap("imgTargetCover_MouseUp", [&] {
    if (!form_.drag.ItemPressed) return;
    const auto drop = [&] {
      if (rooms_.picture.Visible() && !rooms_.picture.Gliding()) {
        TargetMouseUp(index, event.x, event.y);
      }
    };
    RunBoth(drop, [&] {
      form_.drag.ItemPressed = false;
      SetHandPointer(index);
      rooms_.targetLook.Restack(index);
      rooms_.refresh.RefreshWorkArea();
    });
  });
}

void TargetDrag::CoverHover(int index) {
  PictureButton& cover = form_.controls.imgTargetCover[index];
  if (rooms_.picture.Visible()) {
    cover.SetPointer(Pointer::Custom, form_.controls.picGrab.picture());
  } else if (HoldsItem(form_, index)) {
    cover.SetPointer(Pointer::Custom, form_.controls.picHand.picture());
  } else {
    cover.SetPointer(Pointer::Default);
  }
}

void TargetDrag::CoverKeyDown(int index, const KeyEvent& event) {
  form_.Trap("imgTargetCover_KeyDown", [&] {
    // What is being dragged is not deleted under the pointer.
    if (event.keyCode == kDeleteKey && !form_.drag.ItemPressed && HoldsAnItem(index)) {
      RemoveItem(index);
    }
  });
}

void TargetDrag::RemoveItem(int index) {
  rooms_.placement.ClearTarget(index);
  rooms_.targetLook.SetPointer(index, Pointer::Default);
  form_.controls.imgTargetCover[index].SetPointer(Pointer::Default);
  rooms_.drawing.EraseTargetHighlight(index);
}

void TargetDrag::TargetDragStart(int index, float /*x*/, float /*y*/) {
  form_.Trap("TargetDragStart", [&] {
    if (!HoldsAnItem(index)) return;
    FormControls& controls = form_.controls;
    const int source = SourceOf(index);
    if (source == 0) return;
    rooms_.drawing.HighlightTarget(index);
    const PictureButton& picture = controls.imgTarget[index];
    const RichText& text = controls.txtTarget[index];
    const auto twips = [&](const Control& control) { return control.SizeInTwips(); };
    rooms_.picture.Build({picture.picture(), twips(picture), controls.imgSource[source].tag(),
                          form_.tables.SourceText(source), twips(text),
                          controls.txtSource[source].tag()});
    rooms_.picture.MoveTo(OriginOnForm(index));
    rooms_.picture.Show();
  });
}

void TargetDrag::TargetMouseMove(int index, float x, float y) {
  form_.Trap("TargetMouseMove", [&] {
    if (!rooms_.picture.Visible()) return;
    const Point origin = OriginOnForm(index);
    rooms_.picture.CentreOn({origin.x + x, origin.y + y});
    form_.controls.pcdroptext.BringToFront();
    rooms_.location.CheckDragLocation("Target", index, x, y);
    TrackTarget(index);
  });
}

void TargetDrag::TrackTarget(int index) {
  FollowTarget(
      form_, rooms_, [&](int target) { EnterTarget(index, target); }, [&] { LeaveTargets(index); });
}

void TargetDrag::EnterTarget(int index, int target) {
  if (!Accepts(target, index)) {
    rooms_.targetLook.SetPointer(index, Pointer::NoDrop);
    form_.controls.imgTargetCover[index].SetPointer(Pointer::NoDrop);
    rooms_.feedback.HideHint();
    return;
  }
  rooms_.feedback.SetReplaceLabel(target == index, target);
  rooms_.feedback.Highlight(target);
  form_.controls.imgTargetCover[index].SetPointer(Pointer::Custom,
                                                  form_.controls.picGrab.picture());
  rooms_.targetLook.SetPointer(index, Pointer::Arrow);
}

void TargetDrag::LeaveTargets(int index) {
  rooms_.targetLook.SetPointer(index, Pointer::Default);
  form_.controls.imgTargetCover[index].SetPointer(Pointer::Custom,
                                                  form_.controls.picGrab.picture());
}

void TargetDrag::TargetMouseUp(int index, float /*x*/, float /*y*/) {
  if (rooms_.picture.Visible()) FinishDrag(index);
}

void TargetDrag::FinishDrag(int index) {
  const auto drop = [&] { form_.Trap("TargetMouseUp", [&] { Drop(index); }); };
  RunBoth(drop, [&] { ShowDragEnded(index); });
}

void TargetDrag::ShowDragEnded(int index) {
  form_.drag.HighlightedTarget = 0;
  if (!rooms_.picture.Gliding()) rooms_.picture.Hide();
  form_.Trap("TargetMouseUp", [&] {
    rooms_.targetLook.SetPointer(index, Pointer::Default);
    rooms_.drawing.EraseTargetHighlight(index);
    RestackAll();
    rooms_.refresh.RefreshWorkArea();
  });
}

void TargetDrag::Drop(int index) {
  const int target = form_.drag.CurrentTarget;
  if (target == index) {
    rooms_.feedback.RemoveHighlight();
  } else if (target < 1) {
    ReturnToSource(index);
  } else if (Accepts(target, index) &&
             form_.controls.imgTarget[index].pointer() != Pointer::NoDrop) {
    MoveItem(index, target);
  } else {
    GlideHome(index);
  }
}

// The item is on its new target before it leaves the old one, so that it is never on neither.
void TargetDrag::MoveItem(int index, int target) {
  const int source = SourceOf(index);
  const auto place = [&] { rooms_.placement.TargetDragDrop(target, form_.controls.pcDrag); };
  const auto leave = [&] {
    if (HoldsItem(form_, target) && SourceOf(target) == source) {
      rooms_.placement.ClearTarget(index);
    }
  };
  RunBoth(place, leave);
}

void TargetDrag::ReturnToSource(int index) {
  const int source = SourceOf(index);
  rooms_.placement.ClearTarget(index);
  GlideToSource(form_, rooms_.picture, source);
}

void TargetDrag::GlideHome(int index) {
  const Point home = OriginOnForm(index);
  rooms_.picture.Animate(false, form_.controls.pcDrag, RoundToInt32(home.x), RoundToInt32(home.y));
}

bool TargetDrag::HoldsAnItem(int index) const {
  return form_.tables.TargetList.Item(index).SourceID > 0;
}

bool TargetDrag::Accepts(int target, int index) const {
  return GetGroupId(form_.controls.imgTarget[target].tag()) ==
         GetGroupId(form_.controls.imgTarget[index].tag());
}

// The item on the target: the first source item that has its answer value.
int TargetDrag::SourceOf(int index) const {
  return FindSource(form_, form_.tables.TargetList.Item(index).SourceID);
}

Point TargetDrag::OriginOnForm(int index) const {
  const Point work = WorkPictureOrigin(form_);
  const PictureButton& picture = form_.controls.imgTarget[index];
  return {work.x + picture.left() * form_.TwipsX(), work.y + picture.top() * form_.TwipsY()};
}

void TargetDrag::SetHandPointer(int index) {
  PictureButton& cover = form_.controls.imgTargetCover[index];
  if (HoldsAnItem(index)) {
    cover.SetPointer(Pointer::Custom, form_.controls.picHand.picture());
  } else {
    cover.SetPointer(Pointer::Default);
  }
}

void TargetDrag::RestackAll() {
  const int count = static_cast<int>(form_.tables.TargetList.Count());
  for (int t = 1; t <= count; ++t) rooms_.targetLook.Restack(t);
}

}  // namespace zav
