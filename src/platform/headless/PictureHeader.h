// What a picture file says about itself, read without decoding it.
#pragma once

#include <cstdint>
#include <optional>
#include <span>

namespace zav {

enum class PictureFormat { Bitmap, Png, Gif, Jpeg };

struct PictureHeader {
  PictureFormat format = PictureFormat::Bitmap;
  std::uint32_t width = 0;
  std::uint32_t height = 0;
};

// Nothing for a file of another format, for one that ends before its picture does, and for one that
// would take unbounded time to decode. What is within the picture's data is not looked at.
std::optional<PictureHeader> ReadPictureHeader(std::span<const std::uint8_t> bytes);

// Whether the parts of a PNG, up to its end, are as their checksums say.
bool PngChecksumsHold(std::span<const std::uint8_t> bytes);

}  // namespace zav
