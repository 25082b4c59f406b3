#include "platform/headless/Rasteriser.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <string_view>

#include "controls/HtmlPane.h"
#include "controls/Label.h"
#include "controls/PictureBox.h"
#include "controls/PictureButton.h"
#include "controls/RichText.h"
#include "controls/ScrollFrame.h"
#include "controls/Splitter.h"
#include "platform/headless/HtmlLayout.h"
#include "platform/headless/TextLayout.h"

namespace zav {
namespace {

constexpr Argb kWhite = 0xFFFFFFFFU;
constexpr Argb kGreyText = 0xFF8C9299U;
constexpr Argb kPaneBorder = 0xFF9AA5B1U;
constexpr Argb kButtonBorder = 0xFF8A929AU;
constexpr Argb kButtonLight = 0x90FFFFFFU;
constexpr Argb kButtonShade = 0x28000000U;
constexpr Argb kBarFace = 0xFFEEF0F2U;
constexpr Argb kBarThumb = 0xFFB4BBC2U;
constexpr float kButtonRadius = 3;
constexpr float kDisabledOpacity = 0.45F;
constexpr int kCaptionInset = 4;

// Coordinates that can be counted with, whatever an item says.
int WholePixel(float value) {
  constexpr float kMost = 1e6F;
  return std::isfinite(value) ? static_cast<int>(std::lround(std::clamp(value, -kMost, kMost))) : 0;
}

PixelRect Between(float left, float top, float right, float bottom) {
  const int x = WholePixel(left);
  const int y = WholePixel(top);
  return {x, y, WholePixel(right) - x, WholePixel(bottom) - y};
}

// How much of a page or surface a frame shows, along one axis; any unit.
struct Scrolled {
  float visible;
  float whole;
  float offset;
};

std::vector<const Control*> BottomUp(const Control& container) {
  std::vector<const Control*> order(container.children().begin(), container.children().end());
  const auto isUpper = [](const Control* control) { return control->kind() != ControlKind::Label; };
  std::sort(order.begin(), order.end(), [&](const Control* a, const Control* b) {
    if (isUpper(a) != isUpper(b)) return isUpper(b);
    return a->zOrder() < b->zOrder();
  });
  return order;
}

class FormPainter {
 public:
  FormPainter(const Form& form, Canvas& canvas)
      : form_(form), canvas_(canvas), twips_(form.host().twipsPerPixel()) {}

  void Draw() {
    const PixelRect whole = Between(0, 0, form_.width() / TwipsX(), form_.height() / TwipsY());
    canvas_.FillRect(whole, kWhite);
    const ClipScope clip(canvas_, whole);
    DrawChildren(form_);
  }

 private:
  [[nodiscard]] float TwipsX() const { return static_cast<float>(std::max(1, twips_.x)); }
  [[nodiscard]] float TwipsY() const { return static_cast<float>(std::max(1, twips_.y)); }

  [[nodiscard]] PixelRect BoxOf(const Control& control) const {
    const Point origin = control.OriginInForm();
    const Size size = control.SizeInTwips();
    return Between(origin.x / TwipsX(), origin.y / TwipsY(), (origin.x + size.width) / TwipsX(),
                   (origin.y + size.height) / TwipsY());
  }

  // As deep as the form's tree of controls, which is a few levels.
  // NOLINTNEXTLINE(misc-no-recursion)
  void DrawChildren(const Control& container) {
    for (const Control* child : BottomUp(container)) {
      if (child->visible()) DrawControl(*child);
    }
  }

  // NOLINTNEXTLINE(misc-no-recursion)
  void DrawControl(const Control& control) {
    const PixelRect box = BoxOf(control);
    const ClipScope clip(canvas_, box);
    switch (control.kind()) {
      case ControlKind::PictureBox:
        DrawSurface(static_cast<const PictureBox&>(control), box);
        break;
      case ControlKind::PictureButton:
        DrawButton(static_cast<const PictureButton&>(control), box);
        break;
      case ControlKind::Label:
        DrawLabel(static_cast<const Label&>(control), box);
        break;
      case ControlKind::HtmlPane:
        DrawPage(static_cast<const HtmlPane&>(control), box);
        break;
      case ControlKind::RichText:
        DrawRichText(static_cast<const RichText&>(control), box);
        break;
      case ControlKind::ScrollFrame:
        canvas_.FillRect(box, ArgbOf(control.backColor()));
        break;
      case ControlKind::Splitter:
        DrawSplitterBars(static_cast<const Splitter&>(control));
        break;
      case ControlKind::Form:
        break;
    }
    DrawChildren(control);
    if (control.kind() == ControlKind::ScrollFrame) {
      DrawScrollBars(static_cast<const ScrollFrame&>(control), box);
    }
  }

