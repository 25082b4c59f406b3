// A decoded picture. How its pixels are kept is the platform's business.
#pragma once

#include <memory>

namespace zav {

class Picture {
 public:
  Picture(int widthPixels, int heightPixels)
      : widthPixels_(widthPixels), heightPixels_(heightPixels) {}
  Picture(const Picture&) = delete;
  Picture& operator=(const Picture&) = delete;
  virtual ~Picture() = default;

  [[nodiscard]] int WidthPixels() const { return widthPixels_; }
  [[nodiscard]] int HeightPixels() const { return heightPixels_; }

 private:
  int widthPixels_;
  int heightPixels_;
};

// Controls that show the same picture share it. Null: no picture.
using PictureRef = std::shared_ptr<const Picture>;

}  // namespace zav
