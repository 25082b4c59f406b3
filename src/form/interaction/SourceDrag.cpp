#include "form/interaction/SourceDrag.h"

#include "automation/Conversions.h"
#include "document/ItemTag.h"
#include "host/StaticMessages.h"

namespace zav {

void SourceDrag::CoverMouseDown(int index, const MouseEvent& event) {
  form_.Trap("imgSourceCover_MouseDown", [&] {
    EndLostDrag(form_, rooms_, form_.controls.imgSourceCover[index]);
    if (form_.drag.ItemPressed) return;
    form_.drag.PressY = RoundToInt32(event.y);
    form_.drag.PressX = RoundToInt32(event.x);
    SetCoverPointer(index, form_.controls.picGrab);
    form_.drag.CurrentTarget = 0;
    form_.drag.ItemPressed = true;
  });
}

void SourceDrag::CoverMouseMove(int index, const MouseEvent& event) {
  form_.Trap("imgSourceCover_MouseMove", [&] {
    if (event.button == MouseButton::None) {
      SetCoverPointer(index, form_.controls.picHand);
      if (rooms_.picture.Visible() && !rooms_.picture.Gliding()) CancelDrag(form_, rooms_);
      return;
    }
    if (!form_.drag.ItemPressed) return;
    if (rooms_.picture.Visible() && !rooms_.picture.Gliding()) {
      SourceMouseMove(index, event.x, event.y);
    } else if (MovedEnough(form_, event, form_.drag.PressX, form_.drag.PressY)) {
      if (form_.drag.carried != Carried::Nothing) CancelDrag(form_, rooms_);
      form_.drag.ItemPressed = true;
      SourceDragStart(index, event.x, event.y);
    }
  });
}

void SourceDrag::CoverMouseUp(int index, const MouseEvent& event) {
  form_.Trap("imgSourceCover_MouseUp", [&] {
    if (!form_.drag.ItemPressed) return;
    const auto drop = [&] {
      if (rooms_.picture.Visible() && !rooms_.picture.Gliding()) {
        SourceMouseUp(index, event.x, event.y);
      }
    };
    RunBoth(drop, [&] {
      form_.controls.imgSourceCover[index].BringToFront();
      form_.drag.PressX = 0;
      form_.drag.PressY = 0;
      form_.drag.ItemPressed = false;
    });
  });
}

void SourceDrag::CoverHover(int index) { SetCoverPointer(index, form_.controls.picHand); }

void SourceDrag::SourceDragStart(int index, float /*x*/, float /*y*/) {
  form_.Trap("SourceDragStart", [&] {
    FormControls& controls = form_.controls;
    const PictureButton& picture = controls.imgSource[index];
    const RichText& text = controls.txtSource[index];
    const float textHeight =
        text.HasText() && picture.picture() ? text.ContentHeightTwips() : text.height();
    rooms_.picture.Build({picture.picture(),
                          {picture.width(), picture.height()},
                          picture.tag(),
                          form_.tables.SourceText(index),
                          {text.width(), textHeight},
                          text.tag()});
    const Point pane = SourcePaneOrigin(form_);
    const PictureButton& cover = controls.imgSourceCover[index];
    rooms_.picture.MoveTo({pane.x + cover.left() - controls.scrSource.scrollX(),
                           pane.y + cover.top() - controls.scrSource.scrollY()});
    rooms_.drawing.HighlightSource(index);
    const int groups = static_cast<int>(form_.tables.GroupList.Count());
    for (int k = 1; k <= groups; ++k) controls.txtSourceHeading[k].BringToFront();
    rooms_.picture.Show();
  });
}

void SourceDrag::SourceMouseMove(int index, float x, float y) {
  form_.Trap("SourceMouseMove", [&] {
    if (!rooms_.picture.Visible()) return;
    const FormControls& controls = form_.controls;
    x -= controls.scrSource.scrollX();
    y -= controls.scrSource.scrollY();
    const Point pane = SourcePaneOrigin(form_);
    const PictureButton& cover = controls.imgSourceCover[index];
    rooms_.picture.CentreOn({pane.x + cover.left() + x, pane.y + cover.top() + y});
    form_.controls.pcdroptext.BringToFront();
    rooms_.location.CheckDragLocation("Source", index, x, y);
    TrackTarget(index);
  });
}

void SourceDrag::TrackTarget(int index) {
  FollowTarget(
      form_, rooms_, [&](int target) { EnterTarget(index, target); }, [&] { LeaveTargets(index); });
}

void SourceDrag::EnterTarget(int index, int target) {
  if (!Accepts(target, index)) {
    SetItemPointer(index, Pointer::NoDrop);
    form_.controls.imgSourceCover[index].SetPointer(Pointer::NoDrop);
    rooms_.feedback.HideHint();
    return;
  }
  rooms_.feedback.SetReplaceLabel(Holds(target, index), target);
  rooms_.feedback.Highlight(target);
  SetCoverPointer(index, form_.controls.picGrab);
  SetItemPointer(index, Pointer::Arrow);
}

void SourceDrag::LeaveTargets(int index) {
  SetItemPointer(index, Pointer::Default);
  SetCoverPointer(index, form_.controls.picGrab);
}

void SourceDrag::SourceMouseUp(int index, float /*x*/, float /*y*/) {
  const auto drop = [&] { form_.Trap("SourceMouseUp", [&] { Drop(index); }); };
  RunBoth(drop, [&] { ShowDragEnded(index); });
}

void SourceDrag::ShowDragEnded(int index) {
  form_.drag.HighlightedTarget = 0;
  if (!rooms_.picture.Gliding()) rooms_.picture.Hide();
  form_.Trap("SourceMouseUp", [&] {
    form_.controls.imgSourceCover[index].SetPointer(Pointer::Default);
    SetItemPointer(index, Pointer::Default);
    rooms_.refresh.RefreshSourceArea();
    rooms_.refresh.RefreshWorkArea();
  });
}

void SourceDrag::Drop(int index) {
  const int target = form_.drag.CurrentTarget;
  const bool allowed = target >= 1 && Accepts(target, index) &&
                       form_.controls.imgSource[index].pointer() != Pointer::NoDrop;
  if (!allowed) {
    GlideToSource(form_, rooms_.picture, index);
    return;
  }
  if (form_.tables.SourceUses(index, 1) < form_.tables.SourceUses(index, 2)) {
    const std::int16_t most = form_.tables.SourceUses(index, 1);
    ShowMessage(form_.Owner(), GetStaticMsg(form_.Owner(), "NumSourceUses", true, most),
                message_style::kNotice);
    GlideToSource(form_, rooms_.picture, index);
    rooms_.feedback.RemoveHighlight();
    rooms_.feedback.HideHint();
    return;
  }
  Place(index);
}

void SourceDrag::Place(int index) {
  const auto place = [&] {
    rooms_.placement.TargetDragDrop(form_.drag.CurrentTarget, form_.controls.pcDrag);
  };
  RunBoth(place, [&] { rooms_.placement.RecountUses(index); });
  form_.controls.imgSourceCover[index].BringToFront();
}

bool SourceDrag::Accepts(int target, int index) const {
  return GetGroupId(form_.controls.imgTarget[target].tag()) ==
         GetGroupId(form_.controls.imgSource[index].tag());
}

bool SourceDrag::Holds(int target, int index) const {
  return FindSource(form_, form_.tables.TargetList.Item(target).SourceID) == index;
}

void SourceDrag::SetCoverPointer(int index, const PictureBox& hand) {
  form_.controls.imgSourceCover[index].SetPointer(Pointer::Custom, hand.picture());
}

void SourceDrag::SetItemPointer(int index, Pointer pointer) {
  form_.controls.imgSource[index].SetPointer(pointer);
  form_.controls.txtSource[index].SetPointer(pointer);
}

}  // namespace zav
