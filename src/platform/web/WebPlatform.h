// A browser's page as the window system of one component.
//
// The page shows the controls and measures; what can be kept here is kept here. Files and pictures
// are brought by the page before the item is initialised: nothing is fetched on the way, and what
// was not brought is not there. Windows stand within the element.
#pragma once

#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "automation/Handler.h"
#include "platform/Presenter.h"
#include "platform/Services.h"
#include "platform/WindowTable.h"
#include "platform/web/Browser.h"
#include "platform/web/ChangeBuffer.h"

namespace zav {

class WebPlatform final : public Services, public Presenter {
 public:
  // The browser outlives the platform.
  WebPlatform(Browser& browser, ComponentNumber component);

  // What a component is made with.
  [[nodiscard]] Platform platform() { return {*this, *this}; }

  // Brought by the page. number 0: there is such a file, but it is no picture.
  void AddPicture(std::string_view path, std::int32_t number, int widthPixels, int heightPixels);
  void AddResourcePicture(std::string_view tag, std::int32_t number, int widthPixels,
                          int heightPixels);
  void AddFile(std::string_view path, std::vector<std::uint8_t> bytes);

  // Told by the page.
  void PageLoaded(std::int32_t ticket);
  void TimerTicked(ControlId timer);
  // The candidate closes a window. A form is asked, and may stay open.
  void CloseWindow(WindowHandle window);
  // The candidate presses into a window.
  void RaiseWindow(WindowHandle window);

  // The window that the item's host stands for.
  [[nodiscard]] WindowHandle hostWindow() const { return hostWindow_; }
  // Null for a control that is not there, or no longer.
  [[nodiscard]] Control* Find(ControlId id) const;

  [[nodiscard]] TwipsPerPixel ScreenTwipsPerPixel() const override { return {}; }
  PictureRef LoadPicture(const std::string& path) override;
  PictureRef ResourcePicture(std::string_view tag) override;
  void SavePicture(const Picture& picture, const std::string& path) override;
  int RichTextHeight(const RichContent& content, int widthPixels) override;
  void LoadPage(ControlId pane, const std::string& html, Handler<void()> loaded) override;
  void DropPage(ControlId pane) override;
  int PageContentHeight(ControlId pane, int paneWidthPixels, int marginPixels) override;
  int PageScrollTop(ControlId pane) override;
  void StartTimer(ControlId timer, int milliseconds, Handler<void()> tick) override;
  void StopTimer(ControlId timer) override;
  WindowHandle CreateFormWindow(const std::string& title) override;
  void DestroyFormWindow(WindowHandle window) override;
  WindowHandle SetParent(WindowHandle window, WindowHandle parent) override;
  bool IsWindow(WindowHandle window) override;
  WindowHandle FindWindow(std::string_view className, std::string_view title) override;
  void BringWindowToTop(WindowHandle window) override;
  void RestoreWindow(WindowHandle window) override;
  void SendClose(WindowHandle window) override;
  // Knows the calculator only.
  void Shell(const std::string& path) override;
  bool FileExists(const std::string& path) override;
  std::vector<std::uint8_t> ReadFile(const std::string& path) override;
  void WriteFile(const std::string& path, const std::vector<std::uint8_t>& bytes) override;
  void DeleteFiles(const std::string& pattern) override;

  void Present(std::span<Control* const> changed, std::span<const ControlId> removed) override;

 private:
  using PictureTable = std::map<std::string, PictureRef, std::less<>>;
  struct PageLoad {
    ControlId pane;
    Handler<void()> loaded;
  };

  void ArrangeWindows();
  void ForgetLoadsOf(ControlId pane);

  Browser& browser_;
  const ComponentNumber component_;
  WindowTable windows_;
  WindowHandle hostWindow_;
  bool windowsChanged_ = false;  // since they were last arranged
  ChangeBuffer changes_;
  std::map<ControlId, Control*> controls_;
  PictureTable pictures_;  // by path, an own one's in upper case; null: no picture
  PictureTable resources_;
  std::map<std::string, std::vector<std::uint8_t>> files_;  // by path
  std::map<std::int32_t, PageLoad> loads_;                  // by ticket
  std::int32_t lastTicket_ = 0;
  std::map<ControlId, Handler<void()>> timers_;
};

}  // namespace zav
