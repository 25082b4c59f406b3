#include "controls/PictureBox.h"

#include <utility>

namespace zav {
namespace {

constexpr std::size_t kShapesLeftAlone = 100;

}  // namespace

void PictureBox::Invalidate() {
  stale_ = true;
  Changed(change::kContent);
}

void PictureBox::Settle() {
  if (!onPaint) return;
  if (!stale_ && drawn_.size() <= 2 * painted_ + kShapesLeftAlone) return;
  Clear();
  onPaint();
  painted_ = drawn_.size();
}

void PictureBox::Draw(DrawnShape shape) {
  if (stale_) return;
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
  stale_ = false;
  drawn_.clear();
  presented_ = 0;
  Changed(change::kContent);
}

}  // namespace zav
