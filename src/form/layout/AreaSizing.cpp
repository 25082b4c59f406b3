#include "form/layout/AreaSizing.h"

#include <algorithm>
#include <cstdlib>

#include "automation/Conversions.h"
#include "automation/Text.h"
#include "document/ItemTag.h"
#include "form/ItemParts.h"

namespace zav {
namespace {

// Pixels. A card's frame stands three above its item and one at its left, and runs along its right
// and lower edge; its shadow falls two further to the right and below.
constexpr float kBetweenItemsPixels = 12;
constexpr float kBetweenRowsPixels = 14;
constexpr float kBesideItemsPixels = 10;
constexpr float kSourcePaneRoomPixels = 25;
constexpr float kShrinkSlackPixels = 8;
constexpr float kEndMargins = 2.5F;

// The four numbers at the front of a callout's tag: top, left, height, width in pixels.
Rect CalloutRect(const std::string& tag) {
  float values[4] = {};
  std::string_view rest = tag;
  for (float& value : values) {
    const std::size_t colon = rest.find(':');
    if (colon == std::string_view::npos) break;
    value = ToSingle(std::string(rest.substr(0, colon)));
    rest.remove_prefix(colon + 1);
  }
  return {values[1], values[0], values[3], values[2]};
}

}  // namespace

// However far the layout gets, the source items are there to be dragged.
void AreaSizing::SizeSourceArea() {
  form_.controls.pcSource.Hide();
  RunBoth([&] { form_.Trap("SizeSourceArea", [&] { ArrangeSourceArea(); }); },
          [&] { form_.controls.pcSource.Show(); });
}

void AreaSizing::ArrangeSourceArea() {
  FormControls& controls = form_.controls;
  LayoutState& layout = form_.layout;
  const bool sizesKept = layout.ItemStemHeightRestored;
  controls.pcSource.SetLeft(0);
  controls.txtItemStem.SetWidth(controls.scrItemStem.width());
  if (!sizesKept) {
    SizePanes();
    SizeSources();
    SizeTargets();
  }
  ResetScrolling();
  if (form_.tables.SourceAreaOnLeft) {
    SizeSourcesLeft();
  } else {
    SizeSourcesTop(!sizesKept);
  }
  layout.ItemStemHeightRestored = true;
}

void AreaSizing::SizePanes() {
  panes_.SetHeight("ItemStem", StemHeight());
  if (form_.tables.SourceAreaOnLeft) {
    panes_.SetWidth("SourceArea", static_cast<float>(form_.tables.SourceAreaWidth) +
                                      kSourcePaneRoomPixels * form_.TwipsY());
    return;
  }
  panes_.SetHeight("workArea", panes_.LeastHeight("workArea"));
  const float content = form_.controls.scrSource.scrollHeight();
  if (content + kShrinkSlackPixels * form_.TwipsY() < panes_.RectOf("SourceArea").height) {
    panes_.SetHeight("SourceArea", content);
  }
}

float AreaSizing::StemHeight() const {
  const auto margin = static_cast<float>(form_.layout.MarginX);
  const float content =
      static_cast<float>(form_.controls.txtItemStem.ContentHeightPixels()) * form_.TwipsY();
  const float most = form_.controls.form.height() / 2 - margin;
  const float wanted = most < content ? most : margin + content;
  return std::max(wanted, panes_.LeastHeight("ItemStem"));
}

void AreaSizing::SizeSources() {
  form_.Trap("SizeSources", [&] {
    for (int s = 1; s <= form_.controls.imgSource.UpperBound(); ++s) SizeSource(s);
  });
}

void AreaSizing::SizeSource(int source) {
  FormControls& controls = form_.controls;
  PictureButton& picture = controls.imgSource[source];
  RichText& text = controls.txtSource[source];
  const clsGroup& group = form_.tables.GroupOf(picture.tag());
  const Size item{static_cast<float>(group.ItemWidth), static_cast<float>(group.ItemHeight)};
  const bool hasText = !TrimBlanks(text.Export()).empty();
  const ItemParts parts = DivideItem(item.height, picture.picture() != nullptr,
                                     hasText ? text.ContentHeightTwips(item.width) : 0);
  if (picture.picture()) picture.Resize(item.width, parts.pictureHeight);
  text.Resize(item.width, parts.textHeight);
  text.SetVisible(hasText);
  controls.imgSourceCover[source].Resize(item.width, item.height);
  controls.imgSourceCover[source].BringToFront();
}

void AreaSizing::SizeTargets() {
  const int count = static_cast<int>(form_.tables.TargetList.Count());
  for (int t = 1; t <= count; ++t) targetLook_.Arrange(t);
}

void AreaSizing::ResetScrolling() {
  FormControls& controls = form_.controls;
  controls.scrSource.SetScrollY(0);
  controls.pcSource.SetTop(0);
  controls.scrSource.SetScrollX(0);
  controls.pcSource.SetLeft(0);
}

ArrangementGaps AreaSizing::Gaps() const {
  ArrangementGaps gaps;
  gaps.betweenItems = kBetweenItemsPixels * form_.TwipsX();
  gaps.betweenRows = kBetweenRowsPixels * form_.TwipsY();
  gaps.besideItems = kBesideItemsPixels * form_.TwipsX();
  gaps.betweenGroups = static_cast<float>(form_.layout.MarginX);
  gaps.atEnd = static_cast<float>(form_.layout.MarginY);
  return gaps;
}

void AreaSizing::SizeSourcesTop(bool paneFollows) {
  form_.Trap("SizeSourcesTop", [&] {
    FormControls& controls = form_.controls;
    const Rect& pane = panes_.RectOf("SourceArea");
    ArrangementGaps gaps = Gaps();
    gaps.atEnd = kEndMargins * static_cast<float>(form_.layout.MarginX);
    const float area = pane.width - static_cast<float>(kScrollBarPixels) * form_.TwipsX();
    const auto left = static_cast<float>(form_.layout.MarginY);
    const GroupArrangement arrangement = Arrange([&](const std::vector<GroupRequest>& groups) {
      return ArrangeGroupsTop(groups, area, left, gaps);
    });
    Apply(arrangement);
    controls.scrSource.SetScrollWidth(arrangement.surface.width);
    if (paneFollows) panes_.SetHeight("SourceArea", arrangement.surface.height);
  });
}

void AreaSizing::SizeSourcesLeft() {
  form_.Trap("SizeSourcesLeft", [&] {
    FormControls& controls = form_.controls;
    ArrangementGaps gaps = Gaps();
    gaps.scrollBar = static_cast<float>(kScrollBarPixels) * form_.TwipsX();
    const float width = controls.scrSource.width() - form_.TwipsX();
    const GroupArrangement arrangement = Arrange([&](const std::vector<GroupRequest>& groups) {
      return ArrangeGroupsLeft(groups, width, gaps);
    });
    Apply(arrangement);
    controls.scrSource.SetScrollWidth(arrangement.surface.width);
  });
}

// Heights depend on widths, but widths not on heights.
GroupArrangement AreaSizing::Arrange(Arranger arrange) {
  std::vector<GroupRequest> requests = RequestGroups();
  const GroupArrangement widths = arrange(requests);
  std::size_t index = 0;
  for (const clsGroup& group : form_.tables.GroupList) {
    group.Heading->SetWidth(widths.groups[index].heading.width);
    requests[index++].headingHeight =
        static_cast<float>(group.Heading->ContentHeightPixels()) * form_.TwipsY();
  }
  return arrange(requests);
}

std::vector<GroupRequest> AreaSizing::RequestGroups() const {
  std::vector<GroupRequest> requests;
  for (const clsGroup& group : form_.tables.GroupList) {
    GroupRequest request;
    request.item = {static_cast<float>(group.ItemWidth), static_cast<float>(group.ItemHeight)};
    for (const RichText* text : group.Sources) request.itemCount += TakesRoom(text->index());
    requests.push_back(request);
  }
  return requests;
}

bool AreaSizing::TakesRoom(int source) const {
  const FormControls& controls = form_.controls;
  return controls.imgSource[source].picture() != nullptr ||
         !TrimBlanks(controls.txtSource[source].Export()).empty();
}

void AreaSizing::Apply(const GroupArrangement& arrangement) {
  FormControls& controls = form_.controls;
  controls.pcSource.Resize(arrangement.surface.width, arrangement.surface.height);
  controls.scrSource.SetScrollHeight(arrangement.surface.height);
  std::size_t index = 0;
  for (const clsGroup& group : form_.tables.GroupList) {
    const ArrangedGroup& arranged = arrangement.groups[index++];
    group.Heading->Show();
    group.Heading->Move(arranged.heading);
    auto place = arranged.items.begin();
    for (const RichText* text : group.Sources) {
      if (TakesRoom(text->index())) PlaceSource(text->index(), *place++);
    }
  }
}

void AreaSizing::PlaceSource(int source, Point at) {
  FormControls& controls = form_.controls;
  PictureButton& picture = controls.imgSource[source];
  picture.MoveTo(at.x, at.y);
  controls.txtSource[source].MoveTo(at.x, at.y + (picture.picture() ? picture.height() : 0));
  controls.imgSourceCover[source].MoveTo(at.x, at.y);
  if (!form_.options.ShowAnswers) return;
  controls.cmdSourceValue[source].MoveTo(at.x, at.y);
  controls.cmdSourceValue[source].BringToFront();
}

void AreaSizing::SizeWorkArea() {
  form_.Trap("SizeWorkArea", [&] {
    FormControls& controls = form_.controls;
    pcWorkContainer_Resize();
    PlaceCallouts();
    controls.scrWork.SetScrollX(0);
    controls.scrWork.SetScrollY(0);
    const float room = controls.scrWork.width() -
                       (static_cast<float>(form_.layout.MarginX) + controls.pcWork.width());
    controls.pcWork.MoveTo(room > 0 ? room / 2 : 0, 0);
    refresh_.RefreshWorkArea();
  });
}

void AreaSizing::SizeWorkHeading(float width) {
  HtmlPane& heading = form_.controls.txtWorkHeading;
  heading.Move({0, 0, width, heading.height()});
  heading.SetHeight(static_cast<float>(heading.ContentHeightPixels()) * form_.TwipsY());
}

void AreaSizing::pcWorkContainer_Resize() {
  FormControls& controls = form_.controls;
  const float width = controls.pcWorkContainer.width();
  const float height = controls.pcWorkContainer.height();
  SizeWorkHeading(width);
  const float heading = controls.txtWorkHeading.height();
  const float fivePixels = static_cast<float>(form_.layout.MarginX) / 2;
  if (height - fivePixels > heading) {
    controls.scrWork.Move({0, heading, width, height - heading});
  } else {
    controls.scrWork.Move({0, heading, std::max(0.0F, width - fivePixels), fivePixels});
  }
}

void AreaSizing::PlaceCallouts() {
  for (int k = 1; k <= kMostCallouts; ++k) {
    HtmlPane& callout = form_.controls.txtCallout[k];
    if (!callout.tag().empty()) callout.Move(CalloutRect(callout.tag()));
  }
}

}  // namespace zav
