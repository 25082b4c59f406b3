#include "form/interaction/SnapMargins.h"

#include <algorithm>

#include "automation/Conversions.h"

namespace zav {
namespace {

constexpr std::int32_t kNoNeighbour = 19000;

}  // namespace

SnapView::SnapView(std::span<const Rect> targets, SnapDirection direction)
    : isDirection_(direction >= SnapDirection::Below && direction <= SnapDirection::Right) {
  const auto begins = [](const Extent& a, const Extent& b) { return a.nearEdge < b.nearEdge; };
  for (const Rect& target : targets) {
    targets_.push_back(Along(target, direction));
    longest_ = std::max(longest_, targets_.back().Length());
  }
  ordered_.assign(targets_.begin(), targets_.end());
  // By way of a heap: the code of std::sort is several times as long.
  std::make_heap(ordered_.begin(), ordered_.end(), begins);
  std::sort_heap(ordered_.begin(), ordered_.end(), begins);
}

SnapView::Extent SnapView::Along(const Rect& rect, SnapDirection direction) {
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

bool SnapView::IsNeighbour(const Extent& target, const Extent& other) {
  return other.nearEdge >= target.farEdge && other.crossStart < target.crossEnd &&
         target.crossStart < other.crossEnd;
}

bool SnapView::ZonesMeet(const Extent& target, const Extent& neighbour) {
  return target.farEdge + target.Length() / 2 >= neighbour.nearEdge - neighbour.Length() / 2;
}

std::int32_t SnapView::Limit(std::size_t index) const {
  if (!isDirection_) return kNoNeighbour;
  const Extent& target = targets_[index];
  const std::int32_t half = RoundToInt32(target.Length() / 2);
  // Those that begin before the target ends are none, those that begin beyond the zone of the
  // longest too far away.
  const float beyond = target.farEdge + target.Length() / 2 + longest_ / 2;
  auto other =
      std::lower_bound(ordered_.begin(), ordered_.end(), target.farEdge,
                       [](const Extent& each, float edge) { return each.nearEdge < edge; });
  for (; other != ordered_.end() && other->nearEdge <= beyond; ++other) {
    if (IsNeighbour(target, *other) && ZonesMeet(target, *other)) return 0;
  }
  return std::max(half, 0);
}

}  // namespace zav
