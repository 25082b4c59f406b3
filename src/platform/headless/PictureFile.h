// Reads BMP, PNG, GIF and JPEG files into pictures of the headless platform, and writes bitmaps.
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "platform/headless/HeadlessPicture.h"

namespace zav {

// Of an animated GIF the first picture. Bytes behind the end of the picture do not matter. Bitmaps
// whose colours are told by masks are not read.
//
// Raises 481, naming the picture, for what is none of these formats, damaged or cut short, and for
// more than 16384 pixels along a side or 64 million in all, before memory is taken for them.
std::shared_ptr<const HeadlessPicture> DecodePicture(std::span<const std::uint8_t> bytes,
                                                     const std::string& name);

// The same, but for the time when the pixels of a PNG are made: as its checksums tell whether it is
// damaged, that waits until somebody wants them. One that is sound and yet cannot be read shows
// nothing.
std::shared_ptr<const HeadlessPicture> OpenPicture(std::vector<std::uint8_t> bytes,
                                                   const std::string& name);

// As an uncompressed bitmap of 24 bits to a pixel, over white where the picture lets through what
// is under it. Raises 481 for a picture of another platform.
std::vector<std::uint8_t> EncodeBitmap(const Picture& picture);

}  // namespace zav