  void DrawSurface(const PictureBox& surface, const PixelRect& box) {
    canvas_.FillRect(box, ArgbOf(surface.backColor()));
    if (surface.picture()) DrawPictureAt(*surface.picture(), box.left, box.top, 1);
    const bool isTwips = surface.scaleMode() == ScaleMode::Twips;
    const Size unit = isTwips ? Size{TwipsX(), TwipsY()} : Size{1, 1};
    for (const DrawnShape& shape : surface.drawn()) DrawShape(shape, box, unit);
  }

  void DrawShape(const DrawnShape& shape, const PixelRect& box, Size unit) {
    const auto left = static_cast<float>(box.left);
    const auto top = static_cast<float>(box.top);
    const Point from{left + shape.x1 / unit.width, top + shape.y1 / unit.height};
    const Point to{left + shape.x2 / unit.width, top + shape.y2 / unit.height};
    const Argb color = ArgbOf(shape.color);
    switch (shape.kind) {
      case DrawnShape::Kind::Line:
        canvas_.DrawLine(Whole(from), Whole(to), static_cast<float>(shape.penWidth), color);
        break;
      case DrawnShape::Kind::FilledBox:
        DrawFilledBox(from, to, shape.penWidth, color);
        break;
      case DrawnShape::Kind::Picture:
        if (shape.picture) {
          DrawPictureAt(*shape.picture, WholePixel(from.x), WholePixel(from.y), 1);
        }
        break;
    }
  }

  static Point Whole(Point point) {
    return {static_cast<float>(WholePixel(point.x)), static_cast<float>(WholePixel(point.y))};
  }

  // Filled up to and including its edges, which a round pen of that width went along.
  void DrawFilledBox(Point from, Point to, int penWidth, Argb color) {
    const int grow = std::clamp(penWidth, 1, 1000) / 2;
    PixelRect box = Between(std::min(from.x, to.x), std::min(from.y, to.y), std::max(from.x, to.x),
                            std::max(from.y, to.y));
    ++box.width;
    ++box.height;
    canvas_.FillRound(box.Inset(-grow), static_cast<float>(grow), color);
  }

  void DrawPictureAt(const Picture& picture, int left, int top, float opacity) {
    canvas_.DrawPicture(picture, {left, top, picture.WidthPixels(), picture.HeightPixels()},
                        opacity);
  }

  void DrawButton(const PictureButton& button, const PixelRect& box) {
    if (button.hasFace()) DrawFace(box, ArgbOf(button.backColor()));
    if (button.picture()) DrawContained(*button.picture(), box, button.enabled());
    if (!button.caption().empty()) DrawCaption(button, box);
  }

  void DrawFace(const PixelRect& box, Argb face) {
    canvas_.FillRound(box, kButtonRadius, kButtonBorder);
    const PixelRect inner = box.Inset(1);
    canvas_.FillRound(inner, kButtonRadius - 1, face);
    canvas_.FillRect({inner.left + 1, inner.top, inner.width - 2, 1}, kButtonLight);
    canvas_.FillRect({inner.left + 1, inner.Bottom() - 1, inner.width - 2, 1}, kButtonShade);
  }

  void DrawContained(const Picture& picture, const PixelRect& box, bool isEnabled) {
    const auto width = static_cast<float>(picture.WidthPixels());
    const auto height = static_cast<float>(picture.HeightPixels());
    const float scale = std::min(
        {1.0F, static_cast<float>(box.width) / width, static_cast<float>(box.height) / height});
    const int shownWidth = WholePixel(width * scale);
    const int shownHeight = WholePixel(height * scale);
    if (shownWidth < 1 || shownHeight < 1) return;
    canvas_.DrawPicture(picture,
                        {box.left + (box.width - shownWidth) / 2,
                         box.top + (box.height - shownHeight) / 2, shownWidth, shownHeight},
                        isEnabled ? 1 : kDisabledOpacity);
  }

