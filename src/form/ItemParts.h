// Where an item's picture and text stand within the room that its group gives every item. Source
// items, filled targets and the drag picture share it, so that an item looks the same everywhere.
#pragma once

#include <algorithm>

#include "platform/Geometry.h"

namespace zav {

struct ItemParts {
  float pictureHeight;  // from the top; 0 without a picture
  float textHeight;     // right under the picture; 0 without text
};

// A picture gets what the text leaves; a text alone gets all of it. Any one unit for all three.
inline ItemParts DivideItem(float itemHeight, bool hasPicture, float textContentHeight) {
  if (!hasPicture) return {0, textContentHeight > 0 ? itemHeight : 0};
  const float text = std::min(textContentHeight, itemHeight);
  return {itemHeight - text, text};
}

}  // namespace zav
