#include "form/SourceLook.h"

namespace zav {

void SourceLook::ShowUsable(int source) {
  FormControls& controls = form_.controls;
  controls.txtSource[source].SetBackColor(color::kWhite);
  controls.txtSource[source].SetForeColor(color::kBlack);
  controls.imgSource[source].SetBackColor(color::kWhite);
  controls.imgSource[source].SetEnabled(true);
  if (!form_.options.ReadOnly) controls.imgSourceCover[source].SetEnabled(true);
  DrawCard(source);
}

void SourceLook::ShowUsedUp(int source) {
  FormControls& controls = form_.controls;
  controls.txtSource[source].SetBackColor(color::kButtonFace);
  controls.txtSource[source].SetForeColor(color::kWhite);
  controls.imgSourceCover[source].SetEnabled(false);
  if (controls.imgSource[source].picture()) {
    controls.imgSource[source].SetBackColor(color::kButtonFace);
    controls.imgSource[source].SetEnabled(false);
  }
  DrawCard(source);
}

bool SourceLook::LooksUsedUp(int source) const {
  return form_.controls.txtSource[source].backColor() != color::kWhite;
}

void SourceLook::DrawCard(int source) {
  PictureBox& surface = form_.controls.pcSource;
  const PictureButton& picture = form_.controls.imgSource[source];
  const clsGroup& group = form_.tables.GroupOf(picture.tag());
  if (LooksUsedUp(source)) {
    drawing_.DrawUsedCard(CoordinateMode::Twips, surface, picture, group);
    return;
  }
  drawing_.DrawItemCard(CoordinateMode::Twips, surface, picture, group);
  drawing_.DrawItemFrame(CoordinateMode::Twips, surface, picture, group, frame::kOutlinePen,
                         color::kBlack);
}

}  // namespace zav
