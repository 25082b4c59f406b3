#include "form/layout/GroupArrangement.h"

#include <algorithm>

namespace zav {
namespace {

float LeastWidth(const GroupRequest& group, const ArrangementGaps& gaps) {
  return group.item.width + 2 * gaps.besideItems + gaps.scrollBar;
}

// Places the group at `corner`, as wide as `width`, and returns the bottom of its last row.
float ArrangeGroup(const GroupRequest& group, Point corner, float width,
                   const ArrangementGaps& gaps, ArrangedGroup& arranged) {
  arranged.heading = {corner.x, corner.y, width, group.headingHeight};
  const float first = corner.x + gaps.besideItems;
  const float rightmost = corner.x + width - gaps.besideItems - gaps.scrollBar;
  Point at{first, arranged.heading.Bottom() + gaps.betweenRows};
  float bottom = arranged.heading.Bottom();
  for (int i = 0; i < group.itemCount; ++i) {
    if (at.x > first && at.x + group.item.width > rightmost) {
      at = {first, at.y + group.item.height + gaps.betweenRows};
    }
    arranged.items.push_back(at);
    bottom = at.y + group.item.height;
    at.x += group.item.width + gaps.betweenItems;
  }
  return bottom;
}

}  // namespace

GroupArrangement ArrangeGroupsLeft(const std::vector<GroupRequest>& groups, float surfaceWidth,
                                   const ArrangementGaps& gaps) {
  GroupArrangement result;
  result.surface.width = surfaceWidth;
  for (const GroupRequest& group : groups) {
    result.surface.width = std::max(result.surface.width, LeastWidth(group, gaps));
  }
  float top = 0;
  float bottom = 0;
  for (const GroupRequest& group : groups) {
    ArrangedGroup& arranged = result.groups.emplace_back();
    bottom = ArrangeGroup(group, {0, top}, result.surface.width, gaps, arranged);
    top = bottom + gaps.betweenGroups;
  }
  result.surface.height = bottom + gaps.atEnd;
  return result;
}

GroupArrangement ArrangeGroupsTop(const std::vector<GroupRequest>& groups, float areaWidth,
                                  float left, const ArrangementGaps& gaps) {
  GroupArrangement result;
  const auto count = static_cast<float>(groups.size());
  const float share = groups.empty() ? 0 : (areaWidth - left) / count - gaps.betweenGroups;
  float bottom = 0;
  for (const GroupRequest& group : groups) {
    const float width = std::max(share, LeastWidth(group, gaps));
    ArrangedGroup& arranged = result.groups.emplace_back();
    bottom = std::max(bottom, ArrangeGroup(group, {left, 0}, width, gaps, arranged));
    left += width + gaps.betweenGroups;
  }
  result.surface = {std::max(areaWidth, left), bottom + gaps.atEnd};
  return result;
}

}  // namespace zav
