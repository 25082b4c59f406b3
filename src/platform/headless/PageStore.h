// The pages that HTML panes show on the headless platform.
//
// A pane goes on showing what it showed until its new page is loaded; measures and scroll positions
// are those of the page that is shown, in pixels.
#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "controls/HtmlPane.h"
#include "platform/headless/HtmlLayout.h"
#include "platform/headless/VirtualClock.h"

namespace zav {

class PageStore {
 public:
  // The clock outlives the store.
  PageStore(VirtualClock& clock, PictureLoader loadPicture)
      : clock_(clock), loadPicture_(std::move(loadPicture)) {}

  // How long the pages that are started from now on take to load.
  void SetDelay(VirtualClock::Milliseconds delay) { delay_ = delay; }

  // As Services has them; text without a font of its own has the pane's.
  void Load(ControlId pane, const std::string& html, std::function<void()> loaded);
  void Drop(ControlId pane);
  int ContentHeight(ControlId pane, int widthPixels, int marginPixels, const Font& font);
  [[nodiscard]] int ScrollTop(ControlId pane) const;

  // Scrolls as far as the page goes, which is nowhere in a pane that does not scroll itself; the
  // pane hears "scroll" when that moved the page.
  void ScrollTo(HtmlPane& pane, int topPixels);

  // The id of the element at a point of the pane, in twips from its corner; empty where there is
  // none.
  [[nodiscard]] std::string ElementAt(const HtmlPane& pane, Point at) const;
  // A point of the element that lies within the pane, in twips from its corner.
  [[nodiscard]] std::optional<Point> PlaceOf(const HtmlPane& pane, std::string_view id) const;

 private:
  struct Measure {
    int width;
    int margin;
    Font font;
    int height;
  };
  struct Page {
    std::string html;
    int scrollTop = 0;
    std::vector<Measure> measures;  // made so far, the latest ones
    VirtualClock::Ticket load;      // of the page that is to come
  };

  void Show(ControlId pane, std::string html);
  [[nodiscard]] HtmlLayout LayOut(const HtmlPane& pane) const;

  VirtualClock& clock_;
  PictureLoader loadPicture_;
  VirtualClock::Milliseconds delay_{0};
  std::map<ControlId, Page> pages_;
};

}  // namespace zav