  void DrawCaption(const PictureButton& button, const PixelRect& box) {
    const TextStyle style = StyleOf(button.font());
    const int room = box.width - 2 * kCaptionInset;
    const auto lines = BreakLines(button.caption(), style, room);
    const int lineHeight = LineHeightPixels(style);
    int top = box.top + (box.height - lineHeight * static_cast<int>(lines.size())) / 2;
    const Argb color = button.enabled() ? ArgbOf(button.foreColor()) : kGreyText;
    for (const std::string_view line : lines) {
      const int left = box.left + kCaptionInset +
                       Indent(button.captionAlignment(), room - TextWidth(line, style));
      canvas_.DrawText(line, static_cast<float>(left), top, style, color);
      top += lineHeight;
    }
  }

  static int Indent(CaptionAlignment alignment, int free) {
    if (alignment == CaptionAlignment::Left) return 0;
    return alignment == CaptionAlignment::Right ? free : free / 2;
  }

  static int Indent(LabelAlignment alignment, int free) {
    if (alignment == LabelAlignment::Left) return 0;
    return alignment == LabelAlignment::Right ? free : free / 2;
  }

  void DrawLabel(const Label& label, const PixelRect& box) {
    const TextStyle style = StyleOf(label.font());
    const Argb color = label.enabled() ? ArgbOf(label.foreColor()) : kGreyText;
    int top = box.top;
    for (const std::string_view line : BreakLines(label.caption(), style, box.width)) {
      if (top >= box.Bottom()) return;
      const int left = box.left + Indent(label.alignment(), box.width - TextWidth(line, style));
      canvas_.DrawText(line, static_cast<float>(left), top, style, color);
      top += LineHeightPixels(style);
    }
  }

  PictureLoader LoaderOf(const Control& control) {
    Services& services = control.host().services();
    return [&services](const std::string& path) { return services.LoadPicture(path); };
  }

  void DrawPage(const HtmlPane& pane, const PixelRect& box) {
    canvas_.FillRect(box, kWhite);
    if (!pane.page().empty() && !box.IsEmpty()) {
      HtmlOptions options{pane.marginPixels(), pane.font(), LoaderOf(pane)};
      HtmlLayout page(pane.page(), pane.LayoutWidthPixels(), box.height, std::move(options));
      const int offset = pane.ScrollTopPixels();
      page.Draw(canvas_, box.left, box.top - offset);
      if (pane.scrollsItself() && page.HeightPixels() > box.height) {
        DrawUprightBar(box, {static_cast<float>(box.height),
                             static_cast<float>(page.HeightPixels()), static_cast<float>(offset)});
      }
    }
    if (pane.hasBorder()) canvas_.OutlineRect(box, 1, kPaneBorder);
  }

  // In the middle of its height when it fits, as on a card; else from its beginning.
  void DrawRichText(const RichText& text, const PixelRect& box) {
    if (!text.HasText() || box.IsEmpty()) return;
    canvas_.FillRect(box, ArgbOf(text.backColor()));
    const RichContent content{text.IsHtmlContent(), text.Export(), text.font()};
    const PictureLoader loader = LoaderOf(text);
    const int free = box.height - TextHeightPixels(content, box.width, loader);
    const int top = box.top + std::max(0, free / 2);
    if (content.isHtml) {
      HtmlLayout page(content.text, box.width, 0,
                      {kRichTextMargin, content.font, loader, text.foreColor()});
      page.Draw(canvas_, box.left, top);
      return;
    }
    DrawPlain(content, {box.left, top, box.width, box.height}, ArgbOf(text.foreColor()));
  }

