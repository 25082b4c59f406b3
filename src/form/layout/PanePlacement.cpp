#include "form/layout/PanePlacement.h"

#include <algorithm>

namespace zav {
namespace {

constexpr float kTitlePixels = 27;
constexpr float kEdgePixels = 8;
constexpr float kBottomPixels = 8;
constexpr float kFooterPixels = 41;

Rect NotNegative(float left, float top, float width, float height) {
  return {std::max(left, 0.0F), std::max(top, 0.0F), std::max(width, 0.0F), std::max(height, 0.0F)};
}

}  // namespace

PaneRects PlacePanes(const PaneRequest& request) {
  const float width = request.form.width;
  const float height = request.form.height;
  const float title = kTitlePixels * request.pixel.height;
  const float edge = kEdgePixels * request.pixel.width;
  const float bottom = kBottomPixels * request.pixel.height;
  const float footer = kFooterPixels * request.pixel.height;
  PaneRects panes;
  if (request.caseStudy) {
    panes.footer = NotNegative(0, height - footer, width, footer);
    panes.splitter = NotNegative(0, 0, width, height - footer);
    return panes;
  }
  const float inner = width - 2 * edge;
  panes.title = NotNegative(0, 0, width, title);
  panes.leftEdge = NotNegative(0, title, edge, height - title - bottom);
  panes.rightEdge = NotNegative(width - edge, title, edge, height - title - bottom);
  panes.bottom = NotNegative(0, height - bottom, width, bottom);
  panes.footer = NotNegative(edge, height - footer - bottom, inner, footer);
  panes.splitter = NotNegative(edge, title, inner, height - (footer + title + bottom));
  return panes;
}

}  // namespace zav
