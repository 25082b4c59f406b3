// What is drawn on the two areas: frames, cards, wells and outlines.
//
// Everything is drawn round an item's rectangle: its control's left and top and its group's item
// size, widened by a pixel to the left and by three above. Rectangles are in the surface's units.
#pragma once

#include <cstdint>

#include "form/FormCore.h"

namespace zav {

enum class CoordinateMode { Twips, Pixels };  // of the surface

namespace frame {
inline constexpr std::int32_t kHighlightColor = 0xC00000;
inline constexpr int kHighlightPen = 3;
inline constexpr int kErasePen = 4;
inline constexpr int kOutlinePen = 1;
}  // namespace frame

class Drawing {
 public:
  explicit Drawing(FormCore& form) : form_(form) {}

  void DrawItemFrame(CoordinateMode mode, PictureBox& surface, const Control& item,
                     const clsGroup& group, int penWidth, std::int32_t color);
  // The card of a source item that can be used.
  void DrawItemCard(CoordinateMode mode, PictureBox& surface, const Control& item,
                    const clsGroup& group);
  // The card of a source item that is used up.
  void DrawUsedCard(CoordinateMode mode, PictureBox& surface, const Control& item,
                    const clsGroup& group);
  // The empty well of a target; the surface is in pixels.
  void DrawTargetWell(PictureBox& surface, const Control& target, const clsGroup& group);
  void DrawLine(PictureBox& surface, const ShapeSegment& segment);

  // Callouts are taken away while something is drawn under them.
  void ShowCallouts(bool visible);

  // The highlight frames alone.
  void FrameTarget(int target);
  void FrameSource(int source);

  // A source item's highlight frame goes when its area is refreshed.
  void HighlightSource(int source);
  // A target's highlight frame, and the target as it looks without one.
  void HighlightTarget(int target);
  void EraseTargetHighlight(int target);

 private:
  struct Outline {
    Rect rect;
    float unit;  // one pixel
  };
  [[nodiscard]] Outline OutlineOf(CoordinateMode mode, const Control& item,
                                  const clsGroup& group) const;

  FormCore& form_;
};

}  // namespace zav
