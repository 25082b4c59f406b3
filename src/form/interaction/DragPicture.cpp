#include "form/interaction/DragPicture.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

#include "automation/Conversions.h"

namespace zav {
namespace {

constexpr double kGlideSteps = 10;

std::int32_t GlideStep(std::int32_t from, std::int32_t to) {
  return std::abs(RoundToInt32((static_cast<double>(from) - to) / kGlideSteps));
}

}  // namespace

void GlideAxis::Advance() {
  if (position > end) position -= step;
  if (position < end) position += step;
}

// An axis that does not move counts as arrived, so that every glide ends.
bool GlideAxis::Arrived() const {
  return std::abs(static_cast<std::int64_t>(end) - position) <= step || step == 0;
}

void DragPicture::Build(const Content& content) {
  FinishGlide();
  FormControls& controls = form_.controls;
  controls.pcDrag.SetTag("");
  controls.imgDrag.SetPicture(content.picture);
  controls.imgDrag.SetTag(content.pictureTag);
  controls.imgDrag.Move({0, 0, content.pictureSize.width, content.pictureSize.height});
  controls.txtDrag.ClearContents();
  controls.txtDrag.Load(content.text);
  controls.txtDrag.SetTag(content.textTag);
  controls.txtDrag.Move(
      {0, content.pictureSize.height, content.textSize.width, content.textSize.height});
  const bool hasText = controls.txtDrag.HasText();
  controls.txtDrag.SetVisible(hasText);
  controls.pcDrag.Resize(hasText ? std::max(content.pictureSize.width, content.textSize.width)
                                 : content.pictureSize.width,
                         content.pictureSize.height + (hasText ? content.textSize.height : 0));
  controls.pcDrag.BringToFront();
}

void DragPicture::Hide() {
  form_.controls.pcDrag.Hide();
  form_.controls.pcDrag.MoveTo(0, 0);
}

void DragPicture::CentreOn(Point point) {
  const PictureBox& drag = form_.controls.pcDrag;
  MoveTo({point.x - drag.width() / 2, point.y - drag.height() / 2});
}

void DragPicture::Animate(bool fromSource, Control& object, std::int32_t x, std::int32_t y) {
  form_.Trap("Animate", [&] {
    DragState& drag = form_.drag;
    const ScrollFrame& source = form_.controls.scrSource;
    drag.AnimObject = &object;
    drag.AnimEndLeft = fromSource ? RoundToInt32(x - static_cast<double>(source.scrollX())) : x;
    drag.AnimEndTop = fromSource ? RoundToInt32(y - static_cast<double>(source.scrollY())) : y;
    drag.AnimLeft = RoundToInt32(object.left());
    drag.AnimTop = RoundToInt32(object.top());
    drag.AnimStepX = GlideStep(drag.AnimLeft, drag.AnimEndLeft);
    drag.AnimStepY = GlideStep(drag.AnimTop, drag.AnimEndTop);
    form_.controls.tmTimer.SetEnabled(true);
    object.SetTag("Dragging");
  });
}

void DragPicture::tmTimer_Timer() {
  form_.Trap("tmTimer_Timer", [&] {
    DragState& drag = form_.drag;
    GlideAxis x{drag.AnimLeft, drag.AnimEndLeft, drag.AnimStepX};
    GlideAxis y{drag.AnimTop, drag.AnimEndTop, drag.AnimStepY};
    x.Advance();
    y.Advance();
    drag.AnimLeft = x.position;
    drag.AnimTop = y.position;
    if (x.Arrived() || y.Arrived()) {
      drag.AnimObject->MoveTo(static_cast<float>(x.end), static_cast<float>(y.end));
      FinishGlide();
      return;
    }
    drag.AnimObject->MoveTo(static_cast<float>(x.position), static_cast<float>(y.position));
  });
}

void DragPicture::FinishGlide() {
  if (!Gliding()) return;
  form_.controls.tmTimer.SetEnabled(false);
  Control* object = std::exchange(form_.drag.AnimObject, nullptr);
  object->Hide();
  object->MoveTo(0, 0);
}

}  // namespace zav
