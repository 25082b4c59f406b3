#include "form/interaction/SnapMargins.h"

#include <algorithm>

#include "automation/Conversions.h"

namespace zav {
namespace {

constexpr std::int32_t kNoNeighbour = 19000;

// A rectangle as seen along the axis of a direction: where it begins and ends on that axis, growing
// towards the neighbour, and on the other.
struct Span {
  float nearEdge;
  float farEdge;
  float crossStart;
  float crossEnd;
  [[nodiscard]] float Length() const { return farEdge - nearEdge; }
};

Span Along(const Rect& rect, SnapDirection direction) {
  switch (direction) {
    case SnapDirection::Below:
      return {rect.top, rect.Bottom(), rect.left, rect.Right()};
    case SnapDirection::Above:
      return {-rect.Bottom(), -rect.top, rect.left, rect.Right()};
    case SnapDirection::Left:
      return {-rect.Right(), -rect.left, rect.top, rect.Bottom()};
    case SnapDirection::Right:
      break;
  }
  return {rect.left, rect.Right(), rect.top, rect.Bottom()};
}

bool IsNeighbour(const Span& target, const Span& other) {
  return other.nearEdge >= target.farEdge && other.crossStart < target.crossEnd &&
         target.crossStart < other.crossEnd;
}

bool ZonesMeet(const Span& target, const Span& neighbour) {
  return target.farEdge + target.Length() / 2 >= neighbour.nearEdge - neighbour.Length() / 2;
}

}  // namespace

std::int32_t FindSnapLimit(std::span<const Rect> targets, std::size_t index,
                           SnapDirection direction) {
  if (direction < SnapDirection::Below || direction > SnapDirection::Right) return kNoNeighbour;
  const Span target = Along(targets[index], direction);
  const std::int32_t half = RoundToInt32(target.Length() / 2);
  for (std::size_t other = 0; other < targets.size(); ++other) {
    if (other == index) continue;
    const Span neighbour = Along(targets[other], direction);
    if (IsNeighbour(target, neighbour) && ZonesMeet(target, neighbour)) return 0;
  }
  return std::max(half, 0);
}

}  // namespace zav
