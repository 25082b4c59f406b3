// A decoded picture. How its pixels are kept is the platform's business.
#pragma once

#include <memory>
#include <string_view>

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

// Whether it is a picture that the component saves for itself. Pages write the names of these in a
// case of their own; all other files are found under their exact names.
[[nodiscard]] inline bool IsOwnPicture(std::string_view path) { return path.ends_with("kvt.bmp"); }

}  // namespace zav
