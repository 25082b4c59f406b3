// A picture in memory that is drawn on: boxes, lines, text and pictures, cut to a clip rectangle.
//
// Coordinates are pixels from the top left corner. Colours are 0xAARRGGBB, blended over what is
// there. Text stands where TextMetrics says; its glyphs are those of the DejaVu Sans family, read
// from their files when the first text is drawn.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "platform/Geometry.h"
#include "platform/Picture.h"
#include "platform/headless/Glyphs.h"
#include "platform/headless/TextMetrics.h"

namespace zav {

struct PixelRect {
  int left = 0;
  int top = 0;
  int width = 0;
  int height = 0;

  [[nodiscard]] int Right() const { return left + width; }
  [[nodiscard]] int Bottom() const { return top + height; }
  [[nodiscard]] bool IsEmpty() const { return width <= 0 || height <= 0; }
  [[nodiscard]] PixelRect Inset(int pixels) const {
    return {left + pixels, top + pixels, width - 2 * pixels, height - 2 * pixels};
  }
  bool operator==(const PixelRect&) const = default;
};

using Argb = std::uint32_t;

// The colour of a control's 0x00BBGGRR; every system colour is shown as the face of a button.
Argb ArgbOf(std::int32_t controlColor);

class Canvas {
 public:
  // White all over. Raises 5 for a size below 1 or above 16384 in either direction.
  Canvas(int width, int height);
  Canvas(const Canvas&) = delete;
  Canvas& operator=(const Canvas&) = delete;

  [[nodiscard]] int width() const { return width_; }
  [[nodiscard]] int height() const { return height_; }
  [[nodiscard]] Argb PixelAt(int x, int y) const;  // 0 outside

  // Nothing is drawn outside the rectangle, nor outside those pushed before it.
  void PushClip(const PixelRect& rect);
  void PopClip();

  void FillRect(const PixelRect& rect, Argb color);
  // A box with round corners.
  void FillRound(const PixelRect& rect, float radius, Argb color);
  // Along the inside of the rectangle.
  void OutlineRect(const PixelRect& rect, int penWidth, Argb color);
  // The pen is round and is centred on the line.
  void DrawLine(Point from, Point to, float penWidth, Argb color);
  // One line of text; top is the top of the line. Raises 53 when the font's file is not there.
  void DrawText(std::string_view line, float left, int top, const TextStyle& style, Argb color);
  // Scaled to the rectangle. Only pictures of the headless platform show.
  void DrawPicture(const Picture& picture, const PixelRect& rect, float opacity = 1);
  // Repeated over the rectangle, one of them with its top left corner at the origin.
  void TilePicture(const Picture& picture, const PixelRect& rect, int originX, int originY);

  [[nodiscard]] std::vector<std::uint8_t> Png() const;

 private:
  [[nodiscard]] PixelRect Clipped(const PixelRect& rect) const;
  Argb& At(int x, int y) { return pixels_[Index(x, y)]; }
  [[nodiscard]] std::size_t Index(int x, int y) const;
  void Blend(int x, int y, Argb color, float coverage);
  void DrawGlyph(const Glyph& glyph, float left, int baseLine, float slant, Argb color);

  int width_;
  int height_;
  std::vector<Argb> pixels_;
  std::vector<PixelRect> clips_;  // the whole canvas, then each within the one before it
  Glyphs glyphs_;
};

// Clips a canvas to a rectangle as long as it lives.
class ClipScope {
 public:
  ClipScope(Canvas& canvas, const PixelRect& rect) : canvas_(canvas) { canvas_.PushClip(rect); }
  ClipScope(const ClipScope&) = delete;
  ClipScope& operator=(const ClipScope&) = delete;
  ~ClipScope() { canvas_.PopClip(); }

 private:
  Canvas& canvas_;
};

}  // namespace zav