  void DrawPlain(const RichContent& content, const PixelRect& box, Argb color) {
    const TextStyle style = StyleOf(content.font);
    int top = box.top + kRichTextMargin;
    for (const auto line : BreakLines(content.text, style, box.width - 2 * kRichTextMargin)) {
      if (top >= box.Bottom()) return;
      canvas_.DrawText(line, static_cast<float>(box.left + kRichTextMargin), top, style, color);
      top += LineHeightPixels(style);
    }
  }

  void DrawScrollBars(const ScrollFrame& frame, const PixelRect& box) {
    if (frame.scrollHeight() > frame.height()) {
      DrawUprightBar(box, {frame.height(), frame.scrollHeight(), frame.scrollY()});
    }
    if (frame.scrollWidth() > frame.width()) {
      DrawLevelBar(box, {frame.width(), frame.scrollWidth(), frame.scrollX()});
    }
  }

  // The thumb's first pixel and length on a bar of that length.
  struct Thumb {
    int first;
    int length;
  };
  static Thumb ThumbOf(int barLength, const Scrolled& scrolled) {
    constexpr int kLeast = 20;
    const auto bar = static_cast<float>(barLength);
    const int length = std::max(kLeast, WholePixel(bar * scrolled.visible / scrolled.whole));
    const float travel = std::max(1.0F, scrolled.whole - scrolled.visible);
    const float share = std::clamp(scrolled.offset / travel, 0.0F, 1.0F);
    return {WholePixel(share * static_cast<float>(barLength - length)), length};
  }

  void DrawUprightBar(const PixelRect& box, const Scrolled& scrolled) {
    const PixelRect bar{box.Right() - kScrollBarPixels, box.top, kScrollBarPixels, box.height};
    const Thumb thumb = ThumbOf(bar.height, scrolled);
    DrawBar(bar, {bar.left, bar.top + thumb.first, bar.width, thumb.length});
  }

  void DrawLevelBar(const PixelRect& box, const Scrolled& scrolled) {
    const PixelRect bar{box.left, box.Bottom() - kScrollBarPixels, box.width, kScrollBarPixels};
    const Thumb thumb = ThumbOf(bar.width, scrolled);
    DrawBar(bar, {bar.left + thumb.first, bar.top, thumb.length, bar.height});
  }

  void DrawBar(const PixelRect& bar, const PixelRect& thumb) {
    constexpr int kThumbInset = 3;
    const PixelRect shown = thumb.Inset(kThumbInset);
    canvas_.FillRect(bar, kBarFace);
    canvas_.FillRound(shown, static_cast<float>(std::min(shown.width, shown.height)) / 2,
                      kBarThumb);
  }

  void DrawSplitterBars(const Splitter& splitter) {
    const Point origin = splitter.OriginInForm();
    for (const Splitter::Bar& bar : splitter.Bars()) {
      const PixelRect box = Between(
          (origin.x + bar.rect.left) / TwipsX(), (origin.y + bar.rect.top) / TwipsY(),
          (origin.x + bar.rect.Right()) / TwipsX(), (origin.y + bar.rect.Bottom()) / TwipsY());
      canvas_.FillRect(box, kBarFace);
      DrawGrip(box, bar.upright);
    }
  }

  // Three dots along the bar, in its middle.
  void DrawGrip(const PixelRect& box, bool upright) {
    constexpr int kDot = 2;
    constexpr int kStep = 5;
    for (int i = -1; i <= 1; ++i) {
      const int x = box.left + (box.width - kDot) / 2 + (upright ? 0 : i * kStep);
      const int y = box.top + (box.height - kDot) / 2 + (upright ? i * kStep : 0);
      canvas_.FillRect({x, y, kDot, kDot}, kBarThumb);
    }
  }

  const Form& form_;
  Canvas& canvas_;
  const TwipsPerPixel twips_;
};

}  // namespace

void DrawForm(const Form& form, Canvas& canvas) { FormPainter(form, canvas).Draw(); }

std::vector<std::uint8_t> FormAsPng(const Form& form) {
  const TwipsPerPixel twips = form.host().twipsPerPixel();
  Canvas canvas(WholePixel(form.width() / static_cast<float>(twips.x)),
                WholePixel(form.height() / static_cast<float>(twips.y)));
  DrawForm(form, canvas);
  return canvas.Png();
}

}  // namespace zav
