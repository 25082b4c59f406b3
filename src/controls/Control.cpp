#include "controls/Control.h"

#include <utility>

namespace zav {

Control::Control(ControlHost& host, ControlKind kind, Control* container, std::string name,
                 int index)
    : host_(host),
      kind_(kind),
      id_(ControlHost::NextId()),
      name_(std::move(name)),
      index_(index),
      container_(container) {
  host_.Add();
  if (container_ != nullptr) {
    place_ = container_->children_.insert(container_->children_.end(), this);
    zOrder_ = ++container_->topOrder_;
  }
  Changed(change::kAll);
}

Control::~Control() {
  if (container_ != nullptr) container_->children_.erase(place_);
  host_.Forget(*this);
}

void Control::Changed(unsigned what) {
  if (changes_ == 0) host_.MarkChanged(*this);
  changes_ |= what;
}

void Control::Move(const Rect& rect) {
  if (rect_ == rect) return;
  const bool resized = rect_.width != rect.width || rect_.height != rect.height;
  rect_ = rect;
  Changed(change::kPlace);
  if (!resized) return;
  SizeChanged();
  if (onResize) onResize();
}

void Control::SetVisible(bool visible) { Set(visible_, visible, change::kVisible); }
void Control::SetEnabled(bool enabled) { Set(enabled_, enabled, change::kLook); }
void Control::SetBackColor(std::int32_t color) { Set(backColor_, color, change::kLook); }
void Control::SetForeColor(std::int32_t color) { Set(foreColor_, color, change::kLook); }

void Control::SetFont(Font font) { Set(font_, std::move(font), change::kLook | change::kContent); }

void Control::SetPointer(Pointer pointer, PictureRef picture) {
  Set(pointer_, pointer, change::kLook);
  Set(pointerPicture_, std::move(picture), change::kLook);
}

void Control::BringToFront() {
  if (container_ == nullptr || zOrder_ == container_->topOrder_) return;
  zOrder_ = ++container_->topOrder_;
  Changed(change::kOrder);
}

Size Control::TwipsPerUnit() const {
  if (container_ == nullptr || container_->scaleMode_ == ScaleMode::Twips) return {1, 1};
  const TwipsPerPixel twips = host_.twipsPerPixel();
  return {static_cast<float>(twips.x), static_cast<float>(twips.y)};
}

Size Control::SizeInTwips() const {
  const Size unit = TwipsPerUnit();
  return {rect_.width * unit.width, rect_.height * unit.height};
}

Point Control::OriginInForm() const {
  Point origin;
  for (const Control* control = this; control->container_ != nullptr;
       control = control->container_) {
    const Size unit = control->TwipsPerUnit();
    const Point offset = control->container_->ChildOffset(*control);
    origin.x += control->rect_.left * unit.width + offset.x;
    origin.y += control->rect_.top * unit.height + offset.y;
  }
  return origin;
}

bool Control::ShownInForm() const {
  for (const Control* control = this; control != nullptr; control = control->container_) {
    if (!control->visible_) return false;
  }
  return true;
}

Point Control::ChildOffset(const Control& /*child*/) const { return {}; }

bool Control::Hears() const { return enabled_ && host_.takesInput(); }

void Control::RaiseMouseDown(const MouseEvent& event) {
  if (Hears() && onMouseDown) host_.RunEvent([&] { onMouseDown(event); });
}

void Control::RaiseMouseMove(const MouseEvent& event) {
  // A control that was disabled in its own drag still hears how the drag goes on.
  const bool hears = Hears() || (event.button != MouseButton::None && host_.takesInput());
  if (hears && onMouseMove) host_.RunEvent([&] { onMouseMove(event); });
}

void Control::RaiseMouseUp(const MouseEvent& event) {
  if (host_.takesInput() && onMouseUp) host_.RunEvent([&] { onMouseUp(event); });
}

void Control::RaiseMouseCancel() {
  if (onMouseCancel) host_.RunEventInTurn(*this, [this] { onMouseCancel(); });
}

void Control::RaiseHover() {
  if (Hears() && onHover) host_.RunEvent([&] { onHover(); });
}

void Control::RaiseClick() {
  if (Hears() && onClick) host_.RunEvent([&] { onClick(); });
}

void Control::RaiseKeyDown(const KeyEvent& event) {
  if (Hears() && onKeyDown) host_.RunEvent([&] { onKeyDown(event); });
}

void Control::RaiseFocus() {
  if (Hears() && onFocus) host_.RunEvent([&] { onFocus(); });
}

void Control::CopyFrom(const Control& model) {
  rect_ = model.rect_;
  enabled_ = model.enabled_;
  takesFocus_ = model.takesFocus_;
  backColor_ = model.backColor_;
  foreColor_ = model.foreColor_;
  font_ = model.font_;
  pointer_ = model.pointer_;
  pointerPicture_ = model.pointerPicture_;
  scaleMode_ = model.scaleMode_;
  Changed(change::kAll);
}

}  // namespace zav
