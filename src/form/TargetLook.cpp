#include "form/TargetLook.h"

#include <utility>

#include "automation/Text.h"
#include "form/ItemLookup.h"
#include "form/ItemParts.h"

namespace zav {

void TargetLook::Arrange(int target) { ArrangeHolding(target, HoldsItem(form_, target)); }

void TargetLook::ArrangeHolding(int target, bool holdsItem) {
  FormControls& controls = form_.controls;
  PictureButton& picture = controls.imgTarget[target];
  RichText& text = controls.txtTarget[target];
  const clsGroup* group = form_.tables.FindGroup(picture.tag());
  if (group == nullptr) return;
  const Size item = form_.ItemPixels(*group);
  const Rect whole{picture.left(), picture.top(), item.width, item.height};
  ItemParts parts{item.height, 0};
  if (holdsItem) {
    const float content = text.ContentHeightTwips(item.width * form_.TwipsX()) / form_.TwipsY();
    parts = DivideItem(item.height, picture.picture() != nullptr, content);
  }
  picture.Resize(item.width, parts.pictureHeight);
  text.Move({whole.left, whole.top + parts.pictureHeight, item.width, parts.textHeight});
  text.SetVisible(parts.textHeight > 0);
  PictureButton& caption = controls.lblTargetCaption[target];
  caption.Move(whole);
  caption.SetVisible(!holdsItem && !TrimBlanks(caption.caption()).empty());
  controls.imgTargetCover[target].Move(whole);
}

void TargetLook::ShowItem(int target, int source) {
  form_.controls.imgTarget[target].SetPicture(form_.controls.imgSource[source].picture());
  form_.controls.txtTarget[target].LoadFrom(form_.controls.txtSource[source]);
  ArrangeHolding(target, true);
}

void TargetLook::ShowEmpty(int target, PictureRef emptyPicture) {
  form_.controls.imgTarget[target].SetPicture(std::move(emptyPicture));
  form_.controls.txtTarget[target].ClearContents();
  ArrangeHolding(target, false);
  Restack(target);
}

void TargetLook::Restack(int target) {
  form_.controls.imgTarget[target].BringToFront();
  PictureButton& caption = form_.controls.lblTargetCaption[target];
  if (caption.visible()) caption.BringToFront();
  form_.controls.txtTarget[target].BringToFront();
  form_.controls.imgTargetCover[target].BringToFront();
  if (form_.options.ShowAnswers) form_.controls.cmdTargetAnswerValue[target].BringToFront();
}

void TargetLook::SetPointer(int target, Pointer pointer) {
  form_.controls.imgTarget[target].SetPointer(pointer);
  form_.controls.txtTarget[target].SetPointer(pointer);
}

// All of them, or none.
void TargetLook::SetTag(int target, const std::string& tag) {
  std::string ofPicture = tag;
  std::string ofCover = tag;
  std::string ofText = tag;
  form_.controls.imgTarget[target].SetTag(std::move(ofPicture));
  form_.controls.imgTargetCover[target].SetTag(std::move(ofCover));
  form_.controls.txtTarget[target].SetTag(std::move(ofText));
}

}  // namespace zav
