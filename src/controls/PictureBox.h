// A surface that is drawn on. It keeps what was drawn since it was last cleared, in order, so that
// a platform can show it again at any time.
//
// A box with a handler of onPaint is drawn by it: whoever changes what the box shows invalidates
// it, and it is painted when the entry ends, once. What is drawn on it besides, so that little
// changes cost little, has to be what the handler would draw too.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "controls/Control.h"

namespace zav {

// Coordinates are in the surface's own scale (twips or pixels), pen widths in pixels.
struct DrawnShape {
  enum class Kind { Line, FilledBox, Picture };

  Kind kind = Kind::Line;
  float x1 = 0;  // a line's start; a box's or a picture's left and top
  float y1 = 0;
  float x2 = 0;  // a line's end; a box's right and bottom; unused for a picture
  float y2 = 0;
  int penWidth = 1;
  std::int32_t color = 0;
  PictureRef picture;
};

class PictureBox : public Control {
 public:
  PictureBox(ControlHost& host, Control* container, std::string name, int index = -1)
      : Control(host, ControlKind::PictureBox, container, std::move(name), index) {}

  // Draws all that the box shows.
  Handler<void()> onPaint;
  void Invalidate();

  // Nothing happens on a box that is going to be painted anyway. Nor does a frame that is drawn and
  // erased again and again make the record grow: it is painted anew when that has doubled.
  void DrawLine(Point from, Point to, int penWidth, std::int32_t color);
  void DrawFilledBox(const Rect& box, int penWidth, std::int32_t color);
  void PaintPicture(PictureRef picture, Point at);
  void Clear();

  [[nodiscard]] const std::vector<DrawnShape>& drawn() const { return drawn_; }
  // The last ones of these, which were drawn since the box was last presented and over what was
  // seen then; all of them where it was cleared, got another picture, or was never presented.
  [[nodiscard]] std::span<const DrawnShape> drawnSincePresented() const {
    return std::span(drawn_).subspan(presented_);
  }

  // A picture that is shown under everything drawn.
  [[nodiscard]] const PictureRef& picture() const { return picture_; }
  void SetPicture(PictureRef picture);

 protected:
  void Settle() override;
  void Presented() override { presented_ = drawn_.size(); }

 private:
  void Draw(DrawnShape shape);

  bool stale_ = false;  // to be painted when the entry ends
  std::vector<DrawnShape> drawn_;
  std::size_t painted_ = 0;    // how many of them onPaint drew
  std::size_t presented_ = 0;  // how many of them
  PictureRef picture_;
};

}  // namespace zav
