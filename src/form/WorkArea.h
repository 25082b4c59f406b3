// Builds the work area from the item: picture, labels, callouts, outlines and targets.
//
// Positions are set here; sizes and the places of callouts come with the layout.
#pragma once

#include <string>
#include <vector>

#include "form/PageLoading.h"
#include "form/TargetLook.h"

namespace zav {

class WorkArea {
 public:
  WorkArea(FormCore& form, PageLoading& pages, TargetLook& targetLook)
      : form_(form), pages_(pages), targetLook_(targetLook) {}

  // Reports under "LoadWorkArea"; what was built before an error stays.
  void LoadWorkArea();
  // How far around each target a drop still lands on it, from the targets' rectangles.
  void FindSnapAreas();

 private:
  void BuildWorkArea();
  void LoadPicture();
  void PlaceBackground();
  void LoadLabels();
  void LoadLabel(int entry);
  void LoadCallouts();
  void LoadCallout(int entry);
  void LoadShapes();
  void LoadShape();
  void LoadTargets();
  void LoadTarget(int entry);
  void LoadAnswerButton(int target, const std::string& answerValue);
  // False when a caption's alignment was refused: the candidate was told, and nothing follows.
  bool ShowTargets();
  bool ShowTarget(int target, std::string& loadedName, std::string& loadedPath);
  bool ShowCaption(int target);
  [[nodiscard]] std::vector<Rect> TargetRects() const;

  FormCore& form_;
  PageLoading& pages_;
  TargetLook& targetLook_;
};

}  // namespace zav
