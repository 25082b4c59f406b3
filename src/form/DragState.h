// Where a gesture stands.
#pragma once

#include <cstdint>
#include <vector>

#include "controls/Control.h"

namespace zav {

// What was picked up without holding the mouse: by a key, or by a click.
enum class Carried { Nothing, FromSource, FromTarget };

struct DragState {
  bool ItemPressed = false;  // pressed on a source item or an occupied target, not yet released
  const Control* PressedCover = nullptr;  // the one that was pressed last; only compared
  std::int32_t PressX = 0;                // where on a source cover, twips
  std::int32_t PressY = 0;
  std::int32_t TargetPressX = 0;  // where on a target cover, twips
  std::int32_t TargetPressY = 0;
  std::int16_t CurrentTarget = 0;      // the target under the dragged item, 0: none
  bool OverSourceArea = false;         // the dragged item is over the source area
  std::int16_t HighlightedTarget = 0;  // the target that shows the highlight frame, 0: none
  std::vector<int> FramedTargets;      // those round which a frame is drawn
  int FramedSource = 0;                // the source item round which one is drawn, 0: none
  Carried carried = Carried::Nothing;
  int carriedIndex = 0;       // of the source item or the target that it was picked up from
  bool SourceUsedUp = false;  // what the last count of a source item's uses found

  // The glide of a refused or returned item. All positions are twips.
  Control* AnimObject = nullptr;
  std::int32_t AnimLeft = 0;
  std::int32_t AnimTop = 0;
  std::int32_t AnimEndLeft = 0;
  std::int32_t AnimEndTop = 0;
  std::int32_t AnimStepX = 0;
  std::int32_t AnimStepY = 0;
};

}  // namespace zav
