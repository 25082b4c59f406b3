#include "platform/headless/PageStore.h"

#include <algorithm>
#include <utility>

namespace zav {
namespace {

constexpr std::size_t kMostMeasures = 8;
constexpr int kProbeStep = 3;  // pixels; smaller than any button

struct PixelSize {
  int width;
  int height;
};

PixelSize SizeOf(const HtmlPane& pane) {
  const TwipsPerPixel twips = pane.host().twipsPerPixel();
  const Size size = pane.SizeInTwips();
  return {static_cast<int>(size.width) / twips.x, static_cast<int>(size.height) / twips.y};
}

}  // namespace

void PageStore::Load(ControlId pane, const std::string& html, std::function<void()> loaded) {
  Page& page = pages_[pane];
  clock_.Cancel(page.load);
  page.load = clock_.Post(delay_, [this, pane, html, loaded = std::move(loaded)] {
    Show(pane, html);
    loaded();
  });
}

void PageStore::Drop(ControlId pane) {
  const auto found = pages_.find(pane);
  if (found == pages_.end()) return;
  clock_.Cancel(found->second.load);
  pages_.erase(found);
}

int PageStore::ContentHeight(ControlId pane, int widthPixels, int marginPixels, const Font& font) {
  const auto found = pages_.find(pane);
  if (found == pages_.end() || found->second.html.empty()) return 0;
  std::vector<Measure>& measures = found->second.measures;
  const auto known = std::find_if(measures.begin(), measures.end(), [&](const Measure& measure) {
    return measure.width == widthPixels && measure.margin == marginPixels && measure.font == font;
  });
  if (known != measures.end()) return known->height;
  const HtmlOptions options{
      .marginPixels = marginPixels, .font = font, .loadPicture = loadPicture_};
  const int height = HtmlHeightPixels(found->second.html, widthPixels, options);
  if (measures.size() == kMostMeasures) measures.erase(measures.begin());
  measures.push_back({widthPixels, marginPixels, font, height});
  return height;
}

int PageStore::ScrollTop(ControlId pane) const {
  const auto found = pages_.find(pane);
  return found == pages_.end() ? 0 : found->second.scrollTop;
}

void PageStore::ScrollTo(HtmlPane& pane, int topPixels) {
  const auto found = pages_.find(pane.id());
  if (found == pages_.end() || !pane.scrollsItself()) return;
  const auto [width, height] = SizeOf(pane);
  const int whole = ContentHeight(pane.id(), width, pane.marginPixels(), pane.font());
  const int top = std::clamp(topPixels, 0, std::max(0, whole - height));
  if (std::exchange(found->second.scrollTop, top) == top) return;
  PageEvent event{"scroll", {}};
  pane.RaisePageEvent(event);
}

std::string PageStore::ElementAt(const HtmlPane& pane, Point at) const {
  const TwipsPerPixel twips = pane.host().twipsPerPixel();
  const int x = static_cast<int>(at.x) / twips.x;
  const int y = static_cast<int>(at.y) / twips.y;
  return LayOut(pane).IdAt(x, y + ScrollTop(pane.id()));
}

std::optional<Point> PageStore::PlaceOf(const HtmlPane& pane, std::string_view id) const {
  const HtmlLayout layout = LayOut(pane);
  const TwipsPerPixel twips = pane.host().twipsPerPixel();
  const auto [width, height] = SizeOf(pane);
  const int scrollTop = ScrollTop(pane.id());
  for (int y = 0; y < height; y += kProbeStep) {
    for (int x = 0; x < width; x += kProbeStep) {
      if (layout.IdAt(x, y + scrollTop) != id) continue;
      return Point{static_cast<float>(x * twips.x), static_cast<float>(y * twips.y)};
    }
  }
  return std::nullopt;
}

void PageStore::Show(ControlId pane, std::string html) {
  pages_[pane] = Page{std::move(html), 0, {}, {}};
}

HtmlLayout PageStore::LayOut(const HtmlPane& pane) const {
  const auto found = pages_.find(pane.id());
  const int height = SizeOf(pane).height;
  return {found == pages_.end() ? std::string() : found->second.html,
          pane.LayoutWidthPixels(),
          height,
          {.marginPixels = pane.marginPixels(), .font = pane.font(), .loadPicture = loadPicture_}};
}

}  // namespace zav
