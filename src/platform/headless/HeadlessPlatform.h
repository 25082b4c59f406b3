// A window system without a screen: the same on every machine, moved by hand.
//
// Time is virtual: pages load, timers tick and programs start only while the clock is moved. Text
// has fixed metrics. What a candidate does comes in through the operations below and reaches the
// controls as it would from a real mouse and keyboard. Pictures and files are real.
//
// Places are twips of the window that the forms stand in: a form's top left corner is at its own
// left and top.
#pragma once

#include <chrono>
#include <map>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "controls/Form.h"
#include "controls/HtmlPane.h"
#include "platform/Presenter.h"
#include "platform/Services.h"
#include "platform/WindowTable.h"
#include "platform/headless/CandidateInput.h"
#include "platform/headless/PageStore.h"
#include "platform/headless/VirtualClock.h"

namespace zav {

struct HeadlessOptions {
  int widthPixels = 1024;
  int heightPixels = 768;
  int twipsPerPixel = 15;
};

// A program that Shell can start: it opens one window on the desktop, hidden.
struct Program {
  std::string className;
  std::string title;
  std::chrono::milliseconds startupDelay{0};  // 0: the window is there when Shell returns
};

// What one call of Present brought.
struct PresentedBatch {
  struct Change {
    ControlId id;
    unsigned what;  // of change::
  };
  std::vector<Change> changed;
  std::vector<ControlId> removed;
};

class HeadlessPlatform final : public Services, public Presenter {
 public:
  using Milliseconds = std::chrono::milliseconds;

  explicit HeadlessPlatform(HeadlessOptions options);

  // What a component is made with.
  [[nodiscard]] Platform platform() { return {*this, *this}; }
  [[nodiscard]] const HeadlessOptions& options() const { return options_; }

  // Runs everything that falls due in that time, in order: by time, then as it was made. Raises 51
  // when events follow one another without end.
  void Advance(Milliseconds time) { clock_.Advance(time); }
  // Runs what is due now, that is, page loads and what they post, until nothing is left.
  void RunPosted() { clock_.Advance(Milliseconds(0)); }
  [[nodiscard]] Milliseconds Now() const { return clock_.Now(); }
  // How long the pages that are started from now on take to load; 0 at first.
  void SetPageDelay(Milliseconds delay) { pages_.SetDelay(delay); }

  // The pointer. Pressing captures it for the control under it until it is released; a press while
  // it is pressed goes to that control too. Moving and releasing reach the captured control
  // wherever the pointer is, moving without a button the control under it.
  void Press(Point at) { input_.Press(at); }
  void MoveTo(Point at) { input_.MoveTo(at); }
  void Release() { input_.Release(); }
  // The system takes the pointer away.
  void Cancel() { input_.Cancel(); }
  // The button goes up where nobody hears of it.
  void LoseRelease() { input_.LoseRelease(); }
  [[nodiscard]] bool IsPressed() const { return input_.IsPressed(); }

  // Presses and releases on the page's element of that id. False when no part of it can be seen.
  bool Click(HtmlPane& pane, std::string_view elementId);
  // Scrolls the page as far as it goes; the page tells "scroll" when that moved it.
  void ScrollPageTo(HtmlPane& pane, int topPixels);

  // The keyboard. A press gives the focus to a control that takes it; Focus to any control that is
  // shown and enabled. Keys go to the control that has it.
  void Focus(Control& control) { input_.Focus(control); }
  void Key(const KeyEvent& event) { input_.Key(event); }
  // Null when no control has the focus.
  [[nodiscard]] Control* Focused() const { return input_.Focused(); }

  // A window of the host's, on the desktop.
  WindowHandle CreateHostWindow(const std::string& title);
  // Closes a window as the candidate or its owner does. A form is asked, and may stay open.
  void CloseWindow(WindowHandle window);
  [[nodiscard]] const WindowTable& windows() const { return windows_; }
  // Only the last part of the path counts, without regard to case.
  void RegisterProgram(std::string_view path, Program program);

  // The forms presented so far, the one in front last; some may be hidden.
  [[nodiscard]] std::vector<Form*> Forms() const { return windows_.Forms(); }

  [[nodiscard]] int PresentedBatches() const { return presentedBatches_; }
  [[nodiscard]] const PresentedBatch& LastBatch() const { return lastBatch_; }

  [[nodiscard]] TwipsPerPixel ScreenTwipsPerPixel() const override;
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
  void Shell(const std::string& path) override;
  bool FileExists(const std::string& path) override;
  std::vector<std::uint8_t> ReadFile(const std::string& path) override;
  void WriteFile(const std::string& path, const std::vector<std::uint8_t>& bytes) override;
  void DeleteFiles(const std::string& pattern) override;

  void Present(std::span<Control* const> changed, std::span<const ControlId> removed) override;

 private:
  [[nodiscard]] PictureLoader PageLoader();

  HeadlessOptions options_;
  VirtualClock clock_;
  VirtualTimers timers_;
  WindowTable windows_;
  PageStore pages_;
  CandidateInput input_;
  std::map<std::string, Program> programs_;  // by file name in upper case
  std::map<std::string, PictureRef, std::less<>> resources_;
  std::map<std::string, std::weak_ptr<const Picture>> pictures_;  // by path, while they are shown
  std::map<ControlId, const Control*> panes_;                     // that were presented
  int presentedBatches_ = 0;
  PresentedBatch lastBatch_;
};

std::unique_ptr<HeadlessPlatform> MakeHeadlessPlatform(HeadlessOptions options = {});

}  // namespace zav
