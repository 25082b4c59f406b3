#include "form/interaction/Drawing.h"

#include <algorithm>
#include <vector>

namespace zav {
namespace {

constexpr int kCardPen = 3;
constexpr std::int32_t kCardShadow = 0xC0C0C0;
constexpr std::int32_t kUsedCardShadow = 0x404040;
constexpr std::int32_t kWellShade = 0x808080;
constexpr std::int32_t kWellLight = 0xE0E0E0;

// How far a card's shadow falls, and how much smaller than its card a used-up face is, in pixels.
constexpr float kShadowOffset = 2;
constexpr float kUsedFaceInset = 1;

Rect Shifted(const Rect& rect, float by) {
  return {rect.left + by, rect.top + by, rect.width, rect.height};
}

Rect Inset(const Rect& rect, float by) {
  return {rect.left + by, rect.top + by, rect.width - 2 * by, rect.height - 2 * by};
}

void DrawTopAndLeft(PictureBox& surface, const Rect& rect, int penWidth, std::int32_t color) {
  surface.DrawLine({rect.left, rect.top}, {rect.Right(), rect.top}, penWidth, color);
  surface.DrawLine({rect.left, rect.Bottom()}, {rect.left, rect.top}, penWidth, color);
}

void DrawBottomAndRight(PictureBox& surface, const Rect& rect, int penWidth, std::int32_t color) {
  surface.DrawLine({rect.Right(), rect.top}, {rect.Right(), rect.Bottom()}, penWidth, color);
  surface.DrawLine({rect.Right(), rect.Bottom()}, {rect.left, rect.Bottom()}, penWidth, color);
}

}  // namespace

Drawing::Outline Drawing::OutlineOf(CoordinateMode mode, const Control& item,
                                    const clsGroup& group) const {
  const bool twips = mode == CoordinateMode::Twips;
  const float unit = twips ? form_.TwipsX() : 1;
  const Size size =
      twips ? Size{static_cast<float>(group.ItemWidth), static_cast<float>(group.ItemHeight)}
            : form_.ItemPixels(group);
  return {{item.left() - unit, item.top() - 3 * unit, size.width + unit, size.height + 3 * unit},
          unit};
}

void Drawing::DrawItemFrame(CoordinateMode mode, PictureBox& surface, const Control& item,
                            const clsGroup& group, int penWidth, std::int32_t color) {
  const Rect rect = OutlineOf(mode, item, group).rect;
  surface.DrawLine({rect.left, rect.top}, {rect.Right(), rect.top}, penWidth, color);
  surface.DrawLine({rect.Right(), rect.top}, {rect.Right(), rect.Bottom()}, penWidth, color);
  surface.DrawLine({rect.Right(), rect.Bottom()}, {rect.left, rect.Bottom()}, penWidth, color);
  surface.DrawLine({rect.left, rect.Bottom()}, {rect.left, rect.top}, penWidth, color);
}

void Drawing::DrawItemCard(CoordinateMode mode, PictureBox& surface, const Control& item,
                           const clsGroup& group) {
  const Outline outline = OutlineOf(mode, item, group);
  surface.DrawFilledBox(Shifted(outline.rect, kShadowOffset * outline.unit), kCardPen, kCardShadow);
  surface.DrawFilledBox(outline.rect, kCardPen, color::kWhite);
}

void Drawing::DrawUsedCard(CoordinateMode mode, PictureBox& surface, const Control& item,
                           const clsGroup& group) {
  const Outline outline = OutlineOf(mode, item, group);
  surface.DrawFilledBox(Shifted(outline.rect, kShadowOffset * outline.unit), kCardPen,
                        color::kWhite);
  surface.DrawFilledBox(outline.rect, kCardPen, kUsedCardShadow);
  surface.DrawFilledBox(Inset(outline.rect, kUsedFaceInset * outline.unit), kCardPen,
                        color::kButtonFace);
}

void Drawing::DrawTargetWell(PictureBox& surface, const Control& target, const clsGroup& group) {
  const Rect rect = OutlineOf(CoordinateMode::Pixels, target, group).rect;
  surface.DrawFilledBox(rect, kCardPen, color::kWhite);
  DrawTopAndLeft(surface, rect, kCardPen, kWellShade);
  DrawBottomAndRight(surface, rect, kCardPen, kWellLight);
}

void Drawing::DrawLine(PictureBox& surface, const ShapeSegment& segment) {
  surface.DrawLine({static_cast<float>(segment.startX), static_cast<float>(segment.startY)},
                   {static_cast<float>(segment.endX), static_cast<float>(segment.endY)},
                   segment.drawWidth, segment.drawColor);
}

void Drawing::ShowCallouts(bool visible) {
  for (int k = 1; k <= kMostCallouts; ++k) {
    HtmlPane& callout = form_.controls.txtCallout[k];
    if (callout.tag().empty()) continue;
    callout.SetVisible(visible);
    callout.BringToFront();
  }
}

void Drawing::FrameTarget(int target) {
  const PictureButton& picture = form_.controls.imgTarget[target];
  DrawItemFrame(CoordinateMode::Pixels, form_.controls.pcWork, picture,
                form_.tables.GroupOf(picture.tag()), frame::kHighlightPen, frame::kHighlightColor);
}

void Drawing::FrameSource(int source) {
  const PictureButton& picture = form_.controls.imgSource[source];
  DrawItemFrame(CoordinateMode::Twips, form_.controls.pcSource, picture,
                form_.tables.GroupOf(picture.tag()), frame::kHighlightPen, frame::kHighlightColor);
}

void Drawing::HighlightTarget(int target) {
  std::vector<int>& framed = form_.drag.FramedTargets;
  ShowCallouts(false);
  FrameTarget(target);
  if (std::find(framed.begin(), framed.end(), target) == framed.end()) framed.push_back(target);
  ShowCallouts(true);
}

void Drawing::HighlightSource(int source) {
  FrameSource(source);
  form_.drag.FramedSource = source;
}

void Drawing::EraseTargetHighlight(int target) {
  const PictureButton& picture = form_.controls.imgTarget[target];
  const clsGroup& group = form_.tables.GroupOf(picture.tag());
  ShowCallouts(false);
  std::erase(form_.drag.FramedTargets, target);
  DrawItemFrame(CoordinateMode::Pixels, form_.controls.pcWork, picture, group, frame::kErasePen,
                color::kWhite);
  DrawTargetWell(form_.controls.pcWork, picture, group);
  ShowCallouts(true);
}

}  // namespace zav
