// What is pending in the form's layout, and what the candidate has seen of the item.
#pragma once

#include <cstdint>

#include "platform/Geometry.h"

namespace zav {

struct LayoutState {
  bool Loading = false;        // the form is being built: no layout
  bool LayoutPending = false;  // a layout is wanted
  bool ResizePending = false;  // the form was not yet moved to DisplayRect
  bool StatePending = false;   // the state is to be loaded at the next deferred resize
  Rect DisplayRect;            // as the host asked for it, twips

  std::int16_t MarginX = 0;  // ten pixels in twips
  std::int16_t MarginY = 0;

  // While it is on, the sizes of panes, items and targets are kept.
  bool ItemStemHeightRestored = false;

  bool SavedItemStemScroll = false;        // the end of the item stem has been visible
  std::int32_t SavedWorkAreaScroll = 0;    // 1: its full width has been visible, 2: its full height
  std::int32_t SavedSourceAreaScroll = 0;  // the same
  bool SavedScrollComplete = false;        // the three values above are valid
};

// What a scroll value of 3 says: full width and full height have been visible.
inline constexpr std::int32_t kViewedWhole = 3;

}  // namespace zav
