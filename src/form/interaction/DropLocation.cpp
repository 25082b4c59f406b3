#include "form/interaction/DropLocation.h"

#include <algorithm>

namespace zav {

std::int16_t FindDropZone(std::span<const DropZone> zones, Point point) {
  const auto found = std::find_if(zones.begin(), zones.end(), [&](const DropZone& zone) {
    return point.x > zone.left && point.x < zone.right && point.y > zone.top &&
           point.y < zone.bottom;
  });
  return found == zones.end() ? std::int16_t{0}
                              : static_cast<std::int16_t>(found - zones.begin() + 1);
}

void DropLocation::CheckDragLocation(std::string_view kind, int index, float& x, float& y) {
  DragState& drag = form_.drag;
  drag.OverSourceArea = false;
  drag.CurrentTarget = 0;
  form_.Trap("CheckDragLocation", [&] {
    const Point origin = OriginInSplitter(kind, index);
    const Point point{origin.x + x, origin.y + y};
    const Point work = WorkOriginInSplitter();
    x = (point.x - work.x) / form_.TwipsX();
    y = (point.y - work.y) / form_.TwipsY();
    drag.OverSourceArea = form_.controls.spSplitter.Pane("SourceArea").rect.Contains(point);
    if (!drag.OverSourceArea) drag.CurrentTarget = FindDropZone(Zones(), {x, y});
  });
}

Point DropLocation::OriginInSplitter(std::string_view kind, int index) const {
  const FormControls& controls = form_.controls;
  if (kind == "Source") {
    const Rect& pane = controls.spSplitter.Pane("SourceArea").rect;
    const PictureButton& picture = controls.imgSource[index];
    return {pane.left + picture.left(), pane.top + picture.top()};
  }
  const Point work = WorkOriginInSplitter();
  const PictureButton& picture = controls.imgTarget[index];
  return {work.x + picture.left() * form_.TwipsX(), work.y + picture.top() * form_.TwipsY()};
}

Point DropLocation::WorkOriginInSplitter() const {
  const FormControls& controls = form_.controls;
  const Rect& pane = controls.spSplitter.Pane("WorkArea").rect;
  return {pane.left + controls.scrWork.left() + controls.pcWork.left() - controls.scrWork.scrollX(),
          pane.top + controls.scrWork.top() + controls.pcWork.top() - controls.scrWork.scrollY()};
}

std::vector<DropZone> DropLocation::Zones() const {
  std::vector<DropZone> zones;
  const int count = static_cast<int>(form_.tables.TargetList.Count());
  zones.reserve(static_cast<std::size_t>(count));
  for (int t = 1; t <= count; ++t) {
    const PictureButton& picture = form_.controls.imgTarget[t];
    // The cover spans picture and text.
    const float height = form_.controls.imgTargetCover[t].height();
    const clsTarget& snap = form_.tables.TargetList.Item(t);
    zones.push_back({picture.left() - static_cast<float>(snap.SnapLeft),
                     picture.top() - static_cast<float>(snap.SnapTop),
                     picture.left() + picture.width() + static_cast<float>(snap.SnapRight),
                     picture.top() + height + static_cast<float>(snap.SnapBottom)});
  }
  return zones;
}

}  // namespace zav
