// A picture of the headless platform: its pixels in memory.
#pragma once

#include <cstdint>
#include <utility>
#include <vector>

#include "platform/Picture.h"

namespace zav {

class HeadlessPicture : public Picture {
 public:
  // pixels: width times height values 0xAARRGGBB, rows from the top, each from the left. Alpha is
  // 255 where the picture covers what is under it and 0 where it shows through; colours are not
  // multiplied by it.
  HeadlessPicture(int widthPixels, int heightPixels, std::vector<std::uint32_t> pixels)
      : Picture(widthPixels, heightPixels), pixels_(std::move(pixels)) {}

  [[nodiscard]] const std::vector<std::uint32_t>& pixels() const { return pixels_; }

 private:
  std::vector<std::uint32_t> pixels_;
};

}  // namespace zav
