// Lays the form out: the outer panes, then what the splitter holds. Records how the splitter
// stands.
#pragma once

#include "form/StateRecorder.h"
#include "form/layout/AreaSizing.h"
#include "form/layout/PanePlacement.h"

namespace zav {

class PaneLayout {
 public:
  PaneLayout(FormCore& form, Panes& panes, AreaSizing& sizing, AreaRefresh& refresh,
             StateRecorder& recorder)
      : form_(form), panes_(panes), sizing_(sizing), refresh_(refresh), recorder_(recorder) {}

  // Does nothing unless a layout is pending and the form is built. Reports under "SizeControls".
  void SizeControls();

 private:
  void PlaceOuterPanes();
  void ShowAnswerButtons();
  void SizeSplitterPanes();
  void SizeStem();

  FormCore& form_;
  Panes& panes_;
  AreaSizing& sizing_;
  AreaRefresh& refresh_;
  StateRecorder& recorder_;
};

}  // namespace zav
