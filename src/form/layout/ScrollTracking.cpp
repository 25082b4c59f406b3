#include "form/layout/ScrollTracking.h"

#include "automation/Conversions.h"

namespace zav {
namespace {

constexpr std::int32_t kFullWidth = 1;
constexpr std::int32_t kFullHeight = 2;
constexpr float kSourceSlackTwips = 350;

bool RightEdgeSeen(const ScrollFrame& frame, float slack) {
  return frame.width() + frame.scrollX() + slack > frame.scrollWidth();
}

bool BottomSeen(const ScrollFrame& frame, float slack) {
  return frame.height() + frame.scrollY() + slack > frame.scrollHeight();
}

}  // namespace

void ScrollTracking::SetScrollFlags() {
  form_.Trap("SetScrollFlags", [&] {
    LayoutState& layout = form_.layout;
    const std::int32_t work = SeenAtOnce(form_.controls.scrWork);
    const std::int32_t source = SeenAtOnce(form_.controls.scrSource);
    if (layout.SavedScrollComplete) {
      layout.SavedItemStemScroll = layout.SavedItemStemScroll || ItemStemAtEnd();
      layout.SavedWorkAreaScroll |= work;
      layout.SavedSourceAreaScroll |= source;
    } else {
      layout.SavedItemStemScroll = ItemStemAtEnd();
      layout.SavedWorkAreaScroll = work;
      layout.SavedSourceAreaScroll = source;
      layout.SavedScrollComplete = true;
    }
    if (!layout.Loading) WriteValues();
  });
}

void ScrollTracking::WriteValues() {
  const LayoutState& layout = form_.layout;
  recorder_.WriteStateValue("ItemStemScroll", ToText(layout.SavedItemStemScroll));
  recorder_.WriteStateValue("WorkAreaScroll", ToText(layout.SavedWorkAreaScroll));
  recorder_.WriteStateValue("SourceAreaScroll", ToText(layout.SavedSourceAreaScroll));
}

void ScrollTracking::scrSource_HScroll() {
  if (form_.layout.Loading || !RightEdgeSeen(form_.controls.scrSource, kSourceSlackTwips)) return;
  AddSeen(form_.layout.SavedSourceAreaScroll, kFullWidth, "SourceAreaScroll");
}

void ScrollTracking::scrSource_VScroll() {
  if (!BottomSeen(form_.controls.scrSource, kSourceSlackTwips)) return;
  AddSeen(form_.layout.SavedSourceAreaScroll, kFullHeight, "SourceAreaScroll");
}

void ScrollTracking::scrWork_HScroll() {
  const float slack = 2 * static_cast<float>(form_.layout.MarginX);
  if (!RightEdgeSeen(form_.controls.scrWork, slack)) return;
  AddSeen(form_.layout.SavedWorkAreaScroll, kFullWidth, "WorkAreaScroll");
}

void ScrollTracking::scrWork_VScroll() {
  const float slack = 2 * static_cast<float>(form_.layout.MarginX);
  if (!BottomSeen(form_.controls.scrWork, slack)) return;
  AddSeen(form_.layout.SavedWorkAreaScroll, kFullHeight, "WorkAreaScroll");
}

void ScrollTracking::txtItemStem_Scroll() {
  if (form_.layout.SavedItemStemScroll || !ItemStemAtEnd()) return;
  form_.layout.SavedItemStemScroll = true;
  recorder_.WriteStateValue("ItemStemScroll", "True");
}

bool ScrollTracking::ViewedWhole() const {
  const LayoutState& layout = form_.layout;
  return layout.SavedItemStemScroll && layout.SavedWorkAreaScroll == kViewedWhole &&
         layout.SavedSourceAreaScroll == kViewedWhole;
}

bool ScrollTracking::ItemStemAtEnd() const {
  const HtmlPane& stem = form_.controls.txtItemStem;
  return stem.height() / form_.TwipsY() + static_cast<float>(stem.ScrollTopPixels()) >=
         static_cast<float>(stem.ContentHeightPixels());
}

std::int32_t ScrollTracking::SeenAtOnce(const ScrollFrame& frame) {
  return (frame.height() >= frame.scrollHeight() ? kFullHeight : 0) +
         (frame.width() >= frame.scrollWidth() ? kFullWidth : 0);
}

void ScrollTracking::AddSeen(std::int32_t& value, std::int32_t bit, const char* name) {
  if ((value & bit) != 0) return;
  value |= bit;
  recorder_.WriteStateValue(name, ToText(value));
}

}  // namespace zav
