#include "platform/web/ChangeBuffer.h"

#include <algorithm>
#include <cmath>
#include <cstring>

#include "controls/Form.h"
#include "controls/HtmlPane.h"
#include "controls/Label.h"
#include "controls/PictureBox.h"
#include "controls/PictureButton.h"
#include "controls/RichText.h"
#include "controls/ScrollFrame.h"
#include "controls/Splitter.h"

namespace zav {
namespace {

// Room for labels, which lie under all their siblings.
constexpr std::int64_t kUpperLayer = 1'000'000;
constexpr float kMostPixels = 1e6F;

// What there is to say of a control that has just come into sight.
constexpr unsigned kFresh = change::kAll & ~change::kVisible;

std::int32_t WholePixel(float pixels) {
  if (!std::isfinite(pixels)) return 0;
  return static_cast<std::int32_t>(std::lround(std::clamp(pixels, -kMostPixels, kMostPixels)));
}

struct PixelSize {
  float x;
  float y;
};

PixelSize TwipsOf(const Control& control) {
  const TwipsPerPixel twips = control.host().twipsPerPixel();
  return {static_cast<float>(twips.x), static_cast<float>(twips.y)};
}

std::int32_t ColorOf(std::int32_t controlColor) {
  constexpr std::int32_t kButtonFace = 0xB4BDC6;
  const auto color = static_cast<std::uint32_t>(controlColor);
  if (color > 0xFFFFFFU) return kButtonFace;
  return static_cast<std::int32_t>(((color & 0xFFU) << 16U) | (color & 0xFF00U) | (color >> 16U));
}

std::int32_t ZIndexOf(const Control& control) {
  const bool isLabel = control.kind() == ControlKind::Label;
  const std::int64_t order = std::min(control.zOrder(), kUpperLayer * 1000);
  return static_cast<std::int32_t>(isLabel ? std::min(order, kUpperLayer) : kUpperLayer + order);
}

bool ShowsText(const Control& control) {
  switch (control.kind()) {
    case ControlKind::PictureButton:
      return !static_cast<const PictureButton&>(control).caption().empty();
    case ControlKind::Label:
    case ControlKind::HtmlPane:
    case ControlKind::RichText:
      return true;
    default:
      return false;
  }
}

// A button that shows nothing of its own, as most of those that only cover others: so is every
// button that the page has just made.
bool IsBare(const Control& control) {
  if (control.kind() != ControlKind::PictureButton) return false;
  const auto& button = static_cast<const PictureButton&>(control);
  return !button.picture() && !button.hasFace() && button.caption().empty() && button.enabled() &&
         button.foreColor() == color::kBlack && button.pointer() == Pointer::Default;
}

}  // namespace

void ChangeBuffer::Write(std::span<Control* const> changed, std::span<const ControlId> removed) {
  words_.clear();
  texts_.clear();
  for (const ControlId id : removed) {
    if (announced_.erase(id) == 0) continue;
    Put(static_cast<std::int32_t>(Change::Remove));
    Put(static_cast<std::int32_t>(id));
  }
  std::set<ControlId> fresh;
  for (const Control* control : changed) {
    if (announced_.count(control->id()) == 0) {
      Announce(*control, fresh);
    } else if (fresh.count(control->id()) == 0) {
      Describe(*control, control->changes());
    }
  }
}

// A control comes into sight together with everything in it that is shown. The tree is a few levels
// deep.
// NOLINTNEXTLINE(misc-no-recursion)
void ChangeBuffer::Announce(const Control& control, std::set<ControlId>& fresh) {
  const Control* container = control.container();
  if (!control.visible() || (container != nullptr && announced_.count(container->id()) == 0)) {
    return;
  }
  if (!announced_.insert(control.id()).second) return;
  fresh.insert(control.id());
  Begin(Change::Create, control);
  Put(static_cast<std::int32_t>(control.kind()));
  Put(container == nullptr ? 0 : static_cast<std::int32_t>(container->id()));
  const bool scrolls = container != nullptr && container->kind() == ControlKind::ScrollFrame;
  Put(scrolls && static_cast<const ScrollFrame*>(container)->IsInFrame(control) ? 1 : 0);
  Put(control.takesFocus() ? 1 : 0);
  Put(control.index());
  PutText(control.name());
  Describe(control, kFresh);
  for (const Control* child : control.children()) Announce(*child, fresh);
}

// NOLINTNEXTLINE(misc-no-recursion)
void ChangeBuffer::Describe(const Control& control, unsigned what) {
  if ((what & change::kPlace) != 0) DescribePlace(control);
  if ((what & change::kOrder) != 0) {
    Begin(Change::Order, control);
    Put(ZIndexOf(control));
  }
  const bool isFresh = (what & kFresh) == kFresh;
  if ((what & change::kLook) != 0 && !(isFresh && IsBare(control))) {
    DescribeLook(control);
    DescribeOwnLook(control);
  }
  if ((what & change::kContent) != 0) DescribeContent(control, isFresh);
  if ((what & change::kVisible) != 0) {
    Begin(Change::Visible, control);
    Put(control.visible() ? 1 : 0);
  }
}

// Edges are rounded, so that neighbours that touch go on touching.
void ChangeBuffer::DescribePlace(const Control& control) {
  const PixelSize twips = TwipsOf(control);
  const Size unit = control.TwipsPerUnit();
  const Size scale{unit.width / twips.x, unit.height / twips.y};
  const Rect& rect = control.rect();
  const std::int32_t left = WholePixel(rect.left * scale.width);
  const std::int32_t top = WholePixel(rect.top * scale.height);
  Begin(Change::Place, control);
  Put(left);
  Put(top);
  Put(std::max(0, WholePixel(rect.Right() * scale.width) - left));
  Put(std::max(0, WholePixel(rect.Bottom() * scale.height) - top));
}

void ChangeBuffer::DescribeLook(const Control& control) {
  Begin(Change::Look, control);
  Put(control.enabled() ? 1 : 0);
  Put(ColorOf(control.backColor()));
  Put(ColorOf(control.foreColor()));
  Put(static_cast<std::int32_t>(control.pointer()));
  PutPicture(control.pointerPicture());
  if (ShowsText(control)) DescribeFont(control);
}

void ChangeBuffer::DescribeFont(const Control& control) {
  const Font& font = control.font();
  Begin(Change::Font, control);
  PutFloat(font.size);
  Put((font.bold ? 1 : 0) | (font.italic ? 2 : 0) | (font.underline ? 4 : 0));
  PutText(font.name);
}

void ChangeBuffer::DescribeOwnLook(const Control& control) {
  switch (control.kind()) {
    case ControlKind::PictureButton: {
      const auto& button = static_cast<const PictureButton&>(control);
      Begin(Change::Button, control);
      PutPicture(button.picture());
      Put(button.hasFace() ? 1 : 0);
      Put(static_cast<std::int32_t>(button.captionAlignment()));
      PutText(button.caption());
      break;
    }
    case ControlKind::HtmlPane: {
      const auto& pane = static_cast<const HtmlPane&>(control);
      Begin(Change::Pane, control);
      Put(pane.marginPixels());
      Put(pane.hasBorder() ? 1 : 0);
      Put(pane.scrollsItself() ? 1 : 0);
      break;
    }
    case ControlKind::Form:
      Begin(Change::Form, control);
      PutText(static_cast<const Form&>(control).caption());
      break;
    default:
      break;
  }
}

void ChangeBuffer::DescribeContent(const Control& control, bool isWhole) {
  const PixelSize twips = TwipsOf(control);
  switch (control.kind()) {
    case ControlKind::PictureBox:
      DescribeSurface(static_cast<const PictureBox&>(control), isWhole);
      break;
    case ControlKind::Label: {
      const auto& label = static_cast<const Label&>(control);
      Begin(Change::Label, control);
      Put(static_cast<std::int32_t>(label.alignment()));
      PutText(label.caption());
      break;
    }
    case ControlKind::RichText: {
      const auto& text = static_cast<const RichText&>(control);
      Begin(Change::RichText, control);
      Put(text.IsHtmlContent() ? 1 : 0);
      PutText(text.Export());
      break;
    }
    case ControlKind::ScrollFrame: {
      const auto& frame = static_cast<const ScrollFrame&>(control);
      Begin(Change::Scroll, control);
      Put(WholePixel(frame.scrollWidth() / twips.x));
      Put(WholePixel(frame.scrollHeight() / twips.y));
      Put(WholePixel(frame.scrollX() / twips.x));
      Put(WholePixel(frame.scrollY() / twips.y));
      break;
    }
    case ControlKind::Splitter:
      DescribeBars(control);
      break;
    default:
      break;
  }
}

void ChangeBuffer::DescribeSurface(const PictureBox& surface, bool isWhole) {
  const std::span<const DrawnShape> all(surface.drawn());
  const std::span<const DrawnShape> shapes = isWhole ? all : surface.drawnSincePresented();
  const PixelSize twips = TwipsOf(surface);
  const bool isTwips = surface.scaleMode() == ScaleMode::Twips;
  const PixelSize unit = isTwips ? twips : PixelSize{1, 1};
  Begin(Change::Surface, surface);
  Put(shapes.size() == all.size() ? 1 : 0);
  PutPicture(surface.picture());
  Put(static_cast<std::int32_t>(shapes.size()));
  for (const DrawnShape& shape : shapes) {
    Put(static_cast<std::int32_t>(shape.kind));
    PutFloat(shape.x1 / unit.x);
    PutFloat(shape.y1 / unit.y);
    PutFloat(shape.x2 / unit.x);
    PutFloat(shape.y2 / unit.y);
    Put(shape.penWidth);
    Put(ColorOf(shape.color));
    PutPicture(shape.picture);
  }
}

void ChangeBuffer::DescribeBars(const Control& control) {
  const PixelSize twips = TwipsOf(control);
  const auto bars = static_cast<const Splitter&>(control).Bars();
  Begin(Change::Bars, control);
  Put(static_cast<std::int32_t>(bars.size()));
  for (const Splitter::Bar& bar : bars) {
    Put(WholePixel(bar.rect.left / twips.x));
    Put(WholePixel(bar.rect.top / twips.y));
    Put(WholePixel(bar.rect.width / twips.x));
    Put(WholePixel(bar.rect.height / twips.y));
    Put(bar.upright ? 1 : 0);
  }
}

void ChangeBuffer::Begin(Change change, const Control& control) {
  Put(static_cast<std::int32_t>(change));
  Put(static_cast<std::int32_t>(control.id()));
}

void ChangeBuffer::PutFloat(float number) {
  std::int32_t word = 0;
  std::memcpy(&word, &number, sizeof word);
  Put(word);
}

void ChangeBuffer::PutText(std::string_view text) {
  Put(static_cast<std::int32_t>(texts_.size()));
  Put(static_cast<std::int32_t>(text.size()));
  texts_.append(text);
}

void ChangeBuffer::PutPicture(const PictureRef& picture) {
  Put(picture ? static_cast<const NumberedPicture&>(*picture).number() : 0);
}

}  // namespace zav
