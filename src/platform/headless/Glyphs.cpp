#include "platform/headless/Glyphs.h"

#include <gd.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <memory>
#include <string>

#include "automation/AutomationError.h"

namespace zav {
namespace {

constexpr float kPointsPerPixel = 0.75F;
constexpr int kScreenDpi = 96;

using Image = std::unique_ptr<gdImage, decltype(&gdImageDestroy)>;

std::string FontFile(bool bold) {
  std::string file =
      std::string("/usr/share/fonts/truetype/dejavu/DejaVuSans") + (bold ? "-Bold.ttf" : ".ttf");
  if (std::filesystem::exists(file)) return file;
  throw AutomationError(error_number::kFileNotFound,
                        "Font file not found: " + file + " (Debian package fonts-dejavu-core)");
}

std::string Encode(char32_t character) {
  const auto byte = [](char32_t bits) { return static_cast<char>(bits); };
  const auto tail = [&](unsigned shift) { return byte(0x80U | ((character >> shift) & 0x3FU)); };
  if (character < 0x80) return {byte(character)};
  if (character < 0x800) return {byte(0xC0U | (character >> 6U)), tail(0)};
  if (character < 0x10000) return {byte(0xE0U | (character >> 12U)), tail(6), tail(0)};
  return {byte(0xF0U | (character >> 18U)), tail(12), tail(6), tail(0)};
}

// White on black, in a box with room for any character; the character stands at left, base.
struct Sketch {
  Image image;
  int left;
  int base;
};

Sketch DrawLarge(char32_t character, float pixels, bool bold) {
  const int em = static_cast<int>(std::ceil(pixels)) + 1;
  const int wideEm = em * Glyph::kCellsPerPixel;
  Sketch sketch{Image(gdImageCreateTrueColor(3 * wideEm, 3 * em), &gdImageDestroy), wideEm, 2 * em};
  gdFTStringExtra extra{};
  extra.flags = gdFTEX_RESOLUTION | gdFTEX_DISABLE_KERNING;
  extra.hdpi = kScreenDpi * Glyph::kCellsPerPixel;
  extra.vdpi = kScreenDpi;
  std::string file = FontFile(bold);
  std::string text = Encode(character);
  const int white = gdTrueColor(255, 255, 255);
  const char* failure = gdImageStringFTEx(sketch.image.get(), nullptr, white, file.data(),
                                          static_cast<double>(pixels * kPointsPerPixel), 0.0,
                                          sketch.left, sketch.base, text.data(), &extra);
  if (failure == nullptr) return sketch;
  throw AutomationError(error_number::kFileAccess,
                        "Font file not usable: " + file + ", " + failure);
}

std::uint8_t CoverageAt(const Sketch& sketch, int x, int y) {
  return static_cast<std::uint8_t>(
      gdTrueColorGetBlue(gdImageTrueColorPixel(sketch.image.get(), x, y)));
}

Glyph Trim(const Sketch& sketch) {
  const int width = gdImageSX(sketch.image.get());
  const int height = gdImageSY(sketch.image.get());
  int left = width;
  int right = 0;
  int top = height;
  int bottom = 0;
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      if (CoverageAt(sketch, x, y) == 0) continue;
      left = std::min(left, x);
      right = std::max(right, x + 1);
      top = std::min(top, y);
      bottom = std::max(bottom, y + 1);
    }
  }
  if (left >= right) return {};
  Glyph glyph{left - sketch.left, top - sketch.base, right - left, bottom - top, {}};
  for (int y = top; y < bottom; ++y) {
    for (int x = left; x < right; ++x) glyph.coverage.push_back(CoverageAt(sketch, x, y));
  }
  return glyph;
}

}  // namespace

const Glyph& Glyphs::Of(char32_t character, const TextStyle& style) {
  const Key key{character, style.pixels, style.bold};
  const auto known = glyphs_.find(key);
  if (known != glyphs_.end()) return known->second;
  return glyphs_.emplace(key, Trim(DrawLarge(character, style.pixels, style.bold))).first->second;
}

}  // namespace zav
