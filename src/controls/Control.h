// A control holds properties and raises events; it draws nothing. A platform shows it from what
// it holds and calls the Raise operations when the candidate does something to it.
//
// Position and size are in the units of the container: twips, or pixels where the container's
// scale is pixels. Mouse positions are twips relative to the control that raised the event,
// whatever its container's scale. The mouse stays with the control that was pressed until release.
#pragma once

#include <cstddef>
#include <cstdint>
#include <list>
#include <string>
#include <string_view>

#include "automation/Handler.h"
#include "controls/ControlHost.h"
#include "platform/Geometry.h"
#include "platform/Picture.h"
#include "platform/Services.h"

namespace zav {

enum class ControlKind {
  Form,
  PictureBox,
  PictureButton,
  Label,
  HtmlPane,
  RichText,
  ScrollFrame,
  Splitter,
};

enum class ScaleMode { Twips, Pixels };

enum class Pointer { Default = 0, Arrow = 1, NoDrop = 12, Custom = 99 };

// Colours are 0x00BBGGRR; a system colour has the top bit set.
namespace color {
inline constexpr std::int32_t kWhite = 0x00FFFFFF;
inline constexpr std::int32_t kBlack = 0;
inline constexpr std::int32_t kButtonFace = static_cast<std::int32_t>(0x8000000F);
}  // namespace color

enum class MouseButton { None, Left, Right };

struct MouseEvent {
  MouseButton button = MouseButton::None;
  float x = 0;  // twips, relative to the control
  float y = 0;
};

struct KeyEvent {
  int keyCode = 0;  // 46 is Delete
  bool alt = false;
};

// What about a control changed since it was last presented.
namespace change {
inline constexpr unsigned kPlace = 1;     // position or size
inline constexpr unsigned kVisible = 2;   // visibility
inline constexpr unsigned kOrder = 4;     // place among its siblings
inline constexpr unsigned kLook = 8;      // colours, font, caption, picture, pointer, enabled
inline constexpr unsigned kContent = 16;  // drawing, page, text, scroll position
inline constexpr unsigned kAll = 31;
}  // namespace change

class Control {
 public:
  // container is null for a form only; it outlives the control. index is the place in a control
  // array, -1 for a control that is not in one.
  Control(ControlHost& host, ControlKind kind, Control* container, std::string name,
          int index = -1);
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;
  virtual ~Control();

  [[nodiscard]] ControlKind kind() const { return kind_; }
  [[nodiscard]] ControlId id() const { return id_; }
  [[nodiscard]] const std::string& name() const { return name_; }
  [[nodiscard]] int index() const { return index_; }
  [[nodiscard]] Control* container() const { return container_; }
  [[nodiscard]] ControlHost& host() const { return host_; }
  // In the order in which they came to be; drawn by zOrder.
  [[nodiscard]] const std::list<Control*>& children() const { return children_; }

  [[nodiscard]] const Rect& rect() const { return rect_; }
  [[nodiscard]] float left() const { return rect_.left; }
  [[nodiscard]] float top() const { return rect_.top; }
  [[nodiscard]] float width() const { return rect_.width; }
  [[nodiscard]] float height() const { return rect_.height; }
  void Move(const Rect& rect);  // raises onResize at once when the size changed
  void MoveTo(float left, float top) { Move({left, top, width(), height()}); }
  void Resize(float width, float height) { Move({left(), top(), width, height}); }
  void SetLeft(float left) { MoveTo(left, top()); }
  void SetTop(float top) { MoveTo(left(), top); }
  void SetWidth(float width) { Resize(width, height()); }
  void SetHeight(float height) { Resize(width(), height); }

  [[nodiscard]] bool visible() const { return visible_; }
  void SetVisible(bool visible);
  void Show() { SetVisible(true); }
  void Hide() { SetVisible(false); }
  [[nodiscard]] bool enabled() const { return enabled_; }
  void SetEnabled(bool enabled);
  [[nodiscard]] const std::string& tag() const { return tag_; }
  void SetTag(std::string tag) { tag_ = std::move(tag); }

