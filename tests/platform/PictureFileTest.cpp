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
  }
}

TEST(PictureFile, IsRefusedWhereverItIsCut) {
  for (const auto& format : kFormats) {
    const Bytes whole = Encode(Speckles(), format.encode);
    ASSERT_GT(whole.size(), 97U * 10) << format.name;
    for (std::size_t length = 0; length + 1 < whole.size(); length += 97) {
      const Raised raised = Catch([&] { DecodePicture({whole.data(), length}, "items/a.pic"); });
      EXPECT_EQ(raised.number, error_number::kInvalidPicture) << format.name << " at " << length;
      EXPECT_NE(raised.description.find("items/a.pic"), std::string::npos) << raised.description;
    }
  }
}

void PutBigEndian(Bytes& bytes, std::size_t at, std::uint32_t value) {
  for (const unsigned shift : {24U, 16U, 8U, 0U}) {
    bytes[at++] = static_cast<std::uint8_t>(value >> shift);
  }
}

Bytes Png(std::uint32_t width, std::uint32_t height) {
  Bytes bytes = Encode(Flag(4, 4), kFormats[1].encode);
  PutBigEndian(bytes, 16, width);
  PutBigEndian(bytes, 20, height);
  return bytes;
}

Bytes Changed(std::size_t format, std::initializer_list<std::pair<std::size_t, int>> changes) {
  Bytes bytes = Encode(Flag(4, 4), kFormats[format].encode);
  for (const auto& [at, value] : changes) bytes[at] = static_cast<std::uint8_t>(value);
  return bytes;
}

// A picture of one row of blocks that is refined that often.
Bytes JpegWithScans(int scans) {
  Bytes bytes = Encode(Flag(4, 4), kFormats[3].encode);
  bytes.resize(bytes.size() - 2);
  const Bytes scan = {0xFF, 0xDA, 0, 8, 1, 1, 0, 0, 63, 0, 0x55};
  for (int i = 0; i < scans; ++i) bytes.insert(bytes.end(), scan.begin(), scan.end());
  bytes.insert(bytes.end(), {0xFF, 0xD9});
  return bytes;
}

TEST(PictureFile, IsRefusedBeforeItTakesMemory) {
  const struct {
    const char* why;
    Bytes bytes;
  } rows[] = {
      {"nothing at all", {}},
      {"text", {'<', 'h', 't', 'm', 'l', '>'}},
      {"too wide", Png(16385, 1)},
      {"too high", Png(1, 16385)},
      {"each side bearable, together too much", Png(16384, 4000)},
      {"no width", Png(0, 4)},
      {"no height", Png(4, 0)},
      {"sides that overflow when multiplied", Png(0x80000000U, 0x80000000U)},
      {"a bitmap too wide", Changed(0, {{19, 0xFF}})},
      {"a bitmap of negative width", Changed(0, {{21, 0xFF}, {20, 0xFF}, {19, 0xFF}})},
      {"a bitmap of the least height", Changed(0, {{22, 0}, {25, 0x80}})},
      {"a GIF on a screen too wide", Changed(2, {{7, 0xFF}})},
      {"a JPEG that is refined too often", JpegWithScans(80)},
      {"a chunk longer than any file", Changed(1, {{33, 0xFF}, {34, 0xFF}})},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(Catch([&] { DecodePicture(row.bytes, "bad"); }).number, error_number::kInvalidPicture)
        << row.why;
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
  const HeadlessPicture picture(2, 1, {0xFF102030, 0x00FFFFFF & 0x00123456});
  const Bytes bytes = EncodeBitmap(picture);
  ASSERT_EQ(bytes.size(), 54U + 8U);
  EXPECT_EQ(bytes[28], 24) << "bits to a pixel";
  EXPECT_EQ(bytes[30], 0) << "not compressed";
  EXPECT_EQ(Bytes(bytes.begin() + 54, bytes.end()), (Bytes{0x30, 0x20, 0x10, 255, 255, 255, 0, 0}));
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
}

}  // namespace
}  // namespace zav
