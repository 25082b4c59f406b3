// How the groups of source items stand in the source area: the rule, without a control. All values
// are twips from the corner of the source surface.
#pragma once

#include <vector>

#include "platform/Geometry.h"

namespace zav {

struct GroupRequest {
  float headingHeight = 0;
  Size item;          // of every item of the group
  int itemCount = 0;  // items that take room
};

struct ArrangedGroup {
  Rect heading;
  std::vector<Point> items;  // their top left corners
};

struct GroupArrangement {
  std::vector<ArrangedGroup> groups;
  Size surface;
};

// Room between items and round them: enough for their frames and shadows to stand apart.
struct ArrangementGaps {
  float betweenItems = 0;  // side by side
  float betweenRows = 0;
  float besideItems = 0;  // between a group's edge and its items
  float scrollBar = 0;    // kept free of items at the right edge
  float betweenGroups = 0;
  float atEnd = 0;  // below the last item
};

// One below the other, each heading as wide as the surface. Items stand from left to right under
// their heading, in a new row when the next one would pass the heading's width or come under the
// scroll bar. The surface is as wide as asked for, or as its widest item needs.
GroupArrangement ArrangeGroupsLeft(const std::vector<GroupRequest>& groups, float surfaceWidth,
                                   const ArrangementGaps& gaps);

// Side by side, the first one `left` from the edge, every group equally wide: they share what the
// area offers, but none gets less than its widest item needs.
GroupArrangement ArrangeGroupsTop(const std::vector<GroupRequest>& groups, float areaWidth,
                                  float left, const ArrangementGaps& gaps);

}  // namespace zav
