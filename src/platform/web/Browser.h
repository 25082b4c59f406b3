// What the browser's side does for the web platform: everything that needs the DOM or a host object
// that lives in JavaScript. Sizes are CSS pixels. None of it raises, but where it says so.
//
// component is the number by which the page knows the element that an item stands in.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Font.h"
#include "platform/Services.h"

namespace zav {

using ComponentNumber = std::int32_t;

// A window as the page has to show it. Windows come from back to front.
struct ShownWindow {
  WindowHandle handle = 0;
  ControlId form = 0;  // 0: a program's window
  bool visible = false;
};

class Browser {
 public:
  Browser() = default;
  Browser(const Browser&) = delete;
  Browser& operator=(const Browser&) = delete;
  virtual ~Browser() = default;

  // Changes as ChangeBuffer lays them out.
  virtual void Present(ComponentNumber component, std::span<const std::int32_t> words,
                       std::string_view texts) = 0;
  virtual void ArrangeWindows(ComponentNumber component, std::span<const ShownWindow> windows) = 0;

  virtual int RichTextHeight(ComponentNumber component, const RichContent& content,
                             int widthPixels) = 0;
  // The page answers later, with the same ticket, when the content can be measured and seen.
  virtual void LoadPage(ComponentNumber component, ControlId pane, std::string_view html,
                        std::int32_t ticket) = 0;
  virtual void DropPage(ComponentNumber component, ControlId pane) = 0;
  virtual int PageContentHeight(ComponentNumber component, ControlId pane, int widthPixels,
                                int marginPixels) = 0;
  virtual int PageScrollTop(ComponentNumber component, ControlId pane) = 0;

  virtual void StartTimer(ComponentNumber component, ControlId timer, int milliseconds) = 0;
  virtual void StopTimer(ComponentNumber component, ControlId timer) = 0;

  // From now on pages find that picture under this path too.
  virtual void NamePicture(ComponentNumber component, std::string_view path,
                           std::int32_t picture) = 0;

  // Calls a member of a JavaScript object: arguments and answer as VariantCodec lays them out.
  virtual std::vector<std::uint8_t> Invoke(std::int32_t object, std::string_view member,
                                           std::span<const std::uint8_t> arguments, bool isPut) = 0;
  virtual void ReleaseObject(std::int32_t object) = 0;
  // Nobody waits for the answer any more: the dialog goes.
  virtual void DropQuestion(std::int32_t question) = 0;
};

}  // namespace zav
