#include "platform/headless/Canvas.h"

#include <gd.h>

#include <algorithm>
#include <cmath>
#include <memory>
#include <string>

#include "automation/AutomationError.h"
#include "platform/headless/HeadlessPicture.h"

namespace zav {
namespace {

constexpr int kMostPixels = 16384;
constexpr float kSlant = 0.2F;  // of slanted text: pixels to the right for each pixel upwards
constexpr Argb kOpaque = 0xFF000000U;

int Channel(Argb color, unsigned shift) { return static_cast<int>((color >> shift) & 0xFFU); }

// Coordinates that can be counted with, whatever an item says.
float Bounded(float value) { return std::isfinite(value) ? std::clamp(value, -1e6F, 1e6F) : 0; }
int WholePixel(float value) { return static_cast<int>(std::lround(Bounded(value))); }

float DistanceToLine(Point point, Point from, Point to) {
  const float dx = to.x - from.x;
  const float dy = to.y - from.y;
  const float square = std::max(dx * dx + dy * dy, 1e-6F);
  const float along = ((point.x - from.x) * dx + (point.y - from.y) * dy) / square;
  const float t = std::clamp(along, 0.0F, 1.0F);
  return std::hypot(point.x - from.x - t * dx, point.y - from.y - t * dy);
}

// The columns of row y that a slanted line with this reach to both sides can touch.
struct Columns {
  int first;
  int last;
};

Columns ColumnsOfLine(Point from, Point to, float reach, int y) {
  if (from.y > to.y) std::swap(from, to);
  const float height = std::max(to.y - from.y, 1e-6F);
  const auto xAt = [&](float lineY) {
    return from.x + (to.x - from.x) * std::clamp((lineY - from.y) / height, 0.0F, 1.0F);
  };
  const float a = xAt(static_cast<float>(y) - reach);
  const float b = xAt(static_cast<float>(y + 1) + reach);
  return {WholePixel(std::min(a, b) - reach) - 1, WholePixel(std::max(a, b) + reach) + 1};
}

// The average of the pixels that the rectangle covers, by their alpha.
Argb Average(const HeadlessPicture& picture, const PixelRect& rect) {
  std::uint64_t alpha = 0;
  std::uint64_t red = 0;
  std::uint64_t green = 0;
  std::uint64_t blue = 0;
  for (int y = rect.top; y < rect.Bottom(); ++y) {
    for (int x = rect.left; x < rect.Right(); ++x) {
      const Argb pixel = picture.pixels()[static_cast<std::size_t>(y) *
                                              static_cast<std::size_t>(picture.WidthPixels()) +
                                          static_cast<std::size_t>(x)];
      const auto weight = pixel >> 24U;
      alpha += weight;
      red += std::uint64_t{weight} * ((pixel >> 16U) & 0xFFU);
      green += std::uint64_t{weight} * ((pixel >> 8U) & 0xFFU);
      blue += std::uint64_t{weight} * (pixel & 0xFFU);
    }
  }
  if (alpha == 0) return 0;
  const auto count =
      static_cast<std::uint64_t>(rect.width) * static_cast<std::uint64_t>(rect.height);
  return static_cast<Argb>(((alpha / count) << 24U) | ((red / alpha) << 16U) |
                           ((green / alpha) << 8U) | (blue / alpha));
}

// The part of length source that stands for step index of the given number of steps; never empty.
struct Part {
  int first;
  int count;
};

Part PartOf(int source, int steps, int index) {
  const auto at = [&](int i) { return static_cast<int>(std::int64_t{source} * i / steps); };
  const int first = std::min(at(index), source - 1);
  return {first, std::max(1, at(index + 1) - first)};
}

int Remainder(int value, int divisor) { return ((value % divisor) + divisor) % divisor; }

// How far the point is inside a box with round corners, in pixels; negative outside.
float InsideRound(const PixelRect& rect, float radius, float x, float y) {
  const float dx = std::max({static_cast<float>(rect.left) + radius - x,
                             x - static_cast<float>(rect.Right()) + radius, 0.0F});
  const float dy = std::max({static_cast<float>(rect.top) + radius - y,
                             y - static_cast<float>(rect.Bottom()) + radius, 0.0F});
  return dx > 0 && dy > 0 ? radius - std::hypot(dx, dy) : 1;
}

}  // namespace

Argb ArgbOf(std::int32_t controlColor) {
  constexpr Argb kButtonFace = 0xFFC8CCD0U;
  const auto color = static_cast<std::uint32_t>(controlColor);
  if (color > 0xFFFFFFU) return kButtonFace;
  return kOpaque | ((color & 0xFFU) << 16U) | (color & 0xFF00U) | (color >> 16U);
}

Canvas::Canvas(int width, int height) : width_(width), height_(height) {
  if (width < 1 || height < 1 || width > kMostPixels || height > kMostPixels) {
    throw AutomationError(error_number::kInvalidArgument,
                          "No picture can be " + std::to_string(width) + " by " +
                              std::to_string(height) + " pixels large");
  }
  pixels_.assign(static_cast<std::size_t>(width) * static_cast<std::size_t>(height), 0xFFFFFFFFU);
  clips_.push_back({0, 0, width, height});
}

std::size_t Canvas::Index(int x, int y) const {
  return static_cast<std::size_t>(y) * static_cast<std::size_t>(width_) +
         static_cast<std::size_t>(x);
}

Argb Canvas::PixelAt(int x, int y) const {
  const bool isInside = x >= 0 && y >= 0 && x < width_ && y < height_;
  return isInside ? pixels_[Index(x, y)] : 0;
}

PixelRect Canvas::Clipped(const PixelRect& rect) const {
  const PixelRect& clip = clips_.back();
  const int left = std::max(clip.left, rect.left);
  const int top = std::max(clip.top, rect.top);
  const int right = std::min(clip.Right(), rect.Right());
  const int bottom = std::min(clip.Bottom(), rect.Bottom());
  return {left, top, std::max(0, right - left), std::max(0, bottom - top)};
}

void Canvas::PushClip(const PixelRect& rect) { clips_.push_back(Clipped(rect)); }
void Canvas::PopClip() { clips_.pop_back(); }

// The caller has clipped.
void Canvas::Blend(int x, int y, Argb color, float coverage) {
  const int alpha =
      WholePixel(static_cast<float>(Channel(color, 24)) * std::clamp(coverage, 0.0F, 1.0F));
  Argb& under = At(x, y);
  Argb mixed = kOpaque;
  for (const unsigned shift : {16U, 8U, 0U}) {
    const int value =
        (Channel(color, shift) * alpha + Channel(under, shift) * (255 - alpha) + 127) / 255;
    mixed |= static_cast<Argb>(value) << shift;
  }
  under = mixed;
}

void Canvas::FillRect(const PixelRect& rect, Argb color) {
  const PixelRect part = Clipped(rect);
  for (int y = part.top; y < part.Bottom(); ++y) {
    for (int x = part.left; x < part.Right(); ++x) Blend(x, y, color, 1);
  }
}

void Canvas::FillRound(const PixelRect& rect, float radius, Argb color) {
  const PixelRect part = Clipped(rect);
  for (int y = part.top; y < part.Bottom(); ++y) {
    for (int x = part.left; x < part.Right(); ++x) {
      const float inside =
          InsideRound(rect, radius, static_cast<float>(x) + 0.5F, static_cast<float>(y) + 0.5F);
      Blend(x, y, color, inside + 0.5F);
    }
  }
}

void Canvas::OutlineRect(const PixelRect& rect, int penWidth, Argb color) {
  const int pen = std::min({penWidth, (rect.width + 1) / 2, (rect.height + 1) / 2});
  FillRect({rect.left, rect.top, rect.width, pen}, color);
  FillRect({rect.left, rect.Bottom() - pen, rect.width, pen}, color);
  FillRect({rect.left, rect.top + pen, pen, rect.height - 2 * pen}, color);
  FillRect({rect.Right() - pen, rect.top + pen, pen, rect.height - 2 * pen}, color);
}

void Canvas::DrawLine(Point from, Point to, float penWidth, Argb color) {
  // A pixel's middle stands half a pixel from its corner: whole coordinates give sharp lines.
  const Point start{Bounded(from.x) + 0.5F, Bounded(from.y) + 0.5F};
  const Point end{Bounded(to.x) + 0.5F, Bounded(to.y) + 0.5F};
  const float reach = std::clamp(Bounded(penWidth), 1.0F, 1000.0F) / 2;
  const PixelRect rows =
      Clipped({-kMostPixels, WholePixel(std::min(start.y, end.y) - reach) - 1, 3 * kMostPixels,
               WholePixel(std::fabs(start.y - end.y) + 2 * reach) + 3});
  for (int y = rows.top; y < rows.Bottom(); ++y) {
    const Columns columns = ColumnsOfLine(start, end, reach, y);
    const int last = std::min(columns.last, rows.Right() - 1);
    for (int x = std::max(columns.first, rows.left); x <= last; ++x) {
      const Point middle{static_cast<float>(x) + 0.5F, static_cast<float>(y) + 0.5F};
      Blend(x, y, color, reach + 0.5F - DistanceToLine(middle, start, end));
    }
  }
}

void Canvas::DrawGlyph(const Glyph& glyph, float left, int baseLine, float slant, Argb color) {
  constexpr int kCells = Glyph::kCellsPerPixel;
  for (int row = 0; row < glyph.height; ++row) {
    const int y = baseLine + glyph.top + row;
    const float shifted = left - slant * static_cast<float>(glyph.top + row);
    const int firstCell = WholePixel(shifted * kCells) + glyph.left;
    const int firstPixel = (firstCell - Remainder(firstCell, kCells)) / kCells;
    const PixelRect part = Clipped({firstPixel, y, glyph.width / kCells + 2, 1});
    if (part.IsEmpty()) continue;
    for (int x = part.left; x < part.Right(); ++x) {
      int sum = 0;
      for (int cell = 0; cell < kCells; ++cell) sum += glyph.At(x * kCells + cell - firstCell, row);
      if (sum > 0) Blend(x, y, color, static_cast<float>(sum) / (255.0F * kCells));
    }
  }
}

void Canvas::DrawText(std::string_view line, float left, int top, const TextStyle& style,
                      Argb color) {
  const int baseLine = top + AscentPixels(style);
  const auto edge = static_cast<float>(clips_.back().Right());
  float x = left;
  while (!line.empty() && x < edge) {
    const char32_t character = TakeCharacter(line);
    DrawGlyph(glyphs_.Of(character, style), x, baseLine, style.italic ? kSlant : 0, color);
    x += AdvanceOf(character, style);
  }
  const int pen = std::max(1, WholePixel(style.pixels / 14));
  const PixelRect stroke{WholePixel(left), baseLine + pen, WholePixel(x - left), pen};
  if (style.underline) FillRect(stroke, color);
  const int raised = baseLine - WholePixel(style.pixels * 0.3F);
  if (style.struckOut) FillRect({stroke.left, raised, stroke.width, pen}, color);
}

void Canvas::DrawPicture(const Picture& picture, const PixelRect& rect, float opacity) {
  const auto* source = dynamic_cast<const HeadlessPicture*>(&picture);
  if (source == nullptr || source->pixels().empty()) return;
  const PixelRect part = Clipped(rect);
  for (int y = part.top; y < part.Bottom(); ++y) {
    const Part rows = PartOf(source->HeightPixels(), rect.height, y - rect.top);
    for (int x = part.left; x < part.Right(); ++x) {
      const Part columns = PartOf(source->WidthPixels(), rect.width, x - rect.left);
      Blend(x, y, Average(*source, {columns.first, rows.first, columns.count, rows.count}),
            opacity);
    }
  }
}

void Canvas::TilePicture(const Picture& picture, const PixelRect& rect, int originX, int originY) {
  const auto* source = dynamic_cast<const HeadlessPicture*>(&picture);
  if (source == nullptr || source->pixels().empty()) return;
  const PixelRect part = Clipped(rect);
  for (int y = part.top; y < part.Bottom(); ++y) {
    const int row = Remainder(y - originY, source->HeightPixels());
    for (int x = part.left; x < part.Right(); ++x) {
      const int column = Remainder(x - originX, source->WidthPixels());
      Blend(x, y, Average(*source, {column, row, 1, 1}), 1);
    }
  }
}

std::vector<std::uint8_t> Canvas::Png() const {
  const std::unique_ptr<gdImage, decltype(&gdImageDestroy)> image(
      gdImageCreateTrueColor(width_, height_), &gdImageDestroy);
  if (!image) throw AutomationError(error_number::kOutOfMemory, "Out of memory");
  for (int y = 0; y < height_; ++y) {
    for (int x = 0; x < width_; ++x) {
      image->tpixels[y][x] = static_cast<int>(pixels_[Index(x, y)] & 0xFFFFFFU);
    }
  }
  int size = 0;
  const std::unique_ptr<void, decltype(&gdFree)> bytes(gdImagePngPtr(image.get(), &size), &gdFree);
  const auto* first = static_cast<const std::uint8_t*>(bytes.get());
  return {first, first + size};
}

}  // namespace zav
