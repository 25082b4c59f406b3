#include "form/layout/PaneLayout.h"

#include <algorithm>

#include "automation/Conversions.h"

namespace zav {

void PaneLayout::SizeControls() {
  form_.Trap("SizeControls", [&] {
    if (!form_.layout.LayoutPending || form_.layout.Loading) return;
    PlaceOuterPanes();
    form_.controls.spSplitter.Show();
    if (panes_.Complete()) SizeSplitterPanes();
    refresh_.RefreshWorkArea();
    refresh_.RefreshSourceArea();
    form_.layout.LayoutPending = false;
  });
}

void PaneLayout::PlaceOuterPanes() {
  FormControls& controls = form_.controls;
  const bool caseStudy = form_.options.CaseStudy;
  const PaneRects panes = PlacePanes({{controls.form.scaleWidth(), controls.form.scaleHeight()},
                                      {form_.TwipsX(), form_.TwipsY()},
                                      caseStudy});
  controls.brwTitle.Move(panes.title);
  controls.brwLeftEdge.Move(panes.leftEdge);
  controls.brwRightEdge.Move(panes.rightEdge);
  controls.brwBottom.Move(panes.bottom);
  controls.brwButtons.Move(panes.footer);
  controls.spSplitter.Move(panes.splitter);
  for (HtmlPane* pane :
       {&controls.brwTitle, &controls.brwLeftEdge, &controls.brwRightEdge, &controls.brwBottom}) {
    pane->SetVisible(!caseStudy);
  }
  controls.brwButtons.Show();
}

void PaneLayout::SizeSplitterPanes() {
  FormControls& controls = form_.controls;
  ShowAnswerButtons();
  controls.txtItemStem.SetWidth(std::max(0.0F, controls.scrItemStem.width() - 4 * form_.TwipsX()));
  sizing_.SizeSourceArea();
  sizing_.SizeWorkArea();
  SizeStem();
  recorder_.WriteStateValue("SourceAreaWidth", ToText(panes_.SourceAreaSize()));
  recorder_.WriteStateValue("ItemStemHeight", ToText(panes_.RectOf("ItemStem").height));
}

void PaneLayout::ShowAnswerButtons() {
  FormControls& controls = form_.controls;
  const bool show = form_.options.ShowAnswers;
  for (int t = 1; t <= controls.cmdTargetAnswerValue.UpperBound(); ++t) {
    controls.cmdTargetAnswerValue[t].SetVisible(show);
  }
  for (int s = 1; s <= controls.cmdSourceValue.UpperBound(); ++s) {
    controls.cmdSourceValue[s].SetVisible(show);
  }
}

void PaneLayout::SizeStem() {
  FormControls& controls = form_.controls;
  const float onePixel = static_cast<float>(form_.layout.MarginX) / 10;
  const float pane = panes_.RectOf("ItemStem").height;
  controls.scrItemStem.SetHeight(std::max(0.0F, pane - onePixel));
  controls.txtItemStem.Move({0, 0, std::max(0.0F, controls.scrItemStem.width() - onePixel),
                             controls.scrItemStem.height()});
  // Whether it needs a scroll bar is judged without the room that one would take.
  controls.txtItemStem.SetScrollsItself(false);
  const float content =
      static_cast<float>(controls.txtItemStem.ContentHeightPixels()) * form_.TwipsY();
  controls.txtItemStem.SetScrollsItself(content > pane);
}

}  // namespace zav
