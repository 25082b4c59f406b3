#include "platform/headless/HitTest.h"

#include <utility>
#include <vector>

namespace zav {
namespace {

// In twips from the container's corner.
Rect PlaceIn(const Control& container, const Control& child) {
  const Size unit = child.TwipsPerUnit();
  const Size size = child.SizeInTwips();
  const Point offset = container.ChildOffset(child);
  return {child.left() * unit.width + offset.x, child.top() * unit.height + offset.y, size.width,
          size.height};
}

bool LiesOver(const Control& upper, const Control& lower) {
  const bool isLabel = upper.kind() == ControlKind::Label;
  if (isLabel != (lower.kind() == ControlKind::Label)) return !isLabel;
  return upper.zOrder() > lower.zOrder();
}

Control* ChildAt(const Control& container, Point at) {
  Control* top = nullptr;
  for (Control* child : container.children()) {
    if (!child->visible() || !PlaceIn(container, *child).Contains(at)) continue;
    if (top == nullptr || LiesOver(*child, *top)) top = child;
  }
  return top;
}

}  // namespace

Control* ControlAt(Form& form, Point at) {
  if (!form.visible() || !Rect{0, 0, form.width(), form.height()}.Contains(at)) return nullptr;
  Control* found = &form;
  while (Control* child = ChildAt(*found, at)) {
    const Rect place = PlaceIn(*found, *child);
    at = {at.x - place.left, at.y - place.top};
    found = child;
  }
  return found;
}

Control* FindControl(Form& form, ControlId id) {
  std::vector<Control*> toSearch{&form};
  while (!toSearch.empty()) {
    Control* control = toSearch.back();
    if (control->id() == id) return control;
    toSearch.pop_back();
    toSearch.insert(toSearch.end(), control->children().begin(), control->children().end());
  }
  return nullptr;
}

}  // namespace zav
