// Which target a dragged item is over, and whether it is over the source area.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "form/FormCore.h"

namespace zav {

// Where a drop still lands on a target: pixels of the work picture, the edges not included.
struct DropZone {
  float left;
  float top;
  float right;
  float bottom;
};

// The first zone that the point lies in, from 1 on; 0 for none.
std::int16_t FindDropZone(std::span<const DropZone> zones, Point point);

class DropLocation {
 public:
  explicit DropLocation(FormCore& form) : form_(form) {}

  // Sets CurrentTarget and OverSourceArea of the drag state. kind is "Source" for a drag from the
  // source area, anything else for one from a target; index is that of the dragged control. x and y
  // come in twips relative to that control, for a source item less the scroll values of the source
  // area, and go out as pixels of the work picture. Reports under "CheckDragLocation", and then the
  // drag is over nothing.
  void CheckDragLocation(std::string_view kind, int index, float& x, float& y);

 private:
  [[nodiscard]] Point OriginInSplitter(std::string_view kind, int index) const;
  [[nodiscard]] Point WorkOriginInSplitter() const;
  [[nodiscard]] std::vector<DropZone> Zones() const;

  FormCore& form_;
};

}  // namespace zav
