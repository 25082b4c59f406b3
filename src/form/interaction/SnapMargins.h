// Snap margins say how far around a target a drop still lands on it.
//
// All values are pixels of the work picture. Computed once from the targets' rectangles; knows no
// control, no pointer and no scroll position.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "platform/Geometry.h"

namespace zav {

enum class SnapDirection : std::int16_t { Below = 1, Above = 2, Left = 3, Right = 4 };

// The margin of targets[index] on one side. A neighbour is a target that lies wholly beyond that
// edge and overlaps along the other axis. Without one, or when the half-size zones of the two do
// not meet, the margin is half the target's size, rounded half to even; towards a close neighbour
// it is 0. A direction outside the four gives 19000.
std::int32_t FindSnapLimit(std::span<const Rect> targets, std::size_t index,
                           SnapDirection direction);

}  // namespace zav
