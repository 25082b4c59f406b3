// Redraws the two areas from what the form holds.
#pragma once

#include "form/SourceLook.h"
#include "form/interaction/Drawing.h"

namespace zav {

class AreaRefresh {
 public:
  AreaRefresh(FormCore& form, Drawing& drawing, SourceLook& sourceLook)
      : form_(form), drawing_(drawing), sourceLook_(sourceLook) {}

  // Background picture, outlines and wells. Reports under "RefreshWorkArea".
  void RefreshWorkArea();
  // Cards, with the headings in front. Reports under "RefreshSourceArea".
  void RefreshSourceArea();

 private:
  void PaintBackground();

  FormCore& form_;
  Drawing& drawing_;
  SourceLook& sourceLook_;
};

}  // namespace zav
