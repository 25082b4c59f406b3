// What the two areas show, drawn from what the form holds.
#pragma once

#include "form/SourceLook.h"
#include "form/interaction/Drawing.h"

namespace zav {

class AreaRefresh {
 public:
  AreaRefresh(FormCore& form, Drawing& drawing, SourceLook& sourceLook)
      : form_(form), drawing_(drawing), sourceLook_(sourceLook) {}

  // Has the area painted when the entry ends, without frames.
  void RefreshWorkArea();
  // The same; the headings come to the front at once.
  void RefreshSourceArea();

  // Background picture, outlines, wells and frames. Reports under "RefreshWorkArea".
  void PaintWorkArea();
  // Cards and a frame. Reports under "RefreshSourceArea".
  void PaintSourceArea();

 private:
  void PaintBackground();

  FormCore& form_;
  Drawing& drawing_;
  SourceLook& sourceLook_;
};

}  // namespace zav
