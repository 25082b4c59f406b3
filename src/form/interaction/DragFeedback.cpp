#include "form/interaction/DragFeedback.h"

#include <algorithm>

#include "host/StaticMessages.h"

namespace zav {
namespace {

constexpr float kHintGapPixels = 5;

}  // namespace

void DragFeedback::Highlight(int target) {
  drawing_.HighlightTarget(target);
  // The callouts came back in front of the hint.
  form_.controls.pcdroptext.BringToFront();
}

void DragFeedback::RemoveHighlight() {
  if (form_.drag.HighlightedTarget > 0) drawing_.EraseTargetHighlight(form_.drag.HighlightedTarget);
}

void DragFeedback::SetReplaceLabel(bool holdsDraggedItem, int target) {
  form_.Trap("SetReplaceLabel", [&] {
    if (holdsDraggedItem || form_.tables.TargetList.Item(target).SourceID == 0) {
      HideHint();
      return;
    }
    form_.controls.lblDropText.SetCaption(GetStaticMsg(form_.Owner(), "Replace"));
    form_.controls.tmFade.SetEnabled(false);
    PlaceHint(target);
    form_.controls.pcdroptext.Show();
    form_.controls.pcdroptext.BringToFront();
  });
}

void DragFeedback::PlaceHint(int target) {
  const FormControls& controls = form_.controls;
  PictureBox& hint = form_.controls.pcdroptext;
  const ScrollFrame& frame = controls.scrWork;
  const Rect& item = controls.imgTargetCover[target].rect();
  // The visible part of the work picture, in its pixels; what sticks out of the picture is cut.
  const PictureBox& work = controls.pcWork;
  const float seenLeft = std::max(0.0F, (frame.scrollX() - work.left()) / form_.TwipsX());
  const float seenRight =
      std::min(work.width(), frame.width() + frame.scrollX() - work.left()) / form_.TwipsX();
  const float seenBottom =
      std::min(work.height(), frame.height() + frame.scrollY()) / form_.TwipsY();
  const float below = item.Bottom() + kHintGapPixels;
  const bool fitsBelow = below + hint.height() <= seenBottom;
  const float top = fitsBelow ? below : item.top - kHintGapPixels - hint.height();
  const float centred = item.left + (item.width - hint.width()) / 2;
  const float left = std::max(seenLeft, std::min(centred, seenRight - hint.width()));
  hint.MoveTo(left, top);
}

void DragFeedback::ShowReplaced() {
  if (!form_.controls.pcdroptext.visible()) return;
  form_.controls.lblDropText.SetCaption(GetStaticMsg(form_.Owner(), "Replaced"));
  form_.controls.tmFade.SetEnabled(true);
  form_.controls.pcdroptext.BringToFront();
}

void DragFeedback::tmFade_Timer() {
  HideHint();
  form_.controls.tmFade.SetEnabled(false);
}

}  // namespace zav
