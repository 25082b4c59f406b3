// Picture files, good and bad.
#include "platform/headless/PictureFile.h"

#include <gd.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/headless/HeadlessPlatform.h"
#include "platform/headless/LocalFiles.h"
#include "support/Raised.h"
#include "support/TemporaryFolder.h"

namespace zav {
namespace {

using Bytes = std::vector<std::uint8_t>;
using Encoder = std::function<void*(gdImage*, int*)>;

Bytes Encode(gdImage* image, const Encoder& encoder) {
  int size = 0;
  void* data = encoder(image, &size);
  const auto* first = static_cast<const std::uint8_t*>(data);
  const Bytes bytes(first, first + size);
  gdFree(data);
  gdImageDestroy(image);
  return bytes;
}

const struct {
  const char* name;
  Encoder encode;
} kFormats[] = {
    {"bitmap", [](gdImage* image, int* size) { return gdImageBmpPtr(image, size, 0); }},
    {"PNG", [](gdImage* image, int* size) { return gdImagePngPtr(image, size); }},
    {"GIF", [](gdImage* image, int* size) { return gdImageGifPtr(image, size); }},
    {"JPEG", [](gdImage* image, int* size) { return gdImageJpegPtr(image, size, 95); }},
    {"progressive JPEG",
     [](gdImage* image, int* size) {
       gdImageInterlace(image, 1);
       return gdImageJpegPtr(image, size, 95);
     }},
};

// Left half red, right half blue.
gdImage* Flag(int width, int height) {
  gdImage* image = gdImageCreateTrueColor(width, height);
  gdImageFilledRectangle(image, 0, 0, width / 2 - 1, height - 1, 0xFF0000);
  gdImageFilledRectangle(image, width / 2, 0, width - 1, height - 1, 0x0000FF);
  return image;
}

// Hard to compress, the same each time.
gdImage* Speckles() {
  gdImage* image = gdImageCreateTrueColor(61, 47);
  std::uint32_t value = 1;
  for (int y = 0; y < image->sy; ++y) {
    for (int x = 0; x < image->sx; ++x) {
      value = value * 1664525U + 1013904223U;
      image->tpixels[y][x] = static_cast<int>(value >> 8U);
    }
  }
  return image;
}

bool IsNear(std::uint32_t pixel, std::uint32_t want) {
  for (const unsigned shift : {24U, 16U, 8U, 0U}) {
    const int difference =
        static_cast<int>((pixel >> shift) & 0xFFU) - static_cast<int>((want >> shift) & 0xFFU);
    if (std::abs(difference) > 8) return false;
  }
  return true;
}

TEST(PictureFile, IsReadInEveryFormat) {
  for (const auto& format : kFormats) {
    Bytes bytes = Encode(Flag(40, 24), format.encode);
    bytes.insert(bytes.end(), 100, 0x5A);  // what stands behind the picture does not matter
    const auto picture = DecodePicture(bytes, "flag");
    ASSERT_EQ(picture->WidthPixels(), 40) << format.name;
    ASSERT_EQ(picture->HeightPixels(), 24) << format.name;
    EXPECT_TRUE(IsNear(picture->pixels()[2], 0xFFFF0000)) << format.name;
    EXPECT_TRUE(IsNear(picture->pixels()[23 * 40 + 37], 0xFF0000FF)) << format.name;
    EXPECT_EQ(OpenPicture(bytes, "flag")->pixels(), picture->pixels()) << format.name;
  }
}

TEST(PictureFile, IsRefusedWhereverItIsCut) {
  for (const auto& format : kFormats) {
    const Bytes whole = Encode(Speckles(), format.encode);
    ASSERT_GT(whole.size(), 97U * 10) << format.name;
    std::vector<std::size_t> lengths = {whole.size() - 2};
    for (std::size_t length = 0; length + 2 < whole.size(); length += 97) lengths.push_back(length);
    for (const std::size_t length : lengths) {
      const Raised raised = Catch([&] { DecodePicture({whole.data(), length}, "items/a.pic"); });
      EXPECT_EQ(raised.number, error_number::kInvalidPicture) << format.name << " at " << length;
      EXPECT_NE(raised.description.find("items/a.pic"), std::string::npos) << raised.description;
      EXPECT_EQ(Catch([&] {
                  OpenPicture({whole.data(), whole.data() + length}, "items/a.pic");
                }).number,
                error_number::kInvalidPicture);
    }
  }
}

Bytes Changed(Bytes bytes, std::initializer_list<std::pair<std::size_t, int>> changes) {
  for (const auto& [at, value] : changes) bytes[at] = static_cast<std::uint8_t>(value);
  return bytes;
}

// A sound picture of 4 by 4 on a screen of any size.
Bytes GifOnScreen(int width, int height) {
  return Changed(Encode(Flag(4, 4), kFormats[2].encode),
                 {{6, width & 0xFF}, {7, width >> 8}, {8, height & 0xFF}, {9, height >> 8}});
}

// On a screen of 4 by 4.
Bytes GifOfWidth(int width) {
  const Bytes bytes = GifOnScreen(4, 4);
  const std::size_t at = 13 + (std::size_t{3} << ((bytes[10] & 7U) + 1));
  return Changed(bytes, {{at + 5, width & 0xFF}, {at + 6, width >> 8}});
}

// Its last refinement comes that often more.
Bytes RefinedJpeg(int times) {
  Bytes bytes = Encode(Speckles(), kFormats[4].encode);
  std::size_t at = bytes.size() - 3;
  while (bytes[at] != 0xFF || bytes[at + 1] != 0xDA) --at;
  const Bytes scan(bytes.begin() + static_cast<std::ptrdiff_t>(at), bytes.end() - 2);
  for (int i = 0; i < times; ++i) bytes.insert(bytes.end() - 2, scan.begin(), scan.end());
  return bytes;
}

TEST(PictureFile, IsHeldToWhatCanBeBorne) {
  const Bytes bitmap = Encode(Flag(4, 4), kFormats[0].encode);
  const Bytes png = Encode(Flag(4, 4), kFormats[1].encode);
  const int bad = error_number::kInvalidPicture;
  const struct {
    const char* why;
    Bytes bytes;
    int want;
  } rows[] = {
      {"nothing at all", {}, bad},
      {"text", {'<', 'h', 't', 'm', 'l', '>'}, bad},
      {"as wide as can be", Encode(Flag(16384, 2), kFormats[1].encode), 0},
      {"wider", Encode(Flag(16385, 2), kFormats[1].encode), bad},
      {"as high as can be", Encode(Flag(2, 16384), kFormats[1].encode), 0},
      {"higher", Encode(Flag(2, 16385), kFormats[1].encode), bad},
      {"a screen larger than its picture", GifOnScreen(300, 200), 0},
      {"a screen too wide", GifOnScreen(16385, 4), bad},
      {"each side bearable, together too much", GifOnScreen(16384, 4000), bad},
      {"no width", GifOnScreen(0, 4), bad},
      {"a picture larger than its screen", GifOfWidth(16385), bad},
      {"a bitmap too wide", Changed(bitmap, {{19, 0xFF}}), bad},
      {"a bitmap of negative width",
       Changed(bitmap, {{18, 0xFC}, {19, 0xFF}, {20, 0xFF}, {21, 0xFF}}), bad},
      {"a bitmap of the least height", Changed(bitmap, {{22, 0}, {25, 0x80}}), bad},
      {"a chunk longer than any file", Changed(png, {{33, 0xFF}, {34, 0xFF}}), bad},
      {"a JPEG that is refined a few times more", RefinedJpeg(3), 0},
      {"a JPEG that is refined without end", RefinedJpeg(80), bad},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(Catch([&] { DecodePicture(row.bytes, "picture"); }).number, row.want) << row.why;
  }
}

TEST(PictureFile, KeepsWhatShowsThrough) {
  gdImage* palette = gdImageCreate(2, 1);
  gdImageColorAllocate(palette, 10, 20, 30);
  const int clear = gdImageColorAllocate(palette, 200, 0, 0);
  gdImageColorTransparent(palette, clear);
  gdImageSetPixel(palette, 1, 0, clear);
  const auto gif = DecodePicture(Encode(palette, kFormats[2].encode), "gif");
  EXPECT_EQ(gif->pixels()[0], 0xFF0A141EU);
  EXPECT_EQ(gif->pixels()[1] >> 24U, 0U) << "the GIF's transparent colour";

  gdImage* image = gdImageCreateTrueColor(2, 1);
  gdImageAlphaBlending(image, 0);
  gdImageSaveAlpha(image, 1);
  gdImageSetPixel(image, 0, 0, gdTrueColorAlpha(0, 0, 255, 64));
  gdImageSetPixel(image, 1, 0, gdTrueColorAlpha(0, 0, 255, 127));
  const auto png = DecodePicture(Encode(image, kFormats[1].encode), "png");
  EXPECT_EQ(png->pixels()[0], 0x7E0000FFU) << "63 of 127 cover";
  EXPECT_EQ(png->pixels()[1] >> 24U, 0U);

  gdImage* keyed = Flag(2, 1);
  gdImageColorTransparent(keyed, 0x0000FF);
  const auto plain = DecodePicture(Encode(keyed, kFormats[1].encode), "png");
  EXPECT_EQ(plain->pixels()[0], 0xFFFF0000U);
  EXPECT_EQ(plain->pixels()[1] >> 24U, 0U) << "the one colour that shows through";
}

Bytes Joined(std::initializer_list<Bytes> parts) {
  Bytes all;
  for (const Bytes& part : parts) all.insert(all.end(), part.begin(), part.end());
  return all;
}

TEST(PictureFile, ReadsBitmapsOfManyKinds) {
  const Bytes file = {'B', 'M', 0, 0, 0, 0, 0, 0, 0, 0};
  const auto header = [](std::uint8_t height, std::uint8_t sign, std::uint8_t bits,
                         std::uint8_t packing) {
    return Bytes{40,   0, 0,       0, 2, 0, 0, 0, height, sign, sign, sign, 1, 0,
                 bits, 0, packing, 0, 0, 0, 0, 0, 0,      0,    0,    0,    0, 0,
                 0,    0, 0,       0, 2, 0, 0, 0, 0,      0,    0,    0};
  };
  const Bytes twoColors = {0, 0, 255, 0, 255, 0, 0, 0};  // red, blue
  const struct {
    const char* why;
    Bytes bytes;
  } rows[] = {
      {"rows from the bottom, padded", Joined({file,
                                               {54, 0, 0, 0},
                                               header(2, 0, 24, 0),
                                               {255, 0, 0, 255, 0, 0, 0, 0},
                                               {0, 0, 255, 255, 0, 0, 0, 0}})},
      {"rows from the top", Joined({file,
                                    {54, 0, 0, 0},
                                    header(0xFE, 0xFF, 24, 0),
                                    {0, 0, 255, 255, 0, 0, 0, 0},
                                    {255, 0, 0, 255, 0, 0, 0, 0}})},
      {"32 bits", Joined({file,
                          {54, 0, 0, 0},
                          header(2, 0, 32, 0),
                          {255, 0, 0, 0, 255, 0, 0, 0},
                          {0, 0, 255, 0, 255, 0, 0, 0}})},
      {"a palette",
       Joined({file, {62, 0, 0, 0}, header(2, 0, 8, 0), twoColors, {1, 1, 0, 0}, {0, 1, 0, 0}})},
      {"one bit",
       Joined(
           {file, {62, 0, 0, 0}, header(2, 0, 1, 0), twoColors, {0xC0, 0, 0, 0}, {0x40, 0, 0, 0}})},
      {"runs",
       Joined(
           {file, {62, 0, 0, 0}, header(2, 0, 8, 1), twoColors, {2, 1, 0, 0}, {1, 0, 1, 1, 0, 1}})},
  };
  for (const auto& row : rows) {
    Bytes bytes = row.bytes;
    bytes[2] = static_cast<std::uint8_t>(bytes.size());
    std::vector<std::uint32_t> pixels;
    const Raised raised = Catch([&] { pixels = DecodePicture(bytes, "bitmap")->pixels(); });
    EXPECT_EQ(raised.number, 0) << row.why;
    EXPECT_EQ(pixels, (std::vector<std::uint32_t>{0xFFFF0000, 0xFF0000FF, 0xFF0000FF, 0xFF0000FF}))
        << row.why;
  }
}

TEST(PictureFile, IsSavedAsABitmapOverWhite) {
  const HeadlessPicture picture(3, 1, {0xFF102030, 0x00123456, 0x80010101});
  const Bytes bytes = EncodeBitmap(picture);
  EXPECT_EQ(bytes[28], 24) << "bits to a pixel";
  EXPECT_EQ(bytes[30], 0) << "not compressed";
  EXPECT_EQ(Bytes(bytes.begin() + 54, bytes.end()),
            (Bytes{0x30, 0x20, 0x10, 255, 255, 255, 128, 128, 128, 0, 0, 0}));
}

TEST(PictureFile, ComesFromTheDiskOrFromTheProgram) {
  const TemporaryFolder folder;
  const auto platform = MakeHeadlessPlatform();
  EXPECT_EQ(platform->LoadPicture(""), nullptr);
  EXPECT_EQ(Catch([&] { platform->LoadPicture(folder.Path("a.bmp")); }).number,
            error_number::kFileNotFound);
  EXPECT_EQ(Catch([&] { platform->ResourcePicture("no such tag"); }).number,
            error_number::kInvalidPicture);

  const PictureRef corner = platform->ResourcePicture("Lt_Lower_Corner");
  EXPECT_EQ(platform->ResourcePicture("Lt_Lower_Corner"), corner) << "decoded once";
  platform->SavePicture(*corner, folder.Path("a.bmp"));
  const PictureRef loaded = platform->LoadPicture(folder.Path("a.bmp"));
  EXPECT_EQ(static_cast<const HeadlessPicture&>(*loaded).pixels(),
            static_cast<const HeadlessPicture&>(*corner).pixels());
  EXPECT_EQ(Catch([&] { platform->LoadPicture(folder.Path("A.bmp")); }).number,
            error_number::kFileNotFound)
      << "exact case";
  platform->SavePicture(*corner, folder.Path("Akvt.bmp"));
  EXPECT_NE(platform->LoadPicture(folder.Path("akvt.bmp")), nullptr)
      << "pages write the component's own names as they like";
}

}  // namespace
}  // namespace zav
