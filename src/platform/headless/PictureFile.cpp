#include "platform/headless/PictureFile.h"

#include <gd.h>

#include <new>
#include <optional>
#include <utility>

#include "automation/AutomationError.h"
#include "platform/headless/PictureHeader.h"

namespace zav {
namespace {

constexpr std::uint32_t kMostPixelsAlong = 16384;
constexpr std::uint64_t kMostPixels = 64'000'000;

using Image = std::unique_ptr<gdImage, decltype(&gdImageDestroy)>;

void IgnoreMessage(int /*priority*/, const char* /*format*/, va_list /*arguments*/) {}

bool CanBeHeld(const PictureHeader& header) {
  return header.width > 0 && header.height > 0 && header.width <= kMostPixelsAlong &&
         header.height <= kMostPixelsAlong &&
         std::uint64_t{header.width} * header.height <= kMostPixels;
}

Image Decode(PictureFormat format, std::span<const std::uint8_t> bytes) {
  const int size = static_cast<int>(bytes.size());
  // The library only reads.
  void* data = const_cast<std::uint8_t*>(bytes.data());
  gdImage* image = nullptr;
  switch (format) {
    case PictureFormat::Bitmap:
      image = gdImageCreateFromBmpPtr(size, data);
      break;
    case PictureFormat::Png:
      image = gdImageCreateFromPngPtr(size, data);
      break;
    case PictureFormat::Gif:
      image = gdImageCreateFromGifPtr(size, data);
      break;
    case PictureFormat::Jpeg:
      image = gdImageCreateFromJpegPtr(size, data);
      break;
  }
  return {image, &gdImageDestroy};
}

// The library counts alpha from 0, which covers, to 127.
std::uint32_t PixelAt(gdImage& image, int x, int y) {
  const auto color = static_cast<std::uint32_t>(gdImageGetTrueColorPixel(&image, x, y));
  if (image.trueColor != 0 && static_cast<int>(color) == image.transparent) return 0;
  const std::uint32_t alpha = 255 - ((color >> 24U) * 255 + 63) / 127;
  return (alpha << 24U) | (color & 0xFFFFFFU);
}

std::vector<std::uint32_t> PixelsOf(gdImage& image) {
  std::vector<std::uint32_t> pixels;
  pixels.reserve(static_cast<std::size_t>(image.sx) * static_cast<std::size_t>(image.sy));
  for (int y = 0; y < image.sy; ++y) {
    for (int x = 0; x < image.sx; ++x) pixels.push_back(PixelAt(image, x, y));
  }
  return pixels;
}

int OverWhite(std::uint32_t pixel) {
  const std::uint32_t alpha = pixel >> 24U;
  std::uint32_t color = 0;
  for (const unsigned shift : {16U, 8U, 0U}) {
    const std::uint32_t channel = (pixel >> shift) & 0xFFU;
    color |= ((channel * alpha + 255 * (255 - alpha) + 127) / 255) << shift;
  }
  return static_cast<int>(color);
}

Image ImageOf(const HeadlessPicture& picture) {
  Image image(gdImageCreateTrueColor(picture.WidthPixels(), picture.HeightPixels()),
              &gdImageDestroy);
  if (!image) throw std::bad_alloc();
  auto pixel = picture.pixels().begin();
  for (int y = 0; y < image->sy; ++y) {
    for (int x = 0; x < image->sx; ++x) image->tpixels[y][x] = OverWhite(*pixel++);
  }
  return image;
}

}  // namespace

std::shared_ptr<const HeadlessPicture> DecodePicture(std::span<const std::uint8_t> bytes,
                                                     const std::string& name) {
  gdSetErrorMethod(&IgnoreMessage);
  const std::optional<PictureHeader> header = ReadPictureHeader(bytes);
  const Image image =
      header && CanBeHeld(*header) ? Decode(header->format, bytes) : Image(nullptr, nullptr);
  if (!image) throw AutomationError(error_number::kInvalidPicture, "Invalid picture: " + name);
  return std::make_shared<HeadlessPicture>(image->sx, image->sy, PixelsOf(*image));
}

std::shared_ptr<const HeadlessPicture> OpenPicture(std::vector<std::uint8_t> bytes,
                                                   const std::string& name) {
  const std::optional<PictureHeader> header = ReadPictureHeader(bytes);
  if (!header || header->format != PictureFormat::Png || !CanBeHeld(*header) ||
      !PngChecksumsHold(bytes)) {
    return DecodePicture(bytes, name);
  }
  const auto make = [bytes = std::move(bytes), name]() -> HeadlessPicture::Pixels {
    try {
      return DecodePicture(bytes, name)->pixels();
    } catch (const AutomationError&) {
      return {};
    }
  };
  return std::make_shared<HeadlessPicture>(static_cast<int>(header->width),
                                           static_cast<int>(header->height), make);
}

std::vector<std::uint8_t> EncodeBitmap(const Picture& picture) {
  const auto* own = dynamic_cast<const HeadlessPicture*>(&picture);
  if (own == nullptr) throw AutomationError(error_number::kInvalidPicture, "Invalid picture");
  int size = 0;
  constexpr int kUncompressed = 0;
  const std::unique_ptr<void, decltype(&gdFree)> bytes(
      gdImageBmpPtr(ImageOf(*own).get(), &size, kUncompressed), &gdFree);
  if (!bytes) throw std::bad_alloc();
  const auto* first = static_cast<const std::uint8_t*>(bytes.get());
  return {first, first + size};
}

}  // namespace zav
