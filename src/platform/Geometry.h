// Points and rectangles. Which unit they are in, the owner of the value says.
#pragma once

namespace zav {

struct Point {
  float x = 0;
  float y = 0;
};

struct Size {
  float width = 0;
  float height = 0;
};

struct Rect {
  float left = 0;
  float top = 0;
  float width = 0;
  float height = 0;

  [[nodiscard]] float Right() const { return left + width; }
  [[nodiscard]] float Bottom() const { return top + height; }
  // Left and top edges belong to the rectangle, right and bottom edges do not.
  [[nodiscard]] bool Contains(Point point) const {
    return point.x >= left && point.x < Right() && point.y >= top && point.y < Bottom();
  }
  bool operator==(const Rect&) const = default;
};

}  // namespace zav
