// Where the form's outer panes stand: the rule, without a control.
#pragma once

#include "platform/Geometry.h"

namespace zav {

struct PaneRequest {
  Size form;       // inner size, twips
  Size pixel;      // one pixel, twips
  bool caseStudy;  // a case study shows title and edges itself
};

// Twips from the form's corner. In a case study only footer and splitter have a size.
struct PaneRects {
  Rect title;
  Rect leftEdge;
  Rect rightEdge;
  Rect bottom;
  Rect footer;
  Rect splitter;
};

// No side of a rectangle is negative, however small the form.
PaneRects PlacePanes(const PaneRequest& request);

}  // namespace zav
