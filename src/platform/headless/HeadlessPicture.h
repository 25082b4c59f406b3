// A picture of the headless platform: its pixels in memory.
#pragma once

#include <cstdint>
#include <functional>
#include <utility>
#include <vector>

#include "platform/Picture.h"

namespace zav {

class HeadlessPicture : public Picture {
 public:
  // Width times height values 0xAARRGGBB, rows from the top, each from the left. Alpha is 255 where
  // the picture covers what is under it and 0 where it shows through; colours are not multiplied by
  // it.
  using Pixels = std::vector<std::uint32_t>;

  HeadlessPicture(int widthPixels, int heightPixels, Pixels pixels)
      : Picture(widthPixels, heightPixels), pixels_(std::move(pixels)) {}
  // Pixels that are made when they are wanted.
  HeadlessPicture(int widthPixels, int heightPixels, std::function<Pixels()> make)
      : Picture(widthPixels, heightPixels), make_(std::move(make)) {}

  [[nodiscard]] const Pixels& pixels() const {
    if (make_) pixels_ = std::exchange(make_, {})();
    return pixels_;
  }

 private:
  mutable Pixels pixels_;
  mutable std::function<Pixels()> make_;
};

}  // namespace zav
