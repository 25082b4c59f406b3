#include "platform/headless/TextMetrics.h"

#include <algorithm>
#include <cmath>

#include "platform/headless/AdvanceTable.h"

namespace zav {
namespace {

using advance_table::Advance;
using advance_table::Block;

constexpr float kPixelsPerPoint = 96.0F / 72.0F;
constexpr char32_t kReplacement = 0xFFFD;

template <typename Blocks>
bool IsIn(const Blocks& blocks, char32_t character) {
  return std::any_of(blocks.begin(), blocks.end(), [&](const Block& block) {
    return character >= block.first && character <= block.last;
  });
}

const Advance& UnitsOf(char32_t character) {
  if (IsIn(advance_table::kEmptyBlocks, character)) return advance_table::kNone;
  for (const auto& range : advance_table::kRanges) {
    if (character < range.first) continue;
    const std::size_t offset = character - range.first;
    if (offset < range.advances.size()) return range.advances[offset];
  }
  return IsIn(advance_table::kWideBlocks, character) ? advance_table::kWide
                                                     : advance_table::kDefault;
}

bool IsContinuation(char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U; }

// How many bytes a character takes that begins with this byte; 0 for none.
std::size_t LengthFromFirstByte(unsigned char byte) {
  if (byte < 0x80) return 1;
  if (byte >= 0xC2 && byte < 0xE0) return 2;
  if (byte >= 0xE0 && byte < 0xF0) return 3;
  return byte >= 0xF0 && byte < 0xF5 ? 4 : 0;
}

int RoundedUp(float pixels) { return static_cast<int>(std::ceil(pixels)); }

float InPixels(int units, const TextStyle& style) {
  return static_cast<float>(units) * style.pixels / advance_table::kUnitsPerEm;
}

}  // namespace

TextStyle StyleOf(const Font& font) {
  const float pixels = std::isfinite(font.size) ? font.size * kPixelsPerPoint : 0;
  return {std::clamp(pixels, 1.0F, 500.0F), font.bold, font.italic, font.underline, false};
}

char32_t TakeCharacter(std::string_view& text) {
  const auto first = static_cast<unsigned char>(text.front());
  const std::size_t length = LengthFromFirstByte(first);
  const bool isWhole = length != 0 && length <= text.size() &&
                       std::all_of(text.begin() + 1, text.begin() + length, IsContinuation);
  if (!isWhole) {
    text.remove_prefix(1);
    return kReplacement;
  }
  char32_t character = length == 1 ? first : first & (0x7FU >> length);
  for (std::size_t i = 1; i < length; ++i) {
    character = (character << 6U) | (static_cast<unsigned char>(text[i]) & 0x3FU);
  }
  text.remove_prefix(length);
  return character;
}

float AdvanceOf(char32_t character, const TextStyle& style) {
  const Advance& units = UnitsOf(character);
  return InPixels(style.bold ? units.bold : units.regular, style);
}

float ExactTextWidth(std::string_view text, const TextStyle& style) {
  float width = 0;
  while (!text.empty()) width += AdvanceOf(TakeCharacter(text), style);
  return width;
}

int TextWidth(std::string_view text, const TextStyle& style) {
  return RoundedUp(std::min(ExactTextWidth(text, style), 1e9F));
}

int LineHeightPixels(const TextStyle& style) {
  return RoundedUp(InPixels(advance_table::kAscent + advance_table::kDescent, style));
}

int AscentPixels(const TextStyle& style) {
  return RoundedUp(InPixels(advance_table::kAscent, style));
}

}  // namespace zav
