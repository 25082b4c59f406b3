// Waits until everything is loaded, and then does what was asked for meanwhile: the resize, the
// state, the layout.
#pragma once

#include "form/Panes.h"
#include "form/StateRestorer.h"
#include "form/interaction/FlashTimer.h"
#include "form/layout/AreaSizing.h"
#include "form/layout/PaneLayout.h"
#include "form/layout/ScrollTracking.h"

namespace zav {

class Readiness {
 public:
  struct Rooms {
    PaneLayout& layout;
    AreaSizing& sizing;
    StateRestorer& restorer;
    ScrollTracking& scrolling;
    FlashTimer& flash;
  };
  Readiness(FormCore& form, const Rooms& rooms) : form_(form), rooms_(rooms) {}

  // Whether every pane that shows item content has loaded its page; when all have, a pending layout
  // is made first. Reports under "IsFullyLoaded", and is then true.
  bool IsFullyLoaded();
  // Moves the form where the host wants it and lays it out. Reports under "resize".
  void resize();

  void moparent_LoadState();
  // Reports under "moParent_ResizeDisplay".
  void moParent_ResizeDisplay(const Rect& displayRect);
  // Reports under "spSplitter_SplitterEndDrag".
  void spSplitter_SplitterEndDrag();
  // Reports under "ViewedAll_Get", and is then false.
  bool ViewedAll_Get();

 private:
  void MoveForm();
  void DisableControls();
  void AskToScroll();

  FormCore& form_;
  Rooms rooms_;
};

}  // namespace zav
