// Shows an HTML page. Pages load later, from the event loop; a pane that was given a page is not
// ready until the platform has reported that very page loaded.
#pragma once

#include <string>

#include "controls/Control.h"

namespace zav {

// What a page tells about something that happened in it; the handler decides what becomes of it.
struct PageEvent {
  std::string type;      // "click", "selectstart", "keydown", "scroll", ...
  std::string sourceId;  // the id of the element that it happened to
  bool altKey = false;
  int keyCode = 0;              // may be replaced by the handler
  bool cancelBubble = false;    // set by the handler: nobody else hears of it
  bool returnValue = true;      // cleared by the handler: the page's own reaction is left out
  bool clearSelection = false;  // set by the handler: whatever is selected is deselected
};

class HtmlPane : public Control {
 public:
  HtmlPane(ControlHost& host, Control* container, std::string name, int index = -1)
      : Control(host, ControlKind::HtmlPane, container, std::move(name), index) {}
  ~HtmlPane() override;

  void LoadHtml(std::string page);
  [[nodiscard]] const std::string& page() const { return page_; }
  [[nodiscard]] bool IsReady() const { return !loading_; }

  // What the page has of the pane's width: a pane that scrolls itself keeps room for its bar.
  [[nodiscard]] int LayoutWidthPixels() const;
  // Of the loaded page, laid out as wide as the pane is now. 0 without a page.
  [[nodiscard]] int ContentHeightPixels() const;
  [[nodiscard]] int ScrollTopPixels() const;

  // Around the page, in pixels.
  [[nodiscard]] int marginPixels() const { return marginPixels_; }
  void SetMargin(int pixels) { Set(marginPixels_, pixels, change::kLook); }
  [[nodiscard]] bool hasBorder() const { return hasBorder_; }
  void SetHasBorder(bool hasBorder) { Set(hasBorder_, hasBorder, change::kLook); }
  // Off: whatever does not fit is cut, and the wheel does nothing.
  [[nodiscard]] bool scrollsItself() const { return scrollsItself_; }
  void SetScrollsItself(bool scrolls) { Set(scrollsItself_, scrolls, change::kLook); }

  Handler<void()> onPageLoaded;
  Handler<void(PageEvent&)> onPageEvent;
  void RaisePageEvent(PageEvent& event);

 private:
  std::string page_;
  bool loading_ = false;
  int marginPixels_ = 0;
  bool hasBorder_ = false;
  bool scrollsItself_ = false;
};

}  // namespace zav
