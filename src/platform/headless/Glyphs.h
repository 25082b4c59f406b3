// The shapes of characters, drawn from the font files of the DejaVu Sans family.
#pragma once

#include <cstdint>
#include <map>
#include <tuple>
#include <vector>

#include "platform/headless/TextMetrics.h"

namespace zav {

// How much of each small cell the character covers, 0 to 255. A pixel is kCellsPerPixel cells wide
// and one cell high, so that a character can stand between two pixels.
struct Glyph {
  static constexpr int kCellsPerPixel = 4;

  int left = 0;  // cells from the character's position to the first column
  int top = 0;   // pixels from the base line to the first row, downwards
  int width = 0;
  int height = 0;
  std::vector<std::uint8_t> coverage;  // by rows

  [[nodiscard]] int At(int column, int row) const {
    if (column < 0 || column >= width) return 0;
    return coverage[static_cast<std::size_t>(row) * static_cast<std::size_t>(width) +
                    static_cast<std::size_t>(column)];
  }
};

class Glyphs {
 public:
  // Upright, whatever the style says. Lives as long as this object. Raises 53 when the font's file
  // is not there.
  const Glyph& Of(char32_t character, const TextStyle& style);

 private:
  using Key = std::tuple<char32_t, float, bool>;  // character, size, bold
  std::map<Key, Glyph> glyphs_;
};

}  // namespace zav
