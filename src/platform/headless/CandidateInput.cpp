#include "platform/headless/CandidateInput.h"

#include <algorithm>
#include <utility>

#include "platform/headless/HitTest.h"

namespace zav {
namespace {

// Of the control, in the window.
Point CornerOf(const Control& control) {
  const Control* form = &control;
  while (form->container() != nullptr) form = form->container();
  const Point origin = control.OriginInForm();
  return {form->left() + origin.x, form->top() + origin.y};
}

// A place of the window in twips from the control's corner.
Point Within(const Control& control, Point at) {
  const Point corner = CornerOf(control);
  return {at.x - corner.x, at.y - corner.y};
}

float LengthAlong(const Splitter::Bar& bar, const Rect& rect) {
  return bar.upright ? rect.width : rect.height;
}

}  // namespace

void CandidateInput::Press(Point at) {
  at_ = at;
  if (!capture_) StartCapture();
  if (Control* control = Find(capture_->control)) {
    control->RaiseMouseDown(EventFor(*control, MouseButton::Left));
  }
}

void CandidateInput::StartCapture() {
  Hover();
  capture_ = Capture{};
  Control* control = ControlUnder(at_);
  if (control == nullptr || !control->enabled()) return;
  capture_->control = control->id();
  capture_->pressedAt = at_;
  if (control->kind() == ControlKind::Splitter) GrabBar(static_cast<Splitter&>(*control));
  if (control->kind() == ControlKind::HtmlPane) {
    capture_->element = pages_.ElementAt(static_cast<HtmlPane&>(*control), Within(*control, at_));
  }
  if (control->takesFocus()) Focus(*control);
}

void CandidateInput::MoveTo(Point at) {
  at_ = at;
  Control* control = capture_ ? Find(capture_->control) : Hover();
  if (control == nullptr) return;
  const MouseButton button = capture_ ? MouseButton::Left : MouseButton::None;
  if (capture_ && control->kind() == ControlKind::HtmlPane) {
    SelectText(static_cast<HtmlPane&>(*control));
  }
  control->RaiseMouseMove(EventFor(*control, button));
}

void CandidateInput::Release() {
  if (!capture_) return;
  const Capture capture = *std::exchange(capture_, {});
  if (Control* control = Find(capture.control)) {
    control->RaiseMouseUp(EventFor(*control, MouseButton::Left));
  }
  Control* control = ControlUnder(at_);
  if (capture.bar) {
    DropBar(capture);
  } else if (control != nullptr && control->id() == capture.control) {
    Click(*control, capture);
  }
  Hover();
}

void CandidateInput::Cancel() {
  if (!capture_) return;
  Control* control = Find(capture_->control);
  capture_.reset();
  if (control != nullptr) control->RaiseMouseCancel();
}

void CandidateInput::Focus(Control& control) {
  if (!control.enabled() || !control.ShownInForm() || focused_ == control.id()) return;
  focused_ = control.id();
  control.RaiseFocus();
}

void CandidateInput::Key(const KeyEvent& event) const {
  Control* control = Focused();
  if (control == nullptr || !control->ShownInForm()) return;
  if (control->kind() != ControlKind::HtmlPane) {
    control->RaiseKeyDown(event);
    return;
  }
  PageEvent pageEvent{"keydown", {}, event.alt, event.keyCode};
  static_cast<HtmlPane*>(control)->RaisePageEvent(pageEvent);
}

Control* CandidateInput::Find(ControlId id) const {
  for (Form* form : windows_.Forms()) {
    if (Control* control = FindControl(*form, id)) return control;
  }
  return nullptr;
}

Control* CandidateInput::ControlUnder(Point at) const {
  Control* found = nullptr;
  for (Form* form : windows_.Forms()) {
    if (Control* control = ControlAt(*form, Within(*form, at))) found = control;
  }
  return found;
}

Point CandidateInput::InWindow(const Control& control, Point within) {
  const Point corner = CornerOf(control);
  return {corner.x + within.x, corner.y + within.y};
}

MouseEvent CandidateInput::EventFor(const Control& control, MouseButton button) const {
  const Point at = Within(control, at_);
  return {button, at.x, at.y};
}

// The control under the pointer, which is told when the pointer was not over it before.
Control* CandidateInput::Hover() {
  Control* control = ControlUnder(at_);
  const ControlId id = control == nullptr ? 0 : control->id();
  if (std::exchange(hovered_, id) == id) return control;
  if (control != nullptr) control->RaiseHover();
  return Find(id);
}

void CandidateInput::GrabBar(const Splitter& splitter) {
  if (!splitter.enabled()) return;
  const Point at = Within(splitter, at_);
  for (const Splitter::Bar& bar : splitter.Bars()) {
    if (!bar.rect.Contains(at)) continue;
    capture_->bar = bar;
    capture_->paneSize = LengthAlong(bar, splitter.Pane(bar.key).rect);
  }
}

void CandidateInput::DropBar(const Capture& capture) const {
  Control* control = Find(capture.control);
  if (control == nullptr) return;
  auto& splitter = static_cast<Splitter&>(*control);
  const std::vector<Splitter::Bar> bars = splitter.Bars();
  const bool isThere = std::any_of(bars.begin(), bars.end(), [&](const Splitter::Bar& bar) {
    return bar.key == capture.bar->key && bar.upright == capture.bar->upright;
  });
  const float moved =
      capture.bar->upright ? at_.x - capture.pressedAt.x : at_.y - capture.pressedAt.y;
  if (isThere && moved != 0) splitter.DragBar(capture.bar->key, capture.paneSize + moved);
}

void CandidateInput::SelectText(HtmlPane& pane) {
  if (std::exchange(capture_->selecting, true)) return;
  PageEvent event{"selectstart", capture_->element};
  pane.RaisePageEvent(event);
}

// A page's click goes to the element that was both pressed and released on.
void CandidateInput::Click(Control& control, const Capture& capture) {
  if (control.kind() != ControlKind::HtmlPane) {
    control.RaiseClick();
    return;
  }
  auto& pane = static_cast<HtmlPane&>(control);
  const std::string element = pages_.ElementAt(pane, Within(pane, at_));
  PageEvent event{"click", element == capture.element ? element : ""};
  pane.RaisePageEvent(event);
}

}  // namespace zav
