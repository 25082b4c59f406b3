// The browser as it is reached from WebAssembly: each operation is a function of the page's.
#pragma once

#include "platform/web/Browser.h"

namespace zav {

class PageBrowser final : public Browser {
 public:
  void Present(ComponentNumber component, std::span<const std::int32_t> words,
               std::string_view texts) override;
  void ArrangeWindows(ComponentNumber component, std::span<const ShownWindow> windows) override;
  int RichTextHeight(ComponentNumber component, const RichContent& content,
                     int widthPixels) override;
  void LoadPage(ComponentNumber component, ControlId pane, std::string_view html,
                std::int32_t ticket) override;
  void DropPage(ComponentNumber component, ControlId pane) override;
  int PageContentHeight(ComponentNumber component, ControlId pane, int widthPixels,
                        int marginPixels) override;
  int PageScrollTop(ComponentNumber component, ControlId pane) override;
  void StartTimer(ComponentNumber component, ControlId timer, int milliseconds) override;
  void StopTimer(ComponentNumber component, ControlId timer) override;
  void NamePicture(ComponentNumber component, std::string_view path, std::int32_t picture) override;
  std::vector<std::uint8_t> Invoke(std::int32_t object, std::string_view member,
                                   std::span<const std::uint8_t> arguments, bool isPut) override;
  void ReleaseObject(std::int32_t object) override;
  void DropQuestion(std::int32_t question) override;
};

}  // namespace zav
