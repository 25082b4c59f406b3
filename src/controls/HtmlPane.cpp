#include "controls/HtmlPane.h"

#include <algorithm>
#include <utility>

namespace zav {

HtmlPane::~HtmlPane() { host().services().DropPage(id()); }

void HtmlPane::LoadHtml(std::string page) {
  page_ = std::move(page);
  loading_ = true;
  Changed(change::kContent);
  host().services().LoadPage(id(), page_, [this] {
    loading_ = false;
    if (onPageLoaded) host().RunEventInTurn(*this, [this] { onPageLoaded(); });
  });
}

int HtmlPane::LayoutWidthPixels() const {
  const float perPixel = static_cast<float>(host().twipsPerPixel().x);
  const int width = static_cast<int>(SizeInTwips().width / perPixel);
  return std::max(0, scrollsItself_ ? width - kScrollBarPixels : width);
}

int HtmlPane::ContentHeightPixels() const {
  if (page_.empty()) return 0;
  return host().services().PageContentHeight(id(), LayoutWidthPixels(), marginPixels_);
}

int HtmlPane::ScrollTopPixels() const {
  return scrollsItself_ ? host().services().PageScrollTop(id()) : 0;
}

void HtmlPane::RaisePageEvent(PageEvent& event) {
  if (Hears() && onPageEvent) host().RunEvent([&] { onPageEvent(event); });
}

}  // namespace zav