  [[nodiscard]] std::int32_t backColor() const { return backColor_; }
  void SetBackColor(std::int32_t color);
  [[nodiscard]] std::int32_t foreColor() const { return foreColor_; }
  void SetForeColor(std::int32_t color);
  [[nodiscard]] const Font& font() const { return font_; }
  void SetFont(Font font);
  [[nodiscard]] Pointer pointer() const { return pointer_; }
  [[nodiscard]] const PictureRef& pointerPicture() const { return pointerPicture_; }
  void SetPointer(Pointer pointer, PictureRef picture = {});

  // Higher is nearer to the candidate. Labels lie under all their siblings that are no labels.
  [[nodiscard]] std::int64_t zOrder() const { return zOrder_; }
  void BringToFront();

  // How the children are placed.
  [[nodiscard]] ScaleMode scaleMode() const { return scaleMode_; }
  void SetScaleMode(ScaleMode mode) { scaleMode_ = mode; }
  // Twips for one of the container's units, that is, of this control's position and size.
  [[nodiscard]] Size TwipsPerUnit() const;
  [[nodiscard]] Size SizeInTwips() const;
  // Where the control's top left corner stands, in twips from the form's; scrolled containers
  // are taken into account.
  [[nodiscard]] Point OriginInForm() const;
  // Whether the control and everything that it stands in is visible.
  [[nodiscard]] bool ShownInForm() const;
  // By how much the container moves this control when it is scrolled, in twips.
  [[nodiscard]] virtual Point ChildOffset(const Control& child) const;

  // Keyboard focus: controls that take it are the stops of the Tab key.
  [[nodiscard]] bool takesFocus() const { return takesFocus_; }
  void SetTakesFocus(bool takes) { takesFocus_ = takes; }

  Handler<void(const MouseEvent&)> onMouseDown;
  Handler<void(const MouseEvent&)> onMouseMove;
  Handler<void(const MouseEvent&)> onMouseUp;
  Handler<void()> onMouseCancel;  // the system took the pointer away: no release will come
  Handler<void()> onHover;        // the pointer came over the control
  Handler<void()> onClick;
  Handler<void(const KeyEvent&)> onKeyDown;
  Handler<void()> onFocus;
  Handler<void()> onResize;

  // Called by the platform. Nothing happens on a disabled control, and nothing where the form
  // does not listen.
  void RaiseMouseDown(const MouseEvent& event);
  void RaiseMouseMove(const MouseEvent& event);
  void RaiseMouseUp(const MouseEvent& event);
  void RaiseMouseCancel();
  void RaiseHover();
  void RaiseClick();
  void RaiseKeyDown(const KeyEvent& event);
  void RaiseFocus();

  [[nodiscard]] unsigned changes() const { return changes_; }

  // Takes over the look and size of a template, but not its place in the array, its visibility
  // or its handlers.
  virtual void CopyFrom(const Control& model);

 protected:
  // Whether what the candidate does reaches the control now.
  [[nodiscard]] bool Hears() const;
  // Runs when the size changed, before the handler of onResize.
  virtual void SizeChanged() {}
  // Runs before what changed is presented; what it changes is presented too.
  virtual void Settle() {}
  // Runs when the presenter has seen what changed.
  virtual void Presented() {}
  void Changed(unsigned what);
  template <typename T>
  void Set(T& member, T value, unsigned what) {
    if (member == value) return;
    member = std::move(value);
    Changed(what);
  }

 private:
  friend class ControlHost;

  ControlHost& host_;
  const ControlKind kind_;
  const ControlId id_;
  const std::string name_;
  const int index_;
  Control* const container_;
  std::list<Control*> children_;
  std::list<Control*>::iterator place_;  // in the container's children
  Rect rect_;
  bool visible_ = true;
  bool enabled_ = true;
  bool takesFocus_ = false;
  std::string tag_;
  std::int32_t backColor_ = color::kButtonFace;
  std::int32_t foreColor_ = color::kBlack;
  Font font_;
  Pointer pointer_ = Pointer::Default;
  PictureRef pointerPicture_;
  ScaleMode scaleMode_ = ScaleMode::Twips;
  std::int64_t zOrder_ = 0;
  std::int64_t topOrder_ = 0;  // the highest order given to a child
  unsigned changes_ = 0;
  std::size_t changedPlace_ = 0;  // in the host's list, while there are changes
};

}  // namespace zav
