// What the controls need of the window system under them. One object serves one component; it
// outlives every control. The other half, showing what changed, is Presenter.h.
//
// Nothing here knows items, targets or sources. Sizes are screen pixels where they say so, else
// twips. Operations that fail raise AutomationError; the numbers are named with them.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "automation/Handler.h"
#include "platform/Font.h"
#include "platform/Picture.h"

namespace zav {

using ControlId = std::uint32_t;    // unique among all controls, never 0
using WindowHandle = std::int32_t;  // 0: no window

// What a scroll bar takes of the width, or of the height, of what it scrolls.
inline constexpr int kScrollBarPixels = 15;

struct TwipsPerPixel {
  int x = 15;
  int y = 15;
};

// What a rich-text control holds: HTML (of which the platform shows what is harmless) or plain
// text in the control's font.
struct RichContent {
  bool isHtml = false;
  std::string text;
  Font font;
};

class Services {
 public:
  Services() = default;
  Services(const Services&) = delete;
  Services& operator=(const Services&) = delete;
  virtual ~Services() = default;

  [[nodiscard]] virtual TwipsPerPixel ScreenTwipsPerPixel() const = 0;

  // Pictures. An empty path gives no picture. Names of files are exact, but for IsOwnPicture.
  // Raises 53 for a file that is missing, 481 for one that is not a picture. A resource is a
  // picture that the component itself brings, by its tag.
  virtual PictureRef LoadPicture(const std::string& path) = 0;
  virtual PictureRef ResourcePicture(std::string_view tag) = 0;
  virtual void SavePicture(const Picture& picture, const std::string& path) = 0;  // as a bitmap

  // The height in pixels that the content takes when it is laid out that wide.
  virtual int RichTextHeight(const RichContent& content, int widthPixels) = 0;

  // HTML panes. LoadPage starts loading a page into a pane and returns at once; loaded is called
  // later, from the event loop, once, unless another page was started for the pane meanwhile. A
  // page that cannot be shown counts as loaded.
  virtual void LoadPage(ControlId pane, const std::string& html, Handler<void()> loaded) = 0;
  virtual void DropPage(ControlId pane) = 0;
  virtual int PageContentHeight(ControlId pane, int paneWidthPixels, int marginPixels) = 0;
  virtual int PageScrollTop(ControlId pane) = 0;

  // Timers tick from the event loop until they are stopped. Starting a running timer restarts it.
  virtual void StartTimer(ControlId timer, int milliseconds, Handler<void()> tick) = 0;
  virtual void StopTimer(ControlId timer) = 0;

  // Windows. SetParent returns the parent that the window had.
  virtual WindowHandle CreateFormWindow(const std::string& title) = 0;
  virtual void DestroyFormWindow(WindowHandle window) = 0;
  virtual WindowHandle SetParent(WindowHandle window, WindowHandle parent) = 0;
  virtual bool IsWindow(WindowHandle window) = 0;
  virtual WindowHandle FindWindow(std::string_view className, std::string_view title) = 0;
  virtual void BringWindowToTop(WindowHandle window) = 0;
  virtual void RestoreWindow(WindowHandle window) = 0;
  virtual void SendClose(WindowHandle window) = 0;

  // Starts a program hidden. Raises 53 when there is none at that path.
  virtual void Shell(const std::string& path) = 0;

  // Files. ReadFile raises 53 for a missing file, 75 for one that cannot be read. DeleteFiles takes
  // a pattern with one "*" in its last part and does nothing when no file matches.
  virtual bool FileExists(const std::string& path) = 0;
  virtual std::vector<std::uint8_t> ReadFile(const std::string& path) = 0;
  virtual void WriteFile(const std::string& path, const std::vector<std::uint8_t>& bytes) = 0;
  virtual void DeleteFiles(const std::string& pattern) = 0;
};

}  // namespace zav
