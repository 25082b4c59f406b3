#include "controls/PictureBox.h"

#include <utility>

namespace zav {
namespace {

bool Covers(const DrawnShape& upper, const DrawnShape& lower) {
  return upper.kind == lower.kind && upper.x1 == lower.x1 && upper.y1 == lower.y1 &&
         upper.x2 == lower.x2 && upper.y2 == lower.y2 && upper.penWidth >= lower.penWidth &&
         upper.picture == lower.picture;
}

}  // namespace

void PictureBox::Draw(DrawnShape shape) {
  for (std::size_t i = drawn_.size(); i-- > 0;) {
    if (!Covers(shape, drawn_[i])) continue;
    drawn_.erase(drawn_.begin() + static_cast<std::ptrdiff_t>(i));
    if (i < presented_) --presented_;
  }
  drawn_.push_back(std::move(shape));
  Changed(change::kContent);
}

void PictureBox::SetPicture(PictureRef picture) {
  if (picture != picture_) presented_ = 0;
  Set(picture_, std::move(picture), change::kContent);
}

void PictureBox::DrawLine(Point from, Point to, int penWidth, std::int32_t color) {
  Draw({DrawnShape::Kind::Line, from.x, from.y, to.x, to.y, penWidth, color, {}});
}

void PictureBox::DrawFilledBox(const Rect& box, int penWidth, std::int32_t color) {
  Draw({DrawnShape::Kind::FilledBox,
        box.left,
        box.top,
        box.Right(),
        box.Bottom(),
        penWidth,
        color,
        {}});
}

void PictureBox::PaintPicture(PictureRef picture, Point at) {
  Draw({DrawnShape::Kind::Picture, at.x, at.y, 0, 0, 0, 0, std::move(picture)});
}

void PictureBox::Clear() {
  drawn_.clear();
  presented_ = 0;
  Changed(change::kContent);
}

}  // namespace zav
