// Snap margins say how far around a target a drop still lands on it.
//
// All values are pixels of the work picture. Computed once from the targets' rectangles; knows no
// control, no pointer and no scroll position.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "platform/Geometry.h"

namespace zav {

enum class SnapDirection : std::int16_t { Below = 1, Above = 2, Left = 3, Right = 4 };

// The targets as they are seen in one direction: those that lie that way come later.
class SnapView {
 public:
  SnapView(std::span<const Rect> targets, SnapDirection direction);

  // The margin of a target, by its place among them, on that side. A neighbour is a target that
  // lies wholly beyond that edge and overlaps along the other axis. Without one, or when the
  // half-size zones of the two do not meet, the margin is half the target's size, rounded half to
  // even; towards a close neighbour it is 0. A direction outside the four gives 19000.
  [[nodiscard]] std::int32_t Limit(std::size_t index) const;

 private:
  // A target along the axis of the direction: where it begins and ends on that axis, growing
  // towards its neighbours, and on the other.
  struct Extent {
    float nearEdge;
    float farEdge;
    float crossStart;
    float crossEnd;
    [[nodiscard]] float Length() const { return farEdge - nearEdge; }
  };
  static Extent Along(const Rect& rect, SnapDirection direction);
  static bool IsNeighbour(const Extent& target, const Extent& other);
  static bool ZonesMeet(const Extent& target, const Extent& neighbour);

  bool isDirection_;
  std::vector<Extent> targets_;
  std::vector<Extent> ordered_;  // by their near edges
  float longest_ = 0;
};

}  // namespace zav
