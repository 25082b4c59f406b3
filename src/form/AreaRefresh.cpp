#include "form/AreaRefresh.h"

namespace zav {

void AreaRefresh::RefreshWorkArea() {
  form_.drag.FramedTargets.clear();
  form_.controls.pcWork.Invalidate();
}

void AreaRefresh::RefreshSourceArea() {
  FormControls& controls = form_.controls;
  form_.drag.FramedSource = 0;
  controls.pcSource.Invalidate();
  const int groups = static_cast<int>(form_.tables.GroupList.Count());
  for (int k = 1; k <= groups; ++k) controls.txtSourceHeading[k].BringToFront();
}

void AreaRefresh::PaintWorkArea() {
  form_.Trap("RefreshWorkArea", [&] {
    FormControls& controls = form_.controls;
    PaintBackground();
    for (const ShapeSegment& segment : form_.tables.ShapeSegments) {
      drawing_.DrawLine(controls.pcWork, segment);
    }
    const int count = static_cast<int>(form_.tables.TargetList.Count());
    for (int t = 1; t <= count; ++t) {
      const PictureButton& picture = controls.imgTarget[t];
      const clsGroup* group = form_.tables.FindGroup(picture.tag());
      if (group != nullptr) drawing_.DrawTargetWell(controls.pcWork, picture, *group);
    }
    for (const int target : form_.drag.FramedTargets) drawing_.FrameTarget(target);
  });
}

void AreaRefresh::PaintBackground() {
  const PictureRef& background = form_.controls.pcWorkLoad.picture();
  if (!background) return;
  form_.controls.pcWork.PaintPicture(background, form_.tables.BackgroundAt);
}

void AreaRefresh::PaintSourceArea() {
  form_.Trap("RefreshSourceArea", [&] {
    const int count = form_.controls.imgSource.UpperBound();
    for (int s = 1; s <= count; ++s) sourceLook_.DrawCard(s);
    if (form_.drag.FramedSource > 0) drawing_.FrameSource(form_.drag.FramedSource);
  });
}

}  // namespace zav
